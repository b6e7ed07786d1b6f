#include "workbench/cli/run_outputs.h"

#include <sstream>

#include "session/session_fixture.h"
#include "workbench/cli/run_command.h"

namespace ace::workbench {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string Chart = "[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=1\n";

/// Runs of a chart whose outputs are not what they should be.
class RunOutputsTest : public FolderTest {
  protected:
    RunOutputsTest() {
        Write("test.ini", Chart + "EnterAction1=WAIT:1\n");
        arguments.file = Path("test.ini");
    }
    std::string Refusal() {
        return RefusalOf([&] {
            std::ostringstream out;
            RunCommand(arguments, {.out = out});
        });
    }
    RunArguments arguments;
};

struct InputRow {
    const char* words;
    std::optional<std::string> RunArguments::*path;
};
const InputRow Inputs[] = {
    {"the answers file", &RunArguments::answers},
    {"the configuration", &RunArguments::config},
    {"the file of the devices", &RunArguments::devices},
    {"the script of failures", &RunArguments::faults},
};

TEST_F(RunOutputsTest, AnOutputThatIsTheSettingsFileIsRefusedAndTheFileIsAsItWas) {
    const std::string before = Read("test.ini");
    arguments.traffic = folder + "/./test.ini";
    EXPECT_EQ(Refusal(), "5 --traffic " + folder +
                             "/./test.ini: this file is the settings file, which is only read: "
                             "name another one");
    arguments.traffic.reset();
    arguments.trace = Path("test.ini");
    EXPECT_THAT(Refusal(), HasSubstr("this file is the settings file"));
    EXPECT_EQ(Read("test.ini"), before);
}

TEST_F(RunOutputsTest, AnOutputThatIsAnotherInputIsRefused) {
    for (const InputRow& row : Inputs) {
        Write("input", "");
        RunArguments others = arguments;
        others.*row.path = Path("input");
        others.trace = Path("input");
        std::ostringstream out;
        EXPECT_EQ(RefusalOf([&] { RunCommand(others, {.out = out}); }),
                  "5 --trace " + Path("input") + ": this file is " + row.words +
                      ", which is only read: name another one");
    }
}

TEST_F(RunOutputsTest, SymbolicAndHardLinksAreSeenThrough) {
    const std::string before = Read("test.ini");
    std::filesystem::create_symlink("test.ini", Path("symbolic"));
    std::filesystem::create_hard_link(Path("test.ini"), Path("hard"));
    for (const char* name : {"symbolic", "hard"}) {
        arguments.trace = Path(name);
        EXPECT_THAT(Refusal(), StartsWith("5 --trace " + Path(name) + ": this file is the"));
    }
    EXPECT_EQ(Read("test.ini"), before);
}

TEST_F(RunOutputsTest, TheTwoOutputsAreTwoFiles) {
    arguments.traffic = Path("log");
    arguments.trace = folder + "/./log";
    EXPECT_EQ(Refusal(), "5 --trace " + folder +
                             "/./log: this file is that of --traffic, too: name two files");
    EXPECT_EQ(Names(), std::vector<std::string>{"test.ini"});
    std::filesystem::create_symlink("log", Path("link"));
    arguments.trace = Path("link");
    EXPECT_THAT(Refusal(), StartsWith("5 --trace " + Path("link") + ": this file is that"));
    Write("log", "of another day");
    EXPECT_THAT(Refusal(), StartsWith("5 --trace "));
    EXPECT_EQ(Read("log"), "of another day");
}

TEST_F(RunOutputsTest, WhatIsNoPlainFileMayBeNamedTwice) {
    arguments.traffic = "/dev/null";
    arguments.trace = "/dev/null";
    EXPECT_EQ(Refusal(), "");
}

/// Each of these keeps the test from being run, at another time.
TEST_F(RunOutputsTest, ARunThatDoesNotHappenLeavesTheLogsAsTheyWere) {
    Write("last.log", "of another day");
    Write("last.trace", "of another day");
    Write("broken.ini", Chart + "no action\n");
    arguments.traffic = Path("last.log");
    arguments.trace = Path("last.trace");
    for (const InputRow& row : Inputs) {
        RunArguments others = arguments;
        others.*row.path = Path("missing");
        std::ostringstream out;
        EXPECT_THAT(RefusalOf([&] { RunCommand(others, {.out = out}); }), StartsWith("4 "));
    }
    arguments.file = Path("broken.ini");
    EXPECT_THAT(Refusal(), StartsWith("4 " + Path("broken.ini") + ":5: "));
    arguments.file = Path("test.ini");
    arguments.trace = Path("no/such/folder");
    EXPECT_THAT(Refusal(), StartsWith("4 " + Path("no/such/folder") + ": can't be made: "));
    EXPECT_EQ(Read("last.log"), "of another day");
    EXPECT_EQ(Read("last.trace"), "of another day");
}

TEST_F(RunOutputsTest, TheTraceHasTheLinesOfTheLoadToo) {
    Write("last.trace", "of another day\n");
    arguments.trace = Path("last.trace");
    EXPECT_EQ(Refusal(), "");
    EXPECT_THAT(Read("last.trace"), HasSubstr("ReadSection"));
    EXPECT_EQ(Read("last.trace").find("of another day"), std::string::npos);
}

}  // namespace
}  // namespace ace::workbench
