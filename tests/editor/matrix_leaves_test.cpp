#include "editor/shown_actions.h"
#include "editor/shown_matrix.h"

namespace ace::test {
namespace {

/// Which row a leaf of the matrix stands for, and leaves and rows that have no other side.
class MatrixLeaves : public ShownMatrix {
  protected:
    MatrixLeaves() { SetFrequencies({{2.4e9, L"2.4 GHz"}, {5.2e9, L"5.2 GHz"}}); }
};

// ---- rows --------------------------------------------------------------------------------------

TEST_F(MatrixLeaves, TheFirstOfEqualRowsIsTheLeafs) {
    SetInfluence(true, false, false);
    SetRows({{5.2e9, -1, -1}, {2.4e9, -1, -1}, {5.2e9, -1, -1}});
    FillRow(2, {WaitFor(1000)});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE1 \"2.4 GHz\" ACT expanded", L"STE0 \"5.2 GHz\" ACT expanded"}));
}

TEST_F(MatrixLeaves, RowsBehindTheCountAreNoRows) {
    SetInfluence(true, false, false);
    SetRows({{2.4e9, -1, -1}, {5.2e9, -1, -1}});
    State().VKSStepCount = 1;

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE0 \"2.4 GHz\" ACT expanded", L"STE-1 \"5.2 GHz\" ACT expanded"}));
}

TEST_F(MatrixLeaves, AFrequencyIsComparedExactly) {
    SetInfluence(true, false, false);
    SetRows({{2.4e9 + 0.001, -1, -1}, {5.2e9, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE-1 \"2.4 GHz\" ACT expanded", L"STE1 \"5.2 GHz\" ACT expanded"}));
}

TEST_F(MatrixLeaves, ARowWithoutALeafShowsNothingAndFailsNothing) {
    SetRows({{0.0, -1, -1}, {-1, -1, -1}, {-1, 7, -1}});
    FillRow(0, {WaitFor(1000)});
    FillRow(1, {Camera});
    FillRow(2, {CloseTheDoor});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE1 \"All Frequencies\" ACT expanded",
                             L"  CHI0STE1 \"T(9065): Camera\" EUT expanded"}));
}

TEST_F(MatrixLeaves, OnlyTheEnterListOfARowShows) {
    SetRows({{-1, -1, -1}});
    Fill(State().VKSSteps[0], LeaveList, {Camera});

    OpenMode(0);

    EXPECT_EQ(Tree(), Lines{L"STE0 \"All Frequencies\" ACT expanded"});
}

TEST_F(MatrixLeaves, ALeafWithoutARowHasNoActions) {
    SetInfluence(true, false, false);
    SetRows({{5.2e9, -1, -1}});
    FillRow(0, {WaitFor(1000)});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE-1 \"2.4 GHz\" ACT expanded", L"STE0 \"5.2 GHz\" ACT expanded",
                             L"  CHI0STE0 \"T(9063): 1.000 s\" WAI expanded"}));
}

TEST_F(MatrixLeaves, ASecondLeafWithoutARowFailsTheLoad) {
    SetInfluence(true, false, false);
    SetRows({{-1, -1, -1}});

    EXPECT_EQ(ErrorOf([&] { OpenMode(0); }), 457);
    EXPECT_EQ(Tree(), Lines{});
}

TEST_F(MatrixLeaves, WithoutAnyRowOneLeafShows) {
    OpenMode(0);

    EXPECT_EQ(Tree(), Lines{L"STE-1 \"All Frequencies\" ACT expanded"});
}

// ---- the test mode -----------------------------------------------------------------------------

TEST_F(MatrixLeaves, AFrequencyOfZeroWithoutInfluenceGivesTwoLeavesAndNoneForAllFrequencies) {
    SetFrequencies({{2.4e9, L"2.4 GHz"}, {0.0, L"idle"}});
    SetRows({{-1, -1, -1}, {0.0, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE1 \"idle\" ACT expanded", L"STE0 \"Testmode\" ACT expanded"}));
}

TEST_F(MatrixLeaves, TheTwoLeavesStandSortedByTheirTextsNotInTheOrderOfTheirAdding) {
    SetFrequencies({{0.0, L"Zero"}});
    SetRows({{-1, -1, -1}, {0.0, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE0 \"Testmode\" ACT expanded", L"STE1 \"Zero\" ACT expanded"}));
}

