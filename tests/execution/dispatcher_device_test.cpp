#include <ace/execution/dispatcher.h>

#include "support/device_fixture.h"

namespace ace::test {
namespace {

using sim::Press;

class DispatchDevice : public DeviceTest {
  protected:
    Boolean Do(p_Action& action, std::int32_t moduleKind = aceTemplate) {
        return modActions::DoAction(context, action, moduleKind);
    }
    static aceSetDevice Record(const String& name) {
        aceSetDevice record;
        record.DevName = name;
        record.ChanNo = 7;
        return record;
    }
    static aceTrackFreq Tracking(const String& generator, const String& monitor) {
        aceTrackFreq record;
        record.GenName = generator;
        record.MoniName = monitor;
        return record;
    }
    void ExpectAnswer(const String& button) { host->user.Expect(L"frmGpibError", Press(button)); }
    /// How often a call was made.
    std::size_t CountOf(StringView operation) const {
        return host->journal.LinesOf(operation).size();
    }
};

// ---- set, check, monitor -----------------------------------------------------------------------

TEST_F(DispatchDevice, OnlyASetSetsAndBothKindsOfAChecksCheck) {
    Add<sim::SimMonitor>(L"EUT");
    const struct {
        p_ActionTypes kind;
        std::int32_t mode;
    } rows[] = {{atSetDevice, 2}, {atCheckEut, 4}, {atMonitorEUT, 4}};
    for (const auto& row : rows) {
        p_Action action = Action(row.kind, Record(L"EUT"));
        EXPECT_FALSE(Do(action));
        EXPECT_EQ(host->journal.LinesOf(L"MonitorDevice.SetUseMode"),
                  Lines{UsedFor(L"EUT", row.mode)});
        host->journal.Clear();
    }
}

TEST_F(DispatchDevice, TheModuleOfTheMomentNamesTheFileOfTheSettings) {
    Add<sim::SimMonitor>(L"EUT");
    p_Action action = Action(atSetDevice, Record(L"EUT"));
    Do(action, aceEMIAutoTemplate);
    EXPECT_EQ(TakeCalls().front(), Opened(24));
}

TEST_F(DispatchDevice, TheDeviceAndTheTimeOfTheCheckSurviveInTheAction) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    for (const p_ActionTypes kind : {atCheckEut, atMonitorEUT}) {
        p_Action action = Action(kind, Record(L"EUT"));
        aceSetDevice expected = Record(L"EUT");
        expected.Device = monitor;
        expected.MoniDev = monitor;
        expected.LastCheck = 36000.0F;
        Do(action);
        EXPECT_EQ(action.Parameter, ActionParameter(expected));
    }
}

TEST_F(DispatchDevice, TheGeneratorAndItsPathSurviveInTheAction) {
    const auto generator = Add<sim::SimBcGenerator>(L"Radio");
    const auto path = Add<sim::SimSignalPath>(L"Antenna");
    aceSetDevice expected = Record(L"Radio");
    expected.SigPathName = L"Antenna";
    p_Action action = Action(atSetDevice, expected);
    EXPECT_FALSE(Do(action));
    expected.Device = generator;
    expected.BcGen = generator;
    expected.SigPath = path;
    EXPECT_EQ(action.Parameter, ActionParameter(expected));
}

TEST_F(DispatchDevice, WhatWasFoundBeforeAFailureSurvivesToo) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    p_Action action = Action(atSetDevice, Record(L"EUT"));
    host->faults.FailOperation(L"MonitorDevice.SetChannel", 1, 77);
    ExpectAnswer(L"cmdStopTest");
    EXPECT_TRUE(Do(action));
    EXPECT_EQ(RecordOf<aceSetDevice>(action).MoniDev, monitor);
}

