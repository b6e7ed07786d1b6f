#include "editor/edited_moments.h"

namespace ace::test {
namespace {

using ::testing::IsEmpty;

class EditorLifetime : public EveryModule {
  protected:
    void AddTo(const String& key, const p_Action& action) {
        Select(key);
        HoldNew(action);
        AddAction(Parts(), true);
    }
};

// ---- several engines ---------------------------------------------------------------------------

TEST_F(EditorLifetime, AnEditComesToTheEngineThatLoadedTheEditorLast) {
    aceActionsEngine other(context);
    Open(aceTemplate);
    const ModuleLists before = Store();
    other.State().Modul = aceMonitoring;
    other.LoadEditor(&list, &tree);
    AddTo(L"MLC", Tell(L"end"));
    EXPECT_EQ(other.State().MoniEut.Mlc[0], Tell(L"end"));
    EXPECT_TRUE(other.Change());
    EXPECT_EQ(Store(), before);
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditorLifetime, TheModuleIsThatOfTheLastLoadAndTheListGoesWithIt) {
    aceActionsEngine other(context);
    Open(aceTemplate);
    other.State().Modul = aceAziChart;
    other.LoadEditor(&list, &tree);
    EXPECT_EQ(Parts().moduleKind, aceAziChart);
    EXPECT_EQ(Parts().engine.get(), &other.State());
    EXPECT_NE(list.Text().find(L"ACT:15 "), String::npos) << "parking the accessory";
    EXPECT_EQ(CaptionOf(L"ETE"), L"T(9096)");
}

TEST_F(EditorLifetime, AnotherEnginesSelectionActsOnTheTreeOfTheLast) {
    aceActionsEngine other(context);
    other.LoadEditor(&list, &tree);
    Open(aceTemplate);
    other.EditorSelectSubrange(2);
    EXPECT_EQ(tree.Key(tree.Selected()), L"SUR1");
}

TEST_F(EditorLifetime, AnEngineThatIsNotShownTakesWhatTheEditorHasOfItsModule) {
    aceActionsEngine other(context);
    Fill(other.State().MainTest, EnterList, {Tell(L"other")});
    OpenModule(aceTemplate);
    other.Change(true);
    EXPECT_EQ(other.State().MainTest, Store().MainTest);
    EXPECT_EQ(other.State().MainSubranges, Store().MainSubranges);
}

TEST_F(EditorLifetime, AnEngineWhoseModuleWasNeverShownLosesItsListsWithAChange) {
    aceActionsEngine other(context);
    Fill(other.State().AziChart, EnterList, {Tell(L"other")});
    other.State().Modul = aceAziChart;
    OpenModule(aceTemplate);
    other.Change(true);
    EXPECT_EQ(other.State().AziChart, p_Subrange());
}

// ---- an end that comes first -------------------------------------------------------------------

TEST_F(EditorLifetime, AnEditOfAnEngineThatHasGoneStillEnds) {
    OpenModule(aceTemplate);
    const std::shared_ptr<EngineState> state = Parts().engine;
    engine.reset();
    AddTo(L"ETE", Tell(L"late"));
    EXPECT_EQ(state->MainTest, Parts().lists.MainTest);
    EXPECT_EQ(state->EventSink, nullptr);
    engine = std::make_unique<aceActionsEngine>(context);
    Open(aceTemplate);
    EXPECT_THAT(LinesBelow(L"ETE"), IsEmpty()) << "a new engine begins anew";
}

TEST_F(EditorLifetime, WithATreeThatHasGoneNoEditChangesAnything) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief.reset();
    const ModuleLists before = Store();
    HoldNew(Tell(L"late"));
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 91);
    EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), 91);
    EXPECT_EQ(ErrorOf([&] { DeleteAction(Parts()); }), 91);
    EXPECT_EQ(ErrorOf([&] { GetAction(Parts()); }), 91);
    EXPECT_EQ(Parts().lists.MainTest, before.MainTest);
    EXPECT_EQ(Store(), before);
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(Parts().held.Action, Tell(L"late"));
}

