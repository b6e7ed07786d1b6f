#include <ace/execution/device_failure.h>

namespace ace {

namespace {

constexpr std::int32_t DeviceFailedText = 3350;
constexpr std::int32_t DeviceFailedHelp = 3021;
constexpr std::int32_t ActivationMode = 1;
constexpr std::int32_t FollowingTitleBegin = 9430;
constexpr std::int32_t FollowingTitleEnd = 9431;

}  // namespace

void RaiseDeviceFailed(ThreadContext& context) {
    String description = context.Language().Text(DeviceFailedText);
    String help = context.Language().Text(DeviceFailedHelp);
    throw RunTimeError(Errors::DeviceFailed, std::move(description), {}, std::move(help));
}

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

bool TestFollowsNoFrequency(ThreadContext& context) {
    const std::shared_ptr<ITestInfo> test = context.SystemServices().CurrentTest();
    if (!test) {
        return false;
    }
    String name;
    const std::int32_t kind = test->TestKind(name);
    return kind == 1 || kind == 2;
}

void AppendFollowingTitle(ThreadContext& context, String& title) {
    title.append(context.Language().Text(FollowingTitleBegin)).append(L": ");
    title.append(context.Language().Text(FollowingTitleEnd));
}

DeviceFailure CurrentFailure() {
    const RunTimeError error = CurrentRunTimeError();
    return {error.Number(), error.Description()};
}

void ShowStatus(ThreadContext& context, const String& text) {
    const std::shared_ptr<IStatusDisplay> line = context.StatusDisplay;
    if (line) {
        line->ShowStatus(text, false, false);
    }
}

void ClearStatus(ThreadContext& context) {
    static const String nothing;
    ShowStatus(context, nothing);
}

}  // namespace ace
