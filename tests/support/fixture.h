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
    /// Every form that was shown has to be expected, and every answer to be used.
    ~HostTest() override { EXPECT_THAT(host->user.TakeComplaints(), ::testing::IsEmpty()); }

    /// The calls but the questions, in order; the journal is empty afterwards.
    std::vector<String> TakeEffects() {
        std::vector<String> lines = host->journal.Effects();
        host->journal.Clear();
        return lines;
    }

    std::shared_ptr<sim::SimHost> host = std::make_shared<sim::SimHost>();
    ThreadContext context{host};
};

/// An action of a kind with its record, or without one.
inline p_Action Action(p_ActionTypes kind, ActionParameter parameter = {}) {
    p_Action action;
    action.ActionType = kind;
    action.Parameter = std::move(parameter);
    return action;
}

/// Fills a list and its count.
inline void Fill(p_Subrange& lists, const ListFields& list, const std::vector<p_Action>& actions) {
    lists.*list.count = static_cast<std::int32_t>(actions.size());
    DynArray<p_Action>& array = lists.*list.actions;
    array.Erase();
    for (std::size_t i = 0; i < actions.size(); ++i) {
        array.RedimPreserve(static_cast<std::int32_t>(i));
        array[static_cast<std::int32_t>(i)] = actions[i];
    }
}

}  // namespace ace::test
