#include "workbench/check/as_loaded.h"

#include <algorithm>
#include <array>

#include <ace/core/operation.h>
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

/// The rows of a section in the order of the file, with the lines that stop the load in between.
std::vector<Row> RowsOf(const CheckedFile& file, const CheckedSection& section) {
    std::vector<std::pair<std::int32_t, Row>> rows;
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
    return lines;
}

}  // namespace ace::workbench
