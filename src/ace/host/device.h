/// The side that all devices of a bench have in common.
#pragma once

#include <ace/host/settings_file.h>

namespace ace {

/// A device of the host's device list. A device object implements this and the interface of its
/// kind; the engine asks the object for the one it needs. Every failure is a run-time error; 8202
/// and 4202 mean that the operator or the host broke off. Messages may run inside every operation.
class IDevice {
  public:
    /// What `State` answers.
    static constexpr std::int32_t NotActive = 0;
    static constexpr std::int32_t Active = 1;

    virtual ~IDevice() = default;
    /// The device's name.
    virtual String Name() = 0;
    /// The device's class, a number of the host for `IDeviceList::ClassName`.
    virtual std::int32_t DeviceClass() = 0;
    /// Brings the device to life; `mode` is always 1. Whether it did, `State` tells.
    virtual void Activate(std::int32_t mode) = 0;
    /// 0 not active, 1 active; other values are the host's.
    virtual std::int32_t State() = 0;
    /// Reads the stored settings of the device from `section` of `settings`, which may be none when
    /// the host has no such file.
    virtual void LoadSettings(const std::shared_ptr<ISettingsFile>& settings,
                              const String& section) = 0;
};

/// A nameless device that stays inactive.
class DefaultDevice : public IDevice {
  public:
    String Name() override { return {}; }
    std::int32_t DeviceClass() override { return 0; }
    void Activate(std::int32_t) override {}
    std::int32_t State() override { return NotActive; }
    void LoadSettings(const std::shared_ptr<ISettingsFile>&, const String&) override {}
};

}  // namespace ace
