#include <ace/core/field_text.h>
#include <ace/core/text.h>

namespace ace {

namespace {

/// A millisecond's millionth in seconds still shows.
constexpr std::int32_t MostDecimals = 10;

}  // namespace

String FieldText(const ValueFields& box, double value, wchar_t separator) {
    String text = FormatFixed(value, box.decimals.value_or(MostDecimals), separator);
    if (!box.decimals) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == separator) {
            text.pop_back();
        }
    }
    return text;
}

}  // namespace ace
