#include <ace/core/module_columns.h>

#include "editor/edited_moments.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// ---- every moment ------------------------------------------------------------------------------

void Put(DynArray<p_Action>& actions, std::int32_t& count, const p_Action& action) {
    actions.RedimPreserve(count);
    actions[count++] = action;
}

class EditorStore : public EveryModule, public ::testing::WithParamInterface<EditedMoment> {
  protected:
    /// The store is these lists and no others, and the editor has all of its module.
    void ExpectStore(const ModuleLists& expected) {
        EXPECT_EQ(Store(), expected);
        ModuleLists edited = expected;
        CopyModule(State().Modul, CopyFor::Editor, Parts().lists, edited);
        EXPECT_EQ(edited, expected);
    }
    /// The flag of this module alone.
    void ExpectChangeOf(aceModul moduleKind) {
        for (std::int32_t kind = 0; kind < ModulCount; ++kind) {
            EXPECT_EQ(State().ChangeFlags[static_cast<std::size_t>(kind)], kind == moduleKind)
                << kind;
        }
    }
};

TEST_P(EditorStore, AnAddedActionIsInTheListOfItsMomentAndNothingElseHasChanged) {
    const EditedMoment& moment = GetParam();
    OpenModule(moment.moduleKind, moment.matrix);
    ModuleLists expected = Store();
    Put(moment.Actions(expected), moment.Count(expected), Tell(L"new"));
    Select(String(moment.key));
    HoldNew(Tell(L"new"));
    AddAction(Parts(), true);
    ExpectStore(expected);
    ExpectChangeOf(moment.moduleKind);
}

TEST_P(EditorStore, AModifiedMovedAndDeletedLineIsInTheListOfItsMoment) {
    const EditedMoment& moment = GetParam();
    Put(moment.Actions(State()), moment.Count(State()), Tell(L"last"));
    OpenModule(moment.moduleKind, moment.matrix);
    ModuleLists expected = Store();
    DynArray<p_Action>& actions = moment.Actions(expected);
    Select(L"CHI0" + String(moment.key));
    HoldNew(Tell(L"first"));
    ModifyAction(Parts());
    actions[0] = Tell(L"first");
    ExpectStore(expected);
    MoveAction(Parts(), moment.time, moment.Subrange(), 1, 0);
    std::swap(actions[0], actions[1]);
    ExpectStore(expected);
    Select(L"CHI" + std::to_wstring(actions.UpperBound()) + String(moment.key));
    DeleteAction(Parts());
    moment.Count(expected) = actions.UpperBound();
    actions.RedimPreserve(actions.UpperBound() - 1);
    ExpectStore(expected);
    ExpectChangeOf(moment.moduleKind);
}
INSTANTIATE_TEST_SUITE_P(Moments, EditorStore, ::testing::ValuesIn(EditedMoments),
                         [](const auto& row) { return row.param.name; });

// ---- what an edit hands on ---------------------------------------------------------------------

using StoreRules = EditorStore;

TEST_F(StoreRules, AnEditHandsAllListsOfTheModuleOn) {
    for (const ModuleRow& module : ModuleTable) {
        OpenModule(module.moduleKind);
        ModuleLists expected = Store();
        ModuleLists& edited = Parts().lists;
        for (const FixedSet& fixed : module.AllFixed()) {
            Fill(edited.*fixed.set, EnterList, {Tell(L"edited")});
            Fill(expected.*fixed.set, EnterList, {Tell(L"edited")});
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            Fill((edited.*numbered.sets)[0], LeaveList, {Tell(L"edited")});
            Fill((expected.*numbered.sets)[0], LeaveList, {Tell(L"edited")});
        }
        engine->Change(true);
        EXPECT_EQ(Store(), expected) << module.moduleKind;
    }
}

