/// The operator's answers, from a file.
#pragma once

#include <vector>

#include "workbench/session/dialog.h"

namespace ace::workbench {

/// One thing that stands on the operator's screen.
struct Prompt {
    PromptKind kind = PromptKind::Notification;
    String message;
    String moment;     ///< in words, such as "enter subrange 2"
    String operation;  ///< its name, such as "EnterSubrange"
};

/// One line of an answers file.
struct AnswerLine {
    std::size_t line = 0;  ///< in the file, from 1
    String moment{};       ///< pattern for the moment, in words or by its operation
    String kind{};         ///< "question", "notification", "failure", or "*" for all
    String message{};      ///< pattern for the message as one line
    String answer{};       ///< a word
    bool always = false;   ///< answers any number of times, not once
    std::size_t used = 0;
    String source{};  ///< the line as it stands
};

/// The answers of one test.
class Answers {
  public:
    /// No answers.
    Answers() = default;
    /// Reads an answers file: one answer a line,
    ///   moment | question, notification or failure | message | answer
    /// with "*" and "?" as wildcards in the first three, and "always" before the answer for one
    /// that is given as often as it fits. Empty lines and lines that begin with "#" are comments. A
    /// line that makes no sense is `CommandError` `BadFile` with `path` and its number.
    Answers(StringView text, const String& path);

    /// The answer of the first line that fits and is not used up; it is used by that. None when no
    /// line fits.
    std::optional<Reply> Take(const Prompt& prompt);
    /// A line that is not used up fits a message of that kind, in whatever moment it comes.
    bool CanAnswer(PromptKind kind, const String& message) const;
    /// The lines that never gave an answer.
    std::vector<const AnswerLine*> Unused() const;

  private:
    std::vector<AnswerLine> x_lines;
};

}  // namespace ace::workbench
