#include "support/fixture.h"

namespace ace::test {

HostTest::HostTest() : host(std::make_shared<sim::SimHost>()), context(host) {}

HostTest::~HostTest() {
    EXPECT_THAT(host->user.TakeComplaints(), ::testing::IsEmpty());
}

std::vector<String> HostTest::TakeEffects() {
    std::vector<String> lines = host->journal.Effects();
    host->journal.Clear();
    return lines;
}

p_Action Action(p_ActionTypes kind, ActionParameter parameter) {
    p_Action action;
    action.ActionType = kind;
    action.Parameter = std::move(parameter);
    return action;
}

void Fill(p_Subrange& lists, const ListFields& list, const std::vector<p_Action>& actions) {
    lists.*list.count = static_cast<std::int32_t>(actions.size());
    DynArray<p_Action>& array = lists.*list.actions;
    array.Erase();
    for (std::size_t i = 0; i < actions.size(); ++i) {
        array.RedimPreserve(static_cast<std::int32_t>(i));
        array[static_cast<std::int32_t>(i)] = actions[i];
    }
}

}  // namespace ace::test
