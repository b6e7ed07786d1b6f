/// The sections of the two wireless modules, which are built differently from all others.
#pragma once

#include <ace/settings/file_work.h>

namespace ace {

/// Tests and steps of `aceVKSTemplate`. Test sections without key are passed over, so gaps close
/// up. Ends the use of replace variables. A test that asks for more than 100,000 steps is error 7.
void ReadWirelessTemplate(const FileWork& file, std::int32_t subRanges);
void WriteWirelessTemplate(const FileWork& file);

/// The template number whose matrix has global lists.
inline constexpr std::int32_t GlobalTemplate = 3;

/// The matrix of `aceVKSDUT`: `subRanges` is the template number, and the number of rows comes back
/// in it. Ends the use of replace variables. More than 100,000 rows are error 7.
void ReadMatrix(const FileWork& file, std::int32_t& subRanges);
void WriteMatrix(const FileWork& file);

}  // namespace ace
