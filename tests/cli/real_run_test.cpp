#include <dlfcn.h>
#include <sstream>

#include "transports/fake_gpib.h"
#include "transports/instrument.h"
#include "transports/pseudo_terminal.h"
#include "transports/script_fixture.h"
#include "workbench/cli/run_command.h"

namespace ace::workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Whole runs of the command with real transports.
class RealRunTest : public ScriptTest {
  protected:
    /// Writes a single test whose enter list holds `actions`.
    void WriteSetUp(const std::vector<std::string>& actions) const {
        std::string text = "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n";
        text += "NumOfEnterActions=" + std::to_string(actions.size()) + "\n";
        for (std::size_t i = 0; i < actions.size(); ++i) {
            text += "EnterAction" + std::to_string(i + 1) + "=" + actions[i] + "\n";
        }
        Write("test.ini", text);
    }
    /// Runs it with the configuration `config`; `printed` is what stands on the console.
    Outcome Run(const std::vector<std::string>& actions, const std::string& config = {},
                const std::function<bool()>& isInterrupted = {}) {
        WriteSetUp(actions);
        Write("bench.ini", config + "[MacroSync]\nFile=" + Path("MacroSync.ini") + "\n");
        RunArguments arguments;
        arguments.file = Path("test.ini");
        arguments.real = true;
        arguments.config = Path("bench.ini");
        arguments.traffic = Path("traffic.log");
        std::ostringstream out;
        const Outcome outcome = RunCommand(arguments, {.out = out, .isInterrupted = isInterrupted});
        printed = out.str();
        return outcome;
    }
    static std::string Tcp(const std::string& command, const FakeInstrument& instrument,
                           int terminator = 0) {
        return "REMOTE:" + command + ",2,127.0.0.1," + std::to_string(instrument.Port()) + ":" +
               std::to_string(terminator) + ",,0,";
    }
    std::string Log() const { return Read("traffic.log"); }

    std::string printed;
};

TEST_F(RealRunTest, EveryTerminatorAndCommasArriveByteForByte) {
    const FakeInstrument instrument;
    std::vector<std::string> actions;
    for (int terminator = 0; terminator < 4; ++terminator) {
        actions.push_back(
            Tcp("POW -1\x01"
                "5\x01 \xB5",
                instrument, terminator));
    }
    EXPECT_EQ(Run(actions), Outcome::Finished);
    const std::string command = "POW -1,5, \xB5";
    const std::string all = command + "\n" + command + "\r" + command + "\r\n" + command;
    EXPECT_THAT(instrument.ReceivedWhen(all.size()), ElementsAre(all));
    EXPECT_THAT(Log(), AllOf(HasSubstr("\"POW -1,5, \\xB5\\r\\n\"\tsent 13 bytes\n"),
                             Not(HasSubstr("simulated"))));
}

TEST_F(RealRunTest, WithoutTheOptionNothingLeavesTheMachine) {
    const FakeInstrument instrument;
    WriteSetUp({Tcp("*RST", instrument), "REMOTE:,,,,touch " + Path("out") + ",0,"});
    RunArguments arguments;
    arguments.file = Path("test.ini");
    std::ostringstream out;
    EXPECT_EQ(RunCommand(arguments, {.out = out}), Outcome::Finished);
    EXPECT_THAT(out.str(), HasSubstr("\"*RST\\n\": sent 5 bytes (simulated)\n"));
    EXPECT_THAT(instrument.Received(), testing::IsEmpty());
    EXPECT_THAT(Names(), ElementsAre("test.ini"));
}

TEST_F(RealRunTest, ACommandOfAMegabyteArrivesWhole) {
    const FakeInstrument instrument;
    std::string command;
    for (int i = 0; command.size() < 1024 * 1024; ++i) {
        command += std::to_string(i) + ";";
    }
    EXPECT_EQ(Run({Tcp(command, instrument)}), Outcome::Finished);
    const std::vector<std::string> received = instrument.ReceivedWhen(command.size() + 1);
    ASSERT_EQ(received.size(), 1U);
    EXPECT_TRUE(received.front() == command + "\n");
    EXPECT_THAT(Log(), HasSubstr("sent " + std::to_string(command.size() + 1) + " bytes\n"));
    EXPECT_LT(printed.size(), 5000U);
}

