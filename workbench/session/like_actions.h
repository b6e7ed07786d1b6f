/// Actions that are the same in all that they are told.
#pragma once

#include <unordered_map>
#include <vector>

#include <ace/core/action_records.h>

namespace ace::workbench {

/// Finds the first one of them. The actions must stay where they are.
class LikeActions {
  public:
    /// The index under which an action that is the same was told first; `index` for a new one.
    /// `line` is what the editor shows of the action.
    std::size_t FirstLike(const p_Action& action, const String& line, std::size_t index);

  private:
    struct Known {
        const p_Action* action;
        std::size_t index;
    };
    std::unordered_map<String, std::vector<Known>> x_known;
};

}  // namespace ace::workbench
