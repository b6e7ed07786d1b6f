#include <ace/core/change_flag.h>
#include <ace/core/operation.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/list_edits.h>
#include <ace/editor/moment_tree.h>
#include <ace/editor/places.h>

namespace ace {

namespace {

TreeNode SelectedNode(const Statements& stmt, EditorParts& parts) {
    return stmt([&] { return ViewOf(parts).Selected(); });
}

Place PlaceOf(const Statements& stmt, EditorParts& parts, TreeNode node) {
    Place place;
    stmt([&] { GetPosition(parts, node, place); });
    return place;
}

Place SelectedPlace(const Statements& stmt, EditorParts& parts) {
    return PlaceOf(stmt, parts, SelectedNode(stmt, parts));
}

std::optional<ActionList> ListAt(const Statements& stmt, EditorParts& parts, const Place& place) {
    return stmt([&] { return FindList(parts, place.time, place.subrange); });
}

/// The entry of a line.
p_Action& EntryAt(const ActionList& list, const Place& place) {
    return list.actions[place.position - 1];
}

void Show(const Statements& stmt, EditorParts& parts, const Place& place, const ActionList& list,
          bool isExpanded) {
    stmt([&] { DisplayTree(parts, place.time, list.actions, isExpanded, place.subrange); });
}

void MarkChanged(const Statements& stmt, const EditorParts& parts) {
    stmt([&] { SetChange(*Required(parts.engine), true); });
}

// ---- deleting ------------------------------------------------------------------------------

void Clear(const Statements& stmt, EditorParts& parts, StringView key) {
    bool isCleared = false;
    for (const p_PerformTimes time : stmt([&] { return ClearedWith(key); })) {
        const Place place{time, stmt([&] { return NumberOfKey(key); }), 0};
        if (const std::optional<ActionList> list = ListAt(stmt, parts, place)) {
            ClearEntries(*list);
            Show(stmt, parts, place, *list, false);
            isCleared = true;
        }
    }
    if (isCleared) {
        MarkChanged(stmt, parts);
    }
}

void DeleteLine(const Statements& stmt, EditorParts& parts, TreeNode line) {
    const Place place = PlaceOf(stmt, parts, line);
    if (const std::optional<ActionList> list = ListAt(stmt, parts, place)) {
        RemoveEntry(stmt, *list, place.position - 1);
        Show(stmt, parts, place, *list, true);
        MarkChanged(stmt, parts);
    }
}

/// Runs `body` as a traced operation on the list of the selected node, where it has one.
template <class Body>
void OnSelectedList(EditorParts& parts, StringView procedure, Body&& body) {
    WorkAlone(parts, procedure, [&](const Statements& stmt) {
        const Place place = SelectedPlace(stmt, parts);
        if (const std::optional<ActionList> list = ListAt(stmt, parts, place)) {
            body(stmt, place, *list);
        }
    });
}

}  // namespace

void AddAction(EditorParts& parts, Boolean NewSection) {
    OnSelectedList(parts, L"AddAction",
                   [&](const Statements& stmt, const Place& place, const ActionList& list) {
                       const std::shared_ptr<EngineState> engine =
                           stmt([&] { return Required(parts.engine); });
                       InsertEntry(stmt, *engine, parts.held, list, place.position, NewSection);
                       Show(stmt, parts, place, list, true);
                       MarkChanged(stmt, parts);
                   });
}

void ModifyAction(EditorParts& parts) {
    OnSelectedList(parts, L"ModifyAction",
                   [&](const Statements& stmt, const Place& place, const ActionList& list) {
                       stmt([&] { ChangeAction(parts, EntryAt(list, place)); });
                       Show(stmt, parts, place, list, true);
                   });
}

void ChangeAction(EditorParts& parts, p_Action& Entry) {
    Logged(parts.context, EditorLines(L"ChangeAction"), NoMessage, [&](const Statements& stmt) {
        const bool differs = stmt(
            [&] { return Differs(parts.context, parts.held, Entry, parts.DeviceSettingsChanged); });
        if (differs) {
            stmt([&] { Entry = ActionFromRecords(parts.held); });
            MarkChanged(stmt, parts);
        }
    });
}

void DeleteAction(EditorParts& parts) {
    WorkAlone(parts, L"DeleteAction", [&](const Statements& stmt) {
        const TreeNode node = SelectedNode(stmt, parts);
        const String key = stmt([&] { return ViewOf(parts).Key(node); });
        if (IsLineKey(key)) {
            DeleteLine(stmt, parts, node);
        } else {
            Clear(stmt, parts, key);
        }
    });
}

void MoveAction(EditorParts& parts, p_PerformTimes PerformTime, std::int32_t Subrange,
                std::int32_t From, std::int32_t To) {
    WorkAlone(parts, L"MoveAction", [&](const Statements& stmt) {
        const Place place{PerformTime, Subrange, 0};
        if (const std::optional<ActionList> list = ListAt(stmt, parts, place)) {
            MoveEntry(stmt, *list, From, To);
            Show(stmt, parts, place, *list, true);
            MarkChanged(stmt, parts);
        }
    });
}

void GetAction(EditorParts& parts) {
    OnSelectedList(parts, L"GetAction",
                   [&](const Statements& stmt, const Place& place, const ActionList& list) {
                       stmt([&] { Hold(parts.held, EntryAt(list, place)); });
                   });
}

void GetSelectedList(EditorParts& parts, std::int32_t& Count, std::int32_t& Index) {
    OnSelectedList(parts, L"GetSelectedList",
                   [&](const Statements&, const Place& place, const ActionList& list) {
                       Count = list.count;
                       Index = place.position - 1;
                   });
}

}  // namespace ace
