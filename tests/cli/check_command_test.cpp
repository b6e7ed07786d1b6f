/// The findings of a settings file as the user reads them.
#include "workbench/cli/check_command.h"

#include <sstream>

#include "running_program.h"
#include "support/file_fixture.h"
#include "support/refusal.h"

namespace ace::workbench {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

const std::string Clean =
    "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=1\n"
    "EnterAction1=WAIT:5\n";
const std::string Lossy = Clean + "Remark=a:b\n";
const std::string Unusable =
    "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=2\n"
    "EnterAction1=SWICHAMP:Amp A,3\nEnterAction2=MSG:Go, now\n";

std::string Repeated(const std::string& line, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += line;
    }
    return text;
}

class CheckCommandTest : public FolderTest {
  protected:
    CheckResult Check(const std::string& text, CheckArguments arguments = {},
                      std::size_t width = 0) {
        Write("test.ini", text);
        arguments.file = Path("test.ini");
        std::ostringstream out;
        const CheckResult result = CheckCommand(arguments, {.out = out, .width = width});
        printed = out.str();
        return result;
    }
    static CheckArguments AsJson() {
        CheckArguments arguments;
        arguments.json = true;
        return arguments;
    }
    static CheckArguments AsLoadedLines() {
        CheckArguments arguments;
        arguments.asLoaded = true;
        return arguments;
    }
    std::string printed;
};

TEST_F(CheckCommandTest, TheResultTellsWhatTheFileIsGoodFor) {
    EXPECT_EQ(Check(Clean), CheckResult::Clean);
    EXPECT_EQ(Check(Lossy), CheckResult::Findings);
    EXPECT_EQ(Check(Unusable), CheckResult::Unusable);
}

TEST_F(CheckCommandTest, ACleanFileSaysSo) {
    Check(Clean);
    EXPECT_EQ(
        printed,
        "File       " + Path("test.ini") +
            "\n"
            "Module     0 aceTemplate: single test, 0 subranges\n"
            "Note       no sweep in [Workbench.Subrange1] and no --sweep, so no frequency is run\n"
            "Findings   none: the file does what it says\n");
}

TEST_F(CheckCommandTest, EachFindingHasItsPlaceItsMeaningAndAnAdviceWorstGroupFirst) {
    Check(Unusable);
    EXPECT_EQ(
        printed,
        "File       " + Path("test.ini") +
            "\n"
            "Module     0 aceTemplate: single test, 0 subranges\n"
            "Note       no sweep in [Workbench.Subrange1] and no --sweep, so no frequency is run\n"
            "Findings   3: 1 of what stops the load or the save, 1 of what is skipped or "
            "lost, 1 of what does not do what it says\n"
            "\n"
            "Stops the load or the save\n" +
            Path("test.ini") +
            ":6: [ActionsOnTest] EnterAction1 \"SWICHAMP:Amp A,3\"\n"
            "    no line fills EnterAction1, so it comes back empty: the test ends with "
            "an error when it comes there, and the file can't be saved\n"
            "    Write the action, or lower the count and number the others anew.\n"
            "\n"
            "Skipped or lost\n" +
            Path("test.ini") +
            ":6: [ActionsOnTest] EnterAction1 \"SWICHAMP:Amp A,3\"\n"
            "    \"SWICHAMP:\" is no keyword, so the action is passed over\n"
            "    Correct the keyword. Did you mean SWITCHAMP:?\n"
            "\n"
            "Never runs, or does not do what it says\n" +
            Path("test.ini") +
            ":7: [ActionsOnTest] EnterAction2 \"MSG:Go, now\"\n"
            "    the test waits here until somebody answers \"Go, now\"\n"
            "    For a run without an operator take it out.\n");
}

TEST_F(CheckCommandTest, OnATerminalMeaningAndAdviceAreBrokenBehindTheirIndentation) {
    Check(Lossy, {}, 44);
    EXPECT_THAT(printed, HasSubstr("    this is neither a count nor an entry:\n"
                                   "    nobody reads it, and a save removes it\n"));
}

TEST_F(CheckCommandTest, JsonIsOneObjectALineWithoutAHead) {
    EXPECT_EQ(Check(Lossy, AsJson()), CheckResult::Findings);
    EXPECT_EQ(printed,
              "{\"rule\":\"foreign-key\",\"group\":\"lost\",\"file\":\"" + Path("test.ini") +
                  "\",\"line\":7,\"section\":\"ActionsOnTest\",\"entry\":\"Remark\","
                  "\"text\":\"a:b\",\"meaning\":\"this is neither a count nor an entry: nobody "
                  "reads it, and a save removes it\",\"advice\":\"Correct the key, or keep the "
                  "line in a section of your own.\"}\n");
    Check(Clean, AsJson());
    EXPECT_EQ(printed, "");
}

