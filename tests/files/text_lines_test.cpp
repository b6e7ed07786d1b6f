#include "workbench/files/text_lines.h"

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

using namespace std::string_literals;

class TextLinesTest : public FolderTest {};

TEST_F(TextLinesTest, TextIsReadInAnyEncodingOfSettingsFiles) {
    for (const std::string& bytes :
         {"\xC3\xA4\n"s, "\xEF\xBB\xBF\xC3\xA4\n"s, "\xFF\xFE\xE4\0\n\0"s, "\xE4\n"s}) {
        Write("a.txt", bytes);
        EXPECT_EQ(ReadTextFile(Path("a.txt")), L"\xE4\n");
    }
    EXPECT_EQ(ReadTextFile(Path("none.txt")), std::nullopt);
}

/// As UTF-8 or in a codepage it would be a text full of zero characters.
TEST_F(TextLinesTest, TextOfAnotherWidthOrByteOrderIsRefusedByName) {
    for (const std::string& bytes : {"\xFE\xFF\0#"s, "#\0 \0"s, "\0#\0 "s, "\xFF\xFE\0\0#\0\0\0"s,
                                     "#\0\0\0"s, "\0\0\xFE\xFF\0\0\0#"s, "\0\0\0#"s}) {
        Write("a.txt", bytes);
        const RunTimeError error = ErrorIn([&] { ReadTextFile(Path("a.txt")); });
        EXPECT_EQ(error.Number(), FileErrors::CannotRead);
        EXPECT_EQ(error.Description(), WidePath("a.txt") +
                                           L": the text is 16-bit big endian, 16-bit without byte "
                                           L"order mark, or 32-bit, and can't be read");
    }
}

}  // namespace
}  // namespace ace::workbench
