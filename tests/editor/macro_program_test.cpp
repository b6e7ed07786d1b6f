// The macro of an API action: its choice, its inputs, and what the dialog takes over.
#include "editor/macro_bench.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class MacroProgram : public MacroBench {};

// ---- choosing ----------------------------------------------------------------------------------

TEST_F(MacroProgram, ANewActionHasNoProgramAndNoTabs) {
    OpenTemplate();
    AddMacro({See(L"filAPIProgram", L""), HasNoTabs(), PressCancel});
    EXPECT_THAT(TakeCalls(), ElementsAre(DialogShown, DialogHidden));
}

TEST_F(MacroProgram, AProgramIsLoadedWithoutParametersAndAskedForItsInputs) {
    OpenTemplate();
    AddMacro({ForgetCalls(), TakeProgram(L"log.mac"), HasTabs(3, 0), HasValue(L""),
              Do([](Form& form) {
                  EXPECT_EQ(CaptionsOf(*form.Find<TabStrip>(L"tabAPIParameter")),
                            (Lines{L"INPUT1", L"INPUT2", L"INPUT3"}));
              }),
              PressCancel});
    EXPECT_THAT(TakeCalls(),
                ElementsAre(MacroLoaded(L"log.mac"), CountAsked, KindAsked(1), DialogHidden));
}

TEST_F(MacroProgram, AProgramWhoseFirstInputIsATableShowsTheBoxOfTables) {
    OpenTemplate();
    AddMacro({TakeProgram(L"table.mac"), HasTabs(1, 0), HasTable(L""), PressCancel});
}

TEST_F(MacroProgram, AProgramThatCannotBeLoadedIsToldAndTakenOutOfTheBox) {
    const String text = L"broken.mac is no macro (broken.mac)";
    OpenTemplate();
    AnswerBox(text);
    AddMacro({TakeProgram(L"log.mac"), ForgetCalls(), TakeProgram(L"broken.mac"),
              See(L"filAPIProgram", L""), HasNoTabs(), PressCancel});
    EXPECT_THAT(TakeCalls(),
                ElementsAre(MacroLoaded(L"broken.mac"),
                            BoxShown(text, IUserDialogs::Critical, L"T(24500)"), DialogHidden));
}

TEST_F(MacroProgram, AnEmptyNameHidesTheTabsAndLoadsNothing) {
    OpenTemplate();
    AddMacro({TakeProgram(L"log.mac"), ForgetCalls(), TakeProgram(L""), HasNoTabs(), PressCancel});
    EXPECT_THAT(TakeCalls(), ElementsAre(DialogHidden));
}

TEST_F(MacroProgram, AProgramWithoutInputsHasNoTabsAndOneEmptyParameter) {
    OpenTemplate();
    AddMacro({TakeProgram(L"log.mac"), TypeValue(L"5"), ForgetCalls(), TakeProgram(L"plain.mac"),
              HasNoTabs(), PressOk});
    EXPECT_THAT(TakeCalls(),
                ElementsAre(MacroLoaded(L"plain.mac"), CountAsked, EntryTaken, DialogHidden));
    EXPECT_EQ(StoredMacro().Program, L"plain.mac");
    EXPECT_EQ(StoredMacro().Parameters.LowerBound(), 0);
    EXPECT_EQ(StoredMacro().Parameters.UpperBound(), 0);
    EXPECT_EQ(StoredMacro().Parameters[0], L"");
}

