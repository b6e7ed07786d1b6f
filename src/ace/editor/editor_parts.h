/// What the rooms of the editor share.
#pragma once

#include <ace/core/engine_state.h>
#include <ace/editor/held_action.h>
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
    Boolean deviceSettingsChanged;  ///< in the dialog
};

/// The linked tree; error 91 without a link.
ITreeControl& ViewOf(const EditorParts& parts);

}  // namespace ace
