#include <limits>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String EngineCode = L"aceActionsEngine (Code)";

/// `Max` of a signal and the code that stands.
String Ranked(std::int32_t signal, std::int32_t code) {
    return L"Utilities.Max(" + std::to_wstring(signal) + L", [" + std::to_wstring(code) + L"])";
}

/// The three moments that run a list of a channel.
struct ChannelMomentRow {
    const char* name;
    std::int32_t (aceActionsEngine::*run)(std::int32_t, const String&);
    ListFields list;
    String procedure;
};
void PrintTo(const ChannelMomentRow& row, std::ostream* out) {
    *out << row.name;
}
const ChannelMomentRow Moments[] = {
    {"Trigger", &aceActionsEngine::Trigger, FreqList, L"Trigger"},
    {"EnterNoGo", &aceActionsEngine::EnterNoGo, EnterList, L"EnterNoGo"},
    {"Go", &aceActionsEngine::Go, LeaveList, L"Go"},
};

class ChannelMomentsTest : public EngineTest,
                           public ::testing::WithParamInterface<ChannelMomentRow> {
  protected:
    ChannelMomentsTest() {
        State().Modul = aceMonitoring;
        MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 2);
    }
    static const ChannelMomentRow& Row() { return GetParam(); }
    std::int32_t Run(std::int32_t number) { return (engine.get()->*Row().run)(number, L"Radio"); }
    void FillFirst(const std::vector<p_Action>& actions) {
        Fill(State().MoniChannels[0], Row().list, actions);
    }
};

INSTANTIATE_TEST_SUITE_P(Moments, ChannelMomentsTest, ::testing::ValuesIn(Moments),
                         [](const auto& row) { return row.param.name; });

TEST_P(ChannelMomentsTest, EachMomentRunsItsOwnListOfTheChannel) {
    std::int32_t milliseconds = 0;
    std::int32_t own = 0;
    for (const ListFields& list : ActionLists) {
        Fill(State().MoniChannels[1], list, {WaitFor(++milliseconds)});
        own = list == Row().list ? milliseconds : own;
    }

    EXPECT_EQ(Run(2), 0);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(own)));
}

TEST_P(ChannelMomentsTest, WalkNeverStopsEarly) {
    FillFirst({Action(atTestStop), WaitFor(1), Action(atGotoSingle), WaitFor(2)});

    EXPECT_EQ(Run(1), 5);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Ranked(5, 0), Yielded, Waited(1), Yielded,
                                     Ranked(4, 5), Yielded, Waited(2)));
}

TEST_P(ChannelMomentsTest, ChannelWithoutActionsAnswersNoCodeAndLetsNoMessagesRun) {
    EXPECT_EQ(Run(1), 0);

    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_P(ChannelMomentsTest, NotificationSignalsTheStopOfTheTestWhenTheOperatorAsksForIt) {
    FillFirst({Tell(L"one"), Tell(L"two"), Tell(L"three")});
    comments->answers = {false, true, false};

    EXPECT_EQ(Run(1), 5);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Told(L"one"), Yielded, Told(L"two"), Ranked(5, 0),
                                     Yielded, Told(L"three")));
}

TEST_P(ChannelMomentsTest, QuestionThatAnswersTrueLeavesTheCodeUnchanged) {
    FillFirst({Comment(true), Ask(L"Well?")});
    comments->answers = {true};

    EXPECT_EQ(Run(1), 2);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Ranked(2, 0), Yielded, Asked(L"Well?")));
}

/// A list and the code that it makes.
struct CodeRow {
    std::vector<p_Action> actions;
    std::int32_t code;
};
const p_Action TestStop = Action(atTestStop);
const p_Action GotoSingle = Action(atGotoSingle);
const p_Action StopLevSweep = Action(atStopLevSweep);
const p_Action NbBbEtsi = Action(atNbBbEtsi);

const CodeRow Codes[] = {
    {{Comment(false)}, 1},
    {{Comment(true)}, 2},
    {{StopLevSweep}, 3},
    {{GotoSingle}, 4},
    {{TestStop}, 5},
    {{NbBbEtsi}, 6},
    {{Comment(true), Comment(false)}, 2},
    {{Comment(false), StopLevSweep, Comment(true)}, 3},
    {{StopLevSweep, GotoSingle}, 4},
    {{GotoSingle, StopLevSweep}, 4},
    {{TestStop, GotoSingle, StopLevSweep, Comment(true)}, 5},
    {{Comment(false), NbBbEtsi}, 6},
    {{Comment(true), NbBbEtsi}, 6},
    {{StopLevSweep, NbBbEtsi}, 3},
    {{GotoSingle, NbBbEtsi}, 4},
    {{TestStop, NbBbEtsi}, 5},
    {{NbBbEtsi, NbBbEtsi}, 6},
    {{NbBbEtsi, Comment(true)}, 6},
    {{NbBbEtsi, StopLevSweep}, 6},
    {{NbBbEtsi, GotoSingle}, 6},
    {{NbBbEtsi, TestStop}, 6},
    {{Action(atParkAcc), Action(static_cast<p_ActionTypes>(18))}, 0},
};

TEST_P(ChannelMomentsTest, CodesRankByTheirValueButForNarrowbandBroadband) {
    for (std::size_t i = 0; i < std::size(Codes); ++i) {
        FillFirst(Codes[i].actions);
        EXPECT_EQ(Run(1), Codes[i].code) << "row " << i;
    }
}

TEST_P(ChannelMomentsTest, NarrowbandBroadbandAfterGotoSingleKeepsFourAndBeforeItStands) {
    FillFirst({GotoSingle, NbBbEtsi});
    EXPECT_EQ(Run(1), 4);
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Ranked(4, 0), Yielded));

    FillFirst({NbBbEtsi, GotoSingle});
    EXPECT_EQ(Run(1), 6);
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Yielded, Ranked(4, 6)));
}

