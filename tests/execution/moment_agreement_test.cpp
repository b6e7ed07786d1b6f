#include <algorithm>

#include <ace/core/moment_table.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String TestKey = L"Test";
const String StepKey = L"Step";

/// How the host reaches a moment of a module.
struct Reached {
    aceModul moduleKind;
    p_PerformTimes time;
    void (*run)(aceActionsEngine& engine);
};

template <Boolean (aceActionsEngine::*Moment)()>
void Run(aceActionsEngine& engine) {
    (engine.*Moment)();
}
template <auto Moment>
void RunFirst(aceActionsEngine& engine) {
    (engine.*Moment)(1);
}
template <std::int32_t (aceActionsEngine::*Moment)(std::int32_t, const String&)>
void RunChannel(aceActionsEngine& engine) {
    (engine.*Moment)(1, L"Channel");
}
template <Boolean (aceActionsEngine::*Moment)(const String&)>
void RunTest(aceActionsEngine& engine) {
    (engine.*Moment)(TestKey);
}
void RunFrequency(aceActionsEngine& engine) {
    engine.State().LastFrequency = -1.0;
    engine.NewFrequency(80e6, true);
}
void RunStep(aceActionsEngine& engine) {
    engine.VKSStep(TestKey, StepKey);
}
void RunRow(aceActionsEngine& engine) {
    double frequency = 80e6;
    std::int32_t bandwidth = 0;
    std::int32_t power = 0;
    engine.VKSDUTStep(frequency, bandwidth, power);
}

using E = aceActionsEngine;
constexpr auto Start = Run<&E::StartTest>;
constexpr auto Stop = Run<&E::StopTest>;

const Reached Moments[] = {
    {aceTemplate, ptStartTest, Start},
    {aceTemplate, ptStopTest, Stop},
    {aceTemplate, ptEnterSubRange, RunFirst<&E::EnterSubrange>},
    {aceTemplate, ptLeaveSubrange, RunFirst<&E::LeaveSubrange>},
    {aceTemplate, ptEveryFreq, RunFrequency},
    {aceMonitoring, ptStartTest, Start},
    {aceMonitoring, ptStopTest, Stop},
    {aceMonitoring, ptEveryFreq, RunFrequency},
    {aceMonitoring, ptTrigger, RunChannel<&E::Trigger>},
    {aceMonitoring, ptNoGo, RunChannel<&E::EnterNoGo>},
    {aceMonitoring, ptGo, RunChannel<&E::Go>},
    {aceMonitoring, ptAfter, RunFirst<&E::AfterStep>},
    {aceMonitoring, ptBeforeTest, Run<&E::BeforeTestLoop>},
    {aceMonitoring, ptAfterTest, Run<&E::AfterTestLoop>},
    {aceEMSAutoTemplateGeneral, ptStartTest, Start},
    {aceEMSAutoTemplateGeneral, ptStopTest, Stop},
    {aceEMSAutoTemplate, ptStep, RunFirst<&E::EnterStep>},
    {aceEMIAutoTemplate, ptStartTest, Start},
    {aceEMIAutoTemplate, ptStopTest, Stop},
    {aceEMIAutoTemplate, ptEveryFreq, RunFrequency},
    {aceEMIAutoTemplate, ptBefore, RunFirst<&E::BeforeStep>},
    {aceEMIAutoTemplate, ptAfter, RunFirst<&E::AfterStep>},
    {aceTSTemplate, ptStartTest, Start},
    {aceTSTemplate, ptStopTest, Stop},
    {aceTSTemplate, ptBeforeTest, RunFirst<&E::BeforeTest>},
    {aceTSTemplate, ptAfterTest, RunFirst<&E::AfterTest>},
    {aceAziChart, ptStartTest, Start},
    {aceAziChart, ptStopTest, Stop},
    {aceAziChart, ptEveryFreq, RunFrequency},
    {aceVKSTemplate, ptStartTest, Start},
    {aceVKSTemplate, ptStopTest, Stop},
    {aceVKSTemplate, ptStep, RunStep},
    {aceVKSTemplate, ptBeforeTest, RunTest<&E::BeforeVKSTest>},
    {aceVKSTemplate, ptAfterTest, RunTest<&E::AfterVKSTest>},
    {aceVKSDUT, ptStep, RunRow},
    {aceVKSDUT, ptBefore, Run<&E::VKSDUTStepGlobBefore>},
    {aceVKSDUT, ptAfter, Run<&E::VKSDUTStepGlobAfter>},
};

