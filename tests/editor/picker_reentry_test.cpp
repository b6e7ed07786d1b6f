// A host that lets the operator open another action from inside a picker of devices: what is chosen
// or set up then belongs to a dialog that has gone.
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
    /// Inside the next call of an operation, the dialog is closed, and that of the second line
    /// opens and is cancelled.
    FormAct OpenSecondIn(StringView operation) {
        return Do([this, operation](Form&) {
            host->beforeCall = [this, operation, isDone = false](StringView called,
                                                                 sim::CallArguments) mutable {
                if (called == operation && !std::exchange(isDone, true)) {
                    std::dynamic_pointer_cast<frmEditor>(context.Editor)->CloseByFrame();
                    host->user.Expect(
                        {L"frmEditor", {Reads(L"lblDevice", L"Probe"), Cancel()}, {}});
                    EXPECT_TRUE(tree.DoubleClick(L"CHI1ETE"));
                }
            };
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
    for (const StringView call :
         {L"DeviceList.DevicesOfClass", L"UserDialogs.ShowPopupMenu", L"Device.Name"}) {
        AnswerMenu(L"Other");
        EditLine({OpenSecondIn(call), PressMouse(L"imgDevice", MouseButtons::Right)});
        ExpectNothingDone();
    }
}

TEST_F(PickerReentry, SettingsWhoseDialogHasGoneAreNotEdited) {
    for (const StringView call : {L"Device.ReadSettings", L"Device.SettingsText"}) {
        EditLine({OpenSecondIn(call), Press(L"imgDevice")});
        ExpectNothingDone();
    }
}

TEST_F(PickerReentry, ADialogThatAnotherOneOvertakesBeforeItIsShownIsNotShown) {
    for (const StringView call : {L"DeviceList.GetDevice", L"Device.SettingsText"}) {
        Select(L"CHI0ETE");
        OpenSecondIn(call)(*std::dynamic_pointer_cast<frmEditor>(context.Editor));
        EXPECT_TRUE(tree.DoubleClick(L"CHI0ETE"));
        EXPECT_EQ(host->journal.LinesOf(L"FormHost.ShowModal").size(), 1U);
        ExpectNothingDone();
        EditLine({Reads(L"lblDevice", L"Camera"), Reads(L"lblDeviceSett", L"Gain=3"), Cancel()});
    }
}

TEST_F(PickerReentry, SettingsThatAreConfirmedBehindAnotherDialogComeIntoTheSectionOfTheFirst) {
    AnswerSettings(L"Gain=9");
    EditLine({OpenSecondIn(L"DeviceSettingsStore.EditSettings"), Press(L"imgDevice")});
    EXPECT_THAT(Section(7), ElementsAre(L"Gain=9"));
    EXPECT_THAT(Section(8), ElementsAre(L"Zoom=1"));
}

}  // namespace
}  // namespace ace::test
