/// What the parts of the action dialog have in common.
#pragma once

#include <optional>

#include <ace/core/action_kinds.h>
#include <ace/core/operation.h>
#include <ace/editor/editor_parts.h>
#include <ace/editor/panes/pane_grid.h>
#include <ace/host/forms.h>
#include <ace/host/user_dialogs.h>

namespace ace {

/// Why an entry is not taken over.
struct Refusal {
    String text;
    Control* field = nullptr;  ///< of the dialog, where the operator goes on; none for none
    std::int32_t icon = IUserDialogs::Exclamation;
};

/// Gives the focus to the field and tells why. Messages run meanwhile.
void Tell(ThreadContext& context, const Refusal& refusal);

/// The part of the dialog in which some kinds of action are edited: a frame with its fields. What
/// the operator does there changes the working records of the held action, and no list; only the
/// settings of devices are in their file at once.
class Pane {
  public:
    Pane(const Pane&) = delete;
    Pane& operator=(const Pane&) = delete;
    virtual ~Pane() = default;

    /// The form is loaded: fills the lists that stay. Errors of the host come out; messages run
    /// where it is asked for devices.
    virtual void FillLists() {}
    /// Shows the held action, or the defaults of a new one of its kind, which become the working
    /// record. Statements of the operation `stmt`. Error 13 when the action has another kind's
    /// record. Messages run where the host is asked for a device, or tells that one is missing.
    virtual void Show(const Statements& stmt, Boolean isNew) = 0;
    /// Takes over what the fields hold for the kind, or says why not: the working record may have
    /// changed by then. Statements of `stmt`. No messages run.
    virtual std::optional<Refusal> Read(const Statements& stmt) = 0;
    /// Where the operator begins; none for nowhere in particular.
    virtual Control* FirstField() { return nullptr; }
    /// Where a replace variable goes; none where it can't.
    virtual TextBox* VariableField() { return nullptr; }
    /// Opens the menu of the variables; none where there is none.
    virtual Button* VariableButton() { return nullptr; }
    /// Tries the action out; none where it can't be.
    virtual Button* TestButton() { return nullptr; }

  private:
    Form& x_form;
    EditorParts& x_parts;

  public:
    Frame fraAction;

  protected:
    /// Its frame is hidden until the dialog shows it.
    Pane(Form& form, EditorParts& parts, DialogPane index, const String& caption,
         std::int32_t rows);

    Form& OfForm() const { return x_form; }
    EditorParts& Parts() const { return x_parts; }
    ThreadContext& Context() const { return x_parts.context; }
    WorkingRecords& Records() const { return x_parts.held.Records; }
    std::int32_t HeldKind() const { return x_parts.held.Action.ActionType; }
    /// The text of a number.
    String Text(std::int32_t number) const { return Context().Language().Text(number); }
    /// `Refusal` with the text of a number.
    Refusal Refuse(std::int32_t textNumber, Control* field = nullptr,
                   std::int32_t icon = IUserDialogs::Exclamation) const {
        return {Text(textNumber), field, icon};
    }
    /// The record of the held action; `isNew`: that of a new one. Error 13 as above.
    template <class Record>
    Record RecordToShow(Boolean isNew, Record forNew = {}) const {
        return isNew ? std::move(forNew) : RecordOf<Record>(x_parts.held.Action);
    }
};

/// The button that opens the menu of the replace variables, in a row of buttons.
ControlFields VariableButtonAt(std::int32_t row);

/// Shows `value` in a box as its design has it.
void ShowValue(ThreadContext& context, ValueBox& box, double value);
/// What a box holds; `shown` while the text is still the one that `ShowValue` gave for it, so that
/// digits which don't show are not lost.
double ValueShown(ThreadContext& context, const ValueBox& box, double shown);
/// Shows the item of that index, or `other` where the list has none.
void ShowItem(DropDown& box, std::int32_t index, String other = {});
/// Shows the item with that text, compared exactly; one that the list doesn't have stands there too
/// but can't be chosen again.
void ShowItemOf(DropDown& box, const String& text);
/// Index of the chosen item; `shown` while none is chosen, because the list lacks it.
std::int32_t IndexShown(const DropDown& box, std::int32_t shown);
/// The name behind the last "\" of a path.
String BareFileName(const String& path);

}  // namespace ace
