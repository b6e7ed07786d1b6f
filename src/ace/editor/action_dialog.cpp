#include <utility>

#include <ace/core/action_kinds.h>
#include <ace/core/held_lists.h>
#include <ace/core/text.h>
#include <ace/editor/action_dialog.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/test_button.h>
#include <ace/editor/variables_menu.h>

namespace ace {

namespace {

constexpr TraceLines ShowLines = EditorLines(L"ShowEditor");
constexpr TraceLines EntryLines = EditorLines(L"GetEntry");

constexpr float Margin = 240.0F;        ///< twips around the pane
constexpr float ButtonsBelow = 120.0F;  ///< twips between the pane and the buttons

ControlFields DialogButton(String caption, std::int32_t captionNumber = 0) {
    ControlFields fields;
    fields.caption = std::move(caption);
    fields.captionNumber = captionNumber;
    fields.width = pane_grid::ButtonWidth;
    fields.height = pane_grid::ButtonHeight;
    return fields;
}

/// Holds what was held before, unless what is held meanwhile is to stay.
class HeldBefore {
  public:
    HeldBefore(EditorParts& parts, const bool& isConfirmed)
        : x_parts(parts), x_isConfirmed(isConfirmed), x_before(parts.held.Action) {}
    ~HeldBefore() {
        if (!x_isConfirmed) {
            x_parts.held.Action = std::move(x_before);
        }
    }
    HeldBefore(const HeldBefore&) = delete;
    HeldBefore& operator=(const HeldBefore&) = delete;

  private:
    EditorParts& x_parts;
    const bool& x_isConfirmed;
    p_Action x_before;
};

/// Ends what tests have opened, however the dialog ends.
class TestsOfDialog {
  public:
    explicit TestsOfDialog(EditorParts& parts) : x_parts(parts) {}
    ~TestsOfDialog() { EndTests(x_parts); }
    TestsOfDialog(const TestsOfDialog&) = delete;
    TestsOfDialog& operator=(const TestsOfDialog&) = delete;

