/// Runs one case a number of times, for counting its instructions from outside.
///
///   count_instructions                    lists the cases: number, units of a run of the floor and
///                                         of ours, limits for instructions and time, unit, name
///   count_instructions NUMBER WHICH RUNS  runs "floor" or "ours" of a case
///
/// The count of twice as many runs less that of so many is what the runs cost, without the start of
/// the program and the making of the case.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/cases.h"

int main(int argc, char** argv) {
    const std::vector<ace::bench::Case> cases = ace::bench::AllCases();
    if (argc != 4) {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const ace::bench::Case& one = cases[i];
            std::printf("%zu\t%zu\t%zu\t%.2f\t%.2f\t%s\t%s\n", i, one.floorUnits, one.units,
                        one.limits.instructions, one.limits.time, one.unit.c_str(),
                        one.name.c_str());
        }
        return 0;
    }
    const std::size_t number = std::strtoul(argv[1], nullptr, 10);
    const bool isFloor = std::strcmp(argv[2], "floor") == 0;
    if (number >= cases.size() || (!isFloor && std::strcmp(argv[2], "ours") != 0)) {
        std::fprintf(stderr, "count_instructions: no such case\n");
        return 2;
    }
    const ace::bench::Work work = isFloor ? cases[number].floor() : cases[number].ours();
    for (long runs = std::strtol(argv[3], nullptr, 10); runs > 0; --runs) {
        work();
    }
    return 0;
}
