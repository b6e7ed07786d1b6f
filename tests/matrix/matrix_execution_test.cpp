#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

/// The three arguments of a matrix step, which the engine changes.
struct StepKey {
    double frequency;
    std::int32_t bandwidth;
    std::int32_t power;
    bool operator==(const StepKey&) const = default;
};
void PrintTo(const StepKey& key, std::ostream* out) {
    *out << key.frequency << "_" << key.bandwidth << "_" << key.power;
}

class MatrixExecutionTest : public MatrixTest {
  protected:
    /// Row k, from 0, of the given keys waits k + 1 milliseconds.
    void HaveWaitingRows(const std::vector<std::array<double, 3>>& keys) {
        HaveRows(keys);
        for (std::int32_t row = 0; row < State().VKSStepCount; ++row) {
            Fill(State().VKSSteps[row], EnterList, {WaitFor(row + 1)});
        }
    }
    void Influence(bool frequency, bool bandwidth, bool power) {
        State().VKSInfByFreq = frequency;
        State().VKSInfByBandwidth = bandwidth;
        State().VKSInfByPower = power;
    }
    Boolean Run(StepKey key) { return engine->VKSDUTStep(key.frequency, key.bandwidth, key.power); }
    std::int32_t CountOf(StepKey key) {
        return engine->VKSDUTStepActionCount(key.frequency, key.bandwidth, key.power);
    }
};

// ---- the key -------------------------------------------------------------------------------

TEST_F(MatrixExecutionTest, ArgumentsComeBackAsTheKeyThatWasLookedFor) {
    struct Row {
        std::array<bool, 3> influence;
        StepKey given;
        StepKey left;
    };
    const Row rows[] = {
        {{false, false, false}, {2.4e9, 1, 2}, {-1.0, -1, -1}},
        {{true, false, false}, {2.4e9, 1, 2}, {2.4e9, -1, -1}},
        {{false, true, false}, {2.4e9, 1, 2}, {-1.0, 1, -1}},
        {{false, false, true}, {2.4e9, 1, 2}, {-1.0, -1, 2}},
        {{true, true, true}, {2.4e9, 1, 2}, {2.4e9, 1, 2}},
        {{false, false, false}, {0.0, 1, 2}, {0.0, -1, -1}},
        {{true, false, true}, {0.0, 0, 0}, {0.0, -1, 0}},
        {{false, true, true}, {-1.0, -1, -1}, {-1.0, -1, -1}},
    };
    HaveWaitingRows({{-1, -1, -1}});
    for (const Row& row : rows) {
        Influence(row.influence[0], row.influence[1], row.influence[2]);
        StepKey key = row.given;
        engine->VKSDUTStep(key.frequency, key.bandwidth, key.power);
        EXPECT_EQ(key, row.left);
        key = row.given;
        engine->VKSDUTStepActionCount(key.frequency, key.bandwidth, key.power);
        EXPECT_EQ(key, row.left);
    }
}

TEST_F(MatrixExecutionTest, OtherModulesLeaveTheArgumentsAndDoNothing) {
    HaveWaitingRows({{-1, -1, -1}});
    for (const aceModul moduleKind : {aceVKSTemplate, aceTemplate}) {
        State().Modul = moduleKind;
        StepKey key{2.4e9, 1, 2};
        EXPECT_FALSE(engine->VKSDUTStep(key.frequency, key.bandwidth, key.power));
        EXPECT_EQ(engine->VKSDUTStepActionCount(key.frequency, key.bandwidth, key.power), 0);
        EXPECT_EQ(key, (StepKey{2.4e9, 1, 2}));
        EXPECT_EQ(TakeEffects(), Lines{});
    }
}

// ---- the row -------------------------------------------------------------------------------

TEST_F(MatrixExecutionTest, RowOfTheKeyRuns) {
    HaveWaitingRows({{-1, -1, -1}, {2400, 0, 1}, {2400, 1, 1}});
    Influence(true, true, true);

    EXPECT_FALSE(Run({2400, 1, 1}));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 2, 3), Yielded, Waited(3)));
}

