/// TCP/IP connections to instruments.
#pragma once

#include <map>
#include <memory>

#include <ace/host/basic_types.h>

#include "workbench/transports/waiting.h"

namespace ace::workbench {

/// How long the two slow operations may take as a whole.
struct TcpTimes {
    Milliseconds connect{5000};  ///< looking up the name included
    Milliseconds write{5000};
};

/// Real connections by handle. Connecting and sending let the host's events run. Every failure is a
/// run-time error of `TransportErrors` with host, port and cause; none hangs and none is a signal.
/// What instruments send is read and dropped. From inside the events a further connecting or
/// sending is refused; closing is not and ends the one under way with an error.
/// Outlives its operations.
class TcpSockets {
  public:
    explicit TcpSockets(TcpTimes times = {}, RunEvents events = {});
    TcpSockets(const TcpSockets&) = delete;
    TcpSockets& operator=(const TcpSockets&) = delete;
    /// Closes all connections.
    ~TcpSockets();

    /// Connects and answers the handle, from 1 to 32767. Port: 1 to 65535.
    std::int32_t Open(const String& host, std::int32_t port);
    /// The handle of the connection to that endpoint, -1 for none. Host names compare
    /// without regard to case.
    std::int32_t Find(const String& host, std::int32_t port) const;
    /// Closes the connection; does nothing for a handle that is none.
    void Close(std::int32_t handle);
    /// False for a handle that is none and for a connection that the peer has closed, which is
    /// forgotten thereby.
    bool IsOpen(std::int32_t handle);
    /// Hands the text over to the machine's network. That tells nothing about the peer: a peer that
    /// dies later is seen by the next call. A write that fails resets the connection, so that the
    /// peer never takes half a command for a whole one.
    void Send(std::int32_t handle, const String& text);

  private:
    struct Connection;
    struct Network;
    class Busy;

    std::shared_ptr<Connection> ConnectTo(const String& host, std::int32_t port);
    std::int32_t FreeHandle();

    TcpTimes x_times;
    RunEvents x_events;
    std::unique_ptr<Network> x_network;
    std::map<std::int32_t, std::shared_ptr<Connection>> x_connections;
    std::int32_t x_lastHandle = 0;
    bool x_isBusy = false;
};

}  // namespace ace::workbench
