#include "workbench/cli/console_report.h"

#include <initializer_list>
#include <ostream>
#include <utility>

#include <ace/core/text.h>

#include "workbench/files/text_encoding.h"
#include "workbench/files/text_lines.h"
#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::size_t NameWidth = 11;
constexpr std::size_t TimeWidth = 13;
constexpr std::size_t MomentWidth = 20;
constexpr std::size_t FrequencyWidth = 16;
/// The progress is drawn no oftener than this.
constexpr std::chrono::milliseconds ProgressPause{100};

/// Result lines by outcome.
constexpr StringView Results[] = {
    L"finished",
    L"stopped by an answer, an action or the user",
    L"stopped, because a question had no answer",
    L"stopped by an error",
};

/// "3 questions (2 Yes, 1 without answer)": the details that are not 0.
String Detailed(StringView one, StringView many,
                std::initializer_list<std::pair<std::size_t, StringView>> details) {
    std::size_t total = 0;
    String text;
    for (const auto& [count, word] : details) {
        total += count;
        if (count > 0) {
            text += (text.empty() ? L"" : L", ") + std::to_wstring(count) + L" " + String(word);
        }
    }
    return Counted(total, one, many) + (text.empty() ? String() : L" (" + text + L")");
}

/// Nothing when no device failed.
String FailuresText(const Summary& summary) {
    const bool hasSome = summary.failuresIgnored + summary.failuresIgnoredForGood != 0 ||
                         summary.failuresStopped != 0;
    return hasSome ? L", " + Detailed(L"failure", L"failures",
                                      {{summary.failuresIgnored, L"Ignore"},
                                       {summary.failuresIgnoredForGood, L"Ignore all"},
                                       {summary.failuresStopped, L"Stop"}})
                   : String();
}

String OperatorText(const Summary& summary) {
    return Detailed(L"notification", L"notifications",
                    {{summary.notifications - summary.notificationsStopped, L"OK"},
                     {summary.notificationsStopped, L"Stop"}}) +
           L", " +
           Detailed(L"question", L"questions",
                    {{summary.yes, L"Yes"},
                     {summary.no, L"No"},
                     {summary.unanswered, L"WITHOUT ANSWER"}}) +
           FailuresText(summary);
}

/// "1 passed, 1 failed, 2 not reached"
String VerdictsText(const Summary& summary) {
    const auto count = [&](Verdict verdict) {
        return summary.verdicts[static_cast<std::size_t>(verdict)];
    };
    const std::size_t without = count(Verdict::BrokenOff) + count(Verdict::NoActions);
    const std::size_t passed = count(Verdict::Passed);
    const std::size_t failed = count(Verdict::Failed);
    return Detailed(L"step", L"steps",
                    {{passed, L"passed"},
                     {failed, L"FAILED"},
                     {without, L"n.a."},
                     {summary.wirelessSteps - passed - failed - without, L"not reached"}});
}

/// "4 frequencies, 2 bandwidths, 2 powers: 16 rows"
String MatrixText(const Matrix& matrix) {
    return Counted(matrix.frequencies.size(), L"frequency", L"frequencies") + L", " +
           Counted(matrix.bandwidths.size(), L"bandwidth", L"bandwidths") + L", " +
           Counted(matrix.powers.size(), L"power", L"powers") + L": " +
           Counted(CombinationsOf(matrix), L"row", L"rows");
}

String ActionsText(const Summary& summary) {
    const bool hasNone = summary.actions == 0 && summary.errors == 0;
    return hasNone
               ? String(L"none: the file has no actions for these moments")
               : std::to_wstring(summary.actions) + L" begun (as the engine's trace counts them)";
}

String ErrorsText(const Summary& summary) {
    if (summary.errors == 0 && summary.errorReports == 0) {
        return L"none";
    }
    return std::to_wstring(summary.errors) + L" that ended a moment, " +
           Counted(summary.errorReports, L"error report", L"error reports") + L" of the engine";
}

}  // namespace

void ConsoleReport::PrintTitle(const TestSetUp& setUp) {
    if (!setUp.title.empty()) {
        PrintPair(L"Title", setUp.title);
    }
    PrintPair(L"Module", ModuleText(setUp.moduleKind, setUp.subRanges));
}

void ConsoleReport::PrintNotes(const std::vector<String>& notes) {
    for (const String& note : notes) {
        PrintPair(L"Note", note);
    }
}

void ConsoleReport::PrintTest(const TestSetUp& setUp) {
    PrintTitle(setUp);
    if (setUp.moduleKind == aceVKSDUT) {
        PrintPair(L"Matrix", MatrixText(setUp.matrix));
    }
    for (std::size_t i = 0; i < setUp.sweeps.size(); ++i) {
        if (setUp.sweeps[i]) {
            PrintPair(L"Sweep " + std::to_wstring(i + 1), SweepText(*setUp.sweeps[i]));
        }
    }
}

