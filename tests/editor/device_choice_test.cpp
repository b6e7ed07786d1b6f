// What the choice of a device from its menu does to the pane, the record and the settings file.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String NewSettings = L"T(12041)";

class DeviceChoice : public BenchDialog {
  protected:
    DeviceChoice() {
        AddMonitor(L"Camera");
        AddMonitor(L"Probe");
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimBcGenerator>(L"Jammer");
        Add<sim::SimSignalPath>(L"Path A");
        Add<sim::SimSignalPath>(L"Path B");
        Section(7) = {L"Gain=3", L"Mode=on"};
    }
    const aceSetDevice& Held() { return Parts().held.Records.SetDevice; }
    static p_Action Radio(const String& path = {}, const String& signalPath = {}) {
        p_Action action = OnDevice(atSetDevice, L"Radio");
        std::get<aceSetDevice>(action.Parameter).Path = path;
        std::get<aceSetDevice>(action.Parameter).SigPathName = signalPath;
        return action;
    }
    /// Chooses a device whose settings dialog is cancelled.
    Acts ChooseDevice(const String& name) {
        AnswerMenu(name);
        CancelSettings();
        return {PressMouse(L"imgDevice", MouseButtons::Right)};
    }
    Acts ChoosePath(const String& name) {
        AnswerMenu(name);
        return {Press(L"imgSwitchUnit")};
    }
    static Acts Then(Acts acts, Acts more) {
        acts.insert(acts.end(), more.begin(), more.end());
        return acts;
    }
    /// The calls behind the last menu.
    Lines TakeCallsOfChoice() {
        Lines calls = TakeCalls();
        const auto isMenu = [](const String& line) {
            return line.starts_with(L"UserDialogs.ShowPopupMenu");
        };
        const auto menu = std::find_if(calls.rbegin(), calls.rend(), isMenu);
        EXPECT_NE(menu, calls.rend());
        return {menu.base(), calls.end()};
    }
    /// A device in the interface of all devices: its name and its class.
    static Lines Taken(const String& name, std::int32_t deviceClass) {
        return Journal(Found(name), NameOf(name), Classed(name, deviceClass));
    }
    /// The old settings are forgotten, and the host's dialog asks for new ones and is cancelled.
    static Lines SettingsAsked(const String& name, std::int32_t number) {
        return Journal(
            Opened(), Called(L"SettingsFile.SetSection", SectionOf(number), L"\r\n"),
            L"SettingsFile.Release()", Opened(), Called(L"DeviceSettingsStore.SetDevice", name, 1),
            Called(L"DeviceSettingsStore.StoreIn", true, SectionOf(number)),
            Called(L"DeviceSettingsStore.EditSettings", NewSettings), L"SettingsFile.Release()");
    }
};

// ---- devices -----------------------------------------------------------------------------------

TEST_F(DeviceChoice, AChosenDeviceIsTakenItsSectionEmptiedAndItsSettingsAsked) {
    OpenTemplate();
    AddKind(atSetDevice, Then(ChooseDevice(L"Camera"),
                              {See(L"lblDevice", L"Camera"), SeeTip(L"lblDevice", L"Camera"),
                               See(L"lblDeviceSett", NewSettings), SeeTip(L"imgDevice", L"T(9149)"),
                               SeeShown({}, {L"imgSwitchUnit"}), PressCancel}));
    EXPECT_EQ(TakeCallsOfChoice(),
              Journal(Taken(L"Camera", 1), SettingsAsked(L"Camera", 0), DialogHidden));
    EXPECT_THAT(Section(0), ElementsAre(L""));
}

TEST_F(DeviceChoice, TheRecordHoldsTheChosenDeviceByTheNameThatTheDeviceGives) {
    struct Loud : sim::SimMonitor {
        using SimMonitor::SimMonitor;
        String Name() override { return L"CAMERA 2"; }
    };
    Add<Loud>(L"Camera 2");
    OpenTemplate();
    AddKind(atSetDevice, Then(ChooseDevice(L"Camera 2"),
                              {See(L"lblDevice", L"Camera 2"), Do([this](Form&) {
                                   EXPECT_EQ(Held().DevName, L"CAMERA 2");
                                   EXPECT_EQ(Held().Device, host->bench.Device(L"Camera 2"));
                                   EXPECT_TRUE(Held().MoniDev);
                                   EXPECT_FALSE(Held().BcGen);
                               }),
                               PressCancel}));
}

