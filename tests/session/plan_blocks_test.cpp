/// Which lists a plan tells as one, and which actions it says never run.
#include "workbench/session/plan_blocks.h"

#include "rehearsal_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PlanBlocksTest : public RehearsalTest {
  protected:
    /// "EnterSubrange 1: 1, EnterSubrange 3: 1; Wait: 0.001 s x2; 2 actions, 0.002 s"
    std::vector<std::string> Blocks() const {
        std::vector<std::string> lines;
        for (const PlanBlock& block : BlocksOf(found)) {
            std::string actions;
            for (const BlockLine& line : block.lines) {
                actions += (actions.empty() ? "" : ", ") + ToUtf8(line.action->text) + " x" +
                           std::to_string(line.times);
            }
            lines.push_back(MomentsText(block.moments) + "; " + actions + "; " +
                            std::to_string(block.begun) + " actions, " +
                            ToUtf8(SecondsText(block.workMs)));
        }
        return lines;
    }
    static std::vector<std::string> Sources(const std::vector<const RehearsedAction*>& actions) {
        std::vector<std::string> lines;
        for (const RehearsedAction* action : actions) {
            lines.push_back(ToUtf8(action->source.section + L" " + EntryKey(action->source)));
        }
        return lines;
    }
};

const std::string Subranges = "[Workbench]\nModule=0\nSubRanges=3\n";

TEST_F(PlanBlocksTest, ListsWithANumberAndTheSameActionsAreOneBlockWithTheirSums) {
    Rehearse(Subranges + "[ActionsOnSR1]\n" + Enter({"WAIT:1", "WAIT:20"}) + "[ActionsOnSR2]\n" +
             Enter({"WAIT:1"}) + "[ActionsOnSR3]\n" + Enter({"WAIT:1", "WAIT:20"}));
    EXPECT_THAT(Blocks(), ElementsAre("EnterSubrange 1: 1, EnterSubrange 3: 1; Wait: 0.001 s x2, "
                                      "Wait: 0.020 s x2; 4 actions, 0.042 s",
                                      "EnterSubrange 2: 1; Wait: 0.001 s x1; 1 actions, 0.001 s"));
}

TEST_F(PlanBlocksTest, TheOrderOfTheActionsAndTheKindOfTheMomentTellListsApart) {
    Rehearse(Subranges + "[ActionsOnSR1]\n" + Enter({"WAIT:1", "WAIT:20"}) +
             Leave({"WAIT:1", "WAIT:20"}) + "[ActionsOnSR2]\n" + Enter({"WAIT:20", "WAIT:1"}));
    EXPECT_THAT(Blocks(),
                ElementsAre("EnterSubrange 1: 1; Wait: 0.001 s x1, Wait: 0.020 s x1; 2 actions, "
                            "0.021 s",
                            "LeaveSubrange 1: 1; Wait: 0.001 s x1, Wait: 0.020 s x1; 2 actions, "
                            "0.021 s",
                            "EnterSubrange 2: 1; Wait: 0.020 s x1, Wait: 0.001 s x1; 2 actions, "
                            "0.021 s"));
}

/// From the second subrange on the amplifier's record holds the path of the switch unit before.
TEST_F(PlanBlocksTest, WhatIsLeftOfAnotherLineDoesNotTellListsApart) {
    std::string text = Subranges;
    for (const char* number : {"1", "2", "3"}) {
        text += std::string("[ActionsOnSR") + number + "]\n" + Enter({"SWITCHAMP:A,3"}) +
                Leave({"SWITCHUNIT:U,ANT 1"});
    }
    Rehearse(text);
    EXPECT_THAT(Blocks(),
                ElementsAre("EnterSubrange 1: 1, EnterSubrange 2: 1, EnterSubrange 3: 1; Switch "
                            "amplifier: A --> Operate x3; 3 actions, 0 s",
                            "LeaveSubrange 1: 1, LeaveSubrange 2: 1, LeaveSubrange 3: 1; Switch "
                            "unit: U --> ANT 1 x3; 3 actions, 0 s"));
}

