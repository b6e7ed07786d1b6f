#include "workbench/cli/run_command.h"

#include <algorithm>

#include "workbench/check/rules.h"
#include "workbench/cli/brief_report.h"
#include "workbench/cli/check_input.h"
#include "workbench/cli/run_outputs.h"
#include "workbench/cli/sure_end.h"
#include "workbench/files/text_encoding.h"
#include "workbench/files/trace_file.h"
#include "workbench/session/bench_host.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

Clock ReadClock(const RunArguments& arguments) {
    const std::string text = arguments.clock.value_or(arguments.real ? "real" : "virtual");
    if (text != "virtual" && text != "real") {
        RefuseUse(L"--clock: \"" + FromUtf8(text) + L"\" is neither virtual nor real");
    }
    if (arguments.real && text != "real") {
        RefuseUse(L"--clock virtual: with --real the waits between the commands take their time");
    }
    return text == "real" ? Clock::Real : Clock::Virtual;
}

TransportChoice ReadTransports(const RunArguments& arguments, SettingsFiles& files) {
    TransportChoice choice;
    choice.isReal = arguments.real;
    if (!arguments.config) {
        return choice;
    }
    const String name = FromUtf8(*arguments.config);
    choice.openConfiguration = [&files, name] { return files.Open(name); };
    choice.settings = ReadTransportSettings(ExistingDocument(*arguments.config), name);
    return choice;
}

/// What the run reads must not be what it writes.
void CheckOutputs(const RunArguments& arguments) {
    std::vector<NamedFile> inputs = {{L"the settings file", arguments.file}};
    std::vector<NamedFile> outputs;
    const auto add = [](std::vector<NamedFile>& files, StringView what,
                        const std::optional<std::string>& path) {
        if (path) {
            files.push_back({String(what), *path});
        }
    };
    add(inputs, L"the answers file", arguments.answers);
    add(inputs, L"the configuration", arguments.config);
    add(inputs, L"the file of the devices", arguments.devices);
    add(inputs, L"the script of failures", arguments.faults);
    add(outputs, L"--traffic", arguments.traffic);
    add(outputs, L"--trace", arguments.trace);
    RefuseSharedFiles(inputs, outputs);
}

/// Makes both logs anew, once both can be written. The stream is that of the traffic log; it is not
/// open when none is wanted.
std::ofstream MakeOutputs(const RunArguments& arguments, TraceFile* trace) {
    std::ofstream traffic;
    if (arguments.traffic) {
        traffic = OpenOutput(*arguments.traffic);
    }
    try {
        if (trace != nullptr) {
            trace->Make();
        }
    } catch (const RunTimeError& error) {
        RefuseFile(error.Description());
    }
    if (arguments.traffic) {
        EmptyOutput(*arguments.traffic);
    }
    return traffic;
}

void PrintTransports(ConsoleReport& report, const BenchHost& host) {
    for (const String& program : host.SilentPrograms()) {
        report.PrintPair(L"Program", L"never confirmed its work: " + program);
    }
    if (!host.LogIsGood()) {
        report.PrintPair(L"Traffic", L"the log is not complete: it could not be written");
    }
    for (const String& rule : host.Faults().Unused()) {
        report.PrintPair(L"Unused", L"rule of the script that never applied: " + rule);
    }
}

/// Why actions on devices failed that are not there.
void PrintNotes(ConsoleReport& report, const RunArguments& arguments, const SessionHost& host) {
    if (!arguments.devices && !host.missingDevices.empty()) {
        report.PrintPair(L"Note",
                         L"the bench has no devices, so actions on devices fail: say with "
                         L"--devices which ones it has");
        return;
    }
    for (const String& name : host.missingDevices) {
        report.PrintPair(L"Note", L"the file of the devices has no device " + QuotedLine(name));
    }
}

/// A test that nobody can follow is not begun.
void RequireOutput(const ConsoleReport& report) {
    if (report.IsLost()) {
        throw CommandError{Outcome::Failed, L"the output can't be written; no test was run"};
    }
}

