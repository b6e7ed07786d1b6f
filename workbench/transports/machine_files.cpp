#include "workbench/transports/machine_files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace ace::workbench {

bool IsPlainFile(const std::string& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

bool IsProgramFile(const std::string& path) {
    return IsPlainFile(path) && ::access(path.c_str(), X_OK) == 0;
}

std::string SearchPath() {
    // NOLINTNEXTLINE(concurrency-mt-unsafe): nobody changes the surroundings of this program
    const char* const folders = std::getenv("PATH");
    return folders != nullptr ? folders : "/bin:/usr/bin";
}

std::optional<std::string> FindProgram(const std::string& name, const std::string& searchPath) {
    if (name.find('/') != std::string::npos) {
        return IsProgramFile(name) ? std::optional(name) : std::nullopt;
    }
    for (std::size_t begin = 0; !name.empty() && begin <= searchPath.size();) {
        const std::size_t end = std::min(searchPath.find(':', begin), searchPath.size());
        const std::string folder = searchPath.substr(begin, end - begin);
        std::string path = (folder.empty() ? "." : folder) + "/" + name;
        if (IsProgramFile(path)) {
            return path;
        }
        begin = end + 1;
    }
    return std::nullopt;
}

}  // namespace ace::workbench
