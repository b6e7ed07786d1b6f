#include <ace/execution/device_failure.h>
#include <ace/execution/remote_commands.h>

#include "support/remote_fixture.h"

namespace ace::test {
namespace {

using sim::Press;
using ::testing::ElementsAre;

class SendRemoteCommand : public RoutineTest {
  protected:
    Boolean Send(aceRemote& record) {
        return modActions::SendRemoteCommand(context, record, ignoreAll);
    }
    static aceRemote Gpib(std::int32_t address, String command = L"*RST") {
        aceRemote record;
        record.Command = std::move(command);
        record.GpibAddress = address;
        return record;
    }
    static aceRemote Serial(std::int32_t port) {
        aceRemote record = Gpib(0, L"MODE RUN");
        record.Iface = 1;
        record.SerComPort = port;
        return record;
    }
    static aceRemote Tcp(String peer, std::int32_t port = 5025) {
        aceRemote record = Gpib(0, L"OUTP ON");
        record.Iface = 2;
        record.TcpHost = std::move(peer);
        record.TcpPort = port;
        return record;
    }
};

TEST_F(SendRemoteCommand, GpibOpensWritesAndKeepsTheDevice) {
    aceRemote record = Gpib(1205);
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"GpibDriver.OpenDevice(12, 5, 0, 11, 1, 0)",
                                         L"StatusDisplay.ShowStatus(\"GPIB 12:5\", false, false)",
                                         L"GpibDriver.WriteString(0, \"*RST\\n\")", StatusCleared));
    EXPECT_EQ(record.DrvHdl, 0);
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"StatusDisplay.ShowStatus(\"GPIB 12:5\", false, false)",
                                         L"GpibDriver.WriteString(0, \"*RST\\n\")", StatusCleared));
}

TEST_F(SendRemoteCommand, TheHundredsOfTheAddressAreTheBoard) {
    struct Row {
        std::int32_t address;
        const wchar_t* opened;
    };
    constexpr Row rows[] = {{1205, L"12, 5"}, {5, L"0, 5"},    {99, L"0, 99"},
                            {100, L"1, 0"},   {-1, L"-1, 99"}, {-100, L"-1, 0"}};
    for (const Row& row : rows) {
        aceRemote record = Gpib(row.address);
        Send(record);
        EXPECT_EQ(TakeCalls().front(),
                  L"GpibDriver.OpenDevice(" + String(row.opened) + L", 0, 11, 1, 0)");
    }
}

TEST_F(SendRemoteCommand, ABoardBeyond16BitsIsAnOverflowThatTheOperatorSees) {
    aceRemote record = Gpib(2147483647);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"Form \"frmGpibError\"", StatusCleared));
}

TEST_F(SendRemoteCommand, TwoActionsOnOneAddressHoldHandlesOfTheirOwn) {
    aceRemote first = Gpib(7);
    aceRemote second = Gpib(7);
    Send(first);
    Send(second);
    EXPECT_EQ(first.DrvHdl, 0);
    EXPECT_EQ(second.DrvHdl, 1);
}

TEST_F(SendRemoteCommand, TheTerminatorFollowsTheText) {
    struct Row {
        std::int32_t code;
        const wchar_t* written;
    };
    constexpr Row rows[] = {{0, L"*RST\n"}, {1, L"*RST\r"}, {2, L"*RST\r\n"}, {3, L"*RST"},
                            {4, L"*RST"},   {10, L"*RST"},  {-1, L"*RST"}};
    for (const Row& row : rows) {
        aceRemote record = Gpib(5);
        record.Terminator = row.code;
        Send(record);
        const auto& entries = host->journal.Entries();
        EXPECT_EQ(entries[entries.size() - 2].values.back(), row.written) << row.code;
    }
}

TEST_F(SendRemoteCommand, ANumberUnderACommaLocaleGoesOutWithAPoint) {
    host->decimalSeparator = L',';
    aceRemote record = Gpib(5, L"FREQ #FREQ# MHZ");
    record.vks.count = 1;
    record.vks.strSearch.Redim(0, 0);
    record.vks.strSearch[0] = L"#FREQ#";
    record.vks.valReplace.Redim(0, 0);
    record.vks.valReplace[0] = 2.5;
    Send(record);
    const auto& entries = host->journal.Entries();
    EXPECT_EQ(entries[entries.size() - 2].values.back(), L"FREQ 2.5 MHZ\n");
    EXPECT_EQ(record.Command, L"FREQ #FREQ# MHZ");
}

