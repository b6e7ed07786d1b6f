/// Paths of files: their folders, and where links lead.
#pragma once

#include <optional>
#include <string>

#include "workbench/files/file_calls.h"

namespace ace::workbench {

/// The folder of `path` with the slash behind it; "./" for a bare name.
std::string FolderOf(const std::string& path);
/// What stands behind the folder.
std::string NameInFolder(const std::string& path);

/// Where `path` (UTF-8) leads when it is a symbolic link, and that one perhaps too, also when
/// nothing is there yet; `path` itself when it is none. Nothing when that can't be found out or the
/// links lead in a circle: `errno` says why.
std::optional<std::string> WithoutLinks(std::string path, FileCalls& calls = SystemFileCalls());

}  // namespace ace::workbench
