#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

class MatrixTablesTest : public MatrixTest {};

// ---- frequencies ---------------------------------------------------------------------------

TEST_F(MatrixTablesTest, FrequencyIsAddedBehindTheOthers) {
    AddFrequencies({2400, 900});

    EXPECT_EQ(Frequencies(), (std::vector<double>{2400, 900}));
    EXPECT_EQ(FrequencyNames(), (Lines{L"2400", L"900"}));
}

TEST_F(MatrixTablesTest, KnownFrequencyIsOnlyRenamedAndTheRebuildChangesNothing) {
    AddFrequencies({2400, 5000});
    engine->SetVKSDUTInfluence(1, 0, 0);
    Mark(L"AB");

    engine->AddVKSDUTFreq(L"channel 1", 2400);

    EXPECT_EQ(FrequencyNames(), (Lines{L"channel 1", L"5000"}));
    EXPECT_EQ(Rows(), (Lines{L"2400_-1_-1 A", L"5000_-1_-1 B"}));
}

TEST_F(MatrixTablesTest, KnownFrequencyRebuildsRowsThatAreNotInStepWithTheTables) {
    AddFrequencies({2400});
    engine->SetVKSDUTInfluence(1, 0, 0);
    HaveRows({{-1, -1, -1}});
    Mark(L"A");

    engine->AddVKSDUTFreq(L"channel 1", 2400);

    EXPECT_EQ(Rows(), (Lines{L"2400_-1_-1 ."}));
}

TEST_F(MatrixTablesTest, FrequenciesAreComparedExactly) {
    AddFrequencies({2.4e9});
    engine->AddVKSDUTFreq(L"near", 2.4e9 + 0.000001);

    EXPECT_EQ(State().VKSDUTFreqCount, 2);
}

TEST_F(MatrixTablesTest, DeletedFrequencyTakesItsRowsAlong) {
    AddFrequencies({2400, 5000, 900});
    AddPowers({L"low", L"high"});
    engine->SetVKSDUTInfluence(1, 0, 1);
    Mark(L"ABCDEF");

    engine->DeleteVKSDUTFreq(5000);

    EXPECT_EQ(Frequencies(), (std::vector<double>{2400, 900}));
    EXPECT_EQ(FrequencyNames(), (Lines{L"2400", L"900"}));
    EXPECT_EQ(Rows(), (Lines{L"2400_-1_0 A", L"2400_-1_1 B", L"900_-1_0 E", L"900_-1_1 F"}));
}

TEST_F(MatrixTablesTest, DeletedFrequencyLeavesItsLastNeighbourInTheSparePlace) {
    AddFrequencies({2400, 5000, 900});

    engine->DeleteVKSDUTFreq(2400);

    EXPECT_EQ(TextsOf(State().VKSDUTFreqNames), (Lines{L"5000", L"900", L"900"}));
    EXPECT_EQ(State().VKSDUTFreqs, ArrayOf<double>({5000, 900, 900}));
    engine->DeleteVKSDUTFreq(900);
    EXPECT_EQ(TextsOf(State().VKSDUTFreqNames), (Lines{L"5000", L"900"}));
}

TEST_F(MatrixTablesTest, UnknownFrequencyStillCostsTheRowsThatHaveIt) {
    HaveRows({{1234, -1, -1}, {-1, -1, -1}});
    Mark(L"AB");
    AddFrequencies({2400});

    engine->DeleteVKSDUTFreq(1234);

    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 B"});
    EXPECT_EQ(Frequencies(), std::vector<double>{2400});
}

TEST_F(MatrixTablesTest, FrequencyMinusOneDeletesEveryRowForAllFrequencies) {
    AddFrequencies({0});
    AddPowers({L"low", L"high"});
    engine->SetVKSDUTInfluence(0, 0, 1);
    Mark(L"ABCD");

    engine->DeleteVKSDUTFreq(-1.0);

    EXPECT_EQ(Rows(), (Lines{L"0_-1_0 B", L"0_-1_1 D"}));
    EXPECT_EQ(Frequencies(), std::vector<double>{0});
}

