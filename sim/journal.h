/// The one record of everything that a simulated host was asked to do, over all its interfaces.
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::sim {

/// One host call.
struct JournalEntry {
    String operation;         ///< interface and operation, such as "StatusDisplay.ShowStatus"
    String arguments;         ///< the arguments as text, separated by ", "; texts stand in quotes
    std::int32_t error = 0;   ///< number of the error that the call raised by script; 0 for none
    bool isQuestion = false;  ///< only asks, such as `IsEnabled` or the thread's number
    std::vector<String> values{};  ///< each argument as it is, where the call told them apart

    /// "StatusDisplay.ShowStatus("Wait 1.000 s", true, true)", with " -> error 5" after a failure.
    String Line() const;
};

/// The calls in their order. A bounded journal forgets the oldest entries; its count goes on.
class Journal {
  public:
    void Add(JournalEntry entry);
    /// Keeps at most `entries`; 0 keeps all.
    void Bound(std::size_t entries);
    void Clear() { x_entries.clear(); }
    /// Calls seen since the start, forgotten ones included.
    std::size_t Total() const { return x_total; }
    const std::deque<JournalEntry>& Entries() const { return x_entries; }

    /// The lines of all calls but the questions.
    std::vector<String> Effects() const;
    /// The lines of all calls.
    std::vector<String> Lines() const;
    /// The lines of the calls whose operation begins with `prefix`.
    std::vector<String> LinesOf(StringView prefix) const;

    /// Is told of every entry as it is added; none to end that.
    void Observe(std::function<void(const JournalEntry&)> observer) { x_observer = observer; }

  private:
    std::vector<String> LinesIf(const std::function<bool(const JournalEntry&)>& wanted) const;

    std::deque<JournalEntry> x_entries;
    std::size_t x_bound = 0;
    std::size_t x_total = 0;
    std::function<void(const JournalEntry&)> x_observer;
};

/// A text as the journal shows it: in quotes, with line ends and other control characters visible.
String Quoted(StringView text);

}  // namespace ace::sim
