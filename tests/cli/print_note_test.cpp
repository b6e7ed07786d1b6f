/// What the note below a print tells.
#include <gmock/gmock.h>

#include "print_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::EndsWith;
using ::testing::StartsWith;

TEST_F(PrintCommandTest, APrintThatSaysEverythingHasNoNote) {
    EXPECT_EQ(Note("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n"
                   "NumOfEnterActions=2\nEnterAction1=WAIT:5\n"
                   "EnterAction2=REMOTE:OUTP:STAT OFF;*WAI;X,0,13,0,,0,\n"
                   "NumOfFreqActions=1\nFrequAction1=WAIT:5\n"),
              "");
}

TEST_F(PrintCommandTest, TheListBehindTheMonitoringLoopIsLeftOutAndAnotherIsPrintedInItsPlace) {
    const std::string print = Below(
        "[Workbench]\nModule=1\nSubRanges=0\n[ActionsOnMonTestLoop]\n"
        "NumOfEnterActions=1\nEnterAction1=WAIT:10\n"
        "NumOfLeaveActions=2\nLeaveAction1=WAIT:1\nLeaveAction2=WAIT:2\n"
        "NumOfMlcActions=1\nMLLeaAction1=WAIT:3\n");
    EXPECT_EQ(print,
              "Actions:\n\n"
              "Test : Before the test\n"
              "   Wait:                0.010 s\n\n"
              "Test : After the test\n"
              "   Wait:                0.003 s\n\n"
              "+--------------------------------------------------------------+\n"
              "| NOT ON THIS PRINT: 2 actions                                 |\n"
              "|    2  Test loop: After the test loop, [ActionsOnMonTestLoop] |\n"
              "|       LeaveAction1-2                                         |\n"
              "| PRINTED, BUT NEVER RUN: 1 action                             |\n"
              "|    1  [ActionsOnMonTestLoop] MLLeaAction1                    |\n"
              "+--------------------------------------------------------------+\n");
}

TEST_F(PrintCommandTest, TheEveryFrequencyListOfASusceptibilityTestIsLeftOut) {
    EXPECT_EQ(Note("[Workbench]\nModule=2\nSubRanges=0\n[ActionsOnEMSAutoTest]\n"
                   "NumOfFreqActions=3\nFrequAction1=WAIT:1\nFrequAction2=WAIT:2\n"
                   "FrequAction3=WAIT:3\n"),
              "+---------------------------------------------+\n"
              "| NOT ON THIS PRINT: 3 actions                |\n"
              "|    3  [ActionsOnEMSAutoTest] FrequAction1-3 |\n"
              "+---------------------------------------------+\n");
}

TEST_F(PrintCommandTest, ListsThatNoMomentRunsAreLeftOutToo) {
    EXPECT_EQ(Note("[Workbench]\nModule=0\nSubRanges=1\n[ActionsOnSR1]\n"
                   "NumOfFreqActions=1\nFrequAction1=WAIT:1\n"
                   "NumOfMlcActions=1\nMLLeaAction1=WAIT:2\n"),
              "+-----------------------------------+\n"
              "| NOT ON THIS PRINT: 2 actions      |\n"
              "|    1  [ActionsOnSR1] FrequAction1 |\n"
              "|    1  [ActionsOnSR1] MLLeaAction1 |\n"
              "+-----------------------------------+\n");
}

TEST_F(PrintCommandTest, CommandsOfMoreThanTwentyCharactersAreCountedAsCut) {
    const std::string file =
        "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=3\n"
        "EnterAction1=REMOTE:12345678901234567890,0,13,0,,0,\n"
        "EnterAction2=REMOTE:123456789012345678901,0,13,0,,0,\n"
        "EnterAction3=REMOTE:,,,,prog.exe,0,\n";
    EXPECT_EQ(Note(file),
              "+--------------------------------------+\n"
              "| PRINTED WITHOUT THEIR END: 1 command |\n"
              "+--------------------------------------+\n");
}

