#include <ace/core/module_table.h>

#include "support/fake_editor.h"
#include "support/store_fixture.h"

namespace ace::test {
namespace {

const String EngineModule = L"aceActionsEngine (Code)";
const String CodeModule = L"modActions (Code)";

class SubrangeTest : public EngineTest {
  protected:
    /// Opens an editor that writes down what it is asked for.
    void OpenEditor() {
        editor = std::make_shared<FakeEditor>(*host);
        context.Editor = editor;
    }
    std::shared_ptr<FakeEditor> editor;
};

// ---- the modules whose list has no keys beside it ----------------------------------------------

class PlainModuleTest : public SubrangeTest, public ::testing::WithParamInterface<aceModul> {
  protected:
    PlainModuleTest() { State().Modul = GetParam(); }

    static const NumberedSets& Numbered() { return ModuleTable[GetParam()].numbered[0]; }
    void Have(StringView letters, std::int32_t count) {
        State().*Numbered().sets = Letters(letters);
        State().*Numbered().count = count;
    }
    Lines Texts() { return TextsOf(State().*Numbered().sets); }
    std::int32_t Count() { return State().*Numbered().count; }
    static Lines Loaded() { return {L"Editor.LoadEditor(" + std::to_wstring(GetParam()) + L")"}; }
    static Lines Selected(std::int32_t number) {
        return {L"Editor.SetSubrange(" + std::to_wstring(number) + L")"};
    }
};

INSTANTIATE_TEST_SUITE_P(Modules, PlainModuleTest,
                         ::testing::Values(aceTemplate, aceMonitoring, aceEMSAutoTemplate,
                                           aceEMIAutoTemplate, aceTSTemplate),
                         [](const auto& row) { return "Modul" + std::to_string(row.param); });

TEST_P(PlainModuleTest, AddSubrangeInsertsIntoTheListOfTheModule) {
    Have(L"AB", 2);

    engine->AddSubrange(2);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"..B.", L"BBBB", L"...."}));
    EXPECT_EQ(Count(), 3);
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_P(PlainModuleTest, AddSubrangeAtOneKeepsTheFrequencyActionsOfTheOldFirst) {
    Have(L"A", 1);

    engine->AddSubrange(1);

    EXPECT_EQ(Texts(), (Lines{L"..A.", L"AAAA", L"...."}));
}

TEST_P(PlainModuleTest, AddSubrangeFarAboveTheCountAppendsBehindAnEmptyEntry) {
    Have(L"A", 1);

    engine->AddSubrange(50);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"....", L"...."}));
    EXPECT_EQ(Count(), 2);
}

TEST_P(PlainModuleTest, AddSubrangeSelectsTheSubrangeBeforeTheNewOne) {
    Have(L"ABC", 3);
    OpenEditor();

    engine->AddSubrange(3);
    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(1)));

    engine->AddSubrange(1);
    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(-1)));
    EXPECT_EQ(editor->loaded.get(), &State());
}

TEST_P(PlainModuleTest, AddSubrangeFarAboveTheCountSelectsTheNewLastOne) {
    Have(L"ABC", 3);
    OpenEditor();

    engine->AddSubrange(9);
    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(3)));

    engine->AddSubrange(5);
    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(3)));
}

TEST_P(PlainModuleTest, DeleteSubrangeRemovesFromTheListOfTheModule) {
    Have(L"ABC", 3);

    engine->DeleteSubrange(1);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"CCCC", L"CCCC"}));
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_P(PlainModuleTest, DeleteSubrangeOfTheOnlyOneLeavesCountZeroAndOneSpareElement) {
    Have(L"A", 1);

    engine->DeleteSubrange(1);

    EXPECT_EQ(Count(), 0);
    EXPECT_EQ((State().*Numbered().sets).LowerBound(), 0);
    EXPECT_EQ((State().*Numbered().sets).UpperBound(), 0);
}

TEST_P(PlainModuleTest, DeleteSubrangeLeavesTheSelectionToTheEditor) {
    Have(L"AB", 2);
    OpenEditor();

    engine->DeleteSubrange(1);

    EXPECT_EQ(TakeEffects(), Loaded());
    EXPECT_EQ(editor->loaded.get(), &State());
}

TEST_P(PlainModuleTest, MoveSubrangeTakesTheDestinationAfterTheRemoval) {
    Have(L"ABCD", 4);

    engine->MoveSubrange(1, 3);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"CCCC", L"AAAA", L"DDDD", L"DDDD"}));
    EXPECT_EQ(Count(), 4);
    EXPECT_FALSE(State().InternalSubrangeOp);
}

