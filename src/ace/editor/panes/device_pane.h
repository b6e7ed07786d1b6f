/// The pane of the actions on devices: set, check, monitor, amplifier, switch unit.
#pragma once

#include <ace/editor/device_picker.h>
#include <ace/editor/panes/pane.h>

namespace ace {

class DevicePane : public Pane {
  public:
    DevicePane(Form& form, EditorParts& parts);

    void Show(const Statements& stmt, Boolean isNew) override;
    std::optional<Refusal> Read(const Statements& stmt) override;
    Button* TestButton() override { return &fields.cmdTestAction; }

    DeviceFields fields{fraAction};
    DevicePicker picker;

  private:
    void ShowFieldsOfKind();
    void TakeNew(const Statements& stmt);
    void ShowBoxes(const Statements& stmt, const aceSetDevice& record);
    void ShowDevice(const Statements& stmt);
    void ShowEditedDevice(const Statements& stmt, const std::shared_ptr<IDevice>& device);
    void ShowSwitchedDevice(const Statements& stmt, const std::shared_ptr<IDevice>& device);
    ValueBox* BoxOutOfRange();
    void ReadBoxes(const Statements& stmt);
    aceSetDevice& Record() const { return Records().SetDevice; }
};

}  // namespace ace
