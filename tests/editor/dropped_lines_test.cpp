#include "editor/mouse_acts.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

/// The entries of a list as numbers, which are the seconds of its waits.
using Seconds = std::vector<int>;

std::vector<p_Action> WaitsOf(const Seconds& seconds) {
    std::vector<p_Action> waits;
    for (const int one : seconds) {
        waits.push_back(WaitFor(one * 1000.0));
    }
    return waits;
}

class DroppedLines : public MouseTest, public ::testing::WithParamInterface<EditedMoment> {
  protected:
    ModuleLists WithWaits(const EditedMoment& moment, const Seconds& seconds) {
        ModuleLists lists = Store();
        SetEntries(moment, lists, WaitsOf(seconds));
        return lists;
    }
    /// Opens the module of a moment whose list has waits of 0, 1, 2 and 3 seconds.
    void OpenFourWaits(const EditedMoment& moment) {
        SetEntries(moment, State(), WaitsOf({0, 1, 2, 3}));
        OpenWhole(moment.moduleKind, moment.matrix);
        engine->Change(false);
    }
    static String LineOf(const EditedMoment& moment, int index) {
        return L"CHI" + std::to_wstring(index) + String(moment.key);
    }
};

// ---- on a line of the same list ----------------------------------------------------------------

/// One row for each way to hold the keys.
struct MoveRow {
    int from;
    int to;
    Seconds order;
};
const MoveRow MovesInAList[] = {
    {0, 3, {1, 2, 3, 0}}, {3, 0, {3, 0, 1, 2}}, {1, 2, {0, 2, 1, 3}}, {2, 1, {0, 2, 1, 3}},
    {0, 2, {1, 2, 0, 3}}, {3, 1, {0, 3, 1, 2}}, {1, 3, {0, 2, 3, 1}}, {2, 0, {2, 0, 1, 3}},
};
static_assert(std::size(MovesInAList) == ShiftCount);

TEST_P(DroppedLines, OnALineOfItsListALineTakesItsPlaceWithEveryKey) {
    const EditedMoment& moment = GetParam();
    std::int32_t shift = 0;
    for (const MoveRow& row : MovesInAList) {
        OpenFourWaits(moment);
        EXPECT_TRUE(tree.DragTo(LineOf(moment, row.from), LineOf(moment, row.to), shift));
        EXPECT_THAT(Happened(), ElementsAre(DragComplete));
        ExpectLists(WithWaits(moment, row.order), true);
        ++shift;
    }
}

// ---- on its own moment -------------------------------------------------------------------------

TEST_P(DroppedLines, OnItsMomentALineGoesToTheEndOrLeavesACopyThere) {
    const EditedMoment& moment = GetParam();
    for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
        OpenFourWaits(moment);
        EXPECT_TRUE(tree.DragTo(LineOf(moment, 1), String(moment.key), shift));
        EXPECT_THAT(Happened(), ElementsAre(DragComplete));
        ExpectLists(WithWaits(moment, shift == 0 ? Seconds{0, 2, 3, 1} : Seconds{0, 1, 2, 3, 1}),
                    true);
    }
}
INSTANTIATE_TEST_SUITE_P(Moments, DroppedLines, ::testing::ValuesIn(EditedMoments),
                         [](const auto& row) { return row.param.name; });

// ---- on another moment -------------------------------------------------------------------------

using LineDrops = DroppedLines;

struct Pair {
    const char* from;
    const char* to;
};
constexpr Pair Pairs[] = {
    {"TemplateFrequency", "TemplateLeaveSubrange"},
    {"TemplateLeaveSubrange", "TemplateStart"},
    {"MonitoringEnd", "MonitoringTrigger"},
    {"MonitoringNoGo", "MonitoringAfterLoop"},
    {"GeneralStart", "GeneralStop"},
    {"EmissionAfter", "EmissionFrequency"},
    {"SequenceStop", "SequenceBefore"},
    {"AzimuthFrequency", "AzimuthStart"},
    {"WirelessStep", "WirelessAfter"},
    {"WirelessStart", "WirelessStep"},
    {"MatrixBefore", "MatrixAfter"},
};

TEST_F(LineDrops, OnAnotherMomentALineIsMovedOrCopiedToItsEnd) {
    for (const Pair& pair : Pairs) {
        const EditedMoment& from = MomentNamed(pair.from);
        const EditedMoment& to = MomentNamed(pair.to);
        for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
            SetEntries(to, State(), WaitsOf({7}));
            OpenFourWaits(from);
            ModuleLists expected =
                WithWaits(from, shift == 0 ? Seconds{0, 1, 3} : Seconds{0, 1, 2, 3});
            SetEntries(to, expected, WaitsOf({7, 2}));
            EXPECT_TRUE(tree.DragTo(LineOf(from, 2), String(to.key), shift)) << pair.from;
            EXPECT_THAT(Happened(), ElementsAre(DragComplete)) << pair.from;
            ExpectLists(expected, true);
        }
    }
}

