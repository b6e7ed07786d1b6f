/// What the end of an engine object does to its lists.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Closes the bus devices and drops the device references of the actions in the module's lists. A
/// step that fails goes on with the next one. The lists themselves are not changed.
void CleanLists(EngineState& state);

namespace modActions {
/// The same for one set.
void CleanSubrange(ThreadContext& context, const p_Subrange& set);
}  // namespace modActions

}  // namespace ace
