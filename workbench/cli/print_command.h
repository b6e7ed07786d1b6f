/// The command "print": what the engine prints of a settings file, and what it leaves out.
#pragma once

#include <iosfwd>

#include "workbench/cli/set_up_arguments.h"

namespace ace::workbench {

/// Where a print goes.
struct PrintOutput {
    std::ostream& out;
    std::size_t width = 0;  ///< of the terminal in characters; 0 breaks no line
};

/// Prints the lists of a settings file, which is read only, as the engine does for the host's
/// report, and a note on what that leaves out. Nothing is printed before all of it is known. What
/// keeps it from being printed is `CommandError`: `Failed` with its place for an action that the
/// engine can't print.
void PrintCommand(const SetUpArguments& arguments, const PrintOutput& output);

}  // namespace ace::workbench
