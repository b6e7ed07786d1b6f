#include "support/check_fixture.h"

namespace ace::test {
namespace {

class CheckDevice : public CheckTest {};

// ---- what passes -------------------------------------------------------------------------------

TEST_F(CheckDevice, AReadingOf0PassesAndSetsTheTimeOfTheCheck) {
    record.StopTest = record.Notify = record.CommToTable = record.LoadingPos = true;
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), ReadCalls(0.0));
    EXPECT_EQ(record.LastCheck, 36000.0F);
    EXPECT_EQ(context.EutCheckRequest, 0);
    EXPECT_EQ(context.EutCheckComment, L"");
    EXPECT_EQ(record.Device, monitor);
    EXPECT_EQ(record.MoniDev, monitor);
}

TEST_F(CheckDevice, TheDeviceIsNotLookedUpAgain) {
    Check();
    TakeCalls();
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), ReadCalls(0.0, false));
}

/// Nobody is told and nothing is asked for, but the busy text is cleared.
TEST_F(CheckDevice, ACheckWithAllFlagsOffOnlyUpdatesLastCheckAlthoughTheReadingIsNot0) {
    context.EutCheckRequest = 4;
    context.EutCheckComment = L"before";
    Read({3.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(ReadCalls(3.0), ProgressCleared));
    EXPECT_EQ(record.LastCheck, 36000.0F);
    EXPECT_EQ(context.EutCheckRequest, 4);
    EXPECT_EQ(context.EutCheckComment, L"before");
}

TEST_F(CheckDevice, ANegativeReadingIsAFailureToo) {
    record.StopTest = true;
    Read({-0.5});
    EXPECT_TRUE(Check());
}

TEST_F(CheckDevice, ADeviceThatWentOffBehindItsReadingPasses) {
    record.StopTest = record.Notify = record.CommToTable = record.LoadingPos = true;
    Read({3.0});
    host->journal.Observe([&](const sim::HostCall& call) {
        if (call.operation == L"MonitorDevice.ReadChannel") {
            monitor->state = 0;
        }
    });
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), ReadCalls(3.0));
    EXPECT_EQ(record.LastCheck, 36000.0F);
    EXPECT_EQ(context.EutCheckRequest, 0);
}

TEST_F(CheckDevice, AStateAbove1CountsAsOn) {
    record.StopTest = true;
    monitor->state = 2;
    Read({3.0});
    EXPECT_TRUE(Check());
}

// ---- the mark of a failed read -----------------------------------------------------------------

TEST_F(CheckDevice, TheReading12345PassesWithARequestToRepeatTheSubrange) {
    record.StopTest = record.Notify = record.CommToTable = record.WaitState = true;
    Read({12345.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), ReadCalls(12345.0));
    EXPECT_EQ(context.EutCheckRequest, 2);
    EXPECT_EQ(context.EutCheckComment, L"");
    EXPECT_EQ(record.LastCheck, 36000.0F);
}

TEST_F(CheckDevice, AFailedReadAtTheLoadingPositionAsksToParkAsWell) {
    record.LoadingPos = record.StopTest = true;
    context.EutCheckRequest = 1;
    Read({12345.0});
    EXPECT_FALSE(Check());
    EXPECT_EQ(context.EutCheckRequest, 1 + 2 + 4);
}

class TolerantUtilities : public DefaultUtilities {
  public:
    bool IsSameValue(double a, double b) override { return a - b < 1.0 && b - a < 1.0; }
};
class TolerantHost : public sim::SimHost {
  public:
    std::shared_ptr<IUtilities> MakeUtilities() override {
        return std::make_shared<TolerantUtilities>();
    }
};

