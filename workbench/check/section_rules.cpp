// Sections and keys that nobody reads.
#include <algorithm>
#include <map>
#include <set>

#include <ace/core/text.h>
#include <ace/settings/settings_sections.h>
#include <ace/settings/wireless_names.h>
#include <ace/settings/wireless_sections.h>

#include "sim/sim_settings.h"
#include "workbench/check/rule_tests.h"
#include "workbench/check/section_names.h"
#include "workbench/files/place_text.h"
#include "workbench/session/plan.h"
#include "workbench/words/slips.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using Names = std::set<String, sim::NameLess>;

bool IsDigits(StringView text) {
    return !text.empty() && text.find_first_not_of(L"0123456789") == StringView::npos;
}

/// Number of the numbered section of the module that `name` is; nothing for any other name.
std::optional<std::int32_t> NumberOf(const CheckedFile& file, StringView name) {
    std::optional<std::int32_t> number;
    const auto look = [&](aceModul moduleKind) {
        for (const NumberedSets& sets : FindModule(moduleKind)->AllNumbered()) {
            const StringView digits = name.substr(std::min(name.size(), sets.sectionWord.size()));
            if (BeginsWith(name, sets.sectionWord) && !number && IsDigits(digits)) {
                number = WholeInteger(digits);
            }
        }
    };
    look(file.Input().setUp.moduleKind);
    if (file.Input().setUp.moduleKind == aceEMSAutoTemplateGeneral) {
        look(aceEMSAutoTemplate);
    }
    return number;
}

/// The numbers of the sweeps to which the frequencies of the test belong.
std::set<std::int32_t> SweptNumbers(const CheckedFile& file) {
    std::set<std::int32_t> numbers;
    for (const Moment& moment : PlanOf(file.Input().setUp)) {
        if (moment.call == MomentCall::NewFrequency) {
            numbers.insert(moment.number);
        }
    }
    return numbers;
}

/// A numbered section of the workbench whose number the test does not come to.
bool IsOwnBeyond(const CheckedFile& file, StringView name, const std::set<std::int32_t>& swept) {
    const TestSetUp& setUp = file.Input().setUp;
    const auto numberBehind = [&](StringView word) {
        return BeginsWith(name, word) ? WholeInteger(name.substr(word.size())) : std::nullopt;
    };
    if (const auto channel = numberBehind(L"Workbench.Channel")) {
        return setUp.moduleKind == aceMonitoring && *channel > setUp.subRanges;
    }
    const auto sweep = numberBehind(L"Workbench.Subrange");
    return sweep && *sweep > setUp.subRanges && ModuleWordsOf(setUp.moduleKind).sweepPerEntry &&
           !swept.contains(*sweep);
}

/// The template `number` of a matrix stands in the file, and has a row of the number in `row`, or
/// there is none in it.
bool HasTemplate(const CheckedFile& file, std::int32_t number, StringView row) {
    const SettingsDocument& document = *file.Input().document;
    const String matrix = WirelessNames::MatrixSection(number);
    const String count = document.GetKey(matrix, L"Count").value_or(String());
    return document.HasSection(matrix) &&
           WholeInteger(row).value_or(0) <= WholeInteger(count).value_or(0);
}

/// The matrix has several templates in one file, of which a test runs one.
bool IsOfAnotherTemplate(const CheckedFile& file, StringView name) {
    const std::int32_t own = file.Input().setUp.subRanges;
    if (file.Input().setUp.moduleKind != aceVKSDUT) {
        return false;
    }
    if (BeginsWith(name, FindModule(aceVKSDUT)->fixed[0].section)) {
        return own != GlobalTemplate && HasTemplate(file, GlobalTemplate, {});
    }
    for (const StringView word :
         {StringView(L"ActionsOnStep_"), StringView(L"ActionsOnVKSTemplate_")}) {
        if (BeginsWith(name, word)) {
            const StringView rest = name.substr(word.size());
            const std::size_t end = std::min(rest.find(L'_'), rest.size());
            const auto number = WholeInteger(rest.substr(0, end));
            const StringView row = rest.substr(std::min(end + 1, rest.size()));
            return number && *number != own && HasTemplate(file, *number, row);
        }
    }
    return false;
}

/// The first section of each name that nobody reads, as far as the engine and the workbench know.
template <class Look>
void ForEachUnread(const CheckedFile& file, Look&& look) {
    for (const SectionHeader& section : file.Headers()) {
        if (section.isFirst && !section.isRead && OwnSectionOf(section.numberless) == nullptr &&
            !IsOfAnotherTemplate(file, section.name)) {
            look(section);
        }
    }
}

