/// The command "check": what a settings file does that nobody would expect, before its test.
#pragma once

#include <iosfwd>

#include "workbench/check/finding.h"
#include "workbench/cli/test_arguments.h"

namespace ace::workbench {

/// The arguments as the user wrote them, in UTF-8.
struct CheckArguments : TestArguments {
    bool json = false;                  ///< one object a line
    bool asLoaded = false;              ///< the lines beside what becomes of them
    bool here = false;                  ///< sounds, programs and macros must be on this machine
    std::optional<std::string> faults;  ///< path of a script of failures
};

/// How a check ends; the exit codes.
enum class CheckResult {
    Clean = 0,
    Findings = 1,
    Unusable = 2,  ///< the file can't be loaded or not be saved
};

/// Where a check goes.
struct CheckOutput {
    std::ostream& out;
    std::size_t width = 0;  ///< of the terminal in characters; 0 breaks no line
};

/// Prints all findings of a settings file, which is read only, worst first; or its lines as they
/// are loaded and would be saved. Nothing is printed before all of it is known. What keeps the file
/// from being checked at all is `CommandError`, as for a run.
CheckResult CheckCommand(const CheckArguments& arguments, const CheckOutput& output);

/// One finding as an object of JSON on one line: rule, group, file, line, section, entry, text,
/// meaning and advice; what there is not is left out.
std::string JsonOf(const Finding& finding);

}  // namespace ace::workbench
