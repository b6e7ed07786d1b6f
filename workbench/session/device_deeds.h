/// What a test does to devices, as a plan counts it.
#pragma once

#include "sim/sim_host.h"

namespace ace::workbench {

/// A call of the host that does something to a device, whose name is its first argument. Calls are
/// told apart by the arguments up to `last`; `words` stand for what changes with each call.
struct DeedRow {
    StringView operation;
    std::size_t last = 0;
    StringView words{};
};

/// None for calls that do nothing to a device.
const DeedRow* FindDeed(StringView operation);
/// The same for two calls that do the same to one device. `call` is one of the row.
String DeedKey(const DeedRow& row, const sim::HostCall& call);
/// "operate", as the report of a run says it behind the name of the device.
String DeedWords(const DeedRow& row, const sim::HostCall& call, const String& device);

}  // namespace ace::workbench
