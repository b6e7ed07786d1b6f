#include <ace/execution/device_access.h>
#include <ace/execution/device_failure.h>
#include <ace/execution/signal_path.h>
#include <ace/host/amplifier.h>
#include <ace/host/receiver.h>
#include <ace/host/switch_unit.h>

namespace ace {

namespace {

constexpr TraceLines ProtectLines = ModuleLines(L"ProtectReceivers");

void ProtectReceiver(ThreadContext& context, const String& name) {
    const std::shared_ptr<IReceiver> receiver = FindDevice<IReceiver>(context, name);
    if (receiver && Required(receiver->CommonDevice())->State() == IDevice::Active) {
        receiver->SetParameter(IReceiver::Protection, L"On", true, 0, {});
    }
}

void ProtectAll(ThreadContext& context) {
    if (context.TraceLog().IsEnabled()) {
        WriteStartLine(context, ProtectLines, {});
    }
    for (const DeviceRecord& record :
         context.DeviceList().DevicesOfClass(String(DeviceClasses::Receivers))) {
        if (!record.Name.empty()) {
            ProtectReceiver(context, record.Name);
        }
    }
}

/// The shape of both switching actions: the device in the interface of its kind, and what to do
/// with it. A device of another kind is left alone without a word.
template <class Kind, class Act>
Boolean Switch(ThreadContext& context, p_ActionTypes actionType, aceSetDevice& record,
               std::shared_ptr<Kind> aceSetDevice::*object, Act act) {
    DeviceFailure failure;
    try {
        if (!record.Device) {
            record.Device = context.DeviceList().GetDevice(record.DevName);
        }
        if (record.Device) {
            RequireActive(context, *Required(record.Device));
            TakeKind(record.*object, record.Device);
            if (const std::shared_ptr<Kind> device = record.*object) {
                act(*device);
            }
            return false;
        }
    } catch (...) {
        failure = CurrentFailure();
    }
    Boolean ignoreAll;
    return ShowDeviceError(context, actionType, ignoreAll, record, failure.number, failure.text);
}

}  // namespace

void modActions::ProtectReceivers(ThreadContext& context) {
    ResumeNext quiet;
    quiet([&] { ProtectAll(context); });
    quiet([&] {
        if (context.TraceLog().IsEnabled()) {
            WriteEndLine(context, ProtectLines);
        }
    });
}

Boolean modActions::SwitchAmplifier(ThreadContext& context, aceSetDevice& record) {
    return Switch(context, atSwitchAmp, record, &aceSetDevice::AmplDev,
                  [&](IAmplifier& amplifier) { amplifier.SetState(record.AmpState); });
}

Boolean modActions::SwitchUnitPath(ThreadContext& context, aceSetDevice& record) {
    return Switch(context, atSwitchUnit, record, &aceSetDevice::SwitchDev,
                  [&](ISwitchUnit& unit) { unit.SwitchPath(record.Path); });
}

}  // namespace ace