TEST_P(ChannelMomentsTest, NumberOutsideTheChannelsIsErrorNineReportedOnceWithoutARangeCheck) {
    for (const std::int32_t number : {0, 3, -1}) {
        EXPECT_EQ(ErrorOf([&] { Run(number); }), 9) << number;
        EXPECT_EQ(TakeEffects(), Journal(SubscriptReported)) << number;
    }
    EXPECT_EQ(ErrorOf([&] { Run(std::numeric_limits<std::int32_t>::min()); }), 6);
    EXPECT_EQ(TakeEffects(), Journal(Reported(6, L"overflow")));

    State().MoniChannels.Erase();
    EXPECT_EQ(ErrorOf([&] { Run(1); }), 9);
}

TEST_P(ChannelMomentsTest, FailureOfAnActionIsReportedByTheActionAndByTheMoment) {
    FillFirst({Broken(), WaitFor(1)});

    EXPECT_EQ(ErrorOf([&] { Run(1); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, MismatchReported, MismatchReported));
}

TEST_P(ChannelMomentsTest, CommentWithoutItsRecordFailsWhenItsCodeIsWanted) {
    FillFirst({Action(atComment)});

    EXPECT_EQ(ErrorOf([&] { Run(1); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, MismatchReported));
}

TEST_P(ChannelMomentsTest, TraceLinesTellNumberAndName) {
    host->tracing = true;
    FillFirst({TestStop});

    EXPECT_EQ(Run(1), 5);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineCode, Row().procedure, L"Number = 1, Name = Radio"), Yielded,
                      ActionTraced, Ranked(5, 0), End(Row().procedure)));
}

TEST_P(ChannelMomentsTest, EndLineIsMissingAfterAnError) {
    host->tracing = true;

    EXPECT_EQ(ErrorOf([&] { Run(3); }), 9);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineCode, Row().procedure, L"Number = 3, Name = Radio"),
                      SubscriptReported));
}

TEST_P(ChannelMomentsTest, ActionsAreToldMonitoringWhateverTheObjectServes) {
    State().Modul = aceTemplate;
    context.SystemCheck = true;
    FillFirst({Tell(L"Hello")});
    comments->answers = {false};

    Run(1);

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Told(L"Hello")));
}

TEST_P(ChannelMomentsTest, ChannelsAreHeldWhileAnActionRuns) {
    FillFirst({WaitFor(1)});
    std::int32_t list = 0;
    std::int32_t channels = 0;
    host->onTimedMessage = [&] {
        list = ErrorOf([&] { (State().MoniChannels[0].*Row().list.actions).Erase(); });
        channels = ErrorOf([&] { State().MoniChannels.RedimPreserve(5); });
    };

    Run(1);

    EXPECT_EQ(list, 10);
    EXPECT_EQ(channels, 10);
}

// ---- what the no-go list will signal -----------------------------------------------------------

class GetNoGoTest : public EngineTest {
  protected:
    GetNoGoTest() { MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1); }
    std::int32_t CodeOf(const std::vector<p_Action>& actions) {
        Fill(State().MoniChannels[0], EnterList, actions);
        return engine->GetNoGo(1);
    }
};

TEST_F(GetNoGoTest, FirstOfTheStoppingKindsWinsWhateverStoodBeforeIt) {
    const CodeRow rows[] = {
        {{}, 0},
        {{Comment(false)}, 1},
        {{Comment(true)}, 2},
        {{Comment(true), Comment(false)}, 2},
        {{Comment(false), Comment(true)}, 2},
        {{Comment(true), TestStop}, 5},
        {{GotoSingle, TestStop}, 4},
        {{StopLevSweep, GotoSingle, TestStop}, 3},
        {{NbBbEtsi, TestStop}, 6},
        {{Comment(true), NbBbEtsi, GotoSingle}, 6},
        {{TestStop, NbBbEtsi}, 5},
        {{Tell(L"x"), Ask(L"y"), WaitFor(1), Broken(), Action(atParkAcc)}, 0},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(CodeOf(rows[i].actions), rows[i].code) << "row " << i;
    }
}

TEST_F(GetNoGoTest, NothingRunsAndNoMessagesEither) {
    host->tracing = true;
    context.Utilities();
    host->journal.Clear();

    CodeOf({Comment(false), WaitFor(1), Comment(true), TestStop, Comment(false)});

    EXPECT_EQ(host->journal.Lines(), Journal(Ranked(1, 0), Ranked(2, 1)));
}

TEST_F(GetNoGoTest, OtherListsOfTheChannelAreNotLookedAt) {
    for (const ListFields& list : {LeaveList, FreqList, MlcList}) {
        Fill(State().MoniChannels[0], list, {TestStop});
    }

    EXPECT_EQ(engine->GetNoGo(1), 0);
}

TEST_F(GetNoGoTest, FailuresReachTheHostWithoutAReport) {
    EXPECT_EQ(ErrorOf([&] { CodeOf({Action(atComment)}); }), 13);
    EXPECT_EQ(ErrorOf([&] { engine->GetNoGo(0); }), 9);
    EXPECT_EQ(ErrorOf([&] { engine->GetNoGo(2); }), 9);
    EXPECT_EQ(ErrorOf([&] { engine->GetNoGo(std::numeric_limits<std::int32_t>::min()); }), 6);
    State().MoniChannels.Erase();
    EXPECT_EQ(ErrorOf([&] { engine->GetNoGo(1); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{});
}

}  // namespace
}  // namespace ace::test
