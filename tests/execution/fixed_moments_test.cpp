#include "support/engine_fixture.h"

namespace ace::test {
namespace {

/// Moments of lists that a module has once, and the questions about lists.
class FixedMomentsTest : public EngineTest {
  protected:
    void Serve(std::int32_t moduleKind) { State().Modul = static_cast<aceModul>(moduleKind); }
};

// ---- after a monitoring step -------------------------------------------------------------------

TEST_F(FixedMomentsTest, AfterStepOfMonitoringRunsTheFourthListWhateverTheNumber) {
    Serve(aceMonitoring);
    Fill(State().MoniEut, MlcList, {WaitFor(1), Action(atParkAcc), WaitFor(2)});
    for (const std::int32_t number : {1, 0, -5, 99}) {
        EXPECT_FALSE(engine->AfterStep(number));
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Yielded, Waited(2)));
    }
}

TEST_F(FixedMomentsTest, AfterStepOfMonitoringAnswersTheWalk) {
    Serve(aceMonitoring);
    Fill(State().MoniEut, MlcList, {Action(atTestStop), WaitFor(1)});

    EXPECT_TRUE(engine->AfterStep(1));

    EXPECT_EQ(TakeEffects(), Journal(Yielded));
}

TEST_F(FixedMomentsTest, AfterStepOnAnyOtherModuleDoesNothingAndAnswersFalse) {
    Fill(State().MoniEut, MlcList, {Action(atTestStop)});
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        if (moduleKind == aceMonitoring || moduleKind == aceEMIAutoTemplate) {
            continue;
        }
        Serve(moduleKind);
        EXPECT_FALSE(engine->AfterStep(1)) << moduleKind;
    }
    EXPECT_EQ(TakeEffects(), Lines{});
}

// ---- around the test loop ----------------------------------------------------------------------

TEST_F(FixedMomentsTest, TestLoopRunsItsListsOnAnyModule) {
    Fill(State().MoniLoop, EnterList, {WaitFor(1)});
    Fill(State().MoniLoop, LeaveList, {WaitFor(2)});
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        Serve(moduleKind);
        EXPECT_FALSE(engine->BeforeTestLoop()) << moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1))) << moduleKind;
        EXPECT_FALSE(engine->AfterTestLoop()) << moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(2))) << moduleKind;
    }
}

TEST_F(FixedMomentsTest, TestLoopWithoutActionsAnswersFalse) {
    EXPECT_FALSE(engine->BeforeTestLoop());
    EXPECT_FALSE(engine->AfterTestLoop());

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(FixedMomentsTest, TestLoopAnswersTheWalk) {
    Fill(State().MoniLoop, EnterList, {Action(atNbBbEtsi), WaitFor(1)});
    Fill(State().MoniLoop, LeaveList, {Action(atTestStop), WaitFor(1)});

    EXPECT_TRUE(engine->BeforeTestLoop());
    EXPECT_TRUE(engine->AfterTestLoop());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Yielded));
}

TEST_F(FixedMomentsTest, MomentsOfMonitoringTellItsModuleToTheActions) {
    context.SystemCheck = true;
    Serve(aceTemplate);
    Fill(State().MoniLoop, EnterList, {Tell(L"Hello")});
    Fill(State().MoniLoop, LeaveList, {Tell(L"Bye")});
    comments->answers = {false, false};

    engine->BeforeTestLoop();
    engine->AfterTestLoop();

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Told(L"Hello"), Yielded, Told(L"Bye")));
}

TEST_F(FixedMomentsTest, FailuresReachTheHostAsTheyAre) {
    Serve(aceMonitoring);
    Fill(State().MoniLoop, EnterList, {Broken()});
    Fill(State().MoniLoop, LeaveList, {Broken()});
    Fill(State().MoniEut, MlcList, {Broken()});

    EXPECT_EQ(ErrorOf([&] { engine->BeforeTestLoop(); }), 13);
    EXPECT_EQ(ErrorOf([&] { engine->AfterTestLoop(); }), 13);
    EXPECT_EQ(ErrorOf([&] { engine->AfterStep(1); }), 13);

    const Lines once = {Yielded, MismatchReported};
    EXPECT_EQ(TakeEffects(), Journal(once, once, once));
}

// ---- questions about lists ---------------------------------------------------------------------

TEST_F(FixedMomentsTest, StepNumberIsTheUpperBoundPlusOneAndZeroWithoutAnArray) {
    EXPECT_EQ(engine->StepNumber(), 0);

    State().EMSAutoSteps.Redim(0, 2);
    State().EMSAutoStepCount = 2;
    EXPECT_EQ(engine->StepNumber(), 3);

    Serve(aceAziChart);
    EXPECT_EQ(engine->StepNumber(), 3);
    EXPECT_EQ(host->journal.Lines(), Lines{});
}

TEST_F(FixedMomentsTest, TestNumberGoesByTheArrayOfTheModule) {
    State().TSTests.Redim(0, 2);
    State().TSTestCount = 1;
    State().VKSTests.Redim(0, 4);
    State().VKSTestCount = 1;
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        Serve(moduleKind);
        const std::int32_t expected = moduleKind == aceTSTemplate    ? 3
                                      : moduleKind == aceVKSTemplate ? 5
                                                                     : 0;
        EXPECT_EQ(engine->TestNumber(), expected) << moduleKind;
    }
    EXPECT_EQ(host->journal.Lines(), Lines{});
}

TEST_F(FixedMomentsTest, TestNumberIsZeroWithoutAnArray) {
    for (const aceModul moduleKind : {aceTSTemplate, aceVKSTemplate}) {
        Serve(moduleKind);
        EXPECT_EQ(engine->TestNumber(), 0) << moduleKind;
    }
}

TEST_F(FixedMomentsTest, UseOfADeviceIsLookedForInTheStartListOfMonitoringAlone) {
    const p_Action setDevice = Action(atSetDevice, aceSetDevice{});
    Fill(State().MoniEut, LeaveList, {setDevice});
    Fill(State().MoniEut, FreqList, {setDevice});
    Fill(State().MoniEut, MlcList, {setDevice});
    Fill(State().MoniLoop, EnterList, {setDevice});
    Fill(State().MainTest, EnterList, {setDevice});
    Fill(State().MoniEut, EnterList, {Action(atCheckEut), Action(atMonitorEUT), WaitFor(1)});
    EXPECT_FALSE(engine->EUT_UseSetDevice());

    Fill(State().MoniEut, EnterList, {WaitFor(1), setDevice});
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        Serve(moduleKind);
        EXPECT_TRUE(engine->EUT_UseSetDevice()) << moduleKind;
    }
    State().MoniEut.EnterCount = 1;
    EXPECT_FALSE(engine->EUT_UseSetDevice());
    EXPECT_EQ(host->journal.Lines(), Lines{});
}

TEST_F(FixedMomentsTest, UseOfADeviceInAListShorterThanItsCountIsErrorNine) {
    State().MoniEut.EnterCount = 1;

    EXPECT_EQ(ErrorOf([&] { engine->EUT_UseSetDevice(); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{});
}

}  // namespace
}  // namespace ace::test
