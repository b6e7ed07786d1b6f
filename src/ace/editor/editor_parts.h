/// What the rooms of the editor share.
#pragma once

#include <utility>

#include <ace/core/engine_state.h>
#include <ace/core/operation.h>
#include <ace/editor/held_action.h>
#include <ace/editor/popup_menu.h>
#include <ace/host/device_list.h>
#include <ace/host/forms.h>
#include <ace/host/list_control.h>
#include <ace/host/tree_control.h>

namespace ace {

/// The editor's own copy of a module's lists, the controls that show it, and the action that it
/// holds. The lists are never run, so nothing holds them.
struct EditorParts {
    explicit EditorParts(ThreadContext& used) : context(used) {}

    ThreadContext& context;               ///< of the thread; outlives the editor
    std::shared_ptr<EngineState> engine;  ///< whose lists are edited; none before the first load
    aceModul moduleKind = aceTemplate;    ///< that of the last load
    ModuleLists lists;                    ///< of which those of the module kind are filled
    PlaceIndex rows;                      ///< where each row of the matrix in `lists` stands
    ITreeControl* m_View = nullptr;       ///< the host's tree; none while there is no link
    IListControl* m_List = nullptr;       ///< the host's list of kinds; none as above
    HeldAction held;
    Boolean AddNew;                 ///< the dialog was opened for a new action
    Boolean DeviceSettingsChanged;  ///< the device or its settings were changed in the dialog
    PopUpMenu usrPopUp;             ///< commands of the tree, or devices
    PopUpMenu usr_PopupVKSVars;     ///< replace variables
    Boolean PickingDevice;          ///< `usrPopUp` serves the choice of a device
    Boolean PickingSigPath;         ///< that of a signal path
    /// The devices in the menu that was opened last; an empty spare stands behind them.
    std::vector<DeviceRecord> DevicePickList;
    std::weak_ptr<Form> form;  ///< of which these are the parts
    bool isEditing = false;    ///< from the beginning of `ShowEditor` to its end
    aceRemote tested;          ///< with the bus device that a test in the dialog has opened, if any
    std::uint32_t builds = 0;  ///< rises whenever the tree is built anew
    std::uint32_t editedBuild = 0;  ///< the build in which the action that is edited stood
    bool isAtWork = false;          ///< an operation uses the lists, see `OwnWork`
};

/// Keeps what an act works with while it lives, whoever ends the editor or its engine meanwhile. An
/// engine that goes may take its context along.
struct KeptAlive {
    explicit KeptAlive(const EditorParts& parts)
        : context(parts.context.weak_from_this().lock()), form(parts.form.lock()) {}

    std::shared_ptr<ThreadContext> context;  ///< none for one that nobody shares
    std::shared_ptr<Form> form;
};
/// The tree is still that in which the action that is edited stood: another one may be of another
/// module, with its own lists and settings file.
inline bool IsOfItsTree(const EditorParts& parts) {
    return parts.builds == parts.editedBuild;
}
/// Error 10 while an action is edited, from before its dialog comes up: the operator can't do
/// anything else then, and no host may.
void RequireNoDialog(const EditorParts& parts);

/// The linked tree; error 91 without a link.
ITreeControl& ViewOf(const EditorParts& parts);
/// The linked list of kinds; error 91 without a link.
IListControl& PaletteOf(const EditorParts& parts);

/// The template of the engine measures emission; false without an engine.
Boolean EmiTemplate(const EditorParts& parts);

/// A flag that is set as long as the object lives.
class SetWhile {
  public:
    explicit SetWhile(bool& flag) : x_flag(flag), x_before(std::exchange(flag, true)) {}
    ~SetWhile() { x_flag = x_before; }
    SetWhile(const SetWhile&) = delete;
    SetWhile& operator=(const SetWhile&) = delete;

  private:
    bool& x_flag;
    bool x_before;
};

/// Has the lists for itself while it lives: an operation goes through them from one call of the
/// host to the next, and another one that the host makes in such a call must not change them.
class OwnWork {
  public:
    /// Error 10 while another operation works.
    explicit OwnWork(EditorParts& parts);
    ~OwnWork() { x_parts.isAtWork = false; }
    OwnWork(const OwnWork&) = delete;
    OwnWork& operator=(const OwnWork&) = delete;

  private:
    EditorParts& x_parts;
};

/// Runs `body` as a traced operation that has the lists for itself. The form, and the parts with
/// it, live until the end, whoever releases the editor meanwhile.
template <class Body>
void WorkAlone(EditorParts& parts, StringView procedure, Body&& body) {
    const KeptAlive alive(parts);
    Logged(parts.context, EditorLines(procedure), NoMessage, [&](const Statements& stmt) {
        const OwnWork work = stmt([&] { return OwnWork(parts); });
        body(stmt);
    });
}

}  // namespace ace
