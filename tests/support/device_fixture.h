/// A bench of simulated devices below the routines that use them, and the lines that these leave in
/// the journal.
#pragma once

#include "sim/sim_devices.h"
#include "support/engine_fixture.h"
#include "support/remote_fixture.h"

namespace ace::test {

// ---- lines of the journal ----------------------------------------------------------------------

/// The line of a host call.
template <class... Arguments>
String Called(StringView operation, const Arguments&... arguments) {
    return String(operation) + L"(" + sim::ArgumentText(sim::CallText(arguments...)) + L")";
}
/// The same for a call that failed by script.
String Failed(const String& line, std::int32_t error);

String Opened(std::int32_t fileKind = 20);
String Found(const String& name);
String StateOf(const String& name);
/// A device that was found off is activated, and asked once more.
Lines Woken(const String& name);
/// Class numbers are those of the simulated bench: 1 monitoring, 2 broadcast generators.
Lines Classed(const String& name, std::int32_t deviceClass);
Lines Loaded(const String& name, const String& section);
String UsedFor(const String& name, std::int32_t mode);
String ChannelRead(const String& name, std::int32_t channel);
String Progress(const String& text);
String NameOf(const String& name);
String ErrorShown();
String TestAsked();
/// What the comparison of a reading with the mark of a failed read looks like.
String MarkCompared(double reading);
/// A monitoring device that is on is made ready for a set or a check of section `number`; it was
/// found before, or is looked up now.
Lines Prepared(const String& name, std::int32_t number, std::int32_t mode, bool isFirst);

// ---- fixture -----------------------------------------------------------------------------------

/// Routines on a bench; the settings file of the module `aceTemplate` and of some others is there.
class DeviceTest : public RoutineTest {
  protected:
    DeviceTest();
    ~DeviceTest() override;
    /// An unused answer is a message that never came.
    void TearDown() override;

    template <class Kind>
    std::shared_ptr<Kind> Add(const String& name) {
        return host->bench.Add<Kind>(*host, name);
    }
    /// The operator reads of this failure on the error form and presses `button`.
    void ExpectError(const String& button, const String& heading, const String& device,
                     std::int32_t number, const String& text);
    /// Sets the clock to a second of the day, fractions included.
    void SetClock(double seconds) { host->startOfDay = seconds - host->Now() / 1000.0; }

    std::shared_ptr<FakeCommentForm> comments;
};

}  // namespace ace::test
