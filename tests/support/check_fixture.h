/// Checks of the equipment under test with one monitoring device.
#pragma once

#include <ace/execution/device_actions.h>

#include "support/device_fixture.h"

namespace ace::test {

/// The device "EUT" watches channel 7. Its readings are scripted; it reads 0 behind them.
class CheckTest : public DeviceTest {
  protected:
    CheckTest() {
        record.DevName = L"EUT";
        record.ChanNo = 7;
        Read({});
    }
    Boolean Check() { return modActions::SetCheckDevice(context, record, false, ignoreAll, 0); }
    void Read(std::deque<double> readings) { monitor->readings[7] = std::move(readings); }
    /// What a check asks before it reads, and the reading with what is asked about it.
    static Lines ReadCalls(double reading, bool isFirst = true) {
        return Journal(Prepared(L"EUT", 7, 4, isFirst), ChannelRead(L"EUT", 7),
                       MarkCompared(reading), StateOf(L"EUT"));
    }
    /// The calls of a check that is not due.
    static Lines Skipped(bool isFirst) {
        return Journal(Opened(), isFirst ? Lines{Found(L"EUT")} : Lines{}, StateOf(L"EUT"),
                       Classed(L"EUT", 1));
    }
    static Lines ShownSeconds(const String& seconds) {
        return {NameOf(L"EUT"), Progress(L"EUT has failed - " + seconds + L"s")};
    }
    /// One second of a wait, and the seconds that are left then.
    static Lines Round(const String& seconds) {
        return Journal(L"Utilities.Wait(1000)", ChannelRead(L"EUT", 7), ShownSeconds(seconds));
    }
    void CheckEvery(double seconds) {
        record.UseTimeCyc = true;
        record.CycleTime = seconds;
    }
    void WaitFor(float seconds) {
        record.WaitState = true;
        record.WaitTime = seconds;
    }

    std::shared_ptr<sim::SimMonitor> monitor = Add<sim::SimMonitor>(L"EUT");
    aceSetDevice record;
};

inline const String ProgressCleared = Progress(L"");

}  // namespace ace::test
