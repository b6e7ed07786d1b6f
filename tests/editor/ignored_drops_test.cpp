/// Drops of lines of which nothing comes, and those that a toolkit hands on although the drag had
/// no effect.
#include "editor/mouse_acts.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class IgnoredDrops : public MouseTest {
  protected:
    /// Drags a line, drops it whatever would come of that, and ends the drag.
    void DropAnyway(const String& from, const std::optional<String>& to, std::int32_t shift = 0) {
        ASSERT_TRUE(tree.BeginDrag(from));
        EXPECT_TRUE(tree.DropAnyway(*tree.Dragged(), to, shift));
        EXPECT_TRUE(tree.EndDrag());
    }
    void ExpectOnlyTheEvent(const ModuleLists& before) {
        EXPECT_THAT(Happened(), ElementsAre(DragComplete));
        ExpectLists(before, false);
    }
};

// ---- nothing comes of it -----------------------------------------------------------------------

TEST_F(IgnoredDrops, OnItselfALineStaysWithEveryKey) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
        EXPECT_FALSE(tree.DragTo(L"CHI1EFR", L"CHI1EFR", shift));
        EXPECT_EQ(Happened(), Lines{});
        DropAnyway(L"CHI1EFR", L"CHI1EFR", shift);
        ExpectOnlyTheEvent(before);
    }
}

TEST_F(IgnoredDrops, WhereNoListIsReachedTheLineStaysWhereItIs) {
    OpenWhole(aceVKSDUT, RowsInGroups);
    const ModuleLists before = Store();
    for (const StringView key : {L"TST0_-1_-1", L"TST1_-1_-1", L"TST2_-1_-1", L"STE-1"}) {
        for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
            EXPECT_FALSE(tree.DragTo(L"CHI0STE0", String(key), shift));
            EXPECT_EQ(Happened(), Lines{});
            DropAnyway(L"CHI0STE0", String(key), shift);
            ExpectOnlyTheEvent(before);
            EXPECT_EQ(LinesBelow(L"STE0").size(), 1U);
        }
    }
}

TEST_F(IgnoredDrops, AGroupOfTheMatrixIsNoLineAndStays) {
    OpenWhole(aceVKSDUT, RowsInGroups);
    const ModuleLists before = Store();
    for (const StringView key : {L"STE0", L"CHI0STE0", L"TST1_-1_-1", L"STE-1"}) {
        for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
            EXPECT_FALSE(tree.DragTo(L"TST0_-1_-1", String(key), shift));
            DropAnyway(L"TST0_-1_-1", String(key), shift);
            ExpectOnlyTheEvent(before);
        }
    }
}

TEST_F(IgnoredDrops, WhereNoLineIsSelectedThereIsNoneToDrop) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    for (const std::optional<String>& selected :
         {std::optional<String>(), std::optional<String>(L"ESR0"), std::optional<String>(L"ETE")}) {
        ASSERT_TRUE(tree.GoTo(selected));
        host->journal.Clear();
        for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
            EXPECT_TRUE(tree.DropAnyway(LineDragged(L"WAI"), L"LTE", shift));
            ExpectOnlyTheEvent(before);
        }
    }
}

// ---- the drop asks no rule ---------------------------------------------------------------------

TEST_F(IgnoredDrops, OnALineOfAnotherListWhatIsDroppedAllTheSameGoesBehindIt) {
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    p_Subrange& set = expected.MainTest;
    Fill(set, LeaveList, {set.Leave[0], set.Enter[0], set.Leave[1]});
    Fill(set, EnterList, {});
    EXPECT_FALSE(tree.DragTo(L"CHI0ETE", L"CHI0LTE"));
    EXPECT_EQ(Happened(), Lines{});
    DropAnyway(L"CHI0ETE", L"CHI0LTE");
    EXPECT_THAT(Happened(), ElementsAre(DragComplete));
    ExpectLists(expected, true);
}

