/// A working engine and a second object that prints its lists.
#pragma once

#include <array>

#include "support/engine_fixture.h"

namespace ace::test {

/// The heading of a listing.
inline const String Heading = L"T(18153):\r";
/// The column marks of the host's print.
inline const String PrintLayout = L"<*6.4in\r<*0.2in\t<*2in<*4.2in\t<*4.2in";
/// An action whose line has a title alone, and that line.
inline const p_Action Protect = Action(atProtRec);
inline const String ProtectLine = L"   T(9068)\r";
/// The line of a wait.
inline String WaitLine(const String& seconds) {
    return L"   T(9063): \t" + seconds + L" s\r";
}

/// The two elements of a row.
using PrintedRow = std::array<String, 2>;
/// What the row of a print without any line has.
inline const PrintedRow NothingPrinted = {L"\r", L"\r"};

/// A text of the print as lines: each ends with a CR, and a tab stands as "\t". What has no CR
/// behind it is told.
inline std::vector<String> VisibleLines(const String& text) {
    std::vector<String> lines(1);
    for (const wchar_t c : text) {
        if (c == L'\r') {
            lines.emplace_back();
        } else {
            lines.back() += c == L'\t' ? String(L"\\t") : String(1, c);
        }
    }
    lines.back() += L"(no CR)";
    if (lines.back() == L"(no CR)") {
        lines.pop_back();
    }
    return lines;
}

/// `engine` has the lists, `printer` prints them into the one row of `rows`. The journal starts
/// behind the construction of both.
class PrintTest : public EngineTest {
  protected:
    PrintTest() {
        rows.Redim(0, 0, 0, 1);
        context.Language();
        context.GpibDriver();
        host->journal.Clear();
    }

    /// Prints into a fresh row.
    PrintedRow Print(aceModul moduleKind) {
        rows.Redim(0, 0, 0, 1);
        printer->PrintStrings(moduleKind, *engine, rows, 0);
        return Row();
    }
    /// The text of that.
    String TextOf(aceModul moduleKind) { return Print(moduleKind)[0]; }
    PrintedRow Row(std::int32_t row = 0) const { return {rows(row, 0), rows(row, 1)}; }
    /// The error of a print into the row as it stands.
    std::int32_t PrintError(aceModul moduleKind, std::int32_t row = 0) {
        return ErrorOf([&] { printer->PrintStrings(moduleKind, *engine, rows, row); });
    }
    void FillStart(const std::vector<p_Action>& actions) {
        Fill(State().MainTest, EnterList, actions);
    }
    EngineState& Printed() { return printer->State(); }

    std::unique_ptr<aceActionsEngine> printer = std::make_unique<aceActionsEngine>(context);
    Array2D<String> rows;
};

}  // namespace ace::test
