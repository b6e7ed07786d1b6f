#include "workbench/transports/real_host.h"

#include <sstream>
#include <thread>

#include <ace/execution/api_macro.h>
#include <ace/execution/remote_commands.h>
#include <ace/execution/start_program.h>

#include "sim/sim_host.h"
#include "transports/fake_gpib.h"
#include "transports/instrument.h"
#include "transports/pseudo_terminal.h"
#include "transports/script_fixture.h"
#include "workbench/files/disk_settings_file.h"
#include "workbench/transports/sync_watch.h"
#include "workbench/transports/with_journal.h"
#include "workbench/transports/with_traffic.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A simulated host whose transports are real, with real time and a log.
class MixedHost : public sim::SimHost {
  public:
    std::shared_ptr<RealHost> real;
    std::ostringstream traffic;
    std::shared_ptr<TrafficLog> log = std::make_shared<TrafficLog>(traffic);
    int syncTimeOuts = 0;

    void PassTime(double milliseconds) override {
        std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(milliseconds));
    }
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override {
        return WithJournal(*this, WithTraffic(log, real->MakeGpibDriver()));
    }
    std::shared_ptr<ISerialPort> MakeSerialPort() override {
        return WithJournal(*this, WithTraffic(log, real->MakeSerialPort()));
    }
    std::shared_ptr<IApiMacro> MakeApiMacro() override {
        return WithJournal(*this, WithTraffic(log, real->MakeApiMacro()));
    }
    std::shared_ptr<IDeviceList> MakeDeviceList() override {
        return WithJournal(*this,
                           WithTraffic(log, real->MakeDeviceList(SimHost::MakeDeviceList())));
    }
    std::shared_ptr<IPlatform> MakePlatform() override {
        return WithJournal(*this, WithTraffic(log, real->MakePlatform(SimHost::MakePlatform())));
    }
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return WatchSync(
            WithJournal(*this, real->MakeSystemServices(SimHost::MakeSystemServices())),
            [this] { ++syncTimeOuts; });
    }
};

class RealHostTest : public ScriptTest {
  protected:
    RealHostTest() {
        RealHostNeeds needs;
        needs.settings.serialDevices = {{3, terminal.device}};
        needs.settings.gpibLibrary = FAKE_GPIB;
        needs.settings.macroSync = Path("MacroSync.ini");
        needs.openConfiguration = [this] { return SettingsFiles().Open(WidePath("bench.ini")); };
        host->real = std::make_shared<RealHost>(needs);
        context.StatusDisplay = host->MakeStatusDisplay();
        context.ComPortForm = MakeComPortForm(context);
    }
    bool Send(std::int32_t interface, aceRemote& record) {
        record.Iface = interface;
        return modActions::SendRemoteCommand(context, record, ignoreAll);
    }
    bool StartProgram(aceRemote& record) {
        return modActions::StartRemoteProgram(context, record, ignoreAll);
    }
    std::vector<String> TakeEffects() {
        std::vector<String> lines = host->journal.Effects();
        host->journal.Clear();
        return lines;
    }
    std::string Traffic() const { return host->traffic.str(); }

    PseudoTerminal terminal;
    std::shared_ptr<MixedHost> host = std::make_shared<MixedHost>();
    ThreadContext context{host};
    Boolean ignoreAll;
};

TEST_F(RealHostTest, ATcpActionReachesTheInstrumentTheJournalAndTheLog) {
    FakeInstrument instrument;
    aceRemote record;
    record.Command = L"OUTP ON";
    record.TcpHost = L"127.0.0.1";
    record.TcpPort = instrument.Port();
    EXPECT_FALSE(Send(2, record));
    EXPECT_FALSE(Send(2, record));
    EXPECT_THAT(instrument.ReceivedWhen(16), ElementsAre("OUTP ON\nOUTP ON\n"));
    const String port = std::to_wstring(instrument.Port());
    const String find = L"DeviceList.FindSocket(\"127.0.0.1\", " + port + L", \"\", ";
    EXPECT_THAT(TakeEffects(),
                ElementsAre(find + L"-1)", L"DeviceList.SocketIsOpen(-1)",
                            L"DeviceList.OpenSocket(\"127.0.0.1\", " + port + L", 0, \"TCP\", -1)",
                            L"DeviceList.SocketIsOpen(1)",
                            L"StatusDisplay.ShowStatus(\"127.0.0.1\", false, false)",
                            L"DeviceList.SendSocket(1, \"OUTP ON\\n\")",
                            L"StatusDisplay.ShowStatus(\"\", false, false)", find + L"1)",
                            L"DeviceList.SocketIsOpen(1)", L"DeviceList.SocketIsOpen(1)",
                            L"StatusDisplay.ShowStatus(\"127.0.0.1\", false, false)",
                            L"DeviceList.SendSocket(1, \"OUTP ON\\n\")",
                            L"StatusDisplay.ShowStatus(\"\", false, false)"));
    EXPECT_THAT(Traffic(), HasSubstr("\tTCP/IP\t127.0.0.1:" + std::to_string(instrument.Port()) +
                                     "\t\"OUTP ON\\n\"\tsent 8 bytes\n"));
}

