/// What an operator does with the mouse on the editor's list and tree, and what comes of it. The
/// engine's event `DragComplete` is a line of the host's journal.
#pragma once

#include <ace/core/module_columns.h>

#include "editor/edited_moments.h"

namespace ace::test {

/// The matrix in groups, see `MouseTest::OpenWhole`.
inline constexpr std::int32_t RowsInGroups = 77;

/// The icon of each kind, in the order of the kinds.
inline constexpr StringView KindIcons[] = {L"WAI", L"NOT", L"REM", L"DEV", L"EUT", L"TRC",
                                           L"MSG", L"REC", L"STP", L"SGL", L"STL", L"NBB",
                                           L"SWA", L"SWU", L"API", L"PAC", L"QUE", L"MON"};
inline constexpr std::int32_t KindCount = 18;
/// The ways to hold keys in a drag: none, Shift, Control, both, and the same with Alt.
inline constexpr std::int32_t ShiftCount = 8;

/// A kind that is dragged from the list.
inline DragData KindDragged(std::int32_t kind) {
    return {L"ACT:" + std::to_wstring(kind)};
}
/// A line that is dragged, by its icon.
inline DragData LineDragged(const String& icon) {
    return {L"ACT:1000," + icon};
}

class MouseTest : public EveryModule {
  protected:
    static constexpr StringView DragComplete = L"DragComplete()";
    static constexpr StringView DialogShown = L"dialog shown";
    static constexpr StringView DialogHidden = L"dialog hidden";

    MouseTest() { engine->SetEventSink(&x_sink); }

    // ---- what is open ----------------------------------------------------------------------

    /// Opens a module with all its nodes; the journal starts behind that, and nothing is selected.
    /// A matrix has its rows as roots, its global lists, or groups of rows: one for each of three
    /// frequencies with a leaf in each, of which that of 6 GHz has no row.
    void OpenWhole(aceModul moduleKind, std::int32_t matrix = RowsAsRoots) {
        if (matrix == RowsInGroups) {
            FillGroups();
        }
        OpenModule(moduleKind, matrix == RowsInGroups ? RowsAsRoots : matrix);
        ExpandAll();
    }
    void ExpandAll() {
        for (const TreeNode node : tree.Nodes()) {
            tree.SetExpanded(node, true);
        }
        host->journal.Clear();
    }
    Lines AllKeys() {
        Lines keys;
        for (const TreeNode node : tree.Nodes()) {
            keys.push_back(tree.Key(node));
        }
        return keys;
    }
    /// Empty when nothing is selected.
    String SelectedKey() { return KeyOrNone(tree.Selected()); }
    /// Empty without a highlight.
    String Highlighted() { return KeyOrNone(tree.DropHighlight()); }

    // ---- acts ------------------------------------------------------------------------------

    /// The items of the menu that comes up on a node; none is chosen.
    Lines MenuOn(const String& key) {
        host->journal.Clear();
        ChooseFromMenu(key, std::nullopt);
        return host->journal.LinesOf(L"UserDialogs.ShowPopupMenu");
    }
    void ExpectDialog(std::vector<sim::FormAct> acts) {
        host->user.Expect({L"frmEditor", std::move(acts), {}});
    }
    void ExpectOk() { ExpectDialog({sim::Press(L"cmdOK")}); }
    void ExpectCancel() { ExpectDialog({sim::Press(L"cmdCancel")}); }
    /// Ends the dialog behind `act`, whatever has come of that.
    void InTheDialog(std::function<void()> act) {
        ExpectDialog({sim::Do([act = std::move(act)](Form&) { act(); }), sim::CloseFrame()});
    }

    // ---- what came of it -------------------------------------------------------------------

    /// Dialogs, boxes, menus and the event since the last look, in their order.
    Lines Happened() {
        Lines happened;
        for (const String& line : TakeEffects()) {
            if (line.starts_with(L"FormHost.ShowModal(\"frmEditor\"")) {
                happened.emplace_back(DialogShown);
            } else if (line == L"FormHost.Hide(\"frmEditor\")") {
                happened.emplace_back(DialogHidden);
            } else if (line == DragComplete || line.starts_with(L"UserDialogs.")) {
                happened.push_back(line);
            }
        }
        return happened;
    }
    /// The store is these lists and no others, the editor has the same, and the flag is so.
    void ExpectLists(const ModuleLists& expected, bool isChanged) {
        EXPECT_EQ(Store(), expected);
        ModuleLists edited = expected;
        CopyModule(State().Modul, CopyFor::Editor, Parts().lists, edited);
        EXPECT_EQ(edited, expected);
        EXPECT_EQ(engine->Change(), isChanged);
    }

  private:
    void FillGroups() {
        EngineState& state = State();
        state.VKSDUTFreqCount = 3;
        state.VKSDUTFreqs.RedimPreserve(2);
        state.VKSDUTFreqs[2] = 6e9;
        state.VKSDUTFreqNames.RedimPreserve(2);
        state.VKSDUTFreqNames[2] = L"6 GHz";
        state.VKSInfByBandwidth = true;
        state.VKSDUTBandwidthCount = 1;
        state.VKSDUTBandwidthNames.Redim(0, 0);
        state.VKSDUTBandwidthNames[0] = L"20 MHz";
        state.VKSDUTIds(0, 0) = 2.4e9;
        state.VKSDUTIds(1, 0) = 5e9;
        state.VKSDUTIds(0, 1) = state.VKSDUTIds(1, 1) = 0.0;
    }
    struct Sink : __aceActionsEngine {
        explicit Sink(sim::SimHost& owner) : host(owner) {}
        void DragComplete() override { host.Call(L"DragComplete", {}); }
        sim::SimHost& host;
    };
    String KeyOrNone(TreeNode node) { return node ? tree.Key(node) : String(); }

    Sink x_sink{*host};
};

/// A row of `EditedMoments` by its name.
inline const EditedMoment& MomentNamed(std::string_view name) {
    for (const EditedMoment& moment : EditedMoments) {
        if (moment.name == name) {
            return moment;
        }
    }
    throw std::logic_error("no such moment");
}
/// True when `word` is one of the words, such as an icon among those that are refused.
constexpr bool Holds(StringView words, StringView word) {
    return words.find(word) != StringView::npos;
}

/// The list of a moment in somebody's lists, as entries to shift about.
inline std::vector<p_Action> EntriesOf(const EditedMoment& moment, ModuleLists& lists) {
    const DynArray<p_Action>& actions = moment.Actions(lists);
    const std::int32_t count = moment.Count(lists);
    return {actions.begin(), actions.begin() + count};
}
inline void SetEntries(const EditedMoment& moment, ModuleLists& lists,
                       const std::vector<p_Action>& entries) {
    Fill(moment.SetOf(lists), moment.list, entries);
}

}  // namespace ace::test
