#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

/// Two wireless tests with steps, as a load leaves them.
class WirelessTestsTest : public EngineTest {
  protected:
    WirelessTestsTest() {
        State().Modul = aceVKSTemplate;
        State().VKSTests.Redim(0, 2);
        State().VKSTestCount = 2;
        State().VKSTestUKeys = ArrayOf<String>({L"T1", L"T2", L""});
    }
    p_Subrange& Test(std::int32_t index) { return State().VKSTests[index]; }
    void HaveStep(const String& testKey, const String& key, const std::vector<p_Action>& actions) {
        engine->AddVKSStep(key, testKey, L"name");
        Fill(State().VKSSteps[State().VKSStepCount - 1], EnterList, actions);
        host->journal.Clear();
    }
    /// The placeholder #FREQ# stands for `value`.
    void Replace(const Value& value) {
        engine->SetVKSReplaceVar(ArrayOf<String>({L"#FREQ#"}), ArrayOf<Value>({value}));
    }
    static p_Action AbsentInstrument() {
        aceRemote record;
        record.Command = L"*RST";
        record.GpibAddress = 5;
        return Action(atRemote, record);
    }
};

// ---- before and after a test -------------------------------------------------------------------

/// The two operations that run a list of a test.
struct AroundRow {
    const char* name;
    Boolean (aceActionsEngine::*run)(const String&);
    ListFields list;
};
const AroundRow Around[] = {
    {"BeforeVKSTest", &aceActionsEngine::BeforeVKSTest, EnterList},
    {"AfterVKSTest", &aceActionsEngine::AfterVKSTest, LeaveList},
};

class AroundTest : public WirelessTestsTest, public ::testing::WithParamInterface<AroundRow> {
  protected:
    Boolean Run(const String& key) { return (engine.get()->*GetParam().run)(key); }
    void Have(std::int32_t index, const std::vector<p_Action>& actions) {
        Fill(Test(index), GetParam().list, actions);
    }
};

INSTANTIATE_TEST_SUITE_P(Operations, AroundTest, ::testing::ValuesIn(Around),
                         [](const auto& row) { return row.param.name; });

TEST_P(AroundTest, ListOfTheTestWithTheKeyRuns) {
    Have(0, {Action(atTestStop)});
    Have(1, {WaitFor(3)});

    EXPECT_FALSE(Run(L"T2"));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 1, 2), Yielded, Waited(3)));
}

TEST_P(AroundTest, FirstOfTwoTestsWithTheKeyRuns) {
    State().VKSTestUKeys[1] = L"T1";
    Have(0, {WaitFor(1)});
    Have(1, {WaitFor(2)});

    EXPECT_FALSE(Run(L"T1"));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, Waited(1)));
}

TEST_P(AroundTest, UnknownKeyRunsNothingAndAnswersFalse) {
    Have(0, {Action(atTestStop)});

    for (const String key : {L"t1", L"T1 ", L"T3"}) {
        EXPECT_FALSE(Run(key));
        EXPECT_EQ(TakeEffects(), Lines{InRange(0, -1, 2)});
    }
}

TEST_P(AroundTest, KeyInTheSparePlaceIsNotFound) {
    State().VKSTestUKeys[2] = L"T3";
    Have(2, {Action(atTestStop)});

    EXPECT_FALSE(Run(L"T3"));

    EXPECT_EQ(TakeEffects(), Lines{InRange(0, -1, 2)});
}

TEST_P(AroundTest, FirstTrueResultEndsTheWalk) {
    Have(0, {Ask(L"Stop?"), WaitFor(1)});
    comments->answers = {true};

    EXPECT_TRUE(Run(L"T1"));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, Asked(L"Stop?")));
}

TEST_P(AroundTest, OtherModulesDoNothing) {
    Have(0, {Action(atTestStop)});
    for (const aceModul moduleKind : {aceVKSDUT, aceTSTemplate}) {
        State().Modul = moduleKind;
        EXPECT_FALSE(Run(L"T1"));
        EXPECT_EQ(TakeEffects(), Lines{});
    }
}

