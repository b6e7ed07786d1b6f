#include "editor/drag_effects.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class DragTarget : public DragEffects {};

// ---- beside the nodes --------------------------------------------------------------------------

TEST_F(DragTarget, TheNodeUnderTheMouseIsHighlightedOnce) {
    OpenWhole(aceTemplate);
    EXPECT_EQ(tree.DragOver(KindDragged(atWait), L"LTE"), DropEffects::Copy);
    EXPECT_EQ(Highlighted(), L"LTE");
    EXPECT_THAT(TakeEffects(), ElementsAre(L"Tree.SetDropHighlight(\"LTE\")"));
    EXPECT_EQ(tree.DragOver(KindDragged(atTrackFreq), L"CHI0ETE"), DropEffects::None);
    EXPECT_EQ(Highlighted(), L"CHI0ETE") << "also where nothing can be dropped";
}

TEST_F(DragTarget, BesideTheNodesTheLastOneStaysTheTarget) {
    OpenWhole(aceTemplate);
    EXPECT_EQ(tree.DragOver(KindDragged(atTrackFreq), L"EFR"), DropEffects::Copy);
    EXPECT_EQ(tree.DragOver(KindDragged(atTrackFreq), std::nullopt), DropEffects::Copy);
    EXPECT_EQ(tree.DragOver(KindDragged(atNotify), std::nullopt), DropEffects::None);
    EXPECT_EQ(Highlighted(), L"EFR");
}

struct DefaultTarget {
    aceModul moduleKind;
    StringView key;
    p_ActionTypes kind;
    std::int32_t effect;
};
constexpr DefaultTarget DefaultTargets[] = {
    {aceTemplate, L"ETE", atWait, DropEffects::Copy},
    {aceTemplate, L"ETE", atTestStop, DropEffects::None},
    {aceMonitoring, L"NGO0", atTestStop, DropEffects::Copy},
    {aceMonitoring, L"NGO0", atCheckEut, DropEffects::None},
    {aceEMSAutoTemplateGeneral, L"ETE", atWait, DropEffects::Copy},
    {aceEMSAutoTemplate, L"STE0", atWait, DropEffects::Copy},
    {aceEMIAutoTemplate, L"ETE", atParkAcc, DropEffects::None},
    {aceTSTemplate, L"ETE", atWait, DropEffects::Copy},
    {aceAziChart, L"ETE", atWait, DropEffects::Copy},
    {aceVKSTemplate, L"ETE", atQuestion, DropEffects::None},
    {aceVKSTemplate, L"ETE", atWait, DropEffects::Copy},
};

TEST_F(DragTarget, BesideTheNodesWithoutAnEarlierTargetItIsTheDefaultNode) {
    for (const DefaultTarget& row : DefaultTargets) {
        OpenWhole(row.moduleKind);
        EXPECT_EQ(tree.DragOver(KindDragged(row.kind), std::nullopt), row.effect)
            << row.moduleKind << " " << row.kind;
        EXPECT_EQ(Highlighted(), row.key) << row.moduleKind;
        EXPECT_EQ(SelectedKey(), L"") << row.moduleKind;
    }
}

TEST_F(DragTarget, WhereTheDefaultNodeIsMissingNothingCanBeDropped) {
    for (const std::int32_t matrix : {RowsAsRoots, GlobalLists, RowsInGroups}) {
        OpenWhole(aceVKSDUT, matrix);
        EXPECT_EQ(tree.DragOver(KindDragged(atWait), std::nullopt), DropEffects::None) << matrix;
        EXPECT_EQ(Highlighted(), L"") << matrix;
    }
    State().MoniChannelCount = 0;
    State().MoniChannels.Erase();
    OpenWhole(aceMonitoring);
    EXPECT_EQ(tree.DragOver(KindDragged(atWait), std::nullopt), DropEffects::None);
    EXPECT_EQ(Highlighted(), L"");
}

TEST_F(DragTarget, ATargetThatGoesWithItsListIsNoneAnyMore) {
    OpenWhole(aceTemplate);
    EXPECT_EQ(tree.DragOver(KindDragged(atWait), L"CHI1EFR"), DropEffects::Copy);
    OpenWhole(aceMonitoring);
    EXPECT_EQ(tree.DragOver(KindDragged(atCheckEut), std::nullopt), DropEffects::None);
    EXPECT_EQ(Highlighted(), L"NGO0");
}

// ---- what is none of the editor's --------------------------------------------------------------

