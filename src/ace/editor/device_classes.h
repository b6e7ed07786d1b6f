/// Devices by class, as the editor offers them.
#pragma once

#include <vector>

#include <ace/core/thread_context.h>
#include <ace/host/device_list.h>
#include <ace/host/monitor_device.h>

namespace ace {

/// The names of the devices of a class, in the host's order. Errors of the host come out; messages
/// may run.
std::vector<String> NamesOfClass(ThreadContext& context, StringView deviceClass);
/// Of the monitoring devices those that can be used so; `use` is a bit of `IMonitorDevice`. One
/// that the host doesn't have, or that is no such device, is left out. Errors and messages as
/// above.
std::vector<String> MonitorsFor(ThreadContext& context, std::int32_t use);
/// Section key of a device's class, see `DeviceClasses`. As above.
String ClassOf(ThreadContext& context, IDevice& device);

}  // namespace ace
