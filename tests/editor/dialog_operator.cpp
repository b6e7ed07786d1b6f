#include "editor/dialog_operator.h"

namespace ace::test {

namespace {

struct Inputs {
    StringView control;
    std::vector<String> texts;
};
/// What is typed into a box; into any other one the last of them.
const std::vector<Inputs> Typed = {
    {L"txtWait", {L"0", L"2.5", L"1,5", L"3600", L"4000", L"x", L"-3"}},
    {L"txtWaitTime", {L"1", L"4.5", L"0.5", L"x"}},
    {L"txtCycleTime", {L"0.5", L"600", L"601"}},
    {L"txtDelayTime", {L"1", L"0", L"250", L"999"}},
    {L"txtMessage",
     {L"", L"Close the door", L"close THE door", L"one,\r\ntwo",
      L"a message of more than forty characters, which is cut in a tree of any module"}},
    {L"txtSoundFile", {L"", L"beep.wav"}},
    {L"txtGpibCommand", {L"", L"*RST", L"*rst", L"SOURCE:FREQUENCY 1 MHZ,ON"}},
    {L"txtDll", {L"", L"run.exe", L"c:\\tools\\RUN.EXE"}},
    {L"txtHost", {L"", L"gen", L"GEN"}},
    {L"txtTcpPort", {L"5025", L"50000", L"x"}},
    {L"txtAPIParameterValue", {L"", L"1", L"1,5", L"abc", L"#FREQ#", L"##"}}};
const std::vector<String> Dropped = {L"c:\\a\\ding.WAV", L"tool.exe", L"notes.txt", L"x"};
}  // namespace

// ---- drawing an act ----------------------------------------------------------------------------

sim::FormAct DialogOperator::DrawTextAct(const String& name) {
    const auto inputs = std::ranges::find(Typed, name, &Inputs::control);
    const String text = DrawFrom((inputs != Typed.end() ? *inputs : Typed.back()).texts);
    switch (Draw(0, 4)) {
        case 0:
            return sim::SelectText(name, Draw(0, 8), Draw(0, 4));
        case 1:
            return sim::Focus(name);
        case 2:
            x_dropped = DrawFrom(Dropped);
            return sim::DropFiles(name, {x_dropped, L"other.wav"});
        default:
            return sim::Type(name, text);
    }
}

sim::FormAct DialogOperator::DrawFileAct(const FileBox& box) {
    if (box.ofTables) {
        const String table = DrawFrom(std::vector<String>{L"levels", L"limits", L""});
        return sim::ChooseTable(box.Name(), Draw(40, 41), Draw(0, 1), table);
    }
    return sim::ChooseFile(box.Name(), DrawFrom(ModelMacros).program);
}

sim::FormAct DialogOperator::DrawAct(const Form& form, const String& name) {
    Control& control = *form.Find(name);
    switch (control.Kind()) {
        case ControlKind::Picture:
            return sim::PressMouse(name, Chance(60) ? MouseButtons::Left : MouseButtons::Right);
        case ControlKind::CheckBox:
            return sim::Tick(name, Chance(50));
        case ControlKind::DropDown:
        case ControlKind::OptionGroup:
        case ControlKind::TabStrip:
            x_choice = Draw(0, 3);
            return sim::Choose(name, x_choice);
        case ControlKind::TextBox:
            return DrawTextAct(name);
        case ControlKind::ValueBox: {
            const auto inputs = std::ranges::find(Typed, name, &Inputs::control);
            return Chance(70) ? sim::Type(name, DrawFrom(inputs->texts)) : sim::EndInput(name);
        }
        case ControlKind::FileBox:
            return DrawFileAct(*ControlAs<FileBox>(&control));
        default:
            return sim::Press(name);
    }
}

// ---- what came of it ---------------------------------------------------------------------------

/// The field of the sound is its text once the focus goes from there, if only for the time of a
/// test that is refused.
void DialogOperator::AfterSound(const Form& form, const String& name, bool isDone) {
    const bool wasThere = x_focus != nullptr && x_focus->Name() == L"txtSoundFile";
    const bool isElsewhere = name != L"txtSoundFile" && form.Find(name)->TakesFocus();
    if (wasThere && (form.Focus() != x_focus || (isDone && isElsewhere))) {
        x_dialog->wave = x_soundText;
    }
    const bool isSound = x_dropped.size() > 4 && Lower(x_dropped).ends_with(L".wav");
    if (isDone && name == L"cmdSelSound" && x_file) {
        x_dialog->wave = *x_file;
    } else if (isDone && name == L"txtSoundFile" && isSound) {
        x_dialog->wave = x_dropped;
    }
}

void DialogOperator::DeviceIsChosen(bool isPath) {
    const String name = chosen->caption;
    if (x_hasBoth && name == (isPath ? x_unit : x_device)) {
        return;
    }
    if (isPath) {
        x_dialog->path = name == L"T(9147)" ? String() : name;
    } else if (x_dialog->kind != atSwitchAmp && x_dialog->kind != atSwitchUnit) {
        x_edits.sections[section] = x_settings.value_or(String());
    }
    x_dialog->settingsChanged = true;
}

void DialogOperator::AfterDevice(const Form& form, const String& name) {
    if (chosen) {
        DeviceIsChosen(name == L"imgSwitchUnit" && x_dialog->kind == atSetDevice);
    } else if (name == L"imgDevice" && x_hasSettings) {
        x_dialog->settingsChanged = CaptionIn(form, L"lblDeviceSett") != x_settingsText;
        if (x_settings) {
            x_edits.sections[section] = *x_settings;
        }
    }
}

/// The parameter in front is kept when another program is chosen, whatever it is, and when another
/// tab is, if it is a good one.
void DialogOperator::AfterMacro(const Form& form, const String& name) {
    DialogModel& dialog = *x_dialog;
    const auto tab = static_cast<std::size_t>(x_tab);
    const bool isProgram = name == L"filAPIProgram";
    if (isProgram && x_hasTabs) {
        dialog.parameters.at(tab) = x_parameter;
    }
    const String& program = form.Find<FileBox>(L"filAPIProgram")->fileName;
    if (isProgram && !program.empty()) {
        dialog.parameters.resize(MacroCalled(program).kinds.size());
    }
    if (name == L"tabAPIParameter" && x_choice != x_tab) {
        const bool isGood = dialog.KeepParameter(form, tab, x_parameter);
        EXPECT_EQ(form.Find<TabStrip>(L"tabAPIParameter")->current, isGood ? x_choice : x_tab);
    }
}

void DialogOperator::After(Form& form, const String& name, bool isDone, bool isTest) {
    AfterSound(form, name, isDone);
    if (name.starts_with(L"img") && isDone) {
        AfterDevice(form, name);
    }
    if (x_dialog->kind == atAPI && isDone) {
        AfterMacro(form, name);
    }
    if (isTest && isDone) {
        const std::optional<String> outcome = x_dialog->Outcome(form);
        tried = outcome ? outcome : tried;
    }
}

}  // namespace ace::test
