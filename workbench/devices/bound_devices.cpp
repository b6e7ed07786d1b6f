#include "workbench/devices/bound_devices.h"

#include <array>
#include <iterator>

#include <ace/core/text.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using sim::SimClass;

constexpr StringView MonitorKeys[] = {L"OnFrequency"};
constexpr StringView BroadcastKeys[] = {L"OnApply"};
/// By the amplifier's state.
constexpr StringView AmplifierKeys[] = {L"OnPowerOff", L"OnPowerOn", L"OnStandby", L"OnOperate",
                                        L"OnReset"};
constexpr StringView SwitchUnitKeys[] = {L"OnPath"};
constexpr StringView ReceiverKeys[] = {L"OnProtect"};
constexpr StringView GeneratorKeys[] = {L"OnFrequency", L"OnLevel", L"OnOutputOn", L"OnOutputOff"};

String NumberText(double number) {
    return FormatGeneral(number, L'.');
}

template <class Device>
std::shared_ptr<sim::SimDevice> MakeSimulated(sim::SimHost& host, const String& name) {
    return host.bench.Add<Device>(host, name);
}

template <class Device>
std::shared_ptr<sim::SimDevice> MakeBound(sim::SimHost& host, const String& name,
                                          Instrument instrument) {
    auto device = std::make_shared<Device>(host, name, std::move(instrument));
    host.bench.Keep(std::shared_ptr<sim::SimDevice>(device));
    return device;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): it stands in the table beside MakeBound.
std::shared_ptr<sim::SimDevice> RefuseBinding(sim::SimHost&, const String&, Instrument) {
    Raise(Errors::InvalidProcedureCall);
}

/// What a device file can make of a class.
struct ClassRow {
    SimClass deviceClass;
    std::span<const StringView> commandKeys;  ///< none where nothing can be bound
    std::shared_ptr<sim::SimDevice> (*addSimulated)(sim::SimHost& host, const String& name);
    std::shared_ptr<sim::SimDevice> (*addBound)(sim::SimHost& host, const String& name,
                                                Instrument instrument);
};
constexpr ClassRow Classes[] = {
    {SimClass::Monitoring, MonitorKeys, MakeSimulated<sim::SimMonitor>, MakeBound<BoundMonitor>},
    {SimClass::BcGenerators, BroadcastKeys, MakeSimulated<sim::SimBcGenerator>,
     MakeBound<BoundBcGenerator>},
    {SimClass::Generators, GeneratorKeys, MakeSimulated<sim::SimRfGenerator>,
     MakeBound<BoundRfGenerator>},
    {SimClass::Amplifiers, AmplifierKeys, MakeSimulated<sim::SimAmplifier>,
     MakeBound<BoundAmplifier>},
    {SimClass::SwitchUnits, SwitchUnitKeys, MakeSimulated<sim::SimSwitchUnit>,
     MakeBound<BoundSwitchUnit>},
    {SimClass::Receivers, ReceiverKeys, MakeSimulated<sim::SimReceiver>, MakeBound<BoundReceiver>},
    {SimClass::SignalPaths, {}, MakeSimulated<sim::SimSignalPath>, RefuseBinding},
};

const ClassRow& ClassRowOf(SimClass deviceClass) {
    for (const ClassRow& row : Classes) {
        if (row.deviceClass == deviceClass) {
            return row;
        }
    }
    Raise(Errors::InvalidProcedureCall);
}

}  // namespace

void Instrument::Say(const String& key, const String& value) {
    const auto found = x_commands.find(key);
    if (found != x_commands.end()) {
        x_link.Send(Filled(found->second, std::array{value}));
    }
}

std::span<const StringView> CommandKeys(SimClass deviceClass) {
    return ClassRowOf(deviceClass).commandKeys;
}

std::shared_ptr<sim::SimDevice> AddSimulated(sim::SimHost& host, SimClass deviceClass,
                                             const String& name) {
    return ClassRowOf(deviceClass).addSimulated(host, name);
}

std::shared_ptr<sim::SimDevice> AddBound(sim::SimHost& host, SimClass deviceClass,
                                         const String& name, Instrument instrument) {
    return ClassRowOf(deviceClass).addBound(host, name, std::move(instrument));
}

void BoundMonitor::SetFrequency(double& hertz) {
    SimMonitor::SetFrequency(hertz);
    x_instrument.Say(L"OnFrequency", NumberText(hertz));
}

void BoundBcGenerator::Apply() {
    SimBcGenerator::Apply();
    x_instrument.Say(L"OnApply");
}

void BoundAmplifier::SetState(IAmplifierState& wanted) {
    SimAmplifier::SetState(wanted);
    if (wanted >= 0 && wanted < static_cast<IAmplifierState>(std::size(AmplifierKeys))) {
        x_instrument.Say(String(AmplifierKeys[wanted]));
    }
}

void BoundSwitchUnit::SwitchPath(String& path) {
    SimSwitchUnit::SwitchPath(path);
    x_instrument.Say(L"OnPath", path);
}

std::int32_t BoundReceiver::SetParameter(std::int32_t id, const String& value, bool apply,
                                         std::int32_t index, const String& option) {
    const std::int32_t answer = SimReceiver::SetParameter(id, value, apply, index, option);
    if (id == Protection) {
        x_instrument.Say(L"OnProtect", value);
    }
    return answer;
}

void BoundRfGenerator::SetFrequency(double hertz) {
    SimRfGenerator::SetFrequency(hertz);
    x_frequency = hertz;
}

void BoundRfGenerator::SetLevel(double level) {
    SimRfGenerator::SetLevel(level);
    x_level = level;
}

void BoundRfGenerator::SetRfOn(bool on) {
    SimRfGenerator::SetRfOn(on);
    x_on = on;
}

void BoundRfGenerator::Execute() {
    SimRfGenerator::Execute();
    if (x_frequency) {
        x_instrument.Say(L"OnFrequency", NumberText(*x_frequency));
        x_frequency.reset();
    }
    if (x_level) {
        x_instrument.Say(L"OnLevel", NumberText(*x_level));
        x_level.reset();
    }
    if (x_on) {
        x_instrument.Say(*x_on ? L"OnOutputOn" : L"OnOutputOff");
        x_on.reset();
    }
}

}  // namespace ace::workbench
