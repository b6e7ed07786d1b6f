#include <ace/core/action_store.h>
#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>
#include <ace/host/rounding.h>
#include <ace/matrix/step_tree.h>

namespace ace {

namespace {

/// Behind the last step, as an insertion, so that its lists are empty whatever the spare place has.
void AppendStep(EngineState& state, const Statements& stmt, const String& key,
                const String& testKey, const String& name) {
    std::int32_t index = stmt([&] { return CheckedDifference(state.VKSStepCount, -1); });
    const std::int32_t count = index;
    for (DynArray<String>* texts : {&state.VKSStepUKeys, &state.VKSStepNames, &state.VKSStepKeys}) {
        stmt([&] { ReserveUpTo(*texts, count); });
    }
    stmt([&] { modActions::AddEntry(state.Context, state.VKSSteps, state.VKSStepCount, index); });
    stmt([&] { state.VKSStepUKeys.RedimPreserve(count); });
    stmt([&] { state.VKSStepNames.RedimPreserve(count); });
    stmt([&] { state.VKSStepKeys.RedimPreserve(count); });
    stmt([&] { state.VKSStepUKeys[count - 1] = testKey; });
    stmt([&] { state.VKSStepNames[count - 1] = name; });
    stmt([&] { state.VKSStepKeys[count - 1] = key; });
}

/// The names are taken only where both arrays of the host end alike; else the old ones stay.
void TakeTest(EngineState& state, const DynArray<String>& keys, const DynArray<String>& names,
              std::int32_t index) {
    state.VKSHostUKeys[index] = keys[index];
    if (keys.UpperBound() == names.UpperBound()) {
        state.VKSHostNames[index] = names[index];
    }
}

}  // namespace

std::int32_t FindStep(const EngineState& state, const String& testKey, const String& stepKey) {
    for (std::int32_t i = 0; i < state.VKSStepCount; ++i) {
        if (state.VKSStepKeys[i] == stepKey && state.VKSStepUKeys[i] == testKey) {
            return i;
        }
    }
    return -1;
}

void aceActionsEngine::AddVKSStep(const String& Key, const String& ForUKey, const String& Name) {
    const std::shared_ptr<EngineState> state = x_state;
    const auto message = [&] { return L"Key = " + Key; };
    Logged(state->Context, EngineLines(L"AddVKSStep"), message, [&](const Statements& stmt) {
        if (stmt([&] { return FindStep(*state, ForUKey, Key); }) < 0) {
            AppendStep(*state, stmt, Key, ForUKey, Name);
        }
    });
}

/// The arrays keep the size that the number of tests gave them; what came before an error stays.
void aceActionsEngine::SetVKSTests(const DynArray<String>& UKey, const DynArray<String>& Names) {
    const std::shared_ptr<EngineState> state = x_state;
    Logged(state->Context, EngineLines(L"SetVKSTests"), NoMessage, [&](const Statements& stmt) {
        const std::int32_t last = stmt([&] { return UKey.UpperBound(); });
        for (std::int32_t i = 0; i <= last; ++i) {
            stmt([&] { TakeTest(*state, UKey, Names, i); });
        }
        const std::int32_t end = stmt([&] { return state->VKSHostUKeys.UpperBound(); });
        for (std::int32_t i = last + 1; i <= end; ++i) {
            stmt([&] { state->VKSHostUKeys[i].clear(); });
            stmt([&] { state->VKSHostNames[i].clear(); });
        }
    });
}

}  // namespace ace
