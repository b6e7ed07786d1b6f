#include "workbench/cli/run_command.h"

#include <sstream>

#include "session/session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string Small =
    "[Workbench]\r\nModule=0\r\nSubRanges=1\r\nTitle=Small\r\n"
    "[Workbench.Subrange1]\r\nStartHz=80000000\r\nStopHz=80800000\r\nStepPercent=1\r\n"
    "DwellMs=2000\r\n"
    "[ActionsOnTest]\r\nNumOfEnterActions=2\r\nEnterAction1=QUESTION:Door closed?,,1\r\n"
    "EnterAction2=WAIT:1500.000\r\nNumOfFreqActions=1\r\nFrequAction1=WAIT:250.000\r\n";

class RunCommandTest : public FolderTest {
  protected:
    /// Runs `text`; the printed text is in `printed`.
    Outcome RunText(const std::string& text, RunArguments arguments = {}, bool isTerminal = false) {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        std::ostringstream out;
        const Outcome outcome = RunCommand(arguments, {.out = out, .isTerminal = isTerminal});
        printed = out.str();
        return outcome;
    }
    /// What keeps a run of a good file from being begun.
    std::string Refusal(const RunArguments& arguments) {
        return RefusalOf([&] { RunText(Small, arguments); });
    }
    std::string printed;
};

TEST_F(RunCommandTest, AWholeRunIsPrintedLineByLine) {
    Write("answers.txt", "start of test | question | Door* | Yes\n* | question | Lamp* | Yes\n");
    RunArguments arguments;
    arguments.answers = Path("answers.txt");
    EXPECT_EQ(RunText(Small, arguments), Outcome::Finished);
    EXPECT_EQ(
        printed,
        "File       " + Path("test.ini") +
            "\n"
            "Title      Small\n"
            "Module     0 aceTemplate: single test, 1 subrange\n"
            "Sweep 1    80 MHz to 80.8 MHz in steps of 1 %: 2 frequencies, 2 s each\n"
            "Clock      virtual: waits pass at once\n"
            "Findings   1: ace-workbench check tells it\n"
            "\n"
            "0:00:00.000  start of test                        beep\n"
            "0:00:00.000  start of test                        question \"Door closed?\": Yes\n"
            "0:00:00.000  start of test                        wait 1.5 s\n"
            "0:00:01.500  new frequency        80 MHz          wait 0.25 s\n"
            "0:00:03.750  new frequency        80.8 MHz        wait 0.25 s\n"
            "\n"
            "Result     finished\n"
            "Moments    6 calls of the engine\n"
            "Actions    4 begun (as the engine's trace counts them)\n"
            "Waited     0:00:02.000 by actions, 0:00:04.000 dwelling on frequencies\n"
            "Operator   0 notifications, 1 question (1 Yes)\n"
            "Errors     none\n"
            "Unused     line 2 of the answers: * | question | Lamp* | Yes\n");
}

TEST_F(RunCommandTest, EachWayToEndHasItsExitCode) {
    const std::string head =
        "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n";
    EXPECT_EQ(RunText(head + "EnterAction1=WAIT:1\n"), Outcome::Finished);
    EXPECT_EQ(RunText(head + "EnterAction1=STOP:\n"), Outcome::Stopped);
    EXPECT_EQ(RunText(head + "EnterAction1=QUESTION:Door closed?,,0\n"), Outcome::Unanswered);
    EXPECT_THAT(printed, HasSubstr("1 question (1 WITHOUT ANSWER)\n"));
    EXPECT_EQ(RunText(head), Outcome::Failed);  // the entry has no line
    EXPECT_THAT(printed, HasSubstr("\nErrors     1 that ended a moment, 1 error report of the "
                                   "engine\n"));
    EXPECT_THAT(
        RefusalOf([&] { RunText(head + "no action\n"); }),
        StartsWith("4 " + Path("test.ini") + ":5: [ActionsOnAzimuthChart] \"no action\": "));
    EXPECT_THAT(RefusalOf([&] { RunText("[Other]\n"); }),
                StartsWith("5 " + Path("test.ini") + ": [Workbench]: the file does not say"));
}

TEST_F(RunCommandTest, AFileThatCantBeReadIsRefusedWithOneLine) {
    std::ostringstream out;
    RunArguments arguments;
    arguments.file = Path("missing.ini");
    EXPECT_EQ(RefusalOf([&] { RunCommand(arguments, {.out = out}); }),
              "4 " + Path("missing.ini") + ": there is no such file");
    arguments.file = folder;
    EXPECT_THAT(RefusalOf([&] { RunCommand(arguments, {.out = out}); }),
                StartsWith("4 " + folder + ": can't be read"));
    EXPECT_EQ(out.str(), "");
}

