/// A tree in memory that prints itself.
#pragma once

#include <map>
#include <memory>
#include <unordered_map>

#include <ace/host/tree_control.h>

#include "sim/sim_host.h"

namespace ace::sim {

/// Every call is one line of the host's journal, with keys for nodes, and may be told to fail. A
/// node that is gone is none: error 91.
class SimTree : public ITreeControl {
  public:
    /// The nodes that show stand below each other, each so many twips high.
    static constexpr float RowHeight = 240.0F;

    explicit SimTree(SimHost& host);
    SimTree(const SimTree&) = delete;
    SimTree& operator=(const SimTree&) = delete;
    /// Tells its events that it goes.
    ~SimTree() override;

    void SetEvents(ITreeEvents* events) override;
    void SetUp(const TreeSetUp& setUp) override;
    void Clear() override;
    TreeNode AddRoot(const String& key, const String& caption, const String& image) override;
    TreeNode AddChild(TreeNode parent, const String& key, const String& caption,
                      const String& image) override;
    TreeNode AddSibling(TreeNode sibling, const String& key, const String& caption,
                        const String& image) override;
    void Remove(TreeNode node) override;
    void SetRootsSorted(Boolean sorted) override;
    void SetChildrenSorted(TreeNode node, Boolean sorted) override;

    TreeNode Find(const String& key) override;
    String Key(TreeNode node) override;
    String Caption(TreeNode node) override;
    String Image(TreeNode node) override;
    TreeNode Parent(TreeNode node) override;
    TreeNode FirstRoot() override;
    TreeNode FirstChild(TreeNode node) override;
    TreeNode NextSibling(TreeNode node) override;
    std::int32_t ChildCount(TreeNode node) override;
    std::vector<TreeNode> Nodes() override;

    Boolean IsExpanded(TreeNode node) override;
    void SetExpanded(TreeNode node, Boolean expanded) override;
    TreeNode Selected() override;
    void Select(TreeNode node) override;
    TreeNode DropHighlight() override;
    void SetDropHighlight(TreeNode node) override;
    TreeNode HitTest(float x, float y) override;
    void StartDrag() override;

    /// A line for each node, children below their parent and indented, those of collapsed nodes
    /// too: `ETE "Start of test" ACT`, then "expanded", "selected" and "target".
    String Text();

    // ---- the operator's acts ---------------------------------------------------------------
    // False when the node is not there or does not show, or when nobody listens. Without a key it
    // is done below the last node.

    bool Press(const std::optional<String>& key, std::int32_t button = MouseButtons::Left,
               std::int32_t shift = 0);
    /// Moves the mouse by so many twips from where it went down, with these buttons held.
    bool MoveBy(float x, float y, std::int32_t buttons = MouseButtons::Left);
    bool Release(const std::optional<String>& key, std::int32_t button = MouseButtons::Left,
                 std::int32_t shift = 0);
    /// Presses, releases and double-clicks.
    bool DoubleClick(const std::optional<String>& key);
    /// Drags something over a node: what would come of a drop. Nothing when it can't be done.
    std::int32_t DragOver(const DragData& data, const std::optional<String>& key,
                          std::int32_t shift = 0);
    /// Drags it over and drops it there, when something would come of it.
    bool Drop(const DragData& data, const std::optional<String>& key, std::int32_t shift = 0);
    /// Drags it over and drops it there whatever would come of it, as some toolkits do.
    bool DropAnyway(const DragData& data, const std::optional<String>& key, std::int32_t shift = 0);
    /// Presses one node, moves the mouse, drops on another one and ends the drag; false also when
    /// no drag starts or nothing would come of a drop.
    bool DragTo(const String& from, const std::optional<String>& to, std::int32_t shift = 0);
    /// The same step by step: presses a node and moves the mouse far enough. False when no drag
    /// starts.
    bool BeginDrag(const String& from);
    /// What the drag of this tree carries; none while there is no such drag.
    const std::optional<DragData>& Dragged() const { return x_dragged; }
    /// What may come of the drag of this tree that goes on, or of the last one.
    std::int32_t AllowedEffects() const { return x_allowedEffects; }
    /// The drag of this tree is over, dropped or not. False when there is none.
    bool EndDrag();
    /// Selects a node as the keys do, of which nobody hears; without a key none is selected.
    bool GoTo(const std::optional<String>& key);

  private:
    struct Node;

    void Enter(StringView operation, CallArguments arguments) const;
    void Ask(StringView operation, CallArguments arguments) const;
    String KeyText(TreeNode node) const;
    Node& At(TreeNode node) const;
    static void SortIfDue(Node& parent);
    TreeNode Put(Node& parent, const String& key, const String& caption, const String& image);
    void Discard(Node& node);
    bool DropWith(std::int32_t effect, const DragData& data, const std::optional<String>& key,
                  std::int32_t shift);
    std::vector<const Node*> Rows();
    void AppendLines(String& text, Node& parent, std::size_t depth);
    std::optional<float> PlaceOf(const std::optional<String>& key);

    SimHost& x_host;
    ITreeEvents* x_events = nullptr;
    std::unique_ptr<Node> x_top;                              ///< above the roots
    std::map<std::uintptr_t, std::unique_ptr<Node>> x_nodes;  ///< in the order of their adding
    std::unordered_map<String, Node*> x_keys;
    std::uintptr_t x_lastId = 0;
    TreeNode x_selected;
    TreeNode x_target;
    std::optional<DragData> x_dragged;  ///< while a drag of this tree goes on
    std::int32_t x_allowedEffects = 0;
    float x_pressedX = 0.0F;
    float x_pressedY = 0.0F;
};

}  // namespace ace::sim