TEST_F(DeviceChoice, AnotherDeviceEmptiesTheSectionOfTheOldOneAndCountsAsAChange) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine(Then(ChooseDevice(L"Probe"), {PressOk}));
    EXPECT_EQ(TakeCallsOfChoice(),
              Journal(Taken(L"Probe", 1), SettingsAsked(L"Probe", 7), EntryTaken, DialogHidden));
    EXPECT_THAT(Section(7), ElementsAre(L""));
    EXPECT_EQ(StoredDevice().DevName, L"Probe");
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeviceChoice, TheSameDeviceChosenAgainIsAChangeThatEmptiesItsSection) {
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        Section(7) = {L"Gain=3"};
        engine->Change(false);
        OpenTemplate({OnDevice(kind, L"Camera")});
        EditLine(Then(ChooseDevice(L"Camera"), {See(L"lblDeviceSett", NewSettings), PressOk}));
        EXPECT_THAT(Section(7), ElementsAre(L""));
        EXPECT_TRUE(engine->Change());
    }
}

TEST_F(DeviceChoice, TheSettingsThatAreConfirmedShowAndStandInTheSection) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    AnswerMenu(L"Probe");
    AnswerSettings(L"Zoom=2");
    EditLine(
        {PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDeviceSett", L"Zoom=2"), PressOk});
    EXPECT_THAT(Section(7), ElementsAre(L"Zoom=2"));
}

TEST_F(DeviceChoice, ACancelledDialogLeavesTheListAndAnEmptiedSection) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine(Then(ChooseDevice(L"Probe"), {PressCancel}));
    EXPECT_EQ(StoredDevice().DevName, L"Camera");
    EXPECT_FALSE(engine->Change());
    EXPECT_THAT(Section(7), ElementsAre(L""));
}

TEST_F(DeviceChoice, WithoutASettingsFileNoSectionIsEmptiedAndTheSettingsAreAskedAllTheSame) {
    host->missingFiles.insert(L"setup.ini");
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Probe");
    AnswerSettings(L"Zoom=2");
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDevice", L"Probe"),
              See(L"lblDeviceSett", L"Zoom=2"), SeeTip(L"imgDevice", L"T(9149)"), PressOk});
    EXPECT_EQ(TakeCallsOfChoice(),
              Journal(Taken(L"Probe", 1), Opened(), Opened(),
                      Called(L"DeviceSettingsStore.SetDevice", String(L"Probe"), 1),
                      Called(L"DeviceSettingsStore.StoreIn", false, SectionOf(7)),
                      Called(L"DeviceSettingsStore.EditSettings", NewSettings), EntryTaken,
                      DialogHidden));
    EXPECT_EQ(StoredDevice().DevName, L"Probe");
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3", L"Mode=on"));
}

TEST_F(DeviceChoice, ANewSetDeviceLeavesItsSettingsInASectionOfItsOwnAndEachPasteMakesOne) {
    OpenTemplate();
    AnswerMenu(L"Camera");
    AnswerSettings(L"Gain=5");
    AddKind(atSetDevice, {Press(L"imgDevice"), PressOk});
    EXPECT_EQ(StoredDevice().ChanNo, 101);
    for (std::int32_t number = 102; number <= 103; ++number) {
        AnswerMenu(L"T(9017)");
        EXPECT_TRUE(tree.Press(L"ETE", MouseButtons::Right));
        EXPECT_TRUE(tree.Release(L"ETE", MouseButtons::Right));
        EXPECT_EQ(StoredDevice(number - 101).ChanNo, number);
    }
    EXPECT_THAT(Section(101), ElementsAre(L"Gain=5"));
    EXPECT_THAT(Section(102), ElementsAre(L"Gain=5"));
    EXPECT_THAT(Section(103), ElementsAre(L"Gain=5"));
    EXPECT_EQ(context.DeviceSectionCounter, 103);
}

// ---- generators --------------------------------------------------------------------------------

TEST_F(DeviceChoice, AChosenGeneratorBringsTheBoxOfItsSignalPath) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine(Then(ChooseDevice(L"Radio"), {SeeShown({L"imgSwitchUnit", L"lblSwUnit"}),
                                           See(L"lblSwUnit", L"T(9147)"), Do([this](Form&) {
                                               EXPECT_TRUE(Held().BcGen);
                                               EXPECT_FALSE(Held().MoniDev);
                                           }),
                                           PressCancel}));
    EXPECT_EQ(TakeCallsOfChoice(),
              Journal(Taken(L"Radio", 2), SettingsAsked(L"Radio", 7), DialogHidden));
}

