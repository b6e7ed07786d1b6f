// The menus from which devices, amplifiers, switch units and signal paths are chosen.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class DeviceMenu : public BenchDialog {
  protected:
    DeviceMenu() { Section(7) = {L"Gain=3"}; }
    /// Devices that differ in what they can be used for, and generators.
    void FillBench() {
        AddMonitor(L"Camera");
        AddMonitor(L"Setter", 2);
        AddMonitor(L"Checker", 4);
        AddMonitor(L"Tracker", 8);
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimBcGenerator>(L"Jammer");
    }
    static Lines MonitorsAsked() {
        return Journal(ClassAsked(L"Monitoring"), UsesAsked(L"Camera"), UsesAsked(L"Setter"),
                       UsesAsked(L"Checker"), UsesAsked(L"Tracker"));
    }
    /// Opens a menu from which nothing is chosen, and forgets all calls before it.
    Acts LookAt(const String& picture, std::int32_t button = MouseButtons::Left) {
        host->user.ExpectMenu(std::nullopt);
        return {ForgetCalls(), PressMouse(picture, button)};
    }
    /// The calls of a menu in a dialog that is then cancelled.
    Lines TakeMenuCalls() {
        Lines calls = TakeCalls();
        EXPECT_FALSE(calls.empty());
        if (!calls.empty() && calls.back() == DialogHidden) {
            calls.pop_back();
        }
        return calls;
    }
    static Acts ThenCancel(Acts acts) {
        acts.push_back(PressCancel);
        return acts;
    }
    void ExpectEmptyClass(const String& text) { AnswerBox(text); }
};

// ---- monitoring devices and generators ---------------------------------------------------------

TEST_F(DeviceMenu, ASetDeviceIsOfferedDevicesThatCanBeSetAndBehindThemAllGenerators) {
    FillBench();
    OpenTemplate();
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_EQ(TakeMenuCalls(),
              Journal(MonitorsAsked(), ClassAsked(L"BcGenerators"),
                      MenuShown(L"1 \"Camera\", 2 \"Setter\", 3 \"Radio\", 4 \"Jammer\"")));
}

TEST_F(DeviceMenu, ACheckAndAMonitoringAreOfferedDevicesThatCanCheckAndNoGenerators) {
    FillBench();
    const Lines expected = Journal(MonitorsAsked(), MenuShown(L"1 \"Camera\", 2 \"Checker\""));
    OpenTemplate();
    AddKind(atCheckEut, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_EQ(TakeMenuCalls(), expected);
    Open(aceVKSTemplate);
    AddKind(atMonitorEUT, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_EQ(TakeMenuCalls(), expected);
}

TEST_F(DeviceMenu, UsesAreBitsSoThatADeviceWithOthersBesideIsOfferedToo) {
    AddMonitor(L"All", -1);
    AddMonitor(L"Set and track", 2 + 8);
    AddMonitor(L"Check and track", 4 + 8);
    AddMonitor(L"Odd", 1 + 16);
    OpenTemplate();
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"),
                ElementsAre(MenuShown(L"1 \"All\", 2 \"Set and track\"")));
    AddKind(atCheckEut, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"),
                ElementsAre(MenuShown(L"1 \"All\", 2 \"Check and track\"")));
}

TEST_F(DeviceMenu, AHostWhoseClassesBeginWithTheirFirstDeviceLosesNone) {
    FillBench();
    host->bench.beginsWithDevice = true;
    OpenTemplate();
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"),
                ElementsAre(MenuShown(L"1 \"Camera\", 2 \"Setter\", 3 \"Radio\", 4 \"Jammer\"")));
}

TEST_F(DeviceMenu, AnEntryWithoutADeviceOrWithOneThatMonitorsNothingIsLeftOut) {
    AddMonitor(L"Camera");
    AddMonitor(L"Gone");
    host->bench.Keep(std::make_shared<sim::SimDevice>(*host, L"Lamp", sim::SimClass::Monitoring));
    AddMonitor(L"Setter", 2);
    OpenTemplate();
    host->beforeCall = [this](StringView operation, sim::CallArguments) {
        if (operation == L"DeviceList.GetDevice") {
            std::erase_if(host->bench.devices,
                          [](const auto& one) { return one->name == L"Gone"; });
        }
    };
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice")));
    host->beforeCall = nullptr;
    EXPECT_EQ(TakeMenuCalls(),
              Journal(ClassAsked(L"Monitoring"), UsesAsked(L"Camera"), Found(L"Gone"),
                      Found(L"Lamp"), UsesAsked(L"Setter"), ClassAsked(L"BcGenerators"),
                      MenuShown(L"1 \"Camera\", 2 \"Setter\"")));
}

