#include <ace/core/action_kinds.h>
#include <ace/core/text.h>
#include <ace/editor/held_action.h>

namespace ace {

namespace {

/// What a comparison looks at.
struct Comparison {
    ThreadContext& context;
    const WorkingRecords& held;
    const p_Action& entry;
    Boolean deviceSettingsChanged;
};

bool WaitDiffers(const Comparison& c) {
    return !c.context.Utilities().IsEqual(c.held.Wait.Time, RecordOf<aceWait>(c.entry).Time);
}

bool NotifyDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceNotify>(c.entry);
    const aceNotify& held = c.held.Notify;
    return held.Beep != entry.Beep || !EqualNoCase(held.WaveFile, entry.WaveFile) ||
           !EqualNoCase(held.Message, entry.Message);
}

bool CommentDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceNotify>(c.entry);
    const aceNotify& held = c.held.Notify;
    return held.Beep != entry.Beep || !EqualNoCase(held.WaveFile, entry.WaveFile) ||
           held.GeneratorOff != entry.GeneratorOff;
}

bool AddressDiffers(const aceRemote& held, const aceRemote& entry) {
    switch (held.Iface) {
        case aceRemote::Gpib:
            return held.GpibAddress != entry.GpibAddress;
        case aceRemote::Serial:
            return held.SerComPort != entry.SerComPort;
        case aceRemote::TcpIp:
            return held.TcpPort != entry.TcpPort || !EqualNoCase(held.TcpHost, entry.TcpHost);
        default:
            return false;
    }
}

/// Where the command goes counts only when there is one.
bool RemoteDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceRemote>(c.entry);
    const aceRemote& held = c.held.Remote;
    if (held.Iface != entry.Iface || !EqualNoCase(held.Command, entry.Command)) {
        return true;
    }
    if (!held.Command.empty() &&
        (AddressDiffers(held, entry) || held.Terminator != entry.Terminator)) {
        return true;
    }
    return !EqualNoCase(held.Program, entry.Program) || held.WaitPrgSync != entry.WaitPrgSync;
}

bool TrackDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceTrackFreq>(c.entry);
    const aceTrackFreq& held = c.held.TrackFreq;
    return held.GenName != entry.GenName || held.SigPathName != entry.SigPathName ||
           held.TableName != entry.TableName || held.AskOnMeasStart != entry.AskOnMeasStart ||
           held.MoniName != entry.MoniName;
}

/// Parameters count from 1; bounds 0 to 0, or none, are no parameters.
std::int32_t ParameterCount(const aceAPI& record) {
    return record.Parameters.IsAllocated() ? record.Parameters.UpperBound() : 0;
}

bool MacroDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceAPI>(c.entry);
    const aceAPI& held = c.held.Api;
    if (!EqualNoCase(held.Program, entry.Program)) {
        return true;
    }
    const std::int32_t count = ParameterCount(held);
    if (count == 0) {
        return false;
    }
    if (count != ParameterCount(entry)) {
        return true;
    }
    for (std::int32_t i = 1; i <= count; ++i) {
        if (!EqualNoCase(held.Parameters[i], entry.Parameters[i])) {
            return true;
        }
    }
    return false;
}

bool DeviceDiffers(const Comparison& c) {
    return c.held.SetDevice.DevName != RecordOf<aceSetDevice>(c.entry).DevName ||
           c.deviceSettingsChanged;
}

bool CheckDiffers(const Comparison& c) {
    if (DeviceDiffers(c)) {
        return true;
    }
    const auto& entry = RecordOf<aceSetDevice>(c.entry);
    const aceSetDevice& held = c.held.SetDevice;
    return held.CommToTable != entry.CommToTable || held.Notify != entry.Notify ||
           held.StopTest != entry.StopTest || held.WaitState != entry.WaitState ||
           held.WaitTime != entry.WaitTime || held.LoadingPos != entry.LoadingPos ||
           held.UseTimeCyc != entry.UseTimeCyc || held.CycleTime != entry.CycleTime;
}

