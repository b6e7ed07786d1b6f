#include "workbench/files/settings_lines.h"

#include <algorithm>

namespace ace::workbench {

namespace {

constexpr std::string_view CrLf = "\r\n";

constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}
constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// True when nothing but blanks stands between the start of a line and `at`, which then becomes the
/// start of the line.
bool BackToLineStart(std::string_view bytes, std::size_t& at) {
    while (at > 0 && IsBlank(bytes[at - 1])) {
        --at;
    }
    return at == 0 || bytes[at - 1] == '\n';
}

/// Length of the line end that closes an empty last line; 0 when the last line is not empty.
std::size_t EmptyLastLine(std::string_view bytes) {
    if (!bytes.ends_with('\n')) {
        return 0;
    }
    const std::size_t length = bytes.ends_with(CrLf) ? 2 : 1;
    const bool empty = bytes.size() == length || bytes[bytes.size() - length - 1] == '\n';
    return empty ? length : 0;
}

}  // namespace

Line TakeLine(std::string_view& rest) {
    const std::size_t lineFeed = rest.find('\n');
    if (lineFeed == std::string_view::npos) {
        const Line line{rest, {}};
        rest = {};
        return line;
    }
    const std::size_t length = lineFeed > 0 && rest[lineFeed - 1] == '\r' ? lineFeed - 1 : lineFeed;
    const Line line{rest.substr(0, length), rest.substr(length, lineFeed + 1 - length)};
    rest.remove_prefix(lineFeed + 1);
    return line;
}

// Looks for brackets, which are few, instead of looking at every line.
std::vector<std::size_t> FindHeaders(std::string_view bytes) {
    std::vector<std::size_t> headers;
    for (std::size_t at = bytes.find('['); at != std::string_view::npos;
         at = bytes.find('[', at + 1)) {
        std::size_t start = at;
        if (!BackToLineStart(bytes, start)) {
            continue;
        }
        std::string_view rest = bytes.substr(at);
        if (TakeLine(rest).text.find(']') != std::string_view::npos) {
            headers.push_back(start);
        }
    }
    return headers;
}

std::string_view HeaderName(std::string_view header) {
    const std::size_t begin = header.find('[') + 1;
    return header.substr(begin, header.find(']', begin) - begin);
}

bool SplitKey(std::string_view line, std::string_view& key, std::string_view& value) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return false;
    }
    key = TrimBlanks(line.substr(0, equals));
    value = line.substr(equals + 1);
    return true;
}

std::size_t EmptyLinesAtEnd(std::string_view bytes) {
    std::size_t count = 0;
    while (const std::size_t length = EmptyLastLine(bytes)) {
        bytes.remove_suffix(length);
        ++count;
    }
    return count;
}

std::string_view WithoutEmptyLinesAtEnd(std::string_view bytes) {
    while (const std::size_t length = EmptyLastLine(bytes)) {
        bytes.remove_suffix(length);
    }
    return bytes;
}

bool SameLines(std::string_view a, std::string_view b) {
    if (a == b) {
        return true;
    }
    while (!a.empty() && !b.empty()) {
        if (TakeLine(a).text != TakeLine(b).text) {
            return false;
        }
    }
    return a.empty() && b.empty();
}

void EndLine(std::string& bytes, std::string_view lineEnd) {
    bytes += bytes.ends_with('\r') ? CrLf : lineEnd;
}

std::string WithLineEnds(std::string_view lines, std::string_view lineEnd) {
    std::string bytes;
    bytes.reserve(lines.size() + lineEnd.size());
    while (!lines.empty()) {
        const std::size_t length = std::min(lines.find(CrLf), lines.size());
        bytes += lines.substr(0, length);
        EndLine(bytes, lineEnd);
        lines.remove_prefix(std::min(length + CrLf.size(), lines.size()));
    }
    return bytes;
}

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool EqualNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Lower(x) == Lower(y); });
}

}  // namespace ace::workbench
