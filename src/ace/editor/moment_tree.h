/// The tree of a module's moments with the lines of their actions, in the host's control.
#pragma once

#include <ace/core/operation.h>
#include <ace/editor/editor_parts.h>

namespace ace {

/// Keys of the icons of all lines and of the moments.
std::vector<String> imlActions();

/// Clears the linked tree and builds it from the lists of the module, as statements of the
/// operation `stmt`: each node, and behind each moment its lines. Error 91 without a tree, 457 for
/// a key that comes twice, 9 for arrays that are shorter than their counts, 13 for an action with
/// another kind's record; errors of the language data and of the tree come out.
void BuildTree(EditorParts& parts, const Statements& stmt);

/// Puts a line for each action of a list below its moment, in the place of those that stand there,
/// and expands or collapses the moment. `Number` is that of the moment's set, from 0. Nothing for a
/// moment that has no node. An action that has no text gets no line, but the lines keep the indexes
/// of their actions in their keys. Error 13 for an action with another kind's record. Traced and
/// handled.
void DisplayTree(EditorParts& parts, p_PerformTimes PerfTime, const DynArray<p_Action>& Actions,
                 Boolean Expanded, std::int32_t Number);

/// Shows the subrange of that number, see `IEditor::SetSubrange`. Traced and handled.
void SetSubrange(EditorParts& parts, std::int32_t Number);

}  // namespace ace
