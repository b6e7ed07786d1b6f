#include "workbench/cli/interrupts.h"

#include <atomic>
#include <csignal>

namespace ace::workbench {

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

extern "C" void OnInterrupt(int signal) {
    interrupted = true;
    if (signal == SIGINT) {
        std::signal(SIGINT, SIG_DFL);
    }
}

void Catch(int signal) {
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    ::sigaction(signal, &action, nullptr);
}

bool IsIgnored(int signal) {
    struct sigaction action {};
    return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
}

}  // namespace

void CatchInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGQUIT}) {
        Catch(signal);
    }
    if (!IsIgnored(SIGHUP)) {
        Catch(SIGHUP);
    }
    std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted() {
    return interrupted;
}

}  // namespace ace::workbench
