#include "workbench/session/session.h"

#include <algorithm>
#include <chrono>

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::IsEmpty;
using ::testing::Lt;
using ::testing::Pair;

/// A list of one action.
std::string Enter(const std::string& action) {
    return "NumOfEnterActions=1\nEnterAction1=" + action + "\n";
}
std::string Leave(const std::string& action) {
    return "NumOfLeaveActions=1\nLeaveAction1=" + action + "\n";
}
std::string Freq(const std::string& action) {
    return "NumOfFreqActions=1\nFrequAction1=" + action + "\n";
}

const std::string OneTwoHertz = "[Workbench.Subrange1]\nStartHz=1\nStopHz=2\nStepPercent=100\n";
/// A single test: one subrange with the frequencies 1 Hz and 2 Hz, a wait in every list but the
/// start's, which holds `start`.
std::string SingleTest(const std::string& start) {
    return "[Workbench]\nModule=0\nSubRanges=1\n" + OneTwoHertz + "[ActionsOnTest]\n" +
           Enter(start) + Leave("WAIT:2") + Freq("WAIT:3") + "[ActionsOnSR1]\n" + Enter("WAIT:11") +
           Leave("WAIT:12");
}

TEST_F(SessionTest, ASingleTestRunsItsListsInTheHostsOrder) {
    EXPECT_EQ(RunText(SingleTest("WAIT:1")), Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "enter subrange 1: wait 0.011 s",
                            "new frequency 1 Hz: wait 0.003 s", "new frequency 2 Hz: wait 0.003 s",
                            "leave subrange 1: wait 0.012 s", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, MonitoringRunsItsListsInTheHostsOrder) {
    EXPECT_EQ(RunText("[Workbench]\nModule=1\nSubRanges=1\n" + OneTwoHertz +
                      "[Workbench.Channel1]\nTrigger=1\nNoGo=2\nGo=2\n[ActionsOnEutMon]\n" +
                      Enter("WAIT:1") + Leave("WAIT:2") + Freq("WAIT:3") +
                      "NumOfMlcActions=1\nMLLeaAction1=WAIT:4\n[ActionsOnMonTestLoop]\n" +
                      Enter("WAIT:5") + Leave("WAIT:6") + "[ActionsOnChannel1]\n" +
                      Enter("WAIT:7") + Leave("WAIT:8") + Freq("WAIT:9")),
              Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "before the test loop: wait 0.005 s",
                            "new frequency 1 Hz: wait 0.003 s", "channel 1 triggers: wait 0.009 s",
                            "after step 1: wait 0.004 s", "new frequency 2 Hz: wait 0.003 s",
                            "channel 1 no-go: wait 0.007 s", "channel 1 go: wait 0.008 s",
                            "after step 2: wait 0.004 s", "after the test loop: wait 0.006 s",
                            "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, ASusceptibilityTestRunsGeneralListsAndStepsTogether) {
    EXPECT_EQ(
        RunText("[Workbench]\nModule=2\nSubRanges=2\n" + OneTwoHertz + "[ActionsOnEMSAutoTest]\n" +
                Enter("WAIT:1") + Leave("WAIT:2") + Freq("WAIT:3") + "[ActionsOnStep1]\n" +
                Enter("WAIT:4") + "[ActionsOnStep2]\n" + Enter("WAIT:5")),
        Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "step 1: wait 0.004 s",
                            "new frequency 1 Hz: wait 0.003 s", "new frequency 2 Hz: wait 0.003 s",
                            "step 2: wait 0.005 s", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, AnEmissionTestRunsItsListsInTheHostsOrder) {
    EXPECT_EQ(RunText("[Workbench]\nModule=4\nSubRanges=1\n" + OneTwoHertz +
                      "[ActionsOnEMIAutoTest]\n" + Enter("WAIT:1") + Leave("WAIT:2") +
                      Freq("WAIT:3") + "[ActionsOnStep1]\n" + Enter("WAIT:4") + Leave("WAIT:5")),
              Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "before step 1: wait 0.004 s",
                            "new frequency 1 Hz: wait 0.003 s", "new frequency 2 Hz: wait 0.003 s",
                            "after step 1: wait 0.005 s", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, ASequenceAndAnAzimuthChartRunTheirLists) {
    EXPECT_EQ(
        RunText("[Workbench]\nModule=5\nSubRanges=1\n[ActionsOnTestSequence]\n" + Enter("WAIT:1") +
                Leave("WAIT:2") + "[ActionsOnTest1]\n" + Enter("WAIT:3") + Leave("WAIT:4")),
        Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "before test 1: wait 0.003 s",
                            "after test 1: wait 0.004 s", "end of test: wait 0.002 s"));
    kept.lines.clear();
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n" + OneTwoHertz + "[ActionsOnAzimuthChart]\n" +
                      Enter("WAIT:1") + Leave("WAIT:2") + Freq("WAIT:3")),
              Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "new frequency 1 Hz: wait 0.003 s",
                            "new frequency 2 Hz: wait 0.003 s", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, RequestsAreAskedForAfterEachMoment) {
    std::vector<std::string> procedures;
    RunText(SingleTest("WAIT:1"), {}, [&](SessionHost& host, Session&) {
        struct Kept final : DefaultTraceLog {
            explicit Kept(std::vector<std::string>& lines) : x_lines(lines) {}
            bool IsEnabled() override { return true; }
            void WriteLine(StringView marker, StringView, StringView, StringView procedure,
                           StringView, StringView) override {
                if (marker == L"start" && procedure != L"DoAction") {
                    x_lines.push_back(ToUtf8(procedure));
                }
            }
            std::vector<std::string>& x_lines;
        };
        host.traceFile = std::make_shared<Kept>(procedures);
    });
    // start and entering, which have no lines of their own, two frequencies, leaving and end
    EXPECT_THAT(procedures, ElementsAre("GetCheckEutAction", "GetCheckEutAction", "NewFrequency",
                                        "GetCheckEutAction", "NewFrequency", "GetCheckEutAction",
                                        "GetCheckEutAction", "GetCheckEutAction"));
}

/// Leaves request bits at the n-th yield, as a check of the equipment would.
auto RequestAt(std::size_t yield, std::int32_t bits, const String& comment = {}) {
    return [=](SessionHost& host, Session& session) {
        host.onYield = [=, &session](std::size_t n) {
            if (n == yield || yield == 0) {
                session.Context().EutCheckRequest |= bits;
                session.Context().EutCheckComment = comment;
            }
        };
    };
}

TEST_F(SessionTest, ARequestToRepeatRunsTheFrequenciesOfTheSubrangeOnceMore) {
    // yields: start 1, its look for tracking actions 2, enter 3, 1 Hz 4, 2 Hz 5
    EXPECT_EQ(RunText(SingleTest("WAIT:1"), {}, RequestAt(5, acEutRepeatSubrangeMeas)),
              Outcome::Finished);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 0.001 s", "enter subrange 1: wait 0.011 s",
                            "new frequency 1 Hz: wait 0.003 s", "new frequency 2 Hz: wait 0.003 s",
                            "new frequency 2 Hz: the check asks to repeat the measurement of the "
                            "subrange",
                            "new frequency 1 Hz: wait 0.003 s", "new frequency 2 Hz: wait 0.003 s",
                            "leave subrange 1: wait 0.012 s", "end of test: wait 0.002 s"));
    EXPECT_THAT(kept.progress, ElementsAre(Pair(1, 2), Pair(1, 2), Pair(2, 2)));
}

