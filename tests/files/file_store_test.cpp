#include "workbench/files/file_store.h"

#include <cerrno>
#include <fcntl.h>

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// Counts the calls and lets one of them fail. The bookkeeping calls of a failed save go through.
class FailingCalls : public FileCalls {
  public:
    int failAt = 0;            ///< number of the call that fails, from 1; 0 for none
    int failWith = EIO;        ///< its `errno`
    bool failForEver = false;  ///< the later ones fail too
    int calls = 0;
    std::vector<std::string> names;
    std::size_t mostAtOnce = static_cast<std::size_t>(-1);  ///< bytes that one read or write takes

    int Open(const std::string& path, int flags, mode_t mode) override {
        return Fails("open") ? -1 : FileCalls::Open(path, flags, mode);
    }
    int Stat(const std::string& path, struct stat& result) override {
        return Fails("stat") ? -1 : FileCalls::Stat(path, result);
    }
    int Fstat(int file, struct stat& result) override {
        return Fails("fstat") ? -1 : FileCalls::Fstat(file, result);
    }
    int MayWrite(const std::string& path) override {
        return Fails("access") ? -1 : FileCalls::MayWrite(path);
    }
    ssize_t Readlink(const std::string& path, char* buffer, std::size_t size) override {
        return Fails("readlink") ? -1 : FileCalls::Readlink(path, buffer, size);
    }
    ssize_t Read(int file, char* buffer, std::size_t size) override {
        return Fails("read") ? -1 : FileCalls::Read(file, buffer, std::min(size, mostAtOnce));
    }
    ssize_t Write(int file, const char* bytes, std::size_t size) override {
        return Fails("write") ? -1 : FileCalls::Write(file, bytes, std::min(size, mostAtOnce));
    }
    int Fchown(int file, uid_t owner, gid_t group) override {
        return Fails("fchown") ? -1 : FileCalls::Fchown(file, owner, group);
    }
    int Fchmod(int file, mode_t mode) override {
        return Fails("fchmod") ? -1 : FileCalls::Fchmod(file, mode);
    }
    int LockNow(int file) override { return Fails("lock") ? -1 : FileCalls::LockNow(file); }
    int Fsync(int file) override { return Fails("fsync") ? -1 : FileCalls::Fsync(file); }
    /// A failed close has given the file up all the same.
    int Close(int file) override {
        const bool fails = Fails("close");
        const int answer = FileCalls::Close(file);
        if (fails) {
            errno = failWith;
            return -1;
        }
        return answer;
    }
    int Rename(const std::string& from, const std::string& to) override {
        return Fails("rename") ? -1 : FileCalls::Rename(from, to);
    }
    int Unlink(const std::string& path) override {
        names.push_back("unlink");
        return FileCalls::Unlink(path);
    }

  private:
    bool Fails(const std::string& name) {
        names.push_back(name);
        ++calls;
        const bool fails = failAt != 0 && (calls == failAt || (failForEver && calls > failAt));
        if (fails) {
            errno = failWith;
        }
        return fails;
    }
};

class FileStore : public FolderTest {
  protected:
    FailingCalls calls;
};

// ---- reading -----------------------------------------------------------------------------------

TEST_F(FileStore, AFileIsReadWhole) {
    Write("a.ini", std::string("[A]\r\n\0\xFF", 7));
    EXPECT_EQ(ReadWholeFile(Path("a.ini")), std::string("[A]\r\n\0\xFF", 7));
    Write("empty.ini", "");
    EXPECT_EQ(ReadWholeFile(Path("empty.ini")), "");
}

TEST_F(FileStore, AMissingFileIsNothingAndNoError) {
    EXPECT_EQ(ReadWholeFile(Path("none.ini")), std::nullopt);
    EXPECT_EQ(ReadWholeFile(Path("no folder/none.ini")), std::nullopt);
}

TEST_F(FileStore, AFolderOrAPipeIsAnErrorThatNamesItAndNeverAnEmptyFile) {
    ASSERT_EQ(::mkfifo(Path("pipe.ini").c_str(), 0600), 0);
    for (const std::string& path : {folder, Path("pipe.ini"), std::string("/dev/null")}) {
        const RunTimeError error = ErrorIn([&] { ReadWholeFile(path); });
        EXPECT_EQ(error.Number(), FileErrors::CannotRead);
        EXPECT_EQ(error.Description(),
                  String(path.begin(), path.end()) + L": can't be read: it is no plain file");
    }
}

