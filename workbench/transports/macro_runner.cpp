#include "workbench/transports/macro_runner.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "workbench/files/system_reason.h"
#include "workbench/files/text_encoding.h"
#include "workbench/transports/child_process.h"
#include "workbench/transports/own_thread.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

constexpr Milliseconds TimeToEnd{500};
constexpr Milliseconds TimeToDie{2000};
constexpr std::size_t MostErrorOutput = 65536;

[[noreturn]] void RaiseCannotLoad(const String& why) {
    throw RunTimeError(TransportErrors::CannotStart, why);
}

/// The texts of the inputs stand at the indexes from 1.
void AppendArguments(const Value& parameters, std::vector<std::string>& arguments) {
    const auto* texts = std::get_if<DynArray<String>>(&parameters);
    if (texts == nullptr || !texts->IsAllocated()) {
        return;
    }
    for (std::int32_t i = std::max(1, texts->LowerBound()); i <= texts->UpperBound(); ++i) {
        if ((*texts)[i].find(L'\0') != String::npos) {
            RaiseCannotLoad(L"input " + std::to_wstring(i) + L" holds a zero character");
        }
        arguments.push_back(ToUtf8((*texts)[i]));
    }
}

/// Reaps a process that does not die at once, whenever it does. Without a thread it stays a zombie
/// until the workbench ends.
void ReapLater(pid_t process) {
    RunOnOwnThread([process] {
        int status = 0;
        while (::waitpid(process, &status, 0) == -1 && errno == EINTR) {
        }
    });
}

String EndingText(int status) {
    return WIFSIGNALED(status) ? L"ended by signal " + std::to_wstring(WTERMSIG(status))
                               : L"exit code " + std::to_wstring(WEXITSTATUS(status));
}

}  // namespace

MacroRunner::MacroRunner(RunEvents events, Remark remark)
    : x_events(std::move(events)), x_remark(std::move(remark)) {}

MacroRunner::~MacroRunner() {
    Abort();
}

std::int16_t MacroRunner::ParameterCount() {
    return static_cast<std::int16_t>(x_inputs.size());
}

MacroParameterInfo MacroRunner::ParameterInfo(std::int32_t& index) {
    if (index < 1 || index > ParameterCount()) {
        Raise(Errors::SubscriptOutOfRange);
    }
    const MacroInput& input = x_inputs[static_cast<std::size_t>(index - 1)];
    return {input.isTable ? MacroParameterInfo::TableKind : 0};
}

bool MacroRunner::Load(const String& program, const Value& parameters, const Value&, Value&) {
    if (IsRunning()) {
        Tell(x_remark, L"API macro " + program + L": can't load: another macro still runs");
        return false;
    }
    try {
        LoadFile(ToUtf8(program), parameters);
        return true;
    } catch (const RunTimeError& error) {
        x_arguments.clear();
        x_inputs.clear();
        Tell(x_remark, L"API macro " + program + L": can't load: " + error.Description());
        return false;
    }
}

std::vector<MacroInput> LoadMacro(const std::string& file) {
    std::error_code error;
    const auto kind = std::filesystem::status(file, error).type();
    if (kind == std::filesystem::file_type::not_found) {
        RaiseCannotLoad(L"there is no such file");
    }
    if (error || kind != std::filesystem::file_type::regular) {
        RaiseCannotLoad(L"it is no plain file");
    }
    if (::access(file.c_str(), X_OK) != 0) {
        RaiseCannotLoad(L"it may not be executed: " + SystemReason(errno));
    }
    return ReadMacroInputs(file);
}

void MacroRunner::LoadFile(const std::string& file, const Value& parameters) {
    x_inputs = LoadMacro(file);
    x_arguments = {file};
    AppendArguments(parameters, x_arguments);
}

bool MacroRunner::Execute(String&, String& errorText, Value&) {
    if (IsRunning() || x_arguments.empty()) {
        errorText = IsRunning() ? L"another macro still runs" : L"no macro is loaded";
        return false;
    }
    x_hasSucceeded = false;
    x_isAborted = false;
    x_errorOutput.clear();
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        errorText = SystemReason(errno);
        return false;
    }
    ChildRequest request;
    request.arguments = x_arguments;
    request.errorOutput = pipe[1];
    const ChildStart start = StartChild(request);
    ::close(pipe[1]);
    if (start.error != 0) {
        ::close(pipe[0]);
        errorText = FromUtf8(x_arguments.front()) + L": can't start: " + SystemReason(start.error);
        return false;
    }
    ::fcntl(pipe[0], F_SETFL, O_NONBLOCK);
    x_errorPipe = pipe[0];
    x_process = start.process;
    return true;
}

void MacroRunner::WaitFinished() {
    try {
        LookForEnd();
        while (IsRunning()) {
            SleepAndRunEvents(x_events);
            LookForEnd();
        }
    } catch (...) {
        Abort();
        throw;
    }
}

/// Keeps the pipe empty, so that a talkative macro is not held up.
void MacroRunner::ReadErrorOutput() {
    std::array<char, 4096> bytes{};
    for (;;) {
        const ssize_t count = ::read(x_errorPipe, bytes.data(), bytes.size());
        if (count == -1 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return;
        }
        const std::size_t room = MostErrorOutput - x_errorOutput.size();
        x_errorOutput.append(bytes.data(), std::min(room, static_cast<std::size_t>(count)));
    }
}

void MacroRunner::LookForEnd() {
    if (!IsRunning()) {
        return;
    }
    ReadErrorOutput();
    int status = 0;
    const pid_t ended = ::waitpid(x_process, &status, WNOHANG);
    if (ended == x_process) {
        Finish(status);
    } else if (ended == -1 && errno == ECHILD) {
        // Somebody else took the exit code: that is no success.
        Finish(W_EXITCODE(1, 0));
    }
}

void MacroRunner::Finish(int status) {
    ReadErrorOutput();
    ::close(x_errorPipe);
    x_errorPipe = -1;
    x_process = 0;
    x_hasSucceeded = !x_isAborted && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (x_hasSucceeded) {
        return;
    }
    const String errors = ErrorText();
    Tell(x_remark, L"API macro " + FromUtf8(x_arguments.front()) + L": " +
                       (x_isAborted ? String(L"broken off") : EndingText(status)) +
                       (errors.empty() ? L"" : L": ") + errors);
}

/// True when the macro has ended, not yet reaped: its identifier still stands for its group.
bool MacroRunner::AwaitEndFor(Milliseconds time) {
    const Deadline deadline = DeadlineIn(time);
    for (;;) {
        siginfo_t info{};
        ReadErrorOutput();
        const int asked =
            ::waitid(P_PID, static_cast<id_t>(x_process), &info, WEXITED | WNOHANG | WNOWAIT);
        if (asked != 0 || info.si_pid == x_process) {
            return true;
        }
        if (HasPassed(deadline)) {
            return false;
        }
        SleepAndRunEvents({});
    }
}

void MacroRunner::Abort() {
    if (!IsRunning()) {
        return;
    }
    x_isAborted = true;
    ::kill(-x_process, SIGTERM);
    AwaitEndFor(TimeToEnd);
    ::kill(-x_process, SIGKILL);
    if (AwaitEndFor(TimeToDie)) {
        LookForEnd();
    } else {
        ReapLater(x_process);
        Finish(W_EXITCODE(0, SIGKILL));
    }
}

String MacroRunner::ErrorText() const {
    const std::size_t last = x_errorOutput.find_last_not_of("\r\n");
    return FromUtf8(std::string_view(x_errorOutput).substr(0, last + 1));
}

}  // namespace ace::workbench
