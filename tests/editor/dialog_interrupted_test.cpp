/// What becomes of a dialog when the host does something else while messages run.
#include "editor/shown_dialog.h"
#include "support/error_of.h"

namespace ace::test {
namespace {

using ::testing::IsEmpty;

class DialogInterrupted : public ShownDialog {
  protected:
    DialogInterrupted() { context.ModuleFileNames.fill(L"setup.ini"); }

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

TEST_F(DialogInterrupted, NoOtherActOfTheMouseIsTakenBeforeItComesUp) {
    host->bench.Add<sim::SimMonitor>(*host, L"Camera");
    host->files[L"setup.ini"][L"Actions7-Device"] = {L"Gain=3"};
    OpenWith(aceTemplate, {Action(atCheckEut, CheckOf(L"Camera")), Action(atTestStop, {})});
    const ModuleLists before = State();
    Select(LineKey());
    In(L"DeviceList.GetDevice", [&] {
        EXPECT_EQ(ErrorOf([&] { list.DoubleClick(L"ACT:0"); }), 10);
        EXPECT_EQ(ErrorOf([&] { tree.DoubleClick(L"CHI1ETE"); }), 10);
        EXPECT_EQ(ErrorOf([&] { tree.Release(L"ETE", MouseButtons::Right); }), 10);
        EXPECT_EQ(ErrorOf([&] { tree.DropAnyway({L"ACT:8"}, L"LTE"); }), 10);
        tree.GoTo(LineKey());
    });
    Expect({See(L"lblDevice", L"Camera"), PressOk});
    tree.DoubleClick(LineKey());
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), before);
}

TEST_F(DialogInterrupted, ALoadBeforeItComesUpLeavesNoDialogBehind) {
    host->bench.Add<sim::SimMonitor>(*host, L"Camera");
    OpenWith(aceTemplate, {Action(atCheckEut, CheckOf(L"Camera"))});
    Select(LineKey());
    In(L"DeviceList.GetDevice", [&] { engine->LoadEditor(&list, &tree); });
    tree.DoubleClick(LineKey());
    EXPECT_THAT(Shows(), IsEmpty());
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

TEST_F(DialogInterrupted, OkToALineWhileAListOfTheModuleRunsChangesNothing) {
    OpenWith(aceTemplate, {WaitFor(1500), WaitFor(4000)});
    Fill(State().MainTest, LeaveList, {WaitFor(1)});
    const ModuleLists before = State();
    int runs = 0;
    const sim::FormAct okMeanwhile = Calling([&] {
        host->onTimedMessage = [&] {
            ++runs;
            EXPECT_EQ(ErrorOf([&] { PressOk(dynamic_cast<Form&>(*context.Editor)); }), 10);
        };
        engine->StopTest();
        host->onTimedMessage = nullptr;
    });
    ShowLine({sim::Type(L"txtWait", L"2"), okMeanwhile, PressCancel});
    EXPECT_EQ(SetIn(Parts().lists).Enter[0], WaitFor(1500));
    EXPECT_EQ(Parts().held.Action, WaitFor(1500));
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), before);
    EXPECT_FALSE(engine->Change());
    ShowLine({sim::Type(L"txtWait", L"5"), okMeanwhile, PressOk}, 1);
    EXPECT_EQ(Stored(), WaitFor(1500));
    EXPECT_EQ(Stored(1), WaitFor(5000));
    EXPECT_EQ(runs, 2);
}

TEST_F(DialogInterrupted, ALineThatNeedsNoDialogIsNoMatterForAListThatRuns) {
    OpenWith(aceTemplate, {Action(atTestStop, {})});
    Fill(State().MainTest, LeaveList, {WaitFor(1)});
    std::optional<std::int32_t> error;
    host->onTimedMessage = [&] { error = ErrorOf([&] { tree.DoubleClick(LineKey()); }); };
    Select(LineKey());
    engine->StopTest();
    host->onTimedMessage = nullptr;
    EXPECT_EQ(error, 0);
    EXPECT_FALSE(engine->Change());
}

TEST_F(DialogInterrupted, OkBehindALineThatCouldNotBeShownIsError91) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    ShowLine({sim::Type(L"txtWait", L"2"),
              Calling([&] { host->faults.FailOperation(L"Tree.AddChild", 1, 57); }),
              Failing(57, [&] { PressOk(*std::dynamic_pointer_cast<frmEditor>(context.Editor)); }),
              Failing(91, [&] { PressOk(*std::dynamic_pointer_cast<frmEditor>(context.Editor)); }),
              PressCancel});
}

