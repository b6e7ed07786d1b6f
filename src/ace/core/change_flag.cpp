#include <ace/core/change_flag.h>
#include <ace/core/held_lists.h>

namespace ace {

namespace {

/// One of the editor's operations that hand out lists.
using Accessor = void (IEditor::*)(ModuleLists& store);

/// Those of each module, in their order; indexed by `aceModul`.
constexpr std::array<Accessor, 2> Accessors[ModulCount] = {
    {&IEditor::GetMainActions},
    {&IEditor::GetMoniActions},
    {&IEditor::GetEMSAutoActionsGeneral},
    {&IEditor::GetEMSAutoActions},
    {&IEditor::GetEMIAutoActions},
    {&IEditor::GetTSActions},
    {&IEditor::GetAziChartActions},
    {&IEditor::GetVKSActions},
    {&IEditor::GetVKSDUTActions, &IEditor::GetVKSDUTGlobActions},
};

/// Outside the members the error is that of the array's bounds.
std::size_t ModuleIndex(const EngineState& state) {
    if (FindModule(state.Modul) == nullptr) {
        Raise(Errors::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(state.Modul);
}

void TakeOverEditorLists(EngineState& state) {
    const std::shared_ptr<IEditor> editor = Required(state.Context.Editor);
    RequireFreeModule(state, state.Modul);
    for (const Accessor get : Accessors[ModuleIndex(state)]) {
        if (get != nullptr) {
            (*editor.*get)(state);
        }
    }
}

}  // namespace

Boolean GetChange(const EngineState& state) {
    return state.ChangeFlags[ModuleIndex(state)];
}

void SetChange(EngineState& state, Boolean value) {
    state.ChangeFlags[ModuleIndex(state)] = value;
    if (value) {
        TakeOverEditorLists(state);
    }
}

}  // namespace ace
