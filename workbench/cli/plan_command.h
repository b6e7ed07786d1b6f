/// The command "plan": what a run would do, on one page.
#pragma once

#include <iosfwd>

#include "workbench/cli/test_arguments.h"
#include "workbench/words/outcome.h"

namespace ace::workbench {

/// Runs the test where nothing leaves this machine and no time passes, and prints what it would do:
/// each action once with how often it runs, the operator's dialogs, what is touched, and the time.
/// Nothing is printed before all of it is known. `Failed` when a run-time error would end the test,
/// otherwise `Finished`; what keeps it from being planned is `CommandError`.
Outcome PlanCommand(const TestArguments& arguments, std::ostream& out);

}  // namespace ace::workbench