TEST_F(DispatchDevice, IgnoreAllIsKeptInTheActionAndOnlyThat) {
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        p_Action action = Action(kind, Record(L"gone"));
        ExpectAnswer(L"cmdIgnore");
        EXPECT_FALSE(Do(action));
        EXPECT_FALSE(action.IgnoreErr);
        ExpectAnswer(L"cmdStopTest");
        EXPECT_TRUE(Do(action));
        EXPECT_FALSE(action.IgnoreErr);
        ExpectAnswer(L"cmdIgnoreAll");
        EXPECT_FALSE(Do(action));
        EXPECT_TRUE(action.IgnoreErr);
        EXPECT_FALSE(Do(action));
        EXPECT_TRUE(action.IgnoreErr);
    }
}

/// An error that no routine catches leaves the action as it was.
TEST_F(DispatchDevice, AnErrorOfTheDialogIsReportedAndRaisedAndWritesNothingBack) {
    p_Action action = Action(atSetDevice, Record(L"gone"));
    const p_Action before = action;
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 77);
    EXPECT_EQ(ErrorOf([&] { Do(action); }), 77);
    EXPECT_EQ(action, before);
    EXPECT_EQ(CountOf(L"TraceLog.ReportError"), 1U);
}

// ---- switching ---------------------------------------------------------------------------------

const String Posted = L"DeviceList.PostEvent(\"ActionEngine\", 4, \"3\")";

class DispatchSwitch : public DispatchDevice {
  protected:
    static p_Action Switch(p_ActionTypes kind) {
        aceSetDevice record = Record(L"Dev");
        record.AmpState = 3;
        record.Path = L"Port 2";
        return Action(kind, record);
    }
};

TEST_F(DispatchSwitch, AnAmplifiersStateIsPostedAndMessagesRunBehindIt) {
    const auto amplifier = Add<sim::SimAmplifier>(L"Dev");
    p_Action action = Switch(atSwitchAmp);
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), StateOf(L"Dev"),
                                   L"Amplifier.SetState(\"Dev\", 3)", Posted, Yielded));
    EXPECT_EQ(RecordOf<aceSetDevice>(action).Device, amplifier);
    EXPECT_EQ(RecordOf<aceSetDevice>(action).AmplDev, amplifier);
}

TEST_F(DispatchSwitch, TheStateIsPostedAlsoAfterAFailureWhateverTheOperatorAnswers) {
    for (const wchar_t* button : {L"cmdIgnore", L"cmdStopTest"}) {
        p_Action action = Switch(atSwitchAmp);
        ExpectAnswer(button);
        EXPECT_EQ(Do(action), button == String(L"cmdStopTest"));
        EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), ErrorShown(), Posted, Yielded));
    }
}

TEST_F(DispatchSwitch, ASwitchUnitPostsNothingAndLetsNoMessagesRun) {
    const auto unit = Add<sim::SimSwitchUnit>(L"Dev");
    p_Action action = Switch(atSwitchUnit);
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), StateOf(L"Dev"),
                                   L"SwitchUnit.SwitchPath(\"Dev\", \"Port 2\")"));
    EXPECT_EQ(RecordOf<aceSetDevice>(action).SwitchDev, unit);
}

/// There is no ignoring of all further failures: a latch that stands silences nothing.
TEST_F(DispatchSwitch, TheLatchIsNeitherReadNorWritten) {
    for (const p_ActionTypes kind : {atSwitchAmp, atSwitchUnit}) {
        for (const bool isLatched : {false, true}) {
            p_Action action = Switch(kind);
            action.IgnoreErr = isLatched;
            ExpectAnswer(L"cmdStopTest");
            EXPECT_TRUE(Do(action));
            EXPECT_EQ(action.IgnoreErr, isLatched);
        }
    }
}

TEST_F(DispatchSwitch, AFailedEventIsReportedAndRaisedBehindTheSwitching) {
    const auto amplifier = Add<sim::SimAmplifier>(L"Dev");
    p_Action action = Switch(atSwitchAmp);
    host->faults.FailOperation(L"DeviceList.PostEvent", 1, 77);
    EXPECT_EQ(ErrorOf([&] { Do(action); }), 77);
    EXPECT_EQ(amplifier->power, 3);
    EXPECT_EQ(RecordOf<aceSetDevice>(action).AmplDev, amplifier);
    EXPECT_EQ(CountOf(L"Platform.Yield"), 0U);
}