/// The names that a section near to them was meant to have, with "#" for numbers.
std::vector<StringView> KnownNames(const std::vector<String>& engine) {
    std::vector<StringView> names(engine.begin(), engine.end());
    for (const OwnSection& section : OwnSections()) {
        names.push_back(section.name);
    }
    names.push_back(DeviceSection);
    return names;
}
/// The name in a line that has one bracket of a header and not the other.
std::optional<String> NameInHalfBrackets(StringView line) {
    const StringView text = Trimmed(line);
    const bool opens = text.starts_with(L'[');
    const bool closes = text.ends_with(L']');
    if (opens == closes || text.size() < 2 || text.find(L'=') != StringView::npos ||
        IsEmptyOrComment(text, L";#")) {
        return std::nullopt;
    }
    return String(opens ? text.substr(1) : text.substr(0, text.size() - 1));
}

/// The actions that take their settings from a device section.
bool UsesDeviceSection(const CheckedAction& action) {
    return action.IsOf(L"SETDEV:") || action.IsOf(L"CHECKEUT:") || action.IsOf(L"MONITOREUT:");
}
String DeviceSectionOf(const aceSetDevice& record) {
    String name;
    AppendDeviceSection(name, record.ChanNo);
    return name;
}

}  // namespace

void RuleTests::NoSections(const CheckedFile& file, const Found& found) {
    const auto isThere = [](const CheckedSection& section) { return section.header != 0; };
    if (std::ranges::none_of(file.Sections(), isThere)) {
        found.At({file.Input().path}, {String(ModuleWordsOf(file.Input().setUp.moduleKind).words)});
    }
}

void RuleTests::SectionBeyond(const CheckedFile& file, const Found& found) {
    const std::set<std::int32_t> swept = SweptNumbers(file);
    const std::int32_t count = file.Input().setUp.subRanges;
    for (const SectionHeader& section : file.Headers()) {
        if (!section.isFirst || section.isRead) {
            continue;
        }
        const std::optional<std::int32_t> number = NumberOf(file, section.name);
        if ((number && (*number > count || *number < 1)) ||
            IsOwnBeyond(file, section.name, swept)) {
            found.At({file.Input().path, section.line, section.name}, {std::to_wstring(count)});
        }
    }
}

void RuleTests::MisspeltSection(const CheckedFile& file, const Found& found) {
    const std::vector<StringView> known = KnownNames(file.EngineNames());
    ForEachUnread(file, [&](const SectionHeader& section) {
        const StringView near = NearestWord(section.numberless, known);
        if (!NumberOf(file, section.name) && !near.empty() &&
            !EqualNoCase(near, section.numberless)) {
            found.At({file.Input().path, section.line, section.name}, {String(near)});
        }
    });
}

/// A section with a number beyond is told as that, and one with a slip in its name as misspelt.
void RuleTests::SectionUnread(const CheckedFile& file, const Found& found) {
    const std::int32_t count = file.Input().setUp.subRanges;
    const std::vector<StringView> known = KnownNames(file.EngineNames());
    ForEachUnread(file, [&](const SectionHeader& section) {
        const bool isEngines =
            BeginsWith(section.name, EngineWord) && !EndsWith(section.name, KeysEnd);
        const std::optional<std::int32_t> number = NumberOf(file, section.name);
        const bool isBeyond = number && (*number > count || *number < 1);
        const StringView near = NearestWord(section.numberless, known);
        const bool isSlip = !near.empty() && !EqualNoCase(near, section.numberless) && !number;
        if ((isEngines || BeginsWith(section.name, L"Workbench")) && !isBeyond && !isSlip) {
            found.At({file.Input().path, section.line, section.name},
                     {String(ModuleWordsOf(file.Input().setUp.moduleKind).words)});
        }
    });
}

void RuleTests::SectionTwice(const CheckedFile& file, const Found& found) {
    for (const SectionHeader& section : file.Headers()) {
        if (!section.isFirst) {
            found.At({file.Input().path, section.line, section.name});
        }
    }
}

