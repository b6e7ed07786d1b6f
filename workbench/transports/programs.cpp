#include "workbench/transports/programs.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <future>
#include <sys/wait.h>

#include <ace/host/run_time_error.h>

#include "workbench/files/system_reason.h"
#include "workbench/files/text_encoding.h"
#include "workbench/transports/child_process.h"
#include "workbench/transports/own_thread.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

void AwaitEnd(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) == -1 && errno == EINTR) {
    }
}

[[noreturn]] void RaiseCannotStart(const std::string& program, int error) {
    const std::int32_t number = error == ENOENT ? Errors::NoSuchFile : TransportErrors::CannotStart;
    throw RunTimeError(number, FromUtf8(program) + L": can't start: " + SystemReason(error));
}

}  // namespace

struct Programs::Program {
    double process = 0.0;          ///< set before anybody else sees it
    std::promise<int> startError;  ///< an `errno`
    std::atomic<bool> hasEnded = false;
};

double Programs::Start(const std::vector<std::string>& arguments) {
    std::erase_if(x_programs, [](const auto& program) { return program->hasEnded.load(); });
    ChildRequest request;
    request.arguments = arguments;
    request.searchesPath = true;
    request.hasOwnSession = true;
    const auto program = std::make_shared<Program>();
    std::future<int> whenStarted = program->startError.get_future();
    // The thread that will wait also starts: without a thread nothing is started either.
    const int noThread = RunOnOwnThread([program, request] {
        const ChildStart start = StartChild(request);
        program->process = start.process;
        program->startError.set_value(start.error);
        if (start.error == 0) {
            AwaitEnd(start.process);
        }
        program->hasEnded = true;
    });
    if (const int failed = noThread != 0 ? noThread : whenStarted.get()) {
        RaiseCannotStart(arguments.front(), failed);
    }
    x_programs.push_back(program);
    return program->process;
}

bool Programs::IsRunning(double processId) const {
    return std::any_of(x_programs.begin(), x_programs.end(), [&](const auto& program) {
        return program->process == processId && !program->hasEnded;
    });
}

}  // namespace ace::workbench
