#include "workbench/cli/terminal_operator.h"

#include <istream>
#include <string>
#include <utility>

#include "workbench/files/text_encoding.h"

namespace ace::workbench {

namespace {

/// "[o] OK   [s] Stop Test"
String ChoicesText(const Dialog& dialog) {
    String text;
    for (const Choice& choice : dialog.choices) {
        text += (text.empty() ? L"[" : L"   [") + String(1, choice.key) + L"] " + choice.words;
    }
    return text;
}

}  // namespace

TerminalOperator::TerminalOperator(ConsoleReport& report, TerminalInput input,
                                   std::function<bool()> isInterrupted)
    : x_report(report), x_input(std::move(input)), x_isInterrupted(std::move(isInterrupted)) {}

std::optional<Reply> TerminalOperator::Ask(const Dialog& dialog) {
    x_report.PrintText(L"\n--- " + dialog.title + L" ---\n" + dialog.message + L"\n");
    const String choices = ChoicesText(dialog);
    for (std::string line;;) {
        x_report.PrintPrompt(choices + L" > ");
        if (!ReadLine(line)) {
            return std::nullopt;
        }
        if (const Choice* const choice = FindChoice(dialog, FromUtf8(line))) {
            return choice->reply;
        }
        x_report.PrintText(L"Please type one of the keys in brackets.\n");
    }
}

/// A last line without its end counts too. What does not show by itself is printed behind the
/// question, so that a record of the run can be read.
bool TerminalOperator::ReadLine(std::string& line) {
    line.clear();
    const bool isThere = !x_input.wait || x_input.wait(x_isInterrupted);
    const bool isRead = isThere && std::getline(*x_input.stream, line);
    if (!isRead || !x_input.isTerminal) {
        x_report.PrintText(FromUtf8(line) + L"\n");
    }
    return isRead;
}

}  // namespace ace::workbench
