#include <limits>

#include <ace/core/action_store.h>

#include "support/store_fixture.h"

namespace ace::test {
namespace {

constexpr std::int32_t Lowest = std::numeric_limits<std::int32_t>::min();

/// One numbered list with its count, as a load or earlier operations left it.
class EntryTest : public HostTest {
  protected:
    EntryTest() { context.TraceLog(); }

    /// Letters for the elements; those behind `entries` are spare.
    void Have(StringView letters, std::int32_t entries) {
        list = Letters(letters);
        count = entries;
    }
    std::int32_t Add(std::int32_t at) {
        index = at;
        return ErrorOf([&] { modActions::AddEntry(context, list, count, index); });
    }
    std::int32_t Delete(std::int32_t at) {
        index = at;
        return ErrorOf([&] { modActions::DeleteEntry(context, list, count, index); });
    }
    Lines Texts() const { return TextsOf(list); }

    DynArray<p_Subrange> list;
    std::int32_t count = 0;
    std::int32_t index = 0;
};

// ---- adding --------------------------------------------------------------------------------

TEST_F(EntryTest, AddMovesTheEntriesFromTheIndexOnUpAndLeavesTheIndexFromZero) {
    Have(L"ABC", 3);

    EXPECT_EQ(Add(2), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"..B.", L"BBBB", L"CCCC", L"...."}));
    EXPECT_EQ(count, 4);
    EXPECT_EQ(index, 1);
}

TEST_F(EntryTest, AddedEntryKeepsTheFrequencyListOfTheOneThatStoodThere) {
    Have(L"A", 1);

    EXPECT_EQ(Add(1), 0);

    EXPECT_EQ(Texts(), (Lines{L"..A.", L"AAAA", L"...."}));
}

TEST_F(EntryTest, AddedEntryKeepsTheFifthListToo) {
    Have(L"AB", 2);
    list[0].UtilCount = 1;
    list[0].Util.Redim(0, 0);

    EXPECT_EQ(Add(1), 0);

    EXPECT_EQ(list[0].UtilCount, 1);
    EXPECT_EQ(list[0].Util, list[1].Util);
    EXPECT_TRUE(list[1].Util.IsAllocated());
    EXPECT_EQ(list[2].UtilCount, 0);
}

TEST_F(EntryTest, AddOneAboveTheCountInsertsBehindTheLastAndEmptiesThreeListsOfTheSpare) {
    Have(L"ABX", 2);

    EXPECT_EQ(Add(3), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"..X.", L"XXXX"}));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(index, 2);
}

TEST_F(EntryTest, AddFarAboveTheCountAppendsBehindAnEntryThatStaysAsTheSpareWas) {
    Have(L"ABX", 2);

    EXPECT_EQ(Add(4), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"XXXX", L"...."}));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(index, 3);
}

TEST_F(EntryTest, AddFarAboveTheCountAfterALoadLeavesAnEmptyLastEntryAndAnEmptySpare) {
    Have(L"AB", 2);

    EXPECT_EQ(Add(99), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"....", L"...."}));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(index, 3);
}

TEST_F(EntryTest, FirstAddToAListThatWasNeverLoadedOnlyMakesTheSpare) {
    count = -1;

    EXPECT_EQ(Add(1), 0);
    EXPECT_EQ(Texts(), Lines{L"...."});
    EXPECT_EQ(count, 0);

    EXPECT_EQ(Add(1), 0);
    EXPECT_EQ(Texts(), (Lines{L"....", L"...."}));
    EXPECT_EQ(count, 1);
}

TEST_F(EntryTest, AddAtZeroIsErrorNineWithTheCountRaisedAndEverythingShifted) {
    Have(L"AB", 2);

    EXPECT_EQ(Add(0), 9);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"AAAA", L"BBBB", L"...."}));
    EXPECT_EQ(count, 3);
    EXPECT_EQ(index, -1);
}

TEST_F(EntryTest, AddFarBelowZeroDoesTheSame) {
    Have(L"A", 1);

    EXPECT_EQ(Add(-5), 9);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"AAAA", L"...."}));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(index, -6);
}

