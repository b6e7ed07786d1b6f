/// The sweep: runs an operation again and again on a simulated host and lets each of its host calls
/// fail in turn, once and from then on.
#pragma once

#include <functional>
#include <string>

#include <ace/core/actions_engine.h>

#include "support/fixture.h"

namespace ace::test {

/// Number of the scripted failures of a sweep; no operation raises it by itself.
inline constexpr std::int32_t SweepError = 4242;

/// A fresh host with a context, made anew for every run of a sweep.
struct SweepRig {
    SweepRig();
    ~SweepRig();

    std::shared_ptr<sim::SimHost> host;
    ThreadContext context;
    std::unique_ptr<aceActionsEngine> engine;
    std::shared_ptr<void> kept;  ///< of the row's own, such as controls; goes before the others

    /// Makes an engine and all services, so that what happens on first use only is out of the way.
    aceActionsEngine& MakeEngine();
};

/// One host call of the undisturbed run, and what its failure does.
struct SweepStep {
    String call;           ///< interface and operation, as in the journal
    std::int32_t reports;  ///< reports to the trace log: one per operation that it passes through
    bool raised = true;    ///< the error reaches the host; false when it is swallowed
    String left = {};      ///< state text after the failure; empty: not compared
};
/// Steps for the usual outcomes: reported and raised, raised as it came, and neither.
inline SweepStep Handled(String call, String left = {}, std::int32_t reports = 1) {
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
    /// A statement that is tried again has left no effect. False where one makes several calls: the
    /// state is the same afterwards, but calls before the one that failed come twice.
    bool effectsOnce = true;
};
void PrintTo(const SweepRow& row, std::ostream* out);

/// Checks `row` undisturbed, and with the failure of each of its calls: once, for ever, and, where
/// it is reported, once with the answer to run the statement again.
void Sweep(const SweepRow& row);

}  // namespace ace::test
