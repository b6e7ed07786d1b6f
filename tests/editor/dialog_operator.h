/// An operator who does anything that a person can do to the dialog, and keeps the model of it in
/// step.
#pragma once

#include <gtest/gtest.h>
#include <random>

#include "editor/dialog_model.h"
#include "editor/free_host.h"

namespace ace::test {

class DialogOperator {
  public:
    DialogOperator(FreeHost& host, std::mt19937& random, DialogEdits& edits)
        : x_random(random), x_edits(edits) {
        FreeAnswers& free = host.free;
        free.form = [this](Form& form) { Answer(form); };
        free.box = [this](std::int32_t style) { return AnswerBox(style); };
        free.file = [this] { return x_file = DrawFile(); };
        free.menu = [this](const std::vector<MenuItem>& items) { return DrawItem(items); };
        free.settings = [this] { return DrawSettings(); };
    }

    /// The dialog that is to come; none is expected without.
    std::optional<DialogModel> expected;
    int section = 0;                  ///< of the device in the dialog that is expected
    std::optional<String> confirmed;  ///< the value of the line that the last dialog stored
    std::optional<String> tried;      ///< that of the last test in it
    std::optional<MenuItem> chosen;   ///< in the last menu
    std::function<void(const std::vector<MenuItem>& items)> onMenu;  ///< sees what was chosen
    /// Anything that may happen between two acts.
    std::function<void()> meanwhile;
    std::size_t done = 0;    ///< acts
    std::size_t passed = 0;  ///< acts that could not be done

    int Draw(int from, int to) { return std::uniform_int_distribution(from, to)(x_random); }
    bool Chance(int percent) { return Draw(1, 100) <= percent; }
    template <class Items>
    const auto& DrawFrom(const Items& items) {
        return *std::next(std::begin(items), Draw(0, static_cast<int>(std::size(items)) - 1));
    }

  private:
    // ---- what comes up -----------------------------------------------------------------------

    std::int32_t AnswerBox(std::int32_t style) {
        ++x_boxes;
        if ((style & IUserDialogs::YesNo) == 0) {
            return IUserDialogs::AnswerOk;
        }
        return Chance(50) ? IUserDialogs::AnswerYes : IUserDialogs::AnswerNo;
    }
    std::optional<String> DrawFile() {
        static const std::vector<String> files = {L"c:\\snd\\go.wav", L"stop.wav", L"c:\\run.exe"};
        return Chance(30) ? std::nullopt : std::optional(DrawFrom(files));
    }
    std::optional<std::size_t> DrawItem(const std::vector<MenuItem>& items) {
        chosen.reset();
        std::optional<std::size_t> item;
        if (!items.empty() && Chance(85)) {
            item = static_cast<std::size_t>(Draw(0, static_cast<int>(items.size()) - 1));
            chosen = items.at(*item);
        }
        if (onMenu) {
            onMenu(items);
        }
        return item;
    }
    std::optional<String> DrawSettings() {
        x_hasSettings = true;
        x_settings =
            Chance(30) ? std::nullopt : std::optional(L"Level=" + std::to_wstring(Draw(1, 3)));
        return x_settings;
    }

    // ---- a form ------------------------------------------------------------------------------

