/// What a test would do, counted by hand.
#include "rehearsal_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

TEST_F(RehearsalTest, EachActionIsCountedInTheOrderInWhichTheTestReachesItsList) {
    Rehearse(Single + "[ActionsOnTest]\n" + Enter({"WAIT:500"}) + Leave({"WAIT:700"}) +
             Freq({"WAIT:100"}) + "[ActionsOnSR1]\n" + Enter({"WAIT:10", "WAIT:20"}) +
             "[ActionsOnSR2]\n" + Leave({"WAIT:30"}));
    EXPECT_THAT(
        Lists(),
        ElementsAre("StartTest 0: 1; 1 actions, 0.5 s", "EnterSubrange 1: 1; 2 actions, 0.03 s",
                    "NewFrequency 1: 3, NewFrequency 2: 2; 5 actions, 0.5 s",
                    "LeaveSubrange 2: 1; 1 actions, 0.03 s", "StopTest 0: 1; 1 actions, 0.7 s"));
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnTest] EnterAction1 x1: Wait: 0.500 s",
                                       "[ActionsOnTest] LeaveAction1 x1: Wait: 0.700 s",
                                       "[ActionsOnTest] FrequAction1 x5: Wait: 0.100 s",
                                       "[ActionsOnSR1] EnterAction1 x1: Wait: 0.010 s",
                                       "[ActionsOnSR1] EnterAction2 x1: Wait: 0.020 s",
                                       "[ActionsOnSR2] LeaveAction1 x1: Wait: 0.030 s"));
    EXPECT_EQ(found.outcome, Outcome::Finished);
    EXPECT_EQ(found.counts.waitedMs, 1760.0);  // 500 + 30 + 5 * 100 + 30 + 700
    EXPECT_EQ(found.counts.dwellMs, 5000.0);
}

TEST_F(RehearsalTest, WhatTheEveryFrequencyWalkPassesOverNeverRuns) {
    Rehearse(Single + "[ActionsOnTest]\n" + Freq({"NOTIFY:Hello,,0", "WAIT:100"}) +
             "[ActionsOnSR1]\n" + Freq({"WAIT:1"}));
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnTest] FrequAction1 x0: Notify: Hello",
                                       "[ActionsOnTest] FrequAction2 x5: Wait: 0.100 s",
                                       "[ActionsOnSR1] FrequAction1 x0: Wait: 0.001 s"));
    EXPECT_THAT(Dialogs(), IsEmpty());
    EXPECT_THAT(Ends(), IsEmpty());
}

TEST_F(RehearsalTest, ACheckWithACycleRunsAsOftenAsItsTimeIsOver) {
    // at 0, 1 and 2 s, then at 3 and 4 s: due at 0 and, more than 2.5 s later, at 3
    Rehearse(Single + "[ActionsOnTest]\n" + Freq({"CHECKEUT:EUT,7,0,0,0,1,2.50,0,0.00,0"}));
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnTest] FrequAction1 x5: Check EUT: EUT"));
    EXPECT_THAT(Devices(), ElementsAre("EUT: takes its settings from [Actions7-Device] x2, channel "
                                       "7 is read x2"));
}

TEST_F(RehearsalTest, ADialogIsToldOnceWithTheAnswersOfTheFile) {
    Rehearse(Single + "[ActionsOnTest]\n" + Enter({"QUESTION:Door?,,0", "NOTIFY:Lamp on.,,0"}) +
                 "[ActionsOnSR1]\n" + Enter({"NOTIFY:Lamp on.,,0"}),
             "start of test | question | Door? | Yes\n");
    EXPECT_THAT(Dialogs(), ElementsAre("question \"Door?\" x1, start of test, 1 by file",
                                       "notification \"Lamp on.\" x1, start of test",
                                       "notification \"Lamp on.\" x1, enter subrange 1"));
    EXPECT_EQ(found.outcome, Outcome::Finished);
}

TEST_F(RehearsalTest, AnAnswerOfTheFileThatStopsTheTestStopsThePlan) {
    Rehearse(AtStart({"WAIT:1", "QUESTION:Door?,,0", "WAIT:2"}) + Leave({"WAIT:4"}),
             "* | question | * | No\n");
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnTest] EnterAction1 x1: Wait: 0.001 s",
                                       "[ActionsOnTest] EnterAction2 x1: Question: Door?",
                                       "[ActionsOnTest] EnterAction3 x0: Wait: 0.002 s",
                                       "[ActionsOnTest] LeaveAction1 x1: Wait: 0.004 s"));
    EXPECT_THAT(Ends(), ElementsAre("start of test: the test is stopped"));
    EXPECT_EQ(found.ends[0].action, 1U);
    EXPECT_EQ(found.outcome, Outcome::Stopped);
}

