/// Tracking of a monitoring device's frequency.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Tunes the record's monitoring device and lets it settle. True when the operator stops the test
/// after a failure; `ignoreAll` keeps his wish to hear no more of this action.
Boolean TrackMonitor(ThreadContext& context, aceTrackFreq& record, Boolean& ignoreAll);

}  // namespace ace::modActions