TEST_F(DeviceMenu, TheDeviceThatShowsIsMarked) {
    FillBench();
    OpenTemplate({OnDevice(atSetDevice, L"Setter")});
    EditLine(ThenCancel(LookAt(L"imgDevice", MouseButtons::Right)));
    EXPECT_THAT(
        host->journal.LinesOf(L"UserDialogs"),
        ElementsAre(MenuShown(L"1 \"Camera\", 2 \"Setter\" checked, 3 \"Radio\", 4 \"Jammer\"")));
}

TEST_F(DeviceMenu, ADeviceThatDiffersInCaseIsNotMarked) {
    FillBench();
    OpenTemplate({OnDevice(atCheckEut, L"camera")});
    AnswerBox(L"Device <camera> does not exist in the device list! Please adapt your settings!");
    EditLine(ThenCancel(LookAt(L"imgDevice", MouseButtons::Right)));
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"),
                ElementsAre(MenuShown(L"1 \"Camera\", 2 \"Checker\"")));
}

TEST_F(DeviceMenu, ThePressThatOpensTheMenuIsNoClick) {
    FillBench();
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine(ThenCancel(LookAt(L"imgDevice", MouseButtons::Right)));
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice", MouseButtons::Left)));
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice", MouseButtons::Right)));
    EXPECT_THAT(host->journal.LinesOf(L"DeviceSettingsStore"), ElementsAre());
}

TEST_F(DeviceMenu, TheMiddleButtonOpensTheMenuOnlyWhileNothingIsChosen) {
    FillBench();
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine({ForgetCalls(), PressMouse(L"imgDevice", MouseButtons::Middle), PressCancel});
    EXPECT_THAT(TakeMenuCalls(), ElementsAre());
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice", MouseButtons::Middle)));
}

TEST_F(DeviceMenu, AMenuFromWhichNothingIsChosenLeavesTheDialogAsItIs) {
    FillBench();
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    Acts acts = LookAt(L"imgDevice", MouseButtons::Right);
    acts.insert(acts.end(),
                {See(L"lblDevice", L"Camera"), See(L"lblDeviceSett", L"Gain=3"), PressOk});
    EditLine(acts);
    EXPECT_FALSE(engine->Change());
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
}

// ---- classes without a device ------------------------------------------------------------------

TEST_F(DeviceMenu, WithoutADeviceThatCanBeUsedABoxSaysSo) {
    AddMonitor(L"Setter", 2);
    Add<sim::SimBcGenerator>(L"Radio");
    OpenTemplate();
    ExpectEmptyClass(L"T(9151)");
    AddKind(atCheckEut, {ForgetCalls(), Press(L"imgDevice"), PressCancel});
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"Monitoring"), UsesAsked(L"Setter"),
                                       BoxShown(L"T(9151)", IUserDialogs::Critical, L"T(9021)")));
}

TEST_F(DeviceMenu, ASetDeviceOfWhichThereAreOnlyGeneratorsIsOfferedThose) {
    AddMonitor(L"Checker", 4);
    Add<sim::SimBcGenerator>(L"Radio");
    OpenTemplate();
    AddKind(atSetDevice, ThenCancel(LookAt(L"imgDevice")));
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), ElementsAre(MenuShown(L"1 \"Radio\"")));
}

TEST_F(DeviceMenu, WithoutAnyDeviceASetDeviceSaysSoToo) {
    OpenTemplate();
    ExpectEmptyClass(L"T(9151)");
    AddKind(atSetDevice, {ForgetCalls(), Press(L"imgDevice"), PressCancel});
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"Monitoring"), ClassAsked(L"BcGenerators"),
                                       BoxShown(L"T(9151)", IUserDialogs::Critical, L"T(9021)")));
}

TEST_F(DeviceMenu, WithoutAmplifierSwitchUnitOrSignalPathAnotherBoxSaysSo) {
    Add<sim::SimBcGenerator>(L"Radio");
    const String box = BoxShown(L"T(9154)", IUserDialogs::Critical, L"T(9021)");
    OpenTemplate({OnDevice(atSetDevice, L"Radio")});
    ExpectEmptyClass(L"T(9154)");
    AddKind(atSwitchAmp, {ForgetCalls(), Press(L"imgAmplifier"), PressCancel});
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"Amplifiers"), box));
    ExpectEmptyClass(L"T(9154)");
    AddKind(atSwitchUnit, {ForgetCalls(), Press(L"imgSwitchUnit"), PressCancel});
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"SwitchUnits"), box));
    ExpectEmptyClass(L"T(9154)");
    EditLine({ForgetCalls(), Press(L"imgSwitchUnit"), PressCancel});
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"SignalPaths"), box));
}

