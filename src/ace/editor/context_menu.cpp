#include <algorithm>

#include <ace/editor/context_menu.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/places.h>

namespace ace {

namespace {

/// Numbers of the commands.
enum Command : std::int32_t { Edit = 1, Delete, MoveUp, MoveDown, Copy, Paste };

// Numbers of their texts.
constexpr std::int32_t EditText = 9011;
constexpr std::int32_t DeleteText = 9012;
constexpr std::int32_t ClearText = 9013;
constexpr std::int32_t MoveUpText = 9014;
constexpr std::int32_t MoveDownText = 9015;
constexpr std::int32_t CopyText = 9016;
constexpr std::int32_t PasteText = 9017;

/// Lines of kinds that have nothing to edit. Intentional: parking has nothing either.
constexpr StringView NotEdited[] = {L"REC", L"STP", L"STL", L"SGL", L"NBB"};

/// A command, and whether it is offered.
struct Entry {
    Command command;
    std::int32_t text;
    bool isOffered = true;
};

/// Intentional: a kind without a record counts as held.
bool HoldsAction(const EditorParts& parts) {
    const p_Action& held = parts.held.Action;
    return held.ActionType != atWait || !std::holds_alternative<std::monostate>(held.Parameter);
}

/// Intentional: the number of entries is that of the list, the index counts the lines that show.
std::vector<Entry> EntriesOfLine(EditorParts& parts, const Statements& stmt, TreeNode line) {
    const String icon = stmt([&] { return ViewOf(parts).Image(line); });
    std::int32_t count = 0;
    std::int32_t index = 0;
    stmt([&] { GetSelectedList(parts, count, index); });
    return {{Edit, EditText, std::ranges::find(NotEdited, icon) == std::end(NotEdited)},
            {Delete, DeleteText},
            {Copy, CopyText},
            {Paste, PasteText, HoldsAction(parts)},
            {MoveUp, MoveUpText, index > 0},
            {MoveDown, MoveDownText, index < count - 1}};
}

std::vector<Entry> EntriesOfMoment(const EditorParts& parts) {
    return {{Delete, ClearText}, {Paste, PasteText, HoldsAction(parts)}};
}

/// Moves the selected line by so many places.
void MoveSelected(EditorParts& parts, const Statements& stmt, std::int32_t places) {
    Place place;
    stmt([&] { GetPosition(parts, ViewOf(parts).Selected(), place); });
    MoveAction(parts, place.time, place.subrange, place.position - 1, place.position - 1 + places);
}

void FillMenu(EditorParts& parts, const Statements& stmt, TreeNode node) {
    std::vector<MenuItem>& items = parts.usrPopUp.items;
    items.clear();
    const bool isLine = stmt([&] { return IsLineKey(ViewOf(parts).Key(node)); });
    for (const Entry& entry : isLine ? EntriesOfLine(parts, stmt, node) : EntriesOfMoment(parts)) {
        if (entry.isOffered) {
            items.push_back(
                {entry.command, stmt([&] { return parts.context.Language().Text(entry.text); })});
        }
    }
    parts.PickingDevice = false;
    parts.PickingSigPath = false;
}

/// An edit is no statement of whoever asks for it: done again, it would be another edit.
void RunCommand(EditorParts& parts, ActionDialog& dialog, const Statements& stmt,
                std::int32_t command) {
    switch (command) {
        case Edit:
            GetAction(parts);
            dialog.ShowEditor(false);
            break;
        case Delete:
            DeleteAction(parts);
            break;
        case MoveUp:
            MoveSelected(parts, stmt, -1);
            break;
        case MoveDown:
            MoveSelected(parts, stmt, 1);
            break;
        case Copy:
            GetAction(parts);
            break;
        case Paste:
            AddAction(parts, true);
            break;
        default:
            break;
    }
}

}  // namespace

void OpenContextMenu(EditorParts& parts, ActionDialog& dialog, const Statements& stmt) {
    const TreeNode node = stmt([&] { return ViewOf(parts).Selected(); });
    parts.usrPopUp.items.clear();
    if (!node) {
        return;
    }
    FillMenu(parts, stmt, node);
    const std::uint32_t builds = parts.builds;
    const std::optional<MenuItem> chosen =
        stmt([&] { return parts.usrPopUp.PopUp(parts.context.UserDialogs()); });
    const bool isMeant =
        chosen && parts.builds == builds && stmt([&] { return ViewOf(parts).Selected(); }) == node;
    if (isMeant) {
        RunCommand(parts, dialog, stmt, chosen->command);
    }
}

}  // namespace ace
