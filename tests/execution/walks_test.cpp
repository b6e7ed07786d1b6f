#include <ace/execution/walks.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

constexpr FixedPlace EnterOfTest{&ModuleLists::MainTest, EnterList};
constexpr NumberedPlace EnterOfFirstSubrange{&ModuleLists::MainSubranges, 0, EnterList};

class WalksTest : public EngineTest {
  protected:
    WalksTest() { MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2); }

    void FillEnter(const std::vector<p_Action>& actions) {
        Fill(State().MainTest, EnterList, actions);
        Fill(State().MainSubranges[0], EnterList, actions);
    }
    Boolean WalkEnter() { return PlainWalk(State(), EnterOfTest, aceTemplate); }
    Boolean WalkFirstSubrange() { return PlainWalk(State(), EnterOfFirstSubrange, aceTemplate); }
    /// Number of the error that `act` raises when the host does it while an action runs.
    template <class Walk>
    std::int32_t ErrorInside(const std::function<void()>& act, Walk&& walk) {
        std::int32_t number = -1;
        host->onTimedMessage = [&] { number = ErrorOf(act); };
        walk();
        host->onTimedMessage = nullptr;
        return number;
    }
};

// ---- order -------------------------------------------------------------------------------------

TEST_F(WalksTest, PlainWalkRunsTheElementsInOrderAndLetsMessagesRunBeforeEach) {
    FillEnter({WaitFor(1), Action(atParkAcc), WaitFor(2)});

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Yielded, Waited(2)));
}

TEST_F(WalksTest, PlainWalkOfANumberedSetRunsTheElementsInOrder) {
    FillEnter({WaitFor(1), WaitFor(2)});

    EXPECT_FALSE(WalkFirstSubrange());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(2)));
}

TEST_F(WalksTest, FirstTrueResultEndsThePlainWalk) {
    FillEnter({WaitFor(1), Action(atTestStop), WaitFor(2)});

    EXPECT_TRUE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded));
}

TEST_F(WalksTest, EmptyListAnswersFalseAndLetsNoMessagesRun) {
    EXPECT_FALSE(WalkEnter());
    EXPECT_FALSE(WalkFirstSubrange());

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(WalksTest, ListWhoseCountIsZeroIsNotLookedAt) {
    FillEnter({Action(atTestStop)});
    State().MainTest.EnterCount = 0;

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(WalksTest, WalkGoesByTheCountAndNotByTheBounds) {
    FillEnter({WaitFor(1), WaitFor(2), WaitFor(3)});
    State().MainTest.EnterCount = 2;

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(2)));
}

TEST_F(WalksTest, CountAboveTheBoundsIsErrorNineAtTheMissingElement) {
    FillEnter({WaitFor(1)});
    State().MainTest.EnterCount = 2;

    EXPECT_EQ(ErrorOf([&] { WalkEnter(); }), 9);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded));
}

TEST_F(WalksTest, ActionsAreToldTheModuleKindOfTheMoment) {
    context.SystemCheck = true;
    FillEnter({Tell(L"Turn the table")});
    comments->answers = {false};

    PlainWalk(State(), EnterOfTest, aceTemplate);
    PlainWalk(State(), EnterOfTest, aceMonitoring);

    const Lines silent = {StandbyOn, Yielded, RadiationOn, Yielded};
    EXPECT_EQ(TakeEffects(), Journal(Yielded, silent, Yielded, Told(L"Turn the table")));
}

// ---- hold --------------------------------------------------------------------------------------

/// Every way to resize, erase or assign an array.
template <class T>
struct ArrayChange {
    const char* name;
    std::function<void(DynArray<T>&)> make;
};
template <class T>
std::vector<ArrayChange<T>> Changes() {
    return {{"Redim", [](DynArray<T>& array) { array.Redim(0, 4); }},
            {"RedimPreserve", [](DynArray<T>& array) { array.RedimPreserve(4); }},
            {"Erase", [](DynArray<T>& array) { array.Erase(); }},
            {"copied into", [](DynArray<T>& array) { array = DynArray<T>(array); }},
            {"moved into", [](DynArray<T>& array) {
                 DynArray<T> other;
                 array = std::move(other);
             }}};
}

TEST_F(WalksTest, ListIsHeldWhileItsElementRuns) {
    FillEnter({WaitFor(1)});
    for (const ArrayChange<p_Action>& change : Changes<p_Action>()) {
        const auto resize = [&] { change.make(State().MainTest.Enter); };
        EXPECT_EQ(ErrorInside(resize, [&] { WalkEnter(); }), 10) << change.name;
        EXPECT_EQ(State().MainTest.Enter[0], WaitFor(1)) << change.name;
    }
}

TEST_F(WalksTest, ListOfANumberedSetIsHeldWhileItsElementRuns) {
    FillEnter({WaitFor(1)});
    for (const ArrayChange<p_Action>& change : Changes<p_Action>()) {
        const auto resize = [&] { change.make(State().MainSubranges[0].Enter); };
        EXPECT_EQ(ErrorInside(resize, [&] { WalkFirstSubrange(); }), 10) << change.name;
        EXPECT_EQ(State().MainSubranges[0].Enter[0], WaitFor(1)) << change.name;
    }
}

