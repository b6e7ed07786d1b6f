// The dialogs of an amplifier and of a switch unit.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SwitchDialog : public BenchDialog {
  protected:
    SwitchDialog() {
        Add<sim::SimAmplifier>(L"Amplifier");
        Add<sim::SimSwitchUnit>(L"Relays")->paths = {L"A", L"B", L"b"};
        Add<sim::SimSwitchUnit>(L"Matrix")->paths = {L"In", L"Out"};
    }
    static p_Action Amplifier(IAmplifierState state) {
        p_Action action = OnDevice(atSwitchAmp, L"Amplifier");
        std::get<aceSetDevice>(action.Parameter).AmpState = state;
        return action;
    }
    static p_Action Unit(const String& name, const String& path) {
        p_Action action = OnDevice(atSwitchUnit, name);
        std::get<aceSetDevice>(action.Parameter).Path = path;
        return action;
    }
    static Lines PathsAsked(const String& name) {
        return {Found(name), Called(L"SwitchUnit.Paths", name)};
    }
    const aceSetDevice& Held() { return Parts().held.Records.SetDevice; }
    /// What is offered in the next menu goes while it stands.
    void LoseDevicesInTheMenu() {
        host->beforeCall = [this](StringView operation, sim::CallArguments) {
            if (operation == L"UserDialogs.ShowPopupMenu") {
                host->bench.devices.clear();
            }
        };
    }
    /// The action as it was, and nothing told of what the choice came to.
    void ExpectUnchanged(const String& name) {
        host->beforeCall = nullptr;
        EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), IsEmpty());
        EXPECT_THAT(host->journal.LinesOf(L"UserDialogs.ShowMessageBox"), IsEmpty());
        EXPECT_EQ(StoredDevice().DevName, name);
        EXPECT_FALSE(engine->Change());
    }
};

// ---- amplifiers --------------------------------------------------------------------------------

TEST_F(SwitchDialog, AChosenAmplifierIsTakenWithoutSettings) {
    OpenTemplate();
    AnswerMenu(L"Amplifier");
    AddKind(atSwitchAmp, {See(L"lblDevice", L"T(9147)"), Press(L"imgAmplifier"), ForgetCalls(),
                          See(L"lblDevice", L"Amplifier"), SeeTip(L"lblDevice", L"Amplifier"),
                          Do([this](Form&) { EXPECT_TRUE(Held().AmplDev); }),
                          Choose(L"cboSwitchAmp", 3), PressOk});
    EXPECT_THAT(TakeCalls(), ElementsAre(EntryTaken, DialogHidden));
    EXPECT_EQ(StoredDevice().DevName, L"Amplifier");
    EXPECT_EQ(StoredDevice().AmpState, 3);
    EXPECT_EQ(LinesBelow(L"ETE"), Lines{L"T(9073): Amplifier --> Operate"});
}

TEST_F(SwitchDialog, TheChoiceOfAnAmplifierAsksForNothingButTheDevice) {
    OpenTemplate({Amplifier(1)});
    AnswerMenu(L"Amplifier");
    EditLine({ForgetCalls(), Press(L"imgAmplifier"), PressCancel});
    EXPECT_EQ(TakeCalls(), Journal(ClassAsked(L"Amplifiers"), MenuShown(L"1 \"Amplifier\" checked"),
                                   Found(L"Amplifier"), NameOf(L"Amplifier"), DialogHidden));
}

TEST_F(SwitchDialog, EachStateOfAnAmplifierIsTheItemOfItsNumber) {
    const Lines states{L"Power Off", L"Power On", L"Standby", L"Operate", L"Reset"};
    OpenTemplate({Amplifier(4)});
    for (std::int32_t state = 0; state < 5; ++state) {
        EditLine({Choose(L"cboSwitchAmp", state), PressOk});
        EXPECT_EQ(StoredDevice().AmpState, state);
        EditLine({SeeItems(L"cboSwitchAmp", states),
                  See(L"cboSwitchAmp", states[static_cast<std::size_t>(state)]), PressCancel});
    }
}

TEST_F(SwitchDialog, AStateThatTheListLacksIsKept) {
    OpenTemplate({Amplifier(7)});
    EditLine({See(L"cboSwitchAmp", L""), PressOk});
    EXPECT_EQ(StoredDevice().AmpState, 7);
    EXPECT_FALSE(engine->Change());
}

TEST_F(SwitchDialog, AnAmplifierThatIsMissingKeepsItsNameWithoutABox) {
    OpenTemplate({Amplifier(1)});
    host->bench.devices.clear();
    EditLine({See(L"lblDevice", L"Amplifier"), Choose(L"cboSwitchAmp", 0), PressOk});
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Amplifier"), DialogShown, EntryTaken, DialogHidden));
    EXPECT_EQ(StoredDevice().DevName, L"Amplifier");
    EXPECT_EQ(StoredDevice().AmpState, 0);
}

