#include <ace/core/actions_engine.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/fake_editor.h"
#include "support/sweep.h"

namespace ace::test {
namespace {

String Number(std::int32_t number) {
    return std::to_wstring(number);
}

/// What construction and destruction leave in the shared state.
String SharedState(const SweepRig& rig) {
    const ThreadContext& context = rig.context;
    return L"objects " + Number(context.InstanceCount) +
           (context.ModuleInitialised ? L" initialised" : L" bare") +
           (context.StatusDisplay ? L" display" : L"") +
           (context.ActionStatusTexts[4].empty() ? L"" : L" texts") +
           (context.ComPortForm ? L" port" : L"") + L" socket " + Number(context.SocketHandle) +
           (rig.host->serialPortOpen ? L" open" : L"") +
           (rig.host->openSockets.empty() ? L"" : L" connected");
}

void Construct(SweepRig& rig) {
    rig.engine = std::make_unique<aceActionsEngine>(rig.context);
}

/// The shared state is there; the form of the first object makes way for a new one.
void LiveSecondLife(SweepRig& rig) {
    const aceActionsEngine second(rig.context);
}

/// An engine that leaves an open port, an open socket and an open bus device behind.
void PrepareTheEnd(SweepRig& rig) {
    aceActionsEngine& engine = rig.MakeEngine();
    rig.host->serialPortOpen = true;
    rig.host->openSockets = {7};
    rig.context.SocketHandle = 7;
    aceRemote remote;
    remote.DrvHdl = 5;
    Fill(engine.State().MainTest, EnterList, {Action(atRemote, remote)});
}

void PrepareEditor(SweepRig& rig) {
    rig.MakeEngine();
    const auto editor = std::make_shared<FakeEditor>(*rig.host);
    editor->count = 12;
    rig.context.Editor = editor;
}

String MainSubrangeCount(const SweepRig& rig) {
    EngineState& state = rig.engine->State();
    return (state.ChangeFlags[aceTemplate] ? L"changed " : L"unchanged ") +
           Number(state.MainSubrangeCount);
}

/// What `LoadEditor` has reached in the editor.
String Links(const SweepRig& rig) {
    const auto& editor = static_cast<const FakeEditor&>(*rig.context.Editor);
    return String(editor.tree != nullptr ? L"tree" : L"") +
           (editor.loaded != nullptr ? L", lists" : L"") +
           (editor.list != nullptr ? L", list" : L"");
}

const SweepRow Rows[] = {
    {"FirstConstruction",
     [](SweepRig&) {},
     Construct,
     SharedState,
     {Handled(L"Factory.MakeStatusDisplay", L"objects 1 bare socket -1"),
      Handled(L"Factory.MakeLanguage", L"objects 1 bare display socket -1"),
      Handled(L"Language.Text", L"objects 1 bare display socket -1"),
      Handled(L"Language.Text", L"objects 1 bare display socket -1"),
      Handled(L"Language.Text", L"objects 1 bare display socket -1"),
      Handled(L"Language.Text", L"objects 1 bare display socket -1"),
      Handled(L"Language.Text", L"objects 1 bare display socket -1"),
      Bare(L"Factory.MakeSerialPort", L"objects 1 initialised display texts socket -1")}},
    {"SecondObject",
     [](SweepRig& rig) {
         rig.MakeEngine();
         rig.context.SocketHandle = 3;
     },
     LiveSecondLife,
     SharedState,
     {Bare(L"Factory.MakeSerialPort", L"objects 2 initialised display texts port socket -1"),
      Swallowed(L"SerialPort.PortOpen", L"objects 1 initialised display texts socket -1"),
      Swallowed(L"SerialPort.PortOpen", L"objects 1 initialised display texts socket -1"),
      Swallowed(L"SerialPort.PortOpen", L"objects 1 initialised display texts socket -1")}},
    {"Destruction",
     PrepareTheEnd,
     [](SweepRig& rig) { rig.engine.reset(); },
     SharedState,
     {Swallowed(L"SerialPort.PortOpen", L"objects 0 bare texts socket -1"),
      Swallowed(L"SerialPort.PortOpen", L"objects 0 bare texts socket -1"),
      Swallowed(L"DeviceList.SocketIsOpen", L"objects 0 bare texts socket 7 connected"),
      Swallowed(L"DeviceList.CloseSocket", L"objects 0 bare texts socket -1 connected"),
      Swallowed(L"SerialPort.PortOpen", L"objects 0 bare texts socket -1"),
      Swallowed(L"GpibDriver.CloseDevice", L"objects 0 bare texts socket -1")}},
    {"ChangeTrue",
     PrepareEditor,
     [](SweepRig& rig) { rig.engine->Change(true); },
     MainSubrangeCount,
     {Bare(L"Editor.GetMainActions", L"changed -1")}},
    {"ChangeFalse",
     PrepareEditor,
     [](SweepRig& rig) { rig.engine->Change(false); },
     MainSubrangeCount,
     {}},
    {"InitReceiver",
     [](SweepRig& rig) {
         rig.MakeEngine();
         rig.context.InitReceiverPending = true;
     },
     [](SweepRig& rig) { rig.engine->InitReceiver(); },
     [](const SweepRig& rig) {
         return String(rig.context.InitReceiverPending ? L"pending" : L"clear");
     },
     {}},
    {"LoadEditor",
     PrepareEditor,
     [](SweepRig& rig) {
         sim::SimTree tree(*rig.host);
         sim::SimList list(*rig.host);
         rig.engine->LoadEditor(&list, &tree);
     },
     Links,
     {Handled(L"TraceLog.IsEnabled", L""), Handled(L"Editor.Load", L""),
      Handled(L"Editor.SetTreeControl", L""), Handled(L"Editor.LoadEditor", L"tree"),
      Handled(L"Editor.SetListControl", L"tree, lists"),
      Handled(L"TraceLog.IsEnabled", L"tree, lists, list")}},
    {"Release",
     PrepareEditor,
     [](SweepRig& rig) { rig.engine->Release(); },
     [](const SweepRig& rig) { return String(rig.context.Editor ? L"open" : L"closed"); },
     {Bare(L"Editor.Unload", L"open")}},
};

class LifetimeSweep : public ::testing::TestWithParam<SweepRow> {};

TEST_P(LifetimeSweep, EveryFailingHostCallEndsAsTheOperationPromises) {
    Sweep(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Operations, LifetimeSweep, ::testing::ValuesIn(Rows),
                         [](const auto& rowInfo) { return rowInfo.param.name; });

}  // namespace
}  // namespace ace::test
