// Errors of the host while a dialog of devices or macros opens or stands, and a host that ends the
// editor from inside one of its calls.
#include "editor/macro_bench.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DialogFailures : public MacroBench {
  protected:
    DialogFailures() {
        AddMonitor(L"Camera");
        AddMonitor(L"Probe");
        Add<sim::SimBcGenerator>(L"Radio");
        Add<sim::SimSwitchUnit>(L"Relays");
        Section(7) = {L"Gain=3"};
    }
    /// The host ends the editor inside the first call of an operation from now on.
    FormAct EndEditorIn(StringView operation) {
        return Do([this, operation](Form&) { In(operation, [this] { engine->Release(); }); });
    }
    void ExpectEditorGone() {
        EXPECT_FALSE(context.Editor);
        EXPECT_EQ(StoredDevice().DevName, L"Camera");
        EXPECT_FALSE(engine->Change());
    }
};

// ---- picking -----------------------------------------------------------------------------------

TEST_F(DialogFailures, ADeviceWhoseSettingsCannotBeBegunAnewIsRefused) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    for (const StringView call : {L"SettingsFile.SetSection", L"SettingsFile.Release"}) {
        host->faults.FailOperation(call, 1, 57);
        AnswerMenu(L"Probe");
        AnswerBox(L"T(9208)");
        EditLine({PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDevice", L"Probe"),
                  See(L"lblDeviceSett", L"T(9148)"), PressOk, PressCancel});
        host->faults.Clear();
        EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
        EXPECT_EQ(StoredDevice().DevName, L"Camera");
    }
    EXPECT_FALSE(engine->Change());
}

TEST_F(DialogFailures, TheSectionIsBegunAnewBeforeItIsEditedWhereThatHadFailed) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    host->faults.FailOperation(L"SettingsFile.SetSection", 1, 57);
    AnswerMenu(L"Probe");
    CancelSettings();
    AnswerBox(L"T(9208)");
    EditLine(
        {PressMouse(L"imgDevice", MouseButtons::Right), Press(L"imgDevice"), PressOk, PressCancel});
    EXPECT_THAT(Section(7), ElementsAre(L""));
}

TEST_F(DialogFailures, ADeviceOfWhichTheClassCannotBeHadLeavesTheLabels) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    AnswerMenu(L"Probe");
    EditLine({Do([&](Form&) { host->faults.FailOperation(L"DeviceList.ClassName", 1, 57); }),
              PressMouse(L"imgDevice", MouseButtons::Right), See(L"lblDevice", L"Camera"),
              See(L"lblDeviceSett", L"Gain=3"), PressOk});
    EXPECT_EQ(StoredDevice().DevName, L"Camera");
    EXPECT_FALSE(engine->Change());
}

TEST_F(DialogFailures, SettingsThatCannotBeWrittenDoNotShowAsSet) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    host->faults.FailOperation(L"SettingsFile.Release", 1, 57);
    AnswerSettings(L"Gain=9");
    EditLine({Press(L"imgDevice"), See(L"lblDeviceSett", L"Gain=3"), PressOk});
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
    EXPECT_FALSE(engine->Change());
}

// ---- opening -----------------------------------------------------------------------------------

TEST_F(DialogFailures, AnErrorWhileADeviceIsShownComesOutAndNoDialogComesUp) {
    OpenTemplate({OnDevice(atSetDevice, L"Camera")});
    for (const StringView call :
         {L"DeviceList.GetDevice", L"Device.DeviceClass", L"DeviceList.ClassName",
          L"SystemServices.OpenSettingsFile", L"Device.ReadSettings", L"Device.SettingsText"}) {
        Select(L"CHI0ETE");
        host->faults.FailOperation(call, 1, 57);
        EXPECT_EQ(ErrorOf([&] { tree.DoubleClick(L"CHI0ETE"); }), 57);
        host->faults.Clear();
        EXPECT_THAT(host->journal.LinesOf(L"FormHost"), IsEmpty());
        EditLine({See(L"lblDevice", L"Camera"), See(L"lblDeviceSett", L"Gain=3"), PressOk});
    }
    EXPECT_FALSE(engine->Change());
}

