/// An open editor into whose work a host may break, in whichever of its calls.
#pragma once

#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/lists_of_every_kind.h"

namespace ace::test {

/// Two lines and a device with a section of its own in every list.
inline p_Subrange ThreeActions() {
    p_Subrange set;
    for (const ListFields& list : ActionLists) {
        Fill(set, list, {Tell(L"Close the door"), OnDevice(atSetDevice, L"EUT"), WaitFor(5)});
    }
    return set;
}

/// Whose operator confirms the dialog of an action and takes the first item of a menu.
class ConfirmingHost : public KindsHost {
  public:
    std::shared_ptr<IFormHost> MakeFormHost() override {
        return std::make_shared<Confirming>(*this);
    }
    std::shared_ptr<IUserDialogs> MakeUserDialogs() override {
        return std::make_shared<Choosing>(*this);
    }

  private:
    struct Confirming : DefaultFormHost {
        explicit Confirming(SimHost& owner) : host(owner) {}
        void ShowModal(Form& form) override {
            host.Call(L"FormHost.ShowModal", {});
            const auto* const ok = form.Find<Button>(L"cmdOK");
            if (form.IsShown() && ok != nullptr) {
                ok->Click();
            }
            DefaultFormHost::ShowModal(form);
        }
        SimHost& host;
    };
    struct Choosing : DefaultUserDialogs {
        explicit Choosing(SimHost& owner) : host(owner) {}
        std::int32_t ShowMessageBox(const String& text, std::int32_t style,
                                    const String& title) override {
            host.Call(L"UserDialogs.ShowMessageBox", {});
            return DefaultUserDialogs::ShowMessageBox(text, style, title);
        }
        std::optional<std::size_t> ShowPopupMenu(const std::vector<MenuItem>& items) override {
            host.Call(L"UserDialogs.ShowPopupMenu", {});
            return items.empty() ? std::nullopt : std::optional<std::size_t>(0);
        }
        SimHost& host;
    };
};

/// An engine of one module whose editor is open, and a second pair of controls.
class OpenEditor {
  public:
    explicit OpenEditor(aceModul moduleKind) {
        host->journal.KeepNone();
        host->tracing = true;
        host->files[L"lists.ini"] = sim::ParseSections(L"[ActionsOnTest]\nNumOfEnterActions=0\n");
        host->files[L"damaged.ini"] = sim::ParseSections(L"[ActionsOnTest]\nstray\n");
        host->files[L"empty.ini"] = {};
        for (String& name : context.ModuleFileNames) {
            name = L"lists.ini";
        }
        EngineState& state = engine->State();
        FillModule(state, moduleKind, ThreeActions());
        state.VKSHostUKeys = state.VKSTestUKeys;
        state.VKSHostNames = state.VKSTestUKeys;
        if (moduleKind == aceVKSDUT) {
            FillTables();
        }
        engine->LoadEditor(list.get(), tree.get());
        for (const TreeNode node : tree->Nodes()) {
            tree->SetExpanded(node, true);
        }
        Hold(Parts()->held, OnDevice(atSetDevice, L"EUT"));
    }
    ~OpenEditor() { host->beforeCall = nullptr; }
    OpenEditor(const OpenEditor&) = delete;
    OpenEditor& operator=(const OpenEditor&) = delete;

    /// None when there is no editor.
    EditorParts* Parts() const {
        const auto form = std::dynamic_pointer_cast<frmEditor>(context.Editor);
        return form ? &form->Parts() : nullptr;
    }
    void Select(const String& key) const { tree->Select(tree->Find(key)); }
    /// A host may let go of a control that is linked, but not in a call on such a control.
    void EndTree() {
        for (auto* const one : {&tree, &otherTree}) {
            if (Parts() != nullptr && *one && Parts()->m_View == one->get() &&
                !operation.starts_with(L"Tree.")) {
                one->reset();
            }
        }
    }
    void EndList() {
        for (auto* const one : {&list, &otherList}) {
            if (Parts() != nullptr && *one && Parts()->m_List == one->get() &&
                !operation.starts_with(L"List.")) {
                one->reset();
            }
        }
    }

    String operation;  ///< the call of the host that is in progress

    std::shared_ptr<KindsHost> host = std::make_shared<ConfirmingHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    std::shared_ptr<sim::SimTree> tree = std::make_shared<sim::SimTree>(*host);
    std::unique_ptr<sim::SimList> list = std::make_unique<sim::SimList>(*host);
    std::shared_ptr<sim::SimTree> otherTree = std::make_shared<sim::SimTree>(*host);
    std::unique_ptr<sim::SimList> otherList = std::make_unique<sim::SimList>(*host);

  private:
    /// By frequency, so that rows show.
    void FillTables() const {
        EngineState& state = engine->State();
        state.VKSDUTTemplate = 0;
        state.VKSInfByBandwidth = state.VKSInfByPower = false;
        engine->AddVKSDUTFreq(L"2.4 GHz", 2.4e9);
        engine->AddVKSDUTFreq(L"5 GHz", 5e9);
    }
};

}  // namespace ace::test
