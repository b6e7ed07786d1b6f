#include <span>

#include <ace/editor/variables_menu.h>

namespace ace {

namespace {

struct Variable {
    StringView placeholder;
    StringView caption;
};

constexpr Variable Frequency{L"#MEASFREQ#", L"Measurement Frequency"};
constexpr Variable Bandwidth{L"#BW#", L"DUT Bandwidth"};
constexpr Variable DutFrequency{L"#FREQ#", L"DUT Frequency"};
constexpr Variable Power{L"#POWER#", L"DUT Power"};
constexpr Variable Hopping{L"#HOPPING#", L"DUT is in Hoppingmode"};

constexpr Variable OfMatrix[] = {Frequency, Bandwidth, DutFrequency, Power, Hopping};
constexpr Variable OfTemplate[] = {Frequency,
                                   {L"#DUTCONNECTOR#", L"DUT Connector"},
                                   {L"#TZPCONNECTOR#", L"TZP Connector"},
                                   Bandwidth,
                                   DutFrequency,
                                   Power,
                                   Hopping};

std::span<const Variable> VariablesOf(aceModul moduleKind) {
    if (moduleKind == aceVKSDUT) {
        return OfMatrix;
    }
    return moduleKind == aceVKSTemplate ? std::span<const Variable>(OfTemplate)
                                        : std::span<const Variable>();
}

}  // namespace

std::vector<MenuItem> VariableItems(aceModul moduleKind) {
    std::vector<MenuItem> items;
    std::int32_t command = 0;
    for (const Variable& variable : VariablesOf(moduleKind)) {
        items.push_back({++command, String(variable.caption)});
    }
    return items;
}

String VariableOf(aceModul moduleKind, std::int32_t command) {
    const std::span<const Variable> variables = VariablesOf(moduleKind);
    const bool isThere = command >= 1 && command <= std::ssize(variables);
    return isThere ? String(variables[static_cast<std::size_t>(command) - 1].placeholder)
                   : String();
}

}  // namespace ace
