/// Counts the allocations of an action, tracing off, in the steady state: lines of number and name.
/// The first line is the walk and the dispatcher alone; the others are texts that an action must
/// build for the host.
#include <cstdio>

#include <ace/core/actions_engine.h>

#include "bench/mix.h"
#include "bench/quiet_host.h"
#include "support/allocation_counter.h"

namespace {

using namespace ace;

constexpr std::int32_t Elements = 100;

template <class Record>
p_Action ActionOf(p_ActionTypes kind, const Record& record) {
    p_Action action;
    action.ActionType = kind;
    action.Parameter = record;
    return action;
}

/// Allocations of each of many such actions, after two runs in which the working records grow.
double PerAction(const p_Action& action) {
    ThreadContext context(bench::QuietHost());
    aceActionsEngine engine(context);
    p_Subrange& loop = engine.State().MoniLoop;
    loop.EnterCount = Elements;
    loop.Enter.Redim(0, Elements - 1);
    for (p_Action& element : loop.Enter) {
        element = action;
    }
    engine.BeforeTestLoop();
    engine.BeforeTestLoop();
    const std::size_t allocations = test::AllocationsOf([&] { engine.BeforeTestLoop(); });
    return static_cast<double>(allocations) / Elements;
}

/// The same at a frequency, on a host with devices, after three frequencies.
double PerActionAtAFrequency(const p_Action& action) {
    ThreadContext context(bench::HostWithDevices());
    aceActionsEngine engine(context);
    p_Subrange& test = engine.State().MainTest;
    test.FreqCount = Elements;
    test.Freq.Redim(0, Elements - 1);
    for (p_Action& element : test.Freq) {
        element = action;
    }
    engine.StartTest();
    for (const double frequency : {1.0, 2.0, 3.0}) {
        engine.NewFrequency(frequency, false);
    }
    const std::size_t allocations = test::AllocationsOf([&] { engine.NewFrequency(4.0, false); });
    return static_cast<double>(allocations) / Elements;
}

void Print(const char* name, const p_Action& action) {
    std::printf("%g\t%s\n", PerAction(action), name);
}

}  // namespace

int main() {
    aceRemote idle;
    idle.TcpHost = L"a host name that no short text holds";
    aceNotify notify;
    notify.Message = L"a message that no short text holds";
    aceRemote remote = idle;
    remote.Command = L"MMEM:LOAD:STAT 1,'RI_BASE.STA'";
    aceWait wait;
    wait.Time = 1500.0;

    Print("walk and dispatcher, the record copied in and out", ActionOf(atRemote, idle));
    Print("a wait: time, status line and box", ActionOf(atWait, wait));
    Print("a notification: the message and two events", ActionOf(atNotify, notify));
    Print("a question: the message", ActionOf(atQuestion, notify));
    Print("a command over GPIB: the command and the status line", ActionOf(atRemote, remote));
    constexpr const char* Mixed[] = {
        "at a frequency: a command over GPIB",  "at a frequency: a generator that follows",
        "at a frequency: a device that is set", "at a frequency: a macro with its parameters",
        "at a frequency: a switched path",      "at a frequency: a wait"};
    std::int32_t kind = 0;
    for (const char* name : Mixed) {
        std::printf("%g\t%s\n", PerActionAtAFrequency(bench::MixedAction(kind++)), name);
    }
    return 0;
}
