#include "workbench/transports/tcp_sockets.h"

#include <csignal>
#include <optional>

#include "transports/failure.h"
#include "transports/instrument.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

constexpr TcpTimes ShortTimes{Milliseconds{2000}, Milliseconds{300}};

/// Time that `act` takes, in milliseconds.
template <class Act>
long long TimeOf(Act&& act) {
    const auto start = std::chrono::steady_clock::now();
    act();
    return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - start)
        .count();
}

/// A port that is taken and on which nobody listens.
class DeadPort {
  public:
    DeadPort() : x_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(x_socket, plain, size), 0);
        EXPECT_EQ(::getsockname(x_socket, plain, &size), 0);
        number = ntohs(address.sin_port);
    }
    DeadPort(const DeadPort&) = delete;
    DeadPort& operator=(const DeadPort&) = delete;
    ~DeadPort() { ::close(x_socket); }

    std::int32_t number = 0;

  private:
    int x_socket;
};

std::string BigCommand(std::size_t size) {
    std::string text;
    for (std::size_t i = 0; text.size() < size; ++i) {
        text += std::to_string(i) + ",";
    }
    text.resize(size);
    return text;
}

TEST(TcpSockets, BytesArriveExactlyWithEachTerminator) {
    for (const std::string terminator : {"\n", "\r", "\r\n", ""}) {
        FakeInstrument instrument;
        TcpSockets sockets;
        const std::string command = "FREQ 1.5E8,0;:POW -10,\"dBm\"" + terminator;
        sockets.Send(sockets.Open(L"127.0.0.1", instrument.Port()),
                     String(command.begin(), command.end()));
        EXPECT_THAT(instrument.ReceivedWhen(command.size()), ElementsAre(command));
    }
}

TEST(TcpSockets, EveryByteCanBeSent) {
    String text;
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte < 0x80 || byte >= 0xA0) {
            text += static_cast<wchar_t>(byte);
            bytes += static_cast<char>(byte);
        }
    }
    FakeInstrument instrument;
    TcpSockets sockets;
    sockets.Send(sockets.Open(L"127.0.0.1", instrument.Port()), text);
    EXPECT_THAT(instrument.ReceivedWhen(bytes.size()), ElementsAre(bytes));
}

TEST(TcpSockets, ACommandOfAMegabyteArrivesWhole) {
    const std::string command = BigCommand(1024 * 1024) + "\n";
    FakeInstrument instrument;
    TcpSockets sockets;
    sockets.Send(sockets.Open(L"127.0.0.1", instrument.Port()),
                 String(command.begin(), command.end()));
    const std::vector<std::string> received = instrument.ReceivedWhen(command.size());
    ASSERT_EQ(received.size(), 1U);
    EXPECT_TRUE(received.front() == command);
}

TEST(TcpSockets, SeveralCommandsShareAConnectionInTheirOrder) {
    FakeInstrument instrument;
    TcpSockets sockets;
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    sockets.Send(handle, L"A\n");
    sockets.Send(handle, L"");
    sockets.Send(handle, L"B\n");
    EXPECT_THAT(instrument.ReceivedWhen(4), ElementsAre("A\nB\n"));
}

TEST(TcpSockets, TheCommandBeforeAClosingArrives) {
    FakeInstrument instrument({true, 0, "an answer that nobody reads"});
    {
        TcpSockets sockets;
        sockets.Send(sockets.Open(L"127.0.0.1", instrument.Port()), L"OUTP OFF\n");
    }
    EXPECT_THAT(instrument.ReceivedWhen(9), ElementsAre("OUTP OFF\n"));
}

TEST(TcpSockets, AHostNameIsLookedUp) {
    FakeInstrument instrument;
    TcpSockets sockets;
    sockets.Send(sockets.Open(L"localhost", instrument.Port()), L"*RST");
    EXPECT_THAT(instrument.ReceivedWhen(4), ElementsAre("*RST"));
}

TEST(TcpSockets, APeerThatRefusesIsAnErrorWithHostPortAndCause) {
    TcpSockets sockets;
    const DeadPort port;
    EXPECT_EQ(
        Failure(TransportErrors::CannotOpen, [&] { sockets.Open(L"127.0.0.1", port.number); }),
        "TCP/IP 127.0.0.1:" + std::to_string(port.number) + ": can't connect: Connection refused");
    EXPECT_EQ(sockets.Find(L"127.0.0.1", port.number), -1);
}

TEST(TcpSockets, ANameThatNobodyKnowsIsAnErrorWithTheName) {
    TcpSockets sockets;
    const String name(70, L'x');
    EXPECT_THAT(Failure(TransportErrors::CannotOpen, [&] { sockets.Open(name, 5025); }),
                AllOf(HasSubstr(std::string(70, 'x') + ":5025"), HasSubstr("can't connect")));
}

