/// Conversions between numbers and texts, and the few operations on texts. Pure functions: the
/// locale comes in as an argument, never from the C library.
#pragma once

#include <ace/host/value.h>

namespace ace {

// ---- reading -----------------------------------------------------------------------------------

/// Leading blanks are skipped, then sign, digits, one "." and an exponent are taken up to the first
/// character that can't belong to a number. No digits give 0; beyond the range of a double:
/// error 6.
double ReadNumber(StringView text);
/// `ReadNumber`, rounded to 32 bits with halves to the even neighbour; out of range: error 6.
std::int32_t ReadRoundedNumber(StringView text);
/// The whole text must be a number, blanks around it allowed; anything else, the empty text too, is
/// error 13; beyond the range of a double: error 6.
double ReadStrictNumber(StringView text);
/// The same, rounded as above.
std::int32_t ReadStrictInteger(StringView text);
/// A numeric text is true when it differs from 0; the words true and false count in any case; all
/// else is error 13.
bool ReadBooleanText(StringView text);

// ---- writing -----------------------------------------------------------------------------------

/// `value` with exactly `decimals` digits behind `separator` and at least one before it. Rounds
/// half away from zero on the value's first 15 significant digits; what rounds to zero has no sign.
/// Infinite values and those that are no number are error 6.
String FormatFixed(double value, int decimals, wchar_t separator);
/// The same on 7 significant digits.
String FormatFixed(float value, int decimals, wchar_t separator);
/// Appends what `FormatFixed` gives.
void AppendFixed(String& text, double value, int decimals, wchar_t separator);
/// Appends a whole number in plain decimal.
void AppendInteger(String& text, std::int32_t number);
/// A whole number in plain decimal.
String IntegerText(std::int32_t number);
/// Every "," of a formatted number becomes ".", so that it shows a point under every locale.
String WithPoint(String number);
/// The general format: integers plain, a double with up to 15 and a single with up to 7 significant
/// digits and no trailing zeros, as 1E+15 from that many digits on and as 1E-06 below 0.00001;
/// truths as True and False; nothing as the empty text; a text as it stands. An array is error 13.
String FormatGeneral(const Value& value, wchar_t separator);
/// Appends what `FormatGeneral` gives.
void AppendGeneral(String& text, const Value& value, wchar_t separator);

// ---- texts -------------------------------------------------------------------------------------

/// The small letter of A to Z, any other character as it is.
constexpr wchar_t LowerCase(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}
/// Compares without regard to the case of the letters A to Z, whatever the locale.
constexpr bool EqualNoCase(StringView a, StringView b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && LowerCase(a[i]) != LowerCase(b[i])) {
            return false;
        }
    }
    return true;
}
/// A word of a file, which is compared without regard to case. Most stand there as they are
/// written, which is quicker to see.
inline bool IsWord(StringView word, StringView text) {
    return (!text.empty() && text.front() == word.front() && text == word) ||
           EqualNoCase(text, word);
}
/// Replaces every occurrence of `search`, exactly and from left to right; an empty `search`
/// replaces nothing. Allocates only when something is replaced.
void ReplaceAll(String& text, StringView search, StringView replacement);
/// The same from the place on at which `search` was found.
void ReplaceAllFrom(String& text, std::size_t at, StringView search, StringView replacement);

}  // namespace ace
