#include "workbench/session/loaded_engines.h"

#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>

#include "workbench/session/load_place.h"
#include "workbench/session/wireless_run.h"

namespace ace::workbench {

namespace {

std::unique_ptr<_aceActionsEngine> Load(ThreadContext& context, const TestSetUp& setUp,
                                        const String& fileName, aceModul moduleKind,
                                        std::vector<String>& notes) {
    LoadPlace place(context);
    auto engine = std::make_unique<aceActionsEngine>(context);
    try {
        engine->LoadActions(fileName, setUp.subRanges, moduleKind);
    } catch (...) {
        RefuseFile(place.Describe(fileName, CurrentRunTimeError()));
    }
    notes.insert(notes.end(), place.PassedOver().begin(), place.PassedOver().end());
    return engine;
}

}  // namespace

LoadedEngines LoadEngines(ThreadContext& context, const TestSetUp& setUp, const String& fileName) {
    LoadedEngines engines;
    engines.engine = Load(context, setUp, fileName, setUp.moduleKind, engines.notes);
    if (setUp.moduleKind == aceEMSAutoTemplateGeneral && setUp.subRanges > 0) {
        engines.steps = Load(context, setUp, fileName, aceEMSAutoTemplate, engines.notes);
    }
    AnnounceWireless(*engines.engine, setUp);
    return engines;
}

}  // namespace ace::workbench
