#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// A load of the editor that fails on its way leaves no half of it behind.
class LoadFailure : public ShownEditor {
  protected:
    static constexpr StringView EditorCode = L"frmEditor (Code)";

    /// A test whose load makes a group, a moment below it, and action lines.
    void MakeTest() {
        MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
        Fill(State().MainTest, EnterList, {WaitFor(1500), Camera});
        Fill(State().MainSubranges[1], LeaveList, {PathA});
    }
    /// A matrix with two leaves, of which none has a row.
    void MakeMatrixWithoutRows() {
        State().Modul = aceVKSDUT;
        State().VKSInfByPower = true;
        State().VKSDUTPowerCount = 2;
        State().VKSDUTPowerNames.Redim(0, 1);
        State().VKSDUTTemplate = 2;
    }
    std::int32_t ErrorOfLoad() {
        return ErrorOf([&] { engine->LoadEditor(&list, &tree); });
    }
    /// Nobody hears of a press or a drag, and nothing shows.
    void ExpectNothingLeft(std::size_t call = 0) {
        EXPECT_EQ(Tree(), Lines{}) << call;
        EXPECT_FALSE(tree.Press(std::nullopt)) << call;
        EXPECT_FALSE(list.EndDrag()) << call;
        EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(1); }), 91) << call;
    }
};

/// The first two calls link the tree and are no part of the form's own load.
TEST_F(LoadFailure, AnyCallOfTheTreeThatFailsEmptiesItAndEndsBothLinks) {
    MakeTest();
    std::size_t k = 3;
    for (;; ++k) {
        host->faults.Clear();
        host->faults.FailOperation(L"Tree.", k, 5);
        if (ErrorOfLoad() == 0) {
            break;
        }
        ExpectNothingLeft(k);
    }
    host->faults.Clear();
    EXPECT_GT(k, 20U);
    EXPECT_TRUE(IsThere(L"CHI0LSR1"));
}

TEST_F(LoadFailure, TextThatCannotBeHadFailsTheLoad) {
    MakeTest();
    constexpr std::size_t ThirdNode = 6;  ///< behind three of the dialog
    host->faults.FailOperation(L"Language.Text", ThirdNode, 5);
    EXPECT_EQ(ErrorOfLoad(), 5);
    ExpectNothingLeft();
}

TEST_F(LoadFailure, SecondLeafWithoutARowIsToldByTheFormAndByTheEngine) {
    MakeMatrixWithoutRows();
    EXPECT_EQ(ErrorOfLoad(), 457);

    const String leaf = L"Tree.AddRoot(\"STE-1\", \"\", \"ACT\")";
    const String reported = Reported(457, L"the key is in use");
    EXPECT_EQ(
        TakeEffects(),
        Journal(DevicesAsked, L"Tree.SetEvents(true)", L"Tree.SetUp(19, 7, 1, 1, 1, 300, false)",
                L"Tree.SetRootsSorted(false)", L"Tree.Clear()", leaf, leaf, reported,
                L"Tree.Clear()", L"Tree.SetEvents(false)", reported));
}

TEST_F(LoadFailure, FailedReloadGivesUpTheListOfTheLoadBefore) {
    MakeTest();
    Open(aceTemplate);
    MakeMatrixWithoutRows();
    EXPECT_EQ(ErrorOfLoad(), 457);

    EXPECT_EQ(host->journal.LinesOf(L"List."), Lines{L"List.SetEvents(false)"});
    ExpectNothingLeft();
}

TEST_F(LoadFailure, ActionThatCannotBeShownIsToldByEachOfTheThreeOperations) {
    Fill(State().AziChart, EnterList, {Action(atWait, aceNotify{})});
    State().Modul = aceAziChart;
    host->tracing = true;
    EXPECT_EQ(ErrorOfLoad(), 13);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(L"aceActionsEngine (Code)", L"LoadEditor", L""), DevicesAsked,
                      L"Tree.SetEvents(true)", L"Tree.SetUp(19, 7, 1, 1, 1, 300, false)",
                      Start(String(EditorCode), L"LoadEditor", L"Modul = 6"),
                      L"Tree.SetRootsSorted(false)", L"Tree.Clear()",
                      L"Tree.AddRoot(\"ETE\", \"T(9096)\", \"ACT\")",
                      Start(String(EditorCode), L"DisplayTree", L"PerfTime = 0, Subrange = 0"),
                      MismatchReported, MismatchReported, L"Tree.Clear()", L"Tree.SetEvents(false)",
                      MismatchReported));
    ExpectNothingLeft();
}

TEST_F(LoadFailure, ClearThatFailsAsWellLeavesTheFirstError) {
    MakeTest();
    host->faults.FailOperation(L"Tree.AddChild", 2, 5);
    host->faults.FailOperation(L"Tree.Clear", 2, 6);
    EXPECT_EQ(ErrorOfLoad(), 5);
    EXPECT_FALSE(tree.Press(std::nullopt));
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(1); }), 91);
}

