#include "workbench/files/settings_document.h"

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What the file holds after `change`.
template <class Change>
std::string After(const std::string& bytes, Change&& change) {
    SettingsDocument document(bytes);
    change(document);
    return document.Bytes();
}

// ---- reading -----------------------------------------------------------------------------------

TEST(SettingsDocument, NamesCompareWithoutCase) {
    const SettingsDocument document("[WorkBench]\r\nMODULE=3\r\n");
    EXPECT_TRUE(document.HasSection(L"workbench"));
    EXPECT_EQ(document.GetKey(L"WORKBENCH", L"Module"), L"3");
    EXPECT_FALSE(document.HasSection(L"Work"));
    EXPECT_EQ(document.GetKey(L"Workbench", L"Modul"), std::nullopt);
    EXPECT_EQ(document.GetKey(L"Other", L"Module"), std::nullopt);
}

TEST(SettingsDocument, LettersBeyondAsciiCompareAsTheyStand) {
    const SettingsDocument document("[\xC3\x84]\nx=1\n");
    EXPECT_TRUE(document.HasSection(L"\xC4"));
    EXPECT_FALSE(document.HasSection(L"\xE4"));
}

TEST(SettingsDocument, BlanksAroundAKeyDoNotCountButThoseOfAValueDo) {
    const SettingsDocument document("[A]\n \tModule  = 3 \n");
    EXPECT_EQ(document.GetKey(L"A", L"Module"), L" 3 ");
}

TEST(SettingsDocument, AValueHoldsEverythingBehindTheFirstEqualsSign) {
    const SettingsDocument document("[A]\na=b=c;d\nEmpty=\n");
    EXPECT_EQ(document.GetKey(L"A", L"a"), L"b=c;d");
    EXPECT_EQ(document.GetKey(L"A", L"Empty"), L"");
}

TEST(SettingsDocument, TheFirstOfTwoKeysAndTheFirstOfTwoSectionsWin) {
    const SettingsDocument document("[A]\nx=1\nX=2\n[a]\nx=3\ny=4\n");
    EXPECT_EQ(document.GetKey(L"A", L"x"), L"1");
    EXPECT_EQ(document.GetKey(L"A", L"y"), std::nullopt);
    EXPECT_THAT(document.GetSection(L"a"), ElementsAre(L"x=1", L"X=2"));
}

TEST(SettingsDocument, ASectionHasAllItsLinesCommentsIncluded) {
    const SettingsDocument document("[A]\r\n; comment\r\n\r\nno equals sign\r\nx=1\r\n[B]\r\n");
    EXPECT_THAT(document.GetSection(L"A"),
                ElementsAre(L"; comment", L"", L"no equals sign", L"x=1"));
    EXPECT_THAT(document.GetSection(L"B"), IsEmpty());
    EXPECT_THAT(document.GetSection(L"C"), IsEmpty());
}

TEST(SettingsDocument, EmptyLinesAtTheEndOfASectionAreNoLinesOfIt) {
    const SettingsDocument document("[A]\r\nx=1\r\n\r\n\n[B]\r\n\r\n[C]\r\n  \r\n");
    EXPECT_THAT(document.GetSection(L"A"), ElementsAre(L"x=1"));
    EXPECT_THAT(document.GetSection(L"B"), IsEmpty());
    EXPECT_THAT(document.GetSection(L"C"), ElementsAre(L"  "));
}

TEST(SettingsDocument, LinesEndWithLfOrCrLfAndACrAloneEndsNone) {
    const SettingsDocument document("[A]\na=1\r\nb=2\nc=\r3\nd=\r\r\nlast=4");
    EXPECT_THAT(document.GetSection(L"A"),
                ElementsAre(L"a=1", L"b=2", L"c=\r3", L"d=\r", L"last=4"));
}

TEST(SettingsDocument, ControlCharacters1And127PassUntouched) {
    const SettingsDocument document(
        "[A]\r\nEnterAction1=NOTIFY:a\x01 b.\x7F"
        "c,,0\r\n");
    EXPECT_THAT(document.GetSection(L"A"), ElementsAre(L"EnterAction1=NOTIFY:a\x01 b.\x7F"
                                                       L"c,,0"));
}

TEST(SettingsDocument, ABracketOpensASectionOnlyAtTheStartOfALineThatClosesIt) {
    const SettingsDocument document("[A]\nx=[B]\n[no end\n \t[C] ; remark\ny=1\n[]\nz=2\n[a]b]\n");
    EXPECT_THAT(document.GetSection(L"A"), ElementsAre(L"x=[B]", L"[no end"));
    EXPECT_FALSE(document.HasSection(L"B"));
    EXPECT_THAT(document.GetSection(L"C"), ElementsAre(L"y=1"));
    EXPECT_THAT(document.GetSection(L""), ElementsAre(L"z=2"));
    EXPECT_TRUE(document.HasSection(L"a"));
}

