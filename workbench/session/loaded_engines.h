/// The engines of a test, with what the host of the test tells them.
#pragma once

#include <memory>
#include <vector>

#include <ace/core/actions_engine_interface.h>
#include <ace/core/thread_context.h>

#include "workbench/session/action_places.h"
#include "workbench/session/set_up.h"

namespace ace::workbench {

/// A susceptibility test has its steps in an engine of their own.
struct LoadedEngines {
    std::unique_ptr<_aceActionsEngine> engine;
    std::unique_ptr<_aceActionsEngine> steps;  ///< none for any other test, and without steps
    std::vector<String> notes;                 ///< on actions of the file that the engines lack
    ActionPlaces places;                       ///< of the actions of both
    /// Of a matrix: by the rows of the file, where each stands now; -1 for one that is gone.
    std::vector<std::int32_t> rowsNow;
};

/// Loads the lists of a test and announces its wireless tests or its matrix. A failure is
/// `CommandError` `BadFile`, one line with file, line, section and reason.
LoadedEngines LoadEngines(ThreadContext& context, const TestSetUp& setUp, const String& fileName);

}  // namespace ace::workbench
