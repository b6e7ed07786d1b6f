#include "sim/sim_operator.h"

#include <algorithm>
#include <utility>

#include "sim/call_text.h"
#include "sim/form_view.h"

namespace ace::sim {

namespace {

constexpr float LineHeight = 195.0F;

bool Shows(const Form& form, const String& name, const String& words) {
    const Control* control = form.Find(name);
    return control != nullptr && control->IsShown() && WordsOf(*control) == words;
}

void Close(Form& form) {
    form.CloseByFrame();
    form.Hide();
}

}  // namespace

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

std::vector<String> SimOperator::TakeComplaints() {
    std::vector<String> complaints = std::exchange(x_complaints, {});
    for (const FormAnswer& answer : std::exchange(x_answers, {})) {
        complaints.push_back(L"never shown: " + answer.form);
    }
    for (const BoxAnswer& answer : std::exchange(x_boxAnswers, {})) {
        complaints.push_back(L"never shown: " + String(NameOf(answer.kind)));
    }
    return complaints;
}

// ---- boxes and menus ---------------------------------------------------------------------------

void SimOperator::ExpectBox(std::optional<String> text) {
    x_boxAnswers.push_back({BoxKind::Plain, false, std::move(text)});
}
void SimOperator::ExpectQuestion(bool yes) {
    x_boxAnswers.push_back({BoxKind::Question, yes});
}
void SimOperator::ExpectFile(std::optional<String> file) {
    x_boxAnswers.push_back({BoxKind::File, false, std::move(file)});
}
void SimOperator::ExpectMenu(std::optional<String> caption) {
    x_boxAnswers.push_back({BoxKind::Menu, false, std::move(caption)});
}
void SimOperator::ExpectSettings(std::optional<String> text) {
    x_boxAnswers.push_back({BoxKind::Settings, false, std::move(text)});
}

StringView SimOperator::NameOf(BoxKind kind) {
    constexpr StringView words[] = {L"message box", L"question", L"file dialog", L"menu",
                                    L"settings dialog"};
    return words[static_cast<std::size_t>(kind)];
}

std::optional<SimOperator::BoxAnswer> SimOperator::TakeBox(BoxKind kind, const String& what) {
    if (x_boxAnswers.empty() || x_boxAnswers.front().kind != kind) {
        x_complaints.push_back(L"unexpected " + String(NameOf(kind)) + L": " + what);
        return std::nullopt;
    }
    BoxAnswer answer = std::move(x_boxAnswers.front());
    x_boxAnswers.pop_front();
    return answer;
}

std::int32_t SimOperator::AnswerBox(const String& text, std::int32_t style) {
    if ((style & IUserDialogs::YesNo) != 0) {
        const auto answer = TakeBox(BoxKind::Question, text);
        return answer && answer->yes ? IUserDialogs::AnswerYes : IUserDialogs::AnswerNo;
    }
    const auto answer = TakeBox(BoxKind::Plain, text);
    if (answer && answer->words && *answer->words != text) {
        x_complaints.push_back(L"the message box does not read " + Quoted(*answer->words) + L": " +
                               text);
    }
    return IUserDialogs::AnswerOk;
}

std::optional<String> SimOperator::AnswerFile(const FileQuestion& question) {
    const auto answer = TakeBox(BoxKind::File, question.filter);
    return answer ? answer->words : std::nullopt;
}

std::optional<std::size_t> SimOperator::AnswerMenu(const std::vector<MenuItem>& items) {
    const auto answer = TakeBox(BoxKind::Menu, MenuText(items));
    if (!answer || !answer->words) {
        return std::nullopt;
    }
    const auto chosen = std::ranges::find(items, *answer->words, &MenuItem::caption);
    if (chosen == items.end()) {
        x_complaints.push_back(L"the menu does not offer " + Quoted(*answer->words) + L": " +
                               MenuText(items));
        return std::nullopt;
    }
    return static_cast<std::size_t>(chosen - items.begin());
}

bool SimOperator::AnswerSettings(String& text) {
    const auto answer = TakeBox(BoxKind::Settings, text);
    const bool isConfirmed = answer && answer->words;
    if (isConfirmed) {
        text = *answer->words;
    }
    return isConfirmed;
}

float SimOperator::TextHeight(const String& text, float width) const {
    if (textHeight) {
        return textHeight(text, width);
    }
    return LineHeight * static_cast<float>(1 + std::count(text.begin(), text.end(), L'\n'));
}

}  // namespace ace::sim
