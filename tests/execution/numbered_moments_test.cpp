#include <limits>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

/// A moment that runs a list of a numbered set.
struct NumberedMomentRow {
    const char* name;
    Boolean (aceActionsEngine::*run)(std::int32_t);
    DynArray<p_Subrange> ModuleLists::*sets;
    std::int32_t wait;    ///< milliseconds in the list that runs; see `FillSet`
    aceModul moduleKind;  ///< told to the actions
    bool asksModul;       ///< runs only on an object of that module
    bool handled;         ///< errors are reported
};
void PrintTo(const NumberedMomentRow& row, std::ostream* out) {
    *out << row.name;
}

const NumberedMomentRow Moments[] = {
    {"EnterSubrange", &aceActionsEngine::EnterSubrange, &ModuleLists::MainSubranges, 1, aceTemplate,
     false, false},
    {"LeaveSubrange", &aceActionsEngine::LeaveSubrange, &ModuleLists::MainSubranges, 2, aceTemplate,
     false, false},
    {"BeforeStep", &aceActionsEngine::BeforeStep, &ModuleLists::EMIAutoSteps, 1, aceEMIAutoTemplate,
     false, false},
    {"AfterStep", &aceActionsEngine::AfterStep, &ModuleLists::EMIAutoSteps, 2, aceEMIAutoTemplate,
     true, false},
    {"EnterStep", &aceActionsEngine::EnterStep, &ModuleLists::EMSAutoSteps, 1, aceEMSAutoTemplate,
     false, true},
    {"BeforeTest", &aceActionsEngine::BeforeTest, &ModuleLists::TSTests, 1, aceTSTemplate, true,
     false},
    {"AfterTest", &aceActionsEngine::AfterTest, &ModuleLists::TSTests, 2, aceTSTemplate, true,
     false},
};

class NumberedMomentsTest : public EngineTest,
                            public ::testing::WithParamInterface<NumberedMomentRow> {
  protected:
    NumberedMomentsTest() { State().Modul = Row().moduleKind; }

    static const NumberedMomentRow& Row() { return GetParam(); }
    DynArray<p_Subrange>& Sets() { return State().*Row().sets; }
    Boolean Run(std::int32_t number) { return (engine.get()->*Row().run)(number); }
    /// Each list waits its own number of milliseconds: 1 to 4.
    static void FillSet(p_Subrange& set) {
        std::int32_t milliseconds = 0;
        for (const ListFields& list : ActionLists) {
            Fill(set, list, {WaitFor(++milliseconds)});
        }
    }
    /// Two full sets and the spare element behind them.
    void MakeTwoSetsAndASpare() {
        Sets().Redim(0, 2);
        FillSet(Sets()[0]);
        FillSet(Sets()[1]);
    }
    /// What a failure with the error of `report` leaves in the journal.
    static Lines Failure(const String& report) { return Row().handled ? Lines{report} : Lines{}; }
};

INSTANTIATE_TEST_SUITE_P(Moments, NumberedMomentsTest, ::testing::ValuesIn(Moments),
                         [](const auto& row) { return row.param.name; });

TEST_P(NumberedMomentsTest, NumberCountsFromOneAndRunsTheListOfItsElement) {
    MakeTwoSetsAndASpare();
    Fill(Sets()[0], EnterList, {Action(atTestStop)});
    Fill(Sets()[0], LeaveList, {Action(atTestStop)});

    EXPECT_TRUE(Run(1));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded));

    EXPECT_FALSE(Run(2));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 1, 2), Yielded, Waited(Row().wait)));
}

TEST_P(NumberedMomentsTest, NumberOutsideTheBoundsRunsNothingAndAnswersFalse) {
    MakeTwoSetsAndASpare();
    for (const std::int32_t number : {0, -1, 4, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_FALSE(Run(number));
        EXPECT_EQ(TakeEffects(), Journal(InRange(0, number - 1, 2)));
    }
}

TEST_P(NumberedMomentsTest, SpareElementBehindTheLastPassesTheCheckAndRunsNothing) {
    MakeTwoSetsAndASpare();

    EXPECT_FALSE(Run(3));

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 2, 2)));
}

TEST_P(NumberedMomentsTest, CheckGoesByBothBoundsOfTheArray) {
    Sets().Redim(1, 2);
    FillSet(Sets()[1]);

    EXPECT_FALSE(Run(1));
    EXPECT_EQ(TakeEffects(), Journal(InRange(1, 0, 2)));

    EXPECT_FALSE(Run(2));
    EXPECT_EQ(TakeEffects(), Journal(InRange(1, 1, 2), Yielded, Waited(Row().wait)));
}

