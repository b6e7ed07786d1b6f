/// What the device actions share when a device does not come to life or fails.
#pragma once

#include <ace/core/operation.h>

namespace ace {

/// Raises error 4010 with the host's text for it; a second text goes along as help file and is read
/// by nobody.
[[noreturn]] void RaiseDeviceFailed(ThreadContext& context);

/// Clears the status line.
void ClearStatus(ThreadContext& context);

}  // namespace ace
