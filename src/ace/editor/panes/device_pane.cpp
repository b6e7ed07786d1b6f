#include <cmath>
#include <limits>

#include <ace/core/action_kinds.h>
#include <ace/editor/action_text.h>
#include <ace/editor/device_classes.h>
#include <ace/editor/field_limits.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/device_pane.h>
#include <ace/execution/device_access.h>
#include <ace/host/amplifier.h>
#include <ace/host/bc_generator.h>
#include <ace/host/checked_numbers.h>
#include <ace/host/signal_path.h>
#include <ace/host/switch_unit.h>
#include <ace/settings/action_line.h>

namespace ace {

namespace {

/// What the pane shows of a kind, and what a new action of it begins with.
struct KindRow {
    p_ActionTypes kind;
    KindWords caption;
    std::int32_t choiceText = 0;  ///< number of the words before the list of states or paths
    bool hasSettings = false;     ///< a device with settings of its own
    bool asksOperator = false;    ///< to be notified, or the test to be stopped
    bool waits = false;
    bool hasCycle = false;    ///< in a template that measures emission
    bool hasDefaults = true;  ///< those below
    bool newNotify = false;
    bool newStopTest = false;
};
constexpr KindRow Kinds[] = {
    {.kind = atSetDevice, .caption = {9141}, .hasSettings = true, .hasDefaults = false},
    {.kind = atCheckEut,
     .caption = {9142},
     .hasSettings = true,
     .asksOperator = true,
     .waits = true,
     .hasCycle = true,
     .newNotify = true},
    {.kind = atMonitorEUT,
     .caption = {0, L"Monitor EUT"},
     .hasSettings = true,
     .waits = true,
     .newStopTest = true},
    {.kind = atSwitchAmp, .caption = {9073}, .choiceText = 9155, .hasDefaults = false},
    {.kind = atSwitchUnit, .caption = {9074}, .choiceText = 9074, .hasDefaults = false},
};

/// Only these kinds are edited in the pane.
const KindRow& RowOf(std::int32_t kind) {
    for (const KindRow& row : Kinds) {
        if (row.kind == kind) {
            return row;
        }
    }
    Raise(Errors::TypeMismatch);
}

}  // namespace

DevicePane::DevicePane(Form& form, EditorParts& parts)
    : Pane(form, parts, DialogPane::SetDevice, L"Set Device", DeviceFields::Rows),
      picker(parts, fields) {
    fields.imgDevice.onMouseDown = [this](std::int32_t button) {
        return picker.DevicePressed(button);
    };
    fields.imgDevice.onClick = [this] { picker.DeviceClicked(); };
    fields.imgAmplifier.onClick = [this] { picker.AmplifierClicked(); };
    fields.imgSwitchUnit.onClick = [this] { picker.SwitchUnitClicked(); };
    for (ValueBox* const box : {&fields.txtWaitTime, &fields.txtCycleTime}) {
        box->onEndInput = [this, box] { CheckLimits(Context(), *box); };
    }
}

// ---- record -> fields --------------------------------------------------------------------------

void DevicePane::ShowFieldsOfKind() {
    const KindRow& row = RowOf(HeldKind());
    const bool hasCycle = row.hasCycle && EmiTemplate(Parts());
    fields.imgDevice.visible = fields.lblDeviceSett.visible = row.hasSettings;
    fields.ShowSignalPath(false);
    fields.imgAmplifier.visible = fields.cboSwitchAmp.visible = row.kind == atSwitchAmp;
    fields.cboSUPaths.visible = row.kind == atSwitchUnit;
    fields.imgSwitchUnit.visible = row.kind == atSwitchUnit;
    fields.lblSwitchAmp.visible = !row.hasSettings;
    fields.lblIfNot.visible = row.asksOperator;
    fields.chkNotify.visible = fields.chkStopTest.visible = row.asksOperator;
    fields.chkComment.visible = false;
    fields.chkWait.visible = fields.txtWaitTime.visible = row.waits;
    fields.chkCycleTime.visible = fields.txtCycleTime.visible = hasCycle;
    fields.chkGotoLoadingPosition.visible = hasCycle;
    fields.cmdTestAction.visible = row.hasSettings;
}

/// Intentional: a check has its section's number from the beginning. A device that is set works in
/// section 0 until the action is inserted, which gives it one.
void DevicePane::TakeNew(const Statements& stmt) {
    const KindRow& row = RowOf(HeldKind());
    aceSetDevice record;
    ResetSetDevice(record);
    if (row.hasDefaults) {
        record.UseTimeCyc = false;
        record.CommToTable = true;
        record.Notify = row.newNotify;
        record.StopTest = row.newStopTest;
        std::int32_t& counter = Context().DeviceSectionCounter;
        counter = stmt([&] { return CheckedSum(counter, 1); });
        record.ChanNo = counter;
    }
    Record() = std::move(record);
}

void DevicePane::ShowBoxes(const Statements& stmt, const aceSetDevice& record) {
    fields.chkNotify.ticked = record.Notify;
    fields.chkStopTest.ticked = record.StopTest;
    fields.chkComment.ticked = record.CommToTable;
    fields.chkWait.ticked = record.WaitState;
    fields.chkCycleTime.ticked = record.UseTimeCyc;
    fields.chkGotoLoadingPosition.ticked = record.LoadingPos;
    stmt([&] {
        ShowValue(Context(), fields.txtWaitTime, static_cast<double>(record.WaitTime));
        ShowValue(Context(), fields.txtCycleTime, record.CycleTime);
    });
    ShowItem(fields.cboSwitchAmp, record.AmpState);
}

void DevicePane::Show(const Statements& stmt, Boolean isNew) {
    const KindRow& row = RowOf(HeldKind());
    fraAction.caption = stmt([&] { return TextOf(Context(), row.caption); });
    fields.lblSwitchAmp.caption =
        row.choiceText != 0 ? stmt([&] { return Text(row.choiceText); }) : String();
    ShowFieldsOfKind();
    picker.Begin();
    if (isNew) {
        TakeNew(stmt);
    } else {
        Record() = stmt([&] { return RecordToShow<aceSetDevice>(false); });
    }
    ShowBoxes(stmt, Record());
    fields.lblDevice.toolTip.clear();
    fields.lblSwUnit.toolTip.clear();
    fields.imgDevice.toolTip.clear();
    fields.cboSUPaths.Fill({});
    if (isNew) {
        fields.lblDevice.caption = stmt([&] { return Text(InputTexts::NoDevice); });
        if (row.hasSettings) {
            fields.lblDeviceSett.caption = stmt([&] { return Text(InputTexts::NoSettings); });
        }
    } else {
        ShowDevice(stmt);
    }
}

/// Of an action that stands in a list. Intentional: the words about the settings of a missing
/// device are those of the last dialog.
void DevicePane::ShowDevice(const Statements& stmt) {
    fields.lblDevice.caption = Record().DevName;
    ForgetDevices(Record());
    const std::shared_ptr<IDevice> device =
        stmt([&] { return Context().DeviceList().GetDevice(Record().DevName); });
    if (!Parts().engine) {
        return;  // the editor was ended where messages ran
    }
    Record().Device = device;
    if (RowOf(HeldKind()).hasSettings) {
        ShowEditedDevice(stmt, device);
    } else {
        ShowSwitchedDevice(stmt, device);
    }
}

void DevicePane::ShowEditedDevice(const Statements& stmt, const std::shared_ptr<IDevice>& device) {
    if (!device) {
        stmt([&] {
            Context().UserDialogs().ShowMessageBox(
                L"Device <" + Record().DevName +
                    L"> does not exist in the device list! Please adapt your settings!",
                0, Text(InputTexts::Actions));
        });
        return;
    }
    const String deviceClass = stmt([&] { return ClassOf(Context(), *device); });
    const bool isGenerator =
        HeldKind() == atSetDevice && deviceClass == DeviceClasses::BcGenerators;
    if (isGenerator) {
        Record().BcGen = std::dynamic_pointer_cast<IBcGenerator>(device);
    } else {
        Record().MoniDev = std::dynamic_pointer_cast<IMonitorDevice>(device);
    }
    stmt([&] { picker.ShowStoredSettings(device, deviceClass); });
    if (isGenerator) {
        fields.ShowSignalPath(true);
        fields.lblSwUnit.caption = Record().Path.empty()
                                       ? stmt([&] { return Text(InputTexts::NoDevice); })
                                       : Record().Path;
        if (!Record().SigPathName.empty()) {
            Record().SigPath =
                stmt([&] { return FindDevice<ISignalPath>(Context(), Record().SigPathName); });
        }
    }
}

void DevicePane::ShowSwitchedDevice(const Statements& stmt,
                                    const std::shared_ptr<IDevice>& device) {
    if (HeldKind() == atSwitchAmp) {
        Record().AmplDev = std::dynamic_pointer_cast<IAmplifier>(device);
        return;
    }
    Record().SwitchDev = std::dynamic_pointer_cast<ISwitchUnit>(device);
    stmt([&] { picker.FillSwitchPaths(Record().DevName, Record().Path); });
    ShowItemOf(fields.cboSUPaths, Record().Path);
}

// ---- fields -> record --------------------------------------------------------------------------

void DevicePane::ReadBoxes(const Statements& stmt) {
    aceSetDevice& record = Record();
    record.CommToTable = fields.chkComment.ticked;
    record.Notify = fields.chkNotify.ticked;
    record.StopTest = fields.chkStopTest.ticked;
    record.WaitState = fields.chkWait.ticked;
    record.UseTimeCyc = fields.chkCycleTime.ticked;
    record.LoadingPos = fields.chkGotoLoadingPosition.ticked;
    stmt([&] {
        record.WaitTime = static_cast<float>(
            ValueShown(Context(), fields.txtWaitTime, static_cast<double>(record.WaitTime)));
        record.CycleTime = ValueShown(Context(), fields.txtCycleTime, record.CycleTime);
    });
}

/// A box whose number no record holds: the wait is a single. Only what shows can have been typed.
ValueBox* DevicePane::BoxOutOfRange() {
    constexpr auto Largest = static_cast<double>(std::numeric_limits<float>::max());
    if (fields.txtWaitTime.visible && !(std::abs(fields.txtWaitTime.Value()) <= Largest)) {
        return &fields.txtWaitTime;
    }
    return fields.txtCycleTime.visible && !std::isfinite(fields.txtCycleTime.Value())
               ? &fields.txtCycleTime
               : nullptr;
}

std::optional<Refusal> DevicePane::Read(const Statements& stmt) {
    const String noDevice = stmt([&] { return Text(InputTexts::NoDevice); });
    if (fields.lblDevice.caption == noDevice) {
        return stmt(
            [&] { return Refuse(InputTexts::DeviceMissing, nullptr, IUserDialogs::Critical); });
    }
    const KindRow& row = RowOf(HeldKind());
    if (row.hasSettings &&
        stmt([&] { return fields.lblDeviceSett.caption == Text(InputTexts::NoSettings); })) {
        return stmt(
            [&] { return Refuse(InputTexts::SettingsMissing, nullptr, IUserDialogs::Critical); });
    }
    if (ValueBox* const box = BoxOutOfRange()) {
        return stmt([&] { return Refusal{LimitsText(Context(), *box), box}; });
    }
    aceSetDevice& record = Record();
    record.DevName = fields.lblDevice.caption;
    if (row.hasSettings) {
        if (record.BcGen) {
            const String path = fields.lblSwUnit.caption;
            record.Path = path == noDevice ? String() : path;
        }
        ReadBoxes(stmt);
    } else if (row.kind == atSwitchAmp) {
        record.AmpState = IndexShown(fields.cboSwitchAmp, record.AmpState);
    } else {
        record.Path = fields.cboSUPaths.Text();
    }
    return std::nullopt;
}

}  // namespace ace
