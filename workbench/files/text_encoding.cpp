#include "workbench/files/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include <ace/host/run_time_error.h>

#include "workbench/files/file_errors.h"

namespace ace::workbench {

namespace {

static_assert(sizeof(wchar_t) == 4, "one wide character holds any code point");

// Source: the mapping table of Windows-1252 as the Unicode Consortium publishes it (CP1252.TXT).
// The unassigned bytes 81, 8D, 8F, 90 and 9D stand for the control characters of the same number.
constexpr std::array<wchar_t, 32> CodepageUpper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// A byte that is no UTF-8 travels as the lone low surrogate DC00 + byte, the convention of PEP 383.
constexpr std::uint32_t EscapeBase = 0xDC00;
constexpr bool IsEscape(std::uint32_t c) {
    return c >= EscapeBase + 0x80 && c <= EscapeBase + 0xFF;
}
constexpr bool IsSurrogate(std::uint32_t c) {
    return c >= 0xD800 && c <= 0xDFFF;
}

constexpr std::uint8_t Byte(char c) {
    return static_cast<std::uint8_t>(c);
}

/// A character at the start of some bytes; a length of 0 says that there is none.
struct Character {
    std::uint32_t code = 0;
    std::size_t length = 0;
};

/// Shape of a sequence by its first byte: length, smallest code, and the bits of that byte that
/// tell.
struct SequenceForm {
    std::size_t length;
    std::uint32_t smallest;
    std::uint8_t mask;
    std::uint8_t mark;
};
constexpr SequenceForm SequenceForms[] = {
    {1, 0x0, 0x80, 0x00}, {2, 0x80, 0xE0, 0xC0}, {3, 0x800, 0xF0, 0xE0}, {4, 0x10000, 0xF8, 0xF0}};

/// Overlong forms, cut sequences and codes above 10FFFF are no characters.
Character FirstCharacter(std::string_view bytes, bool surrogates) {
    for (const SequenceForm& form : SequenceForms) {
        if ((Byte(bytes.front()) & form.mask) != form.mark) {
            continue;
        }
        if (bytes.size() < form.length) {
            return {};
        }
        std::uint32_t code = Byte(bytes.front()) & static_cast<std::uint8_t>(~form.mask);
        for (std::size_t at = 1; at < form.length; ++at) {
            if ((Byte(bytes[at]) & 0xC0) != 0x80) {
                return {};
            }
            code = code << 6 | (Byte(bytes[at]) & 0x3FU);
        }
        const bool good =
            code >= form.smallest && code <= 0x10FFFF && (surrogates || !IsSurrogate(code));
        return good ? Character{code, form.length} : Character{};
    }
    return {};
}

/// Number of ASCII bytes at the start; eight at a time, because most files hold little else.
std::size_t AsciiPrefix(std::string_view bytes) {
    std::size_t at = 0;
    for (std::uint64_t word = 0; at + sizeof word <= bytes.size(); at += sizeof word) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & 0x8080808080808080U) != 0) {
            break;
        }
    }
    while (at < bytes.size() && Byte(bytes[at]) < 0x80) {
        ++at;
    }
    return at;
}

std::size_t AsciiPrefix(StringView text) {
    const auto isAscii = [](wchar_t c) { return static_cast<std::uint32_t>(c) < 0x80; };
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), isAscii) -
                                    text.begin());
}

bool IsUtf8(std::string_view bytes) {
    for (;;) {
        bytes.remove_prefix(AsciiPrefix(bytes));
        if (bytes.empty()) {
            return true;
        }
        const Character character = FirstCharacter(bytes, false);
        if (character.length == 0) {
            return false;
        }
        bytes.remove_prefix(character.length);
    }
}

void AppendUtf8(std::uint32_t code, std::string& bytes) {
    if (code < 0x80) {
        bytes += static_cast<char>(code);
        return;
    }
    const std::size_t length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    bytes += static_cast<char>(SequenceForms[length - 1].mark | code >> 6 * (length - 1));
    for (std::size_t left = length - 1; left > 0; --left) {
        bytes += static_cast<char>(0x80 | (code >> 6 * (left - 1) & 0x3F));
    }
}

/// Appends the part of `bytes` behind its ASCII start, which the caller has taken.
void DecodeUtf8(std::string_view bytes, bool surrogates, String& text) {
    while (!bytes.empty()) {
        const Character character = FirstCharacter(bytes, surrogates);
        const bool escaped = character.length == 0;
        text += static_cast<wchar_t>(escaped ? EscapeBase + Byte(bytes.front()) : character.code);
        bytes.remove_prefix(escaped ? 1 : character.length);
    }
}

void DecodeCodepage(std::string_view bytes, String& text) {
    for (const char c : bytes) {
        const std::uint8_t byte = Byte(c);
        const bool mapped = byte >= 0x80 && byte < 0xA0;
        text += mapped ? CodepageUpper[byte - 0x80U] : static_cast<wchar_t>(byte);
    }
}

bool AppendCodepage(std::uint32_t code, std::string& bytes) {
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF)) {
        bytes += static_cast<char>(code);
        return true;
    }
    for (std::size_t at = 0; at < CodepageUpper.size(); ++at) {
        if (static_cast<std::uint32_t>(CodepageUpper[at]) == code) {
            bytes += static_cast<char>(0x80 + at);
            return true;
        }
    }
    return false;
}