TEST(SettingsDocument, TextBeforeTheFirstSectionBelongsToNone) {
    SettingsDocument document("x=1\r\n; file of the chamber\r\n[A]\r\n");
    EXPECT_EQ(document.GetKey(L"", L"x"), std::nullopt);
    document.SetKey(L"A", L"x", L"2");
    EXPECT_EQ(document.Bytes(), "x=1\r\n; file of the chamber\r\n[A]\r\nx=2\r\n");
}

TEST(SettingsDocument, TheHeaderLineIsCountedInTheFileAsItWouldBeSaved) {
    SettingsDocument document("; top\n[A]\nx=1\n\n[B]\n");
    EXPECT_EQ(document.HeaderLine(L"A"), 2U);
    EXPECT_EQ(document.HeaderLine(L"b"), 5U);
    EXPECT_EQ(document.HeaderLine(L"C"), std::nullopt);
    document.SetSection(L"A", L"x=1\r\ny=2\r\n");
    EXPECT_EQ(document.HeaderLine(L"B"), 6U);
    document.SetSection(L"C", L"");  // an empty line stands between the sections of this file
    EXPECT_EQ(document.HeaderLine(L"C"), 8U);
    EXPECT_EQ(document.HeaderLines(), (std::vector<std::size_t>{2, 6, 8}));
    document.DeleteSection(L"A");
    EXPECT_EQ(document.HeaderLine(L"B"), 2U);
    EXPECT_EQ(document.HeaderLines(), (std::vector<std::size_t>{2, 4}));
}

// ---- writing keys ------------------------------------------------------------------------------

TEST(SettingsDocument, SettingAKeyReplacesTheValueAlone) {
    EXPECT_EQ(After("[A]\r\n \tKey = old ; remark\nb=1\r\n",
                    [](auto& d) { d.SetKey(L"a", L"KEY", L"new"); }),
              "[A]\r\n \tKey =new\nb=1\r\n");
}

TEST(SettingsDocument, ANewKeyGoesBehindTheLastLineBeforeTheEmptyOnes) {
    EXPECT_EQ(After("[A]\r\nx=1\r\n\r\n[B]\r\n", [](auto& d) { d.SetKey(L"A", L"y", L"2"); }),
              "[A]\r\nx=1\r\ny=2\r\n\r\n[B]\r\n");
    EXPECT_EQ(After("[A]\n\n[B]\n", [](auto& d) { d.SetKey(L"A", L"y", L"2"); }),
              "[A]\ny=2\n\n[B]\n");
}

TEST(SettingsDocument, AKeyOfAMissingSectionMakesTheSectionAtTheEnd) {
    EXPECT_EQ(After("[A]\nx=1\n", [](auto& d) { d.SetKey(L"B", L"y", L"2"); }),
              "[A]\nx=1\n[B]\ny=2\n");
    EXPECT_EQ(After("", [](auto& d) { d.SetKey(L"B", L"y", L"2"); }), "[B]\r\ny=2\r\n");
}

TEST(SettingsDocument, AMissingLineEndAtTheEndOfTheFileStaysMissing) {
    EXPECT_EQ(After("[A]\nx=1", [](auto& d) { d.SetKey(L"A", L"x", L"2"); }), "[A]\nx=2");
    EXPECT_EQ(After("[A]\nx=1", [](auto& d) { d.SetKey(L"A", L"y", L"2"); }), "[A]\nx=1\ny=2");
    EXPECT_EQ(After("[A]", [](auto& d) { d.SetKey(L"A", L"y", L"2"); }), "[A]\r\ny=2");
    EXPECT_EQ(After("[A]\nx=1", [](auto& d) { d.SetSection(L"A", L""); }), "[A]");
    EXPECT_EQ(After("[A]\nx=1", [](auto& d) { d.SetSection(L"B", L"y=2"); }),
              "[A]\nx=1\n[B]\ny=2\n");
    EXPECT_EQ(After("only text", [](auto& d) { d.SetSection(L"B", L""); }), "only text\r\n[B]\r\n");
}

TEST(SettingsDocument, AKeyThatHasTheValueAlreadyChangesNothing) {
    SettingsDocument document("[A]\r\nx=1\r\n");
    document.SetKey(L"a", L"X", L"1");
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
}

