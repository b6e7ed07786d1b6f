/// Error 7 itself, and what single routines leave when they end with it.
#include <thread>

#include <ace/core/action_store.h>
#include <ace/core/module_columns.h>
#include <ace/core/operation.h>

#include "support/allocation_counter.h"
#include "support/error_of.h"
#include "support/every_kind.h"
#include "support/list_agreement.h"
#include "support/sample.h"

namespace ace::test {
namespace {

/// The sets of `target` are all of `from` or all of `to`, with their count and, in the matrix, with
/// their keys.
void ExpectWholeSets(aceModul moduleKind, const ModuleLists& target, const ModuleLists& from,
                     const ModuleLists& to) {
    for (const NumberedSets& numbered : ModuleTable[moduleKind].AllNumbered()) {
        const auto isThatOf = [&](const ModuleLists& other) {
            return target.*numbered.sets == other.*numbered.sets &&
                   target.*numbered.count == other.*numbered.count &&
                   (moduleKind != aceVKSDUT || target.VKSDUTIds == other.VKSDUTIds);
        };
        EXPECT_TRUE(isThatOf(from) || isThatOf(to));
    }
}

/// Fails each allocation of the copy in turn; a sample of them by default.
void CopyWithoutMemory(aceModul moduleKind, CopyFor purpose, const ModuleLists& from,
                       const ModuleLists& to) {
    ModuleLists copy = to;
    const std::size_t count = AllocationsOf([&] { CopyModule(moduleKind, purpose, from, copy); });
    Sample sample(30);
    for (std::size_t n = 1; n <= count; ++n) {
        if (n > 3 && !sample.Takes()) {
            continue;
        }
        ModuleLists target = to;
        std::int32_t error = 0;
        bool wasHit = false;
        {
            const FailingAllocations failing(n, false);
            error = AnyErrorOf([&] { CopyModule(moduleKind, purpose, from, target); });
            wasHit = failing.WasHit();
        }
        EXPECT_TRUE(wasHit) << "allocation " << n;
        EXPECT_EQ(error, Errors::OutOfMemory);
        EXPECT_THAT(ListAgreement::Breaches(target), ::testing::IsEmpty()) << "allocation " << n;
        ExpectWholeSets(moduleKind, target, from, to);
    }
}

/// Full lists go to empty ones, and the other way round.
TEST(OutOfMemoryError, ACopyOfAModuleLeavesNoCountBeforeItsArray) {
    for (const ModuleRow& module : ModuleTable) {
        for (const CopyFor purpose : {CopyFor::Editor, CopyFor::Store, CopyFor::Print}) {
            ThreadContext context;
            aceActionsEngine full(context);
            FillModule(full.State(), module.moduleKind);
            CopyWithoutMemory(module.moduleKind, purpose, full.State(), {});
            CopyWithoutMemory(module.moduleKind, purpose, {}, full.State());
        }
    }
}

/// What is copied element by element.
TEST(OutOfMemoryError, ACopyOverAsManyElementsLeavesThemWholeAndAllOrNone) {
    for (const ModuleRow& module : ModuleTable) {
        ThreadContext context;
        aceActionsEngine full(context);
        FillModule(full.State(), module.moduleKind);
        ModuleLists other = full.State();
        for (const NumberedSets& numbered : module.AllNumbered()) {
            for (p_Subrange& set : other.*numbered.sets) {
                Fill(set, EnterList, {WaitFor(1)});
            }
            other.*numbered.count = 1;
        }
        if (module.moduleKind == aceVKSDUT) {
            other.VKSDUTIds(0, 0) = 5e9;
        }
        CopyWithoutMemory(module.moduleKind, CopyFor::Store, full.State(), other);
    }
}

/// A generator that is not there, told in a dialog, on an object of its own for each run.
struct LostGenerator {
    LostGenerator() { Fill(engine.State().MainTest, FreqList, {Follow(L"a generator")}); }
    void Run() { RunFrequency(engine); }
    ThreadContext context;
    aceActionsEngine engine{context};
};

TEST(OutOfMemoryError, AFailureWithoutMemoryForItsDialogIsError7OrPassedOver) {
    LostGenerator().Run();  // makes the texts that are made once
    LostGenerator undisturbed;
    const std::size_t count = AllocationsOf([&] { undisturbed.Run(); });
    EXPECT_GE(count, 2U) << "the dialog takes the name, and its text";
    for (std::size_t n = 1; n <= count; ++n) {
        LostGenerator lost;
        const FailingAllocations failing(n, false);
        const std::int32_t error = AnyErrorOf([&] { lost.Run(); });
        EXPECT_TRUE(failing.WasHit()) << "allocation " << n;
        EXPECT_THAT(error, ::testing::AnyOf(0, Errors::OutOfMemory)) << "allocation " << n;
    }
}

/// A host that has every failed statement run again.
class AgainHost : public IHostFactory {
  public:
    std::shared_ptr<ITraceLog> MakeTraceLog() override { return std::make_shared<Again>(); }

