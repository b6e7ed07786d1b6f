/// Small text files, line by line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The text of the file at `path` (UTF-8) in any of the encodings of settings files; nothing when
/// there is no such file. One that can't be read is error `FileErrors::CannotRead`, and so is text
/// that `RequireKnownText` refuses.
std::optional<String> ReadTextFile(const std::string& path);

/// The lines without their ends, LF or CR LF; views into `text`. An end behind the last line opens
/// no further one.
std::vector<StringView> LinesOf(StringView text);

}  // namespace ace::workbench
