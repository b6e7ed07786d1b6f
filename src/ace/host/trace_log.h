/// The host's trace log and error recorder.
#pragma once

#include <ace/host/run_time_error.h>

namespace ace {

/// Trace lines and error reports. No operation lets messages run.
class ITraceLog {
  public:
    /// The answer of `ReportError` that asks for the failed statement to be run again.
    static constexpr std::int32_t RetryStatement = 5;

    virtual ~ITraceLog() = default;
    /// Tracing is on. Asked before every single line; nothing is formatted when it says no.
    virtual bool IsEnabled() = 0;
    /// Records a run-time error that passes through an operation, also when tracing is off, and
    /// says what to do next: `RetryStatement`, or any other number to have the error raised.
    /// `errorLine` is the line of the failed statement in the engine's source. When this call, or
    /// asking for the thread's number before it, fails, the error that it is about is raised.
    virtual std::int32_t ReportError(const RunTimeError& error, std::int32_t threadId,
                                     std::int32_t errorLine) = 0;
    /// Writes one trace line. `marker` is "start" or "end"; the end line of an operation has empty
    /// component, module and message.
    virtual void WriteLine(StringView marker, StringView component, StringView module,
                           StringView procedure, StringView message, StringView threadId) = 0;
};

/// Never traces and lets every error pass.
class DefaultTraceLog : public ITraceLog {
  public:
    bool IsEnabled() override { return false; }
    std::int32_t ReportError(const RunTimeError&, std::int32_t, std::int32_t) override { return 0; }
    void WriteLine(StringView, StringView, StringView, StringView, StringView,
                   StringView) override {}
};

}  // namespace ace
