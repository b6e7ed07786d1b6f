#include "support/engine_fixture.h"

namespace ace::test {

p_Action WaitFor(double milliseconds) {
    return Action(atWait, aceWait{milliseconds});
}

p_Action Tell(const String& message) {
    aceNotify record;
    record.Message = message;
    return Action(atNotify, record);
}

p_Action Ask(const String& message) {
    aceNotify record;
    record.Message = message;
    return Action(atQuestion, record);
}

p_Action Comment(bool generatorOff) {
    aceNotify record;
    record.GeneratorOff = generatorOff;
    return Action(atComment, record);
}

p_Action Broken() {
    return Action(atWait);
}

void Append(Lines& lines, const String& line) {
    lines.push_back(line);
}

void Append(Lines& lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

Lines Waited(const String& seconds, std::int32_t milliseconds) {
    return {L"StatusDisplay.ShowStatus(\"Wait " + seconds + L" s\", true, true)",
            L"SystemServices.ShowTimedMessage(\"Wait " + seconds +
                L" s\\r\\nPlease wait\", 64, \"Wait\", " + std::to_wstring(milliseconds) + L")",
            StatusCleared};
}

Lines Waited(std::int32_t milliseconds) {
    return Waited(L"0.00" + std::to_wstring(milliseconds), milliseconds);
}

String Shown(const String& message, bool question) {
    return L"CommentForm.DisplayMessage(\"" + message + (question ? L"\", true)" : L"\", false)");
}

Lines Told(const String& message) {
    return {StandbyOn, Yielded, Shown(message, false), RadiationOn, Yielded};
}

Lines Asked(const String& message) {
    return {Yielded, Shown(message, true), Yielded};
}

String InRange(std::int32_t lower, std::int32_t value, std::int32_t upper) {
    return L"Utilities.InRange(" + std::to_wstring(lower) + L", " + std::to_wstring(value) + L", " +
           std::to_wstring(upper) + L")";
}

String Reported(std::int32_t number, const String& description) {
    return L"TraceLog.ReportError(" + std::to_wstring(number) + L", \"" + description + L"\", 1)";
}

String Start(const String& module, const String& procedure, const String& message) {
    return L"TraceLog.WriteLine(\"start\", \"ZOLTA_ActionsEngine\", \"" + module + L"\", \"" +
           procedure + L"\", \"" + message + L"\", \"1\")";
}

String End(const String& procedure) {
    return L"TraceLog.WriteLine(\"end\", \"\", \"\", \"" + procedure + L"\", \"\", \"1\")";
}

EngineTest::EngineTest() : comments(std::make_shared<FakeCommentForm>(*host)) {
    host->texts = {{9410, L"Wait"}, {9044, L"Please wait"}};
    engine = std::make_unique<aceActionsEngine>(context);
    context.CommentForm = comments;
    MakeServices();
    host->journal.Clear();
}

EngineTest::~EngineTest() = default;

void EngineTest::TearDown() {
    EXPECT_TRUE(comments->answers.empty()) << "unused answers";
}

void EngineTest::MakeServices() {
    context.TraceLog();
    context.Utilities();
    context.SystemServices();
    context.DeviceList();
    context.Platform();
    context.FormHost();
}

void EngineTest::MakeSets(DynArray<p_Subrange> ModuleLists::*sets,
                          std::int32_t ModuleLists::*number, std::int32_t count) {
    (State().*sets).Redim(0, count - 1);
    State().*number = count;
}

}  // namespace ace::test
