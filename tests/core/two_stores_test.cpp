#include "support/store_fixture.h"

namespace ace::test {
namespace {

class TwoStoresTest : public EngineTest {};

TEST_F(TwoStoresTest, TwoObjectsFollowTheirHostsApart) {
    aceActionsEngine other(context);
    other.State().MainSubranges = Letters(L"XY");
    other.State().MainSubrangeCount = 2;
    State().MainSubranges = Letters(L"AB");
    State().MainSubrangeCount = 2;

    engine->DeleteSubrange(1);

    EXPECT_EQ(TextsOf(State().MainSubranges), (Lines{L"BBBB", L"BBBB"}));
    EXPECT_EQ(TextsOf(other.State().MainSubranges), (Lines{L"XXXX", L"YYYY"}));
}

}  // namespace
}  // namespace ace::test
