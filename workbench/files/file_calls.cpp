#include "workbench/files/file_calls.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace ace::workbench {

int FileCalls::Open(const std::string& path, int flags, mode_t mode) {
    return ::open(path.c_str(), flags, mode);
}

int FileCalls::Stat(const std::string& path, struct stat& result) {
    return ::stat(path.c_str(), &result);
}

int FileCalls::Fstat(int file, struct stat& result) {
    return ::fstat(file, &result);
}

int FileCalls::MayWrite(const std::string& path) {
    return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS);
}

ssize_t FileCalls::Readlink(const std::string& path, char* buffer, std::size_t size) {
    return ::readlink(path.c_str(), buffer, size);
}

ssize_t FileCalls::Read(int file, char* buffer, std::size_t size) {
    return ::read(file, buffer, size);
}

ssize_t FileCalls::Write(int file, const char* bytes, std::size_t size) {
    return ::write(file, bytes, size);
}

int FileCalls::Fchown(int file, uid_t owner, gid_t group) {
    return ::fchown(file, owner, group);
}

int FileCalls::Fchmod(int file, mode_t mode) {
    return ::fchmod(file, mode);
}

int FileCalls::Fsync(int file) {
    return ::fsync(file);
}

int FileCalls::LockNow(int file) {
    return ::flock(file, LOCK_EX | LOCK_NB);
}

int FileCalls::Close(int file) {
    return ::close(file);
}

int FileCalls::Rename(const std::string& from, const std::string& to) {
    return ::rename(from.c_str(), to.c_str());
}

int FileCalls::Unlink(const std::string& path) {
    return ::unlink(path.c_str());
}

std::timespec FileCalls::Now() {
    std::timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

FileCalls& SystemFileCalls() {
    static FileCalls calls;
    return calls;
}

}  // namespace ace::workbench
