/// The command "tree": what hangs on each moment of a test, as text.
#pragma once

#include <iosfwd>

#include "workbench/cli/set_up_arguments.h"

namespace ace::workbench {

/// Prints the editor's tree of a settings file, which is read only. Nothing is printed before all
/// of it is known. What keeps it from being printed is `CommandError`: `Failed` when the editor
/// can't show the lists.
void TreeCommand(const SetUpArguments& arguments, std::ostream& out);

}  // namespace ace::workbench
