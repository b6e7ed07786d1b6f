#include <ace/core/action_kinds.h>
#include <ace/editor/device_classes.h>
#include <ace/editor/device_picker.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/pane.h>
#include <ace/execution/device_access.h>
#include <ace/host/amplifier.h>
#include <ace/host/bc_generator.h>
#include <ace/host/device_settings_store.h>
#include <ace/host/signal_path.h>
#include <ace/host/switch_unit.h>
#include <ace/settings/settings_sections.h>

namespace ace {

namespace {

constexpr std::int32_t ChooseTip = 9149;
constexpr std::int32_t NoMonitorText = 9151;
constexpr std::int32_t NoneOfClassText = 9154;
constexpr std::int32_t ReadToEdit = 2;  ///< mode of `IDevice::ReadSettings`
constexpr std::int32_t StoreMode = 1;   ///< of `IDeviceSettingsStore::SetDevice`

String SectionOf(const aceSetDevice& record) {
    String section;
    AppendDeviceSection(section, record.ChanNo);
    return section;
}

/// Runs a whole act; an error ends it.
template <class Act>
void Quietly(Act&& act) {
    ResumeNext next;
    next(act);
}

}  // namespace

std::shared_ptr<ISettingsFile> DevicePicker::OpenedSettings() const {
    return GetSettFile(*Required(x_parts.engine));
}

// ---- menus -------------------------------------------------------------------------------------

/// Intentional: one spare element stands behind those on offer.
void DevicePicker::Offer(std::vector<String> names) {
    x_parts.DevicePickList.assign(1, DeviceRecord());
    for (String& name : names) {
        x_parts.DevicePickList.back().Name = std::move(name);
        x_parts.DevicePickList.emplace_back();
    }
}

void DevicePicker::OpenMenu(std::vector<String> names, std::int32_t emptyText,
                            const String& current) {
    if (!IsStanding()) {
        return;  // the dialog went where the host was asked for its devices
    }
    PopUpMenu& menu = x_parts.usrPopUp;
    Offer(std::move(names));
    menu.items.clear();
    if (x_parts.DevicePickList.front().Name.empty()) {
        x_parts.context.UserDialogs().ShowMessageBox(Text(emptyText), IUserDialogs::Critical,
                                                     Text(InputTexts::Actions));
        return;
    }
    std::int32_t place = 0;
    const auto add = [&](const String& name) {
        menu.items.push_back({++place, name, name == current});
    };
    if (x_parts.PickingSigPath) {
        add(Text(InputTexts::NoDevice));
    }
    for (const DeviceRecord& device : x_parts.DevicePickList) {
        if (!device.Name.empty()) {
            add(device.Name);
        }
    }
    const std::optional<MenuItem> chosen = menu.PopUp(x_parts.context.UserDialogs());
    if (chosen && x_parts.PickingDevice) {
        DeviceChosen(chosen->caption);
    }
}

void DevicePicker::OpenDeviceMenu() {
    ThreadContext& context = x_parts.context;
    x_parts.PickingDevice = true;
    x_parts.PickingSigPath = false;
    std::vector<String> names =
        MonitorsFor(context, IsCheck() ? IMonitorDevice::UseToCheck : IMonitorDevice::UseToSet);
    if (HeldKind() == atSetDevice) {
        for (String& name : NamesOfClass(context, DeviceClasses::BcGenerators)) {
            names.push_back(std::move(name));
        }
    }
    OpenMenu(std::move(names), NoMonitorText, x_fields.lblDevice.caption);
}

bool DevicePicker::DevicePressed(std::int32_t button) {
    bool isDone = false;
    Quietly([&] {
        const bool isChosen = x_fields.lblDevice.caption != Text(InputTexts::NoDevice);
        isDone = button == MouseButtons::Right || !isChosen;
        if (isDone) {
            OpenDeviceMenu();
        }
    });
    return isDone;
}

void DevicePicker::AmplifierClicked() {
    Quietly([&] {
        x_parts.PickingDevice = true;
        x_parts.PickingSigPath = false;
        OpenMenu(NamesOfClass(x_parts.context, DeviceClasses::Amplifiers), NoneOfClassText,
                 x_fields.lblDevice.caption);
    });
}

void DevicePicker::SwitchUnitClicked() {
    Quietly([&] {
        x_parts.PickingDevice = true;
        x_parts.PickingSigPath = x_fields.imgDevice.visible;
        const StringView wanted =
            x_parts.PickingSigPath ? DeviceClasses::SignalPaths : DeviceClasses::SwitchUnits;
        OpenMenu(NamesOfClass(x_parts.context, wanted), NoneOfClassText,
                 x_parts.PickingSigPath ? x_fields.lblSwUnit.caption : x_fields.lblDevice.caption);
    });
}

// ---- the device that was chosen ----------------------------------------------------------------

/// The name of no device takes the path away.
void DevicePicker::TakeSignalPath(const String& name) {
    const bool isNone = name == Text(InputTexts::NoDevice);
    std::shared_ptr<ISignalPath> path;
    if (!isNone) {
        path = Required(FindDevice<ISignalPath>(x_parts.context, name));
    }
    DeviceFields::ShowName(x_fields.lblSwUnit, name);
    Record().SigPathName = isNone ? String() : name;
    Record().SigPath = std::move(path);
}

/// Intentional: the section is emptied for the same device too, where no signal path shows.
void DevicePicker::ForgetSettings() {
    x_hasOldSection = true;
    const std::shared_ptr<ISettingsFile> settings = OpenedSettings();
    if (settings) {
        settings->SetSection(SectionOf(Record()), String(L"\r\n"));
        settings->Release();
    }
    x_hasOldSection = false;
    x_fields.lblDeviceSett.caption = Text(InputTexts::NewSettings);
}

/// The host puts the outcome where the device's actions look for it. It shows when it is written:
/// settings that can't be are not taken for set.
void DevicePicker::EditSettings(const std::shared_ptr<ISettingsFile>& settings) {
    IDeviceSettingsStore& store = x_parts.context.DeviceSettings();
    store.SetDevice(x_fields.lblDevice.caption, StoreMode);
    store.StoreIn(settings, SectionOf(Record()));
    String text = x_fields.lblDeviceSett.caption;
    store.EditSettings(text);
    if (settings) {
        settings->Release();
    }
    x_fields.lblDeviceSett.caption = text;
}

/// A device of a kind that is set or checked. Until its settings are begun anew it has none, so
/// that it can't be taken over with those of another one.
void DevicePicker::TakeEditedDevice(const Picked& picked) {
    const std::shared_ptr<IDevice>& device = picked.device;
    ThreadContext& context = x_parts.context;
    const bool isGenerator = ClassOf(context, *device) == DeviceClasses::BcGenerators;
    const String path = isGenerator ? Record().SigPathName : String();
    const std::shared_ptr<ISignalPath> signalPath =
        path.empty() ? nullptr : FindDevice<ISignalPath>(context, path);
    const String noSettings = Text(InputTexts::NoSettings);
    ShowDevice(picked);
    x_fields.lblDeviceSett.caption = noSettings;
    Record().BcGen = isGenerator ? std::dynamic_pointer_cast<IBcGenerator>(device) : nullptr;
    Record().MoniDev = isGenerator ? nullptr : std::dynamic_pointer_cast<IMonitorDevice>(device);
    x_fields.ShowSignalPath(isGenerator);
    if (isGenerator) {
        x_fields.lblSwUnit.caption = path.empty() ? Text(InputTexts::NoDevice) : path;
        Record().SigPath = signalPath;
    }
    x_parts.DeviceSettingsChanged = true;
    if (!IsStanding()) {
        return;
    }
    ForgetSettings();
    EditSettings(OpenedSettings());
    x_fields.imgDevice.toolTip = Text(ChooseTip);
}

void DevicePicker::ShowDevice(const Picked& picked) {
    DeviceFields::ShowName(x_fields.lblDevice, picked.caption);
    Record().Device = picked.device;
    Record().DevName = picked.name;
}

void DevicePicker::TakeDevice(const String& name) {
    const std::shared_ptr<IDevice> device = Required(x_parts.context.DeviceList().GetDevice(name));
    const Picked picked{name, device, device->Name()};
    if (HeldKind() == atSwitchAmp) {
        ShowDevice(picked);
        Record().AmplDev = std::dynamic_pointer_cast<IAmplifier>(device);
    } else if (HeldKind() == atSwitchUnit) {
        FillSwitchPaths(picked.name, {});
        ShowDevice(picked);
        Record().SwitchDev = std::dynamic_pointer_cast<ISwitchUnit>(device);
    } else {
        TakeEditedDevice(picked);
    }
}

/// Intentional: only where both a device and a signal path show, the present choice is no change.
void DevicePicker::DeviceChosen(const String& Name) {
    Quietly([&] {
        const bool isPath = x_parts.PickingSigPath;
        const bool hasBoth = x_fields.imgDevice.visible && x_fields.imgSwitchUnit.visible;
        const Label& label = isPath ? x_fields.lblSwUnit : x_fields.lblDevice;
        if (!IsStanding() || (hasBoth && Name == label.caption)) {
            return;
        }
        if (isPath) {
            TakeSignalPath(Name);
        } else {
            TakeDevice(Name);
        }
        x_parts.DeviceSettingsChanged = true;
    });
}

void DevicePicker::FillSwitchPaths(const String& DeviceName, const String& Selected) {
    const std::shared_ptr<ISwitchUnit> unit = FindDevice<ISwitchUnit>(x_parts.context, DeviceName);
    if (!unit) {
        return;
    }
    x_fields.cboSUPaths.Fill(unit->Paths());
    if (!Selected.empty()) {
        ShowItemOf(x_fields.cboSUPaths, Selected);
    }
}

// ---- settings of the device --------------------------------------------------------------------

void DevicePicker::ShowSettings(IDevice& device, const std::shared_ptr<ISettingsFile>& settings) {
    const String section = SectionOf(Record());
    device.ReadSettings(ReadToEdit, settings, section);
    const String text = device.SettingsText(settings, section);
    x_fields.lblDeviceSett.caption = text.empty() ? Text(InputTexts::NoSettings) : text;
}

/// The host's store is told of those that it keeps, which are all but the monitoring devices'.
void DevicePicker::ShowStoredSettings(const std::shared_ptr<IDevice>& device,
                                      const String& deviceClass) {
    if (deviceClass != DeviceClasses::Monitoring) {
        x_parts.context.DeviceSettings().SetDevice(x_fields.lblDevice.caption, StoreMode);
    }
    ShowSettings(*device, OpenedSettings());
}

/// Intentional: a change of the device before this one counts no more, unless the text differs.
void DevicePicker::DeviceClicked() {
    Quietly([&] {
        if (!IsStanding() || x_fields.lblDevice.caption == Text(InputTexts::NoDevice)) {
            return;
        }
        const std::shared_ptr<IDevice> device = Required(Record().Device);
        if (x_hasOldSection) {
            ForgetSettings();
        }
        const std::shared_ptr<ISettingsFile> settings = OpenedSettings();
        if (ClassOf(x_parts.context, *device) == DeviceClasses::Monitoring) {
            std::int32_t mode = IsCheck() ? IMonitorDevice::UseToCheck : IMonitorDevice::UseToSet;
            Required(Record().MoniDev)->SetUseMode(mode);
        }
        const String before = x_fields.lblDeviceSett.caption;
        x_parts.DeviceSettingsChanged = false;
        ShowSettings(*device, settings);
        if (!IsStanding()) {
            return;
        }
        EditSettings(settings);
        if (x_fields.lblDeviceSett.caption != before) {
            x_parts.DeviceSettingsChanged = true;
        }
    });
}

}  // namespace ace
