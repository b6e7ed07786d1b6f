/// The menu of a line or a moment of the tree.
#pragma once

#include <ace/editor/action_dialog.h>

namespace ace {

/// Shows the commands for the selected node at the mouse; nothing without one. The one that is
/// chosen runs, while messages run. Statements of the operation `stmt`.
void ShowContextMenu(EditorParts& parts, const Statements& stmt);
/// Carries out a command of that menu; nothing for a number that is none. Errors of the edit come
/// out.
void RunCommand(EditorParts& parts, ActionDialog& dialog, std::int32_t command);

}  // namespace ace
