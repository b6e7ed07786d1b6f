#include <memory>

#include <ace/core/actions_engine.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

constexpr std::int32_t Smallest = 100;
constexpr std::int32_t Larger[] = {1000, 10000};

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

/// Those that shift all subranges cost so much for each of them, the others so much at all; neither
/// must grow with their number.
struct Operation {
    const char* name;
    Work (*work)(std::int32_t size);
    bool shiftsAll;
};
constexpr Operation Operations[] = {
    {"add and delete the first", AddAndDeleteTheFirst, true},
    {"move the first to the end and back", MoveToTheEndAndBack, true},
    {"add and delete the last", AddAndDeleteTheLast, false},
    {"exchange the first and the last", ExchangeFirstAndLast, false},
};

Case Growing(const Operation& operation, std::int32_t size) {
    const auto units = [&](std::int32_t of) {
        return operation.shiftsAll ? static_cast<std::size_t>(of) : 1;
    };
    return {std::string(operation.name) + ", " + std::to_string(size) + " subranges beside 100",
            operation.shiftsAll ? "subrange" : "call",
            units(size),
            [work = operation.work] { return work(Smallest); },
            [work = operation.work, size] { return work(size); },
            {.instructions = 1.05},
            units(Smallest)};
}

}  // namespace

std::vector<Case> StoreCases() {
    std::vector<Case> cases;
    for (const Operation& operation : Operations) {
        for (const std::int32_t size : Larger) {
            cases.push_back(Growing(operation, size));
        }
    }
    return cases;
}

}  // namespace ace::bench
