#include "workbench/session/like_actions.h"

#include <ace/core/text.h>
#include <ace/settings/action_line.h>

namespace ace::workbench {

/// A line of a generator has no room for the monitoring device that is tuned with it.
String LikeActions::KeyOf(const p_Action& action) {
    x_one[0] = action;
    const Value lines = modActions::WriteSection(x_context, x_one, 1, 1);
    String key = std::get<DynArray<String>>(lines)[1];
    if (const auto* const tracking = std::get_if<aceTrackFreq>(&action.Parameter)) {
        key += L"\n" + tracking->MoniName + L"\n" + IntegerText(tracking->DelayTime);
    }
    return key;
}

std::size_t LikeActions::FirstLike(const p_Action& action, const String& line, std::size_t index) {
    return x_first.try_emplace(line.empty() ? String() : KeyOf(action), index).first->second;
}

}  // namespace ace::workbench
