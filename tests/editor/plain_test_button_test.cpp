/// The test button of notifications, questions, commands and programs.
#include "editor/shown_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const sim::FormAct PressTest = sim::Press(L"cmdTestAction(0)");
const sim::FormAct SendTest = sim::Press(L"cmdTestAction(1)");
const String Busy = L"UserDialogs.SetBusyPointer(true)";
const String BusyNoMore = L"UserDialogs.SetBusyPointer(false)";
const String Beeped = L"Platform.Beep()";

String Played(const String& file) {
    return L"Platform.sndPlaySoundA(\"" + file + L"\", 19)";
}

class PlainTestButton : public ShownDialog {
  protected:
    /// The calls of the acts in the middle of a dialog.
    Acts Watched(Acts acts) {
        acts.insert(acts.begin(), sim::Do([&](Form&) { host->journal.Clear(); }));
        acts.push_back(sim::Do([&](Form&) { calls = Calls(); }));
        acts.push_back(PressCancel);
        return acts;
    }
    static p_Action Noted(p_ActionTypes kind, const String& message, const String& sound,
                          bool beeps) {
        aceNotify record;
        record.Message = message;
        record.WaveFile = sound;
        record.Beep = beeps;
        return Action(kind, record);
    }
    /// The calls of the test of an action.
    Lines TestOf(const p_Action& action, const sim::FormAct& press,
                 aceModul moduleKind = aceTemplate) {
        OpenWith(moduleKind, {action});
        ShowLine(Watched({press}));
        EXPECT_EQ(Stored(), action);
        EXPECT_FALSE(engine->Change());
        return calls;
    }
    /// What was opened and closed on the bus.
    Lines BusDevices() {
        Lines lines = host->journal.LinesOf(L"GpibDriver");
        std::erase_if(
            lines, [](const String& line) { return line.starts_with(L"GpibDriver.WriteString"); });
        return lines;
    }

    Lines calls;
};

// ---- notifications and questions ----------------------------------------------------------------

TEST_F(PlainTestButton, ANotificationShowsItsMessageAndThenSounds) {
    host->user.ExpectBox(L"Door");
    EXPECT_EQ(TestOf(Noted(atNotify, L"Door", L"C:\\a.wav", true), PressTest),
              Journal(BoxShown(L"Door", IUserDialogs::Information, L"Test Message"),
                      Played(L"C:\\a.wav"), Beeped));
}

TEST_F(PlainTestButton, ANotificationWithoutAMessageSoundsAlone) {
    EXPECT_THAT(TestOf(Noted(atNotify, L"", L"C:\\a.wav", false), PressTest),
                ElementsAre(Played(L"C:\\a.wav")));
    EXPECT_THAT(TestOf(Noted(atNotify, L"", L"", true), PressTest), ElementsAre(Beeped));
}

TEST_F(PlainTestButton, ANotificationWithoutASoundShowsItsMessageAlone) {
    host->user.ExpectBox(L"Door");
    EXPECT_THAT(TestOf(Tell(L"Door"), PressTest),
                ElementsAre(BoxShown(L"Door", IUserDialogs::Information, L"Test Message")));
}

TEST_F(PlainTestButton, ASoundThatCannotBePlayedBeeps) {
    host->brokenSounds.insert(L"C:\\a.wav");
    EXPECT_THAT(TestOf(Sound(L"C:\\a.wav"), PressTest), ElementsAre(Played(L"C:\\a.wav"), Beeped));
}

TEST_F(PlainTestButton, AQuestionIsAskedAndItsAnswerChangesNothing) {
    for (const bool yes : {true, false}) {
        host->user.ExpectQuestion(yes);
        EXPECT_EQ(TestOf(Noted(atQuestion, L"Lamp on?", L"", true), PressTest, aceVKSTemplate),
                  Journal(BoxShown(L"Lamp on?", IUserDialogs::Question | IUserDialogs::YesNo,
                                   L"Question ?"),
                          Beeped));
    }
}

TEST_F(PlainTestButton, AQuestionOfASoundAloneAsksNothing) {
    EXPECT_THAT(TestOf(Noted(atQuestion, L"", L"C:\\a.wav", false), PressTest, aceVKSTemplate),
                ElementsAre(Played(L"C:\\a.wav")));
}

