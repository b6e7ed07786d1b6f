#include <ace/host/forms.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Controls of every kind, and what their handlers saw.
class Panes : public Form {
  public:
    Panes() : Form(L"Panes", 0, 3000.0F, 2000.0F) {}

    Frame fraOuter{*this, L"fraOuter", {.caption = L"Outer"}};
    Frame fraInner{fraOuter, L"fraInner", {.caption = L"Inner"}};
    TextBox txtName{fraInner, L"txtName"};
    TabStrip tabPages{fraOuter, L"tabPages", {}, {{L"A"}, {L"B"}, {L"C", false}}};
    FileBox filPage{tabPages, L"filPage"};
    ValueBox txtTime{*this, L"txtTime", {}, {L"s", 0.5, 3600.0, 2, L"10.00"}};
    OptionGroup optMode{*this, L"optMode", {}, {{L"Generator", 201}, {L"Monitor"}}, 0};
    DropDown cboPath{*this, L"cboPath", {}, {L"A1", L"A2"}};
    Picture imgDevice{*this, L"imgDevice"};

    std::vector<String> seen;
};

// ---- which act a kind has ----------------------------------------------------------------------

template <class Kind>
concept CanBeTypedInto = requires(Kind control) {
    control.Type(String());
};
template <class Kind>
concept CanBeTicked = requires(Kind control) {
    control.Tick(true);
};
template <class Kind>
concept CanBeClicked = requires(Kind control) {
    control.Click();
};
template <class Kind>
concept CanBeChosenFrom = requires(Kind control) {
    control.Choose(0);
};

static_assert(CanBeTypedInto<TextBox> && CanBeTypedInto<ValueBox>);
static_assert(!CanBeTypedInto<Label> && !CanBeTypedInto<Button> && !CanBeTypedInto<DropDown>);
static_assert(CanBeTicked<CheckBox> && !CanBeTicked<Label> && !CanBeTicked<Button>);
static_assert(CanBeClicked<Button> && CanBeClicked<Picture> && !CanBeClicked<Label>);
static_assert(CanBeChosenFrom<DropDown> && CanBeChosenFrom<OptionGroup>);
static_assert(!CanBeChosenFrom<TextBox> && !CanBeChosenFrom<Frame>);

TEST(Controls, AControlIsFoundAsItsKindAndAsNoOther) {
    Panes form;
    EXPECT_EQ(form.Find<TextBox>(L"txtName"), &form.txtName);
    EXPECT_EQ(form.Find<ValueBox>(L"txtName"), nullptr);
    EXPECT_EQ(form.Find<Frame>(L"tabPages"), nullptr);
    EXPECT_EQ(form.Find<TextBox>(L"txtGone"), nullptr);
}

// ---- frames ------------------------------------------------------------------------------------

TEST(Controls, AFieldInAHiddenFrameDoesNotShowAndCannotBeReached) {
    Panes form;
    EXPECT_TRUE(form.txtName.IsUsable());
    form.fraOuter.visible = false;
    EXPECT_FALSE(form.txtName.IsShown());
    EXPECT_FALSE(form.txtName.IsUsable());
    EXPECT_TRUE(form.txtName.visible);
    EXPECT_TRUE(form.fraInner.visible);
    EXPECT_TRUE(form.txtTime.IsUsable());
}

TEST(Controls, AFieldInADisabledFrameShowsAndCannotBeReached) {
    Panes form;
    form.fraInner.enabled = false;
    EXPECT_TRUE(form.txtName.IsShown());
    EXPECT_FALSE(form.txtName.IsUsable());
}

TEST(Controls, WhatStandsOnATabStripHidesWithIt) {
    Panes form;
    EXPECT_EQ(form.filPage.Parent(), &form.tabPages);
    form.tabPages.visible = false;
    EXPECT_FALSE(form.filPage.IsUsable());
    EXPECT_EQ(form.fraOuter.Parent(), nullptr);
}

