/// The operator at the terminal.
#pragma once

#include <functional>
#include <iosfwd>

#include "workbench/cli/console_report.h"
#include "workbench/session/dialog.h"

namespace ace::workbench {

/// Waits until a read from the terminal would not have to wait, or until `isInterrupted` says true;
/// answers whether there is something to read, the end of the input included.
using WaitForInput = std::function<bool(const std::function<bool()>& isInterrupted)>;

/// Where the operator answers.
struct TerminalInput {
    std::istream* stream = nullptr;  ///< none when nobody can answer
    bool isTerminal = false;         ///< what is typed shows on the screen by itself
    WaitForInput wait{};             ///< none when a read never waits
};

/// Prints each dialog and reads the answer: a line with the key of a button, or with its words. Any
/// other line is asked again. The end of the input, and an interrupt while it waits, are no answer.
class TerminalOperator final : public IOperator {
  public:
    /// `report` and the stream must outlive the object. `isInterrupted` ends a wait for the answer.
    TerminalOperator(ConsoleReport& report, TerminalInput input,
                     std::function<bool()> isInterrupted);

    std::optional<Reply> Ask(const Dialog& dialog) override;

  private:
    bool ReadLine(std::string& line);

    ConsoleReport& x_report;
    TerminalInput x_input;
    std::function<bool()> x_isInterrupted;
};

}  // namespace ace::workbench