    void Answer(Form& form) {
        if (form.Name() != L"frmEditor") {
            return;  // of a routine that was tried out; it is closed by its frame
        }
        ASSERT_TRUE(expected) << "a dialog for nothing";
        DialogModel dialog = *std::exchange(expected, std::nullopt);
        x_dialog = &dialog;
        dialog.Open();
        ExpectOpened(form, dialog);
        for (int acts = Draw(0, 12); acts > 0 && form.IsShown(); --acts) {
            Act(form, DrawControl(form));
        }
        for (int tries = Draw(0, 2); tries > 0 && form.IsShown(); --tries) {
            Confirm(form);
        }
        if (form.IsShown()) {
            DrawFrom(std::vector{sim::Press(L"cmdCancel"), sim::PressKey(Keys::Escape),
                                 sim::CloseFrame()})(form);
            EXPECT_FALSE(form.IsShown());
        }
        x_dialog = nullptr;
    }
    /// An action shows what it is. One without a device, or without settings of it, is refused.
    static void ExpectOpened(const Form& form, DialogModel dialog) {
        const std::optional<String> outcome = dialog.Outcome(form);
        if (!dialog.isNew && (outcome || RecordTypeOf[dialog.kind] != DeviceRecord)) {
            EXPECT_EQ(InLine(outcome.value_or(L"refused")), InLine(dialog.opened));
        }
    }
    void Confirm(Form& form) {
        Before(form);
        const Control* const focus = form.Focus();
        if (focus != nullptr && focus->Name() == L"txtSoundFile") {
            x_dialog->wave = x_soundText;
        }
        const std::optional<String> outcome = x_dialog->Outcome(form);
        const std::size_t boxes = x_boxes;
        EXPECT_TRUE(sim::Press(L"cmdOK")(form));
        EXPECT_EQ(form.IsShown(), !outcome);
        EXPECT_TRUE(outcome || x_boxes > boxes) << "refused without a word";
        confirmed = outcome;
        settingsChanged = x_dialog->settingsChanged;
        ++done;
    }

    // ---- one act -----------------------------------------------------------------------------

    /// Most of the time one that can be reached.
    String DrawControl(const Form& form) {
        std::vector<Control*> controls = form.Controls();
        if (Chance(85)) {
            std::erase_if(controls, [](const Control* one) {
                return !one->IsUsable() || one->Kind() == ControlKind::Label ||
                       one->Kind() == ControlKind::Frame;
            });
        }
        return DrawFrom(controls)->Name();
    }

    void Act(Form& form, const String& name) {
        if (meanwhile) {
            meanwhile();
        }
        if (name == L"cmdOK" || name == L"cmdCancel") {
            return;
        }
        Before(form);
        const bool isTest = name.starts_with(L"cmdTestAction");
        const bool isDone = DrawAct(form, name)(form);
        ++(isDone ? done : passed);
        After(form, name, isDone, isTest);
    }
    sim::FormAct DrawAct(const Form& form, const String& name);
    sim::FormAct DrawTextAct(const String& name);
    sim::FormAct DrawFileAct(const FileBox& box);

    // ---- what the model has to know of it ----------------------------------------------------

    void Before(const Form& form) {
        x_focus = form.Focus();
        x_soundText = TextIn(form, L"txtSoundFile");
        x_device = CaptionIn(form, L"lblDevice");
        x_unit = CaptionIn(form, L"lblSwUnit");
        x_settingsText = CaptionIn(form, L"lblDeviceSett");
        x_hasBoth = form.Find(L"imgDevice")->visible && form.Find(L"imgSwitchUnit")->visible;
        x_tab = form.Find<TabStrip>(L"tabAPIParameter")->current;
        x_hasTabs = form.Find(L"tabAPIParameter")->visible;
        x_parameter = form.Find(L"fraAPIParameterTable")->visible
                          ? form.Find<FileBox>(L"filAPIParameterTable")->fileName
                          : TextIn(form, L"txtAPIParameterValue");
        x_file.reset();
        x_dropped.clear();
        chosen.reset();
        x_hasSettings = false;
    }
    void After(Form& form, const String& name, bool isDone, bool isTest);
    void AfterSound(const Form& form, const String& name, bool isDone);
    void AfterMacro(const Form& form, const String& name);
    void AfterDevice(const Form& form, const String& name);
    void DeviceIsChosen(bool isPath);

  public:
    bool settingsChanged = false;  ///< in the dialog that was confirmed last

  private:
    std::mt19937& x_random;
    DialogEdits& x_edits;
    DialogModel* x_dialog = nullptr;
    std::size_t x_boxes = 0;  ///< so far

    const Control* x_focus = nullptr;
    String x_soundText;
    String x_device;
    String x_unit;
    String x_settingsText;
    String x_parameter;
    std::int32_t x_choice = 0;
    bool x_hasBoth = false;
    bool x_hasTabs = false;
    std::int32_t x_tab = 0;
    std::optional<String> x_file;
    String x_dropped;
    bool x_hasSettings = false;
    std::optional<String> x_settings;
};

}  // namespace ace::test
