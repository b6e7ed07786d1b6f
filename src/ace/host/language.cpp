#include <ace/host/forms.h>
#include <ace/host/language.h>

namespace ace {

void ILanguage::TranslateForm(Form& form) {
    const auto translate = [this](String& words, std::int32_t number) {
        if (number == 0) {
            return;
        }
        String text = Text(number);
        if (!text.empty()) {
            words = std::move(text);
        }
    };
    translate(form.title, form.TitleNumber());
    for (Control* control : form.Controls()) {
        translate(control->caption, control->captionNumber);
        translate(control->toolTip, control->toolTipNumber);
        if (auto* const group = ControlAs<OptionGroup>(control)) {
            for (Option& option : group->options) {
                translate(option.caption, option.captionNumber);
            }
        }
    }
}

}  // namespace ace
