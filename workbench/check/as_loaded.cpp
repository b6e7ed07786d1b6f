#include "workbench/check/as_loaded.h"

#include <algorithm>
#include <array>
#include <optional>
#include <set>

#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/editor/action_text.h>
#include <ace/settings/action_line.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr StringView Gap = L" | ";
constexpr std::size_t LeastWidth = 60;

using Row = std::array<String, 3>;

const p_Action& ActionOf(const CheckedSection& section, const CheckedLine& line) {
    return (section.Lists().*ActionLists[line.list - 1].actions)[line.entry];
}

/// The line under which an action would be saved, by its own number.
String SavedLine(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line) {
    DynArray<p_Action> one;
    one.Redim(0, 0);
    one[0] = ActionOf(section, line);
    try {
        const Value lines = modActions::WriteSection(file.Context(), one, 1, line.list);
        const String& text = std::get<DynArray<String>>(lines)[1];
        return String(ActionListKeys[line.list - 1].entry) + std::to_wstring(line.entry + 1) +
               text.substr(text.find(L'='));
    } catch (...) {
        return L"can't be saved: " + CurrentRunTimeError().Description();
    }
}

String HeldText(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line) {
    try {
        const auto text = TreeText(file.Context(), section.moduleKind, ActionOf(section, line));
        return text ? OneLine(*text) : String(L"shows nowhere");
    } catch (...) {
        return L"can't be shown: " + CurrentRunTimeError().Description();
    }
}

Row RowOf(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line) {
    const String text = OneLine(line.text);
    switch (line.meaning) {
        case LineMeaning::Count:
            return {
                text, L"(the count)",
                String(ActionListKeys[line.list - 1].count) + L"=" + std::to_wstring(line.count)};
        case LineMeaning::Entry:
            return line.fills ? Row{text, HeldText(file, section, line),
                                    OneLine(SavedLine(file, section, line))}
                              : Row{text, L"(a later line takes its place)", {}};
        case LineMeaning::UnknownKeyword:
            return {text, L"(passed over: its list does not know the keyword)", {}};
        case LineMeaning::UnknownKey:
            return {text, L"(passed over: no key of a list)", {}};
        case LineMeaning::Short:
        case LineMeaning::Unreadable:
            break;
    }
    return {text, {}, {}};
}

/// A list and the index of an entry in it, from 0.
using ListEntry = std::pair<std::int32_t, std::int32_t>;

/// The entry for which the key of a line stands; nothing for any other line.
std::optional<ListEntry> EntryOf(StringView line) {
    const StringView key = Trimmed(line.substr(0, line.find(L'=')));
    for (std::int32_t list = 1; list <= std::ssize(ActionLists); ++list) {
        const StringView word = ActionListKeys[list - 1].entry;
        if (EqualNoCase(key.substr(0, word.size()), word)) {
            return ListEntry(list, WholeInteger(key.substr(word.size())).value_or(0) - 1);
        }
    }
    return std::nullopt;
}

/// The entries that lines of the file stand for.
template <class Line>
void AddEntries(const std::vector<Line>& lines, std::set<ListEntry>& entries) {
    for (const Line& line : lines) {
        if (const std::optional<ListEntry> entry = EntryOf(line.text)) {
            entries.insert(*entry);
        }
    }
}

/// "EnterAction2 is empty", "EnterAction4-9 are empty"
Row EmptyRow(std::int32_t list, std::int32_t first, std::int32_t last) {
    const String name =
        String(ActionListKeys[list - 1].entry) + std::to_wstring(first + 1) +
        (first == last ? L" is empty" : L"-" + std::to_wstring(last + 1) + L" are empty");
    return {L"(no line)", name, L"can't be saved"};
}

using PlacedRows = std::vector<std::pair<std::int32_t, Row>>;

/// Entries without any line, those one behind the other in one row, below the count of their list.
void AppendEmpty(const CheckedSection& section, PlacedRows& rows) {
    std::set<ListEntry> known;
    AddEntries(section.lines, known);
    AddEntries(section.stops, known);
    std::array<std::int32_t, std::size(ActionLists)> counts{};
    for (const CheckedLine& line : section.lines) {
        if (line.meaning == LineMeaning::Count) {
            counts[static_cast<std::size_t>(line.list - 1)] = line.index;
        }
    }
    std::vector<ListEntry> empty;
    std::ranges::remove_copy_if(section.emptyEntries, std::back_inserter(empty),
                                [&](const ListEntry& entry) { return known.contains(entry); });
    for (std::size_t i = 0; i < empty.size();) {
        std::size_t last = i;
        while (last + 1 < empty.size() && empty[last + 1].first == empty[i].first &&
               empty[last + 1].second == empty[last].second + 1) {
            ++last;
        }
        rows.emplace_back(counts[static_cast<std::size_t>(empty[i].first - 1)],
                          EmptyRow(empty[i].first, empty[i].second, empty[last].second));
        i = last + 1;
    }
}

