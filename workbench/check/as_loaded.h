/// A file's lines beside what becomes of them.
#pragma once

#include "workbench/check/checked_file.h"

namespace ace::workbench {

/// Lines of three columns: the line of the file, the action as the engine holds it, the line as it
/// would be saved. For each section its name first; what the load passes over says so in the second
/// column, and the third is empty then. Below stands, if so, why nothing is saved. `width` is that
/// of the whole in characters, at least 60; 0 makes each column as wide as its longest text.
std::vector<String> AsLoaded(const CheckedFile& file, std::size_t width);

}  // namespace ace::workbench
