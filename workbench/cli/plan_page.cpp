#include "workbench/cli/plan_page.h"

#include <algorithm>
#include <array>
#include <span>

#include <ace/core/text.h>

#include "workbench/session/plan_blocks.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr std::size_t MostNotBegun = 30;
/// A page has room for more than a test of usual size has.
constexpr std::size_t MostTold = 100;
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
    constexpr std::size_t MostRanges = 4;
    std::vector<std::int32_t> numbers;
    for (const RehearsedMoments& part : moments) {
        numbers.push_back(part.number);
    }
    return RangesText(numbers, MostRanges);
}

std::size_t TimesOf(MomentsOfKind moments) {
    std::size_t times = 0;
    for (const RehearsedMoments& part : moments) {
        times += part.times;
    }
    return times;
}

/// "254 + 100 + 81 times", one number for each sweep; of very many only the sum.
String SweepsText(MomentsOfKind moments) {
    constexpr std::size_t MostSweeps = 8;
    String all = Counted(TimesOf(moments), L"time", L"times");
    if (moments.size() == 1) {
        return all;
    }
    if (moments.size() > MostSweeps) {
        return all + L" in " + std::to_wstring(moments.size()) + L" sweeps";
    }
    String text;
    for (const RehearsedMoments& part : moments) {
        text += (text.empty() ? L"" : L" + ") + std::to_wstring(part.times);
    }
    return text + L" times";
}

/// "enter subrange 1", "new frequency, 254 + 100 + 81 times", "after step 1 to 254 (254 times)",
/// "matrix row 5 (2402 MHz (low), 1 MHz, 0 dBm)"
String KindText(MomentsOfKind moments, const Moment& first, const Matrix& matrix) {
    const MomentCallRow& row = MomentCallRowOf(moments.front().call);
    const String words =
        Filled(row.words, std::array{NumbersText(moments), first.name, first.stepKey});
    if (row.call == MomentCall::NewFrequency) {
        return words + L", " + SweepsText(moments);
    }
    const std::size_t times = TimesOf(moments);
    if (times != 1) {
        return words + L" (" + std::to_wstring(times) + L" times)";
    }
    return row.call == MomentCall::VKSDUTStep
               ? words + L" (" + CombinationWords(matrix, first) + L")"
               : words;
}

/// A list can run at moments of two kinds: tracking starts at the start of a test, too.
String MomentsText(const PlanBlock& block, const Matrix& matrix) {
    String text;
    for (auto begin = block.moments.begin(); begin != block.moments.end();) {
        const auto end =
            std::find_if(begin, block.moments.end(),
                         [&](const RehearsedMoments& part) { return part.call != begin->call; });
        text +=
            (text.empty() ? L"" : L"; ") + KindText(MomentsOfKind(begin, end), block.first, matrix);
        begin = end;
    }
    return text;
}

// ---- the parts of the page -----------------------------------------------------------------

class Page {
  public:
    Page(ConsoleReport& report, const TestSetUp& setUp, const Rehearsal& rehearsal)
        : x_report(report), x_setUp(setUp), x_rehearsal(rehearsal) {}

    void PrintEnds();
    void PrintLists();
    void PrintWaiting();
    void PrintDialogs();
    void PrintDevices();
    void PrintAddresses();
    void PrintTime();
    void PrintNeverRun();

  private:
    void PrintTitle(const String& title) { x_report.PrintText(L"\n" + title); }
    /// The first of many, a line for each, and how many more there are; nothing without any.
    template <class Item, class LineOf>
    void PrintSome(const String& title, const std::vector<Item>& items, std::size_t most,
                   StringView one, StringView many, LineOf lineOf);

    ConsoleReport& x_report;
    const TestSetUp& x_setUp;
    const Rehearsal& x_rehearsal;
};

