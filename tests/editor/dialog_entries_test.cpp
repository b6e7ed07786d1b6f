/// What the action dialog takes, and what it refuses: waits, messages, commands and programs.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String Limits = L"Enter 0.001 to 3600.000.";
const String NoMessage = L"T(9202)";
const String NoCommand = L"T(9203)";
const String NoHost = L"T(9204)";

class DialogEntries : public ShownDialog {
  protected:
    DialogEntries() { host->texts[9201] = L"Enter yyy to xxx."; }
};

// ---- refused ------------------------------------------------------------------------------------

struct RefusedEntry {
    const char* name;
    aceModul moduleKind;
    p_ActionTypes kind;
    Acts acts;
    Lines boxes;  ///< texts in their order; the last one is that of OK
    String focus;
};
void PrintTo(const RefusedEntry& row, std::ostream* out) {
    *out << row.name;
}

/// A time that is typed is looked at when the field is left, and once more by OK.
const RefusedEntry RefusedEntries[] = {
    {"WaitOfNothing",
     aceTemplate,
     atWait,
     {sim::Type(L"txtWait", L"0")},
     {Limits, Limits},
     L"txtWait"},
    {"WaitOfAWord",
     aceTemplate,
     atWait,
     {sim::Type(L"txtWait", L"ten")},
     {Limits, Limits},
     L"txtWait"},
    {"WaitWithoutAText",
     aceTemplate,
     atWait,
     {sim::Type(L"txtWait", L"")},
     {Limits, Limits},
     L"txtWait"},
    {"Notification", aceTemplate, atNotify, {}, {NoMessage}, L"txtSoundFile"},
    {"NotificationAfterABeep",
     aceTemplate,
     atNotify,
     {sim::Tick(L"chkBeep", true), sim::Tick(L"chkBeep", false)},
     {NoMessage},
     L"txtSoundFile"},
    {"Question", aceVKSTemplate, atQuestion, {}, {NoMessage}, L"txtSoundFile"},
    {"Command", aceTemplate, atRemote, {}, {NoCommand}, L"txtGpibCommand"},
    {"CommandThatWasTakenAway",
     aceTemplate,
     atRemote,
     {sim::Type(L"txtGpibCommand", L"*RST"), sim::Type(L"txtGpibCommand", L""),
      sim::Type(L"txtDll", L"a.exe"), sim::Type(L"txtDll", L"")},
     {NoCommand},
     L"txtGpibCommand"},
    {"RemoteHost",
     aceTemplate,
     atRemote,
     {sim::Type(L"txtGpibCommand", L"*RST"), sim::Choose(L"cboIface", 2),
      sim::Type(L"txtTcpPort", L"5025")},
     {NoHost},
     L"txtHost"},
};

class RefusedEntriesOf : public DialogEntries, public ::testing::WithParamInterface<RefusedEntry> {
  protected:
    /// Everything that the operator reads meanwhile.
    Lines Read() const {
        Lines lines;
        for (const String& text : GetParam().boxes) {
            lines.push_back(Refused(text));
        }
        return lines;
    }
    /// OK on the acts of the row, and a look behind it.
    Acts TryThem() {
        Acts acts = GetParam().acts;
        acts.push_back(PressOk);
        acts.push_back(SeeFocus(GetParam().focus));
        acts.push_back(PressCancel);
        for (const String& text : GetParam().boxes) {
            host->user.ExpectBox(text);
        }
        return acts;
    }
};

TEST_P(RefusedEntriesOf, ANewActionIsToldAndTheDialogStays) {
    OpenWith(GetParam().moduleKind, {Action(atProtRec)});
    const p_Subrange before = Set();
    ShowNew(GetParam().kind, TryThem());
    EXPECT_EQ(Boxes(), Read());
    EXPECT_EQ(Set(), before);
    EXPECT_EQ(SetIn(Parts().lists), before);
    EXPECT_FALSE(engine->Change());
}

