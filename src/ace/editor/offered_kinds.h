/// The kinds of action that the editor offers for a module.
#pragma once

#include <vector>

#include <ace/core/action_enums.h>
#include <ace/host/basic_types.h>

namespace ace {

/// The kinds on offer, in their order. `emiTemplate` says whether a template measures emission, and
/// means nothing in the other modules. A module kind outside the members offers what all have.
std::vector<p_ActionTypes> OfferedKinds(aceModul moduleKind, Boolean emiTemplate);

}  // namespace ace
