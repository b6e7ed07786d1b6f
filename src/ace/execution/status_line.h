/// What the host shows while an action takes its time: the status line, which goes with the last
/// engine object, and messages that close by themselves.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Shows `text` on the status line, or clears it. Nothing without one: commands and program starts
/// go on when the last engine object of the thread has gone and taken the line along. A wait is
/// passed over then, and a macro fails with error 91: both ask for the line themselves.
void ShowStatus(ThreadContext& context, const String& text);
void ClearStatus(ThreadContext& context);

/// Adds the second line of a timed message, "please wait" or the like.
void AppendWaitHint(ThreadContext& context, String& text);

}  // namespace ace
