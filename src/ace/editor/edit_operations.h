/// The operations by which dialog, menu and mouse change the editor's lists. Each works on the node
/// that the tree has selected, shows the moment that it has touched and hands the lists of the
/// module on to the engine's store (`SetChange`), where all that the host sees of them stands.
///
/// All are traced and handled. No node selected, no tree and no engine are error 91, a line or an
/// entry that the list doesn't have is error 9. A node without a list in this module (a group of
/// the matrix, the leaf of no row) is asked first: nothing happens there, and the flag of changes
/// stays as it was. A failure behind the edit, when the moment is shown or the lists are handed on,
/// leaves the edit in the editor's list; the store gets it with the next edit, unless the editor is
/// loaded again before that. While a list of the module runs, the store refuses so with error 10,
/// and the flag is set. No messages run; inside another operation of the editor all end
/// with error 10 and change nothing.
#pragma once

#include <ace/editor/editor_parts.h>

namespace ace {

/// Inserts the held action behind the selected line, or behind the last line of the selected
/// moment; `NewSection` as of `InsertEntry`. What fails behind the insertion leaves the entry in
/// the editor's list: the store gets it with the next edit.
void AddAction(EditorParts& parts, Boolean NewSection);
/// Changes the entry of the selected line into the held action, if they differ, and shows its
/// moment anew also if they don't.
void ModifyAction(EditorParts& parts);
/// The part of `ModifyAction` that changes `Entry`, which stands in the editor's lists.
void ChangeAction(EditorParts& parts, p_Action& Entry);
/// Deletes the selected line; on a moment all its lines, on a subrange and a channel those of all
/// its moments. Intentional: the other groups and the two global lists of the matrix are not
/// cleared, and a moment that is cleared is collapsed.
void DeleteAction(EditorParts& parts);
/// Moves an entry inside the list of a moment, both places from 0. Intentional: a move to where the
/// entry stands is a change too.
void MoveAction(EditorParts& parts, p_PerformTimes PerformTime, std::int32_t Subrange,
                std::int32_t From, std::int32_t To);
/// Holds a copy of the selected line's entry.
void GetAction(EditorParts& parts);
/// The number of entries of the selected line's list, and the line's place among those that show,
/// from 0. Both stay as they came on a node without a list.
void GetSelectedList(EditorParts& parts, std::int32_t& Count, std::int32_t& Index);

}  // namespace ace
