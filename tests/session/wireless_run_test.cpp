#include "workbench/session/wireless_run.h"

#include <ace/core/actions_engine.h>

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::string AlwaysYes = "* | question | * | always Yes\n";

std::string Enter(const std::string& action) {
    return "NumOfEnterActions=1\nEnterAction1=" + action + "\n";
}
std::string Leave(const std::string& action) {
    return "NumOfLeaveActions=1\nLeaveAction1=" + action + "\n";
}

// ---- wireless tests ----------------------------------------------------------------------------

/// Two steps of the one test; `actions` are those of the first.
std::string TwoSteps(const std::string& actions) {
    return "[Workbench]\nModule=7\nSubRanges=1\n[Workbench.Placeholders]\n#PLACE#=the left\n"
           "[ActionsOnVKSTemplate]\n" +
           Enter("WAIT:1") + Leave("WAIT:2") + "[ActionsOnTest1]\n" + Enter("WAIT:3") +
           Leave("WAIT:4") +
           "[ActionsOnTest1_VKS]\nVKS_UKey=U\nSUBSTEPS=2\n"
           "[ActionsOnStepU_1]\n" +
           actions + "[ActionsOnStepU_1_VKS]\nVKS_Key=A\nVKS_Name=Power\n[ActionsOnStepU_2]\n" +
           Enter("WAIT:5") + "[ActionsOnStepU_2_VKS]\nVKS_Key=B\n";
}

TEST_F(SessionTest, WirelessTestsRunFromTheFileWithAVerdictForEachStep) {
    EXPECT_EQ(RunText(TwoSteps(Enter("QUESTION:Within limits?,,0")), AlwaysYes), Outcome::Finished);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: wait 0.001 s", "before test U: wait 0.003 s",
                    "test U step A: question \"Within limits?\": Yes",
                    "test U step A: verdict of \"Power\": passed", "test U step B: wait 0.005 s",
                    "test U step B: verdict of \"B\": passed", "after test U: wait 0.004 s",
                    "end of test: wait 0.002 s"));
    EXPECT_EQ(summary.wirelessSteps, 2U);
    EXPECT_THAT(summary.verdicts, ElementsAre(2U, 0U, 0U, 0U));
}

TEST_F(SessionTest, AStepThatFailsDoesNotStopTheTest) {
    EXPECT_EQ(RunText(TwoSteps("NumOfEnterActions=2\nEnterAction1=QUESTION:Within limits?,,0\n"
                               "EnterAction2=WAIT:6\n"),
                      "* | question | * | No\n"),
              Outcome::Finished);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: wait 0.001 s", "before test U: wait 0.003 s",
                    "test U step A: question \"Within limits?\": No", "test U step A: wait 0.006 s",
                    "test U step A: verdict of \"Power\": failed", "test U step B: wait 0.005 s",
                    "test U step B: verdict of \"B\": passed", "after test U: wait 0.004 s",
                    "end of test: wait 0.002 s"));
    EXPECT_THAT(summary.verdicts, ElementsAre(1U, 1U, 0U, 0U));
}

TEST_F(SessionTest, AStepWithoutActionsHasNoVerdict) {
    RunText(TwoSteps(""));
    EXPECT_THAT(kept.lines, Contains("test U step A: verdict of \"Power\": n.a., because the step "
                                     "has no actions"));
    EXPECT_THAT(summary.verdicts, ElementsAre(1U, 0U, 0U, 1U));
}

const std::string BrokenOff =
    "test U step A: verdict of \"Power\": n.a., because the step was broken off";

TEST_F(SessionTest, AStepThatAnActionBreaksOffHasNoVerdictAndTheNextIsNotReached) {
    EXPECT_EQ(RunText(TwoSteps("NumOfEnterActions=2\nEnterAction1=STOP:\n"
                               "EnterAction2=QUESTION:Within limits?,,0\n"),
                      AlwaysYes),
              Outcome::Stopped);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "before test U: wait 0.003 s", BrokenOff,
                            "test U step A: the test is stopped", "end of test: wait 0.002 s"));
    EXPECT_EQ(summary.wirelessSteps, 2U);
    EXPECT_THAT(summary.verdicts, ElementsAre(0U, 0U, 1U, 0U));
}

