#include "bench/quiet_tree.h"

#include <utility>

#include <ace/host/run_time_error.h>

namespace ace::bench {

struct QuietTree::Node {
    String key = {};
    String caption = {};
    String image = {};
    Node* parent = nullptr;
    Node* previous = nullptr;
    Node* next = nullptr;
    Node* first = nullptr;
    Node* last = nullptr;
    std::int32_t count = 0;
    bool isExpanded = false;

    TreeNode Id() { return {reinterpret_cast<std::uintptr_t>(this)}; }
    static TreeNode IdOf(Node* node) { return node != nullptr ? node->Id() : TreeNode(); }
};

QuietTree::QuietTree() : x_top(std::make_unique<Node>()) {}

QuietTree::~QuietTree() {
    if (x_events != nullptr) {
        x_events->ControlGone();
    }
}

QuietTree::Node& QuietTree::At(TreeNode node) {
    if (!node) {
        Raise(Errors::ObjectNotSet);
    }
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a node's number is its address
    return *reinterpret_cast<Node*>(node.id);
}

void QuietTree::Clear() {
    x_nodes.clear();
    *x_top = {};
    x_selected = {};
}

TreeNode QuietTree::Put(Node& parent, const String& key, const String& caption,
                        const String& image) {
    const auto [at, isNew] = x_nodes.try_emplace(key);
    if (!isNew) {
        Raise(Errors::KeyInUse);
    }
    Count<true>(Call::Node);
    at->second = std::make_unique<Node>(Node{.key = key,
                                             .caption = caption,
                                             .image = image,
                                             .parent = &parent,
                                             .previous = parent.last});
    Node* const node = at->second.get();
    (parent.last != nullptr ? parent.last->next : parent.first) = node;
    parent.last = node;
    ++parent.count;
    return node->Id();
}

TreeNode QuietTree::AddRoot(const String& key, const String& caption, const String& image) {
    return Put(*x_top, key, caption, image);
}

TreeNode QuietTree::AddChild(TreeNode parent, const String& key, const String& caption,
                             const String& image) {
    return Put(At(parent), key, caption, image);
}

TreeNode QuietTree::AddSibling(TreeNode sibling, const String& key, const String& caption,
                               const String& image) {
    return Put(*At(sibling).parent, key, caption, image);
}

/// A line has no children, and nothing else is removed.
void QuietTree::Remove(TreeNode node) {
    Node& gone = At(node);
    Node& parent = *gone.parent;
    (gone.previous != nullptr ? gone.previous->next : parent.first) = gone.next;
    (gone.next != nullptr ? gone.next->previous : parent.last) = gone.previous;
    --parent.count;
    if (x_selected == node) {
        x_selected = parent.Id();
    }
    x_nodes.erase(String(gone.key));
}

TreeNode QuietTree::Find(const String& key) {
    const auto at = x_nodes.find(key);
    return at != x_nodes.end() ? at->second->Id() : TreeNode();
}

String QuietTree::Key(TreeNode node) {
    return At(node).key;
}
String QuietTree::Caption(TreeNode node) {
    return At(node).caption;
}
String QuietTree::Image(TreeNode node) {
    return At(node).image;
}
TreeNode QuietTree::Parent(TreeNode node) {
    Node* const parent = At(node).parent;
    return parent != x_top.get() ? parent->Id() : TreeNode();
}
TreeNode QuietTree::FirstRoot() {
    return Node::IdOf(x_top->first);
}
TreeNode QuietTree::FirstChild(TreeNode node) {
    return Node::IdOf(At(node).first);
}
TreeNode QuietTree::NextSibling(TreeNode node) {
    return Node::IdOf(At(node).next);
}
std::int32_t QuietTree::ChildCount(TreeNode node) {
    return At(node).count;
}

std::vector<TreeNode> QuietTree::Nodes() {
    std::vector<TreeNode> nodes;
    nodes.reserve(x_nodes.size());
    for (const auto& [key, node] : x_nodes) {
        nodes.push_back(node->Id());
    }
    return nodes;
}

Boolean QuietTree::IsExpanded(TreeNode node) {
    return At(node).isExpanded;
}
void QuietTree::SetExpanded(TreeNode node, Boolean expanded) {
    At(node).isExpanded = expanded;
}

QuietList::~QuietList() {
    if (x_events != nullptr) {
        x_events->ControlGone();
    }
}

}  // namespace ace::bench
