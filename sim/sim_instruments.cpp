#include "sim/sim_instruments.h"

#include "sim/call_text.h"
#include "sim/sim_host.h"

namespace ace::sim {

SimMacroScript& SimApiMacro::Script() const {
    return x_host.macros[x_program];
}

std::int16_t SimApiMacro::ParameterCount() {
    x_host.Call(L"ApiMacro.ParameterCount", {});
    return static_cast<std::int16_t>(Script().parameters.size());
}

MacroParameterInfo SimApiMacro::ParameterInfo(std::int32_t& index) {
    x_host.Call(L"ApiMacro.ParameterInfo", CallText(index));
    return {Script().parameters.at(static_cast<std::size_t>(index - 1))};
}

bool SimApiMacro::Load(const String& program, const Value& parameters, const Value& second,
                       Value&) {
    x_host.Call(L"ApiMacro.Load", CallText(program, parameters, second));
    x_program = program;
    return Script().loads;
}

void SimApiMacro::Abort() {
    x_host.Call(L"ApiMacro.Abort", {});
}

bool SimApiMacro::GetResult() {
    x_host.Call(L"ApiMacro.GetResult", {});
    std::deque<bool>& results = Script().results;
    if (results.empty()) {
        return true;
    }
    const bool result = results.front();
    results.pop_front();
    return result;
}

bool SimApiMacro::Execute(String&, String& errorText, Value&) {
    x_host.Call(L"ApiMacro.Execute", {});
    errorText = Script().errorText;
    return Script().starts;
}

void SimApiMacro::WaitFinished() {
    x_host.Call(L"ApiMacro.WaitFinished", {});
    if (Script().whileRunning) {
        Script().whileRunning();
    }
}

}  // namespace ace::sim