bool AmplifierDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceSetDevice>(c.entry);
    return c.held.SetDevice.DevName != entry.DevName || c.held.SetDevice.AmpState != entry.AmpState;
}

bool SwitchUnitDiffers(const Comparison& c) {
    const auto& entry = RecordOf<aceSetDevice>(c.entry);
    return c.held.SetDevice.DevName != entry.DevName || c.held.SetDevice.Path != entry.Path;
}

/// Indexed by kind; none for those without a record.
using Compare = bool (*)(const Comparison& comparison);
constexpr Compare Comparisons[ActionKindCount] = {
    WaitDiffers,      NotifyDiffers,     RemoteDiffers, DeviceDiffers, CheckDiffers,  TrackDiffers,
    CommentDiffers,   nullptr,           nullptr,       nullptr,       nullptr,       nullptr,
    AmplifierDiffers, SwitchUnitDiffers, MacroDiffers,  nullptr,       NotifyDiffers, CheckDiffers};

/// Where each kind of record works.
struct TakeRecord {
    WorkingRecords& records;

    void operator()(const aceWait& record) const { records.Wait = record; }
    void operator()(const aceNotify& record) const { records.Notify = record; }
    void operator()(const aceRemote& record) const { records.Remote = record; }
    void operator()(const aceAPI& record) const { records.Api = record; }
    void operator()(const aceSetDevice& record) const { records.SetDevice = record; }
    void operator()(const aceTrackFreq& record) const { records.TrackFreq = record; }
    void operator()(std::int32_t) const {}
    void operator()(std::monostate) const {}
};

ActionParameter WorkingRecord(const WorkingRecords& records, RecordType type) {
    switch (type) {
        case RecordType::Wait:
            return records.Wait;
        case RecordType::Api:
            return records.Api;
        case RecordType::Notify:
            return records.Notify;
        case RecordType::Remote:
            return records.Remote;
        case RecordType::SetDevice:
            return records.SetDevice;
        case RecordType::TrackFreq:
            return records.TrackFreq;
        case RecordType::None:
            break;
    }
    return {};
}

/// The replace variables of each record that has them.
struct WithoutVariables {
    void operator()(aceNotify& record) const { record.vks = {}; }
    void operator()(aceRemote& record) const { record.vks = {}; }
    void operator()(aceAPI& record) const { record.vks = {}; }
    template <class Other>
    void operator()(Other&) const {}
};

struct WithoutRun {
    void operator()(aceRemote& record) const {
        record.DrvHdl = aceRemote::NoHandle;
        record.ProgID = 0.0;
    }
    void operator()(aceAPI& record) const { record.Freq = 0.0; }
    void operator()(aceSetDevice& record) const {
        ForgetDevices(record);
        record.LastCheck = aceSetDevice::NeverChecked;
    }
    void operator()(aceTrackFreq& record) const {
        ForgetDevices(record);
        record.Freq = 0.0;
    }
    template <class Other>
    void operator()(Other&) const {}
};

}  // namespace

void Hold(HeldAction& held, const p_Action& entry) {
    p_Action copy = entry;
    std::visit(TakeRecord{held.Records}, copy.Parameter);
    held.Action = std::move(copy);
}

p_Action ActionFromRecords(const HeldAction& held) {
    const ActionKind* const kind = FindActionKind(held.Action.ActionType);
    p_Action action = held.Action;
    action.Parameter =
        kind != nullptr ? WorkingRecord(held.Records, kind->record) : ActionParameter();
    return action;
}

bool Differs(ThreadContext& context, const HeldAction& held, const p_Action& entry,
             Boolean deviceSettingsChanged) {
    const std::int32_t kind = held.Action.ActionType;
    if (entry.ActionType != kind || FindActionKind(kind) == nullptr) {
        return true;
    }
    const Compare differs = Comparisons[kind];
    return differs != nullptr && differs({context, held.Records, entry, deviceSettingsChanged});
}

void ForgetVariables(p_Action& action) {
    std::visit(WithoutVariables(), action.Parameter);
}

void ForgetRun(p_Action& action) {
    std::visit(WithoutRun(), action.Parameter);
}

}  // namespace ace
