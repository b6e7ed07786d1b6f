/// Reading a whole file and saving it so that it is never half written.
#pragma once

#include <optional>
#include <string_view>

#include <ace/host/basic_types.h>

#include "workbench/files/file_calls.h"

namespace ace::workbench {

/// The bytes of the file at `path` (UTF-8); nothing when there is no such file. One that is there
/// but can't be read to its end, or is no plain file, is error `FileErrors::CannotRead`, whose
/// description names the file and the reason.
std::optional<std::string> ReadWholeFile(const std::string& path,
                                         FileCalls& calls = SystemFileCalls());

/// Makes `bytes` the content of the file at `path` (UTF-8): writes a new file beside it, brings it
/// to the disk, and gives it the old name in one step, so that a crash or a full disk leaves either
/// the old content or the new. A symbolic link is followed, permissions and group are kept; the
/// owner is kept where the system allows it. Another hard link to the old file keeps the old
/// content. The file beside it has one name for each user and file, so that a save that was killed
/// leaves at most one, which the next save takes away. A failure is error
/// `FileErrors::CannotSave`, which names the file, the step and the reason; the old file is
/// untouched then, but for a folder that can't be flushed after the last step, which the
/// description says.
void SaveWholeFile(const std::string& path, std::string_view bytes,
                   FileCalls& calls = SystemFileCalls());

/// The same, as long as the file holds `before` (nothing: as long as there is none). Otherwise
/// somebody else has changed it, and it is error `FileErrors::SaveRefused`, which names the file.
void SaveUnchangedFile(const std::string& path, const std::optional<std::string>& before,
                       std::string_view bytes, FileCalls& calls = SystemFileCalls());

}  // namespace ace::workbench
