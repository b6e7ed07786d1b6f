/// Where the operator edits the settings of a device.
#pragma once

#include <memory>

#include <ace/host/settings_file.h>

namespace ace {

/// The host's dialog for the settings of one device after the other.
class IDeviceSettingsStore {
  public:
    virtual ~IDeviceSettingsStore() = default;
    /// Selects the device whose settings are edited next; `mode` is always 1. Lets no messages run.
    virtual void SetDevice(const String& deviceName, std::int32_t mode) = 0;
    /// Tells where the outcome goes, after `SetDevice` and before `EditSettings`: into `section` of
    /// `settings`, from where the device's `ReadSettings`, `SettingsText` and `LoadSettings` take
    /// it. The file stays open until `EditSettings` has returned; then the engine releases it, or
    /// drops it after an error. It is none when the host has no such file. Lets no messages run. A
    /// host that keeps settings by itself leaves this out.
    virtual void StoreIn(const std::shared_ptr<ISettingsFile>& /*settings*/,
                         const String& /*section*/) {}
    /// Runs the host's dialog, while messages run, and stores what the operator confirms. `text`
    /// comes with the short text of the settings as it shows and goes with that of the outcome; a
    /// dialog that is cancelled stores nothing and leaves it.
    virtual void EditSettings(String& text) = 0;
};

/// Has no dialog.
class DefaultDeviceSettingsStore : public IDeviceSettingsStore {
  public:
    void SetDevice(const String&, std::int32_t) override {}
    void EditSettings(String&) override {}
};

}  // namespace ace
