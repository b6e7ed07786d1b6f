/// What a record brings along from elsewhere, and what a host changes in the arguments that it
/// gets.
#include <ace/execution/device_actions.h>
#include <ace/execution/dispatcher.h>
#include <ace/execution/signal_path.h>
#include <ace/execution/sync_generator.h>
#include <ace/execution/track_frequency.h>

#include "support/device_fixture.h"

namespace ace::test {
namespace {

class OtherObjects : public DeviceTest {};

// ---- objects of another device -----------------------------------------------------------------

TEST_F(OtherObjects, AmplifierOfAnotherDeviceIsReplacedByThatOfTheRecordsName) {
    const auto amplifier = Add<sim::SimAmplifier>(L"Amp");
    aceSetDevice record;
    record.DevName = L"Amp";
    record.AmpState = 3;
    record.AmplDev = Add<sim::SimAmplifier>(L"Other");
    EXPECT_FALSE(modActions::SwitchAmplifier(context, record));
    EXPECT_EQ(record.AmplDev, amplifier);
    EXPECT_EQ(amplifier->power, 3);
}

TEST_F(OtherObjects, SwitchUnitOfAnotherDeviceGoesWhereTheDeviceIsNone) {
    const auto other = Add<sim::SimSwitchUnit>(L"Other");
    Add<sim::SimMonitor>(L"EUT");
    aceSetDevice record;
    record.DevName = L"EUT";
    record.Path = L"A";
    record.SwitchDev = other;
    EXPECT_FALSE(modActions::SwitchUnitPath(context, record));
    EXPECT_EQ(record.SwitchDev, nullptr);
    EXPECT_EQ(other->current, L"");
}

TEST_F(OtherObjects, MonitorOfAnotherDeviceIsReplacedBeforeItIsRead) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    const auto other = Add<sim::SimMonitor>(L"Other");
    aceSetDevice record;
    record.DevName = L"EUT";
    record.ChanNo = 7;
    record.MoniDev = other;
    EXPECT_FALSE(modActions::SetCheckDevice(context, record, true, ignoreAll, aceTemplate));
    EXPECT_EQ(record.MoniDev, monitor);
    EXPECT_TRUE(monitor->channelsSet.contains(7));
    EXPECT_TRUE(other->channelsSet.empty());
}

TEST_F(OtherObjects, GeneratorOfAnotherDeviceIsReplacedBeforeItIsSet) {
    const auto generator = Add<sim::SimBcGenerator>(L"BC");
    aceSetDevice record;
    record.DevName = L"BC";
    record.BcGen = Add<sim::SimBcGenerator>(L"Other");
    EXPECT_FALSE(modActions::SetCheckDevice(context, record, true, ignoreAll, aceTemplate));
    EXPECT_EQ(record.BcGen, generator);
}

// ---- arguments that the host changes -----------------------------------------------------------

class EagerAmplifier final : public sim::SimAmplifier {
  public:
    using SimAmplifier::SimAmplifier;
    void SetState(IAmplifierState& wanted) override { wanted = 4; }
};

TEST_F(OtherObjects, StateThatTheAmplifierChangesIsTheOneThatIsPostedAndKept) {
    Add<EagerAmplifier>(L"Amp");
    aceSetDevice record;
    record.DevName = L"Amp";
    record.AmpState = 1;
    p_Action action = Action(atSwitchAmp, record);
    EXPECT_FALSE(modActions::DoAction(context, action, aceTemplate));
    EXPECT_THAT(TakeCalls(),
                ::testing::Contains(Called(L"DeviceList.PostEvent", L"ActionEngine", 4, L"4")));
    EXPECT_EQ(RecordOf<aceSetDevice>(action).AmpState, 4);
}

class RenamingUnit final : public sim::SimSwitchUnit {
  public:
    using SimSwitchUnit::SimSwitchUnit;
    void SwitchPath(String& path) override { path += L"!"; }
};

TEST_F(OtherObjects, PathThatTheUnitChangesIsKept) {
    Add<RenamingUnit>(L"Unit");
    aceSetDevice record;
    record.DevName = L"Unit";
    record.Path = L"A";
    EXPECT_FALSE(modActions::SwitchUnitPath(context, record));
    EXPECT_EQ(record.Path, L"A!");
}

class RoundingMonitor final : public sim::SimMonitor {
  public:
    using SimMonitor::SimMonitor;
    void SetFrequency(double& hertz) override { hertz = 100.0; }
};

TEST_F(OtherObjects, FrequencyThatTheMonitorChangesIsKept) {
    Add<RoundingMonitor>(L"EUT");
    aceTrackFreq record;
    record.MoniName = L"EUT";
    record.Freq = 101.0;
    EXPECT_FALSE(modActions::TrackMonitor(context, record, ignoreAll));
    EXPECT_EQ(record.Freq, 100.0);
}

class ShiftingPath final : public sim::SimSignalPath {
  public:
    using SimSignalPath::SimSignalPath;
    double GetCorrection(double& frequency, std::int32_t&) override {
        frequency += 1.0;
        return 2.0;
    }
};

TEST_F(OtherObjects, FrequencyThatTheSignalPathChangesIsKeptButTheGeneratorHasTheOldOne) {
    const auto generator = Add<sim::SimRfGenerator>(L"Gen");
    Add<ShiftingPath>(L"Path");
    Add<sim::SimCalTable>(L"Level")->levels = {{0.0, -30.0}};
    aceTrackFreq record;
    record.GenName = L"Gen";
    record.SigPathName = L"Path";
    record.TableName = L"Level";
    record.Freq = 80e6;
    EXPECT_FALSE(modActions::SyncGenerator(context, record, ignoreAll));
    EXPECT_EQ(record.Freq, 80e6 + 1.0);
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{80e6, -28.0, true}));
}

}  // namespace
}  // namespace ace::test
