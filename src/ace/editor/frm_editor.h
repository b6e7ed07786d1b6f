/// The editor: one form for a thread that shows the lists of a module in two controls of the host,
/// and in which an action is edited.
#pragma once

#include <ace/core/operation.h>
#include <ace/editor/interaction.h>

namespace ace {

/// Keeps its own copy of the lists and hands it to the engine's store with each change. It keeps
/// the engine's state, not the host's object, so that an edit finds its store until `Release`, and
/// links to the controls until the control, the form or a tree that could not be built ends them.
class frmEditor : public Form, public IEditor, public std::enable_shared_from_this<frmEditor> {
  public:
    explicit frmEditor(ThreadContext& context);
    /// Gives living controls back. Calls no service: those of the thread may have gone.
    ~frmEditor() override;

    void Load() override { Form::Load(); }
    void SetTreeControl(ITreeControl* tree) override;
    void SetListControl(IListControl* list) override;
    void GetMainActions(ModuleLists& store) override;
    void GetMoniActions(ModuleLists& store) override;
    void GetEMSAutoActionsGeneral(ModuleLists& store) override;
    void GetEMSAutoActions(ModuleLists& store) override;
    void GetEMIAutoActions(ModuleLists& store) override;
    void GetTSActions(ModuleLists& store) override;
    void GetAziChartActions(ModuleLists& store) override;
    void GetVKSActions(ModuleLists& store) override;
    void GetVKSDUTActions(ModuleLists& store) override;
    void GetVKSDUTGlobActions(ModuleLists& store) override;
    void TakeLists(const ModuleLists& lists) override;
    void LoadEditor(aceModul moduleKind, const std::shared_ptr<EngineState>& engine) override;
    void SetSubrange(std::int32_t number) override;
    void Unload() override;

    /// What its rooms share, for whoever carries out an edit.
    EditorParts& Parts() { return x_parts; }

  protected:
    void Loaded() override;
    void KeyPressed(std::int32_t key) override;
    void FrameClosed() override { x_dialog.Cancel(); }

  private:
    void ShowModule(const Statements& stmt);
    void DropLinks() noexcept;
    void DropHalfBuilt() noexcept;

    EditorParts x_parts;
    ActionDialog x_dialog{*this, x_parts};
    TreeEvents x_treeEvents{x_parts, x_dialog};
    ListEvents x_listEvents{x_parts, x_dialog};
    bool x_isEnding = false;  ///< the operator is asked whether to close: a load would be lost
};

}  // namespace ace