TEST_F(SessionTest, ACheckThatAlwaysAsksToRepeatDoesNotKeepTheTestForEver) {
    EXPECT_EQ(RunText(SingleTest("WAIT:1"), {}, RequestAt(0, acEutRepeatSubrangeMeas)),
              Outcome::Finished);
    EXPECT_THAT(kept.lines,
                Contains("new frequency 2 Hz: it was repeated before, so the test goes on"));
}

TEST_F(SessionTest, ARequestToStopStopsTheTest) {
    EXPECT_EQ(RunText(SingleTest("WAIT:1"), {}, RequestAt(4, acEutStopTest)), Outcome::Stopped);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: wait 0.001 s", "enter subrange 1: wait 0.011 s",
                    "new frequency 1 Hz: wait 0.003 s",
                    "new frequency 1 Hz: the check asks to stop the test",
                    "new frequency 1 Hz: the test is stopped", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, CommentIsStoredParkingIsToldAndTheTestGoesOn) {
    EXPECT_EQ(RunText(SingleTest("WAIT:1"), {},
                      RequestAt(5, acEutStoreComment | acEutParkAccessories, L"EUT restarted")),
              Outcome::Finished);
    EXPECT_THAT(kept.lines, Contains("new frequency 2 Hz: comment stored: \"EUT restarted\""));
    EXPECT_THAT(summary.comments, ElementsAre(L"2 Hz: EUT restarted"));
    EXPECT_EQ(summary.parkings, 1U);
    EXPECT_THAT(kept.lines, Contains("new frequency 2 Hz: request to park the accessories"));
}

