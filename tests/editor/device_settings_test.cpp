// The settings of the device that is chosen: the host's dialog, and what counts as a change.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeviceSettings : public BenchDialog {
  protected:
    DeviceSettings() {
        AddMonitor(L"Camera");
        AddMonitor(L"Probe");
        Add<sim::SimBcGenerator>(L"Radio");
        Section(7) = {L"Gain=3"};
    }
    /// The calls between the mark and the end of a dialog that was cancelled.
    Lines TakeSettingsCalls() {
        Lines calls = TakeCalls();
        EXPECT_EQ(calls.empty() ? String() : calls.back(), DialogHidden);
        calls.resize(calls.empty() ? 0 : calls.size() - 1);
        return calls;
    }
    /// The host's dialog begins with this text, and the file is kept open for it, if there is one.
    static Lines Edited(const String& name, const String& text, bool hasFile = true) {
        return {Called(L"DeviceSettingsStore.SetDevice", name, 1),
                Called(L"DeviceSettingsStore.StoreIn", hasFile, SectionOf(7)),
                Called(L"DeviceSettingsStore.EditSettings", text)};
    }
    /// The same device is chosen and set up, which is a change; its settings are opened once more,
    /// where that call fails; then OK.
    void OkAfterAChangeAndAnErrorOf(const String& call) {
        OpenTemplate({OnDevice(atSetDevice, L"Camera")});
        AnswerMenu(L"Camera");
        AnswerSettings(L"Gain=4");
        const auto fails = [this, call](Form&) {
            EXPECT_TRUE(Parts().DeviceSettingsChanged);
            host->journal.Clear();
            host->faults.FailOperation(call, 1, 57);
        };
        EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDeviceSett", L"Gain=4"),
                  Do(fails), Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=4"), PressOk});
        EXPECT_EQ(host->journal.LinesOf(call).size(), 1U);
        EXPECT_THAT(host->journal.LinesOf(L"DeviceSettingsStore"), IsEmpty());
    }
    static inline const String Released = L"SettingsFile.Release()";
};

TEST_F(DeviceSettings, AMonitoringDeviceIsToldItsUseAndItsSettingsAreReadBeforeTheDialog) {
    for (const auto& [kind, use] : std::initializer_list<std::pair<p_ActionTypes, std::int32_t>>{
             {atSetDevice, 2}, {atCheckEut, 4}, {atMonitorEUT, 4}}) {
        OpenTemplate({OnDevice(kind, L"Camera")});
        CancelSettings();
        EditLine(
            {ForgetCalls(), Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=3"), PressCancel});
        EXPECT_EQ(TakeSettingsCalls(),
                  Journal(Opened(), Classed(L"Camera", 1), UsedFor(L"Camera", use),
                          SettingsRead(L"Camera", 7), Edited(L"Camera", L"Gain=3"), Released));
    }
}

TEST_F(DeviceSettings, AGeneratorIsToldNoUse) {
    OpenTemplate({OnDevice(atSetDevice, L"Radio")});
    CancelSettings();
    EditLine({ForgetCalls(), Press(L"imgDevice"), PressCancel});
    EXPECT_EQ(TakeSettingsCalls(),
              Journal(Opened(), Classed(L"Radio", 2), SettingsRead(L"Radio", 7),
                      Edited(L"Radio", L"Gain=3"), Released));
}

TEST_F(DeviceSettings, TheLeftButtonOpensTheSettingsOfAChosenDeviceAndNoMenu) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerSettings(L"Gain=4");
    EditLine(
        {PressMouse(L"imgDevice", MouseButtons::Left), See(L"lblDeviceSett", L"Gain=4"), PressOk});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), IsEmpty());
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=4"));
}

TEST_F(DeviceSettings, TheSettingsOfAChosenDeviceAreReadAnewAndWhatIsEmptyReadsAsNone) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    CancelSettings();
    EditLine({Do([this](Form&) { Section(7).clear(); }), ForgetCalls(), Press(L"imgDevice"),
              See(L"lblDeviceSett", L"T(9148)"), PressCancel});
    EXPECT_EQ(TakeSettingsCalls(),
              Journal(Opened(), Classed(L"Camera", 1), UsedFor(L"Camera", 2),
                      SettingsRead(L"Camera", 7), Edited(L"Camera", L"T(9148)"), Released));
}

