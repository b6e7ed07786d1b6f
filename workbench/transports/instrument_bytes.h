/// Texts of the engine as the bytes that instruments get.
#pragma once

#include <string>
#include <string_view>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The text in Windows-1252, one byte a character, so that a character from 0 to 255 that the
/// codepage leaves to Latin-1 is the byte of its number. A character without a byte is error
/// `TransportErrors::CannotSend`, which names it and its place; nothing of the text is sent then.
std::string InstrumentBytes(StringView text);

/// Bytes for people: printable ASCII as it stands, line feed, carriage return, tabulator, backslash
/// and quote as \n \r \t \\ \", any other byte as \x and two hexadecimal digits. No two byte texts
/// look the same.
std::string ReadableBytes(std::string_view bytes);

}  // namespace ace::workbench
