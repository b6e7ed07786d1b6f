/// The controls of a form: small records that a view draws and a test reads.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace {

class Form;

/// What a view draws for a control.
enum class ControlKind { Label, Button, TextBox, CheckBox, DropDown, Picture };

/// What can be read and set on a control; setting a field runs no handler. A kind uses the fields
/// that make sense for it. Positions and sizes are in twips (1440 to the inch) inside the form, and
/// 0 where the form leaves them to the view.
struct ControlFields {
    String caption = {};             ///< "&" stands before the letter of the shortcut
    std::int32_t captionNumber = 0;  ///< number of the caption's text; 0 for none
    String toolTip = {};             ///< empty for none
    std::int32_t toolTipNumber = 0;  ///< number of the tool tip's text; 0 for none
    String text = {};                ///< what a text box holds; lines end with CR LF
    Boolean ticked = false;          ///< state of a check box
    std::vector<String> list = {};   ///< items of a drop-down list
    std::int32_t listIndex = -1;     ///< the chosen item, from 0; -1 for none
    Boolean visible = true;          ///< a hidden control keeps its other fields
    Boolean enabled = true;          ///< the operator can act on it
    float left = 0.0F;               ///< twips from the form's left edge
    float top = 0.0F;                ///< twips from the form's top edge
    float width = 0.0F;              ///< twips
    float height = 0.0F;             ///< twips
};

/// One control. It is a member of its form and registers with it; the order in which a form
/// declares its controls is their tab order. An element of a control array carries its index in the
/// name, such as "cmdTestAction(1)".
///
/// The operator's acts and the program's own take the same way in: `Click`, `Choose`, `Type` and
/// `Tick` set the field and run the handler, if there is one, also when nothing changes. They don't
/// ask whether the control is visible and enabled, because the program acts on hidden controls too;
/// whoever speaks for the operator asks `IsUsable` first and gives the control the focus. Errors of
/// a handler come out.
class Control : public ControlFields {
  public:
    Control(Form& form, ControlKind kind, String name, ControlFields design);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const String& Name() const { return x_name; }
    ControlKind Kind() const { return x_kind; }
    /// The operator can act on it now.
    bool IsUsable() const { return visible && enabled; }

    /// Runs `onClick`.
    void Click() const { Run(onClick); }
    /// Chooses an item of the list, -1 for none, and runs `onClick`; no such item: error 5.
    void Choose(std::int32_t index);
    /// Puts `newText` into the control and runs `onChange`.
    void Type(String newText);
    /// Sets or clears the tick and runs `onClick`.
    void Tick(Boolean newTicked);
    /// Runs `onLeave`; the form calls it when the focus goes elsewhere.
    void Leave() const { Run(onLeave); }

    std::function<void()> onClick;   ///< for `Click`, `Choose` and `Tick`
    std::function<void()> onChange;  ///< for `Type`
    std::function<void()> onLeave;   ///< for the loss of the focus

  private:
    static void Run(const std::function<void()>& handler) {
        if (handler) {
            handler();
        }
    }

    String x_name;
    ControlKind x_kind;
};

/// A control of a fixed kind: `Button cmdClose{*this, L"cmdClose", {.caption = L"&OK"}};`
template <ControlKind TheKind>
class ControlOf : public Control {
  public:
    ControlOf(Form& form, String name, ControlFields design = {})
        : Control(form, TheKind, std::move(name), std::move(design)) {}
};
using Label = ControlOf<ControlKind::Label>;
using Button = ControlOf<ControlKind::Button>;
using TextBox = ControlOf<ControlKind::TextBox>;
using CheckBox = ControlOf<ControlKind::CheckBox>;
using DropDown = ControlOf<ControlKind::DropDown>;
using Picture = ControlOf<ControlKind::Picture>;

}  // namespace ace
