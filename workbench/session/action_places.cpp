#include "workbench/session/action_places.h"

#include <functional>
#include <set>

#include <ace/core/text.h>
#include <ace/settings/action_line.h>

#include "workbench/files/disk_settings_file.h"
#include "workbench/files/place_text.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

const p_Subrange* SetAt(const SetPlace& place) {
    if (place.fixed != nullptr) {
        return place.fixed;
    }
    const bool isThere = place.sets->IsAllocated() && place.index >= place.sets->LowerBound() &&
                         place.index <= place.sets->UpperBound();
    return isThere ? &(*place.sets)[place.index] : nullptr;
}

/// The index of `action` in a list; -1 when it stands elsewhere.
std::int32_t IndexIn(const DynArray<p_Action>& actions, const p_Action* action) {
    if (!actions.IsAllocated() || actions.Size() == 0) {
        return -1;
    }
    const p_Action* const first = &actions[actions.LowerBound()];
    const p_Action* const last = &actions[actions.UpperBound()];
    const std::less<> isBefore;
    return isBefore(action, first) || isBefore(last, action)
               ? -1
               : static_cast<std::int32_t>(action - first);
}

/// The entry for which the key of a line that was passed over stands; -1 for none.
std::int32_t EntryOfKey(StringView key, std::int32_t list) {
    const StringView word = ActionListKeys[list - 1].entry;
    return WholeInteger(key.substr(word.size())).value_or(0) - 1;
}

}  // namespace

String EntryKey(const ActionSource& source) {
    return String(ActionListKeys[source.list - 1].entry) + std::to_wstring(source.entry + 1);
}

String SourceText(const String& fileName, const ActionSource& source) {
    const String entry = L" " + EntryKey(source);
    try {
        const std::optional<SettingsDocument> document = LoadDocument(ToUtf8(fileName));
        const auto index = static_cast<std::size_t>(source.lineIndex);
        if (document && source.lineIndex >= 0 &&
            index < document->GetSection(source.section).size()) {
            const String line = document->GetSection(source.section)[index];
            const std::size_t equals = line.find(L'=');
            return LinePlaceText(*document, fileName, source.section, index) + entry + L" " +
                   QuotedLine(equals == String::npos ? line : line.substr(equals + 1));
        }
    } catch (const RunTimeError&) {
        // the place is told without what can't be read
    }
    return fileName + L": [" + source.section + L"]" + entry;
}

void ActionPlaces::SetStarts(const SetPlace& place) {
    x_sets.push_back({place, {}, {}});
}

void ActionPlaces::SectionStarts(StringView section) {
    if (!x_sets.empty()) {
        x_sets.back().section = section;
    }
}

void ActionPlaces::LineIsRead(const LineReport& report) {
    const bool isEntry = report.meaning == LineMeaning::Entry;
    if (x_sets.empty() || (!isEntry && report.meaning != LineMeaning::UnknownKeyword)) {
        return;
    }
    const std::int32_t entry = isEntry ? report.entry : EntryOfKey(report.key, report.list);
    x_sets.back().entries.push_back({report.list, entry, report.lineIndex, isEntry});
}

void ActionPlaces::SetsMoved(const DynArray<p_Subrange>& sets,
                             const std::vector<std::int32_t>& indexes) {
    for (FilledSet& filled : x_sets) {
        const auto index = static_cast<std::size_t>(filled.place.index);
        if (filled.place.sets == &sets && index < indexes.size()) {
            filled.place.index = indexes[index];
        }
    }
}

std::vector<GoneSection> ActionPlaces::Gone() const {
    std::vector<GoneSection> gone;
    for (const FilledSet& filled : x_sets) {
        std::set<std::pair<std::int32_t, std::int32_t>> actions;
        const bool isGone = filled.place.fixed == nullptr && filled.place.index < 0;
        for (const EntryLineOf& line : filled.entries) {
            if (isGone && line.isAction) {
                actions.emplace(line.list, line.entry);
            }
        }
        if (!actions.empty()) {
            gone.push_back({filled.section, actions.size()});
        }
    }
    return gone;
}

std::optional<ActionSource> ActionPlaces::Find(const p_Action* action) const {
    for (const FilledSet& filled : x_sets) {
        const p_Subrange* const set = SetAt(filled.place);
        for (std::int32_t list = 1; set != nullptr && list <= 4; ++list) {
            const std::int32_t entry = IndexIn(set->*ActionLists[list - 1].actions, action);
            if (entry < 0) {
                continue;
            }
            ActionSource source{filled.section, list, entry, -1};
            for (const EntryLineOf& line : filled.entries) {
                if (line.list == list && line.entry == entry) {
                    source.lineIndex = line.lineIndex;
                }
            }
            return source;
        }
    }
    return std::nullopt;
}

void ActionPlaces::AppendAll(const FilledSet& filled, const p_Subrange& set,
                             std::vector<PlacedAction>& all) {
    for (std::int32_t list = 1; list <= std::ssize(ActionLists); ++list) {
        const DynArray<p_Action>& actions = set.*ActionLists[list - 1].actions;
        const std::size_t begin = all.size();
        const std::size_t count = actions.IsAllocated() ? actions.Size() : 0;
        for (std::int32_t entry = 0; entry < static_cast<std::int32_t>(count); ++entry) {
            all.push_back({&actions[actions.LowerBound() + entry],
                           {filled.section, list, entry, -1},
                           &actions});
        }
        for (const EntryLineOf& line : filled.entries) {
            const auto entry = static_cast<std::size_t>(line.entry);  // huge for -1, which is none
            if (line.list == list && entry < count) {
                all[begin + entry].source.lineIndex = line.lineIndex;
            }
        }
    }
}

std::vector<PlacedAction> ActionPlaces::All() const {
    std::vector<PlacedAction> all;
    for (const FilledSet& filled : x_sets) {
        if (const p_Subrange* const set = SetAt(filled.place)) {
            AppendAll(filled, *set, all);
        }
    }
    return all;
}

}  // namespace ace::workbench
