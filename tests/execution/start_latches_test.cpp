#include "support/engine_fixture.h"
#include "support/every_moment.h"

namespace ace::test {
namespace {

struct NamedSet {
    String name;
    p_Subrange ModuleLists::*set;
};
const NamedSet FixedSets[] = {
    {L"MainTest", &ModuleLists::MainTest},       {L"MoniEut", &ModuleLists::MoniEut},
    {L"MoniLoop", &ModuleLists::MoniLoop},       {L"EMSAutoGeneral", &ModuleLists::EMSAutoGeneral},
    {L"EMIAutoTest", &ModuleLists::EMIAutoTest}, {L"TSTest", &ModuleLists::TSTest},
    {L"AziChart", &ModuleLists::AziChart},       {L"VKSTemplate", &ModuleLists::VKSTemplate},
    {L"VKSDUTGlob", &ModuleLists::VKSDUTGlob},
};
struct NamedSets {
    String name;
    DynArray<p_Subrange> ModuleLists::*sets;
};
const NamedSets NumberedSets[] = {
    {L"MainSubranges", &ModuleLists::MainSubranges},
    {L"MoniChannels", &ModuleLists::MoniChannels},
    {L"EMSAutoSteps", &ModuleLists::EMSAutoSteps},
    {L"EMIAutoSteps", &ModuleLists::EMIAutoSteps},
    {L"TSTests", &ModuleLists::TSTests},
    {L"VKSTests", &ModuleLists::VKSTests},
    {L"VKSSteps", &ModuleLists::VKSSteps},
};
const String ListNames[] = {L".Enter", L".Leave", L".Freq", L".Mlc"};

/// Every list of every set holds two latched actions that do nothing.
class StartLatchesTest : public EngineTest {
  protected:
    StartLatchesTest() {
        for (const NamedSet& fixed : FixedSets) {
            LatchAll(State().*fixed.set);
        }
        for (const NamedSets& numbered : NumberedSets) {
            (State().*numbered.sets).Redim(0, 2);
            for (p_Subrange& set : State().*numbered.sets) {
                LatchAll(set);
            }
        }
        EngineState& state = State();
        state.MainSubrangeCount = state.MoniChannelCount = state.EMSAutoStepCount = 2;
        state.EMIAutoStepCount = state.VKSTestCount = state.VKSStepCount = 2;
        NameWireless(state);
    }
    static void NameWireless(EngineState& state) {
        for (DynArray<String> ModuleLists::*keys :
             {&ModuleLists::VKSTestUKeys, &ModuleLists::VKSStepUKeys, &ModuleLists::VKSStepKeys}) {
            (state.*keys).Redim(0, 2);
        }
        state.VKSTestUKeys[0] = state.VKSStepUKeys[0] = FirstTest;
        state.VKSTestUKeys[1] = SecondTest;
        state.VKSStepKeys[0] = FirstStep;
        state.VKSDUTIds.Redim(0, 2, 0, 2);
    }
    static void LatchAll(p_Subrange& set) {
        p_Action latched = Action(atParkAcc);
        latched.IgnoreErr = true;
        for (const ListFields& list : ActionLists) {
            Fill(set, list, {latched, latched});
        }
    }
    /// Names of the lists without a latch; a list with one of two has a "?" behind its name.
    Lines Cleared() {
        Lines names;
        for (const NamedSet& fixed : FixedSets) {
            AddCleared(names, fixed.name, State().*fixed.set);
        }
        for (const NamedSets& numbered : NumberedSets) {
            for (std::int32_t i = 0; i <= 2; ++i) {
                AddCleared(names, numbered.name + std::to_wstring(i), (State().*numbered.sets)[i]);
            }
        }
        return names;
    }
    static void AddCleared(Lines& names, const String& name, const p_Subrange& set) {
        for (std::size_t i = 0; i < std::size(ActionLists); ++i) {
            const DynArray<p_Action>& list = set.*ActionLists[i].actions;
            if (!list[0].IgnoreErr || !list[1].IgnoreErr) {
                const bool all = !list[0].IgnoreErr && !list[1].IgnoreErr;
                names.push_back(name + ListNames[i] + (all ? L"" : L"?"));
            }
        }
    }
    Lines ClearedByStart(std::int32_t moduleKind) {
        State().Modul = static_cast<aceModul>(moduleKind);
        EXPECT_FALSE(engine->StartTest());
        return Cleared();
    }
};

TEST_F(StartLatchesTest, TemplateClearsItsTestAndTheTwoListsOfItsSubranges) {
    EXPECT_EQ(
        ClearedByStart(aceTemplate),
        (Lines{L"MainTest.Enter", L"MainTest.Leave", L"MainTest.Freq", L"MainSubranges0.Enter",
               L"MainSubranges0.Leave", L"MainSubranges1.Enter", L"MainSubranges1.Leave"}));
}

TEST_F(StartLatchesTest, MonitoringClearsItsFourListsAndThreeOfItsChannelsButNotTheLoop) {
    EXPECT_EQ(ClearedByStart(aceMonitoring),
              (Lines{L"MoniEut.Enter", L"MoniEut.Leave", L"MoniEut.Freq", L"MoniEut.Mlc",
                     L"MoniChannels0.Enter", L"MoniChannels0.Leave", L"MoniChannels0.Freq",
                     L"MoniChannels1.Enter", L"MoniChannels1.Leave", L"MoniChannels1.Freq"}));
}

TEST_F(StartLatchesTest, SusceptibilityGeneralClearsItsThreeLists) {
    EXPECT_EQ(ClearedByStart(aceEMSAutoTemplateGeneral),
              (Lines{L"EMSAutoGeneral.Enter", L"EMSAutoGeneral.Leave", L"EMSAutoGeneral.Freq"}));
}

TEST_F(StartLatchesTest, EmissionClearsItsThreeListsAndTheTwoOfItsSteps) {
    EXPECT_EQ(ClearedByStart(aceEMIAutoTemplate),
              (Lines{L"EMIAutoTest.Enter", L"EMIAutoTest.Leave", L"EMIAutoTest.Freq",
                     L"EMIAutoSteps0.Enter", L"EMIAutoSteps0.Leave", L"EMIAutoSteps1.Enter",
                     L"EMIAutoSteps1.Leave"}));
}

TEST_F(StartLatchesTest, SequenceClearsItsThreeListsAndTheTwoOfItsTests) {
    State().TSTestCount = 2;

    EXPECT_EQ(ClearedByStart(aceTSTemplate),
              (Lines{L"TSTest.Enter", L"TSTest.Leave", L"TSTest.Freq", L"TSTests0.Enter",
                     L"TSTests0.Leave", L"TSTests1.Enter", L"TSTests1.Leave"}));
}

TEST_F(StartLatchesTest, AzimuthChartClearsItsThreeLists) {
    EXPECT_EQ(ClearedByStart(aceAziChart),
              (Lines{L"AziChart.Enter", L"AziChart.Leave", L"AziChart.Freq"}));
}

TEST_F(StartLatchesTest, WirelessTemplateClearsNoneOfItsTests) {
    EXPECT_EQ(ClearedByStart(aceVKSTemplate),
              (Lines{L"VKSTemplate.Enter", L"VKSTemplate.Leave", L"VKSTemplate.Freq"}));
}

TEST_F(StartLatchesTest, WirelessTestsAreClearedByTheCountOfTheSequence) {
    State().TSTestCount = 1;

    EXPECT_EQ(ClearedByStart(aceVKSTemplate),
              (Lines{L"VKSTemplate.Enter", L"VKSTemplate.Leave", L"VKSTemplate.Freq",
                     L"VKSTests0.Enter", L"VKSTests0.Leave"}));
}

TEST_F(StartLatchesTest, SusceptibilityStepsMatrixAndUnknownModulesClearNothing) {
    for (const std::int32_t moduleKind :
         {std::int32_t{aceEMSAutoTemplate}, std::int32_t{aceVKSDUT}, 9, -1}) {
        EXPECT_EQ(ClearedByStart(moduleKind), Lines{}) << moduleKind;
    }
}

TEST_F(StartLatchesTest, ClearingGoesByTheCountOfAList) {
    State().MainTest.EnterCount = 1;
    State().MainTest.LeaveCount = 0;
    State().MainSubrangeCount = -1;

    EXPECT_EQ(ClearedByStart(aceTemplate), (Lines{L"MainTest.Enter?", L"MainTest.Freq"}));
}

TEST_F(StartLatchesTest, CountAboveTheArrayIsErrorNineBeforeAnythingRuns) {
    State().MainSubrangeCount = 4;

    EXPECT_EQ(ErrorOf([&] { engine->StartTest(); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{});
    EXPECT_FALSE(context.TestRunning);
    EXPECT_EQ(State().LastFrequency, -1.0);
}

TEST_F(StartLatchesTest, LatchesAreClearedBeforeTheFirstActionRuns) {
    Boolean inside = true;
    p_Action latched = WaitFor(1);
    latched.IgnoreErr = true;
    Fill(State().MainTest, EnterList, {latched});
    host->onYield = [&](std::size_t) { inside = State().MainTest.Enter[0].IgnoreErr; };

    engine->StartTest();

    EXPECT_FALSE(inside);
}

TEST_F(StartLatchesTest, NoOtherMomentClearsALatch) {
    for (std::int32_t moduleKind = aceTemplate; moduleKind < ModulCount; ++moduleKind) {
        State().Modul = static_cast<aceModul>(moduleKind);
        for (const MomentCall& moment : EveryMoment) {
            if (moment.run != RunStart) {
                moment.run(*engine);
            }
        }
        engine->GetNoGo(1);
        EXPECT_EQ(Cleared(), Lines{}) << moduleKind;
    }
}

}  // namespace
}  // namespace ace::test