  private:
    EditorParts& x_parts;
};

}  // namespace

ActionDialog::ActionDialog(Form& form, EditorParts& parts)
    : x_form(form),
      x_parts(parts),
      wait(form, parts),
      notify(form, parts),
      remote(form, parts),
      device(form, parts),
      track(form, parts),
      api(form, parts),
      cmdOK(form, L"cmdOK", DialogButton(L"OK", 6)),
      cmdCancel(form, L"cmdCancel", DialogButton(L"Cancel")),
      x_panes{&wait, &notify, &remote, &device, &track, &api} {
    WireButtons();
    LayOut(wait);
}

void ActionDialog::WireButtons() {
    cmdOK.onClick = [this] { Confirm(); };
    cmdCancel.onClick = [this] { Cancel(); };
    for (Pane* const pane : x_panes) {
        if (Button* const test = pane->TestButton()) {
            test->onClick = [this] { Test(); };
        }
        if (Button* const variables = pane->VariableButton()) {
            variables->onClick = [this] { ShowVariables(); };
        }
    }
}

void ActionDialog::FillLists() {
    for (Pane* const pane : x_panes) {
        pane->FillLists();
    }
}

/// None for a kind that has nothing to edit.
Pane* ActionDialog::PaneOfHeld() const {
    const ActionKind* const kind = FindActionKind(x_parts.held.Action.ActionType);
    return kind != nullptr && kind->pane != DialogPane::None
               ? x_panes[static_cast<std::size_t>(kind->pane)]
               : nullptr;
}

// ---- showing -----------------------------------------------------------------------------------

void ActionDialog::LayOut(Pane& shown) {
    for (Pane* const pane : x_panes) {
        pane->fraAction.visible = pane == &shown;
    }
    Frame& frame = shown.fraAction;
    frame.left = frame.top = Margin;
    x_form.width = frame.width + 2 * Margin;
    cmdOK.left = Margin;
    cmdOK.top = frame.top + frame.height + ButtonsBelow;
    cmdCancel.left = cmdOK.left + cmdOK.width + ButtonsBelow;
    cmdCancel.top = cmdOK.top;
    x_form.height = cmdOK.top + cmdOK.height + Margin;
}

void ActionDialog::ShowVariableButton(Pane& pane) const {
    if (Button* const button = pane.VariableButton()) {
        button->visible =
            pane.VariableField()->visible && !VariableItems(x_parts.moduleKind).empty();
    }
}

void ActionDialog::BeginAt(Control* field) {
    if (field == nullptr || !field->IsShown()) {
        return;
    }
    x_form.SetFocus(*field);
    if (auto* const text = ControlAs<TextBox>(field)) {
        text->SelectAll();
    }
}

void ActionDialog::Prepare(const Statements& stmt, Pane& pane, Boolean isNew) {
    x_form.GiveUpFocus();
    LayOut(pane);
    pane.Show(stmt, isNew);
    ShowVariableButton(pane);
    BeginAt(pane.FirstField());
}

/// Messages run while the pane is filled: what has changed the editor by then ends the show.
void ActionDialog::Show(const Statements& stmt, Pane& pane, Boolean isNew) {
    const std::shared_ptr<EngineState> engine = x_parts.engine;
    Prepare(stmt, pane, isNew);
    if (x_parts.engine == engine && IsOfItsTree(x_parts)) {
        const TestsOfDialog tests(x_parts);
        stmt([&] { x_form.ShowModal(x_parts.context.FormHost()); });
    }
}

void ActionDialog::ShowEditor(Boolean AddNew) {
    const KeptAlive alive(x_parts);
    const auto message = [&] { return L"AddNew = " + FormatGeneral(Value(AddNew), L'.'); };
    Logged(x_parts.context, ShowLines, message, [&](const Statements& stmt) {
        stmt([&] { RequireNoDialog(x_parts); });
        const SetWhile editing(x_parts.isEditing);
        x_isConfirmed = false;
        x_parts.AddNew = AddNew;
        x_parts.DeviceSettingsChanged = false;
        x_key = stmt([&] { return ViewOf(x_parts).Key(ViewOf(x_parts).Selected()); });
        x_parts.editedBuild = x_parts.builds;
        if (Pane* const pane = PaneOfHeld()) {
            Show(stmt, *pane, AddNew);
        } else {
            Store();
        }
    });
}

void ActionDialog::ShowNew(p_ActionTypes kind) {
    const KeptAlive alive(x_parts);
    RequireNoDialog(x_parts);
    const HeldBefore before(x_parts, x_isConfirmed);
    x_isConfirmed = false;
    x_parts.held.Action = p_Action{kind, {}, {}};
    ShowEditor(true);
}

// ---- taking over -------------------------------------------------------------------------------

void ActionDialog::GetEntry(Boolean& Ok) {
    Ok = false;
    Logged(x_parts.context, EntryLines, NoMessage, [&](const Statements& stmt) {
        Pane* const pane = PaneOfHeld();
        if (pane == nullptr) {
            return;
        }
        if (const std::optional<Refusal> refusal = pane->Read(stmt)) {
            stmt([&] { Tell(x_parts.context, *refusal); });
            return;
        }
        x_parts.held.Action = stmt([&] { return ActionFromRecords(x_parts.held); });
        x_parts.held.Action.IgnoreErr = false;
        Ok = true;
    });
}

/// What the dialog does outside itself, it does for the lists for which it was opened. A tree that
/// was built anew may have another node in the place of that one.
void ActionDialog::RequireItsTree() const {
    if (!IsOfItsTree(x_parts)) {
        Raise(Errors::ArrayInUse);
    }
}

/// The entry is meant for the node for which the dialog was opened, whatever a host has selected
/// meanwhile.
void ActionDialog::SelectNode() {
    const TreeNode node = ViewOf(x_parts).Find(x_key);
    if (ViewOf(x_parts).Selected() != node) {
        ViewOf(x_parts).Select(node);
    }
}

void ActionDialog::Store() {
    if (x_parts.AddNew) {
        RequireFreeModule(*Required(x_parts.engine), x_parts.moduleKind);
        AddAction(x_parts, true);
    } else {
        ModifyAction(x_parts);
    }
    x_isConfirmed = true;
}

void ActionDialog::Confirm() {
    const KeptAlive alive(x_parts);
    x_form.SetFocus(cmdOK);
    x_parts.context.Platform().Yield();
    if (!x_form.IsShown()) {
        return;
    }
    const EngineState& engine = *Required(x_parts.engine);
    RequireItsTree();
    RequireFreeModule(engine, x_parts.moduleKind);
    Boolean isComplete;
    GetEntry(isComplete);
    if (isComplete) {
        SelectNode();
        Store();
        x_form.Hide();
    }
}

void ActionDialog::AskToClose() {
    if (!x_form.IsShown()) {
        return;
    }
    ILanguage& language = x_parts.context.Language();
    const std::int32_t answer = x_parts.context.UserDialogs().ShowMessageBox(
        language.Text(InputTexts::CloseAnyway), IUserDialogs::YesNo | IUserDialogs::Exclamation,
        language.Text(InputTexts::Actions));
    if (answer != IUserDialogs::AnswerNo) {
        Cancel();
    } else if (x_form.IsShown()) {
        Confirm();
    }
}

// ---- test and variables ------------------------------------------------------------------------

void ActionDialog::Test() {
    const KeptAlive alive(x_parts);
    RequireItsTree();
    Boolean isComplete;
    GetEntry(isComplete);
    if (isComplete) {
        TestHeldAction(x_parts);
    }
}

void ActionDialog::ShowVariables() {
    const KeptAlive alive(x_parts);
    PopUpMenu& menu = x_parts.usr_PopupVKSVars;
    menu.items = VariableItems(x_parts.moduleKind);
    if (const std::optional<MenuItem> chosen = menu.PopUp(x_parts.context.UserDialogs())) {
        InsertVariable(*chosen);
    }
}

void ActionDialog::InsertVariable(const MenuItem& chosen) {
    for (Pane* const pane : x_panes) {
        TextBox* const field = pane->VariableField();
        if (field != nullptr && pane->fraAction.visible) {
            field->Insert(VariableOf(x_parts.moduleKind, chosen.command));
        }
    }
}

}  // namespace ace
