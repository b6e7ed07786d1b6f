/// Programs that actions start.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// Starts programs and knows which of them still run. A program lives on when the workbench ends,
/// and none is left as a zombie: each has a thread that waits for its end. All calls come from one
/// thread.
class Programs {
  public:
    /// Starts the program and answers its process identifier, which is above 0. A program without
    /// "/" is looked up as a shell does. A failure is a run-time error that is never 5 and names
    /// the program and the cause: 53 for a file that isn't there, otherwise
    /// `TransportErrors::CannotStart`.
    double Start(const std::vector<std::string>& arguments);
    /// True for a process that was started here and has not ended.
    bool IsRunning(double processId) const;

  private:
    struct Program;

    std::vector<std::shared_ptr<const Program>> x_programs;
};

}  // namespace ace::workbench
