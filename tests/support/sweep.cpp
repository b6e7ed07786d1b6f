#include "support/sweep.h"

#include <algorithm>
#include <optional>

namespace ace::test {

namespace {

/// What came out of one run.
struct SweepOutcome {
    std::optional<RunTimeError> error;
    std::vector<String> calls;    ///< the operations' names
    std::vector<String> effects;  ///< what went through, without questions and reports
    std::int32_t reports = 0;
    String state;
};

constexpr StringView ReportCall = L"TraceLog.ReportError";

SweepOutcome Observe(SweepRig& rig, const SweepRow& row) {
    SweepOutcome outcome;
    rig.host->journal.Clear();
    try {
        row.act(rig);
    } catch (const RunTimeError& error) {
        outcome.error = error;
    }
    for (const sim::JournalEntry& entry : rig.host->journal.Entries()) {
        outcome.calls.push_back(entry.operation);
        if (entry.operation == ReportCall) {
            ++outcome.reports;
        } else if (!entry.isQuestion && entry.error == 0) {
            outcome.effects.push_back(entry.Line());
        }
    }
    outcome.state = row.state(rig);
    rig.host->faults.Clear();
    return outcome;
}

void ExpectRepeatable(SweepRig& rig, const SweepRow& row) {
    if (row.repeatable) {
        EXPECT_EQ(ErrorOf([&] { row.act(rig); }), 0) << "called again";
    }
}

/// The answer is not to try again.
void FailOnce(const SweepRow& row, std::size_t k) {
    SweepRig rig;
    row.prepare(rig);
    rig.host->faults.FailCall(k, SweepError);
    const SweepOutcome outcome = Observe(rig, row);
    const SweepStep& step = row.steps[k - 1];
    ASSERT_EQ(outcome.error.has_value(), step.raised);
    EXPECT_EQ(outcome.reports, step.reports);
    if (outcome.error) {
        EXPECT_EQ(outcome.error->Number(), SweepError);
        EXPECT_EQ(outcome.error->Source(), step.reports > 0 ? L"" : L"SimHost");
    }
    if (!step.left.empty()) {
        EXPECT_EQ(outcome.state, step.left);
    }
    ExpectRepeatable(rig, row);
}

/// Every call from number `k` on fails, those of the error report too.
void FailForEver(const SweepRow& row, std::size_t k) {
    SweepRig rig;
    row.prepare(rig);
    rig.host->faults.FailCall(k, SweepError, sim::FaultScript::Until::ForEver);
    const SweepOutcome outcome = Observe(rig, row);
    const auto first = row.steps.begin() + static_cast<std::ptrdiff_t>(k - 1);
    const bool raised =
        std::any_of(first, row.steps.end(), [](const SweepStep& step) { return step.raised; });
    ASSERT_EQ(outcome.error.has_value(), raised);
    if (outcome.error) {
        EXPECT_EQ(outcome.error->Number(), SweepError);
    }
    if (first->raised && !first->left.empty()) {
        EXPECT_EQ(outcome.state, first->left);
    }
    ExpectRepeatable(rig, row);
}

/// The failure is answered by trying the statement again: all is as if nothing had failed.
void FailOnceAndRetry(const SweepRow& row, std::size_t k, const SweepOutcome& undisturbed) {
    SweepRig rig;
    row.prepare(rig);
    rig.host->faults.FailCall(k, SweepError);
    rig.host->reportAnswers = {ITraceLog::RetryStatement};
    const SweepOutcome outcome = Observe(rig, row);
    EXPECT_FALSE(outcome.error.has_value());
    EXPECT_EQ(outcome.reports, 1);
    if (row.effectsOnce) {
        EXPECT_EQ(outcome.effects, undisturbed.effects);
    }
    EXPECT_EQ(outcome.state, undisturbed.state);
}

}  // namespace

SweepRig::SweepRig() : host(std::make_shared<sim::SimHost>()), context(host) {}

SweepRig::~SweepRig() = default;

aceActionsEngine& SweepRig::MakeEngine() {
    engine = std::make_unique<aceActionsEngine>(context);
    context.TraceLog();
    context.Language();
    context.Utilities();
    context.SystemServices();
    context.DeviceList();
    context.GpibDriver();
    context.Platform();
    context.FormHost();
    return *engine;
}

void PrintTo(const SweepRow& row, std::ostream* out) {
    *out << row.name;
}

void Sweep(const SweepRow& row) {
    SweepOutcome undisturbed;
    {
        SweepRig rig;
        row.prepare(rig);
        undisturbed = Observe(rig, row);
    }
    std::vector<String> calls;
    for (const SweepStep& step : row.steps) {
        calls.push_back(step.call);
    }
    ASSERT_EQ(undisturbed.calls, calls);
    ASSERT_FALSE(undisturbed.error.has_value());
    for (std::size_t k = 1; k <= row.steps.size(); ++k) {
        SCOPED_TRACE("call " + std::to_string(k) + " of " + row.name + ": " +
                     ::testing::PrintToString(calls[k - 1]));
        FailOnce(row, k);
        FailForEver(row, k);
        if (row.steps[k - 1].reports > 0) {
            FailOnceAndRetry(row, k, undisturbed);
        }
    }
}

}  // namespace ace::test
