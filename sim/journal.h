/// The one record of everything that a simulated host was asked to do, over all its interfaces.
#pragma once

#include <deque>
#include <functional>
#include <utility>
#include <vector>

#include "sim/call_text.h"

namespace ace::sim {

/// One host call while it lasts. Its words cost something only when they are asked for.
struct HostCall {
    StringView operation;  ///< interface and operation, such as "StatusDisplay.ShowStatus"
    CallArguments arguments{};
    std::int32_t error = 0;   ///< number of the error that the call raised by script; 0 for none
    bool isQuestion = false;  ///< only asks, such as `IsEnabled` or the thread's number
};

/// One host call in words.
struct JournalEntry {
    explicit JournalEntry(const HostCall& call);

    String operation;
    String arguments;  ///< the arguments as text, separated by ", "; texts stand in quotes
    std::int32_t error;
    bool isQuestion;
    std::vector<String> values;  ///< each argument as it is

    /// "StatusDisplay.ShowStatus("Wait 1.000 s", true, true)", with " -> error 5" after a failure.
    String Line() const;
};

/// The calls in their order. A bounded journal forgets the oldest entries; its count goes on.
class Journal {
  public:
    void Add(const HostCall& call);
    /// Keeps at most `entries`; 0 keeps all.
    void Bound(std::size_t entries);
    /// Keeps none from here on, and puts none into words: for a host whose calls are observed.
    void KeepNone() { x_keeps = false; }
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

    /// Is told of every call, behind its entry; none to end that.
    void Observe(std::function<void(const HostCall&)> observer) {
        x_observer = std::move(observer);
    }

  private:
    std::vector<String> LinesIf(const std::function<bool(const JournalEntry&)>& wanted) const;

    std::deque<JournalEntry> x_entries;
    std::size_t x_bound = 0;
    std::size_t x_total = 0;
    bool x_keeps = true;
    std::function<void(const HostCall&)> x_observer;
};

}  // namespace ace::sim
