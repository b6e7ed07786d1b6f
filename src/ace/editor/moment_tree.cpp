#include <ace/core/action_kinds.h>
#include <ace/core/text.h>
#include <ace/editor/action_text.h>
#include <ace/editor/matrix_plan.h>
#include <ace/editor/moment_tree.h>
#include <ace/editor/places.h>

namespace ace {

namespace {

/// The node of a key; error 91 when it is missing.
TreeNode NodeOf(const EditorParts& parts, const String& key) {
    const TreeNode node = ViewOf(parts).Find(key);
    if (!node) {
        Raise(Errors::ObjectNotSet);
    }
    return node;
}

// ---- lines ---------------------------------------------------------------------------------

void RemoveLines(const EditorParts& parts, const Statements& stmt, TreeNode moment) {
    const auto first = [&] { return stmt([&] { return ViewOf(parts).FirstChild(moment); }); };
    for (TreeNode line = first(); line; line = first()) {
        stmt([&] { ViewOf(parts).Remove(line); });
    }
}

void AddLine(EditorParts& parts, TreeNode moment, const String& momentKey, const p_Action& action,
             std::int32_t index) {
    const std::optional<String> text = TreeText(parts.context, parts.moduleKind, action);
    if (text) {
        ViewOf(parts).AddChild(moment, KeyOfLine(index, momentKey), *text,
                               String(FindActionKind(action.ActionType)->icon));
    }
}

void AddLines(EditorParts& parts, const Statements& stmt, TreeNode moment, const String& momentKey,
              const DynArray<p_Action>& actions) {
    if (!actions.IsAllocated()) {
        return;
    }
    for (std::int32_t i = actions.LowerBound(); i <= actions.UpperBound(); ++i) {
        stmt([&] { AddLine(parts, moment, momentKey, actions[i], i); });
    }
}

/// A control of the kind that hosts know redraws a group when it is closed and opened again.
/// Intentional: it is open afterwards.
void RedrawParent(const EditorParts& parts, const Statements& stmt, TreeNode moment) {
    const TreeNode group = stmt([&] { return ViewOf(parts).Parent(moment); });
    if (group) {
        stmt([&] { ViewOf(parts).SetExpanded(group, false); });
        stmt([&] { ViewOf(parts).SetExpanded(group, true); });
    }
}

void ReplaceLines(EditorParts& parts, const Statements& stmt, const MomentRow& row,
                  const DynArray<p_Action>& actions, Boolean expanded, std::int32_t number) {
    const String key = KeyOfMoment(row, number);
    const TreeNode moment = stmt([&] { return ViewOf(parts).Find(key); });
    if (!moment) {
        return;
    }
    RemoveLines(parts, stmt, moment);
    AddLines(parts, stmt, moment, key, actions);
    stmt([&] { ViewOf(parts).SetExpanded(moment, expanded); });
    if (parts.moduleKind == aceVKSTemplate) {
        RedrawParent(parts, stmt, moment);
    }
}

// ---- building ------------------------------------------------------------------------------

String CaptionText(ThreadContext& context, const NodeCaption& caption) {
    return caption.number != 0 ? context.Language().Text(caption.number) + caption.words
                               : caption.words;
}

TreeNode AddNode(EditorParts& parts, const PlannedNode& planned) {
    const String caption = CaptionText(parts.context, planned.caption);
    const String icon(planned.icon);
    if (planned.isSibling) {
        return ViewOf(parts).AddSibling(NodeOf(parts, String(StartKey)), planned.key, caption,
                                        icon);
    }
    if (planned.parent.empty()) {
        return ViewOf(parts).AddRoot(planned.key, caption, icon);
    }
    return ViewOf(parts).AddChild(NodeOf(parts, planned.parent), planned.key, caption, icon);
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
    for (const TreeNode node : stmt([&] { return ViewOf(parts).Nodes(); })) {
        stmt([&] { ViewOf(parts).SetExpanded(node, true); });
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
void CollapseRoots(const EditorParts& parts, const Statements& stmt) {
    TreeNode root = stmt([&] { return NodeOf(parts, String(StartKey)); });
    while (root) {
        stmt([&] { ViewOf(parts).SetExpanded(root, false); });
        root = stmt([&] { return ViewOf(parts).NextSibling(root); });
    }
}

void SelectAndExpand(const EditorParts& parts, const Statements& stmt, const String& key) {
    const TreeNode node = stmt([&] { return NodeOf(parts, key); });
    stmt([&] { ViewOf(parts).Select(node); });
    stmt([&] { ViewOf(parts).SetExpanded(node, true); });
    TreeNode child = stmt([&] { return ViewOf(parts).FirstChild(node); });
    while (child) {
        stmt([&] { ViewOf(parts).SetExpanded(child, true); });
        child = stmt([&] { return ViewOf(parts).NextSibling(child); });
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
    ++parts.builds;
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
        stmt([&] { ViewOf(parts); });
        if (parts.moduleKind != aceEMSAutoTemplate) {
            CollapseRoots(parts, stmt);
        }
        const bool isMember = FindModule(parts.moduleKind) != nullptr;
        const StringView letters = isMember ? SubrangeKeys[parts.moduleKind] : StringView();
        if (Number >= 0 && !letters.empty()) {
            SelectAndExpand(parts, stmt, String(letters) + IntegerText(Number));
        }
    });
}

}  // namespace ace
