/// The host's texts by number.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

class Form;

/// Language data. No operation lets messages run.
class ILanguage {
  public:
    virtual ~ILanguage() = default;
    /// The text of `number` in the host's language; a number without a text reads as empty.
    virtual String Text(std::int32_t number) = 0;
    /// Gives the form's title, captions and tool tips the texts of the numbers that it stores. What
    /// has no number, or a number without a text, keeps the words of its design.
    virtual void TranslateForm(Form& form);
};

/// Has no texts.
class DefaultLanguage : public ILanguage {
  public:
    String Text(std::int32_t) override { return {}; }
};

}  // namespace ace
