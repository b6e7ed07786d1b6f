#include "sim/sim_tree.h"

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An editor that writes down what it hears. A move of the mouse starts a drag of what is selected.
class Listener : public ITreeEvents {
  public:
    explicit Listener(ITreeControl& tree) : x_tree(&tree) { tree.SetEvents(this); }

    void DoubleClicked() override { heard.push_back(L"double click"); }
    void MouseDown(std::int32_t button, std::int32_t shift, float x, float y) override {
        x_tree->Select(x_tree->HitTest(x, y));
        Note(L"down", button, shift, y);
    }
    void MouseMoved(std::int32_t buttons, std::int32_t shift, float, float y) override {
        Note(L"move", buttons, shift, y);
        if (x_tree->Selected()) {
            x_tree->StartDrag();
        }
    }
    void MouseUp(std::int32_t button, std::int32_t shift, float, float y) override {
        Note(L"up", button, shift, y);
    }
    void DragStarted(DragData& data, std::int32_t& allowedEffects) override {
        data.text = x_tree->Key(x_tree->Selected());
        allowedEffects = allowed;
    }
    void DraggedOver(const DragData& data, std::int32_t& effect, std::int32_t shift, float x,
                     float y) override {
        x_tree->SetDropHighlight(x_tree->HitTest(x, y));
        Note(L"over with " + data.text.value_or(L"nothing"), effect, shift, y);
        effect = answer;
    }
    void Dropped(const DragData& data, std::int32_t& effect, std::int32_t shift, float,
                 float y) override {
        Note(L"drop of " + data.text.value_or(L"nothing"), effect, shift, y);
    }
    void DragEnded() override { heard.push_back(L"end of drag"); }
    void ControlGone() noexcept override { heard.push_back(L"gone"); }

    std::vector<String> heard;
    std::int32_t allowed = 7;
    std::int32_t answer = DropEffects::Copy;

  private:
    void Note(const String& what, std::int32_t button, std::int32_t shift, float y) {
        heard.push_back(what + L" " + std::to_wstring(button) + L" " + std::to_wstring(shift) +
                        L" at " + std::to_wstring(static_cast<int>(y)));
    }

    ITreeControl* x_tree;
};

class SimTreeTest : public HostTest {
  protected:
    TreeNode Root(const String& key) { return tree.AddRoot(key, L"of " + key, L"ACT"); }
    TreeNode Child(TreeNode parent, const String& key) {
        return tree.AddChild(parent, key, L"of " + key, L"WAI");
    }
    std::vector<String> Keys(TreeNode first) {
        std::vector<String> keys;
        for (TreeNode node = first; node; node = tree.NextSibling(node)) {
            keys.push_back(tree.Key(node));
        }
        return keys;
    }
    /// Nodes of these captions below `parent`, or as roots; the keys are "k" and their numbers.
    void AddCaptions(TreeNode parent, const std::vector<String>& captions) {
        for (const String& caption : captions) {
            const String key = L"k" + std::to_wstring(++count);
            parent ? tree.AddChild(parent, key, caption, {}) : tree.AddRoot(key, caption, {});
        }
    }
    std::vector<String> Captions(TreeNode first) {
        std::vector<String> captions;
        for (TreeNode node = first; node; node = tree.NextSibling(node)) {
            captions.push_back(tree.Caption(node));
        }
        return captions;
    }

    sim::SimTree tree{*host};
    int count = 0;
};

// ---- nodes -------------------------------------------------------------------------------------

TEST_F(SimTreeTest, PrintsItsNodesBelowEachOtherWithWhatTheOperatorSees) {
    const TreeNode start = Root(L"ETE");
    Child(start, L"CHI0ETE");
    tree.SetExpanded(start, true);
    tree.SetExpanded(Root(L"LTE"), false);
    tree.Select(tree.Find(L"CHI0ETE"));
    tree.SetDropHighlight(tree.Find(L"LTE"));
    EXPECT_EQ(tree.Text(),
              L"ETE \"of ETE\" ACT expanded\n"
              L"  CHI0ETE \"of CHI0ETE\" WAI selected\n"
              L"LTE \"of LTE\" ACT target\n");
}

TEST_F(SimTreeTest, ASiblingIsTheLastOfItsRow) {
    const TreeNode first = Root(L"ETE");
    Root(L"EFR");
    tree.AddSibling(first, L"LTE", L"", L"");
    const TreeNode child = Child(first, L"a");
    Child(first, L"b");
    tree.AddSibling(child, L"c", L"", L"");
    EXPECT_THAT(Keys(tree.FirstRoot()), ElementsAre(L"ETE", L"EFR", L"LTE"));
    EXPECT_THAT(Keys(tree.FirstChild(first)), ElementsAre(L"a", L"b", L"c"));
    EXPECT_EQ(tree.ChildCount(first), 3);
}

