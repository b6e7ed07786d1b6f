/// Starting a process of this machine.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace ace::workbench {

/// What to start. The child gets nothing of the host but its environment and its folder: no open
/// file, no blocked or ignored signal, and nothing to read. What it prints is dropped.
struct ChildRequest {
    std::vector<std::string> arguments;  ///< the program first, all in UTF-8
    bool searchesPath = false;           ///< a program without "/" is looked up as a shell does
    bool hasOwnSession = false;  ///< outlives the host and its terminal; otherwise a process group
    int errorOutput = -1;        ///< file descriptor that takes its error output; -1 drops that too
};

/// Either a process or the `errno` of the start.
struct ChildStart {
    pid_t process = 0;
    int error = 0;
};

/// Starts it. The process is the leader of its process group; the caller waits for its end.
ChildStart StartChild(const ChildRequest& request);

}  // namespace ace::workbench
