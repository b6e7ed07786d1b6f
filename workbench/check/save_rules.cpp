// What a save changes: the lines that it writes are read once more.
#include <algorithm>
#include <array>

#include <ace/core/operation.h>
#include <ace/settings/action_line.h>

#include "sim/sim_settings.h"
#include "workbench/check/rule_tests.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// The lines of each list as a save writes them, without the count; none for an empty list.
using SavedLists = std::array<std::vector<String>, std::size(ActionLists)>;

SavedLists Saved(ThreadContext& context, const p_Subrange& set) {
    SavedLists saved;
    for (std::size_t i = 0; i < saved.size(); ++i) {
        const std::int32_t count = set.*ActionLists[i].count;
        const Value lines = count < 1
                                ? Value()
                                : modActions::WriteSection(context, set.*ActionLists[i].actions,
                                                           count, static_cast<std::int32_t>(i) + 1);
        if (const auto* const texts = std::get_if<DynArray<String>>(&lines)) {
            for (std::int32_t k = 1; k <= texts->UpperBound(); ++k) {
                saved[i].push_back((*texts)[k]);
            }
        }
    }
    return saved;
}

const String& LineOf(const SavedLists& saved, const CheckedLine& line) {
    return saved[static_cast<std::size_t>(line.list - 1)][static_cast<std::size_t>(line.entry)];
}

/// Every line that fills an entry is written as it stands, and in the order of the lists.
bool IsAsSaved(const CheckedSection& section, const SavedLists& saved) {
    std::pair<std::int32_t, std::int32_t> last{0, 0};
    return std::ranges::all_of(section.lines, [&](const CheckedLine& line) {
        if (line.meaning != LineMeaning::Entry) {
            return true;
        }
        const std::pair place(line.list, line.entry);
        const bool isNext = last < place;
        last = place;
        return isNext && line.text == LineOf(saved, line);
    });
}

/// The lists as a load of the written lines has them.
SavedLists SavedAgain(const SavedLists& saved) {
    const auto host = std::make_shared<sim::SimHost>();
    host->journal.KeepNone();
    ThreadContext context(host);
    std::vector<String>& lines = host->files[L"saved"][L"S"];
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (!saved[i].empty()) {
            lines.push_back(String(ActionListKeys[i].count) + L"=" +
                            std::to_wstring(saved[i].size()));
            lines.insert(lines.end(), saved[i].begin(), saved[i].end());
        }
    }
    sim::SimSettingsFile settings(*host, L"saved");
    p_Subrange set;
    modActions::ReadSection(context, settings, L"S", set);
    return Saved(context, set);
}

/// What stands behind the key.
String ValueOf(const String& line) {
    return line.substr(std::min(line.find(L'='), line.size() - 1) + 1);
}

}  // namespace

/// A section that can't be saved is told as that, and so is a line with a comma too many.
void RuleTests::SaveChanges(const CheckedFile& file, const CheckedSection& section,
                            const Found& found) {
    if (!section.stops.empty() || !section.emptyEntries.empty()) {
        return;
    }
    const SavedLists saved = Saved(file.Context(), section.Lists());
    if (IsAsSaved(section, saved)) {
        return;
    }
    const SavedLists again = SavedAgain(saved);
    for (const CheckedLine& line : section.lines) {
        const bool isWhole = line.meaning == LineMeaning::Entry &&
                             (line.Form().isOpen || line.FieldCount() <= line.Form().fields.size());
        if (line.fills && isWhole && LineOf(again, line) != LineOf(saved, line)) {
            found.At(file, section, line,
                     {QuotedLine(ValueOf(LineOf(saved, line))),
                      QuotedLine(ValueOf(LineOf(again, line)))});
        }
    }
}

}  // namespace ace::workbench
