/// The row that the print fills.
#include <ace/dialogs/settings_print.h>

#include "dialogs/print_fixture.h"

namespace ace::test {
namespace {

class PrintedText : public PrintTest {};

TEST_F(PrintedText, ATemplateWithoutAnyActionYieldsASingleCarriageReturnInBothElements) {
    EXPECT_EQ(Print(aceTemplate), NothingPrinted);
}

TEST_F(PrintedText, ATemplateWithOnlyAFrequencyActionIsHeadingTitleAndTheLineOfThatAction) {
    Fill(State().MainTest, FreqList, {WaitFor(1500)});
    EXPECT_EQ(Print(aceTemplate),
              (PrintedRow{L"T(18153):\rT(9052)\r   T(9063): \t1.500 s\r", PrintLayout}));
}

TEST_F(PrintedText, TheLayoutIsTheSameInEveryModuleThatPrintsSomething) {
    for (const ModuleRow& module : ModuleTable) {
        for (const FixedSet& fixed : module.AllFixed()) {
            Fill(State().*fixed.set, EnterList, {Protect});
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            MakeSets(numbered.sets, numbered.count, 1);
            Fill((State().*numbered.sets)[0], EnterList, {Protect});
        }
        const String expected = module.moduleKind == aceVKSDUT ? L"\r" : PrintLayout;
        EXPECT_EQ(Print(module.moduleKind)[1], expected) << module.moduleKind;
    }
}

TEST_F(PrintedText, TheMatrixPrintsNothingWhateverItHas) {
    Fill(State().VKSDUTGlob, EnterList, {Protect});
    MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 1);
    Fill(State().VKSSteps[0], EnterList, {Protect});
    EXPECT_EQ(Print(aceVKSDUT), NothingPrinted);
}

TEST_F(PrintedText, AModuleKindOutsideTheMembersPrintsNothing) {
    FillStart({Protect});
    EXPECT_EQ(Print(static_cast<aceModul>(9)), NothingPrinted);
    EXPECT_EQ(Print(static_cast<aceModul>(-1)), NothingPrinted);
}

TEST_F(PrintedText, AListWithoutLinesHasNoTitle) {
    FillStart({Broken(), Action(static_cast<p_ActionTypes>(18), aceWait{1})});
    Fill(State().MainTest, LeaveList, {Protect});
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9056)\r" + ProtectLine);
    Fill(State().MainTest, LeaveList, {Broken()});
    EXPECT_EQ(Print(aceTemplate), NothingPrinted);
}

TEST_F(PrintedText, TheActionsOfAListStandBelowOneTitleInTheirOrder) {
    FillStart({WaitFor(1), Protect, WaitFor(2)});
    EXPECT_EQ(TextOf(aceTemplate),
              Heading + L"T(9051)\r" + WaitLine(L"0.001") + ProtectLine + WaitLine(L"0.002"));
}

TEST_F(PrintedText, WirelessModulesPrintLongMessagesWholeAndOthersCutThem) {
    const String message(90, L'x');
    Fill(State().VKSTemplate, EnterList, {Tell(message)});
    FillStart({Tell(message)});
    EXPECT_EQ(TextOf(aceVKSTemplate), Heading + L"T(9092)\r   T(9064): \t\"" + message + L"\"\r");
    EXPECT_EQ(TextOf(aceTemplate),
              Heading + L"T(9051)\r   T(9064): \t\"" + String(67, L'x') + L"...\"\r");
}

// ---- which sets
// ----------------------------------------------------------------------------------

TEST_F(PrintedText, SetsWithoutLinesAreLeftOutAndTheOthersKeepTheirNumbers) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 11);
    Fill(State().MainSubranges[1], LeaveList, {WaitFor(1)});
    Fill(State().MainSubranges[10], EnterList, {WaitFor(2)});
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9053) 2: T(9055)\r" + WaitLine(L"0.001") +
                                       L"T(9053) 11: T(9054)\r" + WaitLine(L"0.002"));
}

TEST_F(PrintedText, NumbersHaveNoSeparators) {
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1234);
    Fill(State().MoniChannels[1233], EnterList, {Protect});
    EXPECT_EQ(TextOf(aceMonitoring), Heading + L"T(21000) 1234: T(9057)\r" + ProtectLine);
}

