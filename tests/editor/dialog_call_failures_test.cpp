/// Each host call of a session with the action dialog fails in turn: the lists are as before or as
/// after it, and the next session works.
#include "editor/editor_sweep_rig.h"
#include "sim/form_acts.h"

namespace ace::test {
namespace {

using sim::FaultScript;

const String Before = L"1[1]";

/// What the operator does between a double click and OK.
struct DialogSession {
    const char* name;
    StringView item;  ///< of the list of kinds; empty for the line
    std::vector<sim::FormAct> acts;
    String after;  ///< the start list behind OK
};
void PrintTo(const DialogSession& row, std::ostream* out) {
    *out << row.name;
}

const sim::FormAct Confirm = sim::Press(L"cmdOK");

const DialogSession Sessions[] = {
    {"NewWait", L"ACT:0", {sim::Type(L"txtWait", L"3"), Confirm}, L"2[1 3]"},
    {"EditedWait", L"", {sim::Type(L"txtWait", L"3"), Confirm}, L"1[3]"},
    {"Notification",
     L"ACT:1",
     {sim::Tick(L"chkBeep", true), sim::Press(L"cmdTestAction(0)"), Confirm},
     L"2[1 -]"},
    {"Command",
     L"ACT:2",
     {sim::Type(L"txtGpibCommand", L"*RST"), sim::Choose(L"cboIface", 1),
      sim::Press(L"cmdTestAction(1)"), Confirm},
     L"2[1 -]"},
    {"Cancelled",
     L"ACT:2",
     {sim::Type(L"txtGpibCommand", L"*RST"), sim::PressKey(Keys::Escape)},
     L"1[1]"},
};

class DialogCallFailures : public ::testing::TestWithParam<DialogSession> {
  protected:
    static void OpenAtStart(SweepRig& rig) {
        Open(rig, GetParam().item.empty() ? L"CHI0ETE" : L"ETE");
    }
    /// The session from the double click on: the number of the error that comes out.
    static std::int32_t Run(SweepRig& rig) {
        rig.host->user.TakeComplaints();
        rig.host->user.Expect({L"frmEditor", GetParam().acts, {}});
        EditorControls& controls = ControlsOf(rig);
        return ErrorOf([&] {
            if (GetParam().item.empty()) {
                controls.tree.DoubleClick(L"CHI0ETE");
            } else {
                controls.list.DoubleClick(String(GetParam().item));
            }
        });
    }
    /// False when the session has fewer calls than that.
    static bool FailCall(std::size_t k, FaultScript::Until until) {
        SweepRig rig;
        MakeClosed(rig, {WaitFor(1000)});
        OpenAtStart(rig);
        rig.host->journal.Clear();
        rig.host->faults.FailCall(k, SweepError, until);
        const std::int32_t error = Run(rig);
        rig.host->faults.Clear();
        EXPECT_TRUE(error == 0 || error == SweepError) << error << " at call " << k;
        const bool hasFailed = FailedIn(rig);
        const String left = StartList(rig.engine->State());
        EXPECT_TRUE(left == GetParam().after || (left == Before && error != 0))
            << testing::PrintToString(left) << " at call " << k;
        EXPECT_EQ(static_cast<bool>(rig.engine->Change()), left != Before) << "at call " << k;
        if (left == Before) {
            ExpectNextToWork(rig, k);
        }
        return hasFailed;
    }
    static bool FailedIn(const SweepRig& rig) {
        const auto& entries = rig.host->journal.Entries();
        return std::ranges::any_of(entries, [](const auto& entry) { return entry.error != 0; });
    }
    static void ExpectNextToWork(SweepRig& rig, std::size_t k) {
        OpenAtStart(rig);
        EXPECT_EQ(Run(rig), 0) << "behind the failure of call " << k;
        EXPECT_EQ(StartList(rig.engine->State()), GetParam().after) << "behind call " << k;
        EXPECT_EQ(StartList(PartsOf(rig).lists), GetParam().after) << "behind call " << k;
    }
};

TEST_P(DialogCallFailures, OneCallThatFailsLeavesTheListsInOrder) {
    std::size_t k = 1;
    while (FailCall(k, FaultScript::Until::Once)) {
        ++k;
    }
    EXPECT_GT(k, 10U);
}

TEST_P(DialogCallFailures, CallsThatFailFromThereOnDoSoToo) {
    std::size_t k = 1;
    while (FailCall(k, FaultScript::Until::ForEver)) {
        ++k;
    }
    EXPECT_GT(k, 10U);
}

INSTANTIATE_TEST_SUITE_P(Each, DialogCallFailures, ::testing::ValuesIn(Sessions),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
}  // namespace ace::test
