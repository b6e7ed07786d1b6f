/// The small notations of a device file.
#pragma once

#include <optional>
#include <vector>

#include "sim/sim_devices.h"

namespace ace::workbench {

/// The parts between commas, without the blanks around them; none for an empty text.
std::vector<StringView> Parts(StringView text);

/// Reads "80MHz:-1.5, 1GHz:-2": values over frequency. Nothing when it is anything else, when a
/// frequency stands twice and for the empty text.
std::optional<sim::SimCurve> ReadCurve(StringView text);

/// Reads "102, 433MHz..435MHz, 3 s, 1": the channel, from which frequency to which, how long and
/// what it reads then. Nothing when it is anything else.
std::optional<sim::SimEutFailure> ReadEutFailure(StringView text);

/// The class with that section key, in any case of the letters.
std::optional<sim::SimClass> FindClass(StringView key);
/// The keys of all classes, separated by commas, for messages.
String AllClassKeys();

}  // namespace ace::workbench
