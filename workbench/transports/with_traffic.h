/// Host services, simulated or real, whose traffic goes to a log.
#pragma once

#include <memory>

#include <ace/host/host_factory.h>

#include "workbench/transports/traffic_log.h"

namespace ace::workbench {

/// The same service; what it sends, starts or fails to open is a line of the log. Without a log it
/// comes back as it is. Answers and errors pass unchanged.
std::shared_ptr<IDeviceList> WithTraffic(std::shared_ptr<TrafficLog> log,
                                         std::shared_ptr<IDeviceList> list);
std::shared_ptr<IGpibDriver> WithTraffic(std::shared_ptr<TrafficLog> log,
                                         std::shared_ptr<IGpibDriver> driver);
std::shared_ptr<ISerialPort> WithTraffic(std::shared_ptr<TrafficLog> log,
                                         std::shared_ptr<ISerialPort> port);
/// The starts of programs.
std::shared_ptr<IPlatform> WithTraffic(std::shared_ptr<TrafficLog> log,
                                       std::shared_ptr<IPlatform> platform);
/// The starts of macros.
std::shared_ptr<IApiMacro> WithTraffic(std::shared_ptr<TrafficLog> log,
                                       std::shared_ptr<IApiMacro> macro);

}  // namespace ace::workbench
