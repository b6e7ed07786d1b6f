#include "sim/sim_devices.h"

#include "support/fixture.h"

namespace ace::test {
namespace {

using sim::SimCurve;
using sim::ValueOn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- curves ------------------------------------------------------------------------------------

TEST(SimCurves, AnEmptyCurveIs0) {
    EXPECT_EQ(ValueOn({}, 1e6), 0.0);
}

TEST(SimCurves, OneEntryHoldsEverywhere) {
    const SimCurve curve = {{1e6, 3.0}};
    for (const double frequency : {0.0, 1e6, 1e9}) {
        EXPECT_EQ(ValueOn(curve, frequency), 3.0);
    }
}

TEST(SimCurves, ValuesAreLinearBetweenTwoEntriesAndConstantBeyondTheEnds) {
    const SimCurve curve = {{100.0, -20.0}, {200.0, -10.0}, {400.0, 30.0}};
    const std::map<double, double> expected = {{0.0, -20.0},   {100.0, -20.0}, {125.0, -17.5},
                                               {200.0, -10.0}, {250.0, 0.0},   {350.0, 20.0},
                                               {400.0, 30.0},  {1e9, 30.0}};
    for (const auto& [frequency, value] : expected) {
        EXPECT_EQ(ValueOn(curve, frequency), value) << frequency;
    }
}

// ---- devices -----------------------------------------------------------------------------------

class SimDevicesTest : public HostTest {
  protected:
    template <class Kind>
    std::shared_ptr<Kind> Add(const String& name) {
        return host->bench.Add<Kind>(*host, name);
    }
};

TEST_F(SimDevicesTest, DevicesAreFoundByNameAndListedByClassInTheirOrder) {
    const auto second = Add<sim::SimReceiver>(L"B");
    Add<sim::SimMonitor>(L"M");
    Add<sim::SimReceiver>(L"A");
    IDeviceList& list = context.DeviceList();
    EXPECT_EQ(list.GetDevice(L"B"), second);
    EXPECT_EQ(list.GetDevice(L"b"), nullptr);
    EXPECT_EQ(list.GetDevice(L""), nullptr);
    EXPECT_THAT(list.DevicesOfClass(L"Receivers"),
                ElementsAre(DeviceRecord{}, DeviceRecord{L"B"}, DeviceRecord{L"A"}));
    EXPECT_THAT(list.DevicesOfClass(L"Amplifiers"), IsEmpty());
}

TEST_F(SimDevicesTest, EachClassHasItsKey) {
    const std::shared_ptr<IDevice> devices[] = {
        Add<sim::SimMonitor>(L"1"),     Add<sim::SimBcGenerator>(L"2"),
        Add<sim::SimRfGenerator>(L"3"), Add<sim::SimAmplifier>(L"4"),
        Add<sim::SimSwitchUnit>(L"5"),  Add<sim::SimReceiver>(L"6"),
        Add<sim::SimSignalPath>(L"7")};
    std::vector<String> keys;
    for (const auto& device : devices) {
        keys.push_back(context.DeviceList().ClassName(device->DeviceClass()));
    }
    EXPECT_THAT(keys, ElementsAre(L"Monitoring", L"BcGenerators", L"Generators", L"Amplifiers",
                                  L"SwitchUnits", L"Receivers", L"SignalPaths"));
    EXPECT_EQ(context.DeviceList().ClassName(99), L"");
}

TEST_F(SimDevicesTest, EveryCallIsALineWithTheDevicesNameFirst) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    EXPECT_EQ(monitor->Name(), L"EUT");
    EXPECT_EQ(monitor->State(), 1);
    monitor->SetChannel(7, 1);
    EXPECT_THAT(TakeEffects(), ElementsAre(L"Device.Name(\"EUT\")", L"Device.State(\"EUT\")",
                                           L"MonitorDevice.SetChannel(\"EUT\", 7, 1)"));
}

TEST_F(SimDevicesTest, AnActivationLeadsWhereTheScriptSays) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    monitor->state = 0;
    monitor->stateOnceActivated = 3;
    EXPECT_EQ(monitor->State(), 0);
    monitor->Activate(1);
    EXPECT_EQ(monitor->State(), 3);
}

TEST_F(SimDevicesTest, ACallThatFailsByScriptChangesNothing) {
    const auto amplifier = Add<sim::SimAmplifier>(L"Amp");
    host->faults.FailOperation(L"Amplifier.SetState", 1, 77);
    IAmplifierState operate = 3;
    EXPECT_EQ(ErrorOf([&] { amplifier->SetState(operate); }), 77);
    EXPECT_EQ(amplifier->power, 0);
    amplifier->SetState(operate);
    EXPECT_EQ(amplifier->power, 3);
}

