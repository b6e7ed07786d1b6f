/// How people write frequencies.
#pragma once

#include <optional>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// The hertz of "80MHz", "81.608 MHz" or "80000000"; the units Hz, kHz, MHz and GHz in any
/// case, none for hertz, blanks around it allowed. Nothing for anything else.
std::optional<double> ReadFrequency(StringView text);

/// "80 MHz", "81.608 MHz": the largest unit that leaves a number of at least 1, to the hertz.
String FrequencyText(double hertz);

}  // namespace ace::workbench
