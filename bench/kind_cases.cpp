/// One kind of action at a time, beside the bare calls of the host that it has to make.
#include <memory>

#include <ace/core/actions_engine.h>

#include "bench/cases.h"
#include "bench/mix.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

constexpr std::int32_t Elements = 100;

/// An engine on a host with devices, with texts that stand ready for the floor.
struct Bench {
    ThreadContext context{HostWithDevices()};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    double frequency = 0.0;
    String text = L"a text that was made before the measurement";
    Value parameters = DynArray<String>();
};

using BareCalls = void (*)(Bench& bench);

/// One kind: an action, where it runs, its calls without anything else, and what they count.
struct Kind {
    const char* name;
    p_Action (*action)();
    bool atFrequency;  ///< otherwise in a plain walk: the kind is skipped at a frequency
    BareCalls bare;
    std::vector<CallCount> calls;  ///< of one action, without the message loop and the trace log
    double gate;                   ///< most instructions of an action
};

p_Action WithVariables(p_Action action) {
    aceVKSVar variables;
    variables.count = 2;
    variables.strSearch.Redim(0, 1);
    variables.valReplace.Redim(0, 1);
    variables.strSearch[0] = L"#BW#";
    variables.valReplace[0] = String(L"20 MHz");
    variables.strSearch[1] = L"#POWER#";
    variables.valReplace[1] = -12.5;
    auto& record = RecordOf<aceRemote>(action);
    record.Command = L":SOUR:POW #POWER# DBM;:BAND #BW#";
    record.vks = variables;
    return action;
}

p_Action CommandWithoutText() {
    p_Action action = MixedAction(CommandOfMix);
    RecordOf<aceRemote>(action).Command.clear();
    return action;
}
p_Action Command() {
    return MixedAction(CommandOfMix);
}
p_Action CommandWithVariables() {
    return WithVariables(Command());
}
p_Action Wait() {
    return MixedAction(WaitOfMix);
}
p_Action Macro() {
    return MixedAction(MacroOfMix);
}
p_Action Notification() {
    p_Action action;
    action.ActionType = atNotify;
    aceNotify record;
    record.Message = L"Switch the equipment under test to side B, please.";
    action.Parameter = record;
    return action;
}
p_Action Question() {
    p_Action action = Notification();
    action.ActionType = atQuestion;
    return action;
}

void CallNothing(Bench&) {}
void CallBus(Bench& bench) {
    bench.context.StatusDisplay->ShowStatus(bench.text, false, false);
    bench.context.GpibDriver().WriteString(1, bench.text);
    bench.context.StatusDisplay->ShowStatus({}, false, false);
}
void CallTimedMessage(Bench& bench) {
    std::int32_t style = 64;
    bench.context.StatusDisplay->ShowStatus(bench.text, true, true);
    bench.context.SystemServices().ShowTimedMessage(bench.text, style, bench.text, 1500);
    bench.context.StatusDisplay->ShowStatus({}, false, false);
}
void CallMacro(Bench& bench) {
    if (!bench.context.RunningMacro) {
        bench.context.RunningMacro = bench.context.Factory().MakeApiMacro();
    }
    IApiMacro& macro = *bench.context.RunningMacro;
    Value unread;
    String text;
    String errorText;
    macro.Load(bench.text, bench.parameters, {}, unread);
    bench.context.StatusDisplay->ShowStatus(bench.text, false, false);
    macro.Execute(text, errorText, unread);
    macro.WaitFinished();
    static_cast<void>(macro.GetResult());
    static_cast<void>(macro.GetResult());
    bench.context.StatusDisplay->ShowStatus({}, false, false);
}
void CallForm(Bench& bench) {
    if (!bench.context.CommentForm) {
        bench.context.CommentForm = MakeCommentForm(bench.context);
    }
    bench.context.CommentForm->DisplayMessage(bench.text, false);
}
void CallNotification(Bench& bench) {
    IDeviceList& list = bench.context.DeviceList().GetDeviceListHost();
    list.PostEvent(bench.text, 3, bench.text);
    bench.context.Platform().Yield();
    CallForm(bench);
    list.PostEvent(bench.text, 3, bench.text);
    bench.context.Platform().Yield();
}
void CallQuestion(Bench& bench) {
    bench.context.Platform().Yield();
    CallForm(bench);
    bench.context.Platform().Yield();
}

const Kind Kinds[] = {
    {"a command without text", CommandWithoutText, true, CallNothing, {}, 350},
    {"a command over a bus",
     Command,
     true,
     CallBus,
     {{Call::Status, 2}, {Call::BusWrite, 1}},
     1000},
    {"a command with two variables",
     CommandWithVariables,
     true,
     CallBus,
     {{Call::Status, 2}, {Call::BusWrite, 1}},
     0},
    {"a wait", Wait, true, CallTimedMessage, {{Call::Status, 2}, {Call::TimedMessage, 1}}, 700},
    {"a macro with the frequency and a text",
     Macro,
     true,
     CallMacro,
     {{Call::Status, 2}, {Call::MacroLoad, 1}, {Call::MacroResult, 2}},
     1500},
    {"a notification",
     Notification,
     false,
     CallNotification,
     {{Call::Event, 2}, {Call::Form, 1}, {Call::Yield, 2}},
     700},
    {"a question", Question, false, CallQuestion, {{Call::Form, 1}, {Call::Yield, 2}}, 0},
};

Work Bare(BareCalls bare) {
    return [bench = std::make_shared<Bench>(), bare] {
        for (std::int32_t i = 0; i < Elements; ++i) {
            bench->context.Platform().Yield();
            static_cast<void>(bench->context.TraceLog().IsEnabled());
            bare(*bench);
            static_cast<void>(bench->context.TraceLog().IsEnabled());
        }
    };
}

Work Ours(const Kind& kind) {
    auto bench = std::make_shared<Bench>();
    EngineState& state = bench->engine->State();
    p_Subrange& set = kind.atFrequency ? state.MainTest : state.MoniLoop;
    DynArray<p_Action>& actions = kind.atFrequency ? set.Freq : set.Enter;
    (kind.atFrequency ? set.FreqCount : set.EnterCount) = Elements;
    actions.Redim(0, Elements - 1);
    for (p_Action& action : actions) {
        action = kind.action();
    }
    if (!kind.atFrequency) {
        return [bench] { bench->engine->BeforeTestLoop(); };
    }
    return [bench] { bench->engine->NewFrequency(bench->frequency += 1.0, false); };
}

/// Messages run once before each action, which asks at either end whether to trace; the frequency
/// does so as well, the plain walk has no lines of its own.
std::vector<CallCount> CallsOf(const Kind& kind) {
    const std::size_t outer = kind.atFrequency ? 2 : 0;
    std::vector<CallCount> calls{{Call::Yield, Elements},
                                 {Call::TraceQuestion, std::size_t{2} * Elements + outer}};
    for (const CallCount& one : kind.calls) {
        calls.push_back({one.call, one.times * Elements});
    }
    return calls;
}

}  // namespace

std::vector<Case> KindCases() {
    std::vector<Case> cases;
    for (const Kind& kind : Kinds) {
        cases.push_back({std::string(kind.name) + ", beside its bare calls",
                         "action",
                         Elements,
                         [&kind] { return Bare(kind.bare); },
                         [&kind] { return Ours(kind); },
                         {.gate = kind.gate},
                         Elements,
                         CallsOf(kind)});
    }
    return cases;
}

}  // namespace ace::bench
