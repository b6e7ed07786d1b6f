#include "sim/journal.h"

#include <ace/core/text.h>

namespace ace::sim {

JournalEntry::JournalEntry(const HostCall& call)
    : operation(call.operation),
      arguments(ArgumentText(call.arguments)),
      error(call.error),
      isQuestion(call.isQuestion) {
    for (const CallArgument& argument : call.arguments) {
        values.push_back(PlainText(argument));
    }
}

String JournalEntry::Line() const {
    String line = operation + L"(" + arguments + L")";
    if (error != 0) {
        line += L" -> error " + IntegerText(error);
    }
    return line;
}

void Journal::Add(const HostCall& call) {
    ++x_total;
    if (x_keeps) {
        x_entries.emplace_back(call);
        if (x_bound != 0 && x_entries.size() > x_bound) {
            x_entries.pop_front();
        }
    }
    if (x_observer) {
        x_observer(call);
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

}  // namespace ace::sim
