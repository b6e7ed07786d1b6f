/// Forms without a toolkit: plain objects whose controls are members. The view holds no decision;
/// after each act it reads all controls again.
#pragma once

#include <ace/host/form_host.h>
#include <ace/host/inputs.h>

namespace ace {

/// Numbers of the keys that forms answer to.
namespace Keys {
inline constexpr std::int32_t Escape = 27;
}

/// A dialog of fixed size. A derived form declares its controls and gives them handlers.
class Form {
  public:
    /// `width` and `height` are those of the client area at design, in twips; `titleNumber` is the
    /// number of the title's text, 0 for none.
    Form(String name, std::int32_t titleNumber, float width, float height);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    const String& Name() const { return x_name; }
    std::int32_t TitleNumber() const { return x_titleNumber; }
    /// The controls in their tab order.
    const std::vector<Control*>& Controls() const { return x_controls; }
    /// The control called `name`, owned by the form; null when there is none.
    Control* Find(StringView name) const;
    /// The same as the class of its kind; null when it is of another kind.
    template <class Kind>
    Kind* Find(StringView name) const {
        return ControlAs<Kind>(Find(name));
    }

    /// Runs the load handler, once in the form's life. A load that failed is tried again.
    void Load();
    /// Loads the form and shows it through `host`; returns when it is hidden. Messages run
    /// meanwhile, and the owner keeps the form alive. Shown again from inside, the form answers
    /// both calls at once: hiding ends them all.
    void ShowModal(IFormHost& host);
    /// Takes a shown form off the screen; its controls keep what they hold. Nothing has the focus
    /// then, and no leave handler runs, so that a dialog which is cancelled takes nothing over, not
    /// even later.
    void Hide();
    bool IsShown() const { return x_host != nullptr; }

    /// The operator presses a key, whatever control has the focus.
    void PressKey(std::int32_t key) { KeyPressed(key); }
    /// The operator closes the window by its frame.
    void CloseByFrame() { FrameClosed(); }

    /// Gives the focus to `control`, a control of this form. The one that had it runs its leave
    /// handler, and sees the focus gone already; nothing runs when it stays where it is. Before the
    /// form is shown it tells the view where to begin.
    void SetFocus(Control& control);
    /// Nothing has the focus then, and no leave handler runs, now or later.
    void GiveUpFocus();
    /// The control that has the focus; null at first, and whenever the form has been hidden.
    Control* Focus() const { return x_focus; }

    String title;
    float width;   ///< of the client area, twips
    float height;  ///< of the client area, twips

  protected:
    /// The load handler.
    virtual void Loaded() {}
    virtual void KeyPressed(std::int32_t) {}
    /// What closing by the frame does; hides the form unless a form has another answer.
    virtual void FrameClosed() { Hide(); }

  private:
    friend class Control;

    String x_name;
    std::int32_t x_titleNumber;
    std::vector<Control*> x_controls;
    Control* x_focus = nullptr;
    IFormHost* x_host = nullptr;  ///< while shown
    bool x_isLoaded = false;
};

}  // namespace ace
