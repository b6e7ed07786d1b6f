#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String EngineCode = L"aceActionsEngine (Code)";

class StepDescriptionTest : public EngineTest {
  protected:
    StepDescriptionTest() {
        host->texts = {{9031, L"Set"},   {9032, L"Command"}, {9033, L"Pause"}, {9034, L"Message"},
                       {9058, L"Step "}, {9074, L"Switch"},  {9077, L"Park"},  {9078, L"Macro"}};
        State().Modul = aceEMSAutoTemplate;
        MakeSets(&ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount, 12);
    }
    String Describe(const std::vector<p_Action>& actions) {
        Fill(State().EMSAutoSteps[0], EnterList, actions);
        return engine->StepDescription(1);
    }
};

TEST_F(StepDescriptionTest, StepWithoutActionsIsDescribedByItsOwnText) {
    EXPECT_EQ(engine->StepDescription(12), L"Step 12: ---");
}

TEST_F(StepDescriptionTest, EachNamedKindHasItsText) {
    const struct {
        p_ActionTypes kind;
        String description;
    } rows[] = {
        {atWait, L"1: Pause"},        {atRemote, L"1: Command"}, {atSetDevice, L"1: Set"},
        {atSwitchUnit, L"1: Switch"}, {atAPI, L"1: Macro"},      {atParkAcc, L"1: Park"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Describe({Action(row.kind)}), row.description);
    }
}

TEST_F(StepDescriptionTest, SeveralActionsAreNamedInTheirOrder) {
    EXPECT_EQ(Describe({WaitFor(1), Tell(L"Hello"), Action(atRemote), Action(atSetDevice),
                        Action(atSwitchUnit), Action(atAPI), Action(atParkAcc)}),
              L"1: Pause; Message; Command; Set; Switch; Macro; Park");
}

TEST_F(StepDescriptionTest, SingleNotificationIsShownByItsMessage) {
    EXPECT_EQ(Describe({Tell(L"Turn the table")}), L"1: Turn the table");
    EXPECT_EQ(Describe({Tell(L"")}), L"1: ");
}

TEST_F(StepDescriptionTest, NotificationAmongOthersIsShownByItsText) {
    EXPECT_EQ(Describe({Tell(L"Turn the table"), Action(atTestStop)}), L"1: Message");
}

TEST_F(StepDescriptionTest, StepWithOnlyATestStopIsCutToItsNumber) {
    EXPECT_EQ(Describe({Action(atTestStop)}), L"1");
}

TEST_F(StepDescriptionTest, OtherKindsAreNotNamed) {
    for (const std::int32_t kind : {6, 7, 8, 9, 10, 11, 12, 16, 17, 4, 5, 18, -1}) {
        const p_Action action = Action(static_cast<p_ActionTypes>(kind));
        EXPECT_EQ(Describe({action}), L"1") << kind;
        EXPECT_EQ(Describe({WaitFor(1), action}), L"1: Pause") << kind;
    }
}

TEST_F(StepDescriptionTest, OnlyTheEnterListIsDescribed) {
    for (const ListFields& list : {LeaveList, FreqList, MlcList}) {
        Fill(State().EMSAutoSteps[0], list, {WaitFor(1)});
    }
    EXPECT_EQ(engine->StepDescription(1), L"Step 1: ---");
}

TEST_F(StepDescriptionTest, NumberOutsideTheArrayIsErrorNineReportedOnceWithoutARangeCheck) {
    for (const std::int32_t number : {0, 13, -1}) {
        EXPECT_EQ(ErrorOf([&] { engine->StepDescription(number); }), 9) << number;
        EXPECT_EQ(TakeEffects(), Journal(SubscriptReported)) << number;
    }
    State().EMSAutoSteps.Erase();
    EXPECT_EQ(ErrorOf([&] { engine->StepDescription(1); }), 9);
}

TEST_F(StepDescriptionTest, ModuleOfTheObjectIsNotAsked) {
    State().Modul = aceAziChart;
    EXPECT_EQ(Describe({WaitFor(1)}), L"1: Pause");
}

TEST_F(StepDescriptionTest, SingleNotificationWithoutItsRecordIsATypeMismatch) {
    EXPECT_EQ(ErrorOf([&] { Describe({Action(atNotify)}); }), 13);
    EXPECT_EQ(TakeEffects(), Journal(MismatchReported));

    EXPECT_EQ(Describe({Action(atNotify), Action(atNotify)}), L"1: Message; Message");
}

TEST_F(StepDescriptionTest, DescriptionIsTracedAndRunsNothing) {
    host->tracing = true;
    Describe({WaitFor(1), Tell(L"Hello")});
    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineCode, L"StepDescription", L""), End(L"StepDescription")));
}

}  // namespace
}  // namespace ace::test
