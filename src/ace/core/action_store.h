/// The lists follow the host's: entries come, go, move and change places.
#pragma once

#include <algorithm>
#include <utility>

#include <ace/core/operation.h>

namespace ace {

/// Gets the memory for an upper bound beforehand and leaves the array as it is, so that moving the
/// bound there can't fail behind a count that has changed. Answers the array that is to take the
/// place of one that was never made. Error 7.
template <class T>
DynArray<T> ReserveUpTo(DynArray<T>& array, std::int32_t upper) {
    DynArray<T> fresh;
    if (!array.IsAllocated() && upper >= 0) {
        fresh.Redim(0, upper);
    } else if (array.IsAllocated() && upper > array.UpperBound()) {
        const std::int32_t before = array.UpperBound();
        array.RedimPreserve(upper);
        array.RedimPreserve(before);
    }
    return fresh;
}

/// Moves the upper bound, with what `ReserveUpTo` answered for it.
template <class T>
void EnlargeTo(DynArray<T>& array, std::int32_t upper, DynArray<T>& fresh) {
    if (fresh.IsAllocated()) {
        array = std::move(fresh);
    } else {
        array.RedimPreserve(upper);
    }
}

/// Fills every element from `index` on with the one above, up to `last`, which stays as it is.
/// Error 9 when the array ends before that, with those moved that are there. The one copy is made
/// before anything moves, so that a statement which is tried again moves nothing twice.
template <class T>
void CloseGap(const Statements& stmt, DynArray<T>& array, std::int32_t index, std::int32_t last) {
    if (index >= last) {
        return;
    }
    const std::int32_t end = stmt([&] { return std::min(last, array.UpperBound()); });
    stmt([&] {
        if (index < end) {
            T copy = std::as_const(array)[end];
            array.MoveElement(index, end);
            array[end] = std::move(copy);
        }
    });
    stmt([&] {
        if (end < last) {
            Raise(Errors::SubscriptOutOfRange);
        }
    });
}

/// Index of the first of the `count` elements from 0 on that is `key`, to the letter; -1 for none.
/// Error 9 where the array ends before the key is found; a count of 0 or less asks no element.
std::int32_t FindKey(const DynArray<String>& keys, std::int64_t count, const String& key);

/// Without memory for the copy, error 7, the target, which may have been given up before, is left
/// empty and not half filled.
void CopyEntry(const p_Subrange& source, p_Subrange& target);

namespace modActions {

/// Puts an empty entry at `Index`, from 1, and moves those behind it up. One above the count is an
/// insertion behind the last entry; any higher number takes the spare element as it stands.
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
