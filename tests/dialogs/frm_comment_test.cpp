#include <ace/dialogs/frm_comment.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using sim::CloseFrame;
using sim::Do;
using sim::Press;
using ::testing::ElementsAre;

constexpr StringView Name = L"frmComment";

class FrmComment : public HostTest {
  protected:
    /// Shows one message; the operator does `act`.
    Boolean Display(StringView message, Boolean question, sim::FormAct act) {
        host->user.Expect(String(Name), std::move(act));
        return form->DisplayMessage(String(message), question);
    }
    void Notify(StringView message) { Display(message, false, Press(L"cmdClose")); }
    void Ask(StringView message) { Display(message, true, Press(L"cmdClose")); }

    std::shared_ptr<frmComment> form = std::make_shared<frmComment>(context);
};

TEST_F(FrmComment, ANotificationShowsTheMessageTheStopSignAndTheDesignCaptions) {
    Notify(L"Turn the table");
    EXPECT_THAT(
        TakeEffects(),
        ElementsAre(L"FormHost.ShowModal(\"frmComment\", \"T(9351)\", lblComment \"Turn the "
                    L"table\", imgStop, cmdClose \"T(6)\", cmdStopTest \"T(9312)\" tip "
                    L"\"T(9313)\")",
                    L"FormHost.Hide(\"frmComment\")"));
}

TEST_F(FrmComment, AQuestionShowsTheQuestionMarkAndYesAndNoWithoutToolTip) {
    Ask(L"Is the lamp on?");
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"FormHost.ShowModal(\"frmComment\", \"T(9351)\", lblComment \"Is the "
                            L"lamp on?\", imgQue, cmdClose \"Yes\", cmdStopTest \"No\")",
                            L"FormHost.Hide(\"frmComment\")"));
}

TEST_F(FrmComment, AQuestionFollowedByANotificationShowsTheStopSignTheDesignCaptionsAndNoToolTip) {
    Ask(L"Ready?");
    host->journal.Clear();
    Notify(L"Go");
    Notify(L"Go");
    const auto line =
        L"FormHost.ShowModal(\"frmComment\", \"T(9351)\", lblComment \"Go\", imgStop, "
        L"cmdClose \"T(6)\", cmdStopTest \"T(9312)\")";
    EXPECT_THAT(TakeEffects(), ElementsAre(line, L"FormHost.Hide(\"frmComment\")", line,
                                           L"FormHost.Hide(\"frmComment\")"));
}

TEST_F(FrmComment, EveryQuestionOfSeveralHasYesAndNoAndLeavesTheDesignCaptions) {
    for (int i = 0; i < 3; ++i) {
        host->user.Expect(
            {String(Name), {Press(L"cmdClose")}, {{L"cmdClose", L"Yes"}, {L"cmdStopTest", L"No"}}});
        EXPECT_FALSE(form->DisplayMessage(L"Ready?", true));
        EXPECT_EQ(form->cmdClose.caption, L"T(6)");
        EXPECT_EQ(form->cmdStopTest.caption, L"T(9312)");
        EXPECT_EQ(form->cmdStopTest.toolTip, L"");
        EXPECT_TRUE(form->imgStop.visible);
        EXPECT_FALSE(form->imgQue.visible);
    }
}

TEST_F(FrmComment, OnlyTheStopButtonAsksToStopTheTest) {
    EXPECT_FALSE(Display(L"m", false, Press(L"cmdClose")));
    EXPECT_TRUE(Display(L"m", false, Press(L"cmdStopTest")));
}

TEST_F(FrmComment, YesGoesOnAndNoStops) {
    EXPECT_FALSE(Display(L"m?", true, Press(L"cmdClose")));
    EXPECT_TRUE(Display(L"m?", true, Press(L"cmdStopTest")));
}

TEST_F(FrmComment, ClosingAQuestionThroughTheFrameAnswersYes) {
    EXPECT_TRUE(Display(L"m?", true, Press(L"cmdStopTest")));
    EXPECT_FALSE(Display(L"m?", true, CloseFrame()));
}

