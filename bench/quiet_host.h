/// The hosts of the benchmarks: their services do nothing, and their instruments can be reached.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::bench {

/// A factory whose services stand where the compiler can't see them: what is measured are calls
/// through the interface, as with any host. A bus device opens; there are no other devices.
std::shared_ptr<IHostFactory> QuietHost();

/// The same, with devices, macros and tables: every name is a device of every kind.
std::shared_ptr<IHostFactory> HostWithDevices();

}  // namespace ace::bench
