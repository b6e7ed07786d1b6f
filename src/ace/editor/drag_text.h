/// What a drag in the editor carries, as text: "ACT:" with the number of a kind on offer, or
/// "ACT:1000," with the icon of a line.
#pragma once

#include <optional>

#include <ace/host/basic_types.h>

namespace ace {

inline constexpr StringView DragPrefix = L"ACT:";
/// The number that stands for a line.
inline constexpr std::int32_t LineNumber = 1000;

/// What a list's item carries, which is its key too.
String DragTextOfKind(std::int32_t kind);
String DragTextOfLine(const String& icon);
/// True for a text of either form.
bool IsDragText(StringView text);
/// True for a line while it is dragged over the tree.
bool CarriesLine(StringView text);
/// Icon of the line, three letters.
StringView IconOf(StringView text);
/// The digits behind the last ":" as a number; -1 where there are none, or something else, as with
/// a line.
std::int32_t ParseKindNumber(StringView text);
/// The digits at the beginning of the four characters behind the prefix as a number, which is how a
/// drop reads it; -1 where there are none.
std::int32_t DroppedNumber(StringView text);

}  // namespace ace
