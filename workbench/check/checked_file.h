/// A settings file as the engine reads it, with all that a check asks of it.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include <ace/core/actions_engine.h>
#include <ace/core/moment_table.h>
#include <ace/settings/line_observer.h>

#include "workbench/devices/fault_rules.h"
#include "workbench/session/answers.h"
#include "workbench/session/session_host.h"
#include "workbench/session/set_up.h"

namespace ace::workbench {

/// A line of a section that the engine has asked for.
struct CheckedLine {
    std::int32_t index = 0;  ///< in its section, from 0
    String text;
    LineMeaning meaning = LineMeaning::Short;
    String key;
    String keyword;  ///< with its ":"
    std::int32_t list = 0;
    std::int32_t count = 0;
    std::int32_t entry = -1;
    const KeywordRow* row = nullptr;
    LineFields inherited;
    FieldOrigins origins{};
    bool fills = false;  ///< the last line of its entry: what stands there comes from it

    /// What stands behind the keyword.
    StringView Value() const { return StringView(text).substr(key.size() + 1 + keyword.size()); }
    /// Number of parts of the value between its commas; at least one.
    std::size_t FieldCount() const;
    /// The part of that number, from 0; nothing behind the last one.
    std::optional<StringView> Field(std::size_t number) const;
    /// What an entry's value is made of. To be asked of lines that were read.
    LineForm Form() const { return row->form(Value()); }
    /// The part that is a field of its form; nothing when it has none or ends before it.
    std::optional<StringView> TextOf(LineField field) const;
};

/// A line at which the load ends.
struct StoppedLine {
    std::int32_t index = -1;  ///< in its section; -1 when it is none of its lines
    String text;
    LineMeaning meaning = LineMeaning::Short;
    LineStep::Kind step = LineStep::Plain;
    std::int32_t list = 0;
    std::int32_t count = 0;
    String reason;
    std::int32_t error = 0;
};

/// The moment that ends the test of a module: of the matrix, which has none, what follows each row.
/// None for a module without such.
const MomentRow* EndOf(aceModul moduleKind);

/// A section that fills a set of lists.
struct CheckedSection {
    String name;
    std::size_t header = 0;  ///< number of its header line in the file, from 1; 0 for a missing one
    bool isAgain = false;    ///< read before, for another test with the same key
    aceModul moduleKind = aceTemplate;
    SetPlace place;
    p_Subrange ModuleLists::*fixed = nullptr;           ///< the set that it fills, or
    DynArray<p_Subrange> ModuleLists::*sets = nullptr;  ///< the numbered sets
    std::vector<CheckedLine> lines;                     ///< in the order of the file
    std::vector<StoppedLine> stops;  ///< the load of what is left of the section goes on
    /// Entries that no line fills: number of the list from 1, index from 0.
    std::vector<std::pair<std::int32_t, std::int32_t>> emptyEntries;

    /// The set as it was loaded.
    const p_Subrange& Lists() const {
        return place.fixed != nullptr ? *place.fixed : (*place.sets)[place.index];
    }
    /// A moment of the test runs the list of that number.
    bool Runs(std::int32_t list) const;
    /// It is the list of the moment that ends the test: what it switches off stays off.
    bool IsEndOfTest(std::int32_t list) const;
    /// The line of an index; none for one that the load did not read.
    const CheckedLine* LineAt(std::int32_t index) const;
    /// Number of a line in the file, from 1.
    std::size_t FileLine(std::int32_t index) const {
        return header + 1 + static_cast<std::size_t>(index);
    }
};

/// A line that opens a section.
struct SectionHeader {
    String name;
    std::size_t line = 0;  ///< in the file, from 1
    String numberless;     ///< its name with "#" for each run of digits
    bool isFirst = true;   ///< of its name; the lines below the others are read by nobody
    bool isRead = false;   ///< by the engine
};

/// A key of a section beside the lines of actions.
struct KeyLine {
    String key;
    String value;
    std::size_t line;  ///< in the file, from 1
};

/// What is checked, and what is known beside the file. What is pointed to may be none.
struct CheckInput {
    const SettingsDocument* document = nullptr;
    String path;  ///< for messages
    TestSetUp setUp;
    const sim::SimBench* bench = nullptr;           ///< the devices of the chamber
    std::optional<SettingsDocument> benchDocument;  ///< the file that they come from
    String benchPath;
    const Answers* answers = nullptr;
    String answersPath;
    const FaultRules* faults = nullptr;
    String faultsPath;
    bool here = false;  ///< sounds, programs and macros must be on this machine
};

/// A settings file read for a check. Lines that end a load are left out and the load is tried
/// again, so that all of them are found.
class CheckedFile {
  public:
    /// More lines than this that stop the load are not looked for, nor what stands behind them.
    static constexpr std::size_t MostStops = 100;

    explicit CheckedFile(const CheckInput& input);
    CheckedFile(const CheckedFile&) = delete;
    CheckedFile& operator=(const CheckedFile&) = delete;
    ~CheckedFile();

    const CheckInput& Input() const { return x_input; }
    const std::vector<CheckedSection>& Sections() const { return x_sections; }
    /// Every header of the file, in its order.
    const std::vector<SectionHeader>& Headers() const { return x_headers; }
    /// The names of the sections that the engine asked for, each once, with "#" for their numbers.
    const std::vector<String>& EngineNames() const { return x_engineNames; }
    /// Line of the section that is read under this name, from 1; 0 for a missing one.
    std::size_t HeaderLine(StringView name) const;
    /// The keys of a section in their order; none for a missing one.
    std::vector<KeyLine> KeyLines(StringView section) const;
    /// The lists of the module; of a susceptibility test those beside its steps.
    const ModuleLists& Lists() const;
    /// There are more of them.
    bool HasMoreStops() const { return x_hasMoreStops; }
    /// Why the load fails without a line of a section; empty when it doesn't.
    const String& Failure() const { return x_failure; }
    /// The context of the lists, for what writes and describes them.
    ThreadContext& Context() const { return *x_context; }

  private:
    class Reader;
    class Host;

    void FindHeaders();
    bool MarkRead(StringView name);
    bool Load(aceModul moduleKind);
    void LeaveOut(const Reader& reader);
    void LeaveOutOfNumbered(aceModul moduleKind);
    bool LeaveOutOf(const String& name, aceModul moduleKind);

    const CheckInput& x_input;
    std::vector<SectionHeader> x_headers;
    std::unordered_map<String, std::size_t> x_firstHeaders;  ///< by their names in small letters
    std::shared_ptr<SettingsDocument> x_left;  ///< the document without the lines that stop
    std::shared_ptr<Host> x_host;
    std::unique_ptr<ThreadContext> x_context;
    std::vector<std::unique_ptr<aceActionsEngine>> x_engines;
    std::vector<CheckedSection> x_sections;
    std::vector<String> x_engineNames;
    struct Stop {
        String section;
        StoppedLine line;
    };
    std::vector<Stop> x_stops;
    bool x_hasMoreStops = false;
    String x_failure;
};

}  // namespace ace::workbench
