// Sections and keys that nobody reads.
#include <algorithm>
#include <set>

#include <ace/core/text.h>
#include <ace/settings/settings_sections.h>

#include "sim/sim_settings.h"
#include "workbench/check/rule_tests.h"
#include "workbench/files/place_text.h"
#include "workbench/session/plan.h"
#include "workbench/words/slips.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using Names = std::set<String, sim::NameLess>;

constexpr StringView EngineWord = L"ActionsOn";
constexpr StringView KeysEnd = L"_VKS";

/// A section of the workbench: its keys, "#" for a number. One without keys takes any.
struct OwnSection {
    StringView name;
    std::span<const StringView> keys;
};
constexpr StringView MainKeys[] = {L"Module", L"SubRanges", L"Title", L"TestKind"};
constexpr StringView SweepKeys[] = {L"StartHz", L"StopHz", L"StepPercent", L"DwellMs"};
constexpr StringView ChannelKeys[] = {L"Name",   L"Trigger",       L"NoGo",         L"Go",
                                      L"Device", L"DeviceChannel", L"TriggerAbove", L"NoGoAbove"};
constexpr StringView MatrixKeys[] = {L"Freq#",
                                     L"FreqName#",
                                     L"BandwidthName#",
                                     L"PowerName#",
                                     L"InfluencedByFreq",
                                     L"InfluencedByBandwidth",
                                     L"InfluencedByPower"};
constexpr OwnSection OwnSections[] = {
    {L"Workbench", MainKeys},
    {L"Workbench.Subrange#", SweepKeys},
    {L"Workbench.Channel#", ChannelKeys},
    {L"Workbench.DUT", MatrixKeys},
    {L"Workbench.Placeholders", {}},
};
constexpr StringView DeviceSection = L"Actions#-Device";

/// The name with "#" for each run of digits, so that numbered names are one name.
String Numberless(StringView name) {
    String text;
    for (const wchar_t c : name) {
        const bool isDigit = c >= L'0' && c <= L'9';
        if (!isDigit) {
            text += c;
        } else if (text.empty() || text.back() != L'#') {
            text += L'#';
        }
    }
    return text;
}

/// The headers of the sections that can be read, in the order of the file.
std::vector<const SectionHeader*> FirstHeaders(const CheckedFile& file) {
    std::vector<const SectionHeader*> headers;
    for (const SectionHeader& header : file.Headers()) {
        if (header.isFirst) {
            headers.push_back(&header);
        }
    }
    return headers;
}

bool BeginsWith(StringView text, StringView word) {
    return EqualNoCase(text.substr(0, word.size()), word);
}
bool EndsWith(StringView text, StringView word) {
    return text.size() >= word.size() && EqualNoCase(text.substr(text.size() - word.size()), word);
}

const OwnSection* OwnSectionOf(StringView name) {
    const String numberless = Numberless(name);
    for (const OwnSection& section : OwnSections) {
        if (EqualNoCase(section.name, numberless)) {
            return &section;
        }
    }
    return nullptr;
}

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

/// The matrix has several templates in one file, of which a test runs one.
bool IsOfAnotherTemplate(const CheckedFile& file, StringView name) {
    return file.Input().setUp.moduleKind == aceVKSDUT &&
           (BeginsWith(name, L"ActionsOnStep_") || BeginsWith(name, L"ActionsOnVKSTemplate_") ||
            BeginsWith(name, L"ActionsOnVKSDUTGlob"));
}

/// The names that a section near to them was meant to have, with "#" for numbers.
std::vector<StringView> KnownNames(const std::vector<String>& engine) {
    std::vector<StringView> names(engine.begin(), engine.end());
    for (const OwnSection& section : OwnSections) {
        names.push_back(section.name);
    }
    names.push_back(DeviceSection);
    return names;
}
std::vector<String> EngineNames(const CheckedFile& file) {
    Names names;
    String last;  // numbered sections follow one another
    for (const CheckedSection& section : file.Sections()) {
        String name = Numberless(section.name);
        if (name != last) {
            names.insert(name);
            last = std::move(name);
        }
    }
    return {names.begin(), names.end()};
}