TEST_F(MatrixExecutionTest, FirstOfTwoRowsWithTheKeyRuns) {
    HaveWaitingRows({{2400, -1, -1}, {2400, -1, -1}});
    Influence(true, false, false);

    EXPECT_FALSE(Run({2400, 7, 7}));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, Waited(1)));
}

TEST_F(MatrixExecutionTest, KeyWithoutARowFallsBackToTheRowForEverything) {
    HaveWaitingRows({{2400, 0, 0}, {-1, -1, -1}});
    Influence(true, true, true);

    for (const StepKey& key : {StepKey{2400, 0, 1}, StepKey{2400.000001, 0, 0}, StepKey{0, 0, 0}}) {
        EXPECT_FALSE(Run(key));
        EXPECT_EQ(TakeEffects(), Journal(InRange(0, 1, 2), Yielded, Waited(2)));
    }
}

TEST_F(MatrixExecutionTest, RowForPartOfEverythingIsNoFallBack) {
    HaveWaitingRows({{-1, 0, -1}, {2400, -1, -1}});
    Influence(true, true, false);

    EXPECT_FALSE(Run({2400, 0, 0}));

    EXPECT_EQ(TakeEffects(), Lines{InRange(0, -1, 2)});
}

TEST_F(MatrixExecutionTest, TestModeLooksForItsRowAndFallsBackToTheRowForEverything) {
    HaveWaitingRows({{-1, -1, -1}, {0, -1, -1}});

    EXPECT_FALSE(Run({0.0, 3, 3}));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 1, 2), Yielded, Waited(2)));

    State().VKSStepCount = 1;
    EXPECT_FALSE(Run({0.0, 3, 3}));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, Waited(1)));
}

TEST_F(MatrixExecutionTest, WithoutARowForTheKeyOrForEverythingNothingRuns) {
    HaveWaitingRows({{2400, -1, -1}});
    Influence(true, false, false);

    EXPECT_FALSE(Run({5000, 0, 0}));
    EXPECT_EQ(CountOf({5000, 0, 0}), 0);

    EXPECT_EQ(TakeEffects(), (Lines{InRange(0, -1, 1), InRange(0, -1, 1)}));
}

TEST_F(MatrixExecutionTest, SpareRowIsNotFound) {
    HaveWaitingRows({{2400, -1, -1}, {5000, -1, -1}});
    Influence(true, false, false);
    State().VKSStepCount = 1;

    EXPECT_EQ(CountOf({5000, 0, 0}), 0);
}

TEST_F(MatrixExecutionTest, RowsThatWereNeverMadeAreErrorNineWithoutAReport) {
    StepKey key{2400, 0, 0};

    EXPECT_EQ(ErrorOf([&] { engine->VKSDUTStep(key.frequency, key.bandwidth, key.power); }), 9);

    EXPECT_EQ(key, (StepKey{-1, -1, -1}));
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(MatrixExecutionTest, HostDecidesWhetherTheRowIsInRange) {
    HaveWaitingRows({{-1, -1, -1}});
    host->faults.FailOperation(L"Utilities.InRange", 1, 77);

    EXPECT_EQ(ErrorOf([&] { Run({2400, 0, 0}); }), 77);

    EXPECT_EQ(TakeEffects(), Lines{InRange(0, 0, 1) + L" -> error 77"});
}

TEST_F(MatrixExecutionTest, NumberOfActionsIsThatOfTheEnterList) {
    HaveRows({{-1, -1, -1}});
    Fill(State().VKSSteps[0], EnterList, {WaitFor(1), WaitFor(2), WaitFor(3)});
    Fill(State().VKSSteps[0], LeaveList, {WaitFor(4)});

    EXPECT_EQ(CountOf({2400, 0, 0}), 3);

    EXPECT_EQ(TakeEffects(), Lines{InRange(0, 0, 1)});
}

TEST_F(MatrixExecutionTest, AnswerOfTheRowIsTheFirstTrueResult) {
    HaveRows({{-1, -1, -1}});
    Fill(State().VKSSteps[0], EnterList, {Ask(L"Go on?"), WaitFor(1)});
    comments->answers = {true};

    EXPECT_TRUE(Run({2400, 0, 0}));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, Asked(L"Go on?")));
}

