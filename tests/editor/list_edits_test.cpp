#include <ace/editor/list_edits.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Seconds = std::vector<int>;

/// One list of waits that are told apart by their seconds, and the primitives on it.
class ListEdits : public EngineTest {
  protected:
    ActionList List() { return {count, actions}; }
    /// An array of waits, and a count beside it that may differ.
    void Make(const Seconds& seconds, std::int32_t counted) {
        actions.Erase();
        for (const int one : seconds) {
            actions.RedimPreserve(actions.IsAllocated() ? actions.UpperBound() + 1 : 0);
            actions[actions.UpperBound()] = WaitFor(one * 1000.0);
        }
        count = counted;
    }
    void Make(const Seconds& seconds) { Make(seconds, static_cast<std::int32_t>(seconds.size())); }
    /// The whole array.
    Seconds Elements() const {
        Seconds seconds;
        for (const p_Action& action : actions) {
            seconds.push_back(static_cast<int>(std::get<aceWait>(action.Parameter).Time / 1000.0));
        }
        return seconds;
    }
    /// A wait of 9 seconds.
    void Insert(std::int32_t position, bool newSection = true) {
        HeldAction held;
        Hold(held, WaitFor(9000));
        InsertEntry(stmt, State(), held, List(), position, newSection);
    }
    void Remove(std::int32_t index) { RemoveEntry(stmt, List(), index); }
    void Move(std::int32_t from, std::int32_t to) { MoveEntry(stmt, List(), from, to); }

    Statements stmt{context};
    std::int32_t count = 0;
    DynArray<p_Action> actions;
};

// ---- InsertEntry -------------------------------------------------------------------------------

TEST_F(ListEdits, TheFirstEntryMakesTheArray) {
    Insert(0);
    EXPECT_THAT(Elements(), ElementsAre(9));
    EXPECT_EQ(actions.LowerBound(), 0);
    EXPECT_EQ(count, 1);
}

TEST_F(ListEdits, AnEntryTakesItsPositionAndThoseFromThereOnMoveUp) {
    const std::vector<Seconds> expected = {{9, 1, 2, 3}, {1, 9, 2, 3}, {1, 2, 9, 3}, {1, 2, 3, 9}};
    for (std::int32_t position = 0; position <= 3; ++position) {
        Make({1, 2, 3});
        Insert(position);
        EXPECT_EQ(Elements(), expected[static_cast<std::size_t>(position)]) << position;
        EXPECT_EQ(count, 4);
    }
}

TEST_F(ListEdits, APositionBeyondTheListIsBehindItsLastEntry) {
    for (const std::int32_t position : {4, 2147483647}) {
        Make({1, 2, 3});
        Insert(position);
        EXPECT_THAT(Elements(), ElementsAre(1, 2, 3, 9));
        EXPECT_EQ(count, 4);
    }
}

TEST_F(ListEdits, WhatStandsBehindTheCountGoesWithAnInsertion) {
    Make({1, 2, 3, 4}, 2);
    Insert(1);
    EXPECT_THAT(Elements(), ElementsAre(1, 9, 2));
    EXPECT_EQ(count, 3);
}

TEST_F(ListEdits, AnArrayBesideACountOf0MakesWayForTheFirstEntry) {
    Make({1, 2, 3}, 0);
    Insert(3);
    EXPECT_THAT(Elements(), ElementsAre(9));
    EXPECT_EQ(count, 1);
}

TEST_F(ListEdits, AnInsertedEntryIsNotSilentAndUsesNoVariables) {
    p_Action told = Tell(L"Close the door");
    told.IgnoreErr = true;
    std::get<aceNotify>(told.Parameter).vks.count = 2;
    HeldAction held;
    Hold(held, told);
    InsertEntry(stmt, State(), held, List(), 0, false);
    EXPECT_EQ(actions[0], Tell(L"Close the door"));
    EXPECT_EQ(held.Action, told) << "what is held stays";
}

TEST_F(ListEdits, AnArrayThatIsHeldRefusesTheInsertionWithTheCountAsItWas) {
    Make({1, 2, 3});
    const DynArray<p_Action>::Hold running(actions);
    EXPECT_EQ(ErrorOf([&] { Insert(0); }), 10);
    EXPECT_THAT(Elements(), ElementsAre(1, 2, 3));
    EXPECT_EQ(count, 3);
}

// ---- RemoveEntry -------------------------------------------------------------------------------

TEST_F(ListEdits, ARemovedEntryLetsThoseBehindItMoveDown) {
    const std::vector<Seconds> expected = {{2, 3}, {1, 3}, {1, 2}};
    for (std::int32_t index = 0; index <= 2; ++index) {
        Make({1, 2, 3});
        Remove(index);
        EXPECT_EQ(Elements(), expected[static_cast<std::size_t>(index)]) << index;
        EXPECT_EQ(count, 2);
    }
}

