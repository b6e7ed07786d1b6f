/// What is known of settings files beyond their bytes: loads that failed, changes not yet saved,
/// and sections that another program has changed.
#include <cerrno>

#include "files/counting_calls.h"
#include "support/file_fixture.h"
#include "workbench/files/disk_settings_file.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

using ::testing::HasSubstr;

class SettingsFilesTest : public FolderTest {
  protected:
    SettingsFiles files;
    String name = WidePath("a.ini");
};

TEST_F(SettingsFilesTest, AfterALoadThatFailedNothingIsSavedUntilOneWentWell) {
    const std::string bytes = "[A]\r\nx=1\r\n";
    Write("a.ini", bytes);
    const auto file = files.Open(name);
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceTemplate, [] { Raise(13); }); }).Number(), 13);
    EXPECT_TRUE(files.LoadFailed(name, aceTemplate));
    bool ran = false;
    EXPECT_EQ(ErrorIn([&] { files.Save(name, aceTemplate, [&] { ran = true; }); }).Number(),
              FileErrors::SaveRefused);
    EXPECT_FALSE(ran);
    file->SetLong(L"A", L"x", 2);
    const RunTimeError error = ErrorIn([&] { file->Release(); });
    EXPECT_EQ(error.Number(), FileErrors::SaveRefused);
    EXPECT_THAT(error.Description(), HasSubstr(name));
    EXPECT_EQ(Read("a.ini"), bytes);
    files.Load(name, aceTemplate, [] {});
    file->Release();
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=2\r\n");
}

/// A load that is refused because a list runs has replaced nothing; any other may have, if only the
/// name of the file and the module.
TEST_F(SettingsFilesTest, ALoadThatIsRefusedBecauseAListRunsLeavesTheFileAsGoodAsItWas) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    files.Load(name, aceTemplate, [&] { files.Open(name)->GetSection(L"A"); });
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceTemplate, [] { Raise(10); }); }).Number(), 10);
    EXPECT_FALSE(files.LoadFailed(name, aceTemplate));
    const auto refuse = [&] {
        const auto opened = files.Open(name);
        Raise(7);
    };
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceTemplate, refuse); }).Number(), 7);
    EXPECT_TRUE(files.LoadFailed(name, aceTemplate));
}

TEST_F(SettingsFilesTest, ARefusedLoadDoesNotMakeABadFileGood) {
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceTemplate, [] { Raise(13); }); }).Number(), 13);
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceTemplate, [] { Raise(10); }); }).Number(), 10);
    EXPECT_TRUE(files.LoadFailed(name, aceTemplate));
}

/// Two programs load both sections; each saves one of them, then the first one that of the other.
TEST_F(SettingsFilesTest, ASectionThatAnotherProgramHasChangedSinceTheLoadIsNotOverwritten) {
    Write("a.ini", "[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
    SettingsFiles others;
    for (SettingsFiles* program : {&files, &others}) {
        program->Load(name, aceTemplate, [&] {
            program->Open(name)->GetSection(L"A");
            program->Open(name)->GetString(L"B", L"y", {});
        });
    }
    const auto save = [&](SettingsFiles& program, const String& section, const String& line) {
        program.Save(name, aceTemplate, [&] {
            const auto file = program.Open(name);
            file->SetSection(section, line);
            file->Release();
        });
    };
    save(others, L"A", L"x=2");
    save(files, L"B", L"y=2");
    const RunTimeError error = ErrorIn([&] { save(files, L"A", L"x=3"); });
    EXPECT_EQ(error.Number(), FileErrors::SaveRefused);
    EXPECT_EQ(error.Description(), name +
                                       L": not saved, because another program has changed "
                                       L"section [A] since it was loaded");
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=2\r\n[B]\r\ny=2\r\n");
    files.Load(name, aceTemplate, [&] { files.Open(name)->GetSection(L"A"); });
    save(files, L"A", L"x=3");
    save(files, L"A", L"x=4");
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=4\r\n[B]\r\ny=2\r\n");
}

/// A module that is loaded from the same file afterwards takes nothing of that away.
TEST_F(SettingsFilesTest, TheSectionsOfAllLoadsOfAFileAreLookedAfter) {
    Write("a.ini", "[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
    for (const wchar_t* section : {L"A", L"B"}) {
        files.Load(name, aceTemplate, [&] { files.Open(name)->GetSection(section); });
    }
    Write("a.ini", "[A]\r\nx=2\r\n[B]\r\ny=1\r\n");
    const auto save = [&](const wchar_t* section) {
        files.Save(name, aceTemplate, [&] { files.Open(name)->SetSection(section, L"z=1"); });
    };
    EXPECT_EQ(ErrorIn([&] { save(L"A"); }).Number(), FileErrors::SaveRefused);
    EXPECT_EQ(ErrorIn([&] { save(L"B"); }).Number(), 0);
}

TEST_F(SettingsFilesTest, AGoodLoadOfAnotherModuleDoesNotMakeABadOneGood) {
    Write("a.ini", "[A]\r\nx=1\r\n[B]\r\ny=1\r\n");
    const auto save = [&](aceModul module, const wchar_t* section, const wchar_t* line) {
        files.Save(name, module, [&] {
            const auto file = files.Open(name);
            file->SetSection(section, String(line));
            file->Release();
        });
    };
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceEMSAutoTemplate, [] { Raise(13); }); }).Number(),
              13);
    files.Load(name, aceEMSAutoTemplateGeneral, [&] { files.Open(name)->GetSection(L"A"); });
    EXPECT_TRUE(files.LoadFailed(name, aceEMSAutoTemplate));
    EXPECT_FALSE(files.LoadFailed(name, aceEMSAutoTemplateGeneral));
    EXPECT_EQ(ErrorIn([&] { save(aceEMSAutoTemplate, L"B", L"z=1"); }).Number(),
              FileErrors::SaveRefused);
    save(aceEMSAutoTemplateGeneral, L"A", L"x=2");
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=2\r\n[B]\r\ny=1\r\n");
    files.Load(name, aceEMSAutoTemplate, [] {});
    save(aceEMSAutoTemplate, L"B", L"y=2");
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=2\r\n[B]\r\ny=2\r\n");
}

