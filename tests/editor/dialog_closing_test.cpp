/// How the action dialog ends: OK, cancelling, and closing it from code.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const String Code = L"frmEditor (Code)";
const String Shown = L"Form \"frmEditor\"";
const String Hidden = L"FormHost.Hide(\"frmEditor\")";

Lines Traced(const String& procedure, const Lines& calls = {}) {
    return Journal(Start(Code, procedure, L""), calls, End(procedure));
}
/// The start of the test is shown anew.
Lines Displayed(const Lines& calls) {
    return Journal(Start(Code, L"DisplayTree", L"PerfTime = 0, Subrange = 0"), calls,
                   L"Tree.SetExpanded(\"ETE\", true)", End(L"DisplayTree"));
}
String LineAdded(const String& seconds) {
    return L"Tree.AddChild(\"ETE\", \"CHI0ETE\", \"T(9063): " + seconds + L" s\", \"WAI\")";
}

class DialogClosing : public ShownDialog {
  protected:
    DialogClosing() { context.ModuleFileNames.fill(L"setup.ini"); }
    /// A click of the program on a button of the dialog, whatever a person could do.
    static void Click(Form& form, StringView button) {
        dynamic_cast<const Button&>(ControlOn(form, String(button))).Click();
    }
    void OnFirstYield(std::function<void()> act) {
        host->onYield = [act = std::move(act)](std::size_t) mutable {
            if (act) {
                std::exchange(act, nullptr)();
            }
        };
    }
    Form& Dialog() { return *std::dynamic_pointer_cast<frmEditor>(context.Editor); }
};

// ---- OK -----------------------------------------------------------------------------------------

TEST_F(DialogClosing, OkOnANewActionReadsItAddsItAndHidesTheDialog) {
    OpenWith(aceTemplate);
    host->tracing = true;
    host->journal.Clear();
    ShowNew(atWait, {PressOk});
    const Lines added =
        Traced(L"AddAction", Journal(Traced(L"GetPosition"), Displayed({LineAdded(L"10.000")})));
    EXPECT_EQ(Calls(), Journal(Start(Code, L"m_List_DblClick", L""),
                               Start(Code, L"ShowEditor", L"AddNew = True"), Shown, Yielded,
                               Traced(L"GetEntry"), added, Hidden, End(L"ShowEditor"),
                               End(L"m_List_DblClick")));
}

TEST_F(DialogClosing, OkOnALineReadsItChangesItAndHidesTheDialog) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    Select(LineKey());
    Expect({sim::Type(L"txtWait", L"2"), PressOk});
    host->tracing = true;
    host->journal.Clear();
    tree.DoubleClick(LineKey());
    const Lines changed = Traced(
        L"ModifyAction",
        Journal(Traced(L"GetPosition"), Traced(L"ChangeAction", {L"Utilities.IsEqual(2000, 1500)"}),
                Displayed({L"Tree.Remove(\"CHI0ETE\")", LineAdded(L"2.000")})));
    EXPECT_EQ(Calls(), Journal(L"Tree.Select(\"CHI0ETE\")", Start(Code, L"m_View_DblClick", L""),
                               Traced(L"GetAction", Traced(L"GetPosition")),
                               Start(Code, L"ShowEditor", L"AddNew = False"), Shown, Yielded,
                               Traced(L"GetEntry"), changed, Hidden, End(L"ShowEditor"),
                               End(L"m_View_DblClick")));
}

TEST_F(DialogClosing, ARefusedEntryIsTracedAndAddsNothing) {
    OpenWith(aceTemplate, {WaitFor(0)});
    Select(LineKey());
    Expect({sim::Do([&](Form&) { host->journal.Clear(); }), PressOk, sim::Do([&](Form&) {
                EXPECT_EQ(TakeEffects(), Journal(Yielded, Start(Code, L"GetEntry", L""),
                                                 Refused(L"T(9201)"), End(L"GetEntry")));
            }),
            PressCancel});
    host->tracing = true;
    host->user.ExpectBox();
    tree.DoubleClick(LineKey());
}

TEST_F(DialogClosing, OkGivesItselfTheFocusAndLetsMessagesRunOnce) {
    OpenWith(aceTemplate);
    String focus;
    std::size_t yields = 0;
    host->onYield = [&](std::size_t) {
        focus = Dialog().Focus() != nullptr ? Dialog().Focus()->Name() : String();
        ++yields;
    };
    ShowNew(atWait, {sim::Do([](Form& form) { Click(form, L"cmdOK"); })});
    EXPECT_EQ(focus, L"cmdOK");
    EXPECT_EQ(yields, 1U);
    EXPECT_EQ(Set().EnterCount, 1);
}

/// The field that had the focus is left before it is read.
TEST_F(DialogClosing, OkReadsWhatTheFieldThatWasLeftHasStored) {
    OpenWith(aceTemplate);
    ShowNew(atRemote,
            {sim::Type(L"txtDll", L"log.exe"), sim::Do([](Form& form) { Click(form, L"cmdOK"); })});
    EXPECT_EQ(RecordOf<aceRemote>(Stored()).Program, L"log.exe");
}

