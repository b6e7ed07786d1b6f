/// Numbers of the texts by which the action dialog answers an entry that it doesn't take, and of
/// those that stand in its fields.
#pragma once

#include <cstdint>

namespace ace::InputTexts {

inline constexpr std::int32_t Actions = 9021;      ///< the title of the editor's other boxes
inline constexpr std::int32_t CloseAnyway = 9022;  ///< the question of a dialog that is closed
inline constexpr std::int32_t None = 9113;         ///< nothing chosen in a list, no file
inline constexpr std::int32_t NoDevice = 9147;
inline constexpr std::int32_t NoSettings = 9148;
inline constexpr std::int32_t NewSettings = 12041;
inline constexpr std::int32_t Title = 9200;
inline constexpr std::int32_t ValueOutside = 9201;
inline constexpr std::int32_t NothingToTell = 9202;
inline constexpr std::int32_t NothingToDo = 9203;
inline constexpr std::int32_t NoRemoteHost = 9204;
inline constexpr std::int32_t DeviceMissing = 9205;
inline constexpr std::int32_t GeneratorMissing = 9206;
inline constexpr std::int32_t TableMissing = 9207;
inline constexpr std::int32_t SettingsMissing = 9208;
inline constexpr std::int32_t ProgramMissing = 9209;
inline constexpr std::int32_t BadParameter = 21093;
inline constexpr std::int32_t ParameterTableMissing = 21094;

}  // namespace ace::InputTexts
