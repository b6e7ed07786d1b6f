/// Run-time errors of the workbench's files.
#pragma once

#include <cstdint>

/// Numbers with which files fail; the description says which file and why. None of them is a number
/// of the transports.
namespace ace::workbench::FileErrors {

inline constexpr std::int32_t CannotRead = 71;
/// The file is as it was, or already new when only its folder could not be flushed.
inline constexpr std::int32_t CannotSave = 75;
/// What is in memory is not what the file should hold: the last load of the file failed, or another
/// program has changed the file since it was read.
inline constexpr std::int32_t SaveRefused = 55;

}  // namespace ace::workbench::FileErrors