TEST_F(SendRemoteCommand, AnUnknownInterfaceSendsNothing) {
    aceRemote record = Gpib(5);
    record.Iface = 3;
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(StatusCleared));
}

TEST_F(SendRemoteCommand, ADeviceThatDoesNotOpenIsShownAndTriedAgainNextTime) {
    host->instruments.absentGpib.insert(5);
    aceRemote record = Gpib(5);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"GpibDriver.OpenDevice(0, 5, 0, 11, 1, 0)",
                                         L"Form \"frmGpibError\"", StatusCleared));
    EXPECT_EQ(record.DrvHdl, -1);
    host->instruments.absentGpib.clear();
    Send(record);
    EXPECT_EQ(record.DrvHdl, 0);
}

TEST_F(SendRemoteCommand, TheConnectErrorCarriesItsTextAndAHelpThatNobodyReads) {
    context.Language();
    host->journal.Clear();
    try {
        RaiseDeviceFailed(context);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number(), 4010);
        EXPECT_EQ(error.Description(), L"T(3350)");
        EXPECT_EQ(error.HelpFile(), L"T(3021)");
    }
    EXPECT_THAT(host->journal.Lines(), ElementsAre(L"Language.Text(3350)", L"Language.Text(3021)"));
}

TEST_F(SendRemoteCommand, VariablesThatAreMissingAreAFailureBeforeAnythingIsSent) {
    for (const std::int32_t iface : {0, 1, 2, 3}) {
        aceRemote record = Gpib(5);
        record.Iface = iface;
        record.vks.count = 1;
        host->user.Expect(L"frmGpibError", Press(L"cmdStopTest"));
        EXPECT_TRUE(Send(record));
        EXPECT_THAT(TakeCalls(), ElementsAre(L"Form \"frmGpibError\"", StatusCleared));
    }
}

TEST_F(SendRemoteCommand, AFailedWriteKeepsTheHandle) {
    aceRemote record = Gpib(5);
    host->faults.FailOperation(L"GpibDriver.WriteString", 1, 57);
    host->user.Expect(L"frmGpibError", Press(L"cmdStopTest"));
    EXPECT_TRUE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"GpibDriver.OpenDevice(0, 5, 0, 11, 1, 0)",
                                         L"StatusDisplay.ShowStatus(\"GPIB 0:5\", false, false)",
                                         L"GpibDriver.WriteString(0, \"*RST\\n\") -> error 57",
                                         L"Form \"frmGpibError\"", StatusCleared));
    EXPECT_EQ(record.DrvHdl, 0);
    EXPECT_FALSE(ignoreAll);
}

TEST_F(SendRemoteCommand, IgnoreAllSilencesTheActionAndStillClearsTheStatus) {
    host->instruments.absentGpib.insert(5);
    aceRemote record = Gpib(5);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnoreAll"));
    EXPECT_FALSE(Send(record));
    EXPECT_TRUE(ignoreAll);
    TakeCalls();
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(),
                ElementsAre(L"GpibDriver.OpenDevice(0, 5, 0, 11, 1, 0)", StatusCleared));
}

TEST_F(SendRemoteCommand, TheSerialPortIsHeldForTheOneWrite) {
    aceRemote record = Serial(3);
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"SerialPort.PortOpen(false)", L"Platform.Yield()",
                                         L"SerialPort.CommPort(3)", L"SerialPort.PortOpen(true)",
                                         L"Platform.Yield()",
                                         L"StatusDisplay.ShowStatus(\"RS232 3\", false, false)",
                                         L"SerialPort.Output(\"MODE RUN\\n\")",
                                         L"SerialPort.PortOpen(false)", StatusCleared));
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"SerialPort.PortOpen(true)", L"Platform.Yield()",
                                         L"StatusDisplay.ShowStatus(\"RS232 3\", false, false)",
                                         L"SerialPort.Output(\"MODE RUN\\n\")",
                                         L"SerialPort.PortOpen(false)", StatusCleared));
}

TEST_F(SendRemoteCommand, ErrorsOfClosingTheOldPortAreIgnored) {
    aceRemote record = Serial(2);
    host->faults.FailOperation(L"SerialPort.PortOpen", 1, 8005);
    EXPECT_FALSE(Send(record));
    const std::vector<String> calls = TakeCalls();
    EXPECT_EQ(calls[0], L"SerialPort.PortOpen(false) -> error 8005");
    EXPECT_EQ(calls[2], L"SerialPort.CommPort(2)");
    EXPECT_EQ(calls.back(), StatusCleared);
    EXPECT_THAT(calls, ::testing::Not(::testing::Contains(L"Form \"frmGpibError\"")));
}

