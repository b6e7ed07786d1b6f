#include "workbench/session/loaded_engines.h"

#include <ace/core/actions_engine.h>
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

}  // namespace

LoadedEngines LoadEngines(ThreadContext& context, const TestSetUp& setUp, const String& fileName) {
    LoadedEngines engines;
    engines.engine = Load(context, setUp, fileName, setUp.moduleKind, engines);
    if (setUp.moduleKind == aceEMSAutoTemplateGeneral && setUp.subRanges > 0) {
        engines.steps = Load(context, setUp, fileName, aceEMSAutoTemplate, engines);
    }
    AnnounceWireless(*engines.engine, setUp);
    return engines;
}

}  // namespace ace::workbench