TEST_F(DialogFailures, AnErrorOfTheHostsDevicesFailsTheFirstOpeningOfTheEditorAndNotTheNext) {
    State().Modul = aceTemplate;
    Add<sim::SimRfGenerator>(L"Synth 1");
    host->faults.FailOperation(L"DeviceList.DevicesOfClass", 1, 57);
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(&list, &tree); }), 57);
    host->faults.Clear();
    State().EmiTemplate = true;
    Open(aceTemplate);
    AddKind(atTrackFreq, {SeeItems(L"cboGenerator", {L"Synth 1"}), PressCancel}, L"EFR");
}

// ---- macros ------------------------------------------------------------------------------------

TEST_F(DialogFailures, AMacroThatFailedToLoadIsLoadedAgainForTheNextActionWithIt) {
    for (const StringView call :
         {L"ApiMacro.Load", L"ApiMacro.ParameterCount", L"ApiMacro.ParameterInfo"}) {
        OpenTemplate({Macro(L"log.mac", {L"1", L"Levels", L"2"})});
        host->user.Expect(L"frmEditor", TakeProgram(L"log.mac"));
        Select(L"ETE");
        host->faults.FailOperation(call, 1, 57);
        EXPECT_EQ(ErrorOf([&] { list.DoubleClick(L"ACT:14"); }), 57);
        host->faults.Clear();
        EditLine({HasTabs(3, 0), HasValue(L"1"), PressOk});
        EXPECT_THAT(StoredParameters(), ElementsAre(L"1", L"Levels", L"2"));
        EXPECT_FALSE(engine->Change());
        AddMacro({TakeProgram(L""), PressCancel});
    }
}

TEST_F(DialogFailures, AProgramThatCannotBeLoadedLeavesNoTabsOfTheOneBefore) {
    OpenTemplate();
    host->faults.FailOperation(L"ApiMacro.ParameterCount", 2, 57);
    Select(L"ETE");
    const FormAct takeTwo = Do([](Form& form) {
        EXPECT_TRUE(TakeProgram(L"log.mac")(form));
        EXPECT_EQ(ErrorOf([&] { TakeProgram(L"one.mac")(form); }), 57);
    });
    AddMacro({takeTwo, HasNoTabs(), PressCancel});
}

// ---- a host that ends the editor ---------------------------------------------------------------

TEST_F(DialogFailures, AHostMayEndTheEditorWhileAMenuIsFilledOrStands) {
    struct Row {
        StringView call;
        bool answersBefore = false;  ///< the menu, before the editor ends
        bool answersBehind = false;
    };
    // Behind the search for devices no menu comes up.
    constexpr Row rows[] = {{L"DeviceList.DevicesOfClass"},
                            {L"MonitorDevice.Capabilities"},
                            {L"UserDialogs.ShowPopupMenu", false, true},
                            {L"Device.Name", true, false}};
    for (const Row& row : rows) {
        OpenTemplate({OnDevice(atCheckEut, L"Camera")});
        if (row.answersBefore) {
            AnswerMenu(L"Probe");
        }
        host->user.ExpectQuestion(true);
        if (row.answersBehind) {
            AnswerMenu(L"Probe");
        }
        EditLine({EndEditorIn(row.call), PressMouse(L"imgDevice", MouseButtons::Right)});
        ExpectEditorGone();
        EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
    }
}

TEST_F(DialogFailures, AHostMayEndTheEditorWhileItsDialogOfSettingsStands) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    host->user.ExpectQuestion(true);
    AnswerSettings(L"Gain=9");
    EditLine({EndEditorIn(L"DeviceSettingsStore.EditSettings"), Press(L"imgDevice")});
    ExpectEditorGone();
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=9"));
}

TEST_F(DialogFailures, AHostMayEndTheEditorWhileADeviceIsTried) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    host->user.ExpectQuestion(true);
    EditLine({EndEditorIn(L"MonitorDevice.ReadChannel"), Press(L"cmdTestAction(2)")});
    ExpectEditorGone();
}

TEST_F(DialogFailures, AHostThatEndsTheEditorBeforeTheDialogComesUpGetsNone) {
    OpenTemplate({OnDevice(atCheckEut, L"Camera")});
    Select(L"CHI0ETE");
    EndEditorIn(L"DeviceList.GetDevice")(*std::dynamic_pointer_cast<frmEditor>(context.Editor));
    EXPECT_EQ(ErrorOf([&] { tree.DoubleClick(L"CHI0ETE"); }), 0);
    EXPECT_THAT(host->journal.LinesOf(L"FormHost"), IsEmpty());
    ExpectEditorGone();
}

}  // namespace
}  // namespace ace::test
