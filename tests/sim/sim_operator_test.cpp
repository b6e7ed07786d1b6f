#include "sim/sim_operator.h"

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
    TextBox txtName{*this, L"txtName", {.toolTip = L"who", .text = L"a\r\nb"}};
    CheckBox chkBeep{*this, L"chkBeep", {.caption = L"Beep", .enabled = false}};
    DropDown cboPort{*this, L"cboPort", {.list = {L"COM1", L"COM2"}}};
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
    host->user.Expect({L"Sample",
                       {sim::Type(L"txtName", L"new"), sim::Tick(L"chkBeep", true),
                        sim::Choose(L"cboPort", 1), Press(L"cmdOK")},
                       {}});
    Show(form);
    EXPECT_TRUE(form.left);
    EXPECT_TRUE(form.chkBeep.ticked);
    EXPECT_EQ(form.cboPort.listIndex, 1);
    EXPECT_EQ(form.Focus(), &form.cmdOK);
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

}  // namespace
}  // namespace ace::test
