#include "workbench/session/loaded_engines.h"

#include <array>
#include <map>

#include <ace/core/actions_engine.h>
#include <ace/core/engine_state.h>
#include <ace/core/operation.h>

#include "workbench/session/load_place.h"
#include "workbench/session/wireless_run.h"

namespace ace::workbench {

namespace {

std::unique_ptr<_aceActionsEngine> Load(ThreadContext& context, const TestSetUp& setUp,
                                        const String& fileName, aceModul moduleKind,
                                        LoadedEngines& engines) {
    LoadPlace place(context, &engines.places);
    auto engine = std::make_unique<aceActionsEngine>(context);
    try {
        engine->LoadActions(fileName, setUp.subRanges, moduleKind);
    } catch (...) {
        RefuseFile(place.Describe(fileName, CurrentRunTimeError()));
    }
    engines.notes.insert(engines.notes.end(), place.PassedOver().begin(), place.PassedOver().end());
    return engine;
}

/// Frequency, bandwidth and power of a row.
using RowKey = std::array<double, 3>;

/// The keys of a matrix' rows; none for any other module.
std::vector<RowKey> RowsOf(const EngineState& state) {
    std::vector<RowKey> rows;
    for (std::int32_t row = 0; state.Modul == aceVKSDUT && row < state.VKSStepCount; ++row) {
        rows.push_back({state.VKSDUTIds(row, 0), state.VKSDUTIds(row, 1), state.VKSDUTIds(row, 2)});
    }
    return rows;
}

/// Where each row of `before` stands in `now`; -1 for nowhere. Rows with one key keep their order.
std::vector<std::int32_t> IndexesNow(const std::vector<RowKey>& before,
                                     const std::vector<RowKey>& now) {
    std::multimap<RowKey, std::int32_t> rest;
    for (std::size_t i = 0; i < now.size(); ++i) {
        rest.emplace(now[i], static_cast<std::int32_t>(i));
    }
    std::vector<std::int32_t> indexes;
    for (const RowKey& key : before) {
        const auto found = rest.lower_bound(key);
        const bool isThere = found != rest.end() && found->first == key;
        indexes.push_back(isThere ? found->second : -1);
        if (isThere) {
            rest.erase(found);
        }
    }
    return indexes;
}

}  // namespace

LoadedEngines LoadEngines(ThreadContext& context, const TestSetUp& setUp, const String& fileName) {
    LoadedEngines engines;
    engines.engine = Load(context, setUp, fileName, setUp.moduleKind, engines);
    if (setUp.moduleKind == aceEMSAutoTemplateGeneral && setUp.subRanges > 0) {
        engines.steps = Load(context, setUp, fileName, aceEMSAutoTemplate, engines);
    }
    const EngineState& state = static_cast<aceActionsEngine&>(*engines.engine).State();
    const std::vector<RowKey> rows = RowsOf(state);
    AnnounceWireless(*engines.engine, setUp);
    engines.places.SetsMoved(state.VKSSteps, IndexesNow(rows, RowsOf(state)));
    return engines;
}

}  // namespace ace::workbench
