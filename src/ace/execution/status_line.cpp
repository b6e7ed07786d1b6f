#include <ace/execution/status_line.h>

namespace ace {

void ShowStatus(ThreadContext& context, const String& text) {
    const std::shared_ptr<IStatusDisplay> line = context.StatusDisplay;
    if (line) {
        line->ShowStatus(text, false, false);
    }
}

void ClearStatus(ThreadContext& context) {
    static const String nothing;
    ShowStatus(context, nothing);
}

}  // namespace ace
