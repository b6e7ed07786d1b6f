#include "workbench/session/dialog.h"

#include <ace/core/text.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// By `PromptKind`.
constexpr StringView KindWords[] = {L"notification", L"question", L"failure"};

/// By `PromptKind` and `Reply`. Only the dialog of a failure offers to ignore all.
constexpr StringView ReplyWords[][3] = {
    {L"OK", L"OK", L"Stop"},
    {L"Yes", L"Yes", L"No"},
    {L"Ignore", L"Ignore all", L"Stop"},
};

}  // namespace

StringView WordOf(PromptKind kind) {
    return KindWords[static_cast<std::size_t>(kind)];
}

StringView WordOf(PromptKind kind, Reply reply) {
    return ReplyWords[static_cast<std::size_t>(kind)][static_cast<std::size_t>(reply)];
}

const Choice* FindChoice(const Dialog& dialog, StringView input) {
    const StringView typed = Trimmed(input);
    for (const Choice& choice : dialog.choices) {
        if (EqualNoCase(typed, StringView(&choice.key, 1)) || EqualNoCase(typed, choice.words)) {
            return &choice;
        }
    }
    return nullptr;
}

}  // namespace ace::workbench
