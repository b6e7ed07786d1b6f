#include "workbench/transports/macro_runner.h"

#include <csignal>
#include <optional>

#include "transports/failure.h"
#include "transports/script_fixture.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class MacroRunnerTest : public ScriptTest {
  protected:
    MacroRunnerTest() { MakeRunner(); }

    void MakeRunner() {
        runner.emplace(
            [this] {
                ++events;
                if (onEvent) {
                    onEvent();
                }
            },
            [this](const String& line) { remarks.push_back(Narrow(line)); });
    }
    bool Load(const std::string& name, const Value& parameters = {}) {
        Value unread;
        return runner->Load(WidePath(name), parameters, {}, unread);
    }
    bool Execute() {
        String text;
        Value unread;
        errorText.clear();
        return runner->Execute(text, errorText, unread);
    }
    /// Loads, starts, waits and answers the result.
    bool Run(const std::string& name, const Value& parameters = {}) {
        EXPECT_TRUE(Load(name, parameters));
        EXPECT_TRUE(Execute());
        runner->WaitFinished();
        const bool result = runner->GetResult();
        EXPECT_EQ(runner->GetResult(), result);
        return result;
    }
    static Value Parameters(const std::vector<String>& texts) {
        DynArray<String> array;
        array.Redim(1, static_cast<std::int32_t>(texts.size()));
        for (std::size_t i = 0; i < texts.size(); ++i) {
            array[static_cast<std::int32_t>(i) + 1] = texts[i];
        }
        return array;
    }
    pid_t ProcessIn(const std::string& file) const { return std::stoi(ReadWhenThere(file)); }
    /// There is no such process any more, not even as a zombie.
    static bool IsGone(pid_t process) {
        return Eventually([&] { return ::kill(process, 0) == -1 && errno == ESRCH; });
    }
    /// The process has ended. Reaping it is the task of whoever inherited it.
    static bool HasEnded(pid_t process) {
        return Eventually([&] {
            std::ostringstream status;
            status << std::ifstream("/proc/" + std::to_string(process) + "/stat").rdbuf();
            const std::size_t name = status.str().rfind(')');
            return name == std::string::npos || status.str().substr(name).starts_with(") Z");
        });
    }

    int events = 0;
    std::function<void()> onEvent;
    std::vector<std::string> remarks;
    String errorText;
    std::optional<MacroRunner> runner;
};

TEST_F(MacroRunnerTest, ExitCode0IsSuccess) {
    Script("good", "exit 0");
    Script("bad", "exit 3");
    EXPECT_TRUE(Run("good"));
    EXPECT_THAT(remarks, IsEmpty());
    EXPECT_FALSE(Run("bad"));
    EXPECT_TRUE(Run("good"));
}

TEST_F(MacroRunnerTest, ASignalIsNoSuccess) {
    Script("killed", "kill -9 $$");
    EXPECT_FALSE(Run("killed"));
    EXPECT_THAT(remarks, ElementsAre("API macro " + Path("killed") + ": ended by signal 9"));
}

TEST_F(MacroRunnerTest, ParametersAreItsArguments) {
    Script("args", "printf '<%s>' \"$@\" > out");
    EXPECT_TRUE(Run("args", Parameters({L"150000000,0", L"", L"a \"b\"", L"\x00B5V"})));
    EXPECT_EQ(Read("out"), "<150000000,0><><a \"b\"><\xC2\xB5V>");
    EXPECT_TRUE(Run("args"));
    EXPECT_EQ(Read("out"), "<>");
}

TEST_F(MacroRunnerTest, TheTextAtIndex0IsNoArgument) {
    Script("args", "echo $# \"$1\" > out");
    DynArray<String> array;
    array.Redim(0, 1);
    array[0] = L"zero";
    array[1] = L"one";
    EXPECT_TRUE(Run("args", array));
    EXPECT_EQ(Read("out"), "1 one\n");
}