TEST_P(AroundTest, TestsThatWereNeverMadeAreErrorNineWithoutAReport) {
    State().VKSTests.Erase();
    State().VKSTestCount = 0;

    EXPECT_EQ(ErrorOf([&] { Run(L"T1"); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_P(AroundTest, ErrorOfAnActionIsReportedOnceByTheAction) {
    Have(0, {Broken()});

    EXPECT_EQ(ErrorOf([&] { Run(L"T1"); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, MismatchReported));
}

TEST_P(AroundTest, PlaceholdersAreFilledIn) {
    Have(0, {Ask(L"#FREQ#?")});
    Replace(String(L"5180"));
    comments->answers = {false};
    TakeEffects();

    EXPECT_FALSE(Run(L"T1"));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, Asked(L"5180?")));
}

// ---- a step and its verdict --------------------------------------------------------------------

class VksStepTest : public WirelessTestsTest {};

TEST_F(VksStepTest, VerdictIsFalseBeforeTheFirstStep) {
    EXPECT_FALSE(engine->VKSGetResult());
}

TEST_F(VksStepTest, UnknownStepAnswersFalseAndHasPassed) {
    HaveStep(L"T1", L"s1", {Action(atTestStop)});

    EXPECT_FALSE(engine->VKSStep(L"T2", L"s1"));

    EXPECT_TRUE(engine->VKSGetResult());
    EXPECT_EQ(TakeEffects(), Lines{InRange(0, -1, 1)});
}

TEST_F(VksStepTest, StepIsFoundByBothKeysToTheLetter) {
    HaveStep(L"T1", L"s1", {WaitFor(1)});
    HaveStep(L"T2", L"s1", {WaitFor(2)});
    HaveStep(L"T2", L"S1", {WaitFor(3)});

    EXPECT_FALSE(engine->VKSStep(L"T2", L"s1"));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 1, 3), Yielded, Waited(2)));

    EXPECT_FALSE(engine->VKSStep(L"T2", L"S1"));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 2, 3), Yielded, Waited(3)));
}

TEST_F(VksStepTest, QuestionAnsweredNoGivesAFailedVerdictAndNoStop) {
    HaveStep(L"T1", L"s1", {Ask(L"Passed?")});
    comments->answers = {true};

    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_FALSE(engine->VKSGetResult());
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, Asked(L"Passed?")));
}

TEST_F(VksStepTest, QuestionNeverEndsTheWalk) {
    HaveStep(L"T1", L"s1", {Ask(L"Passed?"), WaitFor(1)});
    comments->answers = {true};

    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 1), Yielded, Asked(L"Passed?"), Yielded, Waited(1)));
    EXPECT_FALSE(engine->VKSGetResult());
}

TEST_F(VksStepTest, OfTwoQuestionsTheAnswerOfTheLastCounts) {
    HaveStep(L"T1", L"s1", {Ask(L"First?"), Ask(L"Second?")});
    comments->answers = {true, false};
    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));
    EXPECT_TRUE(engine->VKSGetResult());

    comments->answers = {false, true};
    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));
    EXPECT_FALSE(engine->VKSGetResult());
}

TEST_F(VksStepTest, CommandThatFailsBeforeAQuestionEndsTheWalkWithAPassedVerdict) {
    HaveStep(L"T1", L"s1", {AbsentInstrument(), Ask(L"Passed?")});
    host->instruments.absentGpib.insert(5);
    host->user.Expect(L"frmGpibError", sim::Press(L"cmdStopTest"));

    EXPECT_TRUE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_TRUE(engine->VKSGetResult());
}

TEST_F(VksStepTest, AnyOtherTrueResultEndsTheWalkAndKeepsTheVerdictOfTheQuestionBefore) {
    HaveStep(L"T1", L"s1", {Ask(L"Passed?"), Action(atTestStop), Ask(L"Not asked")});
    comments->answers = {true};

    EXPECT_TRUE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_FALSE(engine->VKSGetResult());
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, Asked(L"Passed?"), Yielded));
}

TEST_F(VksStepTest, VerdictStartsAnewWithEachStepAlsoOnAnotherModule) {
    State().VKSResult = false;
    State().Modul = aceVKSDUT;

    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_TRUE(engine->VKSGetResult());
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(VksStepTest, VerdictHasStartedAnewWhenTheStepFails) {
    HaveStep(L"T1", L"s1", {Broken()});
    State().VKSResult = false;

    EXPECT_EQ(ErrorOf([&] { engine->VKSStep(L"T1", L"s1"); }), 13);

    EXPECT_TRUE(engine->VKSGetResult());
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, MismatchReported));
}

