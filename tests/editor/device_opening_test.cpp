// What the pane of the device kinds shows when it opens, and what it stores untouched.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String NoDevice = L"T(9147)";
const String NoSettings = L"T(9148)";

/// The flags that are set, and the times in seconds: "Notify CommToTable, 10, 20".
String BoxesOf(const aceSetDevice& record) {
    const std::pair<StringView, Boolean> flags[] = {
        {L"StopTest ", record.StopTest},     {L"CommToTable ", record.CommToTable},
        {L"Notify ", record.Notify},         {L"LoadingPos ", record.LoadingPos},
        {L"UseTimeCyc ", record.UseTimeCyc}, {L"WaitState ", record.WaitState}};
    String text;
    for (const auto& [name, isSet] : flags) {
        text += isSet ? String(name) : String();
    }
    return text + std::to_wstring(static_cast<int>(record.WaitTime)) + L" " +
           std::to_wstring(static_cast<int>(record.CycleTime));
}

class DeviceOpening : public BenchDialog {
  protected:
    DeviceOpening() {
        AddMonitor(L"Camera");
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimSignalPath>(L"Path A");
        Section(7) = {L"Gain=3"};
    }
    /// A new action whose device is chosen from the menu and set up.
    void AddCamera(p_ActionTypes kind, Acts acts = {}) {
        AnswerMenu(L"Camera");
        AnswerSettings(L"Gain=5");
        acts.insert(acts.begin(), Press(L"imgDevice"));
        acts.push_back(PressOk);
        AddKind(kind, acts);
    }
    static p_Action Check() {
        p_Action action = OnDevice(
            atCheckEut, L"Camera",
            {&aceSetDevice::UseTimeCyc, &aceSetDevice::LoadingPos, &aceSetDevice::StopTest});
        auto& record = std::get<aceSetDevice>(action.Parameter);
        record.CycleTime = 33.0;
        record.WaitTime = 12.5F;
        return action;
    }
    /// A generator with a switched path and a signal path.
    static p_Action Generator(const String& path, const String& signalPath) {
        p_Action action = OnDevice(atSetDevice, L"Radio");
        auto& record = std::get<aceSetDevice>(action.Parameter);
        record.Path = path;
        record.SigPathName = signalPath;
        return action;
    }
};

// ---- new actions -------------------------------------------------------------------------------

TEST_F(DeviceOpening, ANewActionHasNoDeviceAndNoSettingsAndAsksTheHostNothing) {
    OpenTemplate();
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut}) {
        AddKind(kind, {See(L"lblDevice", NoDevice), See(L"lblDeviceSett", NoSettings),
                       SeeShown({L"imgDevice"}, {L"imgSwitchUnit"}), PressCancel});
        EXPECT_THAT(TakeCalls(), ElementsAre(DialogShown, DialogHidden));
    }
}

TEST_F(DeviceOpening, ANewCheckNotifiesAndEntersANoteThoughTheBoxOfTheNoteIsHidden) {
    OpenTemplate();
    AddCamera(atCheckEut, {SeeShown({L"chkNotify"}, {L"chkComment"})});
    EXPECT_EQ(BoxesOf(StoredDevice()), L"CommToTable Notify 10 20");
}

TEST_F(DeviceOpening, ANewMonitoringStopsTheTestAndEntersANoteThoughBothBoxesAreHidden) {
    Open(aceVKSTemplate);
    AddCamera(atMonitorEUT, {SeeShown({}, {L"chkStopTest", L"chkComment", L"chkNotify"})});
    const p_Action& stored = State().VKSTemplate.Enter[0];
    EXPECT_EQ(BoxesOf(std::get<aceSetDevice>(stored.Parameter)), L"StopTest CommToTable 10 20");
}

TEST_F(DeviceOpening, ANewSetDeviceStoresWhatALineWithoutTheseFieldsIsReadAs) {
    OpenTemplate();
    AddCamera(atSetDevice, {SeeShown({}, {L"chkNotify", L"chkWait", L"chkCycleTime"})});
    EXPECT_EQ(BoxesOf(StoredDevice()), L"UseTimeCyc 10 20");
}

