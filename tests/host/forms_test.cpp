#include <ace/host/forms.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

/// A form that writes down which of its handlers ran.
class SampleForm : public Form {
  public:
    SampleForm() : Form(L"SampleForm", 100, 3000.0F, 2000.0F) {
        txtName.onChange = [this] { seen.push_back(L"change " + txtName.text); };
        txtName.onLeave = [this] { seen.push_back(L"leave, focus on " + Focus()->Name()); };
        chkBeep.onClick = [this] { seen.push_back(chkBeep.ticked ? L"ticked" : L"unticked"); };
        cboPort.onClick = [this] { seen.push_back(L"item " + std::to_wstring(cboPort.listIndex)); };
        cmdOK.onClick = [this] { seen.push_back(L"OK"); };
    }

    TextBox txtName{*this, L"txtName"};
    CheckBox chkBeep{*this, L"chkBeep", {.caption = L"Beep", .captionNumber = 101}};
    DropDown cboPort{*this, L"cboPort", {}, {L"COM1", L"COM2"}};
    Button cmdOK{*this, L"cmdOK", {.caption = L"&OK", .captionNumber = 6, .toolTipNumber = 102}};

    std::vector<String> seen;
    std::function<void()> onLoad;

  protected:
    void Loaded() override {
        seen.push_back(L"load");
        if (onLoad) {
            onLoad();
        }
    }
};

/// A screen whose operator does one thing.
class ScriptedScreen : public DefaultFormHost {
  public:
    explicit ScriptedScreen(std::function<void(Form&)> act) : x_act(std::move(act)) {}
    void ShowModal(Form& form) override { x_act(form); }
    void Hide(Form& form) override { hidden.push_back(form.Name()); }

    std::vector<String> hidden;

  private:
    std::function<void(Form&)> x_act;
};

TEST(Forms, ControlsAreListedInTheOrderOfTheirDeclaration) {
    SampleForm form;
    std::vector<String> names;
    for (const Control* control : form.Controls()) {
        names.push_back(control->Name());
    }
    EXPECT_THAT(names, ElementsAre(L"txtName", L"chkBeep", L"cboPort", L"cmdOK"));
    EXPECT_EQ(form.Controls()[1]->Kind(), ControlKind::CheckBox);
}

TEST(Forms, AControlIsFoundByItsName) {
    SampleForm form;
    EXPECT_EQ(form.Find(L"cmdOK"), &form.cmdOK);
    EXPECT_EQ(form.Find(L"cmdok"), nullptr);
}

TEST(Forms, ActsSetTheFieldAndRunTheHandlerAlsoWithoutAChange) {
    SampleForm form;
    form.txtName.Type(L"a");
    form.txtName.Type(L"a");
    form.chkBeep.Tick(true);
    form.chkBeep.Tick(false);
    form.cboPort.Choose(1);
    form.cboPort.Choose(-1);
    form.cmdOK.Click();
    EXPECT_THAT(form.seen, ElementsAre(L"change a", L"change a", L"ticked", L"unticked", L"item 1",
                                       L"item -1", L"OK"));
}

TEST(Forms, SettingAFieldRunsNothing) {
    SampleForm form;
    form.txtName.text = L"b";
    form.chkBeep.ticked = true;
    form.cboPort.listIndex = 0;
    form.cmdOK.caption = L"Go";
    EXPECT_TRUE(form.seen.empty());
}

TEST(Forms, ChoosingWhatTheListDoesNotHoldIsError5AndChangesNothing) {
    SampleForm form;
    form.cboPort.listIndex = 1;
    EXPECT_EQ(ErrorOf([&] { form.cboPort.Choose(2); }), 5);
    EXPECT_EQ(ErrorOf([&] { form.cboPort.Choose(-2); }), 5);
    EXPECT_EQ(form.cboPort.listIndex, 1);
    EXPECT_TRUE(form.seen.empty());
}

TEST(Forms, AHiddenOrDisabledControlIsNotUsableButTheProgramActsOnIt) {
    SampleForm form;
    EXPECT_TRUE(form.cmdOK.IsUsable());
    form.cmdOK.visible = false;
    EXPECT_FALSE(form.cmdOK.IsUsable());
    form.cmdOK.visible = true;
    form.cmdOK.enabled = false;
    EXPECT_FALSE(form.cmdOK.IsUsable());
    form.cmdOK.Click();
    EXPECT_THAT(form.seen, ElementsAre(L"OK"));
}

TEST(Forms, MovingTheFocusRunsTheLeaveHandlerOfTheControlThatHadIt) {
    SampleForm form;
    EXPECT_EQ(form.Focus(), nullptr);
    form.SetFocus(form.txtName);
    form.SetFocus(form.txtName);
    EXPECT_TRUE(form.seen.empty());
    form.SetFocus(form.cmdOK);
    EXPECT_THAT(form.seen, ElementsAre(L"leave, focus on cmdOK"));
    EXPECT_EQ(form.Focus(), &form.cmdOK);
}

/// Shows the form to an operator who goes to the name, and looks at the focus afterwards.
void ShowAndGoToTheName(SampleForm& form, const std::function<void(Form&)>& end) {
    ScriptedScreen screen([&](Form& shown) {
        shown.SetFocus(form.txtName);
        end(shown);
    });
    form.ShowModal(screen);
}

TEST(Forms, HidingTakesTheFocusAwayWithoutALeaveHandler) {
    SampleForm form;
    ShowAndGoToTheName(form, [](Form& shown) { shown.Hide(); });
    EXPECT_EQ(form.Focus(), nullptr);
    form.SetFocus(form.cmdOK);
    EXPECT_THAT(form.seen, ElementsAre(L"load"));
    EXPECT_EQ(form.Focus(), &form.cmdOK) << "a hidden form can be told where its show begins";
}

