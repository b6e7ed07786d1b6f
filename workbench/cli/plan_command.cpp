#include "workbench/cli/plan_command.h"

#include <algorithm>
#include <array>
#include <span>
#include <sstream>

#include <ace/core/text.h>

#include "workbench/cli/console_report.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/bench_host.h"
#include "workbench/session/rehearsal.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// More lines of what never runs say nothing new.
constexpr std::size_t MostNeverRun = 30;
constexpr std::size_t TimesWidth = 7;

/// "x254   " and what runs so often.
String TimesLine(std::size_t times, const String& words) {
    return L"  " + Padded(L"x" + std::to_wstring(times), TimesWidth) + L" " + words;
}

String TextOf(const RehearsedAction& action) {
    return action.text.empty() ? String(L"(an entry that came back empty from the file)")
                               : action.text;
}

/// "[ActionsOnSR1] EnterAction3 Wait: 0.500 s"
String SourceLine(const RehearsedAction& action) {
    return L"[" + action.source.section + L"] " + EntryKey(action.source) + L" " + TextOf(action);
}

// ---- the moments of a list -----------------------------------------------------------------

/// Those of one kind.
using MomentsOfKind = std::span<const RehearsedMoments>;

/// "5", "1 to 16", "2, 4, 9 ... 30"
String NumbersText(MomentsOfKind moments) {
    constexpr std::size_t MostNumbers = 4;
    const bool isGapless = std::ranges::adjacent_find(moments, [](const auto& a, const auto& b) {
                               return b.number != a.number + 1;
                           }) == moments.end();
    String text = IntegerText(moments.front().number);
    if (moments.size() == 1) {
        return text;
    }
    if (isGapless) {
        return text + L" to " + IntegerText(moments.back().number);
    }
    const bool isLong = moments.size() > MostNumbers;
    for (const RehearsedMoments& part : moments.subspan(1, isLong ? 2 : moments.size() - 1)) {
        text += L", " + IntegerText(part.number);
    }
    return isLong ? text + L" ... " + IntegerText(moments.back().number) : text;
}

/// "254 + 100 + 81 times", one number for each sweep.
String SweepsText(MomentsOfKind moments) {
    String text;
    for (const RehearsedMoments& part : moments) {
        text += (text.empty() ? L"" : L" + ") + std::to_wstring(part.times);
    }
    return text + (text == L"1" ? L" time" : L" times");
}

/// "enter subrange 1", "new frequency, 254 + 100 + 81 times", "after step 1 to 254, 254 times",
/// "matrix row 5 (2402 MHz (low), 1 MHz, 0 dBm)"
String KindText(MomentsOfKind moments, const Moment& first, const Matrix& matrix) {
    const MomentCallRow& row = MomentCallRowOf(moments.front().call);
    const String words =
        Filled(row.words, std::array{NumbersText(moments), first.name, first.stepKey});
    if (row.call == MomentCall::NewFrequency) {
        return words + L", " + SweepsText(moments);
    }
    std::size_t times = 0;
    for (const RehearsedMoments& part : moments) {
        times += part.times;
    }
    if (times != 1) {
        return words + L", " + std::to_wstring(times) + L" times";
    }
    return row.call == MomentCall::VKSDUTStep
               ? words + L" (" + CombinationWords(matrix, first) + L")"
               : words;
}

/// A list can run at moments of two kinds: tracking starts at the start of a test, too.
String MomentsText(const RehearsedList& list, const Matrix& matrix) {
    String text;
    for (auto begin = list.moments.begin(); begin != list.moments.end();) {
        const auto end = std::find_if(begin, list.moments.end(), [&](const RehearsedMoments& part) {
            return part.call != begin->call;
        });
        text +=
            (text.empty() ? L"" : L"; ") + KindText(MomentsOfKind(begin, end), list.first, matrix);
        begin = end;
    }
    return text;
}

// ---- the parts of the page -----------------------------------------------------------------

