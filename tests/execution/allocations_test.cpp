#include <ace/core/actions_engine.h>
#include <ace/execution/dispatcher.h>
#include <ace/host/switch_unit.h>

#include "support/allocation_counter.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

/// Walk and dispatcher on a host that does nothing and allocates nothing, tracing off. Every row is
/// run twice before it is counted, so that the working records have their size.
class AllocationsTest : public ::testing::Test {
  protected:
    template <class Act>
    static std::size_t SteadyAllocationsOf(Act&& act) {
        act();
        act();
        return AllocationsOf(act);
    }
    EngineState& State() { return engine.State(); }

    ThreadContext context;
    aceActionsEngine engine{context};
};

constexpr std::size_t Many = 100;

/// A text far beyond what a string holds without allocating.
String Long(const String& text) {
    return text + String(60, L'x');
}
aceVKSVar Variables() {
    aceVKSVar variables;
    variables.count = 2;
    variables.strSearch.Redim(0, 1);
    variables.valReplace.Redim(0, 1);
    for (std::int32_t i = 0; i < 2; ++i) {
        variables.strSearch[i] = Long(L"#SEARCH#");
        variables.valReplace[i] = Long(L"value");
    }
    return variables;
}
aceRemote IdleRemote() {
    aceRemote record;
    record.TcpHost = Long(L"host");
    record.vks = Variables();
    return record;
}
aceTrackFreq IdleTracking() {
    aceTrackFreq record;
    record.TableName = Long(L"table");
    record.SigPathName = Long(L"path");
    return record;
}
p_Action Comment() {
    aceNotify record;
    record.Message = Long(L"comment");
    return Action(atComment, record);
}
std::vector<p_Action> Times(std::size_t count, const p_Action& action) {
    return std::vector<p_Action>(count, action);
}

TEST_F(AllocationsTest, CounterSeesAnAllocation) {
    EXPECT_EQ(AllocationsOf([] { const String text(60, L'x'); }), 1U);
}

TEST_F(AllocationsTest, KindsWithoutARoutineAllocateNothing) {
    for (const std::int32_t kind : {6, 8, 9, 10, 11, 15, 18, -1}) {
        p_Action action = Action(static_cast<p_ActionTypes>(kind), IdleRemote());
        EXPECT_EQ(SteadyAllocationsOf([&] { modActions::DoAction(context, action, 0); }), 0U)
            << kind;
    }
}

TEST_F(AllocationsTest, CopiesOfRecordsInAndOutReuseWhatTheyHave) {
    p_Action remote = Action(atRemote, IdleRemote());
    EXPECT_EQ(SteadyAllocationsOf([&] { modActions::DoAction(context, remote, 0); }), 0U);

    p_Action tracking = Action(atTrackFreq, IdleTracking());
    EXPECT_EQ(SteadyAllocationsOf([&] { modActions::DoAction(context, tracking, 0); }), 0U);
}

/// A switch unit that is on and takes every path.
class QuietUnit final : public DefaultDevice, public DefaultSwitchUnit {
  public:
    std::int32_t State() override { return Active; }
};

TEST_F(AllocationsTest, DeviceThatWasFoundIsUsedAgainWithoutAnAllocation) {
    aceSetDevice record;
    record.DevName = Long(L"device");
    record.Path = Long(L"path");
    record.SigPathName = Long(L"signal path");
    record.Device = std::make_shared<QuietUnit>();
    p_Action action = Action(atSwitchUnit, record);
    EXPECT_EQ(SteadyAllocationsOf([&] { modActions::DoAction(context, action, 0); }), 0U);
    EXPECT_EQ(RecordOf<aceSetDevice>(action).Path, record.Path);
}

TEST_F(AllocationsTest, MacroGetsItsParametersWithoutAnAllocation) {
    aceAPI record;
    record.Program = Long(L"macro");
    record.Parameters.Redim(1, 2);
    record.Parameters[1] = Long(L"#FREQ#");
    record.Parameters[2] = Long(L"value");
    p_Action action = Action(atAPI, record);
    EXPECT_EQ(SteadyAllocationsOf([&] { modActions::DoAction(context, action, 0); }), 0U);
    EXPECT_EQ(RecordOf<aceAPI>(action).Parameters[1], record.Parameters[1]);
}

TEST_F(AllocationsTest, QuestionWithoutAMessageAllocatesNothing) {
    aceNotify record;
    record.WaveFile = Long(L"wave");
    record.Beep = true;
    record.vks = Variables();
    p_Action question = Action(atQuestion, record);

    EXPECT_EQ(SteadyAllocationsOf([&] { modActions::DoAction(context, question, 0); }), 0U);
}

TEST_F(AllocationsTest, PlainWalkAllocatesNothing) {
    Fill(State().MainTest, EnterList, Times(Many, Action(atRemote, IdleRemote())));
    Fill(State().MainTest, FreqList, Times(Many, Action(atTrackFreq, IdleTracking())));
    Fill(State().MainTest, LeaveList, Times(Many, Action(atParkAcc)));

    EXPECT_EQ(SteadyAllocationsOf([&] { engine.StartTest(); }), 0U);
    EXPECT_EQ(SteadyAllocationsOf([&] { engine.StopTest(); }), 0U);
}

TEST_F(AllocationsTest, WirelessWalkAllocatesNothing) {
    State().Modul = aceVKSTemplate;
    State().VKSReplaceVars = Variables();
    Fill(State().VKSTemplate, EnterList, Times(Many, Action(atRemote, IdleRemote())));

    EXPECT_EQ(SteadyAllocationsOf([&] { engine.StartTest(); }), 0U);
}

TEST_F(AllocationsTest, MomentByNumberAllocatesNothing) {
    State().MainSubranges.Redim(0, 0);
    Fill(State().MainSubranges[0], EnterList, Times(Many, Action(atRemote, IdleRemote())));

    EXPECT_EQ(SteadyAllocationsOf([&] { engine.EnterSubrange(1); }), 0U);
}

TEST_F(AllocationsTest, EveryFrequencyListAllocatesNothing) {
    std::vector<p_Action> actions = Times(Many, Action(atTrackFreq, IdleTracking()));
    actions.push_back(Action(atRemote, IdleRemote()));
    actions.push_back(Comment());
    Fill(State().MainTest, FreqList, actions);
    double frequency = 80e6;

    EXPECT_EQ(SteadyAllocationsOf([&] { engine.NewFrequency(frequency += 1e3, false); }), 0U);
    EXPECT_EQ(SteadyAllocationsOf([&] { engine.NewFrequency(frequency, false); }), 0U);
}

TEST_F(AllocationsTest, ChannelMomentAllocatesNothing) {
    State().Modul = aceMonitoring;
    State().MoniChannels.Redim(0, 0);
    Fill(State().MoniChannels[0], FreqList, Times(Many, Comment()));
    Fill(State().MoniChannels[0], EnterList, Times(Many, Comment()));
    const String name = Long(L"Radio");

    EXPECT_EQ(SteadyAllocationsOf([&] { engine.Trigger(1, name); }), 0U);
    EXPECT_EQ(SteadyAllocationsOf([&] { engine.GetNoGo(1); }), 0U);
}

}  // namespace
}  // namespace ace::test
