#include "workbench/transports/macro_sync.h"

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

class MacroSyncTest : public FolderTest {
  protected:
    MacroSync sync{Path("MacroSync.ini")};

    std::string File() const { return Read("MacroSync.ini"); }
    void SetFile(const std::string& bytes) const { Write("MacroSync.ini", bytes); }
};

TEST_F(MacroSyncTest, WritingMakesTheFile) {
    sync.Write(1, 14, L"STARTED");
    EXPECT_EQ(File(), "[Group1]\r\n14=STARTED\r\n");
    EXPECT_EQ(sync.Read(14), L"STARTED");
}

TEST_F(MacroSyncTest, EveryReadingTakesTheFileAsItIs) {
    EXPECT_EQ(sync.Read(14), L"");
    SetFile("[Group1]\n14=STARTED\n");
    EXPECT_EQ(sync.Read(14), L"STARTED");
    SetFile("[Group1]\n14=COMPLETED\n");
    EXPECT_EQ(sync.Read(14), L"COMPLETED");
    std::filesystem::remove(sync.Path());
    EXPECT_EQ(sync.Read(14), L"");
}

TEST_F(MacroSyncTest, AProgramMaySimplyAddALine) {
    sync.Write(1, 14, L"STARTED");
    SetFile(File() + "14=COMPLETED\n");
    EXPECT_EQ(sync.Read(14), L"COMPLETED");
}

TEST_F(MacroSyncTest, WritingTakesEveryOldLineOfTheKeyAway) {
    SetFile("; kept\n[Group1]\n13=A\n14=COMPLETED\n[Group2]\n 14 = COMPLETED\n15=B\n14=COMPLETED");
    sync.Write(1, 14, L"STARTED");
    EXPECT_EQ(File(), "; kept\r\n[Group1]\r\n14=STARTED\r\n13=A\r\n[Group2]\r\n15=B\r\n");
    EXPECT_EQ(sync.Read(14), L"STARTED");
    EXPECT_EQ(sync.Read(13), L"A");
}

TEST_F(MacroSyncTest, ANewGroupGoesToTheEnd) {
    SetFile("[Group2]\r\n5=x");
    sync.Write(1, 14, L"STARTED");
    EXPECT_EQ(File(), "[Group2]\r\n5=x\r\n[Group1]\r\n14=STARTED\r\n");
}

TEST_F(MacroSyncTest, BlanksAroundAreNotPartOfTheValueAndOtherKeysAreOtherKeys) {
    SetFile("[Group1]\n 14 =  COM PLETED \t\r\n114=no\n14x=no\n1=no\nnothing\n");
    EXPECT_EQ(sync.Read(14), L"COM PLETED");
    EXPECT_EQ(sync.Read(1), L"no");
    EXPECT_EQ(sync.Read(11), L"");
}

TEST_F(MacroSyncTest, ValuesAreUtf8) {
    sync.Write(1, 2, L"\x00B5");
    EXPECT_EQ(File(), "[Group1]\r\n2=\xC2\xB5\r\n");
    EXPECT_EQ(sync.Read(2), L"\x00B5");
}

TEST_F(MacroSyncTest, AFileWhoseTextCannotBeReadIsNotWrittenOver) {
    const std::string bigEndian("\xFE\xFF\0[\0A\0]", 8);
    SetFile(bigEndian);
    EXPECT_EQ(ErrorIn([&] { sync.Write(1, 14, L"STARTED"); }).Number(), FileErrors::CannotRead);
    EXPECT_EQ(ErrorIn([&] { sync.Read(14); }).Number(), FileErrors::CannotRead);
    EXPECT_EQ(File(), bigEndian);
}

TEST_F(MacroSyncTest, AFileThatCannotBeReadOrSavedIsAnError) {
    std::filesystem::create_directory(Path("MacroSync.ini"));
    EXPECT_EQ(ErrorIn([&] { sync.Read(14); }).Number(), FileErrors::CannotRead);
    EXPECT_EQ(ErrorIn([&] { sync.Write(1, 14, L"STARTED"); }).Number(), FileErrors::CannotRead);
    const MacroSync nowhere(Path("no/such/folder.ini"));
    EXPECT_EQ(nowhere.Read(14), L"");
    EXPECT_EQ(ErrorIn([&] { nowhere.Write(1, 14, L"STARTED"); }).Number(), FileErrors::CannotSave);
}

}  // namespace
}  // namespace ace::workbench
