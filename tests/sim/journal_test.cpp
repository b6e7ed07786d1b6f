#include "sim/journal.h"

#include <gtest/gtest.h>
#include <vector>

#include <ace/core/text.h>

#include "sim/sim_host.h"

namespace ace::sim {
namespace {

TEST(JournalTest, AnObserverSeesTheArgumentsOfACallThatIsNotKept) {
    SimHost host;
    const auto display = host.MakeStatusDisplay();
    host.journal.KeepNone();
    std::vector<String> seen;
    host.journal.Observe([&](const HostCall& call) {
        seen = {JournalEntry(call).Line(), PlainText(call.arguments.front())};
    });
    display->ShowStatus(L"a \"b\"", true, false);
    EXPECT_EQ(seen, (std::vector<String>{L"StatusDisplay.ShowStatus(\"a \"b\"\", true, false)",
                                         L"a \"b\""}));
}

TEST(JournalTest, EveryKindOfArgumentHasItsWords) {
    DynArray<String> texts;
    texts.Redim(0, 1);
    texts[0] = L"a";
    const Value list = texts;
    const Value none;
    const Value number = 2.5;
    const std::vector<Value> values = {number, String(L"b")};
    EXPECT_EQ(ArgumentText(CallText(true, Boolean(false), std::int16_t{-3}, 7, 0.25)),
              L"true, false, -3, 7, 0.25");
    EXPECT_EQ(ArgumentText(CallText(L"x\r\n\t\x01", String(L"y"), StringView(L"z"), Words{L"w"})),
              L"\"x\\r\\n\\t\\x1;\", \"y\", \"z\", w");
    EXPECT_EQ(ArgumentText(CallText(list, none, number, std::span<const Value>(values))),
              L"[\"a\", \"\"], nothing, 2.5, [2.5, \"b\"]");
    EXPECT_EQ(ArgumentText(CallArguments()), L"");
}

TEST(JournalTest, ABoundedJournalForgetsTheOldestEntries) {
    SimHost host;
    host.journal.Bound(2);
    for (const std::int32_t number : {1, 2, 3}) {
        host.MakeStatusDisplay()->ShowStatus(IntegerText(number), false, false);
    }
    EXPECT_EQ(host.journal.Lines(),
              (std::vector<String>{L"Factory.MakeStatusDisplay()",
                                   L"StatusDisplay.ShowStatus(\"3\", false, false)"}));
    EXPECT_EQ(host.journal.Total(), 6U);
}

}  // namespace
}  // namespace ace::sim
