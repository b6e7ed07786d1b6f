/// The side that all devices of the host have in common.
#pragma once

#include <ace/host/settings_file.h>

// A device object is asked at run time for the interface of its kind. Without the information that
// this needs, a host compiles, links and crashes at its first action on a device.
#if !defined(__cpp_rtti)
#error "a host of the engine is to be built with run-time type information (no -fno-rtti)"
#endif

namespace ace {

/// A device of the host's device list. A device object implements this and the interface of its
/// kind; the engine asks the object for the one it needs. Every failure is a run-time error.
/// Messages may run inside every operation.
class IDevice {
  public:
    /// Numbers of the errors by which a device says that somebody broke off: no failure to show.
    static constexpr std::int32_t BrokenOffByOperator = 8202;
    static constexpr std::int32_t BrokenOffByHost = 4202;
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
    /// Reads the stored settings of the device from `section` for the operator to look at and to
    /// edit; `mode` is always 2.
    virtual void ReadSettings(std::int32_t mode, const std::shared_ptr<ISettingsFile>& settings,
                              const String& section) = 0;
    /// The short text of the settings that `section` holds; empty when it holds none.
    virtual String SettingsText(const std::shared_ptr<ISettingsFile>& settings,
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
    void ReadSettings(std::int32_t, const std::shared_ptr<ISettingsFile>&, const String&) override {
    }
    String SettingsText(const std::shared_ptr<ISettingsFile>&, const String&) override {
        return {};
    }
};

}  // namespace ace
