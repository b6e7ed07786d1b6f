#include "support/file_fixture.h"
#include "workbench/files/file_store.h"
#include "workbench/files/settings_document.h"

namespace ace::workbench {
namespace {

using namespace std::string_literals;

/// Names of the sections in the file, read without the code under test.
std::vector<String> SectionNames(const std::string& bytes) {
    std::vector<String> names;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) {
            const std::string name = line.substr(1, line.find(']') - 1);
            names.emplace_back(name.begin(), name.end());
        }
    }
    return names;
}

String Joined(const std::vector<String>& lines) {
    String text;
    for (const String& line : lines) {
        text += line + L"\r\n";
    }
    return text;
}

class ExampleFile : public ::testing::TestWithParam<const char*> {
  protected:
    std::string Bytes() const {
        return ReadWholeFile(std::string(ACE_EXAMPLES) + "/" + GetParam()).value();
    }
};

TEST_P(ExampleFile, ComesBackByteForByte) {
    const std::string bytes = Bytes();
    EXPECT_EQ(SettingsDocument(bytes).Bytes(), bytes);
}

TEST_P(ExampleFile, ComesBackByteForByteAfterEverySectionIsReplacedByItself) {
    const std::string bytes = Bytes();
    SettingsDocument document(bytes);
    for (const String& name : SectionNames(bytes)) {
        document.SetSection(name, Joined(document.GetSection(name)));
    }
    EXPECT_EQ(document.ChangedBytes(), std::nullopt);
    EXPECT_EQ(document.Bytes(), bytes);
}

TEST_P(ExampleFile, ComesBackByteForByteAfterEverySectionIsEmptiedAndFilledAgain) {
    const std::string bytes = Bytes();
    SettingsDocument document(bytes);
    for (const String& name : SectionNames(bytes)) {
        const String text = Joined(document.GetSection(name));
        document.SetSection(name, L"");
        document.SetSection(name, text);
    }
    EXPECT_EQ(document.Bytes(), bytes);
}

INSTANTIATE_TEST_SUITE_P(All, ExampleFile,
                         ::testing::Values("ri_template.ini", "wireless_dut.ini", "lint_traps.ini",
                                           "load_stops.ini"));

/// Files as they are found after many years: nothing of them may change.
const std::string NastyFiles[] = {
    "",
    "\r\n",
    "\n",
    "no section at all",
    "\xEF\xBB\xBF",
    "\xFF\xFE",
    "\xEF\xBB\xBF; top\r\n[A]\nx=1\r\ny\n\n\n[B]\r\n[a]\r\nx=2\r\nx=3",
    "[A]\r\nx=\xFF\xFE\x80\x81\r\n[B",
    "\xEF\xBB\xBF[A]\r\nx=\xFF\r\n",
    "\xFF\xFE[\0A\0]\0\n\0\x3D\xD8\n\0\n\0[\0B\0]\0z"s,
    "[A]\rx=1\r[B]\r",
    "[A]\r\n\r\n\r\n[B]\r\n\n\n\r\n",
    "[A]\r\nx=1\0y\r\n"s,
    "[]\n[]\n[",
    "   [A]   ; remark [B]\n\t\n =\n==\n",
    "[A]\nx=1\n\x1A",
};

TEST(SettingsBytes, NastyFilesComeBackByteForByte) {
    for (const std::string& bytes : NastyFiles) {
        EXPECT_EQ(SettingsDocument(bytes).Bytes(), bytes) << ::testing::PrintToString(bytes);
    }
}

TEST(SettingsBytes, NastyFilesKeepTheirBytesWhenANewSectionComesAndGoes) {
    for (const std::string& bytes : NastyFiles) {
        SettingsDocument document(bytes);
        document.SetKey(L"Quite new", L"x", L"1");
        EXPECT_NE(document.ChangedBytes(), std::nullopt);
        document.DeleteSection(L"Quite new");
        EXPECT_EQ(document.ChangedBytes(), std::nullopt) << ::testing::PrintToString(bytes);
    }
}

TEST(SettingsBytes, ALineOfAMegabyteIsReadReplacedAndKept) {
    const std::string longText(1 << 20, '[');
    const std::string file = "[A]\r\nx=" + longText + "\r\n[B]\r\n";
    SettingsDocument document(file);
    EXPECT_EQ(document.GetKey(L"A", L"x"), String(1 << 20, L'['));
    document.SetSection(L"B", L"y=1\r\n");
    EXPECT_EQ(document.Bytes(), file + "y=1\r\n");
    document.SetKey(L"A", L"x", String(1 << 20, L'\xE4'));
    EXPECT_EQ(document.Bytes().size(), file.size() + 5 + (1 << 20));
}

/// What a whole load and save of a big file does, on one with blank lines between its sections.
TEST(SettingsBytes, ThirtyThousandSectionsAreReplacedInPlace) {
    constexpr int Sections = 30000;
    std::string old;
    std::string expected;
    for (int at = 1; at <= Sections; ++at) {
        const std::string header = "[ActionsOnSR" + std::to_string(at) + "]\n";
        old += header + "EnterAction1=WAIT:1.000\n\n";
        expected += header + "EnterAction1=WAIT:2.000\n\n";
    }
    SettingsDocument document(old);
    for (int at = Sections; at >= 1; --at) {
        document.SetSection(L"actionsonsr" + std::to_wstring(at), L"EnterAction1=WAIT:2.000\r\n");
    }
    EXPECT_EQ(document.Bytes(), expected);
}

}  // namespace
}  // namespace ace::workbench