// ---- following a frequency ---------------------------------------------------------------------

class DispatchTrack : public DispatchDevice {
  protected:
    const std::shared_ptr<sim::SimRfGenerator> generator = Add<sim::SimRfGenerator>(L"Gen");
    const std::shared_ptr<sim::SimMonitor> monitor = Add<sim::SimMonitor>(L"EUT");
    const std::shared_ptr<sim::SimCalTable> table = Add<sim::SimCalTable>(L"");
};

TEST_F(DispatchTrack, OneNameRunsOneRoutine) {
    p_Action sync = Action(atTrackFreq, Tracking(L"Gen", L""));
    EXPECT_FALSE(Do(sync));
    EXPECT_EQ(CountOf(L"MonitorDevice"), 0U);
    EXPECT_EQ(RecordOf<aceTrackFreq>(sync).GenDev, generator);
    EXPECT_EQ(RecordOf<aceTrackFreq>(sync).CalTable, table);
    host->journal.Clear();
    p_Action track = Action(atTrackFreq, Tracking(L"", L"EUT"));
    EXPECT_FALSE(Do(track));
    EXPECT_EQ(CountOf(L"RfGenerator"), 0U);
    EXPECT_EQ(RecordOf<aceTrackFreq>(track).MoniDev, monitor);
}

TEST_F(DispatchTrack, WithBothNamesTheGeneratorFollowsFirstAndTheMonitorsAnswerReplacesItsOwn) {
    p_Action action = Action(atTrackFreq, Tracking(L"gone", L"EUT"));
    ExpectAnswer(L"cmdStopTest");
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(TakeCalls()[2], ErrorShown());
    action = Action(atTrackFreq, Tracking(L"Gen", L"gone"));
    ExpectAnswer(L"cmdStopTest");
    EXPECT_TRUE(Do(action));
    EXPECT_EQ(TakeCalls().back(), ErrorShown());
    EXPECT_EQ(RecordOf<aceTrackFreq>(action).GenDev, generator);
}

/// Ignoring all failures of the generator silences the monitoring device of the same action.
TEST_F(DispatchTrack, BothRoutinesOfAnActionShareTheLatch) {
    p_Action action = Action(atTrackFreq, Tracking(L"gone", L"gone too"));
    ExpectAnswer(L"cmdIgnoreAll");
    EXPECT_FALSE(Do(action));
    EXPECT_TRUE(action.IgnoreErr);
    EXPECT_EQ(CountOf(L"FormHost.ShowModal"), 1U);
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(CountOf(L"FormHost.ShowModal"), 1U);
}

// ---- protection --------------------------------------------------------------------------------

TEST_F(DispatchDevice, AProtectionRunsAndItsFailureIsNeitherShownNorRaised) {
    Add<sim::SimReceiver>(L"Rx");
    p_Action action = Action(atProtRec);
    host->faults.FailOperation(L"Receiver", 1, 77);
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(TakeCalls(),
              Journal(TestAsked(), L"DeviceList.DevicesOfClass(\"Receivers\")", Found(L"Rx"),
                      Failed(Called(L"Receiver.CommonDevice", L"Rx"), 77)));
    EXPECT_TRUE(context.InitReceiverPending);
    EXPECT_EQ(action, Action(atProtRec));
}

TEST_F(DispatchDevice, ForbiddenProtectionAsksNoReceiver) {
    Add<sim::SimReceiver>(L"Rx");
    host->testState = 14;
    p_Action action = Action(atProtRec);
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(TakeCalls(), Journal(TestAsked(), L"TestInfo.GetTestState(\"\")"));
}

}  // namespace
}  // namespace ace::test
