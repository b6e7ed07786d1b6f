#include "editor/mouse_acts.h"
#include "editor/shown_actions.h"

namespace ace::test {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String Edit = L"T(9011)";
const String Delete = L"T(9012)";
const String DeleteAll = L"T(9013)";
const String Up = L"T(9014)";
const String Down = L"T(9015)";
const String Copy = L"T(9016)";
const String Paste = L"T(9017)";

class MenuCommands : public MouseTest {
  protected:
    void OpenStart(const std::vector<p_Action>& actions) {
        Fill(State().MainTest, EnterList, actions);
        OpenWhole(aceTemplate);
    }
    void OpenThreeWaits() { OpenStart({WaitFor(1000), WaitFor(2000), WaitFor(3000)}); }
    void ExpectStart(const std::vector<p_Action>& actions, bool isChanged = true) {
        ModuleLists expected = Store();
        Fill(expected.MainTest, EnterList, actions);
        ExpectLists(expected, isChanged);
    }
};

// ---- editing -----------------------------------------------------------------------------------

TEST_F(MenuCommands, EditOpensTheDialogWithTheLinesAction) {
    OpenThreeWaits();
    ExpectDialog(
        {sim::Do([](Form& form) { EXPECT_EQ(form.Find<ValueBox>(L"txtWait")->Value(), 2.0); }),
         sim::Type(L"txtWait", L"9"), sim::Press(L"cmdOK")});
    ChooseFromMenu(L"CHI1ETE", Edit);
    ExpectStart({WaitFor(1000), WaitFor(9000), WaitFor(3000)});
}

TEST_F(MenuCommands, EditThatIsCancelledChangesNothing) {
    OpenThreeWaits();
    ExpectDialog({sim::Type(L"txtWait", L"9"), sim::Press(L"cmdCancel")});
    ChooseFromMenu(L"CHI1ETE", Edit);
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(3000)}, false);
}

TEST_F(MenuCommands, EditOfAParkingShowsNothingAndChangesNothing) {
    OpenStart({WaitFor(1000), Action(atParkAcc)});
    ChooseFromMenu(L"CHI1ETE", Edit);
    EXPECT_THAT(Happened(), ElementsAre(::testing::StartsWith(L"UserDialogs.ShowPopupMenu")));
    ExpectStart({WaitFor(1000), Action(atParkAcc)}, false);
}

// ---- deleting ----------------------------------------------------------------------------------

TEST_F(MenuCommands, DeleteTakesTheLineAway) {
    OpenThreeWaits();
    ChooseFromMenu(L"CHI1ETE", Delete);
    ExpectStart({WaitFor(1000), WaitFor(3000)});
}

TEST_F(MenuCommands, DeleteOnAMomentClearsIt) {
    OpenThreeWaits();
    ChooseFromMenu(L"ETE", DeleteAll);
    ExpectStart({});
}

TEST_F(MenuCommands, DeleteOnASubrangeClearsBothOfItsMoments) {
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    Fill(expected.MainSubranges[1], EnterList, {});
    Fill(expected.MainSubranges[1], LeaveList, {});
    ChooseFromMenu(L"SUR1", DeleteAll);
    ExpectLists(expected, true);
}

TEST_F(MenuCommands, DeleteOnAGroupThatIsNotClearedChangesNothing) {
    OpenWhole(aceMonitoring);
    const ModuleLists before = Store();
    ChooseFromMenu(L"ATL", DeleteAll);
    ExpectLists(before, false);
}

// ---- moving ------------------------------------------------------------------------------------

TEST_F(MenuCommands, UpAndDownExchangeALineWithItsNeighbour) {
    OpenThreeWaits();
    ChooseFromMenu(L"CHI1ETE", Up);
    ExpectStart({WaitFor(2000), WaitFor(1000), WaitFor(3000)});
    ChooseFromMenu(L"CHI1ETE", Down);
    ExpectStart({WaitFor(2000), WaitFor(3000), WaitFor(1000)});
    ChooseFromMenu(L"CHI2ETE", Up);
    ExpectStart({WaitFor(2000), WaitFor(1000), WaitFor(3000)});
}

TEST_F(MenuCommands, InASetOfItsNumberALineMovesThereAlone) {
    OpenWhole(aceMonitoring);
    ModuleLists expected = Store();
    p_Subrange& set = expected.MoniChannels[1];
    Fill(set, FreqList, {set.Freq[0], set.Freq[2], set.Freq[1]});
    ChooseFromMenu(L"CHI1TRI1", Down);
    ExpectLists(expected, true);
}

/// The line stands at the second place of those that show, and so the second entry is moved.
TEST_F(MenuCommands, DownOnTheLastLineMovesAnEntryWithoutALineBehindIt) {
    OpenStart({WaitFor(1000), Broken(), WaitFor(3000)});
    ChooseFromMenu(L"CHI2ETE", Down);
    ExpectStart({WaitFor(1000), WaitFor(3000), Broken()});
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(L"T(9063): 1.000 s", L"T(9063): 3.000 s"));
}

// ---- copying and pasting -----------------------------------------------------------------------

TEST_F(MenuCommands, CopyLeavesTheListAsItIs) {
    OpenThreeWaits();
    ChooseFromMenu(L"CHI1ETE", Copy);
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(3000)}, false);
    EXPECT_EQ(SelectedKey(), L"CHI1ETE");
}

TEST_F(MenuCommands, PasteInsertsBehindTheLineAsOftenAsItIsChosen) {
    OpenThreeWaits();
    ChooseFromMenu(L"CHI1ETE", Copy);
    ChooseFromMenu(L"CHI0ETE", Paste);
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(2000), WaitFor(3000)});
    ChooseFromMenu(L"ETE", Paste);
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(2000), WaitFor(3000), WaitFor(2000)});
}

