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
    EngineState* matrix = nullptr;  ///< the state that `GetVKSDUTActions` was given
    EngineState* loaded = nullptr;  ///< the state that `LoadEditor` was given last

    void GetMainActions(std::int32_t& subrangeCount, DynArray<p_Subrange>& subranges,
                        p_Subrange& test) override {
        Enter(L"GetMainActions");
        subrangeCount = count;
        subranges = numbered;
        test = first;
    }
    void GetMoniActions(std::int32_t& channelCount, DynArray<p_Subrange>& channels, p_Subrange& eut,
                        p_Subrange& loop) override {
        Enter(L"GetMoniActions");
        channelCount = count;
        channels = numbered;
        eut = first;
        loop = other;
    }
    void GetEMSAutoActionsGeneral(p_Subrange& general) override {
        Enter(L"GetEMSAutoActionsGeneral");
        general = first;
    }
    void GetEMSAutoActions(std::int32_t& stepCount, DynArray<p_Subrange>& steps) override {
        Enter(L"GetEMSAutoActions");
        stepCount = count;
        steps = numbered;
    }
    void GetEMIAutoActions(std::int32_t& stepCount, DynArray<p_Subrange>& steps,
                           p_Subrange& test) override {
        Enter(L"GetEMIAutoActions");
        stepCount = count;
        steps = numbered;
        test = first;
    }
    void GetTSActions(std::int32_t& testCount, DynArray<p_Subrange>& tests,
                      p_Subrange& test) override {
        Enter(L"GetTSActions");
        testCount = count;
        tests = numbered;
        test = first;
    }
    void GetAziChartActions(p_Subrange& chart) override {
        Enter(L"GetAziChartActions");
        chart = first;
    }
    void GetVKSActions(std::int32_t& testCount, DynArray<p_Subrange>& tests, p_Subrange& general,
                       std::int32_t& stepCount, DynArray<p_Subrange>& steps) override {
        Enter(L"GetVKSActions");
        testCount = count;
        tests = numbered;
        general = first;
        stepCount = secondCount;
        steps = second;
    }
    void GetVKSDUTActions(EngineState& state) override {
        Enter(L"GetVKSDUTActions");
        matrix = &state;
        state.VKSStepCount = secondCount;
        state.VKSSteps = second;
    }
    void GetVKSDUTGlobActions(p_Subrange& global) override {
        Enter(L"GetVKSDUTGlobActions");
        global = first;
    }
    void LoadEditor(aceModul modul, const std::shared_ptr<EngineState>& engine) override {
        Enter(L"LoadEditor", std::to_wstring(modul));
        loaded = engine.get();
    }
    void SetSubrange(std::int32_t number) override {
        Enter(L"SetSubrange", std::to_wstring(number));
    }
    void Unload() override { Enter(L"Unload"); }

  private:
    void Enter(StringView operation, const String& arguments = {}) {
        x_host.Call(L"Editor." + String(operation), arguments);
    }

    sim::SimHost& x_host;
};

}  // namespace ace::test
