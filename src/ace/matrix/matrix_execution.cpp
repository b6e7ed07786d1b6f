#include <ace/core/action_store.h>
#include <ace/core/actions_engine.h>
#include <ace/execution/walks.h>
#include <ace/host/checked_numbers.h>
#include <ace/matrix/matrix_rows.h>
#include <ace/matrix/step_tree.h>

namespace ace {

namespace {

Boolean RunTest(EngineState& state, const String& key, const ListFields& list) {
    if (state.Modul != aceVKSTemplate) {
        return false;
    }
    const std::int32_t index = FindKey(state.VKSTestUKeys, state.VKSTestCount, key);
    return IsInRange(state, state.VKSTests, index)
               ? WirelessWalk(state, NumberedPlace{&ModuleLists::VKSTests, index, list},
                              aceVKSTemplate)
               : Boolean(false);
}

/// The kinds that say whether a step has passed, and never end its walk.
constexpr bool GivesVerdict(std::int32_t kind) {
    return kind == atQuestion || kind == atMonitorEUT;
}

/// The wireless walk, but for the kinds with a verdict: of those the last one stands.
Boolean RunStep(EngineState& state, std::int32_t index) {
    const NumberedActions actions(state, state.VKSSteps, index, EnterList);
    return ForEachAction(state.Context, actions, BareStatements{}, [&](std::int32_t i) -> bool {
        p_Action& action = actions[i];
        TakeReplaceVariables(state, action);
        const bool givesVerdict = GivesVerdict(action.ActionType);
        const Boolean answer = actions.Run(i, aceVKSTemplate);
        if (givesVerdict) {
            state.VKSResult = !answer;
            return false;
        }
        return answer;
    });
}

/// A dimension without influence is asked for as a whole; only the test mode stays what it is.
void NormaliseKey(const EngineState& state, double& frequency, std::int32_t& bandwidth,
                  std::int32_t& power) {
    if (frequency != TestMode && !state.VKSInfByFreq) {
        frequency = All;
    }
    if (!state.VKSInfByBandwidth) {
        bandwidth = -1;
    }
    if (!state.VKSInfByPower) {
        power = -1;
    }
}

/// The row for everything stands in for every key without a row of its own.
std::int32_t RowOrFallBack(const EngineState& state, const RowKey& key) {
    const std::int32_t row = FindRow(state, key);
    return row >= 0 ? row : FindRow(state, AllRow);
}

}  // namespace

std::int32_t TakeRow(EngineState& state, double& frequency, std::int32_t& bandwidth,
                     std::int32_t& power) {
    NormaliseKey(state, frequency, bandwidth, power);
    const RowKey key{frequency, static_cast<double>(bandwidth), static_cast<double>(power)};
    const std::int32_t row = RowOrFallBack(state, key);
    return IsInRange(state, state.VKSSteps, row) ? row : -1;
}

/// Intentional: its lines carry another name; readers of traces know it so.
void aceActionsEngine::SetVKSReplaceVar(const DynArray<String>& strSearch,
                                        const DynArray<Value>& valReplace, Boolean blnDelete) {
    const std::shared_ptr<EngineState> state = x_state;
    aceVKSVar& variables = state->VKSReplaceVars;
    Logged(state->Context, EngineLines(L"SetVKSAPI"), NoMessage, [&](const Statements& stmt) {
        if (blnDelete) {
            variables.count = 0;
            stmt([&] { variables.valReplace.Redim(0, 0); });
            stmt([&] { variables.strSearch.Redim(0, 0); });
            return;
        }
        stmt([&] { variables.valReplace = valReplace; });
        stmt([&] { variables.strSearch = strSearch; });
        variables.count = stmt([&] { return CheckedSum(strSearch.UpperBound(), 1); });
    });
}

Boolean aceActionsEngine::BeforeVKSTest(const String& UKey) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunTest(*state, UKey, EnterList);
}

Boolean aceActionsEngine::AfterVKSTest(const String& UKey) {
    const std::shared_ptr<EngineState> state = x_state;
    return RunTest(*state, UKey, LeaveList);
}

Boolean aceActionsEngine::VKSStep(const String& UKey, const String& StepKey) {
    const std::shared_ptr<EngineState> state = x_state;
    state->VKSResult = true;
    if (state->Modul != aceVKSTemplate) {
        return false;
    }
    const std::int32_t index = FindStep(*state, UKey, StepKey);
    return IsInRange(*state, state->VKSSteps, index) ? RunStep(*state, index) : Boolean(false);
}

Boolean aceActionsEngine::VKSGetResult() {
    return x_state->VKSResult;
}

Boolean aceActionsEngine::VKSStepsHaveActions() {
    for (std::int32_t i = 0; i < x_state->VKSStepCount; ++i) {
        if (x_state->VKSSteps[i].EnterCount > 0) {
            return true;
        }
    }
    return false;
}

Boolean aceActionsEngine::VKSStepHaveActions(const String& UKey, const String& StepKey) {
    const std::shared_ptr<EngineState> state = x_state;
    if (state->Modul != aceVKSTemplate) {
        return false;
    }
    const std::int32_t index = FindStep(*state, UKey, StepKey);
    return IsInRange(*state, state->VKSSteps, index) && state->VKSSteps[index].EnterCount > 0;
}

/// Intentional: the actions are told the kind of the wireless template, not that of the matrix.
Boolean aceActionsEngine::VKSDUTStepGlobBefore() {
    const std::shared_ptr<EngineState> state = x_state;
    return WirelessWalk(*state, FixedPlace{&ModuleLists::VKSDUTGlob, EnterList}, aceVKSTemplate);
}

Boolean aceActionsEngine::VKSDUTStepGlobAfter() {
    const std::shared_ptr<EngineState> state = x_state;
    return WirelessWalk(*state, FixedPlace{&ModuleLists::VKSDUTGlob, LeaveList}, aceVKSTemplate);
}

std::int16_t aceActionsEngine::VKSDUTStepGlobBeforeCount() {
    return NarrowToShort(x_state->VKSDUTGlob.EnterCount);
}

std::int16_t aceActionsEngine::VKSDUTStepGlobAfterCount() {
    return NarrowToShort(x_state->VKSDUTGlob.LeaveCount);
}

Boolean aceActionsEngine::VKSDUTStep(double& Freq, std::int32_t& BandwidthID,
                                     std::int32_t& PowerID) {
    const std::shared_ptr<EngineState> state = x_state;
    if (state->Modul != aceVKSDUT) {
        return false;
    }
    const std::int32_t row = TakeRow(*state, Freq, BandwidthID, PowerID);
    return row >= 0 ? WirelessWalk(*state, NumberedPlace{&ModuleLists::VKSSteps, row, EnterList},
                                   aceVKSDUT)
                    : Boolean(false);
}

std::int32_t aceActionsEngine::VKSDUTStepActionCount(double& Freq, std::int32_t& BandwidthID,
                                                     std::int32_t& PowerID) {
    const std::shared_ptr<EngineState> state = x_state;
    if (state->Modul != aceVKSDUT) {
        return 0;
    }
    const std::int32_t row = TakeRow(*state, Freq, BandwidthID, PowerID);
    return row >= 0 ? state->VKSSteps[row].EnterCount : 0;
}

}  // namespace ace
