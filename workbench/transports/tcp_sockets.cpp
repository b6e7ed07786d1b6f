#include "workbench/transports/tcp_sockets.h"

#include <array>
#include <atomic>
#include <vector>

#include <ace/core/text.h>
#include <ace/host/run_time_error.h>

#include "workbench/files/system_reason.h"
#include "workbench/files/text_encoding.h"
#include "workbench/transports/asio_await.h"
#include "workbench/transports/instrument_bytes.h"
#include "workbench/transports/own_thread.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

using asio::ip::tcp;

constexpr std::int32_t LastPort = 65535;
constexpr std::int32_t LastHandle = 32767;
/// Small, so that a peer that stops reading is noticed after this many bytes and not after the
/// megabytes that a system is ready to buffer.
constexpr int SendBufferBytes = 64 * 1024;

String NameOf(const String& host, std::int32_t port) {
    return L"TCP/IP " + host + L":" + std::to_wstring(port);
}

String CauseOf(const asio::error_code& error) {
    return FromUtf8(error.message());
}

[[noreturn]] void RaiseCannotOpen(const String& name, const String& cause) {
    throw RunTimeError(TransportErrors::CannotOpen, name + L": can't connect: " + cause);
}

[[noreturn]] void RaiseCannotSend(const String& name, const String& cause) {
    throw RunTimeError(TransportErrors::CannotSend, name + L": can't send: " + cause);
}

String MillisecondsText(Milliseconds time) {
    return std::to_wstring(time.count()) + L" ms";
}

String CauseOfFailedWrite(const Ending& ending, bool isStillOpen, Milliseconds time) {
    if (ending.isTimedOut) {
        return L"the peer takes no more data, given up after " + MillisecondsText(time);
    }
    return isStillOpen ? CauseOf(ending.error) : L"the connection was closed meanwhile";
}

/// A name that is being looked up by a thread of its own, because nothing can break that off. Given
/// up, it ends by itself.
struct Lookup {
    std::atomic<bool> isDone = false;
    asio::error_code error;
    std::vector<tcp::endpoint> endpoints;
};

void LookUp(Lookup& lookup, const std::string& host, std::int32_t port) {
    asio::io_context io;
    tcp::resolver resolver(io);
    const auto found =
        resolver.resolve(host, std::to_string(port), tcp::resolver::numeric_service, lookup.error);
    for (const auto& entry : found) {
        lookup.endpoints.push_back(entry.endpoint());
    }
    lookup.isDone = true;
}

/// The addresses of `host`; a numeric one needs no looking up.
std::vector<tcp::endpoint> EndpointsOf(const String& host, std::int32_t port, const TcpTimes& times,
                                       Deadline deadline, const RunEvents& events) {
    const std::string plainHost = ToUtf8(host);
    asio::error_code notNumeric;
    const asio::ip::address address = asio::ip::make_address(plainHost, notNumeric);
    if (!notNumeric) {
        return {{address, static_cast<std::uint16_t>(port)}};
    }
    const auto lookup = std::make_shared<Lookup>();
    const auto lookUp = [lookup, plainHost, port] { LookUp(*lookup, plainHost, port); };
    if (const int noThread = RunOnOwnThread(lookUp)) {
        RaiseCannotOpen(NameOf(host, port), SystemReason(noThread));
    }
    while (!lookup->isDone) {
        if (HasPassed(deadline)) {
            RaiseCannotOpen(NameOf(host, port),
                            L"the name was not found within " + MillisecondsText(times.connect));
        }
        SleepAndRunEvents(events);
    }
    if (lookup->error || lookup->endpoints.empty()) {
        RaiseCannotOpen(NameOf(host, port), CauseOf(lookup->error));
    }
    return lookup->endpoints;
}

}  // namespace

struct TcpSockets::Network {
    asio::io_context io;
};

struct TcpSockets::Connection {
    explicit Connection(asio::io_context& io) : socket(io) {}

    String Name() const { return NameOf(host, port); }
    bool ReadAndDrop();
    void Reset();

    String host;
    std::int32_t port = 0;
    tcp::socket socket;
};

/// False when the peer has closed the connection, or it is broken. Reading also keeps a peer that
/// answers from being blocked by its answers, and the closing from becoming a reset.
bool TcpSockets::Connection::ReadAndDrop() {
    constexpr int MostReads = 256;
    std::array<char, 4096> dropped{};
    for (int reads = 0; reads < MostReads; ++reads) {
        asio::error_code error;
        socket.read_some(asio::buffer(dropped), error);
        if (error) {
            return error == asio::error::would_block;
        }
    }
    return true;
}

/// Closes without sending what is still buffered.
void TcpSockets::Connection::Reset() {
    asio::error_code ignored;
    socket.set_option(asio::socket_base::linger(true, 0), ignored);
    socket.close(ignored);
}

