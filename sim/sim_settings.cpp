#include "sim/sim_settings.h"

#include <algorithm>

#include <ace/core/text.h>

#include "sim/call_text.h"
#include "sim/sim_host.h"

namespace ace::sim {

namespace {

/// The lines of a text; an end of line behind the last one adds none.
std::vector<String> Lines(StringView text) {
    std::vector<String> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'\n'), text.size());
        StringView line = text.substr(0, end);
        if (!line.empty() && line.back() == L'\r') {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

StringView KeyInLine(StringView line) {
    return line.substr(0, line.find(L'='));
}

}  // namespace

bool NameLess::operator()(const String& a, const String& b) const {
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(),
        [](wchar_t x, wchar_t y) { return LowerCase(x) < LowerCase(y); });
}

SimSections ParseSections(StringView text) {
    SimSections sections;
    std::vector<String>* current = nullptr;
    for (const String& line : Lines(text)) {
        if (line.size() > 1 && line.front() == L'[' && line.back() == L']') {
            current = &sections[line.substr(1, line.size() - 2)];
        } else if (current != nullptr) {
            current->push_back(line);
        } else {
            throw RunTimeError(Errors::InvalidProcedureCall, L"a line before the first section");
        }
    }
    return sections;
}

SimSettingsFile::SimSettingsFile(SimHost& host, String name)
    : x_host(host), x_name(std::move(name)), x_sections(host.files[x_name]) {}

std::optional<String> SimSettingsFile::Find(const String& section, const String& key) const {
    const auto found = x_sections.find(section);
    if (found == x_sections.end()) {
        return std::nullopt;
    }
    for (const String& line : found->second) {
        if (line.find(L'=') != String::npos && EqualNoCase(KeyInLine(line), key)) {
            return line.substr(line.find(L'=') + 1);
        }
    }
    return std::nullopt;
}

/// The lines of a section that is about to be changed.
std::vector<String>& SimSettingsFile::Changing(const String& section) {
    x_changed.insert(section);
    return x_sections[section];
}

void SimSettingsFile::Put(const String& section, const String& key, const String& value) {
    const String changed = key + L"=" + value;
    std::vector<String>& lines = Changing(section);
    for (String& line : lines) {
        if (EqualNoCase(KeyInLine(line), key)) {
            line = changed;
            return;
        }
    }
    lines.push_back(changed);
}

String SimSettingsFile::GetString(const String& section, const String& key,
                                  const String& byDefault) {
    x_host.Call(L"SettingsFile.GetString", CallText(section, key, byDefault));
    return Find(section, key).value_or(byDefault);
}

void SimSettingsFile::SetString(const String& section, const String& key, const String& value) {
    x_host.Call(L"SettingsFile.SetString", CallText(section, key, value));
    Put(section, key, value);
}

double SimSettingsFile::GetDouble(const String& section, const String& key, double byDefault) {
    x_host.Call(L"SettingsFile.GetDouble", CallText(section, key, byDefault));
    const std::optional<String> text = Find(section, key);
    return text ? ReadNumber(*text) : byDefault;
}

void SimSettingsFile::SetDouble(const String& section, const String& key, double value) {
    x_host.Call(L"SettingsFile.SetDouble", CallText(section, key, value));
    Put(section, key, FormatGeneral(value, L'.'));
}

std::int32_t SimSettingsFile::GetLong(const String& section, const String& key,
                                      std::int32_t byDefault) {
    x_host.Call(L"SettingsFile.GetLong", CallText(section, key, byDefault));
    const std::optional<String> text = Find(section, key);
    return text ? ReadRoundedNumber(*text) : byDefault;
}

void SimSettingsFile::SetLong(const String& section, const String& key, std::int32_t value) {
    x_host.Call(L"SettingsFile.SetLong", CallText(section, key, value));
    Put(section, key, std::to_wstring(value));
}

Boolean SimSettingsFile::GetBoolean(const String& section, const String& key, Boolean byDefault) {
    x_host.Call(L"SettingsFile.GetBoolean", CallText(section, key, byDefault));
    const std::optional<String> text = Find(section, key);
    return text ? Boolean(ReadBooleanText(*text)) : byDefault;
}

void SimSettingsFile::SetBoolean(const String& section, const String& key, Boolean value) {
    x_host.Call(L"SettingsFile.SetBoolean", CallText(section, key, value));
    Put(section, key, value ? L"1" : L"0");
}

std::vector<String> SimSettingsFile::GetSection(const String& section) {
    x_host.Call(L"SettingsFile.GetSection", CallText(section));
    const auto found = x_sections.find(section);
    return found == x_sections.end() ? std::vector<String>() : found->second;
}

void SimSettingsFile::SetSection(const String& section, const Value& content) {
    x_host.Call(L"SettingsFile.SetSection", CallText(section, content));
    if (std::holds_alternative<std::monostate>(content)) {
        if (x_sections.erase(section) > 0) {
            x_changed.insert(section);
        }
    } else if (const String* text = std::get_if<String>(&content)) {
        Changing(section) = Lines(*text);
    } else if (const auto* lines = std::get_if<DynArray<String>>(&content)) {
        Changing(section).assign(lines->begin(), lines->end());
    } else {
        Raise(Errors::TypeMismatch);
    }
}

void SimSettingsFile::Release() {
    x_host.Call(L"SettingsFile.Release", {});
    SimSections& sections = x_host.files[x_name];
    for (const String& section : x_changed) {
        const auto changed = x_sections.find(section);
        if (changed == x_sections.end()) {
            sections.erase(section);
        } else {
            sections[section] = changed->second;
        }
    }
    x_changed.clear();
}

}  // namespace ace::sim