TEST_F(DeviceChoice, ANextGeneratorKeepsTheSignalPathAndShowsItsName) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    EditLine(Then(ChooseDevice(L"Jammer"), {See(L"lblSwUnit", L"Path A"), PressOk}));
    EXPECT_EQ(TakeCallsOfChoice(), Journal(Taken(L"Jammer", 2), Found(L"Path A"),
                                           SettingsAsked(L"Jammer", 7), EntryTaken, DialogHidden));
    EXPECT_EQ(StoredDevice().Path, L"Path A");
    EXPECT_EQ(StoredDevice().SigPathName, L"Path A");
}

TEST_F(DeviceChoice, ANextGeneratorKeepsTheNameOfASignalPathThatTheHostHasNoMore) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    Acts acts = ChooseDevice(L"Jammer");
    acts.insert(acts.begin(), Do([this](Form&) {
                    EXPECT_TRUE(Held().SigPath);
                    std::erase_if(host->bench.devices,
                                  [](const auto& one) { return one->name == L"Path A"; });
                }));
    EditLine(Then(acts, {See(L"lblDevice", L"Jammer"), See(L"lblSwUnit", L"Path A"),
                         Do([this](Form&) { EXPECT_FALSE(Held().SigPath); }), PressOk}));
    EXPECT_EQ(TakeCallsOfChoice(), Journal(Taken(L"Jammer", 2), Found(L"Path A"),
                                           SettingsAsked(L"Jammer", 7), EntryTaken, DialogHidden));
    EXPECT_EQ(StoredDevice().DevName, L"Jammer");
    EXPECT_EQ(StoredDevice().SigPathName, L"Path A");
}

TEST_F(DeviceChoice, TheSameGeneratorChosenAgainIsNoChangeAndKeepsItsSettings) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    AnswerMenu(L"Radio");
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDeviceSett", L"Gain=3"),
              See(L"lblSwUnit", L"Output"), PressOk});
    EXPECT_THAT(TakeCallsOfChoice(), ElementsAre(EntryTaken, DialogHidden));
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3", L"Mode=on"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceChoice, TheSameGeneratorKeepsAnEarlierChangeOfThisDialog) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    Acts acts = ChoosePath(L"Path B");
    AnswerMenu(L"Radio");
    EditLine(Then(acts, {PressMouse(L"imgDevice", MouseButtons::Right), PressOk}));
    EXPECT_TRUE(engine->Change());
    EXPECT_EQ(StoredDevice().SigPathName, L"Path B");
}

TEST_F(DeviceChoice, AMonitoringDeviceAfterAGeneratorHasThePlainPaneAndBackAgain) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    Acts acts = Then(ChooseDevice(L"Camera"), {SeeShown({}, {L"imgSwitchUnit", L"lblSwUnit"}),
                                               SeeShown({L"imgDevice"}), Do([this](Form&) {
                                                   EXPECT_FALSE(Held().BcGen);
                                                   EXPECT_TRUE(Held().MoniDev);
                                               })});
    acts = Then(acts, ChooseDevice(L"Radio"));
    EditLine(Then(acts, {SeeShown({L"imgSwitchUnit"}), See(L"lblSwUnit", L"Path A"), PressOk}));
    EXPECT_EQ(StoredDevice().DevName, L"Radio");
    EXPECT_EQ(StoredDevice().SigPathName, L"Path A");
}

TEST_F(DeviceChoice, TheFirstChoiceInThePlainPaneIsAChangeAndTheSecondInAGeneratorsIsNone) {
    OpenTemplate();
    Acts acts = ChooseDevice(L"Radio");
    AnswerMenu(L"Radio");
    AddKind(atSetDevice, Then(acts, {ForgetCalls(), PressMouse(L"imgDevice", MouseButtons::Right),
                                     PressCancel}));
    EXPECT_THAT(TakeCallsOfChoice(), ElementsAre(DialogHidden));
}

// ---- signal paths ------------------------------------------------------------------------------