TEST_F(LineDrops, TheLastLineOfAListLeavesNoneBehind) {
    OpenWhole(aceEMSAutoTemplate);
    ModuleLists expected = Store();
    const p_Action moved = expected.EMSAutoSteps[0].Enter[0];
    const p_Action there = expected.EMSAutoSteps[1].Enter[0];
    Fill(expected.EMSAutoSteps[0], EnterList, {});
    Fill(expected.EMSAutoSteps[1], EnterList, {there, moved});
    EXPECT_TRUE(tree.DragTo(L"CHI0STE0", L"STE1"));
    ExpectLists(expected, true);
    EXPECT_EQ(LinesBelow(L"STE0"), Lines{});
}

TEST_F(LineDrops, BetweenRowsOfTheMatrixALineIsMoved) {
    OpenWhole(aceVKSDUT, RowsInGroups);
    ModuleLists expected = Store();
    const p_Action moved = expected.VKSSteps[0].Enter[0];
    const p_Action there = expected.VKSSteps[1].Enter[0];
    Fill(expected.VKSSteps[0], EnterList, {});
    Fill(expected.VKSSteps[1], EnterList, {there, moved});
    EXPECT_TRUE(tree.DragTo(L"CHI0STE0", L"STE1"));
    EXPECT_THAT(Happened(), ElementsAre(DragComplete));
    ExpectLists(expected, true);
}

/// A line, a group on which it is dropped, and the moment whose list takes it.
struct GroupRow {
    const char* from;
    StringView group;
    const char* to;
    Seconds order;  ///< of that list, where 2 is the line that has come
};
const GroupRow LinesOnGroups[] = {
    {"TemplateLeaveSubrange", L"SUR1", "TemplateEnterSubrange", {7, 8, 2}},
    {"MonitoringTrigger", L"CHA1", "MonitoringNoGo", {2, 7, 8}},
    {"MonitoringEnd", L"ATL", "MonitoringBeforeLoop", {7, 8, 2}},
    {"EmissionStop", L"EMI1", "EmissionBefore", {7, 8, 2}},
    {"SequenceAfter", L"TST1", "SequenceBefore", {7, 8, 2}},
    {"WirelessStep", L"TST1", "WirelessBefore", {7, 8, 2}},
};

TEST_F(LineDrops, OnAGroupALineGoesToTheListOfItsMoment) {
    for (const GroupRow& row : LinesOnGroups) {
        const EditedMoment& from = MomentNamed(row.from);
        const EditedMoment& to = MomentNamed(row.to);
        SetEntries(to, State(), WaitsOf({7, 8}));
        OpenFourWaits(from);
        ModuleLists expected = WithWaits(from, {0, 1, 3});
        SetEntries(to, expected, WaitsOf(row.order));
        EXPECT_TRUE(tree.DragTo(LineOf(from, 2), String(row.group))) << row.from;
        EXPECT_THAT(Happened(), ElementsAre(DragComplete)) << row.from;
        ExpectLists(expected, true);
    }
}

TEST_F(LineDrops, TheTargetIsSelectedAndTheHighlightGoesWithTheDrag) {
    OpenWhole(aceTemplate);
    EXPECT_TRUE(tree.DragTo(L"CHI0ETE", L"LSR0", ShiftKeys::Control));
    EXPECT_EQ(SelectedKey(), L"LSR0");
    EXPECT_EQ(Highlighted(), L"");
}

/// What is open is closed once: by the line that has opened it, wherever it goes.
TEST_F(LineDrops, ALineThatIsMovedTakesItsOpenBusAlongAndACopyHasNone) {
    const auto command = [](std::int32_t handle) {
        aceRemote record;
        record.Command = L"*RST";
        record.DrvHdl = handle;
        return Action(atRemote, record);
    };
    constexpr std::int32_t closed = -1;
    for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
        Fill(State().MainTest, EnterList, {command(5)});
        Fill(State().MainTest, LeaveList, {});
        OpenWhole(aceTemplate);
        ModuleLists expected = Store();
        Fill(expected.MainTest, LeaveList, {command(shift == 0 ? 5 : closed)});
        if (shift == 0) {
            Fill(expected.MainTest, EnterList, {});
        }
        EXPECT_TRUE(tree.DragTo(L"CHI0ETE", L"LTE", shift));
        ExpectLists(expected, true);
    }
}

// ---- errors of the tree ------------------------------------------------------------------------

class FailedDrops : public MouseTest {
  protected:
    FailedDrops() { OpenWhole(aceTemplate); }

    /// The first such call of a drop fails, which begins by asking for the target.
    void FailInTheDrop(const String& call) {
        host->faults.Clear();
        In(L"Tree.DropHighlight", [this, call] { host->faults.FailOperation(call, 1, 57); });
    }
    /// Error 57 comes out of the drop, and nobody hears of an end of it.
    void ExpectFailedDrag(const String& from, const String& to) {
        EXPECT_EQ(ErrorOf([&] { tree.DragTo(from, to); }), 57);
        host->beforeCall = nullptr;
        EXPECT_TRUE(tree.EndDrag());
        EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
        EXPECT_EQ(Happened(), Lines{});
    }
};

