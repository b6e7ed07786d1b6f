/// Counts what the global `operator new` gives out, and lets it fail. Linking the counter replaces
/// that operator in the whole executable, so it stands in tests of its own.
#pragma once

#include <cstddef>

namespace ace::test {

/// Allocations of the calling thread since it began.
std::size_t AllocationCount();

/// Number of allocations that `act` makes.
template <class Act>
std::size_t AllocationsOf(Act&& act) {
    const std::size_t before = AllocationCount();
    act();
    return AllocationCount() - before;
}

/// While it lives, the `n`-th allocation of the calling thread fails, n from 1 and from now on, and
/// if told so each one behind it.
class FailingAllocations {
  public:
    FailingAllocations(std::size_t n, bool forEver);
    ~FailingAllocations();
    FailingAllocations(const FailingAllocations&) = delete;
    FailingAllocations& operator=(const FailingAllocations&) = delete;
    /// That allocation has been asked for.
    bool WasHit() const;

  private:
    std::size_t x_number;  ///< of that allocation, since the thread began
};

}  // namespace ace::test
