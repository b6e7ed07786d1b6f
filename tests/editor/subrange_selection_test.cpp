#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// What `EditorSelectSubrange` does to the tree of each module. The host counts from 1.
class SubrangeSelection : public ShownEditor {
  protected:
    /// Two numbered sets in each module that has any, all of them empty.
    void MakeTwo() {
        MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
        MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 2);
        MakeSets(&ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount, 2);
        MakeSets(&ModuleLists::EMIAutoSteps, &ModuleLists::EMIAutoStepCount, 2);
        MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 2);
        MakeSets(&ModuleLists::VKSTests, &ModuleLists::VKSTestCount, 2);
        for (DynArray<String>* texts :
             {&State().VKSTestUKeys, &State().VKSHostUKeys, &State().VKSHostNames}) {
            texts->Redim(0, 1);
            (*texts)[0] = L"A";
            (*texts)[1] = L"B";
        }
    }
    /// Keys of the nodes that are expanded, in the order of the tree, and "> " and the key of the
    /// one that is selected.
    Lines Opened() {
        Lines open;
        for (const TreeNode node : tree.Nodes()) {
            if (tree.IsExpanded(node)) {
                open.push_back(tree.Key(node));
            }
        }
        if (const TreeNode selected = tree.Selected()) {
            open.push_back(L"> " + tree.Key(selected));
        }
        return open;
    }
    void ExpandAll() {
        for (const TreeNode node : tree.Nodes()) {
            tree.SetExpanded(node, true);
        }
    }
    /// The second set is chosen in a tree that stands wide open.
    Lines OpenAfterSecond(aceModul moduleKind) {
        MakeTwo();
        Open(moduleKind);
        ExpandAll();
        engine->EditorSelectSubrange(2);
        return Opened();
    }
};

/// What lies below the roots keeps its state; all roots from the start of the test on are closed.
TEST_F(SubrangeSelection, SubrangeOfASingleTestOpensWithBothMoments) {
    EXPECT_EQ(OpenAfterSecond(aceTemplate),
              (Lines{L"ESR0", L"LSR0", L"SUR1", L"ESR1", L"LSR1", L"> SUR1"}));
}

TEST_F(SubrangeSelection, ChannelOpensWithItsThreeMoments) {
    EXPECT_EQ(OpenAfterSecond(aceMonitoring),
              (Lines{L"BFT", L"ATT", L"TRI0", L"NGO0", L"GOE0", L"CHA1", L"TRI1", L"NGO1", L"GOE1",
                     L"> CHA1"}));
}

TEST_F(SubrangeSelection, SubtestOfAnEmissionTestOpensWithBothMoments) {
    EXPECT_EQ(OpenAfterSecond(aceEMIAutoTemplate),
              (Lines{L"BEF0", L"AFT0", L"EMI1", L"BEF1", L"AFT1", L"> EMI1"}));
}

TEST_F(SubrangeSelection, TestOfASequenceOpensWithBothMoments) {
    EXPECT_EQ(OpenAfterSecond(aceTSTemplate),
              (Lines{L"BFT0", L"ATT0", L"TST1", L"BFT1", L"ATT1", L"> TST1"}));
}

TEST_F(SubrangeSelection, WirelessTestOpensWithItsMoments) {
    EXPECT_EQ(OpenAfterSecond(aceVKSTemplate),
              (Lines{L"BFT0", L"ATT0", L"TST1", L"BFT1", L"ATT1", L"> TST1"}));
}

TEST_F(SubrangeSelection, MomentsThatAreClosedAreOpened) {
    MakeTwo();
    Open(aceTemplate);
    engine->EditorSelectSubrange(1);
    EXPECT_EQ(Opened(), (Lines{L"SUR0", L"ESR0", L"LSR0", L"> SUR0"}));
}

TEST_F(SubrangeSelection, StepsOfASusceptibilityTestAreNotCollapsed) {
    MakeTwo();
    Fill(State().EMSAutoSteps[1], EnterList, {WaitFor(1), Camera});
    Open(aceEMSAutoTemplate);
    engine->EditorSelectSubrange(2);
    EXPECT_EQ(Opened(), (Lines{L"STE0", L"STE1", L"CHI0STE1", L"CHI1STE1", L"> STE1"}));
}

TEST_F(SubrangeSelection, ModulesWithoutSubrangesOnlyCollapse) {
    for (const aceModul module : {aceEMSAutoTemplateGeneral, aceAziChart}) {
        Open(module);
        tree.Select(tree.Find(L"ETE"));
        ExpandAll();
        engine->EditorSelectSubrange(1);
        EXPECT_EQ(Opened(), Lines{L"> ETE"}) << module;
    }
}