TEST_F(PrintCommandTest, AProgramThatStartsBesideACommandIsToldBecauseThePrintHasTheCommandAlone) {
    EXPECT_EQ(Note("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=4\n"
                   "EnterAction1=REMOTE:*RST,0,5,3,,0,\n"
                   "EnterAction2=REMOTE:*RST,0,5,3,prog.exe,0,\n"
                   "EnterAction3=REMOTE:,,,,prog.exe,0,\n"
                   "EnterAction4=DLL:C:\\tools\\prog.exe\n"),
              "+------------------------------------------------------------------+\n"
              "| A PART IS NOT ON THIS PRINT: 1 action                            |\n"
              "|    1  At the start of the azimuth chart, [ActionsOnAzimuthChart] |\n"
              "|       EnterAction2: its program                                  |\n"
              "+------------------------------------------------------------------+\n");
}

TEST_F(PrintCommandTest, ActionsThatCannotRunAtAFrequencyArePrintedThereButNeverRun) {
    EXPECT_EQ(Note("[Workbench]\nModule=1\nSubRanges=0\n[ActionsOnEutMon]\n"
                   "NumOfEnterActions=1\nEnterAction1=NOTIFY:Go,,0\n"
                   "NumOfFreqActions=3\nFrequAction1=WAIT:1\nFrequAction2=NOTIFY:Go,,0\n"
                   "FrequAction3=NOTIFY:On,,0\n"),
              "+----------------------------------------------------------+\n"
              "| PRINTED, BUT NEVER RUN: 2 actions                        |\n"
              "|    1  At every frequency, [ActionsOnEutMon] FrequAction2 |\n"
              "|    1  At every frequency, [ActionsOnEutMon] FrequAction3 |\n"
              "+----------------------------------------------------------+\n");
}

