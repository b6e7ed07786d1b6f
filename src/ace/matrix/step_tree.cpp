#include <ace/core/action_store.h>
#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>
#include <ace/host/checked_numbers.h>
#include <ace/matrix/step_tree.h>

namespace ace {

namespace {

PlaceIndex::Changes ChangesOfSteps(const EngineState& state) {
    return {state.VKSStepKeys.Changes(), state.VKSStepUKeys.Changes()};
}

/// The index need not begin anew for a step that came behind the others, when nobody has changed
/// the keys but the append, which enlarges each array and fills one element.
void FollowAppend(const EngineState& state, const PlaceIndex::Changes& before, std::int32_t place) {
    constexpr std::uint32_t OfAnAppend = 2;
    const PlaceIndex::Changes expected{before[0] + OfAnAppend, before[1] + OfAnAppend};
    if (state.StepPlaces.IsCurrent(before) && ChangesOfSteps(state) == expected) {
        state.StepPlaces.Follow(expected, place);
    }
}

std::size_t HashOf(const String& testKey, const String& stepKey) {
    constexpr std::size_t Spread = 0x9E3779B97F4A7C15U;
    const std::hash<String> hash;
    return hash(testKey) * Spread + hash(stepKey);
}

bool IsAt(const EngineState& state, std::int32_t step, const String& testKey,
          const String& stepKey) {
    return state.VKSStepKeys[step] == stepKey && state.VKSStepUKeys[step] == testKey;
}

/// The walk over the steps, which says what the answer is.
std::int32_t WalkToStep(const EngineState& state, const String& testKey, const String& stepKey) {
    for (std::int32_t i = 0; i < state.VKSStepCount; ++i) {
        if (IsAt(state, i, testKey, stepKey)) {
            return i;
        }
    }
    return -1;
}

bool HasFirst(const DynArray<String>& texts, std::int32_t count) {
    return texts.IsAllocated() && texts.LowerBound() == 0 && texts.UpperBound() >= count - 1;
}

/// False when the arrays have not a key for each step, so that a walk may end in an error, or when
/// there is no memory for the index.
bool UpdateIndex(const EngineState& state) {
    const DynArray<String>& keys = state.VKSStepKeys;
    const DynArray<String>& testKeys = state.VKSStepUKeys;
    const std::int32_t count = state.VKSStepCount;
    if (!HasFirst(keys, count) || !HasFirst(testKeys, count)) {
        return false;
    }
    try {
        state.StepPlaces.Update(
            ChangesOfSteps(state), count,
            [&](std::int32_t step) { return HashOf(testKeys[step], keys[step]); },
            [&](std::int32_t a, std::int32_t b) { return IsAt(state, a, testKeys[b], keys[b]); });
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// Behind the last step, as an insertion, so that its lists are empty whatever the spare element
/// has.
void AppendStep(EngineState& state, const Statements& stmt, const String& key,
                const String& testKey, const String& name) {
    std::int32_t index = stmt([&] { return CheckedSum(state.VKSStepCount, 1); });
    const std::int32_t count = index;
    const bool isCurrent = state.StepPlaces.IsCurrent(ChangesOfSteps(state));
    auto freshTestKeys = stmt([&] { return ReserveUpTo(state.VKSStepUKeys, count); });
    auto freshNames = stmt([&] { return ReserveUpTo(state.VKSStepNames, count); });
    auto freshKeys = stmt([&] { return ReserveUpTo(state.VKSStepKeys, count); });
    if (isCurrent) {
        state.StepPlaces.Follow(ChangesOfSteps(state), count - 1);  // memory alone has changed
    }
    stmt([&] { modActions::AddEntry(state.Context, state.VKSSteps, state.VKSStepCount, index); });
    const PlaceIndex::Changes before = ChangesOfSteps(state);
    stmt([&] { EnlargeTo(state.VKSStepUKeys, count, freshTestKeys); });
    stmt([&] { EnlargeTo(state.VKSStepNames, count, freshNames); });
    stmt([&] { EnlargeTo(state.VKSStepKeys, count, freshKeys); });
    stmt([&] { state.VKSStepUKeys[count - 1] = testKey; });
    stmt([&] { state.VKSStepNames[count - 1] = name; });
    stmt([&] { state.VKSStepKeys[count - 1] = key; });
    FollowAppend(state, before, count - 1);
}

/// Intentional: the names are taken only where both arrays of the host end alike; else the old ones
/// stay.
void TakeTest(EngineState& state, const DynArray<String>& keys, const DynArray<String>& names,
              std::int32_t index) {
    state.VKSHostUKeys[index] = keys[index];
    if (keys.UpperBound() == names.UpperBound()) {
        state.VKSHostNames[index] = names[index];
    }
}

}  // namespace

std::int32_t FindStep(const EngineState& state, const String& testKey, const String& stepKey) {
    if (!UpdateIndex(state)) {
        return WalkToStep(state, testKey, stepKey);
    }
    const std::int32_t step = state.StepPlaces.Find(
        HashOf(testKey, stepKey),
        [&](std::int32_t place) { return IsAt(state, place, testKey, stepKey); });
    return step < state.VKSStepCount ? step : -1;
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
