/// The fields of the actions on devices, and where they stand.
#pragma once

#include <ace/editor/panes/pane_grid.h>
#include <ace/host/forms.h>

namespace ace {

/// A device is picked through a picture and the label beside it. A broadcast generator has a signal
/// path too, which takes the upper row; the device goes down into the next one.
struct DeviceFields {
    explicit DeviceFields(Frame& frame) : fraAction(frame) {}

    Frame& fraAction;
    Picture imgDevice{fraAction, L"imgDevice", pane_grid::PictureAt(0)};
    Label lblDevice{fraAction, L"lblDevice", pane_grid::NameAt(0, L"<no device>")};
    Label lblDeviceSett{fraAction, L"lblDeviceSett", pane_grid::NameAt(2, L"<no settings>")};
    Picture imgAmplifier{fraAction, L"imgAmplifier", pane_grid::PictureAt(0)};
    Picture imgSwitchUnit{fraAction, L"imgSwitchUnit", pane_grid::PictureAt(0)};
    Label lblSwUnit{fraAction, L"lblSwUnit", pane_grid::NameAt(0, L"<no device>")};
    Label lblSwitchAmp{fraAction, L"lblSwitchAmp", pane_grid::CaptionAt(1)};
    DropDown cboSwitchAmp{fraAction,
                          L"cboSwitchAmp",
                          pane_grid::FieldAt(1),
                          {L"Power Off", L"Power On", L"Standby", L"Operate", L"Reset"}};
    DropDown cboSUPaths{fraAction,
                        L"cboSUPaths",
                        pane_grid::FieldAt(1),
                        {L"Power Off", L"Power On", L"Standby", L"Operate"}};
    Label lblIfNot{fraAction, L"lblIfNot", pane_grid::LineAt(3)};
    CheckBox chkNotify{fraAction, L"chkNotify", pane_grid::LineAt(4, L"Notify the User")};
    CheckBox chkStopTest{fraAction, L"chkStopTest", pane_grid::LineAt(5, L"Stop the Test")};
    CheckBox chkComment{fraAction, L"chkComment",
                        pane_grid::LineAt(6, L"Enter a note in the Result Table")};
    CheckBox chkWait{fraAction, L"chkWait",
                     pane_grid::ShortLineAt(7, L"Wait until state is reached, but nor more than")};
    ValueBox txtWaitTime{
        fraAction,
        L"txtWaitTime",
        pane_grid::ValueAt(7),
        {.unit = L"s", .minimum = 1.0, .maximum = 3600.0, .decimals = 2, .text = L"10.00"}};
    CheckBox chkCycleTime{fraAction, L"chkCycleTime",
                          pane_grid::ShortLineAt(8, L"Check EUT state cyclically every")};
    ValueBox txtCycleTime{
        fraAction,
        L"txtCycleTime",
        pane_grid::ValueAt(8),
        {.unit = L"s", .minimum = 0.001, .maximum = 600.0, .decimals = 2, .text = L"10.00"}};
    CheckBox chkGotoLoadingPosition{fraAction, L"chkGotoLoadingPosition",
                                    pane_grid::LineAt(9, L"Move Accesories to Loading Position")};
    Button cmdTestAction{fraAction, L"cmdTestAction(2)", pane_grid::ButtonAt(10, 0, L"Test")};

    static constexpr std::int32_t Rows = 11;

    /// The layout of a broadcast generator, or that of any other device.
    void ShowSignalPath(bool isShown) {
        pane_grid::MoveToRow(imgDevice, isShown ? 1 : 0);
        pane_grid::MoveToRow(lblDevice, isShown ? 1 : 0);
        imgSwitchUnit.visible = lblSwUnit.visible = isShown;
    }
    /// Shows a name, which may be longer than its label.
    static void ShowName(Label& label, const String& name) { label.caption = label.toolTip = name; }
};

}  // namespace ace
