/// How a number stands in a value box.
#pragma once

#include <ace/host/inputs.h>

namespace ace {

/// The text of `value` for a box with these fields: with its digits behind `separator`, or where it
/// has no number of them with as many as are needed, at most ten. It is never written with an
/// exponent, so that `ValueBox::Value` reads it as a number. Rounds as `FormatFixed`; infinite
/// values and those that are no number are error 6.
String FieldText(const ValueFields& box, double value, wchar_t separator);

}  // namespace ace
