/// Devices that are set and checked within the moments of a test.
#include "support/device_moments.h"

namespace ace::test {
namespace {

constexpr CheckFlag Stops = &aceSetDevice::StopTest;
constexpr CheckFlag Comments = &aceSetDevice::CommToTable;
constexpr CheckFlag Parks = &aceSetDevice::LoadingPos;

/// The calls of a check of channel 7; the device is found before or looked up now.
Lines Checked(double reading, bool isFirst, std::int32_t fileKind = 20) {
    return Journal(Opened(fileKind), isFirst ? Lines{Found(L"EUT")} : Lines{}, StateOf(L"EUT"),
                   Classed(L"EUT", 1), UsedFor(L"EUT", 4), Loaded(L"EUT", L"Actions7-Device"),
                   ChannelRead(L"EUT", 7), MarkCompared(reading), StateOf(L"EUT"),
                   reading != 0.0 && reading != 12345.0 ? Lines{Progress(L"")} : Lines{});
}
Lines NotFound() {
    return {Opened(), Found(L"gone"), ErrorShown()};
}
Lines SilentlyNotFound() {
    return {Opened(), Found(L"gone")};
}

class EutMoments : public DeviceMoments {
  protected:
    EutMoments() { State().LastFrequency = -1.0; }
    void Read(std::deque<double> readings) { monitor->readings[7] = std::move(readings); }
    /// A check of the device "EUT".
    static p_Action Check(const std::vector<CheckFlag>& flags) {
        return OnDevice(atCheckEut, L"EUT", flags);
    }

    std::shared_ptr<sim::SimMonitor> monitor = Add<sim::SimMonitor>(L"EUT");
};

// ---- the latch ---------------------------------------------------------------------------------

/// Stopping a test clears nothing.
TEST_F(EutMoments, ASilencedActionStaysSilentUntilTheNextTestStarts) {
    Fill(State().MainTest, FreqList, {OnDevice(atSetDevice, L"gone")});
    engine->StartTest();
    TakeCalls();
    Answer(L"cmdIgnoreAll");
    EXPECT_FALSE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"1", L"-1"), Yielded, NotFound()));
    EXPECT_FALSE(engine->NewFrequency(2.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"2", L"1"), Yielded, SilentlyNotFound()));
    engine->StopTest();
    EXPECT_FALSE(engine->NewFrequency(3.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"3", L"2"), Yielded, SilentlyNotFound()));
    engine->StartTest();
    TakeCalls();
    Answer(L"cmdStopTest");
    EXPECT_TRUE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"1", L"-1"), Yielded, NotFound()));
}

TEST_F(EutMoments, TheLatchIsThatOfOneActionAlone) {
    const p_Action gone = OnDevice(atCheckEut, L"gone");
    Fill(State().MainTest, EnterList, {gone, gone});
    Answer(L"cmdIgnoreAll");
    Answer(L"cmdIgnore");
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeCalls(), Journal(Yielded, NotFound(), Yielded, NotFound()));
    EXPECT_TRUE(State().MainTest.Enter[0].IgnoreErr);
    EXPECT_FALSE(State().MainTest.Enter[1].IgnoreErr);
}

// ---- results of the walks ----------------------------------------------------------------------

TEST_F(EutMoments, ThePlainWalkEndsAtTheFailedCheck) {
    Fill(State().MainTest, EnterList, {Check({}), Check({Stops}), WaitFor(1)});
    Read({3.0, 3.0});
    EXPECT_TRUE(engine->StartTest());
    EXPECT_EQ(TakeCalls(), Journal(Yielded, Checked(3.0, true), Yielded, Checked(3.0, true)));
    EXPECT_TRUE(context.TestRunning);
}

