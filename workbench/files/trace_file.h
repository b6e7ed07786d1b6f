/// A trace log in a file.
#pragma once

#include <functional>

#include <ace/host/trace_log.h>

#include "workbench/files/file_calls.h"

namespace ace::workbench {

/// The local time as "2025-03-14 16:05:09.120".
std::string LocalTimeText();

/// Writes trace lines and error reports as lines of UTF-8 in columns that a reader can follow:
/// time, marker, thread, procedure, module, component, message. Line ends and other control
/// characters within a text are shown as escapes. Every line is in the file when the call returns.
/// A log that can't be written never disturbs the test: it falls silent and keeps the reason.
class TraceFile : public ITraceLog {
  public:
    /// The log of the file at `path` (UTF-8). Nothing is written before `Make`: lines are kept
    /// until then. `now` gives the time column. `calls` must outlive the object.
    explicit TraceFile(std::string path, std::function<std::string()> now = LocalTimeText,
                       FileCalls& calls = SystemFileCalls());
    ~TraceFile() override;
    TraceFile(const TraceFile&) = delete;
    TraceFile& operator=(const TraceFile&) = delete;

    /// Makes the file anew, with the lines so far, or raises `FileErrors::CannotSave` with the
    /// reason. To be called once.
    void Make();

    /// Whether trace lines are wanted; error reports are always written.
    void Enable(bool on) { x_isEnabled = on; }
    /// Why the log fell silent; empty while it is well.
    const String& Failure() const { return x_failure; }

    bool IsEnabled() override { return x_isEnabled; }
    /// Writes the error and lets it be raised.
    std::int32_t ReportError(const RunTimeError& error, std::int32_t threadId,
                             std::int32_t errorLine) override;
    void WriteLine(StringView marker, StringView component, StringView module, StringView procedure,
                   StringView message, StringView threadId) override;

  private:
    void Append(const std::string& line);
    void WriteOut(std::string_view bytes);

    FileCalls& x_calls;
    std::function<std::string()> x_now;
    std::string x_path;
    std::string x_kept;  ///< the lines before the file was made
    int x_file = -1;
    bool x_isEnabled = true;
    String x_failure;
};

}  // namespace ace::workbench
