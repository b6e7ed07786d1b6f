/// What the end of an engine object does to its lists.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Closes the bus devices that the commands in the module's lists have opened. A step that fails
/// goes on with the next one. The lists are not changed: what is cleaned is a copy of each record,
/// and the references to devices end with the lists.
void CleanLists(EngineState& state);

/// Closes the bus device that the record has opened, if any, and forgets it. Raises nothing.
void CloseBusDevice(ThreadContext& context, aceRemote& record);

namespace modActions {
/// The same for one set.
void CleanSubrange(ThreadContext& context, const p_Subrange& set);
}  // namespace modActions

}  // namespace ace