TEST_F(VksStepTest, StepsThatWereNeverMadeAreErrorNineWithAPassedVerdict) {
    EXPECT_EQ(ErrorOf([&] { engine->VKSStep(L"T1", L"s1"); }), 9);

    EXPECT_TRUE(engine->VKSGetResult());
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(VksStepTest, PlaceholdersAreFilledInAndKeptInTheRecord) {
    HaveStep(L"T1", L"s1", {Tell(L"Tune to #FREQ#"), Ask(L"#FREQ# right?")});
    Replace(2412.5);
    comments->answers = {false, false};
    TakeEffects();

    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded, Told(L"Tune to 2412.5"), Yielded,
                                     Asked(L"2412.5 right?")));
    EXPECT_EQ(RecordOf<aceNotify>(State().VKSSteps[0].Enter[0]).vks, State().VKSReplaceVars);
}

TEST_F(VksStepTest, QuestionWithoutItsRecordIsErrorThirteenBeforeTheActionBegins) {
    HaveStep(L"T1", L"s1", {Action(atQuestion)});

    EXPECT_EQ(ErrorOf([&] { engine->VKSStep(L"T1", L"s1"); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 1), Yielded));
}

TEST_F(VksStepTest, StepCanNotBeAddedWhileOneRuns) {
    HaveStep(L"T1", L"s1", {WaitFor(1)});
    std::int32_t number = 0;
    host->onTimedMessage = [&] {
        number = ErrorOf([&] { engine->AddVKSStep(L"s2", L"T1", L"name"); });
    };

    EXPECT_FALSE(engine->VKSStep(L"T1", L"s1"));

    EXPECT_EQ(number, 10);
    EXPECT_EQ(State().VKSStepCount, 1);
}

TEST_F(VksStepTest, TwoObjectsHaveTheirOwnVerdict) {
    HaveStep(L"T1", L"s1", {Ask(L"Passed?")});
    comments->answers = {true};
    aceActionsEngine other(context);
    other.State().Modul = aceVKSTemplate;
    other.AddVKSStep(L"s1", L"T1", L"name");

    engine->VKSStep(L"T1", L"s1");
    other.VKSStep(L"T1", L"s1");

    EXPECT_FALSE(engine->VKSGetResult());
    EXPECT_TRUE(other.VKSGetResult());
}

// ---- have they actions -------------------------------------------------------------------------

TEST_F(VksStepTest, StepsHaveActionsWhenOneOfThemHasAnEnterList) {
    EXPECT_FALSE(engine->VKSStepsHaveActions());
    HaveStep(L"T1", L"s1", {});
    HaveStep(L"T1", L"s2", {});
    Fill(State().VKSSteps[0], LeaveList, {WaitFor(1)});
    EXPECT_FALSE(engine->VKSStepsHaveActions());

    Fill(State().VKSSteps[1], EnterList, {WaitFor(1)});

    EXPECT_TRUE(engine->VKSStepsHaveActions());
    State().Modul = aceVKSDUT;
    EXPECT_TRUE(engine->VKSStepsHaveActions());
}

TEST_F(VksStepTest, DeletedStepInTheSparePlaceHasNoSay) {
    HaveStep(L"T1", L"s1", {WaitFor(1)});
    engine->DeleteSubrange(1, L"T1");
    ASSERT_EQ(State().VKSSteps[0].EnterCount, 1);

    EXPECT_FALSE(engine->VKSStepsHaveActions());
}

TEST_F(VksStepTest, StepHasActionsByItsOwnEnterList) {
    HaveStep(L"T1", L"s1", {WaitFor(1)});
    HaveStep(L"T1", L"s2", {});

    EXPECT_TRUE(engine->VKSStepHaveActions(L"T1", L"s1"));
    EXPECT_FALSE(engine->VKSStepHaveActions(L"T1", L"s2"));
    EXPECT_FALSE(engine->VKSStepHaveActions(L"T2", L"s1"));
    EXPECT_EQ(TakeEffects(), (Lines{InRange(0, 0, 2), InRange(0, 1, 2), InRange(0, -1, 2)}));
}

TEST_F(VksStepTest, StepOfAnotherModuleHasNoActions) {
    HaveStep(L"T1", L"s1", {WaitFor(1)});
    State().Modul = aceVKSDUT;

    EXPECT_FALSE(engine->VKSStepHaveActions(L"T1", L"s1"));
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(VksStepTest, QuestionAboutStepsThatWereNeverMadeIsErrorNine) {
    EXPECT_EQ(ErrorOf([&] { engine->VKSStepHaveActions(L"T1", L"s1"); }), 9);
    State().VKSStepCount = 1;
    EXPECT_EQ(ErrorOf([&] { engine->VKSStepsHaveActions(); }), 9);
}

}  // namespace
}  // namespace ace::test