/// A line that would open a section if it had both of its brackets. In the user's own sections only
/// what looks like a name that is read.
void RuleTests::HeaderBroken(const CheckedFile& file, const Found& found) {
    const std::vector<StringView> known = KnownNames(file.EngineNames());
    for (const SectionHeader& section : file.Headers()) {
        if (section.isRead || !section.isFirst) {
            continue;  // in what is read it stops the load
        }
        std::size_t line = section.line;
        for (const String& text : file.Input().document->GetSection(section.name)) {
            ++line;
            const std::optional<String> name = NameInHalfBrackets(text);
            if (name && (OwnSectionOf(section.numberless) != nullptr ||
                         !NearestWord(Numberless(*name), known).empty())) {
                found.At({file.Input().path, line, section.name, {}, text}, {*name});
            }
        }
    }
}

/// An entry that is neither swept nor has actions, while others are swept.
void RuleTests::NumberWithoutSection(const CheckedFile& file, const Found& found) {
    const TestSetUp& setUp = file.Input().setUp;
    const bool hasSweep = std::ranges::any_of(
        setUp.sweeps, [](const std::optional<Sweep>& sweep) { return sweep.has_value(); });
    if (!hasSweep || !ModuleWordsOf(setUp.moduleKind).sweepPerEntry) {
        return;
    }
    const String key = L"SubRanges";
    const std::vector<KeyLine> keys = file.KeyLines(OwnSections()[0].name);
    const auto line = std::ranges::find_if(
        keys, [&](const KeyLine& candidate) { return EqualNoCase(candidate.key, key); });
    for (const CheckedSection& section : file.Sections()) {
        const auto index = static_cast<std::size_t>(section.place.index);
        if (section.sets != nullptr && section.header == 0 && index < setUp.sweeps.size() &&
            !setUp.sweeps[index]) {
            const String number = std::to_wstring(index + 1);
            const FindingPlace place =
                line == keys.end()
                    ? FindingPlace{file.Input().path}
                    : FindingPlace{file.Input().path, line->line, L"Workbench", key, line->value};
            found.At(place, {String(ModuleWordsOf(setUp.moduleKind).one) + L" " + number, number,
                             section.name});
        }
    }
}

void RuleTests::MisspeltKey(const CheckedFile& file, const Found& found) {
    for (const SectionHeader& section : file.Headers()) {
        const std::span<const StringView> words =
            section.isFirst ? KnownKeys(section.name) : std::span<const StringView>();
        for (const KeyLine& key :
             words.empty() ? std::vector<KeyLine>() : file.KeyLines(section.name)) {
            const String numberless = Numberless(key.key);
            const StringView near = NearestWord(numberless, words);
            if (!near.empty() && !EqualNoCase(near, numberless)) {
                found.At({file.Input().path, key.line, section.name, key.key, key.value},
                         {String(near)});
            }
        }
    }
}

void RuleTests::KeyTwice(const CheckedFile& file, const Found& found) {
    for (const SectionHeader& section : file.Headers()) {
        Names seen;
        if (OwnSectionOf(section.numberless) == nullptr || !section.isFirst) {
            continue;
        }
        for (const KeyLine& key : file.KeyLines(section.name)) {
            if (!seen.insert(key.key).second) {
                found.At({file.Input().path, key.line, section.name, key.key, key.value});
            }
        }
    }
}

void RuleTests::NoDeviceSection(const CheckedAction& action, const Found& found) {
    const auto* const record = action.As<aceSetDevice>();
    if (record == nullptr || !UsesDeviceSection(action)) {
        return;
    }
    const String name = DeviceSectionOf(*record);
    if (!action.file.Input().document->HasSection(name)) {
        found.At(action, {name, record->DevName});
    }
}

void RuleTests::UnusedDeviceSection(const CheckedFile& file, const Found& found) {
    Names used;
    ForEachAction(file, [&](const CheckedAction& action) {
        const auto* const record = action.As<aceSetDevice>();
        if (record != nullptr && UsesDeviceSection(action)) {
            used.insert(DeviceSectionOf(*record));
        }
    });
    // of a matrix the templates that are not run, and of a susceptibility test the general lists,
    // may use it
    const aceModul moduleKind = file.Input().setUp.moduleKind;
    const bool isWhole = moduleKind != aceVKSDUT && moduleKind != aceEMSAutoTemplate;
    for (const SectionHeader& section : file.Headers()) {
        if (isWhole && section.isFirst && EqualNoCase(section.numberless, DeviceSection) &&
            !used.contains(section.name)) {
            found.At({file.Input().path, section.line, section.name});
        }
    }
}

}  // namespace ace::workbench
