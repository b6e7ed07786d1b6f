/// The host's device side: events, sockets, devices by name.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// Posting of events and socket operations. No operation lets messages run.
class IDeviceList {
  public:
    virtual ~IDeviceList() = default;

    /// The list object on which events are posted; it lives as long as this one.
    virtual IDeviceList& GetDeviceListHost() = 0;
    /// Tells the host's device side what the engine is doing. The sender is "ActionEngine"; kind 3
    /// tells "Standby On" and "Radiation on" around a notification, kind 4 an amplifier's state.
    virtual void PostEvent(const String& sender, std::int32_t kind, const String& text) = 0;
    /// Connects to `host` and `port` and sets `handle`, which is above 0 for a connection. The
    /// third argument is 0, the protocol "TCP"; the answer is the host's result, which nothing
    /// reads.
    virtual std::int32_t OpenSocket(const String& host, std::int32_t port, std::int32_t third,
                                    const String& protocol, std::int32_t& handle) = 0;
    /// The handle of the connection that stands for `host` and `port`. The third argument is empty;
    /// `handle` brings the one that the engine holds.
    virtual std::int16_t FindSocket(const String& host, std::int32_t port, const String& third,
                                    std::int32_t& handle) = 0;
    /// Closes the socket; the answer is the host's result, which nothing reads.
    virtual std::int32_t CloseSocket(std::int32_t handle) = 0;
    /// Writes the text; a failure is a run-time error, the answer is not read.
    virtual std::int32_t SendSocket(std::int32_t handle, const String& text) = 0;
    /// The connection of `handle` lives.
    virtual bool SocketIsOpen(std::int32_t handle) = 0;
};

/// Drops events and has no socket.
class DefaultDeviceList : public IDeviceList {
  public:
    IDeviceList& GetDeviceListHost() override { return *this; }
    void PostEvent(const String&, std::int32_t, const String&) override {}
    std::int32_t OpenSocket(const String&, std::int32_t, std::int32_t, const String&,
                            std::int32_t&) override {
        return 0;
    }
    std::int16_t FindSocket(const String&, std::int32_t, const String&, std::int32_t&) override {
        return -1;
    }
    std::int32_t CloseSocket(std::int32_t) override { return 0; }
    std::int32_t SendSocket(std::int32_t, const String&) override { return 0; }
    bool SocketIsOpen(std::int32_t) override { return false; }
};

}  // namespace ace
