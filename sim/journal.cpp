#include "sim/journal.h"

#include <utility>

namespace ace::sim {

String JournalEntry::Line() const {
    String line = operation + L"(" + arguments + L")";
    if (error != 0) {
        line += L" -> error " + std::to_wstring(error);
    }
    return line;
}

void Journal::Add(JournalEntry entry) {
    ++x_total;
    x_entries.push_back(std::move(entry));
    if (x_bound != 0 && x_entries.size() > x_bound) {
        x_entries.pop_front();
    }
    if (x_observer) {
        x_observer(x_entries.back());
    }
}

void Journal::Bound(std::size_t entries) {
    x_bound = entries;
    while (x_bound != 0 && x_entries.size() > x_bound) {
        x_entries.pop_front();
    }
}

std::vector<String> Journal::LinesIf(const std::function<bool(const JournalEntry&)>& wanted) const {
    std::vector<String> lines;
    for (const JournalEntry& entry : x_entries) {
        if (wanted(entry)) {
            lines.push_back(entry.Line());
        }
    }
    return lines;
}

std::vector<String> Journal::Effects() const {
    return LinesIf([](const JournalEntry& entry) { return !entry.isQuestion; });
}

std::vector<String> Journal::Lines() const {
    return LinesIf([](const JournalEntry&) { return true; });
}

std::vector<String> Journal::LinesOf(StringView prefix) const {
    return LinesIf([&](const JournalEntry& entry) {
        return StringView(entry.operation).substr(0, prefix.size()) == prefix;
    });
}

String Quoted(StringView text) {
    String quoted = L"\"";
    for (const wchar_t c : text) {
        switch (c) {
            case L'\r':
                quoted += L"\\r";
                break;
            case L'\n':
                quoted += L"\\n";
                break;
            case L'\t':
                quoted += L"\\t";
                break;
            default:
                if (c < L' ' || c == 127) {
                    quoted += L"\\x" + std::to_wstring(static_cast<int>(c)) + L";";
                } else {
                    quoted += c;
                }
        }
    }
    return quoted + L"\"";
}

}  // namespace ace::sim
