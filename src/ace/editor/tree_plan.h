/// The nodes of each module's tree as data: nothing here knows a tree.
#pragma once

#include <functional>

#include <ace/core/moment_table.h>

namespace ace {

/// Words of a node: the text of a number and what stands behind it, or where the number is 0 that
/// alone.
struct NodeCaption {
    std::int32_t number = 0;
    String words;
    bool operator==(const NodeCaption&) const = default;
};

/// Keys of icons.
inline constexpr StringView MomentIcon = L"ACT";
inline constexpr StringView MatrixGroupIcon = L"SGL";
/// The root behind which the last ones come.
inline constexpr StringView StartKey = L"ETE";

/// One node that is to be added.
struct PlannedNode {
    String key;
    String parent = {};  ///< key of the parent; empty for a root
    NodeCaption caption;
    StringView icon = MomentIcon;
    bool isSibling = false;  ///< comes as the last sibling of `StartKey`
    bool isSorted = false;   ///< its children stand sorted
    /// The moment whose lines follow below the node; none for a group, and for a row of the matrix,
    /// whose lines come when all nodes stand.
    const MomentRow* moment = nullptr;
    std::int32_t number = 0;  ///< of the moment's set, from 0
    bool isExpanded = false;  ///< of the node with its lines
};
using NodeSink = std::function<void(const PlannedNode& node)>;

/// Hands the nodes of a module to `add` in their order; none for the matrix, see matrix_plan.h, and
/// for a module kind outside the members. Error 9 where arrays are shorter than their counts. A
/// wireless test has a node when the host's list of tests names its key.
void PlanTree(const ModuleLists& lists, aceModul moduleKind, const NodeSink& add);

}  // namespace ace