TEST_F(SwitchDialog, AnAmplifierThatHasGoneSinceTheMenuCameUpIsNotTaken) {
    const auto amplifier = std::dynamic_pointer_cast<IAmplifier>(host->bench.Device(L"Amplifier"));
    Add<sim::SimAmplifier>(L"Spare");
    OpenTemplate({Amplifier(1)});
    LoseDevicesInTheMenu();
    AnswerMenu(L"Spare");
    EditLine({Press(L"imgAmplifier"), See(L"lblDevice", L"Amplifier"), SeeTip(L"lblDevice", L""),
              Do([&](Form&) {
                  EXPECT_EQ(Held().DevName, L"Amplifier");
                  EXPECT_EQ(Held().AmplDev, amplifier);
                  EXPECT_FALSE(Parts().DeviceSettingsChanged);
              }),
              PressOk});
    ExpectUnchanged(L"Amplifier");
}

/// The stored action comes with the device of an earlier bench.
TEST_F(SwitchDialog, TheAmplifierOfAnExistingActionIsLookedUpAndHeld) {
    p_Action action = Amplifier(1);
    std::get<aceSetDevice>(action.Parameter).AmplDev =
        std::make_shared<sim::SimAmplifier>(*host, L"Amplifier");
    const std::shared_ptr<sim::SimDevice> found = host->bench.Device(L"Amplifier");
    OpenTemplate({action});
    EditLine({Do([&](Form&) {
                  EXPECT_EQ(Held().Device, found);
                  EXPECT_EQ(Held().AmplDev, std::dynamic_pointer_cast<IAmplifier>(found));
              }),
              PressCancel});
}

TEST_F(SwitchDialog, NeitherKindHasSettingsOrATest) {
    OpenTemplate();
    for (const p_ActionTypes kind : {atSwitchAmp, atSwitchUnit}) {
        AddKind(kind, {SeeShown({}, {L"imgDevice", L"lblDeviceSett", L"chkNotify", L"chkWait",
                                     L"txtWaitTime", L"cmdTestAction(2)"}),
                       PressCancel});
    }
}

// ---- switch units ------------------------------------------------------------------------------

TEST_F(SwitchDialog, AChosenUnitBringsItsPathsOfWhichNoneIsChosen) {
    OpenTemplate();
    AnswerMenu(L"Relays");
    AddKind(atSwitchUnit,
            {SeeItems(L"cboSUPaths", {}), ForgetCalls(), Press(L"imgSwitchUnit"),
             See(L"lblDevice", L"Relays"), SeeItems(L"cboSUPaths", {L"A", L"B", L"b"}),
             See(L"cboSUPaths", L""), Do([this](Form&) { EXPECT_TRUE(Held().SwitchDev); }),
             Choose(L"cboSUPaths", 1), PressOk});
    EXPECT_EQ(TakeCalls(),
              Journal(ClassAsked(L"SwitchUnits"), MenuShown(L"1 \"Relays\", 2 \"Matrix\""),
                      Found(L"Relays"), NameOf(L"Relays"), PathsAsked(L"Relays"), EntryTaken,
                      DialogHidden));
    EXPECT_EQ(StoredDevice().Path, L"B");
    EXPECT_EQ(LinesBelow(L"ETE"), Lines{L"T(9074): Relays --> B"});
}

TEST_F(SwitchDialog, AUnitOfWhichNoPathIsChosenIsTakenWithoutOne) {
    OpenTemplate({Unit(L"Relays", L"B")});
    AnswerMenu(L"Matrix");
    EditLine({Press(L"imgSwitchUnit"), SeeItems(L"cboSUPaths", {L"In", L"Out"}), PressOk});
    EXPECT_EQ(StoredDevice().DevName, L"Matrix");
    EXPECT_EQ(StoredDevice().Path, L"");
}

TEST_F(SwitchDialog, TheSameUnitChosenAgainLosesItsPath) {
    OpenTemplate({Unit(L"Relays", L"B")});
    AnswerMenu(L"Relays");
    EditLine({Press(L"imgSwitchUnit"), See(L"cboSUPaths", L""), PressOk});
    EXPECT_EQ(StoredDevice().Path, L"");
    EXPECT_TRUE(engine->Change());
}

TEST_F(SwitchDialog, AnExistingUnitHasItsPathChosenByAnExactComparison) {
    for (const auto& [path, index] :
         std::initializer_list<std::pair<String, std::int32_t>>{{L"B", 1}, {L"b", 2}, {L"a", -1}}) {
        OpenTemplate({Unit(L"Relays", path)});
        EditLine({SeeItems(L"cboSUPaths", {L"A", L"B", L"b"}), See(L"cboSUPaths", path),
                  Do([index = index](Form& form) {
                      EXPECT_EQ(form.Find<DropDown>(L"cboSUPaths")->listIndex, index);
                  }),
                  PressOk});
        EXPECT_EQ(StoredDevice().Path, path);
        EXPECT_FALSE(engine->Change());
    }
}