TEST_F(LoadFailure, NextLoadIsAsGoodAsTheFirst) {
    MakeTest();
    Open(aceTemplate);
    const Lines before = Tree();
    host->faults.FailOperation(L"Tree.AddChild", 4, 5);
    EXPECT_EQ(ErrorOfLoad(), 5);

    EXPECT_EQ(ErrorOfLoad(), 0);

    EXPECT_EQ(Tree(), before);
    EXPECT_TRUE(tree.Press(std::nullopt));
    EXPECT_TRUE(list.Click(L"ACT:3"));
}

/// What the editor copied before it failed is what the engine has, so nothing is lost.
TEST_F(LoadFailure, ChangeStillFindsTheListsAfterIt) {
    MakeTest();
    host->faults.FailOperation(L"Tree.AddChild", 4, 5);
    EXPECT_EQ(ErrorOfLoad(), 5);
    const ModuleLists before = State();

    EXPECT_EQ(ErrorOf([&] { engine->Change(true); }), 0);

    EXPECT_TRUE(engine->Change());
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), before);
}

TEST_F(LoadFailure, ReportThatAsksForACallAgainGetsTheWholeTree) {
    MakeTest();
    Open(aceTemplate);
    const Lines before = Tree();
    for (std::size_t k = 1; host->reportAnswers.empty(); ++k) {
        host->faults.Clear();
        host->faults.FailOperation(L"Tree.", k, 5);
        host->reportAnswers = {5};
        EXPECT_EQ(ErrorOfLoad(), 0) << k;
        EXPECT_EQ(Tree(), before) << k;
    }
}

/// The tree stood before the list was asked for anything.
TEST_F(LoadFailure, AnyCallOfTheListThatFailsLeavesTheTree) {
    MakeTest();
    Open(aceTemplate);
    const Lines before = Tree();
    std::size_t k = 1;
    for (;; ++k) {
        host->faults.Clear();
        host->faults.FailOperation(L"List.", k, 5);
        if (ErrorOfLoad() == 0) {
            break;
        }
        EXPECT_EQ(Tree(), before) << k;
        EXPECT_TRUE(tree.Press(std::nullopt)) << k;
    }
    EXPECT_GE(k, 11U);  // three to set it up, and eight kinds
}

TEST_F(LoadFailure, ReportThatAsksForACallOfTheListAgainGetsAllKinds) {
    Open(aceTemplate);
    const Lines before = LinesOf(list.Text());
    for (std::size_t k = 1; host->reportAnswers.empty(); ++k) {
        host->faults.Clear();
        host->faults.FailOperation(L"List.", k, 5);
        host->reportAnswers = {5};
        EXPECT_EQ(ErrorOfLoad(), 0) << k;
        EXPECT_EQ(LinesOf(list.Text()), before) << k;
    }
}

// ---- controls ----------------------------------------------------------------------------------

TEST_F(LoadFailure, WithoutATreeNothingIsShownOrOffered) {
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(&list, nullptr); }), 91);
    EXPECT_THAT(list.Text(), ::testing::IsEmpty());
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(1); }), 91);
}

TEST_F(LoadFailure, WithoutAListTheTreeShows) {
    MakeTest();
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(nullptr, &tree); }), 91);
    EXPECT_TRUE(IsThere(L"CHI0ETE"));
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(2); }), 0);
}

TEST_F(LoadFailure, TreeThatHasGoneIsError91) {
    MakeTest();
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief.reset();
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(1); }), 91);
}

TEST_F(LoadFailure, TreeOfTheLoadBeforeIsGivenBack) {
    MakeTest();
    Open(aceTemplate);
    sim::SimTree other{*host};
    engine->LoadEditor(&list, &other);
    EXPECT_FALSE(tree.Press(std::nullopt));
    EXPECT_TRUE(other.Press(std::nullopt));
}

// ---- lists -------------------------------------------------------------------------------------

TEST_F(LoadFailure, ListsThatWereNeverMadeCountAsEmpty) {
    for (std::int32_t module = 0; module < ModulCount; ++module) {
        State().Modul = static_cast<aceModul>(module);
        EXPECT_EQ(ErrorOfLoad(), 0) << module;
    }
}

TEST_F(LoadFailure, CountWithoutAnArrayFailsTheLoad) {
    State().MainSubrangeCount = 1;
    EXPECT_EQ(ErrorOfLoad(), 9);
    ExpectNothingLeft();
}

TEST_F(LoadFailure, WirelessTestsThatTheHostNeverNamedFailTheLoad) {
    State().Modul = aceVKSTemplate;
    MakeSets(&ModuleLists::VKSTests, &ModuleLists::VKSTestCount, 1);
    EXPECT_EQ(ErrorOfLoad(), 9);
    ExpectNothingLeft();
}

}  // namespace
}  // namespace ace::test
