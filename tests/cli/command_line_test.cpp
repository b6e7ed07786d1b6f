#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>

namespace {

struct Ended {
    int code;
    std::string printed;
};

/// Runs the executable; both its outputs are printed into one.
Ended RunProgram(const std::string& arguments) {
    const std::string command = std::string(ACE_PROGRAM) + " " + arguments + " 2>&1";
    FILE* const pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return {-1, {}};
    }
    std::string printed;
    std::array<char, 4096> buffer{};
    while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        printed.append(buffer.data(), size);
    }
    const int status = ::pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, printed};
}

const std::string Examples = std::string(ACE_EXAMPLES) + "/";

TEST(CommandLine, TheDemoFinishesWithEveryAnswerUsed) {
    const Ended ended = RunProgram("run " + Examples + "demo_template.ini --answers " + Examples +
                                   "demo_answers.txt");
    EXPECT_EQ(ended.code, 0);
    // 93 + 162 + 70 frequencies, 3 times entering and leaving, start and end
    EXPECT_NE(ended.printed.find("Moments    333 calls"), std::string::npos);
    // 6 + 3 of the test, 3 times 3 + 2 of the subranges, one at each frequency
    EXPECT_NE(ended.printed.find("Actions    349 begun"), std::string::npos);
    EXPECT_EQ(ended.printed.find("Unused"), std::string::npos);
}

TEST(CommandLine, HelpTellsTheExitCodes) {
    const Ended ended = RunProgram("run --help");
    EXPECT_EQ(ended.code, 0);
    EXPECT_NE(ended.printed.find("a question had no answer"), std::string::npos);
}

TEST(CommandLine, APlanIsPrintedAndItsExitCodeTellsOfAnError) {
    const Ended good = RunProgram("plan " + Examples + "ri_template.ini");
    EXPECT_EQ(good.code, 0);
    EXPECT_NE(good.printed.find("new frequency, 254 + 100 + 81 times"), std::string::npos);
    const Ended bad = RunProgram("plan " + Examples + "lint_traps.ini");
    EXPECT_EQ(bad.code, 3);
    EXPECT_NE(bad.printed.find("Ends       start of test: ERROR 13"), std::string::npos);
    EXPECT_EQ(RunProgram("plan " + Examples + "load_stops.ini").code, 4);
    EXPECT_EQ(RunProgram("plan " + Examples + "ri_template.ini --real").code, 5);
    EXPECT_EQ(RunProgram("plan " + Examples + "ri_template.ini > /dev/full").code, 3);
}

TEST(CommandLine, WrongUseIsOneLineAndCodeFive) {
    for (const char* arguments : {"", "fly", "run", "run a.ini b.ini", "run a.ini --speed 3",
                                  "run a.ini --sweep", "run a.ini --clock sundial"}) {
        const Ended ended = RunProgram(arguments);
        EXPECT_EQ(ended.code, 5) << arguments;
        EXPECT_EQ(ended.printed.find("ace-workbench: "), 0U) << arguments;
        EXPECT_EQ(ended.printed.find('\n'), ended.printed.size() - 1) << arguments;
    }
}

TEST(CommandLine, ASweepTakesOneWordSoThatTheFileMayFollow) {
    const Ended ended = RunProgram("run --sweep 80MHz..90MHz/5% " + Examples + "lint_traps.ini");
    EXPECT_NE(ended.printed.find("Sweep 2    80 MHz to 90 MHz"), std::string::npos);
}

TEST(CommandLine, TheOptionsOfTheTransportsAreTaken) {
    const std::string commands = Examples + "remote_commands.ini";
    const Ended simulated =
        RunProgram("run " + commands + " --traffic /dev/null --config " + Examples + "bench.ini");
    EXPECT_EQ(simulated.code, 0);
    EXPECT_NE(simulated.printed.find("GPIB 0:5 \"*RST\\n\": sent 5 bytes (simulated)\n"),
              std::string::npos);
    EXPECT_EQ(RunProgram("run " + commands + " --real --clock virtual").code, 5);
    EXPECT_EQ(RunProgram("run " + commands + " --config missing.ini").code, 4);
}

TEST(CommandLine, ABadFileIsOneLineWithItsPlaceAndCodeFour) {
    const Ended ended = RunProgram("run " + Examples + "load_stops.ini");
    EXPECT_EQ(ended.code, 4);
    EXPECT_EQ(ended.printed.find("ace-workbench: " + Examples +
                                 "load_stops.ini:5: [ActionsOnTest] \"; switch-on sequence\": "),
              0U);
    EXPECT_EQ(ended.printed.find('\n'), ended.printed.size() - 1);
}

TEST(CommandLine, AQuestionWithoutAnswerIsCodeTwo) {
    EXPECT_EQ(RunProgram("run " + Examples + "demo_template.ini").code, 2);
}

TEST(CommandLine, WithAskTheEndOfTheInputIsToldAndCodeTwo) {
    const Ended ended = RunProgram("run " + Examples + "demo_template.ini --ask < /dev/null");
    EXPECT_EQ(ended.code, 2);
    EXPECT_NE(ended.printed.find("\n--- Message from the test ---\n"), std::string::npos);
    EXPECT_NE(ended.printed.find("the operator's input has ended, so the test is stopped"),
              std::string::npos);
}

TEST(CommandLine, OutputThatIsLostIsCodeThree) {
    EXPECT_EQ(RunProgram("run " + Examples + "demo_template.ini > /dev/full").code, 3);
}

}  // namespace