TEST_F(MatrixExecutionTest, ErrorOfAnActionReachesTheHost) {
    HaveRows({{-1, -1, -1}});
    Fill(State().VKSSteps[0], EnterList, {Broken()});

    EXPECT_EQ(ErrorOf([&] { Run({2400, 0, 0}); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, MismatchReported));
}

TEST_F(MatrixExecutionTest, MatrixCanNotBeRebuiltWhileARowRuns) {
    HaveWaitingRows({{-1, -1, -1}});
    std::int32_t number = 0;
    host->onTimedMessage = [&] {
        number = ErrorOf([&] { engine->AddVKSDUTFreq(L"test mode", 0.0); });
    };

    EXPECT_FALSE(Run({2400, 0, 0}));
    EXPECT_EQ(number, 10);
    EXPECT_EQ(Rows(), Lines{L"-1_-1_-1 A"});

    host->onTimedMessage = nullptr;
    engine->AddVKSDUTFreq(L"test mode", 0.0);
    EXPECT_EQ(Rows(), (Lines{L"-1_-1_-1 A", L"0_-1_-1 ."}));
}

// ---- around all rows -------------------------------------------------------------------------

TEST_F(MatrixExecutionTest, GlobalListsRunWhateverTheModuleIs) {
    Fill(State().VKSDUTGlob, EnterList, {WaitFor(1)});
    Fill(State().VKSDUTGlob, LeaveList, {WaitFor(2), Action(atTestStop), WaitFor(3)});
    for (const aceModul moduleKind : {aceVKSDUT, aceAziChart}) {
        State().Modul = moduleKind;
        EXPECT_FALSE(engine->VKSDUTStepGlobBefore());
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1)));
        EXPECT_TRUE(engine->VKSDUTStepGlobAfter());
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(2), Yielded));
    }
}

TEST_F(MatrixExecutionTest, GlobalListsAreCounted) {
    State().VKSDUTGlob.EnterCount = 32767;
    State().VKSDUTGlob.LeaveCount = 2;
    EXPECT_EQ(engine->VKSDUTStepGlobBeforeCount(), 32767);
    EXPECT_EQ(engine->VKSDUTStepGlobAfterCount(), 2);

    State().VKSDUTGlob.EnterCount = 32768;
    State().VKSDUTGlob.LeaveCount = 65538;
    EXPECT_EQ(ErrorOf([&] { engine->VKSDUTStepGlobBeforeCount(); }), 6);
    EXPECT_EQ(ErrorOf([&] { engine->VKSDUTStepGlobAfterCount(); }), 6);
    EXPECT_EQ(TakeEffects(), Lines{});
    State().VKSDUTGlob = {};
}

// ---- replace variables -------------------------------------------------------------------------

TEST_F(MatrixExecutionTest, PairsReachTheTextsOfTheRowInTheirOrder) {
    HaveRows({{-1, -1, -1}});
    Fill(State().VKSSteps[0], EnterList, {Ask(L"#FREQ# MHz, #POWER#, #BW#?")});
    comments->answers = {false};
    engine->SetVKSReplaceVar(ArrayOf<String>({L"#FREQ#", L"#POWER#", L"high"}),
                             ArrayOf<Value>({2412.5, String(L"high"), String(L"20 dBm")}));
    TakeEffects();

    EXPECT_FALSE(Run({2412.5e6, 0, 0}));

    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 1), Yielded, Asked(L"2412.5 MHz, 20 dBm, #BW#?")));
}