TEST_F(SwitchDialog, AUnitThatIsMissingKeepsItsNameAndItsPathWithoutABox) {
    OpenTemplate({Unit(L"Relays", L"B")});
    host->bench.devices.clear();
    EditLine({See(L"lblDevice", L"Relays"), See(L"cboSUPaths", L"B"), PressOk});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), IsEmpty());
    EXPECT_EQ(StoredDevice().Path, L"B");
    EXPECT_FALSE(engine->Change());
}

TEST_F(SwitchDialog, AUnitThatHasGoneSinceTheMenuCameUpIsNotTaken) {
    const auto unit = std::dynamic_pointer_cast<ISwitchUnit>(host->bench.Device(L"Relays"));
    OpenTemplate({Unit(L"Relays", L"B")});
    LoseDevicesInTheMenu();
    AnswerMenu(L"Matrix");
    EditLine({Press(L"imgSwitchUnit"), See(L"lblDevice", L"Relays"), SeeTip(L"lblDevice", L""),
              SeeItems(L"cboSUPaths", {L"A", L"B", L"b"}), See(L"cboSUPaths", L"B"), Do([&](Form&) {
                  EXPECT_EQ(Held().DevName, L"Relays");
                  EXPECT_EQ(Held().SwitchDev, unit);
                  EXPECT_FALSE(Parts().DeviceSettingsChanged);
              }),
              PressOk});
    ExpectUnchanged(L"Relays");
    EXPECT_EQ(StoredDevice().Path, L"B");
}

TEST_F(SwitchDialog, TheUnitOfAnExistingActionIsLookedUpAndHeld) {
    p_Action action = Unit(L"Relays", L"B");
    std::get<aceSetDevice>(action.Parameter).SwitchDev =
        std::make_shared<sim::SimSwitchUnit>(*host, L"Relays");
    const std::shared_ptr<sim::SimDevice> found = host->bench.Device(L"Relays");
    OpenTemplate({action});
    EditLine({Do([&](Form&) {
                  EXPECT_EQ(Held().Device, found);
                  EXPECT_EQ(Held().SwitchDev, std::dynamic_pointer_cast<ISwitchUnit>(found));
              }),
              PressCancel});
}

TEST_F(SwitchDialog, ADeviceThatIsNoUnitLeavesTheListOfPathsAsItWas) {
    const auto other =
        std::make_shared<sim::SimDevice>(*host, L"Other", sim::SimClass::SwitchUnits);
    host->bench.Keep(other);
    OpenTemplate();
    AnswerMenu(L"Relays");
    AnswerMenu(L"Other");
    AddKind(atSwitchUnit, {Press(L"imgSwitchUnit"), Choose(L"cboSUPaths", 2),
                           Press(L"imgSwitchUnit"), See(L"lblDevice", L"Other"),
                           SeeItems(L"cboSUPaths", {L"A", L"B", L"b"}), See(L"cboSUPaths", L"b"),
                           Do([this](Form&) { EXPECT_FALSE(Held().SwitchDev); }), PressCancel});
}

TEST_F(SwitchDialog, APathOfTheDialogBeforeIsNotOfferedToANewUnit) {
    OpenTemplate({Unit(L"Relays", L"B")});
    EditLine({PressCancel});
    AddKind(atSwitchUnit, {See(L"lblDevice", L"T(9147)"), SeeItems(L"cboSUPaths", {}),
                           See(L"cboSUPaths", L""), PressCancel});
}

TEST_F(SwitchDialog, AUnitThatFailsToTellItsPathsEndsTheChoiceQuietly) {
    OpenTemplate({Unit(L"Relays", L"B")});
    AnswerMenu(L"Matrix");
    EditLine({Do([this](Form&) { host->faults.FailOperation(L"SwitchUnit.Paths", 1, 57); }),
              Press(L"imgSwitchUnit"), See(L"lblDevice", L"Relays"), See(L"cboSUPaths", L"B"),
              PressOk});
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog.ReportError"), IsEmpty());
    EXPECT_EQ(StoredDevice().DevName, L"Relays");
    EXPECT_FALSE(engine->Change());
}

TEST_F(SwitchDialog, TheUnitOfAGeneratorsDialogBeforeHasItsOwnPlaceAgain) {
    Add<sim::SimBcGenerator>(L"Radio");
    Add<sim::SimSignalPath>(L"Path A");
    Section(7) = {L"Gain=3"};
    OpenTemplate({OnDevice(atSetDevice, L"Radio"), Unit(L"Relays", L"B")});
    AnswerMenu(L"Path A");
    EditLine({Press(L"imgSwitchUnit"), PressCancel});
    AnswerMenu(L"Matrix");
    EditLine({SeeShown({}, {L"lblSwUnit"}), ForgetCalls(), Press(L"imgSwitchUnit"),
              See(L"lblDevice", L"Matrix"), PressCancel},
             L"CHI1ETE");
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList.DevicesOfClass"),
                ElementsAre(ClassAsked(L"SwitchUnits")));
}

}  // namespace
}  // namespace ace::test