TEST_F(FileStore, EachCallOfAReadThatFailsIsAnErrorWithTheReason) {
    Write("a.ini", "[A]\r\n");
    for (int k = 1; k <= 4; ++k) {  // open, fstat, read, read that finds the end
        FailingCalls failing;
        failing.failAt = k;
        const RunTimeError error = ErrorIn([&] { ReadWholeFile(Path("a.ini"), failing); });
        EXPECT_EQ(error.Number(), FileErrors::CannotRead) << k;
        EXPECT_THAT(error.Description(), HasSubstr(WidePath("a.ini") + L": can't be "));
        EXPECT_THAT(error.Description(), HasSubstr(L"Input/output error"));
    }
    ReadWholeFile(Path("a.ini"), calls);
    EXPECT_THAT(calls.names, ElementsAre("open", "fstat", "read", "read", "close"));
}

TEST_F(FileStore, AReadThatASignalBreaksOffGoesOn) {
    Write("a.ini", "[A]\r\n");
    for (const int k : {1, 3, 4}) {
        FailingCalls failing;
        failing.failAt = k;
        failing.failWith = EINTR;
        EXPECT_EQ(ReadWholeFile(Path("a.ini"), failing), "[A]\r\n");
    }
}

TEST_F(FileStore, AReadInSmallPiecesAndOfAFileThatGrewIsWhole) {
    Write("a.ini", "0123456789");
    calls.mostAtOnce = 3;
    EXPECT_EQ(ReadWholeFile(Path("a.ini"), calls), "0123456789");
    // the system says 0 bytes of these files, which grow while they are read
    EXPECT_GT(ReadWholeFile("/proc/self/status")->size(), 100U);
}

// ---- saving ------------------------------------------------------------------------------------

TEST_F(FileStore, ASaveWritesFlushesRenamesAndFlushesTheFolderInThisOrder) {
    Write("a.ini", "old");
    SaveWholeFile(Path("a.ini"), "new", calls);
    EXPECT_EQ(Read("a.ini"), "new");
    EXPECT_THAT(Names(), ElementsAre("a.ini"));
    EXPECT_THAT(calls.names, ElementsAre("readlink", "stat", "access", "open", "open", "lock",
                                         "fstat", "stat", "fstat", "fchmod", "write", "fsync",
                                         "close", "rename", "open", "fsync", "close", "close"));
}

TEST_F(FileStore, ANewFileIsMadeWithTheUsersOwnPermissions) {
    const mode_t old = ::umask(027);
    SaveWholeFile(Path("new.ini"), "x");
    ::umask(old);
    EXPECT_EQ(Read("new.ini"), "x");
    EXPECT_EQ(ModeOf(Path("new.ini")), 0640U);
}

TEST_F(FileStore, TheEmptyContentIsSavedToo) {
    Write("a.ini", "old");
    SaveWholeFile(Path("a.ini"), "");
    EXPECT_EQ(Read("a.ini"), "");
}

TEST_F(FileStore, PermissionsOfTheOldFileAreKeptWhateverTheMask) {
    Write("a.ini", "old");
    for (const mode_t mode : {0600U, 0664U, 0777U}) {
        ASSERT_EQ(::chmod(Path("a.ini").c_str(), mode), 0);
        SaveWholeFile(Path("a.ini"), "new");
        EXPECT_EQ(ModeOf(Path("a.ini")), mode);
    }
}

