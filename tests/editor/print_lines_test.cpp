#include <ace/editor/action_text.h>

#include "editor/shown_actions.h"

namespace ace::test {
namespace {

/// What the print says about an action, kind by kind.
class PrintLines : public EngineTest {
  protected:
    String Printed(const std::vector<p_Action>& actions, aceModul moduleKind = aceTemplate) {
        p_Subrange set;
        Fill(set, EnterList, actions);
        return DisplayLine(context, moduleKind, ptStartTest, set.Enter, false, 0);
    }
    String Line(const p_Action& action, aceModul moduleKind = aceTemplate) {
        return Printed({action}, moduleKind);
    }
    static String Long(std::size_t count) { return String(count, L'x'); }

    static constexpr aceModul Wireless[] = {aceVKSTemplate, aceVKSDUT};
    static constexpr aceModul Others[] = {
        aceTemplate,        aceMonitoring,      aceEMSAutoTemplateGeneral,
        aceEMSAutoTemplate, aceEMIAutoTemplate, aceTSTemplate,
        aceAziChart};
};

// ---- the lines ---------------------------------------------------------------------------------

TEST_F(PrintLines, EachLineBeginsWithThreeBlanksAndEndsWithACarriageReturn) {
    EXPECT_EQ(Printed({WaitFor(1500), Action(atProtRec), Camera}),
              L"   T(9063): \t1.500 s\r   T(9068)\r   T(9065): \tCamera\r");
}

TEST_F(PrintLines, ListWithoutLinesIsEmpty) {
    EXPECT_EQ(Printed({}), L"");
    EXPECT_EQ(Printed({Broken(), Action(static_cast<p_ActionTypes>(18), aceWait{1})}), L"");
}

TEST_F(PrintLines, KindsWithoutDetailsAreTheirTitleAlone) {
    EXPECT_EQ(Printed({Action(atProtRec), Action(atParkAcc), Action(atTestStop),
                       Action(atStopLevSweep), Action(atGotoSingle), Action(atNbBbEtsi)}),
              L"   T(9068)\r   T(9077)\r   T(9070)\r   T(9071)\r   T(9042)\r   T(9072)\r");
}

TEST_F(PrintLines, OtherKindsWithAnEmptyParameterAreSkipped) {
    for (const p_ActionTypes kind :
         {atWait, atNotify, atRemote, atSetDevice, atCheckEut, atTrackFreq, atComment, atSwitchAmp,
          atSwitchUnit, atAPI, atQuestion, atMonitorEUT}) {
        EXPECT_EQ(Printed({Action(kind), Action(atProtRec)}), L"   T(9068)\r") << kind;
    }
}

TEST_F(PrintLines, RecordOfAnotherKindIsATypeMismatch) {
    for (const p_ActionTypes kind :
         {atNotify, atRemote, atSetDevice, atCheckEut, atTrackFreq, atComment, atSwitchAmp,
          atSwitchUnit, atAPI, atQuestion, atMonitorEUT}) {
        EXPECT_EQ(ErrorOf([&] { Line(Action(kind, aceWait{1000})); }), 13) << kind;
        EXPECT_EQ(TakeEffects(), Lines{MismatchReported}) << kind;
    }
    EXPECT_EQ(ErrorOf([&] { Line(Action(atWait, aceNotify{})); }), 13);
}

// ---- wait and messages -------------------------------------------------------------------------

TEST_F(PrintLines, WaitIsAsInTheTree) {
    host->decimalSeparator = L',';
    EXPECT_EQ(Line(WaitFor(1500)), L"   T(9063): \t1.500 s\r");
}

TEST_F(PrintLines, MessageStandsInQuotesAndAQuestionHasTheTitleOfAMessage) {
    EXPECT_EQ(Line(CloseTheDoor), L"   T(9064): \t\"Close the door\"\r");
    EXPECT_EQ(Line(Ask(L"Lamp green?")), L"   T(9064): \t\"Lamp green?\"\r");
}

TEST_F(PrintLines, MessageOf70CharactersIsWholeAndOneOf71IsCutTo67AndDots) {
    for (const aceModul module : Others) {
        EXPECT_EQ(Line(Tell(Long(70)), module), L"   T(9064): \t\"" + Long(70) + L"\"\r");
        EXPECT_EQ(Line(Tell(Long(71)), module), L"   T(9064): \t\"" + Long(67) + L"...\"\r");
        EXPECT_EQ(Line(Ask(Long(71)), module), L"   T(9064): \t\"" + Long(67) + L"...\"\r");
    }
}

TEST_F(PrintLines, WirelessModulesPrintTheWholeMessage) {
    for (const aceModul module : Wireless) {
        EXPECT_EQ(Line(Tell(Long(500)), module), L"   T(9064): \t\"" + Long(500) + L"\"\r");
        EXPECT_EQ(Line(Ask(Long(500)), module), L"   T(9064): \t\"" + Long(500) + L"\"\r");
    }
}

TEST_F(PrintLines, LineEndsOfAMessageAreBlanksInEveryModule) {
    for (const aceModul module : {aceTemplate, aceVKSTemplate, aceVKSDUT}) {
        EXPECT_EQ(Line(Tell(L"Close\r\nthe door\r\n"), module),
                  L"   T(9064): \t\"Close the door \"\r");
    }
}

/// Other than in the tree: a line end counts for what is printed of it.
TEST_F(PrintLines, LineEndCountsOne) {
    const String message = Long(34) + L"\r\n" + Long(35);
    EXPECT_EQ(Line(Tell(message)), L"   T(9064): \t\"" + Long(34) + L" " + Long(35) + L"\"\r");
    EXPECT_EQ(Line(Tell(message + L"y")),
              L"   T(9064): \t\"" + Long(34) + L" " + Long(32) + L"...\"\r");
}

TEST_F(PrintLines, SoundAloneIsNamedByItsFilePart) {
    EXPECT_EQ(Line(Sound(L"C:\\sounds\\ding.wav")), L"   T(9064): \tT(9123) 'ding.wav'\r");
    EXPECT_EQ(Line(Sound(L"ding.wav")), L"   T(9064): \tT(9123) 'ding.wav'\r");
}

TEST_F(PrintLines, MessageGoesBeforeTheSound) {
    aceNotify record;
    record.Message = L"Close the door";
    record.WaveFile = L"ding.wav";
    EXPECT_EQ(Line(Action(atNotify, record)), L"   T(9064): \t\"Close the door\"\r");
}

TEST_F(PrintLines, NeitherMessageNorSoundIsATextOfItsOwn) {
    EXPECT_EQ(Line(Action(atNotify, aceNotify{})), L"   T(9064): \tT(9124)\r");
    EXPECT_EQ(Line(Action(atQuestion, aceNotify{})), L"   T(9064): \tT(9124)\r");
}

TEST_F(PrintLines, CommentHasNoColon) {
    EXPECT_EQ(Line(Comment(false)), L"   T(9069)\r");
    EXPECT_EQ(Line(Comment(true)), L"   T(9069), T(9080)\r");
}

// ---- commands and programs ---------------------------------------------------------------------

TEST_F(PrintLines, CommandStandsInQuotesBehindItsInterface) {
    EXPECT_EQ(Line(Gpib(120, L"*RST")), L"   T(9062): \tGpib1:20, \"*RST\"\r");
    EXPECT_EQ(Line(Gpib(20, L"*RST")), L"   T(9062): \tGpib0:20, \"*RST\"\r");
    EXPECT_EQ(Line(Serial(2, L"*RST")), L"   T(9062): \tCOM2, \"*RST\"\r");
}

TEST_F(PrintLines, PortOfAHostIsNeverPrinted) {
    for (const aceModul module : {aceTemplate, aceVKSTemplate, aceVKSDUT}) {
        for (const std::int32_t iface : {2, 3, 100}) {
            EXPECT_EQ(Line(Tcp(L"gen", 5025, L"*RST", iface), module),
                      L"   T(9062): \t\\\\gen, \"*RST\"\r");
        }
    }
}

/// Other than in the tree, where it shows as a host.
TEST_F(PrintLines, InterfaceBelowTheFirstHasNoWords) {
    EXPECT_EQ(Line(Tcp(L"gen", 5025, L"*RST", -1)), L"   T(9062): \t, \"*RST\"\r");
}

TEST_F(PrintLines, CommandIsCutTo20CharactersWithoutDotsInEveryModule) {
    for (const aceModul module : {aceTemplate, aceVKSTemplate, aceVKSDUT}) {
        EXPECT_EQ(Line(Serial(2, Long(20)), module),
                  L"   T(9062): \tCOM2, \"" + Long(20) + L"\"\r");
        EXPECT_EQ(Line(Serial(2, Long(20) + L"y"), module),
                  L"   T(9062): \tCOM2, \"" + Long(20) + L"\"\r");
    }
}

TEST_F(PrintLines, ProgramIsNamedByItsFilePart) {
    EXPECT_EQ(Line(Started(L"C:\\tools\\exerciser.exe /q")), L"   T(9062): \texerciser.exe /q\r");
}

/// Whatever it belongs to, what stands behind the last "\" is shown.
TEST_F(PrintLines, ProgramIsNamedByTheEndOfAnArgumentThatHasABackslash) {
    EXPECT_EQ(Line(Started(L"\"C:\\tools\\exerciser.exe\" /log D:\\runs\\eut.csv")),
              L"   T(9062): \teut.csv\r");
    EXPECT_EQ(Line(Started(L"exerciser.exe D:\\")), L"   T(9062): \t\r");
}

// ---- devices -----------------------------------------------------------------------------------

TEST_F(PrintLines, DevicesAndMacros) {
    EXPECT_EQ(Printed({Device(atSetDevice, L"Turntable"), Device(atMonitorEUT, L"Camera"),
                       Amplifier(L"Amp", 2), PathA, Api(L"C:\\macros\\log.mac")}),
              L"   T(9061): \tTurntable\r   Monitor EUT: \tCamera\r   T(9073): \tAmp --> Standby\r"
              L"   T(9074): \tUnit --> Path A\r   T(9078): \tC:\\macros\\log.mac\r");
}

TEST_F(PrintLines, AmplifierOfAnUnknownStateHasNoWord) {
    EXPECT_EQ(Line(Amplifier(L"Amp", 5)), L"   T(9073): \tAmp --> \r");
}

TEST_F(PrintLines, GeneratorOfATrackingActionIsPrintedByItsName) {
    aceTrackFreq record;
    record.GenName = L"Generator 1";
    record.MoniName = L"Probe 2";
    EXPECT_EQ(Line(Action(atTrackFreq, record)), L"   T(9066): \tGenerator 1\r");
}

TEST_F(PrintLines, MonitorOfATrackingActionIsPrintedByTheDeviceItself) {
    aceTrackFreq record;
    record.MoniName = L"Probe 2";
    record.MoniDev = host->bench.Add<sim::SimMonitor>(*host, L"Probe at the door");
    EXPECT_EQ(Line(Action(atTrackFreq, record)), L"   T(9066): \tProbe at the door\r");
}

TEST_F(PrintLines, MonitorThatWasNeverUsedIsError91) {
    EXPECT_EQ(ErrorOf([&] { Line(Tracked(L"Probe 2")); }), 91);
    EXPECT_EQ(TakeEffects(), Lines{Reported(91, L"object variable not set")});
}

// ---- failures ----------------------------------------------------------------------------------

TEST_F(PrintLines, ReportThatAsksForALineAgainGetsItOnce) {
    const std::vector<p_Action> actions{WaitFor(1000), Comment(true), Camera};
    const String whole = Printed(actions);
    for (std::size_t k = 1; host->reportAnswers.empty(); ++k) {
        host->faults.Clear();
        host->faults.FailOperation(L"Language.", k, 5);
        host->reportAnswers = {5};
        EXPECT_EQ(Printed(actions), whole) << k;
    }
    EXPECT_EQ(whole, L"   T(9063): \t1.000 s\r   T(9069), T(9080)\r   T(9065): \tCamera\r");
}

// ---- trace lines -------------------------------------------------------------------------------

TEST_F(PrintLines, MomentAndNumberStandInTheStartLineUnderTheNameOfTheEditor) {
    host->tracing = true;
    p_Subrange set;
    Fill(set, EnterList, {Camera});
    DisplayLine(context, aceMonitoring, ptNoGo, set.Enter, true, 3);
    EXPECT_EQ(TakeEffects(),
              Journal(Start(L"frmEditor (Code)", L"DisplayLine", L"PerfTime = 6, Subrange = 3"),
                      End(L"DisplayLine")));
}

}  // namespace
}  // namespace ace::test
