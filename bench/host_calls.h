/// What the quiet host was asked to do, so that a case can prove that its work was done: an action
/// that fails makes other calls than one that succeeds.
#pragma once

#include <array>
#include <cstddef>

namespace ace::bench {

/// The calls that are counted; `Node` is a node that a tree was given. Two are none of the host's:
/// `Line`, a line that a settings file handed out or took, and `Found`, a look-up or a comparison
/// that found what it looked for.
enum class Call : std::size_t {
    Yield,
    TraceQuestion,
    Status,
    BusWrite,
    TimedMessage,
    Event,
    Form,
    Box,
    MacroLoad,
    MacroResult,
    Generator,
    Channel,
    Path,
    Node,
    Line,
    Found,
};
inline constexpr std::size_t CallKinds = 16;
/// By `Call`.
using CallCounts = std::array<std::size_t, CallKinds>;

/// A kind of call and how often it is made.
struct CallCount {
    Call call;
    std::size_t times;
};

/// While it lives, hosts that are made count; what is measured is a host that doesn't.
class CountingCalls {
  public:
    CountingCalls();
    ~CountingCalls();
    CountingCalls(const CountingCalls&) = delete;
    CountingCalls& operator=(const CountingCalls&) = delete;
};
/// A `CountingCalls` lives.
bool HostsCount();
/// What has been counted so far.
CallCounts& Counted();

/// Takes how many look-ups or comparisons have found what they looked for, so that none is left out
/// of the program, and counts them where hosts count.
void Answered(std::size_t found);

/// Counts a call of a host that counts.
template <bool Counts>
void Count(Call call, std::size_t times = 1) {
    if constexpr (Counts) {
        Counted()[static_cast<std::size_t>(call)] += times;
    }
}

}  // namespace ace::bench
