#include "workbench/session/channel_watch.h"

namespace ace::workbench {

namespace {

std::shared_ptr<sim::SimMonitor> MonitorOf(const sim::SimBench& bench, const String& name) {
    return std::dynamic_pointer_cast<sim::SimMonitor>(bench.Device(name));
}

bool IsAbove(double reading, const std::optional<double>& limit) {
    return limit && reading > *limit;
}

Moment Change(const WatchedChannel& channel, MomentCall call) {
    Moment moment;
    moment.call = call;
    moment.number = channel.number;
    moment.name = channel.name;
    return moment;
}

}  // namespace

std::vector<WatchedChannel> WatchedChannels(const TestSetUp& setUp) {
    std::vector<WatchedChannel> channels;
    std::int32_t number = 0;
    for (const ChannelEvents& channel : setUp.channels) {
        ++number;
        if (channel.watch) {
            channels.push_back({number, channel.name, *channel.watch});
        }
    }
    return channels;
}

bool IsMonitor(const sim::SimBench& bench, const String& name) {
    return MonitorOf(bench, name) != nullptr;
}

std::vector<Moment> ChannelChanges(std::vector<WatchedChannel>& channels,
                                   const sim::SimBench& bench) {
    std::vector<Moment> changes;
    for (WatchedChannel& channel : channels) {
        const std::shared_ptr<sim::SimMonitor> device = MonitorOf(bench, channel.watch.device);
        if (!device) {
            continue;
        }
        const double reading = device->Reading(channel.watch.channel);
        if (reading == IMonitorDevice::FailedRead) {
            continue;  // says nothing about the equipment
        }
        const bool isTriggered = IsAbove(reading, channel.watch.triggerAbove);
        const bool isNoGo = IsAbove(reading, channel.watch.noGoAbove);
        if (isTriggered && !channel.isTriggered) {
            changes.push_back(Change(channel, MomentCall::Trigger));
        }
        if (isNoGo != channel.isNoGo) {
            changes.push_back(Change(channel, isNoGo ? MomentCall::EnterNoGo : MomentCall::Go));
        }
        channel.isTriggered = isTriggered;
        channel.isNoGo = isNoGo;
    }
    return changes;
}

}  // namespace ace::workbench
