/// The frequencies of a test, from the file's sweeps or those of the options.
#pragma once

#include "workbench/session/set_up_reader.h"
#include "workbench/session/test_set_up.h"

namespace ace::workbench {

/// Fills `setUp.sweeps` for its module and entries, and notes where no frequency is run. Raises
/// `CommandError`: `BadFile` for a sweep of the file that can't be run, `WrongUse` for an option
/// where the module has no frequencies; either for more than `MostFrequencies`, because the plan of
/// a test is made before it and must fit into memory.
void ReadSweeps(const SetUpReader& reader, const SetUpOptions& options, TestSetUp& setUp);

}  // namespace ace::workbench