TEST(TcpSockets, AnEmptyNameAndAPortOutOfRangeAreErrors) {
    TcpSockets sockets;
    for (const std::int32_t port : {0, -1, 65536, 70561}) {
        EXPECT_THAT(Failure(TransportErrors::CannotOpen, [&] { sockets.Open(L"127.0.0.1", port); }),
                    HasSubstr("127.0.0.1:" + std::to_string(port) +
                              ": can't connect: ports go from 1 to 65535"));
    }
    EXPECT_THAT(Failure(TransportErrors::CannotOpen, [&] { sockets.Open(L"", 5025); }),
                HasSubstr("there is no host name"));
}

/// Fills the queue of a listener that accepts nobody, so that the next connecting gets no answer.
class DeafListener {
  public:
    DeafListener() : x_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(x_listener, plain, size), 0);
        EXPECT_EQ(::listen(x_listener, 0), 0);
        EXPECT_EQ(::getsockname(x_listener, plain, &size), 0);
        port = ntohs(address.sin_port);
        for (int& waiting : x_waiting) {
            waiting = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
            ::connect(waiting, plain, size);
        }
    }
    ~DeafListener() {
        for (const int waiting : x_waiting) {
            ::close(waiting);
        }
        ::close(x_listener);
    }

    std::int32_t port = 0;

  private:
    int x_listener;
    int x_waiting[4]{};
};

