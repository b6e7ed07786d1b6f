#include <ace/execution/device_access.h>
#include <ace/execution/device_failure.h>

namespace ace {

namespace {

constexpr std::int32_t ActivationMode = 1;

}  // namespace

DeviceState StateAfterActivation(IDevice& device) {
    const std::int32_t state = device.State();
    if (state != IDevice::NotActive) {
        return {state, false};
    }
    device.Activate(ActivationMode);
    return {device.State(), true};
}

std::int32_t RequireActive(ThreadContext& context, IDevice& device) {
    const DeviceState state = StateAfterActivation(device);
    if (state.wasActivated && state.value != IDevice::Active) {
        RaiseDeviceFailed(context);
    }
    return state.value;
}

}  // namespace ace