TEST_F(SettingsFilesTest, EachModuleOfAFileHasItsOwnMarkOfUnsavedChanges) {
    Write("a.ini", "[A]\r\n");
    for (const aceModul module : {aceEMSAutoTemplateGeneral, aceEMSAutoTemplate}) {
        files.MarkUnsaved(name, module);
    }
    files.Save(name, aceEMSAutoTemplateGeneral, [] {});
    EXPECT_FALSE(files.IsUnsaved(name, aceEMSAutoTemplateGeneral));
    EXPECT_TRUE(files.IsUnsaved(name, aceEMSAutoTemplate));
    EXPECT_TRUE(files.AnyUnsaved());
    files.Load(name, aceEMSAutoTemplateGeneral, [] {});
    EXPECT_TRUE(files.IsUnsaved(name, aceEMSAutoTemplate));
    files.Load(name, aceEMSAutoTemplate, [] {});
    EXPECT_FALSE(files.AnyUnsaved());
}

TEST_F(SettingsFilesTest, AnotherSpellingOfTheNameIsTheSameFile) {
    Write("a.ini", "[A]\r\n");
    std::filesystem::create_symlink("a.ini", Path("link.ini"));
    files.MarkUnsaved(name, aceTemplate);
    EXPECT_TRUE(files.IsUnsaved(WidePath("./a.ini"), aceTemplate));
    EXPECT_TRUE(files.IsUnsaved(WidePath("link.ini"), aceTemplate));
    EXPECT_FALSE(files.IsUnsaved(WidePath("b.ini"), aceTemplate));
}

TEST_F(SettingsFilesTest, TheMarkOfUnsavedChangesGoesOnlyWhenASaveWentWell) {
    CountingCalls calls;
    SettingsFiles failing(calls);
    Write("a.ini", "[A]\r\n");
    const auto save = [&] {
        const auto file = failing.Open(name);
        file->SetLong(L"A", L"x", 1);
        file->Release();
    };
    failing.MarkUnsaved(name, aceTemplate);
    EXPECT_TRUE(failing.AnyUnsaved());
    calls.failWith = EIO;
    EXPECT_EQ(ErrorIn([&] { failing.Save(name, aceTemplate, save); }).Number(),
              FileErrors::CannotSave);
    EXPECT_TRUE(failing.IsUnsaved(name, aceTemplate));
    EXPECT_EQ(Read("a.ini"), "[A]\r\n");
    calls.failWith = 0;
    failing.Save(name, aceTemplate, save);
    EXPECT_FALSE(failing.IsUnsaved(name, aceTemplate));
    EXPECT_FALSE(failing.AnyUnsaved());
    EXPECT_EQ(Read("a.ini"), "[A]\r\nx=1\r\n");
}

TEST_F(SettingsFilesTest, ALoadTakesTheMarkOfUnsavedChangesAway) {
    Write("a.ini", "[A]\r\n");
    files.MarkUnsaved(name, aceTemplate);
    EXPECT_EQ(ErrorIn([&] { files.Load(name, aceTemplate, [] { Raise(9); }); }).Number(), 9);
    EXPECT_TRUE(files.IsUnsaved(name, aceTemplate));
    files.Load(name, aceTemplate, [] {});
    EXPECT_FALSE(files.IsUnsaved(name, aceTemplate));
}

TEST_F(SettingsFilesTest, ASaveMakesAFileThatIsMissing) {
    const String later = WidePath("later.ini");
    files.Save(later, aceTemplate, [&] {
        const auto file = files.Open(later);
        file->SetSection(L"ActionsOnTest", Value(String()));
        file->Release();
    });
    EXPECT_EQ(Read("later.ini"), "[ActionsOnTest]\r\n");
    EXPECT_EQ(files.Open(WidePath("none.ini")), nullptr);
}

}  // namespace
}  // namespace ace::workbench