// ---- while an action is tested ------------------------------------------------------------------

class TestInterrupted : public DialogInterrupted {
  protected:
    /// A command, and a program during whose start the host does something.
    void OpenBoth() {
        p_Action action = Gpib(120, L"*IDN?");
        RecordOf<aceRemote>(action).Program = L"a.exe";
        OpenWith(aceTemplate, {action});
    }
    Form& Dialog() { return dynamic_cast<Form&>(*context.Editor); }
    std::size_t Count(StringView operation) { return host->journal.LinesOf(operation).size(); }

    const sim::FormAct Send = sim::Press(L"cmdTestAction(1)");
};

TEST_F(TestInterrupted, BehindALoadNothingIsTestedAnyMore) {
    OpenBoth();
    ShowLine({Calling([&] { engine->LoadEditor(&list, &tree); }),
              Failing(10, [&] { Send(Dialog()); }), PressCancel});
    EXPECT_EQ(Count(L"GpibDriver"), 0U);
}

TEST_F(TestInterrupted, ADialogThatIsLeftInItsTestClosesTheDeviceOnce) {
    OpenBoth();
    ShowLine({Send, Calling([&] {
                  In(L"Platform.ActivateProgram", [&] { PressCancel(Dialog()); });
                  Send(Dialog());
              })});
    EXPECT_EQ(host->journal.LinesOf(L"GpibDriver.CloseDevice"),
              Lines{L"GpibDriver.CloseDevice(0, 0)"});
}

TEST_F(TestInterrupted, ATestInsideATestLosesNoDevice) {
    OpenBoth();
    ShowLine({Calling([&] {
                  In(L"Platform.StartProgram", [&] { Send(Dialog()); });
                  Send(Dialog());
              }),
              PressCancel});
    EXPECT_EQ(Count(L"GpibDriver.OpenDevice"), 2U);
    EXPECT_EQ(host->journal.LinesOf(L"GpibDriver.CloseDevice"),
              (Lines{L"GpibDriver.CloseDevice(0, 0)", L"GpibDriver.CloseDevice(1, 0)"}));
}

TEST_F(TestInterrupted, AnErrorOfATestKeepsWhatItHasOpenedForTheNext) {
    OpenBoth();
    ShowLine({Calling([&] {
                  host->faults.FailOperation(L"GpibDriver.WriteString", 1, 57);
                  host->faults.FailOperation(L"FormHost.ShowModal", 1, 57);
                  EXPECT_EQ(ErrorOf([&] { Send(Dialog()); }), 57);
              }),
              Send, PressCancel});
    EXPECT_EQ(Count(L"GpibDriver.OpenDevice"), 1U);
    EXPECT_EQ(Count(L"GpibDriver.CloseDevice"), 1U);
}

TEST_F(TestInterrupted, AProgramThatIsChangedInItsTestHasNoProcess) {
    OpenBoth();
    ShowLine({Calling([&] {
                  In(L"Platform.StartProgram", [&] {
                      sim::Type(L"txtDll", L"b.exe")(Dialog());
                      sim::Focus(L"txtGpibCommand")(Dialog());
                  });
                  Send(Dialog());
              }),
              Send, PressCancel});
    EXPECT_EQ(host->journal.LinesOf(L"Platform.ActivateProgram"),
              (Lines{L"Platform.ActivateProgram(0)", L"Platform.ActivateProgram(0)"}));
    EXPECT_EQ(host->journal.LinesOf(L"Platform.StartProgram"),
              (Lines{L"Platform.StartProgram(\"a.exe\")", L"Platform.StartProgram(\"b.exe\")"}));
}

// ---- while it ends ------------------------------------------------------------------------------

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

TEST_F(DialogInterrupted, ALoadWhileTheOperatorIsAskedWhetherToCloseIsError10) {
    OpenWith(aceTemplate, {WaitFor(1500)});
    std::int32_t error = 0;
    ShowLine({Calling([&] {
        In(L"UserDialogs.ShowMessageBox",
           [&] { error = ErrorOf([&] { engine->LoadEditor(&list, &tree); }); });
        host->user.ExpectQuestion(true);
        engine->Release();
    })});
    EXPECT_EQ(error, 10);
    EXPECT_EQ(context.Editor, nullptr);
    Open(aceTemplate);
    EXPECT_TRUE(IsThere(LineKey()));
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