  private:
    struct Again : DefaultTraceLog {
        std::int32_t ReportError(const RunTimeError&, std::int32_t, std::int32_t) override {
            return RetryStatement;
        }
    };
};

/// Four sets, each with its number of waits.
DynArray<p_Subrange> FourSets() {
    DynArray<p_Subrange> sets;
    sets.Redim(0, 3);
    for (std::int32_t i = 0; i < 4; ++i) {
        Fill(sets[i], EnterList, std::vector<p_Action>(static_cast<std::size_t>(i) + 1));
    }
    return sets;
}

/// What is left has two, three and four waits, and the spare element a copy of the last.
TEST(OutOfMemoryError, ADeletionThatIsTriedAgainMovesNothingTwice) {
    ThreadContext context(std::make_shared<AgainHost>());
    context.TraceLog();
    context.Platform();
    std::size_t failed = 0;
    for (bool wasHit = true; wasHit; failed += wasHit ? 1U : 0U) {
        DynArray<p_Subrange> sets = FourSets();
        std::int32_t count = 4;
        std::int32_t index = 1;
        {
            const FailingAllocations failing(failed + 1, false);
            modActions::DeleteEntry(context, sets, count, index);
            wasHit = failing.WasHit();
        }
        ASSERT_EQ(count, 3);
        for (std::int32_t i = 0; i < count; ++i) {
            EXPECT_EQ(sets[i].EnterCount, i + 2) << "allocation " << failed + 1;
        }
        EXPECT_EQ(sets[count].EnterCount, 4) << "allocation " << failed + 1;
    }
    EXPECT_GE(failed, 1U);
}

/// A key that needs memory of its own, and more than that of the letter before.
String LongKey(wchar_t letter) {
    return String(40U * static_cast<std::size_t>(letter - L'a' + 1), letter);
}

std::vector<String> All(const DynArray<String>& texts) {
    return {texts.begin(), texts.end()};
}

/// The second of four tests goes with its step; each array keeps an empty spare element.
TEST(OutOfMemoryError, KeysOfADeletionThatIsTriedAgainAreNeitherLostNorDoubled) {
    const std::vector<String> left{LongKey(L'a'), LongKey(L'c'), LongKey(L'd'), {}};
    const String gone = LongKey(L'b');
    std::size_t failed = 0;
    for (bool wasHit = true; wasHit; failed += wasHit ? 1U : 0U) {
        ThreadContext context(std::make_shared<AgainHost>());
        aceActionsEngine engine(context);
        EngineState& state = engine.State();
        state.Modul = aceVKSTemplate;
        for (const wchar_t letter : {L'a', L'b', L'c', L'd'}) {
            engine.AddSubrange(1, LongKey(letter));
            engine.AddVKSStep(LongKey(letter), LongKey(letter), L"step");
        }
        {
            const FailingAllocations failing(failed + 1, false);
            engine.DeleteSubrange(1, gone);
            wasHit = failing.WasHit();
        }
        EXPECT_EQ(All(state.VKSTestUKeys), left) << "allocation " << failed + 1;
        EXPECT_EQ(All(state.VKSStepUKeys), left) << "allocation " << failed + 1;
        EXPECT_EQ(All(state.VKSStepKeys), left) << "allocation " << failed + 1;
    }
    EXPECT_GE(failed, 1U);
}

/// Each test of a wireless template has its place as the number of its actions; the array of the
/// keys has no spare element, as after a load.
TEST(OutOfMemoryError, ADeletionLeavesEachTestItsKey) {
    std::size_t failed = 0;
    for (bool wasHit = true; wasHit; failed += wasHit ? 1U : 0U) {
        ThreadContext context;
        aceActionsEngine engine(context);
        EngineState& state = engine.State();
        state.Modul = aceVKSTemplate;
        for (const wchar_t letter : {L'a', L'b', L'c', L'd'}) {
            engine.AddSubrange(letter - L'a' + 1, LongKey(letter));
            state.VKSTests[state.VKSTestCount - 1].EnterCount = state.VKSTestCount;
        }
        state.VKSTestUKeys.RedimPreserve(3);
        const String gone = LongKey(L'b');
        {
            const FailingAllocations failing(failed + 1, false);
            AnyErrorOf([&] { engine.DeleteSubrange(1, gone); });
            wasHit = failing.WasHit();
        }
        for (std::int32_t i = 0; i < state.VKSTestCount; ++i) {
            const auto letter = static_cast<wchar_t>(L'a' + state.VKSTests[i].EnterCount - 1);
            EXPECT_EQ(state.VKSTestUKeys[i], LongKey(letter)) << "allocation " << failed + 1;
        }
    }
    EXPECT_GE(failed, 1U);
}

TEST(OutOfMemoryError, AThreadWithoutMemoryForItsServicesGetsError7AndMayTryAgain) {
    std::thread([] {
        std::int32_t number = 0;
        {
            const FailingAllocations failing(1, true);
            number = AnyErrorOf([] { ThreadContext::Current(); });
        }
        EXPECT_EQ(number, Errors::OutOfMemory);
        EXPECT_EQ(ThreadContext::Current().InstanceCount, 0);
    }).join();
}

/// The error itself: raised, caught, reported and raised again without an allocation.
TEST(OutOfMemoryError, CostsNoMemoryOnItsWay) {
    ThreadContext context;
    context.TraceLog();
    context.Platform();
    std::int32_t number = 0;
    bool hasText = false;
    {
        const FailingAllocations failing(1, true);
        try {
            Guarded(context, [](const Statements& stmt) { stmt([] { throw std::bad_alloc(); }); });
        } catch (const RunTimeError& error) {
            number = error.Number();
            hasText = error.Description() == L"out of memory";
        }
    }
    EXPECT_EQ(number, Errors::OutOfMemory);
    EXPECT_TRUE(hasText);
}

TEST(OutOfMemoryError, AForeignTextThatCanNotBeCopiedIsError7) {
    const std::runtime_error foreign("a text that is longer than any string keeps inside");
    ThreadContext context;
    std::int32_t number = 0;
    {
        const FailingAllocations failing(1, true);
        try {
            throw foreign;
        } catch (...) {
            number = CurrentRunTimeError().Number();
        }
    }
    EXPECT_EQ(number, Errors::OutOfMemory);
}

}  // namespace
}  // namespace ace::test