TEST_F(FailedDrops, BeforeTheFirstEditTheListsAreWholeAndTheEventIsNotRaised) {
    const ModuleLists before = Store();
    for (const StringView call :
         {L"Tree.DropHighlight", L"Tree.Selected", L"Tree.Key", L"Tree.Parent"}) {
        for (const StringView target : {L"LSR0", L"CHI1LTE"}) {
            SCOPED_TRACE(testing::PrintToString(call) + testing::PrintToString(target));
            FailInTheDrop(String(call));
            ExpectFailedDrag(L"CHI0LTE", String(target));
            ExpectLists(before, false);
            EXPECT_EQ(LinesBelow(L"LTE").size(), 2U);
            EXPECT_EQ(LinesBelow(L"LSR0").size(), 2U);
        }
    }
}

TEST_F(FailedDrops, BetweenTheListsTheLineIsInNoneButHeldAndPasteBringsItBack) {
    ModuleLists without = Store();
    p_Subrange& set = without.MainTest;
    const p_Action line = set.Enter[0];
    Fill(set, EnterList, {});
    ModuleLists pasted = without;
    Fill(pasted.MainTest, LeaveList, {set.Leave[0], set.Leave[1], line});
    host->beforeCall = [](StringView operation, sim::CallArguments arguments) {
        if (operation == L"Tree.Select" && sim::ArgumentText(arguments) == L"\"LTE\"") {
            throw RunTimeError(57, L"no more handles", L"Tree");
        }
    };
    ExpectFailedDrag(L"CHI0ETE", L"LTE");
    ExpectLists(without, true);
    ChooseFromMenu(L"LTE", L"T(9017)");
    ExpectLists(pasted, true);
}

// ---- the section of a device -------------------------------------------------------------------

const Lines Settings = {L"Gain=3", L"Mode=on"};

/// A template whose start list sets a device with section 7.
class DroppedDevices : public MouseTest {
  protected:
    DroppedDevices() {
        context.ModuleFileNames.fill(L"setup.ini");
        host->files[L"setup.ini"][L"Actions7-Device"] = Settings;
        Fill(State().MainTest, EnterList, {OnDevice(atSetDevice, L"Generator")});
        Fill(State().MainTest, LeaveList, {});
        OpenWhole(aceTemplate);
    }
    static std::vector<std::int32_t> Sections(const DynArray<p_Action>& actions,
                                              std::int32_t count) {
        std::vector<std::int32_t> sections;
        for (std::int32_t i = 0; i < count; ++i) {
            sections.push_back(std::get<aceSetDevice>(actions[i].Parameter).ChanNo);
        }
        return sections;
    }
    std::vector<std::int32_t> Starts() {
        return Sections(Store().MainTest.Enter, Store().MainTest.EnterCount);
    }
    std::vector<std::int32_t> Stops() {
        return Sections(Store().MainTest.Leave, Store().MainTest.LeaveCount);
    }
};

TEST_F(DroppedDevices, ALineThatIsMovedKeepsItsSection) {
    EXPECT_TRUE(tree.DragTo(L"CHI0ETE", L"LTE"));
    EXPECT_EQ(Store().MainTest.EnterCount, 0);
    EXPECT_THAT(Stops(), ElementsAre(7));
    EXPECT_EQ(context.DeviceSectionCounter, 100);
    EXPECT_EQ(host->files[L"setup.ini"].size(), 1U);
}

TEST_F(DroppedDevices, ACopyWithControlHasASectionOfItsOwn) {
    EXPECT_TRUE(tree.DragTo(L"CHI0ETE", L"LTE", ShiftKeys::Control));
    EXPECT_THAT(Starts(), ElementsAre(7));
    EXPECT_THAT(Stops(), ElementsAre(101));
    EXPECT_EQ(context.DeviceSectionCounter, 101);
    EXPECT_EQ(host->files[L"setup.ini"][L"Actions101-Device"], Settings);
    EXPECT_EQ(host->files[L"setup.ini"][L"Actions7-Device"], Settings);
}

TEST_F(DroppedDevices, ACopyWithAnyOtherKeysSharesTheSection) {
    constexpr std::int32_t both = ShiftKeys::Shift | ShiftKeys::Control;
    for (const std::int32_t keys :
         {ShiftKeys::Shift, both, ShiftKeys::Alt, ShiftKeys::Alt | ShiftKeys::Shift,
          ShiftKeys::Alt | ShiftKeys::Control, ShiftKeys::Alt | both}) {
        EXPECT_TRUE(tree.DragTo(L"CHI0ETE", L"LTE", keys)) << keys;
    }
    EXPECT_THAT(Starts(), ElementsAre(7));
    EXPECT_THAT(Stops(), ElementsAre(7, 7, 7, 7, 7, 7));
    EXPECT_EQ(context.DeviceSectionCounter, 100);
    EXPECT_EQ(host->files[L"setup.ini"].size(), 1U);
}

TEST_F(DroppedDevices, ACopyOnItsOwnMomentWithControlHasOneToo) {
    EXPECT_TRUE(tree.DragTo(L"CHI0ETE", L"ETE", ShiftKeys::Control));
    EXPECT_THAT(Starts(), ElementsAre(7, 101));
}

}  // namespace
}  // namespace ace::test
