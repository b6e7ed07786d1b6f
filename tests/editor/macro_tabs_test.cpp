// The tabs of a macro's inputs: each change of tab stores one parameter and shows the next.
#include "editor/macro_bench.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class MacroTabs : public MacroBench {
  protected:
    /// The record on which the dialog works.
    Lines Held() { return ParametersOf(Parts().held.Records.Api); }
    FormAct Holds(const Lines& parameters) {
        return Do([this, parameters](Form&) { EXPECT_EQ(Held(), parameters); });
    }
};

TEST_F(MacroTabs, AnotherTabStoresTheParameterThatIsLeftAndShowsItsOwn) {
    OpenTemplate({Macro(L"log.mac", {L"1", L"Levels", L"2"})});
    EditLine({ForgetCalls(), TypeValue(L"11"), GoToTab(2), Holds({L"11", L"Levels", L"2"}),
              HasTabs(3, 2), HasValue(L"2"), TypeValue(L"22"), GoToTab(1),
              Holds({L"11", L"Levels", L"22"}), HasTable(L"Levels"), TakeTable(L"Fields"),
              GoToTab(0), Holds({L"11", L"Fields", L"22"}), HasValue(L"11"), PressCancel});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"1", L"Levels", L"2"));
}

TEST_F(MacroTabs, WhatIsTypedIntoTheTabInFrontIsTakenWithTheOthers) {
    OpenTemplate({Macro(L"log.mac", {L"1", L"Levels", L"2"})});
    EditLine({GoToTab(2), TypeValue(L"3"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"1", L"Levels", L"3"));
}

TEST_F(MacroTabs, AValueIsANumberOrAVariableAndItsCommaBecomesAPoint) {
    const std::pair<String, String> rows[] = {{L"0", L"0"},           {L"12", L"12"},
                                              {L"-3.25", L"-3.25"},   {L"1,5", L"1.5"},
                                              {L"#FREQ#", L"#FREQ#"}, {L"#a b#", L"#a b#"}};
    for (const auto& row : rows) {
        OpenTemplate();
        AddMacro({TakeProgram(L"log.mac"), TypeValue(row.first), GoToTab(1), HasTabs(3, 1),
                  Holds({row.second, L"", L""}), PressCancel});
    }
}

TEST_F(MacroTabs, AnyOtherValueIsRefusedAndTheTabStaysWithItsField) {
    for (const String typed : {L"", L"abc", L"12 V", L"#", L"##", L"#FREQ", L"FREQ#", L"1.2.3"}) {
        OpenTemplate();
        AnswerBox(L"T(21093)");
        AddMacro({TakeProgram(L"log.mac"), TypeValue(typed), ForgetCalls(), GoToTab(1),
                  HasTabs(3, 0), HasValue(typed), SeeFocus(L"txtAPIParameterValue"), PressCancel});
        EXPECT_THAT(TakeCalls(), ElementsAre(EntryRefused(L"T(21093)"), DialogHidden))
            << testing::PrintToString(typed);
    }
}

TEST_F(MacroTabs, AMissingTableIsRefusedAndTheTabStaysWithItsField) {
    OpenTemplate();
    AnswerBox(L"T(21094)");
    AddMacro({TakeProgram(L"log.mac"), TypeValue(L"1"), GoToTab(1), ForgetCalls(), GoToTab(2),
              HasTabs(3, 1), HasTable(L""), SeeFocus(L"filAPIParameterTable"), TakeTable(L"Levels"),
              GoToTab(2), HasTabs(3, 2), PressCancel});
    const Lines boxes = host->journal.LinesOf(L"UserDialogs");
    EXPECT_THAT(boxes, ElementsAre(EntryRefused(L"T(21094)")));
}

TEST_F(MacroTabs, AConfirmedDialogRefusesTheFirstParameterThatIsWrongAndBringsItsTabToTheFront) {
    struct Row {
        Lines parameters;
        std::int32_t tab;
        String text;
        String field;
    };
    const Row rows[] = {{{L"", L"", L""}, 0, L"T(21093)", L"txtAPIParameterValue"},
                        {{L"1", L"", L""}, 1, L"T(21094)", L"filAPIParameterTable"},
                        {{L"1", L"Levels", L""}, 2, L"T(21093)", L"txtAPIParameterValue"},
                        {{L"1", L"Levels", L"two"}, 2, L"T(21093)", L"txtAPIParameterValue"}};
    for (const Row& row : rows) {
        OpenTemplate({Macro(L"log.mac", row.parameters)});
        AnswerBox(row.text);
        EditLine({ForgetCalls(), PressOk, HasTabs(3, row.tab), SeeFocus(row.field), PressCancel});
        EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), ElementsAre(EntryRefused(row.text)));
        EXPECT_EQ(State().MainTest.Enter[0], Macro(L"log.mac", row.parameters));
        EXPECT_FALSE(engine->Change());
    }
}

TEST_F(MacroTabs, ARefusedDialogIsConfirmedOnceEveryParameterIsRight) {
    OpenTemplate();
    AnswerBox(L"T(21093)");
    AnswerBox(L"T(21094)");
    AnswerBox(L"T(21093)");
    AddMacro({TakeProgram(L"log.mac"), PressOk, TypeValue(L"1"), PressOk, HasTabs(3, 1),
              HasTable(L""), TakeTable(L"Levels"), PressOk, HasTabs(3, 2), HasValue(L""),
              TypeValue(L"2,5"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"1", L"Levels", L"2.5"));
}

TEST_F(MacroTabs, ATabThatIsInFrontAlreadyStoresNothing) {
    OpenTemplate();
    AddMacro({TakeProgram(L"log.mac"), TypeValue(L"wrong"), ForgetCalls(), GoToTab(0),
              HasValue(L"wrong"), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), ElementsAre());
}

TEST_F(MacroTabs, VariablesAreOfferedBesideAValueOfAWirelessModuleAlone) {
    OpenTemplate();
    AddMacro({TakeProgram(L"one.mac"), SeeShown({}, {L"cb_show_VKSVars(2)"}), PressCancel});
    Open(aceVKSTemplate);
    AnswerMenu(L"DUT Power");
    AddMacro({TakeProgram(L"one.mac"), SeeShown({L"cb_show_VKSVars(2)"}),
              Press(L"cb_show_VKSVars(2)"), HasValue(L"#POWER#"), PressOk});
    EXPECT_EQ(ParametersOf(std::get<aceAPI>(State().VKSTemplate.Enter[0].Parameter)),
              Lines{L"#POWER#"});
}

}  // namespace
}  // namespace ace::test
