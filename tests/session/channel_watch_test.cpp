#include "workbench/session/channel_watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/session_fixture.h"
#include "support/fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ChannelWatchTest : public ace::test::HostTest {
  protected:
    ChannelWatchTest() : monitor(host->bench.Add<sim::SimMonitor>(*host, L"EUT")) {}

    std::vector<String> Changes(std::vector<WatchedChannel>& channels) {
        std::vector<String> words;
        for (const Moment& moment : ChannelChanges(channels, host->bench)) {
            words.push_back(MomentWords(moment));
        }
        return words;
    }

    std::shared_ptr<sim::SimMonitor> monitor;
};

TEST_F(ChannelWatchTest, ReadingsAgainstLimitsAreTriggerNoGoAndGo) {
    std::vector<WatchedChannel> channels = {{2, L"Speed", {L"EUT", 7, 1.0, 2.0}, false, false}};
    monitor->readings[7] = {0.0, 1.0, 1.5, 2.5, 1.5, 0.5, 3.0, 3.0};
    EXPECT_THAT(Changes(channels), IsEmpty());
    EXPECT_THAT(Changes(channels), IsEmpty()) << "at the limit is not above it";
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 2 triggers"));
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 2 no-go"));
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 2 go"));
    EXPECT_THAT(Changes(channels), IsEmpty());
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 2 triggers", L"channel 2 no-go"));
    EXPECT_THAT(Changes(channels), IsEmpty());
}

TEST_F(ChannelWatchTest, LimitThatIsNotGivenIsNeverPassed) {
    std::vector<WatchedChannel> channels = {
        {1, L"A", {L"EUT", 1, std::nullopt, 5.0}, false, false}};
    monitor->readings[1] = {100.0};
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 1 no-go"));
}

TEST_F(ChannelWatchTest, FailedReadLeavesTheChannelAsItIs) {
    std::vector<WatchedChannel> channels = {{1, L"A", {L"EUT", 1, 1.0, 1.0}, false, false}};
    monitor->readings[1] = {12345.0, 2.0, 12345.0, 0.0};
    EXPECT_THAT(Changes(channels), IsEmpty());
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 1 triggers", L"channel 1 no-go"));
    EXPECT_THAT(Changes(channels), IsEmpty());
    EXPECT_THAT(Changes(channels), ElementsAre(L"channel 1 go"));
}

TEST_F(ChannelWatchTest, OnlyMonitoringDevicesCanWatch) {
    host->bench.Add<sim::SimAmplifier>(*host, L"Amp");
    EXPECT_TRUE(IsMonitor(host->bench, L"EUT"));
    EXPECT_FALSE(IsMonitor(host->bench, L"Amp"));
    EXPECT_FALSE(IsMonitor(host->bench, L"nobody"));
}

class ChannelSetUpTest : public ::testing::Test {
  protected:
    static std::string File(const std::string& channel) {
        return "[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Channel1]\n" + channel;
    }
};

TEST_F(ChannelSetUpTest, ChannelIsWatchedByTheDeviceOfTheFile) {
    const TestSetUp setUp =
        SetUpOf(File("Name=Speed\nDevice=EUT\nDeviceChannel=7\nTriggerAbove=1\nNoGoAbove=2.5\n"));
    const std::vector<WatchedChannel> channels = WatchedChannels(setUp);
    ASSERT_EQ(channels.size(), 1U);
    EXPECT_EQ(channels[0].number, 1);
    EXPECT_EQ(channels[0].name, L"Speed");
    EXPECT_EQ(channels[0].watch.device, L"EUT");
    EXPECT_EQ(channels[0].watch.channel, 7);
    EXPECT_EQ(channels[0].watch.triggerAbove, 1.0);
    EXPECT_EQ(channels[0].watch.noGoAbove, 2.5);
}

TEST_F(ChannelSetUpTest, ChannelWithoutADeviceIsNotWatched) {
    EXPECT_THAT(WatchedChannels(SetUpOf(File("Trigger=1\n"))), IsEmpty());
}

TEST_F(ChannelSetUpTest, LimitsAndDeviceNeedEachOther) {
    EXPECT_THAT(RefusalOf([] { SetUpOf(File("NoGoAbove=1\n")); }),
                HasSubstr(":5: [Workbench.Channel1] NoGoAbove: a limit needs Device=, the "
                          "monitoring device that is read"));
    EXPECT_THAT(RefusalOf([] { SetUpOf(File("Device=EUT\n")); }),
                HasSubstr(":5: [Workbench.Channel1] Device: a device needs a limit, TriggerAbove= "
                          "or NoGoAbove="));
}

}  // namespace
}  // namespace ace::workbench
