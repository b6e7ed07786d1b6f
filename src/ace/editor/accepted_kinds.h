/// Which kinds of action a moment of the tree accepts. Intentional: adding by a double click,
/// dropping a kind and dragging a line ask three rules that differ, none of which holds all that
/// another one holds. They stay apart.
#pragma once

#include <optional>

#include <ace/core/action_enums.h>
#include <ace/host/basic_types.h>

namespace ace {

// A number outside the kinds is in no row of a rule: what refuses some kinds accepts it.

/// The node on which something is to come.
struct RuleTarget {
    StringView key;
    StringView caption;
};

/// Captions of the nodes "EFR", "ETE" and "LTE"; none where the tree has no such node. Intentional:
/// the rules know a moment by its caption, so that moments of one name are one to them.
struct RuleCaptions {
    std::optional<String> everyFrequency;
    std::optional<String> start;
    std::optional<String> stop;
};

/// Adding a kind on offer to the selected node, in any module.
bool AcceptsAdded(std::int32_t kind, StringView caption, const RuleCaptions& captions);
/// Dropping a kind on offer on a node.
bool AcceptsDropped(aceModul moduleKind, std::int32_t kind, const RuleTarget& target,
                    const RuleCaptions& captions);
/// Dragging a line of the tree to a node. The line is known by its icon, as the drag carries it.
bool AcceptsLine(aceModul moduleKind, StringView icon, const RuleTarget& target,
                 const RuleCaptions& captions);

}  // namespace ace
