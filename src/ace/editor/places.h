/// Places in the lists: what a node of the tree stands for, and which list that is.
#pragma once

#include <optional>
#include <vector>

#include <ace/core/moment_table.h>
#include <ace/editor/editor_parts.h>

namespace ace {

/// A place in the lists of a module.
struct Place {
    p_PerformTimes time = ptStartTest;
    std::int32_t subrange = 0;  ///< number of the set, from 0; 0 for a set that the module has once
    std::int32_t position = 0;  ///< of a line, from 1; of a moment the number of its lines
    bool operator==(const Place&) const = default;
};

/// The number behind the three letters of a key; 0 where none stands there. Error 6 beyond the
/// 32-bit integers.
std::int32_t NumberOfKey(StringView key);
/// The letters and, where the module has numbered sets for that moment, the number of its node.
String KeyOfMoment(const MomentRow& moment, std::int32_t number);
/// The key of the line of an entry, from 0, below the moment of that key.
String KeyOfLine(std::int32_t index, const String& momentKey);
/// True for the key of a line, false for that of a moment or a group.
bool IsLineKey(StringView key);

/// The moments that are cleared with the node of a key that is no line's, in their order; none
/// where nothing is. Intentional: that are the groups but subranges and channels, and the two
/// global lists of the matrix.
std::vector<p_PerformTimes> ClearedWith(StringView key);

/// What `Node` stands for. A line: its moment, and its place among the lines that show. A moment:
/// itself, behind its last line. A group: its first moment. Intentional: the trigger stands first
/// under a channel, and the channel stands for its no-go list; so the position of a channel stays
/// as it came, as that of every group whose first child isn't the moment that it stands for. A part
/// for which a node says nothing stays as it came too. Whether the module has such a list is not
/// asked. Errors of the tree, of which no node is 91, come out. Traced and handled.
void GetPosition(EditorParts& parts, TreeNode Node, Place& place);

/// The list of a place; none where the module has no such moment or no set of that number, such as
/// on a group of the matrix.
std::optional<ActionList> FindList(EditorParts& parts, p_PerformTimes time, std::int32_t subrange);

/// Whether an action can come to where `node` stands. Errors of the tree come out.
bool ReachesList(EditorParts& parts, TreeNode node);

}  // namespace ace
