#include "support/engine_fixture.h"

namespace ace::test {
namespace {

/// One operation that runs actions: the object that it needs, the list that it runs, the call.
struct OperationRow {
    const char* name;
    aceModul moduleKind;
    p_Subrange& (*set)(EngineState& state);
    ListFields list;
    void (*call)(aceActionsEngine& engine);
};
void PrintTo(const OperationRow& row, std::ostream* out) {
    *out << row.name;
}

template <p_Subrange ModuleLists::*Fixed>
p_Subrange& Set(EngineState& state) {
    return state.*Fixed;
}
template <DynArray<p_Subrange> ModuleLists::*Numbered>
p_Subrange& First(EngineState& state) {
    (state.*Numbered).Redim(0, 0);
    return (state.*Numbered)[0];
}

/// The first wireless test or step, with empty keys; the first row of the matrix, for everything.
p_Subrange& FirstTest(EngineState& state) {
    state.VKSTestUKeys.Redim(0, 0);
    state.VKSTestCount = 1;
    return First<&ModuleLists::VKSTests>(state);
}
p_Subrange& FirstStep(EngineState& state) {
    state.VKSStepKeys.Redim(0, 0);
    state.VKSStepUKeys.Redim(0, 0);
    state.VKSStepCount = 1;
    return First<&ModuleLists::VKSSteps>(state);
}
p_Subrange& FirstRow(EngineState& state) {
    state.VKSDUTIds.Redim(0, 0, 0, 2);
    for (const std::int32_t column : {0, 1, 2}) {
        state.VKSDUTIds(0, column) = -1.0;
    }
    state.VKSStepCount = 1;
    return First<&ModuleLists::VKSSteps>(state);
}

const OperationRow Operations[] = {
    {"StartTest", aceTemplate, Set<&ModuleLists::MainTest>, EnterList,
     [](aceActionsEngine& engine) { engine.StartTest(); }},
    {"StartWirelessTest", aceVKSTemplate, Set<&ModuleLists::VKSTemplate>, EnterList,
     [](aceActionsEngine& engine) { engine.StartTest(); }},
    {"StopTest", aceMonitoring, Set<&ModuleLists::MoniEut>, LeaveList,
     [](aceActionsEngine& engine) { engine.StopTest(); }},
    {"StopTestThatParks", aceAziChart, Set<&ModuleLists::AziChart>, LeaveList,
     [](aceActionsEngine& engine) { engine.StopTest(); }},
    {"StopWirelessTest", aceVKSTemplate, Set<&ModuleLists::VKSTemplate>, LeaveList,
     [](aceActionsEngine& engine) { engine.StopTest(); }},
    {"EnterSubrange", aceTemplate, First<&ModuleLists::MainSubranges>, EnterList,
     [](aceActionsEngine& engine) { engine.EnterSubrange(1); }},
    {"LeaveSubrange", aceTemplate, First<&ModuleLists::MainSubranges>, LeaveList,
     [](aceActionsEngine& engine) { engine.LeaveSubrange(1); }},
    {"BeforeStep", aceEMIAutoTemplate, First<&ModuleLists::EMIAutoSteps>, EnterList,
     [](aceActionsEngine& engine) { engine.BeforeStep(1); }},
    {"AfterEmissionStep", aceEMIAutoTemplate, First<&ModuleLists::EMIAutoSteps>, LeaveList,
     [](aceActionsEngine& engine) { engine.AfterStep(1); }},
    {"AfterMonitoringStep", aceMonitoring, Set<&ModuleLists::MoniEut>, MlcList,
     [](aceActionsEngine& engine) { engine.AfterStep(1); }},
    {"EnterStep", aceEMSAutoTemplate, First<&ModuleLists::EMSAutoSteps>, EnterList,
     [](aceActionsEngine& engine) { engine.EnterStep(1); }},
    {"BeforeTest", aceTSTemplate, First<&ModuleLists::TSTests>, EnterList,
     [](aceActionsEngine& engine) { engine.BeforeTest(1); }},
    {"AfterTest", aceTSTemplate, First<&ModuleLists::TSTests>, LeaveList,
     [](aceActionsEngine& engine) { engine.AfterTest(1); }},
    {"BeforeTestLoop", aceMonitoring, Set<&ModuleLists::MoniLoop>, EnterList,
     [](aceActionsEngine& engine) { engine.BeforeTestLoop(); }},
    {"AfterTestLoop", aceMonitoring, Set<&ModuleLists::MoniLoop>, LeaveList,
     [](aceActionsEngine& engine) { engine.AfterTestLoop(); }},
    {"Trigger", aceMonitoring, First<&ModuleLists::MoniChannels>, FreqList,
     [](aceActionsEngine& engine) { engine.Trigger(1, L"Radio"); }},
    {"EnterNoGo", aceMonitoring, First<&ModuleLists::MoniChannels>, EnterList,
     [](aceActionsEngine& engine) { engine.EnterNoGo(1, L"Radio"); }},
    {"Go", aceMonitoring, First<&ModuleLists::MoniChannels>, LeaveList,
     [](aceActionsEngine& engine) { engine.Go(1, L"Radio"); }},
    {"NewFrequency", aceEMSAutoTemplateGeneral, Set<&ModuleLists::EMSAutoGeneral>, FreqList,
     [](aceActionsEngine& engine) { engine.NewFrequency(30e6, false); }},
    {"BeforeVKSTest", aceVKSTemplate, FirstTest, EnterList,
     [](aceActionsEngine& engine) { engine.BeforeVKSTest({}); }},
    {"AfterVKSTest", aceVKSTemplate, FirstTest, LeaveList,
     [](aceActionsEngine& engine) { engine.AfterVKSTest({}); }},
    {"VKSStep", aceVKSTemplate, FirstStep, EnterList,
     [](aceActionsEngine& engine) { engine.VKSStep({}, {}); }},
    {"VKSDUTStepGlobBefore", aceVKSDUT, Set<&ModuleLists::VKSDUTGlob>, EnterList,
     [](aceActionsEngine& engine) { engine.VKSDUTStepGlobBefore(); }},
    {"VKSDUTStepGlobAfter", aceVKSDUT, Set<&ModuleLists::VKSDUTGlob>, LeaveList,
     [](aceActionsEngine& engine) { engine.VKSDUTStepGlobAfter(); }},
    {"VKSDUTStep", aceVKSDUT, FirstRow, EnterList,
     [](aceActionsEngine& engine) {
         double frequency = 2.4e9;
         std::int32_t bandwidth = 0;
         std::int32_t power = 0;
         engine.VKSDUTStep(frequency, bandwidth, power);
     }},
};

class ReentryOperationsTest : public EngineTest,
                              public ::testing::WithParamInterface<OperationRow> {
  protected:
    ReentryOperationsTest() {
        State().Modul = GetParam().moduleKind;
        Fill(List(), GetParam().list, {WaitFor(1), WaitFor(2)});
    }
    p_Subrange& List() { return GetParam().set(State()); }
    void Call() { GetParam().call(*engine); }
    /// What the actions do, without the questions and comparisons around them.
    Lines Effects() {
        Lines lines = TakeEffects();
        std::erase_if(lines, [](const String& line) { return line.starts_with(L"Utilities."); });
        return lines;
    }
};

INSTANTIATE_TEST_SUITE_P(Operations, ReentryOperationsTest, ::testing::ValuesIn(Operations),
                         [](const auto& row) { return row.param.name; });

const Lines BothRan = Journal(Yielded, Waited(1), Yielded, Waited(2));

TEST_P(ReentryOperationsTest, ObjectDroppedInsideAnActionEndsTheCallInOrder) {
    aceActionsEngine other(context);
    host->onTimedMessage = [&] { engine.reset(); };

    Call();

    EXPECT_EQ(Effects(), BothRan);
}

TEST_P(ReentryOperationsTest, ObjectDroppedBetweenTwoActionsEndsTheCallInOrder) {
    aceActionsEngine other(context);
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            engine.reset();
        }
    };

