/// Carries out one action.
#pragma once

#include <ace/core/action_kinds.h>
#include <ace/core/operation.h>

namespace ace::modActions {

/// The kinds that have a routine, or that answer true without one.
inline constexpr KindSet ActingKinds(atWait, atNotify, atRemote, atSetDevice, atCheckEut,
                                     atTrackFreq, atComment, atProtRec, atTestStop, atGotoSingle,
                                     atStopLevSweep, atNbBbEtsi, atSwitchAmp, atSwitchUnit, atAPI,
                                     atQuestion, atMonitorEUT);
inline constexpr TraceLines DoActionLines = ModuleLines(L"DoAction");

/// `DoAction` of an acting kind.
Boolean RunActing(ThreadContext& context, p_Action& action, std::int32_t moduleKind);

/// Copies the record out of `action`, runs the routine of its kind and, for some kinds, copies back
/// what must survive. True means that the walker has something to act on: the routine or the
/// operator asked to stop, or the kind is a signal to the host. `moduleKind` is the module kind
/// that the moment tells, which is not always that of the object. A kind outside the members does
/// nothing. Errors are reported and raised; those of devices come back as results instead. Messages
/// may run. The action must stay in its place: its list is held by the walk.
inline Boolean DoAction(ThreadContext& context, p_Action& action, std::int32_t moduleKind) {
    if (ActingKinds.Has(action.ActionType)) {
        return RunActing(context, action, moduleKind);
    }
    return Logged(context, DoActionLines, NoMessage,
                  [](const Statements&) -> Boolean { return false; });
}

}  // namespace ace::modActions
