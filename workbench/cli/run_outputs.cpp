#include "workbench/cli/run_outputs.h"

#include <cerrno>
#include <filesystem>
#include <optional>
#include <sys/stat.h>
#include <tuple>

#include "workbench/files/links.h"
#include "workbench/files/system_reason.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/outcome.h"

namespace ace::workbench {

namespace {

/// Device and inode of a file that is there. One that is not there yet has those of its folder, and
/// its name.
using FileIdentity = std::tuple<dev_t, ino_t, std::string>;

/// Nothing for what is no plain file, and for a file whose folder is not there.
std::optional<FileIdentity> IdentityOf(const std::string& name) {
    struct stat status {};
    if (::stat(name.c_str(), &status) == 0) {
        return S_ISREG(status.st_mode)
                   ? std::optional(FileIdentity(status.st_dev, status.st_ino, std::string()))
                   : std::nullopt;
    }
    const std::optional<std::string> path = WithoutLinks(name);
    if (!path || ::stat(FolderOf(*path).c_str(), &status) != 0) {
        return std::nullopt;
    }
    return FileIdentity(status.st_dev, status.st_ino, NameInFolder(*path));
}

/// None of `files` is `output`; `why` is told of the one that is.
void RefuseAmong(const std::vector<NamedFile>& files, const NamedFile& output, StringView why) {
    const std::optional<FileIdentity> identity = IdentityOf(output.path);
    for (const NamedFile& file : files) {
        if (identity && identity == IdentityOf(file.path)) {
            RefuseUse(output.what + L" " + FromUtf8(output.path) + L": this file is " + file.what +
                      String(why));
        }
    }
}

}  // namespace

void RefuseSharedFiles(const std::vector<NamedFile>& inputs,
                       const std::vector<NamedFile>& outputs) {
    std::vector<NamedFile> before;
    for (const NamedFile& output : outputs) {
        RefuseAmong(inputs, output, L", which is only read: name another one");
        RefuseAmong(before, output, L", too: name two files");
        before.push_back({L"that of " + output.what, output.path});
    }
}

std::ofstream OpenOutput(const std::string& path) {
    errno = 0;
    std::ofstream stream(path, std::ios::binary | std::ios::app);
    if (!stream) {
        RefuseFile(FromUtf8(path) + L": can't be made: " + SystemReason(errno));
    }
    return stream;
}

void EmptyOutput(const std::string& path) {
    std::error_code error;
    if (std::filesystem::is_regular_file(path, error)) {
        std::filesystem::resize_file(path, 0, error);
    }
}

}  // namespace ace::workbench
