#include "sim/sim_operator.h"

#include "sim/form_view.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using sim::Press;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Sample : public Form {
  public:
    explicit Sample(String name = L"Sample") : Form(std::move(name), 0, 1000.0F, 1000.0F) {
        cmdOK.onClick = [this] {
            pressed = true;
            Hide();
        };
        txtName.onLeave = [this] { left = true; };
    }
    Label lblText{*this, L"lblText", {.caption = L"Hello"}};
    TextBox txtName{*this, L"txtName", {.toolTip = L"who"}, L"a\r\nb"};
    CheckBox chkBeep{*this, L"chkBeep", {.caption = L"Beep", .enabled = false}};
    DropDown cboPort{*this, L"cboPort", {}, {L"COM1", L"COM2"}};
    Picture imgStop{*this, L"imgStop"};
    Button cmdOK{*this, L"cmdOK", {.caption = L"OK"}};
    bool pressed = false;
    bool left = false;
};

/// A form that stays where it is when its frame is closed.
class Stubborn : public Sample {
    void FrameClosed() override {}
};

class SimOperatorTest : public HostTest {
  protected:
    void Show(Form& shown) { shown.ShowModal(context.FormHost()); }
    std::vector<String> Complaints() { return host->user.TakeComplaints(); }
    Sample form;
};

constexpr auto SampleText =
    L"\"Sample\", \"\", lblText \"Hello\", txtName \"a\\r\\nb\" tip \"who\", chkBeep \"Beep\" "
    L"unticked disabled, cboPort \"\", imgStop, cmdOK \"OK\"";

TEST_F(SimOperatorTest, AnExpectedFormIsAnsweredByItsAct) {
    host->user.Expect(L"Sample", Press(L"cmdOK"));
    Show(form);
    EXPECT_TRUE(form.pressed);
    EXPECT_THAT(TakeEffects(), ElementsAre(String(L"FormHost.ShowModal(") + SampleText + L")",
                                           L"FormHost.Hide(\"Sample\")"));
}

TEST_F(SimOperatorTest, AnUnexpectedFormIsAComplaintAndClosedByItsFrame) {
    Show(form);
    EXPECT_FALSE(form.IsShown());
    EXPECT_FALSE(form.pressed);
    EXPECT_THAT(Complaints(), ElementsAre(String(L"unexpected form: ") + SampleText));
    EXPECT_THAT(Complaints(), IsEmpty());
}

TEST_F(SimOperatorTest, AnotherFormThanTheNextIsUnexpectedAndTheAnswerWaitsOn) {
    Sample other(L"Other");
    host->user.Expect(L"Other", Press(L"cmdOK"));
    Show(form);
    Show(other);
    EXPECT_TRUE(other.pressed);
    EXPECT_THAT(Complaints(), ElementsAre(String(L"unexpected form: ") + SampleText));
}

TEST_F(SimOperatorTest, AnAnswerThatIsNeverUsedIsAComplaint) {
    host->user.Expect(L"Sample", Press(L"cmdOK"));
    EXPECT_THAT(Complaints(), ElementsAre(L"never shown: Sample"));
    EXPECT_THAT(Complaints(), IsEmpty());
}

TEST_F(SimOperatorTest, OtherWordsThanExpectedAreAComplaintAndTheActIsDone) {
    host->user.Expect(
        {L"Sample", {Press(L"cmdOK")}, {{L"lblText", L"Hallo"}, {L"txtName", L"a\r\nb"}}});
    Show(form);
    EXPECT_TRUE(form.pressed);
    EXPECT_THAT(Complaints(),
                ElementsAre(String(L"lblText does not show \"Hallo\": ") + SampleText));
}

TEST_F(SimOperatorTest, WordsOfAHiddenControlAreNotShown) {
    form.lblText.visible = false;
    host->user.Expect({L"Sample", {Press(L"cmdOK")}, {{L"lblText", L"Hello"}}});
    Show(form);
    EXPECT_EQ(Complaints().size(), 1U);
}

