/// Whole runs with a bench: the requests of checks, channels that follow readings, and failures on
/// purpose, as the user sees them.
#include <sstream>

#include "session/session_fixture.h"
#include "workbench/cli/run_command.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class BenchRunTest : public FolderTest {
  protected:
    Outcome Run(const std::string& test, const std::string& devices, RunArguments arguments = {}) {
        Write("test.ini", test);
        arguments.file = Path("test.ini");
        if (!devices.empty()) {
            Write("bench.ini", devices);
            arguments.devices = Path("bench.ini");
        }
        return Run(arguments);
    }
    Outcome Run(const RunArguments& arguments) {
        std::ostringstream out;
        const Outcome outcome = RunCommand(arguments, {.out = out});
        printed = out.str();
        return outcome;
    }
    /// The printed lines with `words` in them, without what stands before the words of the effect.
    std::vector<std::string> LinesWith(const std::string& words) const {
        std::vector<std::string> found;
        std::istringstream in(printed);
        for (std::string line; std::getline(in, line);) {
            if (line.find(words) != std::string::npos) {
                constexpr std::size_t Columns = 50;
                const bool isEffect = line.size() > Columns && line[1] == ':';
                found.push_back(isEffect ? line.substr(Columns) : line);
            }
        }
        return found;
    }
    std::string printed;
};

/// Three frequencies, 80, 80.8 and 81.608 MHz, with a check at each; its last fields are stop,
/// comment, notification, cycle, cycle time, wait, wait time, parking.
std::string Checked(const std::string& fields) {
    return "[Workbench]\nModule=0\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=80000000\n"
           "StopHz=82000000\nStepPercent=1\nDwellMs=2000\n"
           "[ActionsOnTest]\nNumOfFreqActions=1\nFrequAction1=CHECKEUT:EUT,1," +
           fields + "\n";
}
std::string Failing(const std::string& failure) {
    return "[Devices]\nEUT=Monitoring\n[EUT]\nFail1=1, " + failure + "\n";
}

TEST_F(BenchRunTest, CommentOfAFailedCheckIsStoredWithItsFrequency) {
    EXPECT_EQ(Run(Checked("0,1,0,0,0.00,0,0.00,0"), Failing("80.8MHz, 1 s, 1")), Outcome::Finished);
    EXPECT_THAT(LinesWith("omment"),
                ElementsAre("comment stored: \"EUT failure\"", "Comment    80.8 MHz: EUT failure"));
}

TEST_F(BenchRunTest, FailedReadRepeatsTheFrequenciesOfTheSubrange) {
    EXPECT_EQ(Run(Checked("0,1,0,0,0.00,0,0.00,0"), Failing("80.8MHz, 1 s, 12345")),
              Outcome::Finished);
    EXPECT_THAT(LinesWith("is read"), ::testing::SizeIs(5));
    EXPECT_THAT(LinesWith("repe"),
                ElementsAre("the check asks to repeat the measurement of the subrange",
                            "Checks     1 repetition of a subrange or sweep, 0 parkings of "
                            "the accessories"));
}

TEST_F(BenchRunTest, FailedReadAtTheFirstFrequencyMeasuresItOnceMore) {
    EXPECT_EQ(Run(Checked("0,1,0,0,0.00,0,0.00,0"), Failing("80MHz, 1 s, 12345")),
              Outcome::Finished);
    EXPECT_THAT(LinesWith("is read"), ::testing::SizeIs(4));
    EXPECT_THAT(LinesWith("80 MHz          EUT: channel"), ::testing::SizeIs(2));
}

/// Two sweeps of two frequencies; the check fails to read at the second one of the second sweep,
/// and the channel follows the same device.
const std::string MonitoredTwice =
    "[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=100000000\n"
    "StopHz=101000000\nStepPercent=1\nDwellMs=1000\n[Workbench.Subrange2]\n"
    "StartHz=200000000\nStopHz=202000000\nStepPercent=1\nDwellMs=1000\n"
    "[Workbench.Channel1]\nDevice=EUT\nNoGoAbove=0.5\n"
    "[ActionsOnChannel1]\nNumOfEnterActions=1\nEnterAction1=WAIT:100.000\n"
    "[ActionsOnEutMon]\nNumOfFreqActions=1\n"
    "FrequAction1=CHECKEUT:EUT,1,0,0,0,0,0.00,0,0.00,0\n";

