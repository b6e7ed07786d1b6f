#include "workbench/session/sweep.h"

#include <cmath>

#include <ace/core/text.h>
#include <ace/host/run_time_error.h>

#include "workbench/words/frequency.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// Steps that meet the stop up to this part of it count as met.
constexpr double Tolerance = 1e-9;

[[noreturn]] void Refuse(StringView text, StringView why) {
    throw RunTimeError(Errors::InvalidProcedureCall,
                       L"\"" + String(text) + L"\" is no sweep: " + String(why));
}

}  // namespace

String WhyNoSweep(const Sweep& sweep) {
    if (!(sweep.startHz > 0.0) || !std::isfinite(sweep.startHz)) {
        return L"the start must be above 0 Hz";
    }
    if (!(sweep.stopHz >= sweep.startHz) || !std::isfinite(sweep.stopHz)) {
        return L"the stop must not be below the start";
    }
    if (!(sweep.stepPercent > 0.0) || !std::isfinite(sweep.stepPercent)) {
        return L"the step must be above 0 %";
    }
    if (!(sweep.dwellMs >= 0.0) || !std::isfinite(sweep.dwellMs)) {
        return L"the dwell time must not be below 0 ms";
    }
    const double steps =
        std::log(sweep.stopHz / sweep.startHz) / std::log1p(sweep.stepPercent / 100.0);
    if (steps >= static_cast<double>(MostFrequencies)) {
        return L"these are more than " + std::to_wstring(MostFrequencies) + L" frequencies";
    }
    return {};
}

std::vector<double> Frequencies(const Sweep& sweep) {
    std::vector<double> frequencies;
    if (!WhyNoSweep(sweep).empty()) {
        return frequencies;
    }
    const double factor = 1.0 + sweep.stepPercent / 100.0;
    for (int step = 0;; ++step) {
        const double hertz = sweep.startHz * std::pow(factor, step);
        if (hertz > sweep.stopHz * (1.0 + Tolerance)) {
            return frequencies;
        }
        const bool meetsStop = hertz > sweep.stopHz * (1.0 - Tolerance);
        frequencies.push_back(meetsStop ? sweep.stopHz : hertz);
        if (meetsStop) {
            return frequencies;
        }
    }
}

Sweep ParseSweep(StringView text) {
    const std::size_t dots = text.find(L"..");
    const std::size_t slash = text.find(L'/');
    if (dots == StringView::npos || slash == StringView::npos || slash < dots) {
        Refuse(text, L"it is written like 80MHz..1GHz/1%");
    }
    StringView percent = Trimmed(text.substr(slash + 1));
    if (!percent.empty() && percent.back() == L'%') {
        percent = Trimmed(percent.substr(0, percent.size() - 1));
    }
    const std::optional<double> start = ReadFrequency(Trimmed(text.substr(0, dots)));
    const std::optional<double> stop =
        ReadFrequency(Trimmed(text.substr(dots + 2, slash - dots - 2)));
    const std::optional<double> step = WholeNumber(percent);
    if (!start || !stop || !step) {
        Refuse(text, !start  ? L"its start is no frequency"
                     : !stop ? L"its stop is no frequency"
                             : L"its step is no percentage");
    }
    const Sweep sweep{*start, *stop, *step, 0.0};
    if (const String why = WhyNoSweep(sweep); !why.empty()) {
        Refuse(text, why);
    }
    return sweep;
}

String SweepText(const Sweep& sweep) {
    String text = FrequencyText(sweep.startHz) + L" to " + FrequencyText(sweep.stopHz) +
                  L" in steps of " + FormatGeneral(sweep.stepPercent, L'.') + L" %: " +
                  Counted(Frequencies(sweep).size(), L"frequency", L"frequencies");
    if (sweep.dwellMs > 0.0) {
        text += L", " + SecondsText(sweep.dwellMs) + L" each";
    }
    return text;
}

}  // namespace ace::workbench
