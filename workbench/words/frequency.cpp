#include "workbench/words/frequency.h"

#include <cmath>

#include <ace/core/text.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

struct Unit {
    StringView name;
    double hertz;
};
constexpr Unit Units[] = {{L"GHz", 1e9}, {L"MHz", 1e6}, {L"kHz", 1e3}, {L"Hz", 1.0}};

}  // namespace

std::optional<double> ReadFrequency(StringView text) {
    text = Trimmed(text);
    for (const Unit& unit : Units) {
        const std::size_t size = unit.name.size();
        if (text.size() > size && EqualNoCase(text.substr(text.size() - size), unit.name)) {
            const std::optional<double> number = WholeNumber(text.substr(0, text.size() - size));
            return number ? std::optional(*number * unit.hertz) : std::nullopt;
        }
    }
    return WholeNumber(text);
}

String FrequencyText(double hertz) {
    for (const Unit& unit : Units) {
        if (hertz >= unit.hertz || unit.hertz == 1.0) {
            const double rounded = std::round(hertz) / unit.hertz;
            return FormatGeneral(rounded, L'.') + L" " + String(unit.name);
        }
    }
    return {};
}

}  // namespace ace::workbench
