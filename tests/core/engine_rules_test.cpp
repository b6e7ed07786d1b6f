/// Rules of records and object that only a run, a load or a save shows.
#include <string>
#include <vector>

#include <ace/core/actions_engine.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EngineRules : public HostTest {
  protected:
    void Load(const String& text, std::int32_t subranges, aceModul moduleKind) {
        host->files[L"test.ini"] = sim::ParseSections(text);
        engine.LoadActions(L"test.ini", subranges, moduleKind);
    }
    aceActionsEngine engine{context};
    EngineState& state = engine.State();
};

struct ModulTest : EngineRules, ::testing::WithParamInterface<std::int32_t> {
    void SetUp() override { state.Modul = static_cast<aceModul>(GetParam()); }
};
INSTANTIATE_TEST_SUITE_P(Modules, ModulTest, ::testing::Range(0, 9));

TEST_P(ModulTest, AListWhoseCountIs0HasNoArrayAndItsWalkDoesNothingAndReturnsFalse) {
    host->journal.Clear();
    EXPECT_FALSE(engine.StartTest());
    EXPECT_FALSE(engine.StopTest());
    EXPECT_THAT(host->journal.Effects(), IsEmpty());
}

TEST_P(ModulTest, AWalkTestsTheCountAndNeverTheBounds) {
    for (const FixedSet& fixed : FindModule(GetParam())->AllFixed()) {
        for (const ListFields& list : ActionLists) {
            Fill(state.*fixed.set, list, {Action(atTestStop)});
            state.*fixed.set.*list.count = 0;
        }
    }
    host->journal.Clear();
    EXPECT_FALSE(engine.StartTest());
    EXPECT_FALSE(engine.StopTest());
    EXPECT_THAT(host->journal.Effects(), IsEmpty());
}

TEST_F(EngineRules, AnActionOfAKindWithoutParameterKeepsItEmptyThroughItsRun) {
    for (const p_ActionTypes kind :
         {atTestStop, atGotoSingle, atStopLevSweep, atNbBbEtsi, atParkAcc}) {
        Fill(state.MainTest, EnterList, {Action(kind)});
        EXPECT_EQ(ErrorOf([&] { engine.StartTest(); }), 0);
        EXPECT_TRUE(std::holds_alternative<std::monostate>(state.MainTest.Enter[0].Parameter));
    }
}

TEST_F(EngineRules, AnActionOfAKindWithoutParameterKeepsItEmptyFromTheFile) {
    Load(
        L"[ActionsOnTest]\n"
        L"NumOfEnterActions=6\n"
        L"EnterAction1=PROTREC:\n"
        L"EnterAction2=STOP:\n"
        L"EnterAction3=GOTOSGL:\n"
        L"EnterAction4=STPLEV:\n"
        L"EnterAction5=NBBETSI:\n"
        L"EnterAction6=PARKACC:\n",
        0, aceTemplate);
    ASSERT_EQ(state.MainTest.EnterCount, 6);
    for (std::int32_t i = 0; i < 6; ++i) {
        EXPECT_TRUE(std::holds_alternative<std::monostate>(state.MainTest.Enter[i].Parameter));
    }
}

TEST_F(EngineRules, UtilCountStaysZeroThroughLoadRunAndSave) {
    Load(
        L"[ActionsOnTest]\nNumOfEnterActions=1\nEnterAction1=WAIT:1.000\n"
        L"[ActionsOnSR1]\nNumOfLeaveActions=1\nLeaveAction1=WAIT:1.000\n",
        1, aceTemplate);
    engine.StartTest();
    engine.EnterSubrange(1);
    engine.NewFrequency(30e6, false);
    engine.LeaveSubrange(1);
    engine.StopTest();
    engine.SaveActions(L"test.ini");
    for (const p_Subrange* lists : {&state.MainTest, &state.MainSubranges[0]}) {
        EXPECT_EQ(lists->UtilCount, 0);
        EXPECT_FALSE(lists->Util.IsAllocated());
    }
    EXPECT_EQ(state.MainTest.EnterCount, 1);
    EXPECT_EQ(state.MainSubranges[0].LeaveCount, 1);
}

TEST_F(EngineRules, ACommentReadFromAFileHasNoMessageNoSoundAndNoBeep) {
    host->usableFiles = {L"ding.wav"};
    Load(
        L"[ActionsOnTest]\n"
        L"NumOfEnterActions=3\n"
        L"EnterAction1=NOTIFY:hello,ding.wav,1\n"
        L"EnterAction2=COMMENT:1\n"
        L"EnterAction3=NOTIFY:world,dong.wav,1\n",
        0, aceTemplate);
    const aceNotify& comment = RecordOf<aceNotify>(state.MainTest.Enter[1]);
    EXPECT_EQ(state.MainTest.Enter[1].ActionType, atComment);
    EXPECT_EQ(comment.Message, L"");
    EXPECT_EQ(comment.WaveFile, L"");
    EXPECT_FALSE(comment.Beep);
    EXPECT_TRUE(comment.GeneratorOff);
}

