/// Which list of actions a moment of a module has: told once, for everyone who shows, changes or
/// checks lists (the editor, checks and plans of a file). What runs when is the execution's to say.
#pragma once

#include <optional>
#include <span>

#include <ace/core/action_lists.h>
#include <ace/core/module_table.h>

namespace ace {

/// One moment of one module, and its list.
struct MomentRow {
    aceModul moduleKind;
    p_PerformTimes time;
    StringView key;  ///< three letters; the number of the set follows where there are numbered sets
    p_Subrange ModuleLists::*fixed;  ///< the set that the module has once, or none
    const NumberedSets* numbered;    ///< the numbered sets, where `fixed` is none
    ListFields list;
};

/// A list with the count beside it, in somebody's lists.
struct ActionList {
    std::int32_t& count;
    DynArray<p_Action>& actions;
};

/// The same to be read only.
struct ConstActionList {
    const std::int32_t& count;
    const DynArray<p_Action>& actions;
};

/// All moments that have lines to show, by module and perform time. Intentional: the
/// every-frequency list of `aceEMSAutoTemplateGeneral` is not among them. It runs, but no moment of
/// that module shows it.
std::span<const MomentRow> MomentTable();
/// The row of a module's moment; none where the module has no such, or for values outside.
const MomentRow* FindMoment(std::int32_t moduleKind, std::int32_t time);
/// The perform time for which the first three letters of `key` stand, in whichever module: a key
/// has one time in all of them. None for other letters, such as those of a group or an action.
std::optional<p_PerformTimes> TimeOfKey(StringView key);
/// The list of a moment in `lists`. `number` is that of the numbered set, from 0, and means nothing
/// where the module has the set once; error 9 outside the array.
ActionList ListOf(ModuleLists& lists, const MomentRow& moment, std::int32_t number);
ConstActionList ListOf(const ModuleLists& lists, const MomentRow& moment, std::int32_t number);

}  // namespace ace