TEST_F(SendRemoteCommand, APortNumberBeyond16BitsIsAnOverflow) {
    aceRemote record = Serial(40000);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"SerialPort.PortOpen(false)", L"Platform.Yield()",
                                         L"Form \"frmGpibError\"", StatusCleared));
}

TEST_F(SendRemoteCommand, APortThatStaysClosedIsTheConnectError) {
    host->instruments.brokenPorts.insert(1);
    aceRemote record = Serial(1);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"SerialPort.PortOpen(true)", L"Platform.Yield()",
                                         L"Form \"frmGpibError\"", StatusCleared));
}

TEST_F(SendRemoteCommand, AFailedOutputLeavesThePortOpenForTheNextAction) {
    aceRemote record = Serial(1);
    host->faults.FailOperation(L"SerialPort.Output", 1, 57);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    Send(record);
    EXPECT_TRUE(host->serialPortOpen);
    TakeCalls();
    Send(record);
    EXPECT_THAT(TakeCalls(), ElementsAre(L"StatusDisplay.ShowStatus(\"RS232 1\", false, false)",
                                         L"SerialPort.Output(\"MODE RUN\\n\")",
                                         L"SerialPort.PortOpen(false)", StatusCleared));
}

TEST_F(SendRemoteCommand, WithoutASerialFormNothingHappensButTheFinalClear) {
    context.ComPortForm.reset();
    host->journal.Clear();
    aceRemote record = Serial(1);
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(StatusCleared));
}

TEST_F(SendRemoteCommand, TheFirstTcpCommandConnects) {
    aceRemote record = Tcp(L"192.168.17.21");
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(),
                ElementsAre(L"DeviceList.FindSocket(\"192.168.17.21\", 5025, \"\", -1)",
                            L"DeviceList.SocketIsOpen(-1)",
                            L"DeviceList.OpenSocket(\"192.168.17.21\", 5025, 0, \"TCP\", -1)",
                            L"DeviceList.SocketIsOpen(1)",
                            L"StatusDisplay.ShowStatus(\"TCP/IP 192.168.17.21\", false, false)",
                            L"DeviceList.SendSocket(1, \"OUTP ON\\n\")", StatusCleared));
    EXPECT_EQ(context.SocketHandle, 1);
}

TEST_F(SendRemoteCommand, ASecondCommandToTheSameEndpointReusesTheConnection) {
    aceRemote record = Tcp(L"gen");
    Send(record);
    TakeCalls();
    Send(record);
    EXPECT_THAT(TakeCalls(),
                ElementsAre(L"DeviceList.FindSocket(\"gen\", 5025, \"\", 1)",
                            L"DeviceList.SocketIsOpen(1)", L"DeviceList.SocketIsOpen(1)",
                            L"StatusDisplay.ShowStatus(\"TCP/IP gen\", false, false)",
                            L"DeviceList.SendSocket(1, \"OUTP ON\\n\")", StatusCleared));
}

TEST_F(SendRemoteCommand, AnotherEndpointClosesTheFirstConnection) {
    aceRemote first = Tcp(L"gen");
    aceRemote second = Tcp(L"meter", 1234);
    Send(first);
    TakeCalls();
    Send(second);
    EXPECT_THAT(TakeCalls(),
                ElementsAre(L"DeviceList.FindSocket(\"meter\", 1234, \"\", 1)",
                            L"DeviceList.CloseSocket(1)", L"DeviceList.SocketIsOpen(-1)",
                            L"DeviceList.OpenSocket(\"meter\", 1234, 0, \"TCP\", -1)",
                            L"DeviceList.SocketIsOpen(2)",
                            L"StatusDisplay.ShowStatus(\"TCP/IP meter\", false, false)",
                            L"DeviceList.SendSocket(2, \"OUTP ON\\n\")", StatusCleared));
}

/// The host may still know a connection to the endpoint; the engine only compares its handle.
TEST_F(SendRemoteCommand, AConnectionThatTheHostFindsIsNeverTakenOver) {
    aceRemote record = Tcp(L"gen");
    Send(record);
    context.SocketHandle = -1;
    TakeCalls();
    Send(record);
    EXPECT_EQ(context.SocketHandle, 2);
    EXPECT_THAT(TakeCalls(), ::testing::Not(::testing::Contains(L"DeviceList.CloseSocket(1)")));
}