class Page {
  public:
    Page(ConsoleReport& report, const TestSetUp& setUp, const Rehearsal& rehearsal)
        : x_report(report), x_setUp(setUp), x_rehearsal(rehearsal) {}

    void PrintNotes(const std::vector<String>& notes);
    void PrintEnds();
    void PrintLists();
    void PrintDialogs();
    void PrintDevices();
    void PrintAddresses();
    void PrintTime();
    void PrintNeverRun();

  private:
    void PrintTitle(const String& title) { x_report.PrintText(L"\n" + title); }

    ConsoleReport& x_report;
    const TestSetUp& x_setUp;
    const Rehearsal& x_rehearsal;
};

void Page::PrintNotes(const std::vector<String>& notes) {
    for (const String& note : notes) {
        x_report.PrintPair(L"Note", note);
    }
}

void Page::PrintEnds() {
    for (const RehearsedEnd& end : x_rehearsal.ends) {
        const bool isByAction = !end.isError && end.action != RehearsedEnd::NoAction;
        x_report.PrintPair(
            L"Ends", end.moment + L": " + end.words +
                         (isByAction ? L", behind " + SourceLine(x_rehearsal.actions[end.action])
                                     : String()));
    }
}

void Page::PrintLists() {
    for (const RehearsedList& list : x_rehearsal.lists) {
        const String time = DurationText(list.workMs);
        PrintTitle(MomentsText(list, x_setUp.matrix) + L": " +
                   Counted(list.begun, L"action", L"actions") +
                   (list.workMs < 0.5 ? String() : L", " + time));
        for (std::size_t i = list.begin; i < list.end; ++i) {
            const RehearsedAction& action = x_rehearsal.actions[i];
            if (action.times != 0) {
                x_report.PrintText(TimesLine(action.times, TextOf(action)));
            }
        }
    }
    if (x_rehearsal.lists.empty()) {
        PrintTitle(L"no actions");
    }
}

void Page::PrintDialogs() {
    if (x_rehearsal.dialogs.empty()) {
        return;
    }
    PrintTitle(L"Shown to the operator:");
    for (const RehearsedDialog& shown : x_rehearsal.dialogs) {
        const String answer = shown.fromFile == 0
                                  ? String()
                                  : L": " + String(WordOf(shown.dialog.kind, shown.reply)) +
                                        L" by the answers file" +
                                        (shown.fromFile < shown.times
                                             ? L" " + Counted(shown.fromFile, L"time", L"times")
                                             : String());
        x_report.PrintText(TimesLine(shown.times, String(WordOf(shown.dialog.kind)) + L" " +
                                                      QuotedLine(shown.dialog.message) +
                                                      (shown.differs ? L" and others" : L"") +
                                                      L", " + shown.moment + answer));
    }
}

String DeedsText(const RehearsedDevice& device) {
    String text;
    for (const RehearsedDeed& deed : device.deeds) {
        text += (text.empty() ? L"" : L", ") + deed.words +
                (deed.times == 1 ? String() : L" x" + std::to_wstring(deed.times));
    }
    return text;
}

void Page::PrintDevices() {
    if (x_rehearsal.devices.empty()) {
        return;
    }
    PrintTitle(L"Devices:");
    for (const RehearsedDevice& device : x_rehearsal.devices) {
        x_report.PrintText(L"  " + device.name + L": " + DeedsText(device));
    }
}

String WhereText(const RehearsedAddress& address) {
    return address.transport + L" " + OneLine(address.address);
}

void Page::PrintAddresses() {
    if (x_rehearsal.addresses.empty()) {
        return;
    }
    PrintTitle(L"Commands, programs and macros:");
    std::size_t width = 0;
    for (const RehearsedAddress& address : x_rehearsal.addresses) {
        width = std::max(width, WhereText(address).size());
    }
    for (const RehearsedAddress& address : x_rehearsal.addresses) {
        const String where = WhereText(address);
        const String what = address.isStarted
                                ? Counted(address.times, L"start", L"starts")
                                : Counted(address.times, L"command", L"commands") + L", " +
                                      Counted(address.bytes, L"byte", L"bytes");
        x_report.PrintText(L"  " + Padded(where, width) + L"  " + what);
    }
}