TEST_F(SessionTest, ParkingAtTheEndOfTheTestIsTold) {
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\n" + Leave("PARKACC:")),
              Outcome::Finished);
    EXPECT_THAT(kept.lines, ElementsAre("end of test: request to park the accessories"));
}

TEST_F(SessionTest, ATrueAnswerStopsTheTestAndTheEndOfTheTestStillRuns) {
    EXPECT_EQ(RunText(SingleTest("STOP:")), Outcome::Stopped);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: the test is stopped", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, AQuestionWithoutAnswerIsNoAndStopsTheTest) {
    EXPECT_EQ(RunText("[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
                      "NumOfEnterActions=2\nEnterAction1=QUESTION:Door closed?,,0\n"
                      "EnterAction2=WAIT:1\n" +
                      Leave("WAIT:2")),
              Outcome::Unanswered);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: question \"Door closed?\": NO ANSWER, so it is No",
                            "start of test: the test is stopped", "end of test: wait 0.002 s"));
    EXPECT_EQ(summary.unanswered, 1U);
}

TEST_F(SessionTest, AQuestionWithoutAnswerInAChannelStopsTheTestToo) {
    EXPECT_EQ(RunText("[Workbench]\nModule=1\nSubRanges=1\n" + OneTwoHertz +
                      "[Workbench.Channel1]\nNoGo=1\n[ActionsOnChannel1]\n" +
                      Enter("QUESTION:Lamp on?,,0") + "[ActionsOnEutMon]\n" + Leave("WAIT:2")),
              Outcome::Unanswered);
    EXPECT_THAT(kept.lines,
                ElementsAre("channel 1 no-go: question \"Lamp on?\": NO ANSWER, so it is No",
                            "channel 1 no-go: the test is stopped", "end of test: wait 0.002 s"));
}

TEST_F(SessionTest, YesGoesOnAndNoStops) {
    const std::string text = SingleTest("QUESTION:Door closed?,,0");
    EXPECT_EQ(RunText(text, "* | question | Door* | Yes"), Outcome::Finished);
    EXPECT_EQ(kept.lines.front(), "start of test: question \"Door closed?\": Yes");
    EXPECT_EQ(summary.yes, 1U);
    EXPECT_EQ(RunText(text, "* | question | Door* | No"), Outcome::Stopped);
    EXPECT_EQ(summary.no, 1U);
    EXPECT_EQ(kept.lines.back(), "end of test: wait 0.002 s");
}

TEST_F(SessionTest, ANotificationIsAnsweredOkUnlessALineSaysStop) {
    const std::string text = SingleTest("NOTIFY:Door closed?,,0");
    EXPECT_EQ(RunText(text), Outcome::Finished);
    EXPECT_THAT(kept.lines, Contains("start of test: notification \"Door closed?\": OK"));
    EXPECT_EQ(summary.notifications, 1U);
    EXPECT_EQ(RunText(text, "start of test | notification | * | Stop"), Outcome::Stopped);
    EXPECT_THAT(kept.lines, Contains("start of test: notification \"Door closed?\": Stop"));
    EXPECT_EQ(summary.notificationsStopped, 1U);
}