TEST_F(EutMoments, AtAFrequencyACheckThatAnswersTrueFollowedByOneThatAnswersFalseGivesFalse) {
    Fill(State().MainTest, FreqList, {Check({Stops}), Check({Comments})});
    Read({3.0, 3.0});
    EXPECT_FALSE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"1", L"-1"), Yielded, Checked(3.0, true), Yielded,
                                   Checked(3.0, true)));
    EXPECT_EQ(TakeRequest(), 128);  // no bit of the comment beside the stop
    Read({0.0, 0.0, 3.0});
    Fill(State().MainTest, FreqList, {Check({Comments}), Check({}), Check({Stops})});
    EXPECT_TRUE(engine->NewFrequency(2.0, false));
}

TEST_F(EutMoments, InTheGeneralListsOfASusceptibilityTestAFailedCheckCounts) {
    Serve(aceEMSAutoTemplateGeneral);
    Fill(State().EMSAutoGeneral, FreqList, {Check({Stops}), WaitFor(1)});
    Read({3.0});
    EXPECT_TRUE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeCalls(),
              Journal(Compared(L"1", L"-1"), Yielded, Checked(3.0, true, 26), Yielded, Waited(1)));
}

TEST_F(EutMoments, AtAFrequencyNeitherAmplifierNorMonitoringOfTheEquipmentRuns) {
    Fill(State().MainTest, FreqList,
         {OnDevice(atMonitorEUT, L"EUT", {Stops}), OnDevice(atSwitchAmp, L"gone")});
    EXPECT_FALSE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"1", L"-1"), Yielded, Yielded));
}

// ---- codes of the channels ---------------------------------------------------------------------

struct CodeRow {
    p_Action action;
    std::int32_t code;
};

/// Each of these answers true, for its device is not there and the operator stops.
TEST_F(EutMoments, SetCheckAndSwitchUnitSignalTheStopOfTheTestAndOtherDevicesSignalNothing) {
    Serve(aceMonitoring);
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    const CodeRow rows[] = {{OnDevice(atSetDevice, L"gone"), 5},
                            {OnDevice(atCheckEut, L"gone"), 5},
                            {OnDevice(atSwitchUnit, L"gone"), 5},
                            {OnDevice(atMonitorEUT, L"gone"), 0},
                            {OnDevice(atSwitchAmp, L"gone"), 0},
                            {Follow(L"gone"), 0},
                            {Follow(L"", L"gone"), 0}};
    for (const CodeRow& row : rows) {
        for (const ListFields& list : {EnterList, LeaveList, FreqList}) {
            Fill(State().MoniChannels[0], list, {row.action});
            Answer(L"cmdStopTest");
        }
        EXPECT_EQ(engine->EnterNoGo(1, L""), row.code) << row.action.ActionType;
        EXPECT_EQ(engine->Go(1, L""), row.code) << row.action.ActionType;
        EXPECT_EQ(engine->Trigger(1, L""), row.code) << row.action.ActionType;
    }
}

TEST_F(EutMoments, AChannelRunsItsWholeListBehindAFailedCheck) {
    Serve(aceMonitoring);
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    Fill(State().MoniChannels[0], FreqList, {Check({Stops}), Action(atGotoSingle), Check({})});
    Read({3.0, 0.0});
    EXPECT_EQ(engine->Trigger(1, L""), 5);
    EXPECT_EQ(TakeCalls(), Journal(Yielded, Checked(3.0, true), L"Utilities.Max(5, [0])", Yielded,
                                   L"Utilities.Max(4, [5])", Yielded, Checked(0.0, true)));
}

// ---- the requests ------------------------------------------------------------------------------

TEST_F(EutMoments, WhatTheChecksOfAFrequencyAskForIsAnsweredOnceAndTheCommentTwice) {
    Fill(State().MainTest, FreqList, {Check({Comments}), Check({Parks}), Check({})});
    Read({3.0, 3.0, 12345.0});
    EXPECT_FALSE(engine->NewFrequency(1.0, false));
    Value comment;
    EXPECT_EQ(engine->GetCheckEutAction(comment), 1 + 4 + 2);
    EXPECT_EQ(std::get<String>(comment), L"T(9421)");
    comment = {};
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
    EXPECT_EQ(std::get<String>(comment), L"T(9421)");
}

