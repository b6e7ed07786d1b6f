#include "bench/host_calls.h"

namespace ace::bench {

namespace {

bool counting = false;
CallCounts counts{};

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

}  // namespace ace::bench
