#include <ace/execution/dispatcher.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String ModuleCode = L"modActions (Code)";
constexpr std::int32_t AnyModul = aceMonitoring;

class DispatcherTest : public EngineTest {
  protected:
    Boolean Do(p_Action& action) { return modActions::DoAction(context, action, AnyModul); }
    /// What comes out of an action that fails.
    RunTimeError FailureOf(p_Action action) {
        try {
            Do(action);
        } catch (const RunTimeError& error) {
            return error;
        }
        return RunTimeError(0);
    }
};

p_Action OfKind(std::int32_t kind, ActionParameter parameter = {}) {
    return Action(static_cast<p_ActionTypes>(kind), std::move(parameter));
}

// ---- kinds without a routine -------------------------------------------------------------------

constexpr std::int32_t Signals[] = {atComment, atTestStop, atGotoSingle, atStopLevSweep,
                                    atNbBbEtsi};
constexpr std::int32_t DoNothing[] = {atParkAcc, 18, 19, 31, 32, 63, 2147483647, -1, -2147483647};

TEST_F(DispatcherTest, SignalsAnswerTrueAndDoNothingElse) {
    for (const std::int32_t kind : Signals) {
        p_Action action = OfKind(kind);
        EXPECT_TRUE(Do(action)) << kind;
        EXPECT_EQ(action, OfKind(kind)) << kind;
    }
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(DispatcherTest, SignalsNeverLookAtTheParameter) {
    for (const std::int32_t kind : Signals) {
        p_Action action = OfKind(kind, std::int32_t{5});
        action.IgnoreErr = true;
        const p_Action before = action;
        EXPECT_TRUE(Do(action)) << kind;
        EXPECT_EQ(action, before) << kind;
    }
}

TEST_F(DispatcherTest, ParkAccAndKindsOutsideTheMembersAnswerFalseAndDoNothing) {
    for (const std::int32_t kind : DoNothing) {
        p_Action action = OfKind(kind, std::int32_t{5});
        EXPECT_FALSE(Do(action)) << kind;
        EXPECT_EQ(action, OfKind(kind, std::int32_t{5})) << kind;
    }
    EXPECT_EQ(TakeEffects(), Lines{});
}

/// Below the question whether a kind acts, there is no routine for those outside either.
TEST_F(DispatcherTest, AKindOutsideTheMembersHasNoRoutine) {
    for (const std::int32_t kind : DoNothing) {
        p_Action action = OfKind(kind, std::int32_t{5});
        EXPECT_FALSE(modActions::RunActing(context, action, AnyModul)) << kind;
        EXPECT_EQ(action, OfKind(kind, std::int32_t{5})) << kind;
    }
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(DispatcherTest, KindsWithoutARoutineCostOnlyTheTraceLines) {
    host->tracing = true;
    for (const std::int32_t kind : {std::int32_t{atTestStop}, std::int32_t{atParkAcc}, 18}) {
        p_Action action = OfKind(kind);
        Do(action);
        EXPECT_EQ(TakeEffects(), ActionTraced) << kind;
    }
}

// ---- the action that runs ----------------------------------------------------------------------

TEST_F(DispatcherTest, TheRunningActionIsNamedFromItsFirstTraceLineToItsLastAndNoLonger) {
    host->tracing = true;
    p_Action action = Action(atWait, aceWait{5.0});
    std::size_t calls = 0;
    host->journal.Observe([&](const sim::HostCall& call) {
        ++calls;
        EXPECT_EQ(context.RunningAction, &action) << testing::PrintToString(call.operation);
    });
    Do(action);
    host->journal.Observe({});
    EXPECT_GT(calls, 2U);
    EXPECT_EQ(context.RunningAction, nullptr);
}

TEST_F(DispatcherTest, TheActionThatFailedIsNamedUntilTheNextOneBegins) {
    p_Action bad = Action(atWait, std::monostate{});
    EXPECT_EQ(FailureOf(bad).Number(), 13);
    EXPECT_EQ(ErrorOf([&] { Do(bad); }), 13);
    EXPECT_EQ(context.RunningAction, &bad);
    p_Action next = OfKind(atTestStop);
    Do(next);
    EXPECT_EQ(context.RunningAction, nullptr);
}

// ---- records -----------------------------------------------------------------------------------

/// The kinds that carry a record, and the record.
struct RecordRow {
    p_ActionTypes kind;
    ActionParameter record;
};
const RecordRow Records[] = {
    {atWait, aceWait{}},           {atNotify, aceNotify{}},        {atRemote, aceRemote{}},
    {atSetDevice, aceSetDevice{}}, {atCheckEut, aceSetDevice{}},   {atTrackFreq, aceTrackFreq{}},
    {atSwitchAmp, aceSetDevice{}}, {atSwitchUnit, aceSetDevice{}}, {atAPI, aceAPI{}},
    {atQuestion, aceNotify{}},     {atMonitorEUT, aceSetDevice{}},
};
const ActionParameter Parameters[] = {std::monostate{}, aceWait{},      aceNotify{},
                                      aceRemote{},      aceAPI{},       aceSetDevice{},
                                      aceTrackFreq{},   std::int32_t{5}};

TEST_F(DispatcherTest, ParameterWithoutTheRecordOfTheKindIsATypeMismatchReportedOnce) {
    for (const RecordRow& row : Records) {
        for (const ActionParameter& parameter : Parameters) {
            if (parameter.index() == row.record.index()) {
                continue;
            }
            const RunTimeError error = FailureOf(Action(row.kind, parameter));
            EXPECT_EQ(error.Number(), 13) << row.kind << " with " << parameter.index();
            EXPECT_EQ(error.Description(), L"type mismatch");
            EXPECT_EQ(error.Source(), L"");
            EXPECT_EQ(TakeEffects(), Journal(MismatchReported));
        }
    }
}

TEST_F(DispatcherTest, FailedActionKeepsItsParameterAndItsLatch) {
    p_Action action = Action(atWait, aceNotify{});
    action.IgnoreErr = true;
    const p_Action before = action;

    EXPECT_EQ(ErrorOf([&] { Do(action); }), 13);

    EXPECT_EQ(action, before);
}

TEST_F(DispatcherTest, WaitNotifyAndQuestionWriteNothingBack) {
    aceNotify placeholders;
    placeholders.Message = L"Set #P#";
    placeholders.vks.count = 1;
    placeholders.vks.strSearch.Redim(0, 0);
    placeholders.vks.strSearch[0] = L"#P#";
    placeholders.vks.valReplace.Redim(0, 0);
    placeholders.vks.valReplace[0] = String(L"10 dBm");
    comments->answers = {false, false};
    for (const p_ActionTypes kind : {atNotify, atQuestion}) {
        p_Action action = Action(kind, placeholders);
        action.IgnoreErr = true;
        EXPECT_FALSE(Do(action));
        EXPECT_EQ(action.Parameter, ActionParameter(placeholders));
        EXPECT_TRUE(action.IgnoreErr);
    }
    EXPECT_EQ(TakeEffects(), Journal(Told(L"Set 10 dBm"), Asked(L"Set 10 dBm")));
}

TEST_F(DispatcherTest, RecordsAreCopiedIntoTheWorkingRecordsOfTheThread) {
    p_Action wait = WaitFor(7);
    p_Action notify = Tell(L"Now");
    comments->answers = {false, false};

    Do(wait);
    Do(notify);
    EXPECT_EQ(context.DispatcherRecords.Wait, aceWait{7});
    EXPECT_EQ(context.DispatcherRecords.Notify.Message, L"Now");

    p_Action question = Ask(L"Well?");
    Do(question);
    EXPECT_EQ(context.DispatcherRecords.Notify.Message, L"Well?");
}

TEST_F(DispatcherTest, RemoteWithoutCommandAndProgramRunsNothingAndStaysAsItIs) {
    aceRemote idle;
    idle.GpibAddress = 5;
    p_Action action = Action(atRemote, idle);
    action.IgnoreErr = true;

    EXPECT_FALSE(Do(action));

    EXPECT_EQ(action.Parameter, ActionParameter(idle));
    EXPECT_TRUE(action.IgnoreErr);
    EXPECT_EQ(context.DispatcherRecords.Remote, idle);
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(DispatcherTest, TrackingWithoutBothNamesRunsNothingAndStaysAsItIs) {
    aceTrackFreq idle;
    idle.Freq = 1e6;
    p_Action action = Action(atTrackFreq, idle);
    action.IgnoreErr = true;

    EXPECT_FALSE(Do(action));

    EXPECT_EQ(action.Parameter, ActionParameter(idle));
    EXPECT_TRUE(action.IgnoreErr);
    EXPECT_EQ(context.DispatcherRecords.TrackFreq, idle);
    EXPECT_EQ(TakeEffects(), Lines{});
}

// ---- trace lines and errors --------------------------------------------------------------------

TEST_F(DispatcherTest, StartLineIsWrittenBeforeTheActionAndEndLineBehindIt) {
    host->tracing = true;
    p_Action action = WaitFor(1);

    Do(action);

    EXPECT_EQ(TakeEffects(),
              Journal(Start(ModuleCode, L"DoAction", L""), Waited(1), End(L"DoAction")));
}

TEST_F(DispatcherTest, TracingSwitchedOnDuringTheActionGivesALoneEndLine) {
    host->onTimedMessage = [&] { host->tracing = true; };
    p_Action action = WaitFor(1);

    Do(action);

    EXPECT_EQ(TakeEffects(), Journal(Waited(1), End(L"DoAction")));
}

TEST_F(DispatcherTest, TracingSwitchedOffDuringTheActionGivesALoneStartLine) {
    host->tracing = true;
    host->onTimedMessage = [&] { host->tracing = false; };
    p_Action action = WaitFor(1);

    Do(action);

    EXPECT_EQ(TakeEffects(), Journal(Start(ModuleCode, L"DoAction", L""), Waited(1)));
}

TEST_F(DispatcherTest, EndLineIsMissingAfterAnError) {
    host->tracing = true;
    p_Action action = Broken();

    EXPECT_EQ(ErrorOf([&] { Do(action); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(Start(ModuleCode, L"DoAction", L""), MismatchReported));
}

TEST_F(DispatcherTest, AnswerFiveRunsTheFailedStatementAgain) {
    p_Action action = Broken();
    host->reportAnswers = {5, 5, 0};

    EXPECT_EQ(ErrorOf([&] { Do(action); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(MismatchReported, MismatchReported, MismatchReported));
}

}  // namespace
}  // namespace ace::test
