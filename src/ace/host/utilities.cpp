#include <ace/host/utilities.h>

namespace ace {

Value DefaultUtilities::Max(const Value& first, std::span<const Value> further) {
    const Value* largest = &first;
    for (const Value& candidate : further) {
        if (NumberOf(candidate) > NumberOf(*largest)) {
            largest = &candidate;
        }
    }
    return *largest;
}

bool DefaultUtilities::InRange(const Value& lower, const Value& value, const Value& upper) {
    return NumberOf(lower) <= NumberOf(value) && NumberOf(value) <= NumberOf(upper);
}

}  // namespace ace
