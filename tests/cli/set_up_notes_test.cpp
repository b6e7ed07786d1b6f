/// What a file leaves out of its test stands in the head of each command as ranges.
#include <map>
#include <sstream>

#include "support/file_fixture.h"
#include "workbench/cli/check_command.h"
#include "workbench/cli/plan_command.h"
#include "workbench/cli/print_command.h"
#include "workbench/cli/run_command.h"
#include "workbench/cli/tree_command.h"

namespace ace::workbench {
namespace {

using ::testing::HasSubstr;

class SetUpNotesTest : public FolderTest {
  protected:
    /// What the commands print of `text`.
    void Print(const std::string& text) {
        Write("test.ini", text);
        std::ostringstream out;
        CheckArguments check;
        check.file = Path("test.ini");
        CheckCommand(check, {.out = out});
        pages["check"] = Taken(out);
        RunArguments run;
        run.file = Path("test.ini");
        RunCommand(run, {.out = out});
        pages["run"] = Taken(out);
        PlanCommand(run, out);
        pages["plan"] = Taken(out);
        TreeCommand(run, out);
        pages["tree"] = Taken(out);
        PrintCommand(run, {.out = out});
        pages["print"] = Taken(out);
    }
    static std::string Taken(std::ostringstream& out) {
        std::string text = out.str();
        out.str({});
        return text;
    }
    std::map<std::string, std::string> pages;
};

TEST_F(SetUpNotesTest, SubrangesWithoutASweepAreToldAsRanges) {
    Print(
        "[Workbench]\nModule=0\nSubRanges=5\n[Workbench.Subrange4]\nStartHz=1\nStopHz=1\n"
        "StepPercent=1\n[ActionsOnSR1]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n");
    for (const char* command : {"check", "run", "plan"}) {
        EXPECT_THAT(pages[command],
                    HasSubstr("\nNote       subrange 1 to 3, 5: no sweep in [Workbench.Subrange<n>]"
                              " and no --sweep, so no frequency is run there\n"))
            << command;
    }
}

TEST_F(SetUpNotesTest, WirelessTestsWithoutAKeyAreToldAsRanges) {
    Print(
        "[Workbench]\nModule=7\nSubRanges=9\n[ActionsOnTest4_VKS]\nVKS_UKey=A\nSUBSTEPS=0\n"
        "[ActionsOnTest4]\nNumOfEnterActions=1\nEnterAction1=WAIT:1\n");
    for (const auto& [command, page] : pages) {
        EXPECT_THAT(page, HasSubstr("\nNote       test 1 to 3, 5 to 9: no VKS_UKey in "
                                    "[ActionsOnTest<n>_VKS], so there is no such test\n"))
            << command;
    }
}

}  // namespace
}  // namespace ace::workbench