TEST_F(CheckCommandTest, JsonCarriesAnyCharacter) {
    Check(Clean + "Remark=\"a\\\x7f:\xc3\xbc\n", AsJson());
    EXPECT_THAT(printed, HasSubstr("\"text\":\"\\\"a\\\\\x7f:\xc3\xbc\""));
}

TEST_F(CheckCommandTest, AsLoadedShowsLineActionAndWhatWouldBeSaved) {
    EXPECT_EQ(Check(Unusable, AsLoadedLines()), CheckResult::Unusable);
    const std::string gap = " | ";
    const auto row = [&](std::string line, std::string held, const std::string& saved) {
        line.resize(29, ' ');
        held.resize(49, ' ');
        std::string text = line + gap + held + gap + saved;
        return text.substr(0, text.find_last_not_of(' ') + 1) + "\n";
    };
    EXPECT_EQ(printed, row("In the file", "In the engine", "Saved") + "\n[ActionsOnTest]\n" +
                           row("NumOfEnterActions=2", "(the count)", "NumOfEnterActions=2") +
                           row("EnterAction1=SWICHAMP:Amp A,3",
                               "(passed over: its list does not know the keyword)", "") +
                           row("EnterAction2=MSG:Go, now", "Notify: Go, now",
                               "EnterAction2=NOTIFY:Go  now,,0") +
                           "\nNothing is saved as long as 1 entry is empty\n");
}

TEST_F(CheckCommandTest, AsLoadedHasNoWordBelowAFileThatCanBeSaved) {
    Check(Lossy, AsLoadedLines());
    EXPECT_THAT(printed, EndsWith("\nRemark=a:b          | (passed over: no key of a list) |\n"));
}

/// Entries one behind the other are one row; those of lines that are there have none.
TEST_F(CheckCommandTest, AsLoadedShowsEntriesWithoutAnyLineBelowTheirCount) {
    Check(
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
        "EnterAction2=WAIT:5\nNumOfEnterActions=8\nEnterAction4=WIAT:1\n"
        "EnterAction6=WAIT\nNumOfLeaveActions=1\n",
        AsLoadedLines());
    EXPECT_EQ(printed.substr(printed.find('[')),
              "[ActionsOnTest]\n"
              "EnterAction2=WAIT:5 | Wait: 0.005 s                                     | "
              "EnterAction2=WAIT:5.000\n"
              "NumOfEnterActions=8 | (the count)                                       | "
              "NumOfEnterActions=8\n"
              "(no line)           | EnterAction1 is empty                             | "
              "can't be saved\n"
              "(no line)           | EnterAction3 is empty                             | "
              "can't be saved\n"
              "(no line)           | EnterAction5 is empty                             | "
              "can't be saved\n"
              "(no line)           | EnterAction7-8 are empty                          | "
              "can't be saved\n"
              "EnterAction4=WIAT:1 | (passed over: its list does not know the keyword) |\n"
              "EnterAction6=WAIT   | (STOPS THE LOAD: there is no \":\" behind the \"=\")  |\n"
              "NumOfLeaveActions=1 | (the count)                                       | "
              "NumOfLeaveActions=1\n"
              "(no line)           | LeaveAction1 is empty                             | "
              "can't be saved\n"
              "\nNothing is saved as long as 1 line stops the load and 7 entries are empty\n");
}

/// Of 66 characters each column has 20, beside two gaps of 3.
TEST_F(CheckCommandTest, OnATerminalTheColumnsAreEquallyWideAndBreakTheirTexts) {
    Check(
        "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\nNumOfEnterActions=1\n"
        "EnterAction1=MSG:Please close the door\n",
        AsLoadedLines(), 66);
    EXPECT_EQ(printed,
              "In the file          | In the engine        | Saved\n"
              "\n"
              "[ActionsOnTest]\n"
              "NumOfEnterActions=1  | (the count)          | NumOfEnterActions=1\n"
              "EnterAction1=MSG:Ple | Notify: Please close | EnterAction1=NOTIFY:\n"
              "ase close the door   | the door             | Please close the\n"
              "                     |                      | door,,0\n");
}

TEST_F(CheckCommandTest, AnyTerminalIsTakenToHaveSixtyCharacters) {
    Check(Clean, AsLoadedLines(), 10);
    EXPECT_THAT(printed, StartsWith("In the file        | In the engine      | Saved\n"));
    const std::string narrow = printed;
    Check(Clean, AsLoadedLines(), 60);
    EXPECT_EQ(printed, narrow);
}

TEST_F(CheckCommandTest, TheLineBelowTheColumnsIsBrokenAtTheWidthOfTheTerminal) {
    Check(Clean + Repeated("; remark\n", 2), AsLoadedLines(), 60);
    EXPECT_THAT(printed, EndsWith("\n\nNothing is saved as long as 2 lines stop the load\n"));
    Check(Clean + Repeated("; remark\n", 101), AsLoadedLines(), 60);
    EXPECT_THAT(printed,
                EndsWith("\n\nNothing is saved: more than 100 lines stop the load; correct\n"
                         "these first, because nothing behind them was looked at\n"));
}

