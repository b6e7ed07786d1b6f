/// Times every piece of work, named by the number of its case.
#include <benchmark/benchmark.h>

#include "bench/cases.h"

int main(int argc, char** argv) {
    using ace::bench::Case;
    using ace::bench::Work;
    const auto add = [](const std::string& name, const std::function<Work()>& make) {
        benchmark::RegisterBenchmark(name.c_str(), [make](benchmark::State& state) {
            const Work work = make();
            for (auto _ : state) {
                work();
            }
        });
    };
    std::size_t number = 0;
    for (const Case& one : ace::bench::AllCases()) {
        for (const char* name : ace::bench::Pieces) {
            if (const auto piece = PieceOf(one, name)) {
                add(std::to_string(number) + "/" + name, piece);
            }
        }
        ++number;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