/// The operator reads the words with the place of the mistake before the eyes.
TEST_P(RefusedEntriesOf, TheFocusIsOnTheFieldWhenTheBoxComesUp) {
    OpenWith(GetParam().moduleKind);
    const auto form = std::dynamic_pointer_cast<frmEditor>(context.Editor);
    Lines focus;
    host->beforeCall = [&](StringView operation, sim::CallArguments) {
        if (operation == L"UserDialogs.ShowMessageBox") {
            focus.push_back(form->Focus() != nullptr ? form->Focus()->Name() : String());
        }
    };
    ShowNew(GetParam().kind, TryThem());
    host->beforeCall = nullptr;
    EXPECT_EQ(focus, Lines(GetParam().boxes.size(), GetParam().focus));
}

INSTANTIATE_TEST_SUITE_P(Each, RefusedEntriesOf, ::testing::ValuesIn(RefusedEntries),
                         [](const auto& one) { return std::string(one.param.name); });

/// Nothing was typed, so that only OK looks at it.
TEST_F(DialogEntries, AWaitOfNothingThatCameFromAFileIsRefused) {
    OpenWith(aceTemplate, {WaitFor(0)});
    host->user.ExpectBox(Limits);
    ShowLine({See(L"txtWait", L"0"), PressOk, SeeFocus(L"txtWait"), PressCancel});
    EXPECT_THAT(Boxes(), ElementsAre(Refused(Limits)));
    EXPECT_FALSE(engine->Change());
}

TEST_F(DialogEntries, ARefusedEntryIsMendedInTheSameDialog) {
    host->user.ExpectBox(NoCommand);
    const p_Action stored = Added(atRemote, {PressOk, sim::Insert(L"txtGpibCommand", L"*CLS")});
    EXPECT_EQ(RecordOf<aceRemote>(stored).Command, L"*CLS");
}

// ---- taken --------------------------------------------------------------------------------------

struct TakenEntry {
    const char* name;
    aceModul moduleKind;
    Acts acts;
    p_Action stored;
};
void PrintTo(const TakenEntry& row, std::ostream* out) {
    *out << row.name;
}

p_Action Notified(p_ActionTypes kind, const String& message, const String& sound, bool beeps) {
    aceNotify record;
    record.Message = message;
    record.WaveFile = sound;
    record.Beep = beeps;
    return Action(kind, record);
}
/// A new command has the first address.
struct RemoteFields {
    String command = {};
    std::int32_t iface = 0;
    std::int32_t gpib = 1;
    std::int32_t port = 0;
    String host = {};
    std::int32_t tcpPort = 0;
    std::int32_t terminator = 0;
    String program = {};
    bool waits = false;
};
p_Action Remote(const RemoteFields& fields) {
    aceRemote record;
    record.Command = fields.command;
    record.Iface = fields.iface;
    record.GpibAddress = fields.gpib;
    record.SerComPort = fields.port;
    record.Terminator = fields.terminator;
    record.TcpHost = fields.host;
    record.TcpPort = fields.tcpPort;
    record.Program = fields.program;
    record.WaitPrgSync = fields.waits;
    return Action(atRemote, record);
}

const sim::FormAct TypeReset = sim::Type(L"txtGpibCommand", L"*RST");