TEST_F(SubrangeSelection, NumberBelowOneOnlyCollapses) {
    MakeTwo();
    Open(aceTemplate);
    for (const std::int32_t number : {0, -1, -100}) {
        tree.Select(tree.Find(L"EFR"));
        ExpandAll();
        engine->EditorSelectSubrange(number);
        EXPECT_EQ(Opened(), (Lines{L"ESR0", L"LSR0", L"ESR1", L"LSR1", L"> EFR"})) << number;
    }
}

TEST_F(SubrangeSelection, NumberBelowOneLeavesTheStepsOfASusceptibilityTestAlone) {
    MakeTwo();
    Open(aceEMSAutoTemplate);
    engine->EditorSelectSubrange(0);
    EXPECT_EQ(Opened(), (Lines{L"STE0", L"STE1"}));
}

TEST_F(SubrangeSelection, MissingNumberIsAnErrorBehindTheCollapseAndTheSelectionStays) {
    MakeTwo();
    Open(aceTemplate);
    tree.Select(tree.Find(L"EFR"));
    ExpandAll();
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(3); }), 91);
    EXPECT_EQ(Opened(), (Lines{L"ESR0", L"LSR0", L"ESR1", L"LSR1", L"> EFR"}));
}

TEST_F(SubrangeSelection, MissingStepOfASusceptibilityTestIsAnErrorThatChangesNothing) {
    MakeTwo();
    Open(aceEMSAutoTemplate);
    tree.Select(tree.Find(L"STE0"));
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(3); }), 91);
    EXPECT_EQ(Opened(), (Lines{L"STE0", L"STE1", L"> STE0"}));
}

/// The number is that of the test in the store, which need not be its place in the tree.
TEST_F(SubrangeSelection, WirelessTestIsChosenByItsPlaceInTheStore) {
    MakeTwo();
    State().VKSHostUKeys[0] = L"B";
    State().VKSHostUKeys[1] = L"A";
    Open(aceVKSTemplate);
    engine->EditorSelectSubrange(1);
    EXPECT_EQ(tree.Key(tree.Selected()), L"TST0");
    EXPECT_EQ(tree.Caption(tree.Selected()), L"B");
}

TEST_F(SubrangeSelection, MatrixHasNoStartOfTheTestToBeginWith) {
    Open(aceVKSDUT);
    const Lines before = Tree();
    for (const std::int32_t number : {0, 1}) {
        EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(number); }), 91) << number;
    }
    EXPECT_EQ(Tree(), before);
}

TEST_F(SubrangeSelection, ModuleIsThatOfTheLastLoad) {
    MakeTwo();
    Open(aceTemplate);
    State().Modul = aceMonitoring;
    engine->EditorSelectSubrange(2);
    EXPECT_EQ(tree.Key(tree.Selected()), L"SUR1");
}

TEST_F(SubrangeSelection, FailureIsToldByTheFormAndByTheEngine) {
    MakeTwo();
    Open(aceTemplate);
    EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(3); }), 91);
    const String reported = Reported(91, L"object variable not set");
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError"), (Lines{reported, reported}));
    EXPECT_EQ(host->journal.LinesOf(L"Tree.Select"), Lines{});
}

TEST_F(SubrangeSelection, AnyCallThatFailsIsMadeAgainWhenTheReportAsksForIt) {
    const Lines whole{L"ESR0", L"LSR0", L"SUR1", L"ESR1", L"LSR1", L"> SUR1"};
    EXPECT_EQ(OpenAfterSecond(aceTemplate), whole);
    for (std::size_t k = 1; host->reportAnswers.empty(); ++k) {
        ExpandAll();
        tree.Select({});
        host->faults.FailOperation(L"Tree.", k, 5);
        host->reportAnswers = {5};
        EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(2); }), 0) << k;
        host->faults.Clear();
        EXPECT_EQ(Opened(), whole) << k;
    }
}

TEST_F(SubrangeSelection, WholeJournal) {
    MakeTwo();
    Open(aceTemplate);
    host->tracing = true;
    engine->EditorSelectSubrange(2);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(L"aceActionsEngine (Code)", L"EditorSelectSubrange", L""),
                      Start(L"frmEditor (Code)", L"SetSubrange", L"Number = 1"),
                      L"Tree.SetExpanded(\"ETE\", false)", L"Tree.SetExpanded(\"EFR\", false)",
                      L"Tree.SetExpanded(\"SUR0\", false)", L"Tree.SetExpanded(\"SUR1\", false)",
                      L"Tree.SetExpanded(\"LTE\", false)", L"Tree.Select(\"SUR1\")",
                      L"Tree.SetExpanded(\"SUR1\", true)", L"Tree.SetExpanded(\"ESR1\", true)",
                      L"Tree.SetExpanded(\"LSR1\", true)", End(L"SetSubrange"),
                      End(L"EditorSelectSubrange")));
}

}  // namespace
}  // namespace ace::test
