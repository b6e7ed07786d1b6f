#include "workbench/cli/plan_command.h"

#include <algorithm>
#include <sstream>

#include "workbench/cli/plan_page.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/bench_host.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// What the user should know of the test and of its bench.
std::vector<String> NotesOf(const TestArguments& arguments, const TestSetUp& setUp,
                            const Rehearsal& rehearsal, const SessionHost& host) {
    std::vector<String> notes = setUp.notes;
    if (!arguments.devices && !rehearsal.devices.empty()) {
        notes.emplace_back(
            L"no --devices: each device is taken to be there and to do what it is told");
    }
    const bool isWatched = std::ranges::any_of(
        setUp.channels, [](const ChannelEvents& channel) { return channel.watch.has_value(); });
    if (!arguments.devices && isWatched) {
        notes.emplace_back(L"a run needs --devices, because devices watch channels");
    }
    const bool hasOpenQuestion = std::ranges::any_of(rehearsal.dialogs, [](const auto& shown) {
        return shown.dialog.kind == PromptKind::Question && shown.fromFile < shown.times;
    });
    if (hasOpenQuestion) {
        notes.emplace_back(
            L"questions are taken as Yes; without --ask or a line of --answers a run stops there");
    }
    for (const String& name : host.missingDevices) {
        notes.push_back(L"the file of the devices has no device " + QuotedLine(name));
    }
    return notes;
}

}  // namespace

/// The name of the file is not printed, so that two plans can be compared.
Outcome PlanCommand(const TestArguments& arguments, std::ostream& out) {
    const SetUpOptions options = ReadTestOptions(arguments);
    const String file = FromUtf8(arguments.file);
    const TestSetUp setUp = ReadSetUp(ExistingDocument(arguments.file), file, options);
    Answers answers = ReadAnswers(arguments);
    const auto host = std::make_shared<BenchHost>(Clock::Virtual, TransportChoice(),
                                                  std::make_shared<FaultRules>());
    ReadBench(arguments, *host);
    if (arguments.devices) {
        RequireWatchingDevices(setUp, host->bench);
    }
    const Rehearsal rehearsal =
        Rehearse(host, setUp, answers, file, {.hasBench = arguments.devices.has_value()});

    std::ostringstream text;
    ConsoleReport report(text, false);
    PrintPlan(report, setUp, NotesOf(arguments, setUp, rehearsal, *host), rehearsal, answers);
    out << text.str();
    return rehearsal.outcome == Outcome::Failed ? Outcome::Failed : Outcome::Finished;
}

}  // namespace ace::workbench
