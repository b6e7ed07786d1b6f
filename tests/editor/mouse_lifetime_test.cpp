/// What the host does to the editor while its dialog or its menu stands. Messages run there.
#include "editor/mouse_acts.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

const String ClosingAsked = L"UserDialogs.ShowMessageBox(\"T(9022)\", 52, \"T(9021)\")";
const String Delete = L"T(9012)";

class MouseLifetime : public MouseTest {
  protected:
    MouseLifetime() { OpenWhole(aceTemplate); }

    std::int32_t DoubleClickAWait() {
        return ErrorOf([&] { list.DoubleClick(L"ACT:0"); });
    }
    std::int32_t DropAWait(const String& key) {
        return ErrorOf([&] { tree.Drop(KindDragged(atWait), key); });
    }
    /// The host releases the editor, and the operator answers the question.
    sim::FormAct ReleaseWith(bool yes) {
        host->user.ExpectQuestion(yes);
        return sim::Do([this](Form&) { engine->Release(); });
    }
    static sim::FormAct OkIsError(std::int32_t number) {
        return sim::Do([number](Form& form) {
            EXPECT_EQ(ErrorOf([&] { sim::Press(L"cmdOK")(form); }), number);
            EXPECT_TRUE(form.IsShown());
        });
    }
    /// The store with a new wait behind the last line of the stop list.
    ModuleLists WithAWaitAtTheEnd() {
        ModuleLists lists = Store();
        p_Subrange& set = lists.MainTest;
        Fill(set, LeaveList, {set.Leave[0], set.Leave[1], WaitFor(10000)});
        return lists;
    }
    /// The store is still what it was before.
    void ExpectStore(const ModuleLists& before) {
        EXPECT_EQ(Store(), before);
        EXPECT_FALSE(engine->Change());
    }
};

// ---- Release while the dialog stands -----------------------------------------------------------

TEST_F(MouseLifetime, AReleaseThatIsAnsweredWithYesClosesTheDialogAndAddsNothing) {
    const ModuleLists before = Store();
    ExpectDialog({ReleaseWith(true)});
    EXPECT_EQ(DoubleClickAWait(), 0);
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, ClosingAsked, DialogHidden));
    ExpectStore(before);
}

TEST_F(MouseLifetime, AReleaseThatIsAnsweredWithNoTakesTheEntryOver) {
    Select(L"LTE");
    const ModuleLists expected = WithAWaitAtTheEnd();
    ExpectDialog({ReleaseWith(false)});
    EXPECT_EQ(DoubleClickAWait(), 0);
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, ClosingAsked, DialogHidden));
    EXPECT_EQ(Store(), expected);
    EXPECT_TRUE(engine->Change());
}

TEST_F(MouseLifetime, ADialogThatARefusedEntryKeepsOpenHasNoEngineToHandItTo) {
    const ModuleLists before = Store();
    host->user.ExpectQuestion(false);
    host->user.ExpectBox(L"T(9202)");
    ExpectDialog({sim::Do([&](Form& form) {
                      engine->Release();
                      EXPECT_TRUE(form.IsShown());
                  }),
                  sim::Type(L"txtMessage", L"late"), OkIsError(91), sim::Press(L"cmdCancel")});
    EXPECT_EQ(ErrorOf([&] { list.DoubleClick(L"ACT:1"); }), 0);
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(LinesBelow(L"ETE").size(), 1U);
    ExpectStore(before);
}

TEST_F(MouseLifetime, AReleaseInTheDialogOfALineEndsItsDoubleClickInOrder) {
    const ModuleLists before = Store();
    ExpectDialog({sim::Type(L"txtWait", L"5"), ReleaseWith(true)});
    EXPECT_EQ(ErrorOf([&] { tree.DoubleClick(L"CHI0ETE"); }), 0);
    EXPECT_EQ(context.Editor, nullptr);
    ExpectStore(before);
}

TEST_F(MouseLifetime, AReleaseInTheDialogOfADropIsFollowedByTheEvent) {
    const ModuleLists before = Store();
    ExpectDialog({ReleaseWith(true)});
    EXPECT_EQ(DropAWait(L"LTE"), 0);
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, ClosingAsked, DialogHidden, DragComplete));
    ExpectStore(before);
}