TEST(Controls, ControlsInFramesAreControlsOfTheFormInTheirOrder) {
    Panes form;
    std::vector<String> names;
    for (const Control* control : form.Controls()) {
        names.push_back(control->Name());
    }
    EXPECT_THAT(names, ElementsAre(L"fraOuter", L"fraInner", L"txtName", L"tabPages", L"filPage",
                                   L"txtTime", L"optMode", L"cboPath", L"imgDevice"));
}

TEST(Controls, LabelsFramesAndPicturesNeverTakeTheFocus) {
    Panes form;
    const Label label(form, L"lbl");
    EXPECT_FALSE(label.TakesFocus());
    EXPECT_FALSE(form.fraOuter.TakesFocus());
    EXPECT_FALSE(form.imgDevice.TakesFocus());
    EXPECT_TRUE(form.txtName.TakesFocus());
    EXPECT_TRUE(form.tabPages.TakesFocus());
}

// ---- caret and selection -----------------------------------------------------------------------

TEST(Controls, AnInsertedTextGoesToTheCaretWhichGoesOnBehindIt) {
    Panes form;
    form.txtName.onChange = [&] { form.seen.push_back(form.txtName.text); };
    form.txtName.text = L"FREQ  MHz";
    form.txtName.selectionStart = 5;
    form.txtName.Insert(L"#FREQ#");
    form.txtName.Insert(L"!");
    EXPECT_THAT(form.seen, ElementsAre(L"FREQ #FREQ# MHz", L"FREQ #FREQ#! MHz"));
    EXPECT_EQ(form.txtName.selectionStart, 12);
}

TEST(Controls, AnInsertedTextTakesThePlaceOfTheSelection) {
    Panes form;
    form.txtName.text = L"abcdef";
    form.txtName.selectionStart = 1;
    form.txtName.selectionLength = 3;
    form.txtName.Insert(L"-");
    EXPECT_EQ(form.txtName.text, L"a-ef");
    EXPECT_EQ(form.txtName.selectionStart, 2);
    EXPECT_EQ(form.txtName.selectionLength, 0);
}

TEST(Controls, ASelectionThatReachesBeyondTheTextEndsWithIt) {
    Panes form;
    form.txtName.text = L"abc";
    form.txtName.selectionStart = 2;
    form.txtName.selectionLength = 9;
    form.txtName.Insert(L"-");
    EXPECT_EQ(form.txtName.text, L"ab-");
    form.txtName.text = L"x";
    form.txtName.Insert(L"y");
    EXPECT_EQ(form.txtName.text, L"xy");
    form.txtName.selectionStart = -4;
    form.txtName.Insert(L"z");
    EXPECT_EQ(form.txtName.text, L"zxy");
}

TEST(Controls, SelectAllSelectsTheWholeTextAndTypingEndsWithTheCaretBehindIt) {
    Panes form;
    form.txtName.text = L"abc";
    form.txtName.SelectAll();
    EXPECT_EQ(form.txtName.selectionStart, 0);
    EXPECT_EQ(form.txtName.selectionLength, 3);
    form.txtName.Type(L"four");
    EXPECT_EQ(form.txtName.selectionStart, 4);
    EXPECT_EQ(form.txtName.selectionLength, 0);
}

TEST(Controls, DroppedFilesAreHandedToTheBoxAndIgnoredByOneThatTakesNone) {
    Panes form;
    form.txtName.Drop({L"C:\\a.wav"});
    EXPECT_EQ(form.txtName.text, L"");
    form.txtName.onDrop = [&](const std::vector<String>& files) { form.seen = files; };
    form.txtName.Drop({L"C:\\a.wav", L"C:\\b.wav"});
    EXPECT_THAT(form.seen, ElementsAre(L"C:\\a.wav", L"C:\\b.wav"));
}

// ---- value boxes -------------------------------------------------------------------------------

