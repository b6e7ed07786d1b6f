/// Encodings of the workbench's files: which one a file has, and texts to and from its bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// Encodings in which settings files are found.
enum class Encoding {
    Utf8,         ///< no byte order mark; pure ASCII counts as this
    Utf8WithBom,  ///< bytes that are no UTF-8 are kept as they stand
    Utf16,        ///< little endian, with byte order mark
    Codepage,     ///< Windows-1252; its five unassigned bytes are the characters of the same number
};

/// The encoding of a file that begins with, or consists of, `bytes`: by its byte order mark,
/// otherwise UTF-8 when all of it is valid, otherwise the codepage.
Encoding DetectEncoding(std::string_view bytes);
/// 16-bit text that is big endian or has no byte order mark, and 32-bit text, as its first bytes
/// tell: nothing of it would be recognised.
bool LooksWide(std::string_view bytes);
/// Refuses it: error `FileErrors::CannotRead`, its description behind `place`.
void RequireKnownText(std::string_view bytes, StringView place = {});
/// Name of the encoding for messages.
StringView NameOf(Encoding encoding);
/// The byte order mark that opens a file of the encoding; empty for those without.
std::string_view ByteOrderMark(Encoding encoding);

/// The text in `bytes`. For `Utf16` the bytes are those of `Utf16ToBytes`. Every byte comes back
/// from `TryEncode` as it was.
String Decode(Encoding encoding, std::string_view bytes);
/// Appends the bytes of `text`. The answer is the first character that the encoding can't hold;
/// `bytes` is then of no use.
std::optional<wchar_t> TryEncode(Encoding encoding, StringView text, std::string& bytes);

/// 16-bit units, little endian, as a byte text in which ASCII is one byte a character, so that line
/// ends, brackets and "=" can be looked for. Single halves of a pair are kept. Takes whole units.
std::string Utf16ToBytes(std::string_view units);
/// The way back.
std::string BytesToUtf16(std::string_view bytes);

/// UTF-8 for the outside world (file names, terminal, trace file) and back. Bytes that are no UTF-8
/// survive both ways; characters that UTF-8 can't hold become question marks.
std::string ToUtf8(StringView text);
String FromUtf8(std::string_view bytes);

}  // namespace ace::workbench