TEST_F(RehearsalTest, CommandsAreCountedByAddressWithTheirTerminators) {
    Rehearse(AtStart({"REMOTE:*RST,0,1205,0,,0,", "REMOTE:*CLS,0,1205,0,,0,",  // LF
                      "REMOTE:ON,1,4,2,,0,",                                   // CR LF
                      "REMOTE:OUTP OFF,2,10.0.0.1,5025:1,,0,"}));              // CR
    EXPECT_THAT(Addresses(), ElementsAre("GPIB 12:5 x2, 10 bytes", "RS232 COM4 x1, 4 bytes",
                                         "TCP/IP 10.0.0.1:5025 x1, 9 bytes"));
}

TEST_F(RehearsalTest, ProgramsAndMacrosAreCountedByTheirFiles) {
    Rehearse(AtStart({"REMOTE:,,,,\"C:\\my tools\\a.exe\" /on,1,", "REMOTE:,,,,b.exe /x,0,",
                      "REMOTE:,,,,\"C:\\my tools\\a.exe\" /off,1,", "API:c.mac||1", "API:c.mac"}));
    EXPECT_THAT(Addresses(),
                ElementsAre("program C:\\my tools\\a.exe x2, started", "program b.exe x1, started",
                            "API macro c.mac x2, started"));
    EXPECT_EQ(found.programsAwaited, 2U);
}

TEST_F(RehearsalTest, WithoutABenchEachNamedDeviceDoesWhatItIsTold) {
    Rehearse(
        AtStart({"SWITCHAMP:Amp,3", "SWITCHAMP:Amp,2", "SWITCHAMP:Amp,3", "SWITCHUNIT:Matrix,ANT 1",
                 "SETDEV:Meter,7", "CHECKEUT:EUT,101,1,0,0,0,0.00,0,0.00,0"}));
    EXPECT_THAT(Devices(),
                ElementsAre("Amp: operate x2, standby x1", "Matrix: path ANT 1 x1",
                            "Meter: takes its settings from [Actions7-Device] x1, channel 7 is set "
                            "x1",
                            "EUT: takes its settings from [Actions101-Device] x1, channel 101 is "
                            "read x1"));
    EXPECT_THAT(Dialogs(), IsEmpty());
    EXPECT_EQ(found.outcome, Outcome::Finished);
}

TEST_F(RehearsalTest, OnlyABroadcastGeneratorIsSetWithASignalPath) {
    Rehearse(AtStart({"SETDEV:BC,103,Path 1"}));
    EXPECT_THAT(Devices(), ElementsAre("Path 1: is made ready x1",
                                       "BC: takes its settings from [Actions103-Device] x1, its "
                                       "settings are applied x1"));
}

TEST_F(RehearsalTest, ABenchLacksWhatItDoesNotHaveAndItsEquipmentIsWell) {
    Rehearse(AtStart({"CHECKEUT:EUT,1,1,0,0,0,0.00,0,0.00,0", "SWITCHAMP:Amp,3"}), {},
             [](sim::SimHost& host) {
                 const auto monitor = host.bench.Add<sim::SimMonitor>(host, L"EUT");
                 monitor->failures.push_back({1, 0.0, 1e9, 1e9, 1.0});
                 monitor->readings[1].push_back(2.0);
             });
    EXPECT_THAT(Devices(), ElementsAre("EUT: takes its settings from [Actions1-Device] x1, channel "
                                       "1 is read x1"));
    EXPECT_THAT(Dialogs(),
                ElementsAre(StartsWith("failure \"An amplifier could not be switched.")));
    EXPECT_EQ(found.outcome, Outcome::Finished);
}

TEST_F(RehearsalTest, ARunTimeErrorEndsThePlanAtItsActionAndTheEndOfTheTestStillRuns) {
    Rehearse(
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=3\n"
        "EnterAction1=WAIT:1\nEnterAction3=WAIT:3\n" +
        Leave({"WAIT:4"}));
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnTest] EnterAction1 x1: Wait: 0.001 s",
                                       "[ActionsOnTest] EnterAction2 x1: ",
                                       "[ActionsOnTest] EnterAction3 x0: Wait: 0.003 s",
                                       "[ActionsOnTest] LeaveAction1 x1: Wait: 0.004 s"));
    EXPECT_THAT(Ends(), ElementsAre("start of test: ERROR 13: type mismatch at " +
                                    Path("test.ini") + ": [ActionsOnTest] EnterAction2"));
    EXPECT_EQ(found.outcome, Outcome::Failed);
}