TEST_F(PlainTestButton, WhatIsTypedIsTestedAndStoredByOkAlone) {
    OpenWith(aceTemplate, {Tell(L"Door")});
    host->user.ExpectBox(L"Gate");
    ShowLine(Watched({sim::Type(L"txtMessage", L"Gate"), PressTest}));
    EXPECT_EQ(Stored(), Tell(L"Door"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(PlainTestButton, ANotificationThatIsRefusedIsNotTested) {
    OpenWith(aceTemplate, {Tell(L"Door")});
    host->user.ExpectBox(L"T(9202)");
    ShowLine(Watched({sim::Type(L"txtMessage", L""), PressTest, SeeFocus(L"txtSoundFile")}));
    EXPECT_THAT(calls, ElementsAre(Refused(L"T(9202)")));
}

TEST_F(PlainTestButton, ACommentHasNoTest) {
    OpenWith(aceMonitoring);
    ShowNew(atComment, {SeeShown({}, {L"cmdTestAction(0)"}), PressCancel});
}

TEST_F(PlainTestButton, BehindACommentTheTestIsThereAgain) {
    OpenWith(aceMonitoring, {Tell(L"Door")});
    ShowNew(atComment, {PressCancel});
    ShowLine({SeeShown({L"cmdTestAction(0)"}), SeeEnabled(L"cmdTestAction(0)", true), PressCancel});
}

// ---- commands and programs ----------------------------------------------------------------------

Lines SentToBus(std::int32_t handle) {
    return {L"StatusDisplay.ShowStatus(\"T(9411)1:20\", false, false)",
            L"GpibDriver.WriteString(" + std::to_wstring(handle) + L", \"*IDN?\\n\")",
            StatusCleared};
}
Lines StartedAnew(const String& program) {
    return {L"Platform.ActivateProgram(0)", L"StatusDisplay.ShowStatus(\"T(9414)\", false, false)",
            L"Platform.StartProgram(\"" + program + L"\")", Yielded, StatusCleared};
}
const String BusOpened = L"GpibDriver.OpenDevice(1, 20, 0, 11, 1, 0)";
String BusClosed(std::int32_t handle) {
    return L"GpibDriver.CloseDevice(" + std::to_wstring(handle) + L", 0)";
}

TEST_F(PlainTestButton, ACommandIsSentWhileThePointerIsBusy) {
    EXPECT_EQ(TestOf(Gpib(120, L"*IDN?"), SendTest),
              Journal(Busy, BusOpened, SentToBus(0), BusyNoMore));
}

TEST_F(PlainTestButton, AnotherAddressIsOpenedAnew) {
    OpenWith(aceTemplate, {Gpib(120, L"*IDN?")});
    constexpr std::int32_t Board1Address21 = 50;
    ShowLine(
        {SendTest, SendTest, sim::Choose(L"cboGpibAddress", Board1Address21), SendTest, PressOk});
    EXPECT_THAT(BusDevices(),
                ElementsAre(BusOpened, BusClosed(0), L"GpibDriver.OpenDevice(1, 21, 0, 11, 1, 0)",
                            BusClosed(1)));
}

TEST_F(PlainTestButton, AnAddressThatIsChosenBackHasItsDeviceStill) {
    OpenWith(aceTemplate, {Gpib(120, L"*IDN?")});
    constexpr std::int32_t Board1Address20 = 49;
    ShowLine({SendTest, sim::Choose(L"cboGpibAddress", 0),
              sim::Choose(L"cboGpibAddress", Board1Address20), SendTest, PressCancel});
    EXPECT_THAT(BusDevices(), ElementsAre(BusOpened, BusClosed(0)));
}

TEST_F(PlainTestButton, WhatATestHasOpenedIsClosedWithTheDialog) {
    for (const sim::FormAct& end : {PressOk, PressCancel, sim::PressKey(Keys::Escape)}) {
        OpenWith(aceTemplate, {Gpib(120, L"*IDN?")});
        ShowLine({SendTest, end});
        EXPECT_THAT(BusDevices(), ElementsAre(BusOpened, ::testing::HasSubstr(L"CloseDevice")));
        EXPECT_EQ(std::get<aceRemote>(Stored().Parameter).DrvHdl, aceRemote::NoHandle);
    }
}

TEST_F(PlainTestButton, AnotherProgramIsStartedAnew) {
    OpenWith(aceTemplate, {Started(L"a.exe")});
    ShowLine({SendTest, sim::Type(L"txtDll", L"b.exe"), SendTest, PressCancel});
    EXPECT_EQ(host->journal.LinesOf(L"Platform.StartProgram"),
              (Lines{L"Platform.StartProgram(\"a.exe\")", L"Platform.StartProgram(\"b.exe\")"}));
}

TEST_F(PlainTestButton, AProgramIsStartedWhileThePointerIsBusy) {
    EXPECT_EQ(TestOf(Started(L"log.exe"), SendTest),
              Journal(Busy, StartedAnew(L"log.exe"), BusyNoMore));
}

TEST_F(PlainTestButton, TheCommandIsSentBeforeTheProgramIsStarted) {
    p_Action both = Gpib(120, L"*IDN?");
    RecordOf<aceRemote>(both).Program = L"log.exe";
    EXPECT_EQ(TestOf(both, SendTest),
              Journal(Busy, BusOpened, SentToBus(0), StartedAnew(L"log.exe"), BusyNoMore));
}

TEST_F(PlainTestButton, ThePointerComesBackBehindACommandThatFails) {
    host->instruments.absentGpib.insert(120);
    OpenWith(aceTemplate, {Gpib(120, L"*IDN?")});
    Expect(Watched({SendTest}));
    host->user.Expect(L"frmGpibError", sim::Press(L"cmdIgnore"));
    DoubleClickLine();
    EXPECT_EQ(calls, Journal(Busy, BusOpened, L"Form \"frmGpibError\"",
                             L"FormHost.Hide(\"frmGpibError\")", StatusCleared, BusyNoMore));
}

TEST_F(PlainTestButton, ThePointerComesBackBehindAnErrorThatComesOut) {
    OpenWith(aceTemplate, {Gpib(120, L"*IDN?")});
    host->instruments.absentGpib.insert(120);
    host->faults.FailOperation(L"FormHost.ShowModal", 2, 57);
    ShowLine(Watched({sim::Do([](Form& form) {
        Button& test = dynamic_cast<Button&>(ControlOn(form, L"cmdTestAction(1)"));
        EXPECT_EQ(ErrorOf([&] { test.Click(); }), 57);
    })}));
    EXPECT_EQ(calls.back(), BusyNoMore);
}

TEST_F(PlainTestButton, TheDeviceThatATestHasOpenedServesTheNextOne) {
    OpenWith(aceTemplate, {Gpib(120, L"*IDN?")});
    ShowLine(Watched({SendTest, SendTest}));
    EXPECT_EQ(calls,
              Journal(Busy, BusOpened, SentToBus(0), BusyNoMore, Busy, SentToBus(0), BusyNoMore));
}

TEST_F(PlainTestButton, ACommandThatIsRefusedIsNotSent) {
    OpenWith(aceTemplate);
    host->user.ExpectBox(L"T(9204)");
    ShowNew(atRemote, Watched({sim::Type(L"txtGpibCommand", L"*RST"), sim::Choose(L"cboIface", 2),
                               SendTest, SeeFocus(L"txtHost")}));
    EXPECT_THAT(calls, ElementsAre(Refused(L"T(9204)")));
}

TEST_F(PlainTestButton, ADisabledTestIsOutOfReach) {
    OpenWith(aceTemplate);
    ShowNew(atRemote, {sim::Do([](Form& form) { EXPECT_FALSE(SendTest(form)); }), PressCancel});
}

TEST_F(PlainTestButton, AWaitHasNoTestAtAll) {
    OpenWith(aceTemplate);
    ShowNew(atWait, {sim::Do([](const Form& form) {
                         for (const Control* control : form.Controls()) {
                             EXPECT_FALSE(control->IsShown() &&
                                          control->Name().starts_with(L"cmdTestAction"));
                         }
                     }),
                     PressCancel});
}

}  // namespace
}  // namespace ace::test
