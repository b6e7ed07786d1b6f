/// Each act of an operator with the dialog, its pickers, the menus and the mouse, and in it each
/// call of the host that fails, once and for ever: what is reported and raised, what ends quietly,
/// and which entries the lists have then.
#include "editor/editor_sweep_rig.h"
#include "support/list_agreement.h"

namespace ace::test {
namespace {

using namespace sim;
using Acts = std::vector<FormAct>;
using Calls = std::vector<String>;

/// What becomes of the error of a call.
enum class Outcome {
    Raised,  ///< by the event, and reported where a handler stands
    Quiet,   ///< while the dialog stands nobody hears of it; else as above
    Any
};

struct DialogAct {
    std::string name;
    std::vector<p_Action> start;  ///< the actions of the first list
    String selected;
    Acts acts;          ///< in the dialog; one that is left open is closed
    StringView answer;  ///< a file, settings, or what is chosen in a menu and then gets settings
    void (*act)(SweepRig& rig);
    Outcome outcome;
    /// Both lists before and after, and what may stand between.
    std::vector<String> lists;
    std::size_t bare = 0;  ///< so many calls at the beginning come before any handler
};
void PrintTo(const DialogAct& row, std::ostream* out) {
    *out << row.name;
}

// ---- the rig -----------------------------------------------------------------------------------

String Words(const DynArray<p_Action>& actions) {
    String words;
    for (const p_Action& action : actions) {
        words += (words.empty() ? L"" : L" ") + WordOf(action);
    }
    return words;
}
String BothLists(const ModuleLists& lists) {
    return Words(lists.EMSAutoGeneral.Enter) + L"|" + Words(lists.EMSAutoGeneral.Leave);
}

void AddBench(SimHost& host) {
    host.bench.Add<SimMonitor>(host, L"Meter");
    host.bench.Add<SimBcGenerator>(host, L"Injector");
    host.bench.Add<SimAmplifier>(host, L"Amp");
    host.bench.Add<SimSwitchUnit>(host, L"Unit")->paths = {L"P1", L"P2"};
    host.bench.Add<SimSignalPath>(host, L"Coax");
    host.macros[L"log.mac"].parameters = {0, 3};
}

/// Answers that never come up are dropped with those of the next act.
void AnswerBy(SimOperator& user, const Acts& acts, const String& answer) {
    user.TakeComplaints();
    user.Expect({L"frmEditor", acts, {}});
    if (answer.starts_with(L"c:\\")) {
        user.ExpectFile(answer);
    } else if (answer.starts_with(L"Level=")) {
        user.ExpectSettings(answer);
    } else if (!answer.empty()) {
        user.ExpectMenu(answer);
        user.ExpectSettings(L"Level=9");
    }
}

/// An editor on the row's lists, with an action held that can be pasted.
void Prepare(SweepRig& rig, const DialogAct& row) {
    AddBench(*rig.host);
    MakeClosed(rig, row.start);
    rig.context.UserDialogs();
    rig.context.DeviceSettings();
    Open(rig, row.selected);
    Hold(PartsOf(rig).held, WaitFor(8000));
    SimTree& tree = ControlsOf(rig).tree;
    tree.SetExpanded(tree.Find(L"ETE"), true);
    AnswerBy(rig.host->user, row.acts, String(row.answer));
    rig.host->journal.Clear();
}

std::vector<String> CallsOf(const SweepRig& rig) {
    std::vector<String> calls;
    for (const JournalEntry& entry : rig.host->journal.Entries()) {
        calls.push_back(entry.operation);
    }
    return calls;
}

// ---- one run -----------------------------------------------------------------------------------

/// The lists agree with themselves and each other, nothing is lost, and the editor goes on.
void ExpectWhole(SweepRig& rig, const DialogAct& row) {
    rig.host->faults.Clear();
    const ModuleLists& store = rig.engine->State();
    for (const ModuleLists* const lists : {&store, &std::as_const(PartsOf(rig).lists)}) {
        EXPECT_THAT(ListAgreement::Breaches(*lists), ::testing::IsEmpty());
        EXPECT_THAT(row.lists, ::testing::Contains(BothLists(*lists)));
    }
    EXPECT_EQ(static_cast<bool>(rig.engine->Change()), BothLists(store) != row.lists.front());
    EXPECT_FALSE(std::dynamic_pointer_cast<frmEditor>(rig.context.Editor)->IsShown());
    AnswerBy(rig.host->user, {Type(L"txtWait", L"7"), Press(L"cmdOK")}, {});
    const std::int32_t before = store.EMSAutoGeneral.EnterCount;
    rig.engine->LoadEditor(&ControlsOf(rig).list, &ControlsOf(rig).tree);
    EXPECT_TRUE(ControlsOf(rig).list.DoubleClick(L"ACT:0"));
    EXPECT_EQ(store.EMSAutoGeneral.EnterCount, before + 1);
}

/// Places of the calls that fail quietly: those made while the dialog stands.
bool IsQuiet(const DialogAct& row, const Calls& calls, std::size_t k) {
    const auto shown = std::ranges::find(calls, L"FormHost.ShowModal") - calls.begin();
    const auto hidden = std::ranges::find(calls, L"FormHost.Hide") - calls.begin();
    const auto at = static_cast<std::ptrdiff_t>(k - 1);
    return row.outcome == Outcome::Quiet && at > shown && at < hidden;
}

void Fail(const DialogAct& row, const Calls& calls, std::size_t k, FaultScript::Until until) {
    SweepRig rig;
    Prepare(rig, row);
    rig.host->faults.FailCall(k, SweepError, until);
    const std::int32_t error = ErrorOf([&] { row.act(rig); });
    const auto reports = std::ranges::count(CallsOf(rig), L"TraceLog.ReportError");
    const bool isQuiet = IsQuiet(row, calls, k);
    if (row.outcome == Outcome::Any) {
        EXPECT_TRUE(error == 0 || error == SweepError);
    } else if (until == FaultScript::Until::Once) {
        EXPECT_EQ(error, isQuiet ? 0 : SweepError);
        // Opening the file of the settings reports by itself, whoever asks.
        const bool isOpening = calls[k - 1] == L"SystemServices.OpenSettingsFile";
        EXPECT_EQ(reports > 0, isOpening || (!isQuiet && k > row.bare));
    } else if (!isQuiet) {
        EXPECT_EQ(error, SweepError);
    }
    ExpectWhole(rig, row);
}

class DialogSweep : public ::testing::TestWithParam<DialogAct> {};

TEST_P(DialogSweep, EveryHostCallThatFailsEndsTheActByItsPatternAndLosesNoEntry) {
    const DialogAct& row = GetParam();
    Calls calls;
    {
        SweepRig rig;
        Prepare(rig, row);
        EXPECT_EQ(ErrorOf([&] { row.act(rig); }), 0);
        calls = CallsOf(rig);
        EXPECT_EQ(BothLists(rig.engine->State()), row.lists.back());
        ExpectWhole(rig, row);
    }
    ASSERT_GT(calls.size(), 0U);
    for (std::size_t k = 1; k <= calls.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + ": " + ::testing::PrintToString(calls[k - 1]));
        Fail(row, calls, k, FaultScript::Until::Once);
        Fail(row, calls, k, FaultScript::Until::ForEver);
    }
}

/// The report asks for the call again: nothing is done twice, and outside the dialog all is as if
/// nothing had failed. A dialog in which a call fails is shown again, with no answers left.
TEST_P(DialogSweep, ACallThatIsMadeAgainDoesNothingTwice) {
    const DialogAct& row = GetParam();
    SweepRig undisturbed;
    Prepare(undisturbed, row);
    row.act(undisturbed);
    const Calls calls = CallsOf(undisturbed);
    const auto shown = std::ranges::find(calls, L"FormHost.ShowModal") - calls.begin();
    const auto hidden = std::ranges::find(calls, L"FormHost.Hide") - calls.begin();
    for (std::size_t k = row.bare + 1; k <= calls.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + ": " + ::testing::PrintToString(calls[k - 1]));
        SweepRig rig;
        Prepare(rig, row);
        rig.host->reportAnswers = {ITraceLog::RetryStatement};
        rig.host->faults.FailCall(k, SweepError, FaultScript::Until::Once);
        const std::int32_t error = ErrorOf([&] { row.act(rig); });
        const auto at = static_cast<std::ptrdiff_t>(k - 1);
        if (at <= shown || at >= hidden) {
            EXPECT_EQ(error, 0);
            EXPECT_EQ(BothLists(rig.engine->State()), row.lists.back());
        }
        ExpectWhole(rig, row);
    }
}

