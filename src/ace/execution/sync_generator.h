/// A generator that follows the frequency.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Makes the record's generator follow the frequency at a level of its calibration table. True
/// when the operator stops the test after a failure; `ignoreAll` keeps the wish to hear no more of
/// this action. Errors of the dialog come out. Whether its output is on is decided while no test
/// runs, and the operator is asked then if the record says so. Messages may run.
Boolean SyncGenerator(ThreadContext& context, aceTrackFreq& record, Boolean& ignoreAll);

}  // namespace ace::modActions