    Call();

    EXPECT_EQ(Effects(), BothRan);
}

TEST_P(ReentryOperationsTest, LastObjectDroppedInsideAnActionEndsTheCallInOrder) {
    host->onTimedMessage = [&] { engine.reset(); };

    Call();

    Lines shown = Waited(1);
    shown.pop_back();
    EXPECT_EQ(Effects(), Journal(Yielded, shown, Yielded));
}

TEST_P(ReentryOperationsTest, SameOperationCanBeCalledFromInside) {
    bool once = true;
    host->onTimedMessage = [&] {
        if (std::exchange(once, false)) {
            State().LastFrequency = -1.0;
            Call();
        }
    };

    Call();

    const Lines first = Waited(1);
    EXPECT_EQ(Effects(),
              Journal(Yielded, first[0], first[1], BothRan, first[2], Yielded, Waited(2)));
}

// ---- the working records -----------------------------------------------------------------------

class WorkingRecordsTest : public EngineTest {
  protected:
    WorkingRecordsTest() { other->State().Modul = aceAziChart; }
    void TearDown() override {
        other.reset();
        EngineTest::TearDown();
    }
    /// At the `n`-th yield the other object runs `action`.
    void AtYield(std::size_t n, const p_Action& action) {
        Fill(other->State().AziChart, LeaveList, {action});
        host->journal.Clear();
        host->onYield = [this, n](std::size_t yield) {
            if (yield == n) {
                other->StopTest();
            }
        };
    }
    std::unique_ptr<aceActionsEngine> other = std::make_unique<aceActionsEngine>(context);
};

