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

String SubrangesText(const ModuleWords& module, std::int32_t subRanges) {
    if (module.moduleKind == aceVKSDUT) {
        return L", template " + std::to_wstring(subRanges);
    }
    return module.one.empty()
               ? String()
               : L", " + Counted(static_cast<std::size_t>(subRanges), module.one, module.many);
}

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

String ModuleText(aceModul moduleKind, std::int32_t subRanges) {
    const ModuleWords& module = ModuleWordsOf(moduleKind);
    return std::to_wstring(moduleKind) + L" " + String(module.name) + L": " + String(module.words) +
           SubrangesText(module, subRanges);
}

}  // namespace ace::workbench