TEST_F(MouseLifetime, BehindAReleaseInTheDialogTheEditorOpensAgain) {
    ExpectDialog({ReleaseWith(true)});
    EXPECT_EQ(DoubleClickAWait(), 0);
    OpenWhole(aceTemplate);
    const ModuleLists expected = WithAWaitAtTheEnd();
    ExpectOk();
    EXPECT_EQ(DropAWait(L"LTE"), 0);
    ExpectLists(expected, true);
}

// ---- LoadEditor while the dialog stands --------------------------------------------------------

/// What stands in the tree then may be something else than what the dialog was opened for.
TEST_F(MouseLifetime, AnotherOpeningLeavesTheDialogOpenAndItsOkRefused) {
    const ModuleLists before = Store();
    ExpectDialog({sim::Do([&](Form& form) {
                      OpenWhole(aceTemplate);
                      EXPECT_TRUE(form.IsShown());
                      Select(L"LTE");
                  }),
                  OkIsError(10), sim::Press(L"cmdCancel")});
    EXPECT_EQ(DropAWait(L"ESR0"), 0);
    EXPECT_EQ(SelectedKey(), L"LTE");
    EXPECT_EQ(Happened().back(), DragComplete);
    ExpectLists(before, false);
}

TEST_F(MouseLifetime, OkGoesToTheMomentThatTheDialogWasOpenedFor) {
    const ModuleLists expected = WithAWaitAtTheEnd();
    ExpectDialog({sim::Do([&](Form&) { engine->EditorSelectSubrange(1); }), sim::Press(L"cmdOK")});
    EXPECT_EQ(DropAWait(L"LTE"), 0);
    EXPECT_EQ(SelectedKey(), L"LTE");
    ExpectLists(expected, true);
}

// ---- controls and engines that go --------------------------------------------------------------

TEST_F(MouseLifetime, ATreeThatGoesWhileTheDialogStandsIsError91AtItsOk) {
    const ModuleLists before = Store();
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    ExpectDialog({sim::Do([&](Form&) { brief.reset(); }), OkIsError(91), sim::Press(L"cmdCancel")});
    EXPECT_EQ(DoubleClickAWait(), 0);
    ExpectStore(before);
    EXPECT_EQ(Parts().lists.MainTest, before.MainTest);
}

TEST_F(MouseLifetime, ATreeThatGoesInTheDialogOfItsDropIsFollowedByTheEvent) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    InTheDialog([&] { brief.reset(); });
    EXPECT_EQ(ErrorOf([&] { brief->Drop(KindDragged(atWait), L"LTE"); }), 0);
    EXPECT_EQ(Happened().back(), DragComplete);
    EXPECT_TRUE(list.DoubleClick(std::nullopt));
}

TEST_F(MouseLifetime, AListThatGoesWhileItsDialogStandsIsNotMissed) {
    auto brief = std::make_unique<sim::SimList>(*host);
    engine->LoadEditor(brief.get(), &tree);
    Select(L"LTE");
    const ModuleLists expected = WithAWaitAtTheEnd();
    ExpectDialog({sim::Do([&](Form&) { brief.reset(); }), sim::Press(L"cmdOK")});
    EXPECT_EQ(ErrorOf([&] { brief->DoubleClick(L"ACT:0"); }), 0);
    ExpectLists(expected, true);
}

TEST_F(MouseLifetime, AnEngineThatGoesInTheDialogTakesTheEntryAndHearsOfNoDrop) {
    const std::shared_ptr<EngineState> state = Parts().engine;
    const ModuleLists expected = WithAWaitAtTheEnd();
    ExpectDialog({sim::Do([&](Form&) { engine.reset(); }), sim::Press(L"cmdOK")});
    EXPECT_EQ(DropAWait(L"LTE"), 0);
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden));
    EXPECT_EQ(static_cast<const ModuleLists&>(*state), expected);
    engine = std::make_unique<aceActionsEngine>(context);
}

TEST_F(MouseLifetime, WhoReleasesOrOpensTheEditorInTheEventEndsTheDropInOrder) {
    for (const bool opens : {true, false}) {
        In(L"DragComplete",
           [&, opens] { opens ? engine->LoadEditor(&list, &tree) : engine->Release(); });
        EXPECT_EQ(ErrorOf([&] { tree.DragTo(L"CHI0LTE", L"LTE"); }), 0) << opens;
        host->beforeCall = nullptr;
        EXPECT_EQ(context.Editor != nullptr, opens);
        EXPECT_TRUE(engine->Change());
        ExpandAll();
    }
}

