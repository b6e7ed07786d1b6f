/// The operator of a simulated host: answers forms by a script.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <vector>

#include <ace/host/forms.h>

namespace ace::sim {

/// What the operator does with a form that is shown; false when it can't be done, as with a button
/// that is hidden.
using FormAct = std::function<bool(Form&)>;

/// A click, a choice, a typed text and a tick on the control of that name, which gets the focus
/// first.
FormAct Press(String control);
FormAct Choose(String control, std::int32_t index);
FormAct Type(String control, String text);
FormAct Tick(String control, bool ticked);
/// A key, whatever has the focus.
FormAct PressKey(std::int32_t key);
/// Closing the window by its frame.
FormAct CloseFrame();
/// Anything else that happens while the form is shown, such as calls of the host.
FormAct Do(std::function<void(Form&)> act);

/// One form that is expected. Its acts are to end with it hidden.
struct FormAnswer {
    String form;                     ///< its name, such as "frmComment"
    std::vector<FormAct> acts;       ///< in order, until the form is hidden
    std::map<String, String> shows;  ///< words of visible controls by name; the others are free
};

/// Answers each form with the next answer of the script. An unexpected form, other words than
/// expected, an act that can't be done, a form that is left open and an answer that is never used
/// are complaints, which the test looks at in the end.
class SimOperator {
  public:
    void Expect(FormAnswer answer) { x_answers.push_back(std::move(answer)); }
    void Expect(String form, FormAct act) { Expect({std::move(form), {std::move(act)}, {}}); }

    /// The next message box with the buttons Yes and No gets this answer.
    void ExpectQuestion(bool yes) { x_boxAnswers.push_back(yes); }
    /// Number of the button by which a question in a message box is answered; one that nobody
    /// expected is a complaint and gets a No.
    std::int32_t AnswerBox(const String& text);

    /// Answers a form that has just been shown, and leaves it hidden. An unexpected one is closed
    /// by its frame, and the script waits for the next.
    void Answer(Form& form);
    /// What went wrong so far and the answers not yet used. Both are forgotten.
    std::vector<String> TakeComplaints();

    /// Height in twips of a text in a width; by default 195 a line, and only line feeds end lines.
    std::function<float(const String& text, float width)> textHeight;
    float TextHeight(const String& text, float width) const;

  private:
    void Close(Form& form) const;

    std::deque<FormAnswer> x_answers;
    std::deque<bool> x_boxAnswers;
    std::vector<String> x_complaints;
};

/// What the operator reads off a form: its name, its title, and each visible
/// control in tab order with its words and, behind "tip", its tool tip.
String FormText(const Form& form);

}  // namespace ace::sim
