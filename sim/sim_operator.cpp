#include "sim/sim_operator.h"

#include <algorithm>
#include <utility>

#include <ace/host/user_dialogs.h>

#include "sim/call_text.h"

namespace ace::sim {

namespace {

constexpr float LineHeight = 195.0F;

template <class Act>
FormAct OnControl(String name, Act act) {
    return [name = std::move(name), act = std::move(act)](Form& form) {
        Control* control = form.Find(name);
        if (control == nullptr || !control->IsUsable()) {
            return false;
        }
        form.SetFocus(*control);
        act(*control);
        return true;
    };
}

/// The words that stand on a control.
String WordsOf(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::TextBox:
            return control.text;
        case ControlKind::DropDown:
            return control.listIndex < 0
                       ? String()
                       : control.list[static_cast<std::size_t>(control.listIndex)];
        default:
            return control.caption;
    }
}

String ControlText(const Control& control) {
    String text = control.Name();
    if (control.Kind() != ControlKind::Picture) {
        text += L" " + Quoted(WordsOf(control));
    }
    if (control.Kind() == ControlKind::CheckBox) {
        text += control.ticked ? L" ticked" : L" unticked";
    }
    if (!control.toolTip.empty()) {
        text += L" tip " + Quoted(control.toolTip);
    }
    return control.enabled ? text : text + L" disabled";
}

bool Shows(const Form& form, const String& name, const String& words) {
    const Control* control = form.Find(name);
    return control != nullptr && control->visible && WordsOf(*control) == words;
}

}  // namespace

FormAct Press(String control) {
    return OnControl(std::move(control), [](Control& c) { c.Click(); });
}
FormAct Choose(String control, std::int32_t index) {
    return OnControl(std::move(control), [index](Control& c) { c.Choose(index); });
}
FormAct Type(String control, String text) {
    return OnControl(std::move(control), [text = std::move(text)](Control& c) { c.Type(text); });
}
FormAct Tick(String control, bool ticked) {
    return OnControl(std::move(control), [ticked](Control& c) { c.Tick(ticked); });
}
FormAct PressKey(std::int32_t key) {
    return Do([key](Form& form) { form.PressKey(key); });
}
FormAct CloseFrame() {
    return Do([](Form& form) { form.CloseByFrame(); });
}
FormAct Do(std::function<void(Form&)> act) {
    return [act = std::move(act)](Form& form) {
        act(form);
        return true;
    };
}

void SimOperator::Answer(Form& form) {
    if (x_answers.empty() || x_answers.front().form != form.Name()) {
        x_complaints.push_back(L"unexpected form: " + FormText(form));
        Close(form);
        return;
    }
    const FormAnswer answer = std::move(x_answers.front());
    x_answers.pop_front();
    for (const auto& [name, words] : answer.shows) {
        if (!Shows(form, name, words)) {
            x_complaints.push_back(name + L" does not show " + Quoted(words) + L": " +
                                   FormText(form));
        }
    }
    for (std::size_t i = 0; i < answer.acts.size() && form.IsShown(); ++i) {
        if (!answer.acts[i](form)) {
            x_complaints.push_back(L"act " + std::to_wstring(i + 1) + L" can't be done: " +
                                   FormText(form));
        }
    }
    if (form.IsShown()) {
        x_complaints.push_back(L"left open: " + FormText(form));
        Close(form);
    }
}

void SimOperator::Close(Form& form) const {
    form.CloseByFrame();
    form.Hide();
}

std::vector<String> SimOperator::TakeComplaints() {
    std::vector<String> complaints = std::exchange(x_complaints, {});
    for (const FormAnswer& answer : std::exchange(x_answers, {})) {
        complaints.push_back(L"never shown: " + answer.form);
    }
    complaints.insert(complaints.end(), std::exchange(x_boxAnswers, {}).size(),
                      L"never asked: a question in a message box");
    return complaints;
}

std::int32_t SimOperator::AnswerBox(const String& text) {
    if (x_boxAnswers.empty()) {
        x_complaints.push_back(L"unexpected question: " + text);
        return IUserDialogs::AnswerNo;
    }
    const bool yes = x_boxAnswers.front();
    x_boxAnswers.pop_front();
    return yes ? IUserDialogs::AnswerYes : IUserDialogs::AnswerNo;
}

float SimOperator::TextHeight(const String& text, float width) const {
    if (textHeight) {
        return textHeight(text, width);
    }
    return LineHeight * static_cast<float>(1 + std::count(text.begin(), text.end(), L'\n'));
}

String FormText(const Form& form) {
    String text = Quoted(form.Name()) + L", " + Quoted(form.title);
    for (const Control* control : form.Controls()) {
        if (control->visible) {
            text += L", " + ControlText(*control);
        }
    }
    return text;
}

}  // namespace ace::sim
