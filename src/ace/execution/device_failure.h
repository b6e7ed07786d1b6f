/// How an action on a device fails.
#pragma once

#include <ace/core/operation.h>

namespace ace {

/// Raises error 4010 with the host's text for it; a second text goes along as help file and is read
/// by nobody.
[[noreturn]] void RaiseDeviceFailed(ThreadContext& context);

/// What ended a device action before its end. Number 0 with an empty text stands for an object that
/// was not found: that is no run-time error.
struct DeviceFailure {
    std::int32_t number = 0;
    String text;
};
/// The exception in flight as such a failure.
DeviceFailure CurrentFailure();

}  // namespace ace
