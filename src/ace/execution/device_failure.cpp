#include <ace/execution/device_failure.h>

namespace ace {

namespace {

constexpr std::int32_t DeviceFailedText = 3350;
constexpr std::int32_t DeviceFailedHelp = 3021;

}  // namespace

void RaiseDeviceFailed(ThreadContext& context) {
    String description = context.Language().Text(DeviceFailedText);
    String help = context.Language().Text(DeviceFailedHelp);
    throw RunTimeError(Errors::DeviceFailed, std::move(description), {}, std::move(help));
}

DeviceFailure CurrentFailure() {
    const RunTimeError error = CurrentRunTimeError();
    return {error.Number(), error.Description()};
}

}  // namespace ace
