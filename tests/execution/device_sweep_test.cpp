/// Every host call of the device actions fails in turn, and the operator answers in each of the
/// three ways.
#include <ace/execution/dispatcher.h>

#include "sim/sim_devices.h"
#include "support/failed_action.h"
#include "support/fake_forms.h"
#include "support/sweep.h"

namespace ace::test {
namespace {

/// How a routine treats a failure.
enum class Pattern {
    Traced,     ///< shown and silenced by the latch; the end is traced
    Latched,    ///< shown and silenced by the latch
    Unlatched,  ///< always shown, without a way to ignore all
    Silent,     ///< never shown
};

const String Form = L"FormHost.ShowModal";
const String Box = L"UserDialogs.ShowMessageBox";
const String Text = L"Language.Text";
const String Clock = L"Platform.SecondsSinceMidnight";
const String Separator = L"Platform.DecimalSeparator";
const String Traced = L"TraceLog.IsEnabled";
const String Opened = L"SystemServices.OpenSettingsFile";
const String Progress = L"SystemServices.SetProgressText";
const String TestAsked = L"SystemServices.GetCurrentTest";
const String KindAsked = L"TestInfo.TestKind";
const String Found = L"DeviceList.GetDevice";
const String Class = L"Device.DeviceClass";
const String ClassName = L"DeviceList.ClassName";
const String State = L"Device.State";
const String Activate = L"Device.Activate";
const String Load = L"Device.LoadSettings";
const String Section = L"SettingsFile.GetSection";
const String Name = L"Device.Name";
const String Use = L"MonitorDevice.SetUseMode";
const String Read = L"MonitorDevice.ReadChannel";
const String RfOn = L"RfGenerator.SetRfOn";
const String Execute = L"RfGenerator.Execute";
const std::vector<String> Posted = {L"DeviceList.GetDeviceListHost", L"DeviceList.PostEvent",
                                    L"Platform.Yield"};

struct Row {
    std::string name;
    p_Action action;
    Pattern pattern;
    std::function<void(sim::SimHost&)> prepare;
    std::vector<String> calls;       ///< of the undisturbed routine
    std::vector<String> after = {};  ///< what the dispatcher does behind the routine
    std::size_t before = 1;          ///< what it asks before the routine
    bool stops = false;              ///< result of the undisturbed action
    std::size_t stopsFrom = 0;       ///< number of the first call behind the stop; 0 for none
    bool isRunning = false;          ///< the test runs
};
void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

template <class Kind>
std::shared_ptr<Kind> AddOff(sim::SimHost& host, const String& name) {
    const auto device = host.bench.Add<Kind>(host, name);
    device->state = 0;
    return device;
}

// ---- actions -----------------------------------------------------------------------------------

aceSetDevice Device() {
    aceSetDevice record;
    record.DevName = L"Dev";
    record.ChanNo = 7;
    record.SigPathName = L"Path";
    return record;
}
/// One round of waiting, everything told and asked for.
aceSetDevice FullCheck() {
    aceSetDevice record = Device();
    record.Notify = record.CommToTable = record.StopTest = record.LoadingPos = true;
    record.UseTimeCyc = record.WaitState = true;
    record.CycleTime = 10.0;
    return record;
}
aceTrackFreq Generator(bool asks) {
    aceTrackFreq record;
    record.GenName = L"Gen";
    record.TableName = L"Levels";
    record.SigPathName = L"Path";
    record.Freq = 80e6;
    record.AskOnMeasStart = asks;
    return record;
}
aceTrackFreq Tracking() {
    aceTrackFreq record;
    record.MoniName = L"Dev";
    return record;
}

void FailedEquipment(sim::SimHost& host) {
    host.bench.Add<sim::SimMonitor>(host, L"Dev")->readings[7] = {3.0, 3.0};
}
void GeneratorBench(sim::SimHost& host) {
    host.testState = 0;
    AddOff<sim::SimRfGenerator>(host, L"Gen");
    AddOff<sim::SimSignalPath>(host, L"Path");
    host.bench.Add<sim::SimCalTable>(host, L"Levels");
}

const std::vector<String> FullCheckCalls = {
    Traced, Opened, Found, State, Class, ClassName, Clock, Use, Load, Section, Read,
    L"Utilities.IsSameValue", State,
    // the seconds at the start of the wait, and its one round
    Text, Name, Separator, Progress, Clock, L"Utilities.Wait", Read, Clock, Text, Name, Separator,
    Progress,
    // message, comment, end
    Text, Name, L"CommentForm.DisplayMessage", Text, Progress, Clock};

const std::vector<Row> Rows = {
    {"SetMonitor",
     Action(atSetDevice, Device()),
     Pattern::Traced,
     [](sim::SimHost& host) { AddOff<sim::SimMonitor>(host, L"Dev"); },
     {Traced, Opened, Found, State, Activate, State, Class, ClassName, Use, Load, Section,
      L"MonitorDevice.SetChannel", State}},
    {"SetBroadcastGenerator",
     Action(atSetDevice, Device()),
     Pattern::Traced,
     [](sim::SimHost& host) {
         AddOff<sim::SimBcGenerator>(host, L"Dev");
         host.bench.Add<sim::SimSignalPath>(host, L"Path");
     },
     {Traced, Opened, Found, State, Activate, State, Class, ClassName, Found, L"SignalPath.Prepare",
      L"BcGenerator.SetSignalPath", Load, Section, L"BcGenerator.Apply"}},
    {.name = "CheckWithAllFlags",
     .action = Action(atCheckEut, FullCheck()),
     .pattern = Pattern::Traced,
     .prepare = FailedEquipment,
     .calls = FullCheckCalls,
     .stops = true,
     .stopsFrom = 30},
    {.name = "SwitchAmplifier",
     .action = Action(atSwitchAmp, Device()),
     .pattern = Pattern::Unlatched,
     .prepare = [](sim::SimHost& host) { AddOff<sim::SimAmplifier>(host, L"Dev"); },
     .calls = {Found, State, Activate, State, L"Amplifier.SetState"},
     .after = Posted},
    {"SwitchUnit",
     Action(atSwitchUnit, Device()),
     Pattern::Unlatched,
     [](sim::SimHost& host) { AddOff<sim::SimSwitchUnit>(host, L"Dev"); },
     {Found, State, Activate, State, L"SwitchUnit.SwitchPath"}},
    {"GeneratorBeforeTheTest",
     Action(atTrackFreq, Generator(true)),
     Pattern::Latched,
     GeneratorBench,
     {TestAsked,
      KindAsked,
      Text,
      Text,
      Text,
      Box,
      Found,
      L"SignalPath.Prepare",
      Found,
      L"RfGenerator.CommonDevice",
      State,
      Activate,
      State,
      RfOn,
      Execute,
      L"SignalPath.CommonDevice",
      State,
      Activate,
      State,
      L"SystemServices.GetTable",
      L"Utilities.IsEqual",
      L"RfGenerator.SetFrequency",
      L"CalTable.GetValue",
      L"SignalPath.GetCorrection",
      L"RfGenerator.SetLevel",
      RfOn,
      Execute}},
    {.name = "GeneratorDuringTheTest",
     .action = Action(atTrackFreq, Generator(true)),
     .pattern = Pattern::Latched,
     .prepare = GeneratorBench,
     .calls = {TestAsked, KindAsked, Found, L"SystemServices.GetTable", L"Utilities.IsEqual",
               L"RfGenerator.SetFrequency", L"CalTable.GetValue", L"RfGenerator.SetLevel", RfOn,
               Execute},
     .isRunning = true},
    {"Tracking",
     Action(atTrackFreq, Tracking()),
     Pattern::Latched,
     [](sim::SimHost& host) {
         host.testState = 0;
         AddOff<sim::SimMonitor>(host, L"Dev");
     },
     {TestAsked, KindAsked, Found, L"MonitorDevice.CommonDevice", State, Activate, Use,
      L"MonitorDevice.SetFrequency", Text, Text, Text, L"SystemServices.ShowTimedMessage"}},
    {.name = "ProtectReceivers",
     .action = Action(atProtRec),
     .pattern = Pattern::Silent,
     .prepare = [](sim::SimHost& host) { host.bench.Add<sim::SimReceiver>(host, L"Dev"); },
     .calls = {Traced, L"DeviceList.DevicesOfClass", Found, L"Receiver.CommonDevice", State,
               L"Receiver.SetParameter", Traced},
     .before = 2},
};

// ---- runs --------------------------------------------------------------------------------------

/// Everything that a run needs, with the calls of its making forgotten.
struct Scene {
    explicit Scene(const Row& row) {
        rig.MakeEngine();
        row.prepare(*rig.host);
        form->answers = {false};
        rig.context.CommentForm = form;
        rig.context.UserDialogs();
        rig.context.TestRunning = row.isRunning;
        rig.host->journal.Clear();
    }
    SweepRig rig;
    std::shared_ptr<FakeCommentForm> form = std::make_shared<FakeCommentForm>(*rig.host);
};

/// The operator is asked by a box only when nothing fails up to it.
bool ReachesBox(const Row& row, std::size_t k) {
    const auto box = std::find(row.calls.begin(), row.calls.end(), Box);
    const auto at = static_cast<std::size_t>(box - row.calls.begin()) + 1;
    return box != row.calls.end() && (k == 0 || k > at);
}

/// Runs the row's action; call `k` of the routine fails once, from 1, 0 for none.
Done RunOnce(const Row& row, std::size_t k, const Answer* answer, bool isSilenced = false) {
    Scene scene(row);
    sim::SimHost& host = *scene.rig.host;
    if (k > 0) {
        host.faults.FailCall(row.before + k, SweepError);
    }
    if (ReachesBox(row, k)) {
        host.user.ExpectQuestion(true);
    }
    if (answer != nullptr) {
        host.user.Expect(L"frmGpibError", sim::Press(answer->button));
    }
    Done done{{}, row.action, {}, {}, 0};
    done.action.IgnoreErr = isSilenced;
    done.stops = modActions::DoAction(scene.rig.context, done.action, aceTemplate);
    for (const sim::JournalEntry& entry : host.journal.Entries()) {
        done.calls.push_back(entry.operation);
    }
    done.calls.erase(done.calls.begin(),
                     done.calls.begin() + static_cast<std::ptrdiff_t>(row.before));
    done.calls.pop_back();  // the dispatcher's end
    done.complaints = host.user.TakeComplaints();
    done.request = scene.rig.context.EutCheckRequest;
    return done;
}

/// What follows a failure of call `k`.
std::vector<String> After(const Row& row, std::size_t k, bool isSilenced) {
    std::vector<String> after;
    const bool isShown =
        row.pattern == Pattern::Unlatched || (row.pattern != Pattern::Silent && !isSilenced);
    if (isShown) {
        after.push_back(Form);
    }
    const bool endsTraced = row.pattern == Pattern::Silent && k < row.calls.size();
    if (row.pattern == Pattern::Traced || endsTraced) {
        after.push_back(Traced);
    }
    after.insert(after.end(), row.after.begin(), row.after.end());
    return after;
}

/// What the check had asked for before its call `k`: comment 1, parking 4, stop 128.
std::int32_t RequestBefore(const Row& row, std::size_t k) {
    return row.stopsFrom != 0 && k >= row.stopsFrom ? 1 + 4 + 128 : 0;
}

/// A failure never counts as a check that was made.
void ExpectNoCheckCounted(const p_Action& action) {
    if (const auto* record = std::get_if<aceSetDevice>(&action.Parameter)) {
        EXPECT_EQ(record->LastCheck, 0.0F);
    }
}

class DeviceSweep : public ::testing::TestWithParam<Row> {};

TEST_P(DeviceSweep, TheUndisturbedActionMakesItsCallsInOrder) {
    const Row& row = GetParam();
    const Done done = RunOnce(row, 0, nullptr);
    std::vector<String> calls = row.calls;
    calls.insert(calls.end(), row.after.begin(), row.after.end());
    EXPECT_EQ(done.calls, calls);
    EXPECT_EQ(done.stops, row.stops);
    EXPECT_EQ(done.request, row.stops ? 1 + 4 + 128 : 0);
    EXPECT_FALSE(done.action.IgnoreErr);
    EXPECT_THAT(done.complaints, ::testing::IsEmpty());
}

TEST_P(DeviceSweep, EveryCallThatFailsEndsAsTheOperatorSays) {
    const Row& row = GetParam();
    if (row.pattern == Pattern::Silent) {
        return;
    }
    for (std::size_t k = 1; k <= row.calls.size(); ++k) {
        for (const Answer& answer : Answers) {
            if (answer.ignoresAll && row.pattern == Pattern::Unlatched) {
                continue;
            }
            SCOPED_TRACE(std::to_string(k) + " " + ::testing::PrintToString(row.calls[k - 1]) +
                         " " + ::testing::PrintToString(answer.button));
            const Done done = RunOnce(row, k, &answer);
            EXPECT_THAT(done.complaints, ::testing::IsEmpty());
            EXPECT_EQ(Tail(done.calls, k), After(row, k, false));
            EXPECT_EQ(done.stops, answer.stops);
            EXPECT_EQ(done.action.IgnoreErr, answer.ignoresAll);
            EXPECT_EQ(done.request, RequestBefore(row, k));
            ExpectNoCheckCounted(done.action);
        }
    }
}

/// A stop that the check had asked for before the failure stands.
TEST_P(DeviceSweep, ASilencedActionAsksNobodyUnlessNothingCanSilenceIt) {
    const Row& row = GetParam();
    const bool isAsked = row.pattern == Pattern::Unlatched;
    for (std::size_t k = 1; k <= row.calls.size(); ++k) {
        SCOPED_TRACE(std::to_string(k) + " " + ::testing::PrintToString(row.calls[k - 1]));
        const Done done = RunOnce(row, k, isAsked ? &Answers[2] : nullptr, true);
        EXPECT_THAT(done.complaints, ::testing::IsEmpty());
        EXPECT_EQ(Tail(done.calls, k), After(row, k, true));
        EXPECT_EQ(done.stops, isAsked || (row.stopsFrom != 0 && k >= row.stopsFrom));
        EXPECT_TRUE(done.action.IgnoreErr);
        EXPECT_EQ(done.request, RequestBefore(row, k));
        ExpectNoCheckCounted(done.action);
    }
}

/// A form that can't be shown is an error that comes out of the action.
TEST_P(DeviceSweep, AHostThatFailsFromACallOnEndsTheActionWithTheError) {
    const Row& row = GetParam();
    for (std::size_t k = 1; k <= row.calls.size(); ++k) {
        SCOPED_TRACE(std::to_string(k) + " " + ::testing::PrintToString(row.calls[k - 1]));
        Scene scene(row);
        if (ReachesBox(row, k)) {
            scene.rig.host->user.ExpectQuestion(true);
        }
        scene.rig.host->faults.FailCall(row.before + k, SweepError,
                                        sim::FaultScript::Until::ForEver);
        p_Action action = row.action;
        EXPECT_EQ(ErrorOf([&] { modActions::DoAction(scene.rig.context, action, aceTemplate); }),
                  SweepError);
        EXPECT_EQ(action, row.action);
        EXPECT_THAT(scene.rig.host->user.TakeComplaints(), ::testing::IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Actions, DeviceSweep, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