TEST_P(PlainModuleTest, MoveSubrangeTakesItsOwnFrequencyListAlong) {
    Have(L"ABC", 3);
    EmptyList((State().*Numbered().sets)[2], FreqList);

    engine->MoveSubrange(3, 1);

    EXPECT_EQ(Texts(), (Lines{L"CC.C", L"AAAA", L"BBBB", L"CC.C"}));
}

TEST_P(PlainModuleTest, MoveSubrangeTellsTheEditorOnceAtItsEnd) {
    Have(L"ABCD", 4);
    OpenEditor();

    engine->MoveSubrange(4, 2);

    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(1)));
}

TEST_P(PlainModuleTest, MoveSubrangeToTheEndTakesTheSparePlace) {
    Have(L"ABC", 3);

    engine->MoveSubrange(1, 3);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"CCCC", L"AAAA", L"CCCC"}));
}

TEST_P(PlainModuleTest, MoveSubrangeFarBehindTheEndWritesTheEntryBehindTheLastOne) {
    Have(L"ABC", 3);

    engine->MoveSubrange(1, 4);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"CCCC", L"CCCC", L"AAAA"}));
    EXPECT_EQ(Count(), 3);
}

TEST_P(PlainModuleTest, MoveSubrangeNestsFiveTracedOperations) {
    Have(L"AB", 2);
    host->tracing = true;

    engine->MoveSubrange(2, 1);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"MoveSubrange", L"Source = 2, Destination = 1"),
                      Start(EngineModule, L"DeleteSubrange", L"Index = 2"),
                      Start(CodeModule, L"DeleteEntry", L"Index = 2"), End(L"DeleteEntry"),
                      End(L"DeleteSubrange"), Start(EngineModule, L"AddSubrange", L"Index = 1"),
                      Start(CodeModule, L"AddEntry", L"Index = 1"), End(L"AddEntry"),
                      End(L"AddSubrange"), End(L"MoveSubrange")));
}

TEST_P(PlainModuleTest, SwapSubrangeExchangesTwoEntries) {
    Have(L"ABC", 3);
    host->tracing = true;

    engine->SwapSubrange(1, 3);

    EXPECT_EQ(Texts(), (Lines{L"CCCC", L"BBBB", L"AAAA"}));
    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"SwapSubrange", L"Source = 1, Destination = 3"),
                      End(L"SwapSubrange")));
}

TEST_P(PlainModuleTest, SwapSubrangeWithItselfLeavesTheListAndStillTellsTheEditor) {
    Have(L"AB", 2);
    OpenEditor();

    engine->SwapSubrange(2, 2);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(1)));
}

TEST_P(PlainModuleTest, SwapSubrangeGoesByTheBoundsSoThatTheSpareTakesPart) {
    Have(L"ABX", 2);

    engine->SwapSubrange(1, 3);

    EXPECT_EQ(Texts(), (Lines{L"XXXX", L"BBBB", L"AAAA"}));
    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(1, 4); }), 9);
}

TEST_P(PlainModuleTest, NoneOfThemTouchesTheChangeFlagsOrTheSavedCounts) {
    Have(L"AB", 2);
    State().SavedCount.*Numbered().saved = 2;

    engine->AddSubrange(1);
    engine->MoveSubrange(1, 2);
    engine->SwapSubrange(1, 2);
    engine->DeleteSubrange(1);

    for (const Boolean changed : State().ChangeFlags) {
        EXPECT_FALSE(changed);
    }
    EXPECT_EQ(State().SavedCount.*Numbered().saved, 2);
}

// ---- failures ------------------------------------------------------------------------------

TEST_P(PlainModuleTest, IndexZeroIsErrorNineThatTwoOperationsReport) {
    Have(L"A", 1);
    OpenEditor();
    host->tracing = true;

    EXPECT_EQ(ErrorOf([&] { engine->AddSubrange(0); }), 9);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineModule, L"AddSubrange", L"Index = 0"),
                                     Start(CodeModule, L"AddEntry", L"Index = 0"),
                                     SubscriptReported, SubscriptReported));
    EXPECT_EQ(Count(), 2);
    EXPECT_EQ(ErrorOf([&] { engine->DeleteSubrange(0); }), 9);
    EXPECT_EQ(Count(), 1);
}

TEST_P(PlainModuleTest, SourceOutsideTheBoundsIsErrorNineBeforeAnythingMoves) {
    Have(L"AB", 2);
    for (const std::int32_t source : {0, 3}) {
        EXPECT_EQ(ErrorOf([&] { engine->MoveSubrange(source, 1); }), 9);
        EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(source, 1); }), 9);
    }
    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(Count(), 2);
}

