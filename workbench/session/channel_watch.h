/// Monitoring channels that follow the readings of devices.
#pragma once

#include "sim/sim_devices.h"
#include "workbench/session/moments.h"
#include "workbench/session/set_up.h"

namespace ace::workbench {

/// A channel and where it stands.
struct WatchedChannel {
    std::int32_t number = 0;  ///< from 1
    String name;
    ChannelWatch watch;
    bool isTriggered = false;  ///< the last reading was above the limit of the trigger
    bool isNoGo = false;
};

/// The channels of the test that a device watches; all begin as good.
std::vector<WatchedChannel> WatchedChannels(const TestSetUp& setUp);

/// The bench has a monitoring device of that name.
bool IsMonitor(const sim::SimBench& bench, const String& name);

/// Reads each channel and tells what changed, in the order of the channels: a reading that rises
/// above the limit of the trigger triggers once, until it has been at or below it again; one that
/// rises above the limit of no-go enters no-go, and the first one that does not goes back to go. A
/// failed read leaves its channel as it is.
std::vector<Moment> ChannelChanges(std::vector<WatchedChannel>& channels,
                                   const sim::SimBench& bench);

}  // namespace ace::workbench