// ---- acts --------------------------------------------------------------------------------------

template <std::int32_t Kind>
void Palette(SweepRig& rig) {
    ControlsOf(rig).list.DoubleClick(L"ACT:" + std::to_wstring(Kind));
}
void DoubleClickFirst(SweepRig& rig) {
    ControlsOf(rig).tree.DoubleClick(L"CHI0ETE");
}
void MenuOfFirst(SweepRig& rig) {
    ControlsOf(rig).tree.Press(L"CHI0ETE", MouseButtons::Right);
    ControlsOf(rig).tree.Release(L"CHI0ETE", MouseButtons::Right);
}
void MenuOfStart(SweepRig& rig) {
    ControlsOf(rig).tree.Press(L"ETE", MouseButtons::Right);
    ControlsOf(rig).tree.Release(L"ETE", MouseButtons::Right);
}
void DropWait(SweepRig& rig) {
    ControlsOf(rig).tree.Drop({L"ACT:0"}, L"LTE");
}
/// The line is selected already, and its drag has come as far as the node.
template <std::int32_t Shift>
void DropLine(SweepRig& rig) {
    ControlsOf(rig).tree.Drop({L"ACT:1000,WAI"}, L"LTE", Shift);
}
void DropOnSecond(SweepRig& rig) {
    ControlsOf(rig).tree.Drop({L"ACT:1000,WAI"}, L"CHI1ETE");
}
void DragOver(SweepRig& rig) {
    ControlsOf(rig).tree.DragOver({L"ACT:1000,WAI"}, L"LTE");
}