class MomentAgreement : public EngineTest {
  protected:
    /// A module with one empty set of each kind; the step and the row can be found by their keys.
    void Serve(aceModul moduleKind) {
        EngineState& state = State();
        state.Modul = moduleKind;
        for (const NumberedSets& numbered : FindModule(moduleKind)->AllNumbered()) {
            (state.*numbered.sets).Redim(0, 0);
            state.*numbered.count = 1;
        }
        for (DynArray<String>* texts : {&state.VKSTestUKeys, &state.VKSStepUKeys}) {
            texts->Redim(0, 0);
            (*texts)[0] = TestKey;
        }
        state.VKSStepKeys.Redim(0, 0);
        state.VKSStepKeys[0] = StepKey;
        state.VKSDUTIds.Redim(0, 0, 0, 2);
        state.VKSDUTIds(0, 0) = state.VKSDUTIds(0, 1) = state.VKSDUTIds(0, 2) = -1.0;
    }
    /// A wait of this list was seen when the moment ran.
    bool Runs(const Reached& moment) {
        host->journal.Clear();
        moment.run(*engine);
        const Lines lines = TakeEffects();
        return std::find(lines.begin(), lines.end(), Waited(1)[0]) != lines.end();
    }
    static void Put(ActionList list) {
        list.actions.Redim(0, 0);
        list.actions[0] = WaitFor(1);
        list.count = 1;
    }
};

TEST_F(MomentAgreement, EachMomentRunsTheListThatTheTableNamesAndNoOtherOfItsModule) {
    for (const Reached& own : Moments) {
        Serve(own.moduleKind);
        ASSERT_NE(FindMoment(own.moduleKind, own.time), nullptr)
            << own.moduleKind << ", " << own.time;
        Put(ListOf(State(), *FindMoment(own.moduleKind, own.time), 0));
        for (const Reached& moment : Moments) {
            if (moment.moduleKind == own.moduleKind) {
                EXPECT_EQ(Runs(moment), moment.time == own.time)
                    << own.moduleKind << ": list of moment " << own.time << " at " << moment.time;
            }
        }
        static_cast<ModuleLists&>(State()) = ModuleLists();
    }
}

TEST_F(MomentAgreement, EveryRowOfTheTableIsReached) {
    for (const MomentRow& row : MomentTable()) {
        const bool isReached =
            std::any_of(std::begin(Moments), std::end(Moments), [&](const Reached& moment) {
                return moment.moduleKind == row.moduleKind && moment.time == row.time;
            });
        EXPECT_TRUE(isReached) << row.moduleKind << ", " << row.time;
    }
}

/// Intentional: the general lists of a susceptibility test have an every-frequency list that runs
/// and that no editor shows.
TEST_F(MomentAgreement, TheEveryFrequencyListOfTheGeneralListsRunsAndIsNotInTheTable) {
    EXPECT_EQ(FindMoment(aceEMSAutoTemplateGeneral, ptEveryFreq), nullptr);
    Serve(aceEMSAutoTemplateGeneral);
    Fill(State().EMSAutoGeneral, FreqList, {WaitFor(1)});
    EXPECT_TRUE(Runs({aceEMSAutoTemplateGeneral, ptEveryFreq, RunFrequency}));
}

}  // namespace
}  // namespace ace::test
