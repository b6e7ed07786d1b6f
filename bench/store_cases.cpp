#include <memory>

#include <ace/core/actions_engine.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

constexpr std::int32_t Smallest = 100;
constexpr std::int32_t Larger[] = {1000, 100000};

/// A single test whose subranges have four actions each.
struct Store {
    explicit Store(std::int32_t size) {
        EngineState& state = engine.State();
        state.Modul = aceTemplate;
        state.MainSubrangeCount = size;
        state.MainSubranges.Redim(0, size);
        for (p_Subrange& subrange : state.MainSubranges) {
            subrange.EnterCount = 3;
            subrange.Enter.Redim(0, 2);
            subrange.LeaveCount = 1;
            subrange.Leave.Redim(0, 0);
        }
    }
    ThreadContext context{QuietHost()};
    aceActionsEngine engine{context};
};

Work AddAndDeleteTheFirst(std::int32_t size) {
    return [store = std::make_shared<Store>(size)] {
        store->engine.AddSubrange(1);
        store->engine.DeleteSubrange(1);
    };
}

Work AddAndDeleteTheLast(std::int32_t size) {
    return [store = std::make_shared<Store>(size), size] {
        store->engine.AddSubrange(size + 1);
        store->engine.DeleteSubrange(size + 1);
    };
}

Work MoveToTheEndAndBack(std::int32_t size) {
    return [store = std::make_shared<Store>(size), size] {
        store->engine.MoveSubrange(1, size);
        store->engine.MoveSubrange(size, 1);
    };
}

Work ExchangeFirstAndLast(std::int32_t size) {
    return [store = std::make_shared<Store>(size), size] { store->engine.SwapSubrange(1, size); };
}

Work DeleteAllFromTheFront(std::int32_t size) {
    return [store = std::make_shared<Store>(size), size] {
        EngineState& state = store->engine.State();
        state.MainSubranges.RedimPreserve(size);
        state.MainSubrangeCount = size;
        for (std::int32_t i = 0; i < size; ++i) {
            store->engine.DeleteSubrange(1);
        }
    };
}

/// How often a run shifts every subrange by one; an operation that shifts none costs so much at
/// all. Neither must grow with their number.
struct Operation {
    const char* name;
    Work (*work)(std::int32_t size);
    std::size_t shifts;
    std::size_t questions;  ///< whether to trace, of one run
};
constexpr Operation Operations[] = {
    {"add and delete the first", AddAndDeleteTheFirst, 2, 8},
    {"move the first to the end and back", MoveToTheEndAndBack, 2, 20},
    {"add and delete the last", AddAndDeleteTheLast, 0, 8},
    {"exchange the first and the last", ExchangeFirstAndLast, 0, 2},
};

/// Most instructions for a subrange that moves by one place.
constexpr double MostForAShift = 60;

Case Growing(const Operation& operation, std::int32_t size) {
    const auto units = [&](std::int32_t of) {
        return operation.shifts > 0 ? static_cast<std::size_t>(of) * operation.shifts : 1;
    };
    return {std::string(operation.name) + ", " + std::to_string(size) + " subranges beside 100",
            operation.shifts > 0 ? "shift" : "call",
            units(size),
            [work = operation.work] { return work(Smallest); },
            [work = operation.work, size] { return work(size); },
            {.instructions = 1.05, .gate = operation.shifts > 0 ? MostForAShift : 0},
            units(Smallest),
            {{Call::TraceQuestion, operation.questions}}};
}

/// Every subrange that goes shifts all behind it: half of them on the average.
Case DeletingAll() {
    constexpr std::int32_t Few = 1000;
    constexpr std::int32_t Many = 10000;
    const auto shifts = [](std::int32_t size) {
        return static_cast<std::size_t>(size) * static_cast<std::size_t>(size) / 2;
    };
    return {"delete all from the front, 10000 subranges beside 1000",
            "shift",
            shifts(Many),
            [] { return DeleteAllFromTheFront(Few); },
            [] { return DeleteAllFromTheFront(Many); },
            {.gate = MostForAShift},
            shifts(Few),
            {{Call::TraceQuestion, 4 * static_cast<std::size_t>(Many)}}};
}

}  // namespace

std::vector<Case> StoreCases() {
    std::vector<Case> cases;
    for (const Operation& operation : Operations) {
        for (const std::int32_t size : Larger) {
            cases.push_back(Growing(operation, size));
        }
    }
    cases.push_back(DeletingAll());
    return cases;
}

}  // namespace ace::bench
