/// What left the machine, one line a command.
#pragma once

#include <chrono>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// Where a test stands.
struct TrafficPlace {
    String moment;       ///< in words; empty outside a test
    double hertz = 0.0;  ///< 0 for moments without a frequency
};

/// What the transports are called in a log.
namespace TrafficNames {
inline constexpr StringView Tcp = L"TCP/IP";
inline constexpr StringView Gpib = L"GPIB";
inline constexpr StringView Serial = L"RS232";
inline constexpr StringView Program = L"program";  ///< has no address; its bytes are what starts it
inline constexpr StringView Macro = L"API macro";  ///< its bytes are its inputs
}  // namespace TrafficNames

/// One command, start or refusal without its time and place, for people who look on.
struct TrafficLine {
    StringView transport;
    StringView address;
    std::string_view bytes;
    StringView what;  ///< what happened
};

/// Writes lines in UTF-8 whose fields a tabulator separates: time (UTC, to the millisecond),
/// moment, frequency in hertz, transport, address, the bytes between quotes as `ReadableBytes`
/// shows them, and what happened. "Sent" means handed over to the machine: nothing comes back from
/// an instrument, so nothing is ever confirmed. Each line is written through at once; a stream that
/// fails does not disturb the test and is seen by `IsGood`.
class TrafficLog {
  public:
    using Now = std::function<std::chrono::system_clock::time_point()>;

    /// When and where a command began, and where it goes.
    struct Entry {
        std::string start;
        String transport;
        String address;
    };

    /// A log without a file, which only tells its listener.
    TrafficLog() = default;
    /// The same as `WriteTo`.
    explicit TrafficLog(std::ostream& out, std::function<TrafficPlace()> place = {}, Now now = {});

    /// From here on lines are written, too; the first has the names of the fields. `out` must
    /// outlive the object; `place` is asked at the beginning of each command.
    void WriteTo(std::ostream& out, std::function<TrafficPlace()> place = {}, Now now = {});

    /// Is told of each line as it ends.
    std::function<void(const TrafficLine& line)> onLine;
    /// Stands behind what happened in every line, such as " (simulated)".
    String remark;

    Entry Begin(StringView transport, StringView address) const;
    /// The command is over. `bytes` are those that were to leave; when not all did, `what` says so.
    void End(const Entry& entry, std::string_view bytes, StringView what);
    /// Every line so far was written.
    bool IsGood() const;

  private:
    std::ostream* x_out = nullptr;
    std::function<TrafficPlace()> x_place;
    Now x_now;
};

}  // namespace ace::workbench
