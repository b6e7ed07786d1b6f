#include "sim/sim_devices.h"

#include <algorithm>
#include <iterator>

#include "sim/sim_host.h"

namespace ace::sim {

namespace {

/// By `SimClass`, from 1.
constexpr StringView ClassKeys[] = {DeviceClasses::Monitoring,  DeviceClasses::BcGenerators,
                                    DeviceClasses::Generators,  DeviceClasses::Amplifiers,
                                    DeviceClasses::SwitchUnits, DeviceClasses::Receivers,
                                    DeviceClasses::SignalPaths};

template <class Named>
std::shared_ptr<Named> FindByName(const std::vector<std::shared_ptr<Named>>& all,
                                  const String& name) {
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& one) { return one->name == name; });
    return found != all.end() ? *found : nullptr;
}

}  // namespace

double ValueOn(const SimCurve& curve, double frequency) {
    if (curve.empty()) {
        return 0.0;
    }
    const auto upper = curve.lower_bound(frequency);
    if (upper == curve.end()) {
        return curve.rbegin()->second;
    }
    if (upper == curve.begin() || upper->first == frequency) {
        return upper->second;
    }
    const auto lower = std::prev(upper);
    const double part = (frequency - lower->first) / (upper->first - lower->first);
    return lower->second + part * (upper->second - lower->second);
}

const std::vector<SimClass>& AllClasses() {
    static const std::vector<SimClass> classes = {
        SimClass::Monitoring,  SimClass::BcGenerators, SimClass::Generators, SimClass::Amplifiers,
        SimClass::SwitchUnits, SimClass::Receivers,    SimClass::SignalPaths};
    return classes;
}

String ClassKeyOf(SimClass deviceClass) {
    const auto at = static_cast<std::size_t>(deviceClass) - 1;
    return at < std::size(ClassKeys) ? String(ClassKeys[at]) : String();
}

// ---- what all devices have ---------------------------------------------------------------------

template <class... Arguments>
void SimDevice::Call(StringView operation, const Arguments&... arguments) {
    Enter(operation, CallText(name, arguments...));
}

void SimDevice::Enter(StringView operation, CallArguments arguments) const {
    host.Call(operation, arguments);
}

void SimDevice::Refuse(const String& why) const {
    throw RunTimeError(Errors::InvalidProcedureCall, name + L": " + why, L"SimHost");
}

String SimDevice::Name() {
    Call(L"Device.Name");
    return name;
}

std::int32_t SimDevice::DeviceClass() {
    Call(L"Device.DeviceClass");
    return static_cast<std::int32_t>(deviceClass);
}

void SimDevice::Activate(std::int32_t mode) {
    Call(L"Device.Activate", mode);
    state = stateOnceActivated;
}

std::int32_t SimDevice::State() {
    Call(L"Device.State");
    return state;
}

void SimDevice::LoadSettings(const std::shared_ptr<ISettingsFile>& file, const String& section) {
    Call(L"Device.LoadSettings", file != nullptr, section);
    settings = file ? file->GetSection(section) : std::vector<String>();
}

void SimDevice::ReadSettings(std::int32_t mode, const std::shared_ptr<ISettingsFile>& file,
                             const String& section) {
    Call(L"Device.ReadSettings", mode, file != nullptr, section);
    settings = file ? file->GetSection(section) : std::vector<String>();
}

String SimDevice::SettingsText(const std::shared_ptr<ISettingsFile>& file, const String& section) {
    Call(L"Device.SettingsText", file != nullptr, section);
    const std::vector<String> lines = file ? file->GetSection(section) : std::vector<String>();
    return lines.empty() ? String() : lines.front();
}

void SimDevice::SaveSettings(ISettingsFile& file, const String& section) const {
    DynArray<String> lines;
    for (std::size_t i = 0; i < settings.size(); ++i) {
        lines.RedimPreserve(static_cast<std::int32_t>(i));
        lines[static_cast<std::int32_t>(i)] = settings[i];
    }
    file.SetSection(section, settings.empty() ? Value(String()) : Value(lines));
}

// ---- monitoring device -------------------------------------------------------------------------

std::shared_ptr<IDevice> SimMonitor::CommonDevice() {
    Call(L"MonitorDevice.CommonDevice");
    return shared_from_this();
}

std::int32_t SimMonitor::Capabilities() {
    Call(L"MonitorDevice.Capabilities");
    return capabilities;
}

void SimMonitor::SetUseMode(std::int32_t& mode) {
    Call(L"MonitorDevice.SetUseMode", mode);
    if ((capabilities & mode) != mode) {
        Refuse(L"can't be used in mode " + std::to_wstring(mode));
    }
}

