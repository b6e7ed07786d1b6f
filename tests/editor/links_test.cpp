#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// What the editor and the host's two controls know of each other, and when that ends.
class EditorLinks : public ShownEditor {
  protected:
    EditorLinks() { MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1); }

    static inline const String TreeGivenBack = L"Tree.SetEvents(false)";
    static inline const String ListGivenBack = L"List.SetEvents(false)";
};

TEST_F(EditorLinks, ReleaseGivesBothControlsBackAndLeavesWhatTheyShow) {
    Open(aceTemplate);
    const Lines before = Tree();

    engine->Release();

    EXPECT_EQ(TakeEffects(), (Lines{TreeGivenBack, ListGivenBack}));
    EXPECT_EQ(Tree(), before);
    EXPECT_FALSE(context.Editor);
}

TEST_F(EditorLinks, BehindAReleaseASubrangeIsNotSelected) {
    Open(aceTemplate);
    engine->Release();
    TakeEffects();
    engine->EditorSelectSubrange(1);
    EXPECT_EQ(TakeEffects(), Lines{});
}

TEST_F(EditorLinks, LoadBehindAReleaseShowsAgain) {
    Open(aceTemplate);
    const Lines before = Tree();
    engine->Release();
    Open(aceTemplate);
    EXPECT_EQ(Tree(), before);
    EXPECT_TRUE(tree.Press(std::nullopt));
}

TEST_F(EditorLinks, ControlThatHasGoneIsNotGivenBack) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief.reset();
    TakeEffects();
    engine->Release();
    EXPECT_EQ(TakeEffects(), Lines{ListGivenBack});
}

TEST_F(EditorLinks, ListThatHasGoneIsNotMissedByTheTree) {
    auto brief = std::make_unique<sim::SimList>(*host);
    engine->LoadEditor(brief.get(), &tree);
    brief.reset();
    TakeEffects();
    engine->EditorSelectSubrange(1);
    EXPECT_EQ(tree.Key(tree.Selected()), L"SUR0");
    engine->Release();
    EXPECT_EQ(host->journal.LinesOf(L"List."), Lines{});
}

TEST_F(EditorLinks, TreeThatHasGoneCanBeReplaced) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief.reset();
    Open(aceTemplate);
    EXPECT_TRUE(IsThere(L"SUR0"));
}

TEST_F(EditorLinks, ControlThatCannotBeGivenBackHindersNoRelease) {
    Open(aceTemplate);
    host->faults.FailOperation(L"Tree.SetEvents", 1, 5);
    engine->Release();
    EXPECT_EQ(host->journal.LinesOf(L"List."), Lines{ListGivenBack});
    EXPECT_FALSE(context.Editor);
    host->faults.Clear();
    Open(aceTemplate);
    EXPECT_TRUE(IsThere(L"SUR0"));
}

/// The host forgot to release. The editor stays for the next engine, and for the controls.
TEST_F(EditorLinks, EditorOutlivesAnEngineThatGoesWithoutARelease) {
    Open(aceTemplate);
    engine.reset();
    EXPECT_TRUE(tree.Press(std::nullopt));
    EXPECT_TRUE(context.Editor);

    engine = std::make_unique<aceActionsEngine>(context);
    Open(aceAziChart);

    EXPECT_EQ(Tree().front(), L"ETE \"T(9096)\" ACT");
}

}  // namespace
}  // namespace ace::test
