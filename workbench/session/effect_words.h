/// Host calls in the words of a test engineer.
#pragma once

#include "sim/journal.h"
#include "workbench/session/line_kind.h"

namespace ace::workbench {

/// One line about a call; empty for calls that have no effect in the laboratory (reading settings,
/// comparing, tracing, letting messages run) and for those that another line tells (the status line
/// of a wait, and its clearing; what `TransportHost` sends and starts). A call that the table does
/// not know is told as the journal has it.
String EffectWords(const sim::HostCall& call);
/// `Dialog` for a message on the operator's screen, `Effect` for any other call.
LineKind EffectKind(const sim::HostCall& call);

}  // namespace ace::workbench
