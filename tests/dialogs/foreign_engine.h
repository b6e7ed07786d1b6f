/// An engine object of another component: it has the operations, and no lists of ours.
#pragma once

#include <ace/core/actions_engine_interface.h>

namespace ace::test {

/// Answers nothing and does nothing.
class ForeignEngine final : public _aceActionsEngine {
  public:
    Boolean Change() override { return {}; }
    void Change(Boolean) override {}
    Boolean InitReceiver() override { return {}; }
    Boolean VKSInfByFreq() override { return {}; }
    Boolean VKSInfByBandwidth() override { return {}; }
    Boolean VKSInfByPower() override { return {}; }
    void Release() override {}
    void LoadActions(const String&, std::int32_t, aceModul) override {}
    void SaveActions(const String&) override {}
    void LoadEditor(IListControl*, ITreeControl*) override {}
    void EditorSelectSubrange(std::int32_t) override {}
    void AddSubrange(std::int32_t, const String&) override {}
    void SetVKSReplaceVar(const DynArray<String>&, const DynArray<Value>&, Boolean) override {}
    void AddVKSStep(const String&, const String&, const String&) override {}
    void DeleteVKSDUTFreq(double) override {}
    void AddVKSDUTBandwidthID(const String&, std::int32_t) override {}
    void SetVKSDUTInfluence(std::int32_t, std::int32_t, std::int32_t) override {}
    void AddVKSDUTPowerID(const String&, std::int32_t) override {}
    void AddVKSDUTFreq(const String&, double) override {}
    void DeleteVKSDUTBandwidthID(std::int32_t) override {}
    void DeleteVKSDUTAll() override {}
    void DeleteVKSDUTPowerID(std::int32_t) override {}
    void DeleteSubrange(std::int32_t, const String&) override {}
    void MoveSubrange(std::int32_t, std::int32_t) override {}
    void SwapSubrange(std::int32_t, std::int32_t) override {}
    Boolean StartTest() override { return {}; }
    void StopAllActions() override {}
    Boolean StopTest() override { return {}; }
    Boolean EnterSubrange(std::int32_t) override { return {}; }
    Boolean LeaveSubrange(std::int32_t) override { return {}; }
    Boolean BeforeStep(std::int32_t) override { return {}; }
    Boolean AfterStep(std::int32_t) override { return {}; }
    std::int32_t StepNumber() override { return {}; }
    String StepDescription(std::int32_t) override { return {}; }
    Boolean BeforeTest(std::int32_t) override { return {}; }
    Boolean BeforeVKSTest(const String&) override { return {}; }
    Boolean VKSStep(const String&, const String&) override { return {}; }
    Boolean VKSGetResult() override { return {}; }
    Boolean VKSStepsHaveActions() override { return {}; }
    Boolean VKSStepHaveActions(const String&, const String&) override { return {}; }
    Boolean VKSDUTStepGlobBefore() override { return {}; }
    Boolean VKSDUTStepGlobAfter() override { return {}; }
    std::int16_t VKSDUTStepGlobAfterCount() override { return {}; }
    std::int16_t VKSDUTStepGlobBeforeCount() override { return {}; }
    Boolean VKSDUTStep(double&, std::int32_t&, std::int32_t&) override { return {}; }
    std::int32_t VKSDUTStepActionCount(double&, std::int32_t&, std::int32_t&) override {
        return {};
    }
    Boolean AfterTest(std::int32_t) override { return {}; }
    Boolean AfterVKSTest(const String&) override { return {}; }
    std::int32_t TestNumber() override { return {}; }
    Boolean BeforeTestLoop() override { return {}; }
    Boolean AfterTestLoop() override { return {}; }
    Boolean EnterStep(std::int32_t) override { return {}; }
    std::int32_t Trigger(std::int32_t, const String&) override { return {}; }
    std::int32_t EnterNoGo(std::int32_t, const String&) override { return {}; }
    std::int32_t Go(std::int32_t, const String&) override { return {}; }
    std::int32_t GetNoGo(std::int32_t) override { return {}; }
    Boolean EUT_UseSetDevice() override { return {}; }
    Boolean NewFrequency(double, Boolean) override { return {}; }
    Boolean NewFrqCheckForAccLoading() override { return {}; }
    void SetVKSTests(const DynArray<String>&, const DynArray<String>&) override {}
    std::int32_t GetCheckEutAction(Value&) override { return {}; }
    void PrintStrings(aceModul, _aceActionsEngine&, Array2D<String>&, std::int32_t) override {}
    void WriteActionLists(const String&, aceModul) override {}
};

}  // namespace ace::test