TEST_F(RunCommandTest, AnswersAndTraceThatCantBeOpenedAreRefused) {
    RunArguments arguments;
    arguments.answers = Path("missing.txt");
    EXPECT_EQ(Refusal(arguments), "4 " + Path("missing.txt") + ": there is no such file");
    Write("bad.txt", "\xEF\xBB\xBF# a mark in front\nYes\n");
    arguments.answers = Path("bad.txt");
    EXPECT_EQ(Refusal(arguments),
              "4 " + Path("bad.txt") +
                  ":2: an answer is written as moment | question | message | answer");
    arguments = {};
    arguments.trace = Path("no/such/folder");
    EXPECT_THAT(Refusal(arguments), StartsWith("4 "));
}

TEST_F(RunCommandTest, OptionsThatMakeNoSenseAreWrongUse) {
    const auto refusal = [&](const std::function<void(RunArguments&)>& set) {
        RunArguments arguments;
        set(arguments);
        return Refusal(arguments);
    };
    EXPECT_EQ(refusal([](RunArguments& a) { a.module = "9"; }),
              "5 --module: \"9\" is no module: 0 to 8, or a name such as aceTemplate");
    for (const char* number : {"-1", "x", "", "1.5", "10001"}) {
        EXPECT_EQ(
            refusal([&](RunArguments& a) { a.subRanges = number; }),
            "5 --subranges: \"" + std::string(number) + "\" is no whole number from 0 to 10000");
    }
    for (const char* number : {"-1", "4", "x", "1.5"}) {
        EXPECT_EQ(refusal([&](RunArguments& a) { a.matrixTemplate = number; }),
                  "5 --template: \"" + std::string(number) +
                      "\" is no template number: 0 by frequency, 1 by bandwidth, 2 by power, 3 the "
                      "lists for all rows");
    }
    EXPECT_EQ(refusal([](RunArguments& a) {
                  a.sweeps = {"1..2/1%", "1..2"};
              }),
              "5 --sweep: \"1..2\" is no sweep: it is written like 80MHz..1GHz/1%");
    EXPECT_EQ(refusal([](RunArguments& a) { a.clock = "sundial"; }),
              "5 --clock: \"sundial\" is neither virtual nor real");
}

TEST_F(RunCommandTest, RealTransportsNeedTheRealClock) {
    RunArguments arguments;
    arguments.real = true;
    arguments.clock = "virtual";
    EXPECT_EQ(Refusal(arguments),
              "5 --clock virtual: with --real the waits between the commands take their time");
    arguments.clock = std::nullopt;
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n", arguments), Outcome::Finished);
    EXPECT_THAT(printed, HasSubstr("\nClock      real\nTransports real: commands leave this "
                                   "machine, programs are started\n"));
}

TEST_F(RunCommandTest, AConfigurationThatMakesNoSenseIsABadFile) {
    RunArguments arguments;
    arguments.config = Path("bench.ini");
    EXPECT_EQ(Refusal(arguments), "4 " + Path("bench.ini") + ": there is no such file");
    Write("bench.ini", "[Tcp]\nConnectTimeoutMs=0\n");
    EXPECT_EQ(Refusal(arguments),
              "4 " + Path("bench.ini") +
                  ":2: [Tcp] ConnectTimeoutMs: \"0\" is not a time from 1 to 3600000 milliseconds");
    Write("bench.ini", "[SerialPorts]\nLPT1=/dev/lp0\n");
    EXPECT_EQ(Refusal(arguments),
              "4 " + Path("bench.ini") +
                  ":2: [SerialPorts]: \"LPT1=/dev/lp0\" is not of the form COM3=/dev/ttyUSB0");
}

TEST_F(RunCommandTest, AnswersAndFailuresAreReadIn16BitTextToo) {
    const auto wide = [](const std::string& text) {
        std::string bytes = "\xFF\xFE";
        for (const char c : text) {
            bytes += {c, '\0'};
        }
        return bytes;
    };
    Write("answers.txt", wide("start of test | question | Door* | Yes\r\n"));
    Write("faults.txt", wide("# none\r\n\r\nCOM1 fails at every write\r\n"));
    RunArguments arguments;
    arguments.answers = Path("answers.txt");
    arguments.faults = Path("faults.txt");
    EXPECT_EQ(RunText(Small, arguments), Outcome::Finished);
    EXPECT_THAT(printed,
                HasSubstr("rule of the script that never applied: COM1 fails at every write\n"));
}

