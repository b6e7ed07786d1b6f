/// The action dialog as an operator has it: opened by a double click, acted on, and looked at while
/// it stands.
#pragma once

#include <utility>

#include "editor/dialog_acts.h"
#include "editor/editor_fixture.h"
#include "editor/shown_actions.h"
#include "sim/form_view.h"
#include "support/every_kind.h"

namespace ace::test {

/// The lines of a form without places and sizes, and of its panes only what stands on the one that
/// shows. The items of the long list of addresses are left out.
inline Lines DialogView(const Form& form) {
    Lines lines;
    bool isHidden = false;
    for (String line : LinesOf(sim::FormView(form, sim::Places::Left))) {
        if (!line.starts_with(L"    ")) {
            isHidden = line.starts_with(L"  fraAction(") && line.ends_with(L" hidden");
        }
        if (line.find(L" cboGpibAddress ") != String::npos) {
            line = line.substr(0, line.find(L" of ")) +
                   (line.ends_with(L" hidden") ? L" hidden" : L"");
        }
        if (!isHidden) {
            lines.push_back(line);
        }
    }
    return lines;
}

/// Tests name a module, and work on its first node that takes every kind on offer: the start of the
/// test, the no-go of a channel, what comes before the rows of the matrix.
class ShownDialog : public EditorTest {
  protected:
    void TearDown() override {
        EXPECT_EQ(x_left, 0U) << "the dialog went away before all acts were done";
        EditorTest::TearDown();
    }

    /// Opens a module with these actions in the list of its node, and selects the node.
    void OpenWith(aceModul moduleKind, const std::vector<p_Action>& actions = {}) {
        host->journal.Clear();
        FillModule(State(), moduleKind, {});
        State().VKSHostUKeys = State().VKSHostNames = State().VKSTestUKeys;
        x_moduleKind = moduleKind;
        Fill(Set(), EnterList, actions);
        State().ChangeFlags[static_cast<std::size_t>(moduleKind)] = false;
        Open(moduleKind);
        Select(NodeKey());
    }
    String NodeKey() const {
        switch (x_moduleKind) {
            case aceMonitoring:
                return L"NGO0";
            case aceEMSAutoTemplate:
                return L"STE0";
            case aceVKSDUT:
                return L"BSA";
            default:
                return L"ETE";
        }
    }
    String LineKey(int index = 0) const { return L"CHI" + std::to_wstring(index) + NodeKey(); }
    /// The set of the node.
    p_Subrange& SetIn(ModuleLists& lists) const {
        switch (x_moduleKind) {
            case aceMonitoring:
                return lists.MoniChannels[0];
            case aceEMSAutoTemplate:
                return lists.EMSAutoSteps[0];
            case aceVKSDUT:
                return lists.VKSDUTGlob;
            default:
                return lists.*ModuleTable[x_moduleKind].AllFixed()[0].set;
        }
    }
    p_Subrange& Set() { return SetIn(State()); }
    const p_Action& Stored(int index = 0) { return Set().Enter[index]; }

    /// The next dialog gets these acts; all of them have to be done.
    void Expect(Acts acts) {
        sim::FormAnswer answer{L"frmEditor", {}, {}};
        x_left += acts.size();
        for (sim::FormAct& act : acts) {
            answer.acts.push_back([this, act = std::move(act)](Form& form) {
                --x_left;
                return act(form);
            });
        }
        host->user.Expect(std::move(answer));
    }
    /// Double-clicks the kind in the list of kinds.
    void DoubleClickKind(p_ActionTypes kind) {
        EXPECT_TRUE(list.DoubleClick(L"ACT:" + std::to_wstring(static_cast<int>(kind))));
    }
    void DoubleClickLine(int index = 0) {
        Select(LineKey(index));
        EXPECT_TRUE(tree.DoubleClick(LineKey(index)));
    }
    /// A dialog for a new action of the kind, or for that of a line, with these acts.
    void ShowNew(p_ActionTypes kind, Acts acts) {
        Expect(std::move(acts));
        DoubleClickKind(kind);
    }
    void ShowLine(Acts acts, int index = 0) {
        Expect(std::move(acts));
        DoubleClickLine(index);
    }
    /// Opens the module with the action, does the acts on it and confirms: what is stored then.
    p_Action Edited(const p_Action& action, Acts acts, aceModul moduleKind = aceTemplate) {
        OpenWith(moduleKind, {action});
        acts.push_back(PressOk);
        ShowLine(std::move(acts));
        return Stored();
    }
    /// The same with a new action.
    p_Action Added(p_ActionTypes kind, Acts acts, aceModul moduleKind = aceTemplate) {
        OpenWith(moduleKind);
        acts.push_back(PressOk);
        ShowNew(kind, std::move(acts));
        EXPECT_EQ(Set().EnterCount, 1);
        return Set().EnterCount == 1 ? Stored() : p_Action();
    }

    static String BoxShown(const String& text, std::int32_t style, const String& title) {
        return L"UserDialogs.ShowMessageBox(\"" + text + L"\", " + std::to_wstring(style) +
               L", \"" + title + L"\")";
    }
    /// The box of an entry that is not taken.
    static String Refused(const String& text) {
        return BoxShown(text, IUserDialogs::Exclamation, L"T(9200)");
    }
    Lines Boxes() { return host->journal.LinesOf(L"UserDialogs.ShowMessageBox"); }
    /// The effects in order; the dialog by its name.
    Lines Calls() {
        Lines lines = TakeEffects();
        for (String& line : lines) {
            if (line.starts_with(L"FormHost.ShowModal(")) {
                line = L"Form " + line.substr(line.find(L'"'), line.find(L',') - line.find(L'"'));
            }
        }
        return lines;
    }

  private:
    aceModul x_moduleKind = aceTemplate;
    std::size_t x_left = 0;  ///< acts that are still to be done
};

}  // namespace ace::test
