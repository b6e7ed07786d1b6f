/// The part of the workbench's configuration that the real transports read.
#pragma once

#include <string>

#include "workbench/files/settings_document.h"
#include "workbench/transports/serial_line.h"
#include "workbench/transports/tcp_sockets.h"

namespace ace::workbench {

/// What is not configured keeps these values. Paths are in UTF-8.
struct TransportSettings {
    TcpTimes tcp;                             ///< [Tcp] ConnectTimeoutMs, WriteTimeoutMs
    Milliseconds serialStall{5000};           ///< [Serial] WriteTimeoutMs
    SerialDevices serialDevices;              ///< [SerialPorts] COM<number>=<device>
    std::string gpibLibrary;                  ///< [Gpib] Library
    std::string macroSync = "MacroSync.ini";  ///< [MacroSync] File
    String soundPlayer;                       ///< [Sound] Player, a command line
};

/// Reads them. A time outside 1 to 3600000 milliseconds, a line of [SerialPorts] that maps no port,
/// a section that the configuration does not have, a key that its section does not have, and what
/// stands twice are `CommandError` `BadFile` with file, line, section and reason; `path` is for
/// these messages. The engine reads [OtaMeasurements] ActionSyncTimeout, in seconds, by itself.
TransportSettings ReadTransportSettings(const SettingsDocument& document, const String& path);

}  // namespace ace::workbench
