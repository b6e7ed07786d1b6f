#include <memory>

#include <ace/core/actions_engine.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

constexpr std::int32_t Elements = 1000;

/// An engine on a host that does nothing.
struct Bench {
    ThreadContext context{QuietHost()};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
};

void Fill(DynArray<p_Action>& actions, std::int32_t& count, p_ActionTypes kind, std::int32_t size) {
    count = size;
    actions.Redim(0, size - 1);
    for (p_Action& action : actions) {
        action.ActionType = kind;
    }
}

/// Parking is the kind without a routine that a walk does not end on.
std::shared_ptr<Bench> WithParking() {
    auto bench = std::make_shared<Bench>();
    EngineState& state = bench->engine->State();
    Fill(state.MoniLoop.Enter, state.MoniLoop.EnterCount, atParkAcc, Elements);
    state.MainSubranges.Redim(0, 0);
    state.MainSubrangeCount = 1;
    Fill(state.MainSubranges[0].Enter, state.MainSubranges[0].EnterCount, atParkAcc, Elements);
    return bench;
}

/// Messages do not concern the every-frequency list.
std::shared_ptr<Bench> WithMessages(std::int32_t count) {
    auto bench = std::make_shared<Bench>();
    p_Subrange& test = bench->engine->State().MainTest;
    Fill(test.Freq, test.FreqCount, atNotify, count);
    return bench;
}

/// For each element: messages run once, and for each end of the action it is asked whether tracing
/// is on.
Work YieldAndTwoQuestions() {
    return [bench = std::make_shared<Bench>()] {
        ThreadContext& context = bench->context;
        for (std::int32_t i = 0; i < Elements; ++i) {
            context.Platform().Yield();
            static_cast<void>(context.TraceLog().IsEnabled());
            static_cast<void>(context.TraceLog().IsEnabled());
        }
    };
}

/// For each element messages run once.
Work YieldAlone() {
    return [bench = std::make_shared<Bench>()] {
        ThreadContext& context = bench->context;
        for (std::int32_t i = 0; i < Elements; ++i) {
            context.Platform().Yield();
        }
    };
}

Case KindWithoutRoutine() {
    return {"a result-only kind in the walk of a fixed list",
            "action",
            Elements,
            YieldAndTwoQuestions,
            [] { return [bench = WithParking()] { bench->engine->BeforeTestLoop(); }; },
            {.gate = 44},
            Elements,
            {{Call::Yield, Elements}, {Call::TraceQuestion, std::size_t{2} * Elements}}};
}

Case KindWithoutRoutineInANumberedList() {
    return {"a result-only kind in the walk of a numbered list",
            "action",
            Elements,
            YieldAndTwoQuestions,
            [] { return [bench = WithParking()] { bench->engine->EnterSubrange(1); }; },
            {.gate = 56},
            Elements,
            {{Call::Yield, Elements}, {Call::TraceQuestion, std::size_t{2} * Elements}}};
}

Case SkippedKindAtAFrequency() {
    return {"a kind that the every-frequency walk skips",
            "action",
            Elements,
            YieldAlone,
            [] {
                return [bench = WithMessages(Elements), frequency = 0.0]() mutable {
                    frequency += 1.0;
                    bench->engine->NewFrequency(frequency, false);
                };
            },
            {.gate = 24},
            Elements,
            {{Call::Yield, Elements}, {Call::TraceQuestion, 2}}};
}

/// The floor is the same operation on ten actions: an unchanged frequency must not look at them.
Case UnchangedFrequency() {
    const auto ask = [](std::int32_t count) {
        return [count] {
            auto bench = WithMessages(count);
            bench->engine->NewFrequency(1e9, false);
            return [bench] { bench->engine->NewFrequency(1e9, false); };
        };
    };
    return {"an unchanged frequency, 1000 actions beside 10",
            "call",
            1,
            ask(10),
            ask(Elements),
            {.instructions = 1.0},
            1,
            {{Call::TraceQuestion, 2}}};
}

}  // namespace

std::vector<Case> WalkCases() {
    return {KindWithoutRoutine(), KindWithoutRoutineInANumberedList(), SkippedKindAtAFrequency(),
            UnchangedFrequency()};
}

}  // namespace ace::bench
