/// The mark that a module's lists differ from its file, and the way in which edits reach the store.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// The mark of the object's module; a module kind outside the members is error 9.
Boolean GetChange(const EngineState& state);

/// Stores the mark. True then takes the editor's lists of the module over: error 91 without an
/// editor, error 10 while a list that would be replaced runs; errors of the editor come out as they
/// are. The mark stands after each of these. `state` is kept alive by the caller. No messages run.
void SetChange(EngineState& state, Boolean value);

}  // namespace ace
