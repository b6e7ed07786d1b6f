#include "workbench/files/disk_settings_file.h"

#include <cerrno>
#include <clocale>
#include <locale>
#include <sstream>
#include <sys/wait.h>

#include "files/counting_calls.h"
#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class DiskSettings : public FolderTest {
  protected:
    std::shared_ptr<DiskSettingsFile> Open(const std::string& bytes) {
        Write("a.ini", bytes);
        return files.Open(name);
    }
    /// What stands in the file after `change` and a release.
    template <class Change>
    std::string Saved(const std::string& bytes, Change&& change) {
        const auto file = Open(bytes);
        change(*file);
        file->Release();
        return Read("a.ini");
    }

    SettingsFiles files;
    String name = WidePath("a.ini");
};

// ---- typed keys --------------------------------------------------------------------------------

TEST_F(DiskSettings, AMissingKeyOrSectionReadsAsTheDefault) {
    const auto file = Open("[A]\r\nx=1\r\n");
    EXPECT_EQ(file->GetString(L"A", L"y", L"none"), L"none");
    EXPECT_EQ(file->GetLong(L"B", L"x", -1), -1);
    EXPECT_EQ(file->GetDouble(L"A", L"y", -1.0), -1.0);
    EXPECT_TRUE(file->GetBoolean(L"A", L"y", true));
    EXPECT_FALSE(file->GetBoolean(L"A", L"y", false));
}

TEST_F(DiskSettings, NumbersReadInTheFormsThatInstallationsUse) {
    const auto file =
        Open("[A]\r\na=16\r\nb=-1\r\nc= 7 \r\nd=2402000000\r\ne=-1\r\nf=2.4E9\r\ng=.5\r\n");
    EXPECT_EQ(file->GetLong(L"A", L"a", 0), 16);
    EXPECT_EQ(file->GetLong(L"A", L"b", 0), -1);
    EXPECT_EQ(file->GetLong(L"A", L"c", 0), 7);
    EXPECT_EQ(file->GetDouble(L"A", L"d", 0.0), 2402000000.0);
    EXPECT_EQ(file->GetDouble(L"A", L"e", 0.0), -1.0);
    EXPECT_EQ(file->GetDouble(L"A", L"f", 0.0), 2400000000.0);
    EXPECT_EQ(file->GetDouble(L"A", L"g", 0.0), 0.5);
}

TEST_F(DiskSettings, TruthsReadAsAnyNumberButZeroOrAsWords) {
    const auto file = Open("[A]\na=1\nb=-1\nc=True\nd=true \ne=0\nf=False\ng=00\nh=2\n");
    for (const wchar_t* key : {L"a", L"b", L"c", L"d", L"h"}) {
        EXPECT_TRUE(file->GetBoolean(L"A", key, false)) << ToUtf8(key);
    }
    for (const wchar_t* key : {L"e", L"f", L"g"}) {
        EXPECT_FALSE(file->GetBoolean(L"A", key, true)) << ToUtf8(key);
    }
}

TEST_F(DiskSettings, AValueThatIsNoNumberIsError13ThatNamesFileSectionKeyAndValue) {
    const auto file = Open("[A b]\r\nx=12 V\r\ny=\r\nz=yes\r\nblank=  \r\n");
    const RunTimeError error = ErrorIn([&] { file->GetLong(L"A b", L"x", 0); });
    EXPECT_EQ(error.Number(), 13);
    EXPECT_EQ(error.Description(),
              name + L": section [A b], key \"x\": \"12 V\" is not a valid value");
    EXPECT_EQ(ErrorIn([&] { file->GetLong(L"A b", L"y", 0); }).Number(), 13);
    EXPECT_EQ(ErrorIn([&] { file->GetDouble(L"A b", L"x", 0.0); }).Number(), 13);
    EXPECT_EQ(ErrorIn([&] { file->GetBoolean(L"A b", L"z", false); }).Number(), 13);
    EXPECT_EQ(ErrorIn([&] { file->GetBoolean(L"A b", L"blank", true); }).Number(), 13);
}

TEST_F(DiskSettings, ANumberBeyondTheRangeIsError6ThatNamesThePlace) {
    const auto file = Open("[A]\r\nx=2147483648\r\ny=1E999\r\n");
    const RunTimeError error = ErrorIn([&] { file->GetLong(L"A", L"x", 0); });
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(),
              name + L": section [A], key \"x\": \"2147483648\" is out of range");
    EXPECT_EQ(ErrorIn([&] { file->GetDouble(L"A", L"y", 0.0); }).Number(), 6);
}