TEST_F(DeviceOpening, WhatWasTickedAndTypedInADialogBeforeIsNotThatOfANewAction) {
    OpenTemplate({Check()}, true);
    EditLine({Tick(L"chkNotify", true), Tick(L"chkWait", true), Type(L"txtWaitTime", L"55"),
              Type(L"txtCycleTime", L"66"), PressCancel});
    AddCamera(atSetDevice);
    EXPECT_EQ(BoxesOf(StoredDevice(1)), L"UseTimeCyc 10 20");
    AddCamera(atCheckEut);
    EXPECT_EQ(BoxesOf(StoredDevice(2)), L"CommToTable Notify 10 20");
}

// ---- numbers of sections -----------------------------------------------------------------------

TEST_F(DeviceOpening, EachNewCheckTakesTheNextNumberWhenItsDialogOpensAlsoForACancelledOne) {
    OpenTemplate();
    AddKind(atCheckEut,
            {Do([this](Form&) { EXPECT_EQ(context.DeviceSectionCounter, 101); }), PressCancel});
    AddCamera(atCheckEut);
    EXPECT_EQ(StoredDevice().ChanNo, 102);
    EXPECT_EQ(context.DeviceSectionCounter, 102);
    EXPECT_THAT(Section(102), ElementsAre(L"Gain=5"));
}

TEST_F(DeviceOpening, ANewMonitoringTakesTheNextNumberToo) {
    Open(aceVKSTemplate);
    AddCamera(atMonitorEUT);
    EXPECT_EQ(std::get<aceSetDevice>(State().VKSTemplate.Enter[0].Parameter).ChanNo, 101);
    EXPECT_EQ(context.DeviceSectionCounter, 101);
}

TEST_F(DeviceOpening, ANewSetDeviceUsesASectionOfItsOwnUntilItIsInserted) {
    OpenTemplate();
    AddCamera(atSetDevice, {Do([this](Form&) { EXPECT_EQ(context.DeviceSectionCounter, 100); })});
    EXPECT_EQ(StoredDevice().ChanNo, 101);
    EXPECT_EQ(context.DeviceSectionCounter, 101);
    EXPECT_THAT(Section(0), ElementsAre(L"Gain=5"));
    EXPECT_THAT(Section(101), ElementsAre(L"Gain=5"));
}

TEST_F(DeviceOpening, ANewSetDeviceAfterADialogOfAnotherOneLeavesThatOnesSectionAlone) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine({PressCancel});
    AddCamera(atSetDevice);
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
    EXPECT_EQ(StoredDevice(0).ChanNo, 7);
    EXPECT_EQ(StoredDevice(1).ChanNo, 101);
}

TEST_F(DeviceOpening, AnExistingActionKeepsItsNumber) {
    OpenTemplate({Check()});
    EditLine({Tick(L"chkNotify", true), PressOk});
    EXPECT_EQ(StoredDevice().ChanNo, 7);
    EXPECT_EQ(context.DeviceSectionCounter, 100);
}

// ---- existing actions --------------------------------------------------------------------------

TEST_F(DeviceOpening, AnExistingActionLooksItsDeviceUpAndReadsItsSettings) {
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        OpenTemplate({OnDevice(kind, L"Camera")});
        EditLine({See(L"lblDevice", L"Camera"), See(L"lblDeviceSett", L"Gain=3"), PressCancel});
        EXPECT_EQ(TakeCalls(), Journal(Found(L"Camera"), Classed(L"Camera", 1), Opened(),
                                       SettingsRead(L"Camera", 7), DialogShown, DialogHidden));
    }
}

TEST_F(DeviceOpening, TheSettingsAreThoseOfTheModulesFile) {
    context.ModuleFileNames[1] = L"monitoring.ini";
    host->files[L"monitoring.ini"][SectionOf(7)] = {L"Zoom=2"};
    Fill(State().MoniEut, EnterList, {OnDevice(atSetDevice, L"Camera")});
    Open(aceMonitoring);
    AnswerMenu(L"Camera");
    AnswerSettings(L"Zoom=5");
    EditLine(
        {See(L"lblDeviceSett", L"Zoom=2"), PressMouse(L"imgDevice", MouseButtons::Right), PressOk});
    EXPECT_THAT(host->files[L"monitoring.ini"][SectionOf(7)], ElementsAre(L"Zoom=5"));
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
}

