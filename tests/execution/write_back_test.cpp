/// What goes back into the list behind an action: the whole working record where another action has
/// taken it meanwhile, and else only what a run changes.
#include <ace/execution/walks.h>
#include <ace/host/switch_unit.h>

#include "support/device_moments.h"

namespace ace::test {
namespace {

p_Action Command(const String& text, std::int32_t address) {
    aceRemote record;
    record.Command = text;
    record.GpibAddress = address;
    record.TcpHost = L"host of " + text;
    return Action(atRemote, record);
}
p_Action ToPath(const String& path) {
    p_Action action = OnDevice(atSwitchUnit, L"Unit");
    RecordOf<aceSetDevice>(action).Path = path;
    return action;
}
p_Action ToState(IAmplifierState state) {
    p_Action action = OnDevice(atSwitchAmp, L"Amp");
    RecordOf<aceSetDevice>(action).AmpState = state;
    return action;
}

/// A kind that writes back, another action with the same record, and the last call of the host in
/// the first one.
struct Row {
    const char* name;
    p_Action outer;
    p_Action inner;
    const wchar_t* operation;
};
void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}
const Row Rows[] = {
    {"Command", Command(L"*RST", 5), Command(L"*CLS", 6), L"GpibDriver.WriteString"},
    {"Set", OnDevice(atSetDevice, L"EUT"), OnDevice(atSetDevice, L"Other"),
     L"MonitorDevice.SetChannel"},
    {"Check", OnDevice(atCheckEut, L"EUT"), OnDevice(atCheckEut, L"Other"),
     L"MonitorDevice.ReadChannel"},
    {"Monitor", OnDevice(atMonitorEUT, L"EUT"), OnDevice(atMonitorEUT, L"Other"),
     L"MonitorDevice.ReadChannel"},
    {"Amplifier", ToState(1), ToState(3), L"Amplifier.SetState"},
    {"Path", ToPath(L"A"), ToPath(L"B"), L"SwitchUnit.SwitchPath"},
    {"Tracking", Follow(L"", L"EUT"), Follow(L"", L"Other"), L"MonitorDevice.SetFrequency"},
    {"Generator", Follow(L"Gen"), Follow(L"Gen 2"), L"RfGenerator.Execute"},
};

class WriteBackTest : public DeviceMoments, public ::testing::WithParamInterface<Row> {
  protected:
    WriteBackTest() {
        Add<sim::SimMonitor>(L"EUT");
        Add<sim::SimMonitor>(L"Other");
        Add<sim::SimAmplifier>(L"Amp");
        Add<sim::SimSwitchUnit>(L"Unit");
        Add<sim::SimRfGenerator>(L"Gen");
        Add<sim::SimRfGenerator>(L"Gen 2");
        Add<sim::SimCalTable>(L"Levels");
        Fill(State().MainTest, EnterList, {GetParam().outer});
    }
    /// The host does `act` within the action.
    void Within(std::function<void()> act) {
        host->journal.Observe([this, act = std::move(act)](const auto& entry) {
            if (entry.operation == GetParam().operation && !std::exchange(x_done, true)) {
                act();
            }
        });
    }
    const p_Action& Outer() { return State().MainTest.Enter[0]; }
    const p_Action& Inner() { return State().MainTest.Leave[0]; }
    void TearDown() override {
        EngineTest::TearDown();
        EXPECT_TRUE(x_done);
    }

  private:
    bool x_done = false;
};

INSTANTIATE_TEST_SUITE_P(Kinds, WriteBackTest, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.name; });

/// Names and settings too: the element then is the inner action's.
TEST_P(WriteBackTest, ARecordThatAnInnerActionTookGoesBackAsAWhole) {
    Fill(State().MainTest, LeaveList, {GetParam().inner});
    Within([&] { EXPECT_FALSE(engine->StopTest()); });
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(Outer().Parameter, Inner().Parameter);
    EXPECT_NE(Outer().Parameter, GetParam().outer.Parameter);
}

TEST_P(WriteBackTest, AnInnerActionOfAnotherRecordTypeChangesNothing) {
    EXPECT_FALSE(engine->StartTest());
    const ActionParameter undisturbed = Outer().Parameter;
    EXPECT_FALSE(engine->StopTest());  // a generator is woken before a test only
    Fill(State().MainTest, EnterList, {GetParam().outer});
    Fill(State().MainTest, LeaveList, {WaitFor(0)});
    Within([&] { EXPECT_FALSE(engine->StopTest()); });
    EXPECT_FALSE(engine->StartTest());
    if (GetParam().outer.ActionType == atRemote) {
        EXPECT_EQ(RecordOf<aceRemote>(Outer()).Command, L"*RST");
        EXPECT_EQ(RecordOf<aceRemote>(Outer()).TcpHost, L"host of *RST");
    } else {
        EXPECT_EQ(Outer().Parameter, undisturbed);
    }
}

/// A record that the host takes away comes back, as it was when the action began.
TEST_P(WriteBackTest, AnElementWithoutItsRecordGetsTheWholeOne) {
    Within([&] { State().MainTest.Enter[0].Parameter = std::int32_t{5}; });
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(Outer().Parameter.index(), GetParam().outer.Parameter.index());
}

// ---- what a run changes ------------------------------------------------------------------------

class WriteBackFields : public DeviceMoments {};

TEST_F(WriteBackFields, ASettingThatTheHostWritesWhileItsActionRunsStays) {
    Fill(State().MainTest, EnterList, {Command(L"*RST", 5)});
    host->journal.Observe([&](const auto& entry) {
        if (entry.operation == L"GpibDriver.WriteString") {
            RecordOf<aceRemote>(State().MainTest.Enter[0]).Command = L"*CLS";
        }
    });
    EXPECT_FALSE(engine->StartTest());
    const auto& record = RecordOf<aceRemote>(State().MainTest.Enter[0]);
    EXPECT_EQ(record.Command, L"*CLS");
    EXPECT_GT(record.DrvHdl, -1);
}

/// The walk wrote into an element that was running, and nothing took its record.
TEST_F(WriteBackFields, ReplaceVariablesOfAnInnerWalkDoNotOutliveTheAction) {
    Fill(State().MainTest, EnterList, {Command(L"*RST", 5)});
    host->journal.Observe([&](const auto& entry) {
        if (entry.operation == L"GpibDriver.WriteString") {
            State().VKSReplaceVars.count = 7;
            TakeReplaceVariables(State(), State().MainTest.Enter[0]);
        }
    });
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(RecordOf<aceRemote>(State().MainTest.Enter[0]).vks.count, 0);
}

/// A unit that answers with another name of the path, which is handed over by reference.
class RenamingUnit final : public DefaultDevice, public DefaultSwitchUnit {
  public:
    std::int32_t State() override { return Active; }
    void SwitchPath(String& path) override { path += L"'"; }
};

TEST_F(WriteBackFields, APathThatTheUnitRenamesStaysInTheAction) {
    p_Action action = ToPath(L"A");
    RecordOf<aceSetDevice>(action).Device = std::make_shared<RenamingUnit>();
    Fill(State().MainTest, EnterList, {action});
    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(RecordOf<aceSetDevice>(State().MainTest.Enter[0]).Path, L"A''");
}

}  // namespace
}  // namespace ace::test