TEST_F(DiskSettings, ValuesAreWrittenInTheFormsThatInstallationsUse) {
    const std::string saved = Saved("[A]\r\n", [](DiskSettingsFile& file) {
        file.SetDouble(L"A", L"ID0", 2402000000.0);
        file.SetDouble(L"A", L"None", -1.0);
        file.SetDouble(L"A", L"Part", 0.25);
        file.SetLong(L"A", L"Count", -16);
        file.SetBoolean(L"A", L"Yes", true);
        file.SetBoolean(L"A", L"No", false);
        file.SetString(L"A", L"Text", L" a=b ");
    });
    EXPECT_EQ(saved,
              "[A]\r\nID0=2402000000\r\nNone=-1\r\nPart=0.25\r\nCount=-16\r\nYes=1\r\nNo=0\r\n"
              "Text= a=b \r\n");
}

/// The C++ library can be given such a locale on any machine, the C library only where one is
/// installed.
TEST_F(DiskSettings, ADecimalPointIsAPointUnderALocaleWithComma) {
    struct WithComma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::string before = std::setlocale(LC_ALL, nullptr);
    const std::locale cppBefore = std::locale::global({std::locale(), new WithComma});
    for (const char* locale : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_ALL, locale) != nullptr) {
            break;
        }
    }
    std::ostringstream written;
    written << 1.5;
    ASSERT_EQ(written.str(), "1,5");
    EXPECT_EQ(Saved("[A]\nx=1.5\n",
                    [](DiskSettingsFile& file) {
                        file.SetDouble(L"A", L"x", 1.0 + file.GetDouble(L"A", L"x", 0.0));
                    }),
              "[A]\nx=2.5\n");
    std::locale::global(cppBefore);
    std::setlocale(LC_ALL, before.c_str());
}

// ---- sections ----------------------------------------------------------------------------------

TEST_F(DiskSettings, ASectionIsWrittenAsTextOrAsLinesAndDeletedByNothing) {
    DynArray<String> lines;
    lines.Redim(1, 2);
    lines[1] = L"a=1";
    lines[2] = L"b=2";
    const std::string saved = Saved("[A]\r\nx=1\r\n[B]\r\n[C]\r\n", [&](DiskSettingsFile& file) {
        file.SetSection(L"A", Value(std::monostate()));
        file.SetSection(L"B", Value(lines));
        file.SetSection(L"C", Value(String(L"c=3\r\n")));
        file.SetSection(L"D", Value(String()));
        file.SetSection(L"E", Value(DynArray<String>()));
    });
    EXPECT_EQ(saved, "[B]\r\na=1\r\nb=2\r\n[C]\r\nc=3\r\n[D]\r\n[E]\r\n");
}

TEST_F(DiskSettings, ContentOfAnotherKindIsError13) {
    const auto file = Open("[A]\r\n");
    EXPECT_EQ(ErrorIn([&] { file->SetSection(L"A", Value(std::int32_t{1})); }).Number(), 13);
    EXPECT_EQ(ErrorIn([&] { file->SetSection(L"A", Value(Boolean(true))); }).Number(), 13);
}

TEST_F(DiskSettings, ASectionReadsAsItsLines) {
    const auto file = Open("[A]\r\n; remark\r\nx=1\r\n");
    EXPECT_THAT(file->GetSection(L"A"), ElementsAre(L"; remark", L"x=1"));
    EXPECT_TRUE(file->GetSection(L"B").empty());
}

TEST_F(DiskSettings, ATextThatTheFileCannotHoldIsAnErrorThatNamesTheFileAndNothingIsLost) {
    const std::string bytes = "[A]\r\nx=\xE4\r\n";
    const auto file = Open(bytes);
    const RunTimeError error = ErrorIn([&] { file->SetSection(L"A", Value(String(L"y=\x3A9"))); });
    EXPECT_EQ(error.Number(), 5);
    EXPECT_THAT(error.Description(), HasSubstr(name + L": section [A]: "));
    file->Release();
    EXPECT_EQ(Read("a.ini"), bytes);
}

// ---- saving ------------------------------------------------------------------------------------

TEST_F(DiskSettings, NothingIsSavedBeforeReleaseAndThenOnce) {
    CountingCalls calls;
    SettingsFiles counted(calls);
    Write("a.ini", "[A]\r\n");
    const auto file = counted.Open(name);
    file->SetLong(L"A", L"x", 1);
    file->SetLong(L"A", L"y", 2);
    EXPECT_EQ(Read("a.ini"), "[A]\r\n");
    file->Release();
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=1\r\ny=2\r\n");
    EXPECT_EQ(calls.saves, 1);
}

