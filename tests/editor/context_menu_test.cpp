#include "editor/mouse_acts.h"
#include "editor/shown_actions.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String Edit = L"1 \"T(9011)\"";
const String Delete = L"2 \"T(9012)\"";
const String DeleteAll = L"2 \"T(9013)\"";
const String Up = L"3 \"T(9014)\"";
const String Down = L"4 \"T(9015)\"";
const String Copy = L"5 \"T(9016)\"";
const String Paste = L"6 \"T(9017)\"";

Lines Menu(const Lines& items) {
    String text;
    for (const String& item : items) {
        text += (text.empty() ? L"" : L", ") + item;
    }
    return {L"UserDialogs.ShowPopupMenu(" + text + L")"};
}

class ContextMenu : public MouseTest {
  protected:
    void OpenThreeWaits() {
        Fill(State().MainTest, EnterList, {WaitFor(1000), WaitFor(2000), WaitFor(3000)});
        OpenWhole(aceTemplate);
    }
    /// The second of them has no record and no line.
    void OpenWithASkippedEntry() {
        Fill(State().MainTest, EnterList, {WaitFor(1000), Broken(), WaitFor(3000)});
        OpenWhole(aceTemplate);
    }
    void ExpectStart(const std::vector<p_Action>& actions, bool isChanged = true) {
        ModuleLists expected = Store();
        Fill(expected.MainTest, EnterList, actions);
        ExpectLists(expected, isChanged);
    }
};

// ---- when there is one -------------------------------------------------------------------------

TEST_F(ContextMenu, TheRightButtonAloneOpensOne) {
    OpenThreeWaits();
    for (const std::int32_t button : {MouseButtons::Left, MouseButtons::Middle}) {
        EXPECT_TRUE(tree.Press(L"CHI0ETE", button) && tree.Release(L"CHI0ETE", button));
        EXPECT_THAT(Happened(), IsEmpty()) << button;
    }
    EXPECT_THAT(MenuOn(L"CHI0ETE"), ::testing::SizeIs(1));
}

TEST_F(ContextMenu, WithNothingSelectedThereIsNone) {
    OpenThreeWaits();
    EXPECT_TRUE(RightClick(std::nullopt));
    EXPECT_THAT(Happened(), IsEmpty());
}

TEST_F(ContextMenu, BesideTheNodesItIsThatOfTheSelectedOne) {
    OpenThreeWaits();
    Select(L"CHI1ETE");
    host->user.ExpectMenu(L"T(9012)");
    EXPECT_TRUE(RightClick(std::nullopt));
    ExpectStart({WaitFor(1000), WaitFor(3000)});
}

TEST_F(ContextMenu, OneThatIsLeftWithoutAChoiceChangesNothing) {
    OpenThreeWaits();
    const ModuleLists before = Store();
    ChooseFromMenu(L"CHI1ETE", std::nullopt);
    EXPECT_EQ(SelectedKey(), L"CHI1ETE");
    ExpectLists(before, false);
}

// ---- its items ---------------------------------------------------------------------------------

TEST_F(ContextMenu, ALineGoesUpUnlessItIsTheFirstAndDownUnlessItIsTheLast) {
    OpenThreeWaits();
    EXPECT_EQ(MenuOn(L"CHI0ETE"), Menu({Edit, Delete, Copy, Down}));
    EXPECT_EQ(MenuOn(L"CHI1ETE"), Menu({Edit, Delete, Copy, Up, Down}));
    EXPECT_EQ(MenuOn(L"CHI2ETE"), Menu({Edit, Delete, Copy, Up}));
    EXPECT_EQ(MenuOn(L"CHI0ESR0"), Menu({Edit, Delete, Copy})) << "the only one";
}

/// The entries are counted, the line's place is among those that show.
TEST_F(ContextMenu, BehindAnEntryWithoutALineTheLastOneIsOfferedToGoDown) {
    OpenWithASkippedEntry();
    EXPECT_EQ(MenuOn(L"CHI0ETE"), Menu({Edit, Delete, Copy, Down}));
    EXPECT_EQ(MenuOn(L"CHI2ETE"), Menu({Edit, Delete, Copy, Up, Down}));
}