TEST_F(IgnoredDrops, OnAMomentThatRefusesItWhatIsDroppedAllTheSameGoesByTheKeys) {
    for (std::int32_t shift = 0; shift < ShiftCount; ++shift) {
        Fill(State().MainTest, EnterList, {WaitFor(1), WaitFor(2)});
        Fill(State().MainTest, FreqList, {WaitFor(3)});
        OpenWhole(aceTemplate);
        ModuleLists expected = Store();
        Fill(expected.MainTest, FreqList, {WaitFor(3), WaitFor(1)});
        if (shift == 0) {
            Fill(expected.MainTest, EnterList, {WaitFor(2)});
        }
        EXPECT_FALSE(tree.DragTo(L"CHI0ETE", L"EFR", shift));
        DropAnyway(L"CHI0ETE", L"EFR", shift);
        EXPECT_THAT(Happened(), ElementsAre(DragComplete));
        ExpectLists(expected, true);
    }
}

// ---- while a list of the module runs -----------------------------------------------------------

class DropsOfARun : public IgnoredDrops {
  protected:
    /// `act` happens while the first wait of the start list runs.
    void RunAnd(const std::function<void()>& act) {
        host->onTimedMessage = [&] {
            host->onTimedMessage = nullptr;
            act();
        };
        engine->StartTest();
        EXPECT_FALSE(host->onTimedMessage);
        host->onTimedMessage = nullptr;
    }
    std::int32_t ErrorOfDrag(const String& from, const String& to, std::int32_t shift = 0) {
        const std::int32_t error = ErrorOf([&] { tree.DragTo(from, to, shift); });
        tree.EndDrag();
        return error;
    }
};

TEST_F(DropsOfARun, AMoveOfALineIsError10AndTheLineIsStillThere) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    RunAnd([&] {
        EXPECT_EQ(ErrorOfDrag(L"CHI0LTE", L"EFR", ShiftKeys::Control), 0) << "refused by the rule";
        EXPECT_EQ(ErrorOfDrag(L"CHI0LTE", L"LSR0"), 10);
    });
    EXPECT_EQ(Store(), before);
    EXPECT_EQ(Parts().lists.MainTest, before.MainTest);
    EXPECT_EQ(LinesBelow(L"LTE").size(), 2U);
    EXPECT_EQ(LinesBelow(L"LSR0").size(), 2U);
}

TEST_F(DropsOfARun, BehindTheRunTheSameDragMovesTheLine) {
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    Fill(expected.MainSubranges[0], LeaveList,
         {expected.MainSubranges[0].Leave[0], expected.MainSubranges[0].Leave[1],
          expected.MainTest.Leave[0]});
    Fill(expected.MainTest, LeaveList, {expected.MainTest.Leave[1]});
    RunAnd([&] { EXPECT_EQ(ErrorOfDrag(L"CHI0LTE", L"LSR0"), 10); });
    EXPECT_TRUE(tree.DragTo(L"CHI0LTE", L"LSR0"));
    ExpectLists(expected, true);
}

/// Nothing is inserted that the next OK would insert once more.
TEST_F(DropsOfARun, OkToAKindThatIsDroppedIsError10AndTheDialogStays) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    ExpectDialog({sim::Do([](Form& form) {
                      EXPECT_EQ(ErrorOf([&] { sim::Press(L"cmdOK")(form); }), 10);
                      EXPECT_TRUE(form.IsShown());
                  }),
                  sim::Press(L"cmdCancel")});
    RunAnd([&] { EXPECT_TRUE(tree.Drop(KindDragged(atWait), L"LTE")); });
    EXPECT_EQ(Store(), before);
    EXPECT_EQ(Parts().lists.MainTest.LeaveCount, before.MainTest.LeaveCount);
}

TEST_F(DropsOfARun, OfAnotherModuleNothingIsRefused) {
    aceActionsEngine other(context);
    Fill(other.State().AziChart, EnterList, {WaitFor(1)});
    other.State().Modul = aceAziChart;
    OpenWhole(aceTemplate);
    host->onTimedMessage = [&] { EXPECT_EQ(ErrorOfDrag(L"CHI0LTE", L"LSR0"), 0); };
    other.StartTest();
    host->onTimedMessage = nullptr;
    EXPECT_EQ(LinesBelow(L"LSR0").size(), 3U);
    EXPECT_TRUE(engine->Change());
}

}  // namespace
}  // namespace ace::test
