// Generators, missing devices and what an earlier dialog has left: how the pane of the device kinds
// opens with them.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class GeneratorOpening : public BenchDialog {
  protected:
    GeneratorOpening() {
        AddMonitor(L"Camera");
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimSignalPath>(L"Path A");
        Section(7) = {L"Gain=3"};
    }
    static p_Action Generator(const String& path, const String& signalPath,
                              p_ActionTypes kind = atSetDevice) {
        p_Action action = OnDevice(kind, L"Radio");
        auto& record = std::get<aceSetDevice>(action.Parameter);
        record.Path = path;
        record.SigPathName = signalPath;
        return action;
    }
    static Lines SettingsOfRadio() {
        return Journal(Called(L"DeviceSettingsStore.SetDevice", L"Radio", 1), Opened(),
                       SettingsRead(L"Radio", 7));
    }
    const aceSetDevice& Held() { return Parts().held.Records.SetDevice; }
};

TEST_F(GeneratorOpening, AGeneratorHasASecondBoxForItsPathAndItsSignalPathIsLookedUp) {
    OpenTemplate({Generator(L"Output 1", L"Path A")});
    EditLine({SeeShown({L"imgDevice", L"imgSwitchUnit"}), See(L"lblSwUnit", L"Output 1"),
              Do([this](Form&) {
                  EXPECT_TRUE(Held().BcGen);
                  EXPECT_FALSE(Held().MoniDev);
                  EXPECT_TRUE(Held().SigPath);
              }),
              PressCancel});
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Radio"), Classed(L"Radio", 2), SettingsOfRadio(),
                                   Found(L"Path A"), DialogShown, DialogHidden));
}

TEST_F(GeneratorOpening, AGeneratorWithoutAPathSaysSoAlsoWhenItHasASignalPath) {
    OpenTemplate({Generator(L"", L"Path A")});
    EditLine({See(L"lblSwUnit", L"T(9147)"), PressOk});
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(StoredDevice().SigPathName, L"Path A");
}

TEST_F(GeneratorOpening, AGeneratorWithoutASignalPathLooksNoneUp) {
    OpenTemplate({Generator(L"Output 1", L"")});
    EditLine({Do([this](Form&) { EXPECT_FALSE(Held().SigPath); }), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList.GetDevice"), ElementsAre(Found(L"Radio")));
}

TEST_F(GeneratorOpening, ASignalPathThatIsMissingKeepsItsNameWithoutABox) {
    OpenTemplate({Generator(L"Lost", L"Lost")});
    EditLine(
        {See(L"lblSwUnit", L"Lost"), Do([this](Form&) { EXPECT_FALSE(Held().SigPath); }), PressOk});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), ElementsAre());
    EXPECT_EQ(StoredDevice().SigPathName, L"Lost");
    EXPECT_EQ(StoredDevice().Path, L"Lost");
}

TEST_F(GeneratorOpening, AGeneratorIsMovedDownForTheSecondBoxThatTakesItsPlace) {
    struct Tops {
        float device = 0.0F;
        float unit = 0.0F;
    };
    const auto takeTops = [](Tops& tops) {
        return Do([&tops](Form& form) {
            tops = {form.Find(L"imgDevice")->top, form.Find(L"imgSwitchUnit")->top};
        });
    };
    Tops plain;
    Tops generator;
    OpenTemplate({OnDevice(atSetDevice, L"Camera"), Generator(L"Output 1", L"Path A")});
    EditLine({takeTops(plain), PressCancel});
    EditLine({takeTops(generator), PressCancel}, L"CHI1ETE");
    EXPECT_GT(generator.device, plain.device);
    EXPECT_EQ(generator.unit, plain.device);
}

TEST_F(GeneratorOpening, AGeneratorThatIsCheckedHasThePlainPane) {
    for (const p_ActionTypes kind : {atCheckEut, atMonitorEUT}) {
        OpenTemplate({Generator(L"Output 1", L"Path A", kind)});
        EditLine({SeeShown({L"imgDevice"}, {L"imgSwitchUnit", L"lblSwUnit"}),
                  Do([this](Form&) { EXPECT_FALSE(Held().BcGen); }), PressOk});
        EXPECT_EQ(StoredDevice().Path, L"Output 1");
        EXPECT_FALSE(engine->Change());
    }
}

// ---- devices that are missing ------------------------------------------------------------------

String MissingText(const String& name) {
    return L"Device <" + name + L"> does not exist in the device list! Please adapt your settings!";
}

TEST_F(GeneratorOpening, AMissingDeviceIsToldAndTheDialogComesUpWithItsNameAndTheLastSettings) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera"), OnDevice(atSetDevice, L"Gone")});
    EditLine({PressCancel});
    AnswerBox(MissingText(L"Gone"));
    EditLine({See(L"lblDevice", L"Gone"), See(L"lblDeviceSett", L"Gain=3"), PressOk}, L"CHI1ETE");
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Gone"), BoxShown(MissingText(L"Gone"), 0, L"T(9021)"),
                                   DialogShown, EntryTaken, DialogHidden));
    EXPECT_EQ(StoredDevice(1).DevName, L"Gone");
    EXPECT_FALSE(engine->Change());
}

TEST_F(GeneratorOpening, AMissingDeviceOfACheckCanBeConfirmedWithOtherBoxes) {
    OpenTemplate({OnDevice(atCheckEut, L"Gone")});
    AnswerBox(MissingText(L"Gone"));
    EditLine({Tick(L"chkStopTest", true), PressOk});
    EXPECT_EQ(StoredDevice().DevName, L"Gone");
    EXPECT_TRUE(StoredDevice().StopTest);
    EXPECT_TRUE(engine->Change());
}

