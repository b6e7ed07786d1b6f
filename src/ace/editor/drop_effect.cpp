#include <ace/core/action_kinds.h>
#include <ace/core/text.h>
#include <ace/editor/drag_text.h>
#include <ace/editor/drop_effect.h>
#include <ace/editor/places.h>

namespace ace {

namespace {

constexpr std::size_t LettersOfKey = 3;

std::optional<String> CaptionOf(EditorParts& parts, const String& key) {
    const TreeNode node = ViewOf(parts).Find(key);
    return node ? std::optional(ViewOf(parts).Caption(node)) : std::nullopt;
}

/// With the control key alone a line is copied.
std::int32_t EffectOfKeys(std::int32_t shift) {
    return shift == ShiftKeys::Control ? DropEffects::Copy : DropEffects::Move;
}

/// The selected node in relation to the target.
struct Selection {
    String key;
    String parentKey;
    bool isLine = false;
};

/// None when nothing is selected, or a root.
std::optional<Selection> SelectionOf(EditorParts& parts) {
    const TreeNode node = ViewOf(parts).Selected();
    const TreeNode parent = node ? ViewOf(parts).Parent(node) : TreeNode();
    if (!parent) {
        return std::nullopt;
    }
    String key = ViewOf(parts).Key(node);
    const bool isLine = IsLineKey(key);
    return Selection{std::move(key), ViewOf(parts).Key(parent), isLine};
}

/// Between two lines: only within one list may the one take the other's place.
std::int32_t EffectBetweenLines(EditorParts& parts, const Selection& selected, TreeNode target,
                                StringView targetKey) {
    const String targetParent = ViewOf(parts).Key(ViewOf(parts).Parent(target));
    const bool isOfSameList = EqualNoCase(selected.parentKey, targetParent);
    return isOfSameList && selected.key != targetKey ? DropEffects::Move : DropEffects::None;
}

bool IsSameMoment(StringView a, StringView b) {
    return EqualNoCase(a.substr(0, LettersOfKey), b.substr(0, LettersOfKey));
}

std::int32_t EffectByRules(EditorParts& parts, StringView text, std::int32_t shift,
                           TreeNode target) {
    const RuleFacts facts = FactsOf(parts, target);
    if (CarriesLine(text)) {
        return AcceptsLine(parts.moduleKind, IconOf(text), facts.Target(), facts.captions)
                   ? EffectOfKeys(shift)
                   : DropEffects::None;
    }
    return AcceptsDropped(parts.moduleKind, ParseKindNumber(text), facts.Target(), facts.captions)
               ? DropEffects::Copy
               : DropEffects::None;
}

/// Whether a drop could do anything: a line needs a selected line, a kind must be one.
bool CanBeDropped(StringView text, const std::optional<Selection>& selected) {
    return CarriesLine(text) ? selected && selected->isLine
                             : FindActionKind(ParseKindNumber(text)) != nullptr;
}

}  // namespace

TreeNode DefaultNode(EditorParts& parts) {
    const StringView key = parts.moduleKind == aceMonitoring        ? L"NGO0"
                           : parts.moduleKind == aceEMSAutoTemplate ? L"STE0"
                                                                    : L"ETE";
    return ViewOf(parts).Find(String(key));
}

RuleFacts FactsOf(EditorParts& parts, TreeNode node) {
    return {ViewOf(parts).Key(node),
            ViewOf(parts).Caption(node),
            {CaptionOf(parts, L"EFR"), CaptionOf(parts, L"ETE"), CaptionOf(parts, L"LTE")}};
}

bool MayBeAdded(EditorParts& parts, std::int32_t kind, TreeNode node) {
    const RuleFacts facts = FactsOf(parts, node);
    return AcceptsAdded(kind, facts.caption, facts.captions);
}

std::int32_t DropEffectOf(EditorParts& parts, StringView text, std::int32_t shift,
                          TreeNode target) {
    const std::optional<Selection> selected = SelectionOf(parts);
    if (!CanBeDropped(text, selected) || !ReachesList(parts, target)) {
        return DropEffects::None;
    }
    const String targetKey = ViewOf(parts).Key(target);
    if (selected && selected->isLine && IsLineKey(targetKey)) {
        return EffectBetweenLines(parts, *selected, target, targetKey);
    }
    if (selected && IsSameMoment(selected->parentKey, targetKey)) {
        return EffectOfKeys(shift);
    }
    return EffectByRules(parts, text, shift, target);
}

}  // namespace ace
