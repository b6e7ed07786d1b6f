/// The signals with which a user, a terminal or another program ends a run.
#pragma once

namespace ace::workbench {

/// From here on Ctrl-C, SIGTERM, SIGHUP and SIGQUIT end nothing by themselves: they are seen by
/// `IsInterrupted`, so that a test is stopped in good order and switches off what it switched on.
/// A second Ctrl-C ends the program; the others can come as often as they like, because a shell, a
/// terminal and a service manager send them more than once. A SIGHUP that is ignored already stays
/// so, because nohup(1) wants it. An output that nobody reads any more is an error of its stream
/// instead of a SIGPIPE. Programs that are started get none of this.
void CatchInterrupts();

/// One of them has come.
bool IsInterrupted();

}  // namespace ace::workbench
