#include <cmath>

#include <ace/core/text.h>

#include "support/fixture.h"

namespace ace {
namespace {

using test::ErrorOf;

constexpr std::int32_t TypeMismatch = 13;
constexpr std::int32_t Overflow = 6;

template <class Number>
struct Reading {
    StringView text;
    Number number;
};

TEST(ReadNumber, TakesWhatLooksLikeANumberAndIgnoresTheRest) {
    const Reading<double> readings[] = {
        {L"", 0},           {L"12", 12},        {L"  12", 12},   {L"-5", -5},
        {L"+5", 5},         {L"1.5", 1.5},      {L".5", 0.5},    {L"-.5", -0.5},
        {L"5.", 5},         {L".", 0},          {L"-", 0},       {L"1,5", 1},
        {L"1.5.2", 1.5},    {L"12abc", 12},     {L"abc", 0},     {L"x12", 0},
        {L"- 5", 0},        {L"--5", 0},        {L"5-3", 5},     {L"1 000", 1},
        {L"1e3", 1000},     {L"1E3", 1000},     {L"1e+3", 1000}, {L"25e-2", 0.25},
        {L"1e", 1},         {L"1e+", 1},        {L"1ex", 1},     {L"e5", 0},
        {L"0x10", 0},       {L"nan", 0},        {L"inf", 0},     {L"1500.000", 1500},
        {L"0e999", 0},      {L"1e-999", 0},     {L"-1e-999", 0}, {L"5025:10", 5025},
        {L"1e3.5", 1000.0}, {L"007", 7},        {L"0.1", 0.1},   {L"2147483648", 2147483648.0},
        {L"1e308", 1e308},  {L"-0.25,", -0.25}, {L"\t12", 12},
    };
    for (const auto& [text, number] : readings) {
        EXPECT_EQ(ReadNumber(text), number) << ::testing::PrintToString(String(text));
    }
}

TEST(ReadNumber, TakesTheNearestDoubleOfManyDigits) {
    EXPECT_EQ(ReadNumber(L"20.00"), 20.0);
    EXPECT_EQ(ReadNumber(L"0.00001"), 1e-5);
    EXPECT_EQ(ReadNumber(L"123456789.012345"), 123456789.012345);
    EXPECT_EQ(ReadNumber(L"0.123456789012345"), 0.123456789012345);
    EXPECT_EQ(ReadNumber(L"12345678901.234567"), 12345678901.234567);
    EXPECT_EQ(ReadNumber(L"0.00000000000000000001"), 1e-20);
}

TEST(ReadNumber, BeyondTheRangeOfADoubleIsError6) {
    for (const StringView text : {L"1e309", L"-1e309", L"1e99999999999", L"12345e400"}) {
        EXPECT_EQ(ErrorOf([&] { ReadNumber(text); }), Overflow);
    }
    EXPECT_EQ(ErrorOf([&] { ReadNumber(String(400, L'9')); }), Overflow);
    EXPECT_EQ(ReadNumber(L"0." + String(400, L'0') + L"1"), 0.0);
}

TEST(ReadRoundedNumber, RoundsToTheNearestAndHalvesToTheEvenNeighbour) {
    const Reading<std::int32_t> readings[] = {
        {L"", 0},
        {L"abc", 0},
        {L"2", 2},
        {L"0.5", 0},
        {L"1.5", 2},
        {L"2.5", 2},
        {L"3.5", 4},
        {L"-0.5", 0},
        {L"-1.5", -2},
        {L"-2.5", -2},
        {L"2.4", 2},
        {L"2.6", 3},
        {L"2.500001", 3},
        {L"-2.6", -3},
        {L"5025:10", 5025},
        {L"3,", 3},
        {L"999999999", 999999999},
        {L"0000000012", 12},
        {L"2147483647", 2147483647},
        {L"2147483647.4", 2147483647},
        {L"-2147483648", -2147483647 - 1},
        {L"-2147483648.5", -2147483647 - 1},
    };
    for (const auto& [text, number] : readings) {
        EXPECT_EQ(ReadRoundedNumber(text), number) << ::testing::PrintToString(String(text));
    }
}

TEST(ReadRoundedNumber, BeyondTheIntegerRangeIsError6) {
    for (const StringView text : {L"2147483648", L"2147483647.5", L"-2147483649", L"1e10"}) {
        EXPECT_EQ(ErrorOf([&] { ReadRoundedNumber(text); }), Overflow);
    }
}

TEST(ReadStrictInteger, TakesANumberThatIsTheWholeText) {
    const Reading<std::int32_t> readings[] = {
        {L"12", 12}, {L" 12", 12},  {L"12 ", 12}, {L"-3", -3}, {L"+3", 3}, {L"1.5", 2},
        {L"2.5", 2}, {L"1e2", 100}, {L".5", 0},   {L"5.", 5},  {L"0", 0},  {L"007", 7},
    };
    for (const auto& [text, number] : readings) {
        EXPECT_EQ(ReadStrictInteger(text), number) << ::testing::PrintToString(String(text));
    }
}

TEST(ReadStrictInteger, AnythingElseIsError13AndTheEmptyTextToo) {
    for (const StringView text : {L"", L" ", L"abc", L"12a", L"a12", L"1:2", L"1e", L"1,5", L".",
                                  L"-", L"1 2", L"--1", L"1E", L"1E+", L"1E-", L"1Ex", L"1E+x"}) {
        EXPECT_EQ(ErrorOf([&] { ReadStrictInteger(text); }), TypeMismatch)
            << ::testing::PrintToString(String(text));
    }
}

TEST(ReadStrictInteger, ANumberBeyondTheRangeIsError6) {
    for (const StringView text : {L"99999999999", L"-99999999999", L"1e999"}) {
        EXPECT_EQ(ErrorOf([&] { ReadStrictInteger(text); }), Overflow);
    }
}

TEST(ReadBooleanText, TakesNumbersAndTheTwoWordsInAnyCase) {
    for (const StringView text : {L"1", L"-1", L"0.1", L"2", L"true", L"TRUE", L"True", L" 1"}) {
        EXPECT_TRUE(ReadBooleanText(text)) << ::testing::PrintToString(String(text));
    }
    for (const StringView text : {L"0", L"0.0", L"-0", L"false", L"FALSE", L"False"}) {
        EXPECT_FALSE(ReadBooleanText(text)) << ::testing::PrintToString(String(text));
    }
}

TEST(ReadBooleanText, AllElseIsError13) {
    for (const StringView text : {L"", L"yes", L"1x", L"truely", L"t", L"wahr"}) {
        EXPECT_EQ(ErrorOf([&] { ReadBooleanText(text); }), TypeMismatch)
            << ::testing::PrintToString(String(text));
    }
}

struct Fixed {
    double number;
    int decimals;
    wchar_t separator;
    StringView text;
};

constexpr Fixed FixedTexts[] = {
    {0, 3, L'.', L"0.000"},
    {1.5, 3, L'.', L"1.500"},
    {1.5, 3, L',', L"1,500"},
    {1500.12345, 3, L'.', L"1500.123"},
    {-1.5, 3, L'.', L"-1.500"},
    {0.25, 3, L'.', L"0.250"},
    {0.0005, 3, L'.', L"0.001"},
    {0.0004, 3, L'.', L"0.000"},
    {-0.0004, 3, L'.', L"0.000"},
    {-0.0006, 3, L'.', L"-0.001"},
    {0.9995, 3, L'.', L"1.000"},
    {999.9996, 3, L'.', L"1000.000"},
    {20, 2, L'.', L"20.00"},
    {2.675, 2, L'.', L"2.68"},
    {0.125, 2, L'.', L"0.13"},
    {0.135, 2, L'.', L"0.14"},
    {3600000, 3, L'.', L"3600000.000"},
    {7.5, 0, L'.', L"8"},
    {1e15, 3, L'.', L"1000000000000000.000"},
    {0.1, 3, L'.', L"0.100"},
    {0.001, 3, L'.', L"0.001"},
    {-0.0, 3, L'.', L"0.000"},
    {-0.007, 3, L',', L"-0,007"},
    {999999999999.999, 3, L'.', L"999999999999.999"},
    {12345678901234.5, 1, L'.', L"12345678901234.5"},
    {1.0000000000000002, 3, L'.', L"1.000"},
    {42, 0, L'.', L"42"},
    {1.25, 4, L'.', L"1.2500"},
};

TEST(FormatFixed, ShowsExactlyTheDecimalsAndAtLeastOneDigitBefore) {
    for (const auto& [number, decimals, separator, text] : FixedTexts) {
        EXPECT_EQ(FormatFixed(number, decimals, separator), text) << number;
    }
}

/// The digits by which a double reads back are up to 17; those that are shown are 15.
TEST(FormatGeneral, NumberThatNeedsMoreThanFifteenDigitsIsRoundedToThem) {
    EXPECT_EQ(FormatGeneral(0.1 + 0.2, L'.'), L"0.3");                // 0.30000000000000004
    EXPECT_EQ(FormatGeneral(1.0 / 3.0, L'.'), L"0.333333333333333");  // 0.3333333333333333
    EXPECT_EQ(FormatGeneral(1.7976931348623157e308, L'.'), L"1.79769313486232E+308");
    EXPECT_EQ(FormatGeneral(123456789012345.0, L'.'), L"123456789012345");
    EXPECT_EQ(FormatGeneral(4.94065645841246544e-324, L'.'), L"4.94065645841247E-324");
}

TEST(FormatFixed, AppendsToWhatIsThere) {
    String text = L"Wait ";
    AppendFixed(text, 1.5, 3, L'.');
    text += L' ';
    AppendInteger(text, -2147483647 - 1);
    EXPECT_EQ(text, L"Wait 1.500 -2147483648");
    EXPECT_EQ(IntegerText(0), L"0");
}

TEST(FormatFixed, ASingleIsRoundedOnItsOwnSevenDigits) {
    EXPECT_EQ(FormatFixed(10.0F, 2, L'.'), L"10.00");
    EXPECT_EQ(FormatFixed(0.1F, 2, L','), L"0,10");
    EXPECT_EQ(FormatFixed(0.005F, 2, L'.'), L"0.01");  // as a double it is a little below
}

TEST(FormatFixed, ANumberTooSmallToShowIsZero) {
    EXPECT_EQ(FormatFixed(0.00001, 3, L'.'), L"0.000");
    EXPECT_EQ(FormatFixed(-0.00001, 3, L'.'), L"0.000");
}

TEST(FormatFixed, WhatIsNoNumberIsError6) {
    for (const double value : {HUGE_VAL, -HUGE_VAL, std::nan("")}) {
        EXPECT_EQ(ErrorOf([&] { FormatFixed(value, 3, L'.'); }), Overflow);
    }
}

TEST(FormatGeneral, WhatIsNoNumberSaysSo) {
    EXPECT_EQ(FormatGeneral(HUGE_VAL, L'.'), L"INF");
    EXPECT_EQ(FormatGeneral(-HUGE_VAL, L'.'), L"-INF");
    EXPECT_EQ(FormatGeneral(std::nan(""), L'.'), L"NAN");
}

TEST(WithPoint, EveryCommaBecomesAPoint) {
    EXPECT_EQ(WithPoint(L"1,500"), L"1.500");
    EXPECT_EQ(WithPoint(L"1.500"), L"1.500");
    EXPECT_EQ(WithPoint(L"1,234,500"), L"1.234.500");
}

TEST(FormatGeneral, ShowsNumbersAsShortAsTheyAre) {
    struct Row {
        Value value;
        StringView text;
    };
    const Row table[] = {
        {0.0, L"0"},
        {1.5, L"1,5"},
        {-2.5, L"-2,5"},
        {80000000.0, L"80000000"},
        {0.1 + 0.2, L"0,3"},
        {999999999999999.0, L"999999999999999"},
        {1e15, L"1E+15"},
        {1.5e20, L"1,5E+20"},
        {1e100, L"1E+100"},
        {0.00001, L"0,00001"},
        {0.000001, L"1E-06"},
        {0.1F, L"0,1"},
        {9999999.0F, L"9999999"},
        {1e7F, L"1E+07"},
        {std::int16_t{-7}, L"-7"},
        {std::int32_t{-2147483647 - 1}, L"-2147483648"},
        {Boolean{true}, L"True"},
        {Boolean{false}, L"False"},
        {String(L"a,b"), L"a,b"},
        {std::monostate{}, L""},
    };
    for (const Row& row : table) {
        EXPECT_EQ(FormatGeneral(row.value, L','), row.text);
    }
    EXPECT_EQ(ErrorOf([] { FormatGeneral(DynArray<String>(), L'.'); }), TypeMismatch);
}

TEST(EqualNoCase, ComparesWithoutRegardToTheCaseOfLetters) {
    EXPECT_TRUE(EqualNoCase(L"", L""));
    EXPECT_TRUE(EqualNoCase(L"EnterAction", L"ENTERaction"));
    EXPECT_FALSE(EqualNoCase(L"EnterAction", L"EnterAction1"));
    EXPECT_FALSE(EqualNoCase(L"a[", L"a{"));
}

TEST(ReplaceAll, ReplacesEveryOccurrenceFromLeftToRight) {
    const auto replaced = [](String text, StringView search, StringView replacement) {
        ReplaceAll(text, search, replacement);
        return text;
    };
    EXPECT_EQ(replaced(L"a,b,c", L",", L"\x01"),
              L"a\x01"
              L"b\x01"
              L"c");
    EXPECT_EQ(replaced(L"aaa", L"aa", L"b"), L"ba");
    EXPECT_EQ(replaced(L"aa", L"a", L"aa"), L"aaaa");
    EXPECT_EQ(replaced(L"abc", L"", L"x"), L"abc");
    EXPECT_EQ(replaced(L"Aa", L"a", L""), L"A");
    EXPECT_EQ(replaced(L"", L"a", L"b"), L"");
}

}  // namespace
}  // namespace ace
