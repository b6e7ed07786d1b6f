#include "workbench/session/set_up_sweeps.h"

#include <algorithm>

#include "workbench/words/outcome.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

std::optional<Sweep> FileSweep(const SetUpReader& reader, std::int32_t number) {
    const String section = Numbered(L"Workbench.Subrange", number);
    if (!reader.Has(section)) {
        return std::nullopt;
    }
    const Sweep sweep{reader.Needed(section, L"StartHz"), reader.Needed(section, L"StopHz"),
                      reader.Needed(section, L"StepPercent"),
                      reader.Number(section, L"DwellMs").value_or(0.0)};
    if (const String why = WhyNoSweep(sweep); !why.empty()) {
        reader.Refuse(section, {}, why);
    }
    return sweep;
}

/// The sweep of entry `number`: an option wins and keeps the file's dwell.
std::optional<Sweep> SweepOf(const SetUpReader& reader, const SetUpOptions& options,
                             std::int32_t number) {
    if (options.sweeps.empty()) {
        return FileSweep(reader, number);
    }
    const auto index = std::min(static_cast<std::size_t>(number), options.sweeps.size()) - 1;
    Sweep sweep = options.sweeps[index];
    sweep.dwellMs =
        reader.Number(Numbered(L"Workbench.Subrange", number), L"DwellMs").value_or(0.0);
    return sweep;
}

/// Sweeps for modules whose numbered entries have none: all that are given, one after the other.
void ReadTestSweeps(const SetUpReader& reader, const SetUpOptions& options, TestSetUp& setUp) {
    const auto given = static_cast<std::int32_t>(options.sweeps.size());
    for (std::int32_t number = 1; given == 0 || number <= given; ++number) {
        const std::optional<Sweep> sweep = SweepOf(reader, options, number);
        if (!sweep) {
            break;
        }
        setUp.sweeps.push_back(sweep);
    }
    if (setUp.sweeps.empty()) {
        setUp.notes.emplace_back(
            L"no sweep in [Workbench.Subrange1] and no --sweep, so no frequency is run");
    }
}

void ReadEntrySweeps(const SetUpReader& reader, const SetUpOptions& options, TestSetUp& setUp) {
    std::vector<std::int32_t> missing;
    for (std::int32_t number = 1; number <= setUp.subRanges; ++number) {
        setUp.sweeps.push_back(SweepOf(reader, options, number));
        if (!setUp.sweeps.back()) {
            missing.push_back(number);
        }
    }
    if (!missing.empty()) {
        setUp.notes.push_back(String(ModuleWordsOf(setUp.moduleKind).one) + L" " +
                              RangesText(missing, MostNotedRanges) +
                              L": no sweep in [Workbench.Subrange<n>] and no --sweep, so no "
                              L"frequency is run there");
    }
}

/// The plan of a test is made before it, so it must fit into memory.
void RequireBounded(const SetUpReader& reader, const SetUpOptions& options,
                    const TestSetUp& setUp) {
    const String limit = L" have more than " + std::to_wstring(MostFrequencies) + L" frequencies";
    std::size_t count = 0;
    std::int32_t number = 0;
    for (const std::optional<Sweep>& sweep : setUp.sweeps) {
        ++number;
        count += sweep ? Frequencies(*sweep).size() : 0;
        if (count > MostFrequencies && !options.sweeps.empty()) {
            RefuseUse(L"--sweep: the sweeps of the test" + limit);
        }
        if (count > MostFrequencies) {
            reader.Refuse(Numbered(L"Workbench.Subrange", number), {},
                          L"the sweeps up to this one" + limit);
        }
    }
}

}  // namespace

void ReadSweeps(const SetUpReader& reader, const SetUpOptions& options, TestSetUp& setUp) {
    static constexpr aceModul WithFrequencies[] = {
        aceTemplate, aceMonitoring, aceEMSAutoTemplateGeneral, aceEMIAutoTemplate, aceAziChart};
    if (std::ranges::find(WithFrequencies, setUp.moduleKind) == std::end(WithFrequencies)) {
        if (!options.sweeps.empty()) {
            RefuseUse(L"--sweep: a test of module " + String(ModuleWordsOf(setUp.moduleKind).name) +
                      L" has no frequencies");
        }
        return;
    }
    if (ModuleWordsOf(setUp.moduleKind).sweepPerEntry && setUp.subRanges > 0) {
        ReadEntrySweeps(reader, options, setUp);
    } else {
        ReadTestSweeps(reader, options, setUp);
    }
    RequireBounded(reader, options, setUp);
}

}  // namespace ace::workbench
