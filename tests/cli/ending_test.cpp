/// However a run ends, its end of test switches off what the test has switched on.
#include "cli/running_program.h"
#include "transports/instrument.h"
#include "transports/script_fixture.h"

namespace ace::workbench {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

/// A test that switches on, sends a line at each of 696 frequencies, 20 ms each, and switches off.
class EndingTest : public FolderTest {
  protected:
    EndingTest() {
        const std::string where = ",2,127.0.0.1," + std::to_string(instrument.Port()) + ":0,,0,\n";
        Write("test.ini",
              "[Workbench]\nModule=0\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=1000000\n"
              "StopHz=1000000000\nStepPercent=1\nDwellMs=20\n[ActionsOnTest]\n"
              "NumOfEnterActions=1\nEnterAction1=REMOTE:ON" +
                  where + "NumOfLeaveActions=2\nLeaveAction1=WAIT:300\nLeaveAction2=REMOTE:OFF" +
                  where + "NumOfFreqActions=1\nFrequAction1=REMOTE:STEP" + where);
    }
    std::string CommandLine() const { return "exec \"$0\" run " + Path("test.ini") + " --real"; }
    /// What the instrument has got so far.
    std::string Received() const {
        const std::vector<std::string> received = instrument.Received();
        return received.empty() ? std::string() : received.front();
    }
    /// The sweep is under way.
    void AwaitSteps() const { instrument.ReceivedWhen(std::string("ON\nSTEP\nSTEP\n").size()); }
    /// The test was broken off, and its end has run.
    void ExpectSwitchedOff() const {
        Eventually([&] { return Received().ends_with("OFF\n"); });
        const std::string all = Received();
        EXPECT_THAT(all, StartsWith("ON\nSTEP\n"));
        EXPECT_THAT(all, EndsWith("STEP\nOFF\n"));
        EXPECT_LT(std::count(all.begin(), all.end(), 'S'), 600);
    }

    FakeInstrument instrument;
};

/// A whole run as a user breaks it off.
class SignalTest : public EndingTest, public testing::WithParamInterface<int> {};

TEST_P(SignalTest, TheSignalEndsTheTestInGoodOrder) {
    RunningProgram program(CommandLine());
    AwaitSteps();
    program.Send(GetParam());
    EXPECT_THAT(program.ReadOutput(), HasSubstr("stopped by the user\n"));
    EXPECT_EQ(program.ExitCode(), 1);
    ExpectSwitchedOff();
}
INSTANTIATE_TEST_SUITE_P(, SignalTest, testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT));

class RepeatedSignalTest : public SignalTest {};

TEST_P(RepeatedSignalTest, TheSameSignalAgainDoesNotBreakOffTheEndOfTheTest) {
    RunningProgram program(CommandLine());
    AwaitSteps();
    program.Send(GetParam());
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    program.Send(GetParam());
    program.ReadOutput();
    EXPECT_EQ(program.ExitCode(), 1);
    ExpectSwitchedOff();
}
INSTANTIATE_TEST_SUITE_P(, RepeatedSignalTest, testing::Values(SIGTERM, SIGHUP, SIGQUIT));

/// The user has seen that it does not end at once, and wants it to.
TEST_F(EndingTest, ASecondCtrlCEndsTheProgramWithoutTheRestOfTheEnd) {
    std::string test = Read("test.ini");
    test.replace(test.find("WAIT:300"), 8, "WAIT:5000");
    Write("test.ini", test);
    RunningProgram program(CommandLine());
    AwaitSteps();
    program.Send(SIGINT);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    program.Send(SIGINT);
    program.ReadOutput();
    EXPECT_EQ(program.ExitCode(), -SIGINT);
    EXPECT_EQ(Received().find("OFF"), std::string::npos);
}

TEST_F(EndingTest, AHangupThatIsIgnoredAtTheStartStaysIgnored) {
    RunningProgram program("trap '' HUP; " + CommandLine());
    AwaitSteps();
    const std::size_t before = Received().size();
    program.Send(SIGHUP);
    instrument.ReceivedWhen(before + 10 * std::string("STEP\n").size());
    EXPECT_EQ(Received().find("OFF"), std::string::npos);
    program.Send(SIGTERM);
    program.ReadOutput();
    EXPECT_EQ(program.ExitCode(), 1);
    ExpectSwitchedOff();
}

TEST_F(EndingTest, AnOutputThatIsGoneEndsTheTestInGoodOrderWithCodeThree) {
    RunningProgram program(CommandLine());
    AwaitSteps();
    program.CloseOutput();
    EXPECT_EQ(program.ExitCode(), 3);
    ExpectSwitchedOff();
}

/// Ctrl-C goes to every program of the pipeline, so that the log's writer is gone first.
TEST_F(EndingTest, AnOutputThatGoesWithTheInterruptStillLeavesTheEndOfTheTest) {
    RunningProgram program(CommandLine());
    AwaitSteps();
    program.CloseOutput();
    program.Send(SIGINT);
    EXPECT_EQ(program.ExitCode(), 3);
    ExpectSwitchedOff();
}

TEST_F(EndingTest, WithoutAnOutputNoTestIsBegun) {
    RunningProgram program(CommandLine() + " > /dev/full");
    EXPECT_THAT(program.ReadOutput(), HasSubstr("the output can't be written; no test was run\n"));
    EXPECT_EQ(program.ExitCode(), 3);
    EXPECT_EQ(Received(), "");
}

}  // namespace
}  // namespace ace::workbench