/// The rows of a section in the order of the file, with the lines that stop the load in between.
std::vector<Row> RowsOf(const CheckedFile& file, const CheckedSection& section) {
    PlacedRows rows;
    for (const CheckedLine& line : section.lines) {
        const bool isLeftOut = std::ranges::find(section.stops, line.index, &StoppedLine::index) !=
                               section.stops.end();
        if (!isLeftOut && !line.text.empty()) {
            rows.emplace_back(line.index, RowOf(file, section, line));
        }
    }
    for (const StoppedLine& stop : section.stops) {
        rows.emplace_back(stop.index,
                          Row{OneLine(stop.text), L"(STOPS THE LOAD: " + stop.reason + L")", {}});
    }
    AppendEmpty(section, rows);
    std::ranges::stable_sort(rows, {}, [](const auto& row) { return row.first; });
    std::vector<Row> texts;
    std::ranges::transform(rows, std::back_inserter(texts),
                           [](auto& row) { return std::move(row.second); });
    return texts;
}

using Widths = std::array<std::size_t, 3>;

Widths WidthsOf(const std::vector<std::vector<Row>>& sections, std::size_t width) {
    if (width != 0) {
        const std::size_t left = std::max(width, LeastWidth) - 2 * Gap.size();
        return {left / 3, left / 3, left / 3};
    }
    Widths widths{};
    for (const std::vector<Row>& rows : sections) {
        for (const Row& row : rows) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                widths[i] = std::max(widths[i], row[i].size());
            }
        }
    }
    return widths;
}

void AppendRow(std::vector<String>& lines, const Row& row, const Widths& widths) {
    std::array<std::vector<String>, 3> cells;
    std::size_t height = 1;
    for (std::size_t i = 0; i < row.size(); ++i) {
        cells[i] = Wrapped(row[i], widths[i]);
        height = std::max(height, cells[i].size());
    }
    for (std::size_t k = 0; k < height; ++k) {
        String line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const String& cell = k < cells[i].size() ? cells[i][k] : String();
            line += (i == 0 ? String() : String(Gap)) + Padded(cell, widths[i]);
        }
        lines.push_back(std::move(line));
    }
}

/// Why nothing of all that is saved; empty when it can be.
String UnsavedText(const CheckedFile& file) {
    std::size_t stops = 0;
    std::size_t empty = 0;
    for (const CheckedSection& section : file.Sections()) {
        std::set<ListEntry> stopped;
        AddEntries(section.stops, stopped);
        stops += section.stops.size();
        empty += static_cast<std::size_t>(std::ranges::count_if(
            section.emptyEntries,
            [&](const ListEntry& entry) { return !stopped.contains(entry); }));
    }
    if (!file.Failure().empty()) {
        return L"Nothing is saved: " + file.Failure();
    }
    String text;
    const auto add = [&](std::size_t count, StringView one, StringView many) {
        if (count > 0) {
            text += (text.empty() ? L"Nothing is saved as long as " : L" and ") +
                    Counted(count, one, many);
        }
    };
    add(stops, L"line stops the load", L"lines stop the load");
    add(empty, L"entry is empty", L"entries are empty");
    return text;
}

}  // namespace

std::vector<String> AsLoaded(const CheckedFile& file, std::size_t width) {
    std::vector<std::vector<Row>> sections;
    for (const CheckedSection& section : file.Sections()) {
        sections.push_back(RowsOf(file, section));
    }
    const Widths widths = WidthsOf(sections, width);
    std::vector<String> lines;
    AppendRow(lines, {L"In the file", L"In the engine", L"Saved"}, widths);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        const CheckedSection& section = file.Sections()[i];
        lines.emplace_back();
        lines.push_back(L"[" + section.name + L"]" +
                        (section.header == 0 ? L" is not there" : L""));
        for (const Row& row : sections[i]) {
            AppendRow(lines, row, widths);
        }
    }
    if (const String text = UnsavedText(file); !text.empty()) {
        lines.emplace_back();
        std::ranges::copy(Wrapped(text, width), std::back_inserter(lines));
    }
    return lines;
}

}  // namespace ace::workbench
