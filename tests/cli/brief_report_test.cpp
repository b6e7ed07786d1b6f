/// Whole runs as "--brief" tells them.
#include "workbench/cli/brief_report.h"

#include <sstream>

#include "session/session_fixture.h"
#include "workbench/cli/run_command.h"

namespace ace::workbench {
namespace {

const std::string Examples = std::string(ACE_EXAMPLES) + "/";

class BriefReportTest : public FolderTest {
  protected:
    /// What is printed behind the name of the file.
    Outcome Run(RunArguments arguments, const std::string& typed = {}) {
        arguments.brief = true;
        std::ostringstream out;
        std::istringstream in(typed);
        const Outcome outcome =
            RunCommand(arguments, {.out = out, .isInterrupted = isInterrupted, .input = {&in}});
        const std::string text = out.str();
        printed = text.substr(text.find('\n') + 1);
        return outcome;
    }
    Outcome RunExample(const std::string& file, const std::string& answers = {}) {
        RunArguments arguments;
        arguments.file = Examples + file;
        if (!answers.empty()) {
            arguments.answers = Examples + answers;
        }
        return Run(arguments);
    }
    /// The moments of `text`, and the result behind them.
    std::string Moments(const std::string& text, RunArguments arguments = {},
                        const std::string& typed = {}) {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        Run(arguments, typed);
        const std::size_t head = printed.find("\n\n") + 2;
        return printed.substr(head, printed.find("\nMoments ") + 1 - head);
    }
    static std::string Golden(const std::string& name) {
        std::ostringstream text;
        text << std::ifstream(std::string(ACE_BRIEFS) + "/" + name).rdbuf();
        return text.str();
    }
    /// On the bench: an EUT that fails as the lines of its section say.
    RunArguments WithEut(const std::string& failure) const {
        Write("bench.ini", "[Devices]\nEUT=Monitoring\n[EUT]\nFail1=1, " + failure + "\n");
        RunArguments arguments;
        arguments.devices = Path("bench.ini");
        return arguments;
    }
    std::function<bool()> isInterrupted;
    std::string printed;
};

TEST_F(BriefReportTest, AStretchOfFrequenciesIsOneLineAmongTheMoments) {
    EXPECT_EQ(RunExample("demo_template.ini", "demo_answers.txt"), Outcome::Finished);
    EXPECT_EQ(printed, Golden("demo_template.txt"));
}

TEST_F(BriefReportTest, AStepOfAWirelessTestIsToldWithItsVerdict) {
    EXPECT_EQ(RunExample("wireless_tests.ini", "wireless_answers.txt"), Outcome::Finished);
    EXPECT_EQ(printed, Golden("wireless_tests.txt"));
}

TEST_F(BriefReportTest, TheRowsOfAMatrixAreOneLineAndAFailureInEachIsTwo) {
    EXPECT_EQ(RunExample("wireless_dut.ini"), Outcome::Finished);
    EXPECT_EQ(printed, Golden("wireless_dut.txt"));
}

/// Three frequencies with `freq` at each.
std::string ThreeFrequencies(const std::string& freq) {
    return "[Workbench]\nModule=0\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=80000000\n"
           "StopHz=82000000\nStepPercent=1\nDwellMs=2000\n"
           "[ActionsOnTest]\nNumOfFreqActions=1\nFrequAction1=" +
           freq + "\nNumOfLeaveActions=1\nLeaveAction1=WAIT:250\n";
}

TEST_F(BriefReportTest, AStretchThatIsBrokenOffSaysHowFarItCame) {
    EXPECT_EQ(Moments(ThreeFrequencies("CHECKEUT:EUT,1,1,0,0,0,0.00,0,0.00,0"),
                      WithEut("80.8MHz, 9 s, 1")),
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  enter subrange 1     no actions\n"
              "0:00:02.000  new frequency        80.8 MHz        the check asks to stop the test\n"
              "0:00:02.000  frequencies          80 MHz to 80.8 MHz, 2 of 3 frequencies: 2 "
              "actions, 0:00:02\n"
              "0:00:02.000  new frequency        80.8 MHz        the test is stopped\n"
              "0:00:02.250  end of test          1 action, 0:00:00.250\n"
              "\n"
              "Result     stopped by an answer, an action or the user\n");
}

TEST_F(BriefReportTest, AStretchThatIsRunOnceMoreIsTwoLines) {
    EXPECT_EQ(Moments(ThreeFrequencies("CHECKEUT:EUT,1,0,1,0,0,0.00,0,0.00,0"),
                      WithEut("80.8MHz, 1 s, 12345")),
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  enter subrange 1     no actions\n"
              "0:00:02.000  new frequency        80.8 MHz        the check asks to repeat the "
              "measurement of the subrange\n"
              "0:00:04.000  frequencies          80 MHz to 80.8 MHz, 2 of 3 frequencies: 2 "
              "actions, 0:00:04\n"
              "0:00:10.000  frequencies          again 80 MHz to 82 MHz, 3 frequencies: 3 "
              "actions, 0:00:06\n"
              "0:00:10.000  leave subrange 1     no actions\n"
              "0:00:10.250  end of test          1 action, 0:00:00.250\n"
              "\n"
              "Result     finished\n");
}

TEST_F(BriefReportTest, ACommentIsToldOnceWhereItComesAndNotAgainAtTheEnd) {
    EXPECT_EQ(Moments(ThreeFrequencies("CHECKEUT:EUT,1,0,1,0,0,0.00,0,0.00,0"),
                      WithEut("80.8MHz, 1 s, 1")),
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  enter subrange 1     no actions\n"
              "0:00:02.000  new frequency        80.8 MHz        comment stored: \"EUT failure\"\n"
              "0:00:06.000  frequencies          80 MHz to 82 MHz, 3 frequencies: 3 actions, "
              "0:00:06\n"
              "0:00:06.000  leave subrange 1     no actions\n"
              "0:00:06.250  end of test          1 action, 0:00:00.250\n"
              "\n"
              "Result     finished\n");
    EXPECT_EQ(printed.find("Comment "), std::string::npos);
}

/// The action that failed was begun, too.
TEST_F(BriefReportTest, AnErrorEndsItsMomentAndTheTest) {
    EXPECT_EQ(Moments("[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
                      "NumOfEnterActions=2\nEnterAction1=WAIT:1500\n"
                      "NumOfLeaveActions=1\nLeaveAction1=WAIT:250\n"),
              "0:00:01.500  start of test                        ERROR 13: type mismatch at " +
                  Path("test.ini") +
                  ": [ActionsOnTest] EnterAction2\n"
                  "0:00:01.500  start of test        2 actions, 0:00:01.500\n"
                  "0:00:01.500  start of test                        the test is stopped\n"
                  "0:00:01.750  end of test          1 action, 0:00:00.250\n"
                  "\n"
                  "Result     stopped by an error\n");
}

const std::string Asking =
    "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=2\n"
    "EnterAction1=QUESTION:Door closed?,,0\nEnterAction2=WAIT:1\n";

TEST_F(BriefReportTest, AQuestionWithoutAnAnswerStopsTheTest) {
    EXPECT_EQ(Moments(Asking),
              "0:00:00.000  start of test                        question \"Door closed?\": NO "
              "ANSWER, so it is No\n"
              "0:00:00.000  start of test        1 action\n"
              "0:00:00.000  start of test                        the test is stopped\n"
              "0:00:00.000  end of test          no actions\n"
              "\n"
              "Result     stopped, because a question had no answer\n");
}

TEST_F(BriefReportTest, TheOperatorIsAskedInTheMiddleOfIt) {
    RunArguments arguments;
    arguments.ask = true;
    EXPECT_EQ(Moments(Asking, arguments, "y\n"),
              "\n--- Message from the test ---\n"
              "Door closed?\n"
              "[y] Yes   [n] No > y\n"
              "0:00:00.000  start of test                        question \"Door closed?\": Yes\n"
              "0:00:00.001  start of test        2 actions, 0:00:00.001\n"
              "0:00:00.001  end of test          no actions\n"
              "\n"
              "Result     finished\n");
}

TEST_F(BriefReportTest, TheTrafficLogHasWhatTheReportLeavesOut) {
    RunArguments arguments;
    arguments.traffic = Path("traffic.log");
    Moments(
        "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
        "EnterAction1=REMOTE:*RST,0,5,0,,0,\n",
        arguments);
    EXPECT_EQ(printed.find("*RST"), std::string::npos);
    EXPECT_NE(Read("traffic.log").find("\tGPIB\t0:5\t\"*RST\\n\"\tsent 5 bytes (simulated)\n"),
              std::string::npos);
}

TEST_F(BriefReportTest, TheUsersStopIsToldWithTheMomentThatItEnded) {
    isInterrupted = [] { return true; };
    EXPECT_EQ(Moments("[Workbench]\nModule=6\n"),
              "0:00:00.000  start of test                        stopped by the user\n"
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  start of test                        the test is stopped\n"
              "0:00:00.000  end of test          no actions\n"
              "\n"
              "Result     stopped by an answer, an action or the user\n");
}

TEST_F(BriefReportTest, AChannelThatChangesDoesNotCutAStretchInTwo) {
    EXPECT_EQ(Moments("[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=1\n"
                      "StopHz=4\nStepPercent=100\n[Workbench.Channel1]\nTrigger=2\n"
                      "[ActionsOnEutMon]\nNumOfFreqActions=1\nFrequAction1=WAIT:3\n"
                      "NumOfMlcActions=1\nMLLeaAction1=WAIT:40\n"
                      "[ActionsOnChannel1]\nNumOfFreqActions=1\nFrequAction1=WAIT:500\n"),
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  before the test loop no actions\n"
              "0:00:00.546  channel 1 triggers   1 action, 0:00:00.500\n"
              "0:00:00.629  frequencies          1 Hz to 4 Hz, 3 frequencies: 6 actions, "
              "0:00:00.129\n"
              "0:00:00.629  after the test loop  no actions\n"
              "0:00:00.629  end of test          no actions\n"
              "\n"
              "Result     finished\n");
}

TEST_F(BriefReportTest, WhatAChannelShowsIsNotFoldedWithTheLinesOfTheStretch) {
    EXPECT_EQ(Moments("[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=1\n"
                      "StopHz=4\nStepPercent=100\n[Workbench.Channel1]\nTrigger=1,2\n"
                      "[ActionsOnEutMon]\nNumOfMlcActions=1\nMLLeaAction1=NOTIFY:Look.,,0\n"
                      "[ActionsOnChannel1]\nNumOfFreqActions=1\nFrequAction1=NOTIFY:Look.,,0\n"),
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  before the test loop no actions\n"
              "0:00:00.000  channel 1 triggers                   notification \"Look.\": OK\n"
              "0:00:00.000  channel 1 triggers   1 action\n"
              "0:00:00.000  after step 1                         notification \"Look.\": OK\n"
              "0:00:00.000  channel 1 triggers                   notification \"Look.\": OK\n"
              "0:00:00.000  channel 1 triggers   1 action\n"
              "0:00:00.000  after step 3                         notification \"Look.\": OK (the "
              "last of 3)\n"
              "0:00:00.000  frequencies          1 Hz to 4 Hz, 3 frequencies: 3 actions\n"
              "0:00:00.000  after the test loop  no actions\n"
              "0:00:00.000  end of test          no actions\n"
              "\n"
              "Result     finished\n");
}

TEST_F(BriefReportTest, ASweepOfOneFrequencyHasOneEnd) {
    EXPECT_EQ(Moments("[Workbench]\nModule=6\n[Workbench.Subrange1]\nStartHz=1000\nStopHz=1000\n"
                      "StepPercent=1\n"),
              "0:00:00.000  start of test        no actions\n"
              "0:00:00.000  frequencies          1 kHz, 1 frequency: no actions\n"
              "0:00:00.000  end of test          no actions\n"
              "\n"
              "Result     finished\n");
}

}  // namespace
}  // namespace ace::workbench
