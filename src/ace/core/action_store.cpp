#include <algorithm>

#include <ace/core/action_lists.h>
#include <ace/core/action_store.h>
#include <ace/core/actions_engine.h>
#include <ace/core/held_lists.h>
#include <ace/core/operation.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

using SharedState = std::shared_ptr<EngineState>;

/// What stands beside the wireless tests: the keys first, then the host's list of them.
constexpr DynArray<String> ModuleLists::*TestTexts[] = {
    &ModuleLists::VKSTestUKeys, &ModuleLists::VKSHostUKeys, &ModuleLists::VKSHostNames};
/// What stands beside the wireless steps.
constexpr DynArray<String> ModuleLists::*StepTexts[] = {
    &ModuleLists::VKSStepUKeys, &ModuleLists::VKSStepNames, &ModuleLists::VKSStepKeys};

/// The lists that the host keeps in step with its own; none for the kinds without. The rows of the
/// matrix are not among them: they follow its tables.
const NumberedSets* HostSets(std::int32_t moduleKind) {
    const ModuleRow* module = FindModule(moduleKind);
    const bool has = module != nullptr && moduleKind != aceVKSDUT && !module->AllNumbered().empty();
    return has ? &module->AllNumbered().front() : nullptr;
}

String IndexMessage(std::int32_t index) {
    return L"Index = " + std::to_wstring(index);
}
String MoveMessage(std::int32_t source, std::int32_t destination) {
    return L"Source = " + std::to_wstring(source) + L", Destination = " +
           std::to_wstring(destination);
}

// ---- wireless tests ------------------------------------------------------------------------

/// Intentional: the key goes behind the last one wherever the test went; the keys are not shifted.
void AddTest(EngineState& state, const Statements& stmt, const String& key, std::int32_t& index) {
    const std::int32_t count = stmt([&] { return CheckedSum(state.VKSTestCount, 1); });
    DynArray<String> fresh[std::size(TestTexts)];
    for (std::size_t i = 0; i < std::size(TestTexts); ++i) {
        fresh[i] = stmt([&] { return ReserveUpTo(state.*TestTexts[i], count); });
    }
    stmt([&] { modActions::AddEntry(state.Context, state.VKSTests, state.VKSTestCount, index); });
    for (std::size_t i = 0; i < std::size(TestTexts); ++i) {
        stmt([&] { EnlargeTo(state.*TestTexts[i], state.VKSTestCount, fresh[i]); });
    }
    stmt([&] { state.VKSTestUKeys[state.VKSTestCount - 1] = key; });
}

/// Before a test goes: neither it nor its steps may run. Keys that are missing are found out later.
void RequireFreeTest(const EngineState& state, const String& key) {
    const auto isAmong = [&](const DynArray<String>& keys, std::int64_t count) {
        const auto size = static_cast<std::int64_t>(keys.Size());
        const auto end = keys.begin() + std::clamp<std::int64_t>(count, 0, size);
        return std::find(keys.begin(), end, key) != end;
    };
    if (isAmong(state.VKSTestUKeys, std::int64_t{state.VKSTestCount} + 1)) {
        RequireFree(state.VKSTests);
    }
    if (isAmong(state.VKSStepUKeys, state.VKSStepCount)) {
        RequireFree(state.VKSSteps);
    }
}

/// What the last text of an array needs to stand twice, got before anything changes: without memory
/// lists and keys would part.
String LastOf(const DynArray<String>& texts) {
    return texts.IsAllocated() ? texts[texts.UpperBound()] : String();
}

/// As `CloseGap` up to the upper bound, with the copy of the last text.
void CloseTextGap(const Statements& stmt, DynArray<String>& texts, std::int32_t index,
                  String&& last) {
    const std::int32_t end = stmt([&] { return texts.UpperBound(); });
    if (index < end) {
        stmt([&] { texts.MoveElement(index, end); });
        texts[end] = std::move(last);
    }
}

