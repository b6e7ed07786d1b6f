/// An engine with an open editor on a tree and a list in memory.
#pragma once

#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/engine_fixture.h"

namespace ace::test {

/// Tests fill the lists of `State()` and open the editor on them. The journal starts behind that.
class EditorTest : public EngineTest {
  protected:
    void Open(aceModul moduleKind) {
        State().Modul = moduleKind;
        engine->LoadEditor(&list, &tree);
        host->journal.Clear();
    }
    /// What the rooms of the open editor share.
    EditorParts& Parts() { return std::dynamic_pointer_cast<frmEditor>(context.Editor)->Parts(); }
    /// Opens what the node stands in and selects it, as the operator does. The journal starts
    /// behind that.
    void Select(const String& key) {
        for (TreeNode at = tree.Parent(tree.Find(key)); at; at = tree.Parent(at)) {
            tree.SetExpanded(at, true);
        }
        EXPECT_TRUE(tree.GoTo(key)) << testing::PrintToString(key);
        host->journal.Clear();
    }
    /// The held action becomes this one, as after a dialog that was confirmed.
    void HoldNew(const p_Action& action) { Hold(Parts().held, action); }
    /// Captions of the lines below a node, in their order.
    Lines LinesBelow(const String& key) {
        Lines lines;
        for (TreeNode line = tree.FirstChild(tree.Find(key)); line; line = tree.NextSibling(line)) {
            lines.push_back(tree.Caption(line));
        }
        return lines;
    }

    sim::SimTree tree{*host};
    sim::SimList list{*host};
};

}  // namespace ace::test
