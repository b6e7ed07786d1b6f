/// Places in settings files, for messages.
#pragma once

#include "workbench/files/settings_document.h"

namespace ace::workbench {

/// "file.ini:12: [Section] what": how a place in a settings file is told. The line is left out when
/// the section or the key is missing.
String PlaceText(const SettingsDocument& document, const String& path, StringView section,
                 StringView key);

/// The same for the line of `index` among the lines of a section that is there, from 0.
String LinePlaceText(const SettingsDocument& document, const String& path, StringView section,
                     std::size_t index);

/// Refuses a file in which a section stands twice, of which the second would be read by nobody:
/// `CommandError` `BadFile` with the place of the first.
void RequireSectionsOnce(const SettingsDocument& document, const String& path);

}  // namespace ace::workbench