TEST_P(PlainModuleTest, SwapToADestinationOutsideTheBoundsIsErrorNineBeforeAnythingMoves) {
    Have(L"AB", 2);

    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(1, 0); }), 9);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB"}));
}

TEST_P(PlainModuleTest, ListThatWasNeverMadeIsErrorNine) {
    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(1, 1); }), 9);
    EXPECT_EQ(ErrorOf([&] { engine->MoveSubrange(1, 1); }), 9);
}

TEST_P(PlainModuleTest, AfterAFailedSwapTheEditorHearsOfNothingUntilTheNextThatSucceeds) {
    Have(L"AB", 2);
    OpenEditor();
    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(1, 9); }), 9);
    EXPECT_TRUE(State().InternalSubrangeOp);
    TakeEffects();

    engine->AddSubrange(1);
    engine->DeleteSubrange(1);
    EXPECT_EQ(TakeEffects(), Lines{});

    engine->SwapSubrange(1, 1);
    EXPECT_EQ(TakeEffects(), Journal(Loaded(), Selected(0)));
    EXPECT_FALSE(State().InternalSubrangeOp);
    engine->DeleteSubrange(1);
    EXPECT_EQ(TakeEffects(), Loaded());
}

TEST_P(PlainModuleTest, MoveThatFailsAtItsDestinationHasRemovedTheSource) {
    Have(L"ABC", 3);

    EXPECT_EQ(ErrorOf([&] { engine->MoveSubrange(1, 0); }), 9);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"BBBB", L"CCCC", L"CCCC"}));
    EXPECT_EQ(Count(), 3);
    EXPECT_TRUE(State().InternalSubrangeOp);
}

TEST_P(PlainModuleTest, FailureOfTheEditorIsReportedAndRaisedWithTheListChanged) {
    Have(L"A", 1);
    OpenEditor();
    host->faults.FailOperation(L"Editor.SetSubrange", 1, 77);

    EXPECT_EQ(ErrorOf([&] { engine->AddSubrange(2); }), 77);

    EXPECT_EQ(TakeEffects(), Journal(Loaded(), L"Editor.SetSubrange(0) -> error 77",
                                     Reported(77, L"scripted failure")));
    EXPECT_EQ(Count(), 2);
}

TEST_P(PlainModuleTest, SetThatIsHeldIsErrorTenAndStaysAsItIs) {
    Have(L"ABC", 3);
    const DynArray<p_Subrange>::Hold hold(State().*Numbered().sets);

    EXPECT_EQ(ErrorOf([&] { engine->AddSubrange(1); }), 10);
    EXPECT_EQ(ErrorOf([&] { engine->DeleteSubrange(1); }), 10);
    EXPECT_EQ(ErrorOf([&] { engine->MoveSubrange(1, 2); }), 10);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"CCCC"}));
    EXPECT_EQ(Count(), 3);
}

TEST_P(PlainModuleTest, ExchangeIsRefusedForTheEntryThatRunsAndDoneForOthers) {
    Have(L"ABC", 3);
    DynArray<p_Subrange>& sets = State().*Numbered().sets;
    const DynArray<p_Subrange>::Hold hold(sets);
    const DynArray<p_Action>::Hold running(sets[0].Leave);

    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(1, 2); }), 10);
    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(3, 1); }), 10);
    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"CCCC"}));

    engine->SwapSubrange(2, 3);
    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"CCCC", L"BBBB"}));
}

// ---- the selection -----------------------------------------------------------------------------

TEST_F(SubrangeTest, EditorSelectSubrangeCountsFromOneAndTheEditorFromZero) {
    OpenEditor();
    host->tracing = true;

    engine->EditorSelectSubrange(3);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineModule, L"EditorSelectSubrange", L""),
                                     L"Editor.SetSubrange(2)", End(L"EditorSelectSubrange")));
}

TEST_F(SubrangeTest, EditorSelectSubrangeWithoutAnEditorDoesNothing) {
    engine->EditorSelectSubrange(3);

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(SubrangeTest, ErrorOfTheEditorsSelectionIsReportedAndRaised) {
    OpenEditor();
    host->faults.FailOperation(L"Editor.SetSubrange", 1, 35);

    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(0); }), 35);

    EXPECT_EQ(TakeEffects(),
              Journal(L"Editor.SetSubrange(-1) -> error 35", Reported(35, L"scripted failure")));
}

}  // namespace
}  // namespace ace::test