TEST_F(EntryTest, AddWithACountBelowMinusOneIsErrorNine) {
    Have(L" ", -2);

    EXPECT_EQ(Add(1), 9);

    EXPECT_EQ(Texts(), Lines{L"...."});
    EXPECT_EQ(count, -1);
}

TEST_F(EntryTest, AddBelowTheSmallestIndexIsErrorSixAndChangesNothing) {
    Have(L"A", 1);

    EXPECT_EQ(Add(Lowest), 6);

    EXPECT_EQ(Texts(), Lines{L"AAAA"});
    EXPECT_EQ(count, 1);
}

TEST_F(EntryTest, AddToAListThatIsHeldIsErrorTenAndChangesNothing) {
    Have(L"AB", 2);
    const DynArray<p_Subrange>::Hold hold(list);

    EXPECT_EQ(Add(1), 10);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(index, 1);
}

// ---- deleting ------------------------------------------------------------------------------

TEST_F(EntryTest, DeleteMovesTheEntriesBehindItDownAndLeavesACopyOfTheLastAsSpare) {
    Have(L"AB", 2);

    EXPECT_EQ(Delete(1), 0);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"BBBB"}));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(index, 0);
}

TEST_F(EntryTest, DeleteTakesAwayTheOldSpare) {
    Have(L"ABCX", 3);

    EXPECT_EQ(Delete(2), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"CCCC", L"CCCC"}));
    EXPECT_EQ(count, 2);
}

TEST_F(EntryTest, DeleteOfTheOnlyEntryLeavesItAsSpare) {
    Have(L"AX", 1);

    EXPECT_EQ(Delete(1), 0);

    EXPECT_EQ(Texts(), Lines{L"AAAA"});
    EXPECT_EQ(count, 0);
}

TEST_F(EntryTest, DeleteBeyondTheCountOnlyShortensTheListByItsLastEntry) {
    Have(L"ABC", 3);

    EXPECT_EQ(Delete(9), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"CCCC"}));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(index, 8);
}

TEST_F(EntryTest, DeleteFromAnEmptyListMakesTheCountMinusOneAndTheArrayAnew) {
    Have(L"A", 0);

    EXPECT_EQ(Delete(1), 0);
    EXPECT_EQ(Texts(), Lines{L"...."});
    EXPECT_EQ(count, -1);

    EXPECT_EQ(Delete(1), 0);
    EXPECT_EQ(Texts(), Lines{L"...."});
    EXPECT_EQ(count, -2);
}

TEST_F(EntryTest, DeleteAtZeroIsErrorNineWithTheCountLoweredAndNothingShifted) {
    Have(L"AB", 2);

    EXPECT_EQ(Delete(0), 9);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(count, 1);
    EXPECT_EQ(index, -1);
}

TEST_F(EntryTest, DeleteFromAnArrayThatIsShorterThanItsCountIsErrorNineBehindItsLastElement) {
    Have(L"ABC", 5);

    EXPECT_EQ(Delete(1), 9);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"CCCC", L"CCCC"}));
    EXPECT_EQ(count, 4);
}

TEST_F(EntryTest, DeleteBelowTheSmallestIndexIsErrorSixAndChangesNothing) {
    Have(L"A", 1);

    EXPECT_EQ(Delete(Lowest), 6);

    EXPECT_EQ(count, 1);
}

TEST_F(EntryTest, DeleteFromAListThatIsHeldIsErrorTenAndChangesNothing) {
    Have(L"AB", 2);
    const DynArray<p_Subrange>::Hold hold(list);

    EXPECT_EQ(Delete(1), 10);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(index, 1);
}

// ---- the spare element -----------------------------------------------------------------------

TEST_F(EntryTest, DeleteAndAddFarAboveTheCountLeaveADuplicateOfTheLastEntry) {
    Have(L"AB", 2);
    Delete(1);

    EXPECT_EQ(Add(99), 0);

    EXPECT_EQ(Texts(), (Lines{L"BBBB", L"BBBB", L"...."}));
    EXPECT_EQ(count, 2);
}

