#include <ace/core/borrowed_text.h>
#include <ace/core/text.h>
#include <ace/execution/device_access.h>
#include <ace/execution/device_actions.h>
#include <ace/execution/device_failure.h>
#include <ace/host/bc_generator.h>
#include <ace/host/monitor_device.h>
#include <ace/settings/settings_sections.h>

namespace ace {

namespace {

constexpr TraceLines SetCheckLines = ModuleLines(L"SetCheckDevice");

/// The equipment has failed: "%1" is the name of the device that saw it.
constexpr std::int32_t EutFailedText = 9420;
constexpr std::int32_t EutFailedComment = 9421;
/// Pause between two readings while the equipment may recover, milliseconds.
constexpr float RecoveryPause = 1000.0F;
constexpr float SecondsOfDay = 86400.0F;
/// Second argument of setting a channel: apply what was loaded.
constexpr std::int32_t ApplySettings = 1;

/// One run of the routine. What an operation of a device lets run inside may overwrite the record,
/// so each device is held for its call, and the record is read anew for each statement.
struct DeviceRun {
    ThreadContext& context;
    aceSetDevice& record;
    String& section;  ///< of the device's settings
    std::shared_ptr<ISettingsFile> settings = nullptr;
    Boolean result = {};
};

void Request(const DeviceRun& run, std::int32_t bits) {
    run.context.EutCheckRequest |= bits;
}

float Now(const DeviceRun& run) {
    return run.context.Platform().SecondsSinceMidnight();
}

/// The state of a device that was found off is asked twice before it counts.
void RequireState(const DeviceRun& run) {
    if (Required(run.record.Device)->State() == IDevice::NotActive &&
        Required(run.record.Device)->State() == IDevice::NotActive) {
        RaiseDeviceFailed(run.context);
    }
}

// ---- finding the device ------------------------------------------------------------------------

enum class DeviceKind { NotFound, Broadcast, Monitor };

/// Makes the record's objects. A device that stays off fails a check here; before a set that is no
/// error yet.
DeviceKind FindRecordsDevice(const DeviceRun& run, bool isSet) {
    aceSetDevice& record = run.record;
    if (!record.Device) {
        record.Device = run.context.DeviceList().GetDevice(record.DevName);
        if (!record.Device) {
            return DeviceKind::NotFound;
        }
    }
    const std::int32_t state = StateAfterActivation(*Required(record.Device)).value;
    if (state == IDevice::NotActive && !isSet) {
        RaiseDeviceFailed(run.context);
    }
    const std::shared_ptr<IDevice> device = Required(record.Device);
    if (run.context.DeviceList().ClassName(device->DeviceClass()) == DeviceClasses::BcGenerators) {
        TakeKind(record.BcGen, device);
        return record.BcGen ? DeviceKind::Broadcast : DeviceKind::NotFound;
    }
    TakeKind(record.MoniDev, device);
    return record.MoniDev ? DeviceKind::Monitor : DeviceKind::NotFound;
}

// ---- setting -----------------------------------------------------------------------------------

void LoadDeviceSettings(const DeviceRun& run) {
    Required(run.record.Device)->LoadSettings(run.settings, run.section);
}

void UseMonitor(const DeviceRun& run, std::int32_t mode) {
    Required(run.record.MoniDev)->SetUseMode(mode);
}

/// A signal path that can't be found is no failure: the generator is set without one.
void SetBroadcastGenerator(const DeviceRun& run) {
    aceSetDevice& record = run.record;
    if (!record.SigPathName.empty() && !record.SigPath) {
        record.SigPath = FindDevice<ISignalPath>(run.context, record.SigPathName);
        if (const std::shared_ptr<ISignalPath> path = record.SigPath) {
            path->Prepare();
        }
    }
    const std::shared_ptr<ISignalPath> path = record.SigPath;
    Required(record.BcGen)->SetSignalPath(path);
    LoadDeviceSettings(run);
    Required(record.BcGen)->Apply();
}

void SetMonitor(const DeviceRun& run) {
    UseMonitor(run, IMonitorDevice::UseToSet);
    LoadDeviceSettings(run);
    Required(run.record.MoniDev)->SetChannel(run.record.ChanNo, ApplySettings);
    RequireState(run);
}

// ---- checking ----------------------------------------------------------------------------------

/// A clock that reads less than at the last check has passed midnight: the check is due.
bool IsDue(const DeviceRun& run) {
    const float now = Now(run);
    const float last = run.record.LastCheck;
    const bool recent = static_cast<double>(now - last) <= run.record.CycleTime && !(now < last);
    return !run.record.UseTimeCyc || !recent;
}

String FailedText(const DeviceRun& run) {
    String text = run.context.Language().Text(EutFailedText);
    ReplaceAll(text, L"%1", Required(run.record.Device)->Name());
    return text;
}

void ShowSecondsLeft(const DeviceRun& run, float seconds) {
    const String text = FailedText(run);
    const wchar_t separator = run.context.Platform().DecimalSeparator();
    run.context.SystemServices().SetProgressText(text + L" - " +
                                                 FormatFixed(seconds, 0, separator) + L"s");
}

/// Seconds from `start` to now; a wait over midnight goes on counting.
float SecondsSince(const DeviceRun& run, float start) {
    const float elapsed = Now(run) - start;
    return elapsed < 0.0F ? elapsed + SecondsOfDay : elapsed;
}

/// Gives the equipment time to recover. What it reads in the end changes nothing about this check.
void WaitForRecovery(const DeviceRun& run) {
    ShowSecondsLeft(run, run.record.WaitTime);
    const float start = Now(run);
    for (;;) {
        run.context.Utilities().Wait(RecoveryPause);
        const double reading = Required(run.record.MoniDev)->ReadChannel(run.record.ChanNo);
        const float elapsed = SecondsSince(run, start);
        ShowSecondsLeft(run, run.record.WaitTime - elapsed);
        if (reading == 0.0 || elapsed > run.record.WaitTime) {
            return;
        }
    }
}

/// Tells the operator, and notes what the host is to do.
void ReportFailedEut(DeviceRun& run) {
    ThreadContext& context = run.context;
    if (run.record.Notify) {
        if (!context.CommentForm) {
            context.CommentForm = MakeCommentForm(context);
        }
        const std::shared_ptr<ICommentForm> form = Required(context.CommentForm);
        run.result = form->DisplayMessage(FailedText(run), false);
        if (run.result) {
            Request(run, acEutStopTest);
        }
    }
    if (run.record.CommToTable) {
        context.EutCheckComment = context.Language().Text(EutFailedComment);
        if (context.EutCheckRequest < acEutStoreComment) {
            Request(run, acEutStoreComment);
        }
    }
    if (run.record.StopTest) {
        run.result = true;
        Request(run, acEutStopTest);
    }
    if (run.record.LoadingPos) {
        Request(run, acEutParkAccessories);
    }
    context.SystemServices().SetProgressText({});
}

/// The reading of the checked channel. A failed read of the device counts as well, and asks the
/// host to measure the subrange again.
double ReadEut(const DeviceRun& run) {
    const double reading = Required(run.record.MoniDev)->ReadChannel(run.record.ChanNo);
    if (!run.context.Utilities().IsSameValue(reading, IMonitorDevice::FailedRead)) {
        return reading;
    }
    Request(run, acEutRepeatSubrangeMeas);
    if (run.record.LoadingPos) {
        Request(run, acEutParkAccessories);
    }
    return 0.0;
}

void CheckEut(DeviceRun& run) {
    if (!IsDue(run)) {
        return;
    }
    UseMonitor(run, IMonitorDevice::UseToCheck);
    LoadDeviceSettings(run);
    const double reading = ReadEut(run);
    const std::int32_t state = Required(run.record.Device)->State();
    if (reading != 0.0 && state != IDevice::NotActive) {
        if (run.record.WaitState) {
            WaitForRecovery(run);
        }
        ReportFailedEut(run);
    }
    run.record.LastCheck = Now(run);
}

// ---- the routine -------------------------------------------------------------------------------

/// False when there is no device to work with.
bool SetOrCheck(DeviceRun& run, Boolean isSet, std::int32_t moduleKind) {
    ThreadContext& context = run.context;
    if (context.TraceLog().IsEnabled()) {
        WriteStartLine(context, SetCheckLines, {});
    }
    run.settings = OpenModuleSettings(context, static_cast<aceModul>(moduleKind));
    run.section.clear();
    AppendDeviceSection(run.section, run.record.ChanNo);
    const DeviceKind kind = FindRecordsDevice(run, isSet);
    if (kind == DeviceKind::NotFound) {
        return false;
    }
    if (!isSet) {
        CheckEut(run);
    } else if (kind == DeviceKind::Broadcast) {
        SetBroadcastGenerator(run);
    } else {
        SetMonitor(run);
    }
    return true;
}

}  // namespace

Boolean modActions::SetCheckDevice(ThreadContext& context, aceSetDevice& record, Boolean isSet,
                                   Boolean& ignoreAll, std::int32_t moduleKind) {
    BorrowedText section(context);
    DeviceRun run{context, record, *section};
    DeviceFailure failure;
    try {
        if (SetOrCheck(run, isSet, moduleKind)) {
            return run.result;
        }
    } catch (...) {
        failure = CurrentFailure();
    }
    if (failure.number == IDevice::BrokenOffByOperator ||
        failure.number == IDevice::BrokenOffByHost) {
        run.result = true;
    } else if (!ignoreAll) {
        run.result =
            ShowDeviceError(context, atSetDevice, ignoreAll, record, failure.number, failure.text);
    }
    if (context.TraceLog().IsEnabled()) {
        WriteEndLine(context, SetCheckLines);
    }
    return run.result;
}

}  // namespace ace
