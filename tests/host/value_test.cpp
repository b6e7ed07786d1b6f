#include <gtest/gtest.h>

#include <ace/host/value.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

TEST(NumberOf, NothingIsZeroAndTruthIsMinusOne) {
    EXPECT_EQ(NumberOf(Value()), 0.0);
    EXPECT_EQ(NumberOf(Boolean(true)), -1.0);
    EXPECT_EQ(NumberOf(Boolean(false)), 0.0);
}

TEST(NumberOf, ANumberIsItselfWhateverItsWidth) {
    EXPECT_EQ(NumberOf(std::int16_t{-7}), -7.0);
    EXPECT_EQ(NumberOf(std::int32_t{70000}), 70000.0);
    EXPECT_EQ(NumberOf(0.5F), 0.5);
    EXPECT_EQ(NumberOf(2.25), 2.25);
}

TEST(NumberOf, ATextAndAnArrayOfTextsAreError13) {
    EXPECT_EQ(ErrorOf([] { NumberOf(String(L"1")); }), Errors::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { NumberOf(DynArray<String>()); }), Errors::TypeMismatch);
}

TEST(LongOf, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(LongOf(2.5), 2);
    EXPECT_EQ(LongOf(3.5), 4);
    EXPECT_EQ(LongOf(Boolean(true)), -1);
    EXPECT_EQ(ErrorOf([] { LongOf(3e9); }), Errors::Overflow);
}

}  // namespace
}  // namespace ace::test
