// The test button of the device kinds: the action is carried out as it stands in the dialog.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class DeviceTry : public BenchDialog {
  protected:
    DeviceTry() {
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimSignalPath>(L"Path A");
        Section(7) = {L"Gain=3"};
        host->texts[9420] = L"%1 has failed";
    }
    static FormAct Try() { return Press(L"cmdTestAction(2)"); }
    /// A monitoring device is made ready for section `number`: it is not looked up again.
    static Lines Ready(std::int32_t number, std::int32_t use) {
        return Prepared(L"Camera", number, use, false);
    }
    std::shared_ptr<sim::SimMonitor> camera = AddMonitor(L"Camera");
};

TEST_F(DeviceTry, ASetDeviceIsSetForGoodWithTheSettingsOfItsSection) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    EditLine({ForgetCalls(), Try(), PressCancel});
    EXPECT_EQ(TakeCalls(),
              Journal(Ready(7, 2), Called(L"MonitorDevice.SetChannel", L"Camera", 7, 1),
                      StateOf(L"Camera"), DialogHidden));
    EXPECT_THAT(camera->settings, ElementsAre(L"Gain=3"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(DeviceTry, ANewSetDeviceIsSetFromTheSectionOfNewOnes) {
    OpenTemplate();
    AnswerMenu(L"Camera");
    AnswerSettings(L"Gain=5");
    AddKind(atSetDevice, {Press(L"imgDevice"), ForgetCalls(), Try(), PressCancel});
    EXPECT_EQ(TakeCalls(),
              Journal(Ready(0, 2), Called(L"MonitorDevice.SetChannel", L"Camera", 0, 1),
                      StateOf(L"Camera"), DialogHidden));
    EXPECT_THAT(camera->settings, ElementsAre(L"Gain=5"));
}

TEST_F(DeviceTry, AGeneratorIsSetWithTheSignalPathOfTheDialog) {
    OpenTemplate({OnDevice(atSetDevice, L"Radio")});
    AnswerMenu(L"Path A");
    EditLine({Press(L"imgSwitchUnit"), ForgetCalls(), Try(), PressCancel});
    EXPECT_EQ(TakeCalls(), Journal(Opened(), StateOf(L"Radio"), Classed(L"Radio", 2),
                                   Called(L"BcGenerator.SetSignalPath", L"Radio", true),
                                   Loaded(L"Radio", SectionOf(7)),
                                   Called(L"BcGenerator.Apply", L"Radio"), DialogHidden));
}

TEST_F(DeviceTry, ASignalPathThatIsChosenInATestIsNotThatOfTheTest) {
    const auto other = Add<sim::SimSignalPath>(L"Path B");
    OpenTemplate({OnDevice(atSetDevice, L"Radio")});
    AnswerMenu(L"Path A");
    AnswerMenu(L"Path B");
    EditLine({Press(L"imgSwitchUnit"), Do([&](Form& form) {
                  In(L"BcGenerator.Apply", [&] { Press(L"imgSwitchUnit")(form); });
                  Try()(form);
              }),
              PressOk});
    EXPECT_EQ(StoredDevice().SigPathName, L"Path B");
    EXPECT_EQ(StoredDevice().SigPath, other);
}

TEST_F(DeviceTry, ACheckAndAMonitoringReadTheChannelAndSetNothing) {
    for (const p_ActionTypes kind : {atCheckEut, atMonitorEUT}) {
        OpenTemplate({OnDevice(kind, L"Camera")});
        EditLine({ForgetCalls(), Try(), PressCancel});
        EXPECT_EQ(TakeCalls(), Journal(Ready(7, 4), ChannelRead(L"Camera", 7), MarkCompared(0.0),
                                       StateOf(L"Camera"), DialogHidden));
    }
}

TEST_F(DeviceTry, ACheckThatFailsTellsTheOperatorAndLeavesItsRequest) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    camera->readings[7] = {1.0};
    comments->answers = {false};
    EditLine(
        {Tick(L"chkNotify", true), Tick(L"chkStopTest", true), ForgetCalls(), Try(), PressCancel});
    EXPECT_EQ(TakeCalls(),
              Journal(Ready(7, 4), ChannelRead(L"Camera", 7), MarkCompared(1.0), StateOf(L"Camera"),
                      NameOf(L"Camera"), Shown(L"Camera has failed", false), Progress(L""),
                      DialogHidden));
    EXPECT_EQ(context.EutCheckRequest, acEutStopTest);
}

TEST_F(DeviceTry, AnEntryThatIsRefusedIsNotTried) {
    OpenTemplate();
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut}) {
        AnswerBox(L"T(9205)");
        AddKind(kind, {ForgetCalls(), Try(), PressCancel});
        EXPECT_THAT(TakeCalls(),
                    ElementsAre(EntryRefused(L"T(9205)", IUserDialogs::Critical), DialogHidden));
    }
}

TEST_F(DeviceTry, AnActionWithoutANameIsNotTried) {
    for (const p_ActionTypes kind : {atSetDevice, atCheckEut, atMonitorEUT}) {
        OpenTemplate({OnDevice(kind, L"")});
        AnswerBox(L"Device <> does not exist in the device list! Please adapt your settings!");
        EditLine({ForgetCalls(), Try(), PressCancel});
        EXPECT_THAT(TakeCalls(), ElementsAre(DialogHidden));
    }
}

TEST_F(DeviceTry, TheDialogGoesOnBehindATryAndTakesTheEntry) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    EditLine({Tick(L"chkStopTest", true), Try(), PressOk});
    EXPECT_TRUE(StoredDevice().StopTest);
    EXPECT_TRUE(engine->Change());
}

TEST_F(DeviceTry, ADeviceThatIsMissingIsLookedUpOnceMoreAndItsFailureIsShown) {
    OpenTemplate({OnDevice(atSetDevice, L"Gone")});
    AnswerBox(L"Device <Gone> does not exist in the device list! Please adapt your settings!");
    host->user.Expect(
        {L"frmEditor",
         {Do([this](Form&) { host->user.Expect(L"frmGpibError", Press(L"cmdIgnore")); }),
          ForgetCalls(), Try(), PressCancel},
         {}});
    Select(L"CHI0ETE");
    EXPECT_TRUE(tree.DoubleClick(L"CHI0ETE"));
    const Lines calls = TakeCalls();
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[0], Opened());
    EXPECT_EQ(calls[1], Found(L"Gone"));
}

}  // namespace
}  // namespace ace::test