TEST_F(RealHostTest, AnInstrumentThatHungUpIsConnectedAnew) {
    FakeInstrument instrument;
    aceRemote record;
    record.Command = L"A";
    record.TcpHost = L"127.0.0.1";
    record.TcpPort = instrument.Port();
    EXPECT_FALSE(Send(2, record));
    instrument.ReceivedWhen(2);
    instrument.HangUp();
    EXPECT_FALSE(Send(2, record));
    EXPECT_THAT(instrument.ReceivedWhen(2, 2), ElementsAre("A\n", "A\n"));
}

TEST_F(RealHostTest, AnotherEndpointClosesTheConnectionBefore) {
    FakeInstrument one;
    FakeInstrument two;
    aceRemote record;
    record.Command = L"A";
    record.TcpHost = L"127.0.0.1";
    record.TcpPort = one.Port();
    EXPECT_FALSE(Send(2, record));
    record.TcpPort = two.Port();
    EXPECT_FALSE(Send(2, record));
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList.CloseSocket"),
                ElementsAre(L"DeviceList.CloseSocket(1)"));
    EXPECT_THAT(one.ReceivedWhen(2), ElementsAre("A\n"));
    EXPECT_THAT(two.ReceivedWhen(2), ElementsAre("A\n"));
}

/// The operator's form names the endpoint and the command only; the cause stands in the log.
TEST_F(RealHostTest, AnInstrumentThatIsOffReachesTheOperatorAndItsCauseTheLog) {
    aceRemote record;
    record.Command = L"A";
    record.TcpHost = L"127.0.0.1";
    {
        FakeInstrument off;
        record.TcpPort = off.Port();
    }
    host->user.Expect(L"frmGpibError", sim::Press(L"cmdStopTest"));
    EXPECT_TRUE(Send(2, record));
    EXPECT_THAT(host->user.TakeComplaints(), IsEmpty());
    EXPECT_THAT(host->journal.LinesOf(L"FormHost.ShowModal"),
                ElementsAre(HasSubstr(L":\\t127.0.0.1\\r\\n")));
    EXPECT_THAT(Traffic(),
                HasSubstr("\t\"\"\tfailed: TCP/IP 127.0.0.1:" + std::to_string(record.TcpPort) +
                          ": can't connect: Connection refused\n"));
}

TEST_F(RealHostTest, ASerialActionReachesTheLineAndReleasesThePort) {
    aceRemote record;
    record.Command = L"MODE 1";
    record.Terminator = 2;
    record.SerComPort = 3;
    EXPECT_FALSE(Send(1, record));
    EXPECT_EQ(terminal.ReceivedWhen(8), "MODE 1\r\n");
    EXPECT_FALSE(context.ComPortForm->ComPort().PortOpen());
    EXPECT_THAT(Traffic(), HasSubstr("\tRS232\tCOM3\t\"MODE 1\\r\\n\"\tsent 8 bytes\n"));
}

TEST_F(RealHostTest, AGpibActionReachesTheBus) {
    aceRemote record;
    record.Command = L"*RST";
    record.GpibAddress = 1205;
    EXPECT_FALSE(Send(0, record));
    EXPECT_GE(record.DrvHdl, 0);
    EXPECT_THAT(Traffic(), HasSubstr("\tGPIB\t12:5\t\"*RST\\n\"\tsent 5 bytes\n"));
}

TEST_F(RealHostTest, AProgramIsStartedOnceAndThenActivated) {
    Script("run", "echo x >> out; while [ ! -e stop ]; do sleep 0.02; done");
    aceRemote record;
    record.Program = WidePath("run");
    EXPECT_FALSE(StartProgram(record));
    const double first = record.ProgID;
    EXPECT_EQ(ReadWhenThere("out"), "x\n");
    EXPECT_FALSE(StartProgram(record));
    EXPECT_EQ(record.ProgID, first);
    EXPECT_EQ(Read("out"), "x\n");
    Write("stop", "");
    EXPECT_TRUE(Eventually(
        [&] { return ErrorIn([&] { context.Platform().ActivateProgram(first); }).Number() == 5; }));
    EXPECT_FALSE(StartProgram(record));
    EXPECT_NE(record.ProgID, first);
    EXPECT_TRUE(Eventually([&] { return Read("out") == "x\nx\n"; }));
}

