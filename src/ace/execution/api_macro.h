/// The API macro action.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Runs the record's macro; true when it ran and succeeded. The placeholders in the record's texts
/// are filled in. No error comes out: a macro that does not load, start or succeed, and any failure
/// on the way, is the answer false, of which the operator is told or not. Messages run meanwhile.
Boolean RunApiMacro(ThreadContext& context, aceAPI& record);

}  // namespace ace::modActions
