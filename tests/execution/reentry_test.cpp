#include "support/engine_fixture.h"

namespace ace::test {
namespace {

/// The list that is interrupted, and what it does when nothing happens:
/// 0 yield, 1 standby, 2 yield, 3 message, 4 radiation, 5 yield, 6 yield, 7 to 9 wait, 10 yield,
/// 11 to 13 wait.
std::vector<p_Action> InterruptedList() {
    return {Tell(L"outer"), WaitFor(1), WaitFor(2)};
}
Lines Undisturbed() {
    return Journal(Yielded, Told(L"outer"), Yielded, Waited(1), Yielded, Waited(2));
}

/// A place from which the host comes back into the engine.
struct Place {
    const char* name;
    std::size_t yield;  ///< number of the yield; 0 for another place
    bool inForm;        ///< while the message stands; otherwise the first timed message
    std::size_t line;   ///< lines of the undisturbed journal before it
    bool inAction;      ///< an element is running, and its list is held
};
void PrintTo(const Place& place, std::ostream* out) {
    *out << place.name;
}
const Place Places[] = {
    {"BeforeTheFirstAction", 1, false, 1, false}, {"InTheStandbyYield", 2, false, 3, true},
    {"InTheMessage", 0, true, 4, true},           {"InTheRadiationYield", 3, false, 6, true},
    {"BetweenTwoActions", 4, false, 7, false},    {"InTheTimedMessage", 0, false, 9, true},
    {"BeforeTheLastAction", 5, false, 11, false},
};

class ReentryTest : public EngineTest, public ::testing::WithParamInterface<Place> {
  protected:
    ReentryTest() {
        Fill(State().MainTest, EnterList, InterruptedList());
        comments->answers = {false};
    }
    /// The host does `act` once, at the place.
    void At(std::function<void()> act) {
        const auto once = [this, act = std::move(act)] {
            if (!std::exchange(x_done, true)) {
                act();
            }
        };
        const Place& place = GetParam();
        if (place.yield != 0) {
            host->onYield = [once, n = place.yield](std::size_t yield) {
                if (yield == n) {
                    once();
                }
            };
        } else if (place.inForm) {
            comments->onShow = once;
        } else {
            host->onTimedMessage = once;
        }
    }
    /// The undisturbed journal with `inner` at the place.
    static Lines With(const Lines& inner) {
        Lines lines = Undisturbed();
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(GetParam().line), inner.begin(),
                     inner.end());
        return lines;
    }
    /// The undisturbed journal up to the place.
    static Lines Before() {
        Lines lines = Undisturbed();
        lines.resize(GetParam().line);
        return lines;
    }
    /// The walk may end before its message.
    void TearDown() override { EXPECT_TRUE(x_done); }

  private:
    bool x_done = false;
};

INSTANTIATE_TEST_SUITE_P(Places, ReentryTest, ::testing::ValuesIn(Places),
                         [](const auto& row) { return row.param.name; });

// ---- the lists ---------------------------------------------------------------------------------

TEST_P(ReentryTest, ErasingTheRunningListIsErrorTenInAnActionAndEndsTheWalkWithNineBetweenTwo) {
    std::int32_t inner = -1;
    At([&] { inner = ErrorOf([&] { State().MainTest.Enter.Erase(); }); });

    const std::int32_t outer = ErrorOf([&] { engine->StartTest(); });

    EXPECT_EQ(inner, GetParam().inAction ? 10 : 0);
    EXPECT_EQ(outer, GetParam().inAction ? 0 : 9);
    EXPECT_EQ(TakeEffects(), GetParam().inAction ? Undisturbed() : Before());
    EXPECT_EQ(context.TestRunning, GetParam().inAction);
    EXPECT_FALSE(State().MainTest.Enter.IsHeld());
}

TEST_P(ReentryTest, LoadingAShorterListFailsWithTenInAnActionAndEndsTheWalkWithNineBetweenTwo) {
    host->files[L"empty.ini"] = {};
    std::int32_t inner = -1;
    At([&] {
        inner = ErrorOf([&] { engine->LoadActions(L"empty.ini", 0, aceTemplate); });
        host->journal.Clear();
    });

    const std::int32_t outer = ErrorOf([&] { engine->StartTest(); });

    EXPECT_EQ(inner, GetParam().inAction ? 10 : 0);
    EXPECT_EQ(outer, GetParam().inAction ? 0 : 9);
    EXPECT_FALSE(State().MainTest.Enter.IsHeld());
}

TEST_P(ReentryTest, LoadingALongerListBetweenTwoActionsRunsItsElementsFromThereOn) {
    host->files[L"other.ini"] = sim::ParseSections(
        L"[ActionsOnTest]\nNumOfEnterActions=4\nEnterAction1=WAIT:6.000\n"
        L"EnterAction2=WAIT:7.000\nEnterAction3=WAIT:8.000\n"
        L"EnterAction4=WAIT:9.000\n");
    std::int32_t inner = -1;
    At([&] {
        inner = ErrorOf([&] { engine->LoadActions(L"other.ini", 0, aceTemplate); });
        host->journal.Clear();
    });

    EXPECT_FALSE(engine->StartTest());

    if (!GetParam().inAction) {
        EXPECT_EQ(inner, 0);
        const Lines all = Journal(Waited(6), Yielded, Waited(7), Yielded, Waited(8));
        const std::size_t ran = GetParam().yield == 1 ? 0 : GetParam().yield == 4 ? 4 : 8;
        EXPECT_EQ(TakeEffects(), Lines(all.begin() + static_cast<std::ptrdiff_t>(ran), all.end()));
    } else {
        EXPECT_EQ(inner, 10);
    }
}

TEST_P(ReentryTest, UnrelatedListsCanBeChanged) {
    At([&] {
        State().MainSubranges.Redim(0, 9);
        Fill(State().MainTest, LeaveList, {WaitFor(9)});
    });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), Undisturbed());
}

