/// Work that may take for ever and that nobody waits for.
#pragma once

#include <functional>

namespace ace::workbench {

/// Runs `work`, which must not raise, on a thread of its own that nobody joins. Answers an `errno`,
/// 0 for success: a system may have no further thread.
int RunOnOwnThread(std::function<void()> work);

}  // namespace ace::workbench
