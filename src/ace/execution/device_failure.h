/// What the device actions share: a device is brought to life, does not come to life, or fails.
#pragma once

#include <ace/core/operation.h>
#include <ace/host/device.h>

namespace ace {

/// Raises error 4010 with the host's text for it; a second text goes along as help file and is read
/// by nobody.
[[noreturn]] void RaiseDeviceFailed(ThreadContext& context);

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

/// The host runs a test that has no use for devices that follow the frequency. Errors of the host
/// come out; no message runs.
bool TestFollowsNoFrequency(ThreadContext& context);

/// What ended a device action before its end. Number 0 with an empty text stands for an object that
/// was not found: that is no run-time error.
struct DeviceFailure {
    std::int32_t number = 0;
    String text;
};
/// The exception in flight as such a failure.
DeviceFailure CurrentFailure();

/// Appends the title of the boxes of the actions that follow the frequency. Errors of the language
/// data come out.
void AppendFollowingTitle(ThreadContext& context, String& title);

/// Runs an action that follows the frequency: `act` answers whether it found all its objects. When
/// it did not, or fails, the operator is asked unless `ignoreAll` is set; true when he stops the
/// test. Intentional: the dialog names the record's generator for both kinds, which is empty for a
/// mere tracking of a monitoring device. Errors of the dialog come out.
template <class Act>
Boolean RunFollowing(ThreadContext& context, const aceTrackFreq& record, Boolean& ignoreAll,
                     Act&& act) {
    DeviceFailure failure;
    try {
        if (act()) {
            return false;
        }
    } catch (...) {
        failure = CurrentFailure();
    }
    return ignoreAll ? Boolean(false)
                     : ShowDeviceError(context, atTrackFreq, ignoreAll, record.GenName,
                                       failure.number, failure.text);
}

/// Shows `text` on the status line, or clears it. Nothing without one: an action goes on when the
/// last engine object of the thread has gone and taken the line along.
void ShowStatus(ThreadContext& context, const String& text);
void ClearStatus(ThreadContext& context);

}  // namespace ace
