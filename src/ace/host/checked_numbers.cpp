#include <cmath>
#include <limits>

#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

template <class Narrow, class Wide>
Narrow Narrowed(Wide value) {
    if (!(value >= std::numeric_limits<Narrow>::min() &&
          value <= std::numeric_limits<Narrow>::max())) {
        Raise(Errors::Overflow);
    }
    return static_cast<Narrow>(value);
}

/// Halves go to the even neighbour whatever rounding mode the host's thread has set.
double RoundHalfToEven(double value) {
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5) {
        return below;
    }
    if (fraction > 0.5) {
        return below + 1.0;
    }
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

}  // namespace

std::int32_t RoundToLong(double value) {
    return Narrowed<std::int32_t>(RoundHalfToEven(value));
}

std::int16_t NarrowToShort(std::int32_t value) {
    return Narrowed<std::int16_t>(value);
}

std::int32_t CheckedSum(std::int32_t a, std::int32_t b) {
    return Narrowed<std::int32_t>(std::int64_t{a} + b);
}

std::int32_t CheckedDifference(std::int32_t a, std::int32_t b) {
    return Narrowed<std::int32_t>(std::int64_t{a} - b);
}

}  // namespace ace
