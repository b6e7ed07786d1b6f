/// The start of programs.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Starts the record's program, or brings it to the front when it still runs. True when the
/// operator stops the test after a failure; `ignoreAll` keeps the wish to hear no more of this
/// action. Errors of the dialog come out. Messages run.
Boolean StartRemoteProgram(ThreadContext& context, aceRemote& record, Boolean& ignoreAll);

}  // namespace ace::modActions
