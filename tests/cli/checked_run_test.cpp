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
        ": no line fills EnterAction%, so it comes back empty: the test ends with an error when "
        "it comes there, and the file can't be saved\n";
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
    EXPECT_THAT(
        RefusalOf([&] { RunText(TwoEmpty, arguments); }),
        StartsWith("4 " + Path("test.ini") + ": start of test: ERROR 13: type mismatch at " +
                   Path("test.ini") + ":6: [ActionsOnTest] EnterAction1"));
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

const std::string NoSubranges = "[Workbench]\nModule=0\nSubRanges=0\n";
std::string StartWith(const std::string& entry) {
    return "[ActionsOnTest]\nNumOfEnterActions=1\nEnterAction1=" + entry + "\n";
}

struct RealRun {
    std::string text;
    std::string refusal;  ///< behind the place of the entry; empty when the test is begun
    std::string answers{};
};
const RealRun RealRuns[] = {
    {NoSubranges + StartWith("WAIT:1"), ""},
    {NoSubranges + StartWith("STOP:"), "start of test: here the test is stopped"},
    {NoSubranges + StartWith("QUESTION:Ready?,,0"),
     "start of test: nobody answers this question, so the test is stopped (--answers or --ask)"},
    {NoSubranges + StartWith("QUESTION:Ready?,,0"), "", "* | question | Ready* | Yes\n"},
    // who writes that down wants it
    {NoSubranges + StartWith("QUESTION:Ready?,,0"), "", "* | question | Ready* | No\n"},
    {NoSubranges + StartWith("API:./no_such_macro"),
     "the macro \"./no_such_macro\" can't be run on this machine: there is no such file"},
    // where the test does not come nothing ends it
    {NoSubranges + "[ActionsOnTest]\nNumOfFreqActions=1\nFrequAction1=API:./no_such_macro\n", ""},
    {NoSubranges + "[ActionsOnTest]\nNumOfFreqActions=1\nFrequAction1=WIAT:5\n", ""},
    {"[Workbench]\nModule=1\nSubRanges=1\n[ActionsOnChannel1]\nNumOfEnterActions=1\n"
     "EnterAction1=STOP:\n",
     ""},
};

TEST_F(CheckedRunTest, ARealRunIsBegunUnlessItsRehearsalEndsInTheMidst) {
    for (const RealRun& row : RealRuns) {
        RunArguments arguments;
        arguments.real = true;
        if (!row.answers.empty()) {
            Write("answers.txt", row.answers);
            arguments.answers = Path("answers.txt");
        }
        const std::string refusal = RefusalOf([&] { RunText(row.text, arguments); });
        if (row.refusal.empty()) {
            EXPECT_EQ(refusal, "") << row.text;
        } else {
            EXPECT_THAT(refusal, StartsWith("4 " + Path("test.ini") + ":6: [ActionsOnTest] Ent"));
            EXPECT_THAT(refusal, HasSubstr(": " + row.refusal + "; no test was run: "));
        }
    }
}

/// With --ask somebody is there, who is taken to agree.
TEST_F(CheckedRunTest, AnOperatorWhoIsAskedAnswersTheQuestionsOfARealRun) {
    RunArguments arguments;
    arguments.real = true;
    arguments.ask = true;
    EXPECT_EQ(RefusalOf([&] { RunText(NoSubranges + StartWith("QUESTION:Ready?,,0"), arguments); }),
              "");
}

/// What lies outside the file is asked of this machine only where it is used.
TEST_F(CheckedRunTest, SoundsProgramsAndMacrosMustBeHereForARealRun) {
    const std::string text = NoSubranges + StartWith("NOTIFY:,/nowhere/a.wav,0");
    RunText(text);
    EXPECT_THAT(printed, Not(HasSubstr("Findings")));
    RunArguments arguments;
    arguments.real = true;
    RunText(text, arguments);
    EXPECT_THAT(printed, HasSubstr("Findings   1: ace-workbench check tells it\n"));
}

}  // namespace
}  // namespace ace::workbench
