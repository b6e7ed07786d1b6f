#include "workbench/check/section_names.h"

#include <ace/core/text.h>
#include <ace/settings/wireless_names.h>

namespace ace::workbench {

namespace {

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
constexpr OwnSection Own[] = {
    {L"Workbench", MainKeys},
    {L"Workbench.Subrange#", SweepKeys},
    {L"Workbench.Channel#", ChannelKeys},
    {L"Workbench.DUT", MatrixKeys},
    {L"Workbench.Placeholders", {}},
};
/// Keys of wireless tests, of their steps and of the matrix.
constexpr StringView TestKeys[] = {WirelessNames::TestKey, WirelessNames::StepCount};
constexpr StringView StepKeys[] = {WirelessNames::StepKey, WirelessNames::StepName, L"ID#"};
constexpr StringView TemplateKeys[] = {L"Count", L"Freq", L"Bandwidth", L"Power"};

}  // namespace

std::span<const OwnSection> OwnSections() {
    return Own;
}

const OwnSection* OwnSectionOf(StringView numberless) {
    for (const OwnSection& section : Own) {
        if (EqualNoCase(section.name, numberless)) {
            return &section;
        }
    }
    return nullptr;
}

std::span<const StringView> KnownKeys(StringView name) {
    if (const OwnSection* const own = OwnSectionOf(Numberless(name))) {
        return own->keys;
    }
    if (BeginsWith(name, L"ActionsOnVKSTemplate_")) {
        return TemplateKeys;
    }
    if (!BeginsWith(name, EngineWord) || !EndsWith(name, KeysEnd)) {
        return {};
    }
    return BeginsWith(name, L"ActionsOnTest") ? std::span<const StringView>(TestKeys) : StepKeys;
}

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

bool BeginsWith(StringView text, StringView word) {
    return EqualNoCase(text.substr(0, word.size()), word);
}

bool EndsWith(StringView text, StringView word) {
    return text.size() >= word.size() && EqualNoCase(text.substr(text.size() - word.size()), word);
}

}  // namespace ace::workbench
