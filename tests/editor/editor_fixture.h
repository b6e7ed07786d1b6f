/// An open editor, and the edits that an operator makes in it.
#pragma once

#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "editor/shown_editor.h"

namespace ace::test {

class EditorTest : public ShownEditor {
  protected:
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
};

}  // namespace ace::test
