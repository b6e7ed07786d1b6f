/// What a check finds.
#pragma once

#include <functional>
#include <initializer_list>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// What a finding does to the test, worst first.
enum class FindingGroup {
    Stops,      ///< stops the load or the save
    Lost,       ///< skipped or lost
    TakenOver,  ///< taken over from the line above
    NeverRuns,  ///< never runs, or does not do what it says
};
inline constexpr std::size_t FindingGroupCount = 4;

struct GroupWords {
    StringView name;   ///< for programs that read the findings
    StringView title;  ///< for people
    StringView count;  ///< behind a number of findings
};
const GroupWords& WordsOf(FindingGroup group);

struct Rule;

/// Where something was found.
struct FindingPlace {
    String file;
    std::size_t line = 0;  ///< in the file, from 1; 0 for none
    String section{};      ///< empty for none
    String entry{};        ///< the key of the line
    String text{};         ///< what stands behind it
};

struct Finding {
    const Rule* rule = nullptr;
    FindingPlace place;
    String meaning;         ///< in plain words
    String advice;          ///< what to do
    bool endsTest = false;  ///< the load or the save ends there, or a run that comes there
};

/// The load or the save ends there, or a run that comes there.
bool EndsTest(const Finding& finding);
/// "file.ini:33: [ActionsOnSR1] EnterAction1"; only what there is.
String PlaceWords(const FindingPlace& place);
/// The same with the line and what it means, on one line.
String FindingWords(const Finding& finding);

}  // namespace ace::workbench
