/// An engine object on a simulated host, actions to fill its lists with, and the lines that their
/// runs leave in the journal.
#pragma once

#include <string>

#include <ace/core/actions_engine.h>

#include "support/fake_forms.h"
#include "support/fixture.h"

namespace ace::test {

// ---- actions -----------------------------------------------------------------------------------

p_Action WaitFor(double milliseconds);
p_Action Tell(const String& message);
p_Action Ask(const String& message);
p_Action Comment(bool generatorOff);
/// An action that fails with a type mismatch when it runs.
p_Action Broken();

// ---- lines of the journal ----------------------------------------------------------------------

using Lines = std::vector<String>;

void Append(Lines& lines, const String& line);
void Append(Lines& lines, const Lines& more);
/// Lines and groups of lines in their order.
template <class... Parts>
Lines Journal(const Parts&... parts) {
    Lines lines;
    (Append(lines, parts), ...);
    return lines;
}

inline const String Yielded = L"Platform.Yield()";
/// The host's comparison of the new and the last frequency, in the journal's writing of numbers.
inline String Compared(const String& frequency, const String& last) {
    return L"Utilities.IsEqual(" + frequency + L", " + last + L")";
}
inline const String StandbyOn = L"DeviceList.PostEvent(\"ActionEngine\", 3, \"Standby On\")";
inline const String RadiationOn = L"DeviceList.PostEvent(\"ActionEngine\", 3, \"Radiation on\")";

/// What a wait does: `seconds` as it is shown, and the milliseconds that the host is told.
Lines Waited(const String& seconds, std::int32_t milliseconds);
/// A wait of whole milliseconds below 10.
Lines Waited(std::int32_t milliseconds);
String Shown(const String& message, bool question);
Lines Told(const String& message);
Lines Asked(const String& message);
String InRange(std::int32_t lower, std::int32_t value, std::int32_t upper);
String Reported(std::int32_t number, const String& description);
inline const String MismatchReported = Reported(13, L"type mismatch");
inline const String SubscriptReported = Reported(9, L"subscript out of range");
String Start(const String& module, const String& procedure, const String& message);
String End(const String& procedure);
/// The two lines of an action whose run leaves no other.
inline const Lines ActionTraced = {Start(L"modActions (Code)", L"DoAction", L""), End(L"DoAction")};

// ---- fixture -----------------------------------------------------------------------------------

/// One engine whose comment form answers from a queue. The journal starts behind the construction.
class EngineTest : public HostTest {
  protected:
    EngineTest();
    ~EngineTest() override;
    /// An unused answer is a message that never came.
    void TearDown() override;

    /// Makes what is made on first use, so that no journal tells of it.
    void MakeServices();
    EngineState& State() { return engine->State(); }
    /// Makes `count` numbered sets, all empty.
    void MakeSets(DynArray<p_Subrange> ModuleLists::*sets, std::int32_t ModuleLists::*number,
                  std::int32_t count);

    std::shared_ptr<FakeCommentForm> comments;
    std::unique_ptr<aceActionsEngine> engine;
};

}  // namespace ace::test
