/// The host of a session that sends commands, starts programs and runs macros.
#pragma once

#include <iosfwd>
#include <map>

#include "workbench/session/session_host.h"
#include "workbench/transports/real_host.h"
#include "workbench/transports/traffic_log.h"

namespace ace::workbench {

/// Which transports a session has.
struct TransportChoice {
    bool isReal = false;         ///< bytes leave this machine; otherwise all of it is simulated
    TransportSettings settings;  ///< of the real ones
    /// Opens the workbench's configuration anew; unset for none.
    std::function<std::shared_ptr<ISettingsFile>()> openConfiguration;
};

/// Tells each command, each start and their failures as a remark, and writes the log. A simulated
/// program confirms its work at once; a simulated clock also gives the times of the log, from the
/// time at which the host was made. The host's events, which real transports let run while they
/// take their time, are the user's wish to end the test.
class TransportHost : public SessionHost {
  public:
    TransportHost(Clock clock, TransportChoice choice);

    /// Writes the traffic log from here on. `out` must outlive the host.
    void WriteLog(std::ostream& out);

    /// Is told of each command and start, and of those that failed.
    std::function<void(const TrafficLine& line)> onTraffic;

    /// Command lines of the programs that were waited for until the time-out, in their order.
    const std::vector<String>& SilentPrograms() const { return x_silentPrograms; }
    /// False when the traffic log is not complete.
    bool LogIsGood() const { return x_log->IsGood(); }

    std::shared_ptr<IDeviceList> MakeDeviceList() override;
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override;
    std::shared_ptr<ISerialPort> MakeSerialPort() override;
    std::shared_ptr<IPlatform> MakePlatform() override;
    std::shared_ptr<ISystemServices> MakeSystemServices() override;
    std::shared_ptr<IApiMacro> MakeApiMacro() override;

  private:
    class NamedPrograms;
    class SimulatedConfirmation;

    void TellTraffic(const TrafficLine& line) const;
    /// A wait for the last program has ended without its confirmation.
    void OnSilence();
    RealHostNeeds Needs();

    TransportChoice x_choice;
    RealHost x_real;
    TrafficLog::Now x_logTime;
    std::shared_ptr<TrafficLog> x_log = std::make_shared<TrafficLog>();
    std::map<double, String> x_programs;  ///< command line of each process that was started
    String x_program;                     ///< command line of the last one started or found running
    double x_process = 0.0;               ///< the identifier of that program
    std::vector<String> x_silentPrograms;
};

}  // namespace ace::workbench
