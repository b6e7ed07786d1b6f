#include "workbench/transports/macro_sync.h"

#include <algorithm>

#include "workbench/files/file_store.h"
#include "workbench/files/text_encoding.h"
#include "workbench/files/text_lines.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// True for a line of the key; `value` is then what stands behind the "=".
bool IsLineOf(std::int32_t key, StringView line, StringView& value) {
    const std::size_t equals = line.find(L'=');
    if (equals == StringView::npos || Trimmed(line.substr(0, equals)) != std::to_wstring(key)) {
        return false;
    }
    value = Trimmed(line.substr(equals + 1));
    return true;
}

std::vector<StringView> LinesWithoutKey(StringView text, std::int32_t key) {
    std::vector<StringView> lines = LinesOf(text);
    std::erase_if(lines, [&](StringView line) {
        StringView value;
        return IsLineOf(key, line, value);
    });
    return lines;
}

}  // namespace

void MacroSync::Write(std::int32_t group, std::int32_t key, const String& value) const {
    const String text = ReadTextFile(x_path).value_or(String());
    const String header = L"[Group" + std::to_wstring(group) + L"]";
    const String line = std::to_wstring(key) + L"=" + value;
    std::vector<StringView> lines = LinesWithoutKey(text, key);
    auto place = std::find(lines.begin(), lines.end(), header);
    if (place == lines.end()) {
        place = lines.insert(lines.end(), header);
    }
    lines.insert(place + 1, line);
    String content;
    for (const StringView each : lines) {
        content.append(each).append(L"\r\n");
    }
    SaveWholeFile(x_path, ToUtf8(content));
}

String MacroSync::Read(std::int32_t key) const {
    const String text = ReadTextFile(x_path).value_or(String());
    String found;
    for (const StringView line : LinesOf(text)) {
        StringView value;
        if (IsLineOf(key, line, value)) {
            found = value;
        }
    }
    return found;
}

}  // namespace ace::workbench
