/// A host whose devices, macros and tables are there and do nothing.
#pragma once

#include <memory>

#include <ace/host/host_factory.h>

namespace ace::bench {

/// Every name is a device of every kind, and every table is there.
std::shared_ptr<IHostFactory> HostWithDevices();

}  // namespace ace::bench
