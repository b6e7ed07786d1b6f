/// Tracking of a monitoring device's frequency.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Tunes the record's monitoring device to its frequency and shows a message for the settling
/// delay. A device that stays off is tuned all the same. True when the operator stops the test
/// after a failure; `ignoreAll` keeps his wish to hear no more of this action. Errors of the
/// dialog, which is that of `RunFollower`, come out. Messages may run.
Boolean TrackMonitor(ThreadContext& context, aceTrackFreq& record, Boolean& ignoreAll);

}  // namespace ace::modActions
