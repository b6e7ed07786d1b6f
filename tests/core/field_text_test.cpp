#include <ace/core/field_text.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

ValueFields With(std::optional<std::int32_t> decimals) {
    return {.decimals = decimals};
}

TEST(FieldTextTest, ABoxWithDecimalsShowsAllOfThem) {
    EXPECT_EQ(FieldText(With(2), 10.0, L'.'), L"10.00");
    EXPECT_EQ(FieldText(With(2), 0.125, L','), L"0,13");
    EXPECT_EQ(FieldText(With(0), 100.0, L'.'), L"100");
    EXPECT_EQ(FieldText(With(0), 99.5, L'.'), L"100");
}

TEST(FieldTextTest, ABoxWithoutThemShowsAsManyAsAreNeeded) {
    EXPECT_EQ(FieldText(With({}), 10.0, L'.'), L"10");
    EXPECT_EQ(FieldText(With({}), 100.0, L','), L"100");
    EXPECT_EQ(FieldText(With({}), 0.0, L'.'), L"0");
    EXPECT_EQ(FieldText(With({}), 1.5, L','), L"1,5");
    EXPECT_EQ(FieldText(With({}), -0.25, L'.'), L"-0.25");
    EXPECT_EQ(FieldText(With({}), 0.1 + 0.2, L'.'), L"0.3");
}

TEST(FieldTextTest, WhatIsShownIsReadBackHoweverSmallOrLarge) {
    struct Empty : Form {
        Empty() : Form(L"Empty", 0, 0.0F, 0.0F) {}
    } form;
    ValueBox box(form, L"txt");
    for (const double value : {0.0000005, 0.001, 12.345, 3600.0, 1e15, 1e20}) {
        box.text = FieldText(box, value, L',');
        EXPECT_EQ(box.Value(), value);
    }
}

TEST(FieldTextTest, AValueThatIsNoNumberIsError6) {
    EXPECT_EQ(ErrorOf([] { FieldText(With(2), std::numeric_limits<double>::infinity(), L'.'); }),
              6);
    EXPECT_EQ(ErrorOf([] { FieldText(With({}), std::numeric_limits<double>::quiet_NaN(), L'.'); }),
              6);
}

}  // namespace
}  // namespace ace::test
