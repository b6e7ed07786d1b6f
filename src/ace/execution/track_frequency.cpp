#include <ace/core/borrowed_text.h>
#include <ace/core/text.h>
#include <ace/execution/device_access.h>
#include <ace/execution/frequency_followers.h>
#include <ace/execution/status_line.h>
#include <ace/execution/track_frequency.h>
#include <ace/host/monitor_device.h>

namespace ace {

namespace {

/// A delay of 0 shows the box as well.
void LetSettle(ThreadContext& context, const aceTrackFreq& record) {
    const std::int32_t delay = record.DelayTime;
    BorrowedText text(context);
    text->append(L"Wait for Monitoring ... ");
    AppendInteger(*text, delay);
    text->append(L" ms");
    AppendWaitHint(context, *text);
    BorrowedText title(context);
    AppendFollowerTitle(context, *title);
    std::int32_t style = IUserDialogs::Information;
    context.SystemServices().ShowTimedMessage(*text, style, *title, delay);
}

/// An activation that did not help is no failure here.
void Tune(aceTrackFreq& record) {
    const std::shared_ptr<IDevice> common = Required(Required(record.MoniDev)->CommonDevice());
    if (common->State() == IDevice::NotActive) {
        common->Activate(1);
    }
    if (const std::shared_ptr<IMonitorDevice> device = record.MoniDev) {
        std::int32_t mode = IMonitorDevice::UseToTrack;
        device->SetUseMode(mode);
        device->SetFrequency(record.Freq);
    }
}

/// False when the device can't be found.
bool Track(ThreadContext& context, aceTrackFreq& record) {
    if (TestFollowsNoFrequency(context)) {
        return true;
    }
    if (!record.MoniDev) {
        record.MoniDev = FindDevice<IMonitorDevice>(context, record.MoniName);
        if (!record.MoniDev) {
            return false;
        }
    }
    Tune(record);
    LetSettle(context, record);
    return true;
}

}  // namespace

Boolean modActions::TrackMonitor(ThreadContext& context, aceTrackFreq& record, Boolean& ignoreAll) {
    return RunFollower(context, record, ignoreAll, [&] { return Track(context, record); });
}

}  // namespace ace
