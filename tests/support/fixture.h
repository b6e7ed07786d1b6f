/// What most tests stand on: a simulated host, a context of its own, and short ways to build lists.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

#include <ace/core/action_lists.h>
#include <ace/core/thread_context.h>

#include "sim/sim_host.h"
#include "support/error_of.h"

namespace ace::test {

/// A context on a simulated host, fresh for every test.
class HostTest : public ::testing::Test {
  protected:
    HostTest();
    /// Every form that was shown has to be expected, and every answer to be used.
    ~HostTest() override;

    /// The calls but the questions, in order; the journal is empty afterwards.
    std::vector<String> TakeEffects();

    std::shared_ptr<sim::SimHost> host;
    ThreadContext context;
};

/// An action of a kind with its record, or without one.
p_Action Action(p_ActionTypes kind, ActionParameter parameter = {});

/// Fills a list and its count.
void Fill(p_Subrange& lists, const ListFields& list, const std::vector<p_Action>& actions);

/// The status line is cleared, as it stands in the journal.
inline const String StatusCleared = L"StatusDisplay.ShowStatus(\"\", false, false)";

}  // namespace ace::test
