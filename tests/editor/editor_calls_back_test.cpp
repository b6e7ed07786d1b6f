/// What comes of a call that the host makes from inside one of its own while the editor works.
#include <ace/host/english_language.h>

#include "editor/editor_fixture.h"
#include "support/every_kind.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class EditorCallsBack : public EditorTest {
  protected:
    EditorCallsBack() {
        Fill(State().MainTest, EnterList, {WaitFor(1000), WaitFor(2000), WaitFor(3000)});
        MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
        context.ModuleFileNames[0] = L"lists.ini";
        host->tracing = true;
    }

    /// `act` runs in the first call of that name behind the first of `behind`.
    void In(StringView operation, std::function<void()> act, StringView behind = {}) {
        host->beforeCall = [=, isBehind = behind.empty()](StringView called, const auto&) mutable {
            isBehind = isBehind || called == behind;
            if (isBehind && act && called == operation) {
                std::exchange(act, nullptr)();
            }
        };
    }
    std::int32_t LoadAgain() {
        return ErrorOf([&] { engine->LoadEditor(&list, &tree); });
    }
    std::int32_t Add() {
        return ErrorOf([&] { AddAction(Parts(), true); });
    }
};

TEST_F(EditorCallsBack, AnOpeningInsideAnotherIsError10AndTheOneOutsideGoesOn) {
    Open(aceTemplate);
    std::int32_t inside = 0;
    In(L"Tree.AddChild", [&] { inside = LoadAgain(); });
    EXPECT_EQ(LoadAgain(), 0);
    EXPECT_EQ(inside, 10);
    EXPECT_THAT(LinesBelow(L"ETE"), SizeIs(3));
    EXPECT_TRUE(IsThere(L"LTE"));
    EXPECT_NE(Parts().m_List, nullptr);
}

TEST_F(EditorCallsBack, AnEditInsideAnotherIsError10AndChangesNothing) {
    Open(aceTemplate);
    Select(L"CHI1ETE");
    HoldNew(WaitFor(9000));
    std::vector<std::int32_t> inside;
    In(L"Tree.AddChild", [&] {
        EditorParts& parts = Parts();
        const p_Subrange before = parts.lists.MainTest;
        for (const auto edit : {ModifyAction, DeleteAction, GetAction}) {
            inside.push_back(ErrorOf([&] { edit(parts); }));
        }
        inside.push_back(Add());
        inside.push_back(ErrorOf([&] { MoveAction(parts, ptStartTest, 0, 0, 1); }));
        inside.push_back(ErrorOf([&] { context.Editor->TakeLists(ModuleLists()); }));
        EXPECT_EQ(parts.lists.MainTest, before);
        EXPECT_EQ(parts.held.Action, WaitFor(9000));
    });
    EXPECT_EQ(Add(), 0);
    EXPECT_THAT(inside, ElementsAre(10, 10, 10, 10, 10, 10));
    EXPECT_THAT(LinesBelow(L"ETE"), SizeIs(4));
    EXPECT_EQ(State().MainTest.Enter[2], WaitFor(9000));
}

TEST_F(EditorCallsBack, BehindARefusalTheNextEditWorks) {
    Open(aceTemplate);
    In(L"Tree.AddChild", [&] { LoadAgain(); });
    LoadAgain();
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(State().MainTest.EnterCount, 4);
}

/// The host has broken the rule of the tree, and the store goes its way.
TEST_F(EditorCallsBack, ASubrangeThatIsAddedWhileTheTreeIsBuiltShowsWithTheNextOpening) {
    Open(aceTemplate);
    std::int32_t inside = 0;
    In(L"Tree.AddChild", [&] { inside = ErrorOf([&] { engine->AddSubrange(3); }); });
    EXPECT_EQ(LoadAgain(), 0);
    EXPECT_EQ(inside, 10);
    EXPECT_EQ(State().MainSubrangeCount, 3);
    EXPECT_FALSE(IsThere(L"SUR2"));
    EXPECT_EQ(LoadAgain(), 0);
    EXPECT_TRUE(IsThere(L"SUR2"));
}

