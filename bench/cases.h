/// What is measured: each case beside its floor, in one binary, for both clocks and instruction
/// counts.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "bench/host_calls.h"

namespace ace::bench {

/// One run of some work, made ready outside the measurement.
using Work = std::function<void()>;

/// What a unit of ours may cost at most: as a multiple of the floor's, and in instructions as they
/// are; 0 where nothing is promised.
struct Limits {
    double instructions = 0;
    double time = 0;
    double gate = 0;
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
    /// What one run of ours must ask of the host; a kind that stands twice is added up, and of
    /// every kind that is not here it must ask nothing.
    std::vector<CallCount> calls = {};
    /// Work that a run of ours, or of the floor, contains and that is none of its business: its
    /// cost is taken off. None for nothing.
    std::function<Work()> aside = nullptr;
    std::function<Work()> floorAside = nullptr;
};

/// The cases in the order of the table in docs/performance.md.
std::vector<Case> AllCases();

/// The four pieces of work by name: "floor", "ours", "aside", "floor-aside". An empty function for
/// a piece that a case does not have, or for another name.
std::function<Work()> PieceOf(const Case& one, const std::string& name);
inline constexpr const char* Pieces[] = {"floor", "ours", "aside", "floor-aside"};

std::vector<Case> WalkCases();
std::vector<Case> KindCases();
std::vector<Case> MixCases();
std::vector<Case> SectionCases();
std::vector<Case> DocumentCases();
std::vector<Case> FileCases();
std::vector<Case> CheckCases();
std::vector<Case> StoreCases();
std::vector<Case> HandBackCases();
std::vector<Case> MatrixCases();
std::vector<Case> EditorCases();

}  // namespace ace::bench
