#include "workbench/transports/macro_inputs.h"

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using MacroInputsTest = FolderTest;

TEST(MacroInputs, EachLineIsAnInput) {
    EXPECT_THAT(ParseMacroInputs(L"value Level in dBm\r\ntable Frequencies\nvalue x"),
                ElementsAre(MacroInput{false, L"Level in dBm"}, MacroInput{true, L"Frequencies"},
                            MacroInput{false, L"x"}));
}

TEST(MacroInputs, KindsAreReadInAnyCaseAndBlanksDontCount) {
    EXPECT_THAT(ParseMacroInputs(L"  TABLE \t a b \t\nValue\tc"),
                ElementsAre(MacroInput{true, L"a b"}, MacroInput{false, L"c"}));
}

TEST(MacroInputs, EmptyLinesAndCommentsDontCount) {
    EXPECT_THAT(ParseMacroInputs(L"\n  # a comment\n\nvalue # no comment\n#value x\n"),
                ElementsAre(MacroInput{false, L"# no comment"}));
    EXPECT_THAT(ParseMacroInputs(L""), IsEmpty());
}

TEST(MacroInputs, ALineThatIsNoInputIsAnErrorWithItsNumber) {
    const RunTimeError kind = ErrorIn([] { ParseMacroInputs(L"value a\n\nnumber b"); });
    EXPECT_EQ(kind.Number(), TransportErrors::BadConfiguration);
    EXPECT_EQ(kind.Description(),
              L"line 3: an input begins with \"value\" or \"table\", not with \"number\"");
    EXPECT_EQ(ErrorIn([] { ParseMacroInputs(L"table \t"); }).Description(),
              L"line 1: the input has no name");
}

TEST(MacroInputs, MoreInputsThan16BitsCountAreAnError) {
    String text;
    for (int i = 0; i < 32767; ++i) {
        text += L"value a\n";
    }
    EXPECT_EQ(ParseMacroInputs(text).size(), 32767U);
    EXPECT_EQ(ErrorIn([&] { ParseMacroInputs(text + L"value b"); }).Description(),
              L"line 32768: there are too many inputs");
}

TEST_F(MacroInputsTest, TheListLiesBesideTheMacro) {
    Write("sweep.sh.inputs", "\xEF\xBB\xBFvalue \xC2\xB5V\n");
    EXPECT_EQ(InputsFileOf("sweep.sh"), "sweep.sh.inputs");
    EXPECT_THAT(ReadMacroInputs(Path("sweep.sh")), ElementsAre(MacroInput{false, L"\x00B5V"}));
    EXPECT_THAT(ReadMacroInputs(Path("other.sh")), IsEmpty());
}

TEST_F(MacroInputsTest, AnErrorNamesTheList) {
    Write("a.inputs", "wrong");
    EXPECT_TRUE(ErrorIn([&] { ReadMacroInputs(Path("a")); })
                    .Description()
                    .starts_with(WidePath("a.inputs") + L": line 1: "));
    std::filesystem::create_directory(Path("b.inputs"));
    EXPECT_EQ(ErrorIn([&] { ReadMacroInputs(Path("b")); }).Number(), FileErrors::CannotRead);
}

}  // namespace
}  // namespace ace::workbench
