/// The smallest words of the vocabulary: text and truth.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace ace {

/// A counted text of wide characters; an unset text reads as empty. Codepages and bytes exist only
/// on the host's side of the interfaces.
using String = std::wstring;
/// A view of a `String`; it owns nothing and lives no longer than the text it looks at.
using StringView = std::wstring_view;

/// Truth as records and the host's interfaces carry it: 16 bits, true is -1, false is 0.
class Boolean {
  public:
    constexpr Boolean() = default;
    /// Only a real `bool` converts, so that no pointer or number becomes a truth by accident.
    template <std::same_as<bool> B>
    constexpr Boolean(B truth) : x_bits(truth ? -1 : 0) {}
    constexpr operator bool() const { return x_bits != 0; }
    /// The 16 bits themselves: -1 or 0.
    constexpr std::int16_t Bits() const { return x_bits; }

  private:
    std::int16_t x_bits = 0;
};
static_assert(sizeof(Boolean) == 2);

}  // namespace ace
