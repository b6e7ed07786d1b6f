#include <ace/core/text.h>
#include <ace/execution/replace_variables.h>

namespace ace {

void ReplaceVariable(ThreadContext& context, const aceVKSVar& variables, std::int32_t index,
                     String& text) {
    const Value& value = variables.valReplace[index];
    if (const String* replacement = std::get_if<String>(&value)) {
        ReplaceAll(text, variables.strSearch[index], *replacement);
        return;
    }
    const wchar_t separator = context.Platform().DecimalSeparator();
    const String number = WithPoint(FormatGeneral(value, separator));
    ReplaceAll(text, variables.strSearch[index], number);
}

}  // namespace ace
