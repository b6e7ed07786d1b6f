/// The editor: one form for a thread that shows the lists of a module in two controls of the host,
/// and in which an action is edited.
#pragma once

#include <ace/core/operation.h>
#include <ace/editor/editor_parts.h>
#include <ace/host/forms.h>

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

  private:
    /// The acts on the tree. They are not built yet: one that would change something says so with
    /// error 4099, and nothing may be dropped.
    class TreeEvents : public ITreeEvents {
      public:
        explicit TreeEvents(frmEditor& editor) : x_editor(editor) {}
        void DoubleClicked() override;
        void MouseDown(std::int32_t, std::int32_t, float, float) override {}
        void MouseMoved(std::int32_t, std::int32_t, float, float) override {}
        void MouseUp(std::int32_t, std::int32_t, float, float) override {}
        void DragStarted(DragData&, std::int32_t&) override {}
        void DraggedOver(const DragData& data, std::int32_t& effect, std::int32_t shift, float x,
                         float y) override;
        void Dropped(const DragData& data, std::int32_t& effect, std::int32_t shift, float x,
                     float y) override;
        void DragEnded() override {}
        void ControlGone() noexcept override { x_editor.x_parts.m_View = nullptr; }

      private:
        frmEditor& x_editor;
    };
    /// The same for the list of kinds.
    class ListEvents : public IListEvents {
      public:
        explicit ListEvents(frmEditor& editor) : x_editor(editor) {}
        void DoubleClicked() override;
        void DragStarted(DragData&) override {}
        void DragEnded() override {}
        void ControlGone() noexcept override { x_editor.x_parts.m_List = nullptr; }

      private:
        frmEditor& x_editor;
    };

    void ShowModule(const Statements& stmt);
    void DropLinks() noexcept;
    void DropHalfBuilt() noexcept;

    EditorParts x_parts;
    TreeEvents x_treeEvents{*this};
    ListEvents x_listEvents{*this};
};

}  // namespace ace
