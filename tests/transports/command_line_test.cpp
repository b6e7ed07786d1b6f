#include "workbench/transports/command_line.h"

#include "support/file_fixture.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;

TEST(CommandLine, BlanksAndTabulatorsSeparate) {
    EXPECT_THAT(SplitCommandLine(L"  run  a\tb "), ElementsAre("run", "a", "b"));
}

TEST(CommandLine, QuotesKeepBlanksAlsoInTheMidstOfAWord) {
    EXPECT_THAT(SplitCommandLine(LR"("/opt/my tools/run" --to='a b' x"y z"w)"),
                ElementsAre("/opt/my tools/run", "--to=a b", "xy zw"));
}

TEST(CommandLine, OneKindOfQuoteKeepsTheOther) {
    EXPECT_THAT(SplitCommandLine(LR"(run "it's" 'say "no"')"),
                ElementsAre("run", "it's", "say \"no\""));
}

TEST(CommandLine, EmptyQuotesAreAnEmptyArgument) {
    EXPECT_THAT(SplitCommandLine(LR"(run "" '' end)"), ElementsAre("run", "", "", "end"));
}

TEST(CommandLine, ABackslashTakesABlankAQuoteOrABackslashAsItStands) {
    EXPECT_THAT(SplitCommandLine(LR"(my\ run \"a\" "b\"c" \\ d\'e)"),
                ElementsAre("my run", "\"a\"", "b\"c", "\\", "d'e"));
}

TEST(CommandLine, AnyOtherBackslashIsAnOrdinaryCharacter) {
    EXPECT_THAT(SplitCommandLine(LR"(run C:\data\new.txt 'a\' end\)"),
                ElementsAre("run", "C:\\data\\new.txt", "a\\", "end\\"));
}

TEST(CommandLine, NothingElseIsSpecial) {
    EXPECT_THAT(SplitCommandLine(L"run $HOME *.txt a|b >out ~ `x`"),
                ElementsAre("run", "$HOME", "*.txt", "a|b", ">out", "~", "`x`"));
}

TEST(CommandLine, ArgumentsAreUtf8) {
    EXPECT_THAT(SplitCommandLine(L"run \x00B5"), ElementsAre("run", "\xC2\xB5"));
}

TEST(CommandLine, ALineThatCannotBeReadIsAnErrorThatIsNot5) {
    for (const String& line : {String(L""), String(L" \t "), String(L"\"\" a"), String(L"run \"a"),
                               String(L"run 'a"), String(L"run a\0b", 7)}) {
        EXPECT_EQ(ErrorIn([&] { SplitCommandLine(line); }).Number(), TransportErrors::CannotStart);
    }
    EXPECT_EQ(ErrorIn([] { SplitCommandLine(L"run \"a b"); }).Description(),
              L"command line: a quote has no end: run \"a b");
}

}  // namespace
}  // namespace ace::workbench
