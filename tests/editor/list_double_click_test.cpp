#include "editor/mouse_acts.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ListDoubleClick : public MouseTest {
  protected:
    void DoubleClick(std::int32_t kind) {
        EXPECT_TRUE(list.DoubleClick(L"ACT:" + std::to_wstring(kind)));
    }
    /// Whether a node of the matrix is one that no list stands for.
    static bool IsPlaceless(aceModul moduleKind, StringView key) {
        return moduleKind == aceVKSDUT && (key == L"STE-1" || key.starts_with(L"TST"));
    }
};

// ---- the default node --------------------------------------------------------------------------

struct DefaultRow {
    aceModul moduleKind;
    StringView key;
};
constexpr DefaultRow Defaults[] = {
    {aceTemplate, L"ETE"},         {aceMonitoring, L"NGO0"},
    {aceEMSAutoTemplate, L"STE0"}, {aceEMSAutoTemplateGeneral, L"ETE"},
    {aceEMIAutoTemplate, L"ETE"},  {aceTSTemplate, L"ETE"},
    {aceAziChart, L"ETE"},         {aceVKSTemplate, L"ETE"},
};

TEST_F(ListDoubleClick, WithoutASelectedNodeTheDefaultNodeOfTheModuleIsSelected) {
    for (const DefaultRow& row : Defaults) {
        OpenWhole(row.moduleKind);
        ExpectCancel();
        DoubleClick(atWait);
        EXPECT_EQ(SelectedKey(), row.key) << row.moduleKind;
        EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden)) << row.moduleKind;
    }
}

TEST_F(ListDoubleClick, ASelectedNodeStaysSelected) {
    OpenWhole(aceTemplate);
    Select(L"LTE");
    ExpectCancel();
    DoubleClick(atWait);
    EXPECT_EQ(SelectedKey(), L"LTE");
}

TEST_F(ListDoubleClick, WhereTheDefaultNodeIsMissingNothingHappens) {
    const auto expectNothing = [&] {
        const ModuleLists before = Store();
        DoubleClick(atWait);
        EXPECT_THAT(Happened(), IsEmpty());
        EXPECT_EQ(SelectedKey(), L"");
        ExpectLists(before, false);
    };
    for (const std::int32_t matrix : {RowsAsRoots, GlobalLists, RowsInGroups}) {
        OpenWhole(aceVKSDUT, matrix);
        expectNothing();
    }
    State().MoniChannelCount = State().EMSAutoStepCount = 0;
    State().MoniChannels.Erase();
    State().EMSAutoSteps.Erase();
    for (const aceModul moduleKind : {aceMonitoring, aceEMSAutoTemplate}) {
        OpenWhole(moduleKind);
        expectNothing();
    }
}

TEST_F(ListDoubleClick, WithNothingSelectedInTheListNothingHappens) {
    OpenWhole(aceTemplate);
    EXPECT_TRUE(list.DoubleClick(std::nullopt));
    EXPECT_THAT(Happened(), IsEmpty());
    EXPECT_EQ(SelectedKey(), L"");
}

TEST_F(ListDoubleClick, OnAnItemOfTheHostsOwnNothingHappens) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    for (const String key : {L"OWN:99", L"ACT:18", L"ACT:-1"}) {
        list.Add(key, L"", L"");
        EXPECT_TRUE(list.DoubleClick(key));
        EXPECT_THAT(Happened(), IsEmpty()) << testing::PrintToString(key);
        EXPECT_EQ(SelectedKey(), L"");
        ExpectLists(before, false);
    }
}

// ---- what is added -----------------------------------------------------------------------------

TEST_F(ListDoubleClick, OnAMomentTheNewActionGoesBehindItsLastLine) {
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    Fill(expected.MainTest, LeaveList,
         {expected.MainTest.Leave[0], expected.MainTest.Leave[1], WaitFor(5000)});
    Select(L"LTE");
    ExpectDialog({sim::Type(L"txtWait", L"5"), sim::Press(L"cmdOK")});
    DoubleClick(atWait);
    ExpectLists(expected, true);
}

TEST_F(ListDoubleClick, OnALineTheNewActionGoesDirectlyBehindIt) {
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    p_Subrange& set = expected.MainTest;
    Fill(set, FreqList, {set.Freq[0], WaitFor(10000), set.Freq[1], set.Freq[2]});
    Select(L"CHI0EFR");
    ExpectOk();
    DoubleClick(atWait);
    ExpectLists(expected, true);
}

