#include <algorithm>

#include <ace/core/action_kinds.h>
#include <ace/core/action_lists.h>
#include <ace/core/cleaning.h>
#include <ace/core/operation.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

/// The kinds that are treated in a list. Intentional: a remote action of the `Freq` list is not
/// among them: its bus device stays open.
struct CleanedList {
    ListFields list;
    KindSet kinds;
};
constexpr CleanedList CleanedLists[] = {
    {EnterList,
     KindSet(atRemote, atSetDevice, atCheckEut, atMonitorEUT, atSwitchAmp, atSwitchUnit)},
    {LeaveList, KindSet(atRemote, atSetDevice, atCheckEut, atSwitchAmp, atSwitchUnit)},
    {FreqList, KindSet(atSetDevice, atCheckEut, atTrackFreq, atSwitchUnit)},
    {MlcList, KindSet(atRemote, atSetDevice, atCheckEut, atSwitchUnit)},
};

void CleanRemote(ThreadContext& context, const p_Action& action) {
    aceRemote& record = context.ReaderRecords.Remote;
    record = RecordOf<aceRemote>(action);
    if (record.Iface == aceRemote::Gpib) {
        CloseBusDevice(context, record);
    }
}

void CleanTrackFreq(ThreadContext& context, const p_Action& action) {
    aceTrackFreq& record = context.ReaderRecords.TrackFreq;
    record = RecordOf<aceTrackFreq>(action);
    ForgetDevices(record);
}

void CleanSetDevice(ThreadContext& context, const p_Action& action) {
    aceSetDevice& record = context.ReaderRecords.SetDevice;
    record = RecordOf<aceSetDevice>(action);
    ForgetDevices(record);
}

void CleanAction(ThreadContext& context, const p_Action& action) {
    switch (action.ActionType) {
        case atRemote:
            CleanRemote(context, action);
            break;
        case atTrackFreq:
            CleanTrackFreq(context, action);
            break;
        default:
            CleanSetDevice(context, action);
            break;
    }
}

/// How many elements both a count and its array have. Any beyond could only fail and be passed
/// over, and the count that a failed load leaves may be a huge one.
template <class T>
std::int32_t Reachable(std::int32_t count, const DynArray<T>& array) {
    return static_cast<std::int32_t>(
        std::min(static_cast<std::size_t>(std::max(count, 0)), array.Size()));
}

}  // namespace

void modActions::CleanSubrange(ThreadContext& context, const p_Subrange& set) {
    ResumeNext next;
    for (const CleanedList& cleaned : CleanedLists) {
        const DynArray<p_Action>& actions = set.*cleaned.list.actions;
        const std::int32_t end = Reachable(set.*cleaned.list.count, actions);
        for (std::int32_t i = 0; i < end; ++i) {
            next([&] {
                const p_Action& action = actions[i];
                if (cleaned.kinds.Has(action.ActionType)) {
                    CleanAction(context, action);
                }
            });
        }
    }
}

void CloseBusDevice(ThreadContext& context, aceRemote& record) {
    if (record.DrvHdl <= aceRemote::NoHandle) {
        return;
    }
    ResumeNext next;
    next([&] { context.GpibDriver().CloseDevice(NarrowToShort(record.DrvHdl), 0); });
    record.DrvHdl = aceRemote::NoHandle;
}

void CleanLists(EngineState& state) {
    const ModuleRow* module = FindModule(state.Modul);
    if (module == nullptr) {
        return;
    }
    ResumeNext next;
    for (const FixedSet& fixed : module->AllFixed()) {
        modActions::CleanSubrange(state.Context, state.*fixed.set);
    }
    for (const NumberedSets& numbered : module->AllNumbered()) {
        const DynArray<p_Subrange>& sets = state.*numbered.sets;
        const std::int32_t end = Reachable(state.*numbered.count, sets);
        for (std::int32_t i = 0; i < end; ++i) {
            next([&] { modActions::CleanSubrange(state.Context, sets[i]); });
        }
    }
}

}  // namespace ace
