#include <ace/editor/places.h>

#include "editor/edited_moments.h"

namespace ace::test {
namespace {

/// What a place has before a node is asked for it; no node of these trees has any of it.
constexpr std::int32_t Other = 77;
constexpr std::int32_t Untouched = 55;
constexpr p_PerformTimes NoTime = static_cast<p_PerformTimes>(99);
constexpr Place Before{NoTime, Other, Untouched};

struct PlaceRow {
    aceModul moduleKind;
    StringView key;
    Place place;
    std::int32_t matrix = RowsAsRoots;
};
void PrintTo(const PlaceRow& row, std::ostream* out) {
    *out << row.moduleKind << " " << testing::PrintToString(String(row.key));
}

/// Enter lists have one line, leave lists two, those of a frequency three, that of the end four.
const PlaceRow PlaceRows[] = {
    // A line: the number in its moment's key, and its place among its siblings from 1.
    {aceTemplate, L"CHI0ETE", {ptStartTest, 0, 1}},
    {aceTemplate, L"CHI2EFR", {ptEveryFreq, 0, 3}},
    {aceTemplate, L"CHI0ESR1", {ptEnterSubRange, 1, 1}},
    {aceTemplate, L"CHI1LSR1", {ptLeaveSubrange, 1, 2}},
    {aceTemplate, L"CHI0LSR0", {ptLeaveSubrange, 0, 1}},
    {aceTemplate, L"CHI1LTE", {ptStopTest, 0, 2}},
    {aceMonitoring, L"CHI1TRI1", {ptTrigger, 1, 2}},
    {aceMonitoring, L"CHI0NGO1", {ptNoGo, 1, 1}},
    {aceMonitoring, L"CHI1GOE0", {ptGo, 0, 2}},
    {aceMonitoring, L"CHI3MLC", {ptAfter, 0, 4}},
    // Also under the loop's two moments, which keep a subrange when they are asked themselves.
    {aceMonitoring, L"CHI0BFT", {ptBeforeTest, 0, 1}},
    {aceMonitoring, L"CHI1ATT", {ptAfterTest, 0, 2}},
    {aceEMSAutoTemplateGeneral, L"CHI1LTE", {ptStopTest, 0, 2}},
    {aceEMSAutoTemplate, L"CHI0STE1", {ptStep, 1, 1}},
    {aceEMIAutoTemplate, L"CHI0BEF1", {ptBefore, 1, 1}},
    {aceEMIAutoTemplate, L"CHI1AFT1", {ptAfter, 1, 2}},
    {aceTSTemplate, L"CHI0BFT1", {ptBeforeTest, 1, 1}},
    {aceTSTemplate, L"CHI1ATT1", {ptAfterTest, 1, 2}},
    {aceAziChart, L"CHI1EFR", {ptEveryFreq, 0, 2}},
    {aceVKSTemplate, L"CHI0BFT1", {ptBeforeTest, 1, 1}},
    {aceVKSTemplate, L"CHI0STE1", {ptStep, 1, 1}},
    {aceVKSTemplate, L"CHI1ATT1", {ptAfterTest, 1, 2}},
    {aceVKSDUT, L"CHI0STE1", {ptStep, 1, 1}},
    {aceVKSDUT, L"CHI0BSA", {ptBefore, 0, 1}, GlobalLists},
    {aceVKSDUT, L"CHI1ASA", {ptAfter, 0, 2}, GlobalLists},

    // A moment: itself, and the number of its lines.
    {aceTemplate, L"ETE", {ptStartTest, 0, 1}},
    {aceTemplate, L"LTE", {ptStopTest, 0, 2}},
    {aceTemplate, L"EFR", {ptEveryFreq, 0, 3}},
    {aceTemplate, L"ESR0", {ptEnterSubRange, 0, 1}},
    {aceTemplate, L"ESR1", {ptEnterSubRange, 1, 1}},
    {aceTemplate, L"LSR1", {ptLeaveSubrange, 1, 2}},
    {aceMonitoring, L"ETE", {ptStartTest, 0, 1}},
    {aceMonitoring, L"LTE", {ptStopTest, 0, 2}},
    {aceMonitoring, L"EFR", {ptEveryFreq, 0, 3}},
    {aceMonitoring, L"TRI1", {ptTrigger, 1, 3}},
    {aceMonitoring, L"NGO1", {ptNoGo, 1, 1}},
    {aceMonitoring, L"GOE1", {ptGo, 1, 2}},
    {aceMonitoring, L"MLC", {ptAfter, 0, 4}},
    {aceEMSAutoTemplateGeneral, L"ETE", {ptStartTest, 0, 1}},
    {aceEMSAutoTemplateGeneral, L"LTE", {ptStopTest, 0, 2}},
    {aceEMSAutoTemplate, L"STE0", {ptStep, 0, 1}},
    {aceEMSAutoTemplate, L"STE1", {ptStep, 1, 1}},
    {aceEMIAutoTemplate, L"ETE", {ptStartTest, 0, 1}},
    {aceEMIAutoTemplate, L"LTE", {ptStopTest, 0, 2}},
    {aceEMIAutoTemplate, L"EFR", {ptEveryFreq, 0, 3}},
    {aceEMIAutoTemplate, L"BEF1", {ptBefore, 1, 1}},
    {aceEMIAutoTemplate, L"AFT1", {ptAfter, 1, 2}},
    {aceTSTemplate, L"ETE", {ptStartTest, 0, 1}},
    {aceTSTemplate, L"LTE", {ptStopTest, 0, 2}},
    {aceTSTemplate, L"BFT1", {ptBeforeTest, 1, 1}},
    {aceTSTemplate, L"ATT1", {ptAfterTest, 1, 2}},
    {aceAziChart, L"ETE", {ptStartTest, 0, 1}},
    {aceAziChart, L"LTE", {ptStopTest, 0, 2}},
    {aceAziChart, L"EFR", {ptEveryFreq, 0, 3}},
    {aceVKSTemplate, L"ETE", {ptStartTest, 0, 1}},
    {aceVKSTemplate, L"LTE", {ptStopTest, 0, 2}},
    {aceVKSTemplate, L"BFT1", {ptBeforeTest, 1, 1}},
    {aceVKSTemplate, L"STE1", {ptStep, 1, 1}},
    {aceVKSTemplate, L"ATT1", {ptAfterTest, 1, 2}},
    {aceVKSDUT, L"STE1", {ptStep, 1, 1}},
    {aceVKSDUT, L"STE-1", {ptStep, -1, 0}},
    {aceVKSDUT, L"BSA", {ptBefore, 0, 1}, GlobalLists},
    {aceVKSDUT, L"ASA", {ptAfter, 0, 2}, GlobalLists},
    // The loop of a monitoring says nothing of a subrange.
    {aceMonitoring, L"BFT", {ptBeforeTest, Other, 1}},
    {aceMonitoring, L"ATT", {ptAfterTest, Other, 2}},

    // A group: its first moment, with the position of that one if it is the first child.
    {aceTemplate, L"SUR0", {ptEnterSubRange, 0, 1}},
    {aceTemplate, L"SUR1", {ptEnterSubRange, 1, 1}},
    {aceMonitoring, L"ATL", {ptBeforeTest, Other, 1}},
    {aceMonitoring, L"CHA1", {ptNoGo, 1, Untouched}},
    {aceEMIAutoTemplate, L"EMI1", {ptBefore, 1, 1}},
    {aceTSTemplate, L"TST1", {ptBeforeTest, 1, 1}},
    {aceVKSTemplate, L"TST1", {ptBeforeTest, 1, 1}},
};

class Places : public EveryModule, public ::testing::WithParamInterface<PlaceRow> {
  protected:
    Place PlaceAt(const String& key) {
        Place place = Before;
        GetPosition(Parts(), tree.Find(key), place);
        return place;
    }
};

TEST_P(Places, ANodeStandsForItsPlaceAndLeavesTheRestAsItCame) {
    OpenModule(GetParam().moduleKind, GetParam().matrix);
    const String key(GetParam().key);
    ASSERT_TRUE(tree.Find(key));
    EXPECT_EQ(PlaceAt(key), GetParam().place);
}
INSTANTIATE_TEST_SUITE_P(Nodes, Places, ::testing::ValuesIn(PlaceRows));

using PlaceRules = Places;

TEST_F(PlaceRules, AGroupOfTheMatrixIsBeforeATestAndKeepsThePosition) {
    State().VKSInfByBandwidth = true;
    State().VKSDUTBandwidthCount = State().VKSDUTFreqCount = 1;
    State().VKSDUTBandwidthNames.Redim(0, 0);
    OpenModule(aceVKSDUT);
    EXPECT_EQ(PlaceAt(L"TST0_-1_-1"), (Place{ptBeforeTest, 0, Untouched}));
    State().VKSInfByFreq = false;
    OpenModule(aceVKSDUT);
    EXPECT_EQ(PlaceAt(L"TST-1_-1_-1"), (Place{ptBeforeTest, -1, Untouched}));
}

TEST_F(PlaceRules, AGroupWithoutAChildKeepsThePosition) {
    OpenModule(aceTemplate);
    tree.AddRoot(L"SUR9", L"", L"");
    EXPECT_EQ(PlaceAt(L"SUR9"), (Place{ptEnterSubRange, 9, Untouched}));
}

TEST_F(PlaceRules, AChannelWhoseFirstMomentIsTheNoGoTakesItsPosition) {
    OpenModule(aceMonitoring);
    tree.AddChild(tree.AddChild(tree.AddRoot(L"CHA9", L"", L""), L"NGO9", L"", L""), L"X", L"",
                  L"");
    EXPECT_EQ(PlaceAt(L"CHA9"), (Place{ptNoGo, 9, 1}));
}

TEST_F(PlaceRules, ANodeOfTheHostsOwnKeepsTheWholePlace) {
    OpenModule(aceTemplate);
    tree.AddRoot(L"XYZ3", L"", L"");
    EXPECT_EQ(PlaceAt(L"XYZ3"), Before);
}

TEST_F(PlaceRules, ALineUnderANodeOfTheHostsOwnKeepsTheTime) {
    OpenModule(aceTemplate);
    tree.AddChild(tree.AddRoot(L"XYZ3", L"", L""), L"CHI0XYZ3", L"", L"");
    EXPECT_EQ(PlaceAt(L"CHI0XYZ3"), (Place{NoTime, 3, 1}));
}

TEST_F(PlaceRules, AnEntryWithoutALineMovesTheLinesBehindItOnePlaceUp) {
    Fill(State().MainTest, EnterList, {WaitFor(1000), Broken(), WaitFor(3000)});
    OpenModule(aceTemplate);
    EXPECT_EQ(PlaceAt(L"CHI0ETE"), (Place{ptStartTest, 0, 1}));
    EXPECT_EQ(PlaceAt(L"CHI2ETE"), (Place{ptStartTest, 0, 2}));
    EXPECT_EQ(PlaceAt(L"ETE"), (Place{ptStartTest, 0, 2}));
}

TEST_F(PlaceRules, NoNodeIsError91AndLeavesThePlace) {
    OpenModule(aceTemplate);
    Place place = Before;
    EXPECT_EQ(ErrorOf([&] { GetPosition(Parts(), TreeNode(), place); }), 91);
    EXPECT_EQ(place, Before);
}

TEST_F(PlaceRules, WithoutATreeItIsError91) {
    OpenModule(aceTemplate);
    Parts().m_View = nullptr;
    Place place;
    EXPECT_EQ(ErrorOf([&] { GetPosition(Parts(), TreeNode{1}, place); }), 91);
}

TEST_F(PlaceRules, GetPositionWritesATraceLineAtEitherEnd) {
    OpenModule(aceTemplate);
    host->tracing = true;
    PlaceAt(L"ETE");
    EXPECT_EQ(TakeEffects(),
              Journal(Start(L"frmEditor (Code)", L"GetPosition", L""), End(L"GetPosition")));
}

// ---- keys --------------------------------------------------------------------------------------

TEST(KeyNumbers, TheNumberOfAKeyBeginsBehindItsThreeLetters) {
    EXPECT_EQ(NumberOfKey(L"STE12"), 12);
    EXPECT_EQ(NumberOfKey(L"STE-1"), -1);
    EXPECT_EQ(NumberOfKey(L"TST-2_3_4"), -2);
    EXPECT_EQ(NumberOfKey(L"TST1_-1_-1"), 1);
    EXPECT_EQ(NumberOfKey(L"STE2.9"), 2);
    EXPECT_EQ(NumberOfKey(L"STE-2.9"), -2);
}

TEST(KeyNumbers, AKeyWithoutANumberHasTheNumber0) {
    for (const StringView key : {L"ETE", L"", L"ET", L"STEx"}) {
        EXPECT_EQ(NumberOfKey(key), 0) << testing::PrintToString(String(key));
    }
}

TEST(KeyNumbers, ANumberBeyondTheIntegersIsError6) {
    EXPECT_EQ(NumberOfKey(L"STE2147483647"), 2147483647);
    EXPECT_EQ(ErrorOf([] { NumberOfKey(L"STE2147483648"); }), 6);
    EXPECT_EQ(ErrorOf([] { NumberOfKey(L"STE-2147483649"); }), 6);
}

// ---- lists -------------------------------------------------------------------------------------

class Lists : public EveryModule, public ::testing::WithParamInterface<EditedMoment> {};

TEST_P(Lists, AMomentHasItsListInTheEditorsCopy) {
    const EditedMoment& moment = GetParam();
    OpenModule(moment.moduleKind, moment.matrix);
    const std::optional<ActionList> found = FindList(Parts(), moment.time, moment.Subrange());
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(&found->count, &moment.Count(Parts().lists));
    EXPECT_EQ(&found->actions, &moment.Actions(Parts().lists));
}
INSTANTIATE_TEST_SUITE_P(Moments, Lists, ::testing::ValuesIn(EditedMoments),
                         [](const auto& row) { return row.param.name; });

TEST_F(Lists, AMomentThatTheModuleHasNotHasNoList) {
    for (std::int32_t moduleKind = 0; moduleKind < ModulCount; ++moduleKind) {
        OpenModule(static_cast<aceModul>(moduleKind));
        for (std::int32_t time = -1; time <= ptAfterTest + 1; ++time) {
            const bool isThere = std::ranges::any_of(EditedMoments, [&](const EditedMoment& one) {
                return one.moduleKind == moduleKind && one.time == time;
            });
            EXPECT_EQ(FindList(Parts(), static_cast<p_PerformTimes>(time), 0).has_value(), isThere)
                << moduleKind << " " << time;
        }
    }
}

TEST_F(Lists, ANumberOutsideTheSetsOfTheModuleHasNoList) {
    OpenModule(aceTemplate);
    for (const std::int32_t number : {-1, 2, 2147483647}) {
        EXPECT_FALSE(FindList(Parts(), ptEnterSubRange, number).has_value()) << number;
        EXPECT_TRUE(FindList(Parts(), ptStartTest, number).has_value()) << number;
    }
}

}  // namespace
}  // namespace ace::test
