#include "support/engine_fixture.h"

namespace ace::test {
namespace {

/// Two engine objects on one thread: a monitoring beside a template.
class TwoObjectsTest : public EngineTest {
  protected:
    TwoObjectsTest() {
        other->State().Modul = aceMonitoring;
        host->journal.Clear();
    }
    void TearDown() override {
        other.reset();
        EngineTest::TearDown();
    }
    std::unique_ptr<aceActionsEngine> other = std::make_unique<aceActionsEngine>(context);
};

TEST_F(TwoObjectsTest, EachRunsItsOwnLists) {
    Fill(State().MainTest, EnterList, {WaitFor(1)});
    Fill(State().MoniEut, EnterList, {WaitFor(2)});
    Fill(other->State().MainTest, EnterList, {WaitFor(3)});
    Fill(other->State().MoniEut, EnterList, {WaitFor(4)});

    engine->StartTest();
    other->StartTest();

    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(4)));
}

TEST_F(TwoObjectsTest, BothShareTheMarkOfARunningTest) {
    engine->StartTest();
    other->StartTest();
    other->StopTest();

    EXPECT_FALSE(context.TestRunning);
}

TEST_F(TwoObjectsTest, ObjectMadeDuringTheTestOfAnotherClearsTheMarkAndTheReceiverLatch) {
    engine->StartTest();
    context.InitReceiverPending = true;

    aceActionsEngine third(context);

    EXPECT_FALSE(context.TestRunning);
    EXPECT_FALSE(engine->InitReceiver());
}

TEST_F(TwoObjectsTest, EachKeepsItsOwnLastFrequency) {
    Fill(State().MainTest, FreqList, {WaitFor(1)});
    Fill(other->State().MoniEut, FreqList, {WaitFor(2)});

    engine->NewFrequency(30e6, false);
    other->NewFrequency(30e6, false);
    engine->NewFrequency(30e6, false);

    EXPECT_EQ(host->journal.LinesOf(L"SystemServices.ShowTimedMessage"),
              (Lines{Waited(1)[1], Waited(2)[1]}));
    other->StartTest();
    EXPECT_EQ(State().LastFrequency, 30e6);
}

TEST_F(TwoObjectsTest, FrequencyOfOneForgetsTheRequestsOfTheOther) {
    context.EutCheckRequest = acEutStopTest;
    context.EutCheckComment = L"no signal";

    other->NewFrequency(30e6, false);

    Value comment;
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
    EXPECT_EQ(std::get<String>(comment), L"");
}

TEST_F(TwoObjectsTest, ParkingOfOneIsAnsweredByTheOther) {
    other->State().Modul = aceAziChart;
    Fill(other->State().AziChart, LeaveList, {Action(atParkAcc)});
    other->StopTest();

    Value comment;
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
}

TEST_F(TwoObjectsTest, BothTellTheOperatorOnTheSameForm) {
    context.CommentForm.reset();
    Fill(State().MainTest, EnterList, {Tell(L"one")});
    Fill(other->State().MoniEut, EnterList, {Tell(L"two")});
    host->user.Expect({L"frmComment", {sim::Press(L"cmdClose")}, {{L"lblComment", L"one"}}});
    host->user.Expect({L"frmComment", {sim::Press(L"cmdClose")}, {{L"lblComment", L"two"}}});

    engine->StartTest();
    const std::shared_ptr<ICommentForm> form = context.CommentForm;
    other->StartTest();

    EXPECT_NE(form, nullptr);
    EXPECT_EQ(context.CommentForm, form);
    other.reset();
    EXPECT_EQ(context.CommentForm, form);
    engine.reset();
    EXPECT_EQ(context.CommentForm, nullptr);
}

TEST_F(TwoObjectsTest, ListOfOneIsNotHeldByAnActionOfTheOther) {
    Fill(State().MainTest, EnterList, {WaitFor(1)});
    Fill(other->State().MainTest, EnterList, {WaitFor(2)});
    std::int32_t number = -1;
    host->onTimedMessage = [&] {
        number = ErrorOf([&] { other->State().MainTest.Enter.Erase(); });
    };

    engine->StartTest();

    EXPECT_EQ(number, 0);
}

TEST_F(TwoObjectsTest, TestsRunInterleaved) {
    Fill(State().MainTest, EnterList, {WaitFor(1), WaitFor(2)});
    Fill(other->State().MoniEut, EnterList, {WaitFor(3), Action(atTestStop)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            EXPECT_TRUE(other->StartTest());
        }
    };

    EXPECT_FALSE(engine->StartTest());

    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, Waited(1), Yielded, Yielded, Waited(3), Yielded, Waited(2)));
}

}  // namespace
}  // namespace ace::test
