/// A whole test: a module is loaded from a settings file and driven from its start to its stop,
/// with a scripted operator, and the journal tells all of it.
#pragma once

#include "support/engine_fixture.h"

namespace ace::test {

class WholeTest : public HostTest {
  protected:
    WholeTest() {
        host->texts = {{6, L"&OK"},          {9044, L"Please wait"}, {9312, L"&Stop test"},
                       {9351, L"Actions"},   {9410, L"Wait"},        {9031, L"Set device"},
                       {9033, L"Wait time"}, {9058, L"Step "}};
    }
    void TearDown() override { EXPECT_EQ(host->user.TakeComplaints(), Lines{}); }

    /// The module's lists come from `settings`, a file whose lines end with line feeds.
    void Load(aceModul moduleKind, std::int32_t subRanges, StringView settings) {
        engine = std::make_unique<aceActionsEngine>(context);
        host->files[L"setup.ini"] = sim::ParseSections(settings);
        engine->LoadActions(L"setup.ini", subRanges, moduleKind);
        host->journal.Clear();
    }
    /// The operator goes on at the next message, or asks to stop: "Yes" and "No" of a question.
    void OperatorGoesOn() { host->user.Expect(L"frmComment", sim::Press(L"cmdClose")); }
    void OperatorStops() { host->user.Expect(L"frmComment", sim::Press(L"cmdStopTest")); }

    std::unique_ptr<aceActionsEngine> engine;
};

inline Lines Form(const String& controls) {
    return {L"FormHost.ShowModal(\"frmComment\", \"Actions\", " + controls + L")",
            L"FormHost.Hide(\"frmComment\")"};
}
/// A notification on the form of a thread that has not asked a question yet.
inline Lines Notified(const String& message) {
    return Journal(StandbyOn, Yielded,
                   Form(L"lblComment \"" + message +
                        L"\", imgStop, cmdClose \"&OK\", cmdStopTest \"&Stop test\" tip "
                        L"\"T(9313)\""),
                   RadiationOn, Yielded);
}
inline Lines Questioned(const String& message) {
    return Journal(
        Yielded,
        Form(L"lblComment \"" + message + L"\", imgQue, cmdClose \"Yes\", cmdStopTest \"No\""),
        Yielded);
}
/// A sound without a message: what it plays, and the pause in radiation that every notification is.
inline Lines Sounded(const String& played) {
    return {played, StandbyOn, Yielded, RadiationOn, Yielded};
}

}  // namespace ace::test
