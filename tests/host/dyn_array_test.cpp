#include <gtest/gtest.h>
#include <memory>
#include <string>

#include <ace/host/array_2d.h>

#include "support/error_of.h"

namespace ace {
namespace {

using test::ErrorOf;

TEST(DynArray, AFreshArrayIsUnallocatedAndHasNoBounds) {
    const DynArray<int> array;
    EXPECT_FALSE(array.IsAllocated());
    EXPECT_EQ(ErrorOf([&] { array.LowerBound(); }), 9);
    EXPECT_EQ(ErrorOf([&] { array.UpperBound(); }), 9);
    EXPECT_EQ(ErrorOf([&] { (void)array[0]; }), 9);
}

TEST(DynArray, BoundsZeroToZeroDifferFromUnallocated) {
    DynArray<int> array;
    array.Redim(0, 0);
    EXPECT_TRUE(array.IsAllocated());
    EXPECT_EQ(array.LowerBound(), 0);
    EXPECT_EQ(array.UpperBound(), 0);
    EXPECT_NE(array, DynArray<int>());
}

TEST(DynArray, AccessGoesByTheBounds) {
    DynArray<int> array;
    array.Redim(1, 3);
    array[1] = 10;
    array[3] = 30;
    EXPECT_EQ(array[3], 30);
    EXPECT_EQ(ErrorOf([&] { array[0] = 1; }), 9);
    EXPECT_EQ(ErrorOf([&] { array[4] = 1; }), 9);
    EXPECT_EQ(ErrorOf([&] { array[-2147483647 - 1] = 1; }), 9);
    EXPECT_EQ(ErrorOf([&] { array[2147483647] = 1; }), 9);
}

TEST(DynArray, AnUpperBoundBelowTheLowerIsError9AndChangesNothing) {
    DynArray<int> array;
    EXPECT_EQ(ErrorOf([&] { array.Redim(0, -1); }), 9);
    EXPECT_FALSE(array.IsAllocated());
    array.Redim(0, 1);
    array[1] = 7;
    EXPECT_EQ(ErrorOf([&] { array.RedimPreserve(-1); }), 9);
    EXPECT_EQ(array[1], 7);
}

TEST(DynArray, RedimPreserveKeepsWhatFits) {
    DynArray<std::string> array;
    array.RedimPreserve(1);
    array[0] = "a";
    array[1] = "b";
    array.RedimPreserve(2);
    EXPECT_EQ(array[1], "b");
    EXPECT_EQ(array[2], "");
    array.RedimPreserve(0);
    EXPECT_EQ(array[0], "a");
    EXPECT_EQ(array.UpperBound(), 0);
}

TEST(DynArray, RedimMakesFreshElements) {
    DynArray<int> array;
    array.Redim(0, 1);
    array[0] = 5;
    array.Redim(0, 1);
    EXPECT_EQ(array[0], 0);
}

TEST(DynArray, EraseLeavesTheUnallocatedState) {
    DynArray<int> array;
    array.Redim(0, 4);
    array.Erase();
    EXPECT_FALSE(array.IsAllocated());
    array.Erase();
    EXPECT_FALSE(array.IsAllocated());
}

TEST(DynArray, AHeldArrayRefusesEveryResizeAndAssignment) {
    DynArray<int> array;
    array.Redim(0, 1);
    array[0] = 1;
    DynArray<int> other;
    {
        const DynArray<int>::Hold hold(array);
        EXPECT_EQ(ErrorOf([&] { array.Redim(0, 5); }), 10);
        EXPECT_EQ(ErrorOf([&] { array.RedimPreserve(5); }), 10);
        EXPECT_EQ(ErrorOf([&] { array.Erase(); }), 10);
        EXPECT_EQ(ErrorOf([&] { array = other; }), 10);
        EXPECT_EQ(ErrorOf([&] { array = DynArray<int>(); }), 10);
        array[0] = 2;
    }
    EXPECT_EQ(array[0], 2);
    EXPECT_EQ(array.UpperBound(), 1);
    array.Erase();
}

TEST(DynArray, HoldsNestAndEndWithTheirScopeErrorsIncluded) {
    DynArray<int> array;
    array.Redim(0, 0);
    try {
        const DynArray<int>::Hold outer(array);
        { const DynArray<int>::Hold inner(array); }
        EXPECT_EQ(ErrorOf([&] { array.Erase(); }), 10);
        Raise(Errors::Overflow);
    } catch (const RunTimeError&) {
    }
    EXPECT_FALSE(array.IsHeld());
    EXPECT_EQ(ErrorOf([&] { array.Erase(); }), 0);
}

TEST(DynArray, ACopyIsDeepAndStartsWithoutAHold) {
    DynArray<int> array;
    array.Redim(0, 0);
    const DynArray<int>::Hold hold(array);
    DynArray<int> copy(array);
    copy[0] = 9;
    copy.Redim(0, 3);
    EXPECT_EQ(array[0], 0);
    EXPECT_EQ(array.UpperBound(), 0);
}

TEST(DynArray, AnArrayThatIsAssignedToItselfKeepsItsElements) {
    DynArray<int> array;
    array.Redim(1, 2);
    array[2] = 7;
    DynArray<int>& same = array;
    array = same;
    EXPECT_EQ(array[2], 7);
    array = std::move(same);
    EXPECT_EQ(array[2], 7);
}

TEST(DynArray, TheSameElementsUnderOtherBoundsAreAnotherArray) {
    DynArray<int> array;
    DynArray<int> other;
    array.Redim(0, 1);
    other.Redim(1, 2);
    EXPECT_FALSE(array == other);
    other.Redim(0, 1);
    EXPECT_TRUE(array == other);
}

TEST(DynArray, MovingFromAHeldArrayLeavesItsElementsInPlace) {
    DynArray<std::string> array;
    array.Redim(0, 0);
    array[0] = "stays";
    const DynArray<std::string>::Hold hold(array);
    const std::string* place = &array[0];
    const DynArray<std::string> taken(std::move(array));
    EXPECT_EQ(taken[0], "stays");
    EXPECT_EQ(&array[0], place);  // NOLINT(bugprone-use-after-move): what a hold promises
}

struct RefusesToBeMade {
    RefusesToBeMade() {
        if (refuse) {
            throw std::bad_alloc();
        }
    }
    static inline bool refuse = false;
};

TEST(DynArray, AnAllocationThatFailsIsError7AndKeepsTheArray) {
    DynArray<RefusesToBeMade> array;
    array.Redim(0, 1);
    RefusesToBeMade::refuse = true;
    EXPECT_EQ(ErrorOf([&] { array.Redim(0, 5); }), 7);
    EXPECT_EQ(ErrorOf([&] { array.RedimPreserve(5); }), 7);
    RefusesToBeMade::refuse = false;
    EXPECT_EQ(array.UpperBound(), 1);
}

TEST(DynArray, MoreElementsThanCanBeAddressedAreError7) {
    struct Huge {
        char bytes[0x80000000];
    };
    DynArray<Huge> array;
    EXPECT_EQ(ErrorOf([&] { array.Redim(-2147483647 - 1, 2147483647); }), 7);
    EXPECT_FALSE(array.IsAllocated());
}

TEST(Array2D, BoundsAndCellsGoByBothDimensions) {
    Array2D<double> array;
    EXPECT_EQ(ErrorOf([&] { array.RowUpperBound(); }), 9);
    array.Redim(0, 2, 0, 2);
    array(2, 0) = 1.5;
    array(1, 2) = 2.5;
    EXPECT_EQ(array(2, 0), 1.5);
    EXPECT_EQ(array(1, 2), 2.5);
    EXPECT_EQ(ErrorOf([&] { array(0, 3) = 1; }), 9);
    EXPECT_EQ(ErrorOf([&] { array(3, 0) = 1; }), 9);
    EXPECT_EQ(ErrorOf([&] { array(-1, 0) = 1; }), 9);
    EXPECT_EQ(ErrorOf([&] { array(0, -1) = 1; }), 9);
}

TEST(Array2D, BoundsThatCrossAreError9AndMoreCellsThanCanBeCountedError7) {
    Array2D<double> array;
    EXPECT_EQ(ErrorOf([&] { array.Redim(0, -1, 0, 2); }), 9);
    EXPECT_EQ(ErrorOf([&] { array.Redim(0, 2, 0, -1); }), 9);
    EXPECT_EQ(ErrorOf([&] { array.Redim(0, 2147483646, 0, 1); }), 7);
    EXPECT_FALSE(array.IsAllocated());
}

TEST(Array2D, RowsAreKeptWhenTheirUpperBoundMoves) {
    Array2D<double> array;
    array.Redim(0, 1, 0, 2);
    array(1, 1) = 4;
    array.RedimPreserveRows(3);
    EXPECT_EQ(array(1, 1), 4);
    EXPECT_EQ(array(3, 2), 0);
    array.RedimPreserveRows(0);
    EXPECT_EQ(array.RowUpperBound(), 0);
    EXPECT_EQ(ErrorOf([&] { array.RedimPreserveRows(-1); }), 9);
}

TEST(Array2D, ARowIsItsCellsSideBySide) {
    Array2D<double> array;
    EXPECT_EQ(ErrorOf([&] { array.Row(0); }), 9);
    array.Redim(0, 1, 0, 2);
    array(1, 0) = 4;
    array(1, 2) = 6;
    const double* const row = array.Row(1);
    EXPECT_EQ(row[0], 4);
    EXPECT_EQ(row[1], 0);
    EXPECT_EQ(row[2], 6);
    EXPECT_EQ(ErrorOf([&] { array.Row(2); }), 9);
    EXPECT_EQ(ErrorOf([&] { array.Row(-1); }), 9);
}

TEST(Array2D, ClosingAGapMovesTheLaterRowsDownAndLeavesTheLastTwice) {
    Array2D<double> array;
    EXPECT_EQ(ErrorOf([&] { array.CloseRowGap(0); }), 9);
    array.Redim(0, 3, 0, 1);
    for (std::int32_t row = 0; row <= 3; ++row) {
        array(row, 0) = row;
        array(row, 1) = row * 10;
    }
    array.CloseRowGap(1);
    const double expected[4][2] = {{0, 0}, {2, 20}, {3, 30}, {3, 30}};
    for (std::int32_t row = 0; row <= 3; ++row) {
        EXPECT_EQ(array(row, 0), expected[row][0]) << row;
        EXPECT_EQ(array(row, 1), expected[row][1]) << row;
    }
    array.CloseRowGap(3);
    EXPECT_EQ(array(3, 1), 30);
    EXPECT_EQ(ErrorOf([&] { array.CloseRowGap(4); }), 9);
}

}  // namespace
}  // namespace ace