TEST_F(DeviceOpening, WithoutASettingsFileADeviceHasNoSettings) {
    host->missingFiles.insert(L"setup.ini");
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Camera");
    AnswerSettings(L"Gain=9");
    EditLine({See(L"lblDeviceSett", NoSettings), PressMouse(L"imgDevice", MouseButtons::Right),
              See(L"lblDeviceSett", L"Gain=9"), PressOk});
    EXPECT_TRUE(engine->Change());
    EXPECT_THAT(host->journal.LinesOf(L"SettingsFile"), IsEmpty());
}

TEST_F(DeviceOpening, SettingsThatAreEmptyReadAsNone) {
    for (const std::vector<String>& lines : {std::vector<String>{}, std::vector<String>{L""}}) {
        Section(7) = lines;
        OpenTemplate({OnDevice(atSetDevice, L"Camera")});
        EditLine({See(L"lblDeviceSett", NoSettings), PressCancel});
    }
}

TEST_F(DeviceOpening, TheSettingsOfAnyOtherClassAreAskedBehindTheDialogOfTheHost) {
    Add<sim::SimAmplifier>(L"Amplifier");
    OpenTemplate({OnDevice(atSetDevice, L"Amplifier")});
    EditLine({See(L"lblDevice", L"Amplifier"), See(L"lblDeviceSett", L"Gain=3"),
              SeeShown({L"imgDevice"}, {L"imgSwitchUnit"}), PressCancel});
    EXPECT_EQ(TakeCalls(),
              Journal(Found(L"Amplifier"), Classed(L"Amplifier", 4),
                      Called(L"DeviceSettingsStore.SetDevice", L"Amplifier", 1), Opened(),
                      SettingsRead(L"Amplifier", 7), DialogShown, DialogHidden));
}

TEST_F(DeviceOpening, AnExistingCheckShowsItsBoxesAndTimes) {
    OpenTemplate({Check()}, true);
    EditLine({See(L"txtWaitTime", L"12.50"), See(L"txtCycleTime", L"33.00"), Do([](Form& form) {
                  const auto isTicked = [&](StringView name) {
                      return static_cast<bool>(form.Find<CheckBox>(name)->ticked);
                  };
                  EXPECT_TRUE(isTicked(L"chkCycleTime") && isTicked(L"chkGotoLoadingPosition") &&
                              isTicked(L"chkStopTest"));
                  EXPECT_FALSE(isTicked(L"chkNotify") || isTicked(L"chkWait") ||
                               isTicked(L"chkComment"));
              }),
              PressCancel});
}

TEST_F(DeviceOpening, TimesShowWithTheSeparatorOfTheHost) {
    host->decimalSeparator = L',';
    OpenTemplate({Check()}, true);
    EditLine({See(L"txtWaitTime", L"12,50"), See(L"txtCycleTime", L"33,00"),
              Type(L"txtWaitTime", L"13,5"), PressOk});
    EXPECT_EQ(StoredDevice().WaitTime, 13.5F);
    EXPECT_EQ(StoredDevice().CycleTime, 33.0);
}

TEST_F(DeviceOpening, WithoutEmissionACheckKeepsWhatItsHiddenBoxesHold) {
    OpenTemplate({Check()});
    EditLine({SeeShown({}, {L"chkCycleTime", L"txtCycleTime", L"chkGotoLoadingPosition"}),
              Tick(L"chkNotify", true), PressOk});
    EXPECT_EQ(BoxesOf(StoredDevice()), L"StopTest Notify LoadingPos UseTimeCyc 12 33");
}

TEST_F(DeviceOpening, AnExistingActionThatIsConfirmedUntouchedIsNoChange) {
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        const p_Action action = OnDevice(kind, L"Camera", {&aceSetDevice::WaitState});
        OpenTemplate({action});
        EditLine({PressOk});
        EXPECT_FALSE(engine->Change());
        EXPECT_EQ(State().MainTest.Enter[0], action);
    }
}

}  // namespace
}  // namespace ace::test
