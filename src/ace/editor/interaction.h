/// What the mouse does in the editor's two controls.
#pragma once

#include <ace/editor/action_dialog.h>

namespace ace {

/// The acts on the tree of moments and lines. What they change, the edit operations change. While
/// an action is edited, in a dialog that keeps the operator from both controls, all acts that would
/// change something or open it again are error 10.
class TreeEvents : public ITreeEvents {
  public:
    TreeEvents(EditorParts& parts, ActionDialog& dialog) : x_parts(parts), x_dialog(dialog) {}

    void DoubleClicked() override;
    void MouseDown(std::int32_t button, std::int32_t shift, float x, float y) override;
    void MouseMoved(std::int32_t buttons, std::int32_t shift, float x, float y) override;
    void MouseUp(std::int32_t button, std::int32_t shift, float x, float y) override;
    void DragStarted(DragData& data, std::int32_t& allowedEffects) override;
    void DraggedOver(const DragData& data, std::int32_t& effect, std::int32_t shift, float x,
                     float y) override;
    void Dropped(const DragData& data, std::int32_t& effect, std::int32_t shift, float x,
                 float y) override;
    void DragEnded() override;
    void ControlGone() noexcept override { x_parts.m_View = nullptr; }

  private:
    EditorParts& x_parts;
    ActionDialog& x_dialog;
    float x_pressedX = 0.0F;      ///< where the mouse went down last, twips
    std::int32_t x_pressedY = 0;  ///< in whole ones
};

/// The acts on the list of kinds.
class ListEvents : public IListEvents {
  public:
    ListEvents(EditorParts& parts, ActionDialog& dialog) : x_parts(parts), x_dialog(dialog) {}

    void DoubleClicked() override;
    void DragStarted(DragData& data) override;
    void DragEnded() override;
    void ControlGone() noexcept override { x_parts.m_List = nullptr; }

  private:
    EditorParts& x_parts;
    ActionDialog& x_dialog;
};

}  // namespace ace