TEST_F(SimTreeTest, AKeyThatIsThereAlreadyIsError457AndAddsNothing) {
    const TreeNode step = Root(L"STE-1");
    EXPECT_EQ(ErrorOf([&] { Root(L"STE-1"); }), 457);
    EXPECT_EQ(ErrorOf([&] { Child(step, L"STE-1"); }), 457);
    EXPECT_EQ(tree.Text(), L"STE-1 \"of STE-1\" ACT\n");
}

TEST_F(SimTreeTest, AKeyIsFoundInAnyDepthUntilItsNodeIsRemoved) {
    const TreeNode node = Child(Child(Root(L"a"), L"b"), L"c");
    EXPECT_EQ(tree.Find(L"c"), node);
    EXPECT_FALSE(tree.Find(L"C"));
    tree.Remove(tree.Find(L"b"));
    EXPECT_FALSE(tree.Find(L"c"));
    EXPECT_TRUE(Root(L"c"));
}

TEST_F(SimTreeTest, NoNodeIsError91) {
    const TreeNode none;
    EXPECT_EQ(ErrorOf([&] { tree.Key(none); }), 91);
    EXPECT_EQ(ErrorOf([&] { Child(none, L"a"); }), 91);
    EXPECT_EQ(ErrorOf([&] { tree.SetExpanded(none, true); }), 91);
    EXPECT_EQ(ErrorOf([&] { tree.Remove(none); }), 91);
    tree.Select(none);
    EXPECT_FALSE(tree.Selected());
}

TEST_F(SimTreeTest, ParentsAndChildrenKnowEachOther) {
    const TreeNode root = Root(L"a");
    const TreeNode child = Child(root, L"b");
    EXPECT_EQ(tree.Parent(child), root);
    EXPECT_FALSE(tree.Parent(root));
    EXPECT_EQ(tree.FirstChild(root), child);
    EXPECT_FALSE(tree.FirstChild(child));
    EXPECT_FALSE(tree.NextSibling(child));
    EXPECT_EQ(tree.Image(child), L"WAI");
}

TEST_F(SimTreeTest, AllNodesComeInTheOrderInWhichTheyWereAdded) {
    const TreeNode b = Root(L"b");
    const TreeNode a = Root(L"a");
    const TreeNode c = Child(b, L"c");
    tree.SetRootsSorted(true);
    EXPECT_THAT(tree.Nodes(), ElementsAre(b, a, c));
}

TEST_F(SimTreeTest, RemovingTheSelectedNodeSelectsItsParentThatStays) {
    const TreeNode root = Root(L"a");
    const TreeNode child = Child(root, L"b");
    tree.Select(Child(child, L"c"));
    tree.SetDropHighlight(tree.Find(L"c"));
    tree.Remove(child);
    EXPECT_EQ(tree.Selected(), root);
    EXPECT_FALSE(tree.DropHighlight());
    tree.Remove(root);
    EXPECT_FALSE(tree.Selected());
}

TEST_F(SimTreeTest, RemovingANodeBetweenOthersJoinsThem) {
    const TreeNode root = Root(L"a");
    for (const wchar_t* key : {L"1", L"2", L"3"}) {
        Child(root, key);
    }
    tree.Remove(tree.Find(L"2"));
    EXPECT_THAT(Keys(tree.FirstChild(root)), ElementsAre(L"1", L"3"));
    tree.Remove(tree.Find(L"1"));
    tree.Remove(tree.Find(L"3"));
    EXPECT_FALSE(tree.FirstChild(root));
    EXPECT_EQ(tree.ChildCount(root), 0);
}

TEST_F(SimTreeTest, ClearTakesNodesSelectionAndTarget) {
    tree.Select(Root(L"a"));
    tree.SetDropHighlight(tree.Find(L"a"));
    tree.Clear();
    EXPECT_EQ(tree.Text(), L"");
    EXPECT_FALSE(tree.Selected());
    EXPECT_FALSE(tree.DropHighlight());
    EXPECT_TRUE(Root(L"a"));
}

// ---- sorting -----------------------------------------------------------------------------------

