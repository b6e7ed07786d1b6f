// What the bench doesn't have.
#include <algorithm>

#include <ace/core/text.h>

#include "sim/sim_devices.h"
#include "workbench/check/rule_tests.h"
#include "workbench/session/channel_watch.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using sim::SimClass;

/// A device that an action names, and the classes of which it may be.
struct NamedDevice {
    String name;
    std::vector<SimClass> classes;
    StringView words;  ///< the classes in words
};

/// A device that an action need not have.
void AddNamed(std::vector<NamedDevice>& devices, const String& name, std::vector<SimClass> classes,
              StringView words) {
    if (!name.empty()) {
        devices.push_back({name, std::move(classes), words});
    }
}

std::vector<NamedDevice> DevicesOf(const CheckedAction& action) {
    std::vector<NamedDevice> devices;
    if (const auto* const track = action.As<aceTrackFreq>()) {
        AddNamed(devices, track->GenName, {SimClass::Generators}, L"a generator");
        AddNamed(devices, track->MoniName, {SimClass::Monitoring, SimClass::Receivers},
                 L"a monitoring device");
        if (!track->GenName.empty()) {
            AddNamed(devices, track->SigPathName, {SimClass::SignalPaths}, L"a signal path");
        }
    }
    const auto* const record = action.As<aceSetDevice>();
    if (record == nullptr) {
        return devices;
    }
    switch (action.action.ActionType) {
        case atSetDevice:
            devices.push_back({record->DevName,
                               {SimClass::Monitoring, SimClass::BcGenerators},
                               L"a monitoring device or a broadcast generator"});
            AddNamed(devices, record->SigPathName, {SimClass::SignalPaths}, L"a signal path");
            break;
        case atCheckEut:
        case atMonitorEUT:
            devices.push_back({record->DevName, {SimClass::Monitoring}, L"a monitoring device"});
            break;
        case atSwitchAmp:
            devices.push_back({record->DevName, {SimClass::Amplifiers}, L"an amplifier"});
            break;
        case atSwitchUnit:
            devices.push_back({record->DevName, {SimClass::SwitchUnits}, L"a switch unit"});
            break;
        default:
            break;
    }
    return devices;
}

/// " It has: Amp A, Amp B."
String NamesOf(const sim::SimBench& bench, const std::vector<SimClass>& classes) {
    String names;
    for (const auto& device : bench.devices) {
        if (std::ranges::find(classes, device->deviceClass) != classes.end()) {
            names += (names.empty() ? L"" : L", ") + device->name;
        }
    }
    return names.empty() ? String(L" It has none of that class.") : L" It has: " + names + L".";
}

/// The line of a key in the file, from 1; that of the section when it has no such key.
std::size_t LineOfKey(const CheckedFile& file, const String& section, StringView key) {
    const std::size_t header = file.HeaderLine(section);
    std::size_t line = header;
    for (const String& text : file.Input().document->GetSection(section)) {
        ++line;
        if (EqualNoCase(Trimmed(StringView(text).substr(0, text.find(L'='))), key)) {
            return line;
        }
    }
    return header;
}

}  // namespace

void RuleTests::NoSuchDevice(const CheckedAction& action, const Found& found) {
    const sim::SimBench* const bench = action.file.Input().bench;
    const auto* const record = action.As<aceSetDevice>();
    if (bench == nullptr && (record == nullptr || !record->DevName.empty())) {
        return;  // without a bench only that there is no name
    }
    for (const NamedDevice& named : DevicesOf(action)) {
        const bool isMissing = bench != nullptr ? !bench->Device(named.name) : named.name.empty();
        if (isMissing) {
            found.At(action, {QuotedLine(named.name),
                              bench != nullptr ? NamesOf(*bench, named.classes) : String()});
        }
    }
}

void RuleTests::DeviceOfOtherClass(const CheckedAction& action, const Found& found) {
    const sim::SimBench* const bench = action.file.Input().bench;
    for (const NamedDevice& named :
         bench != nullptr ? DevicesOf(action) : std::vector<NamedDevice>()) {
        const auto device = bench->Device(named.name);
        if (device &&
            std::ranges::find(named.classes, device->deviceClass) == named.classes.end()) {
            found.At(action,
                     {QuotedLine(named.name), String(named.words), NamesOf(*bench, named.classes)});
        }
    }
}

void RuleTests::NoSuchPath(const CheckedAction& action, const Found& found) {
    const sim::SimBench* const bench = action.file.Input().bench;
    const auto* const record = action.As<aceSetDevice>();
    if (bench == nullptr || record == nullptr || !action.IsOf(L"SWITCHUNIT:")) {
        return;
    }
    const auto unit = std::dynamic_pointer_cast<sim::SimSwitchUnit>(bench->Device(record->DevName));
    if (!unit || unit->paths.empty() ||
        std::ranges::find(unit->paths, record->Path) != unit->paths.end()) {
        return;
    }
    String names;
    for (const String& path : unit->paths) {
        names += (names.empty() ? L"" : L", ") + path;
    }
    found.At(action, {QuotedLine(record->Path), QuotedLine(record->DevName), names});
}

void RuleTests::NoSuchTable(const CheckedAction& action, const Found& found) {
    const sim::SimBench* const bench = action.file.Input().bench;
    const auto* const record = action.As<aceTrackFreq>();
    if (bench != nullptr && record != nullptr && !record->GenName.empty() &&
        !record->TableName.empty() && !bench->Table(record->TableName)) {
        found.At(action, {QuotedLine(record->TableName)});
    }
}

void RuleTests::ChannelWithoutDevice(const CheckedFile& file, const Found& found) {
    const sim::SimBench* const bench = file.Input().bench;
    std::int32_t number = 0;
    for (const ChannelEvents& channel : file.Input().setUp.channels) {
        ++number;
        if (bench != nullptr && channel.watch && !IsMonitor(*bench, channel.watch->device)) {
            const String section = L"Workbench.Channel" + std::to_wstring(number);
            found.At({file.Input().path, LineOfKey(file, section, L"Device"), section, L"Device",
                      channel.watch->device},
                     {QuotedLine(channel.watch->device), NamesOf(*bench, {SimClass::Monitoring})});
        }
    }
}

}  // namespace ace::workbench