/// What stands behind the last "\" is printed, and belongs to an argument in the entries that
/// count.
TEST_F(PrintCommandTest, ACommandLineThatIsPrintedWithoutTheNameOfItsProgramIsTold) {
    const auto notesOf = [&](const std::string& commandLine) {
        const std::string note = Note(
            "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
            "EnterAction1=REMOTE:,,,," +
            commandLine + ",0,\n");
        return note.find("EnterAction1: its program's name") != std::string::npos;
    };
    EXPECT_TRUE(notesOf(R"("C:\My Tools\prog.exe" /log D:\eut.csv)"));
    EXPECT_TRUE(notesOf(R"(prog.exe /log D:\eut.csv)"));
    EXPECT_TRUE(notesOf(R"(C:\prog.exe D:\)"));
    EXPECT_FALSE(notesOf(R"("C:\My Tools\prog.exe" /log eut.csv)"));
    EXPECT_FALSE(notesOf(R"("C:\My Tools\prog.exe)"));
    EXPECT_FALSE(notesOf(R"(C:\tools\prog.exe /log eut.csv)"));
    EXPECT_FALSE(notesOf("prog.exe"));
}

TEST_F(PrintCommandTest,
       AMonitoringDeviceBesideAGeneratorIsToldBecauseThePrintHasTheGeneratorAlone) {
    EXPECT_EQ(Note("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfFreqActions=2\n"
                   "FrequAction1=FREQTRACK:Gen,Path,40,0,1\nFrequAction2=FREQTRACK:Probe,20\n"),
              "+------------------------------------------------------------------------+\n"
              "| A PART IS NOT ON THIS PRINT: 1 action                                  |\n"
              "|    1  At every frequency of the azimuth chart, [ActionsOnAzimuthChart] |\n"
              "|       FrequAction2: its monitoring device                              |\n"
              "+------------------------------------------------------------------------+\n");
}

TEST_F(PrintCommandTest, EntriesThatCameBackEmptyAreToldWithTheirPlace) {
    EXPECT_EQ(Note("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=3\n"
                   "EnterAction1=WAIT:1\nEnterAction2=WIAT:1\n"),
              "+--------------------------------------------------------------------------+\n"
              "| WITHOUT A LINE, because the file has none that the list knows: 2 actions |\n"
              "|    1  At the start of the azimuth chart, [ActionsOnAzimuthChart]         |\n"
              "|       EnterAction2                                                       |\n"
              "|    1  At the start of the azimuth chart, [ActionsOnAzimuthChart]         |\n"
              "|       EnterAction3                                                       |\n"
              "+--------------------------------------------------------------------------+\n");
}

/// The influence of the frequency rules out the file's first row, so the others have moved.
TEST_F(PrintCommandTest, RowsOfAMatrixThatReadAlikeAreToldApartByTheirSections) {
    EXPECT_EQ(Note("[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=1\nFreq1=2\n"
                   "FreqName0=Tone\nFreqName1=Tone\nBandwidthName0=narrow\nPowerName0=low\n"
                   "InfluencedByFreq=1\n"
                   "[ActionsOnVKSTemplate_0]\nCount=3\nFreq=1\nBandwidth=0\nPower=0\n"
                   "[ActionsOnStep_0_1_VKS]\nID0=-1\nID1=-1\nID2=-1\n"
                   "[ActionsOnStep_0_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:10\n"
                   "[ActionsOnStep_0_2_VKS]\nID0=1\nID1=-1\nID2=-1\n"
                   "[ActionsOnStep_0_2]\nNumOfEnterActions=1\nEnterAction1=WAIT:10\n"
                   "[ActionsOnStep_0_3_VKS]\nID0=2\nID1=-1\nID2=-1\n"
                   "[ActionsOnStep_0_3]\nNumOfEnterActions=2\n"
                   "EnterAction1=WAIT:10\nEnterAction2=WAIT:10\n"),
              "+---------------------------------------------------------+\n"
              "| NOT ON THIS PRINT: 3 actions                            |\n"
              "|    1  Tone, [ActionsOnStep_0_2] EnterAction1            |\n"
              "|    2  Tone, [ActionsOnStep_0_3] EnterAction1-2          |\n"
              "| NEVER RUN, because the matrix has no such row: 1 action |\n"
              "|    1  [ActionsOnStep_0_1]                               |\n"
              "+---------------------------------------------------------+\n");
}

TEST_F(PrintCommandTest, AnEmptyPrintOfAMatrixNamesTheRowsThatItsFlagsRuleOut) {
    EXPECT_EQ(Below("[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=1\n"
                    "BandwidthName0=narrow\nPowerName0=low\n"
                    "[ActionsOnVKSTemplate_0]\nCount=1\nFreq=0\nBandwidth=0\nPower=0\n"
                    "[ActionsOnStep_0_1_VKS]\nID0=-1\nID1=0\nID2=-1\n"
                    "[ActionsOnStep_0_1]\nNumOfEnterActions=2\n"
                    "EnterAction1=WAIT:10\nEnterAction2=WAIT:10\n"),
              "the print is empty\n\n"
              "+----------------------------------------------------------+\n"
              "| NEVER RUN, because the matrix has no such row: 2 actions |\n"
              "|    2  [ActionsOnStep_0_1]                                |\n"
              "+----------------------------------------------------------+\n");
}

/// The global lists of a matrix have two moments; the editor shows no third list there.
TEST_F(PrintCommandTest, AListOfAMatrixThatTheEditorDoesNotShowIsToldByItsPlace) {
    EXPECT_EQ(Note("[Workbench]\nModule=8\nSubRanges=3\n[Workbench.DUT]\nFreq0=1\n"
                   "FreqName0=Tone\nBandwidthName0=narrow\nPowerName0=low\n"
                   "[ActionsOnVKSTemplate_3]\nCount=0\nFreq=0\nBandwidth=0\nPower=0\n"
                   "[ActionsOnVKSDUTGlob]\nNumOfFreqActions=1\nFrequAction1=WAIT:10\n"),
              "+------------------------------------------+\n"
              "| NOT ON THIS PRINT: 1 action              |\n"
              "|    1  [ActionsOnVKSDUTGlob] FrequAction1 |\n"
              "+------------------------------------------+\n");
}

TEST_F(PrintCommandTest, OfManyListsThirtyAreNamedAndTheOthersCounted) {
    std::string file = "[Workbench]\nModule=0\nSubRanges=35\n";
    for (int i = 1; i <= 35; ++i) {
        file += "[ActionsOnSR" + std::to_string(i) +
                "]\nNumOfFreqActions=2\nFrequAction1=WAIT:1\nFrequAction2=WAIT:1\n";
    }
    const std::string note = Note(file);
    EXPECT_THAT(note, StartsWith("+---------------------------------------+\n"
                                 "| NOT ON THIS PRINT: 70 actions         |\n"
                                 "|     2  [ActionsOnSR1] FrequAction1-2  |\n"));
    EXPECT_THAT(note, EndsWith("|     2  [ActionsOnSR30] FrequAction1-2 |\n"
                               "|    10  in 5 more places               |\n"
                               "+---------------------------------------+\n"));
}

}  // namespace
}  // namespace ace::workbench