TEST_F(PlanBlocksTest, ListsWithANameStandAlone) {
    const std::string tests =
        "[Workbench]\nModule=7\nSubRanges=2\n[ActionsOnTest1_VKS]\nVKS_UKey=A\nSUBSTEPS=0\n"
        "[ActionsOnTest2_VKS]\nVKS_UKey=B\nSUBSTEPS=0\n";
    Rehearse(tests + "[ActionsOnTest1]\n" + Enter({"WAIT:1"}) + "[ActionsOnTest2]\n" +
             Enter({"WAIT:1"}));
    EXPECT_THAT(Blocks(), ElementsAre("BeforeVKSTest 0: 1; Wait: 0.001 s x1; 1 actions, 0.001 s",
                                      "BeforeVKSTest 0: 1; Wait: 0.001 s x1; 1 actions, 0.001 s"));
}

const std::string Channels = "[Workbench]\nModule=1\nSubRanges=3\n" + ThreeAndTwo;

/// Channel 3 triggers at the first of the five frequencies, channel 1 at the fourth.
TEST_F(PlanBlocksTest, ABlockStandsWhereItsFirstListIsReachedAndItsMomentsGoByNumber) {
    Rehearse(Channels + "[Workbench.Channel1]\nTrigger=4\n[Workbench.Channel2]\nTrigger=2\n" +
             "[Workbench.Channel3]\nTrigger=1\n[ActionsOnChannel1]\n" + Freq({"WAIT:1"}) +
             "[ActionsOnChannel2]\n" + Freq({"WAIT:20"}) + "[ActionsOnChannel3]\n" +
             Freq({"WAIT:1"}));
    EXPECT_THAT(Blocks(),
                ElementsAre("Trigger 1: 1, Trigger 3: 1; Wait: 0.001 s x2; 2 actions, 0.002 s",
                            "Trigger 2: 1; Wait: 0.020 s x1; 1 actions, 0.02 s"));
    EXPECT_EQ(BlocksOf(found).front().first.number, 3);
}

TEST_F(PlanBlocksTest, ListsThatRunMoreOftenThanOthersAreBlocksOfTheirOwn) {
    Rehearse(Channels + "[Workbench.Channel1]\nTrigger=2\n[Workbench.Channel2]\nTrigger=3,5\n" +
             "[ActionsOnChannel1]\n" + Freq({"WAIT:1"}) + "[ActionsOnChannel2]\n" +
             Freq({"WAIT:1"}));
    EXPECT_THAT(Blocks(), ElementsAre("Trigger 1: 1; Wait: 0.001 s x1; 1 actions, 0.001 s",
                                      "Trigger 2: 2; Wait: 0.001 s x2; 2 actions, 0.002 s"));
}

TEST_F(PlanBlocksTest, WhatTheEveryFrequencyWalkPassesOverIsNoLineOfItsBlockAndNeverBegins) {
    Rehearse(Single + "[ActionsOnTest]\n" + Freq({"NOTIFY:Hello,,0", "WAIT:100"}) +
             "[ActionsOnSR2]\n" + Freq({"WAIT:1"}));
    EXPECT_THAT(Blocks(), ElementsAre("NewFrequency 1: 3, NewFrequency 2: 2; Wait: 0.100 s x5; 5 "
                                      "actions, 0.5 s"));
    EXPECT_THAT(Sources(NeverBegun(found)),
                ElementsAre("ActionsOnTest FrequAction1", "ActionsOnSR2 FrequAction1"));
    EXPECT_THAT(Sources(LeftToDevices(found)), IsEmpty());
}

TEST_F(PlanBlocksTest, WhatOnlyADeviceWouldBeginIsNotAmongWhatNeverBegins) {
    Rehearse(Channels + "[Workbench.Channel2]\nDevice=EUT\nNoGoAbove=0.5\n[ActionsOnChannel1]\n" +
             Enter({"WAIT:1"}) + "[ActionsOnChannel2]\n" + Enter({"WAIT:20", "WAIT:300"}));
    EXPECT_THAT(Blocks(), IsEmpty());
    EXPECT_THAT(Sources(NeverBegun(found)), ElementsAre("ActionsOnChannel1 EnterAction1"));
    EXPECT_THAT(Sources(LeftToDevices(found)),
                ElementsAre("ActionsOnChannel2 EnterAction1", "ActionsOnChannel2 EnterAction2"));
}

}  // namespace
}  // namespace ace::workbench
