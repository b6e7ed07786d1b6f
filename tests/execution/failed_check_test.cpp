/// What a check does about equipment that has failed.
#include "support/check_fixture.h"

namespace ace::test {
namespace {

using sim::Press;

class FailedCheck : public CheckTest {
  protected:
    /// The message names the device.
    static Lines Notified() { return {NameOf(L"EUT"), Shown(L"EUT has failed", false)}; }
};

// ---- the wait ----------------------------------------------------------------------------------

/// After the seconds 1, 2 and 3 the time is not above 3; after 4 it is.
TEST_F(FailedCheck, AWaitOf3SecondsWithASteadyFailureMakesFourRounds) {
    WaitFor(3.0F);
    Read({3.0, 3.0, 3.0, 3.0, 3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ShownSeconds(L"3"), Round(L"2"), Round(L"1"),
                                   Round(L"0"), Round(L"-1"), ProgressCleared));
    EXPECT_EQ(record.LastCheck, 36004.0F);
}

TEST_F(FailedCheck, WaitTime0MakesOneRound) {
    WaitFor(0.0F);
    Read({3.0, 3.0, 3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(),
              Journal(ReadCalls(3.0), ShownSeconds(L"0"), Round(L"-1"), ProgressCleared));
}

TEST_F(FailedCheck, TheWaitEndsWithTheFirstReadingOf0) {
    WaitFor(10.0F);
    Read({3.0, 3.0, 0.0});
    Check();
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ShownSeconds(L"10"), Round(L"9"), Round(L"8"),
                                   ProgressCleared));
}

/// 1.4, 0.4 and -0.6 seconds are left in the end of the rounds.
TEST_F(FailedCheck, TheSecondsLeftAreShownWithoutDecimals) {
    WaitFor(2.4F);
    Read({3.0, 3.0, 3.0, 3.0});
    Check();
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ShownSeconds(L"2"), Round(L"1"), Round(L"0"),
                                   Round(L"-1"), ProgressCleared));
}

TEST_F(FailedCheck, TheMarkOfAFailedReadIsAFailureLikeAnyOtherDuringTheWait) {
    WaitFor(1.0F);
    Read({3.0, 12345.0, 12345.0});
    Check();
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ShownSeconds(L"1"), Round(L"0"), Round(L"-1"),
                                   ProgressCleared));
    EXPECT_EQ(context.EutCheckRequest, 0);
}

TEST_F(FailedCheck, WithoutWaitStateThereIsNoWait) {
    record.WaitTime = 3.0F;
    Read({3.0});
    Check();
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ProgressCleared));
}

TEST_F(FailedCheck, AWaitOverMidnightLastsNoLonger) {
    WaitFor(3.0F);
    SetClock(86398.0);
    Read({3.0, 3.0, 3.0, 3.0, 3.0, 3.0, 3.0});
    Check();
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ShownSeconds(L"3"), Round(L"2"), Round(L"1"),
                                   Round(L"0"), Round(L"-1"), ProgressCleared));
    EXPECT_EQ(record.LastCheck, 2.0F);
}

TEST_F(FailedCheck, AReadingThatReturnsTo0CancelsNeitherNotificationCommentStopNorParking) {
    WaitFor(10.0F);
    record.Notify = record.CommToTable = record.StopTest = record.LoadingPos = true;
    comments->answers = {false};
    Read({3.0, 0.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ShownSeconds(L"10"), Round(L"9"), Notified(),
                                   ProgressCleared));
    EXPECT_EQ(context.EutCheckRequest, 1 + 128 + 4);
    EXPECT_EQ(context.EutCheckComment, L"T(9421)");
}

// ---- the notification --------------------------------------------------------------------------

TEST_F(FailedCheck, AStopOnTheMessageIsTheResultAndARequest) {
    record.Notify = true;
    comments->answers = {true};
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), Notified(), ProgressCleared));
    EXPECT_EQ(context.EutCheckRequest, 128);
    EXPECT_EQ(record.LastCheck, 36000.0F);
}

