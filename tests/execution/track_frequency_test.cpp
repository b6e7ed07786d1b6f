#include <ace/execution/track_frequency.h>

#include "support/device_fixture.h"

namespace ace::test {
namespace {

class TrackMonitor : public DeviceTest {
  protected:
    TrackMonitor() {
        host->texts[9044] = L"Please wait";
        record.MoniName = L"EUT";
        record.DelayTime = 500;
        record.Freq = 150e6;
    }
    Boolean Track() { return modActions::TrackMonitor(context, record, ignoreAll); }
    static String CommonSide() { return Called(L"MonitorDevice.CommonDevice", L"EUT"); }
    static Lines Tuned(double hertz) {
        return {UsedFor(L"EUT", 8), Called(L"MonitorDevice.SetFrequency", L"EUT", hertz)};
    }
    static String Settled(const String& milliseconds) {
        return L"SystemServices.ShowTimedMessage(\"Wait for Monitoring ... " + milliseconds +
               L" ms\\r\\nPlease wait\", 64, \"T(9430): T(9431)\", " + milliseconds + L")";
    }

    std::shared_ptr<sim::SimMonitor> monitor = Add<sim::SimMonitor>(L"EUT");
    aceTrackFreq record;
};

TEST_F(TrackMonitor, TheDeviceIsFoundAndTunedAndGetsItsTimeToSettle) {
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"EUT"), CommonSide(), StateOf(L"EUT"),
                                   Tuned(150e6), Settled(L"500")));
    EXPECT_EQ(record.MoniDev, monitor);
    EXPECT_EQ(monitor->frequency, 150e6);
    EXPECT_EQ(host->Now(), 500.0);
}

TEST_F(TrackMonitor, TheDeviceStaysInTheRecordAndIsNotLookedUpAgain) {
    Track();
    TakeCalls();
    record.MoniName = L"another name";
    record.Freq = 151e6;
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), CommonSide(), StateOf(L"EUT"), Tuned(151e6), Settled(L"500")));
}

TEST_F(TrackMonitor, NothingIsTraced) {
    host->tracing = true;
    Track();
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"EUT"), CommonSide(), StateOf(L"EUT"),
                                   Tuned(150e6), Settled(L"500")));
}

TEST_F(TrackMonitor, DelayTime0StillShowsTheMessageWithTheTime0) {
    record.DelayTime = 0;
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls().back(), Settled(L"0"));
}

TEST_F(TrackMonitor, AFrequencyOf0IsTunedLikeAnyOther) {
    record.Freq = 0.0;
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"EUT"), CommonSide(), StateOf(L"EUT"),
                                   Tuned(0.0), Settled(L"500")));
}

/// Nobody asks whether the activation helped.
TEST_F(TrackMonitor, AnInactiveDeviceThatStaysInactiveIsTunedAllTheSame) {
    monitor->state = monitor->stateOnceActivated = 0;
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), Found(L"EUT"), CommonSide(), StateOf(L"EUT"),
                      Called(L"Device.Activate", L"EUT", 1), Tuned(150e6), Settled(L"500")));
}

TEST_F(TrackMonitor, ItMakesNoDifferenceWhetherATestRuns) {
    context.TestRunning = true;
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"EUT"), CommonSide(), StateOf(L"EUT"),
                                   Tuned(150e6), Settled(L"500")));
    EXPECT_FALSE(context.GeneratorEnabled);
}

TEST_F(TrackMonitor, InATestOfKind1Or2NothingHappensNotEvenTheLookup) {
    host->testState = 0;
    for (const std::int32_t kind : {1, 2}) {
        host->testKind = kind;
        EXPECT_FALSE(Track());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), L"TestInfo.TestKind(\"\")"));
    }
    EXPECT_EQ(record.MoniDev, nullptr);
}

TEST_F(TrackMonitor, InATestOfAnyOtherKindTheDeviceIsTuned) {
    host->testState = 0;
    for (const std::int32_t kind : {0, 3, -1}) {
        host->testKind = kind;
        EXPECT_FALSE(Track());
        EXPECT_EQ(TakeCalls().back(), Settled(L"500"));
    }
}

// ---- failures ----------------------------------------------------------------------------------

/// The dialog is that of a generator and names it, although it is the monitoring device that is
/// missing; an action that only tracks has no such name.
TEST_F(TrackMonitor, ADeviceThatIsNotFoundIsShownUnderTheGeneratorsName) {
    record.MoniName = L"gone";
    for (const wchar_t* generator : {L"", L"Gen"}) {
        record.GenName = generator;
        ExpectError(L"cmdStopTest", L"T(9321)", generator, 0, L"");
        EXPECT_TRUE(Track());
        EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"gone"), ErrorShown()));
    }
}

TEST_F(TrackMonitor, ADeviceOfAnotherKindIsNotFound) {
    Add<sim::SimRfGenerator>(L"Gen");
    record.MoniName = L"Gen";
    ExpectError(L"cmdIgnore", L"T(9321)", L"", 0, L"");
    EXPECT_FALSE(Track());
    EXPECT_EQ(record.MoniDev, nullptr);
}

TEST_F(TrackMonitor, ASilencedActionWhoseDeviceIsNotFoundEndsWithoutADialog) {
    record.MoniName = L"gone";
    ignoreAll = true;
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"gone")));
}

TEST_F(TrackMonitor, IgnoreAllIsHandedBackAndSilencesEveryLaterFailure) {
    host->faults.FailOperation(L"MonitorDevice.SetFrequency", 1, 77,
                               sim::FaultScript::Until::ForEver);
    ExpectError(L"cmdIgnoreAll", L"T(9321)", L"", 77, L"scripted failure");
    EXPECT_FALSE(Track());
    EXPECT_TRUE(ignoreAll);
    EXPECT_FALSE(Track());
}

TEST_F(TrackMonitor, AFailureEndsTheActionBeforeTheTimeToSettle) {
    host->faults.FailOperation(L"MonitorDevice.SetUseMode", 1, 77);
    ExpectError(L"cmdIgnore", L"T(9321)", L"", 77, L"scripted failure");
    EXPECT_FALSE(Track());
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), Found(L"EUT"), CommonSide(), StateOf(L"EUT"),
                                   Failed(UsedFor(L"EUT", 8), 77), ErrorShown()));
}

/// Only a check knows these numbers as an abort.
TEST_F(TrackMonitor, AnAbortIsAFailureLikeAnyOther) {
    host->faults.FailOperation(L"SystemServices.ShowTimedMessage", 1, 4202);
    ExpectError(L"cmdIgnore", L"T(9321)", L"", 4202, L"scripted failure");
    EXPECT_FALSE(Track());
}

}  // namespace
}  // namespace ace::test
