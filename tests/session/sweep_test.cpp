#include "workbench/session/sweep.h"

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::DoubleEq;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(Sweep, StepsOfOnePercentGiveTheFrequenciesOfTheStandardRanges) {
    // ln(1000 / 80) / ln 1.01 = 253.8, ln 2.7 / ln 1.01 = 99.8, ln(6 / 2.7) / ln 1.01 = 80.2
    EXPECT_EQ(Frequencies({80e6, 1e9, 1.0}).size(), 254U);
    EXPECT_EQ(Frequencies({1e9, 2.7e9, 1.0}).size(), 100U);
    EXPECT_EQ(Frequencies({2.7e9, 6e9, 1.0}).size(), 81U);
}

TEST(Sweep, TheStopIsLeftOutWhenNoStepMeetsIt) {
    EXPECT_THAT(Frequencies({100.0, 120.0, 10.0}), ElementsAre(100.0, DoubleEq(110.0)));
    const std::vector<double> band = Frequencies({80e6, 1e9, 1.0});
    EXPECT_EQ(band.front(), 80e6);
    EXPECT_THAT(band.back(), DoubleNear(991.74e6, 0.01e6));  // 80 MHz * e^(253 * 0.00995033)
}

TEST(Sweep, AStepThatMeetsTheStopUpToRoundingIsTheStopItself) {
    EXPECT_THAT(Frequencies({1e6, 1.21e6, 10.0}), ElementsAre(1e6, DoubleEq(1.1e6), 1.21e6));
    EXPECT_THAT(Frequencies({100.0, 400.0, 100.0}), ElementsAre(100.0, 200.0, 400.0));
}

TEST(Sweep, AStartThatIsTheStopIsOneFrequency) {
    EXPECT_THAT(Frequencies({50e6, 50e6, 1.0}), ElementsAre(50e6));
}

TEST(Sweep, WhatCantBeRunSaysWhyAndHasNoFrequency) {
    const struct {
        Sweep sweep;
        const char* why;
    } rows[] = {
        {{0.0, 1e9, 1.0}, "start must be above 0"},
        {{-1.0, 1e9, 1.0}, "start must be above 0"},
        {{2e6, 1e6, 1.0}, "stop must not be below"},
        {{1e6, 2e6, 0.0}, "step must be above 0"},
        {{1e6, 2e6, -1.0}, "step must be above 0"},
        {{1e6, 2e6, 1.0, -1.0}, "dwell time must not be below 0"},
        {{1.0, 1e9, 0.01}, "more than 100000 frequencies"},  // 20.72 / 0.000099995 = 207243
    };
    for (const auto& row : rows) {
        EXPECT_THAT(ToUtf8(WhyNoSweep(row.sweep)), HasSubstr(row.why));
        EXPECT_THAT(Frequencies(row.sweep), IsEmpty());
    }
}

TEST(Sweep, IsReadWithAndWithoutUnits) {
    EXPECT_EQ(ParseSweep(L"80MHz..1GHz/1%"), (Sweep{80e6, 1e9, 1.0}));
    EXPECT_EQ(ParseSweep(L"80e6..1e9/1"), (Sweep{80e6, 1e9, 1.0}));
    EXPECT_EQ(ParseSweep(L" 9 khz .. 150 KHZ / 0.5 % "), (Sweep{9e3, 150e3, 0.5}));
    EXPECT_EQ(ParseSweep(L"50Hz..2.5kHz/10%"), (Sweep{50.0, 2500.0, 10.0}));
}

TEST(Sweep, WhatIsNoSweepIsRefusedWithAReason) {
    const struct {
        const wchar_t* text;
        const char* why;
    } rows[] = {
        {L"", "written like"},
        {L"80MHz", "written like"},
        {L"80MHz..1GHz", "written like"},
        {L"80MHz-1GHz/1%", "written like"},
        {L"1%/80MHz..1GHz", "written like"},
        {L"80THz..1GHz/1%", "start is no frequency"},
        {L"..1GHz/1%", "start is no frequency"},
        {L"1e999..1GHz/1%", "start is no frequency"},
        {L"80MHz..1-2GHz/1%", "stop is no frequency"},
        {L"80MHz..1GHz/one%", "step is no percentage"},
        {L"80MHz..1GHz/%", "step is no percentage"},
        {L"1GHz..80MHz/1%", "must not be below the start"},
        {L"80MHz..1GHz/0%", "above 0 %"},
    };
    for (const auto& row : rows) {
        const RunTimeError error = ErrorIn([&] { ParseSweep(row.text); });
        EXPECT_EQ(error.Number(), Errors::InvalidProcedureCall) << ToUtf8(row.text);
        EXPECT_THAT(ToUtf8(error.Description()), HasSubstr(row.why));
    }
}

TEST(Sweep, IsToldWithItsCountAndDwell) {
    EXPECT_EQ(SweepText({80e6, 1e9, 1.0, 2000.0}),
              L"80 MHz to 1 GHz in steps of 1 %: 254 frequencies, 2 s each");
    EXPECT_EQ(SweepText({50e6, 50e6, 5.0}), L"50 MHz to 50 MHz in steps of 5 %: 1 frequency");
}

}  // namespace
}  // namespace ace::workbench