TEST_F(RunCommandTest, TheTrafficIsWrittenToItsFileAnew) {
    Write("traffic.log", "of another day\n");
    RunArguments arguments;
    arguments.traffic = Path("traffic.log");
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
                      "EnterAction1=REMOTE:*RST,0,5,0,,0,\n",
                      arguments),
              Outcome::Finished);
    EXPECT_THAT(Read("traffic.log"), StartsWith("time\tmoment\t"));
    EXPECT_THAT(Read("traffic.log"), HasSubstr("\tGPIB\t0:5\t\"*RST\\n\"\tsent 5 bytes "
                                               "(simulated)\n"));
    EXPECT_THAT(printed, Not(HasSubstr("Traffic ")));
    arguments.traffic = Path("no/such/folder");
    EXPECT_EQ(Refusal(arguments),
              "4 " + Path("no/such/folder") + ": can't be made: No such file or directory");
}

/// The lines of a traffic log from their moment on, without its head.
std::vector<std::string> TrafficOf(const std::string& log) {
    std::vector<std::string> lines;
    std::istringstream text(log);
    std::string line;
    std::getline(text, line);
    while (std::getline(text, line)) {
        lines.push_back(line.substr(line.find('\t') + 1));
    }
    return lines;
}

const std::string DutMatrix = std::string(ACE_EXAMPLES) + "/wireless_dut.ini";

TEST_F(RunCommandTest, TheRowsOfTheExampleFillTheirPlaceholdersInTheTraffic) {
    RunArguments arguments;
    arguments.file = DutMatrix;
    arguments.traffic = Path("traffic.log");
    arguments.matrixTemplate = "0";
    std::ostringstream out;
    RunCommand(arguments, {.out = out});
    std::vector<std::string> lines = TrafficOf(Read("traffic.log"));
    ASSERT_GE(lines.size(), 11U);
    lines.resize(11);  // the test mode, and the first command of the first frequency
    const std::string enter = "\t\tRS232\tCOM4\t\"TEST ENTER\\r\\n\"\tsent 12 bytes (simulated)";
    const std::string phy = "\\r\\n\"\tsent 11 bytes (simulated)";
    const std::string bypass =
        "\t\tRS232\tCOM4\t\"PA BYPASS OFF\\r\\n\"\tsent 15 bytes (simulated)";
    EXPECT_THAT(
        lines,
        ElementsAre("matrix row 1" + enter, "matrix row 1\t\tRS232\tCOM4\t\"PHY 1 MHz" + phy,
                    "matrix row 2" + enter, "matrix row 2\t\tRS232\tCOM4\t\"PHY 1 MHz" + phy,
                    "matrix row 2" + bypass, "matrix row 3" + enter,
                    "matrix row 3\t\tRS232\tCOM4\t\"PHY 2 MHz" + phy, "matrix row 4" + enter,
                    "matrix row 4\t\tRS232\tCOM4\t\"PHY 2 MHz" + phy, "matrix row 4" + bypass,
                    "matrix row 5\t2402000000\tRS232\tCOM4\t\"DTM TX 2402000000,1 MHz,0 dBm\\r"
                    "\\n\"\tsent 31 bytes (simulated)"));
}

/// What a combination of the example's template by power sends.
void AddRowByPower(std::vector<std::string>& lines, int row, const std::string& frequency,
                   const std::string& bandwidth, const std::string& power) {
    const std::string head = "matrix row " + std::to_string(row) + "\t" + frequency;
    lines.push_back(head + "\tprogram\t\t\"\\\"C:\\\\EMC\\\\Tools\\\\dutctl.exe\\\" --freq " +
                    frequency + " --bw " + bandwidth + " --power " + power +
                    (power == "+10 dBm" ? " --fan on" : "") + "\"\tstarted, process " +
                    std::to_string(995 + row) + " (simulated)");
    lines.push_back(head + "\tAPI macro\tC:\\EMC\\Macros\\dut_log.mac\t\"" + frequency + "\\n" +
                    bandwidth + "\\n" + power + "\\n0\\n\"\tstarted (simulated)");
}

/// The four rows of the test mode have no actions. Each of the other twelve runs a program, which
/// has ended when the next one is due, and a macro; the simulated processes count from 1000.
TEST_F(RunCommandTest, TheRowsByPowerOfTheExampleRunTheirProgramForEachCombination) {
    RunArguments arguments;
    arguments.file = DutMatrix;
    arguments.traffic = Path("traffic.log");
    arguments.matrixTemplate = "2";
    std::ostringstream out;
    EXPECT_EQ(RunCommand(arguments, {.out = out}), Outcome::Finished);
    EXPECT_THAT(out.str(),
                HasSubstr("wireless matrix of the device under test, template 2\n"
                          "Matrix     4 frequencies, 2 bandwidths, 2 powers: 16 rows\n"));
    EXPECT_THAT(out.str(), HasSubstr("\nMoments    50 calls of the engine\nActions    24 begun"));
    std::vector<std::string> expected;
    int row = 4;
    for (const char* frequency : {"2402000000", "2440000000", "2480000000"}) {
        for (const char* bandwidth : {"1 MHz", "2 MHz"}) {
            AddRowByPower(expected, ++row, frequency, bandwidth, "0 dBm");
            AddRowByPower(expected, ++row, frequency, bandwidth, "+10 dBm");
        }
    }
    EXPECT_EQ(TrafficOf(Read("traffic.log")), expected);
}