TEST_F(BenchRunTest, FailedReadInMonitoringRepeatsTheSweepAlone) {
    EXPECT_EQ(Run(MonitoredTwice, Failing("202MHz, 1500 ms, 12345")), Outcome::Finished);
    EXPECT_THAT(LinesWith("100 MHz         EUT: channel"), ::testing::SizeIs(1));
    EXPECT_THAT(LinesWith("200 MHz         EUT: channel"), ::testing::SizeIs(2));
    EXPECT_THAT(LinesWith("202 MHz         EUT: channel"), ::testing::SizeIs(2));
    EXPECT_THAT(LinesWith("channel 1 no-go"), IsEmpty());
    EXPECT_THAT(LinesWith("Checks"), ElementsAre(HasSubstr("1 repetition")));
}

TEST_F(BenchRunTest, FailedCheckCanParkTheAccessories) {
    EXPECT_EQ(Run(Checked("0,0,0,0,0.00,0,0.00,1"), Failing("80MHz, 1 s, 1")), Outcome::Finished);
    EXPECT_THAT(LinesWith("park"), ElementsAre("request to park the accessories",
                                               "Checks     0 repetitions of a subrange or "
                                               "sweep, 1 parking of the accessories"));
}

TEST_F(BenchRunTest, FailedCheckCanStopTheTest) {
    EXPECT_EQ(Run(Checked("1,0,0,0,0.00,0,0.00,0"), Failing("80.8MHz, 9 s, 1")), Outcome::Stopped);
    EXPECT_THAT(LinesWith("is read"), ::testing::SizeIs(2));
    EXPECT_THAT(LinesWith("stop"),
                ElementsAre("the check asks to stop the test", "the test is stopped",
                            "Result     stopped by an answer, an action or the user"));
}

TEST_F(BenchRunTest, CheckAtTheStartIsAskedForItsRequestsToo) {
    const std::string test =
        "[Workbench]\nModule=0\nSubRanges=1\n[ActionsOnTest]\nNumOfEnterActions=1\n"
        "EnterAction1=CHECKEUT:EUT,1,0,1,0,0,0.00,0,0.00,0\n";
    EXPECT_EQ(Run(test, Failing("0Hz..1GHz, 1 s, 1")), Outcome::Finished);
    EXPECT_THAT(LinesWith("Comment"), ElementsAre("Comment    start of test: EUT failure"));
}

TEST_F(BenchRunTest, WithoutDevicesTheirActionsFailAndANoteSaysWhy) {
    EXPECT_EQ(Run(Checked("0,1,0,0,0.00,0,0.00,0"), ""), Outcome::Finished);
    EXPECT_THAT(LinesWith("failure \""), ::testing::SizeIs(3));
    EXPECT_THAT(LinesWith("Note"), ElementsAre("Note       the bench has no devices, so actions on "
                                               "devices fail: say with --devices which ones it "
                                               "has"));
}

TEST_F(BenchRunTest, FailureOfACommandIsNoReasonForThatNote) {
    RunArguments arguments;
    Write("faults.txt", "COM1 fails at every opening\n");
    arguments.faults = Path("faults.txt");
    EXPECT_EQ(Run("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n"
                  "EnterAction1=REMOTE:OFF,1,1,2,,0,\n",
                  "", arguments),
              Outcome::Finished);
    EXPECT_THAT(LinesWith("failure \""), ::testing::SizeIs(1));
    EXPECT_THAT(LinesWith("the bench has no devices"), IsEmpty());
}

TEST_F(BenchRunTest, DeviceThatTheBenchHasNotIsNamedInANote) {
    EXPECT_EQ(Run(Checked("0,1,0,0,0.00,0,0.00,0"), "[Devices]\nOther=Monitoring\n"),
              Outcome::Finished);
    EXPECT_THAT(LinesWith("Note"),
                ElementsAre("Note       the file of the devices has no device \"EUT\""));
}