TEST_F(FrmComment, ClosingANotificationThroughTheFrameGoesOnAndKeepsSizesAndTheLostToolTip) {
    Ask(L"m?");
    EXPECT_FALSE(Display(L"one\r\ntwo", false, CloseFrame()));
    EXPECT_EQ(form->cmdClose.top, 730.0F);
    EXPECT_EQ(form->height, 1240.0F);
    host->user.Expect({String(Name), {Press(L"cmdClose")}, {{L"cmdStopTest", L"T(9312)"}}});
    form->DisplayMessage(L"m", false);
    EXPECT_EQ(form->cmdStopTest.toolTip, L"");
}

TEST_F(FrmComment, TheAnswerOfTheCallBeforeIsForgotten) {
    EXPECT_TRUE(Display(L"m", false, Press(L"cmdStopTest")));
    EXPECT_FALSE(Display(L"m", false, Do([](Form& shown) { shown.Hide(); })));
}

TEST_F(FrmComment, EscapeIsNoAnswer) {
    host->user.Expect({String(Name), {sim::PressKey(Keys::Escape), Press(L"cmdStopTest")}, {}});
    EXPECT_TRUE(form->DisplayMessage(L"m", false));
}

TEST_F(FrmComment, TheFormIsTranslatedOnceWithTheFirstMessage) {
    EXPECT_TRUE(host->journal.Lines().empty());
    Notify(L"m");
    EXPECT_THAT(host->journal.LinesOf(L"Language"),
                ElementsAre(L"Language.Text(9351)", L"Language.Text(6)", L"Language.Text(9312)",
                            L"Language.Text(9313)"));
    host->journal.Clear();
    Ask(L"m");
    EXPECT_TRUE(host->journal.LinesOf(L"Language").empty());
}

TEST_F(FrmComment, WithoutLanguageDataTheDesignCaptionsServe) {
    host->texts = {{9351, L""}, {6, L""}, {9312, L"Halt"}, {9313, L"Ends it"}};
    Notify(L"m");
    EXPECT_EQ(form->cmdClose.caption, L"&OK");
    EXPECT_EQ(form->cmdStopTest.caption, L"Halt");
    EXPECT_EQ(form->cmdStopTest.toolTip, L"Ends it");
}

TEST_F(FrmComment, TheListOfCommentsHoldsNogoAndIsHidden) {
    Notify(L"m");
    EXPECT_THAT(form->cboComment.list, ElementsAre(L"NOGO"));
    EXPECT_EQ(form->cboComment.listIndex, 0);
    EXPECT_FALSE(form->cboComment.visible);
}

TEST_F(FrmComment, AHostWithoutAScreenGoesOn) {
    ThreadContext plain;
    EXPECT_FALSE(MakeCommentForm(plain)->DisplayMessage(L"m", false));
}

// ---- sizes: label top 240, a line 195 high, buttons 100 below; at design height 1710, top 1200
// ----

TEST_F(FrmComment, AtDesignTheFormHasTheSizesOfItsDesign) {
    EXPECT_EQ(form->width, 5970.0F);
    EXPECT_EQ(form->height, 1710.0F);
    EXPECT_EQ(form->lblComment.top, 240.0F);
    for (const Button* button : {&form->cmdClose, &form->cmdStopTest}) {
        EXPECT_EQ(button->top, 1200.0F);
        EXPECT_EQ(button->width, 1215.0F);
        EXPECT_EQ(button->height, 375.0F);
    }
    EXPECT_LT(form->cmdClose.left, form->cmdStopTest.left);
}

TEST_F(FrmComment, TheButtonsLieBelowTheMessageAndTheHeightFollowsFromWhatTheLastCallLeft) {
    struct Call {
        StringView message;
        float top;     // 240 + 195 a line + 100
        float height;  // height before - (top before - top)
    };
    for (const Call& call :
         {Call{L"one", 535, 1045}, Call{L"one\r\ntwo", 730, 1240}, Call{L"one", 535, 1045},
          Call{L"1\r\n2\r\n3\r\n4\r\n5", 1315, 1825}, Call{L"", 535, 1045}}) {
        Notify(call.message);
        EXPECT_EQ(form->cmdClose.top, call.top);
        EXPECT_EQ(form->cmdStopTest.top, call.top);
        EXPECT_EQ(form->height, call.height);
        EXPECT_EQ(form->lblComment.top, 240.0F);
    }
}

TEST_F(FrmComment, TheHeightIsAskedForTheWidthOfTheLabel) {
    Notify(L"m");
    EXPECT_THAT(host->journal.LinesOf(L"FormHost.TextHeight"),
                ElementsAre(L"FormHost.TextHeight(\"m\", 4890)"));
}

