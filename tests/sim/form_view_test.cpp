#include "sim/form_view.h"

#include "support/fixture.h"

namespace ace::test {
namespace {

/// A control of every kind.
class Everything : public Form {
  public:
    Everything() : Form(L"Everything", 0, 1000.0F, 800.0F) { title = L"All kinds"; }

    Label lblText{*this, L"lblText", {.caption = L"Hello"}};
    Frame fraPane{*this, L"fraPane", {.caption = L"Pane"}};
    Button cmdOK{*this, L"cmdOK", {.caption = L"&OK", .toolTip = L"Take it"}};
    TextBox txtName{fraPane, L"txtName", {}, L"a\r\nb"};
    ValueBox txtTime{fraPane, L"txtTime", {}, {L"s", 0.001, 3600.0, {}, L"10.5"}};
    Frame fraInner{fraPane, L"fraInner", {.visible = false}};
    CheckBox chkBeep{fraInner, L"chkBeep", {.caption = L"Beep", .enabled = false}, true};
    DropDown cboPort{fraInner, L"cboPort", {}, {L"COM1", L"COM2"}, 1};
    OptionGroup optMode{*this, L"optMode", {}, {{L"Generator"}, {L"Monitor"}}, 1};
    TabStrip tabPages{*this, L"tabPages", {}, {{L"INPUT1"}, {L"INPUT2"}, {L"INPUT3", false}}};
    FileBox filTable{tabPages, L"filTable", {}, {L"Level", true, 3, 2}};
    FileBox filProgram{*this, L"filProgram", {}, {L"a.mac"}};
    Picture imgStop{*this, L"imgStop"};
};

TEST(FormView, HasALineForEachControlWithThoseOfAFrameBelowIt) {
    Everything form;
    EXPECT_EQ(sim::FormView(form),
              L"Everything \"All kinds\", 1000 x 800\n"
              L"  lblText label \"Hello\"\n"
              L"  fraPane frame \"Pane\"\n"
              L"    txtName text box \"a\\r\\nb\"\n"
              L"    txtTime value box \"10.5\" s (0.001 to 3600)\n"
              L"    fraInner frame \"\" hidden\n"
              L"      chkBeep check box \"Beep\" ticked disabled\n"
              L"      cboPort drop-down \"COM2\" of \"COM1\" *\"COM2\"\n"
              L"  cmdOK button \"&OK\" tip \"Take it\"\n"
              L"  optMode options \"Generator\" *\"Monitor\"\n"
              L"  tabPages tabs *\"INPUT1\" \"INPUT2\" \"INPUT3\" (hidden)\n"
              L"    filTable file box \"Level\" table 3/2\n"
              L"  filProgram file box \"a.mac\"\n"
              L"  imgStop picture\n");
}

TEST(FormView, ShowsFocusSelectionAndWhatIsNotChosen) {
    Everything form;
    form.SetFocus(form.txtName);
    form.txtName.SelectAll();
    form.cboPort.listIndex = -1;
    form.cboPort.otherText = L"COM9";
    form.optMode.index = -1;
    const String view = sim::FormView(form);
    EXPECT_THAT(view,
                ::testing::StartsWith(L"Everything \"All kinds\", 1000 x 800, focus on txtName\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"txtName text box \"a\\r\\nb\" selected 0+4\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"cboPort drop-down \"COM9\" of \"COM1\" \"COM2\"\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"optMode options \"Generator\" \"Monitor\"\n"));
}

TEST(FormView, ShowsWhereAControlStandsInItsParentUnlessThatIsLeftToTheView) {
    Everything form;
    form.width = 1480.5F;
    form.fraInner.top = 240.0F;
    form.cmdOK.left = 60.0F;
    form.cmdOK.width = 1215.0F;
    form.cmdOK.height = 375.0F;
    const String view = sim::FormView(form);
    EXPECT_THAT(view, ::testing::StartsWith(L"Everything \"All kinds\", 1480.5 x 800\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"    fraInner frame \"\" at 0, 240, 0 x 0 hidden\n"));
    EXPECT_THAT(
        view, ::testing::HasSubstr(L"cmdOK button \"&OK\" tip \"Take it\" at 60, 0, 1215 x 375\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"imgStop picture\n"));
}

TEST(FormView, PlacesAndSizesCanBeLeftOut) {
    Everything form;
    form.width = 1480.5F;
    form.fraInner.top = 240.0F;
    form.cmdOK.width = 1215.0F;
    form.SetFocus(form.cmdOK);
    const String view = sim::FormView(form, sim::Places::Left);
    EXPECT_THAT(view, ::testing::StartsWith(L"Everything \"All kinds\", focus on cmdOK\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"    fraInner frame \"\" hidden\n"));
    EXPECT_THAT(view, ::testing::HasSubstr(L"  cmdOK button \"&OK\" tip \"Take it\"\n"));
}

TEST(FormView, WhatAnOperatorReadsLeavesOutWhatAHiddenFrameHolds) {
    Everything form;
    EXPECT_EQ(sim::FormText(form),
              L"\"Everything\", \"All kinds\", lblText \"Hello\", fraPane \"Pane\", "
              L"cmdOK \"&OK\" tip \"Take it\", txtName \"a\\r\\nb\", txtTime \"10.5\", "
              L"optMode \"Monitor\", tabPages \"INPUT1\", filTable \"Level\", "
              L"filProgram \"a.mac\", imgStop");
}

}  // namespace
}  // namespace ace::test
