/// The operator of a simulated host: answers forms, boxes and menus by a script.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include <ace/host/user_dialogs.h>

#include "sim/form_acts.h"

namespace ace::sim {

/// One form that is expected. Its acts are to end with it hidden.
struct FormAnswer {
    String form;                     ///< its name, such as "frmComment"
    std::vector<FormAct> acts;       ///< in order, until the form is hidden
    std::map<String, String> shows;  ///< words of controls that show, by name; the others are free
};

/// Answers each form with the next answer of the script. An unexpected form, other words than
/// expected, an act that can't be done, a form that is left open and an answer that is never used
/// are complaints, which the test looks at in the end. Boxes, file dialogs, menus and settings
/// dialogs have a script of their own, in one order among themselves.
class SimOperator {
  public:
    void Expect(FormAnswer answer) { x_answers.push_back(std::move(answer)); }
    void Expect(String form, FormAct act) { Expect({std::move(form), {std::move(act)}, {}}); }

    /// A message box with the one button OK, with this text if one is given.
    void ExpectBox(std::optional<String> text = {});
    /// A message box with the buttons Yes and No.
    void ExpectQuestion(bool yes);
    /// A file dialog: the file that is chosen, or none when it is cancelled.
    void ExpectFile(std::optional<String> file);
    /// A popup menu: the caption of the item that is chosen, or none.
    void ExpectMenu(std::optional<String> caption);
    /// A dialog of a device's settings: the text of its outcome, or none when it is cancelled.
    void ExpectSettings(std::optional<String> text);

    /// Number of the button by which a box is answered; a question that nobody expected gets a No.
    std::int32_t AnswerBox(const String& text, std::int32_t style);
    /// One that nobody expected is cancelled, like the menus.
    std::optional<String> AnswerFile(const FileQuestion& question);
    std::optional<std::size_t> AnswerMenu(const std::vector<MenuItem>& items);
    /// True when the dialog is confirmed; one that nobody expected is cancelled.
    bool AnswerSettings(String& text);

    /// Answers a form that has just been shown, and leaves it hidden. An unexpected one is closed
    /// by its frame, and the script waits for the next.
    void Answer(Form& form);
    /// What went wrong so far and the answers not yet used. Both are forgotten.
    std::vector<String> TakeComplaints();

    /// Height in twips of a text in a width; by default 195 a line, and only line feeds end lines.
    std::function<float(const String& text, float width)> textHeight;
    float TextHeight(const String& text, float width) const;

  private:
    enum class BoxKind { Plain, Question, File, Menu, Settings };
    struct BoxAnswer {
        BoxKind kind;
        bool yes = false;
        std::optional<String> words = {};
    };

    /// The next answer if it is of that kind; `what` is shown otherwise, to nobody's expectation.
    std::optional<BoxAnswer> TakeBox(BoxKind kind, const String& what);
    static StringView NameOf(BoxKind kind);

    std::deque<FormAnswer> x_answers;
    std::deque<BoxAnswer> x_boxAnswers;
    std::vector<String> x_complaints;
};

}  // namespace ace::sim
