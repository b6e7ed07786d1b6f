/// What generators and monitoring devices share that follow the frequency.
#pragma once

#include <ace/execution/device_failure.h>

namespace ace {

/// The host runs a test that has no use for devices that follow the frequency. Errors of the host
/// come out; no message runs.
bool TestFollowsNoFrequency(ThreadContext& context);

/// Appends the title of the boxes of the actions that follow the frequency. Errors of the language
/// data come out.
void AppendFollowerTitle(ThreadContext& context, String& title);

/// Runs an action that follows the frequency: `act` answers whether it found all its objects. When
/// it did not, or fails, the operator is asked unless `ignoreAll` is set; true when he stops the
/// test. Intentional: the dialog names the record's generator for both kinds, which is empty for a
/// mere tracking of a monitoring device. Errors of the dialog come out.
template <class Act>
Boolean RunFollower(ThreadContext& context, const aceTrackFreq& record, Boolean& ignoreAll,
                    Act&& act) {
    DeviceFailure failure;
    try {
        if (act()) {
            return false;
        }
    } catch (...) {
        failure = CurrentFailure();
    }
    return ignoreAll ? Boolean(false)
                     : ShowDeviceError(context, atTrackFreq, ignoreAll, record.GenName,
                                       failure.number, failure.text);
}

}  // namespace ace
