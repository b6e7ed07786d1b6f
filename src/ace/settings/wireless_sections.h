/// The sections of the two wireless modules, which are built differently from all others.
#pragma once

#include <ace/settings/settings_statements.h>

namespace ace {

/// Tests and steps of `aceVKSTemplate`. Test sections without key are passed over, so gaps close
/// up. Ends the use of replace variables. A test that asks for more than 100,000 steps is error 7.
void ReadWirelessTemplate(const SettingsStatements& file, std::int32_t subRanges);
/// Writes them, and deletes the sections of those that were saved or read and are gone.
void WriteWirelessTemplate(const SettingsStatements& file);

/// The template number whose matrix has global lists.
inline constexpr std::int32_t GlobalTemplate = 3;

/// The matrix of `aceVKSDUT`: `subRanges` is the template number, and the number of rows comes back
/// in it. Ends the use of replace variables. More than 100,000 rows are error 7.
void ReadMatrix(const SettingsStatements& file, std::int32_t& subRanges);
/// Writes the number of rows, the influence flags, and the rows with their keys; of the template
/// that has them also the global lists. Deletes the sections of rows that were saved or read and
/// are gone. The tables of frequencies, bandwidths and powers are no part of the file.
void WriteMatrix(const SettingsStatements& file);

}  // namespace ace