TEST_F(GeneratorOpening, AMissingDeviceBehindSettingsThatWereNoneIsRefused) {
    OpenTemplate({OnDevice(atSetDevice, L"Gone")});
    AddKind(atSetDevice, {PressCancel});
    AnswerBox(MissingText(L"Gone"));
    AnswerBox(L"T(9208)");
    EditLine({See(L"lblDeviceSett", L"T(9148)"), PressOk, PressCancel});
    EXPECT_FALSE(engine->Change());
}

TEST_F(GeneratorOpening, AMissingDeviceThatARunHasHeldIsHeldNoMore) {
    p_Action action = Generator(L"Output 1", L"Path A");
    auto& record = std::get<aceSetDevice>(action.Parameter);
    const auto radio = std::dynamic_pointer_cast<sim::SimBcGenerator>(host->bench.Device(L"Radio"));
    record.Device = radio;
    record.BcGen = radio;
    OpenTemplate({action});
    host->bench.devices.clear();
    AnswerBox(MissingText(L"Radio"));
    EditLine({Do([this](Form&) {
                  EXPECT_FALSE(Held().Device);
                  EXPECT_FALSE(Held().BcGen);
              }),
              SeeShown({}, {L"imgSwitchUnit"}), PressOk});
    EXPECT_EQ(StoredDevice().Path, L"Output 1");
    EXPECT_FALSE(engine->Change());
}

TEST_F(GeneratorOpening, ThePressOnAMissingDeviceOpensNothing) {
    OpenTemplate({OnDevice(atSetDevice, L"Gone")});
    AnswerBox(MissingText(L"Gone"));
    EditLine({ForgetCalls(), Press(L"imgDevice"), See(L"lblDevice", L"Gone"), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), ElementsAre());
    EXPECT_THAT(host->journal.LinesOf(L"DeviceSettingsStore"), ElementsAre());
}

// ---- what an earlier dialog has left -----------------------------------------------------------

TEST_F(GeneratorOpening, TheSecondBoxOfAGeneratorIsGoneForTheNextDevice) {
    OpenTemplate({Generator(L"Output 1", L"Path A"), OnDevice(atSetDevice, L"Camera"),
                  OnDevice(atSetDevice, L"Gone")});
    const Acts isPlain{SeeShown({L"imgDevice"}, {L"imgSwitchUnit", L"lblSwUnit"}), PressCancel};
    EditLine({PressCancel});
    EditLine(isPlain, L"CHI1ETE");
    EditLine({PressCancel});
    AnswerBox(MissingText(L"Gone"));
    EditLine(isPlain, L"CHI2ETE");
    EditLine({PressCancel});
    AddKind(atSetDevice, isPlain);
}

TEST_F(GeneratorOpening, ANewActionHasNeitherGeneratorNorSignalPathOfTheOneBefore) {
    OpenTemplate({Generator(L"Output 1", L"Path A")});
    EditLine({PressCancel});
    AnswerMenu(L"Radio");
    AnswerSettings(L"Gain=5");
    AddKind(atSetDevice, {Do([this](Form&) {
                              EXPECT_FALSE(Held().BcGen);
                              EXPECT_FALSE(Held().SigPath);
                              EXPECT_EQ(Held().SigPathName, L"");
                          }),
                          Press(L"imgDevice"), See(L"lblSwUnit", L"T(9147)"), PressOk});
    EXPECT_EQ(StoredDevice(1).Path, L"");
    EXPECT_EQ(StoredDevice(1).SigPathName, L"");
}

TEST_F(GeneratorOpening, ASecondDeviceIsNotHeldAsTheGeneratorOfTheOneBefore) {
    OpenTemplate({Generator(L"Output 1", L"Path A"), OnDevice(atSetDevice, L"Camera")});
    EditLine({PressCancel});
    EditLine({Do([this](Form&) {
                  EXPECT_FALSE(Held().BcGen);
                  EXPECT_TRUE(Held().MoniDev);
              }),
              PressOk},
             L"CHI1ETE");
    EXPECT_EQ(StoredDevice(1).Path, L"");
    EXPECT_FALSE(engine->Change());
}

TEST_F(GeneratorOpening, SettingsThatWereChangedInACancelledDialogAreNoChangeOfTheNextOne) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerSettings(L"Gain=5");
    EditLine({Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=5"), PressCancel});
    EditLine({See(L"lblDeviceSett", L"Gain=5"), PressOk});
    EXPECT_FALSE(engine->Change());
}

TEST_F(GeneratorOpening, ACancelledDialogLeavesWhatAPasteInserts) {
    OpenTemplate({Generator(L"Output 1", L"Path A"), WaitFor(2000)});
    Select(L"CHI1ETE");
    host->user.ExpectMenu(L"T(9016)");
    EXPECT_TRUE(tree.Press(L"CHI1ETE", MouseButtons::Right));
    EXPECT_TRUE(tree.Release(L"CHI1ETE", MouseButtons::Right));
    AddKind(atSetDevice, {PressCancel});
    host->user.ExpectMenu(L"T(9017)");
    EXPECT_TRUE(tree.Press(L"CHI1ETE", MouseButtons::Right));
    EXPECT_TRUE(tree.Release(L"CHI1ETE", MouseButtons::Right));
    EXPECT_EQ(State().MainTest.EnterCount, 3);
    EXPECT_EQ(State().MainTest.Enter[2], WaitFor(2000));
}

}  // namespace
}  // namespace ace::test