TEST(Controls, TheValueIsTheNumberAtTheStartOfTheTextWithPointOrComma) {
    Panes form;
    const std::pair<StringView, double> cases[] = {
        {L"10.00", 10.0}, {L"0,25", 0.25},   {L"  7 s", 7.0}, {L"-3.5", -3.5}, {L"+2", 2.0},
        {L"", 0.0},       {L"abc", 0.0},     {L"1.5.9", 1.5}, {L".5", 0.5},    {L"5.", 5.0},
        {L"1e3", 1.0},    {L"inf", 0.0},     {L"nan", 0.0},   {L"-", 0.0},     {L"--2", 0.0},
        {L"0x10", 0.0},   {L"3\x00A0s", 3.0}};
    for (const auto& [text, value] : cases) {
        form.txtTime.text = text;
        EXPECT_EQ(form.txtTime.Value(), value) << testing::PrintToString(String(text));
    }
}

TEST(Controls, AValueBeyondTheRangeOfADoubleIsBeyondEveryLimit) {
    Panes form;
    form.txtTime.text = String(400, L'9');
    EXPECT_FALSE(form.txtTime.IsInLimits());
    EXPECT_GT(form.txtTime.Value(), 1e308);
    form.txtTime.text = L"-" + String(400, L'9');
    EXPECT_LT(form.txtTime.Value(), -1e308);
    form.txtTime.text = L"0." + String(400, L'0') + L"1";
    EXPECT_EQ(form.txtTime.Value(), 0.0);
}

TEST(Controls, BothLimitsAreInside) {
    Panes form;
    const std::pair<StringView, bool> cases[] = {
        {L"0.5", true}, {L"3600", true}, {L"0.49", false}, {L"3600.01", false}};
    for (const auto& [text, isInside] : cases) {
        form.txtTime.text = text;
        EXPECT_EQ(form.txtTime.IsInLimits(), isInside) << testing::PrintToString(String(text));
    }
}

TEST(Controls, TheEndOfAnInputIsReportedOnceAndOnlyWhenSomethingWasTyped) {
    Panes form;
    form.txtTime.onEndInput = [&] { form.seen.push_back(L"end " + form.txtTime.text); };
    form.SetFocus(form.txtTime);
    form.SetFocus(form.txtName);
    EXPECT_THAT(form.seen, IsEmpty());
    form.SetFocus(form.txtTime);
    form.txtTime.Type(L"0");
    form.txtTime.EndInput();
    form.SetFocus(form.txtName);
    EXPECT_THAT(form.seen, ElementsAre(L"end 0"));
    form.SetFocus(form.txtTime);
    form.txtTime.Type(L"7");
    form.SetFocus(form.txtName);
    EXPECT_THAT(form.seen, ElementsAre(L"end 0", L"end 7"));
}

TEST(Controls, AnInputThatGoesOnWhenTheFormIsHiddenIsNeverReported) {
    Panes form;
    form.txtTime.onEndInput = [&] { form.seen.push_back(L"end " + form.txtTime.text); };
    class Cancelled : public DefaultFormHost {
        void ShowModal(Form& shown) override {
            auto& box = *shown.Find<ValueBox>(L"txtTime");
            shown.SetFocus(box);
            box.Type(L"0");
            shown.Hide();
        }
    } screen;
    form.ShowModal(screen);
    form.SetFocus(form.txtTime);
    form.SetFocus(form.txtName);
    EXPECT_THAT(form.seen, IsEmpty());
    EXPECT_EQ(form.txtTime.text, L"0");
}

// ---- choices -----------------------------------------------------------------------------------

TEST(Controls, ChoosingAnOptionRunsTheHandlerAlsoWhenItIsChosenAlready) {
    Panes form;
    form.optMode.onClick = [&] { form.seen.push_back(std::to_wstring(form.optMode.index)); };
    form.optMode.Choose(1);
    form.optMode.Choose(1);
    EXPECT_THAT(form.seen, ElementsAre(L"1", L"1"));
    EXPECT_EQ(ErrorOf([&] { form.optMode.Choose(2); }), 5);
    EXPECT_EQ(ErrorOf([&] { form.optMode.Choose(-1); }), 5);
    EXPECT_EQ(form.optMode.index, 1);
}