TEST_F(BenchRunTest, RunWithAllItsDevicesHasNoSuchNote) {
    Run(Checked("0,1,0,0,0.00,0,0.00,0"), Failing("1GHz, 1 s, 1"));
    EXPECT_THAT(LinesWith("Note"), IsEmpty());
    EXPECT_THAT(LinesWith("failure"), IsEmpty());
}

const std::string Monitored =
    "[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=100000000\n"
    "StopHz=104000000\nStepPercent=1\nDwellMs=1000\n"
    "[Workbench.Channel1]\nName=Speed\nDevice=EUT\nNoGoAbove=0.5\n"
    "[ActionsOnChannel1]\nNumOfEnterActions=2\nEnterAction1=WAIT:100.000\n"
    "EnterAction2=COMMENT:0\nNumOfLeaveActions=1\nLeaveAction1=WAIT:200.000\n";

TEST_F(BenchRunTest, ChannelFollowsTheReadingsOfItsDevice) {
    EXPECT_EQ(Run(Monitored, Failing("101MHz..101.5MHz, 60 s, 1")), Outcome::Finished);
    EXPECT_THAT(LinesWith("channel 1 no-go"), ElementsAre("wait 0.1 s", "code 1: take a comment"));
    EXPECT_THAT(LinesWith("channel 1 go"), ElementsAre("wait 0.2 s"));
    EXPECT_LT(printed.find("channel 1 no-go"), printed.find("channel 1 go "));
}

TEST_F(BenchRunTest, ChannelOfADeviceThatIsNotThereIsWrongUse) {
    const std::string why =
        "5 channel \"Speed\" is watched by \"EUT\": say with --devices which monitoring device "
        "that is";
    EXPECT_EQ(RefusalOf([&] { Run(Monitored, ""); }), why);
    EXPECT_EQ(RefusalOf([&] { Run(Monitored, "[Devices]\nEUT=Receivers\n"); }), why);
}

/// A generator that follows, asks before the test, and is bound to an instrument.
const std::string Followed =
    "[Workbench]\nModule=0\nSubRanges=1\n[Workbench.Subrange1]\nStartHz=80000000\n"
    "StopHz=81000000\nStepPercent=1\n"
    "[ActionsOnTest]\nNumOfFreqActions=1\nFrequAction1=FREQTRACK:Gen,Level,0,1,1\n";
const std::string FollowingBench =
    "[Devices]\nGen=Generators\n[Gen]\nBind=GPIB 0:28\nOnFrequency=FREQ %1\nOnLevel=POW %1\n"
    "OnOutputOn=OUTP ON\nOnOutputOff=OUTP OFF\n[Tables]\nLevel=80MHz:-30, 160MHz:-20\n";

TEST_F(BenchRunTest, GeneratorFollowsByTheCommandsOfItsInstrument) {
    Write("answers.txt", "start of test | question | Switch on the RF output* | Yes\n");
    RunArguments arguments;
    arguments.answers = Path("answers.txt");
    EXPECT_EQ(Run(Followed, FollowingBench, arguments), Outcome::Finished);
    EXPECT_THAT(LinesWith("GPIB 0:28"),
                ElementsAre("GPIB 0:28 \"OUTP OFF\\n\": sent 9 bytes (simulated)",
                            "GPIB 0:28 \"FREQ 80000000\\n\": sent 14 bytes (simulated)",
                            "GPIB 0:28 \"POW -30\\n\": sent 8 bytes (simulated)",
                            "GPIB 0:28 \"OUTP ON\\n\": sent 8 bytes (simulated)",
                            "GPIB 0:28 \"FREQ 80800000\\n\": sent 14 bytes (simulated)",
                            "GPIB 0:28 \"POW -29.9\\n\": sent 10 bytes (simulated)",
                            "GPIB 0:28 \"OUTP ON\\n\": sent 8 bytes (simulated)"));
}

