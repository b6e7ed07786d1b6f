#include "editor/mouse_acts.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

/// What a new wait lasts.
const p_Action NewWait = WaitFor(10000);

class DroppedKinds : public MouseTest, public ::testing::WithParamInterface<EditedMoment> {
  protected:
    /// Drags a kind from the list to a node and drops it there.
    bool DropKind(std::int32_t kind, const std::optional<String>& key) {
        const bool isDropped = tree.Drop(KindDragged(kind), key);
        list.EndDrag();
        return isDropped;
    }
    void DropAnyway(const DragData& data, const std::optional<String>& key,
                    std::int32_t shift = 0) {
        EXPECT_TRUE(tree.DropAnyway(data, key, shift));
    }
    /// What the store has with `action` inserted before that entry of the moment's list.
    ModuleLists With(const EditedMoment& moment, std::ptrdiff_t before, const p_Action& action) {
        ModuleLists lists = Store();
        std::vector<p_Action> entries = EntriesOf(moment, lists);
        entries.insert(entries.begin() + before, action);
        SetEntries(moment, lists, entries);
        return lists;
    }
};

// ---- where it goes -----------------------------------------------------------------------------

TEST_P(DroppedKinds, OnAMomentItGoesBehindTheLastLine) {
    const EditedMoment& moment = GetParam();
    OpenWhole(moment.moduleKind, moment.matrix);
    const ModuleLists expected = With(moment, moment.Count(State()), NewWait);
    ExpectOk();
    EXPECT_TRUE(DropKind(atWait, String(moment.key)));
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden, DragComplete));
    ExpectLists(expected, true);
}

TEST_P(DroppedKinds, OnALineItGoesDirectlyBehindIt) {
    const EditedMoment& moment = GetParam();
    SetEntries(moment, State(), {WaitFor(1), WaitFor(2), WaitFor(3)});
    OpenWhole(moment.moduleKind, moment.matrix);
    const ModuleLists expected = With(moment, 2, NewWait);
    ExpectOk();
    EXPECT_TRUE(DropKind(atWait, L"CHI1" + String(moment.key)));
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden, DragComplete));
    ExpectLists(expected, true);
}
INSTANTIATE_TEST_SUITE_P(Moments, DroppedKinds, ::testing::ValuesIn(EditedMoments),
                         [](const auto& row) { return row.param.name; });

using KindDrops = DroppedKinds;

/// A group, and the moment whose list takes what is dropped on it.
struct GroupRow {
    StringView group;
    const char* moment;
    bool isInFront;  ///< of the list, not behind its last line
};
constexpr GroupRow Groups[] = {
    {L"SUR1", "TemplateEnterSubrange", false}, {L"CHA1", "MonitoringNoGo", true},
    {L"ATL", "MonitoringBeforeLoop", false},   {L"EMI1", "EmissionBefore", false},
    {L"TST1", "SequenceBefore", false},        {L"TST1", "WirelessBefore", false},
};

TEST_F(KindDrops, OnAGroupItGoesToTheListOfItsMoment) {
    for (const GroupRow& row : Groups) {
        const EditedMoment& moment = MomentNamed(row.moment);
        OpenWhole(moment.moduleKind);
        const ModuleLists expected =
            With(moment, row.isInFront ? 0 : moment.Count(State()), NewWait);
        ExpectOk();
        EXPECT_TRUE(DropKind(atWait, String(row.group)));
        EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden, DragComplete)) << row.moment;
        ExpectLists(expected, true);
    }
}

TEST_F(KindDrops, BesideTheNodesItGoesToTheLastTarget) {
    OpenWhole(aceTemplate);
    const ModuleLists expected = With(MomentNamed("TemplateStop"), 2, NewWait);
    tree.DragOver(KindDragged(atWait), L"LTE");
    ExpectOk();
    EXPECT_TRUE(DropKind(atWait, std::nullopt));
    ExpectLists(expected, true);
}

TEST_F(KindDrops, BesideTheNodesWithoutATargetItGoesToTheDefaultNode) {
    OpenWhole(aceTemplate);
    const ModuleLists expected = With(MomentNamed("TemplateStart"), 1, NewWait);
    ExpectOk();
    EXPECT_TRUE(DropKind(atWait, std::nullopt));
    ExpectLists(expected, true);
}

