/// Files of this machine that are played or run.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ace::workbench {

/// A file that is no folder, device or pipe; what it links to counts. Paths are in UTF-8.
bool IsPlainFile(const std::string& path);
/// A plain file that this process may execute.
bool IsProgramFile(const std::string& path);

/// Where programs are looked for: PATH, or what the system takes without one.
std::string SearchPath();
/// The program that a start of `name` runs: a name with "/" is a path, any other is looked for in
/// the folders of `searchPath`, which are separated by ":". An empty folder is the current one.
/// Nothing when there is none that may be executed.
std::optional<std::string> FindProgram(const std::string& name, const std::string& searchPath);

}  // namespace ace::workbench
