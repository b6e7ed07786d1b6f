#include "workbench/words/wording.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

#include <ace/core/text.h>

namespace ace::workbench {

namespace {

constexpr StringView Blanks = L" \t";

/// At least so many digits of a number that is not negative.
String Digits(long long number, std::size_t least = 1) {
    char buffer[24];
    const char* const begin = buffer;
    const char* const end = std::to_chars(buffer, std::end(buffer), number).ptr;
    const auto count = static_cast<std::size_t>(end - begin);
    String text(count < least ? least - count : 0, L'0');
    return text.append(begin, end);
}

}  // namespace

StringView Trimmed(StringView text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == StringView::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

String Counted(std::size_t count, StringView one, StringView many) {
    return Digits(static_cast<long long>(count)) + L" " + String(count == 1 ? one : many);
}

String RangesText(std::span<const std::int32_t> numbers, std::size_t most) {
    std::vector<String> ranges;
    for (auto first = numbers.begin(); first != numbers.end();) {
        const auto last = std::adjacent_find(
            first, numbers.end(),
            [](std::int32_t before, std::int32_t after) { return after - before > 1; });
        const auto end = last == numbers.end() ? last : std::next(last);
        const std::int32_t back = *std::prev(end);
        ranges.push_back(IntegerText(*first) +
                         (back == *first ? String() : L" to " + IntegerText(back)));
        first = end;
    }
    const bool isLong = ranges.size() > most;
    String text;
    for (std::size_t i = 0; i < (isLong ? most - 1 : ranges.size()); ++i) {
        text += (text.empty() ? L"" : L", ") + ranges[i];
    }
    return isLong ? text + L" ... " + ranges.back() : text;
}

String SecondsText(double milliseconds) {
    return FormatGeneral(std::round(milliseconds) / 1000.0, L'.') + L" s";
}

String TimeText(double milliseconds) {
    const auto whole = static_cast<long long>(std::llround(milliseconds));
    return Digits(whole / 3'600'000) + L":" + Digits(whole / 60'000 % 60, 2) + L":" +
           Digits(whole / 1000 % 60, 2) + L"." + Digits(whole % 1000, 3);
}

String DurationText(double milliseconds) {
    static constexpr StringView None = L".000";
    String text = TimeText(milliseconds);
    if (text.ends_with(None)) {
        text.resize(text.size() - None.size());
    }
    return text;
}

bool IsEmptyOrComment(StringView line, StringView marks) {
    return line.empty() || marks.find(line.front()) != StringView::npos;
}

bool IsControl(wchar_t c) {
    // NOLINTNEXTLINE(bugprone-signed-char-misuse): it is no char; what is below 0 is no character.
    const auto code = static_cast<std::uint32_t>(c);
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

String OneLine(StringView text) {
    String line(text);
    ReplaceAll(line, L"\r\n", L" / ");
    ReplaceAll(line, L"\n", L" / ");
    std::replace_if(line.begin(), line.end(), IsControl, L' ');
    return line;
}

String QuotedLine(StringView text) {
    return L"\"" + OneLine(text) + L"\"";
}

String Padded(StringView text, std::size_t width) {
    String padded(text);
    if (padded.size() < width) {
        padded.append(width - padded.size(), L' ');
    }
    return padded;
}

std::vector<String> Wrapped(StringView text, std::size_t width) {
    std::vector<String> lines;
    while (width > 0 && text.size() > width) {
        const std::size_t blank = text.rfind(L' ', width);
        const bool breaksAtBlank = blank != StringView::npos && blank > 0;
        lines.emplace_back(text.substr(0, breaksAtBlank ? blank : width));
        text.remove_prefix(breaksAtBlank ? blank + 1 : width);
    }
    lines.emplace_back(text);
    return lines;
}

bool FitsPattern(StringView text, StringView pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = StringView::npos;  // the last "*" met, and where its characters end
    std::size_t starEnd = 0;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == L'*') {
            star = in++;
            starEnd = at;
        } else if (in < pattern.size() &&
                   (pattern[in] == L'?' ||
                    EqualNoCase(text.substr(at, 1), pattern.substr(in, 1)))) {
            ++at;
            ++in;
        } else if (star != StringView::npos) {
            at = ++starEnd;
            in = star + 1;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', in) == StringView::npos;
}

std::optional<double> WholeNumber(StringView text) {
    std::string bytes;
    for (const wchar_t c : Trimmed(text)) {
        bytes += c > L' ' && c < 127 ? static_cast<char>(c) : '?';
    }
    double number = 0.0;
    const char* const end = bytes.data() + bytes.size();
    const std::from_chars_result result = std::from_chars(bytes.data(), end, number);
    const bool isNumber = result.ec == std::errc() && result.ptr == end && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<std::int32_t> WholeInteger(StringView text) {
    const std::optional<double> number = WholeNumber(text);
    if (!number || *number != std::trunc(*number) || std::abs(*number) > 2147483647.0) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(*number);
}

}  // namespace ace::workbench