TEST_F(SimOperatorTest, AnActThatCannotBeDoneIsAComplaint) {
    form.cmdOK.visible = false;
    host->user.Expect(
        {L"Sample",
         {Press(L"cmdOK"), sim::Tick(L"chkBeep", true), Press(L"cmdGone"), sim::CloseFrame()},
         {}});
    Show(form);
    EXPECT_FALSE(form.pressed);
    EXPECT_FALSE(form.chkBeep.ticked);
    EXPECT_EQ(Complaints().size(), 3U);
}

TEST_F(SimOperatorTest, AFormThatIsLeftOpenIsAComplaintAndHidden) {
    Stubborn stubborn;
    host->user.Expect(L"Sample", sim::Type(L"txtName", L"new"));
    Show(stubborn);
    EXPECT_FALSE(stubborn.IsShown());
    EXPECT_EQ(stubborn.txtName.text, L"new");
    EXPECT_THAT(Complaints(), ElementsAre(::testing::StartsWith(L"left open: \"Sample\"")));
}

TEST_F(SimOperatorTest, AnActOnAControlMovesTheFocusThere) {
    form.chkBeep.enabled = true;
    const auto focusIsOn = [](String name) {
        return sim::Do([name = std::move(name)](const Form& shown) {
            EXPECT_EQ(shown.Focus(), shown.Find(name));
        });
    };
    host->user.Expect(
        {L"Sample",
         {sim::Type(L"txtName", L"new"), focusIsOn(L"txtName"), sim::Tick(L"chkBeep", true),
          sim::Choose(L"cboPort", 1), focusIsOn(L"cboPort"), Press(L"cmdOK")},
         {}});
    Show(form);
    EXPECT_TRUE(form.left);
    EXPECT_TRUE(form.chkBeep.ticked);
    EXPECT_EQ(form.cboPort.listIndex, 1);
}

TEST_F(SimOperatorTest, AScreenThatFailsKeepsTheAnswerForTheNextShow) {
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 1234);
    host->user.Expect(L"Sample", Press(L"cmdOK"));
    EXPECT_EQ(ErrorOf([&] { Show(form); }), 1234);
    Show(form);
    EXPECT_TRUE(form.pressed);
}

TEST_F(SimOperatorTest, ATextIs195TwipsALineUnlessTheTestSaysOtherwise) {
    EXPECT_EQ(host->user.TextHeight(L"", 100.0F), 195.0F);
    EXPECT_EQ(host->user.TextHeight(L"a\r\nb\nc", 100.0F), 585.0F);
    host->user.textHeight = [](const String&, float width) { return width / 4; };
    EXPECT_EQ(host->user.TextHeight(L"a", 100.0F), 25.0F);
}

// ---- what can't be reached ---------------------------------------------------------------------

/// A form with panes; `reached` counts what its handlers saw.
class Panes : public Form {
  public:
    Panes() : Form(L"Panes", 0, 1000.0F, 1000.0F) {
        const auto reach = [this] { ++reached; };
        txtName.onChange = reach;
        txtTime.onChange = txtTime.onEndInput = reach;
        chkBeep.onClick = cboPort.onClick = optMode.onClick = imgDevice.onClick = reach;
        filFile.onChange = filTable.onChange = reach;
        tabPages.onSelect = [this](std::int32_t) { ++reached; };
        txtName.onDrop = [this](const std::vector<String>&) { ++reached; };
    }
    Frame fraPane{*this, L"fraPane"};
    TextBox txtName{fraPane, L"txtName"};
    ValueBox txtTime{fraPane, L"txtTime"};
    CheckBox chkBeep{fraPane, L"chkBeep"};
    DropDown cboPort{fraPane, L"cboPort", {}, {L"COM1", L"COM2"}};
    OptionGroup optMode{fraPane, L"optMode", {}, {{L"A"}, {L"B"}}};
    FileBox filFile{fraPane, L"filFile"};
    FileBox filTable{fraPane, L"filTable", {}, {.ofTables = true}};
    TabStrip tabPages{fraPane, L"tabPages", {}, {{L"1"}, {L"2"}, {L"3", false}}};
    Picture imgDevice{fraPane, L"imgDevice"};
    Label lblText{fraPane, L"lblText"};
    int reached = 0;
};

