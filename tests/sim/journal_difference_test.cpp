#include "support/journal_difference.h"

#include <gtest/gtest-spi.h>

namespace ace::test {
namespace {

using Lines = std::vector<std::wstring>;

TEST(JournalDifference, EqualJournalsAreToldSo) {
    EXPECT_EQ(FirstDifference({}, {}), "equal");
    EXPECT_EQ(FirstDifference({L"a", L"b"}, {L"a", L"b"}), "equal");
}

TEST(JournalDifference, TheFirstLineThatDiffersIsMarkedBelowItsFirstCharacterThatDiffers) {
    EXPECT_EQ(FirstDifference({L"Yield()", L"Wait(100)", L"Beep()"},
                              {L"Yield()", L"Wait(200)", L"Boom()"}),
              "line 2 of 3 and 3 differs\n"
              "    1:  Yield()\n"
              "    2:  Wait(100)\n"
              "        Wait(200)\n"
              "             ^\n");
}

TEST(JournalDifference, ThreeEqualLinesStandBeforeIt) {
    EXPECT_EQ(FirstDifference({L"a", L"b", L"c", L"d", L"e"}, {L"a", L"b", L"c", L"d", L"f"}),
              "line 5 of 5 and 5 differs\n"
              "    2:  b\n"
              "    3:  c\n"
              "    4:  d\n"
              "    5:  e\n"
              "        f\n"
              "        ^\n");
}

TEST(JournalDifference, AJournalThatEndsEarlierHasNothingMore) {
    EXPECT_EQ(FirstDifference({L"a"}, {L"a", L"\xE4"}),
              "line 2 of 1 and 2 differs\n"
              "    1:  a\n"
              "    2:  (nothing more)\n"
              "        \xC3\xA4\n");
    EXPECT_EQ(FirstDifference({L"a"}, {}),
              "line 1 of 1 and 0 differs\n"
              "    1:  a\n"
              "        (nothing more)\n");
}

TEST(JournalDifference, ALineThatGoesOnIsMarkedWhereTheOtherEnds) {
    EXPECT_EQ(FirstDifference({L"ab"}, {L"abc"}),
              "line 1 of 1 and 1 differs\n"
              "    1:  ab\n"
              "        abc\n"
              "          ^\n");
}

TEST(JournalDifference, AnExpectationOfEqualLinesPrintsTheDifferenceAndNotTheLists) {
    EXPECT_NONFATAL_FAILURE(EXPECT_EQ(Lines{L"Wait(100)"}, Lines{L"Wait(200)"}),
                            "line 1 of 1 and 1 differs\n"
                            "    1:  Wait(100)\n"
                            "        Wait(200)\n"
                            "             ^\n");
}

}  // namespace
}  // namespace ace::test
