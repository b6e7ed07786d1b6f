/// Where the operator edits the settings of a device.
#pragma once

#include <memory>

#include <ace/host/basic_types.h>

namespace ace {

/// The host's dialog for the settings of one device after the other.
class IDeviceSettingsStore {
  public:
    virtual ~IDeviceSettingsStore() = default;
    /// Selects the device whose settings are edited next; `mode` is always 1. Lets no messages run.
    virtual void SetDevice(const String& deviceName, std::int32_t mode) = 0;
    /// Runs the host's dialog, while messages run. `text` comes with the short text of the settings
    /// as it shows and goes with that of the outcome; a dialog that is cancelled leaves it.
    virtual void EditSettings(String& text) = 0;
};

/// Has no dialog.
class DefaultDeviceSettingsStore : public IDeviceSettingsStore {
  public:
    void SetDevice(const String&, std::int32_t) override {}
    void EditSettings(String&) override {}
};

}  // namespace ace