TEST_F(SessionTest, ARunTimeErrorIsToldAndTheEndOfTheTestStillRuns) {
    // an entry without a line has no record, so running it is error 13
    EXPECT_EQ(RunText("[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n"
                      "NumOfEnterActions=1\n" +
                      Leave("WAIT:2")),
              Outcome::Failed);
    ASSERT_EQ(kept.lines.size(), 4U);
    EXPECT_THAT(kept.lines[0], ::testing::StartsWith("start of test: error report: error 13, "));
    EXPECT_EQ(kept.lines[1], "start of test: ERROR 13: type mismatch at " + Path("test.ini") +
                                 ": [ActionsOnTest] EnterAction1");
    EXPECT_EQ(kept.lines[2], "start of test: the test is stopped");
    EXPECT_EQ(kept.lines[3], "end of test: wait 0.002 s");
    EXPECT_EQ(summary.errors, 1U);
    EXPECT_EQ(summary.errorReports, 1U);
}

TEST_F(SessionTest, AnErrorAtTheEndCountsAboveAStop) {
    EXPECT_EQ(RunText("[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n" + Enter("STOP:") +
                      "NumOfLeaveActions=1\n"),
              Outcome::Failed);
    EXPECT_EQ(summary.moments, 2U);
}

TEST_F(SessionTest, AProtectionOfReceiversOnABenchWithoutAnyGoesThrough) {
    EXPECT_EQ(RunText("[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n" + Enter("PROTREC:") +
                      Leave("WAIT:2")),
              Outcome::Finished);
    EXPECT_EQ(kept.lines.back(), "end of test: wait 0.002 s");
    EXPECT_EQ(summary.errors, 0U);
    EXPECT_EQ(summary.errorReports, 0U);
}

TEST_F(SessionTest, CodeFiveOfAChannelStopsTheTestAndOthersAreTold) {
    const std::string head = "[Workbench]\nModule=1\nSubRanges=1\n" + OneTwoHertz +
                             "[Workbench.Channel1]\nNoGo=1\n[ActionsOnChannel1]\n";
    EXPECT_EQ(RunText(head + Enter("STPLEV:")), Outcome::Finished);
    EXPECT_THAT(kept.lines, ElementsAre("channel 1 no-go: code 3: stop the level sweep"));
    kept.lines.clear();
    EXPECT_EQ(RunText(head + Enter("STOP:")), Outcome::Stopped);
    EXPECT_THAT(kept.lines, ElementsAre("channel 1 no-go: code 5: stop the test",
                                        "channel 1 no-go: the test is stopped"));
}

TEST_F(SessionTest, MomentsActionsWaitsAndDwellAreCounted) {
    RunText("[Workbench]\nModule=6\n" + OneTwoHertz + "DwellMs=2000\n[ActionsOnAzimuthChart]\n" +
            Enter("WAIT:3600000") + Leave("NOTIFY:,,1") + Freq("WAIT:500"));
    EXPECT_EQ(summary.moments, 4U);
    EXPECT_EQ(summary.actions, 4U);
    EXPECT_EQ(summary.waitedMs, 3'601'000.0);
    EXPECT_EQ(summary.dwellMs, 4000.0);
    EXPECT_EQ(kept.times.front(), 0.0);
    EXPECT_EQ(kept.times.back(), 3'605'000.0);
    EXPECT_THAT(kept.progress, ElementsAre(Pair(1, 2), Pair(2, 2)));
}

TEST_F(SessionTest, ANegativeWaitIsNone) {
    EXPECT_EQ(RunText(SingleTest("WAIT:-5")), Outcome::Finished);
    EXPECT_THAT(kept.times, Each(Ge(0.0)));
    EXPECT_EQ(summary.waitedMs, 11.0 + 2 * 3.0 + 12.0 + 2.0);
}

TEST_F(SessionTest, ASoundThatIsNotThereIsToldAndBeeps) {
    Write("here.wav", "");
    EXPECT_EQ(RunText("[Workbench]\nModule=6\n[ActionsOnAzimuthChart]\nNumOfEnterActions=2\n"
                      "EnterAction1=NOTIFY:," +
                      Path("here.wav") +
                      ",0\n"
                      "EnterAction2=NOTIFY:," +
                      Path("away.wav") + ",0\n"),
              Outcome::Finished);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: sound " + Path("here.wav"),
                    "start of test: event to the devices: Standby On",
                    "start of test: event to the devices: Radiation on",
                    "start of test: sound " + Path("away.wav"),
                    "start of test: this sound can't be played: there is no such file",
                    "start of test: beep", "start of test: event to the devices: Standby On",
                    "start of test: event to the devices: Radiation on"));
}