/// The comparison is the host's; that with 0 is not.
TEST(TolerantHosts, AReadingBesideTheMarkIsAFailedReadAndOneBeside0IsNot0) {
    const auto host = std::make_shared<TolerantHost>();
    ThreadContext context{host};
    const auto monitor = host->bench.Add<sim::SimMonitor>(*host, L"EUT");
    monitor->readings[7] = {12345.5, 0.5};
    aceSetDevice record;
    record.DevName = L"EUT";
    record.ChanNo = 7;
    record.StopTest = true;
    Boolean ignoreAll;
    EXPECT_FALSE(modActions::SetCheckDevice(context, record, false, ignoreAll, 0));
    EXPECT_EQ(context.EutCheckRequest, 2);
    EXPECT_TRUE(modActions::SetCheckDevice(context, record, false, ignoreAll, 0));
    EXPECT_EQ(context.EutCheckRequest, 2 + 128);
}

// ---- the cycle ---------------------------------------------------------------------------------

TEST_F(CheckDevice, WithUseTimeCycFalseEveryCallReadsTheChannel) {
    record.CycleTime = 86400.0;
    for (const bool isFirst : {true, false, false}) {
        EXPECT_FALSE(Check());
        EXPECT_EQ(TakeCalls(), ReadCalls(0.0, isFirst));
    }
}

TEST_F(CheckDevice, WithinTheCycleTheDeviceIsFoundButNotReadAndLastCheckStays) {
    CheckEvery(10.0);
    record.LastCheck = 35995.0F;
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Skipped(true));
    EXPECT_EQ(record.LastCheck, 35995.0F);
    EXPECT_EQ(record.Device, monitor);
}

/// Also a device that is off is woken for a check that is not due, and one that stays off fails.
TEST_F(CheckDevice, WithinTheCycleADeviceThatStaysOffFails) {
    CheckEvery(10.0);
    record.LastCheck = 35995.0F;
    monitor->state = monitor->stateOnceActivated = 0;
    ExpectError(L"cmdStopTest", L"T(9321)", L"EUT", 4010, L"T(3350)");
    EXPECT_TRUE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), Woken(L"EUT"), ErrorShown()));
}

TEST_F(CheckDevice, TheLastSecondOfTheCycleStillSkipsAndTheNextMomentChecks) {
    CheckEvery(10.0);
    record.LastCheck = 35990.0F;
    Check();
    EXPECT_EQ(TakeCalls(), Skipped(true));
    SetClock(36000.5);
    Check();
    EXPECT_EQ(TakeCalls(), ReadCalls(0.0, false));
    EXPECT_EQ(record.LastCheck, 36000.5F);
}

TEST_F(CheckDevice, ACycleOf10SecondsThatRanAt235955RunsAgainRightAfterMidnight) {
    CheckEvery(10.0);
    SetClock(86395.0);
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), ReadCalls(0.0));
    EXPECT_EQ(record.LastCheck, 86395.0F);
    SetClock(86399.5);
    Check();
    EXPECT_EQ(TakeCalls(), Skipped(false));
    SetClock(0.5);
    Check();
    EXPECT_EQ(TakeCalls(), ReadCalls(0.0, false));
    EXPECT_EQ(record.LastCheck, 0.5F);
}

/// A record from a file was last checked one second before midnight's zero.
TEST_F(CheckDevice, AFirstCheckOfALoadedActionInTheFirstSecondsOfTheDayIsSkipped) {
    CheckEvery(10.0);
    record.LastCheck = -1.0F;
    SetClock(9.0);
    Check();
    EXPECT_EQ(TakeCalls(), Skipped(true));
    EXPECT_EQ(record.LastCheck, -1.0F);
    SetClock(9.5);
    Check();
    EXPECT_EQ(TakeCalls(), ReadCalls(0.0, false));
}

/// The clock is read again behind the work: two seconds of waiting are in it.
TEST_F(CheckDevice, TheCycleBeginsWhenTheWorkIsDone) {
    CheckEvery(10.0);
    WaitFor(10.0F);
    Read({3.0, 3.0});
    Check();
    EXPECT_EQ(record.LastCheck, 36002.0F);
    TakeCalls();
    SetClock(36012.0);
    Check();
    EXPECT_EQ(TakeCalls(), Skipped(false));
}