TEST(SettingsDocument, AValueWithALineEndIsError5AndChangesNothing) {
    SettingsDocument document("[A]\r\nx=1\r\n");
    const RunTimeError error = ErrorIn([&] { document.SetKey(L"B", L"x", L"1\n[C]"); });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_THAT(error.Description(), ::testing::HasSubstr(L"[B], key \"x\""));
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
}

TEST(SettingsDocument, ANameThatWouldReadAsSomethingElseIsError5) {
    SettingsDocument document("[A]\r\n");
    EXPECT_EQ(ErrorIn([&] { document.SetKey(L"A", L"a=b", L"1"); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.SetKey(L"A", L"[a", L"b]"); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.SetKey(L"A", L"", L"1"); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.SetKey(L"A", L" \t", L"1"); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.SetSection(L"A]B", L""); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.SetSection(L"A\nB", L""); }).Number(), 5);
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
}

// ---- writing sections --------------------------------------------------------------------------

TEST(SettingsDocument, AReplacedSectionKeepsPlaceHeaderAndEmptyLinesBehind) {
    EXPECT_EQ(After("[A]\r\nx=1\r\n[ b ] ;r\r\ny=1\r\nz=1\r\n\r\n[C]\r\n",
                    [](auto& d) { d.SetSection(L" B ", L"n=1\r\nm=2\r\n"); }),
              "[A]\r\nx=1\r\n[ b ] ;r\r\nn=1\r\nm=2\r\n\r\n[C]\r\n");
}

TEST(SettingsDocument, TheEmptyTextLeavesTheHeader) {
    EXPECT_EQ(After("[A]\r\nx=1\r\n\r\n[B]\r\n", [](auto& d) { d.SetSection(L"A", L""); }),
              "[A]\r\n\r\n[B]\r\n");
    EXPECT_EQ(After("", [](auto& d) { d.SetSection(L"A", L""); }), "[A]\r\n");
}

TEST(SettingsDocument, TheLastLineNeedsNoLineEnd) {
    EXPECT_EQ(After("", [](auto& d) { d.SetSection(L"A", L"x=1\r\ny=2"); }),
              "[A]\r\nx=1\r\ny=2\r\n");
}

TEST(SettingsDocument, AReplacedSectionHasTheLineEndOfItsHeader) {
    EXPECT_EQ(After("[A]\r\n[B]\nx=1\r\n", [](auto& d) { d.SetSection(L"B", L"y=1\r\nz=2\r\n"); }),
              "[A]\r\n[B]\ny=1\nz=2\n");
}

TEST(SettingsDocument, ANewSectionHasTheFirstLineEndOfTheFile) {
    EXPECT_EQ(After("[A]\n[B]\r\n", [](auto& d) { d.SetSection(L"C", L"y=1\r\n"); }),
              "[A]\n[B]\r\n[C]\ny=1\n");
}

TEST(SettingsDocument, NewSectionsAreSetApartAsTheLastOneIs) {
    const auto append = [](auto& d) {
        d.SetSection(L"Y", L"y=1\r\n");
        d.SetSection(L"Z", L"");
    };
    EXPECT_EQ(After("[A]\nx=1\n\n[B]\nx=2\n", append), "[A]\nx=1\n\n[B]\nx=2\n\n[Y]\ny=1\n\n[Z]\n");
    EXPECT_EQ(After("[A]\n\n[B]\n\n", append), "[A]\n\n[B]\n\n[Y]\ny=1\n\n[Z]\n");
    EXPECT_EQ(After("[A]\n\n[B]", append), "[A]\n\n[B]\n\n[Y]\ny=1\n\n[Z]\n");
    EXPECT_EQ(After("[A]\n[B]\n", append), "[A]\n[B]\n[Y]\ny=1\n[Z]\n");
}

TEST(SettingsDocument, LinesThatAreThereAlreadyAreLeftAsTheyStand) {
    SettingsDocument document("[A]\r\nx=1\ny=2\r\n\r\n[B]\r\nz=3");
    document.SetSection(L"A", L"x=1\r\ny=2\r\n");
    document.SetSection(L"B", L"z=3\r\n");
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
    EXPECT_EQ(document.Bytes(), "[A]\r\nx=1\ny=2\r\n\r\n[B]\r\nz=3");
}

TEST(SettingsDocument, AChangeThatIsTakenBackIsNoChange) {
    SettingsDocument document("[A]\r\nx=1\r\n");
    document.SetKey(L"A", L"x", L"2");
    EXPECT_EQ(document.ChangedBytes(), "[A]\r\nx=2\r\n");
    document.SetKey(L"A", L"x", L"1");
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
}

