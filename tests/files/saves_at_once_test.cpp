/// Saves beside others: of programs that were killed, that save at the same time, that were faster.
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"
#include "workbench/files/file_store.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;

class SavesAtOnce : public FolderTest {};

/// The process ends in the middle of its save.
class KilledAtTheRename : public FileCalls {
  public:
    int Rename(const std::string&, const std::string&) override { return ::raise(SIGKILL); }
};

TEST_F(SavesAtOnce, WhatAKilledSaveLeftIsTakenAwayByTheNextOne) {
    Write("a.ini", "old");
    for (int kill = 0; kill < 3; ++kill) {
        const pid_t child = ::fork();
        if (child == 0) {
            KilledAtTheRename killed;
            SaveWholeFile(Path("a.ini"), "lost", killed);
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
        EXPECT_EQ(Names().size(), 2U) << kill;  // never more than one
        EXPECT_EQ(Read("a.ini"), "old");
    }
    SaveWholeFile(Path("a.ini"), "new");
    EXPECT_THAT(Names(), ElementsAre("a.ini"));
    EXPECT_EQ(Read("a.ini"), "new");
}

TEST_F(SavesAtOnce, ASaveThatIsUnderWayIsNotDisturbed) {
    Write("a.ini", "old");
    const std::string name = ".ace-save-" + std::to_string(::geteuid()) + "-a.ini";
    Write(name, "half of it");
    const int other = ::open(Path(name).c_str(), O_WRONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    EXPECT_EQ(ErrorIn([&] { SaveWholeFile(Path("a.ini"), "new"); }).Description(),
              WidePath("a.ini") + L": can't be written: another program is saving it");
    EXPECT_EQ(Read("a.ini"), "old");
    EXPECT_EQ(Read(name), "half of it");
    ::close(other);
    SaveWholeFile(Path("a.ini"), "new");
    EXPECT_EQ(Read("a.ini"), "new");
}

TEST_F(SavesAtOnce, ALinkInTheWayOfTheNewFileIsTakenAwayAndNotFollowed) {
    Write("precious", "kept");
    const std::string name = ".ace-save-" + std::to_string(::geteuid()) + "-a.ini";
    std::filesystem::create_symlink("precious", Path(name));
    SaveWholeFile(Path("a.ini"), "new");
    EXPECT_EQ(Read("precious"), "kept");
    EXPECT_THAT(Names(), ElementsAre("a.ini", "precious"));
}

TEST_F(SavesAtOnce, AFileWithALongNameIsSaved) {
    const std::string name(255, 'n');
    SaveWholeFile(Path(name), "new");
    EXPECT_EQ(Read(name), "new");
}

TEST_F(SavesAtOnce, AFileIsReplacedOnlyWhileItIsTheOneThatWasRead) {
    Write("a.ini", "read");
    SaveUnchangedFile(Path("a.ini"), "read", "first");
    EXPECT_EQ(Read("a.ini"), "first");
    SaveUnchangedFile(Path("new.ini"), std::nullopt, "made");
    EXPECT_EQ(Read("new.ini"), "made");
    const auto refused = [&](const std::string& name, const std::optional<std::string>& before) {
        return ErrorIn([&] { SaveUnchangedFile(Path(name), before, "second"); });
    };
    EXPECT_EQ(refused("a.ini", "read").Number(), FileErrors::SaveRefused);
    EXPECT_EQ(refused("a.ini", "read").Description(),
              WidePath("a.ini") + L": not saved: another program has changed it since it was read");
    EXPECT_EQ(refused("new.ini", std::nullopt).Number(), FileErrors::SaveRefused);
    EXPECT_EQ(refused("gone.ini", "read").Number(), FileErrors::SaveRefused);
    EXPECT_EQ(Read("a.ini"), "first");
    EXPECT_EQ(Read("new.ini"), "made");
    EXPECT_THAT(Names(), ElementsAre("a.ini", "new.ini"));
}

TEST_F(SavesAtOnce, AnotherHardLinkKeepsTheOldContent) {
    Write("a.ini", "old");
    std::filesystem::create_hard_link(Path("a.ini"), Path("same.ini"));
    SaveWholeFile(Path("a.ini"), "new");
    EXPECT_EQ(Read("a.ini"), "new");
    EXPECT_EQ(Read("same.ini"), "old");
}

}  // namespace
}  // namespace ace::workbench