TEST_F(StoreRules, KeysAndNamesOfTheStoreStay) {
    OpenModule(aceVKSTemplate);
    const ModuleLists before = Store();
    for (DynArray<String> ModuleLists::*texts :
         {&ModuleLists::VKSTestUKeys, &ModuleLists::VKSHostUKeys, &ModuleLists::VKSHostNames,
          &ModuleLists::VKSStepNames, &ModuleLists::VKSStepUKeys}) {
        (Parts().lists.*texts)[0] = L"edited";
    }
    engine->Change(true);
    EXPECT_EQ(Store(), before);
}

TEST_F(StoreRules, TheMatrixIsHandedOnWithItsTables) {
    OpenModule(aceVKSDUT);
    Parts().lists.VKSDUTIds(0, 1) = 3.0;
    Parts().lists.VKSDUTFreqs[1] = 6e9;
    Parts().lists.VKSInfByPower = true;
    engine->Change(true);
    EXPECT_EQ(Store().VKSDUTIds(0, 1), 3.0);
    EXPECT_EQ(Store().VKSDUTFreqs[1], 6e9);
    EXPECT_TRUE(Store().VKSInfByPower);
}

TEST_F(StoreRules, EqualGlobalListsOfTheMatrixStayWhereTheyStand) {
    OpenModule(aceVKSDUT);
    Fill(Parts().lists.VKSDUTGlob, EnterList, {Tell(L"before")});
    engine->Change(true);
    const p_Action* const first = &std::as_const(Store().VKSDUTGlob.Enter)[0];
    Parts().lists.VKSInfByPower = !Parts().lists.VKSInfByPower;
    engine->Change(true);
    EXPECT_EQ(&std::as_const(Store().VKSDUTGlob.Enter)[0], first);
}

// ---- while a list runs -------------------------------------------------------------------------

/// What happens while the first wait of the start list runs.
class EditsOfARun : public EveryModule {
  protected:
    void RunAnd(const std::function<void()>& act) {
        host->onTimedMessage = [&] {
            host->onTimedMessage = nullptr;
            act();
        };
        engine->StartTest();
        EXPECT_FALSE(host->onTimedMessage);
        host->onTimedMessage = nullptr;
    }
};

TEST_F(EditsOfARun, AnEditWhileAListOfTheModuleRunsComesToTheStoreWithTheNextOne) {
    OpenModule(aceTemplate);
    Select(L"LTE");
    HoldNew(Tell(L"meanwhile"));
    ModuleLists expected = Store();
    RunAnd([&] { EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 10); });
    EXPECT_EQ(Store(), expected);
    EXPECT_TRUE(engine->Change());
    EXPECT_EQ(LinesBelow(L"LTE").size(), 3U);

    Select(L"EFR");
    HoldNew(Tell(L"afterwards"));
    AddAction(Parts(), true);
    Put(expected.MainTest.Leave, expected.MainTest.LeaveCount, Tell(L"meanwhile"));
    Put(expected.MainTest.Freq, expected.MainTest.FreqCount, Tell(L"afterwards"));
    EXPECT_EQ(Store(), expected);
}

TEST_F(EditsOfARun, AModificationIsRefusedByTheStoreBeforeItIsShown) {
    OpenModule(aceTemplate);
    Select(L"CHI0EFR");
    const Lines shown = LinesBelow(L"EFR");
    HoldNew(Tell(L"meanwhile"));
    RunAnd([&] { EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), 10); });
    EXPECT_EQ(LinesBelow(L"EFR"), shown);
    EXPECT_EQ(Parts().lists.MainTest.Freq[0], Tell(L"meanwhile"));
    EXPECT_TRUE(engine->Change());

    const p_Action before = Store().MainTest.Freq[0];
    ModifyAction(Parts());
    EXPECT_EQ(LinesBelow(L"EFR")[0], L"T(9064): meanwhile");
    EXPECT_EQ(Store().MainTest.Freq[0], before) << "it doesn't differ from the editor's any more";
    MoveAction(Parts(), ptEveryFreq, 0, 0, 0);
    EXPECT_EQ(Store().MainTest.Freq[0], Tell(L"meanwhile"));
}

