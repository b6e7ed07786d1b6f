/// The kinds of the lines in which a session is told.
#pragma once

namespace ace::workbench {

/// What a line tells.
enum class LineKind {
    Effect,   ///< what an action does: a command, a wait, a sound, an event to the devices
    Failure,  ///< what did not work, with the answer where one was asked for
    Dialog,   ///< anything else that stood on the operator's screen, with its answer
    Verdict,  ///< of a step of a wireless test
    Comment,  ///< a check asks to store it
    Request,  ///< what a check or a channel asks of the host, and what the host makes of it
    Ending,   ///< that the test ends before its time, and why
    Error,    ///< a run-time error that ended a moment
};

}  // namespace ace::workbench
