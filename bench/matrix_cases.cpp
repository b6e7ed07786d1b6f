#include <memory>

#include <ace/core/actions_engine.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

constexpr std::int32_t SmallEdge = 10;
constexpr std::int32_t LargeEdge = 20;

/// A matrix with as many frequencies as bandwidths and powers, all of which influence it, so that
/// it has a row for each combination.
struct Cube {
    explicit Cube(std::int32_t edge) {
        engine.State().Modul = aceVKSDUT;
        engine.SetVKSDUTInfluence(1, 1, 1);
        for (std::int32_t i = 1; i <= edge; ++i) {
            engine.AddVKSDUTFreq(L"a frequency", 1e6 * i);
            engine.AddVKSDUTBandwidthID(L"a bandwidth");
            engine.AddVKSDUTPowerID(L"a power");
        }
    }
    ThreadContext context{QuietHost()};
    aceActionsEngine engine{context};
};

Work Rename(std::int32_t edge) {
    return
        [cube = std::make_shared<Cube>(edge)] { cube->engine.AddVKSDUTFreq(L"another name", 1e6); };
}

Work AddAndDeletePower(std::int32_t edge) {
    return [cube = std::make_shared<Cube>(edge), edge] {
        cube->engine.AddVKSDUTPowerID(L"one more");
        cube->engine.DeleteVKSDUTPowerID(edge);
    };
}

Work AddAndDeleteFrequency(std::int32_t edge) {
    return [cube = std::make_shared<Cube>(edge)] {
        cube->engine.AddVKSDUTFreq(L"one more", 0.5);
        cube->engine.DeleteVKSDUTFreq(0.5);
    };
}

/// Every row goes and comes back.
Work InfluenceOffAndOn(std::int32_t edge) {
    return [cube = std::make_shared<Cube>(edge)] {
        cube->engine.SetVKSDUTInfluence(0, 1, 1);
        cube->engine.SetVKSDUTInfluence(1, 1, 1);
    };
}

Case Growing(const char* name, Work (*work)(std::int32_t edge), Limits limits) {
    const auto rows = [](std::int32_t edge) {
        return static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge) *
               static_cast<std::size_t>(edge);
    };
    return {std::string(name) + ", 8000 rows beside 1000",
            "row",
            rows(LargeEdge),
            [work] { return work(SmallEdge); },
            [work] { return work(LargeEdge); },
            limits,
            rows(SmallEdge)};
}

}  // namespace

std::vector<Case> MatrixCases() {
    return {Growing("a rebuild that changes nothing", Rename, {.instructions = 1.05}),
            Growing("add and delete a frequency", AddAndDeleteFrequency, {}),
            Growing("add and delete a power", AddAndDeletePower, {}),
            Growing("influence of the frequency off and on", InfluenceOffAndOn, {})};
}

}  // namespace ace::bench
