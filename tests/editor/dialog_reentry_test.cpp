/// What comes of calls that the host makes while the action dialog stands, and of host calls that
/// fail then.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;
using ::testing::Not;

const String Code = L"frmEditor (Code)";

class DialogReentry : public ShownDialog {
  protected:
    DialogReentry() { context.ModuleFileNames.fill(L"setup.ini"); }

    /// The engine is let go, and the operator answers the question whether to close the dialog.
    void LetGo(bool yes) {
        host->user.ExpectQuestion(yes);
        engine->Release();
    }
    static std::int32_t ErrorOfClick(const Form& form, const String& button) {
        return ErrorOf([&] { dynamic_cast<const Button&>(ControlOn(form, button)).Click(); });
    }
};

// ---- the engine is let go -----------------------------------------------------------------------

/// A call of the host in which the engine lets the editor go, and how the operator gets there.
struct LetGoIn {
    const char* name;
    StringView operation;
    p_Action action;
    Acts acts;
    void (*answer)(sim::SimOperator& user);  ///< the box of that call
};
void PrintTo(const LetGoIn& row, std::ostream* out) {
    *out << row.name;
}
p_Action Sounding() {
    aceNotify record;
    record.Message = L"Door";
    record.Beep = true;
    return Action(atNotify, record);
}
void Nothing(sim::SimOperator&) {}
void PlainBox(sim::SimOperator& user) {
    user.ExpectBox();
}
void NoFile(sim::SimOperator& user) {
    user.ExpectFile(std::nullopt);
}
void File(sim::SimOperator& user) {
    user.ExpectFile(L"C:\\new.exe");
}
void Menu(sim::SimOperator& user) {
    user.ExpectMenu(L"DUT Power");
}

const LetGoIn AllLetGo[] = {
    {"Ok", L"Platform.Yield", WaitFor(1500), {sim::Type(L"txtWait", L"2"), PressOk}, Nothing},
    {"Refusal", L"UserDialogs.ShowMessageBox", WaitFor(0), {PressOk}, PlainBox},
    {"Limits",
     L"UserDialogs.ShowMessageBox",
     WaitFor(1500),
     {sim::Type(L"txtWait", L"0"), sim::EndInput(L"txtWait")},
     PlainBox},
    {"BeforeAProgramIsChosen",
     L"Platform.Yield",
     Started(L"a.exe"),
     {sim::Press(L"cmdSelDll")},
     File},
    {"WhileAProgramIsChosen",
     L"UserDialogs.OpenFile",
     Started(L"a.exe"),
     {sim::Press(L"cmdSelDll")},
     File},
    {"WhileASoundIsChosen",
     L"UserDialogs.OpenFile",
     Tell(L"Door"),
     {sim::Press(L"cmdSelSound")},
     NoFile},
    {"Menu",
     L"UserDialogs.ShowPopupMenu",
     Tell(L"Door"),
     {sim::Press(L"cb_show_VKSVars(0)")},
     Menu},
    {"TestOfAMessage",
     L"UserDialogs.ShowMessageBox",
     Sounding(),
     {sim::Press(L"cmdTestAction(0)")},
     PlainBox},
    {"TestOfACommand",
     L"GpibDriver.WriteString",
     Gpib(5, L"*RST"),
     {sim::Press(L"cmdTestAction(1)")},
     Nothing},
    {"TestOfAProgram",
     L"Platform.Yield",
     Started(L"a.exe"),
     {sim::Press(L"cmdTestAction(1)")},
     Nothing},
};

