#include "workbench/session/effect_words.h"

#include <gtest/gtest.h>

#include <ace/host/user_dialogs.h>

#include "sim/call_text.h"

namespace ace::workbench {
namespace {

String WordsOfCall(const wchar_t* operation, sim::CallArguments arguments) {
    return EffectWords({operation, arguments});
}

TEST(EffectWords, EffectsAreToldInPlainWords) {
    using sim::CallText;
    EXPECT_EQ(WordsOfCall(L"SystemServices.ShowTimedMessage",
                          CallText(L"Wait 1.500 s\r\nPlease wait", 64, L"Wait", 1500)),
              L"wait 1.5 s");
    EXPECT_EQ(WordsOfCall(L"Platform.sndPlaySoundA", CallText(L"C:\\a.wav", 19)),
              L"sound C:\\a.wav");
    EXPECT_EQ(WordsOfCall(L"Platform.Beep", {}), L"beep");
    EXPECT_EQ(WordsOfCall(L"DeviceList.PostEvent", CallText(L"ActionEngine", 3, L"Standby On")),
              L"event to the devices: Standby On");
    EXPECT_EQ(WordsOfCall(L"StatusDisplay.ShowStatus", CallText(L"A \"b\", c", false, false)),
              L"status line \"A \"b\", c\"");
    EXPECT_EQ(WordsOfCall(L"TraceLog.ReportError", CallText(13, L"Type mismatch", 1)),
              L"error report: error 13, Type mismatch");
}

TEST(EffectWords, AMessageForTheOperatorIsADialogAndAllElseAnEffect) {
    EXPECT_EQ(EffectKind({L"UserDialogs.ShowMessageBox", {}}), LineKind::Dialog);
    EXPECT_EQ(EffectKind({L"Platform.Beep", {}}), LineKind::Effect);
    EXPECT_EQ(EffectKind({L"Some.OtherCall", {}}), LineKind::Effect);
}

TEST(EffectWords, AnEventAboutAnAmplifierHasItsStateInWords) {
    using sim::CallText;
    const auto wordsOf = [](const wchar_t* state) {
        return WordsOfCall(L"DeviceList.PostEvent", CallText(L"ActionEngine", 4, String(state)));
    };
    EXPECT_EQ(wordsOf(L"0"), L"event to the devices: amplifier power off");
    EXPECT_EQ(wordsOf(L"1"), L"event to the devices: amplifier power on");
    EXPECT_EQ(wordsOf(L"2"), L"event to the devices: amplifier standby");
    EXPECT_EQ(wordsOf(L"3"), L"event to the devices: amplifier operate");
    EXPECT_EQ(wordsOf(L"4"), L"event to the devices: amplifier reset");
    EXPECT_EQ(wordsOf(L"5"), L"event to the devices: amplifier state 5");
    EXPECT_EQ(wordsOf(L"-1"), L"event to the devices: amplifier state -1");
}

TEST(EffectWords, WhatAnotherLineTellsAndWhatHasNoEffectIsSilent) {
    using sim::CallText;
    EXPECT_EQ(WordsOfCall(L"StatusDisplay.ShowStatus", CallText(L"Wait 1.500 s", true, true)), L"");
    EXPECT_EQ(WordsOfCall(L"StatusDisplay.ShowStatus", CallText(L"", false, false)), L"");
    EXPECT_EQ(WordsOfCall(L"Platform.Yield", {}), L"");
    EXPECT_EQ(WordsOfCall(L"Utilities.IsEqual", CallText(1.0, 2.0)), L"");
    EXPECT_EQ(EffectWords({L"Platform.ThreadId", {}, 0, true}), L"");
}

TEST(EffectWords, WhatSurroundsCommandsAndProgramsIsTold) {
    using sim::CallText;
    EXPECT_EQ(WordsOfCall(L"SystemServices.SetProgressText", CallText(L"Waiting for it")),
              L"busy: Waiting for it");
    EXPECT_EQ(WordsOfCall(L"SystemServices.SetProgressText", CallText(L"")), L"");
    EXPECT_EQ(WordsOfCall(L"SystemServices.WriteMacroSync", CallText(1, 14, L"STARTED")),
              L"macro synchronisation: STARTED");
    EXPECT_EQ(WordsOfCall(L"UserDialogs.ShowMessageBox", CallText(L"no\r\nlicence", 16, L"Macro")),
              L"message \"no / licence\"");
    EXPECT_EQ(WordsOfCall(L"ApiMacro.Abort", {}), L"the API macro is told to end");
    EXPECT_EQ(WordsOfCall(L"SettingsFile.GetLong", CallText(L"A", L"B", 180)), L"");
}

TEST(EffectWords, AQuestionIsToldByItsAnswerWhateverIconItHas) {
    using sim::CallText;
    constexpr std::int32_t question = IUserDialogs::YesNo | IUserDialogs::Question;
    EXPECT_EQ(WordsOfCall(L"UserDialogs.ShowMessageBox", CallText(L"Delete?", 4, L"A")), L"");
    EXPECT_EQ(WordsOfCall(L"UserDialogs.ShowMessageBox", CallText(L"Delete?", question, L"A")),
              L"");
    EXPECT_EQ(WordsOfCall(L"UserDialogs.ShowMessageBox", CallText(L"Saved", 64, L"A")),
              L"message \"Saved\"");
}

TEST(EffectWords, ACallThatTheTableDoesNotKnowIsToldAsItStands) {
    EXPECT_EQ(WordsOfCall(L"Oven.Heat", sim::CallText(L"slowly", 3)), L"Oven.Heat(\"slowly\", 3)");
}

}  // namespace
}  // namespace ace::workbench