const TakenEntry TakenEntries[] = {
    {"LongestWait", aceTemplate, {sim::Type(L"txtWait", L"3600")}, WaitFor(3600000)},
    {"ShortestWait", aceTemplate, {sim::Type(L"txtWait", L"0.001")}, WaitFor(1)},
    {"WaitWithAComma", aceTemplate, {sim::Type(L"txtWait", L"2,5")}, WaitFor(2500)},
    {"NewWaitAsItIs", aceTemplate, {}, WaitFor(10000)},
    {"MessageAlone",
     aceTemplate,
     {sim::Type(L"txtMessage", L"Door\r\nshut")},
     Notified(atNotify, L"Door\r\nshut", L"", false)},
    {"BeepAlone", aceTemplate, {sim::Tick(L"chkBeep", true)}, Notified(atNotify, L"", L"", true)},
    {"SoundAlone",
     aceTemplate,
     {sim::Type(L"txtSoundFile", L"C:\\a.wav")},
     Notified(atNotify, L"", L"C:\\a.wav", false)},
    {"QuestionOfASoundAlone",
     aceVKSTemplate,
     {sim::Type(L"txtSoundFile", L"C:\\a.wav")},
     Notified(atQuestion, L"", L"C:\\a.wav", false)},
    {"Question",
     aceVKSTemplate,
     {sim::Type(L"txtMessage", L"Lamp on?"), sim::Tick(L"chkBeep", true)},
     Notified(atQuestion, L"Lamp on?", L"", true)},
    {"CommentWithoutAnything", aceMonitoring, {}, Comment(false)},
    {"CommentWithTheGeneratorOff",
     aceMonitoring,
     {sim::Tick(L"chkSwitchGenerator", true)},
     Comment(true)},
    {"Gpib", aceTemplate, {TypeReset}, Remote({.command = L"*RST"})},
    {"GpibOfAnotherBoard",
     aceTemplate,
     {TypeReset, sim::Choose(L"cboGpibAddress", 49)},
     Remote({.command = L"*RST", .gpib = 120})},
    {"GpibOfTheLastAddress",
     aceTemplate,
     {TypeReset, sim::Choose(L"cboGpibAddress", 119), sim::Choose(L"cboTerminator", 3)},
     Remote({.command = L"*RST", .gpib = 330, .terminator = 3})},
    {"Serial",
     aceTemplate,
     {TypeReset, sim::Choose(L"cboIface", 1)},
     Remote({.command = L"*RST", .iface = 1, .port = 1, .terminator = 1})},
    {"SerialOfTheLastPort",
     aceTemplate,
     {TypeReset, sim::Choose(L"cboIface", 1), sim::Choose(L"cboComPort", 7),
      sim::Choose(L"cboTerminator", 2)},
     Remote({.command = L"*RST", .iface = 1, .port = 8, .terminator = 2})},
    {"Tcp",
     aceTemplate,
     {TypeReset, sim::Choose(L"cboIface", 2), sim::Type(L"txtHost", L"gen"),
      sim::Type(L"txtTcpPort", L"5025")},
     Remote({.command = L"*RST",
             .iface = 2,
             .port = 1,
             .host = L"gen",
             .tcpPort = 5025,
             .terminator = 1})},
    {"ProgramAlone",
     aceTemplate,
     {sim::Type(L"txtDll", L"C:\\log.exe -v"), sim::Tick(L"chkWaitForProgramCompleted", true)},
     Remote({.program = L"C:\\log.exe -v", .waits = true})},
    {"CommandAndProgram",
     aceTemplate,
     {TypeReset, sim::Type(L"txtDll", L"log.exe")},
     Remote({.command = L"*RST", .program = L"log.exe"})},
};

class TakenEntriesOf : public DialogEntries, public ::testing::WithParamInterface<TakenEntry> {};

TEST_P(TakenEntriesOf, AnActionIsStoredWithItsRecord) {
    EXPECT_EQ(Added(GetParam().stored.ActionType, GetParam().acts, GetParam().moduleKind),
              GetParam().stored);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_TRUE(engine->Change());
    EXPECT_EQ(SetIn(Parts().lists), Set());
}

INSTANTIATE_TEST_SUITE_P(Each, TakenEntriesOf, ::testing::ValuesIn(TakenEntries),
                         [](const auto& one) { return std::string(one.param.name); });

// ---- waits --------------------------------------------------------------------------------------

/// Intentional: only 0 is refused; a time beyond the limits is told of when the field is left.
TEST_F(DialogEntries, AWaitBeyondItsLimitsIsToldOfAndTakenByOk) {
    host->user.ExpectBox(Limits);
    EXPECT_EQ(Added(atWait, {sim::Type(L"txtWait", L"3600.5")}), WaitFor(3600500));
    EXPECT_THAT(Boxes(), ElementsAre(Refused(Limits)));
}

