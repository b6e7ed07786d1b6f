/// The page of a plan as the user reads it.
#include "workbench/cli/plan_command.h"

#include <algorithm>
#include <map>
#include <sstream>

#include "support/file_fixture.h"
#include "support/refusal.h"

namespace ace::workbench {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string Examples = std::string(ACE_EXAMPLES) + "/";

class PlanCommandTest : public FolderTest {
  protected:
    /// The page; `outcome` is how the command ended.
    std::string PlanOf(const TestArguments& arguments) {
        std::ostringstream out;
        outcome = PlanCommand(arguments, out);
        return out.str();
    }
    std::string PlanOfExample(const std::string& file, const std::string& templateNumber = {}) {
        TestArguments arguments;
        arguments.file = Examples + file;
        if (!templateNumber.empty()) {
            arguments.matrixTemplate = templateNumber;
        }
        return PlanOf(arguments);
    }
    std::string PlanOfText(const std::string& text, TestArguments arguments = {}) {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        return PlanOf(arguments);
    }
    /// The blocks of a page behind its head, and behind them the time that stands in the head.
    std::string Blocks(const std::string& text, const TestArguments& arguments = {}) {
        const std::string page = PlanOfText(text, arguments);
        const std::size_t end = page.find("\n\n");
        EXPECT_NE(end, std::string::npos) << page;
        const std::size_t time = page.find("\nTime  ");
        EXPECT_LT(time, end) << page;
        return page.substr(end + 2) + page.substr(time, page.find('\n', time + 1) + 1 - time);
    }
    static std::string Golden(const std::string& name) {
        std::ostringstream text;
        text << std::ifstream(std::string(ACE_PLANS) + "/" + name).rdbuf();
        return text.str();
    }
    Outcome outcome = Outcome::WrongUse;
};

TEST_F(PlanCommandTest, ASingleTestHasItsFrequenciesInOneBlock) {
    EXPECT_EQ(PlanOfExample("ri_template.ini"), Golden("ri_template.txt"));
    EXPECT_EQ(outcome, Outcome::Finished);
}

TEST_F(PlanCommandTest, AMatrixHasABlockForEachRowThatTheFileHas) {
    EXPECT_EQ(PlanOfExample("wireless_dut.ini", "0"), Golden("wireless_dut_0.txt"));
    EXPECT_EQ(PlanOfExample("wireless_dut.ini", "2"), Golden("wireless_dut_2.txt"));
    EXPECT_EQ(PlanOfExample("wireless_dut.ini", "3"), Golden("wireless_dut_3.txt"));
}

TEST_F(PlanCommandTest, WirelessTestsStandInTheirOrderWithTheAnswersOfTheFile) {
    TestArguments arguments;
    arguments.file = Examples + "wireless_tests.ini";
    arguments.answers = Examples + "wireless_answers.txt";
    EXPECT_EQ(PlanOf(arguments), Golden("wireless_tests.txt"));
}

/// The frequencies 1, 2 and 4 Hz, then 1 and 2 Hz.
const std::string ThreeAndTwo =
    "[Workbench.Subrange1]\nStartHz=1\nStopHz=4\nStepPercent=100\nDwellMs=1000\n"
    "[Workbench.Subrange2]\nStartHz=1\nStopHz=2\nStepPercent=100\nDwellMs=1000\n";
std::string One(const std::string& list, const std::string& action) {
    static const std::map<std::string, std::string> Counts = {{"Enter", "NumOfEnterActions"},
                                                              {"Leave", "NumOfLeaveActions"},
                                                              {"Frequ", "NumOfFreqActions"},
                                                              {"MLLea", "NumOfMlcActions"}};
    return Counts.at(list) + "=1\n" + list + "Action1=" + action + "\n";
}

TEST_F(PlanCommandTest, MonitoringTellsItsStepsAndChannelsByTheirNumbers) {
    EXPECT_EQ(Blocks("[Workbench]\nModule=1\nSubRanges=2\n" + ThreeAndTwo +
                     "[Workbench.Channel1]\nTrigger=2,5\n[ActionsOnEutMon]\n" +
                     One("Frequ", "WAIT:3") + One("MLLea", "WAIT:40") + "[ActionsOnMonTestLoop]\n" +
                     One("Leave", "WAIT:6") + "[ActionsOnChannel1]\n" + One("Frequ", "WAIT:500") +
                     "[ActionsOnChannel2]\n" + One("Enter", "WAIT:600")),
              "new frequency, 3 + 2 times: 5 actions, 0:00:00.015\n"
              "  x5      Wait: 0.003 s\n"
              "\n"
              "after step 1 to 5 (5 times): 5 actions, 0:00:00.200\n"
              "  x5      Wait: 0.040 s\n"
              "\n"
              "channel 1 triggers (2 times): 2 actions, 0:00:01\n"
              "  x2      Wait: 0.500 s\n"
              "\n"
              "after the test loop: 1 action, 0:00:00.006\n"
              "  x1      Wait: 0.006 s\n"
              "\n"
              "never runs:\n"
              "  x0      [ActionsOnChannel2] EnterAction1 Wait: 0.600 s\n"
              "\n"
              "Time       0:00:06.221: 0:00:01.221 waits of actions, 0:00:05 dwelling on "
              "frequencies\n");
}

TEST_F(PlanCommandTest, ASusceptibilityTestHasItsStepsBetweenItsGeneralLists) {
    EXPECT_EQ(Blocks("[Workbench]\nModule=2\nSubRanges=2\n" + ThreeAndTwo +
                     "[ActionsOnEMSAutoTest]\n" + One("Frequ", "WAIT:1") + "[ActionsOnStep1]\n" +
                     One("Enter", "WAIT:2") + "[ActionsOnStep2]\n" + One("Enter", "WAIT:4")),
              "step 1: 1 action, 0:00:00.002\n"
              "  x1      Wait: 0.002 s\n"
              "\n"
              "new frequency, 3 + 2 times: 5 actions, 0:00:00.005\n"
              "  x5      Wait: 0.001 s\n"
              "\n"
              "step 2: 1 action, 0:00:00.004\n"
              "  x1      Wait: 0.004 s\n"
              "\n"
              "Time       0:00:05.011: 0:00:00.011 waits of actions, 0:00:05 dwelling on "
              "frequencies\n");
}

TEST_F(PlanCommandTest, StepsAloneAndASequenceHaveNoFrequencies) {
    EXPECT_EQ(
        Blocks("[Workbench]\nModule=3\nSubRanges=1\n[ActionsOnStep1]\n" + One("Enter", "WAIT:2")),
        "step 1: 1 action, 0:00:00.002\n"
        "  x1      Wait: 0.002 s\n"
        "\n"
        "Time       0:00:00.002: 0:00:00.002 waits of actions, 0:00:00 dwelling on "
        "frequencies\n");
    EXPECT_EQ(Blocks("[Workbench]\nModule=5\nSubRanges=1\n[ActionsOnTest1]\n" +
                     One("Enter", "WAIT:2") + One("Leave", "SOUND:")),
              "before test 1: 1 action, 0:00:00.002\n"
              "  x1      Wait: 0.002 s\n"
              "\n"
              "after test 1: 1 action\n"
              "  x1      Notify: Beep\n"
              "\n"
              "Time       0:00:00.002: 0:00:00.002 waits of actions, 0:00:00 dwelling on "
              "frequencies\n");
}

TEST_F(PlanCommandTest, AnEmissionTestAndAnAzimuthChartAreToldByMoments) {
    EXPECT_EQ(
        Blocks("[Workbench]\nModule=4\nSubRanges=1\n" + ThreeAndTwo + "[ActionsOnEMIAutoTest]\n" +
               One("Frequ", "WAIT:1") + "[ActionsOnStep1]\n" + One("Enter", "WAIT:2")),
        "before step 1: 1 action, 0:00:00.002\n"
        "  x1      Wait: 0.002 s\n"
        "\n"
        "new frequency, 3 times: 3 actions, 0:00:00.003\n"
        "  x3      Wait: 0.001 s\n"
        "\n"
        "Time       0:00:03.005: 0:00:00.005 waits of actions, 0:00:03 dwelling on "
        "frequencies\n");
    EXPECT_EQ(Blocks("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n" + One("Frequ", "WAIT:1"),
                     [] {
                         TestArguments arguments;
                         arguments.sweeps = {"1kHz..1kHz/1%"};
                         return arguments;
                     }()),
              "new frequency, 1 time: 1 action, 0:00:00.001\n"
              "  x1      Wait: 0.001 s\n"
              "\n"
              "Time       0:00:00.001: 0:00:00.001 waits of actions, 0:00:00 dwelling on "
              "frequencies\n");
}

TEST_F(PlanCommandTest, TrackingIsOneBlockWithItsStartAndItsFrequencies) {
    EXPECT_THAT(Blocks("[Workbench]\nModule=0\nSubRanges=2\n" + ThreeAndTwo + "[ActionsOnTest]\n" +
                       One("Frequ", "FREQTRACK:Meter,100")),
                StartsWith("start of test; new frequency, 3 + 2 times: 6 actions, 0:00:00.600\n"
                           "  x6      Track frequency: Meter\n"));
}

const std::string StartOfTest = "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n";

TEST_F(PlanCommandTest, AnErrorIsTheExitCodeAndStandsInTheHeadWithItsPlace) {
    const std::string page = PlanOfText(StartOfTest +
                                        "NumOfEnterActions=3\nEnterAction1=WAIT:5\n"
                                        "EnterAction2=WIAT:5\nEnterAction3=WAIT:6\n" +
                                        One("Leave", "WAIT:7"));
    EXPECT_EQ(page,
              "Module     0 aceTemplate: single test, 0 subranges\n"
              "Time       0:00:00.012: 0:00:00.012 waits of actions, 0:00:00 dwelling on "
              "frequencies\n"
              "Note       no sweep in [Workbench.Subrange1] and no --sweep, so no frequency is "
              "run\n"
              "Ends       start of test: ERROR 13: type mismatch at " +
                  Path("test.ini") +
                  ":7: [ActionsOnTest] EnterAction2 \"WIAT:5\"\n"
                  "\n"
                  "start of test: 2 actions, 0:00:00.005\n"
                  "  x1      Wait: 0.005 s\n"
                  "  x1      (an entry that came back empty from the file)\n"
                  "\n"
                  "end of test: 1 action, 0:00:00.007\n"
                  "  x1      Wait: 0.007 s\n"
                  "\n"
                  "never runs:\n"
                  "  x0      [ActionsOnTest] EnterAction3 Wait: 0.006 s\n");
    EXPECT_EQ(outcome, Outcome::Failed);
}

TEST_F(PlanCommandTest, AnActionThatStopsTheTestStandsInTheHead) {
    EXPECT_THAT(PlanOfText(StartOfTest + One("Enter", "STOP:")),
                HasSubstr("\nEnds       start of test: the test is stopped, behind "
                          "[ActionsOnTest] EnterAction1 Stop test\n\n"));
    EXPECT_EQ(outcome, Outcome::Finished);
}

/// The second and third subrange enter with the same action, but for the end of a long command.
std::string ThreeSubranges(const std::string& third) {
    return "[Workbench]\nModule=0\nSubRanges=3\n[ActionsOnSR1]\n" + One("Enter", "WAIT:1") +
           "[ActionsOnSR2]\n" + One("Enter", "REMOTE:SOUR:CORR:STAT OFF;FREQ 1,0,5,0,,0,") +
           "[ActionsOnSR3]\n" +
           One("Enter", "REMOTE:SOUR:CORR:STAT OFF;FREQ " + third + ",0,5,0,,0,");
}

TEST_F(PlanCommandTest, ListsWithTheSameActionsAreToldAsOne) {
    EXPECT_THAT(Blocks(ThreeSubranges("1")),
                StartsWith("enter subrange 1: 1 action, 0:00:00.001\n"
                           "  x1      Wait: 0.001 s\n"
                           "\n"
                           "enter subrange 2 to 3 (2 times): 2 actions\n"
                           "  x2      Remote: Gpib0:5,SOUR:CORR:STAT OFF;F...\n"
                           "\n"
                           "Commands"));
    const std::string differs = Blocks(ThreeSubranges("2"));
    EXPECT_THAT(differs, HasSubstr("\nenter subrange 2: 1 action\n"));
    EXPECT_THAT(differs, HasSubstr("\nenter subrange 3: 1 action\n"));
}

TEST_F(PlanCommandTest, TheFrequenciesOfVeryManySweepsAreTheirSum) {
    std::string text = "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n" + One("Frequ", "WAIT:1");
    for (int sweep = 1; sweep <= 9; ++sweep) {
        text += "[Workbench.Subrange" + std::to_string(sweep) +
                "]\nStartHz=1\nStopHz=2\nStepPercent=100\n";
    }
    EXPECT_THAT(Blocks(text), StartsWith("new frequency, 18 times in 9 sweeps: 18 actions, "));
}

TEST_F(PlanCommandTest, AQuestionThatNobodyAnswersIsANoteAndAnAnswerThatFitsNothingIsTold) {
    const std::string text = StartOfTest + One("Enter", "QUESTION:Door?,,0");
    const std::string note =
        "\nNote       questions are taken as Yes; without --ask or a line of "
        "--answers a run stops there\n";
    EXPECT_THAT(PlanOfText(text), HasSubstr(note));
    Write("answers.txt", "* | question | Door? | Yes\n* | question | Lamp? | Yes\n");
    TestArguments arguments;
    arguments.answers = Path("answers.txt");
    const std::string page = PlanOfText(text, arguments);
    EXPECT_THAT(page, Not(HasSubstr(note)));
    EXPECT_THAT(page, HasSubstr("\n  x1      question \"Door?\", start of test: Yes by the answers "
                                "file\n"));
    EXPECT_THAT(page,
                HasSubstr("\nUnused     line 2 of the answers: * | question | Lamp? | Yes\n"));
}

TEST_F(PlanCommandTest, WhatTheBenchLacksIsANoteAndAFailureForTheOperator) {
    Write("bench.ini", "[Devices]\nAmp=Amplifiers\n");
    TestArguments arguments;
    arguments.devices = Path("bench.ini");
    const std::string page = PlanOfText(StartOfTest +
                                            "NumOfEnterActions=2\n"
                                            "EnterAction1=SWITCHAMP:Amp,3\n"
                                            "EnterAction2=SWITCHAMP:Amq,3\n",
                                        arguments);
    EXPECT_THAT(page, HasSubstr("\nNote       the file of the devices has no device \"Amq\"\n"));
    EXPECT_THAT(page, HasSubstr("\nShown to the operator:\n  x1      failure \"An amplifier could "
                                "not be switched. / Device: Amq / "));
    EXPECT_THAT(page, HasSubstr("\nDevices:\n  Amp: operate\n"));
    EXPECT_THAT(page, HasSubstr("\nUnknown    how long it takes: the operator (1 dialog)\n"));
    EXPECT_EQ(outcome, Outcome::Finished);
}

TEST_F(PlanCommandTest, ActionsThatWaitForADeviceHaveABlockOfTheirOwn) {
    const std::string page =
        PlanOfText("[Workbench]\nModule=1\nSubRanges=2\n" + ThreeAndTwo +
                   "[Workbench.Channel2]\nDevice=EUT\nNoGoAbove=0.5\n[ActionsOnChannel1]\n" +
                   One("Enter", "WAIT:500") + "[ActionsOnChannel2]\n" + One("Enter", "WAIT:600"));
    EXPECT_THAT(page, HasSubstr("\n\nonly when a device changes the channel:\n"
                                "  EUT: [ActionsOnChannel2] EnterAction1 Wait: 0.600 s\n\n"));
    EXPECT_THAT(page, ::testing::EndsWith("\nnever runs:\n  x0      [ActionsOnChannel1] "
                                          "EnterAction1 Wait: 0.500 s\n"));
}

/// The first row is ruled out by the flag of the bandwidth; of the second one the matrix has no
/// power.
TEST_F(PlanCommandTest, RowsOfAMatrixThatNeverRunAreTold) {
    EXPECT_EQ(Blocks("[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=1\n"
                     "BandwidthName0=narrow\nPowerName0=low\n"
                     "[ActionsOnVKSTemplate_0]\nCount=2\nFreq=0\nBandwidth=0\nPower=1\n"
                     "[ActionsOnStep_0_1_VKS]\nID0=-1\nID1=0\nID2=0\n[ActionsOnStep_0_1]\n" +
                     One("Enter", "WAIT:1") +
                     "[ActionsOnStep_0_2_VKS]\nID0=-1\nID1=-1\nID2=1\n[ActionsOnStep_0_2]\n" +
                     One("Enter", "WAIT:2")),
              "no actions\n"
              "\n"
              "never runs:\n"
              "  x0      [ActionsOnStep_0_2] EnterAction1 Wait: 0.002 s\n"
              "\n"
              "never runs, because the matrix has no such row:\n"
              "  x0      [ActionsOnStep_0_1] 1 action\n"
              "\n"
              "Time       0:00:00: 0:00:00 waits of actions, 0:00:00 dwelling on frequencies\n");
}

TEST_F(PlanCommandTest, OfManyActionsThatNeverRunTheFirstAreTold) {
    std::string text = StartOfTest + "NumOfEnterActions=33\nEnterAction1=STOP:\n";
    for (int entry = 2; entry <= 33; ++entry) {
        text += "EnterAction" + std::to_string(entry) + "=WAIT:1\n";
    }
    const std::string page = PlanOfText(text);
    EXPECT_THAT(page, HasSubstr("\n  x0      [ActionsOnTest] EnterAction31 Wait: 0.001 s\n"
                                "  and 2 actions more\n"));
    EXPECT_THAT(page, Not(HasSubstr("EnterAction32")));
}

/// Each subrange has a list like no other.
TEST_F(PlanCommandTest, OfThousandsOfListsAPageTellsTheFirst) {
    std::string text = "[Workbench]\nModule=0\nSubRanges=2000\n";
    for (int number = 1; number <= 2000; ++number) {
        const std::string n = std::to_string(number);
        text += "[ActionsOnSR" + n + "]\nNumOfEnterActions=2\nEnterAction1=NOTIFY:Ant. " + n +
                ",,0\nEnterAction2=SWITCHUNIT:Unit " + n + ",A\n";
    }
    const std::string page = PlanOfText(text);
    EXPECT_THAT(page, HasSubstr("\n\nenter subrange 100: 2 actions\n  x1      Notify: Ant. 100\n"
                                "  x1      Switch unit: Unit 100 --> A\n\nand 1900 lists more\n"));
    EXPECT_THAT(page, HasSubstr("\"Ant. 100\", enter subrange 100\n  and 1900 dialogs more\n"));
    EXPECT_THAT(page, HasSubstr("\n  Unit 100: path A\n  and 1900 devices more\n"));
    EXPECT_LT(std::ranges::count(page, '\n'), 700);
}

TEST_F(PlanCommandTest, AFileWithoutActionsSaysSo) {
    EXPECT_EQ(PlanOfText("[Workbench]\nModule=6\n[Workbench.Subrange1]\nStartHz=1\nStopHz=1\n"
                         "StepPercent=1\nDwellMs=500\n"),
              "Module     6 aceAziChart: azimuth chart\n"
              "Sweep 1    1 Hz to 1 Hz in steps of 1 %: 1 frequency, 0.5 s each\n"
              "Time       0:00:00.500: 0:00:00 waits of actions, 0:00:00.500 dwelling on "
              "frequencies\n"
              "\n"
              "no actions\n");
}

TEST_F(PlanCommandTest, WhatCantBePlannedIsRefusedWithoutAPage) {
    std::ostringstream out;
    TestArguments arguments;
    const auto refusal = [&] { return RefusalOf([&] { PlanCommand(arguments, out); }); };
    arguments.file = Path("missing.ini");
    EXPECT_EQ(refusal(), "4 " + Path("missing.ini") + ": there is no such file");
    arguments.file = Examples + "load_stops.ini";
    EXPECT_THAT(refusal(), StartsWith("4 " + arguments.file + ":5: [ActionsOnTest] \"; switch"));
    arguments.file = Examples + "ri_template.ini";
    arguments.sweeps = {"1..2"};
    EXPECT_THAT(refusal(), StartsWith("5 --sweep: "));
    arguments.sweeps = {};
    arguments.module = "9";
    EXPECT_THAT(refusal(), StartsWith("5 --module: "));
    arguments.module = std::nullopt;
    arguments.answers = Path("missing.txt");
    EXPECT_EQ(refusal(), "4 " + Path("missing.txt") + ": there is no such file");
    arguments.answers = std::nullopt;
    arguments.devices = Path("missing.txt");
    EXPECT_EQ(refusal(), "4 " + Path("missing.txt") + ": there is no such file");
    EXPECT_EQ(out.str(), "");
}

/// As a run refuses it; without devices the plan has one thing more to say.
TEST_F(PlanCommandTest, AChannelIsWatchedByADeviceOfTheBench) {
    Write("bench.ini", "[Devices]\nEUT=Amplifiers\n");
    TestArguments arguments;
    arguments.devices = Path("bench.ini");
    const std::string text =
        "[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Channel1]\nName=Speed\nDevice=EUT\n"
        "NoGoAbove=0.5\n";
    EXPECT_EQ(RefusalOf([&] { PlanOfText(text, arguments); }),
              "5 channel \"Speed\" is watched by \"EUT\": say with --devices which monitoring "
              "device that is");
    EXPECT_THAT(PlanOfText(text),
                HasSubstr("\nNote       a run needs --devices, because devices watch channels\n"));
}

TEST_F(PlanCommandTest, TheFileIsReadAndNeverWritten) {
    const std::string text = StartOfTest + One("Enter", "WAIT:1");
    PlanOfText(text);
    EXPECT_EQ(Read("test.ini"), text);
    EXPECT_THAT(Names(), ::testing::ElementsAre("test.ini"));
}

}  // namespace
}  // namespace ace::workbench