void SimMonitor::SetChannel(std::int32_t channel, std::int32_t apply) {
    Call(L"MonitorDevice.SetChannel", channel, apply);
    channelsSet.insert(channel);
}

double SimMonitor::ReadChannel(std::int32_t channel) {
    Call(L"MonitorDevice.ReadChannel", channel);
    return Reading(channel);
}

double SimMonitor::Reading(std::int32_t channel) {
    std::deque<double>& script = readings[channel];
    if (!script.empty()) {
        const double reading = script.front();
        script.pop_front();
        return reading;
    }
    for (SimEutFailure& failure : failures) {
        const double hertz = host.bench.frequency;
        if (failure.channel != channel || hertz < failure.fromHz || hertz > failure.toHz) {
            continue;
        }
        failure.begunAt = failure.begunAt.value_or(host.Now());
        if (host.Now() - *failure.begunAt < failure.milliseconds) {
            return failure.reading;
        }
    }
    return 0.0;
}

void SimMonitor::SetFrequency(double& hertz) {
    Call(L"MonitorDevice.SetFrequency", hertz);
    frequency = hertz;
}

// ---- generators --------------------------------------------------------------------------------

void SimBcGenerator::SetSignalPath(const std::shared_ptr<ISignalPath>& path) {
    Call(L"BcGenerator.SetSignalPath", path != nullptr);
    signalPath = path;
}

void SimBcGenerator::Apply() {
    Call(L"BcGenerator.Apply");
    applied = settings;
}

std::shared_ptr<IDevice> SimRfGenerator::CommonDevice() {
    Call(L"RfGenerator.CommonDevice");
    return shared_from_this();
}

void SimRfGenerator::SetFrequency(double hertz) {
    Call(L"RfGenerator.SetFrequency", hertz);
    pending.frequency = hertz;
}

void SimRfGenerator::SetLevel(double level) {
    Call(L"RfGenerator.SetLevel", level);
    pending.level = level;
}

void SimRfGenerator::SetRfOn(bool on) {
    Call(L"RfGenerator.SetRfOn", on);
    pending.isOn = on;
}

void SimRfGenerator::Execute() {
    Call(L"RfGenerator.Execute");
    output = pending;
}

// ---- the rest of the bench ---------------------------------------------------------------------

void SimAmplifier::SetState(IAmplifierState& wanted) {
    Call(L"Amplifier.SetState", wanted);
    power = wanted;
}

void SimSwitchUnit::SwitchPath(String& path) {
    Call(L"SwitchUnit.SwitchPath", path);
    if (!paths.empty() && std::find(paths.begin(), paths.end(), path) == paths.end()) {
        Refuse(L"has no path " + path);
    }
    current = path;
}

std::vector<String> SimSwitchUnit::Paths() {
    Call(L"SwitchUnit.Paths");
    return paths;
}

std::shared_ptr<IDevice> SimReceiver::CommonDevice() {
    Call(L"Receiver.CommonDevice");
    return shared_from_this();
}

std::int32_t SimReceiver::SetParameter(std::int32_t id, const String& value, bool apply,
                                       std::int32_t index, const String& option) {
    Call(L"Receiver.SetParameter", id, value, apply, index, option);
    parameters[id] = value;
    return 0;
}

std::shared_ptr<IDevice> SimSignalPath::CommonDevice() {
    Call(L"SignalPath.CommonDevice");
    return shared_from_this();
}

void SimSignalPath::Prepare() {
    Call(L"SignalPath.Prepare");
}

double SimSignalPath::GetCorrection(double& frequency, std::int32_t& kind) {
    Call(L"SignalPath.GetCorrection", frequency, kind);
    return ValueOn(correction, frequency);
}

double SimCalTable::GetValue(double frequency, std::int32_t first, const Value& second) {
    host.Call(L"CalTable.GetValue", CallText(name, frequency, first, second));
    return ValueOn(levels, frequency);
}

// ---- the bench ---------------------------------------------------------------------------------

std::shared_ptr<SimDevice> SimBench::Device(const String& name) const {
    return FindByName(devices, name);
}

std::shared_ptr<SimCalTable> SimBench::Table(const String& name) const {
    return FindByName(tables, name);
}

std::vector<DeviceRecord> SimBench::OfClass(const String& classKey) const {
    std::vector<DeviceRecord> records;
    for (const std::shared_ptr<SimDevice>& device : devices) {
        if (ClassKeyOf(device->deviceClass) == classKey) {
            if (records.empty() && !beginsWithDevice) {
                records.emplace_back();
            }
            records.push_back({device->name});
        }
    }
    return records;
}

}  // namespace ace::sim
