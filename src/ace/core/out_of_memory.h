/// Memory that can't be got, as a run-time error.
#pragma once

#include <new>

#include <ace/host/run_time_error.h>

namespace ace {

/// Runs what has no handler; memory that it can't get is error 7 all the same.
template <class Act>
decltype(auto) OrOutOfMemory(Act&& act) {
    try {
        return act();
    } catch (const std::bad_alloc&) {
        Raise(Errors::OutOfMemory);
    }
}

}  // namespace ace
