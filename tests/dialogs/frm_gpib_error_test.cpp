#include <ace/dialogs/frm_gpib_error.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using sim::CloseFrame;
using sim::Press;
using ::testing::ElementsAre;

/// What the operator saw of a failure, and the answers.
struct Shown {
    String heading;
    String details;
    bool ignoreAllVisible = false;
    Boolean stopTest;
    Boolean ignoreAll;
};

class FrmGpibError : public HostTest {
  protected:
    Shown Fail(p_ActionTypes kind, const DeviceErrorSubject& subject,
               sim::FormAct act = Press(L"cmdIgnore"), Boolean ignoreAll = false) {
        Shown shown;
        const auto look = [&](Form& form) {
            shown.heading = form.Find(L"lblMessage")->caption;
            shown.details = form.Find<TextBox>(L"txtError")->text;
            shown.ignoreAllVisible = form.Find(L"cmdIgnoreAll")->visible;
        };
        host->user.Expect({L"frmGpibError", {sim::Do(look), std::move(act)}, {}});
        shown.ignoreAll = ignoreAll;
        shown.stopTest =
            ShowDeviceError(context, kind, shown.ignoreAll, subject, -2147467259, L"No answer");
        return shown;
    }
};

aceSetDevice Device(String name) {
    aceSetDevice record;
    record.DevName = std::move(name);
    return record;
}

/// A command with all endpoints filled, so that a wrong one would show.
aceRemote Command(std::int32_t iface) {
    aceRemote record;
    record.Command = L"*RST #FREQ#";
    record.Iface = iface;
    record.GpibAddress = 1205;
    record.SerComPort = 3;
    record.TcpHost = L"meter.local";
    record.TcpPort = 5025;
    record.vks.count = 1;
    record.vks.strSearch.Redim(0, 0);
    record.vks.strSearch[0] = L"#FREQ#";
    record.vks.valReplace.Redim(0, 0);
    record.vks.valReplace[0] = String(L"1000");
    return record;
}

aceRemote Program(String line) {
    aceRemote record;
    record.Program = std::move(line);
    return record;
}

// ---- the rows -----------------------------------------------------------------------------------

TEST_F(FrmGpibError, ASetDeviceNamesTheDeviceAndTheError) {
    const Shown shown = Fail(atSetDevice, Device(L"Camera 1"));
    EXPECT_EQ(shown.heading, L"T(9321)");
    EXPECT_EQ(shown.details, L"T(9322):\tCamera 1\r\nT(9320)\t-2147467259\r\n\tNo answer");
    EXPECT_TRUE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, ATrackedFrequencyNamesTheDeviceByTheTextItIsHanded) {
    const Shown shown = Fail(atTrackFreq, String(L"Generator 2"));
    EXPECT_EQ(shown.heading, L"T(9321)");
    EXPECT_EQ(shown.details, L"T(9322):\tGenerator 2\r\nT(9320)\t-2147467259\r\n\tNo answer");
    EXPECT_TRUE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, AMonitoringDeviceFailsWithAnEmptyName) {
    const Shown shown = Fail(atTrackFreq, String());
    EXPECT_EQ(shown.details, L"T(9322):\t\r\nT(9320)\t-2147467259\r\n\tNo answer");
}

TEST_F(FrmGpibError, ASwitchedAmplifierOffersOnlyStopTestAndIgnore) {
    const Shown shown = Fail(atSwitchAmp, Device(L"Amp"));
    EXPECT_EQ(shown.heading, L"T(9331)");
    EXPECT_EQ(shown.details, L"T(9322):\tAmp\r\nT(9320)\t-2147467259\r\n\tNo answer");
    EXPECT_FALSE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, ASwitchUnitOffersOnlyStopTestAndIgnore) {
    const Shown shown = Fail(atSwitchUnit, Device(L"Relay"));
    EXPECT_EQ(shown.heading, L"T(9332)");
    EXPECT_EQ(shown.details, L"T(9322):\tRelay\r\nT(9320)\t-2147467259\r\n\tNo answer");
    EXPECT_FALSE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, AProgramShowsFileAndFolderAndTheFoldersLabelHasNoColon) {
    const Shown shown = Fail(atRemote, Program(L"C:\\Tools\\Bin\\cal.exe /q"));
    EXPECT_EQ(shown.heading, L"T(9328)");
    EXPECT_EQ(shown.details,
              L"T(9329):\tcal.exe /q\r\nT(9330)\tC:\\Tools\\Bin\r\n"
              L"T(9320)\t-2147467259\r\n\tNo answer");
    EXPECT_TRUE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, AProgramWithoutABackslashIsAllFileAndNoFolder) {
    EXPECT_EQ(Fail(atRemote, Program(L"cal.exe")).details,
              L"T(9329):\tcal.exe\r\nT(9330)\t\r\nT(9320)\t-2147467259\r\n\tNo answer");
}

