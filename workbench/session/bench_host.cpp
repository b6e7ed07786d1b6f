#include "workbench/session/bench_host.h"

#include "workbench/devices/with_faults.h"

namespace ace::workbench {

BenchHost::BenchHost(Clock clock, TransportChoice choice, std::shared_ptr<FaultRules> rules)
    : TransportHost(clock, std::move(choice)), x_faults(std::move(rules)) {
    x_faults->onFault = [this](const FaultRule& rule) {
        Tell(LineKind::Failure, L"failure on purpose: " + rule.text);
    };
    if (!x_faults->IsEmpty()) {
        beforeCall = [this](StringView operation, sim::CallArguments arguments) {
            CountDeviceCall(*x_faults, operation, arguments);
        };
    }
}

std::shared_ptr<IDeviceList> BenchHost::MakeDeviceList() {
    return WithFaults(x_faults, TransportHost::MakeDeviceList());
}
std::shared_ptr<IGpibDriver> BenchHost::MakeGpibDriver() {
    return WithFaults(x_faults, TransportHost::MakeGpibDriver());
}
std::shared_ptr<ISerialPort> BenchHost::MakeSerialPort() {
    return WithFaults(x_faults, TransportHost::MakeSerialPort());
}
std::shared_ptr<IPlatform> BenchHost::MakePlatform() {
    return WithFaults(x_faults, TransportHost::MakePlatform());
}
std::shared_ptr<IApiMacro> BenchHost::MakeApiMacro() {
    return WithFaults(x_faults, TransportHost::MakeApiMacro());
}

}  // namespace ace::workbench