// ---- while the menu stands ---------------------------------------------------------------------

TEST_F(MouseLifetime, AReleaseWhileTheMenuStandsIsError91ForWhatIsChosen) {
    const ModuleLists before = Store();
    In(L"UserDialogs.ShowPopupMenu", [&] { engine->Release(); });
    host->user.ExpectMenu(Delete);
    EXPECT_EQ(ErrorOf([&] { RightClick(L"CHI0LTE"); }), 91);
    EXPECT_EQ(context.Editor, nullptr);
    ExpectStore(before);
}

/// Another menu has come and gone meanwhile, of the dialog of the same line.
TEST_F(MouseLifetime, WhatIsChosenInTheMenuIsDoneBehindADialogWithAMenuOfItsOwn) {
    host->bench.Add<sim::SimMonitor>(*host, L"Meter");
    SetEntries(MomentNamed("TemplateStart"), State(), {OnDevice(atSetDevice, L"Meter")});
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    SetEntries(MomentNamed("TemplateStart"), expected, {});
    In(L"UserDialogs.ShowPopupMenu", [&] { tree.DoubleClick(L"CHI0ETE"); });
    ExpectDialog({sim::PressMouse(L"imgDevice", MouseButtons::Right), sim::Press(L"cmdCancel")});
    host->user.ExpectMenu(std::nullopt);
    ChooseFromMenu(L"CHI0ETE", Delete);
    ExpectLists(expected, true);
}

TEST_F(MouseLifetime, AReleaseWhileAMenuStandsThatIsLeftIsNone) {
    In(L"UserDialogs.ShowPopupMenu", [&] { engine->Release(); });
    host->user.ExpectMenu(std::nullopt);
    EXPECT_EQ(ErrorOf([&] { RightClick(L"CHI0LTE"); }), 0);
    EXPECT_EQ(context.Editor, nullptr);
}

TEST_F(MouseLifetime, NothingComesOfWhatIsChosenForANodeThatIsNotSelectedAnyMore) {
    const ModuleLists before = Store();
    In(L"UserDialogs.ShowPopupMenu", [&] { engine->EditorSelectSubrange(1); });
    host->user.ExpectMenu(Delete);
    EXPECT_EQ(ErrorOf([&] { RightClick(L"CHI0LTE"); }), 0);
    ExpectLists(before, false);
}

TEST_F(MouseLifetime, BehindAnotherOpeningNothingComesOfWhatIsChosen) {
    const ModuleLists before = Store();
    In(L"UserDialogs.ShowPopupMenu", [&] { engine->LoadEditor(&list, &tree); });
    host->user.ExpectMenu(Delete);
    EXPECT_EQ(ErrorOf([&] { RightClick(L"CHI0LTE"); }), 0);
    ExpectLists(before, false);
}

TEST_F(MouseLifetime, ATreeThatGoesWhileItsMenuStandsIsError91ForWhatIsChosen) {
    const ModuleLists before = Store();
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief->SetExpanded(brief->Find(L"LTE"), true);
    In(L"UserDialogs.ShowPopupMenu", [&] { brief.reset(); });
    host->user.ExpectMenu(Delete);
    EXPECT_TRUE(brief->Press(L"CHI0LTE", MouseButtons::Right));
    EXPECT_EQ(ErrorOf([&] { brief->Release(L"CHI0LTE", MouseButtons::Right); }), 91);
    ExpectStore(before);
}

TEST_F(MouseLifetime, AnEngineThatGoesWhileTheMenuStandsTakesWhatIsChosen) {
    const std::shared_ptr<EngineState> state = Parts().engine;
    In(L"UserDialogs.ShowPopupMenu", [&] { engine.reset(); });
    host->user.ExpectMenu(Delete);
    EXPECT_EQ(ErrorOf([&] { RightClick(L"CHI0LTE"); }), 0);
    EXPECT_EQ(state->MainTest.LeaveCount, 1);
    engine = std::make_unique<aceActionsEngine>(context);
}

}  // namespace
}  // namespace ace::test
