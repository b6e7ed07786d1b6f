/// Every host call of a command, of a program start and of a macro fails in turn, and the operator
/// answers in each of the three ways.
#include <ace/execution/api_macro.h>
#include <ace/execution/dispatcher.h>
#include <ace/execution/remote_commands.h>
#include <ace/execution/start_program.h>

#include "support/failed_action.h"
#include "support/sweep.h"

namespace ace::test {
namespace {

/// What comes of a failure.
enum class Fate {
    Shown,     ///< the operator is asked, and his answer is the result
    Replaced,  ///< the operator is asked, and the result of the program replaces his answer
    Passed,    ///< nobody is asked, and the result is that of the undisturbed action
    Stops,     ///< nobody is asked, and the action asks to stop
};

/// One host call of the undisturbed action, what comes of its failure, and the calls that then
/// follow; the fetching of texts and the hiding of the form are left out of those.
struct Step {
    String call;
    Fate fate;
    std::vector<String> after;
};

struct Row {
    std::string name;
    p_Action action;
    std::function<void(SweepRig&)> prepare;
    std::vector<Step> steps;
    bool stops = false;  ///< result of the undisturbed action
};
void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

const String Status = L"StatusDisplay.ShowStatus";
const String Yield = L"Platform.Yield";
const String Form = L"FormHost.ShowModal";
const String Box = L"UserDialogs.ShowMessageBox";
const String Text = L"Language.Text";
const std::vector<String> AskedAndCleared = {Form, Status};

void Nothing(SweepRig&) {}

/// All calls of `steps` from number `from` on.
std::vector<String> CallsOf(const std::vector<Step>& steps, std::size_t from = 0) {
    std::vector<String> calls;
    for (std::size_t i = from; i < steps.size(); ++i) {
        calls.push_back(steps[i].call);
    }
    return calls;
}

/// Steps of a command: each failure but those of `passed` is shown and ends it.
std::vector<Step> CommandSteps(const std::vector<String>& calls,
                               const std::vector<std::size_t>& passed = {}) {
    std::vector<Step> steps;
    for (const String& call : calls) {
        steps.push_back({call, Fate::Shown, AskedAndCleared});
    }
    for (const std::size_t at : passed) {
        steps[at].fate = Fate::Passed;
        steps[at].after = CallsOf(steps, at + 1);
    }
    return steps;
}

/// Steps of a macro: no failure is shown, and each leads to the clearing of the status line.
std::vector<Step> MacroSteps(const std::vector<String>& calls) {
    std::vector<Step> steps;
    for (const String& call : calls) {
        steps.push_back({call, Fate::Stops, {Status}});
    }
    steps.back().after.clear();
    return steps;
}

aceRemote Record(std::int32_t iface) {
    aceRemote record;
    record.Command = L"*RST";
    record.Iface = iface;
    record.GpibAddress = 5;
    record.SerComPort = 3;
    record.TcpHost = L"gen";
    record.TcpPort = 5025;
    record.ProgID = -1.0;
    return record;
}
p_Action Command(std::int32_t iface) {
    return Action(atRemote, Record(iface));
}
p_Action Program(bool waits, double process = -1.0) {
    aceRemote record;
    record.Program = L"run.exe";
    record.WaitPrgSync = waits;
    record.ProgID = process;
    return Action(atRemote, record);
}
p_Action Macro() {
    aceAPI record;
    record.Program = L"log.mac";
    record.Parameters.Redim(1, 1);
    record.Parameters[1] = L"#FREQ#";
    return Action(atAPI, record);
}

/// A failure of any of these stands until messages have run and counts as a failed start.
const String Activate = L"Platform.ActivateProgram";
const String Start = L"Platform.StartProgram";
const std::vector<String> StartedAndAsked = {Status, Start, Yield, Form, Status};

std::vector<Step> StartSteps() {
    return {{Activate, Fate::Shown, StartedAndAsked},
            {Status, Fate::Shown, {Start, Yield, Form, Status}},
            {Start, Fate::Shown, {Yield, Form, Status}},
            {Yield, Fate::Shown, {Form, Status}},
            {Status, Fate::Passed, {}}};
}

const String Write = L"SystemServices.WriteMacroSync";
const String Progress = L"SystemServices.SetProgressText";
const String Global = L"SystemServices.GetGlobalSettings";
const String Long = L"SettingsFile.GetLong";
const String Read = L"SystemServices.ReadMacroSync";
const String Wait = L"Utilities.Wait";

/// A running program that is waited for: one second is three rounds, of which two are needed. The
/// failure of the activation starts the program; without a time-out there is one round.
std::vector<Step> SyncSteps() {
    const std::vector<String> wait = {Progress, Global, Long, Read, Wait, Read, Progress, Status};
    std::vector<String> started = {Status, Start, Yield, Form};
    started.insert(started.end(), wait.begin(), wait.end());
    std::vector<String> activated = {Activate};
    activated.insert(activated.end(), wait.begin(), wait.end());
    return {{Write, Fate::Passed, activated},
            {Activate, Fate::Shown, started},
            {Progress, Fate::Passed, {Global, Long, Read, Wait, Read, Progress, Status}},
            {Global, Fate::Passed, {Read, Wait, Progress, Status}},
            {Long, Fate::Passed, {Read, Wait, Progress, Status}},
            {Read, Fate::Passed, {Wait, Read, Wait, Read, Progress, Status}},
            {Wait, Fate::Passed, {Read, Progress, Status}},
            {Read, Fate::Passed, {Wait, Read, Progress, Status}},
            {Progress, Fate::Passed, {Status}},
            {Status, Fate::Passed, {}}};
}

/// What a failed read leaves unread is read in the next round.
void PrepareSync(SweepRig& rig) {
    rig.host->programs.running.insert(77.0);
    rig.host->files[rig.host->globalSettings][L"OtaMeasurements"] = {L"ActionSyncTimeout=1"};
    rig.host->programs.macroSyncAnswers = {L"STARTED", L"COMPLETED"};
}

/// Both texts: the program runs whatever came of the command.
p_Action Both() {
    aceRemote record = Record(0);
    record.Program = L"run.exe";
    return Action(atRemote, record);
}
std::vector<Step> BothSteps() {
    const std::vector<String> start = CallsOf(StartSteps());
    std::vector<Step> steps =
        CommandSteps({L"GpibDriver.OpenDevice", Status, L"GpibDriver.WriteString", Status});
    for (Step& step : steps) {
        step.fate = Fate::Replaced;
        step.after.insert(step.after.end(), start.begin(), start.end());
    }
    for (const Step& step : StartSteps()) {
        steps.push_back(step);
    }
    return steps;
}

std::vector<Step> FailingMacroSteps() {
    return MacroSteps({L"Factory.MakeApiMacro", L"Platform.DecimalSeparator", L"ApiMacro.Load",
                       Status, L"ApiMacro.Execute", L"ApiMacro.WaitFinished", L"ApiMacro.GetResult",
                       L"ApiMacro.GetResult", L"Factory.MakeUserDialogs", Text, Text, Box, Status});
}

/// The first answer of the macro is the result: nothing that fails afterwards changes it.
std::vector<Step> MacroStepsOfSuccess() {
    std::vector<Step> steps =
        MacroSteps({L"Factory.MakeApiMacro", L"Platform.DecimalSeparator", L"ApiMacro.Load", Status,
                    L"ApiMacro.Execute", L"ApiMacro.WaitFinished", L"ApiMacro.GetResult",
                    L"ApiMacro.GetResult", Status});
    steps[7].fate = Fate::Passed;
    steps[8].fate = Fate::Passed;
    return steps;
}

const std::vector<Row> Rows = {
    {"Gpib", Command(0), Nothing,
     CommandSteps({L"GpibDriver.OpenDevice", Status, L"GpibDriver.WriteString", Status})},
    {"SerialOtherPort", Command(1), Nothing,
     CommandSteps({L"SerialPort.CommPort", L"SerialPort.PortOpen", Yield, L"SerialPort.CommPort",
                   L"SerialPort.PortOpen", L"SerialPort.PortOpen", Yield, L"SerialPort.PortOpen",
                   Status, L"SerialPort.Output", L"SerialPort.PortOpen", Status},
                  {1})},
    {"TcpOtherEndpoint", Command(2),
     [](SweepRig& rig) {
         rig.context.SocketHandle = 99;
         rig.host->openSockets.insert(99);
     },
     CommandSteps({L"DeviceList.FindSocket", L"DeviceList.CloseSocket", L"DeviceList.SocketIsOpen",
                   L"DeviceList.OpenSocket", L"DeviceList.SocketIsOpen", Status,
                   L"DeviceList.SendSocket", Status})},
    {"ProgramStart", Program(false), Nothing, StartSteps()},
    {"RunningProgramWithSync", Program(true, 77.0), PrepareSync, SyncSteps()},
    {"CommandAndProgram", Both(), Nothing, BothSteps()},
    {"MacroThatSucceeds", Macro(), Nothing, MacroStepsOfSuccess()},
    {"MacroThatFails", Macro(),
     [](SweepRig& rig) {
         rig.host->macros[L"log.mac"].results = {false, false};
     },
     FailingMacroSteps(), true},
};

/// A message box comes only when nothing fails up to it.
bool ReachesBox(const Row& row, std::size_t k) {
    const auto box = std::ranges::find(row.steps, Box, &Step::call);
    const auto at = static_cast<std::size_t>(box - row.steps.begin()) + 1;
    return box != row.steps.end() && (k == 0 || k > at);
}

/// Runs the row's action; call `k` from 1 fails once, 0 for none. The two questions whether tracing
/// is on are no calls of it.
Done RunOnce(const Row& row, std::size_t k, const Answer* answer, bool isSilenced = false) {
    SweepRig rig;
    rig.MakeEngine();
    row.prepare(rig);
    if (k > 0) {
        rig.host->faults.FailCall(k + 1, SweepError);
    }
    if (ReachesBox(row, k)) {
        rig.host->user.ExpectBox(L"T(9183) [log.mac]");
    }
    if (answer != nullptr) {
        rig.host->user.Expect(L"frmGpibError", sim::Press(answer->button));
    }
    rig.host->journal.Clear();
    Done done{{}, row.action, {}, {}};
    done.action.IgnoreErr = isSilenced;
    done.stops = modActions::DoAction(rig.context, done.action, aceTemplate);
    for (const sim::JournalEntry& entry : rig.host->journal.Entries()) {
        if (entry.operation != L"TraceLog.IsEnabled") {
            done.calls.push_back(entry.operation);
        }
    }
    done.complaints = rig.host->user.TakeComplaints();
    return done;
}

bool IsAsked(Fate fate) {
    return fate == Fate::Shown || fate == Fate::Replaced;
}

class RemoteSweep : public ::testing::TestWithParam<Row> {};

TEST_P(RemoteSweep, TheUndisturbedActionMakesItsCallsInOrder) {
    const Done done = RunOnce(GetParam(), 0, nullptr);
    EXPECT_EQ(done.calls, CallsOf(GetParam().steps));
    EXPECT_EQ(done.stops, GetParam().stops);
    EXPECT_FALSE(done.action.IgnoreErr);
}

TEST_P(RemoteSweep, EveryCallThatFailsEndsAsTheOperatorSays) {
    const Row& row = GetParam();
    for (std::size_t k = 1; k <= row.steps.size(); ++k) {
        const Step& step = row.steps[k - 1];
        const bool isAsked = IsAsked(step.fate);
        for (const Answer& answer : Answers) {
            SCOPED_TRACE(std::to_string(k) + " " + ::testing::PrintToString(step.call) + " " +
                         ::testing::PrintToString(answer.button));
            const Done done = RunOnce(row, k, isAsked ? &answer : nullptr);
            EXPECT_THAT(done.complaints, ::testing::IsEmpty());
            EXPECT_EQ(Tail(done.calls, k), step.after);
            EXPECT_EQ(done.action.IgnoreErr, isAsked && answer.ignoresAll);
            const bool stops = step.fate == Fate::Shown   ? answer.stops
                               : step.fate == Fate::Stops ? true
                                                          : row.stops;
            EXPECT_EQ(done.stops, stops);
        }
    }
}

TEST_P(RemoteSweep, ASilencedActionAsksNobodyAndGoesOn) {
    const Row& row = GetParam();
    for (std::size_t k = 1; k <= row.steps.size(); ++k) {
        const Step& step = row.steps[k - 1];
        std::vector<String> after = step.after;
        std::erase(after, Form);
        const Done done = RunOnce(row, k, nullptr, true);
        SCOPED_TRACE(std::to_string(k) + " " + ::testing::PrintToString(step.call));
        EXPECT_THAT(done.complaints, ::testing::IsEmpty());
        EXPECT_EQ(Tail(done.calls, k), after);
        EXPECT_EQ(done.stops, step.fate == Fate::Stops ? true : row.stops);
        EXPECT_TRUE(done.action.IgnoreErr);
    }
}

INSTANTIATE_TEST_SUITE_P(Actions, RemoteSweep, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

/// Calls the routine of the row's action, from call `k` on every host call fails.
std::int32_t ErrorForEver(const Row& row, std::size_t k, bool isSilenced, Boolean& result) {
    SweepRig rig;
    rig.MakeEngine();
    row.prepare(rig);
    rig.host->faults.FailCall(k, SweepError, sim::FaultScript::Until::ForEver);
    Boolean ignoreAll = isSilenced;
    p_Action action = row.action;
    const std::int32_t error = ErrorOf([&] {
        if (action.ActionType == atAPI) {
            result = modActions::RunApiMacro(rig.context, RecordOf<aceAPI>(action));
            return;
        }
        auto& record = RecordOf<aceRemote>(action);
        result = record.Command.empty()
                     ? modActions::StartRemoteProgram(rig.context, record, ignoreAll)
                     : modActions::SendRemoteCommand(rig.context, record, ignoreAll);
    });
    EXPECT_EQ(ignoreAll, isSilenced);
    return error;
}

/// A form that can't be shown is a failure of the command; program starts and macros go on whatever
/// happens, and answer no.
TEST(RemoteForEver, AHostThatFailsFromACallOnEndsACommandWithTheErrorAndNothingElse) {
    for (const Row& row : Rows) {
        const auto* record = std::get_if<aceRemote>(&row.action.Parameter);
        const bool isCommand = record != nullptr && !record->Command.empty();
        const std::size_t own = row.name == "CommandAndProgram" ? 4 : row.steps.size();
        for (std::size_t k = 1; k <= own; ++k) {
            for (const bool isSilenced : {false, true}) {
                SCOPED_TRACE(row.name + " " + std::to_string(k));
                Boolean result;
                EXPECT_EQ(ErrorForEver(row, k, isSilenced, result), isCommand ? SweepError : 0);
                const bool succeeded = row.name == "MacroThatSucceeds" && k > 7;
                EXPECT_EQ(result, succeeded);
            }
        }
    }
}

}  // namespace
}  // namespace ace::test
