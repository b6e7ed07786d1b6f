#include <ace/execution/replace_variables.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

struct Pair {
    String search;
    Value value;
};

aceVKSVar Variables(const std::vector<Pair>& pairs) {
    aceVKSVar variables;
    variables.count = static_cast<std::int32_t>(pairs.size());
    variables.strSearch.Redim(0, variables.count - 1);
    variables.valReplace.Redim(0, variables.count - 1);
    for (std::int32_t i = 0; i < variables.count; ++i) {
        variables.strSearch[i] = pairs[static_cast<std::size_t>(i)].search;
        variables.valReplace[i] = pairs[static_cast<std::size_t>(i)].value;
    }
    return variables;
}

class ReplaceVariablesTest : public HostTest {
  protected:
    String Replaced(String text, const std::vector<Pair>& pairs) {
        ReplaceVariables(context, Variables(pairs), text);
        return text;
    }
};

TEST_F(ReplaceVariablesTest, EveryOccurrenceOfAPlaceholderIsReplaced) {
    EXPECT_EQ(Replaced(L"#BW# and #BW#", {{L"#BW#", String(L"20 MHz")}}), L"20 MHz and 20 MHz");
}

TEST_F(ReplaceVariablesTest, ComparisonIsExactAndCaseSensitive) {
    EXPECT_EQ(Replaced(L"#bw# #BW", {{L"#BW#", String(L"20 MHz")}}), L"#bw# #BW");
}

TEST_F(ReplaceVariablesTest, PairsWorkInTheirOrderEachOnTheResultOfTheOneBefore) {
    EXPECT_EQ(Replaced(L"#A#", {{L"#A#", String(L"#B#")}, {L"#B#", String(L"end")}}), L"end");
    EXPECT_EQ(Replaced(L"#A#", {{L"#B#", String(L"end")}, {L"#A#", String(L"#B#")}}), L"#B#");
}

TEST_F(ReplaceVariablesTest, ReplacementIsNotSearchedAgainByItsOwnPair) {
    EXPECT_EQ(Replaced(L"#A#", {{L"#A#", String(L"<#A#>")}}), L"<#A#>");
}

TEST_F(ReplaceVariablesTest, NumbersGoInInTheGeneralFormat) {
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", 2400.5}}), L"2400.5");
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", 2.4e9}}), L"2400000000");
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", 1e16}}), L"1E+16");
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", std::int32_t{-7}}}), L"-7");
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", Boolean(true)}}), L"True");
}

TEST_F(ReplaceVariablesTest, NumericValueUnderACommaLocaleIsReplacedWithADot) {
    host->decimalSeparator = L',';
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", 2400.5}}), L"2400.5");
}

TEST_F(ReplaceVariablesTest, CommasOfATextStand) {
    host->decimalSeparator = L',';
    EXPECT_EQ(Replaced(L"#N#", {{L"#N#", String(L"1,5 and 2,5")}}), L"1,5 and 2,5");
}

TEST_F(ReplaceVariablesTest, NothingGoesInAsTheEmptyText) {
    EXPECT_EQ(Replaced(L"<#N#>", {{L"#N#", std::monostate{}}}), L"<>");
}

TEST_F(ReplaceVariablesTest, CountZeroLeavesTheTextAsItIs) {
    aceVKSVar variables = Variables({{L"#A#", String(L"x")}});
    variables.count = 0;
    String text = L"#A#";
    ReplaceVariables(context, variables, text);
    EXPECT_EQ(text, L"#A#");
}

TEST_F(ReplaceVariablesTest, PairsBehindTheCountAreNotUsed) {
    aceVKSVar variables = Variables({{L"#A#", String(L"x")}, {L"#B#", String(L"y")}});
    variables.count = 1;
    String text = L"#A# #B#";
    ReplaceVariables(context, variables, text);
    EXPECT_EQ(text, L"x #B#");
}

TEST_F(ReplaceVariablesTest, FewerPairsThanTheCountSaysAreErrorNineAndTheTextStands) {
    aceVKSVar searchShort = Variables({{L"#A#", String(L"x")}, {L"#B#", String(L"y")}});
    searchShort.strSearch.RedimPreserve(0);
    aceVKSVar valuesShort = Variables({{L"#A#", String(L"x")}, {L"#B#", String(L"y")}});
    valuesShort.valReplace.RedimPreserve(0);
    aceVKSVar noArrays;
    noArrays.count = 1;
    for (const aceVKSVar* variables : {&searchShort, &valuesShort, &noArrays}) {
        String text = L"#A# #B#";
        EXPECT_EQ(ErrorOf([&] { ReplaceVariables(context, *variables, text); }), 9);
        EXPECT_EQ(text, L"#A# #B#");
    }
}

}  // namespace
}  // namespace ace::test
