/// The matrix of a device under test follows its tables and influence flags.
#pragma once

#include <ace/core/engine_state.h>

namespace ace {

/// Brings the rows in line with the tables and flags: rows of a dimension that has lost or gained
/// its influence go, and a row is added behind the others for each combination that has none. Rows
/// that stay keep their lists and their order. A flag that is set with an empty table leaves no
/// rows at all. Changes neither an open editor nor `Change`. Handled.
void VKSCreateDUTSteps(EngineState& state);

}  // namespace ace
