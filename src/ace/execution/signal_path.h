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

}  // namespace ace::modActions
