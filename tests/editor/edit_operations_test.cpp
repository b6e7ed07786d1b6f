#include "editor/editor_fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class EditOperations : public EditorTest {
  protected:
    /// A template whose start list has waits of 1, 2 and 3 seconds.
    void OpenThreeWaits() {
        Fill(State().MainTest, EnterList, {WaitFor(1000), WaitFor(2000), WaitFor(3000)});
        Open(aceTemplate);
    }
    static String Shown(int seconds) { return L"T(9063): " + std::to_wstring(seconds) + L".000 s"; }
};

TEST_F(EditOperations, AnActionThatIsAddedOnAMomentGoesBehindItsLastLine) {
    OpenThreeWaits();
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(2), Shown(3), Shown(9)));
    EXPECT_EQ(State().MainTest.EnterCount, 4);
    EXPECT_EQ(State().MainTest.Enter[3], WaitFor(9000));
    EXPECT_TRUE(engine->Change());
}

TEST_F(EditOperations, AnActionThatIsAddedOnALineGoesDirectlyBehindIt) {
    OpenThreeWaits();
    Select(L"CHI0ETE");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(9), Shown(2), Shown(3)));
    EXPECT_EQ(State().MainTest, Parts().lists.MainTest);
}

TEST_F(EditOperations, ALineThatIsDeletedLeavesTheOthersInTheirOrder) {
    OpenThreeWaits();
    Select(L"CHI1ETE");
    DeleteAction(Parts());
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(3)));
    EXPECT_EQ(State().MainTest.EnterCount, 2);
    EXPECT_EQ(State().MainTest.Enter.UpperBound(), 1);
}

}  // namespace
}  // namespace ace::test
