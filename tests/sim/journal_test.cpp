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

/// Makes one of every service, each for itself.
void MakeEveryService(IHostFactory& factory) {
    factory.MakeTraceLog();
    factory.MakeLanguage();
    factory.MakeUtilities();
    factory.MakeSystemServices();
    factory.MakeDeviceList();
    factory.MakeDeviceSettingsStore();
    factory.MakeGpibDriver();
    factory.MakeStatusDisplay();
    factory.MakePlatform();
    factory.MakeSerialPort();
    factory.MakeFormHost();
    factory.MakeUserDialogs();
    factory.MakeApiMacro();
}

TEST(JournalTest, MakingAServiceIsALineWhateverService) {
    SimHost host;
    MakeEveryService(host);
    EXPECT_EQ(
        host.journal.Lines(),
        (std::vector<String>{
            L"Factory.MakeTraceLog()", L"Factory.MakeLanguage()", L"Factory.MakeUtilities()",
            L"Factory.MakeSystemServices()", L"Factory.MakeDeviceList()",
            L"Factory.MakeDeviceSettingsStore()", L"Factory.MakeGpibDriver()",
            L"Factory.MakeStatusDisplay()", L"Factory.MakePlatform()", L"Factory.MakeSerialPort()",
            L"Factory.MakeFormHost()", L"Factory.MakeUserDialogs()", L"Factory.MakeApiMacro()"}));
    EXPECT_EQ(host.journal.Effects(), std::vector<String>());
}

TEST(JournalTest, MakingAServiceMayBeToldToFailWhateverService) {
    for (std::size_t k = 1; k <= 13; ++k) {
        SimHost host;
        host.faults.FailCall(k, 4242);
        EXPECT_THROW(MakeEveryService(host), RunTimeError) << k;
        EXPECT_EQ(host.journal.Total(), k);
    }
}

}  // namespace
}  // namespace ace::sim