// ---- settings ----------------------------------------------------------------------------------

TEST_F(SimDevicesTest, SettingsAreWrittenIntoASectionAndReadBack) {
    const auto from = Add<sim::SimMonitor>(L"A");
    const auto to = Add<sim::SimMonitor>(L"B");
    from->settings = {L"Gain=3", L"Range=10"};
    const auto file = context.SystemServices().OpenSettingsFile(20, 10, L"setup.ini", 0, 0);
    from->SaveSettings(*file, L"Actions101-Device");
    to->LoadSettings(file, L"Actions101-Device");
    EXPECT_EQ(to->settings, from->settings);
    EXPECT_TRUE(host->files[L"setup.ini"].empty());
    file->Release();
    EXPECT_EQ(host->files[L"setup.ini"][L"Actions101-Device"], from->settings);
}

TEST_F(SimDevicesTest, WhatIsConfirmedInASettingsDialogIsStoredInTheSectionAndReadFromThere) {
    const auto device = Add<sim::SimMonitor>(L"A");
    const auto file = context.SystemServices().OpenSettingsFile(20, 10, L"setup.ini", 0, 0);
    IDeviceSettingsStore& store = context.DeviceSettings();
    String text = L"Channel 1";
    host->user.ExpectSettings(L"Channel 2");
    store.SetDevice(L"A", 1);
    store.StoreIn(file, L"Actions101-Device");
    store.EditSettings(text);
    EXPECT_EQ(device->SettingsText(file, L"Actions101-Device"), L"Channel 2");
    device->LoadSettings(file, L"Actions101-Device");
    EXPECT_THAT(device->settings, ElementsAre(L"Channel 2"));
}

TEST_F(SimDevicesTest, ASettingsDialogThatIsCancelledOrToldNoSectionStoresNothing) {
    const auto file = context.SystemServices().OpenSettingsFile(20, 10, L"setup.ini", 0, 0);
    file->SetSection(L"S", String(L"Channel 1"));
    IDeviceSettingsStore& store = context.DeviceSettings();
    String text;
    host->user.ExpectSettings({});
    host->user.ExpectSettings(L"Channel 3");
    store.StoreIn(file, L"S");
    store.EditSettings(text);
    store.EditSettings(text);
    EXPECT_THAT(file->GetSection(L"S"), ElementsAre(L"Channel 1"));
    EXPECT_EQ(text, L"Channel 3");
}

TEST_F(SimDevicesTest, ADeviceWithoutSettingsEmptiesItsSection) {
    const auto device = Add<sim::SimMonitor>(L"A");
    host->files[L"setup.ini"][L"S"] = {L"Gain=3"};
    const auto file = context.SystemServices().OpenSettingsFile(20, 10, L"setup.ini", 0, 0);
    device->SaveSettings(*file, L"S");
    file->Release();
    EXPECT_THAT(host->files[L"setup.ini"][L"S"], IsEmpty());
}

TEST_F(SimDevicesTest, WithoutAFileOrASectionThereAreNoSettings) {
    const auto device = Add<sim::SimMonitor>(L"A");
    device->settings = {L"Gain=3"};
    device->LoadSettings(nullptr, L"S");
    EXPECT_THAT(device->settings, IsEmpty());
    device->settings = {L"Gain=3"};
    device->LoadSettings(context.SystemServices().OpenSettingsFile(20, 10, L"f", 0, 0), L"none");
    EXPECT_THAT(device->settings, IsEmpty());
}

TEST_F(SimDevicesTest, ABroadcastGeneratorWorksWithTheSettingsThatWereApplied) {
    const auto generator = Add<sim::SimBcGenerator>(L"Radio");
    generator->settings = {L"Station=1"};
    generator->Apply();
    generator->settings = {L"Station=2"};
    EXPECT_THAT(generator->applied, ElementsAre(L"Station=1"));
}

// ---- readings ----------------------------------------------------------------------------------

TEST_F(SimDevicesTest, ScriptedReadingsComeFirstChannelByChannel) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    monitor->readings[1] = {5.0, 12345.0};
    monitor->readings[2] = {7.0};
    EXPECT_EQ(monitor->ReadChannel(1), 5.0);
    EXPECT_EQ(monitor->ReadChannel(2), 7.0);
    EXPECT_EQ(monitor->ReadChannel(1), 12345.0);
    EXPECT_EQ(monitor->ReadChannel(1), 0.0);
    EXPECT_EQ(monitor->ReadChannel(3), 0.0);
}

