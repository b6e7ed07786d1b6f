#include <cmath>

#include <ace/core/action_kinds.h>
#include <ace/core/actions_engine_interface.h>
#include <ace/core/held_lists.h>
#include <ace/core/text.h>
#include <ace/editor/context_menu.h>
#include <ace/editor/drag_text.h>
#include <ace/editor/drop_effect.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/interaction.h>
#include <ace/editor/places.h>
#include <ace/editor/tree_plan.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr TraceLines TreeDoubleClick = EditorLines(L"m_View_DblClick");
constexpr TraceLines ListDoubleClick = EditorLines(L"m_List_DblClick");

/// The mouse must go farther than that with its button down to drag something; twips.
constexpr float DragDistanceX = 100.0F;
constexpr float DragDistanceY = 20.0F;

TreeNode SelectedNode(const Statements& stmt, EditorParts& parts) {
    return stmt([&] { return ViewOf(parts).Selected(); });
}

void ClearHighlight(EditorParts& parts) {
    if (parts.m_View != nullptr) {
        parts.m_View->SetDropHighlight({});
    }
}

/// Tells the host that something was dropped.
void RaiseDragComplete(const std::shared_ptr<EngineState>& engine) {
    __aceActionsEngine* const sink = engine ? engine->EventSink : nullptr;
    if (sink != nullptr) {
        sink->DragComplete();
    }
}

// ---- dropping ------------------------------------------------------------------------------

/// A kind on offer is dropped on `target`.
void DropKind(EditorParts& parts, ActionDialog& dialog, const Statements& stmt, std::int32_t number,
              TreeNode target) {
    const ActionKind* const kind = FindActionKind(number);
    if (kind != nullptr && stmt([&] { return ReachesList(parts, target); })) {
        stmt([&] { ViewOf(parts).Select(target); });
        dialog.ShowNew(kind->kind);
    }
}

bool StandInOneMoment(const EditorParts& parts, TreeNode a, TreeNode b) {
    const TreeNode parentOfA = ViewOf(parts).Parent(a);
    const TreeNode parentOfB = ViewOf(parts).Parent(b);
    return parentOfA && parentOfB &&
           EqualNoCase(ViewOf(parts).Key(parentOfA), ViewOf(parts).Key(parentOfB));
}

/// The line takes the place of the target.
void MoveLine(EditorParts& parts, const Statements& stmt, TreeNode line, TreeNode target) {
    Place from;
    stmt([&] { GetPosition(parts, line, from); });
    Place to;
    stmt([&] { GetPosition(parts, target, to); });
    MoveAction(parts, to.time, to.subrange, from.position - 1, to.position - 1);
}

/// The line goes into another list, or to the end of its own. Intentional: the keys decide,
/// whatever effect was shown, and no rule is asked. The line and its copy share the section of
/// their device with the shift key; with the control key the copy gets one of its own. A list that
/// runs is asked first, because a line must not be lost between the two edits; after another error
/// there it is held, and can be pasted. An edit is no statement: done again, it is another edit.
void TransferLine(EditorParts& parts, const Statements& stmt, std::int32_t shift, TreeNode target) {
    stmt([&] { RequireFreeModule(*Required(parts.engine), parts.moduleKind); });
    const String targetKey = stmt([&] { return ViewOf(parts).Key(target); });
    stmt([&] { GetAction(parts); });
    if (shift == 0) {
        DeleteAction(parts);
    } else {
        ForgetRun(parts.held.Action);
    }
    stmt([&] { ViewOf(parts).Select(ViewOf(parts).Find(targetKey)); });
    AddAction(parts, shift == ShiftKeys::Control);
}

/// The selected line is dropped on `target`.
void DropLine(EditorParts& parts, const Statements& stmt, std::int32_t shift, TreeNode target) {
    const TreeNode line = SelectedNode(stmt, parts);
    const bool isLine = line && stmt([&] { return IsLineKey(ViewOf(parts).Key(line)); });
    if (!isLine || line == target || !stmt([&] { return ReachesList(parts, target); })) {
        return;
    }
    if (stmt([&] { return StandInOneMoment(parts, line, target); })) {
        MoveLine(parts, stmt, line, target);
    } else {
        TransferLine(parts, stmt, shift, target);
    }
}

}  // namespace

// ---- the tree ----------------------------------------------------------------------------------

void TreeEvents::DoubleClicked() {
    const KeptAlive alive(x_parts);
    Logged(x_parts.context, TreeDoubleClick, NoMessage, [&](const Statements& stmt) {
        stmt([&] { RequireNoDialog(x_parts); });
        const TreeNode node = SelectedNode(stmt, x_parts);
        if (node && stmt([&] { return IsLineKey(ViewOf(x_parts).Key(node)); })) {
            stmt([&] { GetAction(x_parts); });
            x_dialog.ShowEditor(false);
        }
    });
}

