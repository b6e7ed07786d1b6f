/// Reads the include lines of a source tree and holds them against the allowed direction.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace ace::layers {

/// What is wrong with including `included` from `file`, a path below the root with '/'; empty when
/// it is allowed. `angled` tells `<...>` from quotes.
std::string Fault(std::string_view file, std::string_view included, bool angled);

/// Every fault below `root` as "file:line: text", in the order of the file names; then every circle
/// of rooms, a header and its source being one room, with the include lines that close it. A tree
/// without sources in any of its folders is a fault too.
std::vector<std::string> FaultsBelow(const std::filesystem::path& root);

}  // namespace ace::layers
