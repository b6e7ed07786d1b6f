/// Places in settings files, for messages.
#pragma once

#include "workbench/files/settings_document.h"

namespace ace::workbench {

/// "file.ini:12: [Section] what": how a place in a settings file is told. The line is left out when
/// the section or the key is missing.
String PlaceText(const SettingsDocument& document, const String& path, StringView section,
                 StringView key);

}  // namespace ace::workbench
