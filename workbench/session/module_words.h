/// The module kinds as the user names them and reads about them.
#pragma once

#include <span>

#include <ace/core/action_enums.h>
#include <ace/host/basic_types.h>

namespace ace::workbench {

/// One module kind.
struct ModuleWords {
    aceModul moduleKind;
    StringView name;   ///< as on the command line, beside the number
    StringView words;  ///< what it is
    StringView one;    ///< what "SubRanges" counts; empty when nothing
    StringView many;
    bool needsSubranges;  ///< a test makes no sense without the number
    bool sweepPerEntry;   ///< each numbered entry has a sweep of its own
};

/// In the order of their numbers.
std::span<const ModuleWords> AllModules();
const ModuleWords& ModuleWordsOf(aceModul moduleKind);
/// By number or name, in any case of the letters; none when there is no such kind.
const ModuleWords* FindModuleWords(StringView numberOrName);
/// "0 aceTemplate: single test, 3 subranges"; of a matrix the number is that of its template.
String ModuleText(aceModul moduleKind, std::int32_t subRanges);

}  // namespace ace::workbench
