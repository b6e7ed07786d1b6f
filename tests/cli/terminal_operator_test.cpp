#include "workbench/cli/terminal_operator.h"

#include <sstream>

#include "session/session_fixture.h"
#include "workbench/session/transport_host.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

Dialog Question() {
    return {PromptKind::Question,
            L"Title",
            L"Door closed?",
            {{Reply::GoOn, L"Yes", L'y'}, {Reply::Stop, L"No", L'n'}}};
}

class TerminalOperatorTest : public FolderTest {
  protected:
    std::optional<Reply> Ask(const Dialog& dialog, const std::string& typed, bool isTerminal) {
        std::istringstream in(typed);
        std::ostringstream out;
        ConsoleReport report(out, false);
        const std::optional<Reply> reply =
            TerminalOperator(report, {.stream = &in, .isTerminal = isTerminal}, {}).Ask(dialog);
        printed = out.str();
        return reply;
    }

    /// Runs a test with `start` in the list of the start and `end` in that of the end. The bus
    /// device at 12:5 is absent.
    Outcome Run(const std::vector<std::string>& start, const std::string& typed,
                const std::vector<std::string>& end = {}, const std::string& answersText = {}) {
        const std::string text = "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n" +
                                 Lines("Enter", start) + Lines("Leave", end);
        Write("test.ini", text);
        const auto host = std::make_shared<TransportHost>(Clock::Virtual, TransportChoice());
        host->instruments.absentGpib.insert(1205);
        host->isInterrupted = [this] { return isInterrupted; };
        std::istringstream in(typed);
        std::ostringstream out;
        ConsoleReport report(out, false);
        TerminalOperator theOperator(report, {.stream = &in, .isTerminal = true, .wait = wait},
                                     [&] { return host->InterruptIsNew(); });
        Answers answers(FromUtf8(answersText), L"answers.txt");
        Session session(host, SetUpOf(text), answers, kept, &theOperator);
        session.Load(WidePath("test.ini"));
        const Outcome outcome = session.Run();
        summary = session.Counts();
        printed = out.str();
        return outcome;
    }

    KeptLines kept;
    Summary summary;
    std::string printed;
    WaitForInput wait;
    bool isInterrupted = false;

  private:
    static std::string Lines(const std::string& list, const std::vector<std::string>& actions) {
        if (actions.empty()) {
            return {};
        }
        std::string text = "NumOf" + list + "Actions=" + std::to_string(actions.size()) + "\n";
        for (std::size_t i = 0; i < actions.size(); ++i) {
            text += list + "Action" + std::to_string(i + 1) + "=" + actions[i] + "\n";
        }
        return text;
    }
};

const std::string Notify =
    "NOTIFY:Amplifier 1\x01 to OPERATE.\x7F"
    "Lamp on?,,0";
const std::string Door = "QUESTION:Door closed?,,0";
const std::string Absent = "REMOTE:FREQ 1,0,1205,0,,0,";

TEST_F(TerminalOperatorTest, ANotificationIsShownLineByLineAndGoesOnWithOk) {
    EXPECT_EQ(Run({Notify}, "o\n"), Outcome::Finished);
    EXPECT_EQ(printed,
              "\n--- Message from the test ---\nAmplifier 1, to OPERATE.\nLamp on?\n"
              "[o] OK   [s] Stop test > ");
    EXPECT_THAT(kept.lines, Contains("start of test: notification \"Amplifier 1, to OPERATE. / "
                                     "Lamp on?\": OK"));
    EXPECT_EQ(summary.notifications, 1U);
}

TEST_F(TerminalOperatorTest, StopOfANotificationStopsTheTest) {
    EXPECT_EQ(Run({Notify, "WAIT:1"}, "S\n"), Outcome::Stopped);
    EXPECT_THAT(kept.lines, Not(Contains(HasSubstr("wait"))));
    EXPECT_EQ(summary.notificationsStopped, 1U);
}

TEST_F(TerminalOperatorTest, AQuestionHasTheKeysYesAndNo) {
    EXPECT_EQ(Run({Door, Door}, "y\nNo\n"), Outcome::Stopped);
    EXPECT_THAT(printed, HasSubstr("Door closed?\n[y] Yes   [n] No > "));
    EXPECT_THAT(kept.lines, ElementsAre("start of test: question \"Door closed?\": Yes",
                                        "start of test: question \"Door closed?\": No",
                                        "start of test: the test is stopped"));
    EXPECT_EQ(summary.yes, 1U);
    EXPECT_EQ(summary.no, 1U);
}

