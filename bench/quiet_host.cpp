#include "bench/quiet_host.h"

#include "bench/quiet_services.h"

namespace ace::bench {

std::shared_ptr<IHostFactory> QuietHost() {
    if (HostsCount()) {
        return std::make_shared<QuietFactory<true>>();
    }
    return std::make_shared<QuietFactory<false>>();
}

}  // namespace ace::bench
