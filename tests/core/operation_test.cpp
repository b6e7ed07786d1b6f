#include <string>
#include <vector>

#include <ace/core/operation.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The run-time error that `act` raises.
template <class Act>
RunTimeError Caught(Act&& act) {
    try {
        act();
    } catch (const RunTimeError& error) {
        return error;
    }
    ADD_FAILURE() << "no error came out";
    return RunTimeError(0);
}

/// The journal's line of a trace line, from marker to thread id.
String WriteLine(const std::vector<String>& texts) {
    String line = L"TraceLog.WriteLine(";
    for (const String& text : texts) {
        line += (line.back() == L'(' ? L"\"" : L", \"") + text + L"\"";
    }
    return line + L")";
}

const String SampleStart =
    WriteLine({L"start", L"ZOLTA_ActionsEngine", L"modActions (Code)", L"Sample", L"", L"4711"});
const String SampleEnd = WriteLine({L"end", L"", L"", L"Sample", L"", L"4711"});

class Operation : public HostTest {
  protected:
    void SetUp() override {
        host->threadId = 4711;
        context.TraceLog();
        context.Platform();
        host->journal.Clear();
    }
    std::vector<String> Reports() const { return host->journal.LinesOf(L"TraceLog.ReportError"); }
    std::vector<String> Lines() const { return host->journal.LinesOf(L"TraceLog.WriteLine"); }

    /// An operation of one statement.
    template <class Statement>
    void Run(Statement&& statement) {
        Logged(context, ModuleLines(L"Sample"), NoMessage,
               [&](const Statements& stmt) { stmt(statement); });
    }
};

// ---- trace lines ---------------------------------------------------------------------------

TEST_F(Operation, WritesALineAtItsBeginningAndOneAtItsEnd) {
    host->tracing = true;
    Logged(
        context, EngineLines(L"EnterStep"), [] { return L"Number = 3"; }, [](const Statements&) {});
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"TraceLog.IsEnabled()", L"Platform.ThreadId()",
                            WriteLine({L"start", L"ZOLTA_ActionsEngine", L"aceActionsEngine (Code)",
                                       L"EnterStep", L"Number = 3", L"4711"}),
                            L"TraceLog.IsEnabled()", L"Platform.ThreadId()",
                            WriteLine({L"end", L"", L"", L"EnterStep", L"", L"4711"})));
}

TEST_F(Operation, OfTheModuleWideCodeNamesThatModuleAndMayHaveNoMessage) {
    host->tracing = true;
    Run([] {});
    EXPECT_THAT(Lines(), ElementsAre(SampleStart, SampleEnd));
}

TEST_F(Operation, MayNameItselfDifferentlyInEachLine) {
    host->tracing = true;
    constexpr TraceLines Odd = {L"First", L"frmEditor (Code)", L"Second", L"Other"};
    Logged(context, Odd, NoMessage, [](const Statements&) {});
    EXPECT_THAT(
        Lines(),
        ElementsAre(WriteLine({L"start", L"Other", L"frmEditor (Code)", L"First", L"", L"4711"}),
                    WriteLine({L"end", L"", L"", L"Second", L"", L"4711"})));
}

TEST_F(Operation, FormatsNothingWhileTracingIsOff) {
    bool isAsked = false;
    Logged(
        context, ModuleLines(L"Sample"),
        [&] {
            isAsked = true;
            return String();
        },
        [](const Statements&) {});
    EXPECT_FALSE(isAsked);
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"TraceLog.IsEnabled()", L"TraceLog.IsEnabled()"));
}

TEST_F(Operation, TracingSwitchedOnInBetweenGivesALoneEndLine) {
    Run([&] { host->tracing = true; });
    EXPECT_THAT(Lines(), ElementsAre(SampleEnd));
}

TEST_F(Operation, TracingSwitchedOffInBetweenGivesALoneStartLine) {
    host->tracing = true;
    Run([&] { host->tracing = false; });
    EXPECT_THAT(Lines(), ElementsAre(SampleStart));
}

TEST_F(Operation, WritesNoEndLineAfterAnError) {
    host->tracing = true;
    EXPECT_EQ(ErrorOf([&] { Run([] { Raise(Errors::Overflow); }); }), 6);
    EXPECT_THAT(Lines(), ElementsAre(SampleStart));
}

