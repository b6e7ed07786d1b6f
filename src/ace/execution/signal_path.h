/// Actions that change the signal path of the measurement hardware.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Puts every active receiver into its protected state. The first failure ends that in silence, the
/// trace lines included that it has at either end. Messages may run.
void ProtectReceivers(ThreadContext& context);
/// Sets the record's amplifier state. True when the operator stops the test after a failure; there
/// is no ignoring of all further ones. The looked-up objects stay in `record`. Errors of the dialog
/// come out. Messages may run.
Boolean SwitchAmplifier(ThreadContext& context, aceSetDevice& record);
/// Sets the record's path in its switch unit; the rest is as above.
Boolean SwitchUnitPath(ThreadContext& context, aceSetDevice& record);
/// Makes the record's generator follow the frequency at a level of its calibration table. The
/// answer and the errors are as above; `ignoreAll` keeps the operator's wish to hear no more of
/// this action. Whether its output is on is decided while no test runs, and the operator is asked
/// then if the record says so. Messages may run.
Boolean SyncGenerator(ThreadContext& context, aceTrackFreq& record, Boolean& ignoreAll);

}  // namespace ace::modActions
