#include <ace/execution/dispatcher.h>

#include "support/remote_fixture.h"

namespace ace::test {
namespace {

using sim::Press;
using ::testing::ElementsAre;

const String NoProgram = L"Platform.ActivateProgram(-1)";
const String ProgramStatus = L"StatusDisplay.ShowStatus(\"Program\", false, false)";
const String Start = L"Platform.StartProgram(\"run.exe\")";

class DispatchRemote : public RoutineTest {
  protected:
    static p_Action Remote(const String& command, const String& program) {
        aceRemote record;
        record.Command = command;
        record.GpibAddress = 5;
        record.Program = program;
        record.ProgID = -1.0;
        return Action(atRemote, record);
    }
    Boolean Do(p_Action& action) { return modActions::DoAction(context, action, aceTemplate); }
};

TEST_F(DispatchRemote, TheHandleOfTheBusDeviceSurvivesInTheAction) {
    p_Action action = Remote(L"*RST", L"");
    EXPECT_FALSE(Do(action));
    EXPECT_EQ(RecordOf<aceRemote>(action).DrvHdl, 0);
    TakeCalls();
    EXPECT_FALSE(Do(action));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"StatusDisplay.ShowStatus(\"GPIB 0:5\", false, false)",
                                         L"GpibDriver.WriteString(0, \"*RST\\n\")", StatusCleared));
}

TEST_F(DispatchRemote, TheCommandRunsBeforeTheProgramAndTheProgramsAnswerReplacesIt) {
    p_Action action = Remote(L"*RST", L"run.exe");
    host->instruments.absentGpib.insert(5);
    host->user.Expect(L"frmGpibError", Press(L"cmdStopTest"));
    EXPECT_FALSE(Do(action));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"GpibDriver.OpenDevice(0, 5, 0, 11, 1, 0)",
                                         L"Form \"frmGpibError\"", StatusCleared, NoProgram,
                                         ProgramStatus, Start, L"Platform.Yield()", StatusCleared));
    EXPECT_EQ(RecordOf<aceRemote>(action).ProgID, 1000.0);
}

TEST_F(DispatchRemote, IgnoreAllIsKeptInTheActionAndSilencesItFromThenOn) {
    p_Action action = Remote(L"*RST", L"");
    host->instruments.absentGpib.insert(5);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnoreAll"));
    EXPECT_FALSE(Do(action));
    EXPECT_TRUE(action.IgnoreErr);
    EXPECT_FALSE(Do(action));
}

TEST_F(DispatchRemote, IgnoreLeavesTheLatchAlone) {
    p_Action action = Remote(L"*RST", L"");
    host->instruments.absentGpib.insert(5);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Do(action));
    EXPECT_FALSE(action.IgnoreErr);
}

TEST_F(DispatchRemote, AMacroThatFailsAsksToStopAndItsFilledInTextsStayOutOfTheAction) {
    aceAPI record;
    record.Program = L"log.mac";
    record.Parameters.Redim(1, 1);
    record.Parameters[1] = L"#FREQ#";
    record.Freq = 1.0;
    p_Action action = Action(atAPI, record);
    EXPECT_FALSE(Do(action));
    host->macros[L"log.mac"].loads = false;
    EXPECT_TRUE(Do(action));
    EXPECT_EQ(RecordOf<aceAPI>(action).Parameters[1], L"#FREQ#");
}

}  // namespace
}  // namespace ace::test
