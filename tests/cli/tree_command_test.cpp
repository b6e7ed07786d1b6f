/// The tree of a settings file as the user reads it.
#include "workbench/cli/tree_command.h"

#include <sstream>

#include "running_program.h"
#include "support/file_fixture.h"
#include "support/refusal.h"

namespace ace::workbench {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string Examples = std::string(ACE_EXAMPLES) + "/";

class TreeCommandTest : public FolderTest {
  protected:
    static std::string TreeOf(const SetUpArguments& arguments) {
        std::ostringstream out;
        TreeCommand(arguments, out);
        return out.str();
    }
    std::string TreeOfText(const std::string& text, SetUpArguments arguments = {}) const {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        return TreeOf(arguments);
    }
    /// What stands behind the head.
    std::string Nodes(const std::string& text, const SetUpArguments& arguments = {}) const {
        const std::string tree = TreeOfText(text, arguments);
        const std::size_t end = tree.find("\n\n");
        EXPECT_NE(end, std::string::npos) << tree;
        return tree.substr(end + 2);
    }
    static std::string Golden(const std::string& name) {
        std::ostringstream text;
        text << std::ifstream(std::string(ACE_TREES) + "/" + name).rdbuf();
        return text.str();
    }
};

TEST_F(TreeCommandTest, ASingleTestIsPrintedWithTheActionsOfEachMoment) {
    EXPECT_EQ(TreeOf({.file = Examples + "ri_template.ini"}), Golden("ri_template.txt"));
    EXPECT_EQ(TreeOf({.file = Examples + "demo_template.ini"}), Golden("demo_template.txt"));
}

TEST_F(TreeCommandTest, WirelessTestsStandInTheFilesOrderWithTheirStepsByName) {
    EXPECT_EQ(TreeOf({.file = Examples + "wireless_tests.ini"}), Golden("wireless_tests.txt"));
}

TEST_F(TreeCommandTest, AMatrixIsPrintedByTheDimensionOfItsTemplate) {
    const std::string file = Examples + "wireless_dut.ini";
    EXPECT_EQ(TreeOf({.file = file}), Golden("wireless_dut_0.txt"));
    EXPECT_EQ(TreeOf({.file = file, .matrixTemplate = "2"}), Golden("wireless_dut_2.txt"));
    EXPECT_EQ(TreeOf({.file = file, .matrixTemplate = "3"}), Golden("wireless_dut_3.txt"));
}

/// A matrix by bandwidth, of which the file has the row of the second one; `influence` stands among
/// the tables.
std::string ByBandwidth(const std::string& influence) {
    return "[Workbench]\nModule=8\nSubRanges=1\n[Workbench.DUT]\nFreq0=1000000\n"
           "BandwidthName0=narrow\nBandwidthName1=wide\nPowerName0=low\n" +
           influence +
           "[ActionsOnVKSTemplate_1]\nCount=1\nFreq=0\nBandwidth=1\nPower=0\n"
           "[ActionsOnStep_1_1_VKS]\nID0=-1\nID1=1\nID2=-1\n"
           "[ActionsOnStep_1_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:10\n";
}

TEST_F(TreeCommandTest, AMatrixHasTheRowsThatItsTablesAndItsInfluenceGiveIt) {
    EXPECT_EQ(Nodes(ByBandwidth("")),
              "* narrow: no actions\n* wide: 1 action\n  [WAI] Wait: 0.010 s\n");
    EXPECT_EQ(Nodes(ByBandwidth("InfluencedByBandwidth=0\n")), "* All Bandwidths: no actions\n");
}

TEST_F(TreeCommandTest, GroupsCountTheActionsBelowThem) {
    EXPECT_EQ(Nodes("[Workbench]\nModule=1\nSubRanges=1\n"
                    "[ActionsOnChannel1]\nNumOfEnterActions=1\nEnterAction1=COMMENT:1\n"
                    "NumOfLeaveActions=2\nLeaveAction1=WAIT:1\nLeaveAction2=PROTREC:\n"),
              "* At the start of the test: no actions\n"
              "* At every frequency: no actions\n"
              "* Test loop: no actions\n"
              "  * Before the test loop: no actions\n"
              "  * After the test loop: no actions\n"
              "* Channel 1: 3 actions\n"
              "  * On trigger: no actions\n"
              "  * On no-go: 1 action\n"
              "    [MSG] Take a comment, Subtest 1 / generator off\n"
              "  * On return to go: 2 actions\n"
              "    [WAI] Wait: 0.001 s\n"
              "    [REC] Protect receivers\n"
              "* After each level step: no actions\n"
              "* At the end of the test: no actions\n");
}

TEST_F(TreeCommandTest, ASusceptibilityTestIsPrintedWithItsSteps) {
    EXPECT_EQ(Nodes("[Workbench]\nModule=2\nSubRanges=2\n"
                    "[ActionsOnEMSAutoTest]\nNumOfLeaveActions=1\nLeaveAction1=PARKACC:\n"
                    "[ActionsOnStep2]\nNumOfEnterActions=1\nEnterAction1=WAIT:5\n"),
              "* At the start of the test: no actions\n"
              "* At the end of the test: 1 action\n"
              "  [PAC] Park accessories\n"
              "* Step no. 1: no actions\n"
              "* Step no. 2: 1 action\n"
              "  [WAI] Wait: 0.005 s\n");
}

TEST_F(TreeCommandTest, ModuleAndNumberOfSubrangesMayBeSaidInsteadOfTheFile) {
    const std::string steps = "* Step no. 1: no actions\n* Step no. 2: no actions\n";
    EXPECT_EQ(Nodes("[Other]\n", {.module = "aceEMSAutoTemplate", .subRanges = "2"}), steps);
    EXPECT_EQ(
        TreeOfText("[Other]\n", {.module = "3", .subRanges = "0"}),
        "Module     3 aceEMSAutoTemplate: steps of an automatic susceptibility test, 0 steps\n"
        "\nno moments\n");
}

TEST_F(TreeCommandTest, WhatAFileSaysOfFrequenciesDoesNotMatter) {
    const std::string tree =
        TreeOfText("[Workbench]\nModule=6\n[Workbench.Subrange1]\nStartHz=from here\n");
    EXPECT_THAT(tree, StartsWith("Module     6 aceAziChart: azimuth chart\n\n* At the start"));
}

TEST_F(TreeCommandTest, AnActionWhoseKeywordItsListLacksIsNoted) {
    EXPECT_EQ(
        TreeOfText("[Workbench]\nModule=3\nSubRanges=1\n[ActionsOnStep1]\n"
                   "NumOfEnterActions=2\nEnterAction1=RS232:MODE RUN,3\n"
                   "EnterAction2=WAIT:5\n"),
        "Module     3 aceEMSAutoTemplate: steps of an automatic susceptibility test, 1 step\n"
        "Note       [ActionsOnStep1] \"EnterAction1=RS232:MODE RUN,3\": its list does not know "
        "this keyword, so the action fails when it runs\n"
        "\n"
        "* Step no. 1: 1 action\n"
        "  [WAI] Wait: 0.005 s\n");
}

TEST_F(TreeCommandTest, ControlCharactersOfAFileNeverReachTheTerminal) {
    EXPECT_THAT(Nodes("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
                      "EnterAction1=NOTIFY:red \x1b[31m alert,,0\n"),
                HasSubstr("  [NOT] Notify: red  [31m alert\n"));
}

TEST_F(TreeCommandTest, LinesHaveNoBlanksAtTheirEndAndTheTextHasOneLineEnd) {
    const std::string tree = TreeOfText(
        "[Workbench]\nModule=6\nTitle=Blanks  \n[ActionsOnAzimuthChart]\n"
        "NumOfLeaveActions=1\nLeaveAction1=SWITCHUNIT:Matrix,\n");
    EXPECT_EQ(tree.find(" \n"), std::string::npos);
    EXPECT_THAT(tree, EndsWith("  [SWU] Switch unit: Matrix -->\n"));
}

TEST_F(TreeCommandTest, TheSameListsGiveTheSameTextUnderAnyName) {
    const std::string lists = "[Workbench]\nModule=6\n";
    Write("first.ini", lists);
    Write("second.ini", lists);
    EXPECT_EQ(TreeOf({.file = Path("first.ini")}), TreeOf({.file = Path("second.ini")}));
}

TEST_F(TreeCommandTest, TheFileIsNeverWritten) {
    const std::string lists =
        "[Workbench]\r\nModule=0\r\nSubRanges=1\r\n[ActionsOnTest]\r\n"
        "NumOfEnterActions=1\r\nEnterAction1=WAIT:1\r\n";
    Write("test.ini", lists);
    const auto before = std::filesystem::last_write_time(Path("test.ini"));
    TreeOf({.file = Path("test.ini")});
    EXPECT_EQ(Read("test.ini"), lists);
    EXPECT_EQ(std::filesystem::last_write_time(Path("test.ini")), before);
    EXPECT_EQ(Names(), std::vector<std::string>{"test.ini"});
}

// ---- what keeps a tree from being printed ------------------------------------------------------

TEST_F(TreeCommandTest, ALoadThatStopsIsToldWithItsPlace) {
    const std::string file = Examples + "load_stops.ini";
    EXPECT_EQ(RefusalOf([&] { TreeOf({.file = file}); }),
              "4 " + file +
                  ":5: [ActionsOnTest] \"; switch-on sequence\": there is no \"=\" "
                  "(error 5)");
}

TEST_F(TreeCommandTest, AFileThatIsMissingIsABadFile) {
    EXPECT_EQ(RefusalOf([&] { TreeOf({.file = Path("none.ini")}); }),
              "4 " + Path("none.ini") + ": there is no such file");
}

TEST_F(TreeCommandTest, ATreeThatCannotBeBuiltIsAnErrorOfTheRun) {
    const std::string test =
        "[Workbench]\nModule=7\nSubRanges=2\n"
        "[ActionsOnTest1_VKS]\nVKS_UKey=Twice\n"
        "[ActionsOnTest2_VKS]\nVKS_UKey=Twice\n";
    EXPECT_EQ(RefusalOf([&] { TreeOfText(test); }),
              "3 " + Path("test.ini") +
                  ": the tree can't be built: a node of it comes twice, such as a test whose "
                  "VKS_UKey another test has too (error 457)");
}

TEST_F(TreeCommandTest, ARowThatTheMatrixHasNotIsNoted) {
    EXPECT_THAT(TreeOfText("[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=1\n"
                           "BandwidthName0=narrow\nPowerName0=low\n"
                           "[ActionsOnVKSTemplate_0]\nCount=1\nFreq=0\nBandwidth=0\nPower=0\n"
                           "[ActionsOnStep_0_1_VKS]\nID0=-1\nID1=0\nID2=-1\n"
                           "[ActionsOnStep_0_1]\nNumOfEnterActions=1\nEnterAction1=WAIT:10\n"),
                HasSubstr("\nNote       [ActionsOnStep_0_1] has 1 action, but the matrix has no "
                          "such row\n"));
}

TEST_F(TreeCommandTest, OptionsThatMakeNoSenseAreRefusedAsThoseOfARun) {
    EXPECT_THAT(RefusalOf([&] { TreeOfText("[Workbench]\n", {.module = "9"}); }),
                StartsWith("5 --module: \"9\" is no module"));
    EXPECT_THAT(RefusalOf([&] { TreeOfText("[Workbench]\nModule=0\n", {.subRanges = "-1"}); }),
                StartsWith("5 --subranges: \"-1\" is no whole number"));
    EXPECT_THAT(RefusalOf([&] { TreeOfText("[Workbench]\nModule=0\n", {.matrixTemplate = "1"}); }),
                StartsWith("5 --template: a test of module aceTemplate has no template number"));
}

// ---- the program -------------------------------------------------------------------------------

TEST(TreeProgram, PrintsTheTreeAndNothingElse) {
    RunningProgram program("\"$0\" tree " + Examples + "wireless_dut.ini --template 3");
    EXPECT_THAT(program.ReadOutput(),
                EndsWith("\n  [SWU] Switch unit: Antenna Matrix --> ALL_50OHM\n"));
    EXPECT_EQ(program.ExitCode(), 0);
}

TEST(TreeProgram, AFailureIsOneLineOnTheErrorOutputAndNothingOnTheOther) {
    RunningProgram outputs("\"$0\" tree " + Examples + "load_stops.ini 2>/dev/null");
    EXPECT_EQ(outputs.ReadOutput(), "");
    EXPECT_EQ(outputs.ExitCode(), 4);
    RunningProgram errors("\"$0\" tree " + Examples + "load_stops.ini 2>&1 >/dev/null");
    EXPECT_EQ(errors.ReadOutput(), "ace-workbench: " + Examples +
                                       "load_stops.ini:5: [ActionsOnTest] \"; switch-on "
                                       "sequence\": there is no \"=\" (error 5)\n");
}

TEST(TreeProgram, OutputThatIsLostIsCodeThree) {
    RunningProgram program("\"$0\" tree " + Examples + "ri_template.ini > /dev/full");
    EXPECT_EQ(program.ReadOutput(),
              "ace-workbench: the output can't be written any more, so what "
              "it tells is not complete\n");
    EXPECT_EQ(program.ExitCode(), 3);
}

TEST(TreeProgram, WrongUseNamesTheHelpOfTheCommand) {
    RunningProgram program("\"$0\" tree");
    EXPECT_THAT(program.ReadOutput(), EndsWith(" (ace-workbench tree --help)\n"));
    EXPECT_EQ(program.ExitCode(), 5);
    RunningProgram help("\"$0\" tree --help");
    EXPECT_THAT(help.ReadOutput(), HasSubstr("3  the tree can't be built"));
    EXPECT_EQ(help.ExitCode(), 0);
}

}  // namespace
}  // namespace ace::workbench
