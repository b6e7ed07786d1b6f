#include <ace/core/text.h>
#include <ace/execution/replace_variables.h>

namespace ace {

void ReplaceVariable(ThreadContext& context, const aceVKSVar& variables, std::int32_t index,
                     String& text) {
    if (const String* replacement = std::get_if<String>(&variables.valReplace[index])) {
        ReplaceAll(text, variables.strSearch[index], *replacement);
        return;
    }
    const wchar_t separator = context.Platform().DecimalSeparator();
    const String number = WithPoint(FormatGeneral(variables.valReplace[index], separator));
    ReplaceAll(text, variables.strSearch[index], number);
}

}  // namespace ace
