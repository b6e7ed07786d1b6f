/// Real services within a simulated host: its journal shows their calls as it shows its own.
#pragma once

#include <memory>

#include "sim/sim_host.h"

namespace ace::workbench {

/// The same service; each call is entered into the journal of `host` first, under the name that the
/// simulated service gives it, and may be told to fail there. `host` must outlive the object.
std::shared_ptr<IGpibDriver> WithJournal(sim::SimHost& host, std::shared_ptr<IGpibDriver> driver);
std::shared_ptr<ISerialPort> WithJournal(sim::SimHost& host, std::shared_ptr<ISerialPort> port);
std::shared_ptr<IApiMacro> WithJournal(sim::SimHost& host, std::shared_ptr<IApiMacro> macro);
/// The socket operations alone.
std::shared_ptr<IDeviceList> WithJournal(sim::SimHost& host, std::shared_ptr<IDeviceList> list);
/// Sounds and programs alone.
std::shared_ptr<IPlatform> WithJournal(sim::SimHost& host, std::shared_ptr<IPlatform> platform);
/// The system's configuration and the macro synchronisation alone.
std::shared_ptr<ISystemServices> WithJournal(sim::SimHost& host,
                                             std::shared_ptr<ISystemServices> services);

}  // namespace ace::workbench
