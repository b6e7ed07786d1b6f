#include "workbench/files/file_store.h"

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <unistd.h>
#include <utility>

#include <ace/host/run_time_error.h>

#include "workbench/files/file_errors.h"
#include "workbench/files/links.h"
#include "workbench/files/system_reason.h"
#include "workbench/files/text_encoding.h"

namespace ace::workbench {

namespace {

[[noreturn]] void Fail(std::int32_t number, StringView what, const std::string& path,
                       StringView why) {
    throw RunTimeError(number, FromUtf8(path) + L": " + String(what) + L": " + String(why));
}

/// An open file that is closed when the scope ends; `Close` tells whether that went well.
class OpenFile {
  public:
    OpenFile(FileCalls& calls, int file) : x_calls(calls), x_file(file) {}
    ~OpenFile() {
        if (x_file >= 0) {
            x_calls.Close(x_file);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    int Number() const { return x_file; }
    int Close() { return x_calls.Close(std::exchange(x_file, -1)); }
    /// Gives the file up to the caller.
    int Release() { return std::exchange(x_file, -1); }
    void Reset(int file = -1) {
        if (x_file >= 0) {
            x_calls.Close(x_file);
        }
        x_file = file;
    }

  private:
    FileCalls& x_calls;
    int x_file;
};

/// Runs a call again while a signal breaks it off.
template <class Call>
auto Uninterrupted(Call&& call) {
    auto answer = call();
    while (answer < 0 && errno == EINTR) {
        answer = call();
    }
    return answer;
}

std::string ReadToEnd(const OpenFile& file, std::size_t expected, const std::string& path,
                      FileCalls& calls) {
    std::string bytes(expected + 1, '\0');  // one more, so that the end is met without growing
    for (std::size_t used = 0;;) {
        if (used == bytes.size()) {
            bytes.resize(2 * used);
        }
        const ssize_t count = Uninterrupted(
            [&] { return calls.Read(file.Number(), bytes.data() + used, bytes.size() - used); });
        if (count < 0) {
            Fail(FileErrors::CannotRead, L"can't be read", path, SystemReason(errno));
        }
        used += static_cast<std::size_t>(count);
        if (count == 0) {
            bytes.resize(used);
            return bytes;
        }
    }
}

/// One save: the steps in their order, each of which raises when it fails.
class Save {
  public:
    /// What makes sure that the old file may go. To be asked at the last moment.
    using Check = std::function<void(const std::string& path)>;

    Save(std::string path, Check check, FileCalls& calls)
        : x_calls(calls), x_path(std::move(path)), x_check(std::move(check)) {}
    ~Save() {
        if (!x_temporary.empty()) {
            x_calls.Unlink(x_temporary);  // the save has failed already; nothing more can be done
        }
    }
    Save(const Save&) = delete;
    Save& operator=(const Save&) = delete;

    void Run(std::string_view bytes) {
        FollowLinks();
        LookAtOldFile();
        // The lock outlives the name, so that nobody takes the file for one that was left behind.
        OpenFile lock(x_calls, -1);
        OpenFile file(x_calls, CreateTemporary(lock));
        KeepOwnerAndPermissions(file);
        WriteAll(file, bytes);
        Require(L"can't be flushed", Uninterrupted([&] { return x_calls.Fsync(file.Number()); }));
        Require(L"can't be closed", file.Close());
        if (x_check) {
            x_check(x_path);
        }
        Require(L"can't be replaced", x_calls.Rename(x_temporary, x_path));
        x_temporary.clear();
        FlushFolder();
    }

  private:
    void Require(StringView what, int answer) const {
        if (answer < 0) {
            Fail(FileErrors::CannotSave, what, x_path, SystemReason(errno));
        }
    }

    /// The same for a step with the file that gets the old name in the end.
    void RequireTemporary(StringView what, const std::string& name, int answer) const {
        if (answer < 0) {
            const String reason = SystemReason(errno);
            const String step = L"its temporary file " + FromUtf8(name) + L" " + String(what);
            Fail(FileErrors::CannotSave, step, x_path, reason);
        }
    }

    /// Renaming would replace the link instead of the file that it names.
    void FollowLinks() {
        const std::optional<std::string> target = WithoutLinks(x_path, x_calls);
        Require(L"can't be found", target ? 0 : -1);
        x_path = *target;
    }

    void LookAtOldFile() {
        if (x_calls.Stat(x_path, x_old) < 0) {
            if (errno != ENOENT) {
                Require(L"can't be read", -1);
            }
            return;
        }
        x_isNew = false;
        if (!S_ISREG(x_old.st_mode)) {
            Fail(FileErrors::CannotSave, L"can't be written", x_path, L"it is no plain file");
        }
        Require(L"can't be written", x_calls.MayWrite(x_path));
    }

    /// One name for each user and file.
    std::string TemporaryName() const {
        constexpr std::size_t LongestPart = 200;  // a name has at most 255 bytes
        return FolderOf(x_path) + ".ace-save-" + std::to_string(::geteuid()) + "-" +
               NameInFolder(x_path).substr(0, LongestPart);
    }

    int CreateTemporary(OpenFile& lock) {
        constexpr mode_t ByOwner = 0600;  // until the mode of the old file is given to it
        const mode_t mode = x_isNew ? 0666 : (x_old.st_mode & 0777) | ByOwner;
        const std::string name = TemporaryName();
        constexpr int MostTries = 100;
        for (int tries = 0; tries < MostTries; ++tries) {
            OpenFile file(x_calls,
                          x_calls.Open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
            if (file.Number() >= 0) {
                x_temporary = name;
                const Grip grip = TakeHold(name, lock);
                RequireTemporary(L"can't be opened", name, grip == Grip::None ? -1 : 0);
                if (grip == Grip::Held) {
                    return file.Release();
                }
                x_temporary.clear();  // another save took it for a leftover before it was locked
            } else if (errno == EEXIST) {
                TakeAwayLeftover(name);
            } else if (errno != EINTR) {
                RequireTemporary(L"can't be made", name, -1);
            }
        }
        FailAsBusy();
    }

    [[noreturn]] void FailAsBusy() const {
        Fail(FileErrors::CannotSave, L"can't be written", x_path, L"another program is saving it");
    }

    /// What became of locking the file of a name.
    enum class Grip {
        Held,
        Busy,  ///< somebody else holds it
        Gone,  ///< the name is another file's by now, or nobody's
        None,  ///< it can't be opened; `errno` says why
    };
    Grip TakeHold(const std::string& name, OpenFile& lock) {
        constexpr int Flags = O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
        lock.Reset();
        lock.Reset(Uninterrupted([&] { return x_calls.Open(name, Flags, 0); }));
        if (lock.Number() < 0) {
            return errno == ENOENT ? Grip::Gone : Grip::None;
        }
        if (Uninterrupted([&] { return x_calls.LockNow(lock.Number()); }) < 0) {
            RequireTemporary(L"can't be locked", name, errno == EWOULDBLOCK ? 0 : -1);
            return Grip::Busy;
        }
        struct stat held {};
        struct stat named {};
        RequireTemporary(L"can't be read", name, x_calls.Fstat(lock.Number(), held));
        const bool isThere = x_calls.Stat(name, named) == 0;
        RequireTemporary(L"can't be read", name, isThere || errno == ENOENT ? 0 : -1);
        const bool isSame = held.st_dev == named.st_dev && held.st_ino == named.st_ino;
        return isThere && isSame ? Grip::Held : Grip::Gone;
    }

    /// Whoever still saves holds the lock of the file; what can't even be opened is no such file.
    void TakeAwayLeftover(const std::string& name) {
        OpenFile leftover(x_calls, -1);
        const Grip grip = TakeHold(name, leftover);
        if (grip == Grip::Busy) {
            FailAsBusy();
        }
        if (grip != Grip::Gone) {
            RequireTemporary(L"of an earlier save can't be deleted", name, x_calls.Unlink(name));
        }
    }

    void KeepOwnerAndPermissions(const OpenFile& file) {
        if (x_isNew) {
            return;
        }
        struct stat made {};
        RequireTemporary(L"can't be read", x_temporary, x_calls.Fstat(file.Number(), made));
        const bool sameOwner = made.st_uid == x_old.st_uid;
        if (!sameOwner || made.st_gid != x_old.st_gid) {
            // Only the superuser may give a file away; the group is what a shared folder needs.
            constexpr auto KeepOwner = static_cast<uid_t>(-1);
            if (sameOwner || x_calls.Fchown(file.Number(), x_old.st_uid, x_old.st_gid) < 0) {
                Require(L"its group can't be kept",
                        x_calls.Fchown(file.Number(), KeepOwner, x_old.st_gid));
            }
        }
        Require(L"its permissions can't be kept",
                x_calls.Fchmod(file.Number(), x_old.st_mode & 07777));
    }

    void WriteAll(const OpenFile& file, std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t count = Uninterrupted(
                [&] { return x_calls.Write(file.Number(), bytes.data(), bytes.size()); });
            if (count == 0) {
                errno = ENOSPC;
            }
            Require(L"can't be written", count > 0 ? 0 : -1);
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    /// Until then a crash of the machine could bring the old file back. Some file systems have
    /// nothing to flush and say so.
    void FlushFolder() {
        constexpr StringView What = L"is saved, but its folder can't be flushed";
        OpenFile folder(x_calls,
                        x_calls.Open(FolderOf(x_path), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0));
        Require(What, folder.Number());
        const int answer = Uninterrupted([&] { return x_calls.Fsync(folder.Number()); });
        if (answer < 0 && errno != EINVAL && errno != ENOTSUP) {
            Require(What, answer);
        }
        Require(What, folder.Close());
    }

    FileCalls& x_calls;
    std::string x_path;
    Check x_check;
    std::string x_temporary;
    struct stat x_old {};
    bool x_isNew = true;
};

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, FileCalls& calls) {
    // Without waiting: a pipe of this name is refused below instead of being waited for.
    const auto open = [&] { return calls.Open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC, 0); };
    OpenFile file(calls, Uninterrupted(open));
    if (file.Number() < 0) {
        if (errno == ENOENT) {
            return std::nullopt;
        }
        Fail(FileErrors::CannotRead, L"can't be opened", path, SystemReason(errno));
    }
    struct stat status {};
    if (calls.Fstat(file.Number(), status) < 0) {
        Fail(FileErrors::CannotRead, L"can't be read", path, SystemReason(errno));
    }
    if (!S_ISREG(status.st_mode)) {
        Fail(FileErrors::CannotRead, L"can't be read", path, L"it is no plain file");
    }
    return ReadToEnd(file, static_cast<std::size_t>(status.st_size), path, calls);
}

void SaveWholeFile(const std::string& path, std::string_view bytes, FileCalls& calls) {
    Save(path, {}, calls).Run(bytes);
}

void SaveUnchangedFile(const std::string& path, const std::optional<std::string>& before,
                       std::string_view bytes, FileCalls& calls) {
    const auto check = [&](const std::string& target) {
        if (ReadWholeFile(target, calls) != before) {
            Fail(FileErrors::SaveRefused, L"not saved", path,
                 L"another program has changed it since it was read");
        }
    };
    Save(path, check, calls).Run(bytes);
}

}  // namespace ace::workbench
