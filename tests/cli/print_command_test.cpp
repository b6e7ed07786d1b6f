/// The print of a settings file as the user reads it.
#include "workbench/cli/print_command.h"

#include "print_fixture.h"
#include "running_program.h"
#include "support/refusal.h"

namespace ace::workbench {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// ---- whole prints ------------------------------------------------------------------------------

TEST_F(PrintCommandTest, ASingleTestIsPrintedInItsColumns) {
    EXPECT_EQ(PrintOf({.file = Examples + "ri_template.ini"}), Golden("ri_template.txt"));
    EXPECT_EQ(PrintOf({.file = Examples + "demo_template.ini"}), Golden("demo_template.txt"));
}

TEST_F(PrintCommandTest, WhatBecameOfADamagedFileIsToldInTheNote) {
    EXPECT_EQ(PrintOf({.file = Examples + "lint_traps.ini"}), Golden("lint_traps.txt"));
}

TEST_F(PrintCommandTest, StepsOfWirelessTestsStandInTheNote) {
    EXPECT_EQ(PrintOf({.file = Examples + "wireless_tests.ini"}), Golden("wireless_tests.txt"));
}

TEST_F(PrintCommandTest, AMatrixHasAnEmptyPrintAndAllItsRowsInTheNote) {
    EXPECT_EQ(PrintOf({.file = Examples + "wireless_dut.ini"}), Golden("wireless_dut_0.txt"));
}

TEST_F(PrintCommandTest, TheListsForAllRowsOfAMatrixStandInTheNoteToo) {
    EXPECT_THAT(
        PrintOf({.file = Examples + "wireless_dut.ini", .matrixTemplate = "3"}),
        EndsWith("\n"
                 "the print is empty\n"
                 "\n"
                 "+---------------------------------------------------------------------+\n"
                 "| NOT ON THIS PRINT: 6 actions                                        |\n"
                 "|    3  Before specific Actions, [ActionsOnVKSDUTGlob] EnterAction1-3 |\n"
                 "|    3  After specific Actions, [ActionsOnVKSDUTGlob] LeaveAction1-3  |\n"
                 "+---------------------------------------------------------------------+\n"));
}

/// The editor has a node for the row of all frequencies, too.
TEST_F(PrintCommandTest, ARowWithoutActionsIsNotTold) {
    EXPECT_EQ(Note("[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=0\n"
                   "FreqName0=Test mode\nBandwidthName0=narrow\nPowerName0=low\n"
                   "InfluencedByFreq=0\n"
                   "[ActionsOnVKSTemplate_0]\nCount=1\nFreq=0\nBandwidth=0\nPower=0\n"
                   "[ActionsOnStep_0_1_VKS]\nID0=0\nID1=-1\nID2=-1\n"
                   "[ActionsOnStep_0_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:10\n"),
              "+---------------------------------------------------+\n"
              "| NOT ON THIS PRINT: 1 action                       |\n"
              "|    1  Test mode, [ActionsOnStep_0_1] EnterAction1 |\n"
              "+---------------------------------------------------+\n");
}

TEST_F(PrintCommandTest, ASusceptibilityTestHasThePrintsOfBothItsEngines) {
    EXPECT_EQ(Below("[Workbench]\nModule=2\nSubRanges=2\n"
                    "[ActionsOnEMSAutoTest]\nNumOfLeaveActions=1\nLeaveAction1=PARKACC:\n"
                    "[ActionsOnStep2]\nNumOfEnterActions=1\nEnterAction1=WAIT:5\n"),
              "Print of aceEMSAutoTemplateGeneral\n"
              "Actions:\n\n"
              "At the end of the test\n"
              "   Park accessories\n"
              "\n"
              "Print of aceEMSAutoTemplate\n"
              "Actions:\n\n"
              "On no-go (2)\n"
              "   Wait:                0.005 s\n");
}

TEST_F(PrintCommandTest, AnEmissionTestIsPrintedStepByStep) {
    EXPECT_EQ(Below("[Workbench]\nModule=4\nSubRanges=2\n"
                    "[ActionsOnEMIAutoTest]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n"
                    "NumOfFreqActions=1\nFrequAction1=WAIT:2\n"
                    "NumOfLeaveActions=1\nLeaveAction1=WAIT:3\n"
                    "[ActionsOnStep2]\nNumOfEnterActions=1\nEnterAction1=WAIT:4\n"
                    "NumOfLeaveActions=1\nLeaveAction1=WAIT:5\n"),
              "Actions:\n\n"
              "At the start of the test\n   Wait:                0.001 s\n\n"
              "At every frequency\n   Wait:                0.002 s\n\n"
              "Subtest 2: Before the subtest\n   Wait:                0.004 s\n\n"
              "Subtest 2: After the subtest\n   Wait:                0.005 s\n\n"
              "At the end of the test\n   Wait:                0.003 s\n");
}

TEST_F(PrintCommandTest, TestsOfASequenceArePrintedWithoutANumber) {
    EXPECT_EQ(Below("[Workbench]\nModule=5\nSubRanges=2\n"
                    "[ActionsOnTestSequence]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n"
                    "NumOfLeaveActions=1\nLeaveAction1=WAIT:2\n"
                    "[ActionsOnTest1]\nNumOfEnterActions=1\nEnterAction1=WAIT:3\n"
                    "[ActionsOnTest2]\nNumOfLeaveActions=1\nLeaveAction1=WAIT:4\n"),
              "Actions:\n\n"
              "At the start of the test sequence\n   Wait:                0.001 s\n\n"
              "Test : Before the test\n   Wait:                0.003 s\n\n"
              "Test : After the test\n   Wait:                0.004 s\n\n"
              "At the end of the test sequence\n   Wait:                0.002 s\n");
}

TEST_F(PrintCommandTest, OneOfTwoPrintsMayBeEmpty) {
    EXPECT_EQ(Below("[Workbench]\nModule=2\nSubRanges=1\n"
                    "[ActionsOnStep1]\nNumOfEnterActions=1\nEnterAction1=WAIT:5\n"),
              "Print of aceEMSAutoTemplateGeneral\n"
              "the print is empty\n"
              "\n"
              "Print of aceEMSAutoTemplate\n"
              "Actions:\n\n"
              "On no-go (1)\n"
              "   Wait:                0.005 s\n");
}

TEST_F(PrintCommandTest, AFileWithoutActionsHasAnEmptyPrintAndNoNote) {
    EXPECT_EQ(PrintOfText("[Workbench]\nModule=6\nTitle=Chart\n"),
              "Title      Chart\nModule     6 aceAziChart: azimuth chart\n\nthe print is empty\n");
}

TEST_F(PrintCommandTest, ModuleAndNumberOfSubrangesMayBeSaidInsteadOfTheFile) {
    EXPECT_EQ(Below("[ActionsOnStep1]\nNumOfEnterActions=1\nEnterAction1=WAIT:5\n",
                    {.module = "aceEMSAutoTemplate", .subRanges = "1"}),
              "Actions:\n\nOn no-go (1)\n   Wait:                0.005 s\n");
}

// ---- the text ----------------------------------------------------------------------------------

TEST_F(PrintCommandTest, OnATerminalLinesAndNoteAreBrokenAtItsWidth) {
    Write("test.ini",
          "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
          "EnterAction1=NOTIFY:Chamber door closed and lamp green?,,0\n"
          "NumOfMlcActions=2\nMLLeaAction1=WAIT:2\nMLLeaAction2=WAIT:2\n");
    EXPECT_THAT(PrintOf({.file = Path("test.ini")}, 46),
                EndsWith("\n   Notify:              \"Chamber door closed\n"
                         "                        and lamp green?\"\n\n"
                         "+-------------------------------+\n"
                         "| NOT ON THIS PRINT: 2 actions  |\n"
                         "|    2  [ActionsOnAzimuthChart] |\n"
                         "|       MLLeaAction1-2          |\n"
                         "+-------------------------------+\n"));
}

TEST_F(PrintCommandTest, ANoteIsNoWiderThanAPageOnTheWidestTerminal) {
    Write("test.ini",
          "[Workbench]\nModule=7\nSubRanges=1\n[ActionsOnTest1_VKS]\n"
          "VKS_UKey=A test whose name is long\nSUBSTEPS=1\n"
          "[ActionsOnStepA test whose name is long_1_VKS]\nVKS_Key=S\nVKS_Name=A step\n"
          "[ActionsOnStepA test whose name is long_1]\nNumOfEnterActions=1\n"
          "EnterAction1=WAIT:1\n");
    EXPECT_THAT(
        PrintOf({.file = Path("test.ini")}, 200),
        HasSubstr("|    1  A test whose name is long: A step, [ActionsOnStepA test whose name |"
                  "\n|       is long_1] EnterAction1"));
}

TEST_F(PrintCommandTest, ControlCharactersOfAFileNeverReachTheTerminal) {
    EXPECT_THAT(Below("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
                      "EnterAction1=NOTIFY:red \x1b[31m\talert,,0\n"),
                HasSubstr("   Notify:              \"red  [31m alert\"\n"));
}

TEST_F(PrintCommandTest, TheFileIsNeverWritten) {
    const std::string lists = "[Workbench]\r\nModule=6\r\n[ActionsOnAzimuthChart]\r\n";
    PrintOfText(lists);
    EXPECT_EQ(Read("test.ini"), lists);
    EXPECT_EQ(Names(), std::vector<std::string>{"test.ini"});
}

// ---- what keeps a print from being made --------------------------------------------------------

TEST_F(PrintCommandTest, ATrackedMonitoringDeviceIsToldWithItsPlace) {
    const std::string file =
        "[Workbench]\nModule=1\nSubRanges=1\n[ActionsOnEutMon]\n"
        "NumOfEnterActions=1\nEnterAction1=WAIT:1\n"
        "NumOfFreqActions=2\nFrequAction1=WAIT:1\nFrequAction2=FREQTRACK:Probe 3,20\n";
    EXPECT_EQ(
        RefusalOf([&] { PrintOfText(file); }),
        "3 " + Path("test.ini") +
            ":9: [ActionsOnEutMon] FrequAction2 \"FREQTRACK:Probe 3,20\": it can't be "
            "printed: the print asks the monitoring device for its name, and only a test looks "
            "that up; ace-workbench tree shows it (error 91)");
}

TEST_F(PrintCommandTest, OfSeveralSuchDevicesTheFirstOfThePrintIsTold) {
    const std::string file =
        "[Workbench]\nModule=1\nSubRanges=1\n"
        "[ActionsOnChannel1]\nNumOfFreqActions=1\nFrequAction1=FREQTRACK:Later,20\n"
        "[ActionsOnEutMon]\nNumOfFreqActions=1\nFrequAction1=FREQTRACK:First,20\n";
    EXPECT_THAT(RefusalOf([&] { PrintOfText(file); }), HasSubstr("\"FREQTRACK:First,20\""));
}

TEST_F(PrintCommandTest, ATrackedDeviceInAListThatIsNotPrintedIsNoError) {
    EXPECT_THAT(Note("[Workbench]\nModule=2\nSubRanges=0\n[ActionsOnEMSAutoTest]\n"
                     "NumOfFreqActions=1\nFrequAction1=FREQTRACK:Probe 3,20\n"),
                HasSubstr("|    1  [ActionsOnEMSAutoTest] FrequAction1 |"));
}

TEST_F(PrintCommandTest, ALoadThatStopsIsToldWithItsPlace) {
    const std::string file = Examples + "load_stops.ini";
    EXPECT_EQ(RefusalOf([&] { PrintOf({.file = file}); }),
              "4 " + file +
                  ":5: [ActionsOnTest] \"; switch-on sequence\": there is no \"=\" "
                  "(error 5)");
}

TEST_F(PrintCommandTest, AFileThatIsMissingOrEmptyIsToldAsInATree) {
    EXPECT_EQ(RefusalOf([&] { PrintOf({.file = Path("none.ini")}); }),
              "4 " + Path("none.ini") + ": there is no such file");
    EXPECT_THAT(RefusalOf([&] { PrintOfText(""); }), StartsWith("5 "));
}

TEST_F(PrintCommandTest, OptionsThatMakeNoSenseAreRefused) {
    EXPECT_THAT(RefusalOf([&] { PrintOfText("[Workbench]\n", {.module = "9"}); }),
                StartsWith("5 --module: \"9\" is no module"));
}

// ---- the program -------------------------------------------------------------------------------

TEST(PrintProgram, PrintsTheListsAndNothingElse) {
    RunningProgram program("\"$0\" print " + Examples + "wireless_dut.ini --template 3");
    EXPECT_THAT(
        program.ReadOutput(),
        EndsWith("+---------------------------------------------------------------------+\n"));
    EXPECT_EQ(program.ExitCode(), 0);
}

TEST(PrintProgram, KnowsTheWidthOfItsTerminal) {
    RunningProgram program("P=\"$0\" script -qec 'stty cols 50; \"$P\" print " + Examples +
                           "demo_template.ini' /dev/null < /dev/null");
    const std::string print = program.ReadOutput();
    EXPECT_THAT(print, HasSubstr("   Notify:              \"Main switch of the RF\r\n"
                                 "                        amplifiers on.\"\r\n"));
    EXPECT_EQ(program.ExitCode(), 0);
}

TEST(PrintProgram, AFailureIsOneLineOnTheErrorOutputAndNothingOnTheOther) {
    RunningProgram outputs("\"$0\" print " + Examples + "load_stops.ini 2>/dev/null");
    EXPECT_EQ(outputs.ReadOutput(), "");
    EXPECT_EQ(outputs.ExitCode(), 4);
}

TEST(PrintProgram, OutputThatIsLostIsCodeThree) {
    RunningProgram program("\"$0\" print " + Examples + "ri_template.ini > /dev/full");
    EXPECT_THAT(program.ReadOutput(), HasSubstr("the output can't be written any more"));
    EXPECT_EQ(program.ExitCode(), 3);
}

TEST(PrintProgram, WrongUseNamesTheHelpOfTheCommand) {
    RunningProgram program("\"$0\" print");
    EXPECT_THAT(program.ReadOutput(), EndsWith(" (ace-workbench print --help)\n"));
    EXPECT_EQ(program.ExitCode(), 5);
    RunningProgram help("\"$0\" print --help");
    EXPECT_THAT(help.ReadOutput(), HasSubstr("3  an action can't be printed"));
    EXPECT_EQ(help.ExitCode(), 0);
}

}  // namespace
}  // namespace ace::workbench
