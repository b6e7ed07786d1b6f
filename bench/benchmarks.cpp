/// Times every case and its floor, named by the number of the case.
#include <benchmark/benchmark.h>

#include "bench/cases.h"

int main(int argc, char** argv) {
    using ace::bench::Case;
    using ace::bench::Work;
    const auto add = [](const std::string& name, std::size_t units,
                        const std::function<Work()>& make) {
        benchmark::RegisterBenchmark(name.c_str(), [units, make](benchmark::State& state) {
            const Work work = make();
            for (auto _ : state) {
                work();
            }
            state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(units));
        });
    };
    std::size_t number = 0;
    for (const Case& one : ace::bench::AllCases()) {
        add(std::to_string(number) + "/floor", one.floorUnits, one.floor);
        add(std::to_string(number) + "/ours", one.units, one.ours);
        ++number;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
