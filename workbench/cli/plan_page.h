/// The page on which a plan is told.
#pragma once

#include "workbench/cli/console_report.h"
#include "workbench/session/rehearsal.h"

namespace ace::workbench {

/// Prints what a rehearsal found. `notes` are what the user should know of the test and its bench;
/// lines of `answers` that answered nothing are told.
void PrintPlan(ConsoleReport& report, const TestSetUp& setUp, const std::vector<String>& notes,
               const Rehearsal& rehearsal, const Answers& answers);

}  // namespace ace::workbench
