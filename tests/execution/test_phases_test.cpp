#include "support/engine_fixture.h"

namespace ace::test {
namespace {

/// Every list set that a module has once. In `FillFixedSets` each of their lists waits its own
/// time: ten times the row from 1, plus 1 to 4 for the list.
constexpr p_Subrange ModuleLists::*FixedSets[] = {
    &ModuleLists::MainTest,       &ModuleLists::MoniEut,     &ModuleLists::MoniLoop,
    &ModuleLists::EMSAutoGeneral, &ModuleLists::EMIAutoTest, &ModuleLists::TSTest,
    &ModuleLists::AziChart,       &ModuleLists::VKSTemplate, &ModuleLists::VKSDUTGlob,
};

void FillFixedSets(EngineState& state) {
    std::int32_t tens = 0;
    for (const auto set : FixedSets) {
        tens += 10;
        std::int32_t ones = 0;
        for (const ListFields& list : ActionLists) {
            Fill(state.*set, list, {WaitFor(tens + ++ones)});
        }
    }
}

/// A wait of whole milliseconds from 10 to 99, with the messages before it.
Lines Ran(std::int32_t milliseconds) {
    return Journal(Yielded, Waited(L"0.0" + std::to_wstring(milliseconds), milliseconds));
}

/// What the start and the stop of a test run, by module kind.
struct PhaseRow {
    std::int32_t moduleKind;
    Lines start;
    Lines stop;
    bool stopParks = false;
    p_Subrange ModuleLists::*set = nullptr;
};
const PhaseRow Modules[] = {
    {aceTemplate, Journal(Ran(11), Yielded), Ran(12), false, &ModuleLists::MainTest},
    {aceMonitoring, Ran(21), Ran(22), false, &ModuleLists::MoniEut},
    {aceEMSAutoTemplateGeneral, Ran(41), Ran(42), true, &ModuleLists::EMSAutoGeneral},
    {aceEMSAutoTemplate, {}, {}},
    {aceEMIAutoTemplate, Ran(51), Ran(52), true, &ModuleLists::EMIAutoTest},
    {aceTSTemplate, Ran(61), Ran(62), false, &ModuleLists::TSTest},
    {aceAziChart, Ran(71), Ran(72), true, &ModuleLists::AziChart},
    {aceVKSTemplate, Ran(81), Ran(82), false, &ModuleLists::VKSTemplate},
    {aceVKSDUT, {}, {}},
    {9, {}, {}},
    {-1, {}, {}},
};

class TestPhasesTest : public EngineTest {
  protected:
    void Serve(std::int32_t moduleKind) { State().Modul = static_cast<aceModul>(moduleKind); }
};

// ---- start and stop of every module ------------------------------------------------------------

TEST_F(TestPhasesTest, StartRunsTheEnterListOfTheModule) {
    FillFixedSets(State());
    for (const PhaseRow& row : Modules) {
        Serve(row.moduleKind);
        EXPECT_FALSE(engine->StartTest()) << row.moduleKind;
        EXPECT_EQ(TakeEffects(), row.start) << row.moduleKind;
    }
}

TEST_F(TestPhasesTest, StopRunsTheLeaveListOfTheModule) {
    FillFixedSets(State());
    for (const PhaseRow& row : Modules) {
        Serve(row.moduleKind);
        EXPECT_FALSE(engine->StopTest()) << row.moduleKind;
        EXPECT_EQ(TakeEffects(), row.stop) << row.moduleKind;
    }
}

TEST_F(TestPhasesTest, FirstTrueResultEndsTheStartAndTheStop) {
    for (const PhaseRow& row : Modules) {
        if (row.set == nullptr) {
            continue;
        }
        Serve(row.moduleKind);
        Fill(State().*row.set, EnterList, {WaitFor(1), Action(atGotoSingle), WaitFor(2)});
        Fill(State().*row.set, LeaveList, {WaitFor(3), Action(atComment), WaitFor(4)});

        EXPECT_TRUE(engine->StartTest()) << row.moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded)) << row.moduleKind;
        EXPECT_TRUE(engine->StopTest()) << row.moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(3), Yielded)) << row.moduleKind;
    }
}

