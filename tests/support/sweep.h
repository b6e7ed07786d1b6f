/// The sweep: runs an operation again and again on a simulated host and lets each of its host calls
/// fail in turn, once and from then on.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>

#include <ace/core/actions_engine.h>

#include "support/fixture.h"

namespace ace::test {

/// Number of the scripted failures of a sweep; no operation raises it by itself.
inline constexpr std::int32_t SweepError = 4242;

/// A fresh host with a context, made anew for every run of a sweep.
struct SweepRig {
    std::shared_ptr<sim::SimHost> host = std::make_shared<sim::SimHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine;

    /// Makes an engine and all services, so that what happens on first use only is out of the way.
    aceActionsEngine& MakeEngine() {
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
};

/// One host call of the undisturbed run, and what its failure does.
struct SweepStep {
    String call;           ///< interface and operation, as in the journal
    std::int32_t reports;  ///< reports to the trace log: one per operation that it passes through
    bool raised = true;    ///< the error reaches the host; false when it is swallowed
    String left = {};      ///< state text after the failure; empty: not compared
};
/// Steps for the usual outcomes.
inline SweepStep Reported(String call, String left = {}, std::int32_t reports = 1) {
    return {std::move(call), reports, true, std::move(left)};
}
inline SweepStep Bare(String call, String left = {}) {
    return {std::move(call), 0, true, std::move(left)};
}
inline SweepStep Swallowed(String call, String left = {}) {
    return {std::move(call), 0, false, std::move(left)};
}

/// One operation.
struct SweepRow {
    std::string name;
    std::function<void(SweepRig&)> prepare;  ///< brings the rig to the start; its calls don't count
    std::function<void(SweepRig&)> act;      ///< the operation
    std::function<String(const SweepRig&)> state;  ///< what the operation leaves, as text
    std::vector<SweepStep> steps;                  ///< all host calls in order, questions included
    bool repeatable = true;  ///< after a failure the operation can be called again and goes through
};
inline void PrintTo(const SweepRow& row, std::ostream* out) {
    *out << row.name;
}

namespace detail {

/// What came out of one run.
struct SweepOutcome {
    std::optional<RunTimeError> error;
    std::vector<String> calls;    ///< the operations' names
    std::vector<String> effects;  ///< what went through, without questions and reports
    std::int32_t reports = 0;
    String state;
};

constexpr StringView ReportCall = L"TraceLog.ReportError";

inline SweepOutcome Observe(SweepRig& rig, const SweepRow& row) {
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

inline void ExpectRepeatable(SweepRig& rig, const SweepRow& row) {
    if (row.repeatable) {
        EXPECT_EQ(ErrorOf([&] { row.act(rig); }), 0) << "called again";
    }
}

/// The answer is not to try again.
inline void FailOnce(const SweepRow& row, std::size_t k) {
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
inline void FailForEver(const SweepRow& row, std::size_t k) {
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
inline void FailOnceAndRetry(const SweepRow& row, std::size_t k, const SweepOutcome& undisturbed) {
    SweepRig rig;
    row.prepare(rig);
    rig.host->faults.FailCall(k, SweepError);
    rig.host->reportAnswers = {ITraceLog::RetryStatement};
    const SweepOutcome outcome = Observe(rig, row);
    EXPECT_FALSE(outcome.error.has_value());
    EXPECT_EQ(outcome.reports, 1);
    EXPECT_EQ(outcome.effects, undisturbed.effects);
    EXPECT_EQ(outcome.state, undisturbed.state);
}

}  // namespace detail

/// Checks `row` undisturbed, and with the failure of each of its calls: once, for ever, and, where
/// it is reported, once with the answer to run the statement again.
inline void Sweep(const SweepRow& row) {
    detail::SweepOutcome undisturbed;
    {
        SweepRig rig;
        row.prepare(rig);
        undisturbed = detail::Observe(rig, row);
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
        detail::FailOnce(row, k);
        detail::FailForEver(row, k);
        if (row.steps[k - 1].reports > 0) {
            detail::FailOnceAndRetry(row, k, undisturbed);
        }
    }
}

}  // namespace ace::test