TEST_F(EngineRules, IgnoreErrOfAFreshlyLoadedActionIsFalse) {
    const String file =
        L"[ActionsOnTest]\nNumOfEnterActions=1\nEnterAction1=REMOTE:*RST,0,20,0,,0,\n";
    Load(file, 0, aceTemplate);
    state.MainTest.Enter[0].IgnoreErr = true;
    engine.SaveActions(L"test.ini");
    engine.LoadActions(L"test.ini", 0, aceTemplate);
    ASSERT_EQ(state.MainTest.EnterCount, 1);
    EXPECT_EQ(state.MainTest.Enter[0].ActionType, atRemote);
    EXPECT_FALSE(state.MainTest.Enter[0].IgnoreErr);
}

TEST_F(EngineRules, ANewLoadDropsTheRunTimeFieldsOfTheListsBefore) {
    Load(L"[ActionsOnTest]\nNumOfEnterActions=1\nEnterAction1=REMOTE:*RST,0,20,0,,0,\n", 0,
         aceTemplate);
    RecordOf<aceRemote>(state.MainTest.Enter[0]).DrvHdl = 5;
    engine.SaveActions(L"test.ini");
    host->journal.Clear();
    engine.LoadActions(L"test.ini", 0, aceTemplate);
    EXPECT_EQ(RecordOf<aceRemote>(state.MainTest.Enter[0]).DrvHdl, -1);
    EXPECT_THAT(host->journal.LinesOf(L"GpibDriver"), IsEmpty());
}

TEST_F(EngineRules, LastFrequencyIsMinusOneAfterStartTestSoThatTheFirstNewFrequencyRuns) {
    Fill(state.MainTest, FreqList, {Action(atWait, aceWait{0.0})});
    engine.StartTest();
    EXPECT_EQ(state.LastFrequency, -1.0);
    host->journal.Clear();
    engine.NewFrequency(30e6, false);
    EXPECT_EQ(host->journal.LinesOf(L"Platform.Yield").empty(), false);
    EXPECT_EQ(state.LastFrequency, 30e6);
}

TEST_F(EngineRules, AFirstFrequencyOfMinusOneIsNoNewOne) {
    Fill(state.MainTest, FreqList, {Action(atWait, aceWait{0.0})});
    engine.StartTest();
    host->journal.Clear();
    EXPECT_FALSE(engine.NewFrequency(-1.0, false));
    EXPECT_THAT(host->journal.LinesOf(L"Platform.Yield"), IsEmpty());
}

TEST_F(EngineRules, OperationsWithoutTraceLinesPassErrorsOnAsTheyCame) {
    Fill(state.MainTest, EnterList, {Action(atTestStop)});
    host->tracing = true;
    host->faults.FailOperation(L"Platform.Yield", 1, 57);
    try {
        engine.StartTest();
        ADD_FAILURE() << "no error came out";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 57);
        EXPECT_EQ(error.Source(), L"SimHost");
    }
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog"), IsEmpty());
}

TEST_F(EngineRules, StepNumberAndTestNumberAnswer0OnAnErrorAndReportNothing) {
    for (std::int32_t moduleKind = -1; moduleKind <= 9; ++moduleKind) {
        state.Modul = static_cast<aceModul>(moduleKind);
        EXPECT_EQ(engine.StepNumber(), 0);
        EXPECT_EQ(engine.TestNumber(), 0);
    }
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog"), IsEmpty());
}

TEST_F(EngineRules, ReportErrorAnswering5MakesTheFailingStatementOfAnOperationRunAgain) {
    state.EMSAutoSteps.Redim(0, 0);
    Fill(state.EMSAutoSteps[0], EnterList, {Action(atTestStop)});
    host->faults.FailOperation(L"Platform.Yield", 1, 57);
    host->faults.FailOperation(L"Platform.Yield", 2, 58);
    host->reportAnswers = {5, 5};
    EXPECT_TRUE(engine.EnterStep(1));
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"),
                ElementsAre(LR"(TraceLog.ReportError(57, "scripted failure", 1))",
                            LR"(TraceLog.ReportError(58, "scripted failure", 1))"));
}

}  // namespace
}  // namespace ace::test