TEST_F(TestPhasesTest, StartWithAnEmptyTestAnswersFalseAndMarksItAsRunning) {
    for (const PhaseRow& row : Modules) {
        Serve(row.moduleKind);
        context.TestRunning = false;
        EXPECT_FALSE(engine->StartTest()) << row.moduleKind;
        EXPECT_TRUE(context.TestRunning) << row.moduleKind;
    }
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(TestPhasesTest, TestIsMarkedAsRunningOnlyBehindTheStartList) {
    Fill(State().MainTest, EnterList, {WaitFor(1)});
    Boolean inside = true;
    host->onTimedMessage = [&] { inside = context.TestRunning; };

    engine->StartTest();

    EXPECT_FALSE(inside);
    EXPECT_TRUE(context.TestRunning);
}

TEST_F(TestPhasesTest, StopAlwaysClearsTestRunningAlsoWhenTheListAnsweredTrue) {
    for (const PhaseRow& row : Modules) {
        Serve(row.moduleKind);
        if (row.set != nullptr) {
            Fill(State().*row.set, LeaveList, {Action(atTestStop)});
        }
        context.TestRunning = true;
        EXPECT_EQ(engine->StopTest(), row.set != nullptr) << row.moduleKind;
        EXPECT_FALSE(context.TestRunning) << row.moduleKind;
    }
}

TEST_F(TestPhasesTest, StartMarksTheTestAsRunningAlsoWhenTheListAnsweredTrue) {
    Fill(State().MainTest, EnterList, {Action(atTestStop)});

    EXPECT_TRUE(engine->StartTest());

    EXPECT_TRUE(context.TestRunning);
}

TEST_F(TestPhasesTest, FailureReachesTheHostAndLeavesTestRunningAsItWas) {
    for (const PhaseRow& row : Modules) {
        if (row.set == nullptr) {
            continue;
        }
        Serve(row.moduleKind);
        Fill(State().*row.set, EnterList, {Broken()});
        Fill(State().*row.set, LeaveList, {Broken()});

        context.TestRunning = false;
        EXPECT_EQ(ErrorOf([&] { engine->StartTest(); }), 13) << row.moduleKind;
        EXPECT_FALSE(context.TestRunning) << row.moduleKind;
        context.TestRunning = true;
        EXPECT_EQ(ErrorOf([&] { engine->StopTest(); }), 13) << row.moduleKind;
        EXPECT_TRUE(context.TestRunning) << row.moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Yielded, MismatchReported, Yielded, MismatchReported));
    }
}

TEST_F(TestPhasesTest, StartSetsTheLastFrequencyInEveryModule) {
    for (const PhaseRow& row : Modules) {
        Serve(row.moduleKind);
        State().LastFrequency = 1e6;
        engine->StartTest();
        EXPECT_EQ(State().LastFrequency, -1.0) << row.moduleKind;
    }
}

TEST_F(TestPhasesTest, StartAndStopWriteNoTraceLines) {
    host->tracing = true;

    engine->StartTest();
    engine->StopTest();

    EXPECT_EQ(host->journal.Lines(), Lines{});
}

TEST_F(TestPhasesTest, ActionsAreToldTheModuleOfTheObject) {
    context.SystemCheck = true;
    Fill(State().MainTest, EnterList, {Tell(L"Hello")});
    Fill(State().MoniEut, EnterList, {Tell(L"Hello")});

    engine->StartTest();
    EXPECT_EQ(TakeEffects(), Journal(Yielded, StandbyOn, Yielded, RadiationOn, Yielded));

    Serve(aceMonitoring);
    comments->answers = {false};
    engine->StartTest();
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Told(L"Hello")));
}

TEST_F(TestPhasesTest, WirelessTemplateStartsAndStopsWithTheReplaceVariables) {
    Serve(aceVKSTemplate);
    aceVKSVar& variables = State().VKSReplaceVars;
    variables.count = 1;
    variables.strSearch.Redim(0, 0);
    variables.strSearch[0] = L"#POWER#";
    variables.valReplace.Redim(0, 0);
    variables.valReplace[0] = std::int32_t{20};
    Fill(State().VKSTemplate, EnterList, {Ask(L"#POWER# dBm?")});
    Fill(State().VKSTemplate, LeaveList, {Tell(L"No more #POWER# dBm")});
    comments->answers = {false, false};

    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Asked(L"20 dBm?")));

    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Told(L"No more 20 dBm")));
}