TEST_F(MenuCommands, WhatWasCopiedStaysHeldWhenItsLineHasGone) {
    OpenThreeWaits();
    ChooseFromMenu(L"CHI1ETE", Copy);
    ChooseFromMenu(L"CHI1ETE", Delete);
    ChooseFromMenu(L"ETE", Paste);
    ExpectStart({WaitFor(1000), WaitFor(3000), WaitFor(2000)});
}

TEST_F(MenuCommands, WhatWasCopiedInOneModuleIsPastedInAnother) {
    OpenStart({CloseTheDoor});
    ChooseFromMenu(L"CHI0ETE", Copy);
    OpenWhole(aceAziChart);
    ModuleLists expected = Store();
    p_Subrange& set = expected.AziChart;
    Fill(set, LeaveList, {set.Leave[0], set.Leave[1], CloseTheDoor});
    ChooseFromMenu(L"LTE", Paste);
    ExpectLists(expected, true);
}

/// Which neither a double click nor a drop would do.
TEST_F(MenuCommands, PasteAsksNoRule) {
    Fill(State().MoniChannels[1], EnterList, {Action(atTestStop)});
    OpenWhole(aceMonitoring);
    ModuleLists expected = Store();
    p_Subrange& set = expected.MoniEut;
    Fill(set, EnterList, {set.Enter[0], Action(atTestStop)});
    Fill(set, FreqList, {set.Freq[0], Action(atTestStop), set.Freq[1], set.Freq[2]});
    ChooseFromMenu(L"CHI0NGO1", Copy);
    ChooseFromMenu(L"ETE", Paste);
    ChooseFromMenu(L"CHI0EFR", Paste);
    ExpectLists(expected, true);
}

TEST_F(MenuCommands, APastedDeviceHasASectionOfItsOwn) {
    context.ModuleFileNames.fill(L"setup.ini");
    host->files[L"setup.ini"][L"Actions7-Device"] = {L"Gain=3"};
    OpenStart({OnDevice(atSetDevice, L"Generator")});
    ChooseFromMenu(L"CHI0ETE", Copy);
    ChooseFromMenu(L"CHI0ETE", Paste);
    ASSERT_EQ(Store().MainTest.EnterCount, 2);
    EXPECT_EQ(std::get<aceSetDevice>(Store().MainTest.Enter[0].Parameter).ChanNo, 7);
    EXPECT_EQ(std::get<aceSetDevice>(Store().MainTest.Enter[1].Parameter).ChanNo, 101);
    EXPECT_EQ(host->files[L"setup.ini"][L"Actions101-Device"], Lines{L"Gain=3"});
}

TEST_F(MenuCommands, PasteWhereNoListIsReachedDoesNothing) {
    OpenWhole(aceVKSDUT, RowsInGroups);
    const ModuleLists before = Store();
    ChooseFromMenu(L"CHI0STE0", Copy);
    for (const String key : {L"TST0_-1_-1", L"STE-1"}) {
        ChooseFromMenu(key, Paste);
        ChooseFromMenu(key, DeleteAll);
        ExpectLists(before, false);
    }
}

TEST_F(MenuCommands, NoCommandRaisesTheEventOfADrop) {
    OpenThreeWaits();
    host->journal.Clear();
    ChooseFromMenu(L"CHI1ETE", Copy);
    ChooseFromMenu(L"CHI1ETE", Paste);
    ChooseFromMenu(L"CHI1ETE", Up);
    ChooseFromMenu(L"CHI1ETE", Delete);
    EXPECT_THAT(host->journal.LinesOf(L"DragComplete"), IsEmpty());
}

/// Both use the same menu.
TEST_F(MenuCommands, BehindAMenuOfDevicesACommandIsACommandAgain) {
    host->bench.Add<sim::SimMonitor>(*host, L"EUT");
    OpenThreeWaits();
    Select(L"LTE");
    const auto openMenu = sim::PressMouse(L"imgDevice", MouseButtons::Left);
    for (const std::optional<String>& chosen : {std::optional<String>(), std::optional(L"EUT"s)}) {
        host->user.ExpectMenu(chosen);
        if (chosen) {
            host->user.ExpectSettings(std::nullopt);
        }
        ExpectDialog({openMenu, sim::Press(L"cmdCancel")});
        EXPECT_TRUE(list.DoubleClick(L"ACT:3"));
    }
    ChooseFromMenu(L"CHI1ETE", Delete);
    ExpectStart({WaitFor(1000), WaitFor(3000)});
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(MenuCommands, AFailureIsReportedAndComesOutAtTheTree) {
    OpenThreeWaits();
    host->faults.FailOperation(L"UserDialogs.ShowPopupMenu", 1, 57);
    EXPECT_EQ(ErrorOf([&] { RightClick(L"CHI0ETE"); }), 57);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
}

TEST_F(MenuCommands, WhileAListOfTheModuleRunsACommandIsError10) {
    OpenThreeWaits();
    std::int32_t error = 0;
    host->user.ExpectMenu(Paste);
    HoldNew(CloseTheDoor);
    host->onTimedMessage = [&] {
        host->onTimedMessage = nullptr;
        error = ErrorOf([&] { RightClick(L"LTE"); });
    };
    engine->StartTest();
    host->onTimedMessage = nullptr;
    EXPECT_EQ(error, 10);
    EXPECT_EQ(Store().MainTest.LeaveCount, 2);
}

}  // namespace
}  // namespace ace::test