/// The keys of a section with the lines on which they stand, from 1 in the file.
struct KeyLine {
    String key;
    String value;
    std::size_t line;
};
std::vector<KeyLine> KeysOf(const CheckedFile& file, const String& section) {
    std::vector<KeyLine> keys;
    std::size_t line = file.HeaderLine(section);
    for (const String& text : file.Input().document->GetSection(section)) {
        ++line;
        const std::size_t equals = text.find(L'=');
        if (!IsEmptyOrComment(Trimmed(text), L";#") && equals != String::npos) {
            keys.push_back({String(Trimmed(StringView(text).substr(0, equals))),
                            text.substr(equals + 1), line});
        }
    }
    return keys;
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
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& name = header->name;
        const bool isEngines = NumberOf(file, name) && !header->isRead;
        if (isEngines || IsOwnBeyond(file, name, swept)) {
            found.At({file.Input().path, header->line, name},
                     {std::to_wstring(file.Input().setUp.subRanges)});
        }
    }
}

void RuleTests::MisspeltSection(const CheckedFile& file, const Found& found) {
    const std::vector<String> engine = EngineNames(file);
    const std::vector<StringView> known = KnownNames(engine);
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& name = header->name;
        if (header->isRead || OwnSectionOf(name) != nullptr || NumberOf(file, name) ||
            IsOfAnotherTemplate(file, name)) {
            continue;
        }
        const String numberless = Numberless(name);
        const StringView near = NearestWord(numberless, known);
        if (!near.empty() && !EqualNoCase(near, numberless)) {
            found.At({file.Input().path, header->line, name}, {String(near)});
        }
    }
}

void RuleTests::SectionUnread(const CheckedFile& file, const Found& found) {
    const std::vector<String> engine = EngineNames(file);
    const std::vector<StringView> known = KnownNames(engine);
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& name = header->name;
        const bool isEngines = BeginsWith(name, EngineWord) && !EndsWith(name, KeysEnd);
        const bool isOurs = BeginsWith(name, L"Workbench") && OwnSectionOf(name) == nullptr;
        if ((isEngines || isOurs) && !header->isRead && !NumberOf(file, name) &&
            !IsOfAnotherTemplate(file, name) && NearestWord(Numberless(name), known).empty()) {
            found.At({file.Input().path, header->line, name},
                     {String(ModuleWordsOf(file.Input().setUp.moduleKind).words)});
        }
    }
}

void RuleTests::SectionTwice(const CheckedFile& file, const Found& found) {
    for (const SectionHeader& header : file.Headers()) {
        if (!header.isFirst) {
            found.At({file.Input().path, header.line, header.name});
        }
    }
}

/// A line that would open a section if it had both of its brackets. In the user's own sections only
/// what looks like a name that is read.
void RuleTests::HeaderBroken(const CheckedFile& file, const Found& found) {
    const std::vector<String> engine = EngineNames(file);
    const std::vector<StringView> known = KnownNames(engine);
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& section = header->name;
        if (header->isRead) {
            continue;  // there it stops the load
        }
        std::size_t line = header->line;
        for (const String& text : file.Input().document->GetSection(section)) {
            ++line;
            const std::optional<String> name = NameInHalfBrackets(text);
            if (name && (OwnSectionOf(section) != nullptr ||
                         !NearestWord(Numberless(*name), known).empty())) {
                found.At({file.Input().path, line, section, {}, text}, {*name});
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
    const std::vector<KeyLine> keys = KeysOf(file, String(OwnSections[0].name));
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
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& name = header->name;
        const OwnSection* const section = OwnSectionOf(name);
        for (const KeyLine& key :
             section != nullptr ? KeysOf(file, name) : std::vector<KeyLine>()) {
            const String numberless = Numberless(key.key);
            const StringView near = NearestWord(numberless, section->keys);
            if (!near.empty() && !EqualNoCase(near, numberless)) {
                found.At({file.Input().path, key.line, name, key.key, key.value}, {String(near)});
            }
        }
    }
}

void RuleTests::KeyTwice(const CheckedFile& file, const Found& found) {
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& name = header->name;
        Names seen;
        if (OwnSectionOf(name) == nullptr) {
            continue;
        }
        for (const KeyLine& key : KeysOf(file, name)) {
            if (!seen.insert(key.key).second) {
                found.At({file.Input().path, key.line, name, key.key, key.value});
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
    for (const SectionHeader* header : FirstHeaders(file)) {
        const String& name = header->name;
        // of a matrix, the templates that are not run have actions too
        if (EqualNoCase(Numberless(name), DeviceSection) && !used.contains(name) &&
            file.Input().setUp.moduleKind != aceVKSDUT) {
            found.At({file.Input().path, header->line, name});
        }
    }
}

}  // namespace ace::workbench
