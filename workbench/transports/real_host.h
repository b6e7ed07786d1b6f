/// The real transports as services of a host.
#pragma once

#include <functional>
#include <memory>

#include <ace/host/host_factory.h>

#include "workbench/transports/remarks.h"
#include "workbench/transports/transport_settings.h"
#include "workbench/transports/waiting.h"

namespace ace::workbench {

/// What the real transports take from their host.
struct RealHostNeeds {
    TransportSettings settings;
    RunEvents events;  ///< runs while a connection, a write or a macro takes its time
    Remark remark;     ///< is told the causes of answers that carry none
    /// Opens the workbench's configuration anew; unset or an answer without object stands for an
    /// empty file.
    std::function<std::shared_ptr<ISettingsFile>()> openConfiguration;
};

/// Makes the services that a host factory hands out instead of simulated ones. Those that take
/// `rest` replace some operations of it and hand on the others. The objects stand on their own:
/// they may outlive the one that made them.
class RealHost {
  public:
    explicit RealHost(RealHostNeeds needs) : x_needs(std::move(needs)) {}

    std::shared_ptr<IGpibDriver> MakeGpibDriver() const;
    std::shared_ptr<ISerialPort> MakeSerialPort() const;
    std::shared_ptr<IApiMacro> MakeApiMacro() const;
    /// The sockets are real; events go to `rest`.
    std::shared_ptr<IDeviceList> MakeDeviceList(std::shared_ptr<IDeviceList> rest) const;
    /// Sounds and programs are real. Nothing can bring a program to the front without a window
    /// system: activating one means no more than finding it running.
    std::shared_ptr<IPlatform> MakePlatform(std::shared_ptr<IPlatform> rest) const;
    /// The configuration and the macro synchronisation are files.
    std::shared_ptr<ISystemServices> MakeSystemServices(
        std::shared_ptr<ISystemServices> rest) const;

  private:
    RealHostNeeds x_needs;
};

}  // namespace ace::workbench
