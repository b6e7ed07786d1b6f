#include <ace/core/operation.h>
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

/// The first of two pairs is whole, the second lacks its placeholder or its value.
std::vector<aceVKSVar> WithAHalfPair() {
    const aceVKSVar whole = Variables({{L"#A#", String(L"x")}, {L"#B#", String(L"y")}});
    std::vector<aceVKSVar> all(2, whole);
    all[0].strSearch.RedimPreserve(0);
    all[1].valReplace.RedimPreserve(0);
    return all;
}

TEST_F(ReplaceVariablesTest, FewerPairsThanTheCountSaysAreErrorNineBehindThePairsThatAreThere) {
    for (const aceVKSVar& variables : WithAHalfPair()) {
        String text = L"#A# #B#";
        EXPECT_EQ(ErrorOf([&] { ReplaceVariables(context, variables, text); }), 9);
        EXPECT_EQ(text, L"x #B#");
    }
    aceVKSVar noArrays;
    noArrays.count = 1;
    String text = L"#A#";
    EXPECT_EQ(ErrorOf([&] { ReplaceVariables(context, noArrays, text); }), 9);
    EXPECT_EQ(text, L"#A#");
}

TEST_F(ReplaceVariablesTest, RoutineThatGoesOnPassesOverThePairThatFails) {
    aceVKSVar variables =
        Variables({{L"#A#", String(L"x")}, {L"#B#", DynArray<String>()}, {L"#C#", String(L"z")}});
    String text = L"#A# #B# #C#";
    ResumeNext next;
    ReplaceVariables(context, next, variables, text);
    EXPECT_EQ(text, L"x #B# z");
    EXPECT_EQ(next.Number(), 13);
}

TEST_F(ReplaceVariablesTest, PairThatIsTriedAgainIsReplacedOnceAndThoseBeforeItAreNot) {
    const aceVKSVar variables = Variables({{L"#A#", String(L"<#A#>")}, {L"#N#", 1.5}});
    host->faults.FailOperation(L"Platform.DecimalSeparator", 1, 77);
    host->reportAnswers = {ITraceLog::RetryStatement};
    String text = L"#A# #N#";
    ReplaceVariables(context, Statements(context), variables, text);
    EXPECT_EQ(text, L"<#A#> 1.5");
}

}  // namespace
}  // namespace ace::test