template <class Item, class LineOf>
void Page::PrintSome(const String& title, const std::vector<Item>& items, std::size_t most,
                     StringView one, StringView many, LineOf lineOf) {
    if (items.empty()) {
        return;
    }
    PrintTitle(title);
    for (std::size_t i = 0; i < std::min(items.size(), most); ++i) {
        x_report.PrintText(lineOf(items[i]));
    }
    if (items.size() > most) {
        x_report.PrintText(L"  and " + Counted(items.size() - most, one, many) + L" more");
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
    const std::vector<PlanBlock> blocks = BlocksOf(x_rehearsal);
    for (std::size_t i = 0; i < std::min(blocks.size(), MostTold); ++i) {
        const String time = DurationText(blocks[i].workMs);
        PrintSome(MomentsText(blocks[i], x_setUp.matrix) + L": " +
                      Counted(blocks[i].begun, L"action", L"actions") +
                      (time == DurationText(0.0) ? String() : L", " + time),
                  blocks[i].lines, MostTold, L"action", L"actions", [](const BlockLine& line) {
                      return TimesLine(line.times, TextOf(*line.action));
                  });
    }
    if (blocks.size() > MostTold) {
        PrintTitle(L"and " + Counted(blocks.size() - MostTold, L"list", L"lists") + L" more");
    }
    if (blocks.empty()) {
        PrintTitle(L"no actions");
    }
}

String DialogLine(const RehearsedDialog& shown) {
    const bool isEachTime = shown.fromFile == shown.times;
    const String often = isEachTime ? String() : L" " + Counted(shown.fromFile, L"time", L"times");
    const String answer = shown.fromFile == 0
                              ? String()
                              : L": " + String(WordOf(shown.dialog.kind, shown.reply)) +
                                    L" by the answers file" + often;
    return TimesLine(shown.times,
                     String(WordOf(shown.dialog.kind)) + L" " + QuotedLine(shown.dialog.message) +
                         (shown.differs ? L" and others" : L"") + L", " + shown.moment + answer);
}

void Page::PrintDialogs() {
    PrintSome(L"Shown to the operator:", x_rehearsal.dialogs, MostTold, L"dialog", L"dialogs",
              DialogLine);
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
    PrintSome(L"Devices:", x_rehearsal.devices, MostTold, L"device", L"devices",
              [](const RehearsedDevice& device) {
                  return L"  " + device.name + L": " + DeedsText(device);
              });
}

String WhereText(const RehearsedAddress& address) {
    return address.transport + L" " + OneLine(address.address);
}

String AddressLine(const RehearsedAddress& address, std::size_t width) {
    const String what = address.isStarted ? Counted(address.times, L"start", L"starts")
                                          : Counted(address.times, L"command", L"commands") +
                                                L", " + Counted(address.bytes, L"byte", L"bytes");
    return L"  " + Padded(WhereText(address), width) + L"  " + what;
}

void Page::PrintAddresses() {
    std::size_t width = 0;
    for (const RehearsedAddress& address : x_rehearsal.addresses) {
        width = std::max(width, WhereText(address).size());
    }
    PrintSome(L"Commands, programs and macros:", x_rehearsal.addresses, MostTold, L"place",
              L"places",
              [&](const RehearsedAddress& address) { return AddressLine(address, width); });
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
    x_report.PrintPair(L"Time", DurationText(counts.waitedMs + counts.dwellMs) + L": " +
                                    DurationText(counts.waitedMs) + L" waits of actions, " +
                                    DurationText(counts.dwellMs) + L" dwelling on frequencies");
    if (const String words = UnknownText(x_rehearsal); !words.empty()) {
        x_report.PrintPair(L"Unknown", L"how long it takes: " + words);
    }
}

void Page::PrintWaiting() {
    PrintSome(L"only when a device changes the channel:", LeftToDevices(x_rehearsal), MostNotBegun,
              L"action", L"actions", [](const RehearsedAction* action) {
                  return L"  " + action->watcher + L": " + SourceLine(*action);
              });
}

void Page::PrintNeverRun() {
    PrintSome(L"never runs:", NeverBegun(x_rehearsal), MostNotBegun, L"action", L"actions",
              [](const RehearsedAction* action) { return TimesLine(0, SourceLine(*action)); });
    PrintSome(L"never runs, because the matrix has no such row:", x_rehearsal.gone, MostNotBegun,
              L"section", L"sections", [](const GoneSection& gone) {
                  return TimesLine(0, OneLine(L"[" + gone.section + L"] ") +
                                          Counted(gone.actions, L"action", L"actions"));
              });
}

}  // namespace

void PrintPlan(ConsoleReport& report, const TestSetUp& setUp, const std::vector<String>& notes,
               const Rehearsal& rehearsal, const Answers& answers) {
    report.PrintTest(setUp);
    Page page(report, setUp, rehearsal);
    page.PrintTime();
    report.PrintNotes(notes);
    report.PrintUnused(answers);
    page.PrintEnds();
    page.PrintLists();
    page.PrintWaiting();
    page.PrintDialogs();
    page.PrintDevices();
    page.PrintAddresses();
    page.PrintNeverRun();
}

}  // namespace ace::workbench