TEST_F(TerminalOperatorTest, AFailureIsShownWithHeadingAndDetailsAndCanBeIgnored) {
    EXPECT_EQ(Run({Absent, "WAIT:1"}, "i\n"), Outcome::Finished);
    EXPECT_EQ(printed,
              "\n--- Remote ---\nA remote command could not be sent.\nGPIB address: 1205\n"
              "Command: FREQ 1\n[s] Stop test   [i] Ignore   [a] Ignore all > ");
    EXPECT_THAT(kept.lines,
                Contains("start of test: failure \"A remote command could not be sent. / GPIB "
                         "address: 1205 / Command: FREQ 1\": Ignore"));
    EXPECT_EQ(kept.lines.back(), "start of test: wait 0.001 s");
    EXPECT_EQ(summary.failuresIgnored, 1U);
}

TEST_F(TerminalOperatorTest, AFailureThatIsIgnoredForGoodOrStopsTheTest) {
    EXPECT_EQ(Run({Absent, Absent}, "a\ns\n"), Outcome::Stopped);
    EXPECT_EQ(summary.failuresIgnoredForGood, 1U);
    EXPECT_EQ(summary.failuresStopped, 1U);
    EXPECT_EQ(kept.lines.back(), "start of test: the test is stopped");
}

TEST_F(TerminalOperatorTest, AWrongKeyIsAskedAgain) {
    EXPECT_EQ(Ask(Question(), "x\n\nyn\n  Y \n", true), Reply::GoOn);
    const std::string again = "[y] Yes   [n] No > Please type one of the keys in brackets.\n";
    EXPECT_EQ(printed,
              "\n--- Title ---\nDoor closed?\n" + again + again + again + "[y] Yes   [n] No > ");
}

TEST_F(TerminalOperatorTest, WhatDoesNotShowByItselfIsPrinted) {
    EXPECT_EQ(Ask(Question(), "no", false), Reply::Stop);
    EXPECT_EQ(printed, "\n--- Title ---\nDoor closed?\n[y] Yes   [n] No > no\n");
}

TEST_F(TerminalOperatorTest, TheEndOfTheInputIsNoAnswer) {
    EXPECT_EQ(Ask(Question(), "maybe\n", true), std::nullopt);
    EXPECT_EQ(printed,
              "\n--- Title ---\nDoor closed?\n[y] Yes   [n] No > Please type one of the keys in "
              "brackets.\n[y] Yes   [n] No > \n");
}

TEST_F(TerminalOperatorTest, TheEndOfTheInputStopsTheTestAndItsEndRunsWhole) {
    EXPECT_EQ(Run({Notify, "WAIT:1"}, "", {Notify, Absent, "WAIT:2"}), Outcome::Unanswered);
    EXPECT_EQ(kept.lines[1],
              "start of test: the operator's input has ended, so the test is stopped");
    EXPECT_THAT(kept.lines[2], HasSubstr("notification"));
    EXPECT_THAT(kept.lines[2], HasSubstr(": Stop"));
    EXPECT_THAT(kept.lines, Not(Contains("start of test: wait 0.001 s")));
    EXPECT_THAT(kept.lines, Contains("end of test: notification \"Amplifier 1, to OPERATE. / Lamp "
                                     "on?\": OK"));
    EXPECT_EQ(summary.failuresIgnored, 1U);
    EXPECT_THAT(kept.lines, Contains("end of test: wait 0.002 s"));
}

TEST_F(TerminalOperatorTest, AQuestionAtTheEndOfTheInputHasNoAnswer) {
    EXPECT_EQ(Run({Door, "WAIT:1"}, ""), Outcome::Unanswered);
    EXPECT_THAT(kept.lines,
                ElementsAre("start of test: the operator's input has ended, so the test is stopped",
                            "start of test: question \"Door closed?\": NO ANSWER, so it is No",
                            "start of test: the test is stopped"));
    EXPECT_EQ(summary.unanswered, 1U);
}

TEST_F(TerminalOperatorTest, ALineOfTheAnswersGoesBeforeTheOperator) {
    EXPECT_EQ(Run({Door, Notify, Absent}, "o\n", {},
                  "* | question | Door* | Yes\n* | failure | *GPIB address: 1205* | Ignore\n"),
              Outcome::Finished);
    EXPECT_THAT(printed, HasSubstr("Amplifier 1"));
    EXPECT_THAT(printed, Not(HasSubstr("Door closed?")));
    EXPECT_THAT(printed, Not(HasSubstr("GPIB")));
}

TEST_F(TerminalOperatorTest, AnInterruptWhileItWaitsStopsTheTestAndTheEndIsAskedStill) {
    wait = [this](const std::function<bool()>& isNew) {
        isInterrupted = true;
        return !isNew();
    };
    EXPECT_EQ(Run({Door, "WAIT:1"}, "o\n", {Notify}), Outcome::Stopped);
    EXPECT_THAT(kept.lines, Contains("start of test: stopped by the user"));
    EXPECT_THAT(kept.lines, Contains("start of test: question \"Door closed?\": No"));
    EXPECT_THAT(kept.lines, Contains(HasSubstr("end of test: notification")));
    EXPECT_EQ(summary.notifications, 1U);
    EXPECT_EQ(summary.notificationsStopped, 0U);
}

}  // namespace
}  // namespace ace::workbench
