/// The API macro action.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Runs the record's macro; true when it ran and succeeded.
Boolean RunApiMacro(ThreadContext& context, aceAPI& record);

}  // namespace ace::modActions
