#include "support/allocation_counter.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t allocations = 0;
/// The allocation that fails, and whether all behind it do; 0 for none.
thread_local std::size_t failing = 0;
thread_local bool failForEver = false;

bool Fails() {
    return failing != 0 && (allocations == failing || (failForEver && allocations > failing));
}

void* Counted(std::size_t size) {
    ++allocations;
    if (Fails()) {
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return Counted(size);
}
void* operator new[](std::size_t size) {
    return Counted(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}

std::size_t ace::test::AllocationCount() {
    return allocations;
}

ace::test::FailingAllocations::FailingAllocations(std::size_t n, bool forEver)
    : x_number(allocations + n) {
    failing = x_number;
    failForEver = forEver;
}

ace::test::FailingAllocations::~FailingAllocations() {
    failing = 0;
}

bool ace::test::FailingAllocations::WasHit() const {
    return allocations >= x_number;
}
