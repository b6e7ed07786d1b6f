#include "workbench/session/transport_host.h"

#include <ace/host/forwarding.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/instrument_bytes.h"
#include "workbench/transports/sync_watch.h"
#include "workbench/transports/with_journal.h"
#include "workbench/transports/with_traffic.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// More of a command is not shown; the log has all of it.
constexpr std::size_t MostBytesShown = 200;

/// The bytes of a command as they are shown, with a blank before them; nothing for none.
String ShownBytes(std::string_view bytes) {
    if (bytes.empty()) {
        return {};
    }
    const String text = FromUtf8(ReadableBytes(bytes.substr(0, MostBytesShown)));
    return L" \"" + text + (bytes.size() > MostBytesShown ? L"\"..." : L"\"");
}

TrafficLog::Now LogTime(const SessionHost& host, Clock clock) {
    if (clock == Clock::Real) {
        return {};
    }
    const auto start = std::chrono::system_clock::now();
    return [&host, start] {
        const std::chrono::duration<double, std::milli> passed(host.Now());
        return start + std::chrono::duration_cast<std::chrono::system_clock::duration>(passed);
    };
}

}  // namespace

/// Keeps the command lines of the programs, because a wait for one does not tell whose it is.
class TransportHost::NamedPrograms final : public ForwardingPlatform {
  public:
    NamedPrograms(TransportHost& host, std::shared_ptr<IPlatform> next)
        : ForwardingPlatform(std::move(next)), x_host(host) {}

    void ActivateProgram(double processId) override {
        Next().ActivateProgram(processId);
        x_host.x_process = processId;
        x_host.x_program = x_host.x_programs[processId];
        x_host.Tell(LineKind::Effect, L"program " + QuotedLine(x_host.x_program) +
                                          L": still runs and is not started again");
    }
    double StartProgram(const String& commandLine) override {
        x_host.x_program = commandLine;
        const double process = Next().StartProgram(commandLine);
        x_host.x_process = process;
        x_host.x_programs[process] = commandLine;
        return process;
    }

  private:
    TransportHost& x_host;
};

/// A program that has confirmed its work has ended, so that the next test step starts it again.
class TransportHost::SimulatedConfirmation final : public ForwardingSystemServices {
  public:
    SimulatedConfirmation(TransportHost& host, std::shared_ptr<ISystemServices> next)
        : ForwardingSystemServices(std::move(next)), x_host(host) {}

    std::shared_ptr<ISettingsFile> GetGlobalSettings() override {
        std::shared_ptr<ISettingsFile> simulated = Next().GetGlobalSettings();
        const auto& open = x_host.x_choice.openConfiguration;
        std::shared_ptr<ISettingsFile> file = open ? open() : nullptr;
        return file ? file : simulated;
    }
    String ReadMacroSync(std::int32_t key) override {
        Next().ReadMacroSync(key);
        x_host.programs.running.erase(x_host.x_process);
        return L"COMPLETED";
    }

  private:
    TransportHost& x_host;
};

TransportHost::TransportHost(Clock clock, TransportChoice choice)
    : SessionHost(clock),
      x_choice(std::move(choice)),
      x_real(Needs()),
      x_logTime(LogTime(*this, clock)) {
    x_log->onLine = [this](const TrafficLine& line) { TellTraffic(line); };
    if (!x_choice.isReal) {
        x_log->remark = L" (simulated)";
    }
}

void TransportHost::WriteLog(std::ostream& out) {
    const auto where = [this]() -> TrafficPlace {
        const Place here = place ? place() : Place{};
        return {here.moment, here.hertz};
    };
    x_log->WriteTo(out, where, x_logTime);
}

RealHostNeeds TransportHost::Needs() {
    RealHostNeeds needs;
    needs.settings = x_choice.settings;
    needs.events = [this] { CheckInterrupt(); };
    needs.remark = [this](const String& line) { Tell(LineKind::Failure, line); };
    needs.openConfiguration = x_choice.openConfiguration;
    return needs;
}

void TransportHost::TellTraffic(const TrafficLine& line) const {
    if (onTraffic) {
        onTraffic(line);
    }
    if (!tellsEffects) {
        return;
    }
    const String address = line.address.empty() ? String() : L" " + String(line.address);
    Tell(LineKind::Effect,
         String(line.transport) + address + ShownBytes(line.bytes) + L": " + String(line.what));
}

void TransportHost::OnSilence() {
    const String program = L"program " + QuotedLine(x_program);
    if (skipsWaits) {  // its time has not passed
        Tell(LineKind::Failure, program + L": interrupted before it confirmed its work");
        return;
    }
    x_silentPrograms.push_back(x_program);
    Tell(LineKind::Failure, program + L": no confirmation within its time; the test goes on");
}

std::shared_ptr<IDeviceList> TransportHost::MakeDeviceList() {
    const std::shared_ptr<IDeviceList> simulated = SessionHost::MakeDeviceList();
    return x_choice.isReal
               ? WithJournal(*this, WithTraffic(x_log, x_real.MakeDeviceList(simulated)))
               : WithTraffic(x_log, simulated);
}
std::shared_ptr<IGpibDriver> TransportHost::MakeGpibDriver() {
    return x_choice.isReal ? WithJournal(*this, WithTraffic(x_log, x_real.MakeGpibDriver()))
                           : WithTraffic(x_log, SessionHost::MakeGpibDriver());
}
std::shared_ptr<ISerialPort> TransportHost::MakeSerialPort() {
    return x_choice.isReal ? WithJournal(*this, WithTraffic(x_log, x_real.MakeSerialPort()))
                           : WithTraffic(x_log, SessionHost::MakeSerialPort());
}
std::shared_ptr<IApiMacro> TransportHost::MakeApiMacro() {
    return x_choice.isReal ? WithJournal(*this, WithTraffic(x_log, x_real.MakeApiMacro()))
                           : WithTraffic(x_log, SessionHost::MakeApiMacro());
}
std::shared_ptr<IPlatform> TransportHost::MakePlatform() {
    const std::shared_ptr<IPlatform> simulated = SessionHost::MakePlatform();
    const std::shared_ptr<IPlatform> platform =
        x_choice.isReal ? WithJournal(*this, WithTraffic(x_log, x_real.MakePlatform(simulated)))
                        : WithTraffic(x_log, simulated);
    return std::make_shared<NamedPrograms>(*this, platform);
}
std::shared_ptr<ISystemServices> TransportHost::MakeSystemServices() {
    const std::shared_ptr<ISystemServices> simulated = SessionHost::MakeSystemServices();
    const std::shared_ptr<ISystemServices> services =
        x_choice.isReal ? WithJournal(*this, x_real.MakeSystemServices(simulated))
                        : std::make_shared<SimulatedConfirmation>(*this, simulated);
    return WatchSync(services, [this] { OnSilence(); });
}

}  // namespace ace::workbench