TEST_F(Operation, WithAHandlerAloneAsksForNoTracing) {
    host->tracing = true;
    EXPECT_EQ(Guarded(context, [](const Statements& stmt) { return stmt([] { return 7; }); }), 7);
    EXPECT_THAT(host->journal.Lines(), IsEmpty());
}

TEST_F(Operation, AnswersWhatItsBodyAnswers) {
    const String answer = Logged(context, ModuleLines(L"Sample"), NoMessage,
                                 [](const Statements&) { return String(L"answer"); });
    EXPECT_EQ(answer, L"answer");
}

TEST_F(Operation, AStatementCanAnswerAReference) {
    int field = 1;
    Guarded(context, [&](const Statements& stmt) { stmt([&]() -> int& { return field; }) = 2; });
    EXPECT_EQ(field, 2);
}

// ---- report and raise ------------------------------------------------------------------------

TEST_F(Operation, ReportsAnErrorAlsoWhileTracingIsOff) {
    EXPECT_EQ(ErrorOf([&] { Run([] { Raise(Errors::SubscriptOutOfRange); }); }), 9);
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"TraceLog.IsEnabled()", L"Platform.ThreadId()",
                            LR"(TraceLog.ReportError(9, "subscript out of range", 4711))"));
}

TEST_F(Operation, RaisesNumberAndDescriptionWithAnEmptySource) {
    const RunTimeError error = Caught(
        [&] { Run([] { throw RunTimeError(1234, L"no paper", L"Printer", L"printer.hlp"); }); });
    EXPECT_EQ(error.Number(), 1234);
    EXPECT_EQ(error.Description(), L"no paper");
    EXPECT_EQ(error.Source(), L"");
    EXPECT_EQ(error.HelpFile(), L"");
}

struct AnswerTest : Operation, ::testing::WithParamInterface<std::int32_t> {};

TEST_P(AnswerTest, OtherThan5RaisesTheError) {
    host->reportAnswers = {GetParam()};
    int runs = 0;
    const auto fail = [&] {
        ++runs;
        Raise(Errors::Overflow);
    };
    EXPECT_EQ(ErrorOf([&] { Run(fail); }), 6);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(Reports().size(), 1U);
}
INSTANTIATE_TEST_SUITE_P(Answers, AnswerTest, ::testing::Values(0, -5, 1, 4, 6, 261));

TEST_F(Operation, NestedOperationsReportOnceEach) {
    const auto outer = [&] {
        Run([&] { Run([] { throw RunTimeError(13, L"type mismatch", L"Deep"); }); });
    };
    EXPECT_EQ(ErrorOf(outer), 13);
    EXPECT_THAT(Reports(), ElementsAre(LR"(TraceLog.ReportError(13, "type mismatch", 4711))",
                                       LR"(TraceLog.ReportError(13, "type mismatch", 4711))"));
}

TEST_F(Operation, ARoutineWithoutAHandlerInBetweenAddsNoReport) {
    const auto bare = [&] { Run([] { Raise(Errors::TypeMismatch); }); };
    const auto outer = [&] { Run([&] { bare(); }); };
    EXPECT_EQ(ErrorOf(outer), 13);
    EXPECT_EQ(Reports().size(), 2U);
}

TEST_F(Operation, AStatementInsideAStatementReportsOnce) {
    const auto nested = [&](const Statements& stmt) {
        stmt([&] { stmt([] { Raise(Errors::Overflow); }); });
    };
    EXPECT_EQ(ErrorOf([&] { Guarded(context, nested); }), 6);
    EXPECT_EQ(Reports().size(), 1U);
}

