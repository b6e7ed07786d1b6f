/// Files that the operator chooses, or drops on a field.
#pragma once

#include <optional>
#include <vector>

#include <ace/core/thread_context.h>

namespace ace {

/// A kind of file.
struct FileKind {
    StringView filter;     ///< as of `FileQuestion`
    StringView byDefault;  ///< default extension of the file dialog
    StringView extension;  ///< of a dropped file, with its point
};
inline constexpr FileKind ProgramFiles{L"Programs (*.exe;*.bat)|*.exe;*.bat", L"*.exe", L".exe"};
inline constexpr FileKind SoundFiles{L"Sound Files (*.wav)|*.wav", L"*.wav", L".wav"};
/// Characters of the extensions, the point included.
inline constexpr std::size_t ExtensionLength = 4;

/// Asks the operator for a file, beginning with `present`, which is empty for none: its whole path,
/// none when it is cancelled. Messages run, before and behind the dialog too.
std::optional<String> ChooseFile(ThreadContext& context, const FileKind& kind,
                                 const String& present);
/// The first of the files that are dropped; none when it is not of that kind, in any case, because
/// the others are not looked at.
const String* FirstOf(const std::vector<String>& files, const FileKind& kind);

}  // namespace ace
