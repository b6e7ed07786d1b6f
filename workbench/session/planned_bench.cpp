#include "workbench/session/planned_bench.h"

#include "sim/sim_host.h"

namespace ace::workbench {

namespace {

class NamedDevices {
  public:
    explicit NamedDevices(sim::SimHost& host) : x_host(host) {}

    template <class Device>
    void Add(const String& name) {
        if (!name.empty() && !x_host.bench.Device(name)) {
            x_host.bench.Add<Device>(x_host, name);
        }
    }
    void AddTable(const String& name) {
        if (!x_host.bench.Table(name)) {
            x_host.bench.Add<sim::SimCalTable>(x_host, name);
        }
    }

  private:
    sim::SimHost& x_host;
};

/// Only a broadcast generator has a signal path.
void AddSetDevice(NamedDevices& devices, const aceSetDevice& record) {
    if (record.SigPathName.empty()) {
        devices.Add<sim::SimMonitor>(record.DevName);
    } else {
        devices.Add<sim::SimBcGenerator>(record.DevName);
        devices.Add<sim::SimSignalPath>(record.SigPathName);
    }
}

/// Of the kinds that work with one class of device, setting one left out.
void AddDevicesOf(NamedDevices& devices, p_ActionTypes kind, const aceSetDevice& record) {
    switch (kind) {
        case atSwitchAmp:
            devices.Add<sim::SimAmplifier>(record.DevName);
            break;
        case atSwitchUnit:
            devices.Add<sim::SimSwitchUnit>(record.DevName);
            break;
        case atSetDevice:
            break;
        default:
            devices.Add<sim::SimMonitor>(record.DevName);
            break;
    }
}

void AddDevicesOf(NamedDevices& devices, const aceTrackFreq& record) {
    devices.Add<sim::SimMonitor>(record.MoniName);
    if (!record.GenName.empty()) {
        devices.Add<sim::SimRfGenerator>(record.GenName);
        devices.Add<sim::SimSignalPath>(record.SigPathName);
        devices.AddTable(record.TableName);
    }
}

}  // namespace

void AddNamedDevices(sim::SimHost& host, const TestSetUp& setUp, const ActionPlaces& places) {
    NamedDevices devices(host);
    const std::vector<PlacedAction> all = places.All();
    for (const PlacedAction& placed : all) {
        const p_Action& action = *placed.action;
        if (const auto* const device = std::get_if<aceSetDevice>(&action.Parameter)) {
            AddDevicesOf(devices, action.ActionType, *device);
        } else if (const auto* const track = std::get_if<aceTrackFreq>(&action.Parameter)) {
            AddDevicesOf(devices, *track);
        }
    }
    for (const ChannelEvents& channel : setUp.channels) {
        if (channel.watch) {
            devices.Add<sim::SimMonitor>(channel.watch->device);
        }
    }
    for (const PlacedAction& placed : all) {
        const auto* const device = std::get_if<aceSetDevice>(&placed.action->Parameter);
        if (device != nullptr && placed.action->ActionType == atSetDevice) {
            AddSetDevice(devices, *device);
        }
    }
}

void MakeEquipmentWell(sim::SimBench& bench) {
    for (const std::shared_ptr<sim::SimDevice>& device : bench.devices) {
        if (const auto monitor = std::dynamic_pointer_cast<sim::SimMonitor>(device)) {
            monitor->failures.clear();
            monitor->readings.clear();
        }
    }
}

}  // namespace ace::workbench