TEST_F(DialogClosing, ADialogThatGoesAwayWhileOkLetsMessagesRunChangesNothing) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    OnFirstYield([&] { Click(Dialog(), L"cmdCancel"); });
    ShowLine({sim::Type(L"txtWait", L"2"), PressOk});
    EXPECT_EQ(Stored(), WaitFor(1500));
    EXPECT_FALSE(engine->Change());
    EXPECT_THAT(host->journal.LinesOf(L"FormHost.Hide"), SizeIs(1));
}

TEST_F(DialogClosing, AnotherOkInsideTheMessagesOfTheFirstAddsTheActionOnce) {
    OpenWith(aceTemplate);
    OnFirstYield([&] { Click(Dialog(), L"cmdOK"); });
    ShowNew(atWait, {PressOk});
    EXPECT_EQ(Set().EnterCount, 1);
    EXPECT_THAT(host->journal.LinesOf(L"FormHost.Hide"), SizeIs(1));
}

TEST_F(DialogClosing, AnActionThatCannotBeAddedKeepsTheDialog) {
    OpenWith(aceTemplate);
    host->faults.FailOperation(L"Tree.AddChild", 1, 57);
    ShowNew(atWait, {sim::Do([](Form& form) {
                         EXPECT_EQ(ErrorOf([&] { Click(form, L"cmdOK"); }), 57);
                         EXPECT_TRUE(form.IsShown());
                     }),
                     PressCancel});
    EXPECT_EQ(Set().EnterCount, 0);
    EXPECT_EQ(SetIn(Parts().lists).EnterCount, 1) << "the next edit brings it";
    EXPECT_FALSE(engine->Change());
}

/// The latch is of the runs of the action as it was.
TEST_F(DialogClosing, AnEditedActionShowsItsFailuresAgain) {
    p_Action silent = Gpib(5, L"*RST");
    silent.IgnoreErr = true;
    EXPECT_EQ(Edited(silent, {sim::Type(L"txtGpibCommand", L"*CLS")}), Gpib(5, L"*CLS"));
}

/// So does one that is added behind an edited one.
TEST_F(DialogClosing, ANewActionHasNoLatchOfTheActionBefore) {
    p_Action silent = Gpib(5, L"*RST");
    silent.IgnoreErr = true;
    OpenWith(aceTemplate, {silent});
    ShowLine({PressCancel});
    ShowNew(atRemote, {sim::Type(L"txtGpibCommand", L"*CLS"), PressOk});
    EXPECT_EQ(Stored(1), Gpib(1, L"*CLS"));
}

// ---- cancelling ---------------------------------------------------------------------------------

struct CancelledBy {
    const char* name;
    sim::FormAct act;
};
class CancelledDialog : public DialogClosing, public ::testing::WithParamInterface<CancelledBy> {};
INSTANTIATE_TEST_SUITE_P(By, CancelledDialog,
                         ::testing::Values(CancelledBy{"Button", PressCancel},
                                           CancelledBy{"Key", sim::PressKey(Keys::Escape)},
                                           CancelledBy{"Frame", sim::CloseFrame()}),
                         [](const auto& one) { return std::string(one.param.name); });

TEST_P(CancelledDialog, ALineStaysAsItWas) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    ShowLine({sim::Type(L"txtWait", L"2"), sim::Do([&](Form&) { host->journal.Clear(); }),
              GetParam().act});
    EXPECT_THAT(TakeEffects(), ElementsAre(Hidden));
    EXPECT_EQ(Stored(), WaitFor(1500));
    EXPECT_FALSE(engine->Change());
}

TEST_P(CancelledDialog, ANewActionIsNotAdded) {
    OpenWith(aceTemplate);
    ShowNew(atNotify, {sim::Type(L"txtMessage", L"Door"), GetParam().act});
    EXPECT_EQ(Set().EnterCount, 0);
    EXPECT_FALSE(engine->Change());
}

/// The button takes the focus; the key and the frame don't.
TEST_P(CancelledDialog, NoBoxComesUpForAnInputThatIsGivenUp) {
    OpenWith(aceTemplate, {WaitFor(0)});
    ShowLine({SeeFocus(L"txtWait"), GetParam().act});
    EXPECT_THAT(Boxes(), IsEmpty());
}

/// Leaving the field for the button ends the input; the other two ways don't leave it.
TEST_P(CancelledDialog, OnlyTheButtonEndsAnInputThatWasTyped) {
    const bool isButton = std::string(GetParam().name) == "Button";
    OpenWith(aceTemplate, {WaitFor(1500)});
    if (isButton) {
        host->user.ExpectBox(L"T(9201)");
    }
    ShowLine({sim::Type(L"txtWait", L"0"), GetParam().act});
    EXPECT_THAT(Boxes(), SizeIs(isButton ? 1 : 0));
    EXPECT_EQ(Stored(), WaitFor(1500));
}

TEST_F(DialogClosing, AnotherKeyDoesNothing) {
    OpenWith(aceTemplate);
    ShowNew(atWait, {sim::PressKey(13), SeeFocus(L"txtWait"), PressCancel});
}

