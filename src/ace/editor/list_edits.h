/// The ways in which a list of actions changes, as statements of the operation `stmt`.
#pragma once

#include <ace/core/moment_table.h>
#include <ace/core/operation.h>
#include <ace/editor/held_action.h>

namespace ace {

/// Puts the held action into `list` at `position`, from 0, or behind the last one where the
/// position lies beyond. `IgnoreErr` and its replace variables stay out. With `newSection` it is a
/// new action or a copy, and `ForgetRun` is applied as well; whoever inserts a copy without a
/// section of its own does that himself.
///
/// With `newSection` an action that sets a device gets a section of its own in the settings file of
/// `engine`: the next number of the thread, which the held action has from then on, with a copy of
/// what stood in its old one. That is written at once, in one opened file; a host without such a
/// file gets none. When the file fails, or the held action has another kind's record (error 13),
/// the number is used up, the array has a spare element behind the others, and the count has not
/// risen. Errors of the file and of the array come out. No messages run.
void InsertEntry(const Statements& stmt, EngineState& engine, HeldAction& held,
                 const ActionList& list, std::int32_t position, Boolean newSection);
/// Takes the entry at `index` out. The last one goes with the array. Intentional: an index behind
/// the last entry takes that one; below 0 it is error 9, when the count has fallen already.
void RemoveEntry(const Statements& stmt, const ActionList& list, std::int32_t index);
/// Takes the entry at `from` out and puts it in at `to`. Nothing for a place below 0 or above the
/// count. Intentional: the count itself is let through, and is error 9 at the array, with nothing
/// moved.
void MoveEntry(const Statements& stmt, const ActionList& list, std::int32_t from, std::int32_t to);
/// Takes all entries out.
void ClearEntries(const ActionList& list);

}  // namespace ace
