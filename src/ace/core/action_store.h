/// The lists follow the host's: entries come, go, move and change places.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Gets the memory for an upper bound beforehand and leaves the bound alone, so that moving it
/// there can't fail behind a count that has changed. An array that was never made is left so.
template <class T>
void ReserveUpTo(DynArray<T>& array, std::int32_t upper) {
    if (array.IsAllocated() && upper > array.UpperBound()) {
        const std::int32_t before = array.UpperBound();
        array.RedimPreserve(upper);
        array.RedimPreserve(before);
    }
}

/// Moves the elements behind `index` one down, up to the upper bound; the last one stays as it is.
template <class T>
void CloseGap(DynArray<T>& array, std::int32_t index) {
    const std::int32_t last = array.UpperBound();
    for (std::int32_t i = index; i < last; ++i) {
        array[i] = array[i + 1];
    }
}

namespace modActions {

/// Puts an empty entry at `Index`, from 1, and moves those behind it up. One above the count is an
/// insertion behind the last entry; any higher number takes the spare place as it stands.
/// Intentional: only the enter, leave and fourth lists of the entry are emptied; it keeps a copy of
/// the frequency list that stood there. `Count` and `Index` change before an access outside the
/// bounds; `Index` is left from 0. Errors 7, 9 and 10, handled: 10, and 7 for want of the place,
/// leave count and entries as they were. No messages run.
void AddEntry(ThreadContext& context, DynArray<p_Subrange>& List, std::int32_t& Count,
              std::int32_t& Index);

/// Removes the entry at `Index`, from 1, or the last one when there is none. Intentional: the spare
/// place behind the last entry keeps a copy of it, and nobody empties it. `Count` may fall below
/// 0. `Count` and `Index` change as above. Errors 9 and 10, handled; no messages run.
void DeleteEntry(ThreadContext& context, DynArray<p_Subrange>& List, std::int32_t& Count,
                 std::int32_t& Index);

}  // namespace modActions

}  // namespace ace