TEST_F(EditsOfARun, AnotherEnginesListsAreEditedMeanwhile) {
    aceActionsEngine other(context);
    other.LoadEditor(&list, &tree);
    State().Modul = aceTemplate;
    Select(L"ETE");
    HoldNew(Tell(L"meanwhile"));
    RunAnd([&] { AddAction(Parts(), true); });
    EXPECT_EQ(other.State().MainTest.EnterCount, 1);
    EXPECT_TRUE(other.Change());
    EXPECT_FALSE(engine->Change());
}

// ---- TakeLists ---------------------------------------------------------------------------------

class EarlierLists : public EditsOfARun {
  protected:
    static IEditor& EditorOf(ThreadContext& used) { return *used.Editor; }
    /// The store's lists with another message at the start, and other keys.
    ModuleLists Earlier() {
        ModuleLists lists = Store();
        Fill(lists.VKSTemplate, EnterList, {Tell(L"earlier")});
        Fill(lists.MainTest, EnterList, {Tell(L"of another module")});
        lists.VKSHostNames[0] = L"Other";
        return lists;
    }
};

TEST_F(EarlierLists, TheListsOfTheModuleAreShownAndHandedOn) {
    OpenModule(aceVKSTemplate);
    ModuleLists expected = Store();
    Fill(expected.VKSTemplate, EnterList, {Tell(L"earlier")});
    EditorOf(context).TakeLists(Earlier());
    EXPECT_EQ(Store(), expected);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(L"T(9064): earlier"));
    EXPECT_EQ(CaptionOf(L"TST0"), L"Conducted");
    EXPECT_TRUE(engine->Change());
}

TEST_F(EarlierLists, TheTreeIsBuiltAnewAndTheListOfKindsStays) {
    Open(aceEMSAutoTemplateGeneral);
    ModuleLists lists = Store();
    lists.EMSAutoGeneral = {};
    host->journal.Clear();
    EditorOf(context).TakeLists(lists);
    EXPECT_EQ(TakeEffects(), Journal(L"Tree.SetRootsSorted(false)", L"Tree.Clear()",
                                     L"Tree.AddRoot(\"ETE\", \"T(9051)\", \"ACT\")",
                                     L"Tree.SetExpanded(\"ETE\", true)",
                                     L"Tree.AddSibling(\"ETE\", \"LTE\", \"T(9056)\", \"ACT\")",
                                     L"Tree.SetExpanded(\"LTE\", true)"));
}

TEST_F(EarlierLists, WhileAListRunsNothingIsTakenOrShown) {
    Open(aceTemplate);
    const ModuleLists before = Store();
    host->journal.Clear();
    RunAnd([&] { EXPECT_EQ(ErrorOf([&] { EditorOf(context).TakeLists({}); }), 10); });
    EXPECT_EQ(Store(), before);
    EXPECT_EQ(Parts().lists.MainTest, before.MainTest);
    EXPECT_THAT(host->journal.LinesOf(L"Tree"), IsEmpty());
    EXPECT_FALSE(engine->Change());
}

TEST_F(EarlierLists, ATreeThatFailsIsGivenUpAndTheStoreHearsNothing) {
    OpenModule(aceVKSTemplate);
    const ModuleLists before = Store();
    host->faults.FailOperation(L"Tree.AddRoot", 2, 57);
    EXPECT_EQ(ErrorOf([&] { EditorOf(context).TakeLists(Earlier()); }), 57);
    EXPECT_EQ(Store(), before);
    EXPECT_FALSE(engine->Change());
    EXPECT_EQ(Tree(), Lines{});
    EXPECT_EQ(Parts().m_View, nullptr);
    EXPECT_EQ(Parts().m_List, nullptr);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 1U);
    EXPECT_EQ(Parts().lists.VKSTemplate.Enter[0], Tell(L"earlier"));
}

TEST_F(EarlierLists, AnEditorThatWasNeverOpenedTakesNone) {
    const std::shared_ptr<IEditor> closed = MakeEditor(context);
    EXPECT_EQ(ErrorOf([&] { closed->TakeLists(Store()); }), 91);
}

}  // namespace
}  // namespace ace::test