/// Intentional: the spare element is searched too, so an empty key removes the last test. Below 0
/// the keys stay as they are, unlike the two arrays beside them.
void DeleteTest(EngineState& state, const Statements& stmt, const String& key) {
    const std::int32_t found = stmt(
        [&] { return FindKey(state.VKSTestUKeys, std::int64_t{state.VKSTestCount} + 1, key); });
    if (found < 0) {
        return;
    }
    std::int32_t index = found + 1;
    String lastKey = stmt([&] { return LastOf(state.VKSTestUKeys); });
    stmt(
        [&] { modActions::DeleteEntry(state.Context, state.VKSTests, state.VKSTestCount, index); });
    CloseTextGap(stmt, state.VKSTestUKeys, found, std::move(lastKey));
    for (DynArray<String> ModuleLists::*texts : TestTexts) {
        if (state.VKSTestCount >= 0) {
            stmt([&] { (state.*texts).RedimPreserve(state.VKSTestCount); });
        } else if (texts != &ModuleLists::VKSTestUKeys) {
            stmt([&] { (state.*texts).Redim(0, 0); });
        }
    }
}

void DeleteStep(EngineState& state, const Statements& stmt, std::int32_t found) {
    std::int32_t index = found + 1;
    String last[std::size(StepTexts)];
    for (std::size_t i = 0; i < std::size(StepTexts); ++i) {
        last[i] = stmt([&] { return LastOf(state.*StepTexts[i]); });
    }
    stmt(
        [&] { modActions::DeleteEntry(state.Context, state.VKSSteps, state.VKSStepCount, index); });
    for (std::size_t i = 0; i < std::size(StepTexts); ++i) {
        CloseTextGap(stmt, state.*StepTexts[i], found, std::move(last[i]));
    }
    for (DynArray<String> ModuleLists::*texts : StepTexts) {
        stmt([&] { (state.*texts).RedimPreserve(state.VKSStepCount); });
    }
}

/// Also those of a test that is not there.
void DeleteStepsOf(EngineState& state, const Statements& stmt, const String& key) {
    for (;;) {
        const std::int32_t found =
            stmt([&] { return FindKey(state.VKSStepUKeys, state.VKSStepCount, key); });
        if (found < 0) {
            return;
        }
        DeleteStep(state, stmt, found);
    }
}

// ---- the operations ------------------------------------------------------------------------

/// An open editor builds everything again.
void ReloadEditor(const SharedState& state, const Statements& stmt) {
    const std::shared_ptr<IEditor> editor = state->Context.Editor;
    if (editor) {
        stmt([&] { editor->LoadEditor(state->Modul, state->shared_from_this()); });
    }
}

/// `place` counts from 1, and the editor from 0.
void SelectInEditor(const SharedState& state, const Statements& stmt, std::int32_t place) {
    const std::shared_ptr<IEditor> editor = state->Context.Editor;
    if (editor) {
        stmt([&] { editor->SetSubrange(CheckedDifference(place, 1)); });
    }
}

/// Intentional: the editor selects the subrange before the new one, and that of the count after an
/// append, because what `AddEntry` left in the index counts; a new wireless test doesn't reach it.
void AddToStore(const SharedState& state, std::int32_t Index, const String& hostKey) {
    const auto message = [&] { return IndexMessage(Index); };
    Logged(state->Context, EngineLines(L"AddSubrange"), message, [&](const Statements& stmt) {
        const String key = stmt([&] { return hostKey; });
        const NumberedSets* numbered = HostSets(state->Modul);
        if (numbered == nullptr) {
            return;
        }
        std::int32_t index = Index;
        if (state->Modul == aceVKSTemplate) {
            AddTest(*state, stmt, key, index);
            return;
        }
        stmt([&] {
            modActions::AddEntry(state->Context, (*state).*numbered->sets,
                                 (*state).*numbered->count, index);
        });
        if (!state->InternalSubrangeOp) {
            ReloadEditor(state, stmt);
            SelectInEditor(state, stmt, index);
        }
    });
}

