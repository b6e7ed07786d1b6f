/// The limits of the dialog's value boxes.
#pragma once

#include <ace/core/thread_context.h>
#include <ace/host/inputs.h>

namespace ace {

/// What the operator is told of a value that a box doesn't take: its limits, in the locale.
String LimitsText(ThreadContext& context, const ValueBox& box);
/// The handler of the end of an input: a value outside the limits of a box that shows is told, with
/// the focus back on the box. The value stays: the operator repeats the input. Messages run while
/// the box with the words stands.
void CheckLimits(ThreadContext& context, ValueBox& box);

}  // namespace ace