TEST_F(MacroProgram, AnotherProgramKeepsWhatFitsOfTheParameters) {
    host->macros[L"two.mac"].parameters = {ValueKind, TableKind};
    OpenTemplate();
    AddMacro({TakeProgram(L"two.mac"), TypeValue(L"5"), GoToTab(1), TakeTable(L"Levels"),
              GoToTab(0), TakeProgram(L"log.mac"), HasTabs(3, 0), HasValue(L"5"), GoToTab(1),
              HasTable(L"Levels"), GoToTab(2), HasValue(L""), TypeValue(L"7"),
              TakeProgram(L"one.mac"), HasTabs(1, 0), HasValue(L"5"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"5"));
}

TEST_F(MacroProgram, AnotherProgramShowsItsFirstTab) {
    host->macros[L"two.mac"].parameters = {ValueKind, ValueKind};
    OpenTemplate();
    AddMacro({TakeProgram(L"two.mac"), TypeValue(L"5"), GoToTab(1), HasTabs(2, 1),
              TakeProgram(L"log.mac"), HasTabs(3, 0), HasValue(L"5"), PressCancel});
}

TEST_F(MacroProgram, TheSameProgramChosenAgainKeepsWhatWasEntered) {
    host->macros[L"LOG.MAC"].parameters = host->macros[L"log.mac"].parameters;
    OpenTemplate();
    AddMacro({TakeProgram(L"log.mac"), TypeValue(L"5"), TakeProgram(L"log.mac"), HasTabs(3, 0),
              HasValue(L"5"), PressCancel});
    AddMacro({TakeProgram(L"log.mac"), TypeValue(L"5"), GoToTab(1), TakeTable(L"Levels"),
              GoToTab(2), TypeValue(L"7"), TakeProgram(L"LOG.MAC"), HasTabs(3, 0), GoToTab(1),
              HasTable(L"Levels"), GoToTab(2), HasValue(L"7"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"5", L"Levels", L"7"));
}

TEST_F(MacroProgram, AProgramThatCouldNotBeLookedAtIsTakenOutOfTheBoxAndNotTakenOver) {
    for (const StringView call : {L"ApiMacro.Load", L"ApiMacro.ParameterCount"}) {
        OpenTemplate({Macro(L"log.mac", {L"5", L"Levels", L"7"})});
        AnswerBox(L"T(9209)");
        EditLine({Do([&](Form& form) {
                      host->faults.FailOperation(call, 1, 57);
                      EXPECT_EQ(ErrorOf([&] { TakeProgram(L"one.mac")(form); }), 57);
                      host->faults.Clear();
                  }),
                  See(L"filAPIProgram", L""), HasNoTabs(), PressOk, PressCancel});
        EXPECT_EQ(StoredMacro().Program, L"log.mac");
        EXPECT_THAT(StoredParameters(), ElementsAre(L"5", L"Levels", L"7"));
        EXPECT_FALSE(engine->Change());
    }
}

// ---- existing actions --------------------------------------------------------------------------

TEST_F(MacroProgram, AnExistingActionLoadsItsProgramAndShowsItsFirstParameter) {
    const p_Action action = Macro(L"log.mac", {L"1.5", L"Levels", L"#POWER#"});
    OpenTemplate({action});
    EditLine({See(L"filAPIProgram", L"log.mac"), HasTabs(3, 0), HasValue(L"1.5"), ForgetCalls(),
              GoToTab(1), HasTable(L"Levels"), GoToTab(2), HasValue(L"#POWER#"), PressOk});
    EXPECT_EQ(State().MainTest.Enter[0], action);
    EXPECT_FALSE(engine->Change());
}

TEST_F(MacroProgram, TheProgramOfAnExistingActionIsAskedForItsInputsAsAfterAChoice) {
    OpenTemplate({Macro(L"log.mac", {L"1.5", L"Levels", L"2"})});
    EditLine({PressCancel});
    EXPECT_THAT(TakeCalls(), ElementsAre(MacroLoaded(L"log.mac"), CountAsked, KindAsked(1),
                                         DialogShown, DialogHidden));
}

TEST_F(MacroProgram, TheProgramThatWasLookedAtLastIsNotLoadedAgainWhateverItsCase) {
    OpenTemplate({Macro(L"one.mac", {L"3"}), Macro(L"ONE.MAC", {L"4"})});
    EditLine({PressCancel});
    TakeCalls();
    EditLine({HasTabs(1, 0), HasValue(L"4"), PressCancel}, L"CHI1ETE");
    EXPECT_THAT(TakeCalls(), ElementsAre(CountAsked, KindAsked(1), DialogShown, DialogHidden));
}

TEST_F(MacroProgram, AnExistingActionThatIsConfirmedAtOnceIsNoChange) {
    for (const p_Action& action : {Macro(L"plain.mac"), Macro(L"one.mac", {L"3"}),
                                   Macro(L"log.mac", {L"1.5", L"Levels", L"2"})}) {
        OpenTemplate({action});
        EditLine({PressOk});
        EXPECT_EQ(State().MainTest.Enter[0], action);
        EXPECT_FALSE(engine->Change());
    }
}

TEST_F(MacroProgram, AnActionWithFewerParametersThanItsProgramAsksForTheOthers) {
    OpenTemplate({Macro(L"log.mac", {L"1", L"Levels"})});
    AnswerBox(L"T(21093)");
    EditLine({HasTabs(3, 0), HasValue(L"1"), PressOk, HasTabs(3, 2), HasValue(L""), TypeValue(L"4"),
              PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"1", L"Levels", L"4"));
    EXPECT_TRUE(engine->Change());
}

TEST_F(MacroProgram, AnActionWithMoreParametersThanItsProgramLosesTheOthers) {
    OpenTemplate({Macro(L"one.mac", {L"1", L"Levels", L"4"})});
    EditLine({HasTabs(1, 0), HasValue(L"1"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"1"));
    EXPECT_TRUE(engine->Change());
}

TEST_F(MacroProgram, AnActionWithoutParametersAsksForThoseOfItsProgram) {
    OpenTemplate({Macro(L"one.mac")});
    EditLine({HasTabs(1, 0), HasValue(L""), TypeValue(L"8"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"8"));
}

TEST_F(MacroProgram, TwoActionsOfOneProgramEachShowTheirOwnParameters) {
    OpenTemplate(
        {Macro(L"log.mac", {L"1", L"Levels", L"2"}), Macro(L"log.mac", {L"3", L"Fields", L"4"})});
    EditLine({GoToTab(1), HasTable(L"Levels"), PressCancel});
    EditLine({HasTabs(3, 0), HasValue(L"3"), GoToTab(1), HasTable(L"Fields"), GoToTab(2),
              HasValue(L"4"), PressOk},
             L"CHI1ETE");
    EditLine({HasTabs(3, 0), HasValue(L"1"), PressOk});
    EXPECT_THAT(StoredParameters(0), ElementsAre(L"1", L"Levels", L"2"));
    EXPECT_THAT(StoredParameters(1), ElementsAre(L"3", L"Fields", L"4"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(MacroProgram, ANewActionBehindAnotherOneBeginsWithoutItsProgram) {
    OpenTemplate({Macro(L"log.mac", {L"1", L"Levels", L"2"})});
    EditLine({GoToTab(2), PressCancel});
    AddMacro({See(L"filAPIProgram", L""), HasNoTabs(), TakeProgram(L"log.mac"), HasTabs(3, 0),
              HasValue(L""), PressCancel});
}

TEST_F(MacroProgram, AnExistingActionWhoseProgramCannotBeLoadedIsToldAndNeedsAnother) {
    OpenTemplate({Macro(L"broken.mac", {L"1"})});
    AnswerBox(L"broken.mac is no macro (broken.mac)");
    AnswerBox(L"T(9209)");
    EditLine({See(L"filAPIProgram", L""), HasNoTabs(), PressOk, SeeFocus(L"filAPIProgram"),
              PressCancel});
    EXPECT_EQ(State().MainTest.Enter[0], Macro(L"broken.mac", {L"1"}));
    EXPECT_FALSE(engine->Change());
}

// ---- entries -----------------------------------------------------------------------------------

TEST_F(MacroProgram, WithoutAProgramNothingIsTaken) {
    OpenTemplate();
    AnswerBox(L"T(9209)");
    AddMacro({PressOk, SeeFocus(L"filAPIProgram"), PressCancel});
    EXPECT_THAT(TakeCalls(),
                ElementsAre(DialogShown, EntryTaken, EntryRefused(L"T(9209)"), DialogHidden));
    EXPECT_EQ(State().MainTest.EnterCount, 0);
    EXPECT_FALSE(engine->Change());
}

TEST_F(MacroProgram, ANewActionIsTakenWithAllParametersAndShowsItsProgram) {
    OpenTemplate();
    AddMacro({TakeProgram(L"log.mac"), TypeValue(L"1,5"), GoToTab(1), TakeTable(L"Levels"),
              GoToTab(2), TypeValue(L"#POWER#"), PressOk});
    EXPECT_EQ(StoredMacro().Program, L"log.mac");
    EXPECT_THAT(StoredParameters(), ElementsAre(L"1.5", L"Levels", L"#POWER#"));
    EXPECT_EQ(LinesBelow(L"ETE"), Lines{L"T(9078): log.mac"});
    EXPECT_TRUE(engine->Change());
}

TEST_F(MacroProgram, AParameterThatDiffersInCaseAloneIsNoChange) {
    OpenTemplate({Macro(L"one.mac", {L"#power#"})});
    EditLine({TypeValue(L"#POWER#"), PressOk});
    EXPECT_THAT(StoredParameters(), ElementsAre(L"#power#"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(MacroProgram, APaneWithoutATestButtonRunsNoMacro) {
    OpenTemplate({Macro(L"one.mac", {L"1"})});
    EditLine({TypeValue(L"2"), PressOk});
    EXPECT_THAT(host->journal.LinesOf(L"ApiMacro.Execute"), ElementsAre());
}

}  // namespace
}  // namespace ace::test
