/// Each host call of a print fails in turn.
#include <ace/dialogs/settings_print.h>

#include "dialogs/print_fixture.h"
#include "support/sweep_steps.h"

namespace ace::test {
namespace {

/// The engine of the rig prints the lists of a second one.
struct Printing {
    std::unique_ptr<aceActionsEngine> working;
    Array2D<String> rows;
};

Printing& PrintingOf(const SweepRig& rig) {
    return *static_cast<Printing*>(rig.kept.get());
}

/// Two subranges, of which the second has a wait on leaving; a tracked device at each frequency.
void PrepareRig(SweepRig& rig) {
    rig.MakeEngine();
    const auto printing = std::make_shared<Printing>();
    printing->working = std::make_unique<aceActionsEngine>(rig.context);
    EngineState& state = printing->working->State();
    aceTrackFreq record;
    record.MoniName = L"Probe";
    record.MoniDev = rig.host->bench.Add<sim::SimMonitor>(*rig.host, L"Probe");
    Fill(state.MainTest, FreqList, {Action(atTrackFreq, record)});
    state.MainSubrangeCount = 1;
    state.MainSubranges.Redim(0, 0);
    Fill(state.MainSubranges[0], LeaveList, {WaitFor(1500)});
    rig.kept = printing;
}

void PrintRig(SweepRig& rig) {
    Printing& printing = PrintingOf(rig);
    printing.rows.Redim(0, 0, 0, 1);
    rig.engine->PrintStrings(aceTemplate, *printing.working, printing.rows, 0);
}

String LeftBy(const SweepRig& rig) {
    const Printing& printing = PrintingOf(rig);
    return printing.rows(0, 0) + L'|' + printing.rows(0, 1);
}

/// A list that is displayed, with the calls of its lines.
Steps Displayed(const String& state, const std::vector<String>& calls = {}) {
    return Operation(2, state, Raised(2, calls, state), state);
}

SweepRow PrintRow() {
    const String untouched = L"|";
    const String begun = L"|" + PrintLayout;
    const String first = L"T(9052)\r   T(9066): \tProbe\r";
    const String second = L"T(9053) 1: T(9055)\r" + WaitLine(L"1.500");
    const String half = first + L'|' + PrintLayout;
    const String full = first + second + L'|' + PrintLayout;
    const String text = L"Language.Text";
    return {.name = "PrintStrings",
            .prepare = PrepareRig,
            .act = PrintRig,
            .state = LeftBy,
            .steps = Operation(
                1, untouched,
                Displayed(begun) +
                    Displayed(begun, {text, L"MonitorDevice.CommonDevice", L"Device.Name"}) +
                    Raised(1, {text}, begun) + Displayed(half) +
                    Displayed(half, {text, L"Platform.DecimalSeparator"}) +
                    Raised(1, {text, text}, half) + Displayed(full) + Raised(1, {text}, full),
                Heading + full),
            .effectsOnce = false};
}

TEST(PrintSweep, EveryFailingCallIsReportedRaisedAndLeavesWhatWasWrittenBefore) {
    Sweep(PrintRow());
}

}  // namespace
}  // namespace ace::test