TEST_F(MacroRunnerTest, ErrorOutputIsTheErrorText) {
    Script("bad", "echo lost; echo 'no carrier' >&2; echo 'giving up' >&2; exit 4");
    EXPECT_FALSE(Run("bad"));
    EXPECT_EQ(runner->ErrorText(), L"no carrier\ngiving up");
    EXPECT_THAT(remarks,
                ElementsAre("API macro " + Path("bad") + ": exit code 4: no carrier\ngiving up"));
}

TEST_F(MacroRunnerTest, MuchErrorOutputDoesNotHoldTheMacroUp) {
    Script("loud", "dd if=/dev/zero bs=1024 count=300 2>/dev/null | tr '\\0' x >&2");
    EXPECT_TRUE(Run("loud"));
    EXPECT_EQ(runner->ErrorText(), String(64 * 1024, L'x'));
}

TEST_F(MacroRunnerTest, AnotherMacroBeginsWithoutErrorText) {
    Script("bad", "echo old >&2; exit 1");
    Script("good", "exit 0");
    EXPECT_FALSE(Run("bad"));
    EXPECT_TRUE(Run("good"));
    EXPECT_EQ(runner->ErrorText(), L"");
}

TEST_F(MacroRunnerTest, InputsAreThoseOfTheList) {
    Script("macro", "exit 0");
    Write("macro.inputs", "value Level\ntable Levels\n");
    ASSERT_TRUE(Load("macro"));
    EXPECT_EQ(runner->ParameterCount(), 2);
    std::int32_t index = 1;
    EXPECT_NE(runner->ParameterInfo(index).kind, MacroParameterInfo::TableKind);
    index = 2;
    EXPECT_EQ(runner->ParameterInfo(index).kind, MacroParameterInfo::TableKind);
    for (std::int32_t outside : {0, 3, -1}) {
        EXPECT_EQ(ErrorIn([&] { runner->ParameterInfo(outside); }).Number(), 9);
    }
}

TEST_F(MacroRunnerTest, AMacroWithoutAListHasNoInputs) {
    Script("macro", "exit 0");
    ASSERT_TRUE(Load("macro"));
    EXPECT_EQ(runner->ParameterCount(), 0);
}

TEST_F(MacroRunnerTest, WhatIsNoExecutableFileDoesNotLoadAndTheCauseIsTold) {
    Write("text", "");
    Script("badlist", "exit 0");
    Write("badlist.inputs", "x");
    EXPECT_FALSE(Load("missing"));
    EXPECT_FALSE(Load("."));
    EXPECT_FALSE(Load("text"));
    EXPECT_FALSE(Load("badlist"));
    EXPECT_THAT(remarks,
                ElementsAre("API macro " + Path("missing") + ": can't load: there is no such file",
                            "API macro " + Path(".") + ": can't load: it is no plain file",
                            "API macro " + Path("text") +
                                ": can't load: it may not be executed: Permission denied",
                            HasSubstr("can't load: " + Path("badlist.inputs") + ": line 1: ")));
    EXPECT_FALSE(Execute());
    EXPECT_EQ(errorText, L"no macro is loaded");
}

TEST_F(MacroRunnerTest, AZeroCharacterInAParameterDoesNotLoad) {
    Script("macro", "exit 0");
    EXPECT_FALSE(Load("macro", Parameters({L"a", String(L"b\0c", 3)})));
    EXPECT_THAT(remarks, ElementsAre(HasSubstr("input 2 holds a zero character")));
}

TEST_F(MacroRunnerTest, AMacroThatCannotBeStartedTellsWhy) {
    Write("odd", "no program and no script");
    std::filesystem::permissions(Path("odd"), std::filesystem::perms::owner_all);
    ASSERT_TRUE(Load("odd"));
    EXPECT_FALSE(Execute());
    EXPECT_EQ(errorText, WidePath("odd") + L": can't start: Exec format error");
    EXPECT_FALSE(runner->GetResult());
}

