#include "workbench/session/operator_screen.h"

#include <algorithm>

#include <ace/host/forms.h>

#include "sim/sim_host.h"

namespace ace::workbench {

namespace {

constexpr float TwipsPerLine = 195.0F;

/// A button of a form, and the key that presses it; without a key that of its words.
struct ButtonRow {
    StringView name;
    Reply reply;
    wchar_t key;
};

/// The forms that are answered. A question has the form of a notification, with another icon and
/// other words on the buttons.
struct FormRow {
    StringView name;
    PromptKind kind;
    StringView questionIcon;  ///< when it is visible, a question is asked
    StringView message;
    StringView details;
    ButtonRow buttons[3];
};
constexpr FormRow FormRows[] = {
    {L"frmComment",
     PromptKind::Notification,
     L"imgQue",
     L"lblComment",
     {},
     {{L"cmdClose", Reply::GoOn, L'o'}, {L"cmdStopTest", Reply::Stop, L's'}, {}}},
    {L"frmGpibError",
     PromptKind::Failure,
     {},
     L"lblMessage",
     L"txtError",
     {{L"cmdStopTest", Reply::Stop, L's'},
      {L"cmdIgnore", Reply::GoOn, L'i'},
      {L"cmdIgnoreAll", Reply::IgnoreAll, L'a'}}},
};
constexpr wchar_t YesKey = L'y';
constexpr wchar_t NoKey = L'n';

const FormRow* FormRowOf(const Form& form) {
    const auto* const row = std::ranges::find(FormRows, form.Name(), &FormRow::name);
    return row != std::end(FormRows) ? row : nullptr;
}

bool IsVisible(const Form& form, StringView name) {
    const Control* const control = form.Find(name);
    return control != nullptr && control->IsShown();
}

/// The words of a caption: "&" only marks the letter of a shortcut.
String CaptionWithoutMark(const Control& control) {
    String words = control.caption;
    std::erase(words, L'&');
    return words;
}

/// The letter that presses a button at the terminal.
wchar_t ShortcutOf(const ButtonRow& button, PromptKind kind) {
    if (kind != PromptKind::Question) {
        return button.key;
    }
    return button.reply == Reply::Stop ? NoKey : YesKey;
}

/// Without line ends at the end: the details of a failed command have one.
String MessageOf(const FormRow& row, const Form& form) {
    const Control* const message = form.Find(row.message);
    const TextBox* const details = form.Find<TextBox>(row.details);
    String text = message != nullptr ? message->caption : String();
    if (details != nullptr) {
        text += L"\r\n" + details->text;
    }
    text.erase(text.find_last_not_of(L"\r\n") + 1);
    return text;
}

Dialog DialogOf(const FormRow& row, const Form& form) {
    Dialog dialog;
    dialog.kind = IsVisible(form, row.questionIcon) ? PromptKind::Question : row.kind;
    dialog.title = form.title;
    dialog.message = MessageOf(row, form);
    for (const ButtonRow& button : row.buttons) {
        const Button* const control = form.Find<Button>(button.name);
        if (control != nullptr && control->IsUsable()) {
            dialog.choices.push_back(
                {button.reply, CaptionWithoutMark(*control), ShortcutOf(button, dialog.kind)});
        }
    }
    return dialog;
}

/// What is not offered counts as the frame: the test goes on.
void Press(const FormRow& row, Form& form, Reply reply) {
    for (const ButtonRow& button : row.buttons) {
        auto* const control = form.Find<Button>(button.name);
        if (control != nullptr && control->IsUsable() && button.reply == reply) {
            control->Click();
            return;
        }
    }
    form.CloseByFrame();
}

}  // namespace

void OperatorScreen::ShowModal(Form& form) {
    x_host.Call(L"FormHost.ShowModal", sim::CallText(form.Name()));
    const FormRow* const row = FormRowOf(form);
    if (row == nullptr) {
        x_tell(L"the dialog " + form.Name() + L" is closed without an answer");
        form.CloseByFrame();
        return;
    }
    Press(*row, form, x_ask(DialogOf(*row, form)));
}

float OperatorScreen::TextHeight(const String& text, float) {
    return TwipsPerLine * static_cast<float>(1 + std::ranges::count(text, L'\n'));
}

}  // namespace ace::workbench