TEST(SettingsDocument, ALineThatWouldOpenAnotherSectionIsError5AndChangesNothing) {
    SettingsDocument document("[A]\r\nx=1\r\n");
    EXPECT_EQ(ErrorIn([&] { document.SetSection(L"A", L"a\n[General]\r\n"); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.SetSection(L"B", L" [A]"); }).Number(), 5);
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
}

TEST(SettingsDocument, AnLfWithinALineStaysAndReadsAsALineEnd) {
    SettingsDocument document("[A]\r\n");
    document.SetSection(L"A", L"a=1\nb=2\r\n");
    EXPECT_EQ(document.Bytes(), "[A]\r\na=1\nb=2\r\n");
    EXPECT_THAT(document.GetSection(L"A"), ElementsAre(L"a=1", L"b=2"));
}

TEST(SettingsDocument, ACrAtTheEndOfALineComesBackAlsoInAFileOfLfLines) {
    SettingsDocument document("[A]\n");
    document.SetSection(L"A", L"a=1\r\r\nb=2\r\n");
    EXPECT_EQ(document.Bytes(), "[A]\na=1\r\r\nb=2\n");
    EXPECT_THAT(document.GetSection(L"A"), ElementsAre(L"a=1\r", L"b=2"));
    document.SetKey(L"A", L"b", L"3\r");
    EXPECT_EQ(document.GetKey(L"A", L"b"), L"3\r");
}

TEST(SettingsDocument, ADeletedSectionGoesWithAllOfItsName) {
    EXPECT_EQ(
        After("; t\n[A]\nx=1\n\n[B]\ny=1\n[a]\nz=1\n[C]\n", [](auto& d) { d.DeleteSection(L"A"); }),
        "; t\n[B]\ny=1\n[C]\n");
    EXPECT_EQ(After("[A]\n[B]\n", [](auto& d) { d.DeleteSection(L"X"); }), "[A]\n[B]\n");
}

TEST(SettingsDocument, ADeletedSectionGoesHoweverOftenItsNameStands) {
    SettingsDocument document("[A]\n[B]\n[a]\n[A]\n[C]\n[a]\n");
    document.DeleteSection(L"A");
    EXPECT_EQ(document.Bytes(), "[B]\n[C]\n");
    EXPECT_FALSE(document.HasSection(L"A"));
}

TEST(SettingsDocument, ASectionThatIsMadeAgainGoesToTheEnd) {
    EXPECT_EQ(After("[A]\nx=1\n[B]\n",
                    [](auto& d) {
                        d.DeleteSection(L"A");
                        d.SetSection(L"A", L"n=1\r\n");
                    }),
              "[B]\n[A]\nn=1\n");
}

TEST(SettingsDocument, DeletingTheLastSectionsAndAddingOthersKeepsAllNamesApart) {
    SettingsDocument document("[A]\n[B]\n[C]\n[b]\n");
    document.DeleteSection(L"B");
    document.DeleteSection(L"C");
    document.SetSection(L"D", L"d=1\r\n");
    document.SetSection(L"B", L"b=1\r\n");
    document.DeleteSection(L"D");
    EXPECT_EQ(document.Bytes(), "[A]\n[B]\nb=1\n");
    EXPECT_THAT(document.GetSection(L"b"), ElementsAre(L"b=1"));
}

// ---- encodings ---------------------------------------------------------------------------------

TEST(SettingsDocument, AByteOrderMarkStaysInFront) {
    EXPECT_EQ(
        After("\xEF\xBB\xBF[A]\r\nx=\xC3\xA4\r\n", [](auto& d) { d.SetKey(L"A", L"y", L"\xFC"); }),
        "\xEF\xBB\xBF[A]\r\nx=\xC3\xA4\r\ny=\xC3\xBC\r\n");
}

TEST(SettingsDocument, SixteenBitTextStaysSixteenBitText) {
    SettingsDocument document("\xFF\xFE[\0A\0]\0\r\0\n\0x\0=\0\xE4\0\r\0\n\0"s);
    EXPECT_EQ(document.GetKey(L"a", L"x"), L"\xE4");
    document.SetKey(L"A", L"x", L"\x20AC");
    EXPECT_EQ(document.Bytes(), "\xFF\xFE[\0A\0]\0\r\0\n\0x\0=\0\xAC\x20\r\0\n\0"s);
}