TEST_F(Operation, AnErrorOutsideAStatementIsReportedOnceAndRaised) {
    host->reportAnswers = {5};
    int runs = 0;
    const auto fail = [&](const Statements&) {
        ++runs;
        throw RunTimeError(6, L"overflow", L"Somewhere");
    };
    const RunTimeError error = Caught([&] { Guarded(context, fail); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Source(), L"");
    EXPECT_EQ(Reports().size(), 1U);
    EXPECT_EQ(runs, 1);
}

TEST_F(Operation, AReportThatFailsHidesNoError) {
    for (const StringView failing : {L"TraceLog.ReportError", L"Platform.ThreadId"}) {
        host->faults.Clear();
        host->faults.FailOperation(failing, 1, 61, sim::FaultScript::Until::ForEver);
        const RunTimeError error = Caught([&] { Run([] { Raise(Errors::Overflow); }); });
        EXPECT_EQ(error.Number(), 6);
        EXPECT_EQ(error.Source(), L"");
    }
}

// ---- the answer 5 ----------------------------------------------------------------------------

TEST_F(Operation, TheAnswer5RunsTheFailingStatementAlone) {
    host->reportAnswers = {5};
    int before = 0;
    int failing = 0;
    int after = 0;
    Guarded(context, [&](const Statements& stmt) {
        ++before;
        stmt([&] {
            if (++failing == 1) {
                Raise(Errors::Overflow);
            }
        });
        ++after;
    });
    EXPECT_EQ(before, 1);
    EXPECT_EQ(failing, 2);
    EXPECT_EQ(after, 1);
}

TEST_F(Operation, AnErrorThatRepeatsComesBackToTheHandlerEachTime) {
    host->reportAnswers = {5, 5, 5};
    int runs = 0;
    Run([&] {
        if (++runs <= 3) {
            Raise(Errors::Overflow);
        }
    });
    EXPECT_EQ(runs, 4);
    EXPECT_EQ(Reports().size(), 3U);
}

TEST_F(Operation, AnErrorThatRepeatsIsRaisedAtTheFirstOtherAnswer) {
    host->reportAnswers = {5, 5, 1, 5};
    int runs = 0;
    const auto fail = [&] {
        ++runs;
        Raise(Errors::Overflow);
    };
    EXPECT_EQ(ErrorOf([&] { Run(fail); }), 6);
    EXPECT_EQ(runs, 3);
    EXPECT_EQ(Reports().size(), 3U);
}

TEST_F(Operation, AStatementThatIsRunAgainAnswersAtLast) {
    host->reportAnswers = {5};
    bool isFirst = true;
    const int answer = Guarded(context, [&](const Statements& stmt) {
        return stmt([&] {
            if (std::exchange(isFirst, false)) {
                Raise(Errors::Overflow);
            }
            return 8;
        });
    });
    EXPECT_EQ(answer, 8);
}

TEST_F(Operation, TheAnswer5InTheOuterOperationRunsTheInnerOneAgain) {
    host->reportAnswers = {0, 5};
    int runs = 0;
    const auto inner = [&] {
        if (++runs == 1) {
            Raise(Errors::Overflow);
        }
    };
    Run([&] { Run(inner); });
    EXPECT_EQ(runs, 2);
    EXPECT_EQ(Reports().size(), 2U);
}

TEST_F(Operation, ATraceLineThatFailsIsWrittenAgainAtTheAnswer5) {
    host->tracing = true;
    host->reportAnswers = {5, 5};
    host->faults.FailOperation(L"TraceLog.WriteLine", 1, 61);
    host->faults.FailOperation(L"TraceLog.WriteLine", 3, 61);
    int runs = 0;
    Run([&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(Reports().size(), 2U);
    EXPECT_EQ(Lines().size(), 4U);
}

TEST_F(Operation, AnEndLineThatFailsIsTheErrorOfAnOperationThatIsDone) {
    host->tracing = true;
    host->faults.FailOperation(L"TraceLog.WriteLine", 2, 61);
    int runs = 0;
    EXPECT_EQ(ErrorOf([&] { Run([&] { ++runs; }); }), 61);
    EXPECT_EQ(runs, 1);
}

// ---- going on ----------------------------------------------------------------------------------

TEST(ResumeNextTest, GoesOnAfterAFailureAndKeepsTheLastOne) {
    ResumeNext next;
    EXPECT_EQ(next.Number(), 0);
    EXPECT_FALSE(next([] { Raise(Errors::Overflow); }));
    EXPECT_FALSE(next([] { throw RunTimeError(61, L"disk full"); }));
    EXPECT_TRUE(next([] {}));
    EXPECT_EQ(next.Number(), 61);
    EXPECT_EQ(next.Description(), L"disk full");
}

}  // namespace
}  // namespace ace::test