bool AppendEncoded(Encoding encoding, std::uint32_t code, std::string& bytes) {
    if (code < 0x80) {
        bytes += static_cast<char>(code);
        return true;
    }
    if (encoding == Encoding::Codepage) {
        return AppendCodepage(code, bytes);
    }
    if (encoding == Encoding::Utf8WithBom && IsEscape(code)) {
        bytes += static_cast<char>(code - EscapeBase);
        return true;
    }
    if (code > 0x10FFFF || (IsSurrogate(code) && encoding != Encoding::Utf16)) {
        return false;
    }
    AppendUtf8(code, bytes);
    return true;
}

void AppendUnit(std::uint32_t unit, std::string& units) {
    units += static_cast<char>(unit & 0xFF);
    units += static_cast<char>(unit >> 8);
}

std::uint32_t UnitAt(std::string_view units, std::size_t at) {
    return Byte(units[at]) | static_cast<std::uint32_t>(Byte(units[at + 1])) << 8;
}

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view Utf16Mark = "\xFF\xFE";

}  // namespace

Encoding DetectEncoding(std::string_view bytes) {
    if (bytes.starts_with(Utf8Mark)) {
        return Encoding::Utf8WithBom;
    }
    if (bytes.starts_with(Utf16Mark)) {
        return Encoding::Utf16;
    }
    return IsUtf8(bytes) ? Encoding::Utf8 : Encoding::Codepage;
}

bool LooksWide(std::string_view bytes) {
    using namespace std::string_view_literals;
    const bool beginsWithAscii32 =
        bytes.starts_with("\0\0\0"sv) && bytes.size() > 3 && bytes[3] != '\0';
    return beginsWithAscii32 || bytes.starts_with("\0\0\xFE\xFF"sv) ||
           bytes.starts_with("\xFF\xFE\0\0"sv) || bytes.starts_with("\xFE\xFF"sv) ||
           (bytes.size() >= 2 && (bytes[0] == '\0') != (bytes[1] == '\0'));
}

void RequireKnownText(std::string_view bytes, StringView place) {
    if (LooksWide(bytes)) {
        throw RunTimeError(FileErrors::CannotRead,
                           String(place) +
                               L"the text is 16-bit big endian, 16-bit without byte order mark, or "
                               L"32-bit, and can't be read");
    }
}

StringView NameOf(Encoding encoding) {
    constexpr StringView Names[] = {L"UTF-8", L"UTF-8", L"UTF-16", L"Windows-1252"};
    return Names[static_cast<std::size_t>(encoding)];
}

std::string_view ByteOrderMark(Encoding encoding) {
    constexpr std::string_view Marks[] = {{}, Utf8Mark, Utf16Mark, {}};
    return Marks[static_cast<std::size_t>(encoding)];
}

String Decode(Encoding encoding, std::string_view bytes) {
    const std::size_t ascii = AsciiPrefix(bytes);
    String text(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(ascii));
    bytes.remove_prefix(ascii);
    if (encoding == Encoding::Codepage) {
        DecodeCodepage(bytes, text);
    } else {
        DecodeUtf8(bytes, encoding == Encoding::Utf16, text);
    }
    return text;
}

std::optional<wchar_t> TryEncode(Encoding encoding, StringView text, std::string& bytes) {
    for (;;) {
        const std::size_t ascii = AsciiPrefix(text);
        const std::size_t size = bytes.size();
        bytes.resize(size + ascii);
        std::transform(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(ascii),
                       bytes.begin() + static_cast<std::ptrdiff_t>(size),
                       [](wchar_t c) { return static_cast<char>(c); });
        text.remove_prefix(ascii);
        if (text.empty()) {
            return std::nullopt;
        }
        if (!AppendEncoded(encoding, static_cast<std::uint32_t>(text.front()), bytes)) {
            return text.front();
        }
        text.remove_prefix(1);
    }
}

std::string Utf16ToBytes(std::string_view units) {
    std::string bytes;
    bytes.reserve(units.size() / 2);
    for (std::size_t at = 0; at + 1 < units.size(); at += 2) {
        std::uint32_t code = UnitAt(units, at);
        if (code >= 0xD800 && code <= 0xDBFF && at + 3 < units.size()) {
            const std::uint32_t low = UnitAt(units, at + 2);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
                at += 2;
            }
        }
        AppendUtf8(code, bytes);
    }
    return bytes;
}

std::string BytesToUtf16(std::string_view bytes) {
    std::string units;
    units.reserve(bytes.size() * 2);
    while (!bytes.empty()) {
        const Character character = FirstCharacter(bytes, true);
        if (character.code < 0x10000) {
            AppendUnit(character.code, units);
        } else {
            AppendUnit(0xD800 + ((character.code - 0x10000) >> 10), units);
            AppendUnit(0xDC00 + ((character.code - 0x10000) & 0x3FF), units);
        }
        bytes.remove_prefix(std::max<std::size_t>(character.length, 1));
    }
    return units;
}

std::string ToUtf8(StringView text) {
    std::string bytes;
    for (const wchar_t c : text) {
        if (!AppendEncoded(Encoding::Utf8WithBom, static_cast<std::uint32_t>(c), bytes)) {
            bytes += '?';
        }
    }
    return bytes;
}

String FromUtf8(std::string_view bytes) {
    return Decode(Encoding::Utf8WithBom, bytes);
}

}  // namespace ace::workbench
