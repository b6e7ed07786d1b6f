/// The system calls with which the workbench reads and saves files.
#pragma once

#include <cstddef>
#include <ctime>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>

namespace ace::workbench {

/// One operation a call, with the meaning, the answers and the `errno` of the call of its name. A
/// test overrides one to make it fail.
class FileCalls {
  public:
    virtual ~FileCalls() = default;
    virtual int Open(const std::string& path, int flags, mode_t mode);
    virtual int Stat(const std::string& path, struct stat& result);
    virtual int Fstat(int file, struct stat& result);
    /// Whether this process may write the file.
    virtual int MayWrite(const std::string& path);
    virtual ssize_t Readlink(const std::string& path, char* buffer, std::size_t size);
    virtual ssize_t Read(int file, char* buffer, std::size_t size);
    virtual ssize_t Write(int file, const char* bytes, std::size_t size);
    virtual int Fchown(int file, uid_t owner, gid_t group);
    virtual int Fchmod(int file, mode_t mode);
    virtual int Fsync(int file);
    /// Locks the whole file against everybody else who asks, without waiting.
    virtual int LockNow(int file);
    virtual int Close(int file);
    virtual int Rename(const std::string& from, const std::string& to);
    virtual int Unlink(const std::string& path);
    /// The time of the day, by which the times of files are judged.
    virtual std::timespec Now();
};

/// The calls of this machine.
FileCalls& SystemFileCalls();

}  // namespace ace::workbench