TEST_F(RealHostTest, AProgramThatConfirmsItsWorkEndsTheWait) {
    Script("run", "grep -q '14=STARTED' MacroSync.ini && echo '14=COMPLETED' >> MacroSync.ini");
    Write("bench.ini", "[OtaMeasurements]\nActionSyncTimeout=60\n");
    aceRemote record;
    record.Program = WidePath("run");
    record.WaitPrgSync = true;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(StartProgram(record));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
    EXPECT_EQ(host->syncTimeOuts, 0);
    EXPECT_EQ(context.SystemServices().ReadMacroSync(14), L"COMPLETED");
}

TEST_F(RealHostTest, AProgramThatNeverAnswersEndsWithTheConfiguredTimeOutAndIsTold) {
    Write("bench.ini", "[OtaMeasurements]\nActionSyncTimeout=1\n");
    aceRemote record;
    record.Program = L"true";
    record.WaitPrgSync = true;
    EXPECT_FALSE(StartProgram(record));
    // 1000 ms by 300 ms: three rounds.
    EXPECT_THAT(host->journal.LinesOf(L"SystemServices.ReadMacroSync"), testing::SizeIs(3));
    EXPECT_EQ(host->syncTimeOuts, 1);
}

TEST_F(RealHostTest, ACommandLineThatCannotBeReadReachesTheOperatorAndEnds) {
    aceRemote record;
    record.Program = L"\"no end";
    ignoreAll = true;
    EXPECT_FALSE(StartProgram(record));
    EXPECT_EQ(record.ProgID, 0.0);
    EXPECT_THAT(Traffic(), HasSubstr("failed: command line: a quote has no end"));
}

TEST_F(RealHostTest, AMacroRunsWithItsParametersAndItsResultCounts) {
    Script("macro", "echo \"$@\" > out; exit \"$2\"");
    aceAPI record;
    record.Program = WidePath("macro");
    record.Parameters.Redim(1, 2);
    record.Parameters[1] = L"#FREQ#";
    record.Parameters[2] = L"0";
    record.Freq = 150e6;
    EXPECT_TRUE(modActions::RunApiMacro(context, record));
    EXPECT_EQ(Read("out"), "150000000.0 0\n");
    record.Parameters[2] = L"1";
    EXPECT_FALSE(modActions::RunApiMacro(context, record));
    EXPECT_THAT(Traffic(),
                HasSubstr("\tAPI macro\t" + Path("macro") + "\t\"150000000.0\\n0\\n\"\tstarted\n"));
}

TEST_F(RealHostTest, ASoundWithoutItsFileIsAFailure) {
    EXPECT_EQ(context.Platform().sndPlaySoundA(WidePath("missing.wav"), IPlatform::SoundFlags), 0);
}

TEST_F(RealHostTest, WhatIsNotATransportStaysWithTheRest) {
    context.DeviceList().PostEvent(L"ActionEngine", 3, L"Standby On");
    context.Platform().Beep();
    context.Platform().Yield();
    EXPECT_FALSE(context.SystemServices().FileIsUsable(L"x", true, false));
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"DeviceList.PostEvent(\"ActionEngine\", 3, \"Standby On\")",
                            L"Platform.Beep()", L"Platform.Yield()",
                            L"SystemServices.FileIsUsable(\"x\", true, false)"));
}

TEST_F(RealHostTest, AScriptedFailureStrikesBeforeAnythingIsSent) {
    FakeInstrument instrument;
    std::int32_t handle = -1;
    IDeviceList& list = context.DeviceList();
    list.OpenSocket(L"127.0.0.1", instrument.Port(), 0, L"TCP", handle);
    host->faults.FailOperation(L"DeviceList.SendSocket", 1, 57);
    EXPECT_EQ(ErrorIn([&] { list.SendSocket(handle, L"A"); }).Number(), 57);
    list.SendSocket(handle, L"B");
    EXPECT_THAT(instrument.ReceivedWhen(1), ElementsAre("B"));
}

TEST_F(RealHostTest, WithoutAConfigurationDefaultsHold) {
    RealHostNeeds needs;
    const RealHost bare(needs);
    const auto services = bare.MakeSystemServices(std::make_shared<DefaultSystemServices>());
    EXPECT_EQ(services->GetGlobalSettings()->GetLong(L"OtaMeasurements", L"ActionSyncTimeout", 180),
              180);
}

}  // namespace
}  // namespace ace::workbench
