/// Host services that fail as a script says.
#pragma once

#include <memory>

#include <ace/host/host_factory.h>

#include "sim/call_text.h"
#include "workbench/devices/fault_rules.h"

namespace ace::workbench {

/// The same service; each call that the rules are about is counted first, and may fail before it
/// reaches anything. Without rules it comes back as it is.
std::shared_ptr<IDeviceList> WithFaults(std::shared_ptr<FaultRules> rules,
                                        std::shared_ptr<IDeviceList> list);
std::shared_ptr<IGpibDriver> WithFaults(std::shared_ptr<FaultRules> rules,
                                        std::shared_ptr<IGpibDriver> driver);
std::shared_ptr<ISerialPort> WithFaults(std::shared_ptr<FaultRules> rules,
                                        std::shared_ptr<ISerialPort> port);
/// The starts of programs.
std::shared_ptr<IPlatform> WithFaults(std::shared_ptr<FaultRules> rules,
                                      std::shared_ptr<IPlatform> platform);
/// A macro that is to fail does not start, and says why.
std::shared_ptr<IApiMacro> WithFaults(std::shared_ptr<FaultRules> rules,
                                      std::shared_ptr<IApiMacro> macro);

/// Counts a call of a simulated device by the name under which the journal knows it; any other call
/// is none. The error of a rule comes out.
void CountDeviceCall(FaultRules& rules, StringView operation, sim::CallArguments arguments);

}  // namespace ace::workbench
