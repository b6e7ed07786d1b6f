#include "workbench/files/place_text.h"

#include <algorithm>

#include <ace/core/text.h>

#include "workbench/words/outcome.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// Position of `key` among the lines of a section, from 0.
std::optional<std::size_t> LineOfKey(const std::vector<String>& lines, StringView key) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const StringView line = lines[i];
        const std::size_t equals = line.find(L'=');
        if (equals != StringView::npos && EqualNoCase(Trimmed(line.substr(0, equals)), key)) {
            return i;
        }
    }
    return std::nullopt;
}

}  // namespace

String PlaceText(const SettingsDocument& document, const String& path, StringView section,
                 StringView key) {
    String place = path;
    if (const std::optional<std::size_t> header = document.HeaderLine(section)) {
        const std::optional<std::size_t> line = LineOfKey(document.GetSection(section), key);
        place += L":" + std::to_wstring(*header + (line ? *line + 1 : 0));
    }
    place += L": [" + String(section) + L"]";
    return key.empty() ? place : place + L" " + String(key);
}

String LinePlaceText(const SettingsDocument& document, const String& path, StringView section,
                     std::size_t index) {
    const std::size_t header = document.HeaderLine(section).value_or(0);
    return path + L":" + std::to_wstring(header + 1 + index) + L": [" + String(section) + L"]";
}

void RequireSectionsOnce(const SettingsDocument& document, const String& path) {
    const std::vector<String> names = document.SectionNames();
    for (auto name = names.begin(); name != names.end(); ++name) {
        const auto first = std::find_if(names.begin(), name, [&](const String& earlier) {
            return EqualNoCase(earlier, *name);
        });
        if (first != name) {
            RefuseFile(PlaceText(document, path, *first, {}) + L" stands in the file twice");
        }
    }
}

}  // namespace ace::workbench
