/// What a simulated host shows: the operator answers by a script.
#pragma once

#include "sim/sim_host.h"

namespace ace::sim {

/// The screen of the forms.
class SimFormHost : public IFormHost {
  public:
    explicit SimFormHost(SimHost& host) : x_host(host) {}
    void ShowModal(Form& form) override;
    void Hide(Form& form) override;
    float TextHeight(const String& text, float width) override;

  private:
    SimHost& x_host;
};

/// Boxes, the file dialog and menus.
class SimUserDialogs : public IUserDialogs {
  public:
    explicit SimUserDialogs(SimHost& host) : x_host(host) {}
    std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                const String& title) override;
    std::optional<String> OpenFile(const FileQuestion& question) override;
    std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>& items) override;
    void SetBusyPointer(Boolean busy) override;

  private:
    SimHost& x_host;
};

/// The dialog of a device's settings: what is confirmed is stored as one line, the text that it
/// leaves.
class SimDeviceSettingsStore : public IDeviceSettingsStore {
  public:
    explicit SimDeviceSettingsStore(SimHost& host) : x_host(host) {}
    void SetDevice(const String& deviceName, std::int32_t mode) override;
    void StoreIn(const std::shared_ptr<ISettingsFile>& settings, const String& section) override;
    void EditSettings(String& text) override;

  private:
    SimHost& x_host;
    std::shared_ptr<ISettingsFile> x_settings;  ///< until the dialog has been shown
    String x_section;
};

}  // namespace ace::sim
