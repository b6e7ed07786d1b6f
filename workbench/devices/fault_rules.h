/// Failures on purpose: which call of which device, transport or program fails, written down so
/// that an error policy can be tried before the chamber is booked.
#pragma once

#include <functional>
#include <vector>

#include <ace/host/run_time_error.h>

#include "workbench/devices/instrument_link.h"

namespace ace::workbench {

/// What can fail.
enum class FaultSubject { Gpib, Serial, Tcp, Device, Program, Macro };

/// What it is doing then. The words of a script for each subject stand in docs/devices.md.
enum class FaultAct {
    Opening,
    Write,
    Activation,
    State,
    Setting,
    Reading,
    Switching,
    Call,
    Start,
    Run
};

/// One line of a script.
struct FaultRule {
    FaultSubject subject = FaultSubject::Device;
    String name;  ///< address, device's name, or pattern of a command line or macro
    FaultAct act = FaultAct::Call;
    std::size_t first = 1;   ///< number of the call that fails, from 1
    bool isForGood = false;  ///< all later ones fail too
    std::int32_t error = Errors::DeviceFailed;
    std::size_t line = 0;  ///< in the script, from 1
    String text;           ///< the line as it is written
};

/// Counts the calls that its rules are about, and says which ones fail.
class FaultRules {
  public:
    FaultRules() = default;
    /// Reads a script, one rule a line; empty lines and lines that begin with "#" are comments:
    ///   GPIB 0:13 fails at the 40th write
    ///   device EUT Monitor fails at every reading, error 8202
    ///   program *exerciser* fails from the 2nd start on
    /// `path` is for messages. Anything else is `CommandError` `BadFile` with file and line, and so
    /// is an error number that would have no effect: of a macro, or 5 of a program's start.
    FaultRules(StringView script, const String& path);

    bool IsEmpty() const { return x_rules.empty(); }
    /// In the order of the script.
    std::vector<FaultRule> All() const;
    /// Is told of each failure, before it happens; none to end that.
    std::function<void(const FaultRule&)> onFault;

    /// Counts one call. The error of the rule that lets it fail comes out, its line as description.
    void Count(FaultSubject subject, StringView name, FaultAct act);
    /// The rules that have not let anything fail yet, as they are written.
    std::vector<String> Unused() const;

  private:
    struct Counted {
        FaultRule rule;
        std::size_t seen = 0;
        bool wasUsed = false;
    };
    std::vector<Counted> x_rules;
};

}  // namespace ace::workbench
