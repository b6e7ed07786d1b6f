/// What the host shows while an action takes its time: the status line, which goes with the last
/// engine object, and messages that close by themselves.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Shows `text` on the status line, or clears it. Nothing without one: commands and program starts
/// go on when the last engine object of the thread has gone and taken the line along. A wait is
/// passed over then, and a macro is not started and asks for a stop: both need the line.
void ShowStatus(ThreadContext& context, const String& text);
void ClearStatus(ThreadContext& context);

/// Number of the title of boxes about what actions do.
inline constexpr std::int32_t ActionsTitle = 9430;

/// Adds the second line of a timed message, "please wait" or the like.
void AppendWaitHint(ThreadContext& context, String& text);

}  // namespace ace