TEST_F(SimDevicesTest, TheEquipmentFailsAt433MegahertzForThreeSecondsAndRecovers) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    monitor->failures = {{.channel = 1, .fromHz = 430e6, .toHz = 435e6, .milliseconds = 3000.0}};
    host->bench.frequency = 429.9e6;
    EXPECT_EQ(monitor->ReadChannel(1), 0.0);
    host->PassTime(60000.0);
    host->bench.frequency = 433e6;
    EXPECT_EQ(monitor->ReadChannel(2), 0.0) << "another channel";
    EXPECT_EQ(monitor->ReadChannel(1), 1.0);
    host->PassTime(2999.0);
    EXPECT_EQ(monitor->ReadChannel(1), 1.0);
    host->PassTime(1.0);
    EXPECT_EQ(monitor->ReadChannel(1), 0.0);
}

TEST_F(SimDevicesTest, BothEndsOfTheRangeFailAndAFailureEndsOutsideOfIt) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    monitor->failures = {
        {.channel = 1, .fromHz = 1e6, .toHz = 2e6, .milliseconds = 1e9, .reading = 2.5}};
    const std::map<double, double> expected = {
        {0.99e6, 0.0}, {1e6, 2.5}, {1.5e6, 2.5}, {2e6, 2.5}, {2.01e6, 0.0}};
    for (const auto& [frequency, reading] : expected) {
        host->bench.frequency = frequency;
        EXPECT_EQ(monitor->ReadChannel(1), reading) << frequency;
    }
}

// ---- refusals ----------------------------------------------------------------------------------

TEST_F(SimDevicesTest, AUseThatTheDeviceHasNotIsRefused) {
    const auto monitor = Add<sim::SimMonitor>(L"EUT");
    monitor->capabilities = 2 | 8;
    for (std::int32_t mode : {2, 4, 8}) {
        EXPECT_EQ(ErrorOf([&] { monitor->SetUseMode(mode); }), mode == 4 ? 5 : 0) << mode;
    }
}

TEST_F(SimDevicesTest, APathThatTheSwitchUnitHasNotIsRefusedAndOneWithoutPathsTakesAll) {
    const auto unit = Add<sim::SimSwitchUnit>(L"Unit");
    String wanted = L"Port 2";
    unit->SwitchPath(wanted);
    EXPECT_EQ(unit->current, L"Port 2");
    unit->paths = {L"Port 1", L"Port 3"};
    EXPECT_EQ(ErrorOf([&] { unit->SwitchPath(wanted); }), 5);
    wanted = L"Port 3";
    unit->SwitchPath(wanted);
    EXPECT_EQ(unit->current, L"Port 3");
}

// ---- generator, path, table --------------------------------------------------------------------

TEST_F(SimDevicesTest, WhatIsSetOnAGeneratorIsAtItsOutputWhenItIsExecuted) {
    using Output = sim::SimRfGenerator::Output;
    const auto generator = Add<sim::SimRfGenerator>(L"Gen");
    generator->SetFrequency(80e6);
    generator->SetLevel(-12.5);
    generator->SetRfOn(true);
    EXPECT_EQ(generator->output, Output{});
    generator->Execute();
    EXPECT_EQ(generator->output, (Output{80e6, -12.5, true}));
}

TEST_F(SimDevicesTest, TablesAndPathsGiveTheirValuesAtAFrequency) {
    const auto table = Add<sim::SimCalTable>(L"Levels");
    table->levels = {{1e6, 0.0}, {3e6, 10.0}};
    const auto path = Add<sim::SimSignalPath>(L"Cable");
    path->correction = {{1e6, 1.0}, {2e6, 2.0}};
    EXPECT_EQ(table->GetValue(2e6, 1, Value(2)), 5.0);
    double frequency = 1.5e6;
    std::int32_t kind = 1;
    EXPECT_EQ(path->GetCorrection(frequency, kind), 1.5);
    bool flag = false;
    EXPECT_EQ(context.SystemServices().GetTable(40, 10, L"Levels", 0, flag), table);
    EXPECT_EQ(context.SystemServices().GetTable(40, 10, L"Cable", 0, flag), nullptr);
}

TEST_F(SimDevicesTest, AReceiverRemembersItsParameters) {
    const auto receiver = Add<sim::SimReceiver>(L"Rx");
    EXPECT_EQ(receiver->SetParameter(18, L"On", true, 0, L""), 0);
    EXPECT_EQ(receiver->parameters[18], L"On");
}

// ---- the clock ---------------------------------------------------------------------------------

TEST_F(SimDevicesTest, TheClockBeginsAgainAtMidnight) {
    host->startOfDay = 86399.0;
    EXPECT_EQ(context.Platform().SecondsSinceMidnight(), 86399.0F);
    context.Utilities().Wait(1500.0F);
    EXPECT_EQ(context.Platform().SecondsSinceMidnight(), 0.5F);
}

}  // namespace
}  // namespace ace::test
