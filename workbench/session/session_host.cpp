#include "workbench/session/session_host.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "sim/sim_services.h"
#include "workbench/english_texts.h"
#include "workbench/session/operator_screen.h"
#include "workbench/text_encoding.h"

namespace ace::workbench {

namespace {

/// Longest time in which a real wait does not ask whether it is interrupted.
constexpr double SliceMs = 20.0;

bool IsPlainFile(const String& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(ToUtf8(path), error);
}

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
        return IsPlainFile(path);
    }
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
        if (IsPlainFile(fileName)) {
            return 1;
        }
        if (x_host.onRemark) {
            x_host.onRemark(L"this sound can't be played: there is no such file");
        }
        return 0;
    }

  private:
    SessionHost& x_host;
};

}  // namespace

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
    return std::make_shared<EnglishTexts>();
}
std::shared_ptr<ISystemServices> SessionHost::MakeSystemServices() {
    return std::make_shared<FileTestingServices>(*this);
}
std::shared_ptr<IPlatform> SessionHost::MakePlatform() {
    return std::make_shared<SessionPlatform>(*this);
}
std::shared_ptr<IFormHost> SessionHost::MakeFormHost() {
    return std::make_shared<OperatorScreen>(*this);
}

}  // namespace ace::workbench