TEST_F(BenchRunTest, QuestionOfTheGeneratorWithoutAnswerStopsTheTest) {
    EXPECT_EQ(Run(Followed, FollowingBench), Outcome::Unanswered);
    EXPECT_THAT(LinesWith("NO ANSWER"),
                ElementsAre("question \"Switch on the RF output of the generator during the "
                            "test?\": NO ANSWER, so it is No"));
}

TEST_F(BenchRunTest, InTestsOfKindTwoNothingFollows) {
    const std::string test = "[Workbench]\nTestKind=2\n" + Followed.substr(Followed.find('\n') + 1);
    EXPECT_EQ(Run(test, FollowingBench), Outcome::Finished);
    EXPECT_THAT(printed, Not(HasSubstr("GPIB")));
    EXPECT_THAT(printed, Not(HasSubstr("question \"")));
}

TEST_F(BenchRunTest, FailureOnPurposeIsToldAndComesToTheOperator) {
    Write("faults.txt", "GPIB 0:28 fails at the 2nd write\nCOM1 fails at every write\n");
    Write("answers.txt", "* | question | * | Yes\n* | failure | *on purpose* | Stop\n");
    RunArguments arguments;
    arguments.answers = Path("answers.txt");
    arguments.faults = Path("faults.txt");
    EXPECT_EQ(Run(Followed, FollowingBench, arguments), Outcome::Stopped);
    EXPECT_THAT(LinesWith("on purpose"),
                ElementsAre("failure on purpose: GPIB 0:28 fails at the 2nd write",
                            HasSubstr("on purpose: GPIB 0:28 fails at the 2nd write\": Stop")));
    EXPECT_THAT(LinesWith("Unused"),
                ElementsAre("Unused     rule of the script that never applied: COM1 fails at "
                            "every write"));
}

TEST_F(BenchRunTest, ExampleOfARadiatedTestRunsWholeAndFindsTheFailure) {
    RunArguments arguments;
    arguments.file = ACE_EXAMPLES "/ri_template.ini";
    arguments.devices = ACE_EXAMPLES "/ri_devices.ini";
    EXPECT_EQ(Run(arguments), Outcome::Finished);
    // start, end, two for each of 3 subranges, and 254 + 100 + 81 frequencies
    EXPECT_THAT(LinesWith("Moments"), ElementsAre("Moments    443 calls of the engine"));
    EXPECT_THAT(LinesWith("Comment"), ElementsAre("Comment    434.233705 MHz: EUT failure"));
    EXPECT_THAT(LinesWith("failure \""), IsEmpty());
    EXPECT_THAT(LinesWith("Errors"), ElementsAre("Errors     none"));
}

TEST_F(BenchRunTest, ExampleOfAMatrixRunsOnItsBenchForEachOfItsTemplates) {
    for (const char* number : {"0", "2", "3"}) {
        RunArguments arguments;
        arguments.file = ACE_EXAMPLES "/wireless_dut.ini";
        arguments.devices = ACE_EXAMPLES "/wireless_devices.ini";
        arguments.matrixTemplate = number;
        EXPECT_EQ(Run(arguments), Outcome::Finished) << number;
        EXPECT_THAT(LinesWith("failure \""), IsEmpty()) << number;
        // 4 frequencies, 2 bandwidths and 2 powers, each with the lists before, of and after a row
        EXPECT_THAT(LinesWith("Moments"), ElementsAre("Moments    50 calls of the engine"))
            << number;
    }
}

TEST_F(BenchRunTest, ExampleOfFailuresFitsTheExample) {
    RunArguments arguments;
    arguments.file = ACE_EXAMPLES "/ri_template.ini";
    arguments.devices = ACE_EXAMPLES "/ri_devices.ini";
    arguments.faults = ACE_EXAMPLES "/ri_faults.txt";
    EXPECT_EQ(Run(arguments), Outcome::Finished);
    EXPECT_THAT(LinesWith("Unused"), IsEmpty());
}

}  // namespace
}  // namespace ace::workbench