TEST_F(FileStore, WhenAnyCallFailsTheOldFileStandsUntilTheRename) {
    constexpr int Calls = 17;  // all but the end of the lock, which has no more to say
    constexpr int RenameIsCall = 14;
    for (const bool forEver : {false, true}) {
        for (int k = 1; k <= Calls; ++k) {
            Write("a.ini", "old");
            FailingCalls failing;
            failing.failAt = k;
            failing.failWith = ENOSPC;
            failing.failForEver = forEver;
            const RunTimeError error =
                ErrorIn([&] { SaveWholeFile(Path("a.ini"), "new", failing); });
            EXPECT_EQ(error.Number(), FileErrors::CannotSave) << k;
            EXPECT_THAT(error.Description(), HasSubstr(WidePath("a.ini") + L": "));
            EXPECT_THAT(error.Description(), HasSubstr(L": No space left on device"));
            EXPECT_EQ(Read("a.ini"), k <= RenameIsCall ? "old" : "new") << k;
            EXPECT_EQ(error.Description().find(L"is saved, but") != String::npos, k > RenameIsCall);
            EXPECT_THAT(Names(), ElementsAre("a.ini")) << k;
        }
    }
}

TEST_F(FileStore, ACallThatASignalBreaksOffIsMadeAgain) {
    for (const int k : {4, 5, 6, 11, 12, 16}) {  // open, open, lock, write, fsync, fsync
        Write("a.ini", "old");
        FailingCalls failing;
        failing.failAt = k;
        failing.failWith = EINTR;
        SaveWholeFile(Path("a.ini"), "new", failing);
        EXPECT_EQ(Read("a.ini"), "new");
        EXPECT_THAT(Names(), ElementsAre("a.ini"));
    }
}

TEST_F(FileStore, AWriteInSmallPiecesIsWhole) {
    calls.mostAtOnce = 3;
    SaveWholeFile(Path("a.ini"), "0123456789", calls);
    EXPECT_EQ(Read("a.ini"), "0123456789");
}

TEST_F(FileStore, AFolderThatHasNothingToFlushIsNoFailure) {
    Write("a.ini", "old");
    calls.failAt = 16;
    calls.failWith = EINVAL;
    SaveWholeFile(Path("a.ini"), "new", calls);
    EXPECT_EQ(Read("a.ini"), "new");
}

/// Writes go to the device that is always full.
class FullDisk : public FileCalls {
  public:
    ssize_t Write(int, const char* bytes, std::size_t size) override {
        const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
        const ssize_t answer = ::write(full, bytes, size);
        const int error = errno;
        ::close(full);
        errno = error;
        return answer;
    }
};

TEST_F(FileStore, AFullDiskLeavesTheOldFile) {
    Write("a.ini", "old");
    FullDisk full;
    EXPECT_EQ(ErrorIn([&] { SaveWholeFile(Path("a.ini"), "new", full); }).Description(),
              WidePath("a.ini") + L": can't be written: No space left on device");
    EXPECT_EQ(Read("a.ini"), "old");
    EXPECT_THAT(Names(), ElementsAre("a.ini"));
}

/// While it lives, the process has no more rights than an ordinary user.
class OrdinaryUser {
  public:
    OrdinaryUser() {
        constexpr uid_t Nobody = 65534;
        x_isOn = ::geteuid() != 0 || ::seteuid(Nobody) == 0;
    }
    ~OrdinaryUser() {
        if (::geteuid() != x_before) {
            EXPECT_EQ(::seteuid(x_before), 0);
        }
    }
    bool IsOn() const { return x_isOn; }

  private:
    uid_t x_before = ::geteuid();
    bool x_isOn = false;
};

TEST_F(FileStore, AFolderThatMayNotBeWrittenIsAnErrorAndTheFileStands) {
    Write("a.ini", "old");
    ASSERT_EQ(::chmod(Path("a.ini").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.c_str(), 0555), 0);
    RunTimeError error(0);
    std::string temporary;
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.IsOn());
        temporary = ".ace-save-" + std::to_string(::geteuid()) + "-a.ini";
        error = ErrorIn([&] { SaveWholeFile(Path("a.ini"), "new"); });
    }
    EXPECT_EQ(error.Description(), WidePath("a.ini") + L": its temporary file " +
                                       WidePath(temporary) + L" can't be made: Permission denied");
    EXPECT_EQ(Read("a.ini"), "old");
    EXPECT_EQ(::chmod(folder.c_str(), 0755), 0);
}