TEST_F(RealRunTest, ASerialPortIsFoundByTheConfiguration) {
    const PseudoTerminal terminal;
    EXPECT_EQ(Run({"REMOTE:MODE\x01"
                   "1,1,3,2,,0,"},
                  "[SerialPorts]\nCOM3=" + terminal.device + "\n"),
              Outcome::Finished);
    EXPECT_EQ(terminal.ReceivedWhen(8), "MODE,1\r\n");
    EXPECT_THAT(printed, HasSubstr("RS232 COM3 \"MODE,1\\r\\n\": sent 8 bytes\n"));
}

TEST_F(RealRunTest, TheBusIsThatOfTheConfiguredLibrary) {
    void* const library = ::dlopen(FAKE_GPIB, RTLD_NOW | RTLD_LOCAL);
    auto* const fake = static_cast<FakeGpib*>(::dlsym(library, "fakeGpib"));
    *fake = FakeGpib{5, -1, false, "", "", 0};
    EXPECT_EQ(Run({"REMOTE:*RST,0,1205,0,,0,", "REMOTE:*CLS,0,1205,3,,0,"},
                  std::string("[Gpib]\nLibrary=") + FAKE_GPIB + "\n"),
              Outcome::Finished);
    // Two actions at one address each hold a device of their own; the end closes both.
    EXPECT_STREQ(fake->calls,
                 "ibdev 12 5 0 11 1 0\nibwrt 5 5\nibdev 12 5 0 11 1 0\nibwrt 6 4\n"
                 "ibonl 5 0\nibonl 6 0\n");
    EXPECT_EQ(std::string(fake->written, 4), "*CLS");
    ::dlclose(library);
}

TEST_F(RealRunTest, AProgramThatConfirmsLetsTheTestGoOn) {
    Script("run", "echo \"$1\" > out; echo '14=COMPLETED' >> MacroSync.ini");
    EXPECT_EQ(Run({"REMOTE:,,,," + Path("run") + " \"a b\",1,"}), Outcome::Finished);
    EXPECT_EQ(Read("out"), "a b\n");
    EXPECT_THAT(printed, Not(HasSubstr("never confirmed")));
}

TEST_F(RealRunTest, AProgramThatNeverAnswersIsToldInTheSummary) {
    EXPECT_EQ(Run({"REMOTE:,,,,true --quietly,1,", "NOTIFY:,,0"},
                  "[OtaMeasurements]\nActionSyncTimeout=1\n"),
              Outcome::Finished);
    EXPECT_THAT(printed,
                AllOf(HasSubstr("program \"true --quietly\": no confirmation within its time; the "
                                "test goes on\n"),
                      HasSubstr("\nProgram    never confirmed its work: true --quietly\n")));
    EXPECT_THAT(Log(), HasSubstr("\tprogram\t\t\"true --quietly\"\tstarted, process "));
}

TEST_F(RealRunTest, AnInterruptIsNotTheTimeOutOfAProgram) {
    Script("run", "echo yes > started");
    const auto isStarted = [&] { return !Read("started").empty(); };
    EXPECT_EQ(Run({"REMOTE:,,,," + Path("run") + ",1,"},
                  "[OtaMeasurements]\nActionSyncTimeout=3600\n", isStarted),
              Outcome::Stopped);
    EXPECT_THAT(printed,
                AllOf(HasSubstr("stopped by the user\n"),
                      HasSubstr("program \"" + Path("run") +
                                "\": interrupted before it confirmed its work\n"),
                      Not(HasSubstr("within its time")), Not(HasSubstr("never confirmed"))));
}

