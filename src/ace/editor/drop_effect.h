/// What would come of a drop on the tree.
#pragma once

#include <ace/core/operation.h>
#include <ace/editor/accepted_kinds.h>
#include <ace/editor/editor_parts.h>

namespace ace {

/// The moment on which an act comes when nothing is selected or marked; none where the tree has no
/// such node.
TreeNode DefaultNode(EditorParts& parts);
/// What the rules of kinds ask of a node, and of the tree.
struct RuleFacts {
    String key;
    String caption;
    RuleCaptions captions;
    RuleTarget Target() const { return {key, caption}; }
};
RuleFacts FactsOf(EditorParts& parts, TreeNode node);
/// A kind on offer may be added to `node`.
bool MayBeAdded(EditorParts& parts, std::int32_t kind, TreeNode node);

/// What comes of a drop of `text` on `target`, one of `DropEffects`; `shift` as of `ITreeEvents`.
/// Intentional: what is selected is looked at before what is dragged, so that a kind on offer is
/// taken for the selected node, as far as that has a parent. Errors of the tree come out.
std::int32_t DropEffectOf(EditorParts& parts, StringView text, std::int32_t shift, TreeNode target);

}  // namespace ace
