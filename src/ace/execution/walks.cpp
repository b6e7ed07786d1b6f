#include <ace/execution/walks.h>

namespace ace {

void TakeReplaceVariables(EngineState& state, p_Action& action) {
    ++state.Context.RecordUses;
    switch (action.ActionType) {
        case atNotify:
        case atQuestion:
            RecordOf<aceNotify>(action).vks = state.VKSReplaceVars;
            break;
        case atRemote:
            RecordOf<aceRemote>(action).vks = state.VKSReplaceVars;
            break;
        case atAPI:
            RecordOf<aceAPI>(action).vks = state.VKSReplaceVars;
            break;
        default:
            break;
    }
}

namespace {

template <class Place>
Boolean WalkWithVariables(EngineState& state, const Place& place, const aceModul& moduleKind) {
    return Walk(state, place, moduleKind, BareStatements{}, [&](p_Action& action) {
        TakeReplaceVariables(state, action);
        return true;
    });
}

}  // namespace

Boolean WirelessWalk(EngineState& state, const FixedPlace& place, const aceModul& moduleKind) {
    return WalkWithVariables(state, place, moduleKind);
}

Boolean WirelessWalk(EngineState& state, const NumberedPlace& place, const aceModul& moduleKind) {
    return WalkWithVariables(state, place, moduleKind);
}

}  // namespace ace