/// A connection begins at 1: 0 is none, also where the host calls it open, and is never closed.
TEST_F(SendRemoteCommand, AHandleOf0IsReplacedAndNeverClosed) {
    context.SocketHandle = 0;
    host->openSockets = {0};
    aceRemote record = Tcp(L"gen");
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(
        TakeCalls(),
        ElementsAre(L"DeviceList.FindSocket(\"gen\", 5025, \"\", 0)", L"DeviceList.SocketIsOpen(0)",
                    L"DeviceList.OpenSocket(\"gen\", 5025, 0, \"TCP\", 0)",
                    L"DeviceList.SocketIsOpen(1)",
                    L"StatusDisplay.ShowStatus(\"TCP/IP gen\", false, false)",
                    L"DeviceList.SendSocket(1, \"OUTP ON\\n\")", StatusCleared));
}

/// The last engine object takes the line along; what still runs sends its commands.
TEST_F(SendRemoteCommand, WithoutAStatusLineTheCommandIsSentAllTheSame) {
    context.StatusDisplay.reset();
    aceRemote overBus = Gpib(20);
    aceRemote overLine = Serial(2);
    aceRemote overNet = Tcp(L"gen");
    for (aceRemote* record : {&overBus, &overLine, &overNet}) {
        EXPECT_FALSE(Send(*record));
    }
    EXPECT_THAT(host->journal.LinesOf(L"GpibDriver.WriteString"), ::testing::SizeIs(1));
    EXPECT_THAT(host->journal.LinesOf(L"SerialPort.Output"), ::testing::SizeIs(1));
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList.SendSocket"), ::testing::SizeIs(1));
}

TEST_F(SendRemoteCommand, ARefusedConnectionIsTheConnectError) {
    host->instruments.refusedEndpoints.insert(L"gen:5025");
    aceRemote record = Tcp(L"gen");
    host->user.Expect(
        {L"frmGpibError",
         {Press(L"cmdStopTest")},
         {{L"lblMessage", L"T(9323)"}, {L"txtError", L"T(9327):\tgen\r\nT(9325):\tOUTP ON\r\n"}}});
    EXPECT_TRUE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"DeviceList.FindSocket(\"gen\", 5025, \"\", -1)",
                                         L"DeviceList.SocketIsOpen(-1)",
                                         L"DeviceList.OpenSocket(\"gen\", 5025, 0, \"TCP\", -1)",
                                         L"DeviceList.SocketIsOpen(-1)", L"Form \"frmGpibError\"",
                                         StatusCleared));
}

/// Every call of every transport fails once: the operator is asked each time, but for the closing
/// of an old port, and the status line is cleared each time.
TEST_F(SendRemoteCommand, AFailureOfAnyCallReachesTheOperatorAndClearsTheStatus) {
    struct Answer {
        const wchar_t* button;
        bool stops;
        bool ignoresAll;
    };
    constexpr Answer answers[] = {{L"cmdIgnore", false, false},
                                  {L"cmdIgnoreAll", false, true},
                                  {L"cmdStopTest", true, false}};
    const aceRemote records[] = {Gpib(5), Serial(1), Tcp(L"gen")};
    constexpr std::size_t callCounts[] = {3, 6, 6};  // up to the write, questions left out
    for (std::size_t transport = 0; transport < 3; ++transport) {
        for (const Answer& answer : answers) {
            for (std::size_t k = 1; k <= callCounts[transport]; ++k) {
                aceRemote record = records[transport];
                context.SocketHandle = -1;
                host->serialPortOpen = false;
                ignoreAll = false;
                host->faults.Clear();
                host->faults.FailCall(k, 57);
                host->user.Expect(L"frmGpibError", Press(answer.button));
                EXPECT_EQ(Send(record), answer.stops) << transport << " call " << k;
                EXPECT_EQ(ignoreAll, answer.ignoresAll) << transport << " call " << k;
                EXPECT_EQ(TakeCalls().back(), StatusCleared) << transport << " call " << k;
            }
        }
    }
}

TEST_F(SendRemoteCommand, AStatusLineThatFailsToClearIsAskedAboutToo) {
    aceRemote record = Gpib(5);
    record.DrvHdl = 4;
    host->faults.FailOperation(L"StatusDisplay", 2, 57);
    host->user.Expect(L"frmGpibError", Press(L"cmdIgnore"));
    EXPECT_FALSE(Send(record));
    EXPECT_THAT(TakeCalls(), ElementsAre(L"StatusDisplay.ShowStatus(\"GPIB 0:5\", false, false)",
                                         L"GpibDriver.WriteString(4, \"*RST\\n\")",
                                         StatusCleared + L" -> error 57", L"Form \"frmGpibError\"",
                                         StatusCleared));
}

}  // namespace
}  // namespace ace::test
