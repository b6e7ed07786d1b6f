/// The host's tree in which the editor shows the moments of a module and their actions.
#pragma once

#include <vector>

#include <ace/host/mouse.h>

namespace ace {

/// A node of a tree, as its tree knows it: a number of the host's choice, never 0, that stays the
/// node's until it is removed. 0 stands for no node.
struct TreeNode {
    std::uintptr_t id = 0;

    explicit operator bool() const { return id != 0; }
    bool operator==(const TreeNode&) const = default;
};

/// What a tree hands on to the editor. Places are in twips from the tree's left upper corner,
/// buttons are one of `MouseButtons` or, while the mouse moves, all that are down; `shift` has the
/// bits of `ShiftKeys`. Errors come out at the tree. Messages may run inside `DoubleClicked`,
/// `MouseUp` and `Dropped`, and the tree may be built anew there; inside `MouseMoved` where
/// `StartDrag` lets them run.
class ITreeEvents {
  public:
    virtual ~ITreeEvents() = default;
    virtual void DoubleClicked() = 0;
    virtual void MouseDown(std::int32_t button, std::int32_t shift, float x, float y) = 0;
    /// May start a drag, see `ITreeControl::StartDrag`.
    virtual void MouseMoved(std::int32_t buttons, std::int32_t shift, float x, float y) = 0;
    virtual void MouseUp(std::int32_t button, std::int32_t shift, float x, float y) = 0;
    /// A drag of the selected node starts: what does it carry, and which of `DropEffects` may come
    /// of it?
    virtual void DragStarted(DragData& data, std::int32_t& allowedEffects) = 0;
    /// Something is dragged over the tree, from wherever: `effect` is what would come of a drop.
    virtual void DraggedOver(const DragData& data, std::int32_t& effect, std::int32_t shift,
                             float x, float y) = 0;
    /// It is dropped there, before the `DragEnded` of the drag. A tree may hand on a drop whose
    /// last effect was none, as some toolkits do: it is answered like any other, and nothing may
    /// come of it.
    virtual void Dropped(const DragData& data, std::int32_t& effect, std::int32_t shift, float x,
                         float y) = 0;
    /// A drag that was started in this tree has ended, dropped or not.
    virtual void DragEnded() = 0;
    /// The control goes and must not be used any more. Raises nothing.
    virtual void ControlGone() noexcept = 0;
};

/// How a tree is to look and behave.
struct TreeSetUp {
    /// Lines, plus and minus, pictures and text.
    static constexpr std::int32_t LinesPlusMinusPictureText = 7;
    /// Lines between the roots too.
    static constexpr std::int32_t RootLines = 1;
    /// Captions are edited on demand only: the operator can't rename a node.
    static constexpr std::int32_t LabelEditManual = 1;
    /// The tree hands drops on and does nothing by itself.
    static constexpr std::int32_t DropManual = 1;

    std::vector<String> images = {};  ///< keys of the icons that nodes have; the pictures are the
                                      ///< host's
    std::int32_t style = LinesPlusMinusPictureText;
    std::int32_t lineStyle = RootLines;
    std::int32_t labelEdit = LabelEditManual;
    std::int32_t dropMode = DropManual;
    float indentation = 300.0F;     ///< twips for each level
    Boolean hideSelection = false;  ///< without the focus, the tree doesn't show what is selected
};

/// A tree of nodes, each with a key of its own. The host owns it and hands it to
/// `aceActionsEngine::LoadEditor`. Only `StartDrag` lets messages run. A failure is a run-time
/// error: 457 for a key that is there already, 91 for no node where one is asked for. What is asked
/// of a node that was removed is not defined.
class ITreeControl {
  public:
    virtual ~ITreeControl() = default;
    /// Tells who hears of the operator's acts, and of the end of the control: one that goes while
    /// it has events calls `ControlGone`. They stay the editor's; none ends that. A call that
    /// raises leaves the control without events.
    virtual void SetEvents(ITreeEvents* events) = 0;
    /// A host with a look of its own may leave out what it likes.
    virtual void SetUp(const TreeSetUp&) {}

    // ---- building ----------------------------------------------------------------------------

    /// Removes all nodes.
    virtual void Clear() = 0;
    /// Adds a node behind the last root, the last child of `parent`, or the last sibling of
    /// `sibling`; where the nodes stand sorted, at its place. It has no children and is collapsed.
    virtual TreeNode AddRoot(const String& key, const String& caption, const String& image) = 0;
    virtual TreeNode AddChild(TreeNode parent, const String& key, const String& caption,
                              const String& image) = 0;
    virtual TreeNode AddSibling(TreeNode sibling, const String& key, const String& caption,
                                const String& image) = 0;
    /// Removes a node with all below it. When the selected node goes, its next parent that stays is
    /// selected, or none; when the one of the drop highlight goes, there is none.
    virtual void Remove(TreeNode node) = 0;
    /// Keeps the roots sorted, or leaves them as they stand from now on. Sorted is by caption,
    /// without regard to case, character by character; equal ones keep their order.
    virtual void SetRootsSorted(Boolean sorted) = 0;
    /// The same for the children of one node, not for theirs.
    virtual void SetChildrenSorted(TreeNode node, Boolean sorted) = 0;

    // ---- asking ------------------------------------------------------------------------------

    /// The node of that key, in any depth; none when there is no such. Takes the same time in a
    /// tree of any size.
    virtual TreeNode Find(const String& key) = 0;
    virtual String Key(TreeNode node) = 0;
    virtual String Caption(TreeNode node) = 0;
    virtual String Image(TreeNode node) = 0;
    /// None for a root.
    virtual TreeNode Parent(TreeNode node) = 0;
    /// None when there is no such node.
    virtual TreeNode FirstRoot() = 0;
    virtual TreeNode FirstChild(TreeNode node) = 0;
    virtual TreeNode NextSibling(TreeNode node) = 0;
    virtual std::int32_t ChildCount(TreeNode node) = 0;
    /// All nodes in the order in which they were added.
    virtual std::vector<TreeNode> Nodes() = 0;

    // ---- what the operator sees --------------------------------------------------------------

    /// The flag is kept by a node without children too.
    virtual Boolean IsExpanded(TreeNode node) = 0;
    virtual void SetExpanded(TreeNode node, Boolean expanded) = 0;
    virtual TreeNode Selected() = 0;
    /// None selects nothing. What is selected may be scrolled to, and its parents expanded.
    virtual void Select(TreeNode node) = 0;

    // ---- drag and drop -----------------------------------------------------------------------
    // A tree that leaves these four as they are has none: it starts no drag, must hand on neither
    // `DraggedOver` nor `Dropped`, and selects by itself what the mouse is pressed on.

    /// The node that shows as the target of a drag; none when there is no such.
    virtual TreeNode DropHighlight() { return {}; }
    /// None takes the highlight away.
    virtual void SetDropHighlight(TreeNode) {}
    /// The node at a place in twips from the left upper corner; none beside the nodes.
    virtual TreeNode HitTest(float, float) { return {}; }
    /// Starts a drag of the selected node: `DragStarted`, and `DragEnded` when it is over, in
    /// between or after this call has returned.
    virtual void StartDrag() {}
};

}  // namespace ace