void TreeEvents::MouseDown(std::int32_t, std::int32_t, float x, float y) {
    const KeptAlive alive(x_parts);
    if (const TreeNode node = ViewOf(x_parts).HitTest(x, y)) {
        ViewOf(x_parts).Select(node);
    }
    x_pressedX = x;
    x_pressedY = RoundToLong(static_cast<double>(y));
}

/// Intentional: moments can't be dragged, but what else has no icon of its own can.
void TreeEvents::MouseMoved(std::int32_t buttons, std::int32_t, float x, float y) {
    const KeptAlive alive(x_parts);
    const bool isFar = std::abs(x - x_pressedX) > DragDistanceX ||
                       std::abs(y - static_cast<float>(x_pressedY)) > DragDistanceY;
    if ((buttons & MouseButtons::Left) == 0 || !isFar) {
        return;
    }
    const TreeNode node = ViewOf(x_parts).Selected();
    if (node && ViewOf(x_parts).Image(node) != MomentIcon) {
        ViewOf(x_parts).StartDrag();
    }
}

void TreeEvents::MouseUp(std::int32_t button, std::int32_t, float, float) {
    const KeptAlive alive(x_parts);
    if (button == MouseButtons::Right) {
        Guarded(x_parts.context, [&](const Statements& stmt) {
            stmt([&] { RequireNoDialog(x_parts); });
            OpenContextMenu(x_parts, x_dialog, stmt);
        });
    }
}

void TreeEvents::DragStarted(DragData& data, std::int32_t& allowedEffects) {
    const KeptAlive alive(x_parts);
    allowedEffects = DropEffects::Copy | DropEffects::Move | DropEffects::Link;
    data = {};
    if (const TreeNode node = ViewOf(x_parts).Selected()) {
        data.text = DragTextOfLine(ViewOf(x_parts).Image(node));
    }
}

/// Beside the nodes the last target stays.
void TreeEvents::DraggedOver(const DragData& data, std::int32_t& effect, std::int32_t shift,
                             float x, float y) {
    effect = DropEffects::None;
    if (!data.text || !IsDragText(*data.text)) {
        return;
    }
    const KeptAlive alive(x_parts);
    Guarded(x_parts.context, [&](const Statements& stmt) {
        TreeNode target = stmt([&] { return ViewOf(x_parts).HitTest(x, y); });
        if (!target) {
            target = stmt([&] { return ViewOf(x_parts).DropHighlight(); });
        }
        if (!target) {
            target = stmt([&] { return DefaultNode(x_parts); });
        }
        if (target) {
            stmt([&] { ViewOf(x_parts).SetDropHighlight(target); });
            effect = stmt([&] { return DropEffectOf(x_parts, *data.text, shift, target); });
        }
    });
}

void TreeEvents::Dropped(const DragData& data, std::int32_t&, std::int32_t shift, float, float) {
    if (!data.text || !IsDragText(*data.text)) {
        return;
    }
    const KeptAlive alive(x_parts);
    const std::shared_ptr<EngineState> engine = x_parts.engine;
    const String text = *data.text;
    Guarded(x_parts.context, [&](const Statements& stmt) {
        const TreeNode target = stmt([&] { return ViewOf(x_parts).DropHighlight(); });
        stmt([&] { RequireNoDialog(x_parts); });
        const std::int32_t number = DroppedNumber(text);
        if (target && number == LineNumber) {
            DropLine(x_parts, stmt, shift, target);
        } else if (target) {
            DropKind(x_parts, x_dialog, stmt, number, target);
        }
        stmt([&] { RaiseDragComplete(engine); });
    });
}

void TreeEvents::DragEnded() {
    ClearHighlight(x_parts);
}

// ---- the list ----------------------------------------------------------------------------------

void ListEvents::DoubleClicked() {
    const KeptAlive alive(x_parts);
    Logged(x_parts.context, ListDoubleClick, NoMessage, [&](const Statements& stmt) {
        stmt([&] { RequireNoDialog(x_parts); });
        const std::optional<String> item = stmt([&] { return PaletteOf(x_parts).Selected(); });
        const ActionKind* const kind = item ? FindActionKind(ParseKindNumber(*item)) : nullptr;
        if (kind == nullptr) {
            return;
        }
        TreeNode node = SelectedNode(stmt, x_parts);
        if (!node) {
            node = stmt([&] { return DefaultNode(x_parts); });
            if (!node) {
                return;
            }
            stmt([&] { ViewOf(x_parts).Select(node); });
        }
        const bool isAccepted = stmt(
            [&] { return ReachesList(x_parts, node) && MayBeAdded(x_parts, kind->kind, node); });
        if (isAccepted) {
            x_dialog.ShowNew(kind->kind);
        }
    });
}

void ListEvents::DragStarted(DragData& data) {
    data = {PaletteOf(x_parts).Selected()};
}

void ListEvents::DragEnded() {
    ClearHighlight(x_parts);
}

}  // namespace ace