TEST_F(EntryTest, DeleteAndAddOneAboveTheCountInheritTheOldFrequencyList) {
    Have(L"AB", 2);
    Delete(2);

    EXPECT_EQ(Add(2), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"..B.", L"BBBB"}));
    EXPECT_EQ(count, 2);
}

// ---- lines and errors ----------------------------------------------------------------------

TEST_F(EntryTest, BothTellTheIndexThatTheyWereGivenInTheirStartLine) {
    Have(L"AB", 2);
    host->tracing = true;

    Add(2);
    Delete(7);

    const String module = L"modActions (Code)";
    EXPECT_EQ(TakeEffects(),
              Journal(Start(module, L"AddEntry", L"Index = 2"), End(L"AddEntry"),
                      Start(module, L"DeleteEntry", L"Index = 7"), End(L"DeleteEntry")));
}

TEST_F(EntryTest, BothReportAnErrorOnceAndThenWriteNoEndLine) {
    Have(L"AB", 2);
    host->tracing = true;

    Add(0);
    Delete(-3);

    const String module = L"modActions (Code)";
    EXPECT_EQ(TakeEffects(),
              Journal(Start(module, L"AddEntry", L"Index = 0"), SubscriptReported,
                      Start(module, L"DeleteEntry", L"Index = -3"), SubscriptReported));
}

TEST_F(EntryTest, StatementThatIsTriedAgainRepeatsNeitherTheCountNorTheShift) {
    Have(L"AB", 2);
    host->reportAnswers = {ITraceLog::RetryStatement, ITraceLog::RetryStatement};

    EXPECT_EQ(Add(0), 9);

    EXPECT_EQ(TakeEffects(), Journal(SubscriptReported, SubscriptReported, SubscriptReported));
    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"AAAA", L"BBBB", L"...."}));
    EXPECT_EQ(count, 3);
}

TEST_F(EntryTest, HoldThatEndsBeforeTheStatementIsTriedAgainLetsTheEntryBeAdded) {
    Have(L"AB", 2);
    host->reportAnswers = {ITraceLog::RetryStatement};
    std::optional<DynArray<p_Subrange>::Hold> hold(list);
    host->journal.Observe([&](const sim::HostCall& call) {
        if (call.operation == L"TraceLog.ReportError") {
            hold.reset();
        }
    });

    EXPECT_EQ(Add(3), 0);

    EXPECT_EQ(Texts(), (Lines{L"AAAA", L"BBBB", L"....", L"...."}));
    EXPECT_EQ(count, 3);
}

// ---- finding a key -----------------------------------------------------------------------------

TEST(FindKeyTest, TheFirstOfEqualKeysIsFoundToTheLetter) {
    const DynArray<String> keys = ArrayOf<String>({L"a", L"B", L"A", L"A", L""});
    EXPECT_EQ(FindKey(keys, 5, L"A"), 2);
    EXPECT_EQ(FindKey(keys, 5, L"b"), -1);
    EXPECT_EQ(FindKey(keys, 5, L""), 4);
}

TEST(FindKeyTest, WhatStandsBehindTheCountIsNotAsked) {
    const DynArray<String> keys = ArrayOf<String>({L"A", L"B"});
    EXPECT_EQ(FindKey(keys, 1, L"B"), -1);
    EXPECT_EQ(FindKey(keys, 0, L"A"), -1);
    EXPECT_EQ(FindKey(keys, -1, L"A"), -1);
    EXPECT_EQ(FindKey({}, 0, L"A"), -1) << "no array, but none is needed";
}

TEST(FindKeyTest, AnArrayThatEndsBeforeTheKeyIsErrorNine) {
    constexpr std::int64_t MostAndOne = std::int64_t{1} << 31U;
    const DynArray<String> keys = ArrayOf<String>({L"A", L"B"});
    EXPECT_EQ(FindKey(keys, MostAndOne, L"B"), 1);
    EXPECT_EQ(ErrorOf([&] { FindKey(keys, MostAndOne, L"C"); }), 9);
    EXPECT_EQ(ErrorOf([&] { FindKey(keys, 3, L"C"); }), 9);
    EXPECT_EQ(ErrorOf([&] { FindKey({}, 1, L"A"); }), 9);
}

}  // namespace
}  // namespace ace::test
