#include "workbench/transports/serial_line.h"

#include <optional>

#include "transports/failure.h"
#include "transports/pseudo_terminal.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using testing::AllOf;
using testing::HasSubstr;

/// Open on COM3, which is `terminal`.
void OpenOn(SerialLine& line) {
    line.CommPort(3);
    line.PortOpen(true);
}

TEST(SerialLine, BytesArriveExactlyWithEachTerminator) {
    for (const std::string terminator : {"\n", "\r", "\r\n", ""}) {
        PseudoTerminal terminal;
        SerialLine line({{3, terminal.device}});
        OpenOn(line);
        EXPECT_TRUE(line.PortOpen());
        const std::string command = "V1,2.5;\x7F\x03\x11\x13" + terminator;
        line.Output(String(command.begin(), command.end()));
        line.PortOpen(false);
        EXPECT_FALSE(line.PortOpen());
        EXPECT_EQ(terminal.ReceivedWhen(command.size()), command);
    }
}

TEST(SerialLine, TheLineHas9600BaudEightBitsNoParityOneStopBitNoHandshake) {
    PseudoTerminal terminal;
    SerialLine line({{3, terminal.device}});
    OpenOn(line);
    const termios settings = terminal.Line();
    EXPECT_EQ(::cfgetospeed(&settings), static_cast<speed_t>(B9600));
    EXPECT_EQ(::cfgetispeed(&settings), static_cast<speed_t>(B9600));
    EXPECT_EQ(settings.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
    EXPECT_EQ(settings.c_cflag & (PARENB | CSTOPB | CRTSCTS), 0U);
    EXPECT_EQ(settings.c_iflag & (IXON | IXOFF), 0U);
    EXPECT_EQ(settings.c_oflag & OPOST, 0U);
    EXPECT_EQ(settings.c_lflag & (ECHO | ICANON), 0U);
}

TEST(SerialLine, ACommandOfAMegabyteArrivesWhole) {
    std::string command;
    for (int i = 0; command.size() < 1024 * 1024; ++i) {
        command += std::to_string(i) + ",";
    }
    PseudoTerminal terminal;
    SerialLine line({{3, terminal.device}});
    OpenOn(line);
    line.Output(String(command.begin(), command.end()));
    line.PortOpen(false);
    EXPECT_TRUE(terminal.ReceivedWhen(command.size()) == command);
}

TEST(SerialLine, APortIsClosedAtFirstAndHasTheNumber1) {
    SerialLine line({});
    EXPECT_FALSE(line.PortOpen());
    EXPECT_EQ(line.CommPort(), 1);
    line.PortOpen(false);
    EXPECT_FALSE(line.PortOpen());
}

TEST(SerialLine, ANumberWithoutADeviceIsAnErrorThatNamesTheConfiguration) {
    SerialLine line({{3, "/dev/null"}});
    line.CommPort(4);
    EXPECT_EQ(Failure(TransportErrors::CannotOpen, [&] { line.PortOpen(true); }),
              "RS232 COM4: can't open: the configuration names no device for it, as in "
              "[SerialPorts] COM4=/dev/ttyUSB0");
    EXPECT_FALSE(line.PortOpen());
}

TEST(SerialLine, ADeviceThatCannotBeOpenedIsAnErrorWithNumberDeviceAndCause) {
    SerialLine line({{1, "/no/such/device"}, {2, "/dev/null"}});
    EXPECT_EQ(Failure(TransportErrors::CannotOpen, [&] { line.PortOpen(true); }),
              "RS232 COM1 (/no/such/device): can't open: No such file or directory");
    line.CommPort(2);
    EXPECT_EQ(Failure(TransportErrors::CannotOpen, [&] { line.PortOpen(true); }),
              "RS232 COM2 (/dev/null): can't open: Inappropriate ioctl for device");
    EXPECT_FALSE(line.PortOpen());
}

TEST(SerialLine, OutputOnAClosedPortIsAnError) {
    SerialLine line({});
    EXPECT_EQ(Failure(TransportErrors::CannotSend, [&] { line.Output(L"A"); }),
              "RS232 COM1: can't send: the port is not open");
}

TEST(SerialLine, AnOpenPortKeepsItsNumber) {
    PseudoTerminal terminal;
    SerialLine line({{3, terminal.device}});
    OpenOn(line);
    line.CommPort(3);
    EXPECT_THAT(Failure(TransportErrors::CannotOpen, [&] { line.CommPort(4); }), HasSubstr("COM3"));
    EXPECT_EQ(line.CommPort(), 3);
    line.PortOpen(true);
    EXPECT_TRUE(line.PortOpen());
}

TEST(SerialLine, APeerThatNeverReadsEndsWithTheTimeOutWhileEventsRunAndLeavesThePortOpen) {
    PseudoTerminal terminal(false);
    int events = 0;
    SerialLine line({{3, terminal.device}}, Milliseconds{200}, [&] { ++events; });
    OpenOn(line);
    EXPECT_THAT(
        Failure(TransportErrors::CannotSend, [&] { line.Output(String(500'000, L'A')); }),
        AllOf(HasSubstr("RS232 COM3 (" + terminal.device +
                        "): can't send: the line takes no more data, given up after 200 ms ("),
              HasSubstr(" of 500000 bytes sent)")));
    EXPECT_GE(events, 2);
    EXPECT_TRUE(line.PortOpen());
    line.PortOpen(false);
    EXPECT_FALSE(line.PortOpen());
}

TEST(SerialLine, APeerThatIsGoneIsAnErrorAndNoSignal) {
    PseudoTerminal terminal;
    SerialLine line({{3, terminal.device}});
    OpenOn(line);
    terminal.Close();
    EXPECT_EQ(
        Failure(TransportErrors::CannotSend, [&] { line.Output(L"A"); }),
        "RS232 COM3 (" + terminal.device + "): can't send: Input/output error (0 of 1 bytes sent)");
    EXPECT_TRUE(line.PortOpen());
}

TEST(SerialLine, FromInsideTheEventsOfAWriteEverythingElseIsRefused) {
    PseudoTerminal terminal(false);
    std::optional<SerialLine> line;
    bool isSending = false;
    std::vector<std::string> failures;
    line.emplace(SerialDevices{{3, terminal.device}}, Milliseconds{200}, [&] {
        if (isSending && failures.empty()) {
            failures.push_back(Failure(TransportErrors::CannotSend, [&] { line->Output(L"B"); }));
            failures.push_back(
                Failure(TransportErrors::CannotSend, [&] { line->PortOpen(false); }));
        }
    });
    OpenOn(*line);
    isSending = true;
    EXPECT_NE(ErrorIn([&] { line->Output(String(500'000, L'A')); }).Number(), 0);
    const auto refused = HasSubstr("another command is still under way");
    EXPECT_THAT(failures, testing::ElementsAre(refused, refused));
    isSending = false;
    line->PortOpen(false);
    EXPECT_FALSE(line->PortOpen());
}

TEST(SerialLine, ACharacterWithoutAByteSendsNothing) {
    PseudoTerminal terminal;
    SerialLine line({{3, terminal.device}});
    OpenOn(line);
    EXPECT_THAT(Failure(TransportErrors::CannotSend, [&] { line.Output(L"A\x0416"); }),
                HasSubstr("U+000416"));
    line.Output(L"ok");
    EXPECT_EQ(terminal.ReceivedWhen(2), "ok");
}

}  // namespace
}  // namespace ace::workbench
