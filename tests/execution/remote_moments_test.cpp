/// Commands, programs and macros within the moments of a test.
#include <ace/execution/dispatcher.h>

#include "support/engine_fixture.h"

namespace ace::test {
namespace {

using sim::Press;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

const String ErrorForm = L"Form";

/// A command to the bus device at `address`; those from 20 on are not there.
p_Action Bus(std::int32_t address, String command = L"*RST") {
    aceRemote record;
    record.Command = std::move(command);
    record.GpibAddress = address;
    record.Terminator = 3;
    return Action(atRemote, record);
}
p_Action Macro(String parameter) {
    aceAPI record;
    record.Program = L"log.mac";
    record.Parameters.Redim(1, 1);
    record.Parameters[1] = std::move(parameter);
    return Action(atAPI, record);
}

/// Calls of a command to a device that is opened with `handle`.
Lines Sent(std::int32_t address, std::int32_t handle) {
    const String number = std::to_wstring(address);
    return {L"GpibDriver.OpenDevice(0, " + number + L", 0, 11, 1, 0)",
            L"StatusDisplay.ShowStatus(\"GPIB 0:" + number + L"\", false, false)",
            L"GpibDriver.WriteString(" + std::to_wstring(handle) + L", \"*RST\")", StatusCleared};
}
Lines NotOpened(std::int32_t address) {
    return {L"GpibDriver.OpenDevice(0, " + std::to_wstring(address) + L", 0, 11, 1, 0)", ErrorForm,
            StatusCleared};
}
Lines MacroRun(const String& parameter) {
    return {L"ApiMacro.Load(\"log.mac\", [\"" + parameter + L"\"], nothing)",
            L"StatusDisplay.ShowStatus(\"Execute API Macro: log.mac\", false, false)",
            L"ApiMacro.Execute()",
            L"ApiMacro.WaitFinished()",
            L"ApiMacro.GetResult()",
            L"ApiMacro.GetResult()",
            StatusCleared};
}
String Compared(const String& frequency) {
    return L"Utilities.IsEqual(" + frequency + L", -1)";
}

class RemoteMoments : public EngineTest {
  protected:
    RemoteMoments() {
        context.ActionStatusTexts[1] = L"GPIB ";
        State().LastFrequency = -1.0;  // as after the start of a test
        for (std::int32_t address = 20; address < 30; ++address) {
            host->instruments.absentGpib.insert(address);
        }
    }
    void Answer(const wchar_t* button) { host->user.Expect(L"frmGpibError", Press(button)); }
    void Serve(aceModul moduleKind) { State().Modul = moduleKind; }

    /// The effects in order; a shown form by a word.
    Lines TakeCalls() {
        Lines calls;
        for (const String& line : TakeEffects()) {
            if (line.starts_with(L"FormHost.ShowModal")) {
                calls.push_back(ErrorForm);
            } else if (!line.starts_with(L"FormHost.")) {
                calls.push_back(line);
            }
        }
        return calls;
    }
};

TEST_F(RemoteMoments, ThePlainWalkStopsAtTheCommandWhoseFailureStopsTheTest) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1);
    Fill(State().MainSubranges[0], EnterList, {Bus(5), Bus(20), Bus(6)});
    Answer(L"cmdStopTest");
    EXPECT_TRUE(engine->EnterSubrange(1));
    EXPECT_EQ(TakeCalls(), Journal(InRange(0, 0, 0), Yielded, Sent(5, 0), Yielded, NotOpened(20)));
}

TEST_F(RemoteMoments, AnIgnoredFailureLetsTheListGoOn) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1);
    Fill(State().MainSubranges[0], EnterList, {Bus(20), Bus(6)});
    Answer(L"cmdIgnore");
    EXPECT_FALSE(engine->EnterSubrange(1));
    EXPECT_EQ(TakeCalls(), Journal(InRange(0, 0, 0), Yielded, NotOpened(20), Yielded, Sent(6, 0)));
}

TEST_F(RemoteMoments, AnActionThatWasSilencedStaysSilentUntilTheTestStartsAnew) {
    Fill(State().MainTest, FreqList, {Bus(20)});
    Answer(L"cmdIgnoreAll");
    engine->NewFrequency(1.0, true);
    engine->NewFrequency(2.0, true);
    TakeCalls();
    engine->NewFrequency(3.0, true);
    EXPECT_EQ(TakeCalls(), Journal(L"Utilities.IsEqual(3, 2)", Yielded,
                                   L"GpibDriver.OpenDevice(0, 20, 0, 11, 1, 0)", StatusCleared));
    engine->StartTest();
    EXPECT_FALSE(State().MainTest.Freq[0].IgnoreErr);
    TakeCalls();
    Answer(L"cmdIgnore");
    engine->NewFrequency(1.0, true);
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"1"), Yielded, NotOpened(20)));
}

