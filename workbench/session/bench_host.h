/// The host of a session with a bench whose devices and transports can be made to fail.
#pragma once

#include "workbench/devices/fault_rules.h"
#include "workbench/session/transport_host.h"

namespace ace::workbench {

/// Each failure on purpose is told as a remark before it happens.
class BenchHost final : public TransportHost {
  public:
    BenchHost(Clock clock, TransportChoice choice, std::shared_ptr<FaultRules> rules);

    const FaultRules& Faults() const { return *x_faults; }

    std::shared_ptr<IDeviceList> MakeDeviceList() override;
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override;
    std::shared_ptr<ISerialPort> MakeSerialPort() override;
    std::shared_ptr<IPlatform> MakePlatform() override;
    std::shared_ptr<IApiMacro> MakeApiMacro() override;

  private:
    std::shared_ptr<FaultRules> x_faults;
};

}  // namespace ace::workbench