void ConsoleReport::PrintSetUp(const String& file, const TestSetUp& setUp, Clock clock, bool isReal,
                               const std::vector<Finding>& findings) {
    PrintPair(L"File", file);
    PrintTest(setUp);
    PrintPair(L"Clock", clock == Clock::Real ? L"real" : L"virtual: waits pass at once");
    if (isReal) {
        PrintPair(L"Transports", L"real: commands leave this machine, programs are started");
    }
    PrintNotes(setUp.notes);
    PrintFindings(findings);
    Print({});
}

/// More than a few say nothing that the first ones don't.
void ConsoleReport::PrintFindings(const std::vector<Finding>& findings) {
    constexpr std::size_t Most = 5;
    std::size_t told = 0;
    for (const Finding& finding : findings) {
        if (EndsTest(finding) && told < Most) {
            ++told;
            PrintPair(L"Finding", FindingWords(finding));
        }
    }
    if (const std::size_t left = findings.size() - told; left > 0) {
        PrintPair(L"Findings", std::to_wstring(left) + (told > 0 ? L" more" : L"") +
                                   L": ace-workbench check tells " + (left == 1 ? L"it" : L"them"));
    }
}

void ConsoleReport::OnLine(const Place& place, LineKind, const String& words) {
    const String frequency = place.hertz > 0.0 ? FrequencyText(place.hertz) : String();
    Print(Padded(TimeText(place.timeMs), TimeWidth) + Padded(place.moment, MomentWidth) + L" " +
          Padded(frequency, FrequencyWidth) + words);
}

void ConsoleReport::PrintMoment(double timeMs, StringView moment, const String& words) {
    Print(Padded(TimeText(timeMs), TimeWidth) + Padded(moment, MomentWidth) + L" " + words);
}

void ConsoleReport::OnProgress(std::size_t done, std::size_t total) {
    const auto now = std::chrono::steady_clock::now();
    if (!x_isTerminal || (done < total && now - x_lastProgress < ProgressPause)) {
        return;
    }
    EraseProgress();
    if (done < total) {
        x_out << "frequency " << done << " of " << total << ", " << done * 100 / total << " %"
              << std::flush;
        x_progressShown = true;
    }
    x_lastProgress = now;
}

void ConsoleReport::PrintSummary(Outcome outcome, const Summary& summary, const Answers& answers,
                                 const String& traceFailure) {
    EraseProgress();
    Print({});
    PrintPair(L"Result", String(Results[static_cast<std::size_t>(outcome)]));
    PrintPair(L"Moments", Counted(summary.moments, L"call", L"calls") + L" of the engine");
    PrintPair(L"Actions", ActionsText(summary));
    PrintPair(L"Waited", TimeText(summary.waitedMs) + L" by actions, " + TimeText(summary.dwellMs) +
                             L" dwelling on frequencies");
    if (summary.wirelessSteps != 0) {
        PrintPair(L"Verdicts", VerdictsText(summary));
    }
    PrintPair(L"Operator", OperatorText(summary));
    PrintChecks(summary);
    PrintPair(L"Errors", ErrorsText(summary));
    PrintUnused(answers);
    if (!traceFailure.empty()) {
        PrintPair(L"Trace", L"not complete: " + traceFailure);
    }
}

void ConsoleReport::PrintUnused(const Answers& answers) {
    for (const AnswerLine* line : answers.Unused()) {
        PrintPair(L"Unused",
                  L"line " + std::to_wstring(line->line) + L" of the answers: " + line->source);
    }
}

void ConsoleReport::PrintChecks(const Summary& summary) {
    for (const String& comment : summary.comments) {
        PrintPair(L"Comment", comment);
    }
    if (summary.repetitions + summary.parkings > 0) {
        PrintPair(L"Checks", Counted(summary.repetitions, L"repetition", L"repetitions") +
                                 L" of a subrange or sweep, " +
                                 Counted(summary.parkings, L"parking", L"parkings") +
                                 L" of the accessories");
    }
}

void ConsoleReport::Print(const String& line) {
    EraseProgress();
    x_out << ToUtf8(OneLine(line.substr(0, line.find_last_not_of(L' ') + 1))) << '\n' << std::flush;
}

bool ConsoleReport::IsLost() const {
    return !x_out.good();
}

void ConsoleReport::PrintText(StringView text) {
    for (const StringView line : LinesOf(text)) {
        Print(String(line));
    }
}

void ConsoleReport::PrintPrompt(const String& words) {
    EraseProgress();
    x_out << ToUtf8(OneLine(words)) << std::flush;
}

void ConsoleReport::PrintPair(StringView name, const String& text) {
    Print(Padded(name, NameWidth) + text);
}

void ConsoleReport::EraseProgress() {
    if (x_progressShown) {
        x_out << "\r\x1b[K";
        x_progressShown = false;
    }
}

}  // namespace ace::workbench
