/// The host's device side: events, sockets, devices by name.
#pragma once

#include <memory>
#include <vector>

#include <ace/host/device.h>

namespace ace {

/// What the list tells of a device.
struct DeviceRecord {
    String Name;  ///< for `GetDevice`; empty for an entry that stands for no device
    bool operator==(const DeviceRecord&) const = default;
};

/// Section keys of the device classes that the engine knows.
namespace DeviceClasses {
inline constexpr StringView Monitoring = L"Monitoring";
inline constexpr StringView BcGenerators = L"BcGenerators";
inline constexpr StringView Generators = L"Generators";
inline constexpr StringView Amplifiers = L"Amplifiers";
inline constexpr StringView SwitchUnits = L"SwitchUnits";
inline constexpr StringView Receivers = L"Receivers";
inline constexpr StringView SignalPaths = L"SignalPaths";
}  // namespace DeviceClasses

/// Devices by name and class, posting of events and socket operations. Messages may run where a
/// device is made or looked for (`GetDevice`, `DevicesOfClass`) and where a peer is waited for
/// (`OpenSocket`, `SendSocket`); in no other operation.
class IDeviceList {
  public:
    virtual ~IDeviceList() = default;

    /// The list object on which events are posted; it lives as long as this one.
    virtual IDeviceList& GetDeviceListHost() = 0;
    /// Tells the host's device side what the engine is doing. The sender is "ActionEngine"; kind 3
    /// tells "Standby On" and "Radiation on" around a notification, kind 4 an amplifier's state.
    virtual void PostEvent(const String& sender, std::int32_t kind, const String& text) = 0;
    /// Connects to `host` and `port` and sets `handle`, which is 1 to 32767 for a connection: the
    /// answer of `FindSocket`, which must be able to name it, has 16 bits. The
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
    /// Section key of a device class, such as "BcGenerators".
    virtual String ClassName(std::int32_t deviceClass) = 0;
    /// The device or signal path of that name, shared with the host; none when there is no such.
    virtual std::shared_ptr<IDevice> GetDevice(const String& name) = 0;
    /// The devices of the class with that section key. Index 0 is an empty entry that nobody uses;
    /// a class without devices may have none. A host that begins with the first device is served as
    /// well: whoever walks the entries passes over those without a name.
    virtual std::vector<DeviceRecord> DevicesOfClass(const String& classKey) = 0;
};

/// Drops events, has no socket and no device.
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
    String ClassName(std::int32_t) override { return {}; }
    std::shared_ptr<IDevice> GetDevice(const String&) override { return nullptr; }
    std::vector<DeviceRecord> DevicesOfClass(const String&) override { return {}; }
};

}  // namespace ace
