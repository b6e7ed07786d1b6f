#include "workbench/session/plan.h"

#include <gmock/gmock.h>

#include "workbench/files/text_encoding.h"
#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;

/// The operations in their order, with number, frequency, name and step where there are such.
std::vector<std::string> CallsOf(const TestSetUp& setUp) {
    std::vector<std::string> calls;
    for (const Moment& moment : PlanOf(setUp)) {
        String call(MomentCallRowOf(moment.call).operation);
        call += moment.number != 0 ? L" " + std::to_wstring(moment.number) : String();
        call += moment.hertz != 0.0 ? L" " + FrequencyText(moment.hertz) : String();
        call += moment.name.empty() ? String() : L" " + moment.name;
        call += moment.stepKey.empty() ? String() : L" " + moment.stepKey;
        calls.push_back(ToUtf8(call + (moment.ofSteps ? L" (steps)" : L"")));
    }
    return calls;
}

TestSetUp Of(aceModul moduleKind, std::int32_t subRanges,
             std::vector<std::optional<Sweep>> sweeps = {}) {
    TestSetUp setUp;
    setUp.moduleKind = moduleKind;
    setUp.subRanges = subRanges;
    setUp.sweeps = std::move(sweeps);
    return setUp;
}

const Sweep OneTwoFour{100.0, 400.0, 100.0};
const Sweep Five{500.0, 500.0, 1.0};

TEST(Plan, ASingleTestEntersEachSubrangeRunsItsFrequenciesAndLeavesIt) {
    EXPECT_THAT(
        CallsOf(Of(aceTemplate, 2, {OneTwoFour, Five})),
        ElementsAre("StartTest", "EnterSubrange 1", "NewFrequency 1 100 Hz",
                    "NewFrequency 1 200 Hz", "NewFrequency 1 400 Hz", "LeaveSubrange 1",
                    "EnterSubrange 2", "NewFrequency 2 500 Hz", "LeaveSubrange 2", "StopTest"));
}

TEST(Plan, ASubrangeWithoutSweepIsEnteredAndLeft) {
    EXPECT_THAT(CallsOf(Of(aceTemplate, 1, {std::nullopt})),
                ElementsAre("StartTest", "EnterSubrange 1", "LeaveSubrange 1", "StopTest"));
}

TEST(Plan, MonitoringRunsItsLoopWithWhatTheChannelsDoAtEachFrequency) {
    TestSetUp setUp = Of(aceMonitoring, 2, {OneTwoFour, Five});
    setUp.channels = {{L"Speed", {2}, {2, 3}, {4}}, {L"Light", {}, {2}, {}}};
    EXPECT_THAT(CallsOf(setUp),
                ElementsAre("StartTest", "BeforeTestLoop", "NewFrequency 1 100 Hz", "AfterStep 1",
                            "NewFrequency 1 200 Hz", "Trigger 1 Speed", "EnterNoGo 1 Speed",
                            "EnterNoGo 2 Light", "AfterStep 2", "NewFrequency 1 400 Hz",
                            "EnterNoGo 1 Speed", "AfterStep 3", "NewFrequency 2 500 Hz",
                            "Go 1 Speed", "AfterStep 4", "AfterTestLoop", "StopTest"));
}

TEST(Plan, ASusceptibilityTestEntersItsStepsInTheObjectThatHoldsThem) {
    EXPECT_THAT(CallsOf(Of(aceEMSAutoTemplateGeneral, 2, {Five, std::nullopt})),
                ElementsAre("StartTest", "EnterStep 1 (steps)", "NewFrequency 1 500 Hz",
                            "EnterStep 2 (steps)", "StopTest"));
    EXPECT_THAT(CallsOf(Of(aceEMSAutoTemplateGeneral, 0, {Five})),
                ElementsAre("StartTest", "NewFrequency 1 500 Hz", "StopTest"));
    EXPECT_THAT(CallsOf(Of(aceEMSAutoTemplate, 2)),
                ElementsAre("StartTest", "EnterStep 1", "EnterStep 2", "StopTest"));
}

