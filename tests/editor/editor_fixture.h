/// An open editor, and the edits that an operator makes in it.
#pragma once

#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "editor/shown_editor.h"

namespace ace::test {

class EditorTest : public ShownEditor {
  protected:
    ~EditorTest() override { host->beforeCall = nullptr; }

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
    /// The host does this in the n-th call of that operation from here on, before its own work.
    void In(StringView operation, std::function<void()> act, std::size_t n = 1) {
        host->beforeCall = [=, left = n](StringView called, sim::CallArguments) mutable {
            if (left > 0 && called == operation && --left == 0) {
                act();
            }
        };
    }
    bool RightClick(const std::optional<String>& key) {
        return tree.Press(key, MouseButtons::Right) && tree.Release(key, MouseButtons::Right);
    }
    /// Chooses an item from the menu of a node by its caption; nothing closes the menu.
    void ChooseFromMenu(const String& key, std::optional<String> caption) {
        host->user.ExpectMenu(std::move(caption));
        EXPECT_TRUE(RightClick(key)) << testing::PrintToString(key);
    }
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