const std::vector<sim::FormAct> EveryAct = {sim::Type(L"txtName", L"a"),
                                            sim::Insert(L"txtName", L"b"),
                                            sim::DropFiles(L"txtName", {L"c"}),
                                            sim::Type(L"txtTime", L"1"),
                                            sim::EndInput(L"txtTime"),
                                            sim::Tick(L"chkBeep", true),
                                            sim::Choose(L"cboPort", 1),
                                            sim::Choose(L"optMode", 1),
                                            sim::ChooseFile(L"filFile", L"d"),
                                            sim::ChooseTable(L"filTable", 3, 2, L"e"),
                                            sim::SelectText(L"txtName", 0),
                                            sim::Focus(L"txtTime"),
                                            sim::Choose(L"tabPages", 1),
                                            Press(L"imgDevice"),
                                            sim::PressMouse(L"imgDevice", MouseButtons::Left)};

TEST_F(SimOperatorTest, EveryActReachesAControlThatShows) {
    Panes panes;
    for (const sim::FormAct& act : EveryAct) {
        EXPECT_TRUE(act(panes));
    }
    EXPECT_EQ(panes.reached, 13);
}

TEST_F(SimOperatorTest, NoActReachesAControlInAHiddenOrDisabledFrame) {
    Panes panes;
    panes.fraPane.visible = false;
    for (const sim::FormAct& act : EveryAct) {
        EXPECT_FALSE(act(panes));
    }
    panes.fraPane.visible = true;
    panes.fraPane.enabled = false;
    for (const sim::FormAct& act : EveryAct) {
        EXPECT_FALSE(act(panes));
    }
    EXPECT_EQ(panes.reached, 0);
    EXPECT_EQ(panes.Focus(), nullptr);
}

TEST_F(SimOperatorTest, AnActOnAnotherKindOfControlCannotBeDone) {
    Panes panes;
    for (const sim::FormAct& act :
         {sim::Type(L"lblText", L"a"), sim::Type(L"cboPort", L"COM9"), Press(L"lblText"),
          Press(L"txtName"), sim::Tick(L"optMode", true), sim::Choose(L"txtName", 0),
          sim::EndInput(L"txtName"), sim::Insert(L"txtTime", L"1"), sim::PressMouse(L"chkBeep", 1),
          sim::DropFiles(L"txtTime", {L"a"}), sim::ChooseFile(L"txtName", L"a"),
          sim::ChooseFile(L"filTable", L"a"), sim::ChooseTable(L"filFile", 1, 1, L"a"),
          sim::SelectText(L"txtTime", 0), sim::Focus(L"imgDevice"), sim::Focus(L"lblText")}) {
        EXPECT_FALSE(act(panes));
    }
    EXPECT_EQ(panes.reached, 0);
}

TEST_F(SimOperatorTest, WhatIsNotOfferedCannotBeChosen) {
    Panes panes;
    for (const sim::FormAct& act :
         {sim::Choose(L"cboPort", 2), sim::Choose(L"cboPort", -1), sim::Choose(L"optMode", 2),
          sim::Choose(L"tabPages", 2), sim::Choose(L"tabPages", 3), sim::Tick(L"chkBeep", false)}) {
        EXPECT_FALSE(act(panes));
    }
    EXPECT_EQ(panes.reached, 0);
}

TEST_F(SimOperatorTest, ATableIsChosenWithItsTypeAndMeasurementClass) {
    Panes panes;
    EXPECT_TRUE(sim::ChooseTable(L"filTable", 3, 2, L"Level")(panes));
    EXPECT_EQ(panes.filTable.fileName, L"Level");
    EXPECT_EQ(panes.filTable.tableType, 3);
    EXPECT_EQ(panes.filTable.tableMeasClass, 2);
}

