#include "workbench/session/transport_host.h"

#include "session_fixture.h"

namespace ace::workbench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

/// Simulated transports: nothing leaves the machine.
class TransportHostTest : public FolderTest {
  protected:
    /// Runs a single test whose enter list holds `actions`.
    Outcome Run(
        const std::vector<std::string>& actions,
        const std::function<void(TransportHost&)>& prepare = [](auto&) {}) {
        std::string text = "[Workbench]\nModule=0\nSubRanges=0\n[ActionsOnTest]\n";
        text += "NumOfEnterActions=" + std::to_string(actions.size()) + "\n";
        for (std::size_t i = 0; i < actions.size(); ++i) {
            text += "EnterAction" + std::to_string(i + 1) + "=" + actions[i] + "\n";
        }
        Write("test.ini", text);
        host = std::make_shared<TransportHost>(Clock::Virtual, TransportChoice());
        host->WriteLog(log);
        Answers answers;
        Session session(host, SetUpOf(text), answers, kept);
        session.Load(WidePath("test.ini"));
        prepare(*host);
        return session.Run();
    }
    /// The lines of the log without their times.
    std::vector<std::string> Log() const {
        std::vector<std::string> lines;
        std::istringstream text(log.str());
        for (std::string line; std::getline(text, line);) {
            lines.push_back(line.substr(line.find('\t') + 1));
        }
        return lines;
    }

    KeptLines kept;
    std::ostringstream log;
    std::shared_ptr<TransportHost> host;
};

const std::string Bus =
    "REMOTE:FREQ 1\x01"
    "2,0,1205,0,,0,";

TEST_F(TransportHostTest, ACommandIsToldWhereItGoesAndThatItWasOnlySimulated) {
    EXPECT_EQ(Run({Bus, "REMOTE:MODE 1,1,3,2,,0,", "REMOTE:OUTP ON,2,bench,5025:1,,0,"}),
              Outcome::Finished);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: status line \"GPIB 12:5\"",
                    "start of test: GPIB 12:5 \"FREQ 1,2\\n\": sent 9 bytes (simulated)",
                    "start of test: status line \"RS232 COM3\"",
                    "start of test: RS232 COM3 \"MODE 1\\r\\n\": sent 8 bytes (simulated)",
                    "start of test: status line \"TCP/IP bench\"",
                    "start of test: TCP/IP bench:5025 \"OUTP ON\\r\": sent 8 bytes (simulated)",
                    "after the test: close the TCP/IP connection 1",
                    "after the test: close the bus device 0"));
    EXPECT_THAT(Log(), ElementsAre("moment\tfrequency/Hz\ttransport\taddress\tbytes\twhat happened",
                                   "start of test\t\tGPIB\t12:5\t\"FREQ 1,2\\n\"\tsent 9 bytes "
                                   "(simulated)",
                                   "start of test\t\tRS232\tCOM3\t\"MODE 1\\r\\n\"\tsent 8 bytes "
                                   "(simulated)",
                                   "start of test\t\tTCP/IP\tbench:5025\t\"OUTP ON\\r\"\tsent 8 "
                                   "bytes (simulated)"));
    EXPECT_TRUE(host->LogIsGood());
}

TEST_F(TransportHostTest, NothingIsEverToldToBeConfirmed) {
    Run({Bus, "REMOTE:,,,,run,1,", "API:log.mac||#FREQ#"});
    EXPECT_THAT(log.str(), Not(HasSubstr("onfirm")));
    EXPECT_THAT(log.str(), Not(HasSubstr("eceived")));
}

TEST_F(TransportHostTest, ASimulatedProgramConfirmsItsWorkAtOnce) {
    EXPECT_EQ(Run({"REMOTE:,,,,\"C:\\my tools\\run.exe\" /a,1,"}), Outcome::Finished);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: macro synchronisation: STARTED",
                    "start of test: status line \"Starting a program\"",
                    "start of test: program \"\\\"C:\\\\my tools\\\\run.exe\\\" /a\": started, "
                    "process 1000 (simulated)",
                    "start of test: busy: Waiting for Macro synchronization completed"));
    EXPECT_EQ(kept.times.back(), 0.0);
    EXPECT_THAT(host->SilentPrograms(), IsEmpty());
}

TEST_F(TransportHostTest, AMacroIsToldWithItsParametersAndThatItFailed) {
    EXPECT_EQ(Run({"API:log.mac||#FREQ#||EUT 1"},
                  [](TransportHost& made) {
                      made.macros[L"log.mac"].results = {false, false};
                  }),
              Outcome::Stopped);
    EXPECT_THAT(
        kept.lines,
        ElementsAre("start of test: status line \"Execute API Macro: log.mac\"",
                    "start of test: API macro log.mac \"0.0\\nEUT 1\\n\": started (simulated)",
                    "start of test: message \"The API macro has failed [log.mac]\"",
                    "start of test: the test is stopped"));
}

TEST_F(TransportHostTest, AFailureIsToldWithItsCause) {
    EXPECT_EQ(Run({Bus}, [](TransportHost& made) { made.instruments.absentGpib.insert(1205); }),
              Outcome::Finished);
    EXPECT_EQ(kept.lines.front(),
              "start of test: GPIB 12:5: failed: the device can't be opened (simulated)");
    EXPECT_THAT(Log(), Contains("start of test\t\tGPIB\t12:5\t\"\"\tfailed: the device can't be "
                                "opened (simulated)"));
}

TEST_F(TransportHostTest, OfALongCommandTheBeginningIsToldAndTheLogHasAll) {
    const std::string text(300, 'A');
    Run({"REMOTE:" + text + ",0,5,3,,0,"});
    EXPECT_EQ(kept.lines[1], "start of test: GPIB 0:5 \"" + std::string(200, 'A') +
                                 "\"...: sent 300 bytes (simulated)");
    EXPECT_THAT(log.str(), HasSubstr("\"" + text + "\""));
}

/// The two actions are an hour apart on the virtual clock, and so are the lines of the log.
TEST_F(TransportHostTest, TheTimesOfTheLogFollowTheVirtualClock) {
    const auto hours = [](std::chrono::system_clock::time_point time) {
        return std::chrono::floor<std::chrono::hours>(time.time_since_epoch()).count() % 24;
    };
    const auto before = hours(std::chrono::system_clock::now());
    Run({"WAIT:3600000", Bus});
    const auto after = hours(std::chrono::system_clock::now());
    const std::string text = log.str();
    const std::string time = text.substr(text.find('\n') + 1);
    const int told = std::stoi(time.substr(time.find('T') + 1, 2));
    EXPECT_TRUE(told == (before + 1) % 24 || told == (after + 1) % 24) << time;
}

}  // namespace
}  // namespace ace::workbench
