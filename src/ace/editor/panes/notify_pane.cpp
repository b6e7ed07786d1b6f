#include <algorithm>

#include <ace/core/action_kinds.h>
#include <ace/editor/action_text.h>
#include <ace/editor/file_choice.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/notify_pane.h>

namespace ace {

namespace {

constexpr std::int32_t Rows = 6;
constexpr KindWords NotifyCaption{9121};
constexpr KindWords CommentCaption{9125};
constexpr KindWords QuestionCaption{0, L"Question"};

const KindWords& CaptionOf(std::int32_t kind) {
    if (kind == atComment) {
        return CommentCaption;
    }
    return kind == atQuestion ? QuestionCaption : NotifyCaption;
}

}  // namespace

NotifyPane::NotifyPane(Form& form, EditorParts& parts)
    : Pane(form, parts, DialogPane::Notify, L"Notify", Rows) {
    txtMessage.multiLine = true;
    chkBeep.onClick = [this] { BeepTicked(); };
    cmdSelSound.onClick = [this] { SelectSound(); };
    txtSoundFile.onLeave = [this] { Records().Notify.WaveFile = txtSoundFile.text; };
    txtSoundFile.onDrop = [this](const std::vector<String>& files) {
        if (const String* const file = FirstOf(files, SoundFiles)) {
            TakeDroppedSound(*file);
        }
    };
}

bool NotifyPane::HasMessageOrSound() const {
    return !txtMessage.text.empty() || !Records().Notify.WaveFile.empty();
}

void NotifyPane::BeepTicked() {
    Records().Notify.Beep = chkBeep.ticked;
    cmdTestAction.enabled = chkBeep.ticked || HasMessageOrSound();
}

/// Intentional: the beep doesn't keep the test enabled when the choice is cancelled.
void NotifyPane::SelectSound() {
    if (std::optional<String> file = ChooseFile(Context(), SoundFiles, Records().Notify.WaveFile)) {
        txtSoundFile.text = BareFileName(*file);
        Records().Notify.WaveFile = std::move(*file);
        cmdTestAction.enabled = true;
    } else {
        cmdTestAction.enabled = HasMessageOrSound();
    }
}

/// Intentional: the name stands there without its extension, unlike one that was selected.
void NotifyPane::TakeDroppedSound(const String& file) {
    const String name = BareFileName(file);
    Records().Notify.WaveFile = file;
    txtSoundFile.text = name.substr(0, name.size() - std::min(name.size(), ExtensionLength));
    cmdTestAction.enabled = true;
    chkBeep.Tick(false);
}

void NotifyPane::ShowFieldsOfKind() {
    const bool isComment = HeldKind() == atComment;
    for (Control* const control :
         std::initializer_list<Control*>{&lblMessage, &txtMessage, &chkBeep, &lblSoundFile,
                                         &txtSoundFile, &cmdSelSound, &cmdTestAction}) {
        control->visible = !isComment;
    }
    chkSwitchGenerator.visible = isComment;
}

void NotifyPane::Show(const Statements& stmt, Boolean isNew) {
    aceNotify& record = Records().Notify;
    record = stmt([&] { return RecordToShow<aceNotify>(isNew); });
    fraAction.caption = stmt([&] { return TextOf(Context(), CaptionOf(HeldKind())); });
    txtMessage.text = record.Message;
    txtSoundFile.text = record.WaveFile.empty() ? stmt([&] { return Text(InputTexts::None); })
                                                : BareFileName(record.WaveFile);
    chkBeep.ticked = record.Beep;
    chkSwitchGenerator.ticked = record.GeneratorOff;
    cmdTestAction.enabled = record.Beep || HasMessageOrSound();
    ShowFieldsOfKind();
}

std::optional<Refusal> NotifyPane::Read(const Statements& stmt) {
    aceNotify& record = Records().Notify;
    if (HeldKind() == atComment) {
        record.GeneratorOff = chkSwitchGenerator.ticked;
        return std::nullopt;
    }
    if (txtMessage.text.empty() && record.WaveFile.empty() && !record.Beep) {
        return stmt([&] { return Refuse(InputTexts::NothingToTell, &txtSoundFile); });
    }
    record.Message = txtMessage.text;
    return std::nullopt;
}

}  // namespace ace
