/// How the host reaches each moment of each module.
#pragma once

#include <string>

#include <ace/core/actions_engine.h>
#include <ace/core/moment_table.h>

namespace ace::test {

/// Keys of the wireless tests and of a step; made before any memory is out.
inline const String FirstTest = L"T1";
inline const String SecondTest = L"T2";
inline const String FirstStep = L"S1";
inline const String ChannelName = L"Radio";

struct MomentCall {
    const char* name;  ///< of the operation
    aceModul moduleKind;
    p_PerformTimes time;
    void (*run)(aceActionsEngine& engine);  ///< with the first set of lists or the second
};
/// The name with the module's number, which no other moment has.
inline std::string NameOf(const MomentCall& moment) {
    return moment.name + std::to_string(moment.moduleKind);
}

/// The row of 2.4 GHz, or the row for everything.
inline void RunRow(aceActionsEngine& engine) {
    double frequency = 2.4e9;
    std::int32_t bandwidth = 0;
    std::int32_t power = 0;
    engine.VKSDUTStep(frequency, bandwidth, power);
}
inline void RunFrequency(aceActionsEngine& engine) {
    engine.NewFrequency(30e6, true);
}
inline void RunStart(aceActionsEngine& engine) {
    engine.StartTest();
}
inline void RunStop(aceActionsEngine& engine) {
    engine.StopTest();
}

/// What the host is asked for at present, between two moments.
inline void TakeRequest(aceActionsEngine& engine) {
    Value comment;
    engine.GetCheckEutAction(comment);
}

/// All of them; those of `MomentTable`, and the every-frequency list that it leaves out.
inline constexpr MomentCall EveryMoment[] = {
    {"StartTest", aceTemplate, ptStartTest, RunStart},
    {"StopTest", aceTemplate, ptStopTest, RunStop},
    {"EnterSubrange", aceTemplate, ptEnterSubRange, [](auto& engine) { engine.EnterSubrange(1); }},
    {"LeaveSubrange", aceTemplate, ptLeaveSubrange, [](auto& engine) { engine.LeaveSubrange(2); }},
    {"NewFrequency", aceTemplate, ptEveryFreq, RunFrequency},
    {"StartTest", aceMonitoring, ptStartTest, RunStart},
    {"StopTest", aceMonitoring, ptStopTest, RunStop},
    {"NewFrequency", aceMonitoring, ptEveryFreq, RunFrequency},
    {"Trigger", aceMonitoring, ptTrigger, [](auto& engine) { engine.Trigger(1, ChannelName); }},
    {"EnterNoGo", aceMonitoring, ptNoGo, [](auto& engine) { engine.EnterNoGo(2, ChannelName); }},
    {"Go", aceMonitoring, ptGo, [](auto& engine) { engine.Go(1, ChannelName); }},
    {"AfterStep", aceMonitoring, ptAfter, [](auto& engine) { engine.AfterStep(1); }},
    {"BeforeTestLoop", aceMonitoring, ptBeforeTest, [](auto& engine) { engine.BeforeTestLoop(); }},
    {"AfterTestLoop", aceMonitoring, ptAfterTest, [](auto& engine) { engine.AfterTestLoop(); }},
    {"StartTest", aceEMSAutoTemplateGeneral, ptStartTest, RunStart},
    {"StopTest", aceEMSAutoTemplateGeneral, ptStopTest, RunStop},
    {"NewFrequency", aceEMSAutoTemplateGeneral, ptEveryFreq, RunFrequency},
    {"EnterStep", aceEMSAutoTemplate, ptStep, [](auto& engine) { engine.EnterStep(1); }},
    {"StartTest", aceEMIAutoTemplate, ptStartTest, RunStart},
    {"StopTest", aceEMIAutoTemplate, ptStopTest, RunStop},
    {"NewFrequency", aceEMIAutoTemplate, ptEveryFreq, RunFrequency},
    {"BeforeStep", aceEMIAutoTemplate, ptBefore, [](auto& engine) { engine.BeforeStep(2); }},
    {"AfterStep", aceEMIAutoTemplate, ptAfter, [](auto& engine) { engine.AfterStep(1); }},
    {"StartTest", aceTSTemplate, ptStartTest, RunStart},
    {"StopTest", aceTSTemplate, ptStopTest, RunStop},
    {"BeforeTest", aceTSTemplate, ptBeforeTest, [](auto& engine) { engine.BeforeTest(1); }},
    {"AfterTest", aceTSTemplate, ptAfterTest, [](auto& engine) { engine.AfterTest(2); }},
    {"StartTest", aceAziChart, ptStartTest, RunStart},
    {"StopTest", aceAziChart, ptStopTest, RunStop},
    {"NewFrequency", aceAziChart, ptEveryFreq, RunFrequency},
    {"StartTest", aceVKSTemplate, ptStartTest, RunStart},
    {"StopTest", aceVKSTemplate, ptStopTest, RunStop},
    {"VKSStep", aceVKSTemplate, ptStep, [](auto& engine) { engine.VKSStep(FirstTest, FirstStep); }},
    {"BeforeVKSTest", aceVKSTemplate, ptBeforeTest,
     [](auto& engine) { engine.BeforeVKSTest(FirstTest); }},
    {"AfterVKSTest", aceVKSTemplate, ptAfterTest,
     [](auto& engine) { engine.AfterVKSTest(SecondTest); }},
    {"VKSDUTStep", aceVKSDUT, ptStep, RunRow},
    {"VKSDUTStepGlobBefore", aceVKSDUT, ptBefore,
     [](auto& engine) { engine.VKSDUTStepGlobBefore(); }},
    {"VKSDUTStepGlobAfter", aceVKSDUT, ptAfter, [](auto& engine) { engine.VKSDUTStepGlobAfter(); }},
};

/// The list that runs in a moment; `number` of the set from 0. One of them no table shows.
inline ActionList ListOf(ModuleLists& lists, const MomentCall& moment, std::int32_t number) {
    if (const MomentRow* row = FindMoment(moment.moduleKind, moment.time)) {
        return ace::ListOf(lists, *row, number);
    }
    return {lists.EMSAutoGeneral.FreqCount, lists.EMSAutoGeneral.Freq};
}

}  // namespace ace::test