// ---- very many lines that stop the load --------------------------------------------------------

TEST_F(CheckCommandTest, AHundredLinesThatStopTheLoadAreAllOfThem) {
    EXPECT_EQ(Check(Clean + Repeated("; remark\n", 100)), CheckResult::Unusable);
    EXPECT_THAT(printed, HasSubstr("\nFindings   100: 100 of what stops the load or the save\n"));
    EXPECT_THAT(printed, Not(HasSubstr("more than")));
}

/// The section behind them was not read, which is no reason to say that nobody reads it.
TEST_F(CheckCommandTest, MoreLinesThatStopTheLoadAreToldOfAndNothingBehindThem) {
    EXPECT_EQ(Check("[Workbench]\nModule=0\nSubRanges=1\n[ActionsOnTest]\nNumOfEnterActions=1\n" +
                    Repeated("; remark\n", 101) + "[ActionsOnSR1]\nNumOfEnterActions=1\n"),
              CheckResult::Unusable);
    EXPECT_THAT(printed, HasSubstr("\nFindings   101: 101 of what stops the load or the save\n"));
    EXPECT_THAT(printed,
                HasSubstr("test.ini:\n    the file can't be loaded: more than 100 lines stop the "
                          "load; correct these first, because nothing behind them was looked at\n"
                          "    Correct what it names; the rest is looked at only then.\n"));
}

/// The sections of the subranges are read by themselves once the load has come to the first.
TEST_F(CheckCommandTest, OfManySectionsTheFirstHundredLinesThatStopTheLoadAreTold) {
    std::string text = "[Workbench]\nModule=0\nSubRanges=60\n[ActionsOnTest]\n; remark\n; remark\n";
    for (int i = 1; i <= 60; ++i) {
        text += "[ActionsOnSR" + std::to_string(i) + "]\n; remark\n; remark\n";
    }
    Check(text);
    EXPECT_THAT(printed, HasSubstr("\nFindings   101: 101 of what stops the load or the save\n"));
    EXPECT_THAT(printed, HasSubstr("test.ini:5: [ActionsOnTest] \"; remark\"\n"));
    EXPECT_THAT(printed, HasSubstr("test.ini:153: [ActionsOnSR49] \"; remark\"\n"));
    EXPECT_THAT(printed, Not(HasSubstr("[ActionsOnSR50]")));
}

TEST_F(CheckCommandTest, AsLoadedShowsTheLinesThatStopTheLoadInTheirPlace) {
    Check(Clean + "; remark\n", AsLoadedLines());
    EXPECT_THAT(printed, HasSubstr("; remark            | (STOPS THE LOAD: there is no \"=\")"));
    EXPECT_THAT(printed, HasSubstr("EnterAction1=WAIT:5 | Wait: 0.005 s"));
}

TEST_F(CheckCommandTest, AFileThatCantBeCheckedIsRefusedAsForARun) {
    CheckArguments missing;
    missing.file = Path("gone.ini");
    std::ostringstream out;
    EXPECT_EQ(RefusalOf([&] { CheckCommand(missing, {.out = out}); }),
              "4 " + Path("gone.ini") + ": there is no such file");
    EXPECT_THAT(RefusalOf([&] { Check("[Mine]\n"); }), StartsWith("5 "));
    EXPECT_THAT(RefusalOf([&] { Check("[Workbench]\nModule=9\n"); }),
                StartsWith("4 " + Path("test.ini") + ":2: [Workbench] Module"));
    CheckArguments beside;
    Write("bench.ini", "[Devices]\nAmp A=Amplifirs\n");
    beside.devices = Path("bench.ini");
    EXPECT_THAT(RefusalOf([&] { Check(Clean, beside); }),
                StartsWith("4 " + Path("bench.ini") + ":2: [Devices] Amp A"));
}

TEST_F(CheckCommandTest, TheProgramEndsWithTheResultAsItsExitCode) {
    Write("clean.ini", Clean);
    Write("lossy.ini", Lossy);
    Write("unusable.ini", Unusable);
    const auto exitCode = [](const std::string& words) {
        RunningProgram program("\"$0\" check " + words + " >/dev/null 2>&1");
        return program.ExitCode();
    };
    EXPECT_EQ(exitCode(Path("clean.ini")), 0);
    EXPECT_EQ(exitCode(Path("lossy.ini") + " --json"), 1);
    EXPECT_EQ(exitCode(Path("unusable.ini") + " --as-loaded"), 2);
    EXPECT_EQ(exitCode(Path("gone.ini")), 4);
    EXPECT_EQ(exitCode(Path("clean.ini") + " --hear"), 5);
}

}  // namespace
}  // namespace ace::workbench
