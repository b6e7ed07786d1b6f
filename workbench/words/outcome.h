/// How a command ends.
#pragma once

#include <utility>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The exit codes, from good to bad: of several things that happen in one test the highest counts.
enum class Outcome {
    Finished = 0,    ///< every moment was run
    Stopped = 1,     ///< an answer, an action or the user stopped the test
    Unanswered = 2,  ///< a question had no answer
    Failed = 3,      ///< a run-time error ended the test, or the output can't be written
    BadFile = 4,     ///< a file can't be read or makes no sense; no test was run
    WrongUse = 5,    ///< the command line makes no sense; no test was run
};

/// Ends a command before its test. The text is one line for the user.
struct CommandError {
    Outcome outcome;
    String text;
};

[[noreturn]] inline void RefuseFile(String text) {
    throw CommandError{Outcome::BadFile, std::move(text)};
}
[[noreturn]] inline void RefuseUse(String text) {
    throw CommandError{Outcome::WrongUse, std::move(text)};
}

}  // namespace ace::workbench