TEST_F(SessionTest, AStepThatFailedBeforeItWasBrokenOffHasFailed) {
    RunText(TwoSteps("NumOfEnterActions=2\nEnterAction1=QUESTION:Within limits?,,0\n"
                     "EnterAction2=STOP:\n"),
            "* | question | * | No\n");
    EXPECT_THAT(summary.verdicts, ElementsAre(0U, 1U, 0U, 0U));
}

TEST_F(SessionTest, AnErrorOrAMissingAnswerLeavesAStepWithoutVerdict) {
    EXPECT_EQ(RunText(TwoSteps("NumOfEnterActions=1\n")), Outcome::Failed);  // an empty entry
    EXPECT_THAT(kept.lines, Contains(BrokenOff));
    kept.lines.clear();
    EXPECT_EQ(RunText(TwoSteps(Enter("QUESTION:Within limits?,,0"))), Outcome::Unanswered);
    EXPECT_THAT(kept.lines, Contains(BrokenOff));
}

TEST_F(SessionTest, PlaceholdersOfTheSetUpStandInTheActionsOfWirelessTests) {
    RunText(TwoSteps(Enter("QUESTION:Lamp on #PLACE# side of #BW#?,,0")), AlwaysYes);
    EXPECT_THAT(kept.lines, Contains("test U step A: question \"Lamp on the left side of #BW#?\": "
                                     "Yes"));
}

// ---- the matrix --------------------------------------------------------------------------------

/// Template `number` on the test mode and 100 Hz, one bandwidth and two powers.
std::string MatrixOf(int number, const std::string& more) {
    return "[Workbench]\nModule=8\nSubRanges=" + std::to_string(number) +
           "\n[Workbench.DUT]\nFreq0=0\nFreq1=100\nBandwidthName0=B\nPowerName0=low\n"
           "PowerName1=high\n" +
           more;
}

const std::string ByFrequency =
    "[ActionsOnVKSTemplate_0]\nCount=2\nFreq=1\nBandwidth=0\nPower=0\n[ActionsOnStep_0_1]\n" +
    Enter("QUESTION:#MEASFREQ# #FREQ# #BW# #POWER# #HOPPING#,,0") +
    "[ActionsOnStep_0_1_VKS]\nID0=100\n[ActionsOnStep_0_2]\n" + Enter("WAIT:2") +
    "[ActionsOnStep_0_2_VKS]\nID0=0\n";

TEST_F(SessionTest, EachCombinationRunsItsRowWithItsPlaceholders) {
    EXPECT_EQ(RunText(MatrixOf(0, ByFrequency), AlwaysYes), Outcome::Finished);
    const std::string all = ", all bandwidths, all powers: 1 action";
    EXPECT_THAT(kept.lines, ElementsAre("before row 1: test mode, B, low, as test mode" + all,
                                        "matrix row 1: wait 0.002 s",
                                        "before row 2: test mode, B, high, as test mode" + all,
                                        "matrix row 2: wait 0.002 s",
                                        "before row 3 100 Hz: 100 Hz, B, low, as 100 Hz" + all,
                                        "matrix row 3 100 Hz: question \"100 100 B low 0\": Yes",
                                        "before row 4 100 Hz: 100 Hz, B, high, as 100 Hz" + all,
                                        "matrix row 4 100 Hz: question \"100 100 B high 0\": Yes"));
}

TEST_F(SessionTest, APlaceholderOfTheSetUpWinsOverThatOfTheRow) {
    RunText(MatrixOf(0, "[Workbench.Placeholders]\n#BW#=1M\n#HOPPING#=1\n" + ByFrequency),
            AlwaysYes);
    EXPECT_THAT(kept.lines, Contains("matrix row 3 100 Hz: question \"100 100 1M low 1\": Yes"));
}

