/// How a device is picked: pictures open a menu of the devices of a class, and what is chosen there
/// comes into the working record. Each act here ends quietly when the host raises an error: a
/// device that it cannot hand over leaves the labels and the record as they are.
#pragma once

#include <ace/editor/editor_parts.h>
#include <ace/editor/panes/device_fields.h>

namespace ace {

/// Messages run while a menu, a box or the host's dialog of settings stands, and where the host is
/// asked for devices.
class DevicePicker {
  public:
    DevicePicker(EditorParts& parts, DeviceFields& fields) : x_parts(parts), x_fields(fields) {}

    /// A dialog begins.
    void Begin() { x_hasOldSection = false; }
    /// The press on `imgDevice`: the right button, or any while no device is chosen, opens the menu
    /// of devices that suit the kind. False when there is nothing to do, and the click follows.
    bool DevicePressed(std::int32_t button);
    /// The click on `imgDevice`: the host's dialog of the device's settings.
    void DeviceClicked();
    /// The click on `imgAmplifier`: the menu of amplifiers.
    void AmplifierClicked();
    /// The click on `imgSwitchUnit`: the menu of switch units, or of the signal paths of a
    /// broadcast generator.
    void SwitchUnitClicked();
    /// A name is chosen in such a menu; `PickingSigPath` says what for. No section is emptied for
    /// a dialog that has gone meanwhile.
    void DeviceChosen(const String& Name);
    /// Fills the list of paths with those of a switch unit and chooses `Selected`, compared
    /// exactly, or none where that is empty; nothing for a device that is no switch unit. Errors of
    /// the host come out.
    void FillSwitchPaths(const String& DeviceName, const String& Selected);

    /// Shows the short text of the settings that the section of the held action has for its device,
    /// or that it has none; the host's store is told of a device whose settings it keeps. Errors of
    /// the host come out.
    void ShowStoredSettings(const std::shared_ptr<IDevice>& device, const String& deviceClass);

  private:
    void OpenDeviceMenu();
    void OpenMenu(std::vector<String> names, std::int32_t emptyText, const String& current);
    void Offer(std::vector<String> names);
    void TakeSignalPath(const String& name);
    void TakeDevice(const String& name);
    /// A device that the host has handed over.
    struct Picked {
        String caption;  ///< by which it was chosen
        std::shared_ptr<IDevice> device;
        String name;  ///< its own, which may differ in case
    };
    void ShowDevice(const Picked& picked);
    void TakeEditedDevice(const Picked& picked);
    void ForgetSettings();
    void ShowSettings(IDevice& device, const std::shared_ptr<ISettingsFile>& settings);
    void EditSettings(const std::shared_ptr<ISettingsFile>& settings);
    std::shared_ptr<ISettingsFile> OpenedSettings() const;
    /// The dialog hasn't gone in a call in which messages ran, and the editor still shows the lists
    /// of its action: what is held is that action, and the settings file is that of its module.
    bool IsStanding() const {
        return x_fields.fraAction.OfForm().IsShown() && IsOfItsTree(x_parts);
    }

    aceSetDevice& Record() const { return x_parts.held.Records.SetDevice; }
    std::int32_t HeldKind() const { return x_parts.held.Action.ActionType; }
    bool IsCheck() const { return HeldKind() == atCheckEut || HeldKind() == atMonitorEUT; }
    String Text(std::int32_t number) const { return x_parts.context.Language().Text(number); }

    EditorParts& x_parts;
    DeviceFields& x_fields;
    bool x_hasOldSection = false;  ///< the section could not be begun anew for the chosen device
};

}  // namespace ace
