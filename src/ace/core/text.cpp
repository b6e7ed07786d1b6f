#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include <ace/core/text.h>
#include <ace/host/rounding.h>

namespace ace {

namespace {

constexpr bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
constexpr bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

/// How far the number at the start of a text reaches.
struct NumberExtent {
    std::size_t begin = 0;  ///< behind blanks, at the sign if there is one
    std::size_t end = 0;
    bool hasDigits = false;
};

NumberExtent FindNumber(StringView text) {
    NumberExtent extent;
    std::size_t at = 0;
    while (at < text.size() && IsBlank(text[at])) {
        ++at;
    }
    extent.begin = at;
    if (at < text.size() && (text[at] == L'+' || text[at] == L'-')) {
        ++at;
    }
    for (bool pointSeen = false; at < text.size(); ++at) {
        if (IsDigit(text[at])) {
            extent.hasDigits = true;
        } else if (text[at] == L'.' && !pointSeen) {
            pointSeen = true;
        } else {
            break;
        }
    }
    extent.end = at;
    if (extent.hasDigits && at < text.size() && (text[at] == L'E' || text[at] == L'e')) {
        ++at;
        if (at < text.size() && (text[at] == L'+' || text[at] == L'-')) {
            ++at;
        }
        if (at < text.size() && IsDigit(text[at])) {
            while (at < text.size() && IsDigit(text[at])) {
                ++at;
            }
            extent.end = at;
        }
    }
    return extent;
}

/// True when a number that no double can hold is too small rather than too large: its first
/// significant digit stands behind the decimal point once the exponent is applied.
bool IsTiny(const std::string& number) {
    const std::size_t significant = number.find_first_of("123456789");
    const std::size_t exponentAt = number.find_first_of("eE");
    const std::size_t point = std::min(number.find_first_of(".eE"), number.size());
    const double exponent =
        exponentAt == std::string::npos ? 0.0 : std::atof(number.c_str() + exponentAt + 1);
    return static_cast<double>(point) - static_cast<double>(significant) + exponent < 0.0;
}

double ConvertNumber(StringView number) {
    std::string digits(number.size(), '\0');
    std::transform(number.begin(), number.end(), digits.begin(),
                   [](wchar_t c) { return static_cast<char>(c); });
    const char* first = digits.data();
    const char* last = first + digits.size();
    if (*first == '+') {
        ++first;
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (error == std::errc::result_out_of_range) {
        if (IsTiny(digits)) {
            return 0.0;
        }
        Raise(Errors::Overflow);
    }
    return value;
}

/// Most numbers of a settings file are a few plain digits; they need no conversion.
bool TryShortInteger(StringView text, std::int32_t& value) {
    if (text.empty() || text.size() > 9) {
        return false;
    }
    std::int32_t sum = 0;
    for (const wchar_t c : text) {
        if (!IsDigit(c)) {
            return false;
        }
        sum = sum * 10 + (c - L'0');
    }
    value = sum;
    return true;
}

/// A number as digits d1 d2 d3 ... with the meaning 0.d1d2d3... times ten to the `point`.
struct Decimal {
    std::string digits;  ///< without trailing zeros; empty for zero
    int point = 0;
    bool negative = false;
};

/// The decimal that a number in the form 1.234e+05 stands for.
Decimal ReadScientific(std::string_view text, bool negative) {
    const std::size_t exponentAt = text.find('e');
    Decimal decimal;
    decimal.negative = negative;
    for (const char c : text.substr(0, exponentAt)) {
        if (c != '.') {
            decimal.digits += c;
        }
    }
    int exponent = 0;
    const std::size_t sign = text[exponentAt + 1] == '+' ? 2 : 1;  // from_chars takes no plus
    std::from_chars(text.data() + exponentAt + sign, text.data() + text.size(), exponent);
    decimal.point = exponent + 1;
    while (!decimal.digits.empty() && decimal.digits.back() == '0') {
        decimal.digits.pop_back();
    }
    return decimal;
}

/// A double that can be told in 15 digits is told by the shortest text that reads back the same,
/// which is several times faster to make than any other.
Decimal DecimalOf(double value, int significant) {
    char buffer[64];
    char* const last = buffer + sizeof buffer;
    const auto form = std::chars_format::scientific;
    const bool isPrecise = value == 0.0 || std::isnormal(value);
    if (significant == std::numeric_limits<double>::digits10 && isPrecise) {
        const auto end = std::to_chars(buffer, last, std::fabs(value), form);
        const std::string_view shortest(buffer, end.ptr);
        if (shortest.find('e') <= static_cast<std::size_t>(significant) + 1) {  // and the point
            return ReadScientific(shortest, value < 0.0);
        }
    }
    const auto rounded = std::to_chars(buffer, last, std::fabs(value), form, significant - 1);
    return ReadScientific({buffer, rounded.ptr}, value < 0.0);
}

/// Keeps `count` digits and rounds half away from zero.
void KeepDigits(Decimal& decimal, int count) {
    if (count >= static_cast<int>(decimal.digits.size())) {
        return;
    }
    if (count < 0) {
        decimal.digits.clear();
        return;
    }
    const bool up = decimal.digits[static_cast<std::size_t>(count)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(count));
    if (!up) {
        return;
    }
    std::size_t at = decimal.digits.size();
    while (at > 0 && decimal.digits[at - 1] == '9') {
        decimal.digits[--at] = '0';
    }
    if (at > 0) {
        ++decimal.digits[at - 1];
    } else {
        decimal.digits.insert(decimal.digits.begin(), '1');
        ++decimal.point;
    }
}

bool IsZero(const Decimal& decimal) {
    return decimal.digits.find_first_not_of('0') == std::string::npos;
}

/// Digit at a place: 1 is the ones, 2 the tens, 0 the tenths, -1 the hundredths.
wchar_t DigitAt(const Decimal& decimal, int place) {
    const int index = decimal.point - place;
    const bool stands = index >= 0 && index < static_cast<int>(decimal.digits.size());
    return stands ? static_cast<wchar_t>(decimal.digits[static_cast<std::size_t>(index)]) : L'0';
}

void AppendPlain(String& text, const Decimal& decimal, int decimals, wchar_t separator) {
    if (decimal.negative && !IsZero(decimal)) {
        text += L'-';
    }
    for (int place = std::max(decimal.point, 1); place >= 1; --place) {
        text += DigitAt(decimal, place);
    }
    if (decimals > 0) {
        text += separator;
        for (int place = 0; place > -decimals; --place) {
            text += DigitAt(decimal, place);
        }
    }
}

void AppendFixedText(String& text, double value, int significant, int decimals, wchar_t separator) {
    if (!std::isfinite(value)) {
        Raise(Errors::Overflow);
    }
    Decimal decimal = DecimalOf(value, significant);
    KeepDigits(decimal, decimal.point + decimals);
    AppendPlain(text, decimal, decimals, separator);
}

String ExponentText(const Decimal& decimal, wchar_t separator) {
    String text = decimal.negative ? L"-" : L"";
    text += static_cast<wchar_t>(decimal.digits.front());
    if (decimal.digits.size() > 1) {
        text += separator;
        text.append(decimal.digits.begin() + 1, decimal.digits.end());
    }
    const int exponent = decimal.point - 1;
    const String size = std::to_wstring(std::abs(exponent));
    text += exponent < 0 ? L"E-" : L"E+";
    text.append(size.size() < 2 ? 1 : 0, L'0');
    return text + size;
}

String GeneralText(double value, int significant, wchar_t separator) {
    if (std::isnan(value)) {
        return L"NAN";
    }
    if (std::isinf(value)) {
        return value < 0.0 ? L"-INF" : L"INF";
    }
    const Decimal decimal = DecimalOf(value, significant);
    if (decimal.digits.empty()) {
        return L"0";
    }
    constexpr int SmallestPlainPoint = -4;  // 0.00001 is 0.1 times ten to the -4
    if (decimal.point > significant || decimal.point < SmallestPlainPoint) {
        return ExponentText(decimal, separator);
    }
    const int behind = std::max(0, static_cast<int>(decimal.digits.size()) - decimal.point);
    String text;
    AppendPlain(text, decimal, behind, separator);
    return text;
}

constexpr int DoubleDigits = 15;
constexpr int SingleDigits = 7;

struct GeneralFormatter {
    wchar_t separator;
    String operator()(std::monostate) const { return {}; }
    String operator()(Boolean truth) const { return truth ? L"True" : L"False"; }
    String operator()(std::int16_t number) const { return std::to_wstring(number); }
    String operator()(std::int32_t number) const { return std::to_wstring(number); }
    String operator()(float number) const {
        return GeneralText(static_cast<double>(number), SingleDigits, separator);
    }
    String operator()(double number) const { return GeneralText(number, DoubleDigits, separator); }
    String operator()(const String& text) const { return text; }
    String operator()(const DynArray<String>&) const { Raise(Errors::TypeMismatch); }
};

}  // namespace

double ReadNumber(StringView text) {
    std::int32_t value = 0;
    if (TryShortInteger(text, value)) {
        return static_cast<double>(value);
    }
    const NumberExtent extent = FindNumber(text);
    return extent.hasDigits ? ConvertNumber(text.substr(extent.begin, extent.end - extent.begin))
                            : 0.0;
}

double ReadStrictNumber(StringView text) {
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    const NumberExtent extent = FindNumber(text);
    if (!extent.hasDigits || extent.end != text.size()) {
        Raise(Errors::TypeMismatch);
    }
    return ConvertNumber(text.substr(extent.begin, extent.end - extent.begin));
}

std::int32_t ReadRoundedNumber(StringView text) {
    std::int32_t value = 0;
    return TryShortInteger(text, value) ? value : RoundToLong(ReadNumber(text));
}

std::int32_t ReadStrictInteger(StringView text) {
    std::int32_t value = 0;
    return TryShortInteger(text, value) ? value : RoundToLong(ReadStrictNumber(text));
}

bool ReadBooleanText(StringView text) {
    if (EqualNoCase(text, L"true")) {
        return true;
    }
    return !EqualNoCase(text, L"false") && ReadStrictNumber(text) != 0.0;
}

String FormatFixed(double value, int decimals, wchar_t separator) {
    String text;
    AppendFixed(text, value, decimals, separator);
    return text;
}

String FormatFixed(float value, int decimals, wchar_t separator) {
    String text;
    AppendFixedText(text, static_cast<double>(value), SingleDigits, decimals, separator);
    return text;
}

void AppendFixed(String& text, double value, int decimals, wchar_t separator) {
    AppendFixedText(text, value, DoubleDigits, decimals, separator);
}

void AppendInteger(String& text, std::int32_t number) {
    char digits[16];
    const std::to_chars_result end = std::to_chars(std::begin(digits), std::end(digits), number);
    text.append(std::begin(digits), end.ptr);
}

String IntegerText(std::int32_t number) {
    String text;
    AppendInteger(text, number);
    return text;
}

String WithPoint(String number) {
    std::replace(number.begin(), number.end(), L',', L'.');
    return number;
}

String FormatGeneral(const Value& value, wchar_t separator) {
    return std::visit(GeneralFormatter{separator}, value);
}

void ReplaceAll(String& text, StringView search, StringView replacement) {
    if (search.empty()) {
        return;
    }
    for (std::size_t at = text.find(search); at != String::npos;
         at = text.find(search, at + replacement.size())) {
        text.replace(at, search.size(), replacement);
    }
}

}  // namespace ace
