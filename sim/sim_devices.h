/// The devices of a simulated bench: small, with a memory, and able to fail by script.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include <ace/host/amplifier.h>
#include <ace/host/bc_generator.h>
#include <ace/host/cal_table.h>
#include <ace/host/device_list.h>
#include <ace/host/monitor_device.h>
#include <ace/host/receiver.h>
#include <ace/host/rf_generator.h>
#include <ace/host/switch_unit.h>

#include "sim/call_text.h"

namespace ace::sim {

class SimHost;

/// Values over frequency in hertz, linear between two entries and constant beyond the ends; 0
/// without any entry.
using SimCurve = std::map<double, double>;
double ValueOn(const SimCurve& curve, double frequency);

/// The classes of this bench; the keys are those by which the engine and its editor know them.
enum class SimClass : std::int32_t {
    Monitoring = 1,
    BcGenerators,
    Generators,
    Amplifiers,
    SwitchUnits,
    Receivers,
    SignalPaths,
};
/// All of them, in their order.
const std::vector<SimClass>& AllClasses();
/// Section key of a class; empty for a number that is none.
String ClassKeyOf(SimClass deviceClass);

/// What all devices have. Every call is one line of the host's journal, with the device's name as
/// its first argument.
class SimDevice : public IDevice, public std::enable_shared_from_this<SimDevice> {
  public:
    SimDevice(SimHost& owner, String deviceName, SimClass ofClass)
        : host(owner), name(std::move(deviceName)), deviceClass(ofClass) {}

    String Name() override;
    std::int32_t DeviceClass() override;
    void Activate(std::int32_t mode) override;
    std::int32_t State() override;
    void LoadSettings(const std::shared_ptr<ISettingsFile>& file, const String& section) override;
    void ReadSettings(std::int32_t mode, const std::shared_ptr<ISettingsFile>& file,
                      const String& section) override;
    /// The first line of the section.
    String SettingsText(const std::shared_ptr<ISettingsFile>& file, const String& section) override;
    /// Writes the settings into a section; the caller releases the file.
    void SaveSettings(ISettingsFile& file, const String& section) const;

    SimHost& host;
    const String name;
    const SimClass deviceClass;
    std::int32_t state = Active;
    std::int32_t stateOnceActivated = Active;  ///< what an activation leads to
    std::vector<String> settings;              ///< lines of the section that was loaded last

  protected:
    template <class... Arguments>
    void Call(StringView operation, const Arguments&... arguments);
    void Enter(StringView operation, CallArguments arguments) const;
    [[noreturn]] void Refuse(const String& why) const;
};

/// A failure of the equipment under test: while the measurement stands between two frequencies, the
/// channel reads `reading`, from the first time on for a while. Then the equipment is well again.
struct SimEutFailure {
    std::int32_t channel = 0;
    double fromHz = 0.0;
    double toHz = 0.0;
    double milliseconds = 0.0;
    double reading = 1.0;
    std::optional<double> begunAt = {};  ///< time of the host
};

class SimMonitor : public SimDevice, public IMonitorDevice {
  public:
    SimMonitor(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::Monitoring) {}
    std::shared_ptr<IDevice> CommonDevice() override;
    std::int32_t Capabilities() override;
    void SetUseMode(std::int32_t& mode) override;
    void SetChannel(std::int32_t channel, std::int32_t apply) override;
    double ReadChannel(std::int32_t channel) override;
    void SetFrequency(double& hertz) override;
    /// What the channel reads at present; nothing in the journal.
    double Reading(std::int32_t channel);

    /// What the device can be used for; any other use is refused.
    std::int32_t capabilities = UseToSet | UseToCheck | UseToTrack;
    std::map<std::int32_t, std::deque<double>> readings;  ///< read first, one after the other
    std::vector<SimEutFailure> failures;
    std::set<std::int32_t> channelsSet;
    double frequency = 0.0;
};

class SimBcGenerator : public SimDevice, public IBcGenerator {
  public:
    SimBcGenerator(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::BcGenerators) {}
    void SetSignalPath(const std::shared_ptr<ISignalPath>& path) override;
    void Apply() override;

    std::shared_ptr<ISignalPath> signalPath;
    std::vector<String> applied;  ///< the settings at work
};

class SimAmplifier : public SimDevice, public IAmplifier {
  public:
    SimAmplifier(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::Amplifiers) {}
    void SetState(IAmplifierState& wanted) override;

    IAmplifierState power = 0;
};

class SimSwitchUnit : public SimDevice, public ISwitchUnit {
  public:
    SimSwitchUnit(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::SwitchUnits) {}
    void SwitchPath(String& path) override;
    std::vector<String> Paths() override;

    std::vector<String> paths;  ///< the paths that it has; without any it takes every name
    String current;
};

class SimReceiver : public SimDevice, public IReceiver {
  public:
    SimReceiver(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::Receivers) {}
    std::shared_ptr<IDevice> CommonDevice() override;
    std::int32_t SetParameter(std::int32_t id, const String& value, bool apply, std::int32_t index,
                              const String& option) override;

    std::map<std::int32_t, String> parameters;
};

class SimRfGenerator : public SimDevice, public IRfGenerator {
  public:
    /// What is at the output, and what waits for `Execute`.
    struct Output {
        double frequency = 0.0;
        double level = 0.0;
        bool isOn = false;
        bool operator==(const Output&) const = default;
    };

    SimRfGenerator(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::Generators) {}
    std::shared_ptr<IDevice> CommonDevice() override;
    void SetFrequency(double hertz) override;
    void SetLevel(double level) override;
    void SetRfOn(bool on) override;
    void Execute() override;

    Output pending;
    Output output;
};

class SimSignalPath : public SimDevice, public ISignalPath {
  public:
    SimSignalPath(SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), SimClass::SignalPaths) {}
    std::shared_ptr<IDevice> CommonDevice() override;
    void Prepare() override;
    double GetCorrection(double& frequency, std::int32_t& kind) override;

    SimCurve correction;  ///< decibels
};

/// Not a device: a table by name.
class SimCalTable : public ICalTable {
  public:
    SimCalTable(SimHost& owner, String tableName) : host(owner), name(std::move(tableName)) {}
    double GetValue(double frequency, std::int32_t first, const Value& second) override;

    SimHost& host;
    const String name;
    SimCurve levels;
};

/// What a simulated host knows of its bench.
struct SimBench {
    std::vector<std::shared_ptr<SimDevice>> devices;  ///< in the order in which they were added
    std::vector<std::shared_ptr<SimCalTable>> tables;
    /// The entries of a class begin with its first device, as some hosts have it, not with the
    /// empty one.
    bool beginsWithDevice = false;
    double frequency = 0.0;  ///< hertz, at which the host measures at present

    /// Adds a device or a table of that kind and hands it out.
    template <class Kind>
    std::shared_ptr<Kind> Add(SimHost& host, const String& name) {
        auto made = std::make_shared<Kind>(host, name);
        Keep(made);
        return made;
    }
    void Keep(std::shared_ptr<SimDevice> device) { devices.push_back(std::move(device)); }
    void Keep(std::shared_ptr<SimCalTable> table) { tables.push_back(std::move(table)); }
    /// None when there is no such.
    std::shared_ptr<SimDevice> Device(const String& name) const;
    std::shared_ptr<SimCalTable> Table(const String& name) const;
    std::vector<DeviceRecord> OfClass(const String& classKey) const;
};

}  // namespace ace::sim
