#include "workbench/session/module_words.h"

#include <ace/core/text.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr ModuleWords Modules[ModulCount] = {
    {aceTemplate, L"aceTemplate", L"single test", L"subrange", L"subranges", true, true},
    {aceMonitoring, L"aceMonitoring", L"monitoring", L"channel", L"channels", true, false},
    {aceEMSAutoTemplateGeneral, L"aceEMSAutoTemplateGeneral",
     L"automatic susceptibility test with its steps", L"step", L"steps", true, true},
    {aceEMSAutoTemplate, L"aceEMSAutoTemplate", L"steps of an automatic susceptibility test",
     L"step", L"steps", true, false},
    {aceEMIAutoTemplate, L"aceEMIAutoTemplate", L"automatic emission test", L"step", L"steps", true,
     true},
    {aceTSTemplate, L"aceTSTemplate", L"test sequence", L"test", L"tests", true, false},
    {aceAziChart, L"aceAziChart", L"azimuth chart", {}, {}, false, false},
    {aceVKSTemplate, L"aceVKSTemplate", L"wireless test template", L"test", L"tests", true, false},
    {aceVKSDUT, L"aceVKSDUT", L"wireless matrix of the device under test", {}, {}, true, false},
};

}  // namespace

std::span<const ModuleWords> AllModules() {
    return Modules;
}

const ModuleWords& ModuleWordsOf(aceModul moduleKind) {
    return Modules[moduleKind];
}

const ModuleWords* FindModuleWords(StringView numberOrName) {
    const std::optional<std::int32_t> number = WholeInteger(numberOrName);
    for (const ModuleWords& module : Modules) {
        if (number == module.moduleKind || EqualNoCase(Trimmed(numberOrName), module.name)) {
            return &module;
        }
    }
    return nullptr;
}

}  // namespace ace::workbench
