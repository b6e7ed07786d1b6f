#include <algorithm>
#include <charconv>
#include <cstdlib>

#include <ace/core/text.h>
#include <ace/host/checked_numbers.h>

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

/// As are most others, with a point among them. A whole number of 15 digits and a power of ten up
/// to that are exact in a double, so that their quotient is the nearest one to the number.
bool TryShortDecimal(StringView text, double& value) {
    constexpr int MostDigits = 15;
    constexpr double Powers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    std::int64_t number = 0;
    int digits = 0;
    int whole = -1;  // digits before the point; -1 while there is none
    for (const wchar_t c : text) {
        if (IsDigit(c) && digits < MostDigits) {
            number = number * 10 + (c - L'0');
            ++digits;
        } else if (c == L'.' && whole < 0) {
            whole = digits;
        } else {
            return false;
        }
    }
    value = static_cast<double>(number) / Powers[whole < 0 ? 0 : digits - whole];
    return digits > 0;
}

}  // namespace

double ReadNumber(StringView text) {
    double value = 0.0;
    if (TryShortDecimal(text, value)) {
        return value;
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

}  // namespace ace
