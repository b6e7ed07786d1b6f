// What the dialog of the device kinds refuses, and what it takes over.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class DeviceEntry : public BenchDialog {
  protected:
    DeviceEntry() {
        AddMonitor(L"Camera");
        Add<sim::SimBcGenerator>(L"Radio");
        Section(7) = {L"Gain=3"};
    }
    /// A refused entry leaves the dialog open, and nothing in the list.
    void ExpectRefused(p_ActionTypes kind, const String& text) {
        AnswerBox(text);
        AddKind(kind, {PressOk, SeeFocus(L"cmdOK"), PressCancel});
        EXPECT_EQ(TakeCalls(), Journal(DialogShown, EntryTaken,
                                       EntryRefused(text, IUserDialogs::Critical), DialogHidden));
        EXPECT_EQ(State().MainTest.EnterCount, 0);
        EXPECT_FALSE(engine->Change());
    }
};

TEST_F(DeviceEntry, NoneOfTheDeviceKindsIsTakenWithoutADevice) {
    OpenTemplate();
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atSwitchAmp, atSwitchUnit}) {
        ExpectRefused(kind, L"T(9205)");
    }
    Open(aceVKSTemplate);
    ExpectRefused(atMonitorEUT, L"T(9205)");
    EXPECT_EQ(State().VKSTemplate.EnterCount, 0);
}

TEST_F(DeviceEntry, ADeviceWithoutSettingsIsNotTaken) {
    Section(7).clear();
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        OpenTemplate({OnDevice(kind, L"Camera")});
        AnswerBox(L"T(9208)");
        EditLine({ForgetCalls(), PressOk, PressCancel});
        EXPECT_THAT(TakeCalls(),
                    ElementsAre(EntryTaken, EntryRefused(L"T(9208)", IUserDialogs::Critical),
                                DialogHidden));
        EXPECT_EQ(State().MainTest.Enter[0], OnDevice(kind, L"Camera"));
        EXPECT_FALSE(engine->Change());
    }
}

TEST_F(DeviceEntry, MissingSettingsAreToldBeforeANumberThatNoRecordHolds) {
    Section(7).clear();
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    AnswerBox(L"T(9201)");  // where the box is left
    AnswerBox(L"T(9208)");
    EditLine({Type(L"txtWaitTime", L"1" + String(40, L'0')), PressOk, PressCancel});
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceEntry, ADeviceWhoseNewSettingsWereNotConfirmedIsTaken) {
    OpenTemplate();
    AnswerMenu(L"Camera");
    CancelSettings();
    AddKind(atSetDevice, {Press(L"imgDevice"), PressOk});
    EXPECT_EQ(StoredDevice().DevName, L"Camera");
}

TEST_F(DeviceEntry, ARefusedEntryIsTakenOnceADeviceIsChosen) {
    OpenTemplate();
    AnswerBox(L"T(9205)");
    AnswerMenu(L"Camera");
    AnswerSettings(L"Gain=5");
    AddKind(atCheckEut, {PressOk, Press(L"imgDevice"), PressOk});
    EXPECT_EQ(StoredDevice().DevName, L"Camera");
    EXPECT_EQ(LinesBelow(L"ETE"), Lines{L"T(9065): Camera"});
}

TEST_F(DeviceEntry, EachBoxOfACheckIsTakenOver) {
    using Flag = Boolean aceSetDevice::*;
    const std::pair<String, Flag> boxes[] = {
        {L"chkNotify", &aceSetDevice::Notify},
        {L"chkStopTest", &aceSetDevice::StopTest},
        {L"chkWait", &aceSetDevice::WaitState},
        {L"chkCycleTime", &aceSetDevice::UseTimeCyc},
        {L"chkGotoLoadingPosition", &aceSetDevice::LoadingPos}};
    for (const auto& [box, flag] : boxes) {
        OpenTemplate({OnDevice(atCheckEut, L"Camera")}, true);
        EditLine({Tick(box, true), PressOk});
        p_Action expected = OnDevice(atCheckEut, L"Camera", {flag});
        auto& record = std::get<aceSetDevice>(expected.Parameter);
        ForgetDevices(record);
        aceSetDevice stored = StoredDevice();
        ForgetDevices(stored);
        EXPECT_EQ(stored, record) << testing::PrintToString(box);
        EXPECT_TRUE(engine->Change());
        EditLine({Tick(box, false), PressOk});
        EXPECT_FALSE(StoredDevice().*flag);
    }
}

TEST_F(DeviceEntry, TimesOfACheckAreTakenInSecondsWithPointOrComma) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")}, true);
    EditLine({Type(L"txtWaitTime", L"2.5"), Type(L"txtCycleTime", L"0,25"), PressOk});
    EXPECT_EQ(StoredDevice().WaitTime, 2.5F);
    EXPECT_EQ(StoredDevice().CycleTime, 0.25);
}

TEST_F(DeviceEntry, TimesWhoseDigitsDoNotAllShowAreNoChangeWhileNobodyTypes) {
    p_Action action = OnDevice(atCheckEut, L"Camera");
    std::get<aceSetDevice>(action.Parameter).CycleTime = 1.0 / 3.0;
    std::get<aceSetDevice>(action.Parameter).WaitTime = 1.0F / 3.0F;
    OpenTemplate({action}, true);
    EditLine({See(L"txtCycleTime", L"0.33"), PressOk});
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(StoredDevice().CycleTime, 1.0 / 3.0);
}

TEST_F(DeviceEntry, ASetDeviceTakesOverNoMoreThanItsDeviceAndItsSettings) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera", {&aceSetDevice::Notify})});
    AnswerSettings(L"Gain=4");
    EditLine({Press(L"imgDevice"), PressOk});
    EXPECT_TRUE(StoredDevice().Notify);
    EXPECT_EQ(StoredDevice().ChanNo, 7);
    EXPECT_EQ(StoredDevice().Path, L"");
}

TEST_F(DeviceEntry, TheLineInTheTreeShowsTheDeviceThatWasTaken) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Radio");
    AnswerSettings(L"Band=1");
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), PressOk});
    EXPECT_EQ(LinesBelow(L"ETE"), Lines{L"T(9061): Radio"});
}

}  // namespace
}  // namespace ace::test
