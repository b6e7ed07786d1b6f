#include <ace/execution/start_program.h>

#include "support/remote_fixture.h"

namespace ace::test {
namespace {

using sim::Press;
using ::testing::ElementsAre;

const String Started = L"SystemServices.WriteMacroSync(1, 14, \"STARTED\")";
const String Waiting =
    L"SystemServices.SetProgressText(\"Waiting for Macro synchronization completed\")";
const String NoProgress = L"SystemServices.SetProgressText(\"\")";
const String Configured = L"SystemServices.GetGlobalSettings()";
const String TimeOut = L"SettingsFile.GetLong(\"OtaMeasurements\", \"ActionSyncTimeout\", 180)";
const String Read = L"SystemServices.ReadMacroSync(14)";
const String Wait300 = L"Utilities.Wait(300)";
const String ProgramStatus = L"StatusDisplay.ShowStatus(\"Program\", false, false)";
const String NoneActive = L"Platform.ActivateProgram(-1)";

class StartRemoteProgram : public RoutineTest {
  protected:
    StartRemoteProgram() {
        record.Program = L"C:\\Tools\\exerciser.exe /can 1";
        record.ProgID = -1.0;
    }
    Boolean Start() { return modActions::StartRemoteProgram(context, record, ignoreAll); }
    void SetTimeOut(const String& seconds) {
        host->files[host->globalSettings][L"OtaMeasurements"] = {L"ActionSyncTimeout=" + seconds};
    }

    aceRemote record;
    const String start = L"Platform.StartProgram(\"C:\\Tools\\exerciser.exe /can 1\")";
};

TEST_F(StartRemoteProgram, AProgramIsStartedAndItsIdentifierKept) {
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(NoneActive, ProgramStatus, start, L"Platform.Yield()", StatusCleared));
    EXPECT_EQ(record.ProgID, 1000.0);
}

TEST_F(StartRemoteProgram, ARunningProgramIsActivatedNotStartedTwiceAndTheSyncWaitStillRuns) {
    Start();
    TakeCalls();
    record.WaitPrgSync = true;
    host->programs.macroSyncAnswers = {L"STARTED", L"COMPLETED"};
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(Started, L"Platform.ActivateProgram(1000)", Waiting, Configured,
                            TimeOut, Read, Wait300, Read, NoProgress, StatusCleared));
}

TEST_F(StartRemoteProgram, VariablesAreReplacedInTheCommandLineAlone) {
    record.Program = L"ctl --freq #FREQ#";
    record.vks.count = 1;
    record.vks.strSearch.Redim(0, 0);
    record.vks.strSearch[0] = L"#FREQ#";
    record.vks.valReplace.Redim(0, 0);
    record.vks.valReplace[0] = 2402000000.0;
    Start();
    EXPECT_EQ(TakeCalls()[2], L"Platform.StartProgram(\"ctl --freq 2402000000\")");
    EXPECT_EQ(record.Program, L"ctl --freq #FREQ#");
}

TEST_F(StartRemoteProgram, AFailedStartIsShownAndTheOldIdentifierKept) {
    host->programs.unstartable[record.Program] = 53;
    host->user.Expect({L"frmGpibError",
                       {Press(L"cmdStopTest")},
                       {{L"lblMessage", L"T(9328)"},
                        {L"txtError",
                         L"T(9329):\texerciser.exe /can 1\r\nT(9330)\tC:\\Tools\r\n"
                         L"T(9320)\t53\r\n\tthe program can't be started"}}});
    EXPECT_TRUE(Start());
    EXPECT_THAT(TakeCalls(), ElementsAre(NoneActive, ProgramStatus, start, L"Platform.Yield()",
                                         L"Form \"frmGpibError\"", StatusCleared));
    EXPECT_EQ(record.ProgID, -1.0);
}

