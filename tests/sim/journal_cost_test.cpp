#include <gtest/gtest.h>

#include "sim/sim_host.h"
#include "support/allocation_counter.h"

namespace ace::sim {
namespace {

/// A trace line, with texts that are too long for a short one.
void Trace(ITraceLog& log) {
    log.WriteLine(L"start", L"ZOLTA_ActionsEngine", L"aceActionsEngine (Code)", L"NewFrequency",
                  L"80000000 Hz, three actions", L"1");
}

TEST(JournalCost, ACallThatNobodyLooksAtIsNeitherKeptNorPutIntoWords) {
    SimHost host;
    const auto log = host.MakeTraceLog();
    host.journal.KeepNone();
    host.journal.Clear();
    std::size_t seen = 0;
    host.journal.Observe([&](const HostCall& call) { seen += call.isQuestion ? 0 : 1; });
    EXPECT_EQ(test::AllocationsOf([&] { Trace(*log); }), 0U);
    EXPECT_EQ(test::AllocationsOf([&] { log->IsEnabled(); }), 0U);
    EXPECT_EQ(seen, 1U);
    EXPECT_EQ(host.journal.Total(), 3U);
    EXPECT_TRUE(host.journal.Entries().empty());
}

}  // namespace
}  // namespace ace::sim
