/// What a run prints.
#pragma once

#include <chrono>
#include <iosfwd>

#include "workbench/check/finding.h"
#include "workbench/session/session.h"

namespace ace::workbench {

/// Prints a session as it goes on, in UTF-8. On a terminal the last line shows how far a sweep is;
/// anywhere else nothing but whole lines is written.
class ConsoleReport final : public SessionListener {
  public:
    /// `out` must outlive the object.
    ConsoleReport(std::ostream& out, bool isTerminal) : x_out(out), x_isTerminal(isTerminal) {}

    /// Title and module.
    void PrintTitle(const TestSetUp& setUp);
    /// What is tested: title, module, matrix and sweeps.
    void PrintTest(const TestSetUp& setUp);
    /// What the user should know before, one line each.
    void PrintNotes(const std::vector<String>& notes);
    /// `isReal` says that the transports are. Of the findings those that surely end the test are
    /// told, and the number of the others.
    void PrintSetUp(const String& file, const TestSetUp& setUp, Clock clock, bool isReal,
                    const std::vector<Finding>& findings);
    void OnLine(const Place& place, LineKind kind, const String& words) override;
    void OnProgress(std::size_t done, std::size_t total) override;
    /// `traceFailure` says why the trace file is not complete; empty while it is.
    void PrintSummary(Outcome outcome, const Summary& summary, const Answers& answers,
                      const String& traceFailure);

    /// The lines of the answers that never answered anything.
    void PrintUnused(const Answers& answers);

    /// Something could not be printed, because the disk is full or nobody reads any more.
    bool IsLost() const;

    /// The lines of a text, each as it stands.
    void PrintText(StringView text);
    /// The words behind which the user types an answer; without a line end.
    void PrintPrompt(const String& words);
    /// A moment, or several that are told as one, with what was done in it.
    void PrintMoment(double timeMs, StringView moment, const String& words);
    /// A line of the set-up or of the summary.
    void PrintPair(StringView name, const String& text);

  private:
    void PrintFindings(const std::vector<Finding>& findings);
    void PrintChecks(const Summary& summary);
    void Print(const String& line);
    void EraseProgress();

    std::ostream& x_out;
    bool x_isTerminal;
    bool x_progressShown = false;
    std::chrono::steady_clock::time_point x_lastProgress;
};

}  // namespace ace::workbench