TEST_F(WalksTest, NumberedSetsAreHeldWhileAnElementOfOneRuns) {
    FillEnter({WaitFor(1)});
    for (const ArrayChange<p_Subrange>& change : Changes<p_Subrange>()) {
        const auto resize = [&] { change.make(State().MainSubranges); };
        EXPECT_EQ(ErrorInside(resize, [&] { WalkFirstSubrange(); }), 10) << change.name;
        EXPECT_EQ(State().MainSubranges[0].Enter[0], WaitFor(1)) << change.name;
    }
}

TEST_F(WalksTest, UnrelatedArraysCanBeResizedWhileAnElementRuns) {
    FillEnter({WaitFor(1)});
    EngineState& state = State();
    for (const ArrayChange<p_Subrange>& change : Changes<p_Subrange>()) {
        const auto resize = [&] { change.make(state.MainSubranges); };
        EXPECT_EQ(ErrorInside(resize, [&] { WalkEnter(); }), 0) << change.name;
    }
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
    Fill(state.MainSubranges[0], EnterList, {WaitFor(1)});
    for (const ArrayChange<p_Action>& change : Changes<p_Action>()) {
        const auto leave = [&] { change.make(state.MainTest.Leave); };
        EXPECT_EQ(ErrorInside(leave, [&] { WalkEnter(); }), 0) << change.name;
        const auto second = [&] { change.make(state.MainSubranges[1].Enter); };
        EXPECT_EQ(ErrorInside(second, [&] { WalkFirstSubrange(); }), 0) << change.name;
    }
}

TEST_F(WalksTest, NothingIsHeldAfterTheWalk) {
    FillEnter({WaitFor(1)});
    WalkEnter();
    WalkFirstSubrange();

    EXPECT_FALSE(State().MainTest.Enter.IsHeld());
    EXPECT_FALSE(State().MainSubranges.IsHeld());
    EXPECT_FALSE(State().MainSubranges[0].Enter.IsHeld());
}

TEST_F(WalksTest, HoldEndsWithTheScopeAlsoWhenTheActionFails) {
    FillEnter({Broken()});

    EXPECT_EQ(ErrorOf([&] { WalkEnter(); }), 13);
    EXPECT_EQ(ErrorOf([&] { WalkFirstSubrange(); }), 13);

    EXPECT_EQ(ErrorOf([&] { State().MainTest.Enter.Erase(); }), 0);
    EXPECT_EQ(ErrorOf([&] { State().MainSubranges[0].Enter.Erase(); }), 0);
    EXPECT_EQ(ErrorOf([&] { State().MainSubranges.Erase(); }), 0);
}

TEST_F(WalksTest, NothingIsHeldWhileMessagesRunBetweenTwoElements) {
    FillEnter({WaitFor(1), WaitFor(2)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            State().MainSubranges.RedimPreserve(4);
            State().MainSubranges[0].Enter.RedimPreserve(1);
        }
    };

    EXPECT_FALSE(WalkFirstSubrange());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(2)));
}

// ---- the lists change between two elements -----------------------------------------------------

TEST_F(WalksTest, ListThatShrinksBetweenTwoElementsIsErrorNine) {
    FillEnter({WaitFor(1), WaitFor(2)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            Fill(State().MainTest, EnterList, {WaitFor(1)});
        }
    };

    EXPECT_EQ(ErrorOf([&] { WalkEnter(); }), 9);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded));
}

TEST_F(WalksTest, NumberedSetsThatVanishBetweenTwoElementsAreErrorNine) {
    FillEnter({WaitFor(1), WaitFor(2)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            State().MainSubranges.Erase();
        }
    };

    EXPECT_EQ(ErrorOf([&] { WalkFirstSubrange(); }), 9);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded));
}

TEST_F(WalksTest, NumberOfElementsIsSettledAtTheStartWhenTheListGrows) {
    FillEnter({WaitFor(1), WaitFor(2)});
    host->onYield = [&](std::size_t n) {
        if (n == 1) {
            Fill(State().MainTest, EnterList, {WaitFor(1), WaitFor(2), WaitFor(3)});
        }
    };

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(2)));
}

TEST_F(WalksTest, NumberOfElementsIsSettledAtTheStartWhenTheCountFalls) {
    FillEnter({WaitFor(1), WaitFor(2)});
    host->onYield = [&](std::size_t) { State().MainTest.EnterCount = 0; };

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(2)));
}

TEST_F(WalksTest, ElementRunsAsItStandsAfterTheMessagesBeforeIt) {
    FillEnter({WaitFor(1), WaitFor(2)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            Fill(State().MainTest, EnterList, {WaitFor(8), WaitFor(9)});
        }
    };

    EXPECT_FALSE(WalkEnter());

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(9)));
}

}  // namespace
}  // namespace ace::test
