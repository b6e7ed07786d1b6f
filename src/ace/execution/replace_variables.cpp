#include <ace/core/text.h>
#include <ace/execution/replace_variables.h>

namespace ace {

void ReplaceVariables(ThreadContext& context, const aceVKSVar& variables, String& text) {
    if (variables.count <= 0) {
        return;
    }
    String replaced = text;
    for (std::int32_t i = 0; i < variables.count; ++i) {
        const Value& value = variables.valReplace[i];
        if (const String* replacement = std::get_if<String>(&value)) {
            ReplaceAll(replaced, variables.strSearch[i], *replacement);
        } else {
            const wchar_t separator = context.Platform().DecimalSeparator();
            ReplaceAll(replaced, variables.strSearch[i],
                       WithPoint(FormatGeneral(value, separator)));
        }
    }
    text.swap(replaced);
}

}  // namespace ace