TEST_F(MatrixLeaves, TheFirstFrequencyOfZeroNamesTheTestMode) {
    SetFrequencies({{2.4e9, L"2.4 GHz"}, {0.0, L"idle"}, {0.0, L"mute"}});
    SetRows({{-1, -1, -1}, {0.0, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree().front(), L"STE1 \"idle\" ACT expanded");
}

TEST_F(MatrixLeaves, AFrequencyNearlyZeroIsNoTestMode) {
    SetFrequencies({{1e-300, L"idle"}});
    SetRows({{-1, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree(), Lines{L"STE0 \"All Frequencies\" ACT expanded"});
}

/// Intentional: the groups have the captions the other way round than the leaves.
TEST_F(MatrixLeaves, TheGroupOfTheZeroFrequencysNameHoldsTheRowsOfAllFrequencies) {
    SetFrequencies({{0.0, L"idle"}});
    SetPowers({L"low"});
    SetInfluence(false, false, true);
    SetRows({{-1, -1, 0}, {0.0, -1, 0}});

    OpenMode(0);

    EXPECT_EQ(Tree(),
              (Lines{L"TST0_-1_-1 \"idle\" SGL expanded", L"  STE0 \"low\" ACT expanded",
                     L"TST-1_-1_-1 \"Testmode\" SGL expanded", L"  STE1 \"low\" ACT expanded"}));
}

// ---- order -------------------------------------------------------------------------------------

TEST_F(MatrixLeaves, ActionsOfASortedLeafKeepTheOrderOfTheirList) {
    SetRows({{-1, -1, -1}});
    FillRow(0, {Tell(L"Z"), Tell(L"A"), Tell(L"M")});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE0 \"All Frequencies\" ACT expanded",
                             L"  CHI0STE0 \"T(9064): Z\" NOT expanded",
                             L"  CHI1STE0 \"T(9064): A\" NOT expanded",
                             L"  CHI2STE0 \"T(9064): M\" NOT expanded"}));
}

TEST_F(MatrixLeaves, EqualCaptionsStandInTheOrderOfTheirTable) {
    SetFrequencies({{2.4e9, L"Same"}, {5.2e9, L"SAME"}, {1e9, L"Other"}});
    SetInfluence(true, false, false);
    SetRows({{2.4e9, -1, -1}, {5.2e9, -1, -1}, {1e9, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE2 \"Other\" ACT expanded", L"STE0 \"Same\" ACT expanded",
                             L"STE1 \"SAME\" ACT expanded"}));
}

TEST_F(MatrixLeaves, SortingByTextPutsTenBeforeTwo) {
    SetFrequencies({{2e6, L"2 MHz"}, {10e6, L"10 MHz"}});
    SetInfluence(true, false, false);
    SetRows({{2e6, -1, -1}, {10e6, -1, -1}});

    OpenMode(0);

    EXPECT_EQ(Tree(), (Lines{L"STE1 \"10 MHz\" ACT expanded", L"STE0 \"2 MHz\" ACT expanded"}));
}

TEST_F(MatrixLeaves, ModuleBehindAMatrixIsNotSorted) {
    SetRows({{-1, -1, -1}});
    OpenMode(0);

    Open(aceAziChart);

    EXPECT_EQ(Tree(),
              (Lines{L"ETE \"T(9096)\" ACT", L"EFR \"T(9103)\" ACT", L"LTE \"T(9097)\" ACT"}));
}

TEST_F(MatrixLeaves, GlobalListsBehindASortedMatrixStandInTheirOrder) {
    SetRows({{-1, -1, -1}});
    OpenMode(0);

    OpenMode(3);

    EXPECT_EQ(Tree(), (Lines{L"BSA \"Before specific Actions\" ACT expanded",
                             L"ASA \"After specific Actions\" ACT expanded"}));
}

// ---- the order of adding -----------------------------------------------------------------------

/// Two bandwidths and two powers, and the frequency of the test mode alone.
class MatrixNodes : public ShownMatrix {
  protected:
    MatrixNodes() {
        SetFrequencies({{0.0, L"idle"}});
        SetBandwidths({L"20 MHz", L"80 MHz"});
        SetPowers({L"high", L"low"});
    }
    /// Keys in the order in which the nodes came.
    Lines Keys() {
        Lines keys;
        for (const TreeNode node : tree.Nodes()) {
            keys.push_back(tree.Key(node));
        }
        return keys;
    }
};

TEST_F(MatrixNodes, BothHeadsOfTheTestModeComeBeforeWhatIsBelowThem) {
    SetInfluence(false, true, true);
    SetRows({{-1, 0, 0},
             {0, 0, 0},
             {-1, 0, 1},
             {0, 0, 1},
             {-1, 1, 0},
             {0, 1, 0},
             {-1, 1, 1},
             {0, 1, 1}});

    OpenMode(0);

    EXPECT_EQ(Keys(), (Lines{L"TST0_-1_-1", L"TST-1_-1_-1", L"TST-1_0_-1", L"STE1", L"STE3",
                             L"TST-1_1_-1", L"STE5", L"STE7", L"TST0_0_-1", L"STE0", L"STE2",
                             L"TST0_1_-1", L"STE4", L"STE6"}));
}

TEST_F(MatrixNodes, BothLeavesOfTheTestModeComeWithTheTestModeFirst) {
    SetRows({{-1, -1, -1}, {0, -1, -1}});
    OpenMode(0);
    EXPECT_EQ(Keys(), (Lines{L"STE1", L"STE0"}));
}

TEST_F(MatrixNodes, LinesComeWhenAllNodesStand) {
    SetInfluence(true, true, false);
    SetRows({{0, 1, -1}, {0, 0, -1}});
    FillRow(0, {Camera});
    FillRow(1, {PathA});

    OpenMode(1);

    EXPECT_EQ(Keys(),
              (Lines{L"TST-1_0_-1", L"STE1", L"TST-1_1_-1", L"STE0", L"CHI0STE0", L"CHI0STE1"}));
}

TEST_F(MatrixNodes, DimensionWithoutEntriesHasNothingToSplit) {
    SetInfluence(true, true, true);
    State().VKSDUTBandwidthCount = 0;

    OpenMode(0);
    EXPECT_EQ(Keys(), Lines{L"TST0_-1_-1"});
    OpenMode(1);
    EXPECT_EQ(Keys(), Lines{});
    OpenMode(2);
    EXPECT_EQ(Keys(), (Lines{L"TST-1_-1_0", L"TST-1_-1_1"}));
}

TEST_F(MatrixNodes, CountsDecideAndNotTheBoundsOfTheTables) {
    SetInfluence(false, true, true);
    SetRows({{-1, 0, 0}});
    State().VKSDUTFreqCount = 0;
    State().VKSDUTBandwidthCount = 1;
    State().VKSDUTPowerCount = 1;

    OpenMode(0);

    EXPECT_EQ(Keys(), (Lines{L"TST-1_-1_-1", L"TST-1_0_-1", L"STE0"}));
}

}  // namespace
}  // namespace ace::test