TEST(TcpSockets, ConnectingEndsWithItsTimeOutWhileEventsRun) {
    const DeafListener deaf;
    int events = 0;
    TcpSockets sockets({Milliseconds{200}, Milliseconds{60'000}}, [&] { ++events; });
    const long long time = TimeOf([&] {
        EXPECT_EQ(
            Failure(TransportErrors::CannotOpen, [&] { sockets.Open(L"127.0.0.1", deaf.port); }),
            "TCP/IP 127.0.0.1:" + std::to_string(deaf.port) +
                ": can't connect: no answer within 200 ms");
    });
    EXPECT_GE(time, 200);
    EXPECT_LT(time, 30'000);
    EXPECT_GE(events, 2);
}

TEST(TcpSockets, APeerThatNeverReadsEndsWithTheTimeOutWhileEventsRun) {
    const std::string command = BigCommand(1024 * 1024);
    FakeInstrument instrument({false, 0, {}});
    int events = 0;
    TcpSockets sockets(ShortTimes, [&] { ++events; });
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    events = 0;
    const long long time = TimeOf([&] {
        EXPECT_THAT(Failure(TransportErrors::CannotSend,
                            [&] { sockets.Send(handle, String(command.begin(), command.end())); }),
                    AllOf(HasSubstr("TCP/IP 127.0.0.1:" + std::to_string(instrument.Port()) +
                                    ": can't send: the peer takes no more data, given up after "
                                    "300 ms ("),
                          HasSubstr(" of 1048576 bytes sent)")));
    });
    EXPECT_GE(time, 300);
    EXPECT_LT(time, 30'000);
    EXPECT_GE(events, 2);
    EXPECT_FALSE(sockets.IsOpen(handle));
}

TEST(TcpSockets, APeerThatDiesInMidWriteIsAnErrorAndNoSignal) {
    struct sigaction before {};
    ::sigaction(SIGPIPE, nullptr, &before);
    ASSERT_EQ(before.sa_handler, SIG_DFL);
    const std::string command = BigCommand(1024 * 1024);
    FakeInstrument instrument({true, 20'000, {}});
    TcpSockets sockets;
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    EXPECT_THAT(Failure(TransportErrors::CannotSend,
                        [&] { sockets.Send(handle, String(command.begin(), command.end())); }),
                AllOf(HasSubstr("TCP/IP 127.0.0.1:" + std::to_string(instrument.Port())),
                      HasSubstr(" of 1048576 bytes sent)")));
    EXPECT_FALSE(sockets.IsOpen(handle));
    EXPECT_EQ(sockets.Find(L"127.0.0.1", instrument.Port()), -1);
}

TEST(TcpSockets, APeerThatHasClosedIsSeenBeforeTheNextCommand) {
    FakeInstrument instrument;
    TcpSockets sockets;
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    sockets.Send(handle, L"A");
    instrument.ReceivedWhen(1);
    EXPECT_TRUE(sockets.IsOpen(handle));
    instrument.HangUp();
    EXPECT_EQ(Failure(TransportErrors::CannotSend, [&] { sockets.Send(handle, L"B"); }),
              "TCP/IP 127.0.0.1:" + std::to_string(instrument.Port()) +
                  ": can't send: the peer has closed the connection");
    EXPECT_FALSE(sockets.IsOpen(handle));
    EXPECT_EQ(sockets.Find(L"127.0.0.1", instrument.Port()), -1);
    EXPECT_THAT(instrument.Received(), ElementsAre("A"));
}

TEST(TcpSockets, APeerThatAnswersIsNotHeldUpByItsAnswers) {
    FakeInstrument instrument({true, 0, std::string(2000, 'a')});
    TcpSockets sockets;
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    sockets.Send(handle, L"A?\n");
    EXPECT_TRUE(sockets.IsOpen(handle));
    instrument.ReceivedWhen(3);
    instrument.HangUp();
    EXPECT_FALSE(sockets.IsOpen(handle));
}

TEST(TcpSockets, AnEndpointFindsItsConnectionWithoutRegardToCase) {
    FakeInstrument one;
    FakeInstrument two;
    TcpSockets sockets;
    const std::int32_t first = sockets.Open(L"localhost", one.Port());
    const std::int32_t second = sockets.Open(L"localhost", two.Port());
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(sockets.Find(L"LOCALHOST", one.Port()), first);
    EXPECT_EQ(sockets.Find(L"localhost", two.Port()), second);
    sockets.Close(first);
    EXPECT_EQ(sockets.Find(L"localhost", one.Port()), -1);
    EXPECT_FALSE(sockets.IsOpen(first));
    EXPECT_TRUE(sockets.IsOpen(second));
    EXPECT_EQ(sockets.Open(L"localhost", one.Port()), 3);
}

TEST(TcpSockets, AHandleThatIsNoConnectionIsAnErrorToSendAndNoneToClose) {
    TcpSockets sockets;
    for (const std::int32_t handle : {-1, 0, 1, 32767}) {
        sockets.Close(handle);
        EXPECT_FALSE(sockets.IsOpen(handle));
        EXPECT_THAT(Failure(TransportErrors::CannotSend, [&] { sockets.Send(handle, L"A"); }),
                    HasSubstr("handle " + std::to_string(handle) + " is no connection"));
    }
}

TEST(TcpSockets, AFurtherCommandFromInsideTheEventsIsRefused) {
    FakeInstrument instrument({false, 0, {}});
    std::optional<TcpSockets> sockets;
    std::int32_t handle = 0;
    std::vector<std::string> failures;
    sockets.emplace(ShortTimes, [&] {
        if (handle != 0 && failures.empty()) {
            failures.push_back(
                Failure(TransportErrors::CannotSend, [&] { sockets->Send(handle, L"B"); }));
            failures.push_back(Failure(TransportErrors::CannotOpen,
                                       [&] { sockets->Open(L"127.0.0.1", instrument.Port()); }));
        }
    });
    handle = sockets->Open(L"127.0.0.1", instrument.Port());
    const RunTimeError error = ErrorIn([&] { sockets->Send(handle, String(1024 * 1024, L'A')); });
    EXPECT_EQ(error.Number(), TransportErrors::CannotSend);
    const auto refused = HasSubstr("another TCP/IP command is still under way");
    EXPECT_THAT(failures, ElementsAre(refused, refused));
}

TEST(TcpSockets, AConnectionClosedFromInsideTheEventsEndsTheCommand) {
    FakeInstrument instrument({false, 0, {}});
    std::optional<TcpSockets> sockets;
    std::int32_t handle = 0;
    sockets.emplace(TcpTimes{Milliseconds{2000}, Milliseconds{20'000}}, [&] {
        if (handle != 0) {
            sockets->Close(handle);
        }
    });
    handle = sockets->Open(L"127.0.0.1", instrument.Port());
    EXPECT_THAT(Failure(TransportErrors::CannotSend,
                        [&] { sockets->Send(handle, String(1024 * 1024, L'A')); }),
                HasSubstr("the connection was closed meanwhile ("));
}

TEST(TcpSockets, AnExceptionOutOfTheEventsEndsTheCommandAndItsConnection) {
    FakeInstrument instrument({false, 0, {}});
    bool isSending = false;
    TcpSockets sockets({}, [&] {
        if (isSending) {
            throw std::runtime_error("stopped");
        }
    });
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    isSending = true;
    EXPECT_THROW(sockets.Send(handle, String(1024 * 1024, L'A')), std::runtime_error);
    isSending = false;
    EXPECT_FALSE(sockets.IsOpen(handle));
    EXPECT_GT(sockets.Open(L"127.0.0.1", instrument.Port()), 0);
}

TEST(TcpSockets, ACharacterWithoutAByteSendsNothing) {
    FakeInstrument instrument;
    TcpSockets sockets;
    const std::int32_t handle = sockets.Open(L"127.0.0.1", instrument.Port());
    EXPECT_THAT(Failure(TransportErrors::CannotSend, [&] { sockets.Send(handle, L"ab\x03A9"); }),
                HasSubstr("character 3 of the command, U+0003A9, is not in Windows-1252"));
    EXPECT_TRUE(sockets.IsOpen(handle));
    sockets.Send(handle, L"ok");
    EXPECT_THAT(instrument.ReceivedWhen(2), ElementsAre("ok"));
}

}  // namespace
}  // namespace ace::workbench
