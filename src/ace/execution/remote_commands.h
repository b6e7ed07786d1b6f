/// Commands to instruments.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Sends the record's command over its transport. True when the operator stops the test after a
/// failure; `ignoreAll` keeps his wish to hear no more of this action. What was opened stays in the
/// record or with the thread. Errors of the dialog and of the status line come out. Messages run.
Boolean SendRemoteCommand(ThreadContext& context, aceRemote& record, Boolean& ignoreAll);

}  // namespace ace::modActions
