#include <ace/core/text.h>
#include <ace/editor/field_limits.h>
#include <ace/editor/input_texts.h>
#include <ace/host/forms.h>
#include <ace/host/user_dialogs.h>

namespace ace {

String LimitsText(ThreadContext& context, const ValueBox& box) {
    constexpr int Decimals = 3;
    const wchar_t separator = context.Platform().DecimalSeparator();
    String text = context.Language().Text(InputTexts::ValueOutside);
    ReplaceAll(text, L"yyy", FormatFixed(box.minimum, Decimals, separator));
    ReplaceAll(text, L"xxx", FormatFixed(box.maximum, Decimals, separator));
    return text;
}

void CheckLimits(ThreadContext& context, ValueBox& box) {
    if (!box.IsShown() || box.IsInLimits()) {
        return;
    }
    box.OfForm().SetFocus(box);
    context.UserDialogs().ShowMessageBox(LimitsText(context, box), IUserDialogs::Exclamation,
                                         context.Language().Text(InputTexts::Title));
}

}  // namespace ace