TEST_F(ListDoubleClick, ACancelledDialogAddsNothing) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    Select(L"LTE");
    ExpectCancel();
    DoubleClick(atWait);
    ExpectLists(before, false);
}

/// A kind without a record, and a moment that accepts it.
struct BareRow {
    aceModul moduleKind;
    p_ActionTypes kind;
    const char* moment;
};
constexpr BareRow Bare[] = {
    {aceMonitoring, atTestStop, "MonitoringNoGo"},
    {aceMonitoring, atGotoSingle, "MonitoringGo"},
    {aceMonitoring, atStopLevSweep, "MonitoringEnd"},
    {aceMonitoring, atNbBbEtsi, "MonitoringNoGo"},
    {aceEMIAutoTemplate, atProtRec, "EmissionStart"},
    {aceEMIAutoTemplate, atParkAcc, "EmissionStop"},
};

TEST_F(ListDoubleClick, AKindWithoutFieldsIsAddedAtOnceAndNothingIsShown) {
    for (const BareRow& row : Bare) {
        const EditedMoment& moment = MomentNamed(row.moment);
        engine->Change(false);
        OpenWhole(row.moduleKind);
        ModuleLists expected = Store();
        std::vector<p_Action> entries = EntriesOf(moment, expected);
        entries.push_back(Action(row.kind));
        SetEntries(moment, expected, entries);
        Select(String(moment.key));
        DoubleClick(row.kind);
        EXPECT_THAT(Happened(), IsEmpty()) << row.kind;
        ExpectLists(expected, true);
    }
}

// ---- what a moment accepts ---------------------------------------------------------------------

/// The kinds on offer, by icon.
struct OfferRow {
    aceModul moduleKind;
    StringView offered;
    std::int32_t matrix = RowsAsRoots;
    bool emission = false;
};
void PrintTo(const OfferRow& row, std::ostream* out) {
    *out << "module " << row.moduleKind;
}
constexpr OfferRow Offers[] = {
    {aceTemplate, L"DEV REM WAI NOT API EUT SWA SWU"},
    {aceTemplate, L"DEV REM WAI NOT API EUT TRC REC SWU", RowsAsRoots, true},
    {aceMonitoring, L"DEV REM WAI NOT API EUT MSG SWU NBB SGL STL STP"},
    {aceEMSAutoTemplateGeneral, L"DEV REM WAI NOT API SWU PAC"},
    {aceEMSAutoTemplate, L"DEV REM WAI NOT API SWU"},
    {aceEMIAutoTemplate, L"DEV REM WAI NOT API EUT REC SWU PAC"},
    {aceTSTemplate, L"DEV REM WAI NOT API EUT SWA SWU"},
    {aceAziChart, L"DEV REM WAI NOT API REC SWU PAC"},
    {aceVKSTemplate, L"DEV REM WAI NOT API SWU EUT QUE MON"},
    {aceVKSDUT, L"DEV REM WAI NOT API SWU EUT", GlobalLists},
    {aceVKSDUT, L"DEV REM WAI NOT API SWU EUT", RowsInGroups},
};

/// What is refused on a node, in every module; lines of these moments are nodes of their own.
constexpr StringView RefusedOnEveryFrequency =
    L"WAI NOT REM MSG REC STP SGL STL NBB SWA SWU API PAC QUE MON";
constexpr StringView RefusedOnStartAndStop = L"TRC MSG STP SGL STL NBB";
constexpr StringView RefusedElsewhere = L"TRC";
constexpr StringView KindsWithoutFields = L"REC STP SGL STL NBB PAC";

class AddedKinds : public ListDoubleClick, public ::testing::WithParamInterface<OfferRow> {
  protected:
    void OpenAnew() {
        static_cast<ModuleLists&>(State()) = x_filled;
        State().EmiTemplate = GetParam().emission;
        OpenWhole(GetParam().moduleKind, GetParam().matrix);
        engine->Change(false);
    }
    static StringView RefusedOn(StringView key) {
        return key == L"EFR"                    ? RefusedOnEveryFrequency
               : key == L"ETE" || key == L"LTE" ? RefusedOnStartAndStop
                                                : RefusedElsewhere;
    }
    void ExpectOutcome(const String& key, std::int32_t kind, bool isAccepted) {
        const bool hasFields = !Holds(KindsWithoutFields, KindIcons[kind]);
        if (isAccepted && hasFields) {
            ExpectCancel();
        }
        Select(key);
        DoubleClick(kind);
        const std::size_t shown = isAccepted && hasFields ? 2 : 0;
        EXPECT_EQ(Happened().size(), shown) << testing::PrintToString(key) << " " << kind;
        EXPECT_EQ(engine->Change(), isAccepted && !hasFields)
            << testing::PrintToString(key) << " " << kind;
        if (engine->Change()) {
            OpenAnew();
        }
    }