TEST_F(SimOperatorTest, WhatIsTypedGoesInPlaceOfTheSelectedTextWhichEndsWithTheText) {
    Panes panes;
    panes.txtName.text = L"abcd";
    EXPECT_TRUE(sim::SelectText(L"txtName", 1, 2)(panes));
    EXPECT_TRUE(sim::Insert(L"txtName", L"-")(panes));
    EXPECT_EQ(panes.txtName.text, L"a-d");
    EXPECT_TRUE(sim::SelectText(L"txtName", 3)(panes));
    for (const sim::FormAct& act :
         {sim::SelectText(L"txtName", 4), sim::SelectText(L"txtName", 2, 2),
          sim::SelectText(L"txtName", -1), sim::SelectText(L"txtName", 0, -1)}) {
        EXPECT_FALSE(act(panes));
    }
    EXPECT_EQ(panes.txtName.selectionStart, 3);
}

TEST_F(SimOperatorTest, GoingToAControlDoesNothingThereAndLeavesTheOneBefore) {
    Panes panes;
    panes.txtTime.Type(L"0");
    panes.SetFocus(panes.txtTime);
    panes.reached = 0;
    EXPECT_TRUE(sim::Focus(L"chkBeep")(panes));
    EXPECT_EQ(panes.Focus(), &panes.chkBeep);
    EXPECT_EQ(panes.reached, 1) << "the end of the input";
}

TEST_F(SimOperatorTest, APressOnAPictureAndADropLeaveTheFocusWhereItIs) {
    Panes panes;
    panes.SetFocus(panes.txtTime);
    EXPECT_TRUE(Press(L"imgDevice")(panes));
    EXPECT_TRUE(sim::DropFiles(L"txtName", {L"a"})(panes));
    EXPECT_EQ(panes.Focus(), &panes.txtTime);
}

TEST_F(SimOperatorTest, AControlThatTheLeavingOfAnotherHidesCannotBeActedOn) {
    Panes panes;
    panes.SetFocus(panes.txtTime);
    panes.txtTime.Type(L"0");
    panes.txtTime.onEndInput = [&] { panes.chkBeep.visible = false; };
    EXPECT_FALSE(sim::Tick(L"chkBeep", true)(panes));
    EXPECT_FALSE(panes.chkBeep.ticked);
}

// ---- boxes, file dialogs, menus ----------------------------------------------------------------

class SimBoxes : public SimOperatorTest {
  protected:
    IUserDialogs& boxes = context.UserDialogs();
    std::int32_t Box(const String& text, std::int32_t style = IUserDialogs::Exclamation) {
        return boxes.ShowMessageBox(text, style, L"t");
    }
};

TEST_F(SimBoxes, AQuestionTakesTheExpectedAnswerAndAnUnexpectedOneIsAComplaintAndANo) {
    host->user.ExpectQuestion(true);
    host->user.ExpectQuestion(false);
    EXPECT_EQ(Box(L"one", IUserDialogs::YesNo), IUserDialogs::AnswerYes);
    EXPECT_EQ(Box(L"two", IUserDialogs::YesNo), IUserDialogs::AnswerNo);
    EXPECT_THAT(Complaints(), IsEmpty());
    EXPECT_EQ(Box(L"three", IUserDialogs::YesNo | IUserDialogs::Question), IUserDialogs::AnswerNo);
    EXPECT_THAT(Complaints(), ElementsAre(L"unexpected question: three"));
}

TEST_F(SimBoxes, APlainBoxThatNobodyExpectedIsAComplaint) {
    host->user.ExpectBox();
    host->user.ExpectBox(L"two");
    EXPECT_EQ(Box(L"one"), IUserDialogs::AnswerOk);
    EXPECT_EQ(Box(L"two"), IUserDialogs::AnswerOk);
    EXPECT_THAT(Complaints(), IsEmpty());
    EXPECT_EQ(Box(L"three"), IUserDialogs::AnswerOk);
    EXPECT_THAT(Complaints(), ElementsAre(L"unexpected message box: three"));
}

TEST_F(SimBoxes, APlainBoxWithOtherWordsIsAComplaint) {
    host->user.ExpectBox(L"saved");
    Box(L"lost");
    EXPECT_THAT(Complaints(), ElementsAre(L"the message box does not read \"saved\": lost"));
}

