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

void AppendWaitHint(ThreadContext& context, String& text) {
    constexpr std::int32_t WaitHint = 9044;
    constexpr StringView LineEnd = L"\r\n";  // its length is known when this is compiled
    text.append(LineEnd).append(context.Language().Text(WaitHint));
}

}  // namespace ace
