/// Setting devices and checking the equipment under test.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Sets the record's device (`isSet`), or checks the equipment under test with it. True when the
/// test is to stop. What a failed check asks of the host collects in `EutCheckRequest` and
/// `EutCheckComment`. `moduleKind` tells whose settings file holds the device's section. The
/// objects that are looked up and the time of the last check stay in `record`; `ignoreAll` keeps
/// the operator's wish to hear no more of this action. Failures of devices are shown to the
/// operator; what comes out is an error of the dialog or of the trace line "end". Intentional: that
/// line is written after a failure only. Messages may run; an action that runs inside may overwrite
/// the record, and this one goes on with the new content.
Boolean SetCheckDevice(ThreadContext& context, aceSetDevice& record, Boolean isSet,
                       Boolean& ignoreAll, std::int32_t moduleKind);

}  // namespace ace::modActions