TEST_F(SimBoxes, AnotherKindThanTheNextIsUnexpectedAndTheAnswerWaitsOn) {
    host->user.ExpectQuestion(true);
    Box(L"told");
    EXPECT_EQ(Box(L"asked", IUserDialogs::YesNo), IUserDialogs::AnswerYes);
    EXPECT_THAT(Complaints(), ElementsAre(L"unexpected message box: told"));
}

TEST_F(SimBoxes, WhatIsNeverShownIsAComplaint) {
    host->user.ExpectBox();
    host->user.ExpectQuestion(true);
    host->user.ExpectFile(L"a");
    host->user.ExpectMenu({});
    host->user.ExpectSettings({});
    EXPECT_THAT(Complaints(), ElementsAre(L"never shown: message box", L"never shown: question",
                                          L"never shown: file dialog", L"never shown: menu",
                                          L"never shown: settings dialog"));
    EXPECT_THAT(Complaints(), IsEmpty());
}

TEST_F(SimBoxes, AFileDialogIsAnsweredOrCancelled) {
    const FileQuestion question{L"Sound Files (*.wav)|*.wav", L"*.wav", L"C:\\a.wav"};
    host->user.ExpectFile(L"C:\\b.wav");
    host->user.ExpectFile({});
    EXPECT_EQ(boxes.OpenFile(question), L"C:\\b.wav");
    EXPECT_EQ(boxes.OpenFile(question), std::nullopt);
    EXPECT_THAT(Complaints(), IsEmpty());
    EXPECT_EQ(boxes.OpenFile(question), std::nullopt);
    EXPECT_THAT(Complaints(), ElementsAre(L"unexpected file dialog: Sound Files (*.wav)|*.wav"));
    EXPECT_EQ(TakeEffects().front(),
              L"UserDialogs.OpenFile(\"Sound Files (*.wav)|*.wav\", \"*.wav\", \"C:\\a.wav\")");
}

TEST_F(SimBoxes, AMenuItemIsChosenByItsCaption) {
    const std::vector<MenuItem> items = {{1, L"Change"}, {2, L"Delete", true}};
    host->user.ExpectMenu(L"Delete");
    host->user.ExpectMenu({});
    EXPECT_EQ(boxes.ShowPopupMenu(items), 1U);
    EXPECT_EQ(boxes.ShowPopupMenu(items), std::nullopt);
    EXPECT_THAT(Complaints(), IsEmpty());
    EXPECT_EQ(TakeEffects().front(),
              L"UserDialogs.ShowPopupMenu(1 \"Change\", 2 \"Delete\" checked)");
    host->user.ExpectMenu(L"Paste");
    EXPECT_EQ(boxes.ShowPopupMenu(items), std::nullopt);
    EXPECT_EQ(boxes.ShowPopupMenu(items), std::nullopt);
    EXPECT_THAT(
        Complaints(),
        ElementsAre(L"the menu does not offer \"Paste\": 1 \"Change\", 2 \"Delete\" checked",
                    L"unexpected menu: 1 \"Change\", 2 \"Delete\" checked"));
}

TEST_F(SimBoxes, ASettingsDialogLeavesItsOutcomeOrWhatThereWas) {
    IDeviceSettingsStore& store = context.DeviceSettings();
    host->user.ExpectSettings(L"Channel 2");
    host->user.ExpectSettings({});
    String text = L"Channel 1";
    store.SetDevice(L"Camera", 1);
    store.EditSettings(text);
    EXPECT_EQ(text, L"Channel 2");
    store.EditSettings(text);
    EXPECT_EQ(text, L"Channel 2");
    EXPECT_THAT(TakeEffects(), ElementsAre(L"DeviceSettingsStore.SetDevice(\"Camera\", 1)",
                                           L"DeviceSettingsStore.EditSettings(\"Channel 1\")",
                                           L"DeviceSettingsStore.EditSettings(\"Channel 2\")"));
}

TEST_F(SimBoxes, TheBusyPointerIsACall) {
    boxes.SetBusyPointer(true);
    boxes.SetBusyPointer(false);
    EXPECT_THAT(TakeEffects(), ElementsAre(L"UserDialogs.SetBusyPointer(true)",
                                           L"UserDialogs.SetBusyPointer(false)"));
}

}  // namespace
}  // namespace ace::test