// ---- other operations --------------------------------------------------------------------------

TEST_P(ReentryTest, StopAllActionsClearsTheStatusAndTheWalkGoesOn) {
    At([&] { engine->StopAllActions(); });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), With({StatusCleared}));
    EXPECT_TRUE(context.TestRunning);
}

TEST_P(ReentryTest, StopTestFromInsideRunsItsListAndTheOuterStartStillMarksTheTestAsRunning) {
    Fill(State().MainTest, LeaveList, {WaitFor(9)});
    At([&] {
        engine->StopTest();
        EXPECT_FALSE(context.TestRunning);
    });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), With(Journal(Yielded, Waited(9))));
    EXPECT_TRUE(context.TestRunning);
}

TEST_P(ReentryTest, NewFrequencyFromInsideRunsItsList) {
    Fill(State().MainTest, FreqList, {WaitFor(9)});
    At([&] { engine->NewFrequency(30e6, false); });

    EXPECT_FALSE(engine->StartTest());

    const Lines inner = Journal(L"Utilities.IsEqual(30000000, -1)", Yielded, Waited(9));
    EXPECT_EQ(TakeEffects(), Journal(With(inner), Yielded));
    EXPECT_EQ(State().LastFrequency, 30e6);
}

TEST_P(ReentryTest, SameListCanBeRunFromInside) {
    comments->answers = {false, false};
    At([&] { EXPECT_FALSE(engine->StartTest()); });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), With(Undisturbed()));
    EXPECT_FALSE(State().MainTest.Enter.IsHeld());
}

TEST_P(ReentryTest, AnotherObjectCanBeCalledFromInside) {
    aceActionsEngine other(context);
    other.State().Modul = aceAziChart;
    Fill(other.State().AziChart, LeaveList, {WaitFor(9), Action(atTestStop)});
    host->journal.Clear();
    At([&] { EXPECT_TRUE(other.StopTest()); });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), With(Journal(Yielded, Waited(9), Yielded)));
}

TEST_P(ReentryTest, ErrorOutOfTheHostsOwnCodeEndsTheOuterCall) {
    At([] { throw RunTimeError(77, L"host"); });

    const std::int32_t outer = ErrorOf([&] { engine->StartTest(); });

    // A wait ends silently at any error; everything else lets it through.
    const bool inWait = std::string(GetParam().name) == "InTheTimedMessage";
    EXPECT_EQ(outer, inWait ? 0 : 77);
    const bool reported = GetParam().inAction && !inWait;
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError"),
              reported ? Lines{Reported(77, L"host")} : Lines{});
    EXPECT_FALSE(State().MainTest.Enter.IsHeld());
}

// ---- objects come and go -----------------------------------------------------------------------

TEST_P(ReentryTest, ObjectDroppedFromInsideEndsItsWalkInOrderWhileAnotherLives) {
    aceActionsEngine other(context);
    host->journal.Clear();
    At([&] { engine.reset(); });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), Undisturbed());
    EXPECT_TRUE(context.TestRunning);
}

TEST_P(ReentryTest, LastObjectDroppedFromInsideTakesTheStatusLineWithItAndTheWalkEndsInOrder) {
    At([&] {
        engine.reset();
        EXPECT_EQ(context.CommentForm, nullptr);
        context.CommentForm = comments;
    });

    EXPECT_FALSE(engine->StartTest());

    Lines expected = Before();
    const Lines all = Undisturbed();
    for (std::size_t i = GetParam().line; i < all.size(); ++i) {
        if (!all[i].starts_with(L"StatusDisplay") && !all[i].starts_with(L"SystemServices")) {
            expected.push_back(all[i]);
        }
    }
    EXPECT_EQ(TakeEffects(), expected);
    EXPECT_EQ(context.StatusDisplay, nullptr);
    EXPECT_FALSE(context.ModuleInitialised);
}

TEST_P(ReentryTest, ObjectMadeFromInsideResetsTheSharedStateAndTheWalkGoesOn) {
    context.TestRunning = true;
    context.InitReceiverPending = true;
    std::unique_ptr<aceActionsEngine> other;
    At([&] {
        other = std::make_unique<aceActionsEngine>(context);
        EXPECT_FALSE(context.TestRunning);
        EXPECT_FALSE(context.InitReceiverPending);
    });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), Undisturbed());
    EXPECT_TRUE(context.TestRunning);
}

TEST_P(ReentryTest, ObjectCanBeDroppedAndMadeAnewFromInside) {
    At([&] {
        engine.reset();
        engine = std::make_unique<aceActionsEngine>(context);
        context.CommentForm = comments;
    });

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(), Undisturbed());
    EXPECT_EQ(engine->State().MainTest.EnterCount, 0);
    EXPECT_TRUE(context.TestRunning);
}

}  // namespace
}  // namespace ace::test