TEST_F(FrmGpibError, AProgramThatEndsInABackslashIsAllFolder) {
    EXPECT_EQ(Fail(atRemote, Program(L"C:\\Tools\\")).details,
              L"T(9329):\t\r\nT(9330)\tC:\\Tools\r\nT(9320)\t-2147467259\r\n\tNo answer");
}

TEST_F(FrmGpibError, AGpibCommandShowsTheBareAddressAndTheUnreplacedCommandAndNoError) {
    const Shown shown = Fail(atRemote, Command(0));
    EXPECT_EQ(shown.heading, L"T(9323)");
    EXPECT_EQ(shown.details, L"T(9324):\t1205\r\nT(9325):\t*RST #FREQ#\r\n");
    EXPECT_TRUE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, ASerialCommandShowsThePort) {
    const Shown shown = Fail(atRemote, Command(1));
    EXPECT_EQ(shown.heading, L"T(9323)");
    EXPECT_EQ(shown.details, L"T(9326):\tCOM3\r\nT(9325):\t*RST #FREQ#\r\n");
}

TEST_F(FrmGpibError, ASocketCommandShowsTheHostWithoutThePort) {
    const Shown shown = Fail(atRemote, Command(2));
    EXPECT_EQ(shown.heading, L"T(9323)");
    EXPECT_EQ(shown.details, L"T(9327):\tmeter.local\r\nT(9325):\t*RST #FREQ#\r\n");
}

TEST_F(FrmGpibError, WithCommandAndProgramTheCommandDecidesWhicheverFailed) {
    aceRemote both = Command(0);
    both.Program = L"C:\\cal.exe";
    EXPECT_EQ(Fail(atRemote, both).heading, L"T(9323)");
    both.Iface = 3;
    EXPECT_EQ(Fail(atRemote, both).heading, L"");
}

TEST_F(FrmGpibError, WhatNoFailureComesWithLeavesTheDesign) {
    const std::vector<std::pair<p_ActionTypes, DeviceErrorSubject>> others = {
        {atWait, Device(L"d")},       {atCheckEut, Device(L"d")},
        {atMonitorEUT, Device(L"d")}, {atTrackFreq, Device(L"d")},
        {atSetDevice, String(L"d")},  {atRemote, aceRemote()},
        {atRemote, Command(3)},       {atRemote, Command(-1)},
        {atRemote, Device(L"d")},     {static_cast<p_ActionTypes>(99), Device(L"d")}};
    for (const auto& [kind, subject] : others) {
        const Shown shown = Fail(kind, subject);
        EXPECT_EQ(shown.heading, L"") << kind;
        EXPECT_EQ(shown.details, L"") << kind;
        EXPECT_TRUE(shown.ignoreAllVisible) << kind;
    }
}

// ---- the answers --------------------------------------------------------------------------------

TEST_F(FrmGpibError, IgnoreGoesOnAndLeavesTheFlagAsItCame) {
    for (const Boolean before : {Boolean(false), Boolean(true)}) {
        const Shown shown = Fail(atSetDevice, Device(L"d"), Press(L"cmdIgnore"), before);
        EXPECT_FALSE(shown.stopTest);
        EXPECT_EQ(shown.ignoreAll, before);
    }
}

TEST_F(FrmGpibError, IgnoreAllGoesOnAndSetsTheFlag) {
    const Shown shown = Fail(atSetDevice, Device(L"d"), Press(L"cmdIgnoreAll"));
    EXPECT_FALSE(shown.stopTest);
    EXPECT_EQ(shown.ignoreAll.Bits(), -1);
}

TEST_F(FrmGpibError, StopTestStopsAndLeavesTheFlagAsItCame) {
    const Shown shown = Fail(atSetDevice, Device(L"d"), Press(L"cmdStopTest"));
    EXPECT_EQ(shown.stopTest.Bits(), -1);
    EXPECT_FALSE(shown.ignoreAll);
}

TEST_F(FrmGpibError, EscapeAnywhereOnTheFormActsAsIgnoreAndOtherKeysDoNothing) {
    bool isShownAfterEnter = false;
    const auto look = [&](Form& form) { isShownAfterEnter = form.IsShown(); };
    host->user.Expect({L"frmGpibError", {sim::PressKey(13), sim::Do(look), sim::PressKey(27)}, {}});
    Boolean ignoreAll;
    EXPECT_FALSE(ShowDeviceError(context, atSetDevice, ignoreAll, Device(L"d"), 5, L""));
    EXPECT_TRUE(isShownAfterEnter);
    EXPECT_FALSE(ignoreAll);
}

