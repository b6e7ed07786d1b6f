#include <algorithm>

#include <ace/core/text.h>
#include <ace/editor/drag_text.h>

namespace ace {

namespace {

constexpr std::size_t DigitsOfNumber = 4;
constexpr std::size_t LettersOfIcon = 3;
constexpr StringView LineMark = L"ACT:1000";

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

}  // namespace

String DragTextOfKind(std::int32_t kind) {
    return String(DragPrefix) + IntegerText(kind);
}

String DragTextOfLine(const String& icon) {
    return String(LineMark) + L"," + icon;
}

bool IsDragText(StringView text) {
    return text.starts_with(DragPrefix);
}

bool CarriesLine(StringView text) {
    return text.find(LineMark) != StringView::npos;
}

StringView IconOf(StringView text) {
    return text.substr(text.size() - std::min(text.size(), LettersOfIcon));
}

std::int32_t ParseKindNumber(StringView text) {
    constexpr std::size_t MostDigits = 9;
    const std::size_t colon = text.rfind(L':');
    const StringView digits = colon == StringView::npos ? StringView() : text.substr(colon + 1);
    const bool isNumber =
        !digits.empty() && digits.size() <= MostDigits && std::ranges::all_of(digits, IsDigit);
    return isNumber ? ReadRoundedNumber(digits) : -1;
}

std::int32_t DroppedNumber(StringView text) {
    text = text.substr(std::min(text.size(), DragPrefix.size()), DigitsOfNumber);
    const StringView digits = text.substr(0, text.find_first_not_of(L"0123456789"));
    return digits.empty() ? -1 : ReadRoundedNumber(digits);
}

}  // namespace ace