TEST_F(KindDrops, TheTargetIsSelectedWhileTheDialogStands) {
    OpenWhole(aceTemplate);
    Select(L"CHI0ETE");
    String selected;
    InTheDialog([&] { selected = SelectedKey(); });
    EXPECT_TRUE(DropKind(atWait, L"ESR1"));
    EXPECT_EQ(selected, L"ESR1");
    EXPECT_EQ(SelectedKey(), L"ESR1");
}

TEST_F(KindDrops, AKindWithoutFieldsIsAddedAtOnce) {
    OpenWhole(aceMonitoring);
    const ModuleLists expected = With(MomentNamed("MonitoringNoGo"), 1, Action(atTestStop));
    EXPECT_TRUE(DropKind(atTestStop, L"NGO1"));
    EXPECT_THAT(Happened(), ElementsAre(DragComplete));
    ExpectLists(expected, true);
}

TEST_F(KindDrops, TheListsHaveChangedWhenTheEventComes) {
    OpenWhole(aceTemplate);
    std::vector<bool> changed;
    host->beforeCall = [&](StringView operation, const auto&) {
        if (operation == L"DragComplete") {
            changed.push_back(engine->Change());
        }
    };
    ExpectOk();
    EXPECT_TRUE(DropKind(atWait, L"ETE"));
    host->beforeCall = nullptr;
    EXPECT_THAT(changed, ElementsAre(true));
}

// ---- what kind it is ---------------------------------------------------------------------------

constexpr std::int32_t NoPane = -1;
/// The frame of the dialog for each kind.
constexpr std::int32_t Panes[] = {0,      1,      2,      3, 3, 4, 1,      NoPane, NoPane,
                                  NoPane, NoPane, NoPane, 3, 3, 5, NoPane, 1,      3};

/// Indexes of the frames that show.
std::vector<std::int32_t> ShownPanes(const Form& form) {
    std::vector<std::int32_t> panes;
    for (std::int32_t i = 0; i < 6; ++i) {
        const auto* const frame = form.Find<Frame>(L"fraAction(" + std::to_wstring(i) + L")");
        if (frame != nullptr && frame->IsShown()) {
            panes.push_back(i);
        }
    }
    return panes;
}

/// A toolkit that drops what would have no effect: the rules are asked by the drag alone.
TEST_F(KindDrops, TheNumberBehindTheColonIsTheKindAndNoRuleIsAskedAgain) {
    OpenWhole(aceTemplate);
    std::int32_t lines = 2;
    for (std::int32_t kind = 0; kind < KindCount; ++kind) {
        std::vector<std::int32_t> panes;
        if (Panes[kind] != NoPane) {
            ExpectDialog(
                {sim::Do([&](Form& form) { panes = ShownPanes(form); }), sim::Press(L"cmdCancel")});
        } else {
            ++lines;
        }
        DropAnyway(KindDragged(kind), L"LTE");
        const bool hasPane = Panes[kind] != NoPane;
        EXPECT_EQ(panes, hasPane ? std::vector{Panes[kind]} : std::vector<std::int32_t>{}) << kind;
        EXPECT_EQ(Store().MainTest.LeaveCount, lines) << kind;
    }
}

TEST_F(KindDrops, ANumberThatIsNoKindIsDroppedToNoEffect) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    for (const StringView text : {L"ACT:-1", L"ACT:18", L"ACT:999", L"ACT:", L"ACT:x"}) {
        Select(L"CHI0ETE");
        DropAnyway({String(text)}, L"LTE");
        EXPECT_THAT(Happened(), ElementsAre(DragComplete)) << testing::PrintToString(text);
        ExpectLists(before, false);
    }
}

TEST_F(KindDrops, TheDigitsThatBeginTheFourCharactersBehindThePrefixAreTheKind) {
    OpenWhole(aceTemplate);
    constexpr std::pair<StringView, std::int32_t> texts[] = {
        {L"ACT:14,x", atAPI}, {L"ACT:00014", atNotify}, {L"ACT:2ACT:1000,WAI", atRemote}};
    for (const auto& [text, kind] : texts) {
        std::vector<std::int32_t> panes;
        ExpectDialog(
            {sim::Do([&](Form& form) { panes = ShownPanes(form); }), sim::Press(L"cmdCancel")});
        DropAnyway({String(text)}, L"LTE");
        EXPECT_EQ(panes, std::vector{Panes[kind]}) << testing::PrintToString(text);
    }
}

