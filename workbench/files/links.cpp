#include "workbench/files/links.h"

#include <cerrno>
#include <string_view>
#include <utility>

namespace ace::workbench {

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

std::string NameInFolder(const std::string& path) {
    return path.substr(path.rfind('/') + 1);  // the whole path where there is no slash
}

std::optional<std::string> WithoutLinks(std::string path, FileCalls& calls) {
    constexpr int MostLinks = 40;
    char target[4096];
    for (int links = 0; links < MostLinks; ++links) {
        const ssize_t size = calls.Readlink(path, target, sizeof target);
        if (size < 0) {
            const bool isNoLink = errno == EINVAL || errno == ENOENT;
            return isNoLink ? std::optional(std::move(path)) : std::nullopt;
        }
        const std::string_view name(target, static_cast<std::size_t>(size));
        path = name.starts_with('/') ? std::string() : FolderOf(path);
        path += name;
    }
    errno = ELOOP;
    return std::nullopt;
}

}  // namespace ace::workbench
