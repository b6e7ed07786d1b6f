#include "workbench/transports/child_process.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace ace::workbench {

namespace {

/// What the child does with its files before it begins.
class FileActions {
  public:
    FileActions() { ::posix_spawn_file_actions_init(&x_actions); }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    ~FileActions() { ::posix_spawn_file_actions_destroy(&x_actions); }

    /// Answers an `errno`, 0 for success.
    int Describe(int errorOutput) {
        int error = errorOutput >= 0 ? Duplicate(errorOutput, STDERR_FILENO)
                                     : OpenNothing(STDERR_FILENO, O_WRONLY);
        if (error == 0) {
            error = OpenNothing(STDIN_FILENO, O_RDONLY);
        }
        if (error == 0) {
            error = OpenNothing(STDOUT_FILENO, O_WRONLY);
        }
        // Sockets and ports of the host are not the child's to keep open.
        return error != 0
                   ? error
                   : ::posix_spawn_file_actions_addclosefrom_np(&x_actions, STDERR_FILENO + 1);
    }
    const posix_spawn_file_actions_t* Get() const { return &x_actions; }

  private:
    int Duplicate(int from, int to) {
        return ::posix_spawn_file_actions_adddup2(&x_actions, from, to);
    }
    int OpenNothing(int file, int flags) {
        return ::posix_spawn_file_actions_addopen(&x_actions, file, "/dev/null", flags, 0);
    }

    posix_spawn_file_actions_t x_actions{};
};

/// How the child stands to the host's session and signals.
class Attributes {
  public:
    Attributes() { ::posix_spawnattr_init(&x_attributes); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    ~Attributes() { ::posix_spawnattr_destroy(&x_attributes); }

    int Describe(bool hasOwnSession) {
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        ::posix_spawnattr_setsigmask(&x_attributes, &none);
        ::posix_spawnattr_setsigdefault(&x_attributes, &all);
        ::posix_spawnattr_setpgroup(&x_attributes, 0);
        const int place = hasOwnSession ? POSIX_SPAWN_SETSID : POSIX_SPAWN_SETPGROUP;
        return ::posix_spawnattr_setflags(
            &x_attributes,
            static_cast<short>(place | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
    }
    const posix_spawnattr_t* Get() const { return &x_attributes; }

  private:
    posix_spawnattr_t x_attributes{};
};

}  // namespace

ChildStart StartChild(const ChildRequest& request) {
    FileActions actions;
    Attributes attributes;
    ChildStart start;
    start.error = actions.Describe(request.errorOutput);
    if (start.error == 0) {
        start.error = attributes.Describe(request.hasOwnSession);
    }
    if (start.error != 0) {
        return start;
    }
    std::vector<std::string> words = request.arguments;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    const auto spawn = request.searchesPath ? ::posix_spawnp : ::posix_spawn;
    start.error = spawn(&start.process, arguments.front(), actions.Get(), attributes.Get(),
                        arguments.data(), environ);
    if (start.error != 0) {
        start.process = 0;
    }
    return start;
}

}  // namespace ace::workbench
