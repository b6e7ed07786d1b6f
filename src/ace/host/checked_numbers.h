/// Rounding and narrowing of numbers; a result out of range is an error, never a wrap.
#pragma once

#include <ace/host/run_time_error.h>

namespace ace {

/// Nearest 32-bit integer, halves to the even neighbour; outside the range, or no number: error 6.
std::int32_t RoundToLong(double value);

/// The same value in 16 bits; outside the range: error 6.
std::int16_t NarrowToShort(std::int32_t value);

/// `a + b` and `a - b` in 32 bits; outside the range: error 6.
std::int32_t CheckedSum(std::int32_t a, std::int32_t b);
std::int32_t CheckedDifference(std::int32_t a, std::int32_t b);

}  // namespace ace