  private:
    const ModuleLists x_filled = State();
};

TEST_P(AddedKinds, ANodeTakesTheKindsOfItsCaptionAndRefusesTheOthersWithoutAWord) {
    OpenAnew();
    const Lines keys = AllKeys();
    for (const String& key : keys) {
        const bool isPlace = !IsPlaceless(GetParam().moduleKind, key);
        for (std::int32_t kind = 0; kind < KindCount; ++kind) {
            if (Holds(GetParam().offered, KindIcons[kind])) {
                ExpectOutcome(key, kind, isPlace && !Holds(RefusedOn(key), KindIcons[kind]));
            }
        }
    }
}
INSTANTIATE_TEST_SUITE_P(Modules, AddedKinds, ::testing::ValuesIn(Offers));

TEST_F(ListDoubleClick, ANodeWithTheCaptionOfEveryFrequencyIsTakenForIt) {
    host->texts[9054] = L"T(9052)";  // on entering a subrange
    OpenWhole(aceTemplate);
    Select(L"ESR1");
    DoubleClick(atWait);
    EXPECT_THAT(Happened(), IsEmpty());
    ExpectCancel();
    DoubleClick(atSetDevice);
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden));
}

TEST_F(ListDoubleClick, ARefusedKindLeavesTheDefaultNodeSelected) {
    State().EmiTemplate = true;
    OpenWhole(aceTemplate);
    DoubleClick(atTrackFreq);
    EXPECT_THAT(Happened(), IsEmpty());
    EXPECT_EQ(SelectedKey(), L"ETE");
}

/// What is held is what a paste inserts.
TEST_F(ListDoubleClick, WhatIsRefusedOrCancelledLeavesWhatIsHeld) {
    OpenWhole(aceMonitoring);
    ModuleLists expected = Store();
    p_Subrange& set = expected.MoniEut;
    Fill(set, LeaveList, {set.Leave[0], set.Leave[1], set.Mlc[2]});
    ChooseFromMenu(L"CHI2MLC", L"T(9016)");
    Select(L"ETE");
    DoubleClick(atTestStop);
    ExpectCancel();
    DoubleClick(atNotify);
    ChooseFromMenu(L"LTE", L"T(9017)");
    ExpectLists(expected, true);
}

// ---- traces and failures -----------------------------------------------------------------------

TEST_F(ListDoubleClick, AnAdditionIsTracedInsideTheDoubleClick) {
    const auto start = [](const String& procedure, const String& message = {}) {
        return Start(L"frmEditor (Code)", procedure, message);
    };
    OpenWhole(aceEMIAutoTemplate);
    Select(L"ETE");
    host->tracing = true;
    DoubleClick(atProtRec);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.WriteLine"),
              Journal(start(L"m_List_DblClick"), start(L"ShowEditor", L"AddNew = True"),
                      start(L"AddAction"), start(L"GetPosition"), End(L"GetPosition"),
                      start(L"DisplayTree", L"PerfTime = 0, Subrange = 0"), End(L"DisplayTree"),
                      End(L"AddAction"), End(L"ShowEditor"), End(L"m_List_DblClick")));
}

TEST_F(ListDoubleClick, ARefusalIsTracedToo) {
    OpenWhole(aceMonitoring);
    Select(L"ETE");
    host->tracing = true;
    DoubleClick(atTestStop);
    EXPECT_EQ(TakeEffects(), Journal(Start(L"frmEditor (Code)", L"m_List_DblClick", L""),
                                     End(L"m_List_DblClick")));
}

TEST_F(ListDoubleClick, AFailureIsReportedAndComesOutAtTheList) {
    OpenWhole(aceTemplate);
    host->faults.FailOperation(L"List.Selected", 1, 57);
    EXPECT_EQ(ErrorOf([&] { DoubleClick(atWait); }), 57);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
}

TEST_F(ListDoubleClick, WithoutATreeItIsError91) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief.reset();
    EXPECT_EQ(ErrorOf([&] { DoubleClick(atWait); }), 91);
    EXPECT_FALSE(engine->Change());
}

}  // namespace
}  // namespace ace::test