TEST_P(NumberedMomentsTest, ArrayThatWasNeverMadeIsErrorNine) {
    EXPECT_EQ(ErrorOf([&] { Run(1); }), 9);

    EXPECT_EQ(TakeEffects(), Failure(SubscriptReported));
}

TEST_P(NumberedMomentsTest, NumberWithoutAPredecessorIsErrorSix) {
    MakeTwoSetsAndASpare();

    EXPECT_EQ(ErrorOf([&] { Run(std::numeric_limits<std::int32_t>::min()); }), 6);

    EXPECT_EQ(TakeEffects(), Failure(Reported(6, L"overflow")));
}

TEST_P(NumberedMomentsTest, HostDecidesWhatIsInRange) {
    MakeTwoSetsAndASpare();
    host->faults.FailOperation(L"Utilities.InRange", 1, 77);

    EXPECT_EQ(ErrorOf([&] { Run(1); }), 77);

    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2) + L" -> error 77",
                                     Failure(Reported(77, L"scripted failure"))));
}

TEST_P(NumberedMomentsTest, ModuleOfTheObjectIsAskedOnlyWhereItIsTold) {
    MakeTwoSetsAndASpare();
    for (std::int32_t moduleKind = -1; moduleKind <= ModulCount; ++moduleKind) {
        if (moduleKind == Row().moduleKind ||
            (moduleKind == aceMonitoring && std::string(Row().name) == "AfterStep")) {
            continue;
        }
        State().Modul = static_cast<aceModul>(moduleKind);
        EXPECT_FALSE(Run(2)) << moduleKind;
        const Lines ran = Journal(InRange(0, 1, 2), Yielded, Waited(Row().wait));
        EXPECT_EQ(TakeEffects(), Row().asksModul ? Lines{} : ran) << moduleKind;
    }
}

TEST_P(NumberedMomentsTest,
       OnAnotherModuleAnArrayThatWasNeverMadeIsErrorNineUnlessTheModuleIsAsked) {
    State().Modul = aceAziChart;

    EXPECT_EQ(ErrorOf([&] { Run(1); }), Row().asksModul ? 0 : 9);
}

TEST_P(NumberedMomentsTest, ActionsAreToldTheModuleOfTheMomentAndNotThatOfTheObject) {
    MakeTwoSetsAndASpare();
    Fill(Sets()[0], EnterList, {Tell(L"Hello")});
    Fill(Sets()[0], LeaveList, {Tell(L"Hello")});
    context.SystemCheck = true;
    if (!Row().asksModul) {
        State().Modul = Row().moduleKind == aceTemplate ? aceAziChart : aceTemplate;
    }
    const bool silent = Row().moduleKind == aceTemplate;
    if (!silent) {
        comments->answers = {false};
    }

    EXPECT_FALSE(Run(1));

    const Lines told = silent ? Lines{StandbyOn, Yielded, RadiationOn, Yielded} : Told(L"Hello");
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 2), Yielded, told));
}

TEST_P(NumberedMomentsTest, FailureOfAnActionReachesTheHost) {
    MakeTwoSetsAndASpare();
    Fill(Sets()[0], EnterList, {Broken(), WaitFor(1)});
    Fill(Sets()[0], LeaveList, {Broken(), WaitFor(1)});

    EXPECT_EQ(ErrorOf([&] { Run(1); }), 13);

    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 2), Yielded, MismatchReported, Failure(MismatchReported)));
}

TEST_P(NumberedMomentsTest, OnlyEnterStepWritesTraceLines) {
    MakeTwoSetsAndASpare();
    host->tracing = true;

    Run(3);

    const Lines untraced = {InRange(0, 2, 2)};
    const Lines traced = Journal(Start(L"aceActionsEngine (Code)", L"EnterStep", L"Number = 3"),
                                 InRange(0, 2, 2), End(L"EnterStep"));
    EXPECT_EQ(TakeEffects(), Row().handled ? traced : untraced);
}

class EnterSubrangeTest : public EngineTest {};

TEST_F(EnterSubrangeTest, EnterSubrangeWithNumberZeroAnswersFalseOnceTheArrayExists) {
    EXPECT_EQ(ErrorOf([&] { engine->EnterSubrange(0); }), 9);

    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1);
    Fill(State().MainSubranges[0], EnterList, {Action(atTestStop)});
    EXPECT_FALSE(engine->EnterSubrange(0));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, -1, 0)));
}

}  // namespace
}  // namespace ace::test
