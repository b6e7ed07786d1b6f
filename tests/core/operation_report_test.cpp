#include <stdexcept>
#include <string>
#include <vector>

#include <ace/core/operation.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

/// Keeps what it is told.
class KeepingTraceLog : public DefaultTraceLog {
  public:
    std::int32_t ReportError(const RunTimeError& error, std::int32_t, std::int32_t line) override {
        errors.push_back(error);
        lines.push_back(line);
        return 0;
    }
    std::vector<RunTimeError> errors;
    std::vector<std::int32_t> lines;
};

class KeepingFactory : public IHostFactory {
  public:
    std::shared_ptr<ITraceLog> MakeTraceLog() override { return log; }
    std::shared_ptr<KeepingTraceLog> log = std::make_shared<KeepingTraceLog>();
};

TEST(OperationReport, CarriesTheErrorAsItCameAndTheLineOfItsStatement) {
    const auto factory = std::make_shared<KeepingFactory>();
    ThreadContext context(factory);
    std::int32_t line = 0;
    const auto body = [&](const Statements& stmt) {
        stmt([] {});
        line = __builtin_LINE() + 1;
        stmt([] { throw RunTimeError(61, L"disk full", L"Disk"); });
    };
    EXPECT_EQ(ErrorOf([&] { Guarded(context, body); }), 61);
    ASSERT_EQ(factory->log->errors.size(), 1U);
    EXPECT_EQ(factory->log->errors[0].Source(), L"Disk");
    EXPECT_EQ(factory->log->errors[0].Description(), L"disk full");
    EXPECT_EQ(factory->log->lines[0], line);
}

TEST(OperationReport, OfAnOuterOperationHasTheEmptySourceOfTheInnerOne) {
    const auto factory = std::make_shared<KeepingFactory>();
    ThreadContext context(factory);
    const auto inner = [](const Statements& stmt) {
        stmt([] { throw RunTimeError(61, L"disk full", L"Disk"); });
    };
    const auto outer = [&](const Statements& stmt) { stmt([&] { Guarded(context, inner); }); };
    EXPECT_EQ(ErrorOf([&] { Guarded(context, outer); }), 61);
    ASSERT_EQ(factory->log->errors.size(), 2U);
    EXPECT_EQ(factory->log->errors[0].Source(), L"Disk");
    EXPECT_EQ(factory->log->errors[1].Source(), L"");
}

struct ForeignRow {
    const char* name;
    void (*raise)();
    std::int32_t number;
    String description;
};

const ForeignRow ForeignRows[] = {
    {"StandardException", [] { throw std::runtime_error("gone"); }, 51, L"gone"},
    {"BytesAbove127", [] { throw std::runtime_error("\xE4\xFF"); }, 51, L"\xE4\xFF"},
    {"AnythingElse", [] { throw 42; }, 51, L"internal error"},
    {"FailedAllocation", [] { throw std::bad_alloc(); }, 7, L"out of memory"},
    {"ImpossibleLength", [] { throw std::length_error("vector"); }, 7, L"out of memory"},
};

class ForeignException : public HostTest, public ::testing::WithParamInterface<ForeignRow> {
  protected:
    std::vector<String> Reports() const { return host->journal.LinesOf(L"TraceLog.ReportError"); }
    /// Raises inside a statement.
    void Run() {
        Guarded(context, [](const Statements& stmt) { stmt(GetParam().raise); });
    }
};

TEST_P(ForeignException, BecomesARunTimeErrorInReportAndRaise) {
    const ForeignRow& row = GetParam();
    try {
        Run();
        ADD_FAILURE() << "no error came out";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), row.number);
        EXPECT_EQ(error.Description(), row.description);
        EXPECT_EQ(error.Source(), L"");
    }
    EXPECT_EQ(Reports().size(), 1U);
}

TEST_P(ForeignException, OutsideAStatementIsTreatedTheSame) {
    const ForeignRow& row = GetParam();
    const auto body = [&](const Statements&) { row.raise(); };
    EXPECT_EQ(ErrorOf([&] { Guarded(context, body); }), row.number);
    EXPECT_EQ(Reports().size(), 1U);
}

TEST_P(ForeignException, IsAFailureToPassOver) {
    ResumeNext next;
    EXPECT_FALSE(next(GetParam().raise));
    EXPECT_EQ(next.Number(), GetParam().number);
    EXPECT_EQ(next.Description(), GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ForeignException, ::testing::ValuesIn(ForeignRows),
                         [](const auto& rowInfo) { return rowInfo.param.name; });

}  // namespace
}  // namespace ace::test
