#include "workbench/devices/device_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(DeviceLines, PartsStandBetweenCommasWithoutTheBlanksAroundThem) {
    EXPECT_THAT(Parts(L"a, b c ,d"), ElementsAre(L"a", L"b c", L"d"));
    EXPECT_THAT(Parts(L"a,"), ElementsAre(L"a", L""));
    EXPECT_THAT(Parts(L"  "), IsEmpty());
}

TEST(DeviceLines, CurveIsFrequenciesWithTheirValues) {
    const auto curve = ReadCurve(L"80MHz:-1.5, 1 GHz: 2");
    ASSERT_TRUE(curve);
    EXPECT_EQ(*curve, (sim::SimCurve{{80e6, -1.5}, {1e9, 2.0}}));
}

TEST(DeviceLines, WhatIsNoCurveIsRefused) {
    for (const wchar_t* text :
         {L"", L"80MHz", L"80MHz:", L":3", L"80MHz:x", L"80MHz:1, 80MHz:2", L"80MHz:1,"}) {
        EXPECT_FALSE(ReadCurve(text)) << ::testing::PrintToString(String(text));
    }
}

TEST(DeviceLines, FailureIsChannelFrequenciesTimeAndReading) {
    const auto failure = ReadEutFailure(L"102, 433MHz..435MHz, 3 s, 1.5");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->channel, 102);
    EXPECT_EQ(failure->fromHz, 433e6);
    EXPECT_EQ(failure->toHz, 435e6);
    EXPECT_EQ(failure->milliseconds, 3000.0);
    EXPECT_EQ(failure->reading, 1.5);
    EXPECT_FALSE(failure->begunAt);
}

TEST(DeviceLines, FailureCanStandAtOneFrequencyAndLastMilliseconds) {
    const auto failure = ReadEutFailure(L"1,433MHz,200 ms,-1");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->fromHz, 433e6);
    EXPECT_EQ(failure->toHz, 433e6);
    EXPECT_EQ(failure->milliseconds, 200.0);
    EXPECT_EQ(failure->reading, -1.0);
    EXPECT_EQ(ReadEutFailure(L"1,433MHz,7,1")->milliseconds, 7000.0);
}

TEST(DeviceLines, WhatIsNoFailureIsRefused) {
    for (const wchar_t* text :
         {L"", L"1, 433MHz, 3 s", L"x, 433MHz, 3 s, 1", L"1, x, 3 s, 1", L"1, 433MHz, -1 s, 1",
          L"1, 433MHz, s, 1", L"1, 433MHz, 3 s, ?", L"1, 435MHz..433MHz, 3 s, 1"}) {
        EXPECT_FALSE(ReadEutFailure(text)) << ::testing::PrintToString(String(text));
    }
}

TEST(DeviceLines, ClassesAreFoundByTheirKeysInAnyCase) {
    EXPECT_EQ(FindClass(L"bcgenerators"), sim::SimClass::BcGenerators);
    EXPECT_EQ(FindClass(L"Receivers"), sim::SimClass::Receivers);
    EXPECT_FALSE(FindClass(L"Receiver"));
    EXPECT_EQ(AllClassKeys(),
              L"Monitoring, BcGenerators, Generators, Amplifiers, SwitchUnits, Receivers, "
              L"SignalPaths");
}

}  // namespace
}  // namespace ace::workbench