TEST(SettingsDocument, HalfAUnitAtTheEndSurvives) {
    SettingsDocument document("\xFF\xFE[\0A\0]\0\n\0x"s);
    EXPECT_EQ(document.Bytes(), "\xFF\xFE[\0A\0]\0\n\0x"s);
    document.SetKey(L"A", L"b", L"");
    EXPECT_EQ(document.Bytes(), "\xFF\xFE[\0A\0]\0\n\0b\0=\0\n\0x"s);
}

TEST(SettingsDocument, EveryByteOfACodepageFileSurvivesAReplacedNeighbour) {
    std::string bytes = "[A]\r\nx=";
    for (int byte = 0x80; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    SettingsDocument document(bytes + "\r\n[B]\r\n");
    EXPECT_EQ(document.FileEncoding(), Encoding::Codepage);
    document.SetSection(L"B", L"n=\x20AC\r\n");
    EXPECT_EQ(document.Bytes(), bytes + "\r\n[B]\r\nn=\x80\r\n");
    const String value = *document.GetKey(L"A", L"x");
    document.SetKey(L"A", L"x", L"");
    document.SetKey(L"A", L"x", value);
    EXPECT_EQ(document.Bytes(), bytes + "\r\n[B]\r\nn=\x80\r\n");
}

TEST(SettingsDocument, ACharacterThatTheFileCannotHoldIsAClearErrorAndNothingIsLost) {
    const std::string bytes = "[A]\r\nx=\xE4\r\n";
    SettingsDocument document(bytes);
    for (const auto& act :
         std::vector<std::function<void()>>{[&] { document.SetKey(L"A", L"x", L"\x142"); },
                                            [&] { document.SetKey(L"A", L"\x142", L"1"); },
                                            [&] { document.SetSection(L"A", L"y=\x142\r\n"); },
                                            [&] { document.SetSection(L"\x142", L""); }}) {
        const RunTimeError error = ErrorIn(act);
        EXPECT_EQ(error.Number(), 5);
        EXPECT_THAT(error.Description(),
                    ::testing::HasSubstr(L"the file is Windows-1252, which can't hold the "
                                         L"character U+0142"));
    }
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
    EXPECT_EQ(document.GetKey(L"A", L"\x142"), std::nullopt);
    EXPECT_FALSE(document.HasSection(L"\x142"));
    document.DeleteSection(L"\x142");
    EXPECT_EQ(document.Bytes(), bytes);
}

TEST(SettingsDocument, ACodepageFileIsNotSavedWhenItWouldBeTakenForUtf8) {
    SettingsDocument document("[A]\nx=\xE4\n[B]\ny=\xC3\xA4\n");
    document.DeleteSection(L"A");
    EXPECT_EQ(ErrorIn([&] { document.ChangedBytes(); }).Number(), 5);
    document.DeleteSection(L"B");
    EXPECT_EQ(document.Bytes(), "");
}

TEST(SettingsDocument, TextOfAnotherWidthIsAnErrorAndNoEmptyFile) {
    for (const std::string& bytes : {"\xFE\xFF\0[\0A\0]"s, "[\0A\0]\0"s, "\0[\0A\0]"s,
                                     "\xFF\xFE\0\0[\0\0\0"s, "\0\0\0[\0\0\0A"s}) {
        EXPECT_EQ(ErrorIn([&] { SettingsDocument document(bytes); }).Number(),
                  FileErrors::CannotRead);
    }
}

TEST(SettingsDocument, ASectionWhoseNameBeginsWithAZeroIsRefused) {
    SettingsDocument document;
    const RunTimeError error = ErrorIn([&] { document.SetKey(String(1, L'\0'), L"x", L"1"); });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_THAT(error.Description(), ::testing::HasSubstr(L"a section can't have this name"));
    EXPECT_EQ(document.Bytes(), "");
}

TEST(SettingsDocument, WhatCouldNotBeReadAgainIsNotWritten) {
    SettingsDocument document(std::string(1, '\0'));
    document.SetKey(L"A", L"x", L"1");
    EXPECT_EQ(ErrorIn([&] { document.Bytes(); }).Number(), 5);
    EXPECT_EQ(ErrorIn([&] { document.ChangedBytes(); }).Number(), 5);
}

TEST(SettingsDocument, TheBytesFromWhichItWasMadeStay) {
    for (const std::string& bytes :
         {std::string(), std::string("[A]\nx=1"), std::string("\xEF\xBB\xBF[A]\r\n"),
          std::string("\xFF\xFE[\0A\0]\0\n", 9), std::string("[A]\r\nx=\xE4\r\n")}) {
        SettingsDocument document(bytes);
        document.DeleteSection(L"A");
        EXPECT_EQ(document.SourceBytes(), bytes);
    }
}

}  // namespace
}  // namespace ace::workbench
