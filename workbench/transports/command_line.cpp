#include "workbench/transports/command_line.h"

#include <optional>

#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

constexpr StringView Blanks = L" \t";
constexpr StringView Escapable = L" \t\"'\\";

[[noreturn]] void RaiseUnreadable(StringView line, StringView why) {
    throw RunTimeError(TransportErrors::CannotStart,
                       L"command line: " + String(why) + L": " + String(line));
}

bool IsOneOf(StringView characters, wchar_t c) {
    return characters.find(c) != StringView::npos;
}

/// Takes one word off the start of `rest`, which begins with no blank.
std::optional<String> TakeWord(StringView& rest) {
    String word;
    wchar_t quote = 0;
    while (!rest.empty() && (quote != 0 || !IsOneOf(Blanks, rest.front()))) {
        const wchar_t c = rest.front();
        rest.remove_prefix(1);
        if (c == L'\\' && quote != L'\'' && !rest.empty() && IsOneOf(Escapable, rest.front())) {
            word += rest.front();
            rest.remove_prefix(1);
        } else if (quote == 0 ? IsOneOf(L"\"'", c) : c == quote) {
            quote = quote == 0 ? c : L'\0';
        } else {
            word += c;
        }
    }
    return quote == 0 ? std::optional(word) : std::nullopt;
}

}  // namespace

std::vector<std::string> SplitCommandLine(StringView line) {
    if (IsOneOf(line, L'\0')) {
        RaiseUnreadable(line.substr(0, line.find(L'\0')), L"there is a zero character in it");
    }
    std::vector<std::string> words;
    StringView rest = line;
    for (;;) {
        rest.remove_prefix(std::min(rest.find_first_not_of(Blanks), rest.size()));
        if (rest.empty()) {
            break;
        }
        const std::optional<String> word = TakeWord(rest);
        if (!word) {
            RaiseUnreadable(line, L"a quote has no end");
        }
        words.push_back(ToUtf8(*word));
    }
    if (words.empty() || words.front().empty()) {
        RaiseUnreadable(line, L"there is no program in it");
    }
    return words;
}

}  // namespace ace::workbench
