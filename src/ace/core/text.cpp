#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include <ace/core/text.h>

namespace ace {

namespace {

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

/// Appends a whole number in plain decimal, with so many of its last digits behind `separator`.
void AppendDigits(String& text, std::uint64_t number, int decimals, wchar_t separator) {
    wchar_t digits[24];
    wchar_t* const end = std::end(digits);
    wchar_t* at = end;
    const auto put = [&] {
        *--at = static_cast<wchar_t>(L'0' + number % 10);
        number /= 10;
    };
    if (decimals > 0) {
        for (int place = 0; place < decimals; ++place) {
            put();
        }
        *--at = separator;
    }
    do {
        put();
    } while (number != 0);
    text.append(at, static_cast<std::size_t>(end - at));
}

/// The number of thousandths, or of less, that `value` is made of, when it is a whole one that the
/// significant digits can tell. Then no digit of it is lost or rounded: a double comes that near to
/// such a number for no other text of so many digits.
bool TryScaled(double value, int decimals, int significant, std::int64_t& scaled) {
    constexpr double Powers[] = {1.0, 10.0, 100.0, 1000.0};
    if (decimals >= static_cast<int>(std::size(Powers))) {
        return false;
    }
    const double product = value * Powers[decimals];
    const double limit = significant == std::numeric_limits<double>::digits10 ? 1e15 : 1e7;
    if (!(product > -limit && product < limit)) {
        return false;
    }
    scaled = static_cast<std::int64_t>(product);
    return static_cast<double>(scaled) == product;
}

/// Appends a number of the scale that `TryScaled` found.
void AppendScaled(String& text, std::int64_t scaled, int decimals, wchar_t separator) {
    if (scaled < 0) {
        text += L'-';
    }
    AppendDigits(text, static_cast<std::uint64_t>(scaled < 0 ? -scaled : scaled), decimals,
                 separator);
}

void AppendFixedText(String& text, double value, int significant, int decimals, wchar_t separator) {
    std::int64_t scaled = 0;
    if (TryScaled(value, decimals, significant, scaled)) {
        AppendScaled(text, scaled, decimals, separator);
        return;
    }
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

/// Most numbers have three decimals at most.
bool TryShortGeneral(String& text, double value, int significant, wchar_t separator) {
    int decimals = 3;
    std::int64_t scaled = 0;
    if (!TryScaled(value, decimals, significant, scaled)) {
        return false;
    }
    while (decimals > 0 && scaled % 10 == 0) {
        scaled /= 10;
        --decimals;
    }
    AppendScaled(text, scaled, decimals, separator);
    return true;
}

void AppendGeneralText(String& text, double value, int significant, wchar_t separator) {
    if (std::isnan(value)) {
        text += L"NAN";
    } else if (std::isinf(value)) {
        text += value < 0.0 ? L"-INF" : L"INF";
    } else if (!TryShortGeneral(text, value, significant, separator)) {  // nor is it 0, then
        constexpr int SmallestPlainPoint = -4;  // 0.00001 is 0.1 times ten to the -4
        const Decimal decimal = DecimalOf(value, significant);
        if (decimal.point > significant || decimal.point < SmallestPlainPoint) {
            text += ExponentText(decimal, separator);
        } else {
            const int behind = std::max(0, static_cast<int>(decimal.digits.size()) - decimal.point);
            AppendPlain(text, decimal, behind, separator);
        }
    }
}

constexpr int DoubleDigits = 15;
constexpr int SingleDigits = 7;

struct GeneralAppender {
    String& text;
    wchar_t separator;
    void operator()(std::monostate) const {}
    void operator()(Boolean truth) const { text += truth ? L"True" : L"False"; }
    void operator()(std::int16_t number) const { AppendInteger(text, number); }
    void operator()(std::int32_t number) const { AppendInteger(text, number); }
    void operator()(float number) const {
        AppendGeneralText(text, static_cast<double>(number), SingleDigits, separator);
    }
    void operator()(double number) const {
        AppendGeneralText(text, number, DoubleDigits, separator);
    }
    void operator()(const String& other) const { text += other; }
    void operator()(const DynArray<String>&) const { Raise(Errors::TypeMismatch); }
};

}  // namespace

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
    AppendScaled(text, number, 0, L'\0');
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
    String text;
    AppendGeneral(text, value, separator);
    return text;
}

void AppendGeneral(String& text, const Value& value, wchar_t separator) {
    std::visit(GeneralAppender{text, separator}, value);
}

void ReplaceAll(String& text, StringView search, StringView replacement) {
    if (!search.empty()) {
        ReplaceAllFrom(text, text.find(search), search, replacement);
    }
}

void ReplaceAllFrom(String& text, std::size_t at, StringView search, StringView replacement) {
    while (at != String::npos) {
        text.replace(at, search.size(), replacement);
        at = text.find(search, at + replacement.size());
    }
}

}  // namespace ace
