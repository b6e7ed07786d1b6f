/// What a line tells of an action: in the editor's tree, and in the print. The two differ in small
/// things that users know and that stay.
#pragma once

#include <optional>

#include <ace/core/action_kinds.h>
#include <ace/core/thread_context.h>

namespace ace {

/// The words in the host's language. Errors of its language data come out; no messages run.
String TextOf(ThreadContext& context, const KindWords& words);

/// The line of `action` in the tree of a module; none for an action that shows nowhere: one of a
/// kind outside the members, or of a kind with a record that has none, as an entry that came back
/// empty from a file. Error 13 when another record stands there; errors of the host's language data
/// come out. No messages run.
std::optional<String> TreeText(ThreadContext& context, aceModul moduleKind, const p_Action& action);

/// What the start line of an operation that displays a list tells in the trace.
String DisplayMessage(p_PerformTimes PerfTime, std::int32_t Number);

/// The lines of a list in the print of a module, each closed by CR alone; empty for a list that is
/// not allocated. `PerfTime` and `Number` stand in the trace, where this names itself as the
/// form's. Intentional: `Expanded` means nothing. An action that tracks with a monitoring device is
/// told by the device, and is error 91 before that was looked up. Handled; messages may run where a
/// device is asked for its name.
String DisplayLine(ThreadContext& context, aceModul moduleKind, p_PerformTimes PerfTime,
                   const DynArray<p_Action>& Actions, Boolean Expanded, std::int32_t Number);

}  // namespace ace