TEST_F(RemoteMoments, ACommandThatAnswersTrueFollowedByOneThatAnswersFalseGivesFalse) {
    Fill(State().MainTest, FreqList, {Bus(20), Bus(5)});
    Answer(L"cmdStopTest");
    EXPECT_FALSE(engine->NewFrequency(1.0, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"1"), Yielded, NotOpened(20), Yielded, Sent(5, 0)));
    Fill(State().MainTest, FreqList, {Bus(5), Bus(20)});
    Answer(L"cmdStopTest");
    EXPECT_TRUE(engine->NewFrequency(2.0, false));
}

TEST_F(RemoteMoments, InTheGeneralListsOfSusceptibilityTheResultOfACommandIsDropped) {
    for (const aceModul moduleKind : {aceEMSAutoTemplateGeneral, aceMonitoring, aceAziChart}) {
        Serve(moduleKind);
        Fill(State().EMSAutoGeneral, FreqList, {Bus(20)});
        Fill(State().MoniEut, FreqList, {Bus(20)});
        Fill(State().AziChart, FreqList, {Bus(20)});
        Answer(L"cmdStopTest");
        EXPECT_EQ(engine->NewFrequency(1.0, true), moduleKind != aceEMSAutoTemplateGeneral)
            << moduleKind;
    }
}

/// A macro is not among the kinds whose result is dropped, and a command behind it leaves its
/// result alone.
TEST_F(RemoteMoments, InTheGeneralListsOfSusceptibilityTheResultOfAMacroStands) {
    Serve(aceEMSAutoTemplateGeneral);
    Fill(State().EMSAutoGeneral, FreqList, {Macro(L""), Bus(5)});
    host->macros[L"log.mac"].loads = false;
    EXPECT_TRUE(engine->NewFrequency(1.0, false));
}

TEST_F(RemoteMoments, AMacroGetsTheFrequencyOfEachNewFrequencyAndKeepsItsText) {
    Fill(State().MainTest, FreqList, {Macro(L"f=#FREQ#")});
    EXPECT_FALSE(engine->NewFrequency(150e6, false));
    EXPECT_EQ(TakeCalls(), Journal(Compared(L"150000000"), Yielded, MacroRun(L"f=150000000.0")));
    EXPECT_FALSE(engine->NewFrequency(151.25e6, false));
    EXPECT_EQ(TakeCalls(), Journal(L"Utilities.IsEqual(151250000, 150000000)", Yielded,
                                   MacroRun(L"f=151250000.0")));
    const auto& record = RecordOf<aceAPI>(State().MainTest.Freq[0]);
    EXPECT_EQ(record.Freq, 151.25e6);
    EXPECT_EQ(record.Parameters[1], L"f=#FREQ#");
}

TEST_F(RemoteMoments, AMacroOfAnotherMomentRunsWithTheFrequencyOfItsRecord) {
    Fill(State().MainTest, EnterList, {Macro(L"#FREQ#")});
    Fill(State().MainTest, FreqList, {Macro(L"#FREQ#")});
    engine->NewFrequency(150e6, false);
    TakeCalls();
    EXPECT_FALSE(engine->StartTest());
    // behind the list the tracking pass lets messages run once for the other macro
    EXPECT_EQ(TakeCalls(), Journal(Yielded, MacroRun(L"0.0"), Yielded));
}

TEST_F(RemoteMoments, ACommandThatStopsTheTestIsCodeFiveOfAChannelAndTheWalkGoesOn) {
    Serve(aceMonitoring);
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    Fill(State().MoniChannels[0], EnterList, {Bus(20), Bus(5)});
    Answer(L"cmdStopTest");
    EXPECT_EQ(engine->EnterNoGo(1, L"Speed"), 5);
    EXPECT_EQ(TakeCalls(),
              Journal(Yielded, NotOpened(20), L"Utilities.Max(5, [0])", Yielded, Sent(5, 0)));
}

/// A macro that failed asks to stop, but has no code of its own.
TEST_F(RemoteMoments, AMacroThatFailsLeavesTheCodeOfAChannelAlone) {
    Serve(aceMonitoring);
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    Fill(State().MoniChannels[0], LeaveList, {Macro(L"")});
    host->macros[L"log.mac"].loads = false;
    EXPECT_EQ(engine->Go(1, L"Speed"), 0);
}

