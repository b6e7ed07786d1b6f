/// Runs one case a number of times, for counting its instructions from outside.
///
///   count_instructions                    lists the cases: number, units of a run of the floor and
///                                         of ours, limits for instructions, time and the gate,
///                                         pieces, unit, name
///   count_instructions check              runs each case once on a host that counts its calls, and
///                                         says which does not do what it is measured for
///   count_instructions NUMBER PIECE RUNS  runs "floor", "ours", "aside" or "floor-aside" of a case
///
/// The count of twice as many runs less that of so many is what the runs cost, without the start of
/// the program and the making of the case.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/cases.h"

namespace {

using namespace ace::bench;

void List(const std::vector<Case>& cases) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Case& one = cases[i];
        std::string pieces;
        for (const char* name : Pieces) {
            if (PieceOf(one, name)) {
                pieces.append(pieces.empty() ? "" : ",").append(name);
            }
        }
        std::printf("%zu\t%zu\t%zu\t%.2f\t%.2f\t%.0f\t%s\t%s\t%s\n", i, one.floorUnits, one.units,
                    one.limits.instructions, one.limits.time, one.limits.gate, pieces.c_str(),
                    one.unit.c_str(), one.name.c_str());
    }
}

CallCounts Expected(const Case& one) {
    CallCounts counts{};
    for (const CallCount& call : one.calls) {
        counts[static_cast<std::size_t>(call.call)] += call.times;
    }
    return counts;
}

/// The second run counts: the first one opens and finds what is kept.
bool DoesItsWork(const Case& one) {
    const CountingCalls counting;
    const Work work = one.ours();
    work();
    Counted() = {};
    work();
    const CallCounts expected = Expected(one);
    for (std::size_t i = 0; i < CallKinds; ++i) {
        if (Counted()[i] != expected[i]) {
            std::fprintf(stderr, "%s: call kind %zu was made %zu times, not %zu\n",
                         one.name.c_str(), i, Counted()[i], expected[i]);
        }
    }
    return Counted() == expected;
}

int Check(const std::vector<Case>& cases) {
    bool good = true;
    for (const Case& one : cases) {
        good = DoesItsWork(one) && good;
    }
    return good ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<Case> cases = AllCases();
    if (argc == 2 && std::strcmp(argv[1], "check") == 0) {
        return Check(cases);
    }
    if (argc != 4) {
        List(cases);
        return 0;
    }
    const std::size_t number = std::strtoul(argv[1], nullptr, 10);
    const auto make = number < cases.size() ? PieceOf(cases[number], argv[2]) : nullptr;
    if (!make) {
        std::fprintf(stderr, "count_instructions: no such case\n");
        return 2;
    }
    const Work work = make();
    for (long runs = std::strtol(argv[3], nullptr, 10); runs > 0; --runs) {
        work();
    }
    return 0;
}
