#include "workbench/session/like_actions.h"

#include <ace/core/text.h>

namespace ace::workbench {

namespace {

/// What tells actions with the same line apart, but for the few that differ in a flag or a time.
/// It only narrows the search: whether two are the same is decided by comparing them.
String Unshown(const p_Action& action) {
    if (const auto* const notify = std::get_if<aceNotify>(&action.Parameter)) {
        return notify->Message + notify->WaveFile;
    }
    if (const auto* const remote = std::get_if<aceRemote>(&action.Parameter)) {
        return remote->Command + remote->Program;
    }
    if (const auto* const device = std::get_if<aceSetDevice>(&action.Parameter)) {
        return IntegerText(device->ChanNo);
    }
    String text;
    if (const auto* const macro = std::get_if<aceAPI>(&action.Parameter)) {
        for (const String& parameter : macro->Parameters) {
            text += parameter;
        }
    }
    return text;
}

}  // namespace

std::size_t LikeActions::FirstLike(const p_Action& action, const String& line, std::size_t index) {
    std::vector<Known>& known = x_known[line + Unshown(action)];
    for (const Known& first : known) {
        if (*first.action == action) {
            return first.index;
        }
    }
    known.push_back({&action, index});
    return index;
}

}  // namespace ace::workbench
