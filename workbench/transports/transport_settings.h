/// The part of the workbench's configuration that the real transports read.
#pragma once

#include <string>

#include <ace/host/settings_file.h>

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

/// Reads them. A time outside 1 to 3600000 milliseconds, a line of [SerialPorts] that maps no port
/// and a key that the section does not have are error `TransportErrors::BadConfiguration`, which
/// names section and key; errors of the file itself pass. The engine reads [OtaMeasurements]
/// ActionSyncTimeout, in seconds, by itself.
TransportSettings ReadTransportSettings(ISettingsFile& file);

}  // namespace ace::workbench