TEST_F(RehearsalTest, MonitoringCountsItsStepsAndTheChannelsThatTheFileChanges) {
    Rehearse("[Workbench]\nModule=1\nSubRanges=2\n" + ThreeAndTwo +
             "[Workbench.Channel1]\nTrigger=2,5\n[Workbench.Channel2]\nDevice=EUT\n"
             "NoGoAbove=0.5\n[ActionsOnEutMon]\n" +
             Mlc({"WAIT:40"}) + "[ActionsOnChannel1]\n" + Freq({"WAIT:500"}) +
             "[ActionsOnChannel2]\n" + Enter({"WAIT:600"}));
    EXPECT_THAT(Lists(), ElementsAre("AfterStep 1: 1, AfterStep 2: 1, AfterStep 3: 1, AfterStep 4: "
                                     "1, AfterStep 5: 1; 5 actions, 0.2 s",
                                     "Trigger 1: 2; 2 actions, 1 s"));
    EXPECT_THAT(Actions(),
                ElementsAre("[ActionsOnEutMon] MLLeaAction1 x5: Wait: 0.040 s",
                            "[ActionsOnChannel1] FrequAction1 x2: Wait: 0.500 s",
                            "[ActionsOnChannel2] EnterAction1 x0 by EUT: Wait: 0.600 s"));
}

TEST_F(RehearsalTest, TheStepsOfASusceptibilityTestStandInTheSamePlan) {
    Rehearse("[Workbench]\nModule=2\nSubRanges=2\n" + ThreeAndTwo + "[ActionsOnEMSAutoTest]\n" +
             Freq({"WAIT:1"}) + "[ActionsOnStep1]\n" + Enter({"WAIT:2"}) + "[ActionsOnStep2]\n" +
             Enter({"WAIT:3"}));
    EXPECT_THAT(Lists(), ElementsAre("EnterStep 1: 1; 1 actions, 0.002 s",
                                     "NewFrequency 1: 3, NewFrequency 2: 2; 5 actions, 0.005 s",
                                     "EnterStep 2: 1; 1 actions, 0.003 s"));
}

/// A matrix by power: a row for all powers, which its influence rules out, and one for each.
const std::string ByPower =
    "[Workbench]\nModule=8\nSubRanges=2\n[Workbench.DUT]\nFreq0=1000000\nFreq1=2000000\n"
    "BandwidthName0=wide\nPowerName0=low\nPowerName1=high\nInfluencedByPower=1\n"
    "[ActionsOnVKSTemplate_2]\nCount=3\nFreq=0\nBandwidth=0\nPower=1\n"
    "[ActionsOnStep_2_1_VKS]\nID0=-1\nID1=-1\nID2=-1\n[ActionsOnStep_2_1]\n" +
    Enter({"WAIT:1"}) + "[ActionsOnStep_2_2_VKS]\nID0=-1\nID1=-1\nID2=0\n[ActionsOnStep_2_2]\n" +
    Enter({"NOTIFY:Set #FREQ#,,0"}) +
    "[ActionsOnStep_2_3_VKS]\nID0=-1\nID1=-1\nID2=1\n[ActionsOnStep_2_3]\n" + Enter({"WAIT:3"});

TEST_F(RehearsalTest, ARowOfAMatrixKeepsItsSectionWhenAnotherOneIsRuledOut) {
    Rehearse(ByPower);
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnStep_2_2] EnterAction1 x2: Notify: Set #FREQ#",
                                       "[ActionsOnStep_2_3] EnterAction1 x2: Wait: 0.003 s"));
    EXPECT_THAT(Lists(), ElementsAre("VKSDUTStep 1: 1, VKSDUTStep 3: 1; 2 actions, 0 s",
                                     "VKSDUTStep 2: 1, VKSDUTStep 4: 1; 2 actions, 0.006 s"));
}

TEST_F(RehearsalTest, ADialogWhoseTextChangesIsToldAsItStandsFirst) {
    Rehearse(ByPower);
    EXPECT_THAT(Dialogs(), ElementsAre("notification \"Set 1000000\" x2, matrix row 1, differs"));
}

/// In a single test tracking starts once before the first frequency, with the output off.
TEST_F(RehearsalTest, AGeneratorThatFollowsRunsOnceMoreAtTheStart) {
    Rehearse(Single + "[ActionsOnTest]\n" + Freq({"WAIT:1", "FREQTRACK:Gen,Levels,40,0,0"}));
    EXPECT_THAT(Actions(), ElementsAre("[ActionsOnTest] FrequAction1 x5: Wait: 0.001 s",
                                       "[ActionsOnTest] FrequAction2 x6: Track frequency: Gen"));
    EXPECT_THAT(Lists(), ElementsAre("StartTest 0: 1, NewFrequency 1: 3, NewFrequency 2: 2; 11 "
                                     "actions, 0.005 s"));
    EXPECT_THAT(Devices(), ElementsAre("Gen: output off x1, follows the frequency x5, level is set "
                                       "x5, output on x5"));
}

TEST_F(RehearsalTest, AMonitoringDeviceThatFollowsTakesItsTimeToSettle) {
    Rehearse(Single + "[ActionsOnTest]\n" + Freq({"FREQTRACK:Meter,100"}));
    EXPECT_THAT(Devices(), ElementsAre("Meter: follows the frequency x6"));
    EXPECT_EQ(found.counts.waitedMs, 600.0);
}

}  // namespace
}  // namespace ace::workbench
