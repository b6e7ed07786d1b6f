/// The host of a session: real files and, when wanted, real time; everything else is simulated.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <set>

#include "sim/sim_host.h"
#include "workbench/files/disk_settings_file.h"
#include "workbench/session/dialog.h"
#include "workbench/session/line_kind.h"

namespace ace::workbench {

/// How a session waits.
enum class Clock {
    Virtual,  ///< every wait passes at once
    Real,     ///< a wait takes its time
};

/// Where a test stands.
struct Place {
    double timeMs = 0.0;  ///< passed since the session began
    String moment;        ///< in words
    double hertz = 0.0;   ///< 0 for moments without a frequency
};

/// What is counted while a test runs.
struct HostCounts {
    std::size_t actions = 0;  ///< trace lines with which the engine begins an action
    std::size_t errorReports = 0;
    double passedMs = 0.0;  ///< time that passed, waits and dwells, milliseconds
};

/// Opens settings files on disk, speaks English, tests and "plays" real sound files, and hands what
/// stands on the operator's screen to its owner.
class SessionHost : public sim::SimHost {
  public:
    /// With a real clock the time of the day is that of this machine.
    explicit SessionHost(Clock clock = Clock::Virtual);

    /// With a real clock the time that passed on it, since the host was made.
    double Now() const override;

    /// Gets every trace line and error report; none to end that. To be set before the first engine.
    std::shared_ptr<ITraceLog> traceFile;
    /// Decides on what stands on the operator's screen. Not set: the test goes on.
    std::function<Reply(const Dialog& dialog)> onPrompt;
    /// The user wants the test to end. Asked while real time passes and when messages run.
    std::function<bool()> isInterrupted;
    /// Runs once, when `isInterrupted` is true for the first time.
    std::function<void()> onInterrupt;
    /// Real waits pass at once.
    bool skipsWaits = false;
    /// False when nobody looks at effects, so that none is put into words.
    bool tellsEffects = true;
    /// Is told what no call of the journal tells.
    std::function<void(LineKind kind, StringView words)> onRemark;

    /// Where the test stands; set by the session while it runs.
    std::function<Place()> place;

    HostCounts counts;
    /// Names of devices that were looked for and that the bench has not.
    std::set<String> missingDevices;

    /// The user has interrupted the test, and `onInterrupt` has not run yet.
    bool InterruptIsNew() const { return !x_interruptSeen && isInterrupted && isInterrupted(); }
    /// Asks whether the user has interrupted the test, and runs `onInterrupt` if that is new.
    void CheckInterrupt();
    /// What `onPrompt` decides.
    Reply Ask(const Dialog& dialog) const { return onPrompt ? onPrompt(dialog) : Reply::GoOn; }
    /// Hands a line to `onRemark`.
    void Tell(LineKind kind, StringView words) const {
        if (onRemark) {
            onRemark(kind, words);
        }
    }

    std::shared_ptr<ISettingsFile> OpenFile(std::int32_t kind, const String& name) override;
    /// A negative time is none.
    void PassTime(double milliseconds) override;

    std::shared_ptr<ITraceLog> MakeTraceLog() override;
    std::shared_ptr<ILanguage> MakeLanguage() override;
    std::shared_ptr<IUtilities> MakeUtilities() override;
    std::shared_ptr<ISystemServices> MakeSystemServices() override;
    std::shared_ptr<IDeviceList> MakeDeviceList() override;
    std::shared_ptr<IPlatform> MakePlatform() override;
    std::shared_ptr<IFormHost> MakeFormHost() override;
    std::shared_ptr<IUserDialogs> MakeUserDialogs() override;

  private:
    Clock x_clock;
    std::chrono::steady_clock::time_point x_start = std::chrono::steady_clock::now();
    bool x_interruptSeen = false;
    SettingsFiles x_files;
};

}  // namespace ace::workbench
