#include "workbench/cli/print_layout.h"

#include <algorithm>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// What stands before the title of an action, as the print has it and as it is shown.
constexpr StringView Indentation = L"   ";
/// Where details begin: behind the longest title that has one, with room to see the gap.
constexpr std::size_t DetailColumn = 24;
/// A column is not made narrower than this, however narrow the terminal is.
constexpr std::size_t NarrowestColumn = 20;

/// `first` with `text` behind it, whose further lines begin in the column of the first.
void AppendColumn(std::vector<String>& lines, const String& first, StringView text,
                  std::size_t width) {
    const std::size_t column = first.size();
    const std::size_t room =
        width == 0 ? 0 : std::max(width > column ? width - column : 0, NarrowestColumn);
    String before = first;
    for (const String& part : Wrapped(text, room)) {
        lines.push_back(before + part);
        before = String(column, L' ');
    }
}

void AppendAction(std::vector<String>& lines, StringView line, std::size_t width) {
    const std::size_t tab = line.find(L'\t');
    if (tab == StringView::npos) {
        AppendColumn(lines, String(Indentation), Trimmed(line), width);
        return;
    }
    const String title = String(Indentation) + String(Trimmed(line.substr(0, tab)));
    AppendColumn(lines, Padded(title + L' ', DetailColumn), OneLine(line.substr(tab + 1)), width);
}

}  // namespace

std::vector<String> PrintLines(StringView block, std::size_t width) {
    std::vector<String> lines;
    while (!block.empty()) {
        const std::size_t end = block.find(L'\r');
        const StringView line = block.substr(0, end);
        block.remove_prefix(end == StringView::npos ? block.size() : end + 1);
        if (line.starts_with(Indentation)) {
            AppendAction(lines, line, width);
            continue;
        }
        if (!lines.empty()) {
            lines.emplace_back();
        }
        AppendColumn(lines, {}, OneLine(line), width);
    }
    return lines;
}

std::vector<String> Boxed(const std::vector<Paragraph>& paragraphs, std::size_t width) {
    constexpr std::size_t Frame = 4;
    std::vector<String> content;
    std::size_t widest = 0;
    for (const Paragraph& paragraph : paragraphs) {
        AppendColumn(content, paragraph.lead, paragraph.text, std::max(width, Frame + 1) - Frame);
    }
    for (const String& line : content) {
        widest = std::max(widest, line.size());
    }
    const String edge = L"+" + String(widest + 2, L'-') + L"+";
    std::vector<String> lines{edge};
    for (const String& line : content) {
        lines.push_back(L"| " + Padded(line, widest) + L" |");
    }
    lines.push_back(edge);
    return lines;
}

}  // namespace ace::workbench