TEST_F(MatrixExecutionTest, PlaceholderReachesTheCommandOnTheBusAndNoOtherKindOfAction) {
    aceRemote record;
    record.Command = L"FREQ #FREQ#";
    record.GpibAddress = 5;
    Fill(State().VKSDUTGlob, EnterList, {Action(atRemote, record), Comment(false)});
    engine->SetVKSReplaceVar(ArrayOf<String>({L"#FREQ#"}), ArrayOf<Value>({2400}));

    EXPECT_TRUE(engine->VKSDUTStepGlobBefore());

    EXPECT_EQ(host->journal.LinesOf(L"GpibDriver.WriteString"),
              Lines{L"GpibDriver.WriteString(0, \"FREQ 2400\\n\")"});
    const aceRemote& kept = RecordOf<aceRemote>(State().VKSDUTGlob.Enter[0]);
    EXPECT_EQ(kept.DrvHdl, 0);
    EXPECT_EQ(kept.Command, L"FREQ #FREQ#");
    EXPECT_EQ(kept.vks, State().VKSReplaceVars);
    EXPECT_EQ(RecordOf<aceNotify>(State().VKSDUTGlob.Enter[1]).vks, aceVKSVar{});
}

TEST_F(MatrixExecutionTest, HandleOfTheBusDeviceOutlivesTheCopyOfThePairs) {
    aceRemote record;
    record.Command = L"*RST";
    record.GpibAddress = 5;
    Fill(State().VKSDUTGlob, EnterList, {Action(atRemote, record)});

    engine->VKSDUTStepGlobBefore();
    engine->VKSDUTStepGlobBefore();

    EXPECT_EQ(host->journal.LinesOf(L"GpibDriver.OpenDevice").size(), 1U);
    engine.reset();
}

TEST_F(MatrixExecutionTest, DeletedPairsLeaveTwoArraysOfOneElement) {
    engine->SetVKSReplaceVar(ArrayOf<String>({L"a", L"b"}), ArrayOf<Value>({1, 2}));

    engine->SetVKSReplaceVar(ArrayOf<String>({L"c", L"d", L"e"}), {}, true);

    const aceVKSVar& pairs = State().VKSReplaceVars;
    EXPECT_EQ(pairs.count, 0);
    EXPECT_EQ(TextsOf(pairs.strSearch), Lines{L""});
    EXPECT_EQ(pairs.valReplace, ArrayOf<Value>({Value{}}));
}

TEST_F(MatrixExecutionTest, NumberOfPairsIsThatOfThePlaceholdersAndTooFewValuesFailAtTheirUse) {
    engine->SetVKSReplaceVar(ArrayOf<String>({L"#BW#", L"#FREQ#"}),
                             ArrayOf<Value>({String(L"20")}));
    EXPECT_EQ(State().VKSReplaceVars.count, 2);
    HaveRows({{-1, -1, -1}});
    Fill(State().VKSSteps[0], EnterList, {Ask(L"#BW#?")});
    TakeEffects();

    EXPECT_EQ(ErrorOf([&] { Run({2400, 0, 0}); }), 9);

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, Yielded, SubscriptReported));
}

TEST_F(MatrixExecutionTest, PlaceholdersThatWereNeverMadeAreErrorNineWithTheArraysTaken) {
    engine->SetVKSReplaceVar(ArrayOf<String>({L"a"}), ArrayOf<Value>({1}));
    TakeEffects();

    EXPECT_EQ(ErrorOf([&] { engine->SetVKSReplaceVar({}, ArrayOf<Value>({2})); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
    EXPECT_EQ(State().VKSReplaceVars.count, 1);
    EXPECT_FALSE(State().VKSReplaceVars.strSearch.IsAllocated());
    EXPECT_EQ(State().VKSReplaceVars.valReplace, ArrayOf<Value>({2}));
}

TEST_F(MatrixExecutionTest, SetVKSReplaceVarTracesUnderAnotherName) {
    host->tracing = true;

    engine->SetVKSReplaceVar({}, {}, true);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineModule, L"SetVKSAPI", L""), End(L"SetVKSAPI")));
}

TEST_F(MatrixExecutionTest, LoadEndsTheUseOfThePairs) {
    for (const aceModul moduleKind : {aceVKSTemplate, aceVKSDUT}) {
        engine->SetVKSReplaceVar(ArrayOf<String>({L"a"}), ArrayOf<Value>({1}));
        host->files[L"file.ini"] = {};

        engine->LoadActions(L"file.ini", 1, moduleKind);

        EXPECT_EQ(State().VKSReplaceVars.count, 0);
    }
}

}  // namespace
}  // namespace ace::test
