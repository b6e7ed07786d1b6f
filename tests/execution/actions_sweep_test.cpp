#include <ace/execution/dispatcher.h>

#include "support/fake_forms.h"
#include "support/sweep.h"

namespace ace::test {
namespace {

/// An action and what each of its host calls does when it fails. The calls of a wait and of a sound
/// are swallowed and end it; all others are reported and raised.
SweepRow RowOf(std::string name, const p_Action& action, std::vector<SweepStep> steps,
               std::optional<std::int32_t> testState = {}) {
    steps.insert(steps.begin(), Handled(L"TraceLog.IsEnabled"));
    steps.push_back(Handled(L"TraceLog.IsEnabled"));
    return {std::move(name),
            [=](SweepRig& rig) {
                rig.MakeEngine();
                const auto form = std::make_shared<FakeCommentForm>(*rig.host);
                form->answers.assign(100, false);
                rig.context.CommentForm = form;
                rig.host->brokenSounds = {L"broken.wav"};
                rig.host->testState = testState;
            },
            [=](SweepRig& rig) {
                p_Action copy = action;
                modActions::DoAction(rig.context, copy, aceTemplate);
                EXPECT_EQ(copy, action);
            },
            [](const SweepRig& rig) -> String {
                return rig.context.InitReceiverPending ? L"pending" : L"not pending";
            },
            std::move(steps)};
}

aceNotify Notification(const String& waveFile, bool beep, const String& message) {
    aceNotify record;
    record.WaveFile = waveFile;
    record.Beep = beep;
    record.Message = message;
    return record;
}
/// A message with a placeholder whose value needs the locale.
aceNotify Placeholder() {
    aceNotify record = Notification(L"", false, L"#N# dBm");
    record.vks.count = 1;
    record.vks.strSearch.Redim(0, 0);
    record.vks.strSearch[0] = L"#N#";
    record.vks.valReplace.Redim(0, 0);
    record.vks.valReplace[0] = 1.5;
    return record;
}

const std::vector<SweepRow> Rows = {
    RowOf("Wait", Action(atWait, aceWait{1.0}),
          {Swallowed(L"Platform.DecimalSeparator"), Swallowed(L"StatusDisplay.ShowStatus"),
           Swallowed(L"Language.Text"), Swallowed(L"SystemServices.ShowTimedMessage"),
           Swallowed(L"StatusDisplay.ShowStatus")}),
    RowOf("NotifyWithSound", Action(atNotify, Notification(L"broken.wav", true, L"")),
          {Swallowed(L"Platform.sndPlaySoundA"), Swallowed(L"Platform.Beep"),
           Swallowed(L"Platform.Beep"), Handled(L"DeviceList.GetDeviceListHost"),
           Handled(L"DeviceList.PostEvent"), Handled(L"Platform.Yield"),
           Handled(L"DeviceList.GetDeviceListHost"), Handled(L"DeviceList.PostEvent"),
           Handled(L"Platform.Yield")}),
    RowOf("NotifyWithPlaceholder", Action(atNotify, Placeholder()),
          {Handled(L"DeviceList.GetDeviceListHost"), Handled(L"DeviceList.PostEvent"),
           Handled(L"Platform.Yield"), Handled(L"Platform.DecimalSeparator"),
           Handled(L"CommentForm.DisplayMessage"), Handled(L"DeviceList.GetDeviceListHost"),
           Handled(L"DeviceList.PostEvent"), Handled(L"Platform.Yield")}),
    RowOf("Question", Action(atQuestion, Notification(L"gong.wav", false, L"Well?")),
          {Swallowed(L"Platform.sndPlaySoundA"), Handled(L"Platform.Yield"),
           Handled(L"CommentForm.DisplayMessage"), Handled(L"Platform.Yield")}),
    RowOf("QuestionWithoutAMessage", Action(atQuestion, aceNotify{}),
          {Handled(L"Platform.Yield"), Handled(L"Platform.Yield")}),
    RowOf("UnprotectedReceivers", Action(atProtRec),
          {Handled(L"SystemServices.GetCurrentTest", L"not pending"),
           Handled(L"TestInfo.GetTestState", L"not pending")},
          14),
    RowOf("TestStop", Action(atTestStop), {}),
    RowOf("ParkAcc", Action(atParkAcc), {}),
    RowOf("RemoteWithoutTexts", Action(atRemote, aceRemote{}), {}),
};

class ActionsSweepTest : public ::testing::TestWithParam<SweepRow> {};

TEST_P(ActionsSweepTest, EveryHostCallThatFailsIsSwallowedOrReportedOnceAndRaised) {
    Sweep(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Actions, ActionsSweepTest, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