TEST_F(KindDrops, ANumberThatBeginsWith1000IsNoKindButTheSelectedLine) {
    const EditedMoment& from = MomentNamed("TemplateStart");
    const EditedMoment& to = MomentNamed("TemplateStop");
    for (const StringView text : {L"ACT:1000", L"ACT:10001", L"ACT:1000,x"}) {
        SetEntries(from, State(), {WaitFor(1)});
        SetEntries(to, State(), {WaitFor(2)});
        OpenWhole(aceTemplate);
        engine->Change(false);
        ModuleLists expected = Store();
        SetEntries(from, expected, {});
        SetEntries(to, expected, {WaitFor(2), WaitFor(1)});
        Select(L"CHI0ETE");
        DropAnyway({String(text)}, L"LTE");
        EXPECT_THAT(Happened(), ElementsAre(DragComplete)) << testing::PrintToString(text);
        ExpectLists(expected, true);
    }
}

TEST_F(KindDrops, WhatIsNoneOfTheEditorsIsNotHandledAtAll) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    const DragData others[] = {{}, {L""}, {L"ETE"}, {L"file.txt"}, {L"XACT:0"}};
    for (const DragData& data : others) {
        DropAnyway(data, L"LTE");
        EXPECT_EQ(Happened(), Lines{}) << testing::PrintToString(data.text);
        ExpectLists(before, false);
    }
}

// ---- what changes nothing ----------------------------------------------------------------------

TEST_F(KindDrops, WithACancelledDialogNothingIsAddedAndTheEventComesAllTheSame) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    ExpectCancel();
    EXPECT_TRUE(tree.Drop(KindDragged(atWait), L"LTE"));
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden, DragComplete));
    ExpectLists(before, false);
    EXPECT_EQ(Highlighted(), L"LTE");
    EXPECT_TRUE(list.EndDrag());
    EXPECT_EQ(Highlighted(), L"");
}

TEST_F(KindDrops, WhatTheDragRefusesIsNotDropped) {
    OpenWhole(aceTemplate);
    EXPECT_FALSE(DropKind(atNotify, L"EFR"));
    EXPECT_EQ(Happened(), Lines{});
}

TEST_F(KindDrops, WhereNoListIsReachedNothingHappensButTheEvent) {
    OpenWhole(aceVKSDUT, RowsInGroups);
    const ModuleLists before = Store();
    for (const StringView key : {L"TST0_-1_-1", L"TST2_-1_-1", L"STE-1"}) {
        DropAnyway(KindDragged(atWait), String(key));
        EXPECT_THAT(Happened(), ElementsAre(DragComplete)) << testing::PrintToString(key);
        ExpectLists(before, false);
    }
    EXPECT_TRUE(list.EndDrag());
    DropAnyway(KindDragged(atWait), std::nullopt);
    EXPECT_THAT(Happened(), ElementsAre(DragComplete)) << "no default node";
    ExpectLists(before, false);
}

TEST_F(KindDrops, AfterAnErrorOfTheTreeThereIsNeitherADialogNorTheEvent) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    host->faults.FailOperation(L"Tree.DropHighlight", 1, 57);
    EXPECT_EQ(ErrorOf([&] { tree.Drop(KindDragged(atWait), L"LTE"); }), 57);
    EXPECT_EQ(Happened(), Lines{});
    ExpectLists(before, false);
}

TEST_F(KindDrops, AnEngineWithoutASinkTakesADropAsWell) {
    OpenWhole(aceTemplate);
    const ModuleLists expected = With(MomentNamed("TemplateStop"), 2, NewWait);
    engine->SetEventSink(nullptr);
    ExpectOk();
    EXPECT_TRUE(DropKind(atWait, L"LTE"));
    ExpectLists(expected, true);
}

}  // namespace
}  // namespace ace::test
