/// Short ways to tell the calls of a nested operation in a sweep.
#pragma once

#include "support/sweep.h"

namespace ace::test {

using Steps = std::vector<SweepStep>;

/// The same outcome for several calls in a row: as many reports as operations that the error
/// passes; without any it comes out as it is.
inline Steps Raised(std::int32_t reports, const std::vector<String>& calls,
                    const String& left = {}) {
    Steps steps;
    for (const String& call : calls) {
        steps.push_back({call, reports, true, left});
    }
    return steps;
}
inline Steps operator+(Steps steps, const Steps& more) {
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
}

/// An operation asks for each of its two trace lines whether it is wanted. `depth` counts from 1
/// the operations around it, itself included; `before` and `after` is the state at either end.
inline Steps Operation(std::int32_t depth, const String& before, const Steps& inside,
                       const String& after) {
    return Raised(depth, {L"TraceLog.IsEnabled"}, before) + inside +
           Raised(depth, {L"TraceLog.IsEnabled"}, after);
}

}  // namespace ace::test
