/// A run checks its file first.
#include <sstream>

#include "support/file_fixture.h"
#include "support/refusal.h"
#include "workbench/cli/run_command.h"

namespace ace::workbench {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class CheckedRunTest : public FolderTest {
  protected:
    Outcome RunText(const std::string& text, RunArguments arguments = {}) {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        std::ostringstream out;
        const Outcome outcome = RunCommand(arguments, {.out = out});
        printed = out.str();
        return outcome;
    }
    std::string printed;
};

const std::string TwoEmpty =
    "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=2\n"
    "EnterAction1=SWICHAMP:Amp A,3\nEnterAction2=MESG:Go\n";

TEST_F(CheckedRunTest, WhatSurelyEndsTheTestIsToldBeforeItsFirstAction) {
    EXPECT_EQ(RunText(TwoEmpty), Outcome::Failed);
    const std::string finding =
        ": no line fills EnterAction%, so it comes back empty: the test ends there with an error, "
        "and the file can't be saved\n";
    const auto told = [&](const std::string& line, const std::string& number) {
        std::string text = finding;
        text.replace(text.find('%'), 1, number);
        return "Finding    " + Path("test.ini") + line + text;
    };
    EXPECT_THAT(printed,
                HasSubstr("so no frequency is run\n" +
                          told(":6: [ActionsOnTest] EnterAction1 \"SWICHAMP:Amp A,3\"", "1") +
                          told(":7: [ActionsOnTest] EnterAction2 \"MESG:Go\"", "2") +
                          "Findings   2 more: ace-workbench check tells them\n\n"));
}

TEST_F(CheckedRunTest, OfManyFindingsThatEndTheTestTheFirstFiveAreTold) {
    std::string text =
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
        "NumOfEnterActions=6\n";
    for (const char number : std::string("123456")) {
        text += std::string("EnterAction") + number + "=MESG:Go\n";
    }
    RunText(text);
    EXPECT_THAT(printed, HasSubstr("EnterAction5 \"MESG:Go\": no line fills"));
    EXPECT_THAT(printed, Not(HasSubstr("EnterAction6 \"MESG:Go\": no line fills")));
    EXPECT_THAT(printed, HasSubstr("\nFindings   7 more: "));
}

TEST_F(CheckedRunTest, ATestThatSurelyEndsIsNotRunOnRealInstrumentsUnlessItIsToBe) {
    RunArguments arguments;
    arguments.real = true;
    arguments.traffic = Path("traffic.log");
    Write("traffic.log", "last night");
    EXPECT_THAT(RefusalOf([&] { RunText(TwoEmpty, arguments); }),
                StartsWith("4 " + Path("test.ini") + ":6: [ActionsOnTest] EnterAction1"));
    EXPECT_EQ(Read("traffic.log"), "last night");
    arguments.despiteFindings = true;
    EXPECT_EQ(RunText(TwoEmpty, arguments), Outcome::Failed);
    EXPECT_THAT(printed, HasSubstr("ERROR 13: type mismatch at "));
}

/// Each of them has one thing that fits nothing.
TEST_F(CheckedRunTest, TheFilesBesideAreCheckedWithTheFile) {
    const std::string text =
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
        "NumOfEnterActions=1\nEnterAction1=SWITCHAMP:Amp A,2\n";
    Write("answers.txt", "start of tests | failure | * | Ignore\n");
    Write("faults.txt", "GPIB 0:13 fails at every write\n");
    Write("bench.ini", "[Devices]\nAmp B=Amplifiers\n");
    RunText(text);
    EXPECT_THAT(printed, Not(HasSubstr("Findings")));

    RunArguments arguments;
    arguments.answers = Path("answers.txt");
    RunText(text, arguments);
    EXPECT_THAT(printed, HasSubstr("Findings   1: ace-workbench check tells it\n"));

    arguments.faults = Path("faults.txt");
    RunText(text, arguments);
    EXPECT_THAT(printed, HasSubstr("Findings   2: ace-workbench check tells them\n"));

    arguments.devices = Path("bench.ini");
    RunText(text, arguments);
    EXPECT_THAT(printed, HasSubstr("Findings   3: ace-workbench check tells them\n"));
}

/// What lies outside the file is asked of this machine only where it is used.
TEST_F(CheckedRunTest, SoundsProgramsAndMacrosMustBeHereForARealRun) {
    const std::string text =
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
        "NumOfEnterActions=1\nEnterAction1=API:nosuch.sh\n";
    RunText(text);
    EXPECT_THAT(printed, Not(HasSubstr("Findings")));
    RunArguments arguments;
    arguments.real = true;
    RunText(text, arguments);
    EXPECT_THAT(printed, HasSubstr("Findings   1: ace-workbench check tells it\n"));
}

}  // namespace
}  // namespace ace::workbench
