#include <utility>

#include "sim/sim_tree.h"

namespace ace::sim {

namespace {

constexpr float PressedAt = 100.0F;     ///< twips from the left
constexpr float FarEnough = 150.0F;     ///< twips that make a drag of a move
constexpr std::int32_t AllEffects = 7;  ///< of a drag that comes from elsewhere

}  // namespace

bool SimTree::Press(const std::optional<String>& key, std::int32_t button, std::int32_t shift) {
    const std::optional<float> y = PlaceOf(key);
    if (y) {
        x_pressedX = PressedAt;
        x_pressedY = *y;
        x_events->MouseDown(button, shift, x_pressedX, x_pressedY);
    }
    return y.has_value();
}

bool SimTree::MoveBy(float x, float y, std::int32_t buttons) {
    if (x_events == nullptr) {
        return false;
    }
    x_events->MouseMoved(buttons, 0, x_pressedX + x, x_pressedY + y);
    return true;
}

bool SimTree::Release(const std::optional<String>& key, std::int32_t button, std::int32_t shift) {
    const std::optional<float> y = PlaceOf(key);
    if (y) {
        x_events->MouseUp(button, shift, PressedAt, *y);
    }
    return y.has_value();
}

bool SimTree::DoubleClick(const std::optional<String>& key) {
    const bool isThere = Press(key) && Release(key) && x_events != nullptr;
    if (isThere) {
        x_events->DoubleClicked();
    }
    return isThere;
}

std::int32_t SimTree::DragOver(const DragData& data, const std::optional<String>& key,
                               std::int32_t shift) {
    const std::optional<float> y = PlaceOf(key);
    if (!y) {
        return DropEffects::None;
    }
    const std::int32_t allowed = x_dragged ? x_allowedEffects : AllEffects;
    std::int32_t effect = allowed;
    x_events->DraggedOver(data, effect, shift, PressedAt, *y);
    return effect & allowed;
}

bool SimTree::DropWith(std::int32_t effect, const DragData& data, const std::optional<String>& key,
                       std::int32_t shift) {
    const std::optional<float> y = PlaceOf(key);
    if (y) {
        x_events->Dropped(data, effect, shift, PressedAt, *y);
    }
    return y.has_value();
}

bool SimTree::Drop(const DragData& data, const std::optional<String>& key, std::int32_t shift) {
    const std::int32_t effect = DragOver(data, key, shift);
    return effect != DropEffects::None && DropWith(effect, data, key, shift);
}

bool SimTree::DropAnyway(const DragData& data, const std::optional<String>& key,
                         std::int32_t shift) {
    return DropWith(DragOver(data, key, shift), data, key, shift);
}

bool SimTree::BeginDrag(const String& from) {
    return Press(from) && MoveBy(FarEnough, 0.0F) && x_dragged.has_value();
}

bool SimTree::EndDrag() {
    const bool isDragging = std::exchange(x_dragged, std::nullopt).has_value();
    if (isDragging && x_events != nullptr) {
        x_events->DragEnded();
    }
    return isDragging;
}

bool SimTree::DragTo(const String& from, const std::optional<String>& to, std::int32_t shift) {
    if (!BeginDrag(from)) {
        return false;
    }
    const DragData data = *x_dragged;
    const bool isDropped = Drop(data, to, shift);
    EndDrag();
    return isDropped;
}

}  // namespace ace::sim
