#include <ace/core/actions_engine.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "support/fake_editor.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

/// An editor in which messages run while it is loaded and while it ends.
class YieldingEditor : public FakeEditor {
  public:
    using FakeEditor::FakeEditor;
    void Load() override {
        FakeEditor::Load();
        Run(whileLoading);
    }
    void Unload() override {
        FakeEditor::Unload();
        Run(whileEnding);
    }
    std::function<void()> whileLoading;
    std::function<void()> whileEnding;

  private:
    static void Run(const std::function<void()>& messages) {
        if (messages) {
            messages();
        }
    }
};

class EngineEditor : public HostTest {
  protected:
    EngineEditor() {
        context.Editor = editor;
        host->journal.Clear();
    }
    /// The calls on editor and trace log.
    std::vector<String> Calls() {
        std::vector<String> calls;
        for (const String& line : TakeEffects()) {
            if (line.starts_with(L"Editor.") || line.starts_with(L"TraceLog.")) {
                calls.push_back(line);
            }
        }
        return calls;
    }

    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    std::shared_ptr<YieldingEditor> editor = std::make_shared<YieldingEditor>(*host);
    sim::SimTree tree{*host};
    sim::SimList list{*host};
};

// ---- LoadEditor --------------------------------------------------------------------------------

TEST_F(EngineEditor, LoadsTheFormLinksTheTreeShowsTheModuleAndLinksTheListLast) {
    engine->State().Modul = aceAziChart;
    engine->LoadEditor(&list, &tree);
    EXPECT_THAT(Calls(), ElementsAre(L"Editor.Load()", L"Editor.SetTreeControl()",
                                     L"Editor.LoadEditor(6)", L"Editor.SetListControl()"));
    EXPECT_EQ(editor->tree, &tree);
    EXPECT_EQ(editor->list, &list);
    EXPECT_EQ(editor->loaded.get(), &engine->State());
}

TEST_F(EngineEditor, WritesATraceLineAtEitherEndOfLoadEditor) {
    host->tracing = true;
    engine->LoadEditor(&list, &tree);
    const std::vector<String> calls = Calls();
    ASSERT_EQ(calls.size(), 6U);
    EXPECT_EQ(
        calls.front(),
        L"TraceLog.WriteLine(\"start\", \"ZOLTA_ActionsEngine\", \"aceActionsEngine (Code)\", "
        L"\"LoadEditor\", \"\", \"1\")");
    EXPECT_EQ(calls.back(),
              L"TraceLog.WriteLine(\"end\", \"\", \"\", \"LoadEditor\", \"\", \"1\")");
}

TEST_F(EngineEditor, WithoutATreeNothingIsShownAndNoListIsFilled) {
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(&list, nullptr); }), 91);
    EXPECT_THAT(host->journal.LinesOf(L"Editor"),
                ElementsAre(L"Editor.Load()", L"Editor.SetTreeControl()"));
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
    EXPECT_EQ(context.Editor, editor) << "the form is there";
}

TEST_F(EngineEditor, WithoutAListTheTreeIsBuiltAllTheSame) {
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(nullptr, &tree); }), 91);
    EXPECT_THAT(host->journal.LinesOf(L"Editor"),
                ElementsAre(L"Editor.Load()", L"Editor.SetTreeControl()", L"Editor.LoadEditor(0)",
                            L"Editor.SetListControl()"));
}

TEST_F(EngineEditor, TheOneEditorOfTheThreadShowsTheObjectThatLoadedItLast) {
    aceActionsEngine other(context);
    engine->LoadEditor(&list, &tree);
    other.LoadEditor(&list, &tree);
    EXPECT_EQ(context.Editor, editor);
    EXPECT_EQ(editor->loaded.get(), &other.State());
}

TEST_F(EngineEditor, AnEditorThatNobodyReleasedKeepsTheStateAndNotTheContext) {
    auto shared = std::make_shared<ThreadContext>(host);
    const std::weak_ptr<ThreadContext> watched = shared;
    shared->Editor = editor;
    aceActionsEngine(*shared).LoadEditor(&list, &tree);
    EXPECT_NE(editor->loaded, nullptr);
    shared.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(EngineEditor, AnEditorThatIsReleasedWhileItLoadsIsError91AndLinksNothing) {
    editor->whileLoading = [&] { engine->Release(); };
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(&list, &tree); }), 91);
    EXPECT_THAT(host->journal.LinesOf(L"Editor"),
                ElementsAre(L"Editor.Load()", L"Editor.Unload()"));
    EXPECT_EQ(context.Editor, nullptr);
}

TEST_F(EngineEditor, AnEngineThatIsDroppedWhileItsEditorLoadsIsShownAllTheSame) {
    EngineState* const state = &engine->State();
    editor->whileLoading = [&] { engine.reset(); };
    engine->LoadEditor(&list, &tree);
    EXPECT_EQ(editor->loaded.get(), state);
    EXPECT_EQ(editor->list, &list);
}

TEST_F(EngineEditor, TheEditorIsMadeWhenThereIsNoneAndStaysWhenItsControlsAreMissing) {
    context.Editor.reset();
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(nullptr, nullptr); }), Errors::ObjectNotSet);
    EXPECT_NE(context.Editor, nullptr);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
}

// ---- Release -----------------------------------------------------------------------------------

TEST_F(EngineEditor, ReleaseLeavesAnEditorThatWasOpenedWhileTheOldOneEnded) {
    const auto next = std::make_shared<FakeEditor>(*host);
    editor->whileEnding = [&] { context.Editor = next; };
    engine->Release();
    EXPECT_EQ(context.Editor, next);
}

TEST_F(EngineEditor, AnEngineThatIsDroppedWhileItsEditorEndsEndsInGoodOrder) {
    editor->whileEnding = [&] { engine.reset(); };
    engine->Release();
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(context.InstanceCount, 0);
}

// ---- events ------------------------------------------------------------------------------------

TEST_F(EngineEditor, TheSinkIsForgottenWithTheEngineAlsoWhereAnEditorKeepsItsState) {
    class Sink : public __aceActionsEngine {
    } sink;
    engine->SetEventSink(&sink);
    engine->LoadEditor(&list, &tree);
    ASSERT_EQ(editor->loaded->EventSink, &sink);
    engine.reset();
    EXPECT_EQ(editor->loaded->EventSink, nullptr);
}

}  // namespace
}  // namespace ace::test