TEST_F(MatrixTablesTest, DeletingRebuildsNothingSoThatTheLastEntryLeavesNoRows) {
    AddFrequencies({2400});
    engine->SetVKSDUTInfluence(1, 0, 0);

    engine->DeleteVKSDUTFreq(2400);
    EXPECT_EQ(Rows(), Lines{});

    AddPowers({L"low"});
    EXPECT_EQ(Rows(), Lines{});
    engine->SetVKSDUTInfluence(0, 0, 0);
    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

// ---- bandwidths and powers: twins --------------------------------------------------------------

/// One of the two named dimensions.
struct TwinRow {
    const char* name;
    void (aceActionsEngine::*add)(const String&, std::int32_t);
    void (aceActionsEngine::*remove)(std::int32_t);
    DynArray<String> ModuleLists::*names;
    std::int32_t ModuleLists::*count;
    std::array<std::int32_t, 3> influence;
    bool isPower;
};
const TwinRow Twins[] = {
    {"Bandwidth",
     &aceActionsEngine::AddVKSDUTBandwidthID,
     &aceActionsEngine::DeleteVKSDUTBandwidthID,
     &ModuleLists::VKSDUTBandwidthNames,
     &ModuleLists::VKSDUTBandwidthCount,
     {0, 1, 0},
     false},
    {"Power",
     &aceActionsEngine::AddVKSDUTPowerID,
     &aceActionsEngine::DeleteVKSDUTPowerID,
     &ModuleLists::VKSDUTPowerNames,
     &ModuleLists::VKSDUTPowerCount,
     {0, 0, 1},
     true},
};

class TwinTest : public MatrixTest, public ::testing::WithParamInterface<TwinRow> {
  protected:
    void Add(const String& name, std::int32_t id = -1) {
        (engine.get()->*GetParam().add)(name, id);
    }
    void Remove(std::int32_t id) { (engine.get()->*GetParam().remove)(id); }
    void Influence() {
        const auto& flags = GetParam().influence;
        engine->SetVKSDUTInfluence(flags[0], flags[1], flags[2]);
    }
    Lines Names() { return First(State().*GetParam().names, State().*GetParam().count); }
    /// The row of an id, with its letter.
    static String Row(std::int32_t id, wchar_t letter) {
        return (GetParam().isPower ? KeyText(-1, -1, id) : KeyText(-1, id, -1)) + L" " + letter;
    }
};

INSTANTIATE_TEST_SUITE_P(Dimensions, TwinTest, ::testing::ValuesIn(Twins),
                         [](const auto& row) { return row.param.name; });

TEST_P(TwinTest, NameWithoutAnIdIsAppended) {
    Add(L"first");
    Add(L"second");
    Influence();

    EXPECT_EQ(Names(), (Lines{L"first", L"second"}));
    EXPECT_EQ(Rows(), (Lines{Row(0, L'.'), Row(1, L'.')}));
}

TEST_P(TwinTest, SameNameTwiceHasTwoIds) {
    Add(L"same");
    Add(L"same");

    EXPECT_EQ(Names(), (Lines{L"same", L"same"}));
}

TEST_P(TwinTest, IdFarAboveTheCountAppendsAtTheNextIndex) {
    Add(L"first");
    Influence();

    Add(L"second", 7);

    EXPECT_EQ(Names(), (Lines{L"first", L"second"}));
    EXPECT_EQ(Rows(), (Lines{Row(0, L'.'), Row(1, L'.')}));
}

TEST_P(TwinTest, IdBehindTheLastAppends) {
    Add(L"first", 0);
    Add(L"second", 1);

    EXPECT_EQ(Names(), (Lines{L"first", L"second"}));
}

TEST_P(TwinTest, IdInTheTableIsRenamedAndTheRebuildChangesNothing) {
    Add(L"first");
    Add(L"second");
    Influence();
    Mark(L"AB");

    Add(L"renamed", 0);

    EXPECT_EQ(Names(), (Lines{L"renamed", L"second"}));
    EXPECT_EQ(Rows(), (Lines{Row(0, L'A'), Row(1, L'B')}));
}

TEST_P(TwinTest, AnyOtherNegativeIdChangesNoNameButTheRebuildRuns) {
    Add(L"nothing", -2);

    EXPECT_EQ(State().*GetParam().count, 0);
    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

TEST_P(TwinTest, DeletedIdTakesItsRowsAlongAndHigherIdsMoveDown) {
    Add(L"zero");
    Add(L"one");
    Add(L"two");
    Influence();
    Mark(L"ABC");

    Remove(1);

    EXPECT_EQ(Names(), (Lines{L"zero", L"two"}));
    EXPECT_EQ(Rows(), (Lines{Row(0, L'A'), Row(1, L'C')}));
    EXPECT_EQ(TextsOf(State().*GetParam().names), (Lines{L"zero", L"two", L"two"}));
}

TEST_P(TwinTest, RowForAllStaysWhenAnIdIsDeleted) {
    Add(L"zero");
    Add(L"one");
    Mark(L"A");

    Remove(0);

    EXPECT_EQ(Names(), Lines{L"one"});
    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 A"});
}

TEST_P(TwinTest, IdBeyondTheTableDropsTheLastNameAndLeavesTheRows) {
    Add(L"zero");
    Add(L"one");
    Influence();
    Mark(L"AB");

    Remove(5);

    EXPECT_EQ(Names(), Lines{L"zero"});
    EXPECT_EQ(Rows(), (Lines{Row(0, L'A'), Row(1, L'B')}));
}

TEST_P(TwinTest, NegativeIdIsErrorNineOnATableWithEntries) {
    Add(L"zero");
    TakeEffects();

    EXPECT_EQ(ErrorOf([&] { Remove(-2); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
    EXPECT_EQ(Names(), Lines{L"zero"});
    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

TEST_P(TwinTest, IdMinusOneDeletesTheRowsForAllBeforeItFails) {
    Add(L"zero");

    EXPECT_EQ(ErrorOf([&] { Remove(-1); }), 9);

    EXPECT_EQ(Rows(), Lines{});
}

TEST_P(TwinTest, IdMinusOneOnAnEmptyTableOnlyDeletesTheRowsForAll) {
    AddFrequencies({2400});

    Remove(-1);

    EXPECT_EQ(Rows(), Lines{});
    EXPECT_EQ(State().*GetParam().count, 0);
}

TEST_P(TwinTest, DeletionOfTheOnlyIdLeavesNoRowsUntilTheFlagGoesBack) {
    Add(L"zero");
    Influence();

    Remove(0);
    EXPECT_EQ(Rows(), Lines{});

    engine->SetVKSDUTInfluence(0, 0, 0);
    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 ."});
}

// ---- all of it -----------------------------------------------------------------------------

TEST_F(MatrixTablesTest, DeleteAllEmptiesTheTablesAndTheirRows) {
    AddFrequencies({0, 2400});
    AddBandwidths({L"10", L"20"});
    AddPowers({L"low", L"high"});
    engine->SetVKSDUTInfluence(1, 1, 1);

    engine->DeleteVKSDUTAll();

    EXPECT_EQ(State().VKSDUTFreqCount, 0);
    EXPECT_EQ(State().VKSDUTBandwidthCount, 0);
    EXPECT_EQ(State().VKSDUTPowerCount, 0);
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(MatrixTablesTest, DeleteAllLeavesTheRowForEverythingWithItsActions) {
    AddFrequencies({0, 2400});
    AddBandwidths({L"10"});
    AddPowers({L"low"});
    Mark(L"AB");

    engine->DeleteVKSDUTAll();

    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 A"});
}

TEST_F(MatrixTablesTest, DeleteAllOnAnEmptyMatrixDoesNothing) {
    engine->DeleteVKSDUTAll();

    EXPECT_EQ(TakeEffects(), Lines{});
    EXPECT_EQ(State().VKSStepCount, 0);
    EXPECT_FALSE(State().VKSSteps.IsAllocated());
}

TEST_F(MatrixTablesTest, DeleteAllTakesThePowersThenTheBandwidthsThenTheFrequencies) {
    AddPowers({L"low", L"high"});
    AddBandwidths({L"10"});
    AddFrequencies({5000});
    host->tracing = true;

    engine->DeleteVKSDUTAll();

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"DeleteVKSDUTAll", L""),
                      Start(EngineModule, L"DeleteVKSDUTPowerID", L""), End(L"DeleteVKSDUTPowerID"),
                      Start(EngineModule, L"DeleteVKSDUTPowerID", L""), End(L"DeleteVKSDUTPowerID"),
                      Start(EngineModule, L"DeleteVKSDUTBandwidthID", L"BandwidthID = 0"),
                      End(L"DeleteVKSDUTBandwidthID"),
                      Start(EngineModule, L"DeleteVKSDUTFreq", L"Freq = 5000"),
                      End(L"DeleteVKSDUTFreq"), End(L"DeleteVKSDUTAll")));
}

}  // namespace
}  // namespace ace::test
