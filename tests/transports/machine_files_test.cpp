#include "workbench/transports/machine_files.h"

#include "transports/script_fixture.h"

namespace ace::workbench {
namespace {

using MachineFilesTest = ScriptTest;

/// Works in a folder as long as it lives.
class CurrentFolder {
  public:
    explicit CurrentFolder(const std::string& folder) { std::filesystem::current_path(folder); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    ~CurrentFolder() { std::filesystem::current_path(x_before); }

  private:
    std::filesystem::path x_before = std::filesystem::current_path();
};

TEST_F(MachineFilesTest, AFolderIsNoPlainFile) {
    Write("a.wav", "RIFF");
    EXPECT_TRUE(IsPlainFile(Path("a.wav")));
    EXPECT_FALSE(IsPlainFile(folder));
    EXPECT_FALSE(IsPlainFile(Path("missing")));
    EXPECT_FALSE(IsPlainFile(""));
}

TEST_F(MachineFilesTest, AProgramMustBeExecutable) {
    Write("plain", "");
    Script("script", "exit 0");
    EXPECT_FALSE(IsProgramFile(Path("plain")));
    EXPECT_TRUE(IsProgramFile(Path("script")));
    EXPECT_FALSE(IsProgramFile(folder)) << "a folder can be entered, not run";
}

TEST_F(MachineFilesTest, ANameWithASlashIsAPath) {
    Script("script", "exit 0");
    EXPECT_EQ(FindProgram(Path("script"), "/nowhere"), Path("script"));
    EXPECT_EQ(FindProgram("./script", folder), std::nullopt);
}

TEST_F(MachineFilesTest, APlainNameIsLookedForInTheFoldersInTheirOrder) {
    for (const char* sub : {"one", "two"}) {
        std::filesystem::create_directory(Path(sub));
    }
    const std::string folders = Path("one") + ":" + Path("two");
    EXPECT_EQ(FindProgram("script", folders), std::nullopt);
    Script("two/script", "exit 0");
    Write("one/script", "not executable");
    EXPECT_EQ(FindProgram("script", folders), Path("two/script"));
    Script("one/script", "exit 0");
    EXPECT_EQ(FindProgram("script", folders), Path("one/script"));
    EXPECT_EQ(FindProgram("", folders), std::nullopt);
}

TEST_F(MachineFilesTest, AnEmptyFolderOfTheSearchPathIsTheCurrentOne) {
    Script("script", "exit 0");
    for (const char* path : {"", ":/nowhere", "/nowhere:", "/nowhere::/nowhere"}) {
        EXPECT_EQ(FindProgram("script", path), std::nullopt) << path;
    }
    const CurrentFolder current(folder);
    for (const char* path : {"", ":/nowhere", "/nowhere:", "/nowhere::/nowhere"}) {
        EXPECT_EQ(FindProgram("script", path), "./script") << path;
    }
    EXPECT_EQ(FindProgram("script", "/nowhere"), std::nullopt);
}

}  // namespace
}  // namespace ace::workbench