TEST_F(ContextMenu, WhatIsHeldCanBePastedBehindTheCopyAndBeforeTheMoves) {
    OpenThreeWaits();
    ChooseFromMenu(L"CHI1ETE", L"T(9016)");
    EXPECT_EQ(MenuOn(L"CHI1ETE"), Menu({Edit, Delete, Copy, Paste, Up, Down}));
    EXPECT_EQ(MenuOn(L"CHI0ESR0"), Menu({Edit, Delete, Copy, Paste}));
    EXPECT_EQ(MenuOn(L"LTE"), Menu({DeleteAll, Paste}));
}

struct IconRow {
    p_Action action;
    bool isEdited;
};

TEST_F(ContextMenu, LinesOfKindsWithoutFieldsAreNotEditedButThoseThatPark) {
    const IconRow rows[] = {
        {WaitFor(1), true},
        {CloseTheDoor, true},
        {Gpib(1, L"*RST"), true},
        {Device(atSetDevice, L"EUT"), true},
        {Camera, true},
        {Tracked(L"EUT"), true},
        {Comment(true), true},
        {Action(atProtRec), false},
        {Action(atTestStop), false},
        {Action(atGotoSingle), false},
        {Action(atStopLevSweep), false},
        {Action(atNbBbEtsi), false},
        {Amplifier(L"Amplifier", 1), true},
        {PathA, true},
        {Api(L"log.mac"), true},
        {Action(atParkAcc), true},
        {Ask(L"Lamp green?"), true},
        {Device(atMonitorEUT, L"EUT"), true},
    };
    for (const IconRow& row : rows) {
        Fill(State().MainTest, EnterList, {row.action});
        OpenWhole(aceTemplate);
        EXPECT_EQ(MenuOn(L"CHI0ETE"),
                  row.isEdited ? Menu({Edit, Delete, Copy}) : Menu({Delete, Copy}))
            << row.action.ActionType;
    }
}

TEST_F(ContextMenu, MomentsAndGroupsHaveTheirLinesDeleted) {
    OpenWhole(aceTemplate);
    for (const String key : {L"ETE", L"EFR", L"SUR0", L"ESR1", L"LSR1", L"LTE"}) {
        EXPECT_EQ(MenuOn(key), Menu({DeleteAll})) << testing::PrintToString(key);
    }
    OpenWhole(aceMonitoring);
    for (const String key : {L"ATL", L"BFT", L"CHA1", L"TRI0", L"MLC"}) {
        EXPECT_EQ(MenuOn(key), Menu({DeleteAll})) << testing::PrintToString(key);
    }
    OpenWhole(aceVKSDUT, RowsInGroups);
    for (const String key : {L"TST0_-1_-1", L"STE0", L"STE-1"}) {
        EXPECT_EQ(MenuOn(key), Menu({DeleteAll})) << testing::PrintToString(key);
    }
}

// ---- what is held ------------------------------------------------------------------------------

TEST_F(ContextMenu, AnActionOfAnyKindThatWasCopiedIsHeld) {
    const p_Action actions[] = {WaitFor(1), CloseTheDoor, Action(atProtRec), Comment(false), PathA};
    for (const p_Action& action : actions) {
        Fill(State().MainTest, EnterList, {action});
        OpenWhole(aceTemplate);
        ChooseFromMenu(L"CHI0ETE", L"T(9016)");
        EXPECT_EQ(MenuOn(L"LTE"), Menu({DeleteAll, Paste})) << action.ActionType;
        engine->Release();
    }
}

TEST_F(ContextMenu, ADialogThatWasCancelledHoldsNothingAndOneThatWasConfirmedItsAction) {
    OpenThreeWaits();
    Select(L"ETE");
    ExpectCancel();
    EXPECT_TRUE(list.DoubleClick(L"ACT:1"));
    EXPECT_EQ(MenuOn(L"ETE"), Menu({DeleteAll}));
    ExpectOk();
    EXPECT_TRUE(list.DoubleClick(L"ACT:0"));
    EXPECT_EQ(MenuOn(L"ETE"), Menu({DeleteAll, Paste}));
    ChooseFromMenu(L"CHI0ETE", L"T(9017)");
    ExpectStart({WaitFor(1000), WaitFor(10000), WaitFor(2000), WaitFor(3000), WaitFor(10000)});
}

}  // namespace
}  // namespace ace::test