/// It needs no selected node, and fails at what it is to show.
TEST_F(EditorLifetime, WithATreeThatHasGoneAMoveIsInTheEditorAlone) {
    auto brief = std::make_unique<sim::SimTree>(*host);
    engine->LoadEditor(&list, brief.get());
    brief.reset();
    const p_Subrange before = Store().MainTest;
    EXPECT_EQ(ErrorOf([&] { MoveAction(Parts(), ptEveryFreq, 0, 0, 1); }), 91);
    EXPECT_EQ(Parts().lists.MainTest.Freq[0], before.Freq[1]);
    EXPECT_EQ(Store().MainTest, before);
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditorLifetime, WithoutItsListOfKindsTheEditorWorksOn) {
    auto brief = std::make_unique<sim::SimList>(*host);
    engine->LoadEditor(brief.get(), &tree);
    brief.reset();
    AddTo(L"ETE", Tell(L"late"));
    EXPECT_EQ(Store().MainTest.Enter[Store().MainTest.EnterCount - 1], Tell(L"late"));
}

// ---- a form that is used before it is open -----------------------------------------------------

TEST_F(EditorLifetime, AFormThatWasNeverLoadedOffersTheKindsOfATemplate) {
    const std::shared_ptr<IEditor> form = MakeEditor(context);
    form->SetListControl(&list);
    EXPECT_NE(list.Text().find(L"ACT:12 "), String::npos) << "amplifiers";
    EXPECT_EQ(list.Text().find(L"ACT:5 "), String::npos) << "followers are those of emission";
}

TEST_F(EditorLifetime, ALoadOfAFormWithoutATreeTakesTheListsAndIsError91) {
    const auto form = std::dynamic_pointer_cast<frmEditor>(MakeEditor(context));
    form->SetListControl(&list);
    const auto load = [&] { form->LoadEditor(aceTemplate, State().shared_from_this()); };
    EXPECT_EQ(ErrorOf(load), 91);
    EXPECT_EQ(form->Parts().lists.MainTest, Store().MainTest);
    EXPECT_EQ(form->Parts().m_List, nullptr);
}

TEST_F(EditorLifetime, AModuleOutsideTheMembersHasAnEmptyTreeAndNoSubranges) {
    Open(static_cast<aceModul>(99));
    EXPECT_EQ(Tree(), Lines{});
    tree.SetExpanded(tree.AddRoot(L"ETE", L"", L""), true);
    tree.AddRoot(L"SUR0", L"", L"");
    engine->EditorSelectSubrange(1);
    EXPECT_FALSE(tree.IsExpanded(tree.Find(L"ETE")));
    EXPECT_FALSE(tree.Selected());
}

// ---- Release -----------------------------------------------------------------------------------

TEST_F(EditorLifetime, BehindAReleaseAChangeIsError91WithTheFlagSet) {
    OpenModule(aceTemplate);
    engine->Release();
    const ModuleLists before = Store();
    EXPECT_EQ(ErrorOf([&] { engine->Change(true); }), 91);
    EXPECT_TRUE(engine->Change());
    EXPECT_EQ(Store(), before);
}

TEST_F(EditorLifetime, AFormThatSomebodyHoldsBehindAReleaseRefersToNothing) {
    OpenModule(aceTemplate);
    const auto form = std::dynamic_pointer_cast<frmEditor>(context.Editor);
    HoldNew(Tell(L"held"));
    engine->Release();
    EXPECT_EQ(form->Parts().m_View, nullptr);
    EXPECT_EQ(form->Parts().m_List, nullptr);
    EXPECT_EQ(form->Parts().engine, nullptr);
    EXPECT_EQ(form->Parts().held.Action, p_Action());
    EXPECT_EQ(ErrorOf([&] { AddAction(form->Parts(), true); }), 91);
}

TEST_F(EditorLifetime, AReleasedEngineMayGoBeforeOrBehindItsControls) {
    OpenModule(aceTemplate);
    engine->Release();
    engine.reset();
    host->journal.Clear();
    EXPECT_FALSE(tree.Press(L"ETE")) << "nobody listens";
    EXPECT_EQ(context.InstanceCount, 0);
}

}  // namespace
}  // namespace ace::test