TEST_F(PrintedText, AnEmissionStepHasAWordOfItsOwnHoweverManyThereAre) {
    MakeSets(&ModuleLists::EMIAutoSteps, &ModuleLists::EMIAutoStepCount, 40);
    Fill(State().EMIAutoSteps[0], LeaveList, {Protect});
    Fill(State().EMIAutoSteps[39], EnterList, {Protect});
    EXPECT_EQ(TextOf(aceEMIAutoTemplate),
              Heading + L"T(9080): T(9091)\r" + ProtectLine + L"T(9119): T(9090)\r" + ProtectLine);
}

TEST_F(PrintedText, TheCountOfTheSetsRulesAndNotTheArray) {
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 3);
    for (p_Subrange& set : State().TSTests) {
        Fill(set, EnterList, {Protect});
    }
    const String one = L"T(9101): T(9094)\r" + ProtectLine;
    State().TSTestCount = 2;
    EXPECT_EQ(TextOf(aceTSTemplate), Heading + one + one);
    for (const std::int32_t none : {0, -1}) {
        State().TSTestCount = none;
        EXPECT_EQ(Print(aceTSTemplate), NothingPrinted);
    }
}

TEST_F(PrintedText, ACountBeyondTheArrayIsError9BehindTheSetsThatAreThere) {
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 1);
    Fill(State().TSTests[0], EnterList, {Protect});
    State().TSTestCount = 2;
    EXPECT_EQ(PrintError(aceTSTemplate), 9);
    EXPECT_EQ(Row(), (PrintedRow{L"T(9101): T(9094)\r" + ProtectLine, PrintLayout}));
    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
}

// ---- the row
// -------------------------------------------------------------------------------------

TEST_F(PrintedText, GoesIntoTheOneRowAndLeavesTheOthersAlone) {
    FillStart({Protect});
    rows.Redim(5, 7, 0, 1);
    rows(5, 0) = rows(7, 1) = L"other";
    printer->PrintStrings(aceTemplate, *engine, rows, 6);
    EXPECT_EQ(Row(5), (PrintedRow{L"other", L""}));
    EXPECT_EQ(Row(6), (PrintedRow{Heading + L"T(9051)\r" + ProtectLine, PrintLayout}));
    EXPECT_EQ(Row(7), (PrintedRow{L"", L"other"}));
}

TEST_F(PrintedText, WhatTheRowHeldBeforeStaysAndIsHeadedToo) {
    FillStart({Protect});
    rows(0, 0) = L"Title of the page\r";
    rows(0, 1) = L"old layout";
    printer->PrintStrings(aceTemplate, *engine, rows, 0);
    EXPECT_EQ(Row(),
              (PrintedRow{Heading + L"Title of the page\rT(9051)\r" + ProtectLine, PrintLayout}));
}

TEST_F(PrintedText, WithoutLinesAnOldTextIsHeadedAndKeepsTheLayout) {
    rows(0, 0) = L"Title of the page";
    EXPECT_EQ(PrintError(aceTemplate), 0);
    EXPECT_EQ(Row(), (PrintedRow{Heading + L"Title of the page", PrintLayout}));
}

TEST_F(PrintedText, ASecondPrintIntoTheSameRowStandsBehindTheFirstBelowItsOwnHeading) {
    FillStart({Protect});
    const String block = L"T(9051)\r" + ProtectLine;
    PrintError(aceTemplate);
    PrintError(aceTemplate);
    EXPECT_EQ(Row()[0], Heading + Heading + block + block);
}

TEST_F(PrintedText, AMissingArrayOrRowIsError9AndFillsNothing) {
    FillStart({Protect});
    EXPECT_EQ(PrintError(aceTemplate, 1), 9);
    EXPECT_EQ(PrintError(aceTemplate, -1), 9);
    EXPECT_EQ(Row(), PrintedRow{});
    EXPECT_EQ(TakeEffects(), (Lines{SubscriptReported, SubscriptReported}));
    rows.Erase();
    EXPECT_EQ(PrintError(aceTemplate), 9);
}

TEST_F(PrintedText, WithoutTheColumnOfTheLayoutNoTextIsWritten) {
    FillStart({Protect});
    rows.Redim(0, 0, 0, 0);
    EXPECT_EQ(PrintError(aceTemplate), 9);
    EXPECT_EQ(rows(0, 0), L"");
}

TEST_F(PrintedText, WithoutTheColumnOfTheTextTheLayoutHasBeenWritten) {
    for (const bool hasLines : {false, true}) {
        FillStart(hasLines ? std::vector<p_Action>{Protect} : std::vector<p_Action>{});
        rows.Redim(0, 0, 1, 1);
        EXPECT_EQ(PrintError(aceTemplate), 9);
        EXPECT_EQ(rows(0, 1), PrintLayout);
    }
}

}  // namespace
}  // namespace ace::test
