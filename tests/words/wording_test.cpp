#include "workbench/words/wording.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

namespace ace::workbench {
namespace {

TEST(Wording, TimesCountHoursMinutesSecondsAndMilliseconds) {
    EXPECT_EQ(TimeText(0.0), L"0:00:00.000");
    EXPECT_EQ(TimeText(1500.0), L"0:00:01.500");
    EXPECT_EQ(TimeText(61'007.0), L"0:01:01.007");
    EXPECT_EQ(TimeText(36'000'000.0), L"10:00:00.000");
    EXPECT_EQ(DurationText(254'000.0), L"0:04:14");
    EXPECT_EQ(DurationText(1500.0), L"0:00:01.500");
}

TEST(Wording, SecondsGoToTheMillisecond) {
    EXPECT_EQ(SecondsText(0.0), L"0 s");
    EXPECT_EQ(SecondsText(1500.0), L"1.5 s");
    EXPECT_EQ(SecondsText(1.4), L"0.001 s");
}

TEST(Wording, ControlCharactersAreThoseBelowTheBlankAndFrom7FTo9F) {
    for (const wchar_t c : {L'\0', L'\x1F', L'\x7F', L'\x80', L'\x9F'}) {
        EXPECT_TRUE(IsControl(c)) << static_cast<int>(c);
    }
    for (const wchar_t c : {L' ', L'~', L'\xA0', L'\x20AC', static_cast<wchar_t>(-1)}) {
        EXPECT_FALSE(IsControl(c)) << static_cast<int>(c);
    }
}

TEST(Wording, ALineIsEmptyOrAComment) {
    EXPECT_TRUE(IsEmptyOrComment(L"", L"#"));
    EXPECT_TRUE(IsEmptyOrComment(L"#", L"#"));
    EXPECT_TRUE(IsEmptyOrComment(L"; text", L";#"));
    EXPECT_FALSE(IsEmptyOrComment(L"; text", L"#"));
    EXPECT_FALSE(IsEmptyOrComment(L"text ;#", L";#"));
}

TEST(Wording, AMessageBecomesOneLine) {
    EXPECT_EQ(OneLine(L"Door closed?\r\nLamp\ton?\nYes"), L"Door closed? / Lamp on? / Yes");
    EXPECT_EQ(QuotedLine(L"a\x7f"
                         L"b"),
              L"\"a b\"");
    EXPECT_EQ(OneLine(L"\x1b[2J\x9b"
                      L"2J"),
              L" [2J 2J");
}

TEST(Wording, CountsHaveOneAndMany) {
    EXPECT_EQ(Counted(0, L"step", L"steps"), L"0 steps");
    EXPECT_EQ(Counted(1, L"step", L"steps"), L"1 step");
    EXPECT_EQ(Counted(2, L"step", L"steps"), L"2 steps");
}

TEST(Wording, NumbersThatFollowEachOtherAreARange) {
    const auto ranges = [](const std::vector<std::int32_t>& numbers) {
        return RangesText(numbers, 4);
    };
    EXPECT_EQ(ranges({}), L"");
    EXPECT_EQ(ranges({5}), L"5");
    EXPECT_EQ(ranges({1, 2}), L"1 to 2");
    EXPECT_EQ(ranges({1, 2, 3, 7}), L"1 to 3, 7");
    EXPECT_EQ(ranges({2, 4, 5, 6, 9999, 10000}), L"2, 4 to 6, 9999 to 10000");
    EXPECT_EQ(ranges({3, 3, 4, 4}), L"3 to 4");
    EXPECT_EQ(ranges({3, 3, 5}), L"3, 5");
}

TEST(Wording, OfManyRangesTheMiddleIsLeftOut) {
    const std::vector<std::int32_t> numbers{1, 3, 4, 6, 8, 10, 11};
    EXPECT_EQ(RangesText(numbers, 5), L"1, 3 to 4, 6, 8, 10 to 11");
    EXPECT_EQ(RangesText(numbers, 4), L"1, 3 to 4, 6 ... 10 to 11");
    EXPECT_EQ(RangesText(numbers, 2), L"1 ... 10 to 11");
}

TEST(Wording, ATextIsBrokenAtTheLastBlankThatFitsOrInTheMidstOfAWord) {
    const auto wrapped = [](StringView text, std::size_t width) {
        String lines;
        for (const String& line : Wrapped(text, width)) {
            lines += L"[" + line + L"]";
        }
        return lines;
    };
    EXPECT_EQ(wrapped(L"one two three", 7), L"[one two][three]");
    EXPECT_EQ(wrapped(L"one two three", 6), L"[one][two][three]");
    EXPECT_EQ(wrapped(L"one two three", 13), L"[one two three]");
    EXPECT_EQ(wrapped(L"abcdefgh ij", 3), L"[abc][def][gh][ij]");
    EXPECT_EQ(wrapped(L"abc def", 3), L"[abc][def]");
    EXPECT_EQ(wrapped(L" abcdef", 3), L"[ ab][cde][f]");
    EXPECT_EQ(wrapped(L"one two", 0), L"[one two]");
    EXPECT_EQ(wrapped(L"", 5), L"[]");
}

TEST(Wording, APatternTakesItsValuesByNumber) {
    const std::array values{String(L"a"), String(L"b")};
    EXPECT_EQ(Filled(L"%2 and %1", values), L"b and a");
    EXPECT_EQ(Filled(L"%3, 5 %", values), L", 5 %");
}

TEST(Wording, WildcardsStandForAnyCharactersAndForOne) {
    const struct {
        const wchar_t* text;
        const wchar_t* pattern;
        bool fits;
    } rows[] = {
        {L"Door closed?", L"door CLOSED?", true},
        {L"Door closed?", L"Door*", true},
        {L"Door closed?", L"*closed*", true},
        {L"Door closed?", L"*", true},
        {L"Door closed?", L"Door", false},
        {L"Door closed?", L"?oor closed?", true},
        {L"Door closed", L"Door closed?", false},
        {L"abcbcd", L"a*bcd", true},
        {L"abcbce", L"a*bcd", false},
        {L"", L"*", true},
        {L"", L"", true},
        {L"a", L"", false},
        {L"", L"?", false},
        {L"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab", L"*a*a*a*a*a*a*a*a*a*c", false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FitsPattern(row.text, row.pattern), row.fits)
            << testing::PrintToString(String(row.pattern));
    }
}

TEST(Wording, ANumberIsAWholeTextOrNothing) {
    EXPECT_EQ(WholeNumber(L" 1.5 "), 1.5);
    EXPECT_EQ(WholeNumber(L"80e6"), 80e6);
    EXPECT_EQ(WholeNumber(L"-2"), -2.0);
    for (const wchar_t* text :
         {L"", L" ", L"1,5", L"1 2", L"1x", L"1-2", L"inf", L"nan", L"1e999", L"\x0661"}) {
        EXPECT_EQ(WholeNumber(text), std::nullopt) << testing::PrintToString(String(text));
    }
}

TEST(Wording, AnIntegerHasNoFractionAndFitsInto32Bits) {
    EXPECT_EQ(WholeInteger(L"3"), 3);
    EXPECT_EQ(WholeInteger(L"-3"), -3);
    EXPECT_EQ(WholeInteger(L"2147483647"), 2147483647);
    EXPECT_EQ(WholeInteger(L"2147483648"), std::nullopt);
    EXPECT_EQ(WholeInteger(L"1.5"), std::nullopt);
    EXPECT_EQ(WholeInteger(L"x"), std::nullopt);
}

}  // namespace
}  // namespace ace::workbench
