/// Names of sections, and the keys that stand in them.
#pragma once

#include <span>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// How the engine's sections of lines begin, and how those end that have keys beside them.
inline constexpr StringView EngineWord = L"ActionsOn";
inline constexpr StringView KeysEnd = L"_VKS";
/// The settings of a device, "#" for their number.
inline constexpr StringView DeviceSection = L"Actions#-Device";

/// A section of the workbench: its keys, "#" for a number. One without keys takes any.
struct OwnSection {
    StringView name;
    std::span<const StringView> keys;
};
std::span<const OwnSection> OwnSections();
/// By the name with "#" for its numbers; none for a section that is not the workbench's.
const OwnSection* OwnSectionOf(StringView numberless);
/// The keys that a section has beside lines of actions, or of the workbench; none for any keys.
std::span<const StringView> KnownKeys(StringView name);

/// The name with "#" for each run of digits, so that numbered names are one name.
String Numberless(StringView name);
/// Without regard to the case of the letters A to Z.
bool BeginsWith(StringView text, StringView word);
bool EndsWith(StringView text, StringView word);

}  // namespace ace::workbench