TEST_F(DragTarget, WhatHasNoTextOrAnotherOneCanNotBeDroppedAndHighlightsNothing) {
    OpenWhole(aceTemplate);
    tree.DragOver(KindDragged(atWait), L"LTE");
    const DragData others[] = {{}, {L""}, {L"ETE"}, {L" ACT:0"}, {L"XACT:0"}, {L"ACT0"}, {L"ACT"}};
    for (const DragData& data : others) {
        EXPECT_EQ(EffectsOver(data, L"ETE"), Nothing) << testing::PrintToString(data.text);
        EXPECT_EQ(Highlighted(), L"LTE") << testing::PrintToString(data.text);
    }
}

TEST_F(DragTarget, ANumberThatIsNoKindCanNotBeDropped) {
    OpenWhole(aceMonitoring);  // where a loop takes every kind
    for (const StringView text :
         {L"ACT:", L"ACT:x", L"ACT:-1", L"ACT:18", L"ACT:999", L"ACT:12345678901234"}) {
        Select(L"LTE");
        EXPECT_EQ(EffectsOver({String(text)}, L"BFT"), Nothing) << testing::PrintToString(text);
        Select(L"CHI0LTE");
        EXPECT_EQ(EffectsOver({String(text)}, L"CHI1LTE"), Nothing) << testing::PrintToString(text);
    }
}

// ---- what is a line ----------------------------------------------------------------------------

/// A text, and its effects over the end of the test and over every frequency.
struct LineText {
    StringView text;
    StringView overEnd;
    StringView overFrequency;
};
/// The end refuses what sends the test elsewhere; a frequency takes followers, devices and checks
/// alone. Three letters that are no icon are those of a line of which nothing is known.
constexpr LineText LineTexts[] = {
    {L"ACT:0ACT:1000,WAI", Moves, Nothing}, {L"ACT:0ACT:1000,STP", Nothing, Nothing},
    {L"ACT:0ACT:1000,DEV", Moves, Moves},   {L"ACT:xACT:1000EUT", Moves, Moves},
    {L"ACT:1000STP", Nothing, Nothing},     {L"ACT:1000", Moves, Nothing},
    {L"ACT:10001", Moves, Nothing},
};

TEST_F(DragTarget, ATextWithTheNumberOfALineAnywhereIsALineOfTheIconInItsLastThreeLetters) {
    OpenWhole(aceTemplate);
    Select(L"CHI0ETE");
    for (const LineText& row : LineTexts) {
        const DragData data{String(row.text)};
        EXPECT_EQ(EffectsOver(data, L"LTE"), row.overEnd) << testing::PrintToString(row.text);
        EXPECT_EQ(EffectsOver(data, L"EFR"), row.overFrequency) << testing::PrintToString(row.text);
    }
}

// ---- captions ----------------------------------------------------------------------------------

TEST_F(DragTarget, AMomentIsKnownByItsCaption) {
    host->texts[9055] = L"T(9052)";  // a subrange is left, as every frequency
    OpenWhole(aceTemplate);
    EXPECT_EQ(EffectsOver(KindDragged(atNotify), L"LSR0"), Nothing);
    EXPECT_EQ(EffectsOver(KindDragged(atTrackFreq), L"LSR1"), Copies);
    Select(L"CHI0ETE");
    EXPECT_EQ(EffectsOver(LineDragged(L"WAI"), L"LSR0"), Nothing);
    EXPECT_EQ(EffectsOver(LineDragged(L"DEV"), L"LSR0"), Moves);
}

// ---- outcomes ----------------------------------------------------------------------------------

TEST_F(DragTarget, ADragChangesNothing) {
    OpenWhole(aceVKSTemplate);
    const ModuleLists before = Store();
    Select(L"CHI1LTE");
    for (const String& key : AllKeys()) {
        EffectsOver(LineDragged(L"WAI"), key);
    }
    EXPECT_EQ(SelectedKey(), L"CHI1LTE");
    ExpectLists(before, false);
    EXPECT_EQ(Happened(), Lines{});
}

TEST_F(DragTarget, AFailureIsReportedAndComesOutAtTheTree) {
    OpenWhole(aceTemplate);
    host->faults.FailOperation(L"Tree.HitTest", 1, 57);
    EXPECT_EQ(ErrorOf([&] { tree.DragOver(KindDragged(atWait), L"LTE"); }), 57);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
}

}  // namespace
}  // namespace ace::test
