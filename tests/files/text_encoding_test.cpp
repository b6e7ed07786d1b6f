#include "workbench/files/text_encoding.h"

#include <gtest/gtest.h>

namespace ace::workbench {
namespace {

using namespace std::string_literals;

std::string Encode(Encoding encoding, StringView text) {
    std::string bytes;
    EXPECT_EQ(TryEncode(encoding, text, bytes), std::nullopt);
    return bytes;
}

TEST(TextEncoding, AByteOrderMarkTellsTheEncoding) {
    EXPECT_EQ(DetectEncoding("\xEF\xBB\xBF[A]"), Encoding::Utf8WithBom);
    EXPECT_EQ(DetectEncoding("\xFF\xFE[\0"s), Encoding::Utf16);
    EXPECT_EQ(ByteOrderMark(Encoding::Utf8WithBom), "\xEF\xBB\xBF");
    EXPECT_EQ(ByteOrderMark(Encoding::Utf16), "\xFF\xFE");
    EXPECT_EQ(ByteOrderMark(Encoding::Utf8), "");
    EXPECT_EQ(ByteOrderMark(Encoding::Codepage), "");
}

TEST(TextEncoding, WithoutAMarkValidUtf8IsUtf8AndAllElseTheCodepage) {
    EXPECT_EQ(DetectEncoding(""), Encoding::Utf8);
    EXPECT_EQ(DetectEncoding("plain ASCII\x01\x7F"), Encoding::Utf8);
    EXPECT_EQ(DetectEncoding("12345678 \xC3\xA4"), Encoding::Utf8);
    EXPECT_EQ(DetectEncoding("12345678 \xE4 12345678"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("cut off \xC3"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("\xFF"), Encoding::Codepage);
}

TEST(TextEncoding, OverlongFormsSurrogatesAndCodesBeyondTheLastAreNoUtf8) {
    EXPECT_EQ(DetectEncoding("\xC0\xAF"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("\xE0\x9F\xBF"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("\xF0\x8F\xBF\xBF"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("\xED\xA0\x80"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("\xF4\x90\x80\x80"), Encoding::Codepage);
    EXPECT_EQ(DetectEncoding("\xF4\x8F\xBF\xBF"), Encoding::Utf8);
}

TEST(TextEncoding, TheCodepageHasTheEuroSignAt80AndUmlautsAsInLatin1) {
    EXPECT_EQ(Decode(Encoding::Codepage, "\x80 \xE4 \x9F"), L"\x20AC \xE4 \x178");
    EXPECT_EQ(Encode(Encoding::Codepage, L"\x20AC \xE4 \x178"), "\x80 \xE4 \x9F");
}

TEST(TextEncoding, EveryByteOfTheCodepageComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    EXPECT_EQ(Encode(Encoding::Codepage, Decode(Encoding::Codepage, all)), all);
}

TEST(TextEncoding, TheFirstCharacterThatDoesNotFitIsNamed) {
    std::string bytes;
    EXPECT_EQ(TryEncode(Encoding::Codepage, L"a\x142\x3A9", bytes), L'\x142');
    bytes.clear();
    EXPECT_EQ(TryEncode(Encoding::Codepage, L"\x80", bytes), L'\x80');
    bytes.clear();
    EXPECT_EQ(TryEncode(Encoding::Utf8, L"\xD800", bytes), L'\xD800');
    bytes.clear();
    EXPECT_EQ(TryEncode(Encoding::Utf8, L"\xDC80", bytes), L'\xDC80');
}

TEST(TextEncoding, Utf8HasOneToFourBytes) {
    const String text = L"A\xE4\x20AC\x1F50A";
    const std::string bytes = "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\x8A";
    EXPECT_EQ(Decode(Encoding::Utf8, bytes), text);
    EXPECT_EQ(Encode(Encoding::Utf8, text), bytes);
}

TEST(TextEncoding, BytesThatAreNoUtf8SurviveInAFileWithMark) {
    const std::string bytes = "a\xFF\xC3(\xED\xA0\x80\xE2\x82";
    EXPECT_EQ(Encode(Encoding::Utf8WithBom, Decode(Encoding::Utf8WithBom, bytes)), bytes);
}

TEST(TextEncoding, SixteenBitUnitsComeBackWithPairsAndSingleHalves) {
    // A, a with dots, pair of U+1F50A, high half alone, low half alone, high half at the end
    const std::string units = "A\0\xE4\0\x3D\xD8\x0A\xDD\x3D\xD8\x42\0\x0A\xDD\x3D\xD8"s;
    const std::string bytes = Utf16ToBytes(units);
    EXPECT_EQ(Decode(Encoding::Utf16, bytes), L"A\xE4\x1F50A\xD83D\x42\xDD0A\xD83D");
    EXPECT_EQ(BytesToUtf16(bytes), units);
    EXPECT_EQ(Encode(Encoding::Utf16, L"A\xE4\x1F50A\xD83D\x42\xDD0A\xD83D"), bytes);
}

TEST(TextEncoding, FileNamesGoThroughUtf8Unchanged) {
    EXPECT_EQ(ToUtf8(L"Pr\xFC"
                     L"fung.ini"),
              "Pr\xC3\xBC"
              "fung.ini");
    EXPECT_EQ(ToUtf8(FromUtf8("bad \xFF name")), "bad \xFF name");
    EXPECT_EQ(ToUtf8(L"\xD800"), "?");
}

}  // namespace
}  // namespace ace::workbench
