/// A tree and a list that show nothing: what an editor costs beside the cheapest control there is.
#pragma once

#include <memory>
#include <unordered_map>

#include <ace/host/list_control.h>
#include <ace/host/tree_control.h>

#include "bench/host_calls.h"

namespace ace::bench {

/// Nodes in memory, found by key. A node that is added counts as `Call::Node`, also in a host that
/// is measured: that is one addition.
class QuietTree final : public ITreeControl {
  public:
    QuietTree();
    ~QuietTree() override;
    QuietTree(const QuietTree&) = delete;
    QuietTree& operator=(const QuietTree&) = delete;

    void SetEvents(ITreeEvents* events) override { x_events = events; }
    void Clear() override;
    TreeNode AddRoot(const String& key, const String& caption, const String& image) override;
    TreeNode AddChild(TreeNode parent, const String& key, const String& caption,
                      const String& image) override;
    TreeNode AddSibling(TreeNode sibling, const String& key, const String& caption,
                        const String& image) override;
    void Remove(TreeNode node) override;
    void SetRootsSorted(Boolean) override {}
    void SetChildrenSorted(TreeNode, Boolean) override {}

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
    TreeNode Selected() override { return x_selected; }
    void Select(TreeNode node) override { x_selected = node; }

  private:
    struct Node;

    static Node& At(TreeNode node);
    TreeNode Put(Node& parent, const String& key, const String& caption, const String& image);

    ITreeEvents* x_events = nullptr;
    std::unique_ptr<Node> x_top;
    std::unordered_map<String, std::unique_ptr<Node>> x_nodes;
    TreeNode x_selected;
};

/// A list that keeps nothing.
class QuietList final : public IListControl {
  public:
    QuietList() = default;
    ~QuietList() override;
    QuietList(const QuietList&) = delete;
    QuietList& operator=(const QuietList&) = delete;

    void SetEvents(IListEvents* events) override { x_events = events; }
    void Clear() override {}
    void Add(const String&, const String&, const String&) override {}
    std::optional<String> Selected() override { return std::nullopt; }

  private:
    IListEvents* x_events = nullptr;
};

}  // namespace ace::bench
