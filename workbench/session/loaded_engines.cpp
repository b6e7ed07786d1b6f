#include "workbench/session/loaded_engines.h"

#include <algorithm>
#include <array>
#include <map>

#include <ace/core/actions_engine.h>
#include <ace/core/engine_state.h>
#include <ace/core/operation.h>
#include <ace/matrix/matrix_rows.h>

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

/// What a row is known by: its key, and how many actions its lists have. One that was given up and
/// made anew has none.
using RowMark = std::pair<RowKey, std::array<std::int32_t, std::size(ActionLists)>>;

/// Those of a matrix' rows; none for any other module.
std::vector<RowMark> RowsOf(const EngineState& state) {
    std::vector<RowMark> rows;
    for (std::int32_t row = 0; state.Modul == aceVKSDUT && row < state.VKSStepCount; ++row) {
        RowMark mark{KeyOf(state, row), {}};
        std::ranges::transform(ActionLists, mark.second.begin(), [&](const ListFields& list) {
            return state.VKSSteps[row].*list.count;
        });
        rows.push_back(mark);
    }
    return rows;
}

/// Where each row of `before` stands in `now`; -1 for nowhere. Rows with one mark keep their order.
std::vector<std::int32_t> IndexesNow(const std::vector<RowMark>& before,
                                     const std::vector<RowMark>& now) {
    std::multimap<RowMark, std::int32_t> rest;
    for (std::size_t i = 0; i < now.size(); ++i) {
        rest.emplace(now[i], static_cast<std::int32_t>(i));
    }
    std::vector<std::int32_t> indexes;
    for (const RowMark& mark : before) {
        const auto found = rest.lower_bound(mark);
        const bool isThere = found != rest.end() && found->first == mark;
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
    const std::vector<RowMark> rows = RowsOf(state);
    AnnounceWireless(*engines.engine, setUp);
    engines.rowsNow = IndexesNow(rows, RowsOf(state));
    engines.places.SetsMoved(state.VKSSteps, engines.rowsNow);
    return engines;
}

}  // namespace ace::workbench