TEST_F(DeviceSettings, WithoutASettingsFileTheHostsDialogBeginsWithoutSettingsAndItsOutcomeShows) {
    host->missingFiles.insert(L"setup.ini");
    const String camera = L"Camera";
    OpenTemplate({OnDevice(atSetDevice, camera)});
    AnswerSettings(L"Gain=4");
    EditLine({ForgetCalls(), Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=4"),
              Do([this](Form&) { EXPECT_TRUE(Parts().DeviceSettingsChanged); }), PressCancel});
    EXPECT_EQ(TakeSettingsCalls(),
              Journal(Opened(), Classed(camera, 1), UsedFor(camera, 2),
                      Called(L"Device.ReadSettings", camera, 2, false, SectionOf(7)),
                      Called(L"Device.SettingsText", camera, false, SectionOf(7)),
                      Edited(camera, L"T(9148)", false)));
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
}

// ---- what counts as a change -------------------------------------------------------------------

TEST_F(DeviceSettings, SettingsWithAnotherTextAreAChangeOfTheAction) {
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        Section(7) = {L"Gain=3"};
        OpenTemplate({OnDevice(kind, L"Camera")});
        engine->Change(false);
        AnswerSettings(L"Gain=4");
        EditLine({Press(L"imgDevice"), PressOk});
        EXPECT_TRUE(engine->Change()) << kind;
    }
}

TEST_F(DeviceSettings, SettingsWithTheSameTextAreNone) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerSettings(L"Gain=3");
    EditLine({Press(L"imgDevice"), PressOk});
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceSettings, ASecondDialogThatChangesNothingForgetsTheChangeOfTheFirst) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerSettings(L"Gain=4");
    CancelSettings();
    EditLine({Press(L"imgDevice"), Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=4"), PressOk});
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceSettings, TheSameDeviceThatIsChosenAndThenSetUpIsForgottenAsAChange) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Camera");
    AnswerSettings(L"Gain=4");
    CancelSettings();
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDeviceSett", L"Gain=4"),
              Press(L"imgDevice"), PressOk});
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceSettings, AnotherDeviceStaysAChangeBehindASecondDialogForItsNameDiffers) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Probe");
    AnswerSettings(L"Gain=4");
    CancelSettings();
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), Press(L"imgDevice"), PressOk});
    EXPECT_TRUE(engine->Change());
    EXPECT_EQ(StoredDevice().DevName, L"Probe");
}

TEST_F(DeviceSettings, SettingsThatReadAsNoneInsteadOfAsNewAreAChange) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Camera");
    CancelSettings();
    CancelSettings();
    AnswerBox(L"T(9208)");
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDeviceSett", L"T(12041)"),
              Press(L"imgDevice"), See(L"lblDeviceSett", L"T(9148)"),
              Do([this](Form&) { EXPECT_TRUE(Parts().DeviceSettingsChanged); }), PressOk,
              PressCancel});
}

TEST_F(DeviceSettings, SettingsThatOthersHaveChangedMeanwhileAreAChange) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    CancelSettings();
    EditLine({Do([this](Form&) { Section(7) = {L"Gain=9"}; }), Press(L"imgDevice"),
              See(L"lblDeviceSett", L"Gain=9"), PressOk});
    EXPECT_TRUE(engine->Change());
}

// ---- errors ------------------------------------------------------------------------------------

TEST_F(DeviceSettings, AnErrorOfTheHostEndsTheSettingsQuietly) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    for (const StringView call :
         {L"Device.DeviceClass", L"DeviceList.ClassName", L"MonitorDevice.SetUseMode",
          L"Device.ReadSettings", L"Device.SettingsText", L"DeviceSettingsStore.SetDevice",
          L"DeviceSettingsStore.EditSettings"}) {
        EditLine({Do([&](Form&) { host->faults.FailOperation(call, 1, 57); }), ForgetCalls(),
                  Press(L"imgDevice"), See(L"lblDevice", L"Camera"), PressCancel});
        host->faults.Clear();
        EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), IsEmpty())
            << testing::PrintToString(call);
        EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), IsEmpty());
    }
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
}

TEST_F(DeviceSettings, AnErrorWhileTheSettingsAreReadForgetsTheChangeBeforeIt) {
    OkAfterAChangeAndAnErrorOf(L"Device.ReadSettings");
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceSettings, AnErrorBeforeTheSettingsAreReadKeepsTheChangeBeforeIt) {
    OkAfterAChangeAndAnErrorOf(L"MonitorDevice.SetUseMode");
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeviceSettings, ADeviceThatCannotBeUsedSoEndsTheSettingsQuietly) {
    AddMonitor(L"Tracker", 8);
    OpenTemplate({OnDevice(atCheckEut, L"Tracker")});
    EditLine({ForgetCalls(), Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=3"), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"DeviceSettingsStore"), IsEmpty());
}

}  // namespace
}  // namespace ace::test