// ---- amplifiers, switch units, signal paths ----------------------------------------------------

TEST_F(DeviceMenu, AmplifiersAreOfferedUnaskedAlsoWhenOneIsChosen) {
    Add<sim::SimAmplifier>(L"Amplifier 1");
    Add<sim::SimAmplifier>(L"Amplifier 2");
    OpenTemplate({OnDevice(atSwitchAmp, L"Amplifier 2")});
    EditLine(ThenCancel(LookAt(L"imgAmplifier")));
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"Amplifiers"),
                                       MenuShown(L"1 \"Amplifier 1\", 2 \"Amplifier 2\" checked")));
    AddKind(atSwitchAmp, ThenCancel(LookAt(L"imgAmplifier")));
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"Amplifiers"),
                                       MenuShown(L"1 \"Amplifier 1\", 2 \"Amplifier 2\"")));
}

TEST_F(DeviceMenu, SwitchUnitsAreOfferedWhereNoDeviceIsChosenBesideThem) {
    Add<sim::SimSwitchUnit>(L"Relays");
    Add<sim::SimSwitchUnit>(L"Matrix");
    Add<sim::SimSignalPath>(L"Path A");
    OpenTemplate({OnDevice(atSwitchUnit, L"Matrix")});
    EditLine(ThenCancel(LookAt(L"imgSwitchUnit")));
    EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"SwitchUnits"),
                                       MenuShown(L"1 \"Relays\", 2 \"Matrix\" checked")));
}

TEST_F(DeviceMenu, SignalPathsOfAGeneratorFollowTheItemThatTakesThemAway) {
    Add<sim::SimBcGenerator>(L"Radio");
    Add<sim::SimSignalPath>(L"Path A");
    Add<sim::SimSignalPath>(L"Path B");
    Add<sim::SimSwitchUnit>(L"Relays");
    for (const auto& [path, items] : std::initializer_list<std::pair<String, String>>{
             {L"Path B", L"1 \"T(9147)\", 2 \"Path A\", 3 \"Path B\" checked"},
             {L"Output", L"1 \"T(9147)\", 2 \"Path A\", 3 \"Path B\""},
             {L"", L"1 \"T(9147)\" checked, 2 \"Path A\", 3 \"Path B\""}}) {
        p_Action action = OnDevice(atSetDevice, L"Radio");
        std::get<aceSetDevice>(action.Parameter).Path = path;
        OpenTemplate({action});
        EditLine(ThenCancel(LookAt(L"imgSwitchUnit")));
        EXPECT_EQ(TakeMenuCalls(), Journal(ClassAsked(L"SignalPaths"), MenuShown(items)));
    }
}

TEST_F(DeviceMenu, AmplifiersSwitchUnitsAndSignalPathsAreOfferedByTheLeftButtonAlone) {
    Add<sim::SimAmplifier>(L"Amplifier");
    Add<sim::SimSwitchUnit>(L"Relays");
    Add<sim::SimBcGenerator>(L"Radio");
    Add<sim::SimSignalPath>(L"Path A");
    OpenTemplate({OnDevice(atSwitchAmp, L"Amplifier"), OnDevice(atSwitchUnit, L"Relays"),
                  OnDevice(atSetDevice, L"Radio")});
    for (const std::int32_t button : {MouseButtons::Right, MouseButtons::Middle}) {
        EditLine({ForgetCalls(), PressMouse(L"imgAmplifier", button), PressCancel});
        EXPECT_THAT(TakeMenuCalls(), ElementsAre()) << button;
        for (const StringView line : {L"CHI1ETE", L"CHI2ETE"}) {
            EditLine({ForgetCalls(), PressMouse(L"imgSwitchUnit", button), PressCancel},
                     String(line));
            EXPECT_THAT(TakeMenuCalls(), ElementsAre()) << button;
        }
    }
}

// ---- errors ------------------------------------------------------------------------------------

TEST_F(DeviceMenu, AnErrorOfTheHostEndsAMenuQuietly) {
    FillBench();
    OpenTemplate();
    for (const StringView call : {L"DeviceList.DevicesOfClass", L"DeviceList.GetDevice",
                                  L"MonitorDevice.Capabilities", L"UserDialogs.ShowPopupMenu"}) {
        AddKind(atSetDevice,
                {Do([&](Form&) { host->faults.FailOperation(call, 1, 57); }), ForgetCalls(),
                 Press(L"imgDevice"), See(L"lblDevice", L"T(9147)"), PressCancel});
        host->faults.Clear();
        EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), ElementsAre());
        EXPECT_LE(host->journal.LinesOf(L"UserDialogs").size(), 1U);
    }
}

}  // namespace
}  // namespace ace::test
