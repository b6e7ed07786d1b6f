// Sections and keys that nobody reads.
#include <algorithm>
#include <map>
#include <set>

#include <ace/core/text.h>
#include <ace/settings/settings_sections.h>
#include <ace/settings/wireless_names.h>

#include "sim/sim_settings.h"
#include "workbench/check/rule_tests.h"
#include "workbench/files/place_text.h"
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

std::size_t LineOf(const CheckedFile& file, StringView section) {
    return file.Input().document->HeaderLine(section).value_or(0);
}

/// Every section name once, in the order of the file.
std::vector<String> NamesOf(const CheckedFile& file) {
    std::vector<String> names;
    Names seen;
    for (String& name : file.Input().document->SectionNames()) {
        if (seen.insert(name).second) {
            names.push_back(std::move(name));
        }
    }
    return names;
}

bool BeginsWith(StringView text, StringView word) {
    return EqualNoCase(text.substr(0, word.size()), word);
}
bool EndsWith(StringView text, StringView word) {
    return text.size() >= word.size() && EqualNoCase(text.substr(text.size() - word.size()), word);
}

/// The sections that the engine asks for, and those beside them.
Names ReadByTheEngine(const CheckedFile& file) {
    Names names;
    for (const CheckedSection& section : file.Sections()) {
        names.insert(section.name);
        names.insert(WirelessNames::KeysOf(section.name));
    }
    return names;
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

/// Number of the numbered section of the module that `name` is; nothing for any other name.
std::optional<std::int32_t> NumberOf(const CheckedFile& file, StringView name) {
    std::optional<std::int32_t> number;
    const auto look = [&](aceModul moduleKind) {
        for (const NumberedSets& sets : FindModule(moduleKind)->AllNumbered()) {
            if (BeginsWith(name, sets.sectionWord) && !number) {
                number = WholeInteger(name.substr(sets.sectionWord.size()));
            }
        }
    };
    look(file.Input().setUp.moduleKind);
    if (file.Input().setUp.moduleKind == aceEMSAutoTemplateGeneral) {
        look(aceEMSAutoTemplate);
    }
    return number;
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
    for (const CheckedSection& section : file.Sections()) {
        names.insert(Numberless(section.name));
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
    std::size_t line = LineOf(file, section);
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

void RuleTests::SectionBeyond(const CheckedFile& file, const Found& found) {
    const Names read = ReadByTheEngine(file);
    for (const String& name : NamesOf(file)) {
        const std::optional<std::int32_t> number = NumberOf(file, name);
        if (number && !read.contains(name)) {
            found.At({file.Input().path, LineOf(file, name), name},
                     {std::to_wstring(file.Input().setUp.subRanges)});
        }
    }
}

void RuleTests::MisspeltSection(const CheckedFile& file, const Found& found) {
    const Names read = ReadByTheEngine(file);
    const std::vector<String> engine = EngineNames(file);
    const std::vector<StringView> known = KnownNames(engine);
    for (const String& name : NamesOf(file)) {
        if (read.contains(name) || OwnSectionOf(name) != nullptr || NumberOf(file, name) ||
            IsOfAnotherTemplate(file, name)) {
            continue;
        }
        const String numberless = Numberless(name);
        const StringView near = NearestWord(numberless, known);
        if (!near.empty() && !EqualNoCase(near, numberless)) {
            found.At({file.Input().path, LineOf(file, name), name}, {String(near)});
        }
    }
}

void RuleTests::SectionUnread(const CheckedFile& file, const Found& found) {
    const Names read = ReadByTheEngine(file);
    const std::vector<String> engine = EngineNames(file);
    const std::vector<StringView> known = KnownNames(engine);
    for (const String& name : NamesOf(file)) {
        const bool isEngines = BeginsWith(name, EngineWord) && !EndsWith(name, KeysEnd);
        const bool isOurs = BeginsWith(name, L"Workbench") && OwnSectionOf(name) == nullptr;
        if ((isEngines || isOurs) && !read.contains(name) && !NumberOf(file, name) &&
            !IsOfAnotherTemplate(file, name) && NearestWord(Numberless(name), known).empty()) {
            found.At({file.Input().path, LineOf(file, name), name},
                     {String(ModuleWordsOf(file.Input().setUp.moduleKind).words)});
        }
    }
}

void RuleTests::SectionTwice(const CheckedFile& file, const Found& found) {
    std::map<String, int, sim::NameLess> counts;
    for (const String& name : file.Input().document->SectionNames()) {
        if (++counts[name] == 2) {
            found.At({file.Input().path, LineOf(file, name), name});
        }
    }
}

void RuleTests::MisspeltKey(const CheckedFile& file, const Found& found) {
    for (const String& name : NamesOf(file)) {
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
    for (const String& name : NamesOf(file)) {
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
    for (const String& name : NamesOf(file)) {
        // of a matrix, the templates that are not run have actions too
        if (EqualNoCase(Numberless(name), DeviceSection) && !used.contains(name) &&
            file.Input().setUp.moduleKind != aceVKSDUT) {
            found.At({file.Input().path, LineOf(file, name), name});
        }
    }
}

}  // namespace ace::workbench