TEST_F(RemoteMoments, AMacroThatIsBrokenOffStopsTheWalk) {
    Fill(State().MainTest, LeaveList, {Macro(L"x"), Bus(5)});
    host->macros[L"log.mac"].whileRunning = [&] { engine->StopAllActions(); };
    host->macros[L"log.mac"].results = {false, false};
    host->user.ExpectBox(L"T(9183) [log.mac]");
    EXPECT_TRUE(engine->StopTest());
    EXPECT_EQ(TakeCalls(),
              Lines({Yielded, L"ApiMacro.Load(\"log.mac\", [\"x\"], nothing)",
                     L"StatusDisplay.ShowStatus(\"Execute API Macro: log.mac\", false, false)",
                     L"ApiMacro.Execute()", L"ApiMacro.WaitFinished()", L"ApiMacro.Abort()",
                     StatusCleared, L"ApiMacro.GetResult()", L"ApiMacro.GetResult()",
                     L"UserDialogs.ShowMessageBox(\"T(9183) [log.mac]\", 48, \"T(9430)\")",
                     StatusCleared}));
}

TEST_F(RemoteMoments, TheRunningMacroIsEndedAlsoWhenItIsIdle) {
    Fill(State().MainTest, EnterList, {Macro(L"x")});
    engine->StartTest();
    TakeCalls();
    engine->StopAllActions();
    EXPECT_EQ(TakeCalls(), Lines({L"ApiMacro.Abort()", StatusCleared}));
}

/// The handle lives in the action from its first use to the end of the object; in the list of every
/// frequency it is never closed.
TEST_F(RemoteMoments, ABusDeviceStaysOpenFromFrequencyToFrequencyAndIsClosedAtTheEndButForOne) {
    Fill(State().MainTest, EnterList, {Bus(5)});
    Fill(State().MainTest, FreqList, {Bus(6)});
    engine->StartTest();
    engine->NewFrequency(1.0, false);
    TakeCalls();
    engine->NewFrequency(2.0, false);
    EXPECT_THAT(TakeCalls(), Not(Contains(L"GpibDriver.OpenDevice(0, 6, 0, 11, 1, 0)")));
    engine.reset();
    EXPECT_EQ(host->journal.LinesOf(L"GpibDriver"), Lines({L"GpibDriver.CloseDevice(0, 0)"}));
}

TEST_F(RemoteMoments, TheConnectionStaysOpenUntilTheEndOfTheObject) {
    aceRemote record;
    record.Command = L"A";
    record.Iface = 2;
    record.TcpHost = L"gen";
    record.TcpPort = 5025;
    Fill(State().MainTest, EnterList, {Action(atRemote, record), Action(atRemote, record)});
    engine->StartTest();
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList.CloseSocket"), ::testing::IsEmpty());
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList.OpenSocket"), ::testing::SizeIs(1));
    engine.reset();
    EXPECT_EQ(host->journal.LinesOf(L"DeviceList.CloseSocket"),
              Lines({L"DeviceList.CloseSocket(1)"}));
    EXPECT_EQ(context.SocketHandle, -1);
}

/// While messages run around the serial port, another command overwrites the shared record: the one
/// outside goes on with it, and it is what the action is left with.
TEST_F(RemoteMoments, ACommandFromInsideLeavesItsRecordToTheOneOutside) {
    aceRemote record;
    record.Command = L"OUTSIDE";
    record.Iface = 1;
    record.SerComPort = 3;
    p_Action inside = Bus(5);
    RecordOf<aceRemote>(inside).SerComPort = 7;
    Fill(State().MainTest, LeaveList, {Action(atRemote, record)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {  // the first one is that of the walk
            modActions::DoAction(context, inside, aceTemplate);
        }
    };
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeCalls(), Journal(Yielded, L"SerialPort.PortOpen(false)", Yielded, Sent(5, 0),
                                   L"SerialPort.CommPort(7)", L"SerialPort.PortOpen(true)", Yielded,
                                   L"StatusDisplay.ShowStatus(\"T(9412)7\", false, false)",
                                   L"SerialPort.Output(\"OUTSIDE\\n\")",
                                   L"SerialPort.PortOpen(false)", StatusCleared));
    EXPECT_EQ(State().MainTest.Leave[0].Parameter, inside.Parameter);
}

}  // namespace
}  // namespace ace::test
