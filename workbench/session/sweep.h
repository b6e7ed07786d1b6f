/// The frequencies of a sweep, and how people write them.
#pragma once

#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// A sweep from low to high in steps of a constant percentage.
struct Sweep {
    double startHz = 0.0;
    double stopHz = 0.0;
    double stepPercent = 0.0;
    double dwellMs = 0.0;  ///< time that the host stays on each frequency, milliseconds
    bool operator==(const Sweep&) const = default;
};

/// More frequencies than this are a slip of the pen.
inline constexpr std::size_t MostFrequencies = 100'000;

/// What keeps `sweep` from being run, in words; empty when nothing does.
String WhyNoSweep(const Sweep& sweep);

/// The frequencies in hertz: the start, and from each to the next the step in percent, as long as
/// the stop is not passed. The stop itself is among them only when a step meets it (to a
/// billionth); the subrange that follows usually begins there. 80 MHz to 1 GHz in steps of 1 % are
/// 254 frequencies, because 80 MHz * 1.01^253 = 991.74 MHz and one step more is above 1 GHz. No
/// frequency for a sweep that can't be run.
std::vector<double> Frequencies(const Sweep& sweep);

/// Reads "80MHz..1GHz/1%": numbers with a point, the frequencies as `ReadFrequency` reads
/// them; "%" may be missing. Anything else, and a sweep that can't be run, is error 5, whose
/// description says why. The dwell is 0.
Sweep ParseSweep(StringView text);

/// "80 MHz to 1 GHz in steps of 1 %: 254 frequencies, 2 s each"
String SweepText(const Sweep& sweep);

}  // namespace ace::workbench