TEST_F(FrmComment, FractionalHeightsDriftByTheRoundingOfTheOldTop) {
    host->user.textHeight = [](const String&, float) { return 195.5F; };
    Notify(L"m");
    EXPECT_EQ(form->cmdClose.top, 535.5F);
    EXPECT_EQ(form->height, 1045.5F);  // 1710 - (1200 - 535.5)
    Notify(L"m");
    EXPECT_EQ(form->height, 1045.0F);  // 1045.5 - (536 - 535.5): 535.5 rounds up to the even 536
    Notify(L"m");
    EXPECT_EQ(form->height, 1044.5F);
    host->user.textHeight = [](const String&, float) { return 196.5F; };
    Notify(L"m");
    EXPECT_EQ(form->height, 1045.0F);  // 1044.5 - (536 - 536.5)
    Notify(L"m");
    EXPECT_EQ(form->height, 1045.5F);  // 1045 - (536 - 536.5): 536.5 rounds down to the even 536
}

// ---- from inside --------------------------------------------------------------------------------

TEST_F(FrmComment, AMessageFromInsideTakesTheFormOverAndOneAnswerServesBothCalls) {
    Boolean inner;
    const auto askAgain = [&](Form& shown) {
        inner = Display(L"inner", false, Press(L"cmdStopTest"));
        EXPECT_FALSE(shown.IsShown());
    };
    EXPECT_TRUE(Display(L"outer", false, Do(askAgain)));
    EXPECT_TRUE(inner);
    EXPECT_THAT(
        TakeEffects(),
        ElementsAre(L"FormHost.ShowModal(\"frmComment\", \"T(9351)\", lblComment \"outer\", "
                    L"imgStop, cmdClose \"T(6)\", cmdStopTest \"T(9312)\" tip \"T(9313)\")",
                    L"FormHost.ShowModal(\"frmComment\", \"T(9351)\", lblComment \"inner\", "
                    L"imgStop, cmdClose \"T(6)\", cmdStopTest \"T(9312)\" tip \"T(9313)\")",
                    L"FormHost.Hide(\"frmComment\")"));
}

TEST_F(FrmComment, ANotificationInsideAQuestionKeepsItsWordsUntilTheQuestionEnds) {
    const auto tell = [&](Form&) {
        Notify(L"inner");
        EXPECT_TRUE(form->imgQue.visible);
        EXPECT_EQ(form->cmdClose.caption, L"Yes");
    };
    EXPECT_FALSE(Display(L"outer?", true, Do(tell)));
    EXPECT_FALSE(form->imgQue.visible);
    EXPECT_TRUE(form->imgStop.visible);
    EXPECT_EQ(form->cmdClose.caption, L"T(6)");
    EXPECT_EQ(form->cmdStopTest.caption, L"T(9312)");
}

TEST_F(FrmComment, AQuestionInsideAQuestionLeavesTheDesignCaptionsInTheEnd) {
    const auto ask = [&](Form&) { Ask(L"inner?"); };
    EXPECT_FALSE(Display(L"outer?", true, Do(ask)));
    EXPECT_EQ(form->cmdClose.caption, L"T(6)");
    EXPECT_EQ(form->cmdStopTest.caption, L"T(9312)");
    EXPECT_EQ(form->cmdStopTest.toolTip, L"");
}

// ---- failures of the host -----------------------------------------------------------------------

TEST_F(FrmComment, AFailingScreenComesOutAndTheWordsOfTheQuestionAreTakenBack) {
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 1234);
    EXPECT_EQ(ErrorOf([&] { form->DisplayMessage(L"m?", true); }), 1234);
    EXPECT_FALSE(form->IsShown());
    EXPECT_EQ(form->cmdClose.caption, L"T(6)");
    EXPECT_TRUE(form->imgStop.visible);
    EXPECT_TRUE(Display(L"m?", true, Press(L"cmdStopTest")));
}

TEST_F(FrmComment, AFailingTranslationComesOutAndIsTriedAgain) {
    host->faults.FailOperation(L"Language.Text", 2, 1234);
    EXPECT_EQ(ErrorOf([&] { form->DisplayMessage(L"m", false); }), 1234);
    host->journal.Clear();
    Notify(L"m");
    EXPECT_EQ(host->journal.LinesOf(L"Language").size(), 4U);
}

}  // namespace
}  // namespace ace::test
