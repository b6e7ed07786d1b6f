#include <limits>

#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

class DutMatrixTest : public MatrixTest {};

// ---- which rows there are ----------------------------------------------------------------------

TEST_F(DutMatrixTest, WithoutInfluenceThereIsTheRowForEverything) {
    AddFrequencies({2400, 5000});
    AddBandwidths({L"20 MHz", L"40 MHz"});
    AddPowers({L"low"});

    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

TEST_F(DutMatrixTest, WithoutInfluenceTheTestModeHasARowBesideIt) {
    AddFrequencies({2400, 0});
    AddBandwidths({L"20 MHz"});

    EXPECT_EQ(Rows(), (Lines{L"-1_-1_-1 .", L"0_-1_-1 ."}));
}

TEST_F(DutMatrixTest, TestModeHasARowOnlyUnderTemplateNumberZero) {
    for (const std::int32_t number : {1, 2, 3, -1}) {
        State().VKSDUTTemplate = number;
        AddFrequencies({0});
        EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."}) << number;
    }
}

TEST_F(DutMatrixTest, FrequencyIsTheOutermostAndPowerTheInnermostDimension) {
    AddFrequencies({2400, 5000});
    AddBandwidths({L"20 MHz", L"40 MHz"});
    AddPowers({L"low", L"high"});

    engine->SetVKSDUTInfluence(1, 1, 1);

    EXPECT_EQ(Rows(), (Lines{L"2400_0_0 .", L"2400_0_1 .", L"2400_1_0 .", L"2400_1_1 .",
                             L"5000_0_0 .", L"5000_0_1 .", L"5000_1_0 .", L"5000_1_1 ."}));
}

TEST_F(DutMatrixTest, TestModeRowsStandDirectlyBehindTheirRowForAllFrequencies) {
    AddFrequencies({0, 2400});
    AddBandwidths({L"20 MHz", L"40 MHz"});
    AddPowers({L"low", L"high"});

    engine->SetVKSDUTInfluence(0, 1, 1);

    EXPECT_EQ(Rows(), (Lines{L"-1_0_0 .", L"0_0_0 .", L"-1_0_1 .", L"0_0_1 .", L"-1_1_0 .",
                             L"0_1_0 .", L"-1_1_1 .", L"0_1_1 ."}));
}

TEST_F(DutMatrixTest, WithInfluenceTheTestModeIsAFrequencyLikeAnyOther) {
    AddFrequencies({2400, 0});

    engine->SetVKSDUTInfluence(1, 0, 0);

    EXPECT_EQ(Rows(), (Lines{L"0_-1_-1 .", L"2400_-1_-1 ."}));
}

TEST_F(DutMatrixTest, FlagWithAnEmptyTableLeavesNoRows) {
    AddFrequencies({2400});

    engine->SetVKSDUTInfluence(1, 1, 0);

    EXPECT_EQ(Rows(), Lines{});
    EXPECT_EQ(State().VKSStepCount, 0);
}

TEST_F(DutMatrixTest, FirstEntryOfTheEmptyTableBringsTheRows) {
    AddFrequencies({2400});
    engine->SetVKSDUTInfluence(1, 1, 0);

    AddBandwidths({L"20 MHz"});

    EXPECT_EQ(Rows(), Lines{L"2400_0_-1 ."});
}

// ---- what stays and what goes ------------------------------------------------------------------

TEST_F(DutMatrixTest, BandwidthThatGainsInfluenceReplacesEachRowByThreeEmptyOnes) {
    AddFrequencies({2400, 5000});
    AddBandwidths({L"10", L"20", L"40"});
    engine->SetVKSDUTInfluence(1, 0, 0);
    Mark(L"AB");

    engine->SetVKSDUTInfluence(1, 1, 0);

    EXPECT_EQ(Rows(), (Lines{L"2400_0_-1 .", L"2400_1_-1 .", L"2400_2_-1 .", L"5000_0_-1 .",
                             L"5000_1_-1 .", L"5000_2_-1 ."}));
}

TEST_F(DutMatrixTest, FlagThatGoesBackDeletesTheRowsOfItsIdsAndMakesTheRowForAllAnewAndEmpty) {
    AddPowers({L"low", L"high"});
    engine->SetVKSDUTInfluence(0, 0, 1);
    Mark(L"AB");

    engine->SetVKSDUTInfluence(0, 0, 0);

    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

TEST_F(DutMatrixTest, FrequencyThatGainsInfluenceKeepsTheListOfTheTestMode) {
    AddFrequencies({0, 2400});
    Mark(L"AB");
    ASSERT_EQ(Rows(), (Lines{L"-1_-1_-1 A", L"0_-1_-1 B"}));

    engine->SetVKSDUTInfluence(1, 0, 0);
    EXPECT_EQ(Rows(), (Lines{L"0_-1_-1 B", L"2400_-1_-1 ."}));

    engine->SetVKSDUTInfluence(0, 0, 0);
    EXPECT_EQ(Rows(), (Lines{L"0_-1_-1 B", L"-1_-1_-1 ."}));
}

TEST_F(DutMatrixTest, UnderAnotherTemplateNumberTheTestModeGoesLikeAnyFrequency) {
    State().VKSDUTTemplate = 2;
    AddFrequencies({0, 2400});
    engine->SetVKSDUTInfluence(1, 0, 0);
    Mark(L"AB");

    engine->SetVKSDUTInfluence(0, 0, 0);

    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

TEST_F(DutMatrixTest, RowOfAFrequencyThatTheHostNeverToldStaysBesideTheRowForAll) {
    HaveRows({{1234, -1, -1}});
    Mark(L"A");

    AddFrequencies({2400});

    EXPECT_EQ(Rows(), (Lines{L"1234_-1_-1 A", L"-1_-1_-1 ."}));
}

TEST_F(DutMatrixTest, RowsThatStayKeepTheirListsAndOrderAndNewOnesGoBehindThem) {
    AddFrequencies({2400});
    AddBandwidths({L"10"});
    engine->SetVKSDUTInfluence(1, 1, 0);
    AddBandwidths({L"20"});
    Mark(L"AB");

    AddFrequencies({5000});
    AddBandwidths({L"40"});

    EXPECT_EQ(Rows(), (Lines{L"2400_0_-1 A", L"2400_1_-1 B", L"5000_0_-1 .", L"5000_1_-1 .",
                             L"2400_2_-1 .", L"5000_2_-1 ."}));
}

TEST_F(DutMatrixTest, RebuildThatFindsEverythingInPlaceChangesNothing) {
    AddFrequencies({0, 2400});
    AddBandwidths({L"10", L"20"});
    AddPowers({L"low"});
    engine->SetVKSDUTInfluence(0, 1, 1);
    Mark(L"ABCD");
    const EngineState before = State();

    engine->SetVKSDUTInfluence(0, -7, 2);

    EXPECT_EQ(State().VKSSteps, before.VKSSteps);
    EXPECT_EQ(State().VKSDUTIds, before.VKSDUTIds);
    EXPECT_EQ(State().VKSStepCount, 4);
}

TEST_F(DutMatrixTest, AnyArgumentButZeroSetsAFlag) {
    engine->SetVKSDUTInfluence(-1, 0, 2);

    EXPECT_TRUE(engine->VKSInfByFreq());
    EXPECT_FALSE(engine->VKSInfByBandwidth());
    EXPECT_TRUE(engine->VKSInfByPower());
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(DutMatrixTest, TwoRowsOfTheSameKeyInAFileBothGo) {
    HaveRows({{-1, -1, -1}, {2400, -1, -1}, {-1, -1, -1}, {5000, -1, -1}});
    Mark(L"ABCD");

    engine->SetVKSDUTInfluence(1, 0, 0);

    EXPECT_EQ(Rows(), (Lines{L"2400_-1_-1 B", L"5000_-1_-1 D"}));
}

TEST_F(DutMatrixTest, NewRowIsEmptyAlsoWhereTheSpareOneHoldsTheListOfADeletedRow) {
    AddFrequencies({2400, 5000});
    engine->SetVKSDUTInfluence(1, 0, 0);
    Mark(L"AB");
    engine->DeleteVKSDUTFreq(5000);
    ASSERT_EQ(TextOf(State().VKSSteps[1]), L"B...");

    AddFrequencies({900});

    EXPECT_EQ(Rows(), (Lines{L"2400_-1_-1 A", L"900_-1_-1 ."}));
}

TEST_F(DutMatrixTest, ArraysHaveOneSpareElementBehindTheRows) {
    AddFrequencies({2400, 5000});
    engine->SetVKSDUTInfluence(1, 0, 0);

    EXPECT_EQ(State().VKSSteps.UpperBound(), 2);
    EXPECT_EQ(State().VKSDUTIds.RowUpperBound(), 2);
    EXPECT_EQ(State().VKSDUTIds.ColumnUpperBound(), 2);
    engine->DeleteVKSDUTFreq(2400);
    EXPECT_EQ(State().VKSSteps.UpperBound(), 1);
    EXPECT_EQ(State().VKSDUTIds.RowUpperBound(), 1);
}

TEST_F(DutMatrixTest, FrequencyThatIsNoNumberHasANewRowAtEachRebuildAndNeverLosesOne) {
    engine->SetVKSDUTInfluence(1, 0, 0);
    engine->AddVKSDUTFreq(L"none", std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(State().VKSStepCount, 1);

    engine->SetVKSDUTInfluence(1, 0, 0);
    EXPECT_EQ(State().VKSStepCount, 2);

    engine->DeleteVKSDUTBandwidthID(-1);
    EXPECT_EQ(State().VKSStepCount, 2);
}

// ---- errors and neighbours ---------------------------------------------------------------------

TEST_F(DutMatrixTest, RowsThatAreHeldAreErrorTenAndStay) {
    AddFrequencies({2400, 5000});
    engine->SetVKSDUTInfluence(1, 0, 0);
    Mark(L"AB");
    const DynArray<p_Subrange>::Hold hold(State().VKSSteps);

    EXPECT_EQ(ErrorOf([&] { engine->SetVKSDUTInfluence(0, 0, 0); }), 10);
    EXPECT_EQ(ErrorOf([&] { engine->DeleteVKSDUTFreq(2400); }), 10);

    EXPECT_EQ(Rows(), (Lines{L"2400_-1_-1 A", L"5000_-1_-1 B"}));
}

TEST_F(DutMatrixTest, RebuildSetsNoChangeFlagAndTellsNoEditor) {
    context.Editor = std::make_shared<FakeEditor>(*host);

    AddFrequencies({2400});
    engine->SetVKSDUTInfluence(1, 0, 0);
    engine->DeleteVKSDUTAll();

    EXPECT_FALSE(State().ChangeFlags[aceVKSDUT]);
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(DutMatrixTest, OperationsDoNotAskForTheModule) {
    State().Modul = aceAziChart;

    AddFrequencies({2400});

    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

}  // namespace
}  // namespace ace::test
