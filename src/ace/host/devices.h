/// Names of the host's device objects and of its device enumerations.
#pragma once

#include <cstdint>

namespace ace {

class IDevice;
class IMonitorDevice;
class IBcGenerator;
class IAmplifier;
class ISwitchUnit;
class ISignalPath;
class IRfGenerator;
class ICalTable;

/// State of an amplifier, a number of the host: 0 power off, 1 power on, 2 standby, 3 operate,
/// 4 reset. The engine stores and passes it and draws no conclusion.
using IAmplifierState = std::int32_t;
/// Kind of a calibration table, a number of the host.
using ITableType = std::int32_t;
/// Measurement class of a calibration table, a number of the host.
using ITableMeasClass = std::int32_t;

}  // namespace ace
