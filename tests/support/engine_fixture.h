/// An engine object on a simulated host, actions to fill its lists with, and the lines that their
/// runs leave in the journal.
#pragma once

#include <string>

#include <ace/core/actions_engine.h>

#include "support/fake_forms.h"
#include "support/fixture.h"

namespace ace::test {

// ---- actions -----------------------------------------------------------------------------------

inline p_Action WaitFor(double milliseconds) {
    return Action(atWait, aceWait{milliseconds});
}
inline p_Action Tell(const String& message) {
    aceNotify record;
    record.Message = message;
    return Action(atNotify, record);
}
inline p_Action Ask(const String& message) {
    aceNotify record;
    record.Message = message;
    return Action(atQuestion, record);
}
inline p_Action Comment(bool generatorOff) {
    aceNotify record;
    record.GeneratorOff = generatorOff;
    return Action(atComment, record);
}
/// An action that fails with a type mismatch when it runs.
inline p_Action Broken() {
    return Action(atWait);
}

// ---- lines of the journal ----------------------------------------------------------------------

using Lines = std::vector<String>;

inline void Append(Lines& lines, const String& line) {
    lines.push_back(line);
}
inline void Append(Lines& lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}
/// Lines and groups of lines in their order.
template <class... Parts>
Lines Journal(const Parts&... parts) {
    Lines lines;
    (Append(lines, parts), ...);
    return lines;
}

inline const String Yielded = L"Platform.Yield()";
inline const String StatusCleared = L"StatusDisplay.ShowStatus(\"\", false, false)";
inline const String StandbyOn = L"DeviceList.PostEvent(\"ActionEngine\", 3, \"Standby On\")";
inline const String RadiationOn = L"DeviceList.PostEvent(\"ActionEngine\", 3, \"Radiation on\")";

/// What a wait does: `seconds` as it is shown, and the milliseconds that the host is told.
inline Lines Waited(const String& seconds, std::int32_t milliseconds) {
    return {L"StatusDisplay.ShowStatus(\"Wait " + seconds + L" s\", true, true)",
            L"SystemServices.ShowTimedMessage(\"Wait " + seconds +
                L" s\\r\\nPlease wait\", 64, \"Wait\", " + std::to_wstring(milliseconds) + L")",
            StatusCleared};
}
/// A wait of whole milliseconds below 10.
inline Lines Waited(std::int32_t milliseconds) {
    return Waited(L"0.00" + std::to_wstring(milliseconds), milliseconds);
}
inline String Shown(const String& message, bool question) {
    return L"CommentForm.DisplayMessage(\"" + message + (question ? L"\", true)" : L"\", false)");
}
inline Lines Told(const String& message) {
    return {StandbyOn, Yielded, Shown(message, false), RadiationOn, Yielded};
}
inline Lines Asked(const String& message) {
    return {Yielded, Shown(message, true), Yielded};
}
inline String InRange(std::int32_t lower, std::int32_t value, std::int32_t upper) {
    return L"Utilities.InRange(" + std::to_wstring(lower) + L", " + std::to_wstring(value) + L", " +
           std::to_wstring(upper) + L")";
}
inline String Reported(std::int32_t number, const String& description) {
    return L"TraceLog.ReportError(" + std::to_wstring(number) + L", \"" + description + L"\", 1)";
}
inline const String MismatchReported = Reported(13, L"type mismatch");
inline const String SubscriptReported = Reported(9, L"subscript out of range");
inline String Start(const String& module, const String& procedure, const String& message) {
    return L"TraceLog.WriteLine(\"start\", \"ZOLTA_ActionsEngine\", \"" + module + L"\", \"" +
           procedure + L"\", \"" + message + L"\", \"1\")";
}
inline String End(const String& procedure) {
    return L"TraceLog.WriteLine(\"end\", \"\", \"\", \"" + procedure + L"\", \"\", \"1\")";
}
/// The two lines of an action whose run leaves no other.
inline const Lines ActionTraced = {Start(L"modActions (Code)", L"DoAction", L""), End(L"DoAction")};

// ---- fixture -----------------------------------------------------------------------------------

/// One engine whose comment form answers from a queue. The journal starts behind the construction.
class EngineTest : public HostTest {
  protected:
    EngineTest() {
        host->texts = {{9410, L"Wait"}, {9044, L"Please wait"}};
        engine = std::make_unique<aceActionsEngine>(context);
        context.CommentForm = comments;
        MakeServices();
        host->journal.Clear();
    }
    /// An unused answer is a message that never came.
    void TearDown() override { EXPECT_TRUE(comments->answers.empty()) << "unused answers"; }

    /// Makes what is made on first use, so that no journal tells of it.
    void MakeServices() {
        context.TraceLog();
        context.Utilities();
        context.SystemServices();
        context.DeviceList();
        context.Platform();
        context.FormHost();
    }
    EngineState& State() { return engine->State(); }
    /// Makes `count` numbered sets, all empty.
    void MakeSets(DynArray<p_Subrange> ModuleLists::*sets, std::int32_t ModuleLists::*number,
                  std::int32_t count) {
        (State().*sets).Redim(0, count - 1);
        State().*number = count;
    }

    std::shared_ptr<FakeCommentForm> comments = std::make_shared<FakeCommentForm>(*host);
    std::unique_ptr<aceActionsEngine> engine;
};

}  // namespace ace::test