TEST_F(FailedCheck, AClosedMessageRequestsNothing) {
    record.Notify = true;
    comments->answers = {false};
    Read({3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(context.EutCheckRequest, 0);
}

TEST_F(FailedCheck, TheMessageFormIsMadeWhenThereIsNone) {
    record.Notify = true;
    context.CommentForm = nullptr;
    host->user.Expect(
        {L"frmComment", {Press(L"cmdStopTest")}, {{L"lblComment", L"EUT has failed"}}});
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_NE(context.CommentForm, nullptr);
}

class RenamedMonitor : public sim::SimMonitor {
  public:
    using SimMonitor::SimMonitor;
    String Name() override { return L"Camera in front"; }
};

TEST_F(FailedCheck, TheTextsNameTheDeviceAsItNamesItselfAndTheDialogAsTheActionDoes) {
    const auto renamed = Add<RenamedMonitor>(L"Cam1");
    renamed->readings[7] = {3.0, 3.0};
    record.DevName = L"Cam1";
    record.Notify = true;
    WaitFor(0.0F);
    comments->answers = {false};
    EXPECT_FALSE(Check());
    const Lines calls = TakeCalls();
    EXPECT_THAT(calls, ::testing::IsSupersetOf({Progress(L"Camera in front has failed - 0s"),
                                                Shown(L"Camera in front has failed", false)}));
    host->faults.FailOperation(L"MonitorDevice", 1, 77);
    ExpectError(L"cmdIgnore", L"T(9321)", L"Cam1", 77, L"scripted failure");
    EXPECT_FALSE(Check());
}

TEST_F(FailedCheck, EveryPlaceOfTheNameIsFilled) {
    host->texts[9420] = L"%1: see %1";
    record.Notify = true;
    comments->answers = {false};
    WaitFor(0.0F);
    Read({3.0, 0.0});
    Check();
    EXPECT_THAT(TakeCalls(), ::testing::IsSupersetOf(
                                 {Progress(L"EUT: see EUT - 0s"), Shown(L"EUT: see EUT", false)}));
}

// ---- comment, stop and parking -----------------------------------------------------------------

TEST_F(FailedCheck, ACommentIsStoredWithItsBit) {
    record.CommToTable = true;
    context.EutCheckComment = L"before";
    Read({3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ProgressCleared));
    EXPECT_EQ(context.EutCheckRequest, 1);
    EXPECT_EQ(context.EutCheckComment, L"T(9421)");
}

/// A stop from the message stands before the comment, so that the comment adds no bit.
TEST_F(FailedCheck, AStopOnTheMessageKeepsTheCommentWithoutItsBit) {
    record.Notify = record.CommToTable = true;
    comments->answers = {true};
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(context.EutCheckRequest, 128);
    EXPECT_EQ(context.EutCheckComment, L"T(9421)");
}

TEST_F(FailedCheck, ASecondCommentOverwritesTheFirstAndAddsItsBitOnlyIfNoneWasSet) {
    record.CommToTable = true;
    for (const std::int32_t before : {1, 2, 4, 128}) {
        context.EutCheckRequest = before;
        context.EutCheckComment = L"first";
        Read({3.0});
        EXPECT_FALSE(Check());
        EXPECT_EQ(context.EutCheckRequest, before);
        EXPECT_EQ(context.EutCheckComment, L"T(9421)");
    }
}

TEST_F(FailedCheck, ACheckThatStopsTheTestAddsItsBitBehindTheComment) {
    record.StopTest = true;
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(context.EutCheckRequest, 128);
    EXPECT_EQ(context.EutCheckComment, L"");
    context.EutCheckRequest = 0;
    record.CommToTable = true;
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(context.EutCheckRequest, 1 + 128);
}

TEST_F(FailedCheck, ParkingIsARequestAndNoStop) {
    record.LoadingPos = true;
    context.EutCheckRequest = 2;
    Read({3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(context.EutCheckRequest, 2 + 4);
}

// ---- failures on the way -----------------------------------------------------------------------

TEST_F(FailedCheck, AFailureDuringTheWaitLeavesTheBusyTextAndTheTimeOfTheCheck) {
    record.StopTest = record.LoadingPos = true;
    WaitFor(3.0F);
    Read({3.0, 3.0});
    host->faults.FailOperation(L"MonitorDevice.ReadChannel", 3, 77);
    ExpectError(L"cmdIgnore", L"T(9321)", L"EUT", 77, L"scripted failure");
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(),
              Journal(ReadCalls(3.0), ShownSeconds(L"3"), Round(L"2"), L"Utilities.Wait(1000)",
                      Failed(ChannelRead(L"EUT", 7), 77), ErrorShown()));
    EXPECT_EQ(record.LastCheck, 0.0F);
    EXPECT_EQ(context.EutCheckRequest, 0);
}

TEST_F(FailedCheck, AnAbortDuringTheWaitStopsWithoutADialogAlsoWhenSilenced) {
    WaitFor(3.0F);
    for (const std::int32_t error : {8202, 4202}) {
        for (const bool isSilenced : {false, true}) {
            ignoreAll = isSilenced;
            host->journal.Clear();
            host->faults.FailOperation(L"Utilities.Wait", 1, error);
            Read({3.0});
            EXPECT_TRUE(Check());
            EXPECT_EQ(TakeCalls().back(), Failed(L"Utilities.Wait(1000)", error));
            EXPECT_EQ(context.EutCheckRequest, 0);
            host->faults.Clear();
        }
    }
}

TEST_F(FailedCheck, AnAbortOutOfTheMessageStopsWithoutADialog) {
    record.Notify = true;
    host->faults.FailOperation(L"CommentForm", 1, 8202);
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(context.EutCheckRequest, 0);
}

/// The answer of the dialog replaces the stop that the check had asked for, the request stays.
TEST_F(FailedCheck, AFailureBehindTheStopLetsTheDialogDecide) {
    record.StopTest = true;
    host->faults.FailOperation(L"SystemServices.SetProgressText", 1, 77);
    ExpectError(L"cmdIgnore", L"T(9321)", L"EUT", 77, L"scripted failure");
    Read({3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(context.EutCheckRequest, 128);
    EXPECT_EQ(record.LastCheck, 0.0F);
}

TEST_F(FailedCheck, AFailureBehindTheStopOfASilencedActionStillStops) {
    record.StopTest = true;
    ignoreAll = true;
    host->faults.FailOperation(L"SystemServices.SetProgressText", 1, 77);
    Read({3.0});
    EXPECT_TRUE(Check());
}

}  // namespace
}  // namespace ace::test
