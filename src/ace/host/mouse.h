/// What a mouse tells: its buttons, the keys held with it, and what it carries in a drag.
#pragma once

#include <optional>

#include <ace/host/basic_types.h>

namespace ace {

/// Buttons, as bits.
namespace MouseButtons {
inline constexpr std::int32_t Left = 1;
inline constexpr std::int32_t Right = 2;
inline constexpr std::int32_t Middle = 4;
}  // namespace MouseButtons

/// Keys that are held meanwhile, as bits; 0 for none.
namespace ShiftKeys {
inline constexpr std::int32_t Shift = 1;
inline constexpr std::int32_t Control = 2;
inline constexpr std::int32_t Alt = 4;
}  // namespace ShiftKeys

/// What a drop would do, as bits; 0 for nothing.
namespace DropEffects {
inline constexpr std::int32_t None = 0;
inline constexpr std::int32_t Copy = 1;
inline constexpr std::int32_t Move = 2;
inline constexpr std::int32_t Link = 4;
}  // namespace DropEffects

/// What a drag carries. Only plain text (clipboard format 1) is of use to the engine; a drag of
/// anything else arrives without a text.
struct DragData {
    std::optional<String> text = {};
    bool operator==(const DragData&) const = default;
};

}  // namespace ace
