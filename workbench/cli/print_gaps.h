/// What an engine's print doesn't say of the lists that it prints, and where it can't be made.
#pragma once

#include <vector>

#include <ace/core/thread_context.h>

#include "workbench/cli/print_layout.h"
#include "workbench/session/action_places.h"

namespace ace::workbench {

/// Actions of which something is told, list by list. Of many lists the first have a name.
struct GapLists {
    struct Named {
        String name;
        std::size_t actions;
    };
    static constexpr std::size_t MostNamed = 30;

    std::vector<Named> named;
    std::size_t otherLists = 0;
    std::size_t actions = 0;  ///< of all of them
};

/// What the reader of a print must be told beside it.
struct PrintGaps {
    GapLists leftOut;             ///< they have no place in the print
    GapLists neverRun;            ///< printed, though their moment passes over them
    GapLists inPart;              ///< printed without something that they do, entry by entry
    GapLists ruledOut;            ///< in sections of rows that the matrix has not
    GapLists empty;               ///< no line anywhere: entries that came back empty
    std::size_t cutCommands = 0;  ///< printed without their end, and nothing shows that
};

/// Adds what the print of an engine leaves out, with the lists in the order of their sets. `places`
/// knows where they stand in the file. Errors of the host's language data come out.
void AddGaps(PrintGaps& gaps, EngineState& engine, const ActionPlaces& places);

/// Adds the actions of the file that no engine holds any more, section by section.
void AddRuledOut(PrintGaps& gaps, const ActionPlaces& places);

/// The paragraphs of the note on all that; none where the print says everything.
std::vector<Paragraph> GapsText(const PrintGaps& gaps);

/// An action that can't be printed, and the error that keeps it from that.
struct UnprintableAction {
    const p_Action* action;
    RunTimeError error;
};
/// The first one, in the order of the print; nothing where all can be printed.
std::optional<UnprintableAction> FindUnprintable(const EngineState& engine);

}  // namespace ace::workbench
