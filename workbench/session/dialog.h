/// A dialog as the operator sees it, without a form.
#pragma once

#include <optional>
#include <vector>

#include <ace/host/basic_types.h>

namespace ace::workbench {

/// What the operator is told or asked.
enum class PromptKind { Notification, Question, Failure };

/// What an answer does: the test goes on, goes on and the action fails in silence from now on, or
/// stops.
enum class Reply { GoOn, IgnoreAll, Stop };

/// One button: what pressing it does, its words, and the key that presses it.
struct Choice {
    Reply reply = Reply::GoOn;
    String words;
    wchar_t key = L' ';
};

/// What stands on the operator's screen.
struct Dialog {
    PromptKind kind = PromptKind::Notification;
    String title;
    String message;  ///< lines end with CR LF
    std::vector<Choice> choices;
};

/// The word of a kind, such as "question".
StringView WordOf(PromptKind kind);
/// The word with which a reply to a dialog of a kind is written down, such as "No".
StringView WordOf(PromptKind kind, Reply reply);
/// The choice that the operator's input means: its key or its words in any case of the letters,
/// blanks around it allowed; none for anything else.
const Choice* FindChoice(const Dialog& dialog, StringView input);

/// The operator of a session, when there is one.
class IOperator {
  public:
    virtual ~IOperator() = default;
    /// Shows the dialog and waits for the answer; none when there will be no answer any more, or
    /// when the user wants the test to end.
    virtual std::optional<Reply> Ask(const Dialog& dialog) = 0;
};

}  // namespace ace::workbench