TEST_F(DeviceChoice, AChosenSignalPathIsLookedUpAndCountsAsAChangeOfAllSettings) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    EditLine(Then(
        ChoosePath(L"Path B"),
        {See(L"lblSwUnit", L"Path B"), SeeTip(L"lblSwUnit", L"Path B"), See(L"lblDevice", L"Radio"),
         Do([this](Form&) { EXPECT_TRUE(Held().SigPath); }), PressOk}));
    EXPECT_EQ(TakeCallsOfChoice(), Journal(Found(L"Path B"), EntryTaken, DialogHidden));
    EXPECT_EQ(StoredDevice().SigPathName, L"Path B");
    EXPECT_EQ(StoredDevice().Path, L"Path B");
    EXPECT_TRUE(engine->Change());
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3", L"Mode=on"));
}

TEST_F(DeviceChoice, ASignalPathThatIsTakenAwayLeavesAnEmptyName) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    EditLine(Then(ChoosePath(L"T(9147)"),
                  {See(L"lblSwUnit", L"T(9147)"),
                   Do([this](Form&) { EXPECT_FALSE(Held().SigPath); }), PressOk}));
    EXPECT_EQ(StoredDevice().SigPathName, L"");
    EXPECT_EQ(StoredDevice().Path, L"");
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeviceChoice, TheSignalPathThatShowsChosenAgainIsNoChange) {
    for (const auto& [path, choice] : std::initializer_list<std::pair<String, String>>{
             {L"Path A", L"Path A"}, {L"", L"T(9147)"}}) {
        OpenTemplate({Radio(path, path)});
        EditLine(Then(ChoosePath(choice), {PressOk}));
        EXPECT_THAT(TakeCallsOfChoice(), ElementsAre(EntryTaken, DialogHidden));
        EXPECT_FALSE(engine->Change());
    }
}

TEST_F(DeviceChoice, ADeviceChosenAfterASignalPathIsADevice) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    Acts acts = ChoosePath(L"Path B");
    EditLine(Then(Then(acts, ChooseDevice(L"Jammer")),
                  {See(L"lblDevice", L"Jammer"), See(L"lblSwUnit", L"Path B"), PressOk}));
    EXPECT_EQ(StoredDevice().DevName, L"Jammer");
    EXPECT_EQ(StoredDevice().SigPathName, L"Path B");
}

// ---- errors ------------------------------------------------------------------------------------

TEST_F(DeviceChoice, ADeviceThatTheHostCannotHandOverLeavesTheLabels) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    const auto goes = [this](std::size_t at) {
        return Do(
            [this, at](Form&) { host->faults.FailOperation(L"DeviceList.GetDevice", at, 57); });
    };
    AnswerMenu(L"Probe");  // the menu looks up two devices before it shows
    EditLine({goes(3), PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDevice", L"Camera"),
              SeeTip(L"lblDevice", L""), See(L"lblDeviceSett", L"Gain=3"), PressOk});
    EXPECT_FALSE(engine->Change());
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), IsEmpty());
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3", L"Mode=on"));
}

TEST_F(DeviceChoice, ADeviceThatHasGoneSinceTheMenuCameUpLeavesTheLabels) {
    OpenTemplate({Radio(L"Output", L"Path A")});
    host->beforeCall = [this](StringView operation, sim::CallArguments) {
        if (operation == L"UserDialogs.ShowPopupMenu") {
            host->bench.devices.clear();
        }
    };
    AnswerMenu(L"Jammer");
    AnswerMenu(L"Path B");
    EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDevice", L"Radio"),
              See(L"lblDeviceSett", L"Gain=3"),
              Do([this](Form&) { Add<sim::SimSignalPath>(L"Path B"); }), Press(L"imgSwitchUnit"),
              See(L"lblSwUnit", L"Output"), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), IsEmpty());
}

TEST_F(DeviceChoice, AnErrorOfTheSettingsDialogEndsAChoiceQuietly) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    for (const StringView call :
         {L"SystemServices.OpenSettingsFile", L"DeviceSettingsStore.EditSettings"}) {
        AnswerMenu(L"Probe");
        EditLine({Do([&](Form&) { host->faults.FailOperation(call, 1, 57); }),
                  PressMouse(L"imgDevice", MouseButtons::Right), PressCancel});
        host->faults.Clear();
    }
    EXPECT_EQ(StoredDevice().DevName, L"Camera");
}

}  // namespace
}  // namespace ace::test