TEST_F(FileStore, AFileThatMayNotBeWrittenIsNotReplaced) {
    Write("a.ini", "old");
    ASSERT_EQ(::chmod(Path("a.ini").c_str(), 0444), 0);
    ASSERT_EQ(::chmod(folder.c_str(), 0777), 0);
    RunTimeError error(0);
    {
        const OrdinaryUser user;
        ASSERT_TRUE(user.IsOn());
        error = ErrorIn([&] { SaveWholeFile(Path("a.ini"), "new"); });
    }
    EXPECT_EQ(error.Description(), WidePath("a.ini") + L": can't be written: Permission denied");
    EXPECT_EQ(Read("a.ini"), "old");
}

TEST_F(FileStore, LinksAreFollowedAndStayLinks) {
    std::filesystem::create_directory(Path("real"));
    Write("real/a.ini", "old");
    std::filesystem::create_symlink("real/a.ini", Path("near.ini"));
    std::filesystem::create_symlink(Path("near.ini"), Path("far.ini"));
    SaveWholeFile(Path("far.ini"), "new");
    EXPECT_EQ(Read("real/a.ini"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(Path("far.ini")));
    EXPECT_TRUE(std::filesystem::is_symlink(Path("near.ini")));
    EXPECT_THAT(Names(), ElementsAre("far.ini", "near.ini", "real"));
}

TEST_F(FileStore, ALinkToAFileThatIsNotThereYetMakesThatFile) {
    std::filesystem::create_symlink("later.ini", Path("link.ini"));
    SaveWholeFile(Path("link.ini"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(Path("link.ini")));
    EXPECT_EQ(Read("later.ini"), "new");
}

TEST_F(FileStore, LinksInACircleAreAnError) {
    std::filesystem::create_symlink("b.ini", Path("a.ini"));
    std::filesystem::create_symlink("a.ini", Path("b.ini"));
    EXPECT_EQ(ErrorIn([&] { SaveWholeFile(Path("a.ini"), "new"); }).Number(),
              FileErrors::CannotSave);
}

TEST_F(FileStore, AFolderIsNotReplaced) {
    EXPECT_EQ(ErrorIn([&] { SaveWholeFile(folder, "new"); }).Number(), FileErrors::CannotSave);
    EXPECT_TRUE(std::filesystem::is_directory(folder));
}

/// Says that the old file belongs to somebody else.
class OthersFile : public FailingCalls {
  public:
    uid_t owner = 0;
    gid_t group = 0;
    std::vector<std::pair<uid_t, gid_t>> asked;
    int refusals = 0;

    int Stat(const std::string& path, struct stat& result) override {
        const int answer = FileCalls::Stat(path, result);
        result.st_uid += owner;
        result.st_gid += group;
        return answer;
    }
    int Fchown(int, uid_t user, gid_t ofGroup) override {
        asked.emplace_back(user, ofGroup);
        errno = EPERM;
        return static_cast<int>(asked.size()) <= refusals ? -1 : 0;
    }
};

TEST_F(FileStore, OwnerAndGroupOfTheOldFileAreKept) {
    Write("a.ini", "old");
    OthersFile others;
    others.owner = 1;
    others.group = 1;
    SaveWholeFile(Path("a.ini"), "new", others);
    EXPECT_THAT(others.asked, ElementsAre(std::pair(::geteuid() + 1, ::getegid() + 1)));
    EXPECT_EQ(Read("a.ini"), "new");
}

TEST_F(FileStore, AnOwnerThatCannotBeKeptIsGivenUpButNotTheGroup) {
    Write("a.ini", "old");
    const auto sameOwner = static_cast<uid_t>(-1);
    OthersFile others;
    others.owner = 1;
    others.group = 1;
    others.refusals = 1;
    SaveWholeFile(Path("a.ini"), "newer", others);
    EXPECT_EQ(others.asked.back(), std::pair(sameOwner, ::getegid() + 1));
    EXPECT_EQ(Read("a.ini"), "newer");
    others.asked.clear();
    others.refusals = 2;
    EXPECT_EQ(ErrorIn([&] { SaveWholeFile(Path("a.ini"), "newest", others); }).Description(),
              WidePath("a.ini") + L": its group can't be kept: Operation not permitted");
    EXPECT_EQ(Read("a.ini"), "newer");
    EXPECT_THAT(Names(), ElementsAre("a.ini"));
}

}  // namespace
}  // namespace ace::workbench
