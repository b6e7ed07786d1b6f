/// The dialog in which the parameters of one action are edited.
#pragma once

#include <array>

#include <ace/editor/panes/api_pane.h>
#include <ace/editor/panes/device_pane.h>
#include <ace/editor/panes/notify_pane.h>
#include <ace/editor/panes/remote_pane.h>
#include <ace/editor/panes/track_pane.h>
#include <ace/editor/panes/wait_pane.h>

namespace ace {

/// Six panes on the editor's form, of which that of the held kind shows, and two buttons. What the
/// panes read comes into the lists with OK alone.
class ActionDialog {
  public:
    /// `form` and `parts` outlive the dialog. The panes register their controls with the form.
    ActionDialog(Form& form, EditorParts& parts);

    /// Fills the lists that stay; the form is loaded. Errors of the host come out.
    void FillLists();
    /// Edits the held action, a new one of its kind with `AddNew`, for the node that is selected,
    /// and comes back when the dialog is closed; messages run meanwhile. A kind that has nothing to
    /// edit is added at once, or left as it is.
    /// Error 10 while another action is edited; errors of the host, and of the edit of a kind
    /// without a pane, come out; error 13 when the action has another kind's record. Nothing shows
    /// when the editor is ended, or loads, while messages run before. Traced and handled.
    void ShowEditor(Boolean AddNew);
    /// The same for a new action of `kind`. One that is not confirmed leaves the held action.
    void ShowNew(p_ActionTypes kind);
    /// Takes what the pane holds over into the held action, which `Ok` tells; otherwise the
    /// operator is told why not, while messages run. Traced and handled.
    void GetEntry(Boolean& Ok);
    /// OK: the focus leaves the field, messages run once, and the entry comes into the lists. Then
    /// the dialog is hidden. An entry that is not taken over, and an error of the edit, which comes
    /// out, leave it open: error 10 while a list of the module runs, with nothing changed, and for
    /// good when the tree was built anew since the dialog came up. Nothing when the dialog goes
    /// meanwhile.
    void Confirm();
    void Cancel() { x_form.Hide(); }
    /// Somebody ends the editor: asks the operator when the dialog stands open, and closes it or
    /// takes the entry over as with OK, which leaves it open when it is refused. Messages run.
    void AskToClose();

  private:
    Form& x_form;
    EditorParts& x_parts;

  public:
    WaitPane wait;
    NotifyPane notify;
    RemotePane remote;
    DevicePane device;
    TrackPane track;
    ApiPane api;
    Button cmdOK;
    Button cmdCancel;

  private:
    Pane* PaneOfHeld() const;
    void WireButtons();
    void Show(const Statements& stmt, Pane& pane, Boolean isNew);
    void Prepare(const Statements& stmt, Pane& pane, Boolean isNew);
    void LayOut(Pane& shown);
    void ShowVariableButton(Pane& pane) const;
    void BeginAt(Control* field);
    void RequireItsTree() const;
    void SelectNode();
    void Store();
    void Test();
    void ShowVariables();
    void InsertVariable(const MenuItem& chosen);

    std::array<Pane*, 6> x_panes;  ///< by `DialogPane`
    bool x_isConfirmed = false;    ///< the entry of the last show has come into the lists
    String x_key;                  ///< of the node for which the dialog was opened
};

}  // namespace ace
