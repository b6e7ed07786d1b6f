/// The command "run": a whole test from a settings file.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "workbench/cli/terminal_operator.h"
#include "workbench/cli/test_arguments.h"
#include "workbench/session/session.h"

namespace ace::workbench {

/// The arguments as the user wrote them, in UTF-8.
struct RunArguments : TestArguments {
    std::optional<std::string> trace;    ///< path of a trace file
    std::optional<std::string> clock;    ///< "virtual", or "real" as it is with real transports
    bool brief = false;                  ///< prints moments instead of single effects
    bool ask = false;                    ///< the operator answers at the terminal
    bool real = false;                   ///< real transports
    bool despiteFindings = false;        ///< runs a test for real that a check says will fail
    std::optional<std::string> config;   ///< path of the workbench's configuration
    std::optional<std::string> traffic;  ///< path of a traffic log, made anew
    std::optional<std::string> faults;   ///< path of a script of failures
};

/// Where a command prints and how it is broken off.
struct CommandSurroundings {
    std::ostream& out;
    bool isTerminal = false;  ///< `out` is a terminal
    std::function<bool()> isInterrupted{};
    TerminalInput input{};  ///< where the operator answers; needed for `ask`
};

/// Checks the file, runs the test and prints it. What keeps it from being run is `CommandError`;
/// with real transports also a finding that surely ends the test, unless it is to be run all the
/// same.
Outcome RunCommand(const RunArguments& arguments, const CommandSurroundings& surroundings);

}  // namespace ace::workbench