class LetGoInside : public DialogReentry, public ::testing::WithParamInterface<LetGoIn> {};
INSTANTIATE_TEST_SUITE_P(Each, LetGoInside, ::testing::ValuesIn(AllLetGo),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(LetGoInside, TheDialogClosesTheListStaysAndAllEndsInOrder) {
    OpenWith(aceVKSTemplate, {GetParam().action});
    const auto letGo = [&] {
        LetGo(true);
        GetParam().answer(host->user);
    };
    Acts acts = GetParam().acts;
    acts.insert(acts.begin(), sim::Do([&](Form&) { In(GetParam().operation, letGo); }));
    ShowLine(acts);
    EXPECT_EQ(Stored(), GetParam().action);
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(host->journal.LinesOf(L"FormHost.Hide").size(), 1U);
}

TEST_F(DialogReentry, ALetGoBehindTheChoiceOfAProgramClosesTheDialogToo) {
    OpenWith(aceTemplate, {Started(L"a.exe")});
    host->user.ExpectFile(L"C:\\new.exe");
    ShowLine({sim::Do([&](Form&) {
                  In(
                      L"Platform.Yield", [&] { LetGo(true); }, 2);
              }),
              sim::Press(L"cmdSelDll")});
    EXPECT_EQ(Stored(), Started(L"a.exe"));
    EXPECT_EQ(context.Editor, nullptr);
}

/// The store gets nothing from an editor that went.
TEST_F(DialogReentry, ALetGoWhileTheNewLineIsShownIsError91) {
    OpenWith(aceTemplate);
    ShowNew(atWait, {sim::Do([&](const Form& form) {
                In(L"Tree.AddChild", [&] { LetGo(true); });
                EXPECT_EQ(ErrorOfClick(form, L"cmdOK"), 91);
            })});
    EXPECT_EQ(Set().EnterCount, 0);
    EXPECT_FALSE(engine->Change());
}

TEST_F(DialogReentry, NoInsideTheMessagesOfOkAddsTheActionOnce) {
    OpenWith(aceTemplate);
    ShowNew(atWait,
            {sim::Do([&](Form&) { In(L"Platform.Yield", [&] { LetGo(false); }); }), PressOk});
    ASSERT_EQ(Set().EnterCount, 1);
    EXPECT_EQ(Stored(), WaitFor(10000));
}

TEST_F(DialogReentry, NoOnAnEntryThatIsRefusedKeepsTheDialogAndAddsNothing) {
    OpenWith(aceTemplate);
    ShowNew(atNotify, {sim::Do([&](Form&) {
                           host->user.ExpectQuestion(false);
                           host->user.ExpectBox(L"T(9202)");
                           engine->Release();
                       }),
                       SeeFocus(L"txtSoundFile"), PressCancel});
    EXPECT_EQ(Set().EnterCount, 0);
    EXPECT_EQ(context.Editor, nullptr);
}

// ---- another dialog -----------------------------------------------------------------------------

TEST_F(DialogReentry, AnotherDialogInsideTheMessagesOfOkIsRefused) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    const auto another = [&] { EXPECT_EQ(ErrorOf([&] { DoubleClickKind(atNotify); }), 10); };
    ShowLine({sim::Type(L"txtWait", L"2"), sim::Do([&](Form&) { In(L"Platform.Yield", another); }),
              PressOk});
    EXPECT_EQ(Set().EnterCount, 1);
    EXPECT_EQ(Stored(), WaitFor(2000));
}

// ---- host calls that fail -----------------------------------------------------------------------

TEST_F(DialogReentry, ADialogThatCannotBeShownIsReportedAndLeavesListAndHeldAction) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    ShowLine({PressCancel});
    const p_Action held = Parts().held.Action;
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 57);
    EXPECT_EQ(ErrorOf([&] { DoubleClickKind(atNotify); }), 57);
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), Not(IsEmpty()));
    EXPECT_EQ(Set().EnterCount, 1);
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(Parts().held.Action, held);
    ShowNew(atNotify, {sim::Type(L"txtMessage", L"Door"), PressOk});
    EXPECT_EQ(Set().EnterCount, 2) << "the next one comes up";
}

TEST_F(DialogReentry, ADialogThatFailedIsShownOnceMoreWhenTheHostSaysSo) {
    OpenWith(aceTemplate);
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 57);
    host->reportAnswers = {5};
    ShowNew(atWait, {PressOk});
    EXPECT_EQ(Stored(), WaitFor(10000));
}

TEST_F(DialogReentry, AFailedDialogHasNoEndInTheTrace) {
    OpenWith(aceTemplate);
    host->tracing = true;
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 57);
    EXPECT_EQ(ErrorOf([&] { DoubleClickKind(atWait); }), 57);
    const Lines lines = TakeEffects();
    EXPECT_THAT(lines, Contains(Start(Code, L"ShowEditor", L"AddNew = True")));
    EXPECT_THAT(lines, Not(Contains(End(L"ShowEditor"))));
    EXPECT_THAT(lines, Not(Contains(End(L"m_List_DblClick"))));
}

/// Error 6 comes out of the click, and the operator can mend the number.
TEST_F(DialogReentry, APortThatNoNumberHoldsLeavesTheDialogOpen) {
    OpenWith(aceTemplate);
    ShowNew(atRemote,
            {sim::Type(L"txtGpibCommand", L"*RST"), sim::Choose(L"cboIface", 2),
             sim::Type(L"txtHost", L"gen"), sim::Type(L"txtTcpPort", L"99999999999"),
             sim::Do([](const Form& form) { EXPECT_EQ(ErrorOfClick(form, L"cmdOK"), 6); }),
             sim::Type(L"txtTcpPort", L"5025"), PressOk});
    ASSERT_EQ(Set().EnterCount, 1);
    EXPECT_EQ(RecordOf<aceRemote>(Stored()).TcpPort, 5025);
}

}  // namespace
}  // namespace ace::test