TEST_F(StartRemoteProgram, AFailedStartOfASilencedActionAsksNobody) {
    host->programs.unstartable[record.Program] = 53;
    ignoreAll = true;
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(NoneActive, ProgramStatus, start, L"Platform.Yield()", StatusCleared));
}

TEST_F(StartRemoteProgram, IgnoreAllIsHandedBack) {
    host->programs.unstartable[record.Program] = 53;
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnoreAll"));
    EXPECT_FALSE(Start());
    EXPECT_TRUE(ignoreAll);
}

TEST_F(StartRemoteProgram, TheSyncWaitRunsAfterAFailedStartToo) {
    host->programs.unstartable[record.Program] = 53;
    record.WaitPrgSync = true;
    ignoreAll = true;
    SetTimeOut(L"0");
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(Started, NoneActive, ProgramStatus, start, L"Platform.Yield()", Waiting,
                            Configured, TimeOut, Read, Wait300, NoProgress, StatusCleared));
}

/// A later error of any statement counts as a failed start, here that of the message queue.
TEST_F(StartRemoteProgram, AnyLaterErrorCountsAsAFailedStart) {
    for (const wchar_t* call : {L"StatusDisplay.ShowStatus", L"Platform.Yield"}) {
        host->faults.Clear();
        host->faults.FailOperation(call, 1, 57);
        record.ProgID = -1.0;
        host->user.Expect(L"frmGpibError", Press(L"cmdStopTest"));
        EXPECT_TRUE(Start()) << call;
    }
}

/// The error of the activation takes the place of what failed before it.
TEST_F(StartRemoteProgram, AFailureBeforeTheActivationIsForgotten) {
    record.vks.count = 1;  // there are no variables
    record.WaitPrgSync = true;
    host->programs.macroSyncAnswers = {L"COMPLETED"};
    host->faults.FailOperation(L"SystemServices.WriteMacroSync", 1, 57);
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(), ElementsAre(Started + L" -> error 57", NoneActive, ProgramStatus,
                                         start, L"Platform.Yield()", Waiting, Configured, TimeOut,
                                         Read, NoProgress, StatusCleared));
}

/// An activation that fails otherwise than by 5 counts as a failed start, whatever starts.
TEST_F(StartRemoteProgram, AnotherErrorOfTheActivationCountsAsAFailedStart) {
    host->faults.FailOperation(L"Platform.ActivateProgram", 1, 57);
    host->user.Expect(L"frmGpibError", Press(L"cmdStopTest"));
    EXPECT_TRUE(Start());
    EXPECT_EQ(record.ProgID, 1000.0);
    EXPECT_THAT(TakeCalls(),
                ElementsAre(NoneActive + L" -> error 57", ProgramStatus, start, L"Platform.Yield()",
                            L"Form \"frmGpibError\"", StatusCleared));
}

/// 5 is taken for the error of the activation; the old identifier then stands for a program.
TEST_F(StartRemoteProgram, AStartThatFailsWith5GoesUnnoticed) {
    host->programs.unstartable[record.Program] = 5;
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(NoneActive, ProgramStatus, start, L"Platform.Yield()", StatusCleared));
    EXPECT_EQ(record.ProgID, -1.0);
}

/// An action that runs at the yield may take the record, for instance one with no program at all.
TEST_F(StartRemoteProgram, TheWaitGoesByTheAnswerOfTheStartWhateverTheRecordHasMeanwhile) {
    host->onYield = [&](std::size_t) { record.ProgID = 0.0; };  // from inside
    host->faults.FailOperation(L"Utilities.Wait", 1, 57);       // so that a wrong wait ends
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(NoneActive, ProgramStatus, start, L"Platform.Yield()", StatusCleared));
}

