#include "workbench/transports/instrument_bytes.h"

#include "support/file_fixture.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

TEST(InstrumentBytes, EachCharacterIsOneByteOfWindows1252) {
    EXPECT_EQ(InstrumentBytes(L"*RST\r\n"), "*RST\r\n");
    EXPECT_EQ(InstrumentBytes(L"\x00B5\x00DF\x20AC\x2013"), "\xB5\xDF\x80\x96");
    EXPECT_EQ(InstrumentBytes(String(1, L'\0')), std::string(1, '\0'));
    EXPECT_EQ(InstrumentBytes(L""), "");
}

TEST(InstrumentBytes, ACharacterWithoutAByteIsAnErrorThatNamesItAndItsPlace) {
    const RunTimeError error = ErrorIn([] { InstrumentBytes(L"5 \x2126"); });
    EXPECT_EQ(error.Number(), TransportErrors::CannotSend);
    EXPECT_EQ(error.Description(),
              L"character 3 of the command, U+002126, is not in Windows-1252; nothing was sent");
}

TEST(ReadableBytes, PrintableAsciiStandsAsItIs) {
    EXPECT_EQ(ReadableBytes("FREQ 1.5E8,0~"), "FREQ 1.5E8,0~");
}

TEST(ReadableBytes, WhatCannotBeSeenIsEscaped) {
    EXPECT_EQ(ReadableBytes("a\n\r\t\\\"z"), R"(a\n\r\t\\\"z)");
    EXPECT_EQ(ReadableBytes(std::string("\0\x1F\x7F\x80\xFF", 5)), R"(\x00\x1F\x7F\x80\xFF)");
}

TEST(ReadableBytes, BytesThatLookLikeAnEscapeStayApartFromOne) {
    EXPECT_EQ(ReadableBytes(R"(\x00)"), R"(\\x00)");
    EXPECT_EQ(ReadableBytes(R"(\n)"), R"(\\n)");
}

}  // namespace
}  // namespace ace::workbench
