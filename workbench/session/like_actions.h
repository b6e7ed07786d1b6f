/// Actions that are the same to whoever reads of them.
#pragma once

#include <unordered_map>

#include <ace/core/thread_context.h>

namespace ace::workbench {

/// Finds the first one of them: the engine would save them as the same line. So fields count that
/// the editor cuts or does not show, and none that an action only carries because they stood in a
/// line before; times count as exactly as they are saved.
class LikeActions {
  public:
    /// The lines are written with the locale of this thread's host.
    explicit LikeActions(ThreadContext& context) : x_context(context) { x_one.Redim(0, 0); }

    /// The index under which an action that is the same was told first; `index` for a new one.
    /// `line` is what the editor shows of the action, empty for an entry that came back empty from
    /// its file; those are all the same.
    std::size_t FirstLike(const p_Action& action, const String& line, std::size_t index);

  private:
    String KeyOf(const p_Action& action);

    ThreadContext& x_context;
    DynArray<p_Action> x_one;
    std::unordered_map<String, std::size_t> x_first;
};

}  // namespace ace::workbench
