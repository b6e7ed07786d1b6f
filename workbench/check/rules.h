/// What a check looks for: one row a rule.
#pragma once

#include <span>

#include <ace/core/action_lists.h>

#include "workbench/check/checked_file.h"
#include "workbench/check/finding.h"

namespace ace::workbench {

/// An entry of a list that has a line.
struct CheckedAction {
    const CheckedFile& file;
    const CheckedSection& section;
    const CheckedLine& line;
    const p_Action& action;

    template <class Record>
    const Record* As() const {
        return std::get_if<Record>(&action.Parameter);
    }
    /// By a literal, whose length is known when this is compiled.
    template <std::size_t Size>
    bool IsOf(const wchar_t (&keyword)[Size]) const {
        return line.row->keyword == StringView(keyword, Size - 1);
    }
};

/// Hands each entry of a section that has a line to `look`, in the order of the file.
template <class Look>
void ForEachAction(const CheckedFile& file, const CheckedSection& section, Look&& look) {
    for (const CheckedLine& line : section.lines) {
        if (line.fills) {
            const DynArray<p_Action>& actions = section.Lists().*ActionLists[line.list - 1].actions;
            look(CheckedAction{file, section, line, actions[line.entry]});
        }
    }
}
template <class Look>
void ForEachAction(const CheckedFile& file, Look&& look) {
    for (const CheckedSection& section : file.Sections()) {
        ForEachAction(file, section, look);
    }
}

/// Takes what a rule finds: the place, and the words for %1, %2 ... of its texts.
class Found {
  public:
    Found(const Rule& rule, std::vector<Finding>& findings);

    /// The same for what ends the test only perhaps.
    Found Perhaps() const {
        Found found = *this;
        found.x_endsTest = false;
        return found;
    }

    void At(FindingPlace place, std::initializer_list<String> words = {}) const;
    void At(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line,
            std::initializer_list<String> words = {}) const;
    void At(const CheckedAction& action, std::initializer_list<String> words = {}) const {
        At(action.file, action.section, action.line, words);
    }

  private:
    const Rule& x_rule;
    std::vector<Finding>& x_findings;
    bool x_endsTest;
};

using FindInLine = void (*)(const CheckedFile& file, const CheckedSection& section,
                            const CheckedLine& line, const Found& found);
using FindInAction = void (*)(const CheckedAction& action, const Found& found);
using FindInSection = void (*)(const CheckedFile& file, const CheckedSection& section,
                               const Found& found);
using FindInFile = void (*)(const CheckedFile& file, const Found& found);

/// One rule. It has one of the four ways of looking. A rule stands in the table of its group.
struct Rule {
    StringView name;  ///< for programs and tests: never changed once it is known
    FindingGroup group = FindingGroup::Lost;
    bool endsTest = false;  ///< the load or the save ends there, or a run that comes there
    StringView meaning;
    StringView advice;
    FindInLine inLine = nullptr;        ///< of each line that was read
    FindInAction inAction = nullptr;    ///< of each entry, by the line that filled it
    FindInSection inSection = nullptr;  ///< of each section that the engine asked for
    FindInFile inFile = nullptr;        ///< once
};

/// The table of all rules, in two parts: of a load and a save, and of a run.
std::span<const Rule> LoadRules();
std::span<const Rule> RunRules();
std::vector<Rule> Rules();

/// All findings, worst first, those of a group in the order of their places. Of a file that can't
/// be loaded to its end only what stops the load or the save.
std::vector<Finding> FindingsOf(const CheckedFile& file);

}  // namespace ace::workbench
