#include "workbench/session/load_place.h"

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class LoadPlaceTest : public SessionTest {
  protected:
    /// What the user is told about a file that can't be loaded.
    std::string RefusalOfText(const std::string& text) {
        Write("test.ini", text);
        const auto host = std::make_shared<SessionHost>();
        Session session(host, SetUpOf("[Workbench]\nModule=0\nSubRanges=1\n"), answers, kept);
        return RefusalOf([&] { session.Load(WidePath("test.ini")); });
    }
};

TEST_F(LoadPlaceTest, ABadLineIsToldWithFileLineSectionLineAndErrorInOneLine) {
    const struct {
        std::string text;
        std::string where;
        std::string error;
    } rows[] = {
        {"[ActionsOnTest]\r\n; comment\r\n", ":2: [ActionsOnTest] \"; comment\": ", "(error 5)"},
        {"; head\r\n\r\n[ActionsOnTest]\r\nNumOfEnterActions=1\r\n"
         "EnterAction1=SETDEV:DAQ,one\r\n",
         ":5: [ActionsOnTest] \"EnterAction1=SETDEV:DAQ,one\": ", "(error 13)"},
        {"[ActionsOnSR1]\nNumOfLeaveActions=1\nLeaveAction1=WAIT:1\nLeaveAction2=WAIT:1\n"
         "[ActionsOnTest]\n",
         ":4: [ActionsOnSR1] \"LeaveAction2=WAIT:1\": ", "(error 9)"},
        {"[ActionsOnTest]\nNumOfEnterActions=99999999999\n",
         ":2: [ActionsOnTest] \"NumOfEnterActions=99999999999\": ", "(error 6)"},
    };
    for (const auto& row : rows) {
        EXPECT_THAT(RefusalOfText(row.text), AllOf(StartsWith("4 " + Path("test.ini") + row.where),
                                                   EndsWith(row.error), Not(HasSubstr("\n"))));
    }
}

TEST_F(LoadPlaceTest, AFileThatCantBeOpenedForTheLoadTellsItsOwnReason) {
    const auto host = std::make_shared<SessionHost>();
    Session session(host, SetUpOf("[Workbench]\nModule=0\nSubRanges=1\n"), answers, kept);
    const std::string refusal =
        RefusalOf([&] { session.Load(String(folder.begin(), folder.end())); });
    EXPECT_THAT(refusal, StartsWith("4 " + folder + ": can't be read"));
}

TEST_F(LoadPlaceTest, TheObserverOfTheThreadIsPutBack) {
    const auto host = std::make_shared<SessionHost>();
    ThreadContext context(host);
    LoadPlace outer(context);
    {
        LoadPlace inner(context);
        EXPECT_EQ(context.LineObserver, &inner);
    }
    EXPECT_EQ(context.LineObserver, &outer);
}

}  // namespace
}  // namespace ace::workbench
