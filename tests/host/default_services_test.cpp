#include <gtest/gtest.h>

#include <ace/host.h>

namespace ace {
namespace {

/// What a host has that overrides nothing.
struct SilentHost : IHostFactory {};

TEST(DefaultServices, EachServiceIsThereWithoutBeingMadeByTheHost) {
    SilentHost host;
    EXPECT_FALSE(host.MakeTraceLog()->IsEnabled());
    host.MakeTraceLog()->WriteLine(L"start", L"", L"", L"LoadActions", L"", L"1");
    host.MakeGpibDriver()->WriteString(1, L"*RST");
    host.MakeSerialPort()->Output(L"*RST");
    EXPECT_EQ(host.MakeUtilities()->Wait(1000.0F), 0);
    EXPECT_EQ(host.MakePlatform()->SecondsSinceMidnight(), 0.0F);
    EXPECT_EQ(host.MakeUserDialogs()->OpenFile({}), std::nullopt);
    EXPECT_FALSE(host.MakeSerialPort()->PortOpen());
    String text = L"short text";
    const auto store = host.MakeDeviceSettingsStore();
    store->StoreIn(nullptr, L"Section");
    store->SetDevice(L"Amplifier", 3);
    store->EditSettings(text);
    EXPECT_EQ(text, L"short text");
}

TEST(DefaultServices, ABoxIsAnsweredWithYesOrWithItsOneButton) {
    DefaultUserDialogs dialogs;
    EXPECT_EQ(dialogs.ShowMessageBox(L"Go on?", IUserDialogs::YesNo | IUserDialogs::Question, L""),
              IUserDialogs::AnswerYes);
    EXPECT_EQ(dialogs.ShowMessageBox(L"Done", IUserDialogs::Information, L""),
              IUserDialogs::AnswerOk);
    dialogs.SetBusyPointer(true);
    EXPECT_EQ(dialogs.ShowPopupMenu({}), std::nullopt);
}

TEST(DefaultServices, ASettingsFileIsEmptyAndForgetsWhatIsWritten) {
    DefaultSettingsFile file;
    file.SetString(L"Section", L"Key", L"written");
    file.SetLong(L"Section", L"Number", 8);
    file.SetDouble(L"Section", L"Real", 8.5);
    file.SetBoolean(L"Section", L"Truth", true);
    file.SetSection(L"Section", String(L"Key=written"));
    EXPECT_EQ(file.GetString(L"Section", L"Key", L"by default"), L"by default");
    EXPECT_EQ(file.GetLong(L"Section", L"Number", 7), 7);
    EXPECT_EQ(file.GetDouble(L"Section", L"Real", 2.5), 2.5);
    EXPECT_FALSE(file.GetBoolean(L"Section", L"Truth", false));
    EXPECT_TRUE(file.GetSection(L"Section").empty());
    file.Release();
}

TEST(DefaultServices, TheSystemHasNoFileTableOrMessageButEmptySettings) {
    DefaultSystemServices system;
    system.SetProgressText(L"30.0 s");
    system.WriteMacroSync(1, 14, L"kept");
    EXPECT_EQ(system.ReadMacroSync(1), L"");
    EXPECT_FALSE(system.FileIsUsable(L"door.wav", true, false));
    bool isThere = false;
    EXPECT_EQ(system.GetTable({}, 0, L"table", {}, isThere), nullptr);
    EXPECT_TRUE(system.GetGlobalSettings()->GetSection(L"Section").empty());
}

TEST(DefaultServices, ADeviceStaysNamelessAndInactive) {
    DefaultDevice device;
    device.Activate(1);
    device.LoadSettings(nullptr, L"Section");
    device.ReadSettings(20, nullptr, L"Section");
    EXPECT_EQ(device.State(), IDevice::NotActive);
    EXPECT_EQ(device.Name(), L"");
    EXPECT_EQ(device.DeviceClass(), 0);
    EXPECT_EQ(device.SettingsText(nullptr, L"Section"), L"");
    EXPECT_TRUE(DefaultSwitchUnit().Paths().empty());
}

TEST(DefaultServices, ADeviceOfAKindHasAnInactiveOneBehindItAndTakesEverything) {
    DefaultMonitorDevice monitor;
    DefaultReceiver receiver;
    DefaultRfGenerator generator;
    double frequency = 30e6;
    monitor.SetFrequency(frequency);
    generator.SetFrequency(frequency);
    EXPECT_EQ(frequency, 30e6);
    EXPECT_EQ(monitor.Capabilities(),
              IMonitorDevice::UseToSet | IMonitorDevice::UseToCheck | IMonitorDevice::UseToTrack);
    EXPECT_EQ(monitor.CommonDevice()->State(), IDevice::NotActive);
    EXPECT_EQ(receiver.CommonDevice()->State(), IDevice::NotActive);
    EXPECT_EQ(generator.CommonDevice()->State(), IDevice::NotActive);
}

TEST(DefaultServices, AMacroCanBeNeitherLoadedNorRun) {
    DefaultApiMacro macro;
    String text;
    String errorText;
    Value value;
    EXPECT_FALSE(macro.Load(L"macro.mac", {}, {}, value));
    EXPECT_FALSE(macro.Execute(text, errorText, value));
    EXPECT_FALSE(macro.GetResult());
    EXPECT_EQ(macro.ParameterCount(), 0);
    std::int32_t index = 1;
    macro.ParameterInfo(index);
    EXPECT_EQ(index, 1);
    macro.Abort();
    macro.WaitFinished();
}

TEST(DefaultServices, NoSocketIsEverOpen) {
    DefaultDeviceList devices;
    EXPECT_EQ(devices.SendSocket(1, L"*RST"), 0);
    EXPECT_EQ(devices.CloseSocket(1), 0);
    EXPECT_FALSE(devices.SocketIsOpen(1));
    EXPECT_EQ(devices.ClassName(1), L"");
    EXPECT_TRUE(devices.DevicesOfClass(L"Generators").empty());
}

TEST(RunTimeErrors, AHandlerThatKnowsOnlyExceptionsReadsTheNumber) {
    EXPECT_STREQ(RunTimeError(13, L"type mismatch").what(), "run-time error 13");
}

TEST(RunTimeErrors, ANumberThatTheEngineNeverRaisesStandsWithoutAText) {
    EXPECT_EQ(StandingError(Errors::Overflow).Description(), L"overflow");
    EXPECT_EQ(StandingError(4242).Number(), 4242);
    EXPECT_EQ(StandingError(4242).Description(), L"");
}

}  // namespace
}  // namespace ace
