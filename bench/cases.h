/// What is measured: each case beside its floor, in one binary, for both clocks and instruction
/// counts.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace ace::bench {

/// One run of some work, made ready outside the measurement.
using Work = std::function<void()>;

/// What a unit of ours may cost at most, as a multiple of the floor's; 0 where nothing is promised.
struct Limits {
    double instructions = 0;
    double time = 0;
};

/// Two pieces of work. The floor makes the calls that can't be saved and nothing else, or is what
/// the work is compared with; `units` says of how many elements, lines or records a run consists.
struct Case {
    std::string name;
    std::string unit;
    std::size_t units = 1;
    std::function<Work()> floor;
    std::function<Work()> ours;
    Limits limits;
    std::size_t floorUnits = units;
};

/// The cases in the order of the table in docs/performance.md.
std::vector<Case> AllCases();

std::vector<Case> WalkCases();
std::vector<Case> MixCases();
std::vector<Case> SectionCases();
std::vector<Case> DocumentCases();
std::vector<Case> StoreCases();
std::vector<Case> MatrixCases();

}  // namespace ace::bench
