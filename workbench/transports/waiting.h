/// How a transport waits: never longer than told, and not with a dead screen.
#pragma once

#include <chrono>
#include <functional>

namespace ace::workbench {

using Milliseconds = std::chrono::milliseconds;
using Deadline = std::chrono::steady_clock::time_point;

/// Lets the host's pending events run once. Any call of the engine and of the transports may come
/// from inside; an exception ends the wait and goes on to the caller. Unset for a host without
/// events.
using RunEvents = std::function<void()>;

/// How often events run while something is awaited.
inline constexpr Milliseconds EventSlice{10};

inline Deadline DeadlineIn(Milliseconds time) {
    return std::chrono::steady_clock::now() + time;
}
inline bool HasPassed(Deadline deadline) {
    return std::chrono::steady_clock::now() >= deadline;
}

/// Sleeps for a slice, then lets the events run.
void SleepAndRunEvents(const RunEvents& events);

}  // namespace ace::workbench