TEST_F(RunCommandTest, OnlyAProgramThatIsWaitedForHasEndedWhenItIsDueAgain) {
    const std::string head =
        "[Workbench]\nModule=6\n[Workbench.Subrange1]\nStartHz=1\nStopHz=2\nStepPercent=100\n"
        "[ActionsOnAzimuthChart]\nNumOfFreqActions=1\nFrequAction1=REMOTE:,,,,";
    RunArguments arguments;
    arguments.traffic = Path("traffic.log");
    RunText(head + "logger,0,\n", arguments);
    EXPECT_EQ(TrafficOf(Read("traffic.log")).size(), 1U);
    RunText(head + "logger,1,\n", arguments);
    EXPECT_EQ(TrafficOf(Read("traffic.log")).size(), 2U);
}

TEST_F(RunCommandTest, TheVerdictsOfTheExampleAreCounted) {
    RunArguments arguments;
    arguments.file = std::string(ACE_EXAMPLES) + "/wireless_tests.ini";
    arguments.answers = std::string(ACE_EXAMPLES) + "/wireless_answers.txt";
    std::ostringstream out;
    EXPECT_EQ(RunCommand(arguments, {.out = out}), Outcome::Finished);
    EXPECT_THAT(out.str(), HasSubstr("\nVerdicts   4 steps (2 passed, 1 FAILED, 1 n.a.)\n"
                                     "Operator   2 notifications (2 OK), 3 questions (2 Yes, 1 "
                                     "No)\n"));
    arguments.answers = std::nullopt;  // the first question has no answer
    EXPECT_EQ(RunCommand(arguments, {.out = out}), Outcome::Unanswered);
    EXPECT_THAT(out.str(), HasSubstr("\nVerdicts   4 steps (1 n.a., 3 not reached)\n"));
}

TEST_F(RunCommandTest, OptionsTakeThePlaceOfTheFilesKeys) {
    RunArguments arguments;
    arguments.module = "aceAziChart";
    arguments.subRanges = "0";
    arguments.sweeps = {"1MHz..2MHz/100%"};
    EXPECT_EQ(
        RunText("[ActionsOnAzimuthChart]\nNumOfFreqActions=1\nFrequAction1=WAIT:1\n", arguments),
        Outcome::Finished);
    EXPECT_THAT(printed, HasSubstr("Module     6 aceAziChart: azimuth chart\n"));
    EXPECT_THAT(printed, HasSubstr("new frequency        2 MHz           wait 0.001 s\n"));
}

TEST_F(RunCommandTest, AFileWithoutActionsForTheModuleIsTold) {
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n[ActionsOnTest]\n"), Outcome::Finished);
    EXPECT_THAT(printed,
                HasSubstr("\nActions    none: the file has no actions for these moments\n"));
}

TEST_F(RunCommandTest, NoTextOfAFileReachesTheTerminalAsACommand) {
    RunText("[Workbench]\nModule=6\nTitle=\x1b[2Jred\n");
    EXPECT_THAT(printed, HasSubstr("Title       [2Jred\n"));
}

TEST_F(RunCommandTest, TheTraceIsWrittenToItsFile) {
    RunArguments arguments;
    arguments.trace = Path("trace.txt");
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n", arguments), Outcome::Finished);
    EXPECT_THAT(Read("trace.txt"), HasSubstr("GetCheckEutAction"));
    EXPECT_THAT(printed, Not(HasSubstr("Trace ")));
}

TEST_F(RunCommandTest, OnlyATerminalShowsHowFarASweepIs) {
    const std::string text =
        "[Workbench]\nModule=6\n[Workbench.Subrange1]\nStartHz=1\nStopHz=4\n"
        "StepPercent=100\n";
    RunText(text);
    EXPECT_THAT(printed, Not(HasSubstr("frequency 1 of 3")));
    EXPECT_THAT(printed, Not(HasSubstr("\r")));
    RunText(text, {}, true);
    EXPECT_THAT(printed, HasSubstr("frequency 1 of 3, 33 %\r\x1b[K"));
}

}  // namespace
}  // namespace ace::workbench