const std::vector<p_Action> One = {WaitFor(1000)};
const std::vector<p_Action> Two = {WaitFor(1000), WaitFor(2000)};
const std::vector<p_Action> Device = {OnDevice(atSetDevice, L"Meter")};
const std::vector<p_Action> Generator = {OnDevice(atSetDevice, L"Injector")};
const FormAct Ok = Press(L"cmdOK");
const FormAct Esc = PressKey(Keys::Escape);
const FormAct PressDevice = Press(L"imgDevice");

using enum Outcome;

const std::vector<DialogAct> Rows = {
    {"NewWait",
     One,
     L"ETE",
     {Type(L"txtWait", L"9"), Ok},
     {},
     Palette<0>,
     Raised,
     {L"1|", L"1 9|"}},
    {"NewMessage",
     One,
     L"ETE",
     {Press(L"cmdSelSound"), Tick(L"chkBeep", true), Ok},
     L"c:\\snd\\go.wav",
     Palette<1>,
     Raised,
     {L"1|", L"1 -|"}},
    {"NewCommand",
     One,
     L"ETE",
     {Type(L"txtGpibCommand", L"*RST"), Choose(L"cboIface", 1), Press(L"cmdSelDll"), Ok},
     L"c:\\run.exe",
     Palette<2>,
     Raised,
     {L"1|", L"1 -|"}},
    {"RefusedCommand", One, L"ETE", {Ok, Esc}, {}, Palette<2>, Raised, {L"1|"}},
    {"ValueOutsideItsLimits",
     One,
     L"ETE",
     {Type(L"txtWait", L"9999"), EndInput(L"txtWait"), Esc},
     {},
     Palette<0>,
     Raised,
     {L"1|"}},
    {"NewMacro",
     One,
     L"ETE",
     {ChooseFile(L"filAPIProgram", L"log.mac"), Type(L"txtAPIParameterValue", L"1"),
      Choose(L"tabAPIParameter", 1), ChooseTable(L"filAPIParameterTable", 40, 0, L"t"), Ok},
     {},
     Palette<14>,
     Raised,
     {L"1|", L"1 -|"}},
    {"RefusedTab",
     One,
     L"ETE",
     {ChooseFile(L"filAPIProgram", L"log.mac"), Choose(L"tabAPIParameter", 1), Esc},
     {},
     Palette<14>,
     Raised,
     {L"1|"}},
    {"KindWithoutDialog", One, L"ETE", {}, {}, Palette<15>, Raised, {L"1|", L"1 -|"}},
    {"PickDevice", One, L"ETE", {PressDevice, Esc}, L"Meter", Palette<3>, Quiet, {L"1|"}},
    {"PickGenerator", One, L"ETE", {PressDevice, Esc}, L"Injector", Palette<3>, Quiet, {L"1|"}},
    {"PickUnit", One, L"ETE", {Press(L"imgSwitchUnit"), Esc}, L"Unit", Palette<13>, Quiet, {L"1|"}},
    {"PickAmplifier",
     {OnDevice(atSwitchAmp, L"Amp")},
     L"ETE",
     {Press(L"imgAmplifier"), Esc},
     L"Amp",
     DoubleClickFirst,
     Quiet,
     {L"D7|"},
     2},
    {"PickSignalPath",
     Generator,
     L"ETE",
     {Press(L"imgSwitchUnit"), Esc},
     L"Coax",
     DoubleClickFirst,
     Quiet,
     {L"D7|"},
     2},
    {"EditSettings",
     Device,
     L"ETE",
     {PressDevice, Esc},
     L"Level=9",
     DoubleClickFirst,
     Quiet,
     {L"D7|"},
     2},
    {"TestOfAMessage",
     One,
     L"ETE",
     {Type(L"txtMessage", L"Hi"), Tick(L"chkBeep", true), Press(L"cmdTestAction(0)"), Esc},
     {},
     Palette<1>,
     Any,
     {L"1|"}},
    {"TestOfACommand",
     One,
     L"ETE",
     {Type(L"txtGpibCommand", L"*RST"), Press(L"cmdTestAction(1)"), Esc},
     {},
     Palette<2>,
     Any,
     {L"1|"}},
    {"TestOfADevice",
     Device,
     L"ETE",
     {Press(L"cmdTestAction(2)"), Esc},
     {},
     DoubleClickFirst,
     Any,
     {L"D7|"},
     2},
    {"EditLine",
     Two,
     L"ETE",
     {Type(L"txtWait", L"9"), Ok},
     {},
     DoubleClickFirst,
     Raised,
     {L"1 2|", L"9 2|"},
     2},
    {"EditByMenu",
     Two,
     L"ETE",
     {Type(L"txtWait", L"9"), Ok},
     L"T(9011)",
     MenuOfFirst,
     Raised,
     {L"1 2|", L"9 2|"},
     2},
    {"DeleteByMenu", Two, L"ETE", {}, L"T(9012)", MenuOfFirst, Raised, {L"1 2|", L"2|"}, 2},
    {"CopyByMenu", Two, L"ETE", {}, L"T(9016)", MenuOfFirst, Raised, {L"1 2|"}, 2},
    {"PasteByMenu", Two, L"ETE", {}, L"T(9017)", MenuOfFirst, Raised, {L"1 2|", L"1 8 2|"}, 2},
    {"MoveDownByMenu", Two, L"ETE", {}, L"T(9015)", MenuOfFirst, Raised, {L"1 2|", L"2 1|"}, 2},
    {"ClearByMenu", Two, L"ETE", {}, L"T(9013)", MenuOfStart, Raised, {L"1 2|", L"|"}, 2},
    {"DropOfAKind",
     One,
     L"ETE",
     {Type(L"txtWait", L"9"), Ok},
     {},
     DropWait,
     Raised,
     {L"1|", L"1|9"}},
    {"DropOfALine", Two, L"CHI0ETE", {}, {}, DropLine<0>, Raised, {L"1 2|", L"2|", L"2|1"}},
    {"DropOfACopy",
     Two,
     L"CHI0ETE",
     {},
     {},
     DropLine<ShiftKeys::Control>,
     Raised,
     {L"1 2|", L"1 2|1"}},
    {"DropInOneList", Two, L"CHI0ETE", {}, {}, DropOnSecond, Raised, {L"1 2|", L"2 1|"}},
    {"DragOver", Two, L"CHI0ETE", {}, {}, DragOver, Raised, {L"1 2|"}},
};

INSTANTIATE_TEST_SUITE_P(Acts, DialogSweep, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
