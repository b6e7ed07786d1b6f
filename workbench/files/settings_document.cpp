#include "workbench/files/settings_document.h"

#include <algorithm>
#include <functional>

#include <ace/host/run_time_error.h>

#include "workbench/files/settings_lines.h"

namespace ace::workbench {

namespace {

/// `why` follows the section at once: it begins with a colon, or with the key.
[[noreturn]] void Refuse(StringView section, const String& why) {
    throw RunTimeError(Errors::InvalidProcedureCall, L"section [" + String(section) + L"]" + why);
}

String CodePointName(wchar_t c) {
    String digits;
    for (int shift = 20; shift >= 0; shift -= 4) {
        const auto digit = static_cast<std::size_t>(static_cast<std::uint32_t>(c) >> shift & 0xF);
        if (!digits.empty() || digit != 0 || shift < 16) {
            digits += L"0123456789ABCDEF"[digit];
        }
    }
    return L"U+" + digits;
}

/// Place of the first line of `key`; `text` is empty when there is none.
Line FindKey(std::string_view body, std::string_view key, std::string_view& value) {
    while (!body.empty()) {
        const Line line = TakeLine(body);
        std::string_view name;
        if (SplitKey(line.text, name, value) && EqualNoCase(name, key)) {
            return line;
        }
    }
    return {};
}

std::size_t CountLineEnds(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

void AppendPiece(std::string& bytes, std::string_view piece, std::string_view lineEnd) {
    if (!piece.empty() && !bytes.empty() && !bytes.ends_with('\n')) {
        EndLine(bytes, lineEnd);
    }
    bytes += piece;
}

/// The body with the value of `key` replaced, or the key added behind the last line.
std::string BodyWithKey(std::string_view body, std::string_view key, std::string_view value,
                        std::string_view lineEnd) {
    std::string_view old;
    const Line line = FindKey(body, TrimBlanks(key), old);
    std::string result;
    if (line.text.empty()) {
        const std::size_t size = WithoutEmptyLinesAtEnd(body).size();
        result = body.substr(0, size);
        AppendPiece(result, key, lineEnd);
        result.append("=").append(value);
        EndLine(result, lineEnd);
        return result.append(body.substr(size));
    }
    const auto valueAt = static_cast<std::size_t>(old.data() - body.data());
    const std::size_t next = valueAt + old.size() + line.end.size();
    result.append(body.substr(0, valueAt)).append(value);
    if (!line.end.empty()) {
        EndLine(result, line.end);
    }
    return result.append(body.substr(next));
}

}  // namespace

SettingsDocument::SettingsDocument(std::string bytes) : x_encoding(DetectEncoding(bytes)) {
    RequireKnownText(bytes);
    bytes.erase(0, ByteOrderMark(x_encoding).size());
    if (x_encoding == Encoding::Utf16) {
        x_tail = bytes.substr(bytes.size() / 2 * 2);
        bytes = Utf16ToBytes(bytes);
    }
    x_source = std::move(bytes);
    FindSections();
}

void SettingsDocument::FindSections() {
    std::string_view rest = x_source;
    if (!rest.empty()) {
        const std::string_view end = TakeLine(rest).end;
        x_lineEnd = end == "\n" ? "\n" : "\r\n";
    }
    const std::vector<std::size_t> headers = FindHeaders(x_source);
    x_preambleSize = headers.empty() ? x_source.size() : headers.front();
    x_sections.reserve(headers.size());
    x_index.Reserve(headers.size());
    for (std::size_t at = 0; at < headers.size(); ++at) {
        const std::size_t end = at + 1 < headers.size() ? headers[at + 1] : x_source.size();
        Section section;
        section.begin = headers[at];
        section.size = end - section.begin;
        rest = Whole(section);
        TakeLine(rest);
        section.headerSize = section.size - rest.size();
        x_sections.push_back(std::move(section));
        AddToIndex(at);
    }
    if (x_sections.size() > 1) {
        x_emptyLinesBetween = EmptyLinesAtEnd(Body(x_sections[x_sections.size() - 2]));
    }
}

std::vector<String> SettingsDocument::SectionNames() const {
    std::vector<String> names;
    for (const Section& section : x_sections) {
        if (!section.isDeleted) {
            names.push_back(Decode(x_encoding, HeaderName(Header(section))));
        }
    }
    return names;
}

/// Whether the section of a number has the name.
auto SettingsDocument::HasName(std::string_view name) const {
    return [this, name](std::size_t at) {
        return EqualNoCase(HeaderName(Header(x_sections[at])), name);
    };
}

void SettingsDocument::AddToIndex(std::size_t index) {
    Section& section = x_sections[index];
    const std::string_view name = HeaderName(Header(section));
    const std::size_t first = x_index.Find(name, HasName(name));
    if (first == None) {
        x_index.Add(name, index);
    } else {
        section.sameName = x_sections[first].sameName;
        x_sections[first].sameName = index;
    }
}

std::string_view SettingsDocument::Whole(const Section& section) const {
    return section.isOwn ? std::string_view(section.own)
                         : std::string_view(x_source).substr(section.begin, section.size);
}

std::string_view SettingsDocument::Header(const Section& section) const {
    return Whole(section).substr(0, section.headerSize);
}

std::string_view SettingsDocument::Body(const Section& section) const {
    return Whole(section).substr(section.headerSize);
}

std::string_view SettingsDocument::Preamble() const {
    return std::string_view(x_source).substr(0, x_preambleSize);
}

std::string_view SettingsDocument::LineEndOf(const Section& section) const {
    const std::string_view header = Header(section);
    return header.ends_with("\r\n") ? "\r\n" : header.ends_with('\n') ? "\n" : x_lineEnd;
}

std::size_t SettingsDocument::Find(StringView section) const {
    std::string name;
    if (TryEncode(x_encoding, section, name)) {
        return None;  // a name that the file can't hold stands nowhere in it
    }
    return x_index.Find(name, HasName(name));
}

bool SettingsDocument::HasSection(StringView section) const {
    return Find(section) != None;
}

std::optional<std::size_t> SettingsDocument::HeaderLine(StringView section) const {
    const std::size_t found = Find(section);
    if (found == None) {
        return std::nullopt;
    }
    const auto end = x_sections.begin() + static_cast<std::ptrdiff_t>(found);
    const auto deleted = std::count_if(x_sections.begin(), end, std::mem_fn(&Section::isDeleted));
    return HeaderLines()[found - static_cast<std::size_t>(deleted)];
}

std::vector<std::size_t> SettingsDocument::HeaderLines() const {
    std::vector<std::size_t> lines;
    std::size_t ended = 0;  // lines above, with what is put between two pieces
    bool isOpen = false;    // the last one has no end yet
    const auto add = [&](std::string_view piece) {
        ended += CountLineEnds(piece) + (isOpen && !piece.empty() ? 1 : 0);
        isOpen = piece.empty() ? isOpen : !piece.ends_with('\n');
    };
    add(Preamble());
    for (const Section& section : x_sections) {
        if (!section.isDeleted) {
            const std::string_view header = Header(section);
            const std::size_t above = CountLineEnds(header.substr(0, header.find('[')));
            lines.push_back(ended + (isOpen ? 1 : 0) + above + 1);
            add(Whole(section));
        }
    }
    return lines;
}

std::optional<String> SettingsDocument::GetKey(StringView section, StringView key) const {
    const std::size_t found = Find(section);
    std::string name;
    if (found == None || TryEncode(x_encoding, key, name)) {
        return std::nullopt;
    }
    std::string_view value;
    if (FindKey(Body(x_sections[found]), TrimBlanks(name), value).text.empty()) {
        return std::nullopt;
    }
    return Decode(x_encoding, value);
}

void SettingsDocument::SetKey(StringView section, StringView key, StringView value) {
    const std::string name = Encoded(key, section);
    const std::string text = Encoded(value, section);
    const std::string line = name + "=" + text;
    if (line.find('\n') != std::string::npos) {
        Refuse(section,
               L", key \"" + String(key) + L"\": a value of one line can't hold a line end");
    }
    if (TrimBlanks(name).empty() || name.find('=') != std::string::npos ||
        !FindHeaders(line).empty()) {
        Refuse(section, L": \"" + String(key) + L"\" can't be the name of a key");
    }
    const std::size_t found = Find(section);
    if (found == None) {
        Append(section, WithLineEnds(line, x_lineEnd));
        return;
    }
    Section& target = x_sections[found];
    std::string_view old;
    const Line place = FindKey(Body(target), TrimBlanks(name), old);
    if (place.text.empty() || old != text) {
        Rewrite(target, BodyWithKey(Body(target), name, text, LineEndOf(target)));
    }
}

std::vector<String> SettingsDocument::GetSection(StringView section) const {
    std::vector<String> lines;
    const std::size_t found = Find(section);
    if (found == None) {
        return lines;
    }
    std::string_view rest = WithoutEmptyLinesAtEnd(Body(x_sections[found]));
    while (!rest.empty()) {
        lines.push_back(Decode(x_encoding, TakeLine(rest).text));
    }
    return lines;
}

void SettingsDocument::SetSection(StringView section, StringView lines) {
    const std::size_t found = Find(section);
    const std::string_view lineEnd = found == None ? x_lineEnd : LineEndOf(x_sections[found]);
    const std::string text = WithLineEnds(Encoded(lines, section), lineEnd);
    if (!FindHeaders(text).empty()) {
        Refuse(section, L": a line of it would open another section");
    }
    const std::string_view body = WithoutEmptyLinesAtEnd(text);
    if (found == None) {
        Append(section, body);
        return;
    }
    const std::string_view old = Body(x_sections[found]);
    const std::string_view oldLines = WithoutEmptyLinesAtEnd(old);
    if (!SameLines(oldLines, body)) {
        Rewrite(x_sections[found], std::string(body).append(old.substr(oldLines.size())));
    }
}

void SettingsDocument::DeleteSection(StringView section) {
    std::size_t at = Find(section);
    if (at == None) {
        return;
    }
    x_touched = true;
    const std::string_view name = HeaderName(Header(x_sections[at]));
    x_index.Remove(name, HasName(name));
    while (at != None) {
        x_sections[at].isDeleted = true;
        x_sections[at].own = {};
        at = x_sections[at].sameName;
    }
    while (!x_sections.empty() && x_sections.back().isDeleted) {
        x_sections.pop_back();
    }
}

void SettingsDocument::Append(StringView name, std::string_view body) {
    const std::string bytes = Encoded(name, name);
    if (bytes.find_first_of("]\n") != std::string::npos || bytes.starts_with('\0')) {
        Refuse(name, L": a section can't have this name");
    }
    Section section;
    section.isOwn = true;
    section.own = EmptyLinesBeforeNewSection();
    section.own.append("[").append(bytes).append("]").append(x_lineEnd);
    section.headerSize = section.own.size();
    section.own.append(body);
    x_touched = true;
    x_sections.push_back(std::move(section));
    AddToIndex(x_sections.size() - 1);
}

std::string SettingsDocument::EmptyLinesBeforeNewSection() const {
    if (x_sections.empty()) {
        return {};
    }
    const std::size_t there = EmptyLinesAtEnd(Body(x_sections.back()));
    std::string lines;
    for (std::size_t at = there; at < x_emptyLinesBetween; ++at) {
        lines += x_lineEnd;
    }
    return lines;
}

void SettingsDocument::Rewrite(Section& section, std::string_view body) {
    const bool endsOpen = !Whole(section).ends_with('\n');
    std::string own(Header(section));
    if (!own.ends_with('\n') && !body.empty()) {
        EndLine(own, x_lineEnd);
    }
    section.headerSize = own.size();
    own += body;
    if (endsOpen && own.ends_with('\n')) {  // the file's last line had no end and gets none
        own.resize(own.size() - (own.ends_with("\r\n") ? 2 : 1));
        section.headerSize = std::min(section.headerSize, own.size());
    }
    section.own = std::move(own);
    section.isOwn = true;
    x_touched = true;
}

std::string SettingsDocument::Encoded(StringView text, StringView section) const {
    std::string bytes;
    if (const std::optional<wchar_t> character = TryEncode(x_encoding, text, bytes)) {
        Refuse(section, L": the file is " + String(NameOf(x_encoding)) +
                            L", which can't hold the character " + CodePointName(*character));
    }
    return bytes;
}

std::string SettingsDocument::Render() const {
    std::string text(Preamble());
    text.reserve(x_source.size());
    for (const Section& section : x_sections) {
        if (!section.isDeleted) {
            AppendPiece(text, Whole(section), x_lineEnd);
        }
    }
    return text;
}

std::string SettingsDocument::Assembled(const std::string& text) const {
    if (x_encoding == Encoding::Codepage && DetectEncoding(text) != x_encoding &&
        std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; })) {
        throw RunTimeError(Errors::InvalidProcedureCall,
                           L"the file is Windows-1252, but what is left of it would be read as "
                           L"UTF-8");
    }
    std::string bytes = FileBytes(text);
    if (LooksWide(bytes)) {
        throw RunTimeError(Errors::InvalidProcedureCall,
                           L"what begins with a zero character could not be read any more");
    }
    return bytes;
}

std::string SettingsDocument::FileBytes(const std::string& text) const {
    std::string bytes(ByteOrderMark(x_encoding));
    bytes += x_encoding == Encoding::Utf16 ? BytesToUtf16(text) : text;
    return bytes += x_tail;
}

std::string SettingsDocument::SourceBytes() const {
    return FileBytes(x_source);
}

std::string SettingsDocument::Bytes() const {
    return Assembled(Render());
}

std::optional<std::string> SettingsDocument::ChangedBytes() const {
    if (!x_touched) {
        return std::nullopt;
    }
    const std::string text = Render();
    return text == x_source ? std::nullopt : std::optional(Assembled(text));
}

}  // namespace ace::workbench
