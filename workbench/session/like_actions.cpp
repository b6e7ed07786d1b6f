#include "workbench/session/like_actions.h"

namespace ace::workbench {

namespace {

/// Texts that the editor cuts. Few actions that differ have these and their lines in common.
String WholeTexts(const p_Action& action) {
    if (const auto* const notify = std::get_if<aceNotify>(&action.Parameter)) {
        return notify->Message + notify->WaveFile;
    }
    if (const auto* const remote = std::get_if<aceRemote>(&action.Parameter)) {
        return remote->Command + remote->Program;
    }
    return {};
}

}  // namespace

std::size_t LikeActions::FirstLike(const p_Action& action, const String& line, std::size_t index) {
    std::vector<Known>& known = x_known[line + WholeTexts(action)];
    for (const Known& first : known) {
        if (*first.action == action) {
            return first.index;
        }
    }
    known.push_back({&action, index});
    return index;
}

}  // namespace ace::workbench