TEST_F(MacroRunnerTest, EventsRunWhileItRuns) {
    Script("slow", "while [ ! -e stop ]; do sleep 0.02; done");
    onEvent = [this] {
        if (events == 5) {
            Write("stop", "");
        }
    };
    EXPECT_TRUE(Run("slow"));
    EXPECT_GE(events, 5);
}

TEST_F(MacroRunnerTest, AbortEndsItAndItsChildren) {
    Script("family", "sleep 600 &\necho $! > child.tmp; mv child.tmp child\necho $$ > self; wait");
    onEvent = [this] {
        if (!Read("self").empty()) {
            runner->Abort();
        }
    };
    EXPECT_FALSE(Run("family"));
    EXPECT_TRUE(IsGone(ProcessIn("self")));
    EXPECT_TRUE(HasEnded(ProcessIn("child")));
    EXPECT_THAT(remarks, ElementsAre("API macro " + Path("family") + ": broken off"));
}

TEST_F(MacroRunnerTest, AbortEndsAMacroThatDoesNotWantToEnd) {
    Script("deaf", "trap '' TERM\necho $$ > self\nwhile :; do sleep 0.02; done");
    onEvent = [this] {
        if (!Read("self").empty()) {
            runner->Abort();
        }
    };
    EXPECT_FALSE(Run("deaf"));
    EXPECT_TRUE(IsGone(ProcessIn("self")));
}

TEST_F(MacroRunnerTest, AMacroThatEndsWellWhenAskedToIsNoSuccess) {
    Script("civil", "trap 'exit 0' TERM\necho $$ > self\nwhile :; do sleep 0.02; done");
    onEvent = [this] {
        if (!Read("self").empty()) {
            runner->Abort();
        }
    };
    EXPECT_FALSE(Run("civil"));
}

TEST_F(MacroRunnerTest, AbortWithoutARunningMacroDoesNothing) {
    Script("good", "exit 0");
    runner->Abort();
    EXPECT_TRUE(Run("good"));
    runner->Abort();
    EXPECT_TRUE(runner->GetResult());
    EXPECT_THAT(remarks, IsEmpty());
}

TEST_F(MacroRunnerTest, WhileItRunsNoOtherMacroIsLoadedOrStarted) {
    Script("slow", "while [ ! -e stop ]; do sleep 0.02; done");
    std::vector<bool> answers;
    onEvent = [&] {
        if (answers.empty()) {
            answers = {Load("slow"), Execute()};
            Write("stop", "");
        }
    };
    EXPECT_TRUE(Run("slow"));
    EXPECT_THAT(answers, ElementsAre(false, false));
    EXPECT_EQ(errorText, L"another macro still runs");
}

TEST_F(MacroRunnerTest, AnExceptionOutOfTheEventsBreaksItOff) {
    Script("slow", "echo $$ > self; sleep 600");
    onEvent = [this] {
        if (!Read("self").empty()) {
            throw std::runtime_error("stopped");
        }
    };
    ASSERT_TRUE(Load("slow"));
    ASSERT_TRUE(Execute());
    EXPECT_THROW(runner->WaitFinished(), std::runtime_error);
    EXPECT_TRUE(IsGone(ProcessIn("self")));
    EXPECT_FALSE(runner->GetResult());
}

TEST_F(MacroRunnerTest, TheEndOfTheObjectEndsTheMacro) {
    Script("slow", "echo $$ > self; sleep 600");
    ASSERT_TRUE(Load("slow"));
    ASSERT_TRUE(Execute());
    ReadWhenThere("self");
    runner.reset();
    EXPECT_TRUE(IsGone(ProcessIn("self")));
}

TEST_F(MacroRunnerTest, AChildThatKeepsTheErrorOutputOpenDoesNotHoldTheEndUp) {
    Script("parent", "sleep 600 &\necho $! > child\nexit 0");
    EXPECT_TRUE(Run("parent"));
    ::kill(ProcessIn("child"), SIGKILL);
}

}  // namespace
}  // namespace ace::workbench