void DeleteFromStore(const SharedState& state, std::int32_t Index, const String& hostKey) {
    const auto message = [&] { return IndexMessage(Index); };
    Logged(state->Context, EngineLines(L"DeleteSubrange"), message, [&](const Statements& stmt) {
        const String key = stmt([&] { return hostKey; });
        const NumberedSets* numbered = HostSets(state->Modul);
        if (numbered == nullptr) {
            return;
        }
        if (state->Modul == aceVKSTemplate) {
            stmt([&] { RequireFreeTest(*state, key); });
            DeleteTest(*state, stmt, key);
            DeleteStepsOf(*state, stmt, key);
        } else {
            std::int32_t index = Index;
            stmt([&] {
                modActions::DeleteEntry(state->Context, (*state).*numbered->sets,
                                        (*state).*numbered->count, index);
            });
        }
        if (!state->InternalSubrangeOp) {
            ReloadEditor(state, stmt);
        }
    });
}

/// An entry as a whole: its lists, and the key of a wireless test.
struct WholeEntry {
    p_Subrange lists;
    String key;
};

/// `place` counts from 1.
WholeEntry TakeEntry(const SharedState& state, const Statements& stmt, const NumberedSets& numbered,
                     std::int32_t place) {
    return stmt([&] {
        const std::int32_t index = CheckedDifference(place, 1);
        WholeEntry entry{((*state).*numbered.sets)[index], {}};
        if (state->Modul == aceVKSTemplate) {
            entry.key = state->VKSTestUKeys[index];
        }
        return entry;
    });
}

void PutEntry(const SharedState& state, const Statements& stmt, const NumberedSets& numbered,
              std::int32_t place, const WholeEntry& entry) {
    stmt([&] {
        const std::int32_t index = CheckedDifference(place, 1);
        CopyEntry(entry.lists, ((*state).*numbered.sets)[index]);
        if (state->Modul == aceVKSTemplate) {
            state->VKSTestUKeys[index] = entry.key;
        }
    });
}

/// Error 10 when the entry at `place` runs; a place outside is found out later.
void RequireFreeEntry(const EngineState& state, const NumberedSets& numbered, std::int32_t place) {
    const DynArray<p_Subrange>& sets = state.*numbered.sets;
    if (place >= 1 && static_cast<std::size_t>(place) <= sets.Size()) {
        RequireFree(sets[place - 1]);
    }
}

/// What a move takes away and puts back, with the empty key of both its steps.
void RequireFreeForMove(const EngineState& state, const NumberedSets& numbered) {
    RequireFree(state.*numbered.sets);
    if (state.Modul == aceVKSTemplate) {
        RequireFreeTest(state, {});
    }
}

}  // namespace

std::int32_t FindKey(const DynArray<String>& keys, std::int64_t count, const String& key) {
    for (std::int32_t i = 0; i < count; ++i) {
        if (keys[i] == key) {
            return i;
        }
    }
    return -1;
}

void CopyEntry(const p_Subrange& source, p_Subrange& target) {
    try {
        target = source;
    } catch (...) {
        target = {};
        throw;
    }
}

void modActions::AddEntry(ThreadContext& context, DynArray<p_Subrange>& List, std::int32_t& Count,
                          std::int32_t& Index) {
    const auto message = [&] { return IndexMessage(Index); };
    Logged(context, ModuleLines(L"AddEntry"), message, [&](const Statements& stmt) {
        stmt([&] { RequireFree(List); });
        stmt([&] { Index = CheckedDifference(Index, 1); });
        const std::int32_t count = stmt([&] { return CheckedSum(Count, 1); });
        if (count < 0) {
            Count = count;  // Intentional: no array ends there, and the count comes back to 0
        }
        stmt([&] { List.RedimPreserve(count); });
        Count = count;
        const std::int32_t first = std::max(Index, 0);
        if (first < Count) {
            stmt([&] { List.MoveElement(Count, first); });
            stmt([&] { CopyEntry(List[first + 1], List[first]); });
        }
        if (Index >= Count) {
            Index = Count;
        }
        stmt([&] {
            for (const ListFields& list : {EnterList, LeaveList, MlcList}) {
                EmptyList(List[Index], list);
            }
        });
    });
}

