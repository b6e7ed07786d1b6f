#include "sim/fault_script.h"

namespace ace::sim {

std::int32_t FaultScript::Next(StringView operation) {
    std::int32_t error = 0;
    for (Fault& fault : x_faults) {
        if (operation.substr(0, fault.prefix.size()) != fault.prefix) {
            continue;
        }
        ++fault.seen;
        const bool hits =
            fault.until == Until::Once ? fault.seen == fault.k : fault.seen >= fault.k;
        if (hits && error == 0) {
            error = fault.error;
        }
    }
    return error;
}

}  // namespace ace::sim
