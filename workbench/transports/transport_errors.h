/// Run-time errors of the real transports.
#pragma once

#include <cstdint>

/// Numbers with which transports fail; the description says where and why. None of them is 5: the
/// engine takes an error 5 around the start of a program for the one of its activation.
namespace ace::workbench::TransportErrors {

/// A port, bus or connection can't be opened.
inline constexpr std::int32_t CannotOpen = 68;
/// Bytes could not be sent, or not all of them.
inline constexpr std::int32_t CannotSend = 57;
/// A program that is there can't be started.
inline constexpr std::int32_t CannotStart = 70;
/// The file that lists the inputs of a macro holds a line that makes no sense.
inline constexpr std::int32_t BadConfiguration = 321;

}  // namespace ace::workbench::TransportErrors
