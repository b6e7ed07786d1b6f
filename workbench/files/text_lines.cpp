#include "workbench/files/text_lines.h"

#include <algorithm>

#include "workbench/files/file_store.h"
#include "workbench/files/text_encoding.h"

namespace ace::workbench {

std::optional<String> ReadTextFile(const std::string& path) {
    const std::optional<std::string> bytes = ReadWholeFile(path);
    if (!bytes) {
        return std::nullopt;
    }
    RequireKnownText(*bytes, FromUtf8(path) + L": ");
    const Encoding encoding = DetectEncoding(*bytes);
    const std::string_view text = std::string_view(*bytes).substr(ByteOrderMark(encoding).size());
    return encoding == Encoding::Utf16 ? Decode(encoding, Utf16ToBytes(text))
                                       : Decode(encoding, text);
}

std::vector<StringView> LinesOf(StringView text) {
    std::vector<StringView> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'\n'), text.size());
        StringView line = text.substr(0, end);
        if (!line.empty() && line.back() == L'\r') {
            line.remove_suffix(1);
        }
        lines.push_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

}  // namespace ace::workbench