TEST_F(SimTreeTest, SortedRootsStandByTheirTextWithoutRegardToCase) {
    tree.SetRootsSorted(true);
    AddCaptions({}, {L"2 MHz", L"all", L"10 MHz", L"ALL", L"Zero", L"alm"});
    EXPECT_THAT(Captions(tree.FirstRoot()),
                ElementsAre(L"10 MHz", L"2 MHz", L"all", L"ALL", L"alm", L"Zero"));
}

TEST_F(SimTreeTest, SortingTakesHoldOfWhatStandsThereAndOfWhatComes) {
    AddCaptions({}, {L"c", L"a"});
    EXPECT_THAT(Captions(tree.FirstRoot()), ElementsAre(L"c", L"a"));
    tree.SetRootsSorted(true);
    EXPECT_THAT(Captions(tree.FirstRoot()), ElementsAre(L"a", L"c"));
    AddCaptions({}, {L"b"});
    EXPECT_THAT(Captions(tree.FirstRoot()), ElementsAre(L"a", L"b", L"c"));
}

TEST_F(SimTreeTest, SwitchedOffSortingLeavesWhatStandsAndPutsTheNextLast) {
    tree.SetRootsSorted(true);
    AddCaptions({}, {L"c", L"b"});
    tree.SetRootsSorted(false);
    AddCaptions({}, {L"a"});
    EXPECT_THAT(Captions(tree.FirstRoot()), ElementsAre(L"b", L"c", L"a"));
}

TEST_F(SimTreeTest, ChildrenAreSortedNodeByNode) {
    const TreeNode group = Root(L"TST1");
    const TreeNode leaf = Child(group, L"z");
    tree.SetChildrenSorted(group, true);
    AddCaptions(group, {L"b", L"a"});
    AddCaptions(leaf, {L"2", L"1"});
    EXPECT_THAT(Captions(tree.FirstChild(group)), ElementsAre(L"a", L"b", L"of z"));
    EXPECT_THAT(Captions(tree.FirstChild(leaf)), ElementsAre(L"2", L"1"));
}

// ---- rows and the mouse ------------------------------------------------------------------------

TEST_F(SimTreeTest, OnlyWhatShowsIsHitRowByRow) {
    const TreeNode first = Root(L"a");
    const TreeNode child = Child(first, L"b");
    const TreeNode last = Root(L"c");
    EXPECT_EQ(tree.HitTest(10.0F, 239.0F), first);
    EXPECT_EQ(tree.HitTest(10.0F, 240.0F), last);
    EXPECT_FALSE(tree.HitTest(10.0F, 480.0F));
    EXPECT_FALSE(tree.HitTest(10.0F, -1.0F));
    EXPECT_FALSE(tree.HitTest(-1.0F, 10.0F));
    tree.SetExpanded(first, true);
    EXPECT_EQ(tree.HitTest(10.0F, 240.0F), child);
}

