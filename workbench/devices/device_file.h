/// A bench described in a file: devices, the instruments they stand for, and tables.
#pragma once

#include "workbench/files/settings_document.h"
#include "workbench/words/outcome.h"

namespace ace::sim {
class SimHost;
}

namespace ace::workbench {

/// Adds the devices and tables of the file to the bench of `host`, which must outlive them. The
/// section [Devices] has a line "name=class" for each device; a section with a device's name says
/// more about it; [Tables] has a line "name=80MHz:-30, 1GHz:-28" for each calibration table.
/// `path` is for messages. What makes no sense, a key that no device of its class has included, is
/// `CommandError` `BadFile` with file, line, section and reason.
void ReadDevices(const SettingsDocument& document, const String& path, sim::SimHost& host);

}  // namespace ace::workbench