TEST(Controls, AFilledListHasTheNewItemsAndNoneOfThemIsChosen) {
    Panes form;
    form.cboPath.onClick = [&] { form.seen.push_back(L"click"); };
    form.cboPath.listIndex = 1;
    form.cboPath.otherText = L"A9";
    form.cboPath.Fill({L"B1", L"B2", L"B3"});
    EXPECT_THAT(form.cboPath.list, ElementsAre(L"B1", L"B2", L"B3"));
    EXPECT_EQ(form.cboPath.listIndex, -1);
    EXPECT_EQ(form.cboPath.Text(), L"");
    EXPECT_THAT(form.seen, IsEmpty());
}

TEST(Controls, ADropDownShowsTheOtherTextWhileNothingIsChosen) {
    Panes form;
    EXPECT_EQ(form.cboPath.Text(), L"");
    form.cboPath.otherText = L"A9";
    EXPECT_EQ(form.cboPath.Text(), L"A9");
    form.cboPath.Choose(1);
    EXPECT_EQ(form.cboPath.Text(), L"A2");
    form.cboPath.list.clear();
    EXPECT_EQ(form.cboPath.Text(), L"A9");
}

TEST(Controls, ATabThatComesToTheFrontIsToldWithTheOneBefore) {
    Panes form;
    form.tabPages.onSelect = [&](std::int32_t before) {
        form.seen.push_back(std::to_wstring(before) + L" to " +
                            std::to_wstring(form.tabPages.current));
    };
    form.tabPages.Select(1);
    form.tabPages.Select(1);
    EXPECT_THAT(form.seen, ElementsAre(L"0 to 1"));
}

TEST(Controls, AHandlerCanGoBackToTheTabThatIsLeft) {
    Panes form;
    form.tabPages.onSelect = [&](std::int32_t before) { form.tabPages.current = before; };
    form.tabPages.Select(1);
    EXPECT_EQ(form.tabPages.current, 0);
}

TEST(Controls, AHiddenTabAndOneThatIsNotThereAreError5) {
    Panes form;
    EXPECT_EQ(ErrorOf([&] { form.tabPages.Select(2); }), 5);
    EXPECT_EQ(ErrorOf([&] { form.tabPages.Select(3); }), 5);
    EXPECT_EQ(ErrorOf([&] { form.tabPages.Select(-1); }), 5);
    EXPECT_EQ(form.tabPages.current, 0);
}

TEST(Controls, AFileBoxTakesAFileAndATableWithTypeAndClass) {
    Panes form;
    form.filPage.onChange = [&] { form.seen.push_back(form.filPage.fileName); };
    form.filPage.ChooseFile(L"C:\\a.mac");
    form.filPage.ChooseTable(3, 2, L"Level");
    EXPECT_THAT(form.seen, ElementsAre(L"C:\\a.mac", L"Level"));
    EXPECT_EQ(form.filPage.tableType, 3);
    EXPECT_EQ(form.filPage.tableMeasClass, 2);
}

// ---- pictures ----------------------------------------------------------------------------------

TEST(Controls, ALeftPressOnAPictureIsAClickUnlessThePressWasAllOfIt) {
    Panes form;
    bool isDone = false;
    form.imgDevice.onMouseDown = [&](std::int32_t button) {
        form.seen.push_back(L"down " + std::to_wstring(button));
        return isDone;
    };
    form.imgDevice.onClick = [&] { form.seen.push_back(L"click"); };
    form.imgDevice.Press(MouseButtons::Left);
    form.imgDevice.Press(MouseButtons::Right);
    isDone = true;
    form.imgDevice.Press(MouseButtons::Left);
    EXPECT_THAT(form.seen, ElementsAre(L"down 1", L"click", L"down 2", L"down 1"));
}

TEST(Controls, OptionsAreTranslatedByTheirNumbers) {
    class Words : public ILanguage {
        String Text(std::int32_t number) override { return L"w" + std::to_wstring(number); }
    } words;
    Panes form;
    words.TranslateForm(form);
    EXPECT_EQ(form.optMode.options[0].caption, L"w201");
    EXPECT_EQ(form.optMode.options[1].caption, L"Monitor");
}

}  // namespace
}  // namespace ace::test