TEST_F(ListEdits, TheLastEntryGoesWithTheArraySoThatItsBoundIsAnError) {
    Make({1});
    Remove(0);
    EXPECT_EQ(count, 0);
    EXPECT_FALSE(actions.IsAllocated());
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(actions.UpperBound()); }), 9);
}

TEST_F(ListEdits, WithOneCountedEntryOrNoneTheWholeArrayGoes) {
    for (const std::int32_t counted : {1, 0, -1}) {
        Make({1, 2, 3}, counted);
        Remove(2);
        EXPECT_FALSE(actions.IsAllocated()) << counted;
        EXPECT_EQ(count, 0) << counted;
    }
}

TEST_F(ListEdits, WhatStandsBehindTheCountGoesWithARemoval) {
    Make({1, 2, 3, 4, 5}, 3);
    Remove(0);
    EXPECT_THAT(Elements(), ElementsAre(2, 3));
    EXPECT_EQ(count, 2);
}

TEST_F(ListEdits, ARemovalBehindTheLastEntryTakesTheLastOneAway) {
    Make({1, 2, 3});
    Remove(7);
    EXPECT_THAT(Elements(), ElementsAre(1, 2));
    EXPECT_EQ(count, 2);
}

TEST_F(ListEdits, ARemovalBelowTheListIsError9WithTheCountFallen) {
    Make({1, 2, 3});
    EXPECT_EQ(ErrorOf([&] { Remove(-1); }), 9);
    EXPECT_THAT(Elements(), ElementsAre(1, 2, 3));
    EXPECT_EQ(count, 2);
}

// ---- MoveEntry ---------------------------------------------------------------------------------

struct MoveRow {
    std::int32_t from;
    std::int32_t to;
    Seconds expected;
};
const MoveRow MoveRows[] = {
    {0, 1, {2, 1, 3, 4}},  {0, 3, {2, 3, 4, 1}},
    {1, 2, {1, 3, 2, 4}},  {3, 0, {4, 1, 2, 3}},
    {2, 1, {1, 3, 2, 4}},  {3, 2, {1, 2, 4, 3}},
    {0, 0, {1, 2, 3, 4}},  {3, 3, {1, 2, 3, 4}},
    {-1, 2, {1, 2, 3, 4}}, {2, -1, {1, 2, 3, 4}},
    {5, 0, {1, 2, 3, 4}},  {0, 5, {1, 2, 3, 4}},
    {-1, 5, {1, 2, 3, 4}}, {2147483647, -2147483647, {1, 2, 3, 4}},
};

TEST_F(ListEdits, AMoveTakesAnEntryOutAndPutsItInAtItsNewPlace) {
    for (const MoveRow& row : MoveRows) {
        Make({1, 2, 3, 4});
        Move(row.from, row.to);
        EXPECT_EQ(Elements(), row.expected) << row.from << " to " << row.to;
        EXPECT_EQ(count, 4);
    }
}

TEST_F(ListEdits, AMoveToTheCountIsLetThroughAndEndsAtTheArray) {
    Make({1, 2, 3, 4});
    EXPECT_EQ(ErrorOf([&] { Move(0, 4); }), 9);
    EXPECT_THAT(Elements(), ElementsAre(1, 2, 3, 4)) << "nothing has moved";
    Make({1, 2, 3, 4}, 3);
    Move(0, 3);
    EXPECT_THAT(Elements(), ElementsAre(2, 3, 4, 1)) << "an array that is longer has the place";
}

TEST_F(ListEdits, AMoveFromTheCountEndsAtTheArrayAndMovesNothing) {
    Make({1, 2, 3, 4});
    EXPECT_EQ(ErrorOf([&] { Move(4, 0); }), 9);
    EXPECT_THAT(Elements(), ElementsAre(1, 2, 3, 4));
}

TEST_F(ListEdits, AMoveInAnEmptyListEndsAtTheArray) {
    EXPECT_EQ(ErrorOf([&] { Move(0, 0); }), 9);
    EXPECT_THAT(Elements(), IsEmpty());
}

// ---- ClearEntries ------------------------------------------------------------------------------

TEST_F(ListEdits, ClearingErasesTheArray) {
    for (const std::int32_t counted : {3, 1, 0}) {
        Make({1, 2, 3}, counted);
        ClearEntries(List());
        EXPECT_FALSE(actions.IsAllocated());
        EXPECT_EQ(count, 0);
    }
    ClearEntries(List());
    EXPECT_EQ(count, 0) << "an empty one too";
}

}  // namespace
}  // namespace ace::test
