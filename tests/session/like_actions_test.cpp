/// Which actions are told as the same one: for each action of a file the first that is like it.
#include "rehearsal_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;

class LikeActionsTest : public RehearsalTest {
  protected:
    std::vector<std::size_t> Likes(const std::string& text) {
        Rehearse(text);
        std::vector<std::size_t> likes;
        for (const RehearsedAction& action : found.actions) {
            likes.push_back(action.like);
        }
        return likes;
    }
};

TEST_F(LikeActionsTest, AnActionIsLikeTheFirstThatWouldBeSavedAsTheSameLine) {
    EXPECT_THAT(
        Likes(AtStart({"WAIT:1", "WAIT:2", "WAIT:1.000", "PROTREC:", "WAIT:2", "PROTREC:"})),
        ElementsAre(0, 1, 0, 3, 1, 3));
    EXPECT_THAT(
        Likes(AtStart({"NOTIFY:a,,0", "NOTIFY:a,,1", "NOTIFY:b,,0", "NOTIFY:a,,1", "NOTIFY:,a,0"})),
        ElementsAre(0, 1, 2, 1, 4));
}

/// All of these have one line in the editor: "Set device: M", "Check EUT: M", "API macro: m".
TEST_F(LikeActionsTest, WhatTheEditorDoesNotShowTellsActionsApart) {
    EXPECT_THAT(Likes(AtStart({"SETDEV:M,7", "SETDEV:M,8", "SETDEV:M,7", "SETDEV:M,7,Path 1"})),
                ElementsAre(0, 1, 0, 3));
    EXPECT_THAT(
        Likes(AtStart({"CHECKEUT:M,7,1,0,0,0,0.00,0,0.00,0", "CHECKEUT:M,7,0,0,0,0,0.00,0,0.00,0",
                       "CHECKEUT:M,7,1,0,0,0,0.00,0,0.00,0"})),
        ElementsAre(0, 1, 0));
    EXPECT_THAT(Likes(AtStart({"API:m||12", "API:m||1||2", "API:m", "API:m||12", "API:m"})),
                ElementsAre(0, 1, 2, 0, 2));
}

/// A device action keeps the section and the path of the one before, a command its address.
TEST_F(LikeActionsTest, WhatIsLeftOfAnotherLineDoesNotTellActionsApart) {
    EXPECT_THAT(Likes(AtStart({"SWITCHAMP:A,3", "SWITCHUNIT:U,ANT 1", "SWITCHAMP:A,3", "SETDEV:M,7",
                               "SWITCHUNIT:U,ANT 1", "SWITCHAMP:A,3"})),
                ElementsAre(0, 1, 0, 3, 1, 0));
    EXPECT_THAT(Likes(AtStart({"REMOTE:X,0,5,0,,0,", "REMOTE:X,2,host,5025:0,,0,",
                               "REMOTE:X,0,5,0,,0,", "REMOTE:X,0,5,1,,0,"})),
                ElementsAre(0, 1, 0, 3));
}

/// A line of either leaves the other standing: from the second entry on both are tuned.
TEST_F(LikeActionsTest, AGeneratorWithAMonitoringDeviceIsNotLikeOneWithout) {
    EXPECT_THAT(Likes(Single + "[ActionsOnTest]\n" +
                      Freq({"FREQTRACK:Gen,Levels,40,0,0", "FREQTRACK:Meter,100",
                            "FREQTRACK:Gen,Levels,40,0,0", "FREQTRACK:Meter,200",
                            "FREQTRACK:Gen,Levels,40,0,0"})),
                ElementsAre(0, 1, 1, 3, 3));
}

TEST_F(LikeActionsTest, EntriesThatCameBackEmptyAreAllTheSame) {
    EXPECT_THAT(Likes(Single + "[ActionsOnTest]\nNumOfEnterActions=4\nEnterAction2=WAIT:1\n"),
                ElementsAre(0, 1, 0, 0));
    EXPECT_THAT(Ends(), ElementsAre("start of test: ERROR 13: type mismatch at " +
                                    Path("test.ini") + ": [ActionsOnTest] EnterAction1"));
}

/// Each section number comes twice, the second time behind all others.
TEST_F(LikeActionsTest, ThousandsWithTheSameLineAreFound) {
    std::vector<std::string> actions;
    for (int i = 0; i < 2000; ++i) {
        actions.push_back("SETDEV:M," + std::to_string(i % 1000 + 1));
    }
    const std::vector<std::size_t> likes = Likes(AtStart(actions));
    ASSERT_EQ(likes.size(), 2000U);
    for (std::size_t i = 0; i < 2000; ++i) {
        ASSERT_EQ(likes[i], i % 1000) << i;
    }
}

}  // namespace
}  // namespace ace::workbench