TEST_F(RealRunTest, AnInstrumentThatIsOffIsToldWithHostPortAndCause) {
    std::string action;
    {
        const FakeInstrument off;
        action = Tcp("*RST", off);
    }
    EXPECT_EQ(Run({action}), Outcome::Finished);
    EXPECT_THAT(printed, HasSubstr(": can't connect: Connection refused\n"));
    EXPECT_THAT(Log(), HasSubstr(": can't connect: Connection refused\n"));
}

TEST_F(RealRunTest, AnInstrumentThatStopsReadingEndsWithTheTimeOut) {
    const FakeInstrument instrument({false, 0, {}});
    EXPECT_EQ(Run({Tcp(std::string(1024 * 1024, 'A'), instrument)}, "[Tcp]\nWriteTimeoutMs=300\n"),
              Outcome::Finished);
    EXPECT_THAT(Log(), HasSubstr("the peer takes no more data, given up after 300 ms ("));
}

TEST_F(RealRunTest, AnInstrumentThatDiesInMidWriteIsAFailureAndNoSignal) {
    const FakeInstrument instrument({true, 20'000, {}});
    EXPECT_EQ(Run({Tcp(std::string(1024 * 1024, 'A'), instrument)}), Outcome::Finished);
    EXPECT_THAT(Log(), AllOf(HasSubstr(": can't send: "), HasSubstr(" of 1048577 bytes sent)")));
}

TEST_F(RealRunTest, AMacroGetsItsParametersAndItsErrorOutputIsTold) {
    Script("macro", "echo \"$@\" > out; echo 'no signal' >&2; exit 3");
    EXPECT_EQ(Run({"API:" + Path("macro") + "||#FREQ#||EUT Monitor"}), Outcome::Stopped);
    EXPECT_EQ(Read("out"), "0.0 EUT Monitor\n");
    EXPECT_THAT(printed,
                AllOf(HasSubstr("API macro " + Path("macro") + ": exit code 3: no signal\n"),
                      HasSubstr("message \"The API macro has failed [" + Path("macro") + "]\"\n")));
}

TEST_F(RealRunTest, ASoundPlaysByTheConfiguredPlayerAndItsFailureIsTold) {
    Script("player", "echo \"$1\" > out.tmp; mv out.tmp out");
    Write("a.wav", "RIFF");
    EXPECT_EQ(Run({"NOTIFY:," + Path("a.wav") + ",0", "NOTIFY:," + Path("b.wav") + ",0"},
                  "[Sound]\nPlayer=" + Path("player") + "\n"),
              Outcome::Finished);
    EXPECT_EQ(ReadWhenThere("out"), Path("a.wav") + "\n");
    EXPECT_THAT(printed, AllOf(HasSubstr("sound " + Path("b.wav") +
                                         ": can't be played: there is no such file\n"),
                               Not(HasSubstr(Path("a.wav") + ": can't"))));
}

/// The macro and what it started are ended; the test is stopped in good order.
TEST_F(RealRunTest, TheUserBreaksOffAMacroAndItsChildren) {
    Script("macro", "sleep 600 & echo $! > child; wait");
    const auto isRunning = [&] { return !Read("child").empty(); };
    EXPECT_EQ(Run({"API:" + Path("macro")}, {}, isRunning), Outcome::Stopped);
    EXPECT_THAT(printed,
                AllOf(HasSubstr("stopped by the user\n"),
                      HasSubstr("the API macro is told to end\n"), HasSubstr(": broken off\n")));
    const pid_t child = std::stoi(Read("child"));
    EXPECT_TRUE(Eventually([&] { return ::kill(child, 0) == -1; }));
}

TEST_F(RealRunTest, ATrafficLogThatCannotBeWrittenIsTold) {
    const FakeInstrument instrument;
    WriteSetUp({Tcp("A", instrument)});
    RunArguments arguments;
    arguments.file = Path("test.ini");
    arguments.real = true;
    arguments.traffic = "/dev/full";
    std::ostringstream out;
    EXPECT_EQ(RunCommand(arguments, {.out = out}), Outcome::Finished);
    EXPECT_THAT(out.str(), HasSubstr("\nTraffic    the log is not complete: it could not be "
                                     "written\n"));
}

}  // namespace
}  // namespace ace::workbench