// ---- what is held -------------------------------------------------------------------------------

/// A command of the menu on the selected line.
class HeldByTheDialog : public DialogClosing {
  protected:
    void Choose(const String& key, const String& caption) {
        Select(key);
        ChooseFromMenu(key, caption);
    }
    static inline const String Copy = L"T(9016)";
    static inline const String Paste = L"T(9017)";
};

TEST_F(HeldByTheDialog, ANewActionThatIsCancelledLeavesWhatPasteInserts) {
    OpenWith(aceTemplate, {Tell(L"Door"), WaitFor(1500)});
    Choose(LineKey(0), Copy);
    ShowNew(atRemote, {sim::Type(L"txtGpibCommand", L"*RST"), PressCancel});
    Choose(LineKey(1), Paste);
    EXPECT_EQ(Stored(2), Tell(L"Door"));
}

/// Another record of the same type is what the fields have left behind.
TEST_F(HeldByTheDialog, ANewActionOfTheSameRecordLeavesItToo) {
    OpenWith(aceTemplate, {Tell(L"Door"), WaitFor(1500)});
    Choose(LineKey(0), Copy);
    ShowNew(atNotify,
            {sim::Type(L"txtMessage", L"Other"), sim::Tick(L"chkBeep", true), PressCancel});
    Choose(LineKey(1), Paste);
    EXPECT_EQ(Stored(2), Tell(L"Door"));
}

TEST_F(HeldByTheDialog, ANewActionThatWasConfirmedIsWhatPasteInserts) {
    OpenWith(aceTemplate, {Tell(L"Door")});
    Choose(LineKey(0), Copy);
    ShowNew(atWait, {sim::Type(L"txtWait", L"3"), PressOk});
    Choose(LineKey(0), Paste);
    EXPECT_EQ(Stored(1), WaitFor(3000));
    EXPECT_EQ(Set().EnterCount, 3);
}

TEST_F(HeldByTheDialog, ALineThatWasCancelledIsWhatPasteInsertsAsItWasOpened) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    ShowLine({sim::Type(L"txtWait", L"3"), PressCancel});
    Choose(LineKey(), Paste);
    EXPECT_EQ(Stored(1), WaitFor(1500));
}

/// A test takes the fields over into what is held, as OK does.
TEST_F(HeldByTheDialog, ALineThatWasTestedAndCancelledIsWhatPasteInsertsAsItWasTested) {
    OpenWith(aceTemplate, {Tell(L"Door")});
    host->user.ExpectBox(L"Gate");
    ShowLine({sim::Type(L"txtMessage", L"Gate"), sim::Press(L"cmdTestAction(0)"),
              sim::Type(L"txtMessage", L"Lamp"), PressCancel});
    EXPECT_EQ(Stored(), Tell(L"Door"));
    Choose(LineKey(), Paste);
    EXPECT_EQ(Stored(1), Tell(L"Gate"));
}

// ---- closing from code --------------------------------------------------------------------------

class ReleasedDialog : public DialogClosing {
  protected:
    sim::FormAct Release() {
        return sim::Do([&](Form&) { engine->Release(); });
    }
    /// Exclamation, with the buttons Yes and No.
    static String Question() { return BoxShown(L"T(9022)", 52, L"T(9021)"); }
};

TEST_F(ReleasedDialog, YesClosesItAndKeepsNothing) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    host->user.ExpectQuestion(true);
    ShowLine({sim::Type(L"txtWait", L"2"), Release()});
    EXPECT_THAT(Boxes(), ElementsAre(Question()));
    EXPECT_EQ(Stored(), WaitFor(1500));
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_THAT(host->journal.LinesOf(L"FormHost.Hide"), SizeIs(1));
}

TEST_F(ReleasedDialog, NoActsAsOk) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    host->user.ExpectQuestion(false);
    ShowLine({sim::Type(L"txtWait", L"2"), Release()});
    EXPECT_THAT(Boxes(), ElementsAre(Question()));
    EXPECT_EQ(Stored(), WaitFor(2000));
    EXPECT_TRUE(engine->Change());
}

TEST_F(ReleasedDialog, NoOnANewActionAddsIt) {
    OpenWith(aceTemplate);
    host->user.ExpectQuestion(false);
    ShowNew(atWait, {Release()});
    ASSERT_EQ(Set().EnterCount, 1);
    EXPECT_EQ(Stored(), WaitFor(10000));
}

TEST_F(ReleasedDialog, NobodyIsAskedWhenNoDialogStands) {
    OpenWith(aceTemplate);
    ShowNew(atWait, {PressCancel});
    engine->Release();
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(context.Editor, nullptr);
}

/// What was shown when the engine let it go ends in an orderly way, and the next opening works.
TEST_F(ReleasedDialog, TheEditorOpensAgainBehindIt) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    host->user.ExpectQuestion(true);
    ShowLine({Release()});
    OpenWith(aceTemplate, {WaitFor(1500)});
    ShowLine({sim::Type(L"txtWait", L"2"), PressOk});
    EXPECT_EQ(Stored(), WaitFor(2000));
}

}  // namespace
}  // namespace ace::test