TEST_F(FrmGpibError, ClosingThroughTheFrameActsAsIgnore) {
    const Shown shown = Fail(atSetDevice, Device(L"d"), CloseFrame(), true);
    EXPECT_FALSE(shown.stopTest);
    EXPECT_TRUE(shown.ignoreAll);
}

TEST_F(FrmGpibError, AHostWithoutAScreenGoesOn) {
    ThreadContext plain;
    Boolean ignoreAll;
    EXPECT_FALSE(ShowDeviceError(plain, atSetDevice, ignoreAll, Device(L"d"), 5, L""));
    EXPECT_FALSE(ignoreAll);
}

// ---- the form ----------------------------------------------------------------------------------

TEST_F(FrmGpibError, TheFormIsTranslatedThenFilledThenShown) {
    Fail(atSetDevice, Device(L"d"));
    EXPECT_THAT(
        host->journal.Lines(),
        ElementsAre(L"Factory.MakeLanguage()", L"Language.Text(9062)", L"Language.Text(9312)",
                    L"Language.Text(9313)", L"Language.Text(9314)", L"Language.Text(9315)",
                    L"Language.Text(9316)", L"Language.Text(9317)", L"Language.Text(9321)",
                    L"Language.Text(9322)", L"Language.Text(9320)", L"Factory.MakeFormHost()",
                    L"FormHost.ShowModal(\"frmGpibError\", \"T(9062)\", lblMessage \"T(9321)\", "
                    L"txtError \"T(9322):\\td\\r\\nT(9320)\\t-2147467259\\r\\n\\tNo answer\", "
                    L"imgStop, cmdStopTest \"T(9312)\" tip \"T(9313)\", cmdIgnore \"T(9314)\" tip "
                    L"\"T(9315)\", cmdIgnoreAll \"T(9316)\" tip \"T(9317)\")",
                    L"FormHost.Hide(\"frmGpibError\")"));
}

TEST_F(FrmGpibError, ButtonsStandFromLeftToRightInTheirTabOrder) {
    const frmGpibError form(context);
    EXPECT_EQ(form.width, 5970.0F);
    EXPECT_EQ(form.height, 2355.0F);
    EXPECT_EQ(form.txtError.width, 4845.0F);
    EXPECT_EQ(form.txtError.height, 990.0F);
    std::vector<String> buttons;
    float right = 0.0F;
    for (const Control* control : form.Controls()) {
        if (control->Kind() == ControlKind::Button) {
            buttons.push_back(control->Name());
            EXPECT_GE(control->left, right);
            right = control->left + control->width;
        }
    }
    EXPECT_THAT(buttons, ElementsAre(L"cmdStopTest", L"cmdIgnore", L"cmdIgnoreAll"));
    EXPECT_LE(right, form.width);
}

TEST_F(FrmGpibError, EveryFailureHasAFormOfItsOwn) {
    Fail(atSwitchAmp, Device(L"Amp"));
    const Shown shown = Fail(atSetDevice, Device(L"Camera"));
    EXPECT_TRUE(shown.ignoreAllVisible);
}

TEST_F(FrmGpibError, AFailureFromInsideHasItsOwnAnswer) {
    Shown inner;
    const auto failAgain = [&](Form&) {
        inner = Fail(atSetDevice, Device(L"inner"), Press(L"cmdStopTest"));
    };
    host->user.Expect({L"frmGpibError", {sim::Do(failAgain), Press(L"cmdIgnoreAll")}, {}});
    Boolean ignoreAll;
    EXPECT_FALSE(ShowDeviceError(context, atSetDevice, ignoreAll, Device(L"outer"), 5, L""));
    EXPECT_TRUE(ignoreAll);
    EXPECT_TRUE(inner.stopTest);
    EXPECT_FALSE(inner.ignoreAll);
}

TEST_F(FrmGpibError, AFailingScreenComesOutAndLeavesTheFlag) {
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 1234);
    Boolean ignoreAll = true;
    const auto fail = [&] {
        ShowDeviceError(context, atSetDevice, ignoreAll, Device(L"d"), 5, L"");
    };
    EXPECT_EQ(ErrorOf(fail), 1234);
    EXPECT_TRUE(ignoreAll);
}

}  // namespace
}  // namespace ace::test
