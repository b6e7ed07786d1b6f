#include <algorithm>
#include <cmath>
#include <span>

#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/editor/places.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr const wchar_t* LineKey = L"CHI";
constexpr std::size_t LettersOfKey = 3;

using Times = std::span<const p_PerformTimes>;

constexpr p_PerformTimes OfSubrange[] = {ptEnterSubRange, ptLeaveSubrange};
constexpr p_PerformTimes OfChannel[] = {ptTrigger, ptNoGo, ptGo};

/// A group, the moment for which it stands, and those that are cleared with it.
struct GroupRow {
    StringView key;
    p_PerformTimes time;
    bool hasNumber;
    StringView firstChild;  ///< gives the position, if it is the first
    Times cleared = {};
};
constexpr GroupRow Groups[] = {
    {L"SUR", ptEnterSubRange, true, L"ESR", OfSubrange},
    {L"EMI", ptBefore, true, L"BEF"},
    {L"TST", ptBeforeTest, true, L"BFT"},
    {L"ATL", ptBeforeTest, false, L"BFT"},
    {L"CHA", ptNoGo, true, L"NGO", OfChannel},
};

/// Moments that are not cleared.
constexpr StringView NotCleared[] = {L"BSA", L"ASA"};

const GroupRow* FindGroup(StringView key) {
    const auto* const row = std::ranges::find_if(
        Groups, [&](const GroupRow& group) { return key.starts_with(group.key); });
    return row != std::end(Groups) ? row : nullptr;
}

/// Of the moments before and after a test only sequences and wireless templates have several.
bool HasNumber(aceModul moduleKind, p_PerformTimes time) {
    const bool isOfTest = time == ptBeforeTest || time == ptAfterTest;
    return !isOfTest || moduleKind == aceTSTemplate || moduleKind == aceVKSTemplate;
}

std::int32_t PlaceAmongSiblings(const EditorParts& parts, TreeNode parent, TreeNode node) {
    std::int32_t place = 1;
    for (TreeNode at = ViewOf(parts).FirstChild(parent); at && at != node;
         at = ViewOf(parts).NextSibling(at)) {
        ++place;
    }
    return place;
}

void PlaceOfLine(const EditorParts& parts, TreeNode node, Place& place) {
    const TreeNode parent = ViewOf(parts).Parent(node);
    const String key = ViewOf(parts).Key(parent);
    place.time = TimeOfKey(key).value_or(place.time);
    place.subrange = NumberOfKey(key);
    place.position = PlaceAmongSiblings(parts, parent, node);
}

void PlaceOfGroup(const EditorParts& parts, TreeNode node, StringView key, Place& place) {
    const GroupRow* const group = FindGroup(key);
    if (group == nullptr) {
        return;
    }
    place.time = group->time;
    if (group->hasNumber) {
        place.subrange = NumberOfKey(key);
    }
    const TreeNode first = ViewOf(parts).FirstChild(node);
    if (first && ViewOf(parts).Key(first).starts_with(group->firstChild)) {
        place.position = ViewOf(parts).ChildCount(first);
    }
}

void FindPosition(EditorParts& parts, TreeNode node, Place& place) {
    const String key = ViewOf(parts).Key(node);
    if (IsLineKey(key)) {
        PlaceOfLine(parts, node, place);
    } else if (const std::optional<p_PerformTimes> time = TimeOfKey(key)) {
        place.time = *time;
        if (HasNumber(parts.moduleKind, *time)) {
            place.subrange = NumberOfKey(key);
        }
        place.position = ViewOf(parts).ChildCount(node);
    } else {
        PlaceOfGroup(parts, node, key, place);
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

String KeyOfLine(std::int32_t index, const String& momentKey) {
    return LineKey + IntegerText(index) + momentKey;
}

bool IsLineKey(StringView key) {
    return key.starts_with(LineKey);
}

std::vector<p_PerformTimes> ClearedWith(StringView key) {
    if (const GroupRow* const group = FindGroup(key)) {
        return {group->cleared.begin(), group->cleared.end()};
    }
    const bool isKept =
        std::ranges::any_of(NotCleared, [&](StringView kept) { return key.starts_with(kept); });
    const std::optional<p_PerformTimes> time = TimeOfKey(key);
    return time && !isKept ? std::vector{*time} : std::vector<p_PerformTimes>();
}

void GetPosition(EditorParts& parts, TreeNode Node, Place& place) {
    Logged(parts.context, EditorLines(L"GetPosition"), NoMessage,
           [&](const Statements& stmt) { stmt([&] { FindPosition(parts, Node, place); }); });
}

bool ReachesList(EditorParts& parts, TreeNode node) {
    Place place;
    FindPosition(parts, node, place);
    return FindList(parts, place.time, place.subrange).has_value();
}

std::optional<ActionList> FindList(EditorParts& parts, p_PerformTimes time, std::int32_t subrange) {
    const MomentRow* const moment = FindMoment(parts.moduleKind, time);
    if (moment == nullptr || !HasSet(parts.lists, *moment, subrange)) {
        return std::nullopt;
    }
    return ListOf(parts.lists, *moment, subrange);
}

}  // namespace ace
