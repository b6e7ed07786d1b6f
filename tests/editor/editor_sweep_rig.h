/// An open editor that a sweep works on, and what is left of it in one line of words.
#pragma once

#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/engine_fixture.h"
#include "support/every_kind.h"
#include "support/sweep_steps.h"

namespace ace::test {

/// The host's controls. The form outlives them, so that one which could not be given back tells
/// somebody that it goes.
struct EditorControls {
    explicit EditorControls(sim::SimHost& host) : tree(host), list(host) {}

    std::shared_ptr<IEditor> form;
    sim::SimTree tree;
    sim::SimList list;
};
inline EditorControls& ControlsOf(const SweepRig& rig) {
    return *static_cast<EditorControls*>(rig.kept.get());
}
inline EditorParts& PartsOf(const SweepRig& rig) {
    return std::dynamic_pointer_cast<frmEditor>(rig.context.Editor)->Parts();
}

/// An engine whose start list has these actions, and controls that show nothing yet.
inline void MakeClosed(SweepRig& rig, const std::vector<p_Action>& actions,
                       aceModul moduleKind = aceEMSAutoTemplateGeneral) {
    EngineState& state = rig.MakeEngine().State();
    rig.kept = std::make_shared<EditorControls>(*rig.host);
    rig.context.ModuleFileNames.fill(L"setup.ini");
    rig.host->files[L"setup.ini"][L"Actions7-Device"] = {L"Gain=3"};
    state.Modul = moduleKind;
    Fill(state.EMSAutoGeneral, EnterList, actions);
}
/// The editor is open, and a node is selected.
inline void Open(SweepRig& rig, const String& selected) {
    EditorControls& controls = ControlsOf(rig);
    rig.engine->LoadEditor(&controls.list, &controls.tree);
    controls.form = rig.context.Editor;
    ASSERT_TRUE(controls.tree.GoTo(selected));
}
inline void OpenHolding(SweepRig& rig, const std::vector<p_Action>& actions, const String& selected,
                        const p_Action& held) {
    MakeClosed(rig, actions);
    Open(rig, selected);
    Hold(PartsOf(rig).held, held);
}

// ---- words -------------------------------------------------------------------------------------

/// Seconds of a wait, the section of a device, or a dash.
inline String WordOf(const p_Action& action) {
    if (const auto* wait = std::get_if<aceWait>(&action.Parameter)) {
        return std::to_wstring(static_cast<int>(wait->Time / 1000.0));
    }
    const auto* device = std::get_if<aceSetDevice>(&action.Parameter);
    return device != nullptr ? L"D" + std::to_wstring(device->ChanNo) : L"-";
}
/// The count, and the array: "2[1 9]".
inline String StartList(const ModuleLists& lists) {
    String text;
    for (const p_Action& action : lists.EMSAutoGeneral.Enter) {
        text += (text.empty() ? L"" : L" ") + WordOf(action);
    }
    return std::to_wstring(lists.EMSAutoGeneral.EnterCount) + L"[" + text + L"]";
}

/// One line of a tree: the key of a node, or the first letter of an action's detail. A plus for
/// what is expanded, a star for what is selected.
inline String NodeWord(String line) {
    line.erase(0, line.find_first_not_of(L' '));
    String word = line.substr(0, line.find(L' '));
    if (word.starts_with(L"CHI")) {
        word = line.substr(line.find(L": ") + 2, 1);
    }
    return word + (line.find(L" expanded") != String::npos ? L"+" : L"") +
           (line.find(L" selected") != String::npos ? L"*" : L"");
}
/// The nodes from the top to the bottom: "ETE+* 1 9 LTE+".
inline String TreeWords(sim::SimTree& tree) {
    String words;
    String text = tree.Text();
    while (!text.empty()) {
        const std::size_t end = text.find(L'\n');
        words += L" " + NodeWord(text.substr(0, end));
        text.erase(0, end + 1);
    }
    return words;
}

/// What is left of an edit: both copies of the start list, the tree while it is linked, the flag.
inline String EditLeft(const String& editor, const String& store, const String& tree,
                       bool changed = false) {
    return L"editor " + editor + L", store " + store + L", tree " + tree +
           (changed ? L", changed" : L"");
}
inline String EditLeft(const SweepRig& rig) {
    const EditorParts& parts = PartsOf(rig);
    const String tree =
        parts.m_View != nullptr ? TreeWords(ControlsOf(rig).tree).substr(1) : L"not linked";
    return EditLeft(StartList(parts.lists), StartList(rig.engine->State()), tree,
                    rig.engine->State().ChangeFlags[aceEMSAutoTemplateGeneral]);
}

}  // namespace ace::test