TEST_F(SessionTest, TheListsForAllRowsRunAroundEachRow) {
    EXPECT_EQ(
        RunText(MatrixOf(3, "[ActionsOnVKSTemplate_3]\nCount=0\n[ActionsOnVKSDUTGlob]\n" +
                                Enter("QUESTION:at #MEASFREQ# with #POWER#,,0") + Leave("WAIT:2")),
                AlwaysYes),
        Outcome::Finished);
    const std::string other = ", as all frequencies, all bandwidths, all powers: no actions";
    ASSERT_EQ(kept.lines.size(), 12U);
    EXPECT_EQ(kept.lines[0],
              "before row 1: test mode, B, low, as test mode, all bandwidths, all powers: no "
              "actions");
    EXPECT_EQ(kept.lines[1], "before row 1: question \"at 0 with low\": Yes");
    EXPECT_THAT(std::vector(kept.lines.begin() + 6, kept.lines.end()),
                ElementsAre("before row 3 100 Hz: 100 Hz, B, low" + other,
                            "before row 3 100 Hz: question \"at 100 with low\": Yes",
                            "after row 3 100 Hz: wait 0.002 s",
                            "before row 4 100 Hz: 100 Hz, B, high" + other,
                            "before row 4 100 Hz: question \"at 100 with high\": Yes",
                            "after row 4 100 Hz: wait 0.002 s"));
}

TEST_F(SessionTest, ARowThatStopsIsTheLastAndNoListForAllRowsFollowsIt) {
    EXPECT_EQ(RunText(MatrixOf(0, ByFrequency), "* | question | * | No\n"), Outcome::Stopped);
    ASSERT_FALSE(kept.lines.empty());
    EXPECT_EQ(kept.lines.back(), "matrix row 3 100 Hz: the test is stopped");
}

TEST_F(SessionTest, TheSetUpSaysWhatInfluencesTheRowsAndTheOthersGo) {
    RunText(MatrixOf(0, "InfluencedByFreq=0\n" + ByFrequency));
    EXPECT_THAT(kept.lines,
                ElementsAre("before row 1: test mode, B, low, as test mode, all bandwidths, all "
                            "powers: 1 action",
                            "matrix row 1: wait 0.002 s",
                            "before row 2: test mode, B, high, as test mode, all bandwidths, all "
                            "powers: 1 action",
                            "matrix row 2: wait 0.002 s",
                            "before row 3 100 Hz: 100 Hz, B, low, as all frequencies, all "
                            "bandwidths, all powers: no actions",
                            "before row 4 100 Hz: 100 Hz, B, high, as all frequencies, all "
                            "bandwidths, all powers: no actions"));
}

TEST_F(SessionTest, AMatrixKnowsItsTablesBeforeItRuns) {
    const std::string text = MatrixOf(0, ByFrequency);
    Write("test.ini", text);
    ThreadContext context(std::make_shared<SessionHost>());
    aceActionsEngine engine(context);
    engine.LoadActions(WidePath("test.ini"), 0, aceVKSDUT);
    AnnounceWireless(engine, SetUpOf(text));
    const EngineState& state = engine.State();
    ASSERT_EQ(state.VKSDUTFreqCount, 2);
    EXPECT_EQ(state.VKSDUTFreqs[1], 100.0);
    EXPECT_EQ(state.VKSDUTFreqNames[0], L"test mode");
    ASSERT_EQ(state.VKSDUTBandwidthCount, 1);
    EXPECT_EQ(state.VKSDUTBandwidthNames[0], L"B");
    ASSERT_EQ(state.VKSDUTPowerCount, 2);
    EXPECT_EQ(state.VKSDUTPowerNames[1], L"high");
    EXPECT_TRUE(state.VKSInfByFreq);
    EXPECT_FALSE(state.VKSInfByPower);
    EXPECT_EQ(state.VKSStepCount, 2);  // both rows of the file
}

}  // namespace
}  // namespace ace::workbench
