/// The menu of a line or a moment of the tree.
#pragma once

#include <ace/editor/action_dialog.h>

namespace ace {

/// Shows the commands for the selected node at the mouse, and carries out the one that is chosen;
/// nothing without a node, or when another one is selected by then. Messages run. Statements of the
/// operation `stmt`; errors of the edit come out.
void OpenContextMenu(EditorParts& parts, ActionDialog& dialog, const Statements& stmt);

}  // namespace ace