// ---- tracking at the start ---------------------------------------------------------------------

TEST_F(TestPhasesTest, TrackingPassRunsTheTrackingActionsAloneWithMessagesBeforeEveryElement) {
    host->tracing = true;
    aceTrackFreq record;
    record.Freq = 30e6;
    Fill(
        State().MainTest, FreqList,
        {WaitFor(1), Action(atTrackFreq, record), Action(atTestStop), Action(atTrackFreq, record)});

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, Yielded, ActionTraced, Yielded, Yielded, ActionTraced));
    EXPECT_EQ(context.DispatcherRecords.TrackFreq.Freq, 30e6);
}

TEST_F(TestPhasesTest, TrackingRunsAlsoAfterAStartListThatEndedWithTrueAndLeavesTheResultTrue) {
    host->tracing = true;
    Fill(State().MainTest, EnterList, {Action(atTestStop)});
    Fill(State().MainTest, FreqList, {Action(atTrackFreq, aceTrackFreq{})});

    EXPECT_TRUE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, ActionTraced, Yielded, ActionTraced));
}

TEST_F(TestPhasesTest, FailedTrackingLeavesTestRunningAsItWas) {
    Fill(State().MainTest, FreqList, {Action(atTrackFreq), WaitFor(1)});

    EXPECT_EQ(ErrorOf([&] { engine->StartTest(); }), 13);

    EXPECT_FALSE(context.TestRunning);
    EXPECT_EQ(TakeEffects(), Journal(Yielded, MismatchReported));
}

TEST_F(TestPhasesTest, OnlyATemplateTracksAtTheStart) {
    for (const PhaseRow& row : Modules) {
        if (row.set == nullptr || row.moduleKind == aceTemplate) {
            continue;
        }
        Serve(row.moduleKind);
        Fill(State().*row.set, FreqList, {Action(atTrackFreq)});
        EXPECT_FALSE(engine->StartTest()) << row.moduleKind;
    }
    EXPECT_EQ(TakeEffects(), Lines{});
}

// ---- parking at the stop -----------------------------------------------------------------------

TEST_F(TestPhasesTest, ParkingAtTheStopIsLeftToTheHostInThreeModules) {
    host->tracing = true;
    for (const PhaseRow& row : Modules) {
        if (row.set == nullptr) {
            continue;
        }
        Serve(row.moduleKind);
        Fill(State().*row.set, LeaveList, {Action(atParkAcc), Action(atStopLevSweep)});
        context.EutCheckRequest = acEutStoreComment | acEutStopTest;

        EXPECT_TRUE(engine->StopTest()) << row.moduleKind;

        const Lines parked = Journal(Yielded, Yielded, ActionTraced);
        const Lines ran = Journal(Yielded, ActionTraced, Yielded, ActionTraced);
        EXPECT_EQ(TakeEffects(), row.stopParks ? parked : ran) << row.moduleKind;
        EXPECT_EQ(context.EutCheckRequest, row.stopParks ? 4 : 129) << row.moduleKind;
    }
}

TEST_F(TestPhasesTest, ParkingBehindATrueResultIsNotReached) {
    Serve(aceAziChart);
    Fill(State().AziChart, LeaveList, {Action(atTestStop), Action(atParkAcc)});

    EXPECT_TRUE(engine->StopTest());

    EXPECT_EQ(context.EutCheckRequest, 0);
}

TEST_F(TestPhasesTest, OnlyTheStopOfAnEmissionTestForgetsTheRequests) {
    for (const PhaseRow& row : Modules) {
        Serve(row.moduleKind);
        context.EutCheckRequest = 7;
        engine->StopTest();
        EXPECT_EQ(context.EutCheckRequest, row.moduleKind == aceEMIAutoTemplate ? 0 : 7)
            << row.moduleKind;
    }
}

}  // namespace
}  // namespace ace::test