TEST_F(DialogEntries, AWaitThatIsNotTouchedKeepsDigitsThatItsBoxCannotShow) {
    const double third = 10000.0 / 3.0;
    EXPECT_EQ(Edited(WaitFor(third), {}), WaitFor(third));
    EXPECT_FALSE(engine->Change());
}

// ---- messages -----------------------------------------------------------------------------------

TEST_F(DialogEntries, AMessageThatIsClearedLeavesTheSound) {
    EXPECT_EQ(
        Edited(Notified(atNotify, L"Door", L"C:\\a.wav", false), {sim::Type(L"txtMessage", L"")}),
        Notified(atNotify, L"", L"C:\\a.wav", false));
}

/// Intentional: the field's words for no file count as one when it is left.
TEST_F(DialogEntries, ARefusedNotificationIsTakenTheSecondTimeWithTheWordsForNoFile) {
    OpenWith(aceTemplate);
    host->user.ExpectBox(NoMessage);
    ShowNew(atNotify, {PressOk, SeeFocus(L"txtSoundFile"), PressOk});
    ASSERT_EQ(Set().EnterCount, 1);
    EXPECT_EQ(Stored(), Notified(atNotify, L"", L"T(9113)", false));
}

/// Intentional: it is asked for while the test runs.
TEST_F(DialogEntries, TheTextOfACommentStays) {
    aceNotify record;
    record.Message = L"from elsewhere";
    p_Action expected = Action(atComment, record);
    RecordOf<aceNotify>(expected).GeneratorOff = true;
    EXPECT_EQ(
        Edited(Action(atComment, record), {sim::Tick(L"chkSwitchGenerator", true)}, aceMonitoring),
        expected);
}

// ---- commands and programs ----------------------------------------------------------------------

TEST_F(DialogEntries, OfAProgramAloneTheInterfaceIsNotRead) {
    RemoteFields fields{.command = L"*RST",
                        .iface = 2,
                        .gpib = 120,
                        .port = 3,
                        .host = L"gen",
                        .tcpPort = 5025,
                        .terminator = 2,
                        .program = L"log.exe"};
    const p_Action stored =
        Edited(Remote(fields), {sim::Choose(L"cboIface", 1), sim::Type(L"txtGpibCommand", L"")});
    fields.command.clear();
    fields.port = fields.terminator = 1;  // by the choice of the interface
    EXPECT_EQ(stored, Remote(fields));
}

TEST_F(DialogEntries, OfAProgramAloneNoRemoteHostIsAskedFor) {
    const p_Action stored =
        Added(atRemote, {sim::Choose(L"cboIface", 2), sim::Type(L"txtDll", L"log.exe")});
    EXPECT_EQ(RecordOf<aceRemote>(stored).Iface, 0);
    EXPECT_EQ(RecordOf<aceRemote>(stored).Program, L"log.exe");
}

TEST_F(DialogEntries, ThePortIsRewrittenAsAWholeNumber) {
    OpenWith(aceTemplate);
    host->user.ExpectBox(NoHost);
    ShowNew(atRemote,
            {TypeReset, sim::Choose(L"cboIface", 2), sim::Type(L"txtTcpPort", L" 05025"), PressOk,
             See(L"txtTcpPort", L"5025"), sim::Type(L"txtHost", L"gen"), PressOk});
    EXPECT_EQ(RecordOf<aceRemote>(Stored()).TcpPort, 5025);
}

TEST_F(DialogEntries, APortThatIsNoNumberIsNone) {
    const p_Action stored = Edited(Tcp(L"gen", 5025, L"*RST"), {sim::Type(L"txtTcpPort", L"x")});
    EXPECT_EQ(stored, Tcp(L"gen", 0, L"*RST"));
}

TEST_F(DialogEntries, APortBeyond16BitsIsTakenByOk) {
    const p_Action stored =
        Edited(Tcp(L"gen", 5025, L"*RST"), {sim::Type(L"txtTcpPort", L"50000")});
    EXPECT_EQ(stored, Tcp(L"gen", 50000, L"*RST"));
}

}  // namespace
}  // namespace ace::test