TEST_F(SimTreeTest, APressTakesPlaceInTheMiddleOfItsRow) {
    Listener editor(tree);
    Root(L"a");
    Root(L"b");
    EXPECT_TRUE(tree.Press(L"b", MouseButtons::Right, ShiftKeys::Control));
    EXPECT_TRUE(tree.Release(L"b", MouseButtons::Right));
    EXPECT_TRUE(tree.Press({}));
    EXPECT_TRUE(tree.DoubleClick(L"a"));
    EXPECT_THAT(editor.heard, ElementsAre(L"down 2 2 at 360", L"up 2 0 at 360", L"down 1 0 at 600",
                                          L"down 1 0 at 120", L"up 1 0 at 120", L"double click"));
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, WhatDoesNotShowAndWhatNobodyListensToCannotBeDone) {
    Child(Root(L"a"), L"b");
    EXPECT_FALSE(tree.Press(L"a"));
    EXPECT_FALSE(tree.MoveBy(200.0F, 0.0F));
    Listener editor(tree);
    EXPECT_FALSE(tree.Press(L"b"));
    EXPECT_FALSE(tree.DoubleClick(L"b"));
    EXPECT_EQ(tree.DragOver({L"x"}, L"b"), DropEffects::None);
    EXPECT_FALSE(tree.DragTo(L"a", L"b"));
    EXPECT_THAT(editor.heard, ElementsAre(L"down 1 0 at 120", L"move 1 0 at 120", L"end of drag"));
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, ADragOfALineGoesOverItsTargetIsDroppedThereAndEnds) {
    Listener editor(tree);
    Root(L"a");
    Root(L"b");
    EXPECT_TRUE(tree.DragTo(L"a", L"b", ShiftKeys::Control));
    EXPECT_THAT(editor.heard,
                ElementsAre(L"down 1 0 at 120", L"move 1 0 at 120", L"over with a 7 2 at 360",
                            L"drop of a 1 2 at 360", L"end of drag"));
    EXPECT_EQ(tree.DropHighlight(), tree.Find(L"b"));
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, WhatWouldHaveNoEffectIsNotDropped) {
    Listener editor(tree);
    editor.allowed = DropEffects::Move;
    Root(L"a");
    EXPECT_FALSE(tree.DragTo(L"a", L"a"));
    EXPECT_THAT(editor.heard, ElementsAre(L"down 1 0 at 120", L"move 1 0 at 120",
                                          L"over with a 2 0 at 120", L"end of drag"));
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, ADropOfWhichNothingWouldComeIsHandedOnByATreeThatAsksForNoEffect) {
    Listener editor(tree);
    editor.answer = DropEffects::None;
    Root(L"a");
    EXPECT_FALSE(tree.Drop({L"x"}, L"a"));
    EXPECT_TRUE(tree.DropAnyway({L"x"}, L"a", ShiftKeys::Shift));
    EXPECT_FALSE(tree.DropAnyway({L"x"}, L"b"));
    EXPECT_THAT(editor.heard, ElementsAre(L"over with x 7 0 at 120", L"over with x 7 1 at 120",
                                          L"drop of x 0 1 at 120"));
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, ADragCanBeTakenStepByStep) {
    Listener editor(tree);
    Root(L"a");
    Root(L"b");
    EXPECT_FALSE(tree.Dragged());
    EXPECT_FALSE(tree.EndDrag());
    EXPECT_FALSE(tree.BeginDrag(L"c"));
    ASSERT_TRUE(tree.BeginDrag(L"a"));
    EXPECT_EQ(tree.Dragged(), DragData{L"a"});
    EXPECT_EQ(tree.DragOver(*tree.Dragged(), L"b"), DropEffects::Copy);
    EXPECT_EQ(tree.DragOver(*tree.Dragged(), {}), DropEffects::Copy);
    EXPECT_TRUE(tree.EndDrag());
    EXPECT_FALSE(tree.Dragged());
    EXPECT_THAT(editor.heard,
                ElementsAre(L"down 1 0 at 120", L"move 1 0 at 120", L"over with a 7 0 at 360",
                            L"over with a 7 0 at 600", L"end of drag"));
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, TheKeysSelectWhatShowsAndNobodyHearsOfIt) {
    Listener editor(tree);
    Child(Root(L"a"), L"b");
    EXPECT_TRUE(tree.GoTo(L"a"));
    EXPECT_EQ(tree.Selected(), tree.Find(L"a"));
    EXPECT_FALSE(tree.GoTo(L"b")) << "its parent is collapsed";
    EXPECT_EQ(tree.Selected(), tree.Find(L"a"));
    EXPECT_TRUE(tree.GoTo({}));
    EXPECT_FALSE(tree.Selected());
    EXPECT_THAT(editor.heard, IsEmpty());
    tree.SetEvents(nullptr);
}

TEST_F(SimTreeTest, ATreeThatGoesTellsWhoListens) {
    auto other = std::make_unique<sim::SimTree>(*host);
    Listener editor(*other);
    other.reset();
    EXPECT_THAT(editor.heard, ElementsAre(L"gone"));
}

// ---- the journal -------------------------------------------------------------------------------

TEST_F(SimTreeTest, EveryCallIsALineAndQuestionsAreNoEffects) {
    const TreeNode root = Root(L"ETE");
    Child(root, L"CHI0ETE");
    tree.SetExpanded(root, true);
    tree.Select(tree.Find(L"ETE"));
    tree.SetUp({.images = {L"ACT", L"WAI"}});
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"Tree.AddRoot(\"ETE\", \"of ETE\", \"ACT\")",
                            L"Tree.AddChild(\"ETE\", \"CHI0ETE\", \"of CHI0ETE\", \"WAI\")",
                            L"Tree.SetExpanded(\"ETE\", true)", L"Tree.Select(\"ETE\")",
                            L"Tree.SetUp(2, 7, 1, 1, 1, 300, false)"));
}

TEST_F(SimTreeTest, AnyCallCanBeToldToFailAndThenDoesNothing) {
    host->faults.FailOperation(L"Tree.AddRoot", 1, 1234);
    EXPECT_EQ(ErrorOf([&] { Root(L"a"); }), 1234);
    EXPECT_EQ(tree.Text(), L"");
}

}  // namespace
}  // namespace ace::test