void modActions::DeleteEntry(ThreadContext& context, DynArray<p_Subrange>& List,
                             std::int32_t& Count, std::int32_t& Index) {
    const auto message = [&] { return IndexMessage(Index); };
    Logged(context, ModuleLines(L"DeleteEntry"), message, [&](const Statements& stmt) {
        stmt([&] { RequireFree(List); });
        stmt([&] { Index = CheckedDifference(Index, 1); });
        stmt([&] { Count = CheckedDifference(Count, 1); });
        CloseGap(stmt, List, Index, Count);
        if (Count >= 0) {
            stmt([&] { List.RedimPreserve(Count); });
        } else {
            stmt([&] { List.Redim(0, 0); });
        }
    });
}

void aceActionsEngine::EditorSelectSubrange(std::int32_t Number) {
    const SharedState state = x_state;
    Logged(state->Context, EngineLines(L"EditorSelectSubrange"), NoMessage,
           [&](const Statements& stmt) { SelectInEditor(state, stmt, Number); });
}

void aceActionsEngine::AddSubrange(std::int32_t Index, const String& VKSUkey) {
    const SharedState state = x_state;
    AddToStore(state, Index, VKSUkey);
}

void aceActionsEngine::DeleteSubrange(std::int32_t Index, const String& VKSUkey) {
    const SharedState state = x_state;
    DeleteFromStore(state, Index, VKSUkey);
}

/// Intentional: both steps run without a key, so that a wireless test is not found by its own: the
/// last one goes and the one at the destination is overwritten.
void aceActionsEngine::MoveSubrange(std::int32_t Source, std::int32_t Destination) {
    const SharedState state = x_state;
    const auto message = [&] { return MoveMessage(Source, Destination); };
    Logged(state->Context, EngineLines(L"MoveSubrange"), message, [&](const Statements& stmt) {
        const NumberedSets* numbered = HostSets(state->Modul);
        if (numbered != nullptr) {
            stmt([&] { RequireFreeForMove(*state, *numbered); });
        }
        state->InternalSubrangeOp = true;
        WholeEntry entry;
        if (numbered != nullptr) {
            entry = TakeEntry(state, stmt, *numbered, Source);
        }
        stmt([&] { DeleteFromStore(state, Source, {}); });
        stmt([&] { AddToStore(state, Destination, {}); });
        if (numbered != nullptr) {
            PutEntry(state, stmt, *numbered, Destination, entry);
        }
        state->InternalSubrangeOp = false;
        if (numbered != nullptr) {
            ReloadEditor(state, stmt);
            SelectInEditor(state, stmt, Destination);
        }
    });
}

void aceActionsEngine::SwapSubrange(std::int32_t Source, std::int32_t Destination) {
    const SharedState state = x_state;
    const auto message = [&] { return MoveMessage(Source, Destination); };
    Logged(state->Context, EngineLines(L"SwapSubrange"), message, [&](const Statements& stmt) {
        const NumberedSets* numbered = HostSets(state->Modul);
        if (numbered != nullptr) {
            stmt([&] { RequireFreeEntry(*state, *numbered, Source); });
            stmt([&] { RequireFreeEntry(*state, *numbered, Destination); });
        }
        state->InternalSubrangeOp = true;
        if (numbered != nullptr) {
            const WholeEntry entry = TakeEntry(state, stmt, *numbered, Source);
            PutEntry(state, stmt, *numbered, Source,
                     TakeEntry(state, stmt, *numbered, Destination));
            PutEntry(state, stmt, *numbered, Destination, entry);
        }
        state->InternalSubrangeOp = false;
        if (numbered != nullptr) {
            ReloadEditor(state, stmt);
            SelectInEditor(state, stmt, Destination);
        }
    });
}

}  // namespace ace