/// Only one operation waits at a time: two commands must not mix their bytes.
class TcpSockets::Busy {
  public:
    explicit Busy(TcpSockets& sockets, std::int32_t error, const String& name)
        : x_sockets(sockets) {
        if (x_sockets.x_isBusy) {
            throw RunTimeError(error, name + L": another TCP/IP command is still under way");
        }
        x_sockets.x_isBusy = true;
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
    ~Busy() { x_sockets.x_isBusy = false; }

  private:
    TcpSockets& x_sockets;
};

TcpSockets::TcpSockets(TcpTimes times, RunEvents events)
    : x_times(times), x_events(std::move(events)), x_network(std::make_unique<Network>()) {}

TcpSockets::~TcpSockets() {
    while (!x_connections.empty()) {
        Close(x_connections.begin()->first);
    }
}

std::shared_ptr<TcpSockets::Connection> TcpSockets::ConnectTo(const String& host,
                                                              std::int32_t port) {
    const Deadline deadline = DeadlineIn(x_times.connect);
    auto connection = std::make_shared<Connection>(x_network->io);
    connection->host = host;
    connection->port = port;
    Ending ending;
    for (const tcp::endpoint& endpoint : EndpointsOf(host, port, x_times, deadline, x_events)) {
        asio::error_code ignored;
        connection->socket.close(ignored);
        ending = Await(x_network->io, connection->socket, deadline, x_events,
                       [&](auto handler) { connection->socket.async_connect(endpoint, handler); });
        if (ending.IsGood()) {
            return connection;
        }
    }
    RaiseCannotOpen(connection->Name(),
                    ending.isTimedOut ? L"no answer within " + MillisecondsText(x_times.connect)
                                      : CauseOf(ending.error));
}

/// Handles are not used again at once, so that an old one does not meet a new connection.
std::int32_t TcpSockets::FreeHandle() {
    do {
        x_lastHandle = x_lastHandle % LastHandle + 1;
    } while (x_connections.contains(x_lastHandle));
    return x_lastHandle;
}

std::int32_t TcpSockets::Open(const String& host, std::int32_t port) {
    const Busy busy(*this, TransportErrors::CannotOpen, NameOf(host, port));
    if (host.empty()) {
        RaiseCannotOpen(NameOf(host, port), L"there is no host name");
    }
    if (port < 1 || port > LastPort) {
        RaiseCannotOpen(NameOf(host, port), L"ports go from 1 to 65535");
    }
    const std::shared_ptr<Connection> connection = ConnectTo(host, port);
    asio::error_code ignored;
    connection->socket.non_blocking(true, ignored);
    connection->socket.set_option(tcp::no_delay(true), ignored);
    connection->socket.set_option(asio::socket_base::send_buffer_size(SendBufferBytes), ignored);
    const std::int32_t handle = FreeHandle();
    x_connections[handle] = connection;
    return handle;
}

std::int32_t TcpSockets::Find(const String& host, std::int32_t port) const {
    for (auto entry = x_connections.rbegin(); entry != x_connections.rend(); ++entry) {
        const Connection& connection = *entry->second;
        if (connection.port == port && EqualNoCase(connection.host, host)) {
            return entry->first;
        }
    }
    return -1;
}

void TcpSockets::Close(std::int32_t handle) {
    const auto entry = x_connections.find(handle);
    if (entry == x_connections.end()) {
        return;
    }
    const std::shared_ptr<Connection> connection = entry->second;
    x_connections.erase(entry);
    connection->ReadAndDrop();
    asio::error_code ignored;
    connection->socket.shutdown(tcp::socket::shutdown_both, ignored);
    connection->socket.close(ignored);
}

bool TcpSockets::IsOpen(std::int32_t handle) {
    const auto entry = x_connections.find(handle);
    if (entry == x_connections.end()) {
        return false;
    }
    if (!entry->second->ReadAndDrop()) {
        Close(handle);
        return false;
    }
    return true;
}

void TcpSockets::Send(std::int32_t handle, const String& text) {
    const auto entry = x_connections.find(handle);
    if (entry == x_connections.end()) {
        RaiseCannotSend(L"TCP/IP", L"handle " + std::to_wstring(handle) + L" is no connection");
    }
    const std::shared_ptr<Connection> connection = entry->second;
    const Busy busy(*this, TransportErrors::CannotSend, connection->Name());
    const std::string bytes = InstrumentBytes(text);
    if (!IsOpen(handle)) {
        RaiseCannotSend(connection->Name(), L"the peer has closed the connection");
    }
    Ending ending;
    try {
        ending = AwaitWrite(x_network->io, connection->socket, bytes, DeadlineIn(x_times.write),
                            x_events);
    } catch (...) {
        connection->Reset();
        Close(handle);
        throw;
    }
    if (ending.IsGood()) {
        return;
    }
    const String cause = CauseOfFailedWrite(ending, connection->socket.is_open(), x_times.write);
    connection->Reset();
    Close(handle);
    RaiseCannotSend(connection->Name(), cause + L" (" + std::to_wstring(ending.bytes) + L" of " +
                                            std::to_wstring(bytes.size()) + L" bytes sent)");
}

}  // namespace ace::workbench
