/// The host's screen for the engine's forms.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

class Form;

/// Shows forms. A view reads title, sizes and controls of the form, and hands the operator's acts
/// back through the form's and the controls' operations; after each act it reads them again.
class IFormHost {
  public:
    virtual ~IFormHost() = default;
    /// Shows `form` above the other windows, centred, and returns once it is hidden. Messages run
    /// meanwhile, and the host may call any operation of any engine from them. The same form can be
    /// shown again from inside: its hiding ends both shows. An error comes out at the caller.
    virtual void ShowModal(Form& form) = 0;
    /// The form has been hidden: its `ShowModal` has to return. Lets no messages run.
    virtual void Hide(Form& form) = 0;
    /// Height in twips of `text` in a label of `width` twips that wraps at words and grows with its
    /// text. Lets no messages run. Whole twips keep a form from drifting when it is shown often.
    virtual float TextHeight(const String& text, float width) = 0;
};

/// Has no screen: a form is closed by its frame as soon as it is shown, and texts have no height.
class DefaultFormHost : public IFormHost {
  public:
    void ShowModal(Form& form) override;
    void Hide(Form&) override {}
    float TextHeight(const String&, float) override { return 0.0F; }
};

}  // namespace ace
