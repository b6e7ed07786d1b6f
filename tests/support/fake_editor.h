/// An editor that hands out lists made by the test and writes down what it was asked for.
#pragma once

#include <ace/core/ports.h>

#include "sim/sim_host.h"

namespace ace::test {

/// Hands out `numbered` with `count` as the module's numbered lists, `second` with `secondCount` as
/// its second numbered ones, and `first` and `other` as its fixed lists. The journal names each
/// operation.
class FakeEditor : public IEditor {
  public:
    explicit FakeEditor(sim::SimHost& host) : x_host(host) {}

    std::int32_t count = 0;
    DynArray<p_Subrange> numbered;
    std::int32_t secondCount = 0;
    DynArray<p_Subrange> second;
    p_Subrange first;
    p_Subrange other;
    ModuleLists* store = nullptr;         ///< the lists that were filled last
    std::shared_ptr<EngineState> loaded;  ///< the state that `LoadEditor` was given last
    ITreeControl* tree = nullptr;
    IListControl* list = nullptr;

    void GetMainActions(ModuleLists& lists) override {
        Enter(lists, L"GetMainActions");
        lists.MainSubrangeCount = count;
        lists.MainSubranges = numbered;
        lists.MainTest = first;
    }
    void GetMoniActions(ModuleLists& lists) override {
        Enter(lists, L"GetMoniActions");
        lists.MoniChannelCount = count;
        lists.MoniChannels = numbered;
        lists.MoniEut = first;
        lists.MoniLoop = other;
    }
    void GetEMSAutoActionsGeneral(ModuleLists& lists) override {
        Enter(lists, L"GetEMSAutoActionsGeneral");
        lists.EMSAutoGeneral = first;
    }
    void GetEMSAutoActions(ModuleLists& lists) override {
        Enter(lists, L"GetEMSAutoActions");
        lists.EMSAutoStepCount = count;
        lists.EMSAutoSteps = numbered;
    }
    void GetEMIAutoActions(ModuleLists& lists) override {
        Enter(lists, L"GetEMIAutoActions");
        lists.EMIAutoStepCount = count;
        lists.EMIAutoSteps = numbered;
        lists.EMIAutoTest = first;
    }
    void GetTSActions(ModuleLists& lists) override {
        Enter(lists, L"GetTSActions");
        lists.TSTestCount = count;
        lists.TSTests = numbered;
        lists.TSTest = first;
    }
    void GetAziChartActions(ModuleLists& lists) override {
        Enter(lists, L"GetAziChartActions");
        lists.AziChart = first;
    }
    void GetVKSActions(ModuleLists& lists) override {
        Enter(lists, L"GetVKSActions");
        lists.VKSTestCount = count;
        lists.VKSTests = numbered;
        lists.VKSTemplate = first;
        lists.VKSStepCount = secondCount;
        lists.VKSSteps = second;
    }
    void GetVKSDUTActions(ModuleLists& lists) override {
        Enter(lists, L"GetVKSDUTActions");
        lists.VKSStepCount = secondCount;
        lists.VKSSteps = second;
    }
    void GetVKSDUTGlobActions(ModuleLists& lists) override {
        Enter(lists, L"GetVKSDUTGlobActions");
        lists.VKSDUTGlob = first;
    }
    void Load() override { Enter(L"Load"); }
    void SetTreeControl(ITreeControl* control) override {
        Enter(L"SetTreeControl");
        tree = Linked(control);
    }
    void SetListControl(IListControl* control) override {
        Enter(L"SetListControl");
        list = Linked(control);
    }
    void TakeLists(const ModuleLists&) override { Enter(L"TakeLists"); }
    void LoadEditor(aceModul moduleKind, const std::shared_ptr<EngineState>& engine) override {
        Enter(L"LoadEditor", std::to_wstring(moduleKind));
        loaded = engine;
    }
    void SetSubrange(std::int32_t number) override {
        Enter(L"SetSubrange", std::to_wstring(number));
    }
    void Unload() override { Enter(L"Unload"); }

  private:
    template <class ControlOfHost>
    static ControlOfHost* Linked(ControlOfHost* control) {
        return control != nullptr ? control : throw RunTimeError(Errors::ObjectNotSet);
    }
    void Enter(ModuleLists& lists, StringView operation) {
        Enter(operation);
        store = &lists;
    }
    void Enter(StringView operation, const String& arguments = {}) {
        x_host.Call(L"Editor." + String(operation), sim::CallText(sim::Words{arguments}));
    }

    sim::SimHost& x_host;
};

}  // namespace ace::test
