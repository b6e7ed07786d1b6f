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
inline String Failed(const String& line, std::int32_t error) {
    return line + L" -> error " + std::to_wstring(error);
}

inline String Opened(std::int32_t fileKind = 20) {
    return Called(L"SystemServices.OpenSettingsFile", fileKind, 10, L"setup.ini", 0, 0);
}
inline String Found(const String& name) {
    return Called(L"DeviceList.GetDevice", name);
}
inline String StateOf(const String& name) {
    return Called(L"Device.State", name);
}
/// A device that was found off is activated, and asked once more.
inline Lines Woken(const String& name) {
    return {StateOf(name), Called(L"Device.Activate", name, 1), StateOf(name)};
}
/// Class numbers are those of the simulated bench: 1 monitoring, 2 broadcast generators.
inline Lines Classed(const String& name, std::int32_t deviceClass) {
    return {Called(L"Device.DeviceClass", name), Called(L"DeviceList.ClassName", deviceClass)};
}
inline Lines Loaded(const String& name, const String& section) {
    return {Called(L"Device.LoadSettings", name, true, section),
            Called(L"SettingsFile.GetSection", section)};
}
inline String UsedFor(const String& name, std::int32_t mode) {
    return Called(L"MonitorDevice.SetUseMode", name, mode);
}
inline String ChannelRead(const String& name, std::int32_t channel) {
    return Called(L"MonitorDevice.ReadChannel", name, channel);
}
inline String Progress(const String& text) {
    return Called(L"SystemServices.SetProgressText", text);
}
inline String NameOf(const String& name) {
    return Called(L"Device.Name", name);
}
inline String ErrorShown() {
    return L"Form \"frmGpibError\"";
}
inline String TestAsked() {
    return L"SystemServices.GetCurrentTest()";
}
/// What the comparison of a reading with the mark of a failed read looks like.
inline String MarkCompared(double reading) {
    return Called(L"Utilities.IsSameValue", reading, 12345.0);
}
/// A monitoring device that is on is made ready for a set or a check of section `number`; it was
/// found before, or is looked up now.
inline Lines Prepared(const String& name, std::int32_t number, std::int32_t mode, bool isFirst) {
    return Journal(Opened(), isFirst ? Lines{Found(name)} : Lines{}, StateOf(name),
                   Classed(name, 1), UsedFor(name, mode),
                   Loaded(name, L"Actions" + std::to_wstring(number) + L"-Device"));
}

// ---- fixture -----------------------------------------------------------------------------------

/// Routines on a bench; the settings file of the module `aceTemplate` and of some others is there.
class DeviceTest : public RoutineTest {
  protected:
    DeviceTest() {
        host->texts = {{9420, L"%1 has failed"}};
        context.ModuleFileNames.fill(L"setup.ini");
        context.CommentForm = comments;
    }
    /// An unused answer is a message that never came.
    void TearDown() override { EXPECT_TRUE(comments->answers.empty()) << "unused answers"; }

    template <class Kind>
    std::shared_ptr<Kind> Add(const String& name) {
        return host->bench.Add<Kind>(*host, name);
    }
    /// The operator reads of this failure on the error form and presses `button`.
    void ExpectError(const String& button, const String& heading, const String& device,
                     std::int32_t number, const String& text) {
        host->user.Expect({L"frmGpibError",
                           {sim::Press(button)},
                           {{L"lblMessage", heading},
                            {L"txtError", L"T(9322):\t" + device + L"\r\nT(9320)\t" +
                                              std::to_wstring(number) + L"\r\n\t" + text}}});
    }
    /// Sets the clock to a second of the day, fractions included.
    void SetClock(double seconds) { host->startOfDay = seconds - host->Now() / 1000.0; }

    std::shared_ptr<FakeCommentForm> comments = std::make_shared<FakeCommentForm>(*host);
};

}  // namespace ace::test
