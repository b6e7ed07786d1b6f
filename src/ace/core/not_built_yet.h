/// What this version does not carry yet says so.
#pragma once

#include <ace/host/run_time_error.h>

namespace ace {

/// Error 4099 with the name of what was asked for.
[[noreturn]] inline void RaiseNotBuiltYet(StringView what) {
    throw RunTimeError(Errors::NotBuiltYet, String(what) + L" is not built yet");
}

}  // namespace ace
