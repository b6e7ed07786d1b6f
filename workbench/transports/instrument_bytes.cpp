#include "workbench/transports/instrument_bytes.h"

#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";

std::string Hex(std::uint32_t code, std::size_t digits) {
    std::string text;
    for (std::size_t left = digits; left > 0; --left) {
        text += HexDigits[code >> 4 * (left - 1) & 0xF];
    }
    return text;
}

[[noreturn]] void RaiseNoByteFor(wchar_t character, std::size_t place) {
    const std::string code = Hex(static_cast<std::uint32_t>(character), 6);
    throw RunTimeError(TransportErrors::CannotSend,
                       L"character " + std::to_wstring(place) + L" of the command, U+" +
                           FromUtf8(code) + L", is not in Windows-1252; nothing was sent");
}

/// A backslash and the letter behind it in this order, for the characters of the first text.
constexpr std::string_view Escaped = "\n\r\t\\\"";
constexpr std::string_view EscapeLetters = "nrt\\\"";

}  // namespace

std::string InstrumentBytes(StringView text) {
    std::string bytes;
    if (const std::optional<wchar_t> foreign = TryEncode(Encoding::Codepage, text, bytes)) {
        RaiseNoByteFor(*foreign, text.find(*foreign) + 1);
    }
    return bytes;
}

std::string ReadableBytes(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const std::size_t at = Escaped.find(c);
        if (at != std::string_view::npos) {
            text += '\\';
            text += EscapeLetters[at];
        } else if (c >= ' ' && c <= '~') {
            text += c;
        } else {
            text += "\\x" + Hex(static_cast<unsigned char>(c), 2);
        }
    }
    return text;
}

}  // namespace ace::workbench