TEST(Plan, AnEmissionTestRunsTheFrequenciesBetweenBeforeAndAfterEachStep) {
    EXPECT_THAT(CallsOf(Of(aceEMIAutoTemplate, 1, {Five})),
                ElementsAre("StartTest", "BeforeStep 1", "NewFrequency 1 500 Hz", "AfterStep 1",
                            "StopTest"));
}

TEST(Plan, ASequenceRunsItsTestsAndAnAzimuthChartItsFrequencies) {
    EXPECT_THAT(CallsOf(Of(aceTSTemplate, 2)),
                ElementsAre("StartTest", "BeforeTest 1", "AfterTest 1", "BeforeTest 2",
                            "AfterTest 2", "StopTest"));
    EXPECT_THAT(
        CallsOf(Of(aceAziChart, 0, {Five, Five})),
        ElementsAre("StartTest", "NewFrequency 1 500 Hz", "NewFrequency 2 500 Hz", "StopTest"));
}

TEST(Plan, WirelessTestsRunTheirStepsByKey) {
    TestSetUp setUp = Of(aceVKSTemplate, 2);
    setUp.tests = {{L"U1", {{L"A", L"Power"}, {L"B", L""}}}, {L"U2", {}}};
    EXPECT_THAT(CallsOf(setUp),
                ElementsAre("StartTest", "BeforeVKSTest U1", "VKSStep U1 A", "VKSStep U1 B",
                            "AfterVKSTest U1", "BeforeVKSTest U2", "AfterVKSTest U2", "StopTest"));
}

TEST(Plan, TheMatrixRunsTheListsForAllRowsAroundEachCombination) {
    TestSetUp setUp = Of(aceVKSDUT, 0);
    setUp.matrix.frequencies = {{0.0, L"test mode"}, {2402e6, L"low"}};
    setUp.matrix.bandwidths = {L"1 MHz"};
    setUp.matrix.powers = {L"0 dBm", L"10 dBm"};
    EXPECT_THAT(
        CallsOf(setUp),
        ElementsAre("StartTest", "VKSDUTStepGlobBefore 1", "VKSDUTStep 1", "VKSDUTStepGlobAfter 1",
                    "VKSDUTStepGlobBefore 2", "VKSDUTStep 2", "VKSDUTStepGlobAfter 2",
                    "VKSDUTStepGlobBefore 3 2.402 GHz", "VKSDUTStep 3 2.402 GHz",
                    "VKSDUTStepGlobAfter 3 2.402 GHz", "VKSDUTStepGlobBefore 4 2.402 GHz",
                    "VKSDUTStep 4 2.402 GHz", "VKSDUTStepGlobAfter 4 2.402 GHz", "StopTest"));
    const std::vector<Moment> plan = PlanOf(setUp);
    for (const std::size_t ofRowTwo : {4U, 5U, 6U}) {
        EXPECT_EQ(plan[ofRowTwo].bandwidth, 0);
        EXPECT_EQ(plan[ofRowTwo].power, 1);
    }
}

TEST(Plan, EachFrequencyCarriesItsDwell) {
    const std::vector<Moment> plan = PlanOf(Of(aceAziChart, 0, {Sweep{1.0, 1.0, 1.0, 250.0}}));
    EXPECT_EQ(plan[1].dwellMs, 250.0);
}

TEST(Moments, AreToldWithNumberNameAndStep) {
    EXPECT_EQ(MomentWords({.call = MomentCall::EnterSubrange, .number = 2}), L"enter subrange 2");
    EXPECT_EQ(MomentWords({.call = MomentCall::EnterNoGo, .number = 1, .name = L"Speed"}),
              L"channel 1 no-go");
    EXPECT_EQ(MomentWords({.call = MomentCall::VKSStep, .name = L"U1", .stepKey = L"A"}),
              L"test U1 step A");
}

TEST(Moments, OnlyCodeFiveStopsTheTest) {
    for (std::int32_t code = -1; code <= 7; ++code) {
        const ChannelCode* const row = FindChannelCode(code);
        EXPECT_EQ(row != nullptr, code >= 1 && code <= 6) << code;
        EXPECT_EQ(row != nullptr && row->stopsTest, code == 5) << code;
    }
}

}  // namespace
}  // namespace ace::workbench
