/// A settings file for measurements.
#pragma once

#include "bench/cases.h"

namespace ace::bench {

inline constexpr std::size_t LinesOfASubrange = 6;

/// A single test with subranges, six lines each, behind two of the test.
std::string SubrangesText(std::int32_t subranges);
/// The engine loads it: the file is parsed, too.
Work LoadSubranges(std::int32_t subranges);

}  // namespace ace::bench
