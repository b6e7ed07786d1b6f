// A host that closes the dialog from inside a picker of devices: what is chosen or set up then
// belongs to a dialog that has gone.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PickerReentry : public BenchDialog {
  protected:
    PickerReentry() {
        for (const String name : {L"Camera", L"Probe", L"Other"}) {
            AddMonitor(name);
        }
        Section(7) = {L"Gain=3"};
        Section(8) = {L"Zoom=1"};
        p_Action second = OnDevice(atSetDevice, L"Probe");
        std::get<aceSetDevice>(second.Parameter).ChanNo = 8;
        OpenTemplate({OnDevice(atSetDevice, L"Camera"), second});
    }
    /// Inside the next call of an operation, the dialog is closed; that of the second line can't
    /// open before the call has come back.
    FormAct CloseIn(StringView operation) {
        return Do([this, operation](Form&) {
            In(operation, [this] {
                std::dynamic_pointer_cast<frmEditor>(context.Editor)->CloseByFrame();
                EXPECT_EQ(ErrorOf([&] { tree.DoubleClick(L"CHI1ETE"); }), 10);
            });
        });
    }
    void ExpectNothingDone() {
        EXPECT_THAT(Section(7), ElementsAre(L"Gain=3"));
        EXPECT_THAT(Section(8), ElementsAre(L"Zoom=1"));
        EXPECT_THAT(host->journal.LinesOf(L"DeviceSettingsStore"), IsEmpty());
        EXPECT_EQ(StoredDevice(0).DevName, L"Camera");
        EXPECT_EQ(StoredDevice(1).DevName, L"Probe");
        EXPECT_FALSE(engine->Change());
    }
};

TEST_F(PickerReentry, AChoiceWhoseDialogHasGoneEmptiesNoSectionAndAsksForNoSettings) {
    for (const StringView call : {L"UserDialogs.ShowPopupMenu", L"Device.Name"}) {
        AnswerMenu(L"Other");
        EditLine({CloseIn(call), PressMouse(L"imgDevice", MouseButtons::Right)});
        ExpectNothingDone();
    }
}

TEST_F(PickerReentry, NoMenuComesUpForADialogThatHasGone) {
    EditLine(
        {CloseIn(L"DeviceList.DevicesOfClass"), PressMouse(L"imgDevice", MouseButtons::Right)});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), IsEmpty());
    ExpectNothingDone();
}

TEST_F(PickerReentry, SettingsWhoseDialogHasGoneAreNotEdited) {
    for (const StringView call : {L"Device.ReadSettings", L"Device.SettingsText"}) {
        EditLine({CloseIn(call), Press(L"imgDevice")});
        ExpectNothingDone();
    }
}

TEST_F(PickerReentry, NoOtherDialogOpensBeforeTheFirstOneComesUp) {
    for (const StringView call : {L"DeviceList.GetDevice", L"Device.SettingsText"}) {
        CloseIn(call)(*std::dynamic_pointer_cast<frmEditor>(context.Editor));
        EditLine({See(L"lblDevice", L"Camera"), See(L"lblDeviceSett", L"Gain=3"), PressCancel});
        ExpectNothingDone();
    }
}

/// The lists that show now may be another module's, with a settings file of its own.
TEST_F(PickerReentry, BehindALoadNoDeviceIsPickedAndNoSettingsAreEdited) {
    const FormAct load = Do([&](Form&) { engine->LoadEditor(&list, &tree); });
    EditLine({load, ForgetCalls(), PressMouse(L"imgDevice", MouseButtons::Right),
              Press(L"imgDevice"), PressCancel});
    EXPECT_THAT(host->journal.LinesOf(L"UserDialogs"), IsEmpty());
    ExpectNothingDone();
    AnswerMenu(L"Other");
    EditLine({Do([&](Form& form) { In(L"UserDialogs.ShowPopupMenu", [&] { load(form); }); }),
              PressMouse(L"imgDevice", MouseButtons::Right), PressCancel});
    ExpectNothingDone();
}

TEST_F(PickerReentry, SettingsThatAreConfirmedBehindTheDialogComeIntoItsSection) {
    AnswerSettings(L"Gain=9");
    EditLine({CloseIn(L"DeviceSettingsStore.EditSettings"), Press(L"imgDevice")});
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=9"));
    EXPECT_THAT(Section(8), ElementsAre(L"Zoom=1"));
}

}  // namespace
}  // namespace ace::test