TEST_F(StartRemoteProgram, TheIdentifierOfAnotherActionDoesNotEndTheWait) {
    host->programs.identifiers[record.Program] = 0.0;
    host->onYield = [&](std::size_t) { record.ProgID = 7.0; };  // from inside
    host->faults.FailOperation(L"Utilities.Wait", 2, 57);       // the only way out
    ignoreAll = true;
    EXPECT_FALSE(Start());
    const String yield = L"Platform.Yield()";
    const String wait = L"Utilities.Wait(50)";
    EXPECT_THAT(TakeCalls(), ElementsAre(NoneActive, ProgramStatus, start, yield, wait, yield,
                                         wait + L" -> error 57", yield, StatusCleared));
}

TEST_F(StartRemoteProgram, AnIdentifierOf0WithError5StandingKeepsLoopingInStepsOf50Milliseconds) {
    host->programs.identifiers[record.Program] = 0.0;
    host->faults.FailOperation(L"Utilities.Wait", 3, 57);  // the only way out of this loop
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Start());
    const String yield = L"Platform.Yield()";
    const String wait = L"Utilities.Wait(50)";
    EXPECT_THAT(TakeCalls(), ElementsAre(NoneActive, ProgramStatus, start, yield, wait, yield, wait,
                                         yield, wait + L" -> error 57", yield,
                                         L"Form \"frmGpibError\"", StatusCleared));
}

TEST_F(StartRemoteProgram, ATimeOutOf0MakesOneReadAndOneWait) {
    record.WaitPrgSync = true;
    SetTimeOut(L"0");
    Start();
    EXPECT_THAT(TakeCalls(),
                ElementsAre(Started, NoneActive, ProgramStatus, start, L"Platform.Yield()", Waiting,
                            Configured, TimeOut, Read, Wait300, NoProgress, StatusCleared));
}

/// 1 second is 1000 / 300 = 3.33 rounds, so 3; the time-out passes in silence.
TEST_F(StartRemoteProgram, TheTimeOutGivesThatManyRoundsAndPassesInSilence) {
    record.WaitPrgSync = true;
    SetTimeOut(L"1");
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(),
                ElementsAre(Started, NoneActive, ProgramStatus, start, L"Platform.Yield()", Waiting,
                            Configured, TimeOut, Read, Wait300, Read, Wait300, Read, Wait300,
                            NoProgress, StatusCleared));
}

/// 180 seconds are 600 rounds of 300 milliseconds.
TEST_F(StartRemoteProgram, WithoutAKeyTheTimeOutIs180Seconds) {
    record.WaitPrgSync = true;
    Start();
    EXPECT_EQ(host->journal.LinesOf(L"SystemServices.ReadMacroSync").size(), 600U);
    EXPECT_EQ(host->Now(), 180000.0);
}

TEST_F(StartRemoteProgram, OnlyTheExactWordCompletes) {
    record.WaitPrgSync = true;
    SetTimeOut(L"1");
    host->programs.macroSyncAnswers = {L"Completed", L"COMPLETED ", L"COMPLETED"};
    Start();
    EXPECT_EQ(host->journal.LinesOf(L"SystemServices.ReadMacroSync").size(), 3U);
    EXPECT_EQ(host->journal.LinesOf(L"Utilities.Wait").size(), 2U);
}

TEST_F(StartRemoteProgram, WithoutAStatusLineTheProgramIsStartedAllTheSame) {
    context.StatusDisplay.reset();
    EXPECT_FALSE(Start());
    EXPECT_THAT(TakeCalls(), ElementsAre(NoneActive, start, L"Platform.Yield()"));
    EXPECT_EQ(record.ProgID, 1000.0);
}

TEST_F(StartRemoteProgram, AHostWithoutServicesStillEndsTheWait) {
    record.WaitPrgSync = true;
    ignoreAll = true;
    host->faults.FailOperation(L"SystemServices", 1, 57, sim::FaultScript::Until::ForEver);
    EXPECT_FALSE(Start());
    EXPECT_EQ(TakeCalls().back(), StatusCleared);
}

}  // namespace
}  // namespace ace::test
