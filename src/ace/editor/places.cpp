#include <cmath>

#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/editor/places.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr StringView LineKey = L"CHI";
constexpr std::size_t LettersOfKey = 3;

/// A group, and the moment for which it stands.
struct GroupRow {
    StringView key;
    p_PerformTimes time;
    bool hasNumber;
    StringView firstChild;  ///< gives the position, if it is the first
};
constexpr GroupRow Groups[] = {
    {L"SUR", ptEnterSubRange, true, L"ESR"}, {L"EMI", ptBefore, true, L"BEF"},
    {L"TST", ptBeforeTest, true, L"BFT"},    {L"ATL", ptBeforeTest, false, L"BFT"},
    {L"CHA", ptNoGo, true, L"NGO"},
};

/// Of the moments before and after a test only sequences and wireless templates have several.
bool HasNumber(aceModul moduleKind, p_PerformTimes time) {
    const bool isOfTest = time == ptBeforeTest || time == ptAfterTest;
    return !isOfTest || moduleKind == aceTSTemplate || moduleKind == aceVKSTemplate;
}

std::int32_t PlaceAmongSiblings(ITreeControl& tree, TreeNode parent, TreeNode node) {
    std::int32_t place = 1;
    for (TreeNode at = tree.FirstChild(parent); at && at != node; at = tree.NextSibling(at)) {
        ++place;
    }
    return place;
}

void PlaceOfLine(ITreeControl& tree, TreeNode node, Place& place) {
    const TreeNode parent = tree.Parent(node);
    const String key = tree.Key(parent);
    place.time = TimeOfKey(key).value_or(place.time);
    place.subrange = NumberOfKey(key);
    place.position = PlaceAmongSiblings(tree, parent, node);
}

void PlaceOfGroup(ITreeControl& tree, TreeNode node, StringView key, Place& place) {
    for (const GroupRow& group : Groups) {
        if (!key.starts_with(group.key)) {
            continue;
        }
        place.time = group.time;
        if (group.hasNumber) {
            place.subrange = NumberOfKey(key);
        }
        const TreeNode first = tree.FirstChild(node);
        if (first && tree.Key(first).starts_with(group.firstChild)) {
            place.position = tree.ChildCount(first);
        }
    }
}

void FindPosition(EditorParts& parts, TreeNode node, Place& place) {
    ITreeControl& tree = ViewOf(parts);
    const String key = tree.Key(node);
    if (IsLineKey(key)) {
        PlaceOfLine(tree, node, place);
    } else if (const std::optional<p_PerformTimes> time = TimeOfKey(key)) {
        place.time = *time;
        if (HasNumber(parts.moduleKind, *time)) {
            place.subrange = NumberOfKey(key);
        }
        place.position = tree.ChildCount(node);
    } else {
        PlaceOfGroup(tree, node, key, place);
    }
}

bool HasSet(const ModuleLists& lists, const MomentRow& moment, std::int32_t number) {
    return moment.fixed != nullptr || (number >= 0 && number < lists.*moment.numbered->count);
}

}  // namespace

std::int32_t NumberOfKey(StringView key) {
    const double number = ReadNumber(key.substr(std::min(key.size(), LettersOfKey)));
    return RoundToLong(std::trunc(number));
}

String KeyOfMoment(const MomentRow& moment, std::int32_t number) {
    String key(moment.key);
    if (moment.numbered != nullptr) {
        AppendInteger(key, number);
    }
    return key;
}

bool IsLineKey(StringView key) {
    return key.starts_with(LineKey);
}

void GetPosition(EditorParts& parts, TreeNode Node, Place& place) {
    Logged(parts.context, EditorLines(L"GetPosition"), NoMessage,
           [&](const Statements& stmt) { stmt([&] { FindPosition(parts, Node, place); }); });
}

std::optional<ActionList> FindList(EditorParts& parts, p_PerformTimes time, std::int32_t subrange) {
    const MomentRow* const moment = FindMoment(parts.moduleKind, time);
    if (moment == nullptr || !HasSet(parts.lists, *moment, subrange)) {
        return std::nullopt;
    }
    return ListOf(parts.lists, *moment, subrange);
}

}  // namespace ace
