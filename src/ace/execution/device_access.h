/// What the device actions share: a device is found and brought to life.
#pragma once

#include <ace/core/thread_context.h>
#include <ace/host/device.h>

namespace ace {

/// A device's state, after it was activated if need be.
struct DeviceState {
    std::int32_t value = IDevice::NotActive;
    bool wasActivated = false;  ///< it was 0, and `value` is the state behind the activation
};

/// Asks for the state; when it is 0, activates the device and asks again. Messages may run.
DeviceState StateAfterActivation(IDevice& device);

/// The same for the actions that can't go on with a device that stays off: a device that had to be
/// activated must be in state 1 afterwards, or else error 4010. Any other state that it is found in
/// is left as it is. Answers the state.
std::int32_t RequireActive(ThreadContext& context, IDevice& device);

/// The device of that name in the interface of its kind; none when the list has no such device or
/// it is of another kind. Errors of the list come out; messages may run.
template <class Kind>
std::shared_ptr<Kind> FindDevice(ThreadContext& context, const String& name) {
    return std::dynamic_pointer_cast<Kind>(context.DeviceList().GetDevice(name));
}

/// Sets `object` to `device` in the interface of its kind; none when it is of another kind. The
/// cast, which costs more than most actions, is spared when it is that object already.
template <class Kind>
void TakeKind(std::shared_ptr<Kind>& object, const std::shared_ptr<IDevice>& device) {
    const bool isSame =
        object && device &&
        dynamic_cast<const void*>(object.get()) == dynamic_cast<const void*>(device.get());
    if (!isSame) {
        object = std::dynamic_pointer_cast<Kind>(device);
    }
}

}  // namespace ace
