/// A whole host in memory: every service of the engine, one journal, scripted answers and failures,
/// and a clock that waits in no time.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>

#include <ace/host/host_factory.h>

#include "sim/call_text.h"
#include "sim/fault_script.h"
#include "sim/journal.h"
#include "sim/sim_devices.h"
#include "sim/sim_instruments.h"
#include "sim/sim_operator.h"
#include "sim/sim_settings.h"

namespace ace::sim {

/// Makes the services of a simulated host and holds what they know. Every call is one line of the
/// journal and may be told to fail; what the host was not told about it refuses or answers plainly.
/// Outlives every context that uses it.
class SimHost : public IHostFactory {
  public:
    Journal journal;
    FaultScript faults;
    SimOperator user;  ///< who answers forms, boxes and menus

    // ---- what the host knows ---------------------------------------------------------------

    std::map<String, SimSections> files;   ///< settings files by name
    std::set<String> missingFiles;         ///< settings files that give no object
    std::map<std::int32_t, String> texts;  ///< texts by number; others read "T(<number>)"
    std::set<String> usableFiles;          ///< paths for which the file test says yes
    std::set<String> brokenSounds;         ///< wave files that can't be played
    std::set<std::int32_t> openSockets;
    SimBench bench;
    SimInstruments instruments;
    SimPrograms programs;
    std::map<String, SimMacroScript> macros;  ///< by program; others load, run and succeed
    String globalSettings = L"system.ini";    ///< name of the system's configuration in `files`
    bool serialPortOpen = false;              ///< state of the newest serial port
    bool tracing = false;
    std::deque<std::int32_t> reportAnswers;  ///< answers of `ReportError`; 0 when used up
    std::optional<std::int32_t> testState;   ///< state of the current test; none for no test
    std::int32_t testKind = 0;               ///< kind of the current test
    wchar_t decimalSeparator = L'.';
    std::int32_t threadId = 1;
    /// Runs inside the n-th yield, n from 1: the place from which a host re-enters the engine.
    std::function<void(std::size_t)> onYield;
    /// Runs while a timed message stands.
    std::function<void()> onTimedMessage;
    /// Sees each call before the journal does; an error that it raises is that of the call.
    std::function<void(StringView operation, CallArguments arguments)> beforeCall;

    // ---- time ------------------------------------------------------------------------------

    /// Milliseconds since the host was made. Waiting moves it at once.
    virtual double Now() const { return x_now; }
    /// A host with a real clock lets the time pass here, and tells it above.
    virtual void PassTime(double milliseconds) { x_now += milliseconds; }

    /// Time of the day at which the host was made, in seconds since midnight.
    double startOfDay = 36000.0;
    /// Seconds since midnight; after a day it begins again.
    double SecondsSinceMidnight() const;

    // ---- the seam of the services ------------------------------------------------------------

    /// Enters a call into the journal and raises the error that is scripted for it.
    void Call(StringView operation, CallArguments arguments, bool isQuestion = false);
    /// The text of a number.
    String TextOf(std::int32_t number) const;
    /// Opens a settings file; no object for one that is missing. A reference host opens real ones.
    virtual std::shared_ptr<ISettingsFile> OpenFile(std::int32_t kind, const String& name);
    void CountYield();

    std::shared_ptr<ITraceLog> MakeTraceLog() override;
    std::shared_ptr<ILanguage> MakeLanguage() override;
    std::shared_ptr<IUtilities> MakeUtilities() override;
    std::shared_ptr<ISystemServices> MakeSystemServices() override;
    std::shared_ptr<IDeviceList> MakeDeviceList() override;
    std::shared_ptr<IDeviceSettingsStore> MakeDeviceSettingsStore() override;
    std::shared_ptr<IGpibDriver> MakeGpibDriver() override;
    std::shared_ptr<IStatusDisplay> MakeStatusDisplay() override;
    std::shared_ptr<IPlatform> MakePlatform() override;
    std::shared_ptr<ISerialPort> MakeSerialPort() override;
    std::shared_ptr<IFormHost> MakeFormHost() override;
    std::shared_ptr<IUserDialogs> MakeUserDialogs() override;
    std::shared_ptr<IApiMacro> MakeApiMacro() override;

  private:
    double x_now = 0.0;
    std::size_t x_yields = 0;
};

}  // namespace ace::sim
