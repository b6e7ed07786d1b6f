#include "sim/sim_tree.h"

#include <algorithm>
#include <utility>

#include <ace/core/text.h>

namespace ace::sim {

/// Siblings are a chain, so that adding, removing and stepping on cost the same in any number.
struct SimTree::Node {
    TreeNode id = {};
    String key = {};
    String caption = {};
    String image = {};
    Node* parent = nullptr;
    Node* previous = nullptr;
    Node* next = nullptr;
    Node* firstChild = nullptr;
    Node* lastChild = nullptr;
    std::int32_t childCount = 0;
    bool isExpanded = false;
    bool isSorted = false;
    bool isSortDue = false;  ///< put right when somebody looks, not with each child that comes

    void Append(Node& child) {
        child.parent = this;
        child.previous = lastChild;
        child.next = nullptr;
        (lastChild != nullptr ? lastChild->next : firstChild) = &child;
        lastChild = &child;
        ++childCount;
        isSortDue = isSorted;
    }
    void Unlink(const Node& child) {
        (child.previous != nullptr ? child.previous->next : firstChild) = child.next;
        (child.next != nullptr ? child.next->previous : lastChild) = child.previous;
        --childCount;
    }
};

namespace {

bool IsBefore(StringView a, StringView b) {
    return std::ranges::lexicographical_compare(a, b, {}, LowerCase, LowerCase);
}

}  // namespace

SimTree::SimTree(SimHost& host) : x_host(host), x_top(std::make_unique<Node>()) {
    x_top->isExpanded = true;
}

SimTree::~SimTree() {
    if (ITreeEvents* const events = std::exchange(x_events, nullptr)) {
        events->ControlGone();
    }
}

// ---- calls of the engine -----------------------------------------------------------------------

void SimTree::Enter(StringView operation, CallArguments arguments) const {
    x_host.Call(operation, arguments);
}

void SimTree::Ask(StringView operation, CallArguments arguments) const {
    x_host.Call(operation, arguments, true);
}

String SimTree::KeyText(TreeNode node) const {
    const auto found = x_nodes.find(node.id);
    return found != x_nodes.end() ? found->second->key : String();
}

SimTree::Node& SimTree::At(TreeNode node) const {
    const auto found = x_nodes.find(node.id);
    if (found == x_nodes.end()) {
        Raise(Errors::ObjectNotSet);
    }
    return *found->second;
}

void SimTree::SetEvents(ITreeEvents* events) {
    x_events = nullptr;
    Enter(L"Tree.SetEvents", CallText(events != nullptr));
    x_events = events;
}

void SimTree::SetUp(const TreeSetUp& setUp) {
    Enter(L"Tree.SetUp", CallText(static_cast<std::int32_t>(setUp.images.size()), setUp.style,
                                  setUp.lineStyle, setUp.labelEdit, setUp.dropMode,
                                  static_cast<double>(setUp.indentation), setUp.hideSelection));
}

void SimTree::Clear() {
    Enter(L"Tree.Clear", {});
    const bool isSorted = x_top->isSorted;
    x_keys.clear();
    x_nodes.clear();
    x_top = std::make_unique<Node>();
    x_top->isExpanded = true;
    x_top->isSorted = isSorted;
    x_selected = {};
    x_target = {};
}

TreeNode SimTree::AddRoot(const String& key, const String& caption, const String& image) {
    Enter(L"Tree.AddRoot", CallText(key, caption, image));
    return Put(*x_top, key, caption, image);
}

TreeNode SimTree::AddChild(TreeNode parent, const String& key, const String& caption,
                           const String& image) {
    Enter(L"Tree.AddChild", CallText(KeyText(parent), key, caption, image));
    return Put(At(parent), key, caption, image);
}

TreeNode SimTree::AddSibling(TreeNode sibling, const String& key, const String& caption,
                             const String& image) {
    Enter(L"Tree.AddSibling", CallText(KeyText(sibling), key, caption, image));
    return Put(*At(sibling).parent, key, caption, image);
}

TreeNode SimTree::Put(Node& parent, const String& key, const String& caption, const String& image) {
    if (x_keys.contains(key)) {
        Raise(Errors::KeyInUse);
    }
    auto made = std::make_unique<Node>();
    Node& node = *made;
    node.id.id = ++x_lastId;
    node.key = key;
    node.caption = caption;
    node.image = image;
    parent.Append(node);
    x_keys.emplace(key, &node);
    x_nodes.emplace(node.id.id, std::move(made));
    return node.id;
}

void SimTree::Remove(TreeNode node) {
    Enter(L"Tree.Remove", CallText(KeyText(node)));
    Discard(At(node));
}

void SimTree::Discard(Node& node) {
    while (node.firstChild != nullptr) {
        Discard(*node.firstChild);
    }
    if (x_selected == node.id) {
        x_selected = node.parent->id;
    }
    if (x_target == node.id) {
        x_target = {};
    }
    node.parent->Unlink(node);
    x_keys.erase(node.key);
    x_nodes.erase(node.id.id);
}

void SimTree::SetRootsSorted(Boolean sorted) {
    Enter(L"Tree.SetRootsSorted", CallText(sorted));
    SortIfDue(*x_top);
    x_top->isSorted = sorted;
    x_top->isSortDue = sorted;
}

void SimTree::SetChildrenSorted(TreeNode node, Boolean sorted) {
    Enter(L"Tree.SetChildrenSorted", CallText(KeyText(node), sorted));
    Node& parent = At(node);
    SortIfDue(parent);
    parent.isSorted = sorted;
    parent.isSortDue = sorted;
}

/// What came last stands behind its equals, as if each had been put in its place when it came.
void SimTree::SortIfDue(Node& parent) {
    if (!std::exchange(parent.isSortDue, false)) {
        return;
    }
    std::vector<Node*> children;
    for (Node* child = parent.firstChild; child != nullptr; child = child->next) {
        children.push_back(child);
    }
    std::ranges::stable_sort(children, IsBefore, &Node::caption);
    parent.firstChild = parent.lastChild = nullptr;
    parent.childCount = 0;
    for (Node* const child : children) {
        parent.Append(*child);
    }
    parent.isSortDue = false;
}

TreeNode SimTree::Find(const String& key) {
    Ask(L"Tree.Find", CallText(key));
    const auto found = x_keys.find(key);
    return found != x_keys.end() ? found->second->id : TreeNode{};
}

String SimTree::Key(TreeNode node) {
    Ask(L"Tree.Key", CallText(KeyText(node)));
    return At(node).key;
}

String SimTree::Caption(TreeNode node) {
    Ask(L"Tree.Caption", CallText(KeyText(node)));
    return At(node).caption;
}

String SimTree::Image(TreeNode node) {
    Ask(L"Tree.Image", CallText(KeyText(node)));
    return At(node).image;
}

TreeNode SimTree::Parent(TreeNode node) {
    Ask(L"Tree.Parent", CallText(KeyText(node)));
    return At(node).parent->id;
}

TreeNode SimTree::FirstRoot() {
    Ask(L"Tree.FirstRoot", {});
    SortIfDue(*x_top);
    return x_top->firstChild != nullptr ? x_top->firstChild->id : TreeNode{};
}

TreeNode SimTree::FirstChild(TreeNode node) {
    Ask(L"Tree.FirstChild", CallText(KeyText(node)));
    Node& parent = At(node);
    SortIfDue(parent);
    return parent.firstChild != nullptr ? parent.firstChild->id : TreeNode{};
}

TreeNode SimTree::NextSibling(TreeNode node) {
    Ask(L"Tree.NextSibling", CallText(KeyText(node)));
    const Node& one = At(node);
    SortIfDue(*one.parent);
    return one.next != nullptr ? one.next->id : TreeNode{};
}

std::int32_t SimTree::ChildCount(TreeNode node) {
    Ask(L"Tree.ChildCount", CallText(KeyText(node)));
    return At(node).childCount;
}

std::vector<TreeNode> SimTree::Nodes() {
    Ask(L"Tree.Nodes", {});
    std::vector<TreeNode> nodes;
    for (const auto& [id, node] : x_nodes) {
        nodes.push_back(node->id);
    }
    return nodes;
}

Boolean SimTree::IsExpanded(TreeNode node) {
    Ask(L"Tree.IsExpanded", CallText(KeyText(node)));
    return At(node).isExpanded;
}

void SimTree::SetExpanded(TreeNode node, Boolean expanded) {
    Enter(L"Tree.SetExpanded", CallText(KeyText(node), expanded));
    At(node).isExpanded = expanded;
}

TreeNode SimTree::Selected() {
    Ask(L"Tree.Selected", {});
    return x_selected;
}

void SimTree::Select(TreeNode node) {
    Enter(L"Tree.Select", CallText(KeyText(node)));
    x_selected = node ? At(node).id : TreeNode{};
}

TreeNode SimTree::DropHighlight() {
    Ask(L"Tree.DropHighlight", {});
    return x_target;
}

void SimTree::SetDropHighlight(TreeNode node) {
    Enter(L"Tree.SetDropHighlight", CallText(KeyText(node)));
    x_target = node ? At(node).id : TreeNode{};
}

TreeNode SimTree::HitTest(float x, float y) {
    Ask(L"Tree.HitTest", CallText(static_cast<double>(x), static_cast<double>(y)));
    const std::vector<const Node*> rows = Rows();
    const bool isInside = x >= 0.0F && y >= 0.0F;
    const std::size_t row = isInside ? static_cast<std::size_t>(y / RowHeight) : rows.size();
    return row < rows.size() ? rows[row]->id : TreeNode{};
}

void SimTree::StartDrag() {
    Enter(L"Tree.StartDrag", {});
    x_dragged.emplace();
    x_allowedEffects = DropEffects::None;
    if (x_events != nullptr) {
        x_events->DragStarted(*x_dragged, x_allowedEffects);
    }
}

// ---- what it shows -----------------------------------------------------------------------------

std::vector<const SimTree::Node*> SimTree::Rows() {
    std::vector<const Node*> rows;
    const auto add = [&rows](Node& parent, const auto& again) -> void {
        SortIfDue(parent);
        for (Node* child = parent.firstChild; child != nullptr; child = child->next) {
            rows.push_back(child);
            if (child->isExpanded) {
                again(*child, again);
            }
        }
    };
    add(*x_top, add);
    return rows;
}

void SimTree::AppendLines(String& text, Node& parent, std::size_t depth) {
    SortIfDue(parent);
    for (Node* child = parent.firstChild; child != nullptr; child = child->next) {
        text += String(2 * depth, L' ') + child->key + L" " + Quoted(child->caption) + L" " +
                child->image;
        text += child->isExpanded ? L" expanded" : L"";
        text += x_selected == child->id ? L" selected" : L"";
        text += x_target == child->id ? L" target\n" : L"\n";
        AppendLines(text, *child, depth + 1);
    }
}

String SimTree::Text() {
    String text;
    AppendLines(text, *x_top, 0);
    return text;
}

/// Height of the middle of a row that shows, or of the first place below all of them.
std::optional<float> SimTree::PlaceOf(const std::optional<String>& key) {
    const std::vector<const Node*> rows = Rows();
    const auto row =
        key ? std::ranges::find(rows, *key, [](const Node* one) { return one->key; }) : rows.end();
    if (x_events == nullptr || (key && row == rows.end())) {
        return std::nullopt;
    }
    return (static_cast<float>(row - rows.begin()) + 0.5F) * RowHeight;
}

bool SimTree::GoTo(const std::optional<String>& key) {
    const std::vector<const Node*> rows = Rows();
    const auto row =
        key ? std::ranges::find(rows, *key, [](const Node* one) { return one->key; }) : rows.end();
    if (key && row == rows.end()) {
        return false;
    }
    x_selected = key ? (*row)->id : TreeNode{};
    return true;
}

}  // namespace ace::sim