TEST_F(EditorCallsBack, AReleaseInTheFirstCallOfAnEditEndsItWithError91) {
    Open(aceTemplate);
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    In(L"TraceLog.IsEnabled", [&] { engine->Release(); });
    EXPECT_EQ(Add(), 91);
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(State().MainTest.EnterCount, 3);
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditorCallsBack, AReleaseWhileASectionIsCopiedKeepsTheEntryFromTheStore) {
    host->files[L"lists.ini"] = sim::ParseSections(L"[Actions0-Device]\nTitle=EUT\n");
    Open(aceTemplate);
    Select(L"LSR1");
    HoldNew(OnDevice(atSetDevice, L"EUT"));
    In(L"SettingsFile.GetSection", [&] { engine->Release(); });
    EXPECT_EQ(Add(), 91);
    EXPECT_EQ(State().MainSubranges[1], p_Subrange());
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditorCallsBack, AnEngineThatGoesWhileItsEditShowsLosesNothing) {
    Open(aceTemplate);
    Select(L"LSR1");
    HoldNew(WaitFor(9000));
    const std::shared_ptr<EngineState> state = Parts().engine;
    In(L"Tree.AddChild", [&] { engine.reset(); });
    EXPECT_EQ(Add(), 0);
    EXPECT_EQ(state->MainSubranges[1].Leave[0], WaitFor(9000));
    engine = std::make_unique<aceActionsEngine>(context);
}

TEST_F(EditorCallsBack, ATreeThatGoesWhileATextIsFetchedIsError91) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    In(
        L"Language.Text", [&] { brief.reset(); }, L"Tree.Clear");
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(&list, brief.get()); }), 91);
    EXPECT_EQ(Parts().m_View, nullptr);
    EXPECT_EQ(LoadAgain(), 0);
}

TEST_F(EditorCallsBack, ATreeThatGoesWhileAnEditIsTracedIsError91) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief->Select(brief->Find(L"ETE"));
    HoldNew(WaitFor(9000));
    In(
        L"TraceLog.WriteLine", [&] { brief.reset(); }, L"Tree.Key");
    EXPECT_EQ(Add(), 91);
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditorCallsBack, AListThatGoesWhileItIsFilledIsError91) {
    auto brief = std::make_unique<sim::SimList>(*host);
    In(
        L"Language.Text", [&] { brief.reset(); }, L"List.Clear");
    EXPECT_EQ(ErrorOf([&] { engine->LoadEditor(brief.get(), &tree); }), 91);
    EXPECT_EQ(Parts().m_List, nullptr);
    EXPECT_TRUE(IsThere(L"ETE"));
}

// ---- where messages may run --------------------------------------------------------------------

/// Calls back while it translates a form.
class CallingHost : public sim::SimHost {
  public:
    std::shared_ptr<ILanguage> MakeLanguage() override { return std::make_shared<Language>(*this); }
    std::function<void()> inLoad;

  private:
    struct Language : EnglishLanguage {
        explicit Language(CallingHost& owner) : host(owner) {}
        void TranslateForm(Form&) override {
            if (host.inLoad) {
                std::exchange(host.inLoad, nullptr)();
            }
        }
        CallingHost& host;
    };
};

class EditorLoad : public ::testing::Test {
  protected:
    std::int32_t LoadEditor() {
        return ErrorOf([&] { engine->LoadEditor(&list, &tree); });
    }

    std::shared_ptr<CallingHost> host = std::make_shared<CallingHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine = std::make_unique<aceActionsEngine>(context);
    sim::SimTree tree{*host};
    sim::SimList list{*host};
};

TEST_F(EditorLoad, AnOpeningInsideTheLoadOfTheFormIsGoodAndSoIsTheOneOutside) {
    std::int32_t inside = -1;
    host->inLoad = [&] { inside = LoadEditor(); };
    EXPECT_EQ(LoadEditor(), 0);
    EXPECT_EQ(inside, 0);
    EXPECT_TRUE(tree.Find(L"LTE"));
}

TEST_F(EditorLoad, AReleaseInsideTheLoadOfTheFormIsError91Outside) {
    host->inLoad = [&] { engine->Release(); };
    EXPECT_EQ(LoadEditor(), 91);
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(LoadEditor(), 0);
}

TEST_F(EditorLoad, AnEngineThatGoesInsideTheLoadOfTheFormIsShownToTheEnd) {
    host->inLoad = [&] { engine.reset(); };
    aceActionsEngine* const going = engine.get();
    EXPECT_EQ(ErrorOf([&] { going->LoadEditor(&list, &tree); }), 0);
    EXPECT_TRUE(tree.Find(L"LTE"));
    EXPECT_EQ(context.InstanceCount, 0);
}

}  // namespace
}  // namespace ace::test