TEST_F(EutMoments, TheNextFrequencyForgetsBitsAndComment) {
    Fill(State().MainTest, FreqList, {Check({Comments, Parks})});
    Read({3.0, 0.0});
    engine->NewFrequency(1.0, false);
    engine->NewFrequency(2.0, false);
    Value comment;
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
    EXPECT_EQ(std::get<String>(comment), L"");
}

/// A comment of one action behind the parking of another adds no bit, but its text is there.
TEST_F(EutMoments, ACommentBehindAnotherRequestKeepsItsTextAlone) {
    Fill(State().MainTest, FreqList, {Check({Parks}), Check({Comments})});
    Read({3.0, 3.0});
    engine->NewFrequency(1.0, false);
    Value comment;
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
    EXPECT_EQ(std::get<String>(comment), L"T(9421)");
}

TEST_F(EutMoments, AnEmissionTestIsToldOfTheLoadingPositionAndThenAsksToPark) {
    Serve(aceEMIAutoTemplate);
    Fill(State().EMIAutoTest, FreqList, {Check({Parks})});
    EXPECT_TRUE(engine->NewFrqCheckForAccLoading());
    Read({0.0, 3.0});
    EXPECT_FALSE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeRequest(), 0);
    EXPECT_FALSE(engine->NewFrequency(1.0, true));
    EXPECT_TRUE(engine->NewFrqCheckForAccLoading());
    EXPECT_EQ(TakeRequest(), 4);
    context.EutCheckRequest = 128;
    engine->StopTest();
    EXPECT_EQ(TakeRequest(), 0);
}

// ---- the cycle ---------------------------------------------------------------------------------

TEST_F(EutMoments, ACycleOf10SecondsGoesOnOverMidnight) {
    p_Action check = Check({});
    RecordOf<aceSetDevice>(check).UseTimeCyc = true;
    RecordOf<aceSetDevice>(check).CycleTime = 10.0;
    Fill(State().MainTest, FreqList, {check});
    host->startOfDay = 86374.0;  // 23:59:34
    std::vector<double> checkedAt;
    for (double second = 0.0; second < 60.0; second += 3.0) {
        host->journal.Clear();
        engine->NewFrequency(1e6 + second, false);
        if (!host->journal.LinesOf(L"MonitorDevice.ReadChannel").empty()) {
            checkedAt.push_back(second);
        }
        host->PassTime(3000.0);
    }
    // 12 seconds apart while the clock rises; after 24 comes the 27th second, 00:00:01.
    EXPECT_THAT(checkedAt, ::testing::ElementsAre(0.0, 12.0, 24.0, 27.0, 39.0, 51.0));
}

// ---- other operations --------------------------------------------------------------------------

TEST_F(EutMoments, ASetDeviceAtTheStartOfMonitoringIsSeenWithoutRunning) {
    EXPECT_FALSE(engine->EUT_UseSetDevice());
    Fill(State().MoniEut, FreqList, {OnDevice(atSetDevice, L"EUT")});
    Fill(State().MoniEut, EnterList, {Check({})});
    EXPECT_FALSE(engine->EUT_UseSetDevice());
    Fill(State().MoniEut, EnterList, {Check({}), OnDevice(atSetDevice, L"EUT")});
    EXPECT_TRUE(engine->EUT_UseSetDevice());
    EXPECT_EQ(TakeCalls(), Lines{});
}

TEST_F(EutMoments, AProtectionAtTheStartOfATestIsToldOnce) {
    Add<sim::SimReceiver>(L"Rx");
    Fill(State().MainTest, EnterList, {Action(atProtRec)});
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeCalls(),
              Journal(Yielded, TestAsked(), L"DeviceList.DevicesOfClass(\"Receivers\")",
                      Found(L"Rx"), Called(L"Receiver.CommonDevice", L"Rx"), StateOf(L"Rx"),
                      Called(L"Receiver.SetParameter", L"Rx", 18, L"On", true, 0, L"")));
    EXPECT_TRUE(engine->InitReceiver());
    EXPECT_FALSE(engine->InitReceiver());
}

}  // namespace
}  // namespace ace::test
