/// The one array type of all lists: run-time bounds, an unallocated state, and a hold.
#pragma once

#include <limits>
#include <new>
#include <stdexcept>
#include <utility>
#include <vector>

#include <ace/host/run_time_error.h>

namespace ace {

/// A growable array with explicit bounds. Unallocated differs from allocated with bounds 0 to 0.
/// Asking the bounds of an unallocated array, or an element outside the bounds, is error 9;
/// resizing, erasing or assigning an array that is held is error 10; an allocation that fails is
/// error 7. Copies are deep and start without a hold.
template <class T>
class DynArray {
  public:
    /// While it lives, the array keeps its elements where they are. Holds nest.
    class Hold {
      public:
        explicit Hold(const DynArray& array) : x_array(array) { ++x_array.x_holds; }
        ~Hold() { --x_array.x_holds; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

      private:
        const DynArray& x_array;
    };

    DynArray() = default;
    DynArray(const DynArray& other) {
        Reserving([&] { x_items = other.x_items; });
        Settle(other.x_lower, other.x_allocated);
    }
    /// Leaves `other` unallocated, unless it is held: then it keeps its elements and is copied.
    DynArray(DynArray&& other) noexcept { TakeFrom(other); }
    ~DynArray() = default;

    DynArray& operator=(const DynArray& other) {
        if (this != &other) {
            RequireFree();
            Reserving([&] { x_items = other.x_items; });
            Settle(other.x_lower, other.x_allocated);
        }
        return *this;
    }
    // NOLINTNEXTLINE(performance-noexcept-move-constructor): a held array refuses with error 10
    DynArray& operator=(DynArray&& other) {
        if (this != &other) {
            RequireFree();
            TakeFrom(other);
        }
        return *this;
    }

    bool IsAllocated() const { return x_allocated; }
    bool IsHeld() const { return x_holds != 0; }
    /// Number of elements; 0 when unallocated. Lists are walked by the count beside them instead.
    std::size_t Size() const { return x_items.size(); }

    std::int32_t LowerBound() const {
        RequireAllocated();
        return static_cast<std::int32_t>(x_lower);
    }
    std::int32_t UpperBound() const {
        RequireAllocated();
        return static_cast<std::int32_t>(x_lower + static_cast<std::int64_t>(x_size) - 1);
    }

    /// Makes the array anew with fresh elements. An upper bound below the lower one is error 9.
    void Redim(std::int32_t lower, std::int32_t upper) {
        RequireFree();
        const std::size_t size = SizeOf(lower, upper);
        Reserving([&] {
            std::vector<T> fresh(size);
            x_items.swap(fresh);
        });
        Settle(lower, true);
    }

    /// Moves the upper bound and keeps what fits; an unallocated array gets lower bound 0.
    void RedimPreserve(std::int32_t upper) {
        RequireFree();
        const std::int64_t lower = x_allocated ? x_lower : 0;
        const std::size_t size = SizeOf(lower, upper);
        Reserving([&] { x_items.resize(size); });
        Settle(lower, true);
    }

    /// Gives up the elements; the array is unallocated afterwards.
    void Erase() {
        RequireFree();
        std::vector<T>().swap(x_items);
        Settle(0, false);
    }

    T& operator[](std::int32_t index) { return x_items[Offset(index)]; }
    const T& operator[](std::int32_t index) const { return x_items[Offset(index)]; }

    auto begin() { return x_items.begin(); }
    auto end() { return x_items.end(); }
    auto begin() const { return x_items.begin(); }
    auto end() const { return x_items.end(); }

    /// Same bounds and same elements; holds do not count.
    friend bool operator==(const DynArray& a, const DynArray& b) {
        return a.x_allocated == b.x_allocated && a.x_lower == b.x_lower && a.x_items == b.x_items;
    }

  private:
    void RequireFree() const {
        if (x_holds != 0) {
            Raise(Errors::ArrayInUse);
        }
    }
    void RequireAllocated() const {
        if (!x_allocated) {
            Raise(Errors::SubscriptOutOfRange);
        }
    }
    std::size_t Offset(std::int32_t index) const {
        const auto offset = static_cast<std::uint64_t>(std::int64_t{index} - x_lower);
        if (offset >= x_size) {
            Raise(Errors::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(offset);
    }
    static std::size_t SizeOf(std::int64_t lower, std::int64_t upper) {
        if (upper < lower) {
            Raise(Errors::SubscriptOutOfRange);
        }
        return static_cast<std::size_t>(upper - lower + 1);
    }
    template <class Change>
    static void Reserving(Change&& change) {
        try {
            change();
        } catch (const std::bad_alloc&) {
            Raise(Errors::OutOfMemory);
        } catch (const std::length_error&) {
            Raise(Errors::OutOfMemory);
        }
    }
    void TakeFrom(DynArray& other) {
        if (!x_allocated && !other.x_allocated) {
            return;  // as most lists of a set; all sets behind one that goes are moved
        }
        if (other.IsHeld()) {
            x_items = other.x_items;
            Settle(other.x_lower, other.x_allocated);
            return;
        }
        x_items = std::move(other.x_items);
        Settle(other.x_lower, other.x_allocated);
        other.x_items.clear();
        other.Settle(0, false);
    }
    /// After each change of the elements.
    void Settle(std::int64_t lower, bool allocated) {
        x_lower = lower;
        x_size = x_items.size();
        x_allocated = allocated;
    }

    std::vector<T> x_items;
    std::int64_t x_lower = 0;  ///< in the width in which an index is compared
    std::uint64_t x_size = 0;  ///< that of `x_items`, which would have to be divided out
    bool x_allocated = false;
    mutable std::int32_t x_holds = 0;
};

}  // namespace ace
