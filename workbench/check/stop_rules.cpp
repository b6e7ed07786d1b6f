// What stops the load of a file, or its save.
#include <algorithm>
#include <map>

#include <ace/core/operation.h>
#include <ace/settings/action_line.h>

#include "sim/sim_settings.h"
#include "workbench/check/rule_tests.h"
#include "workbench/check/section_names.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

std::int32_t CountOf(const CheckedSection& section, std::int32_t list) {
    return list == 0 ? 0 : section.Lists().*ActionLists[list - 1].count;
}

StopCause CauseOf(const CheckedSection& section, const StoppedLine& line) {
    switch (line.step) {
        case LineStep::FindEqualSign:
            return StopCause::NoEqualSign;
        case LineStep::FindColon:
            return StopCause::NoColon;
        case LineStep::MakeList:
            return line.count < 1 ? StopCause::SmallCount : StopCause::LargeCount;
        case LineStep::FindEntry:
            return CountOf(section, line.list) < 1 ? StopCause::NoCount : StopCause::BeyondCount;
        case LineStep::NeedNumber:
        case LineStep::NeedTruth:
            return line.error == Errors::Overflow ? StopCause::LargeNumber : StopCause::NoNumber;
        case LineStep::FindComma:
        case LineStep::FindField:
        case LineStep::UseMoniDev:
            return StopCause::FewFields;
        case LineStep::Plain:
            break;
    }
    return StopCause::Other;
}

const CheckedLine* CountLineOf(const CheckedSection& section, std::int32_t list) {
    for (const CheckedLine& line : section.lines) {
        if (line.meaning == LineMeaning::Count && line.list == list) {
            return &line;
        }
    }
    return nullptr;
}

/// Also where a ":" stands for the "=".
String KeyOf(StringView line) {
    return String(Trimmed(line.substr(0, line.find_first_of(L"=:"))));
}

/// The line begins as an entry or a count does.
bool BeginsWithKey(StringView line) {
    return std::ranges::any_of(ActionListKeys, [&](const ListKeys& keys) {
        return BeginsWith(line, keys.entry) || BeginsWith(line, keys.count);
    });
}

/// " The value has 3 fields ..." where a comma too many may be why there is no number.
String FieldsHint(const String& text) {
    CheckedLine line;
    line.text = text;
    line.key = text.substr(0, text.find(L'='));
    const String rest = text.substr(std::min(line.key.size() + 1, text.size()));
    line.keyword = rest.substr(0, rest.find(L':') + 1);
    line.row = FindKeyword(line.keyword);
    if (line.row == nullptr) {
        return {};
    }
    try {
        const LineForm form = line.Form();
        const std::size_t count = line.FieldCount();
        return form.isOpen || count <= form.fields.size()
                   ? String()
                   : L" The value has " + std::to_wstring(count) + L" fields, and this form has " +
                         std::to_wstring(form.fields.size()) + L"; names have no commas.";
    } catch (const RunTimeError&) {
        return {};  // of a command that has no number for its transport
    }
}

/// "EnterAction4, EnterAction5 and 3 more"
String Enumerated(const std::vector<String>& keys) {
    constexpr std::size_t Most = 3;
    String text;
    for (std::size_t i = 0; i < keys.size() && i < Most; ++i) {
        text += (i == 0 ? L"" : L", ") + keys[i];
    }
    return keys.size() > Most ? text + L" and " + std::to_wstring(keys.size() - Most) + L" more"
                              : text;
}

/// An entry of a list that nothing runs only keeps the file from being saved.
void Tell(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line,
          std::int32_t list, const String& keys, const Found& found) {
    const bool runs = section.Runs(list);
    (runs ? found : found.Perhaps())
        .At(file, section, line,
            {keys, runs ? L"the test ends with an error when it comes there, and " : L""});
}

}  // namespace

void RuleTests::FindStops(const CheckedFile& file, const CheckedSection& section,
                          const Found& found, StopCause cause) {
    for (const StoppedLine& stop : section.stops) {
        if (CauseOf(section, stop) == cause) {
            CheckedLine line;
            line.index = stop.index;
            line.text = stop.text;
            found.At(file, section, line,
                     {stop.reason, std::to_wstring(CountOf(section, stop.list)),
                      KeyHint(KeyOf(stop.text)), FieldsHint(stop.text),
                      String(BeginsWithKey(stop.text)
                                 ? L"Write \"=\" behind the key."
                                 : L"Take the line out; the engine's sections have no comments.")});
        }
    }
}

/// Whatever no line can tell, such as a key beside the sections of lines.
void RuleTests::LoadFails(const CheckedFile& file, const Found& found) {
    if (!file.Failure().empty()) {
        found.At({file.Input().path}, {file.Failure()});
    }
    for (const CheckedSection& section : file.Sections()) {
        FindStops(file, section, found, StopCause::Other);
    }
}

/// At the line that should have filled it, or at the count that asks for it. One that is left out
/// because of its own error is told already.
void RuleTests::EmptyEntry(const CheckedFile& file, const CheckedSection& section,
                           const Found& found) {
    if (section.emptyEntries.empty()) {
        return;
    }
    std::map<String, const CheckedLine*, sim::NameLess> lines;  // none for a line that is left out
    for (const StoppedLine& stop : section.stops) {
        lines.emplace(KeyOf(stop.text), nullptr);
    }
    for (const CheckedLine& line : section.lines) {
        lines.emplace(KeyOf(line.text), &line);
    }
    std::vector<String> withoutLine[std::size(ActionLists)];
    for (const auto& [list, entry] : section.emptyEntries) {
        String key = String(ActionListKeys[list - 1].entry) + std::to_wstring(entry + 1);
        const auto line = lines.find(key);
        if (line == lines.end()) {
            withoutLine[list - 1].push_back(std::move(key));
        } else if (line->second != nullptr) {
            Tell(file, section, *line->second, list, key, found);
        }
    }
    for (std::int32_t list = 1; list <= 4; ++list) {
        const CheckedLine* const line = CountLineOf(section, list);
        if (line != nullptr && !withoutLine[list - 1].empty()) {
            Tell(file, section, *line, list, Enumerated(withoutLine[list - 1]), found);
        }
    }
}

}  // namespace ace::workbench
