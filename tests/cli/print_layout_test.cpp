/// A print in its columns, and its note in a frame.
#include "workbench/cli/print_layout.h"

#include <gmock/gmock.h>

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;

// ---- columns -----------------------------------------------------------------------------------

TEST(PrintLayout, EachTitleHasAnEmptyLineBeforeItAndDetailsStandInAColumnOfTheirOwn) {
    EXPECT_THAT(
        PrintLines(L"Actions:\rStart\r   Wait: \t1.500 s\r   Protect receivers\r"
                   L"End\r   Switch amplifier: \tAmp --> On\r",
                   0),
        ElementsAre(L"Actions:", L"", L"Start", L"   Wait:                1.500 s",
                    L"   Protect receivers", L"", L"End", L"   Switch amplifier:    Amp --> On"));
}

TEST(PrintLayout, WithoutATerminalNothingIsBroken) {
    const String word(300, L'x');
    EXPECT_THAT(PrintLines(L"   Wait: \t" + word + L"\r", 0),
                ElementsAre(L"   Wait:                " + word));
}

TEST(PrintLayout, ALineThatIsWiderThanTheTerminalGoesOnInItsOwnColumn) {
    EXPECT_THAT(
        PrintLines(L"A title of several words\r"
                   L"   Notify: \t\"Door closed, cameras on, lamp green?\"\r",
                   46),
        ElementsAre(L"A title of several words", L"   Notify:              \"Door closed, cameras",
                    L"                        on, lamp green?\""));
    EXPECT_THAT(
        PrintLines(L"A title of several words\r   Protect the receivers now\r", 23),
        ElementsAre(L"A title of several", L"words", L"   Protect the", L"   receivers now"));
}

TEST(PrintLayout, AWordThatIsTooLongIsBrokenToo) {
    EXPECT_THAT(PrintLines(L"   API: \t" + String(25, L'a') + L"\r", 46),
                ElementsAre(L"   API:                 " + String(22, L'a'),
                            L"                        aaa"));
}

TEST(PrintLayout, ADetailKeepsTwentyCharactersOnTheNarrowestTerminal) {
    EXPECT_THAT(PrintLines(L"   API: \t" + String(25, L'a') + L"\r", 10),
                ElementsAre(L"   API:                 " + String(20, L'a'),
                            L"                        aaaaa"));
}

TEST(PrintLayout, ALongTitleOfAnActionIsFollowedByItsDetailAtOnce) {
    EXPECT_THAT(PrintLines(L"   A title that is very long: \tdetail\r", 0),
                ElementsAre(L"   A title that is very long: detail"));
}

TEST(PrintLayout, ControlCharactersAndFurtherTabsAreBlanks) {
    EXPECT_THAT(PrintLines(L"   Notify: \tred \x1b[31m\talert\r", 0),
                ElementsAre(L"   Notify:              red  [31m alert"));
}

/// The print closes its lines with it and tells no other apart: on paper the message ends there.
TEST(PrintLayout, ACarriageReturnInAMessageBreaksItsLineAndTheRestStandsLikeATitle) {
    EXPECT_THAT(PrintLines(L"Start\r   Notify: \t\"red\ralert\"\r   Protect receivers\r", 0),
                ElementsAre(L"Start", L"   Notify:              \"red", L"", L"alert\"",
                            L"   Protect receivers"));
}

// ---- the frame ---------------------------------------------------------------------------------

TEST(PrintLayout, AFrameIsAsWideAsItsWidestLine) {
    EXPECT_THAT(
        Boxed({{L"", L"Note"}, {L"   1  ", L"one"}}, 78),
        ElementsAre(L"+-----------+", L"| Note      |", L"|    1  one |", L"+-----------+"));
}

TEST(PrintLayout, AFrameBreaksItsTextBehindItsLead) {
    EXPECT_THAT(
        Boxed({{L" 1  ", L"a text of some more words than that"}}, 33),
        ElementsAre(L"+-------------------------------+", L"|  1  a text of some more words |",
                    L"|     than that                 |", L"+-------------------------------+"));
}

}  // namespace
}  // namespace ace::workbench
