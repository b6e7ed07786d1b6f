/// Walking a list of actions: the one loop under the moments of a test.
#pragma once

#include <ace/core/action_lists.h>
#include <ace/core/operation.h>
#include <ace/execution/dispatcher.h>

namespace ace {

/// The host says whether a set is there; it goes by the bounds, and an array that was never made is
/// error 9.
inline bool IsInRange(EngineState& state, const DynArray<p_Subrange>& sets, std::int32_t index) {
    return state.Context.Utilities().InRange(sets.LowerBound(), index, sets.UpperBound());
}

/// A list of a set that the module has once, in an engine object. Elements are looked up anew each
/// time, because the host may change the lists whenever messages run.
class FixedActions {
  public:
    FixedActions(EngineState& state, p_Subrange& set, const ListFields& list)
        : x_context(state.Context), x_count(set.*list.count), x_actions(set.*list.actions) {}

    /// The count beside the list.
    std::int32_t Count() const { return x_count; }
    /// Element `index` from 0; error 9 when it is gone.
    p_Action& operator[](std::int32_t index) const { return x_actions[index]; }
    /// Runs an element. For that time the list can't be resized, erased or assigned.
    Boolean Run(std::int32_t index, std::int32_t moduleKind) const {
        p_Action& action = x_actions[index];
        const DynArray<p_Action>::Hold hold(x_actions);
        return modActions::DoAction(x_context, action, moduleKind);
    }

  private:
    ThreadContext& x_context;
    std::int32_t& x_count;
    DynArray<p_Action>& x_actions;
};

/// A list of element `index`, from 0, of a module's numbered sets, in an engine object.
class NumberedActions {
  public:
    NumberedActions(EngineState& state, DynArray<p_Subrange>& sets, std::int32_t index,
                    const ListFields& list)
        : x_context(state.Context), x_sets(sets), x_index(index), x_list(list) {}

    /// The count beside the list; error 9 when the set is gone.
    std::int32_t Count() const { return x_sets[x_index].*x_list.count; }
    /// Element `index` from 0; error 9 when it or the set is gone.
    p_Action& operator[](std::int32_t index) const {
        return (x_sets[x_index].*x_list.actions)[index];
    }
    /// Runs an element. For that time the list and the numbered sets can't be resized, erased or
    /// assigned.
    Boolean Run(std::int32_t index, std::int32_t moduleKind) const {
        DynArray<p_Action>& actions = x_sets[x_index].*x_list.actions;
        p_Action& action = actions[index];
        const DynArray<p_Subrange>::Hold outer(x_sets);
        const DynArray<p_Action>::Hold inner(actions);
        return modActions::DoAction(x_context, action, moduleKind);
    }

  private:
    ThreadContext& x_context;
    DynArray<p_Subrange>& x_sets;
    std::int32_t x_index;
    ListFields x_list;
};

/// Where a list of a set that the module has once stands in any engine object.
struct FixedPlace {
    p_Subrange ModuleLists::*set;
    ListFields list;

    FixedActions In(EngineState& state) const { return {state, state.*set, list}; }
};
/// Where a list of element `index`, from 0, of a module's numbered sets stands.
struct NumberedPlace {
    DynArray<p_Subrange> ModuleLists::*sets;
    std::int32_t index;
    ListFields list;

    NumberedActions In(EngineState& state) const { return {state, state.*sets, index, list}; }
};

/// Runs statements as they stand, for the operations without an error handler.
struct BareStatements {
    template <class Statement>
    decltype(auto) operator()(Statement&& statement) const {
        return statement();
    }
};

/// The one loop: for each element of a list, messages run once and `body` is told its index; true
/// from `body` ends the loop and is the answer. How many elements there are is settled at the
/// start. `stmt` runs each statement: with the retry of an operation that has a handler, or bare.
template <class Actions, class Stmt, class Body>
[[gnu::always_inline]] inline bool ForEachAction(ThreadContext& context, const Actions& actions,
                                                 const Stmt& stmt, Body&& body) {
    const std::int32_t count = stmt([&] { return actions.Count(); });
    for (std::int32_t i = 0; i < count; ++i) {
        stmt([&] { context.Platform().Yield(); });
        if (body(i)) {
            return true;
        }
    }
    return false;
}

/// The elements for which `wanted` is true run, and the first true result ends the walk.
/// `moduleKind` is read anew for each element: where it is that of the object, a load from inside a
/// yield changes it.
template <class Place, class Stmt, class Wanted>
Boolean Walk(EngineState& state, const Place& place, const aceModul& moduleKind, const Stmt& stmt,
             Wanted&& wanted) {
    const auto actions = place.In(state);
    return ForEachAction(state.Context, actions, stmt, [&](std::int32_t i) -> bool {
        const bool run = stmt([&] { return wanted(actions[i]); });
        return run && stmt([&] { return actions.Run(i, moduleKind); });
    });
}

/// The plain walk: every element runs. `moduleKind` is the module kind that the actions are told.
template <class Place, class Stmt = BareStatements>
Boolean PlainWalk(EngineState& state, const Place& place, const aceModul& moduleKind,
                  const Stmt& stmt = {}) {
    const auto actions = place.In(state);
    return ForEachAction(state.Context, actions, stmt, [&](std::int32_t i) -> bool {
        return stmt([&] { return actions.Run(i, moduleKind); });
    });
}

/// Copies the object's replace variables into the record of the kinds that use them; the record in
/// the list keeps those of its last run. Error 13 when such a kind has no record.
void TakeReplaceVariables(EngineState& state, p_Action& action);

/// The wireless walk: the plain walk with the replace variables copied in before each action.
Boolean WirelessWalk(EngineState& state, const FixedPlace& place, const aceModul& moduleKind);
Boolean WirelessWalk(EngineState& state, const NumberedPlace& place, const aceModul& moduleKind);

}  // namespace ace