/// What takes time that nobody knows before.
String UnknownText(const Rehearsal& rehearsal) {
    std::size_t dialogs = 0;
    for (const RehearsedDialog& shown : rehearsal.dialogs) {
        dialogs += shown.times - shown.fromFile;
    }
    std::size_t macros = 0;
    for (const RehearsedAddress& address : rehearsal.addresses) {
        macros += address.transport == TrafficNames::Macro ? address.times : 0;
    }
    String text;
    const auto add = [&](std::size_t count, StringView what, StringView one, StringView many) {
        if (count != 0) {
            text += (text.empty() ? L"" : L", ") + String(what) + L" (" +
                    Counted(count, one, many) + L")";
        }
    };
    add(dialogs, L"the operator", L"dialog", L"dialogs");
    add(rehearsal.programsAwaited, L"programs that confirm their work", L"start", L"starts");
    add(macros, L"macros", L"run", L"runs");
    return text;
}

void Page::PrintTime() {
    const Summary& counts = x_rehearsal.counts;
    PrintTitle({});
    x_report.PrintPair(L"Time", DurationText(counts.waitedMs + counts.dwellMs) + L": " +
                                    DurationText(counts.waitedMs) + L" waits of actions, " +
                                    DurationText(counts.dwellMs) + L" dwelling on frequencies");
    if (const String words = UnknownText(x_rehearsal); !words.empty()) {
        x_report.PrintPair(L"Unknown", L"how long it takes: " + words);
    }
}

void Page::PrintNeverRun() {
    std::size_t count = 0;
    for (const RehearsedAction& action : x_rehearsal.actions) {
        if (action.times != 0) {
            continue;
        }
        if (count == 0) {
            PrintTitle(L"never runs:");
        }
        if (++count <= MostNeverRun) {
            x_report.PrintText(TimesLine(0, SourceLine(action)));
        }
    }
    if (count > MostNeverRun) {
        x_report.PrintText(L"  and " + Counted(count - MostNeverRun, L"action", L"actions") +
                           L" more");
    }
}

}  // namespace

/// What the user should know of the test and of its bench.
std::vector<String> NotesOf(const TestArguments& arguments, const TestSetUp& setUp,
                            const Rehearsal& rehearsal, const SessionHost& host) {
    std::vector<String> notes = setUp.notes;
    if (!arguments.devices && !rehearsal.devices.empty()) {
        notes.emplace_back(
            L"no --devices: each device is taken to be there and to do what it is told");
    }
    for (const String& name : host.missingDevices) {
        notes.push_back(L"the file of the devices has no device " + QuotedLine(name));
    }
    return notes;
}

/// The name of the file is not printed, so that two plans can be compared.
Outcome PlanCommand(const TestArguments& arguments, std::ostream& out) {
    const SetUpOptions options = ReadTestOptions(arguments);
    const String file = FromUtf8(arguments.file);
    const TestSetUp setUp = ReadSetUp(ExistingDocument(arguments.file), file, options);
    Answers answers = ReadAnswers(arguments);
    const auto host = std::make_shared<BenchHost>(Clock::Virtual, TransportChoice(),
                                                  std::make_shared<FaultRules>());
    ReadBench(arguments, *host);
    const Rehearsal rehearsal = Rehearse(host, setUp, answers, file, arguments.devices.has_value());

    std::ostringstream text;
    ConsoleReport report(text, false);
    report.PrintTest(setUp);
    Page page(report, setUp, rehearsal);
    page.PrintNotes(NotesOf(arguments, setUp, rehearsal, *host));
    page.PrintEnds();
    page.PrintLists();
    page.PrintDialogs();
    page.PrintDevices();
    page.PrintAddresses();
    page.PrintTime();
    page.PrintNeverRun();
    out << text.str();
    return rehearsal.outcome == Outcome::Failed ? Outcome::Failed : Outcome::Finished;
}

}  // namespace ace::workbench
