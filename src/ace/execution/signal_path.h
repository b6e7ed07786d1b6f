/// Actions that change the signal path of the measurement hardware.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Puts every active receiver into its protected state.
void ProtectReceivers(ThreadContext& context);
/// Sets the record's amplifier state. True when the operator stops the test after a failure.
Boolean SwitchAmplifier(ThreadContext& context, aceSetDevice& record);
/// Sets the record's path in its switch unit. The answer is as above.
Boolean SwitchUnitPath(ThreadContext& context, aceSetDevice& record);
/// Makes the record's generator follow the frequency. The answer is as above; `ignoreAll` keeps the
/// operator's wish to hear no more of this action.
Boolean SyncGenerator(ThreadContext& context, aceTrackFreq& record, Boolean& ignoreAll);

}  // namespace ace::modActions
