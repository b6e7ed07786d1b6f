#include <ace/execution/dispatcher.h>
#include <ace/host/api_macro.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String CurrentTestAsked = L"SystemServices.GetCurrentTest()";
const String StateAsked = L"TestInfo.GetTestState(\"\")";

// ---- receiver protection -----------------------------------------------------------------------

class ReceiverProtectionTest : public EngineTest {
  protected:
    /// Runs the action as a list of `moduleKind` does; the bench has no receiver.
    void Protect(std::int32_t moduleKind) {
        p_Action action = Action(atProtRec);
        EXPECT_FALSE(modActions::DoAction(context, action, moduleKind));
    }
};

TEST_F(ReceiverProtectionTest, WithoutACurrentTestTheReceiversAreProtectedInEveryModule) {
    for (std::int32_t moduleKind = aceTemplate; moduleKind < ModulCount; ++moduleKind) {
        Protect(moduleKind);
        EXPECT_EQ(TakeEffects().front(), CurrentTestAsked) << moduleKind;
        EXPECT_TRUE(engine->InitReceiver()) << moduleKind;
    }
}

TEST_F(ReceiverProtectionTest, TemplateInStateFourteenLeavesItsReceiversAlone) {
    host->testState = 14;

    p_Action action = Action(atProtRec);
    EXPECT_FALSE(modActions::DoAction(context, action, aceTemplate));

    EXPECT_FALSE(engine->InitReceiver());
    EXPECT_EQ(TakeEffects(), Journal(CurrentTestAsked, StateAsked));
}

TEST_F(ReceiverProtectionTest, TemplateInAnyOtherStateProtectsItsReceivers) {
    for (const std::int32_t state : {0, 13, 15, -14}) {
        host->testState = state;
        Protect(aceTemplate);
        EXPECT_TRUE(engine->InitReceiver()) << state;
    }
}

TEST_F(ReceiverProtectionTest, OtherModulesProtectTheirReceiversAlsoInStateFourteen) {
    host->testState = 14;
    for (std::int32_t moduleKind = aceMonitoring; moduleKind < ModulCount; ++moduleKind) {
        Protect(moduleKind);
        EXPECT_TRUE(engine->InitReceiver()) << moduleKind;
    }
}

TEST_F(ReceiverProtectionTest, InitReceiverIsTrueOnceAfterAProtection) {
    Protect(aceMonitoring);

    EXPECT_TRUE(engine->InitReceiver());
    EXPECT_FALSE(engine->InitReceiver());
}

TEST_F(ReceiverProtectionTest, FailureToAskTheTestProtectsNothing) {
    host->testState = 13;
    for (const wchar_t* operation : {L"SystemServices.GetCurrentTest", L"TestInfo.GetTestState"}) {
        host->faults.FailOperation(operation, 1, 77);
        p_Action action = Action(atProtRec);
        EXPECT_EQ(ErrorOf([&] { modActions::DoAction(context, action, aceTemplate); }), 77);
        EXPECT_FALSE(engine->InitReceiver());
        host->faults.Clear();
    }
}

// ---- stopping all actions ----------------------------------------------------------------------

/// A macro that can be broken off; the call is a line of the host's journal.
class FakeMacro : public DefaultApiMacro {
  public:
    explicit FakeMacro(sim::SimHost& host) : x_host(host) {}
    void Abort() override { x_host.Call(L"ApiMacro.Abort", {}); }

  private:
    sim::SimHost& x_host;
};

const String Aborted = L"ApiMacro.Abort()";

class StopAllActionsTest : public EngineTest {};

TEST_F(StopAllActionsTest, WithoutAMacroTheStatusLineIsClearedAndNothingElseHappens) {
    host->tracing = true;

    engine->StopAllActions();

    EXPECT_EQ(TakeEffects(), Journal(StatusCleared));
}

TEST_F(StopAllActionsTest, RunningMacroIsBrokenOffFirst) {
    context.RunningMacro = std::make_shared<FakeMacro>(*host);

    engine->StopAllActions();

    EXPECT_EQ(TakeEffects(), Journal(Aborted, StatusCleared));
    EXPECT_NE(context.RunningMacro, nullptr);
}

TEST_F(StopAllActionsTest, AnyErrorEndsItSilently) {
    context.RunningMacro = std::make_shared<FakeMacro>(*host);
    host->faults.FailOperation(L"ApiMacro", 1, 77);
    engine->StopAllActions();
    EXPECT_EQ(TakeEffects(), Journal(Aborted + L" -> error 77"));

    host->faults.Clear();
    host->faults.FailOperation(L"StatusDisplay", 1, 77);
    engine->StopAllActions();
    EXPECT_EQ(TakeEffects(), Journal(Aborted, StatusCleared + L" -> error 77"));

    host->faults.Clear();
    context.StatusDisplay.reset();
    engine->StopAllActions();
    EXPECT_EQ(TakeEffects(), Journal(Aborted));
}

TEST_F(StopAllActionsTest, WalkInProgressGoesOn) {
    Fill(State().MainTest, EnterList, {WaitFor(1), WaitFor(2)});
    host->onTimedMessage = [&] { engine->StopAllActions(); };

    EXPECT_FALSE(engine->StartTest());

    const auto interrupted = [](std::int32_t milliseconds) {
        Lines lines = Waited(milliseconds);
        lines.insert(lines.begin() + 2, StatusCleared);
        return lines;
    };
    EXPECT_EQ(TakeEffects(), Journal(Yielded, interrupted(1), Yielded, interrupted(2)));
    EXPECT_TRUE(context.TestRunning);
}

}  // namespace
}  // namespace ace::test
