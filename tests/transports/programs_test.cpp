#include "workbench/transports/programs.h"

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "support/file_fixture.h"
#include "transports/script_fixture.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using ProgramsTest = ScriptTest;

TEST_F(ProgramsTest, AProgramGetsItsArgumentsAsTheyAre) {
    Script("run", "printf '<%s>' \"$@\" > out.tmp; mv out.tmp out");
    Programs programs;
    const double process = programs.Start({Path("run"), "a b", "", "c'd\"", "*"});
    EXPECT_GT(process, 0.0);
    EXPECT_EQ(ReadWhenThere("out"), "<a b><><c'd\"><*>");
}

TEST_F(ProgramsTest, AProgramWithoutASlashIsLookedUp) {
    Programs programs;
    EXPECT_GT(programs.Start({"sh", "-c", "echo found > '" + Path("out") + "'"}), 0.0);
    EXPECT_EQ(ReadWhenThere("out"), "found\n");
}

TEST_F(ProgramsTest, AProgramRunsUntilItEnds) {
    Script("run", "while [ ! -e stop ]; do sleep 0.02; done");
    Programs programs;
    const double process = programs.Start({Path("run")});
    EXPECT_TRUE(programs.IsRunning(process));
    EXPECT_FALSE(programs.IsRunning(0.0));
    EXPECT_FALSE(programs.IsRunning(-1.0));
    EXPECT_FALSE(programs.IsRunning(double{1} + process));
    Write("stop", "");
    EXPECT_TRUE(Eventually([&] { return !programs.IsRunning(process); }));
}

TEST_F(ProgramsTest, AProcessThatWasNotStartedHereDoesNotCount) {
    Programs programs;
    EXPECT_FALSE(programs.IsRunning(::getpid()));
}

TEST_F(ProgramsTest, NoProgramIsLeftAsAZombie) {
    Programs programs;
    const auto process = static_cast<pid_t>(programs.Start({"true"}));
    // Nobody asks for it, and yet it goes.
    EXPECT_TRUE(Eventually([&] { return ::kill(process, 0) == -1 && errno == ESRCH; }));
}

TEST_F(ProgramsTest, AProgramLivesOnWithoutTheObject) {
    Script("run", "while [ ! -e stop ]; do sleep 0.02; done; echo done > out");
    pid_t process = 0;
    {
        Programs programs;
        process = static_cast<pid_t>(programs.Start({Path("run")}));
    }
    EXPECT_EQ(::kill(process, 0), 0);
    Write("stop", "");
    EXPECT_EQ(ReadWhenThere("out"), "done\n");
    EXPECT_TRUE(Eventually([&] { return ::kill(process, 0) == -1; }));
}

TEST_F(ProgramsTest, AProgramGetsNoOpenFileAndNothingToRead) {
    const int file = ::open("/dev/null", O_RDONLY);
    ASSERT_GE(::dup2(file, 77), 0);
    Script("run",
           "[ -e /proc/self/fd/77 ] && echo open > out.tmp || echo closed > out.tmp\n"
           "cat >> out.tmp; mv out.tmp out");
    Programs programs;
    programs.Start({Path("run")});
    EXPECT_EQ(ReadWhenThere("out"), "closed\n");
    ::close(file);
    ::close(77);
}

TEST_F(ProgramsTest, AProgramThatIsNotThereIsError53WithItsName) {
    Programs programs;
    const RunTimeError error = ErrorIn([&] { programs.Start({Path("missing")}); });
    EXPECT_EQ(error.Number(), 53);
    EXPECT_EQ(error.Description(),
              WidePath("missing") + L": can't start: No such file or directory");
    EXPECT_EQ(ErrorIn([&] { programs.Start({"no-such-program-anywhere"}); }).Number(), 53);
}

/// In a process of its own, whose user may have no further thread; the superuser always may.
TEST_F(ProgramsTest, WithoutAThreadAProgramCannotBeStartedAndNothingElseComesOut) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit none{0, 0};
        ::setrlimit(RLIMIT_NPROC, &none);
        const bool isLimited = ::geteuid() != 0 || ::setuid(65534) == 0;
        try {
            Programs programs;
            const RunTimeError error = ErrorIn([&] { programs.Start({"true"}); });
            const bool isPromised =
                error.Number() == TransportErrors::CannotStart &&
                error.Description() == L"true: can't start: Resource temporarily unavailable";
            ::_exit(isLimited && isPromised ? 0 : 1);
        } catch (...) {
            ::_exit(2);
        }
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST_F(ProgramsTest, AProgramThatCannotBeStartedIsAnErrorThatIsNot5) {
    Write("text", "no program");
    Programs programs;
    const RunTimeError error = ErrorIn([&] { programs.Start({Path("text")}); });
    EXPECT_EQ(error.Number(), TransportErrors::CannotStart);
    EXPECT_EQ(error.Description(), WidePath("text") + L": can't start: Permission denied");
    EXPECT_EQ(ErrorIn([&] { programs.Start({folder}); }).Number(), TransportErrors::CannotStart);
}

}  // namespace
}  // namespace ace::workbench
