/// Run-time errors as numbers.
#pragma once

#include <ace/host/run_time_error.h>

namespace ace::test {

/// Number of the run-time error that `act` raises; 0 when it raises none.
template <class Act>
std::int32_t ErrorOf(Act&& act) {
    try {
        act();
    } catch (const RunTimeError& error) {
        return error.Number();
    }
    return 0;
}

/// The same; -1 for what is no run-time error.
template <class Act>
std::int32_t AnyErrorOf(Act&& act) {
    try {
        return ErrorOf(act);
    } catch (...) {
        return -1;
    }
}

}  // namespace ace::test