TEST_F(WorkingRecordsTest, NotificationGoesOnWithTheContentThatAnotherOneLeft) {
    Fill(State().MainTest, EnterList, {Tell(L"outer")});
    comments->answers = {false, false};
    AtYield(2, Tell(L"inner"));

    engine->StartTest();

    EXPECT_EQ(TakeEffects(), Journal(Yielded, StandbyOn, Yielded, Yielded, Told(L"inner"),
                                     Shown(L"inner", false), RadiationOn, Yielded));
    EXPECT_EQ(State().MainTest.Enter[0], Tell(L"outer"));
}

TEST_F(WorkingRecordsTest, NotificationWhoseContentWasReplacedByASoundShowsNothing) {
    Fill(State().MainTest, EnterList, {Tell(L"outer")});
    AtYield(2, Tell(L""));

    engine->StartTest();

    EXPECT_EQ(TakeEffects(), Journal(Yielded, StandbyOn, Yielded, Yielded, StandbyOn, Yielded,
                                     RadiationOn, Yielded, RadiationOn, Yielded));
}

TEST_F(WorkingRecordsTest, QuestionSharesItsRecordWithTheNotification) {
    Fill(State().MainTest, EnterList, {Ask(L"outer?")});
    comments->answers = {false, true};
    AtYield(2, Tell(L"inner"));

    EXPECT_TRUE(engine->StartTest());

    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, Yielded, Yielded, Told(L"inner"), Shown(L"inner", true), Yielded));
}

TEST_F(WorkingRecordsTest, ActionOfAnotherRecordLeavesTheContentAlone) {
    Fill(State().MainTest, EnterList, {Tell(L"outer")});
    comments->answers = {false};
    AtYield(2, WaitFor(1));

    engine->StartTest();

    EXPECT_EQ(TakeEffects(), Journal(Yielded, StandbyOn, Yielded, Yielded, Waited(1),
                                     Shown(L"outer", false), RadiationOn, Yielded));
}

// ---- another module ----------------------------------------------------------------------------

TEST_F(WorkingRecordsTest, ModuleLoadedFromInsideIsToldToTheElementsBehindIt) {
    context.SystemCheck = true;
    Fill(State().MainTest, EnterList, {Tell(L"silent"), Tell(L"heard")});
    comments->answers = {false};
    host->files[L"monitoring.ini"] = {};
    host->onYield = [&](std::size_t n) {
        if (n == 4) {
            engine->LoadActions(L"monitoring.ini", 0, aceMonitoring);
            host->journal.Clear();
        }
    };

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), Told(L"heard"));
}

}  // namespace
}  // namespace ace::test
