/// The variant of the host's interfaces.
#pragma once

#include <variant>

#include <ace/host/dyn_array.h>

namespace ace {

/// A value of any kind that crosses an interface. Nothing (`std::monostate`) and the empty text are
/// two different things: writing nothing deletes a section, writing the empty text empties it.
/// A truth is put in as `Boolean{...}`; a bare `bool` would become an integer.
using Value = std::variant<std::monostate, Boolean, std::int16_t, std::int32_t, float, double,
                           String, DynArray<String>>;

/// The number in `value`; nothing is 0, true is -1. A text or an array of texts is error 13.
double NumberOf(const Value& value);

/// The number in `value` rounded to the nearest 32-bit integer, halves to the even neighbour;
/// beyond the integer range: error 6.
std::int32_t LongOf(const Value& value);

}  // namespace ace