TEST_F(CheckDevice, AFailureDoesNotBeginANewCycle) {
    CheckEvery(10.0);
    ignoreAll = true;
    host->faults.FailOperation(L"MonitorDevice.ReadChannel", 1, 77);
    EXPECT_FALSE(Check());
    EXPECT_EQ(record.LastCheck, 0.0F);
}

// ---- the device --------------------------------------------------------------------------------

TEST_F(CheckDevice, AnInactiveDeviceIsActivatedAndThenRead) {
    monitor->state = 0;
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), Woken(L"EUT"), Classed(L"EUT", 1),
                                   UsedFor(L"EUT", 4), Loaded(L"EUT", L"Actions7-Device"),
                                   ChannelRead(L"EUT", 7), MarkCompared(0.0), StateOf(L"EUT")));
}

TEST_F(CheckDevice, ADeviceThatStaysInactiveFailsBeforeItsClassIsAsked) {
    monitor->state = monitor->stateOnceActivated = 0;
    ExpectError(L"cmdIgnore", L"T(9321)", L"EUT", 4010, L"T(3350)");
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"EUT"), Woken(L"EUT"), ErrorShown()));
    EXPECT_EQ(record.LastCheck, 0.0F);
}

TEST_F(CheckDevice, ABroadcastGeneratorUnderACheckFailsForItHasNoReadings) {
    Add<sim::SimBcGenerator>(L"Radio");
    record.DevName = L"Radio";
    ExpectError(L"cmdStopTest", L"T(9321)", L"Radio", 91, L"object variable not set");
    EXPECT_TRUE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"Radio"), StateOf(L"Radio"),
                                   Classed(L"Radio", 2), ErrorShown()));
    CheckEvery(10.0);
    record.LastCheck = 36000.0F;
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), StateOf(L"Radio"), Classed(L"Radio", 2)));
}

TEST_F(CheckDevice, ADeviceOutsideTheListIsShownWithNumber0AndNoText) {
    record.DevName = L"gone";
    ExpectError(L"cmdIgnoreAll", L"T(9321)", L"gone", 0, L"");
    EXPECT_FALSE(Check());
    EXPECT_TRUE(ignoreAll);
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"gone"), ErrorShown()));
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Opened(), Found(L"gone")));
}

TEST_F(CheckDevice, WithoutASettingsFileTheDeviceIsToldSo) {
    host->missingFiles = {L"setup.ini"};
    EXPECT_FALSE(Check());
    EXPECT_THAT(TakeCalls(), ::testing::Contains(Called(L"Device.LoadSettings", L"EUT", false,
                                                        L"Actions7-Device")));
}

// ---- trace lines -------------------------------------------------------------------------------

const String Started = Start(L"modActions (Code)", L"SetCheckDevice", L"");

TEST_F(CheckDevice, AFailedEutIsTracedByTheStartAloneAndAFailedDeviceAtBothEnds) {
    host->tracing = true;
    record.StopTest = true;
    Read({3.0});
    EXPECT_TRUE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Started, ReadCalls(3.0), ProgressCleared));
    host->faults.FailOperation(L"MonitorDevice.SetUseMode", 1, 77);
    ExpectError(L"cmdIgnore", L"T(9321)", L"EUT", 77, L"scripted failure");
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(),
              Journal(Started, Opened(), StateOf(L"EUT"), Classed(L"EUT", 1),
                      Failed(UsedFor(L"EUT", 4), 77), ErrorShown(), End(L"SetCheckDevice")));
}

TEST_F(CheckDevice, ASkippedCheckIsTracedByTheStartAlone) {
    host->tracing = true;
    CheckEvery(10.0);
    record.LastCheck = 36000.0F;
    EXPECT_FALSE(Check());
    EXPECT_EQ(TakeCalls(), Journal(Started, Skipped(true)));
}

}  // namespace
}  // namespace ace::test
