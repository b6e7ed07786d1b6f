/// Devices of the bench that pass on what they are told to an instrument.
#pragma once

#include <map>
#include <optional>
#include <span>

#include "sim/sim_devices.h"
#include "workbench/devices/instrument_link.h"

namespace ace::workbench {

/// An instrument with the commands that it understands, by keys such as "OnFrequency".
class Instrument {
  public:
    Instrument(InstrumentLink link, std::map<String, String> commands)
        : x_link(std::move(link)), x_commands(std::move(commands)) {}

    /// Sends the command of `key` with "%1" replaced by `value`; without such a command nothing.
    /// Errors as with `InstrumentLink`.
    void Say(const String& key, const String& value = {});

  private:
    InstrumentLink x_link;
    std::map<String, String> x_commands;
};

/// The keys of commands that a device of a class can have; none for a class that can't be bound.
std::span<const StringView> CommandKeys(sim::SimClass deviceClass);

/// Each of these does what the simulated device does, and then speaks to its instrument. Numbers
/// are written with a point: hertz, and levels as they come from the table.
class BoundMonitor final : public sim::SimMonitor {
  public:
    BoundMonitor(sim::SimHost& owner, String deviceName, Instrument instrument)
        : SimMonitor(owner, std::move(deviceName)), x_instrument(std::move(instrument)) {}
    void SetFrequency(double& hertz) override;

  private:
    Instrument x_instrument;
};

class BoundBcGenerator final : public sim::SimBcGenerator {
  public:
    BoundBcGenerator(sim::SimHost& owner, String deviceName, Instrument instrument)
        : SimBcGenerator(owner, std::move(deviceName)), x_instrument(std::move(instrument)) {}
    void Apply() override;

  private:
    Instrument x_instrument;
};

class BoundAmplifier final : public sim::SimAmplifier {
  public:
    BoundAmplifier(sim::SimHost& owner, String deviceName, Instrument instrument)
        : SimAmplifier(owner, std::move(deviceName)), x_instrument(std::move(instrument)) {}
    void SetState(IAmplifierState& wanted) override;

  private:
    Instrument x_instrument;
};

class BoundSwitchUnit final : public sim::SimSwitchUnit {
  public:
    BoundSwitchUnit(sim::SimHost& owner, String deviceName, Instrument instrument)
        : SimSwitchUnit(owner, std::move(deviceName)), x_instrument(std::move(instrument)) {}
    void SwitchPath(String& path) override;

  private:
    Instrument x_instrument;
};

class BoundReceiver final : public sim::SimReceiver {
  public:
    BoundReceiver(sim::SimHost& owner, String deviceName, Instrument instrument)
        : SimReceiver(owner, std::move(deviceName)), x_instrument(std::move(instrument)) {}
    std::int32_t SetParameter(std::int32_t id, const String& value, bool apply, std::int32_t index,
                              const String& option) override;

  private:
    Instrument x_instrument;
};

/// What was set since the last `Execute` is sent by the next one: frequency, level, output.
class BoundRfGenerator final : public sim::SimRfGenerator {
  public:
    BoundRfGenerator(sim::SimHost& owner, String deviceName, Instrument instrument)
        : SimRfGenerator(owner, std::move(deviceName)), x_instrument(std::move(instrument)) {}
    void SetFrequency(double hertz) override;
    void SetLevel(double level) override;
    void SetRfOn(bool on) override;
    void Execute() override;

  private:
    Instrument x_instrument;
    std::optional<double> x_frequency;
    std::optional<double> x_level;
    std::optional<bool> x_on;
};

/// Adds a device of the class without an instrument to the bench of `host`.
std::shared_ptr<sim::SimDevice> AddSimulated(sim::SimHost& host, sim::SimClass deviceClass,
                                             const String& name);
/// Adds one that speaks to its instrument; the class must be one that can be bound, or else
/// error 5.
std::shared_ptr<sim::SimDevice> AddBound(sim::SimHost& host, sim::SimClass deviceClass,
                                         const String& name, Instrument instrument);

}  // namespace ace::workbench
