#include <ace/core/actions_engine.h>
#include <ace/execution/walks.h>
#include <ace/execution/what_runs.h>

namespace ace {

namespace {

/// The every-frequency list by `aceModul`; none for the modules that have no such moment.
constexpr p_Subrange ModuleLists::*FrequencySets[ModulCount] = {&ModuleLists::MainTest,
                                                                &ModuleLists::MoniEut,
                                                                &ModuleLists::EMSAutoGeneral,
                                                                nullptr,
                                                                &ModuleLists::EMIAutoTest,
                                                                nullptr,
                                                                &ModuleLists::AziChart,
                                                                nullptr,
                                                                nullptr};

/// Intentional: what a tracking action outside `aceTemplate` is left with instead of its record.
/// The dispatcher then fails on it, and the record is lost for the life of the list.
constexpr std::int32_t TrackingLost = 5;

/// Writes the frequency into the record of the kinds that follow it.
void PassFrequency(p_Action& action, aceModul moduleKind, double frequency) {
    if (action.ActionType == atTrackFreq) {
        RecordOf<aceTrackFreq>(action).Freq = frequency;
        if (moduleKind != aceTemplate) {
            action.Parameter = TrackingLost;
        }
    } else if (action.ActionType == atAPI) {
        RecordOf<aceAPI>(action).Freq = frequency;
    }
}

/// In the general lists of a susceptibility test, waits and commands have no say in the result.
bool CountsForResult(std::int32_t kind, aceModul moduleKind) {
    return moduleKind != aceEMSAutoTemplateGeneral || (kind != atWait && kind != atRemote);
}

/// Runs one element; `result` takes its answer unless that does not count. Apart from the loop,
/// which mostly passes elements by.
[[gnu::noinline]] void RunAtFrequency(EngineState& state, const Statements& stmt,
                                      const FixedActions& actions, std::int32_t index,
                                      double frequency, Boolean& result) {
    const std::int32_t kind = stmt([&] {
        p_Action& action = actions[index];
        PassFrequency(action, state.Modul, frequency);
        return action.ActionType;
    });
    const Boolean answer = stmt([&] { return actions.Run(index, state.Modul); });
    if (CountsForResult(kind, state.Modul)) {
        result = answer;
    }
}

/// Runs the whole list; the answer is the last result alone.
[[gnu::noinline]] Boolean RunFrequencyList(EngineState& state, const Statements& stmt,
                                           p_Subrange& set, double frequency) {
    const FixedActions actions(state, set, FreqList);
    Boolean result;
    ForEachAction(state.Context, actions, stmt, [&](std::int32_t i) {
        if (stmt([&] { return FrequencyKinds.Has(actions[i].ActionType); })) {
            RunAtFrequency(state, stmt, actions, i, frequency, result);
        }
        return false;
    });
    return result;
}

}  // namespace

p_Subrange ModuleLists::*FrequencySetOf(std::int32_t moduleKind) {
    return FindModule(moduleKind) != nullptr ? FrequencySets[moduleKind] : nullptr;
}

Boolean aceActionsEngine::NewFrequency(double FreqVal, Boolean IsNotEmiScSwMeas) {
    const std::shared_ptr<EngineState> state = x_state;
    ThreadContext& context = state->Context;
    const auto message = [&] { return FreqMessage(context, FreqVal); };
    return Logged(
        context, EngineLines(L"NewFrequency"), message, [&](const Statements& stmt) -> Boolean {
            context.EutCheckRequest = acEutNoAction;
            context.EutCheckComment.clear();
            const bool same =
                stmt([&] { return context.Utilities().IsEqual(FreqVal, state->LastFrequency); });
            if (same && !IsNotEmiScSwMeas) {
                return false;
            }
            state->LastFrequency = FreqVal;
            p_Subrange ModuleLists::*set = FrequencySetOf(state->Modul);
            return set != nullptr ? RunFrequencyList(*state, stmt, state.get()->*set, FreqVal)
                                  : Boolean(false);
        });
}

Boolean aceActionsEngine::NewFrqCheckForAccLoading() {
    const std::shared_ptr<EngineState> state = x_state;
    return Logged(state->Context, EngineLines(L"NewFrqCheckForAccLoading"), NoMessage,
                  [&](const Statements& stmt) -> Boolean {
                      if (state->Modul != aceEMIAutoTemplate) {
                          return false;
                      }
                      const p_Subrange& test = state->EMIAutoTest;
                      for (std::int32_t i = 0; i < test.FreqCount; ++i) {
                          const bool wants = stmt([&] {
                              const p_Action& action = test.Freq[i];
                              return action.ActionType == atCheckEut &&
                                     RecordOf<aceSetDevice>(action).LoadingPos;
                          });
                          if (wants) {
                              return true;
                          }
                      }
                      return false;
                  });
}

/// The comment stays until the next frequency; only the bits are taken.
std::int32_t aceActionsEngine::GetCheckEutAction(Value& strComment) {
    ThreadContext& context = x_state->Context;
    return Logged(context, EngineLines(L"GetCheckEutAction"), NoMessage, [&](const Statements&) {
        strComment = context.EutCheckComment;
        const std::int32_t request = context.EutCheckRequest;
        context.EutCheckRequest = acEutNoAction;
        return request;
    });
}

}  // namespace ace
