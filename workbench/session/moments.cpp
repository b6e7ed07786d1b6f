#include "workbench/session/moments.h"

#include <array>

#include <ace/core/text.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using Engine = _aceActionsEngine;
using enum AnswerMeaning;

std::int32_t RunMatrixRow(Engine& engine, const Moment& moment) {
    double hertz = moment.hertz;  // the engine writes the key that it looked for into these
    std::int32_t bandwidth = moment.bandwidth;
    std::int32_t power = moment.power;
    return engine.VKSDUTStep(hertz, bandwidth, power).Bits();
}

/// A moment without arguments, and one with a number alone.
template <Boolean (Engine::*Operation)()>
std::int32_t Plain(Engine& engine, const Moment&) {
    return (engine.*Operation)().Bits();
}
template <Boolean (Engine::*Operation)(std::int32_t)>
std::int32_t Numbered(Engine& engine, const Moment& moment) {
    return (engine.*Operation)(moment.number).Bits();
}
template <std::int32_t (Engine::*Operation)(std::int32_t, const String&)>
std::int32_t OfChannel(Engine& engine, const Moment& moment) {
    return (engine.*Operation)(moment.number, moment.name);
}
template <Boolean (Engine::*Operation)(const String&)>
std::int32_t OfWirelessTest(Engine& engine, const Moment& moment) {
    return (engine.*Operation)(moment.name).Bits();
}

/// Indexed by `MomentCall`.
constexpr MomentCallRow Moments[] = {
    {MomentCall::StartTest, L"StartTest", L"start of test", TrueStops, Plain<&Engine::StartTest>},
    {MomentCall::StopTest, L"StopTest", L"end of test", TrueStops, Plain<&Engine::StopTest>},
    {MomentCall::EnterSubrange, L"EnterSubrange", L"enter subrange %1", TrueStops,
     Numbered<&Engine::EnterSubrange>},
    {MomentCall::LeaveSubrange, L"LeaveSubrange", L"leave subrange %1", TrueStops,
     Numbered<&Engine::LeaveSubrange>},
    {MomentCall::NewFrequency, L"NewFrequency", L"new frequency", TrueStops,
     [](Engine& engine, const Moment& moment) -> std::int32_t {
         return engine.NewFrequency(moment.hertz, moment.isAgain).Bits();
     }},
    {MomentCall::BeforeTestLoop, L"BeforeTestLoop", L"before the test loop", TrueStops,
     Plain<&Engine::BeforeTestLoop>},
    {MomentCall::AfterTestLoop, L"AfterTestLoop", L"after the test loop", TrueStops,
     Plain<&Engine::AfterTestLoop>},
    {MomentCall::EnterStep, L"EnterStep", L"step %1", TrueStops, Numbered<&Engine::EnterStep>},
    {MomentCall::BeforeStep, L"BeforeStep", L"before step %1", TrueStops,
     Numbered<&Engine::BeforeStep>},
    {MomentCall::AfterStep, L"AfterStep", L"after step %1", TrueStops,
     Numbered<&Engine::AfterStep>},
    {MomentCall::BeforeTest, L"BeforeTest", L"before test %1", TrueStops,
     Numbered<&Engine::BeforeTest>},
    {MomentCall::AfterTest, L"AfterTest", L"after test %1", TrueStops,
     Numbered<&Engine::AfterTest>},
    {MomentCall::Trigger, L"Trigger", L"channel %1 triggers", CodeCounts,
     OfChannel<&Engine::Trigger>},
    {MomentCall::EnterNoGo, L"EnterNoGo", L"channel %1 no-go", CodeCounts,
     OfChannel<&Engine::EnterNoGo>},
    {MomentCall::Go, L"Go", L"channel %1 go", CodeCounts, OfChannel<&Engine::Go>},
    {MomentCall::BeforeVKSTest, L"BeforeVKSTest", L"before test %2", TrueStops,
     OfWirelessTest<&Engine::BeforeVKSTest>},
    {MomentCall::VKSStep, L"VKSStep", L"test %2 step %3", TrueStops,
     [](Engine& engine, const Moment& moment) -> std::int32_t {
         return engine.VKSStep(moment.name, moment.stepKey).Bits();
     }},
    {MomentCall::AfterVKSTest, L"AfterVKSTest", L"after test %2", TrueStops,
     OfWirelessTest<&Engine::AfterVKSTest>},
    {MomentCall::VKSDUTStepGlobBefore, L"VKSDUTStepGlobBefore", L"before row %1", TrueStops,
     Plain<&Engine::VKSDUTStepGlobBefore>},
    {MomentCall::VKSDUTStep, L"VKSDUTStep", L"matrix row %1", TrueStops, RunMatrixRow},
    {MomentCall::VKSDUTStepGlobAfter, L"VKSDUTStepGlobAfter", L"after row %1", TrueStops,
     Plain<&Engine::VKSDUTStepGlobAfter>},
};

constexpr bool IsInOrder() {
    for (std::size_t i = 0; i < std::size(Moments); ++i) {
        if (static_cast<std::size_t>(Moments[i].call) != i) {
            return false;
        }
    }
    return std::size(Moments) == static_cast<std::size_t>(MomentCall::VKSDUTStepGlobAfter) + 1;
}
static_assert(IsInOrder());

constexpr ChannelCode Codes[] = {
    {1, L"take a comment", false},       {2, L"take a comment with the generator off", false},
    {3, L"stop the level sweep", false}, {4, L"go to single measurement", false},
    {5, L"stop the test", true},         {6, L"evaluate narrowband and broadband to ETSI", false},
};

}  // namespace

const MomentCallRow& MomentCallRowOf(MomentCall call) {
    return Moments[static_cast<std::size_t>(call)];
}

String MomentWords(const Moment& moment) {
    return Filled(MomentCallRowOf(moment.call).words,
                  std::array{IntegerText(moment.number), moment.name, moment.stepKey});
}

const ChannelCode* FindChannelCode(std::int32_t code) {
    for (const ChannelCode& row : Codes) {
        if (row.code == code) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace ace::workbench
