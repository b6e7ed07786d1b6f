#include <type_traits>

#include <ace/host/checked_numbers.h>
#include <ace/host/value.h>

namespace ace {

double NumberOf(const Value& value) {
    return std::visit(
        [](const auto& held) -> double {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0.0;
            } else if constexpr (std::is_same_v<Held, Boolean>) {
                return held.Bits();
            } else if constexpr (std::is_arithmetic_v<Held>) {
                return static_cast<double>(held);
            } else {
                Raise(Errors::TypeMismatch);
            }
        },
        value);
}

std::int32_t LongOf(const Value& value) {
    return RoundToLong(NumberOf(value));
}

}  // namespace ace
