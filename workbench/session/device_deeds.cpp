#include "workbench/session/device_deeds.h"

#include <algorithm>

#include "workbench/session/effect_words.h"

namespace ace::workbench {

namespace {

constexpr DeedRow Deeds[] = {
    {L"Device.Activate"},
    {L"Device.LoadSettings", 2},
    {L"MonitorDevice.SetChannel", 1},
    {L"MonitorDevice.ReadChannel", 1},
    {L"MonitorDevice.SetFrequency", 0, L"follows the frequency"},
    {L"BcGenerator.Apply"},
    {L"Amplifier.SetState", 1},
    {L"SwitchUnit.SwitchPath", 1},
    {L"Receiver.SetParameter", 2},
    {L"SignalPath.Prepare"},
    {L"RfGenerator.SetFrequency", 0, L"follows the frequency"},
    {L"RfGenerator.SetLevel", 0, L"level is set"},
    {L"RfGenerator.SetRfOn", 1},
};

}  // namespace

const DeedRow* FindDeed(StringView operation) {
    const auto* const row = std::ranges::find(Deeds, operation, &DeedRow::operation);
    return row == std::end(Deeds) ? nullptr : row;
}

String DeedKey(const DeedRow& row, const sim::HostCall& call) {
    String key(row.operation);
    for (std::size_t i = 1; i <= row.last; ++i) {
        key += L' ' + sim::PlainText(call.arguments[i]);
    }
    return key;
}

String DeedWords(const DeedRow& row, const sim::HostCall& call, const String& device) {
    if (!row.words.empty()) {
        return String(row.words);
    }
    const String words = EffectWords(call);
    const String head = device + L": ";
    return words.starts_with(head) ? words.substr(head.size()) : words;
}

}  // namespace ace::workbench
