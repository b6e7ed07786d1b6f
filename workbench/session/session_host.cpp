#include "workbench/session/session_host.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <thread>

#include <ace/host/device.h>
#include <ace/host/english_language.h>

#include "sim/sim_dialogs.h"
#include "sim/sim_services.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/operator_screen.h"
#include "workbench/transports/machine_files.h"

namespace ace::workbench {

namespace {

/// Longest time in which a real wait does not ask whether it is interrupted.
constexpr double SliceMs = 20.0;

/// Tracing is always on, because the lines are what actions are counted by.
class CountingTraceLog final : public sim::SimTraceLog {
  public:
    explicit CountingTraceLog(SessionHost& host) : SimTraceLog(host), x_host(host) {}

    bool IsEnabled() override {
        SimTraceLog::IsEnabled();
        return true;
    }
    std::int32_t ReportError(const RunTimeError& error, std::int32_t threadId,
                             std::int32_t errorLine) override {
        ++x_host.counts.errorReports;
        if (x_host.traceFile) {
            x_host.traceFile->ReportError(error, threadId, errorLine);
        }
        return SimTraceLog::ReportError(error, threadId, errorLine);
    }
    void WriteLine(StringView marker, StringView component, StringView module, StringView procedure,
                   StringView message, StringView threadId) override {
        if (marker == L"start" && procedure == L"DoAction") {
            ++x_host.counts.actions;
        }
        if (x_host.traceFile && x_host.traceFile->IsEnabled()) {
            x_host.traceFile->WriteLine(marker, component, module, procedure, message, threadId);
        }
        SimTraceLog::WriteLine(marker, component, module, procedure, message, threadId);
    }

  private:
    SessionHost& x_host;
};

class FileTestingServices final : public sim::SimSystemServices {
  public:
    using SimSystemServices::SimSystemServices;

    bool FileIsUsable(const String& path, bool first, bool second) override {
        SimSystemServices::FileIsUsable(path, first, second);
        return IsPlainFile(ToUtf8(path));
    }
};

/// A device that is missing fails its actions without a reason, so its name is kept.
class DevicesOfTheBench final : public sim::SimDeviceList {
  public:
    explicit DevicesOfTheBench(SessionHost& host) : SimDeviceList(host), x_host(host) {}

    std::shared_ptr<IDevice> GetDevice(const String& name) override {
        std::shared_ptr<IDevice> device = SimDeviceList::GetDevice(name);
        if (!device) {
            x_host.missingDevices.insert(name);
        }
        return device;
    }

  private:
    SessionHost& x_host;
};

/// A wait of the engine ends with the user's interrupt, and so does what it is part of: an action
/// that waits for the equipment would otherwise go on asking its clock.
class InterruptibleWaits final : public sim::SimUtilities {
  public:
    explicit InterruptibleWaits(SessionHost& host) : SimUtilities(host), x_host(host) {}

    std::int32_t Wait(float milliseconds) override {
        const std::int32_t status = SimUtilities::Wait(milliseconds);
        if (x_host.skipsWaits) {
            throw RunTimeError(IDevice::BrokenOffByOperator, L"the user has stopped the test",
                               L"workbench");
        }
        return status;
    }

  private:
    SessionHost& x_host;
};

/// A sound can be played when its file is there; the session itself stays silent. The user's
/// interrupt arrives with the messages.
class SessionPlatform final : public sim::SimPlatform {
  public:
    explicit SessionPlatform(SessionHost& host) : SimPlatform(host), x_host(host) {}

    void Yield() override {
        SimPlatform::Yield();
        x_host.CheckInterrupt();
    }
    std::int32_t sndPlaySoundA(const String& fileName, std::int32_t flags) override {
        SimPlatform::sndPlaySoundA(fileName, flags);
        if (IsPlainFile(ToUtf8(fileName))) {
            return 1;
        }
        x_host.Tell(LineKind::Failure, L"this sound can't be played: there is no such file");
        return 0;
    }

  private:
    SessionHost& x_host;
};

/// Questions in message boxes are the operator's like those of the forms; other boxes are told and
/// closed.
class OperatorBoxes final : public sim::SimUserDialogs {
  public:
    explicit OperatorBoxes(SessionHost& host) : SimUserDialogs(host), x_host(host) {}

    std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                const String& title) override {
        x_host.Call(L"UserDialogs.ShowMessageBox", sim::CallText(text, style, title));
        if ((style & YesNo) == 0) {
            return AnswerOk;
        }
        const Dialog question{PromptKind::Question,
                              title,
                              text,
                              {{Reply::GoOn, L"Yes", L'y'}, {Reply::Stop, L"No", L'n'}}};
        return x_host.Ask(question) == Reply::Stop ? AnswerNo : AnswerYes;
    }

  private:
    SessionHost& x_host;
};

/// Seconds since midnight, local time.
double SecondsOfToday() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t whole = std::chrono::system_clock::to_time_t(now);
    std::tm local{};
    localtime_r(&whole, &local);
    const std::chrono::duration<double> fraction =
        now - std::chrono::system_clock::from_time_t(whole);
    return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + fraction.count();
}

}  // namespace

SessionHost::SessionHost(Clock clock) : x_clock(clock) {
    if (clock == Clock::Real) {
        startOfDay = SecondsOfToday();
    }
}

std::shared_ptr<ISettingsFile> SessionHost::OpenFile(std::int32_t, const String& name) {
    return x_files.Open(name);
}

double SessionHost::Now() const {
    if (x_clock == Clock::Virtual) {
        return SimHost::Now();
    }
    const auto passed = std::chrono::steady_clock::now() - x_start;
    return std::chrono::duration<double, std::milli>(passed).count();
}

void SessionHost::CheckInterrupt() {
    if (!InterruptIsNew()) {
        return;
    }
    x_interruptSeen = true;
    if (onInterrupt) {
        onInterrupt();
    }
}

void SessionHost::PassTime(double milliseconds) {
    const double whole = std::max(milliseconds, 0.0);
    double left = x_clock == Clock::Real ? whole : 0.0;
    for (CheckInterrupt(); left > 0.0 && !skipsWaits; CheckInterrupt()) {
        const double slice = std::min(left, SliceMs);
        std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(slice));
        left -= slice;
    }
    const double passed = whole - left;
    counts.passedMs += passed;
    SimHost::PassTime(passed);
}

std::shared_ptr<ITraceLog> SessionHost::MakeTraceLog() {
    return std::make_shared<CountingTraceLog>(*this);
}
std::shared_ptr<ILanguage> SessionHost::MakeLanguage() {
    return std::make_shared<EnglishLanguage>();
}
std::shared_ptr<IUtilities> SessionHost::MakeUtilities() {
    return std::make_shared<InterruptibleWaits>(*this);
}
std::shared_ptr<ISystemServices> SessionHost::MakeSystemServices() {
    return std::make_shared<FileTestingServices>(*this);
}
std::shared_ptr<IDeviceList> SessionHost::MakeDeviceList() {
    return std::make_shared<DevicesOfTheBench>(*this);
}
std::shared_ptr<IPlatform> SessionHost::MakePlatform() {
    return std::make_shared<SessionPlatform>(*this);
}
std::shared_ptr<IFormHost> SessionHost::MakeFormHost() {
    return std::make_shared<OperatorScreen>(
        *this, [this](const Dialog& dialog) { return Ask(dialog); },
        [this](StringView words) { Tell(LineKind::Dialog, words); });
}
std::shared_ptr<IUserDialogs> SessionHost::MakeUserDialogs() {
    return std::make_shared<OperatorBoxes>(*this);
}

}  // namespace ace::workbench
