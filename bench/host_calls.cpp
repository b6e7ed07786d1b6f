#include "bench/host_calls.h"

namespace ace::bench {

namespace {

bool counting = false;
CallCounts counts{};
volatile std::size_t sink = 0;

}  // namespace

CountingCalls::CountingCalls() {
    counting = true;
    counts = {};
}

CountingCalls::~CountingCalls() {
    counting = false;
}

bool HostsCount() {
    return counting;
}

CallCounts& Counted() {
    return counts;
}

void Answered(std::size_t found) {
    sink = found;
    if (counting) {
        Count<true>(Call::Found, found);
    }
}

}  // namespace ace::bench
