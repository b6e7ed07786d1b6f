#include <ace/core/action_kinds.h>
#include <ace/core/text.h>
#include <ace/editor/action_text.h>
#include <ace/editor/matrix_plan.h>
#include <ace/editor/moment_tree.h>
#include <ace/editor/places.h>

namespace ace {

namespace {

/// The node of a key; error 91 when it is missing.
TreeNode NodeOf(ITreeControl& tree, const String& key) {
    const TreeNode node = tree.Find(key);
    if (!node) {
        Raise(Errors::ObjectNotSet);
    }
    return node;
}

// ---- lines ---------------------------------------------------------------------------------

void RemoveLines(const Statements& stmt, ITreeControl& tree, TreeNode moment) {
    const auto first = [&] { return stmt([&] { return tree.FirstChild(moment); }); };
    for (TreeNode line = first(); line; line = first()) {
        stmt([&] { tree.Remove(line); });
    }
}

void AddLine(EditorParts& parts, ITreeControl& tree, TreeNode moment, const String& momentKey,
             const p_Action& action, std::int32_t index) {
    const std::optional<String> text = TreeText(parts.context, parts.moduleKind, action);
    if (text) {
        tree.AddChild(moment, KeyOfLine(index, momentKey), *text,
                      String(FindActionKind(action.ActionType)->icon));
    }
}

void AddLines(EditorParts& parts, const Statements& stmt, ITreeControl& tree, TreeNode moment,
              const String& momentKey, const DynArray<p_Action>& actions) {
    if (!actions.IsAllocated()) {
        return;
    }
    for (std::int32_t i = actions.LowerBound(); i <= actions.UpperBound(); ++i) {
        stmt([&] { AddLine(parts, tree, moment, momentKey, actions[i], i); });
    }
}

/// A control of the kind that hosts know redraws a group when it is closed and opened again.
/// Intentional: it is open afterwards.
void RedrawParent(const Statements& stmt, ITreeControl& tree, TreeNode moment) {
    const TreeNode group = stmt([&] { return tree.Parent(moment); });
    if (group) {
        stmt([&] { tree.SetExpanded(group, false); });
        stmt([&] { tree.SetExpanded(group, true); });
    }
}

void ReplaceLines(EditorParts& parts, const Statements& stmt, const MomentRow& row,
                  const DynArray<p_Action>& actions, Boolean expanded, std::int32_t number) {
    const String key = KeyOfMoment(row, number);
    ITreeControl& tree = stmt([&]() -> ITreeControl& { return ViewOf(parts); });
    const TreeNode moment = stmt([&] { return tree.Find(key); });
    if (!moment) {
        return;
    }
    RemoveLines(stmt, tree, moment);
    AddLines(parts, stmt, tree, moment, key, actions);
    stmt([&] { tree.SetExpanded(moment, expanded); });
    if (parts.moduleKind == aceVKSTemplate) {
        RedrawParent(stmt, tree, moment);
    }
}

// ---- building ------------------------------------------------------------------------------

String CaptionText(ThreadContext& context, const NodeCaption& caption) {
    return caption.number != 0 ? context.Language().Text(caption.number) + caption.words
                               : caption.words;
}

TreeNode AddNode(EditorParts& parts, const PlannedNode& planned) {
    ITreeControl& tree = ViewOf(parts);
    const String caption = CaptionText(parts.context, planned.caption);
    const String icon(planned.icon);
    if (planned.isSibling) {
        return tree.AddSibling(NodeOf(tree, String(StartKey)), planned.key, caption, icon);
    }
    if (planned.parent.empty()) {
        return tree.AddRoot(planned.key, caption, icon);
    }
    return tree.AddChild(NodeOf(tree, planned.parent), planned.key, caption, icon);
}

void AddWithLines(EditorParts& parts, const Statements& stmt, const PlannedNode& planned) {
    const TreeNode node = stmt([&] { return AddNode(parts, planned); });
    if (planned.isSorted) {
        stmt([&] { ViewOf(parts).SetChildrenSorted(node, true); });
    }
    if (planned.moment != nullptr) {
        stmt([&] {
            const ConstActionList list =
                ListOf(std::as_const(parts.lists), *planned.moment, planned.number);
            DisplayTree(parts, planned.moment->time, list.actions, planned.isExpanded,
                        planned.number);
        });
    }
}

/// The lines of the matrix come when all nodes stand: a row that none shows has no lines.
void ShowRows(EditorParts& parts, const Statements& stmt) {
    const DynArray<p_Subrange>& rows = parts.lists.VKSSteps;
    for (std::int32_t row = 0; row < parts.lists.VKSStepCount; ++row) {
        stmt([&] {
            const DynArray<p_Action>& actions = rows[row].Enter;
            DisplayTree(parts, ptStep, actions, actions.IsAllocated(), row);
        });
    }
}

void ExpandAll(EditorParts& parts, const Statements& stmt) {
    ITreeControl& tree = stmt([&]() -> ITreeControl& { return ViewOf(parts); });
    for (const TreeNode node : stmt([&] { return tree.Nodes(); })) {
        stmt([&] { tree.SetExpanded(node, true); });
    }
}

void BuildMatrix(EditorParts& parts, const Statements& stmt, const NodeSink& add) {
    PlanMatrix(parts.lists, parts.rows, add);
    if (HasSortedRoots(parts.lists)) {
        stmt([&] { ViewOf(parts).SetRootsSorted(true); });
    }
    ShowRows(parts, stmt);
    ExpandAll(parts, stmt);
}

// ---- subranges -----------------------------------------------------------------------------

/// Letters of the node of a subrange, by module; none for those without.
constexpr StringView SubrangeKeys[ModulCount] = {L"SUR", L"CHA", {},     L"STE", L"EMI",
                                                 L"TST", {},     L"TST", {}};

/// From the root "ETE" on.
void CollapseRoots(const Statements& stmt, ITreeControl& tree) {
    TreeNode root = stmt([&] { return NodeOf(tree, String(StartKey)); });
    while (root) {
        stmt([&] { tree.SetExpanded(root, false); });
        root = stmt([&] { return tree.NextSibling(root); });
    }
}

void SelectAndExpand(const Statements& stmt, ITreeControl& tree, const String& key) {
    const TreeNode node = stmt([&] { return NodeOf(tree, key); });
    stmt([&] { tree.Select(node); });
    stmt([&] { tree.SetExpanded(node, true); });
    TreeNode child = stmt([&] { return tree.FirstChild(node); });
    while (child) {
        stmt([&] { tree.SetExpanded(child, true); });
        child = stmt([&] { return tree.NextSibling(child); });
    }
}

}  // namespace

std::vector<String> imlActions() {
    std::vector<String> keys;
    for (const ActionKind& kind : ActionKinds()) {
        keys.emplace_back(kind.icon);
    }
    keys.emplace_back(MomentIcon);
    return keys;
}

void BuildTree(EditorParts& parts, const Statements& stmt) {
    stmt([&] { ViewOf(parts).SetRootsSorted(false); });
    stmt([&] { ViewOf(parts).Clear(); });
    const NodeSink add = [&](const PlannedNode& node) { AddWithLines(parts, stmt, node); };
    if (parts.moduleKind == aceVKSDUT) {
        BuildMatrix(parts, stmt, add);
    } else {
        PlanTree(parts.lists, parts.moduleKind, add);
    }
}

void DisplayTree(EditorParts& parts, p_PerformTimes PerfTime, const DynArray<p_Action>& Actions,
                 Boolean Expanded, std::int32_t Number) {
    const auto message = [&] { return DisplayMessage(PerfTime, Number); };
    Logged(parts.context, EditorLines(L"DisplayTree"), message, [&](const Statements& stmt) {
        if (const MomentRow* const moment = FindMoment(parts.moduleKind, PerfTime)) {
            ReplaceLines(parts, stmt, *moment, Actions, Expanded, Number);
        }
    });
}

void SetSubrange(EditorParts& parts, std::int32_t Number) {
    const auto message = [&] { return L"Number = " + IntegerText(Number); };
    Logged(parts.context, EditorLines(L"SetSubrange"), message, [&](const Statements& stmt) {
        ITreeControl& tree = stmt([&]() -> ITreeControl& { return ViewOf(parts); });
        if (parts.moduleKind != aceEMSAutoTemplate) {
            CollapseRoots(stmt, tree);
        }
        const bool isMember = FindModule(parts.moduleKind) != nullptr;
        const StringView letters = isMember ? SubrangeKeys[parts.moduleKind] : StringView();
        if (Number >= 0 && !letters.empty()) {
            SelectAndExpand(stmt, tree, String(letters) + IntegerText(Number));
        }
    });
}

}  // namespace ace
