/// What becomes of a dialog when the host does something else while messages run.
#include "editor/shown_dialog.h"
#include "support/error_of.h"

namespace ace::test {
namespace {

using ::testing::IsEmpty;

class DialogInterrupted : public ShownDialog {
  protected:
    DialogInterrupted() { context.ModuleFileNames.fill(L"setup.ini"); }

    /// The host does something in the next call of that name.
    void In(StringView operation, std::function<void()> act) {
        host->beforeCall = [=](StringView called, const auto&) mutable {
            if (act && called == operation) {
                std::exchange(act, nullptr)();
            }
        };
    }
    static sim::FormAct Calling(std::function<void()> act) {
        return sim::Do([act = std::move(act)](Form&) { act(); });
    }
    sim::FormAct Failing(std::int32_t number, std::function<void()> act) {
        return Calling([=] { EXPECT_EQ(ErrorOf(act), number); });
    }
    static aceSetDevice CheckOf(const String& device) {
        aceSetDevice record;
        record.DevName = device;
        record.ChanNo = 7;
        return record;
    }
    Lines Shows() { return host->journal.LinesOf(L"FormHost.ShowModal"); }
};

// ---- before it comes up ------------------------------------------------------------------------

TEST_F(DialogInterrupted, AReleaseInTheBoxOfAMissingDeviceLeavesNoDialogBehind) {
    OpenWith(aceTemplate, {Action(atCheckEut, CheckOf(L"Camera"))});
    const ModuleLists before = State();
    host->user.ExpectBox();
    In(L"UserDialogs.ShowMessageBox", [&] { engine->Release(); });
    DoubleClickLine();
    EXPECT_THAT(Shows(), IsEmpty());
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), before);
}

TEST_F(DialogInterrupted, AReleaseWhereTheDeviceIsLookedForLeavesNoDialogBehind) {
    OpenWith(aceTemplate, {Action(atCheckEut, CheckOf(L"Camera"))});
    In(L"DeviceList.GetDevice", [&] { engine->Release(); });
    Select(LineKey());
    tree.DoubleClick(LineKey());
    EXPECT_THAT(Shows(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
}

// ---- while it stands ---------------------------------------------------------------------------

TEST_F(DialogInterrupted, NoOtherActOfTheMouseIsTakenMeanwhile) {
    OpenWith(aceTemplate, {WaitFor(1500), Action(atTestStop, {})});
    const ModuleLists before = State();
    ShowLine({Failing(10, [&] { list.DoubleClick(L"ACT:0"); }),
              Failing(10, [&] { tree.DoubleClick(L"CHI1ETE"); }),
              Failing(10, [&] { tree.Release(L"ETE", MouseButtons::Right); }),
              Failing(10, [&] { tree.DropAnyway({L"ACT:8"}, L"LTE"); }), PressCancel});
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), before);
    EXPECT_EQ(Shows().size(), 1U);
}

TEST_F(DialogInterrupted, OkOfALineChangesThatLineWhateverIsSelectedMeanwhile) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    Fill(State().MainSubranges[0], EnterList, {WaitFor(7000)});
    Open(aceTemplate);
    ShowLine(
        {Calling([&] { engine->EditorSelectSubrange(1); }), sim::Type(L"txtWait", L"2"), PressOk});
    EXPECT_EQ(Stored(), WaitFor(2000));
    EXPECT_EQ(State().MainSubranges[0].Enter[0], WaitFor(7000));
}

TEST_F(DialogInterrupted, OkWhileAListOfTheModuleRunsInsertsNothingAndCanBeMadeAgain) {
    OpenWith(aceTemplate);
    Fill(State().MainTest, LeaveList, {WaitFor(1)});
    ShowNew(atWait, {Calling([&] {
                         host->onTimedMessage = [&] {
                             Form& form = dynamic_cast<Form&>(*context.Editor);
                             for (int times = 0; times < 2; ++times) {
                                 EXPECT_EQ(ErrorOf([&] { PressOk(form); }), 10);
                             }
                         };
                         engine->StopTest();
                         host->onTimedMessage = nullptr;
                     }),
                     PressOk});
    EXPECT_EQ(Set().EnterCount, 1);
}

TEST_F(DialogInterrupted, ASecondQuestionTakesTheEntryOverOnce) {
    OpenWith(aceTemplate);
    ShowNew(atWait, {Calling([&] {
                In(L"UserDialogs.ShowMessageBox", [&] { engine->Release(); });
                host->user.ExpectQuestion(false);
                host->user.ExpectQuestion(false);
                engine->Release();
            })});
    EXPECT_EQ(Set().EnterCount, 1);
}

TEST_F(DialogInterrupted, AnEngineThatTakesItsContextAlongLeavesTheActInOrder) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    auto own = std::make_shared<ThreadContext>(host);
    auto brief = std::make_unique<aceActionsEngine>(*own);
    sim::SimTree otherTree(*host);
    sim::SimList otherList(*host);
    own.reset();
    brief->LoadEditor(&otherList, &otherTree);
    Expect({Calling([&] { brief.reset(); }), PressCancel});
    EXPECT_TRUE(otherList.DoubleClick(L"ACT:0"));
    EXPECT_FALSE(otherTree.Press(L"ETE")) << "the editor has gone with its context";
}

// ---- the test of an action ---------------------------------------------------------------------

TEST_F(DialogInterrupted, WhatTheOperatorDoesWhileATestRunsStays) {
    aceRemote record;
    record.Command = L"*IDN?";
    record.GpibAddress = 120;
    OpenWith(aceTemplate, {Action(atRemote, record)});
    In(L"GpibDriver.WriteString", [&] {
        dynamic_cast<Form&>(*context.Editor)
            .Find<CheckBox>(L"chkWaitForProgramCompleted")
            ->Tick(true);
    });
    ShowLine({sim::Press(L"cmdTestAction(1)"), PressOk});
    EXPECT_TRUE(std::get<aceRemote>(Stored().Parameter).WaitPrgSync);
}

}  // namespace
}  // namespace ace::test