TEST_F(DiskSettings, NothingIsSavedWhenNoByteDiffers) {
    CountingCalls calls;
    SettingsFiles counted(calls);
    Write("a.ini", "[A]\r\nx=1\r\n");
    const auto file = counted.Open(name);
    file->SetLong(L"A", L"x", 2);
    file->SetLong(L"A", L"x", 1);
    file->Release();
    EXPECT_EQ(calls.saves, 0);
}

TEST_F(DiskSettings, WithoutReleaseChangesAreDropped) {
    {
        const auto file = Open("[A]\r\n");
        file->SetLong(L"A", L"x", 1);
    }
    EXPECT_EQ(Read("a.ini"), "[A]\r\n");
}

TEST_F(DiskSettings, AMissingFileGivesNoObject) {
    EXPECT_EQ(files.Open(WidePath("none.ini")), nullptr);
}

TEST_F(DiskSettings, AFileThatCannotBeReadIsAnErrorAndWithinALoadItCannotBeSavedAfterwards) {
    EXPECT_EQ(ErrorIn([&] { files.Open(WidePath("")); }).Number(), FileErrors::CannotRead);
    Write("wide.ini", std::string("[\0A\0]\0", 6));
    const String wide = WidePath("wide.ini");
    const RunTimeError error =
        ErrorIn([&] { files.Load(wide, aceTemplate, [&] { files.Open(wide); }); });
    EXPECT_EQ(error.Number(), FileErrors::CannotRead);
    EXPECT_THAT(error.Description(), HasSubstr(wide + L": the text is 16-bit"));
    EXPECT_TRUE(files.LoadFailed(wide, aceTemplate));
    EXPECT_EQ(ErrorIn([&] { files.Save(wide, aceTemplate, [] {}); }).Number(),
              FileErrors::SaveRefused);
}

/// Reads fail as often as asked for.
class UnreadableCalls : public FileCalls {
  public:
    int failures = 0;
    ssize_t Read(int file, char* buffer, std::size_t size) override {
        errno = EIO;
        return failures-- > 0 ? -1 : FileCalls::Read(file, buffer, size);
    }
};

TEST_F(DiskSettings, AReadThatFailsWhileSavingLeavesTheNextSaveGood) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    UnreadableCalls calls;
    SettingsFiles unreadable(calls);
    const auto save = [&] {
        unreadable.Save(name, aceTemplate, [&] {
            const auto file = unreadable.Open(name);
            file->SetLong(L"A", L"x", 2);
            file->Release();
        });
    };
    unreadable.MarkUnsaved(name, aceTemplate);
    calls.failures = 1;
    EXPECT_EQ(ErrorIn(save).Number(), FileErrors::CannotRead);
    EXPECT_FALSE(unreadable.LoadFailed(name, aceTemplate));
    EXPECT_TRUE(unreadable.IsUnsaved(name, aceTemplate));
    EXPECT_EQ(ErrorIn(save).Number(), 0);
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=2\r\n");
}

TEST_F(DiskSettings, AChangeOfAnotherProgramIsNeverOverwrittenInSilence) {
    const auto file = Open("[A]\r\nx=1\r\n");
    file->SetLong(L"A", L"x", 2);
    Write("a.ini", "[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
    const RunTimeError error = ErrorIn([&] { file->Release(); });
    EXPECT_EQ(error.Number(), FileErrors::SaveRefused);
    EXPECT_EQ(error.Description(),
              name + L": not saved: another program has changed it since it was read");
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
}

TEST_F(DiskSettings, OneObjectSavesAsOftenAsItIsReleased) {
    const auto file = Open("[A]\r\nx=1\r\n");
    for (const std::int32_t value : {2, 3}) {
        file->SetLong(L"A", L"x", value);
        file->Release();
        EXPECT_EQ(Read("a.ini"), "[A]\r\nx=" + std::to_string(value) + "\r\n");
    }
}

/// Adds 1 to a number in the file, until that went well so many times.
void CountUp(const String& name, int times) {
    while (times > 0) {
        SettingsFiles files;
        const auto file = files.Open(name);
        file->SetLong(L"A", L"x", file->GetLong(L"A", L"x", 0) + 1);
        times -= ErrorIn([&] { file->Release(); }).Number() == 0 ? 1 : 0;
    }
}

TEST_F(DiskSettings, TwoProgramsThatSaveOneFileLoseNothing) {
    Write("a.ini", "[A]\r\nx=0\r\n");
    const pid_t child = ::fork();
    if (child == 0) {
        CountUp(name, 30);
        ::_exit(0);
    }
    CountUp(name, 30);
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=60\r\n");
    EXPECT_THAT(Names(), ElementsAre("a.ini"));
}

}  // namespace
}  // namespace ace::workbench
