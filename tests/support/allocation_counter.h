/// Counts what the global `operator new` gives out. Linking the counter replaces that operator in
/// the whole executable, so it stands in tests of its own.
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

}  // namespace ace::test
