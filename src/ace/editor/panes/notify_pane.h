/// The pane of notifications, questions and comments.
#pragma once

#include <ace/editor/panes/pane.h>

namespace ace {

class NotifyPane : public Pane {
  public:
    NotifyPane(Form& form, EditorParts& parts);

    void Show(const Statements& stmt, Boolean isNew) override;
    std::optional<Refusal> Read(const Statements& stmt) override;
    Control* FirstField() override { return &txtMessage; }
    TextBox* VariableField() override { return &txtMessage; }
    Button* VariableButton() override { return &cb_show_VKSVars; }
    Button* TestButton() override { return &cmdTestAction; }

    Label lblMessage{fraAction, L"lblMessage", pane_grid::CaptionAt(0, L"Message")};
    TextBox txtMessage{fraAction, L"txtMessage", pane_grid::FieldAt(0, 3)};
    Button cb_show_VKSVars{fraAction, L"cb_show_VKSVars(0)", VariableButtonAt(5)};
    CheckBox chkBeep{fraAction, L"chkBeep", pane_grid::LineAt(3, L"Beep")};
    Label lblSoundFile{fraAction, L"lblSoundFile", pane_grid::CaptionAt(4, L"Sound (WAV file)")};
    TextBox txtSoundFile{fraAction, L"txtSoundFile", pane_grid::FieldAt(4)};
    Button cmdSelSound{fraAction, L"cmdSelSound", pane_grid::BesideAt(4, L"...")};
    CheckBox chkSwitchGenerator{fraAction, L"chkSwitchGenerator",
                                pane_grid::LineAt(0, L"Switch Generator off during input")};
    Button cmdTestAction{fraAction, L"cmdTestAction(0)", pane_grid::ButtonAt(5, 0, L"Test")};

  private:
    void ShowFieldsOfKind();
    bool HasMessageOrSound() const;
    void BeepTicked();
    void SelectSound();
    void TakeDroppedSound(const String& file);
};

}  // namespace ace
