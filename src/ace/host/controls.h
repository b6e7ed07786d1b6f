/// The controls of a form: small objects that a view draws and a test reads. Each kind has the
/// fields and the acts that make sense for it; boxes that take an input are in inputs.h.
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include <ace/host/mouse.h>

namespace ace {

class Form;
class Container;

/// What a view draws for a control.
enum class ControlKind {
    Label,
    Frame,
    Button,
    Picture,
    CheckBox,
    DropDown,
    OptionGroup,
    TextBox,
    ValueBox,
    FileBox,
    TabStrip
};

/// What every control has; setting a field runs no handler. Positions and sizes are in twips (1440
/// to the inch), and 0 where the form leaves them to the view. A control stands in its parent, or
/// on the form without one, and goes along when that is moved.
struct ControlFields {
    String caption = {};             ///< "&" stands before the letter of the shortcut
    std::int32_t captionNumber = 0;  ///< number of the caption's text; 0 for none
    String toolTip = {};             ///< empty for none
    std::int32_t toolTipNumber = 0;  ///< number of the tool tip's text; 0 for none
    Boolean visible = true;          ///< a hidden control keeps its other fields
    Boolean enabled = true;          ///< the operator can act on it
    float left = 0.0F;               ///< twips from the left edge of the parent
    float top = 0.0F;                ///< twips from the top edge of the parent
    float width = 0.0F;              ///< twips
    float height = 0.0F;             ///< twips
};

/// A handler of a control; none does nothing. What it raises comes out of the act.
using ControlHandler = std::function<void()>;

/// Where a control stands: on the form itself, or in a frame or tab strip of it.
class ControlPlace {
  public:
    ControlPlace(Form& form) : x_form(form) {}
    ControlPlace(Container& parent);

    Form& OfForm() const { return x_form; }
    Container* Parent() const { return x_parent; }

  private:
    Form& x_form;
    Container* x_parent = nullptr;
};

/// One control. It is a member of its form and registers with it; the order in which a form
/// declares its controls is their tab order. An element of a control array carries its index in the
/// name, such as "cmdTestAction(1)".
///
/// The operator's acts and the program's own take the same way in: an act such as `Click` or `Type`
/// sets the field and runs the handler, if there is one, also when nothing changes. It doesn't ask
/// whether the control can be reached, because the program acts on hidden controls too; whoever
/// speaks for the operator asks `IsUsable` first and gives the control the focus.
class Control : public ControlFields {
  public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const String& Name() const { return x_name; }
    ControlKind Kind() const { return x_kind; }
    /// The frame or tab strip in which it stands; null for the form itself.
    const Container* Parent() const { return x_place.Parent(); }
    Form& OfForm() const { return x_place.OfForm(); }

    /// It shows: it is visible, and so is everything in which it stands.
    bool IsShown() const;
    /// The operator can act on it now: it shows, and it is enabled with all in which it stands.
    bool IsUsable() const;
    /// An act on it moves the focus there; not so for labels, frames and pictures.
    bool TakesFocus() const;
    /// The focus goes elsewhere. Only the form calls it.
    virtual void Leave() {}
    /// The focus goes because the form is hidden: no handler runs, now or later, for what was
    /// typed. Only the form calls it.
    virtual void Forget() {}

  protected:
    Control(ControlPlace place, ControlKind kind, String name, ControlFields design);
    static void Run(const ControlHandler& handler) {
        if (handler) {
            handler();
        }
    }

  private:
    String x_name;
    ControlKind x_kind;
    ControlPlace x_place;
};

/// `control` as the class `Kind`; null when it is null or of another kind.
template <class Kind>
Kind* ControlAs(Control* control) {
    return control != nullptr && control->Kind() == Kind::TheKind ? static_cast<Kind*>(control)
                                                                  : nullptr;
}
template <class Kind>
const Kind* ControlAs(const Control* control) {
    return ControlAs<Kind>(const_cast<Control*>(control));
}

/// A control that has controls in it: hidden, it hides them all.
class Container : public Control {
  protected:
    using Control::Control;
};

/// The shape that all kinds share: `Button cmdClose{*this, L"cmdClose", {.caption = L"&OK"}};`
template <ControlKind Of, class Base = Control>
class ControlOf : public Base {
  public:
    static constexpr ControlKind TheKind = Of;
    ControlOf(ControlPlace place, String name, ControlFields design = {})
        : Base(place, Of, std::move(name), std::move(design)) {}
};

/// Words that stand there.
using Label = ControlOf<ControlKind::Label>;
/// A box with its caption around other controls.
using Frame = ControlOf<ControlKind::Frame, Container>;

class Button : public ControlOf<ControlKind::Button> {
  public:
    using ControlOf::ControlOf;
    void Click() const { Run(onClick); }

    ControlHandler onClick;
};

/// A picture that may be pressed. It never has the focus.
class Picture : public ControlOf<ControlKind::Picture> {
  public:
    using ControlOf::ControlOf;
    /// A button of the mouse goes down on it: one of `MouseButtons`. Unless that is all that it
    /// was meant for, the left button is a click too.
    void Press(std::int32_t button) const;
    void Click() const { Run(onClick); }

    /// True when the press is done with, as one that has opened a menu: no click follows.
    std::function<bool(std::int32_t button)> onMouseDown;
    ControlHandler onClick;
};

class CheckBox : public ControlOf<ControlKind::CheckBox> {
  public:
    CheckBox(ControlPlace place, String name, ControlFields design = {}, Boolean isTicked = false)
        : ControlOf(place, std::move(name), std::move(design)), ticked(isTicked) {}
    /// Sets or clears the tick and runs `onClick`.
    void Tick(Boolean newTicked);

    Boolean ticked;
    ControlHandler onClick;
};

/// A list of which one item shows.
class DropDown : public ControlOf<ControlKind::DropDown> {
  public:
    DropDown(ControlPlace place, String name, ControlFields design = {},
             std::vector<String> items = {}, std::int32_t chosen = -1)
        : ControlOf(place, std::move(name), std::move(design)),
          list(std::move(items)),
          listIndex(chosen) {}
    /// Takes other items, of which none is chosen; runs nothing.
    void Fill(std::vector<String> items);
    /// Chooses an item of the list, -1 for none, and runs `onClick`; no such item: error 5.
    void Choose(std::int32_t index);
    /// What shows: the chosen item, or `otherText` while none is chosen.
    const String& Text() const;

    std::vector<String> list;
    std::int32_t listIndex;  ///< the chosen item, from 0; -1 for none
    String otherText;        ///< of a value that the list does not hold; empty for none
    ControlHandler onClick;
};

/// One of the buttons of an option group.
struct Option {
    String caption = {};
    std::int32_t captionNumber = 0;  ///< number of the caption's text; 0 for none
};

/// Buttons of which one is chosen: a button array that counts from 0.
class OptionGroup : public ControlOf<ControlKind::OptionGroup> {
  public:
    OptionGroup(ControlPlace place, String name, ControlFields design = {},
                std::vector<Option> buttons = {}, std::int32_t chosen = -1)
        : ControlOf(place, std::move(name), std::move(design)),
          options(std::move(buttons)),
          index(chosen) {}
    /// Chooses a button and runs `onClick`; no such button: error 5.
    void Choose(std::int32_t newIndex);

    std::vector<Option> options;
    std::int32_t index;  ///< the chosen button, from 0; -1 for none
    ControlHandler onClick;
};

}  // namespace ace
