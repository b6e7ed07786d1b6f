/// Runs API macros: executable files of this machine.
#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

#include <ace/host/api_macro.h>

#include "workbench/transports/macro_inputs.h"
#include "workbench/transports/remarks.h"
#include "workbench/transports/waiting.h"

namespace ace::workbench {

/// The inputs of the macro in that file (UTF-8), once it is sure that it can be run: a plain file
/// that this process may execute, with a list of inputs that can be read. Otherwise an error that
/// says what is wrong, without the file's name where it is the macro itself.
std::vector<MacroInput> LoadMacro(const std::string& file);

/// A macro is an executable file; the texts of its inputs are its arguments, in UTF-8. It succeeds
/// with exit code 0. Its error output is the text of its failure, which goes to `remark`; what it
/// prints otherwise is dropped. It has nothing to read. The end of the object ends a macro that
/// runs.
class MacroRunner final : public IApiMacro {
  public:
    explicit MacroRunner(RunEvents events = {}, Remark remark = {});
    MacroRunner(const MacroRunner&) = delete;
    MacroRunner& operator=(const MacroRunner&) = delete;
    ~MacroRunner() override;

    std::int16_t ParameterCount() override;
    /// Error 9 for an input that isn't there.
    MacroParameterInfo ParameterInfo(std::int32_t& index) override;
    /// False, with the cause as a remark, for a file that isn't there or may not be executed, for a
    /// list of inputs that can't be read, and while the last macro still runs.
    bool Load(const String& program, const Value& parameters, const Value& second,
              Value& value) override;
    /// Asks the macro and its children to end and ends what has not ended after half a second.
    /// Children that made themselves a process group of their own are not reached.
    void Abort() override;
    /// False before the end of the first macro and after one that was broken off.
    bool GetResult() override { return x_hasSucceeded; }
    bool Execute(String& text, String& errorText, Value& value) override;
    /// An exception out of the events breaks the macro off.
    void WaitFinished() override;

    /// What the last macro wrote to its error output, without line ends at its end; the first 64
    /// kilobytes of it.
    String ErrorText() const;

  private:
    bool IsRunning() const { return x_process != 0; }
    void LoadFile(const std::string& file, const Value& parameters);
    void ReadErrorOutput();
    bool AwaitEndFor(Milliseconds time);
    void LookForEnd();
    void Finish(int status);

    RunEvents x_events;
    Remark x_remark;
    std::vector<std::string> x_arguments;  ///< the macro's file first; empty when none is loaded
    std::vector<MacroInput> x_inputs;
    pid_t x_process = 0;  ///< 0 when none runs
    int x_errorPipe = -1;
    std::string x_errorOutput;
    bool x_hasSucceeded = false;
    bool x_isAborted = false;
};

}  // namespace ace::workbench
