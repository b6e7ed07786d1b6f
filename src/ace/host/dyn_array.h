/// The one array type of all lists: run-time bounds, an unallocated state, and a hold.
#pragma once

#include <algorithm>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include <ace/host/basic_types.h>
#include <ace/host/boxed.h>
#include <ace/host/run_time_error.h>

namespace ace {

/// Arrays of plain values count their changes, because look-up tables go by what stands in them.
template <class T>
inline constexpr bool CountsChanges = std::is_same_v<T, String> || std::is_same_v<T, double>;

/// A growable array with explicit bounds. Unallocated differs from allocated with bounds 0 to 0.
/// Asking the bounds of an unallocated array, or an element outside the bounds, is error 9;
/// resizing, erasing or assigning an array that is held, and moving its elements, is error 10; an
/// allocation that fails is error 7. Copies are deep and start without a hold.
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
        Settle(other.x_lower);
    }
    /// Leaves `other` unallocated, unless it is held: then it keeps its elements and is copied.
    DynArray(DynArray&& other) noexcept { TakeFrom(other); }
    ~DynArray() = default;

    DynArray& operator=(const DynArray& other) {
        if (this != &other) {
            RequireFree();
            if (x_size == 0 && other.x_size == 0) {
                return *this;  // as most arrays of a record; they are copied with each action
            }
            Reserving([&] { x_items = other.x_items; });
            Settle(other.x_lower);
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

    /// An array that is allocated has an element at least.
    bool IsAllocated() const { return x_size != 0; }
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
            std::vector<Item> fresh(size);
            x_items.swap(fresh);
        });
        Settle(lower);
    }

    /// Moves the upper bound and keeps what fits; an unallocated array gets lower bound 0.
    void RedimPreserve(std::int32_t upper) {
        RequireFree();
        const std::int64_t lower = IsAllocated() ? x_lower : 0;
        const std::size_t size = SizeOf(lower, upper);
        Reserving([&] { x_items.resize(size); });
        Settle(lower);
    }

    /// Gives up the elements; the array is unallocated afterwards.
    void Erase() {
        RequireFree();
        std::vector<Item>().swap(x_items);
        Settle(0);
    }

    /// Takes element `from` out and puts it in at `to`; those between move by one place. No element
    /// is copied.
    void MoveElement(std::int32_t from, std::int32_t to) {
        RequireFree();
        const auto source = x_items.begin() + static_cast<std::ptrdiff_t>(Offset(from));
        const auto target = x_items.begin() + static_cast<std::ptrdiff_t>(Offset(to));
        Item item = std::move(*source);
        if (source < target) {
            std::move(source + 1, target + 1, source);
        } else {
            std::move_backward(target, source, source + 1);
        }
        *target = std::move(item);
        NoteChange();
    }
    /// Exchanges two elements. No element is copied.
    void SwapElements(std::int32_t a, std::int32_t b) {
        RequireFree();
        std::swap(x_items[Offset(a)], x_items[Offset(b)]);
        NoteChange();
    }

    /// How often the array may have been changed: every access by which it could be is counted, for
    /// the types that `CountsChanges` names. An element that is kept as a reference and written
    /// later is not seen.
    std::uint32_t Changes() const { return x_changes; }

    T& operator[](std::int32_t index) {
        NoteChange();
        return Unboxed<T>(x_items[Offset(index)]);
    }
    const T& operator[](std::int32_t index) const { return Unboxed<T>(x_items[Offset(index)]); }

    auto begin() {
        NoteChange();
        return Unboxing<T>(x_items.begin());
    }
    auto end() { return Unboxing<T>(x_items.end()); }
    auto begin() const { return Unboxing<T>(x_items.begin()); }
    auto end() const { return Unboxing<T>(x_items.end()); }

    /// Same bounds and same elements; holds do not count.
    friend bool operator==(const DynArray& a, const DynArray& b) {
        // Most lists of a set have nothing, and after an edit all sets are compared.
        return (a.x_size | b.x_size) == 0 || a.HoldsSame(b);
    }

  private:
    using Item = ItemOf<T>;

    void RequireFree() const {
        if (x_holds != 0) {
            Raise(Errors::ArrayInUse);
        }
    }
    void RequireAllocated() const {
        if (!IsAllocated()) {
            Raise(Errors::SubscriptOutOfRange);
        }
    }
    /// Apart, so that the question whether there is anything to compare stays small.
    [[gnu::noinline]] bool HoldsSame(const DynArray& other) const {
        return x_lower == other.x_lower && x_items == other.x_items;
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
        if (x_size == 0 && other.x_size == 0) {
            return;  // as most lists of a set; all sets behind one that goes are moved
        }
        if (other.IsHeld()) {
            x_items = other.x_items;
            Settle(other.x_lower);
            return;
        }
        x_items = std::move(other.x_items);
        Settle(other.x_lower);
        other.x_items.clear();
        other.Settle(0);
    }
    /// After each change of the elements.
    void Settle(std::int64_t lower) {
        x_lower = lower;
        x_size = x_items.size();
        NoteChange();
    }
    void NoteChange() {
        if constexpr (CountsChanges<T>) {
            ++x_changes;
        }
    }

    std::vector<Item> x_items;
    std::int64_t x_lower = 0;  ///< in the width in which an index is compared; 0 when unallocated
    std::uint64_t x_size = 0;  ///< that of `x_items`, which would have to be divided out
    std::uint32_t x_changes = 0;
    mutable std::int32_t x_holds = 0;
};

}  // namespace ace