TEST_F(SessionTest, ARealClockTakesItsTime) {
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(RunText(
                  SingleTest("WAIT:60"), {}, [](auto&, auto&) {}, Clock::Real),
              Outcome::Finished);
    EXPECT_THAT(std::chrono::steady_clock::now() - before, Ge(std::chrono::milliseconds(60 + 31)));
}

auto InterruptAfterActions(std::size_t count) {
    return [count](SessionHost& host, Session&) {
        host.isInterrupted = [&host, count] { return host.counts.actions >= count; };
    };
}

TEST_F(SessionTest, TheUserEndsARealWaitAndTheTestInGoodOrder) {
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(RunText(SingleTest("WAIT:3600000"), {}, InterruptAfterActions(1), Clock::Real),
              Outcome::Stopped);
    EXPECT_THAT(std::chrono::steady_clock::now() - before, Lt(std::chrono::minutes(10)));
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 3600 s", "start of test: stopped by the user",
                            "start of test: the test is stopped", "end of test: wait 0.002 s"));
    EXPECT_EQ(summary.waitedMs, 2.0);  // the waits of the end take their time
}

TEST_F(SessionTest, AListThatIsInterruptedRunsOnToItsEndWithItsWaitsSkipped) {
    const std::string test = "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n" +
                             Leave("WAIT:2") +
                             "NumOfEnterActions=3\nEnterAction1=WAIT:3600000\n"
                             "EnterAction2=NOTIFY:Lamp on,,0\nEnterAction3=WAIT:1800000\n";
    EXPECT_EQ(RunText(test, {}, InterruptAfterActions(1), Clock::Real), Outcome::Stopped);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: wait 3600 s", "start of test: stopped by the user",
                            "start of test: event to the devices: Standby On",
                            "start of test: notification \"Lamp on\": OK",
                            "start of test: event to the devices: Radiation on",
                            "start of test: wait 1800 s", "start of test: the test is stopped",
                            "end of test: wait 0.002 s"));
    EXPECT_EQ(summary.waitedMs, 2.0);  // of the end alone
}

TEST_F(SessionTest, TheUserEndsTheWaitForARecoveryOfTheEquipment) {
    const std::string test = "[Workbench]\nModule=0\nSubRanges=1\n[ActionsOnTest]\n" +
                             Enter("CHECKEUT:EUT,1,0,0,0,0,0.00,1,3600.00,0");
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(RunText(
                  test, {},
                  [](SessionHost& host, Session&) {
                      host.bench.Add<sim::SimMonitor>(host, L"EUT")->failures = {
                          {1, 0.0, 1e9, 1e12, 1.0, {}}};
                      host.isInterrupted = [&host] { return host.counts.actions >= 1; };
                  },
                  Clock::Real),
              Outcome::Stopped);
    EXPECT_THAT(std::chrono::steady_clock::now() - before, Lt(std::chrono::minutes(10)));
    // no reading follows the wait that was broken off
    EXPECT_EQ(
        std::count(kept.lines.begin(), kept.lines.end(), "start of test: EUT: channel 1 is read"),
        1);
}

TEST_F(SessionTest, AnInterruptAtTheEndOfTheTestSkipsNoWait) {
    // start 1, enter 2, two frequencies 3 and 4, leave 5, end 6
    EXPECT_EQ(RunText(SingleTest("WAIT:1"), {}, InterruptAfterActions(6), Clock::Real),
              Outcome::Stopped);
    EXPECT_EQ(kept.lines.back(), "end of test: stopped by the user");
    EXPECT_EQ(summary.waitedMs, 1.0 + 11.0 + 2 * 3.0 + 12.0 + 2.0);
}

TEST_F(SessionTest, AnUnusedAnswerIsLeft) {
    EXPECT_EQ(RunText(SingleTest("WAIT:1"), "* | question | Door* | Yes"), Outcome::Finished);
    EXPECT_EQ(answers.Unused().size(), 1U);
}

}  // namespace
}  // namespace ace::workbench
