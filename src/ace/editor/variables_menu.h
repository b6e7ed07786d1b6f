/// The replace variables that a text of the dialog may have.
#pragma once

#include <vector>

#include <ace/core/action_enums.h>
#include <ace/host/user_dialogs.h>

namespace ace {

/// The variables of a module, with their commands from 1; none for a module without.
std::vector<MenuItem> VariableItems(aceModul moduleKind);
/// The placeholder of an item; empty for a command that is none.
String VariableOf(aceModul moduleKind, std::int32_t command);

}  // namespace ace
