#include <ace/core/text.h>
#include <ace/editor/file_choice.h>

namespace ace {

std::optional<String> ChooseFile(ThreadContext& context, const FileKind& kind,
                                 const String& present) {
    context.Platform().Yield();
    std::optional<String> file =
        context.UserDialogs().OpenFile({String(kind.filter), String(kind.byDefault), present});
    context.Platform().Yield();
    return file;
}

const String* FirstOf(const std::vector<String>& files, const FileKind& kind) {
    if (files.empty() || files.front().size() < ExtensionLength) {
        return nullptr;
    }
    const StringView file = files.front();
    const StringView end = file.substr(file.size() - ExtensionLength);
    return EqualNoCase(end, kind.extension) ? &files.front() : nullptr;
}

}  // namespace ace