/// A test that would end in the midst is not begun on real instruments.
void RequireRunnable(const RunArguments& arguments, const TestSetUp& setUp, const Answers& answers,
                     const std::vector<Finding>& findings) {
    if (!arguments.real || arguments.despiteFindings) {
        return;
    }
    const String why = WhyItSurelyEnds(arguments, arguments.ask, setUp, answers, findings);
    if (!why.empty()) {
        RefuseFile(why +
                   L"; no test was run: ace-workbench check and plan tell more, "
                   L"--despite-findings runs it all the same");
    }
}

/// None unless the operator is to be asked.
std::unique_ptr<IOperator> MakeOperator(const RunArguments& arguments,
                                        const CommandSurroundings& surroundings,
                                        ConsoleReport& report, const SessionHost& host) {
    if (!arguments.ask || surroundings.input.stream == nullptr) {
        return nullptr;
    }
    return std::make_unique<TerminalOperator>(report, surroundings.input,
                                              [&host] { return host.InterruptIsNew(); });
}

/// A brief report has told each comment where it came.
void PrintEnd(ConsoleReport& report, const RunArguments& arguments, Outcome outcome, Summary counts,
              const Answers& answers, const TraceFile* trace, const BenchHost& host) {
    if (arguments.brief) {
        counts.comments.clear();
    }
    report.PrintSummary(outcome, counts, answers, trace != nullptr ? trace->Failure() : String());
    PrintTransports(report, host);
    PrintNotes(report, arguments, host);
}

/// The report follows the calls as they come, so none is kept.
std::shared_ptr<BenchHost> MakeHost(const RunArguments& arguments, Clock clock,
                                    TransportChoice transports, const TestSetUp& setUp) {
    auto host =
        std::make_shared<BenchHost>(clock, std::move(transports), ReadFaults(arguments.faults));
    ReadBench(arguments, *host);
    RequireWatchingDevices(setUp, host->bench);
    host->journal.KeepNone();
    return host;
}

}  // namespace

Outcome RunCommand(const RunArguments& arguments, const CommandSurroundings& surroundings) {
    const SetUpOptions options = ReadTestOptions(arguments);
    const Clock clock = ReadClock(arguments);
    CheckOutputs(arguments);
    const String file = FromUtf8(arguments.file);
    const SettingsDocument document = ExistingDocument(arguments.file);
    const TestSetUp setUp = ReadSetUp(document, file, options);
    Answers answers = ReadAnswers(arguments);
    SettingsFiles files;
    TransportChoice transports = ReadTransports(arguments, files);

    std::ofstream traffic;  // outlives the host, which writes it
    const auto host = MakeHost(arguments, clock, std::move(transports), setUp);
    const auto trace = arguments.trace ? std::make_shared<TraceFile>(*arguments.trace) : nullptr;
    host->traceFile = trace;
    ConsoleReport report(surroundings.out, surroundings.isTerminal);
    host->isInterrupted = [&] {
        return report.IsLost() || (surroundings.isInterrupted && surroundings.isInterrupted());
    };
    const std::unique_ptr<IOperator> theOperator =
        MakeOperator(arguments, surroundings, report, *host);
    BriefReport brief(report, setUp);
    SessionListener& listener = arguments.brief ? static_cast<SessionListener&>(brief) : report;
    Session session(host, setUp, answers, listener, theOperator.get());
    session.Load(file);
    CheckInput input = InputOfCheck(arguments, arguments.faults, document, setUp, answers, *host);
    input.here = arguments.real;
    const std::vector<Finding> findings = FindingsOf(CheckedFile(input));
    RequireRunnable(arguments, setUp, answers, findings);

    traffic = MakeOutputs(arguments, trace.get());
    if (traffic.is_open()) {
        host->WriteLog(traffic);
    }
    report.PrintSetUp(file, setUp, clock, arguments.real, findings);
    RequireOutput(report);
    const Outcome outcome = session.Run();
    PrintEnd(report, arguments, outcome, session.Counts(), answers, trace.get(), *host);
    return report.IsLost() ? std::max(outcome, Outcome::Failed) : outcome;
}

}  // namespace ace::workbench
