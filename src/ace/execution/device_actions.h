/// Setting devices and checking the equipment under test.
#pragma once

#include <ace/core/thread_context.h>

namespace ace::modActions {

/// Sets the record's device, or checks the equipment with it. True when the test is to stop.
Boolean SetCheckDevice(ThreadContext& context, aceSetDevice& record, Boolean isSet,
                       Boolean& ignoreAll, std::int32_t modul);

}  // namespace ace::modActions
