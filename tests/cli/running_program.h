/// The workbench as a process of its own.
#pragma once

#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace ace::workbench {

/// Runs a command line of a shell, to which the program is `$0`, in a process group of its own, as
/// a terminal does. What it prints comes through a pipe; the test holds its reading end.
class RunningProgram {
  public:
    explicit RunningProgram(const std::string& commandLine) {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe for the program");
        }
        x_output = ends[0];
        posix_spawn_file_actions_t actions;
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        std::vector<std::string> words = {"sh", "-c", commandLine, ACE_PROGRAM};
        std::vector<char*> arguments;
        for (std::string& word : words) {
            arguments.push_back(word.data());
        }
        arguments.push_back(nullptr);
        posix_spawnattr_t attributes;
        ::posix_spawnattr_init(&attributes);
        ::posix_spawnattr_setpgroup(&attributes, 0);
        ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
        const int error =
            ::posix_spawnp(&x_process, "sh", &actions, &attributes, arguments.data(), environ);
        ::posix_spawn_file_actions_destroy(&actions);
        ::posix_spawnattr_destroy(&attributes);
        ::close(ends[1]);
        if (error != 0) {
            throw std::runtime_error("the program can't be started");
        }
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram() {
        if (x_process > 0) {
            ::kill(-x_process, SIGKILL);
            ExitCode();
        }
        CloseOutput();
    }

    void Send(int signal) const { ::kill(-x_process, signal); }
    /// Nobody reads any more what it prints.
    void CloseOutput() {
        if (x_output >= 0) {
            ::close(std::exchange(x_output, -1));
        }
    }
    /// What it prints from here to its end.
    std::string ReadOutput() const {
        std::string printed;
        std::array<char, 4096> buffer{};
        for (ssize_t size = 0; (size = ::read(x_output, buffer.data(), buffer.size())) > 0;) {
            printed.append(buffer.data(), static_cast<std::size_t>(size));
        }
        return printed;
    }
    /// Waits for its end; the negative signal when one ended it.
    int ExitCode() {
        int status = 0;
        ::waitpid(std::exchange(x_process, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

  private:
    pid_t x_process = 0;
    int x_output = -1;
};

}  // namespace ace::workbench