TEST(Forms, AShowThatEndsWithoutHidingTakesTheFocusAwayToo) {
    SampleForm form;
    ShowAndGoToTheName(form, [](Form&) {});
    EXPECT_EQ(form.Focus(), nullptr);
    EXPECT_EQ(ErrorOf([&] { ShowAndGoToTheName(form, [](Form&) { Raise(Errors::Overflow); }); }),
              6);
    EXPECT_EQ(form.Focus(), nullptr);
    EXPECT_THAT(form.seen, ElementsAre(L"load"));
}

TEST(Forms, AnInnerShowThatFailsLeavesTheFocusToTheOuterOne) {
    SampleForm form;
    ScriptedScreen broken([](Form&) { Raise(Errors::Overflow); });
    ShowAndGoToTheName(form, [&](Form& shown) {
        EXPECT_EQ(ErrorOf([&] { shown.ShowModal(broken); }), 6);
        EXPECT_EQ(shown.Focus(), &form.txtName);
        shown.Hide();
    });
}

TEST(Forms, TheLoadHandlerRunsOnceHoweverOftenTheFormIsShown) {
    SampleForm form;
    ScriptedScreen screen([](Form& shown) { shown.Hide(); });
    form.ShowModal(screen);
    form.ShowModal(screen);
    form.Load();
    EXPECT_THAT(form.seen, ElementsAre(L"load"));
}

TEST(Forms, ALoadThatFailedIsTriedAgain) {
    SampleForm form;
    form.onLoad = [] { Raise(Errors::Overflow); };
    EXPECT_EQ(ErrorOf([&] { form.Load(); }), 6);
    form.onLoad = nullptr;
    form.Load();
    EXPECT_THAT(form.seen, ElementsAre(L"load", L"load"));
}

TEST(Forms, HidingIsToldToTheScreenOnceAndOnlyWhileTheFormIsShown) {
    SampleForm form;
    form.Hide();
    ScriptedScreen screen([](Form& shown) {
        EXPECT_TRUE(shown.IsShown());
        shown.Hide();
        EXPECT_FALSE(shown.IsShown());
        shown.Hide();
    });
    form.ShowModal(screen);
    EXPECT_THAT(screen.hidden, ElementsAre(L"SampleForm"));
}

TEST(Forms, AFormIsHiddenAfterItsShowHoweverThatEnds) {
    SampleForm form;
    ScriptedScreen idle([](Form&) {});
    form.ShowModal(idle);
    EXPECT_FALSE(form.IsShown());
    ScriptedScreen broken([](Form&) { Raise(Errors::Overflow); });
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(broken); }), 6);
    EXPECT_FALSE(form.IsShown());
}

TEST(Forms, HidingTheInnerShowEndsTheOuterOne) {
    SampleForm form;
    ScriptedScreen inner([](Form& shown) { shown.Hide(); });
    ScriptedScreen outer([&](Form& shown) {
        shown.ShowModal(inner);
        EXPECT_FALSE(shown.IsShown());
    });
    form.ShowModal(outer);
    EXPECT_FALSE(form.IsShown());
    EXPECT_THAT(inner.hidden, ElementsAre(L"SampleForm"));
}

TEST(Forms, AnInnerShowThatFailsLeavesTheOuterOneToItsOperator) {
    SampleForm form;
    ScriptedScreen broken([](Form&) { Raise(Errors::Overflow); });
    ScriptedScreen outer([&](Form& shown) {
        EXPECT_EQ(ErrorOf([&] { shown.ShowModal(broken); }), 6);
        EXPECT_TRUE(shown.IsShown());
        shown.Hide();
    });
    form.ShowModal(outer);
    EXPECT_THAT(outer.hidden, ElementsAre(L"SampleForm"));
}

TEST(Forms, AFormWithoutAnotherAnswerIsHiddenByItsFrameAndDeafToKeys) {
    SampleForm form;
    ScriptedScreen screen([](Form& shown) {
        shown.PressKey(Keys::Escape);
        EXPECT_TRUE(shown.IsShown());
        shown.CloseByFrame();
        EXPECT_FALSE(shown.IsShown());
    });
    form.ShowModal(screen);
}

TEST(Forms, AHostWithoutAScreenClosesEveryFormAtOnce) {
    SampleForm form;
    DefaultFormHost screen;
    form.ShowModal(screen);
    EXPECT_FALSE(form.IsShown());
    EXPECT_EQ(screen.TextHeight(L"two\r\nlines", 1000.0F), 0.0F);
}

TEST(Forms, TranslationSetsTitleCaptionsAndToolTipsOfTheNumbersThatTheFormStores) {
    class Words : public ILanguage {
        String Text(std::int32_t number) override { return L"w" + std::to_wstring(number); }
    } words;
    SampleForm form;
    form.txtName.caption = L"kept";
    words.TranslateForm(form);
    EXPECT_EQ(form.title, L"w100");
    EXPECT_EQ(form.chkBeep.caption, L"w101");
    EXPECT_EQ(form.chkBeep.toolTip, L"");
    EXPECT_EQ(form.cmdOK.caption, L"w6");
    EXPECT_EQ(form.cmdOK.toolTip, L"w102");
    EXPECT_EQ(form.txtName.caption, L"kept");
}

TEST(Forms, ANumberWithoutATextKeepsTheWordsOfTheDesign) {
    SampleForm form;
    DefaultLanguage().TranslateForm(form);
    EXPECT_EQ(form.cmdOK.caption, L"&OK");
}

}  // namespace
}  // namespace ace::test
