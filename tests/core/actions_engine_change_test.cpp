#include <memory>
#include <string>
#include <vector>

#include <ace/core/actions_engine.h>
#include <ace/core/module_columns.h>

#include "support/fake_editor.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Property : public HostTest {
  protected:
    std::shared_ptr<FakeEditor> OpenEditor() {
        auto editor = std::make_shared<FakeEditor>(*host);
        context.Editor = editor;
        return editor;
    }
    aceActionsEngine engine{context};
    EngineState& state = engine.State();
};

// ---- Change ------------------------------------------------------------------------------------

TEST_F(Property, ChangeReadBeforeALoadReadsTheEntryOfKind0) {
    state.ChangeFlags[1] = true;
    EXPECT_FALSE(engine.Change());
    state.ChangeFlags[0] = true;
    EXPECT_TRUE(engine.Change());
}

TEST_F(Property, ChangeIsKeptForEachModuleKind) {
    OpenEditor();
    for (std::int32_t moduleKind = 0; moduleKind < 9; ++moduleKind) {
        state.Modul = static_cast<aceModul>(moduleKind);
        EXPECT_FALSE(engine.Change());
        engine.Change(true);
        EXPECT_TRUE(engine.Change());
    }
    state.Modul = aceAziChart;
    engine.Change(false);
    EXPECT_FALSE(engine.Change());
    state.Modul = aceVKSDUT;
    EXPECT_TRUE(engine.Change());
}

TEST_F(Property, ChangeWrittenTrueWithoutAnEditorIsError91WithTheFlagAlreadySet) {
    for (std::int32_t moduleKind = 0; moduleKind < 9; ++moduleKind) {
        state.Modul = static_cast<aceModul>(moduleKind);
        EXPECT_EQ(ErrorOf([&] { engine.Change(true); }), 91);
        EXPECT_TRUE(engine.Change());
    }
    EXPECT_THAT(host->journal.LinesOf(L"TraceLog"), IsEmpty());
}

TEST_F(Property, ChangeWrittenFalseNeverTouchesTheEditor) {
    state.ChangeFlags[0] = true;
    engine.Change(false);
    EXPECT_FALSE(engine.Change());
    OpenEditor();
    engine.Change(false);
    EXPECT_THAT(host->journal.LinesOf(L"Editor"), IsEmpty());
}

TEST_F(Property, ChangeOfAModuleKindOutsideTheMembersIsError9) {
    OpenEditor();
    for (const std::int32_t moduleKind : {9, -1, 2147483647}) {
        state.Modul = static_cast<aceModul>(moduleKind);
        EXPECT_EQ(ErrorOf([&] { engine.Change(); }), 9);
        EXPECT_EQ(ErrorOf([&] { engine.Change(true); }), 9);
        EXPECT_EQ(ErrorOf([&] { engine.Change(false); }), 9);
    }
    EXPECT_THAT(host->journal.LinesOf(L"Editor"), IsEmpty());
}

TEST_F(Property, ALoadClearsNoChangeFlag) {
    state.ChangeFlags[aceAziChart] = true;
    engine.LoadActions(L"chart.ini", 0, aceAziChart);
    EXPECT_TRUE(engine.Change());
}

TEST_F(Property, AnEditorThatFailsLeavesTheFlagSetAndTheErrorAsItCame) {
    OpenEditor();
    host->faults.FailOperation(L"Editor.GetMainActions", 1, 57);
    EXPECT_EQ(ErrorOf([&] { engine.Change(true); }), 57);
    EXPECT_TRUE(engine.Change());
    EXPECT_EQ(state.MainSubrangeCount, -1);
}

/// A list set that is told apart by its wait.
p_Subrange Marked(double wait) {
    p_Subrange lists;
    Fill(lists, EnterList, {Action(atWait, aceWait{wait})});
    return lists;
}

DynArray<p_Subrange> MarkedLists(double first, std::int32_t size) {
    DynArray<p_Subrange> lists;
    lists.Redim(0, size - 1);
    for (std::int32_t i = 0; i < size; ++i) {
        lists[i] = Marked(first + i);
    }
    return lists;
}

/// Which fields take what: `first` and `other` of the editor's fixed lists, `numbered` and `second`
/// of its numbered ones.
struct TakeOverRow {
    aceModul moduleKind;
    std::vector<String> calls;
    p_Subrange ModuleLists::*first = nullptr;
    p_Subrange ModuleLists::*other = nullptr;
    std::int32_t ModuleLists::*count = nullptr;
    DynArray<p_Subrange> ModuleLists::*numbered = nullptr;
    std::int32_t ModuleLists::*secondCount = nullptr;
    DynArray<p_Subrange> ModuleLists::*second = nullptr;
};

using E = ModuleLists;

const TakeOverRow TakeOverRows[] = {
    {aceTemplate,
     {L"Editor.GetMainActions()"},
     &E::MainTest,
     nullptr,
     &E::MainSubrangeCount,
     &E::MainSubranges},
    {aceMonitoring,
     {L"Editor.GetMoniActions()"},
     &E::MoniEut,
     &E::MoniLoop,
     &E::MoniChannelCount,
     &E::MoniChannels},
    {aceEMSAutoTemplateGeneral, {L"Editor.GetEMSAutoActionsGeneral()"}, &E::EMSAutoGeneral},
    {aceEMSAutoTemplate,
     {L"Editor.GetEMSAutoActions()"},
     nullptr,
     nullptr,
     &E::EMSAutoStepCount,
     &E::EMSAutoSteps},
    {aceEMIAutoTemplate,
     {L"Editor.GetEMIAutoActions()"},
     &E::EMIAutoTest,
     nullptr,
     &E::EMIAutoStepCount,
     &E::EMIAutoSteps},
    {aceTSTemplate, {L"Editor.GetTSActions()"}, &E::TSTest, nullptr, &E::TSTestCount, &E::TSTests},
    {aceAziChart, {L"Editor.GetAziChartActions()"}, &E::AziChart},
    {aceVKSTemplate,
     {L"Editor.GetVKSActions()"},
     &E::VKSTemplate,
     nullptr,
     &E::VKSTestCount,
     &E::VKSTests,
     &E::VKSStepCount,
     &E::VKSSteps},
    {aceVKSDUT,
     {L"Editor.GetVKSDUTActions()", L"Editor.GetVKSDUTGlobActions()"},
     &E::VKSDUTGlob,
     nullptr,
     nullptr,
     nullptr,
     &E::VKSStepCount,
     &E::VKSSteps},
};

/// The lists of `state`, all others of the object included, as the row leaves them.
void ExpectTakenOver(const EngineState& state, const TakeOverRow& row, const FakeEditor& editor) {
    for (const ModuleRow& module : ModuleTable) {
        for (const FixedSet& fixed : module.AllFixed()) {
            const bool isFirst = fixed.set == row.first;
            EXPECT_EQ(state.*fixed.set, isFirst                  ? editor.first
                                        : fixed.set == row.other ? editor.other
                                                                 : p_Subrange());
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            const bool isFirst = numbered.sets == row.numbered;
            EXPECT_EQ(state.*numbered.sets, isFirst                       ? editor.numbered
                                            : numbered.sets == row.second ? editor.second
                                                                          : DynArray<p_Subrange>());
        }
    }
    if (row.count != nullptr) {
        EXPECT_EQ(state.*row.count, editor.count);
    }
    if (row.secondCount != nullptr) {
        EXPECT_EQ(state.*row.secondCount, editor.secondCount);
    }
}

class TakeOver : public Property, public ::testing::WithParamInterface<TakeOverRow> {};

TEST_P(TakeOver, ChangeWrittenTrueReplacesTheListsOfTheModuleAndNoOthers) {
    const auto editor = OpenEditor();
    editor->first = Marked(1.0);
    editor->other = Marked(2.0);
    editor->count = 3;
    editor->numbered = MarkedLists(10.0, 3);
    editor->secondCount = 2;
    editor->second = MarkedLists(20.0, 2);
    state.Modul = GetParam().moduleKind;
    host->journal.Clear();
    engine.Change(true);
    EXPECT_EQ(TakeEffects(), GetParam().calls);
    ExpectTakenOver(state, GetParam(), *editor);
}
INSTANTIATE_TEST_SUITE_P(Modules, TakeOver, ::testing::ValuesIn(TakeOverRows));

TEST_F(Property, TheMatrixIsTakenOverIntoTheStateOfTheObject) {
    const auto editor = OpenEditor();
    state.Modul = aceVKSDUT;
    engine.Change(true);
    EXPECT_EQ(editor->store, &state);
}

TEST_F(Property, ChangeTakesOverWhateverTheOneEditorHolds) {
    const auto editor = OpenEditor();
    editor->count = 1;
    editor->numbered = MarkedLists(1.0, 1);
    aceActionsEngine other(context);
    other.State().Modul = aceTSTemplate;
    other.Change(true);
    engine.Change(true);
    EXPECT_EQ(other.State().TSTests, editor->numbered);
    EXPECT_EQ(state.MainSubranges, editor->numbered);
}

/// An editor that works on a copy of the lists, like the real one.
class CopyingEditor : public FakeEditor {
  public:
    using FakeEditor::FakeEditor;
    ModuleLists lists;
    void GetVKSActions(ModuleLists& to) override {
        CopyModule(aceVKSTemplate, CopyFor::Store, lists, to);
    }
};

TEST_F(Property, AnEditKeepsTheKeyOfAWirelessTestThatCameWhileTheEditorWasOpen) {
    state.Modul = aceVKSTemplate;
    engine.AddSubrange(2, L"First");
    const auto editor = std::make_shared<CopyingEditor>(*host);
    context.Editor = editor;
    CopyModule(aceVKSTemplate, CopyFor::Editor, state, editor->lists);
    engine.AddSubrange(3, L"Second");
    EXPECT_EQ(editor->loaded, nullptr) << "a new wireless test does not reach the editor";
    Fill(editor->lists.VKSTests[0], EnterList, {Action(atTestStop)});
    engine.Change(true);
    EXPECT_EQ(state.VKSTests[0].EnterCount, 1);
    EXPECT_EQ(state.VKSTestCount, 1) << "that of the editor";
    EXPECT_EQ(state.VKSTestUKeys[0], L"First");
    EXPECT_EQ(state.VKSTestUKeys[1], L"Second");
    EXPECT_EQ(editor->lists.VKSTestUKeys[1], L"")
        << "the editor's copy has the spare element alone";
}

// ---- InitReceiver ------------------------------------------------------------------------------

TEST_F(Property, InitReceiverReadTwiceReturnsTrueAtMostOnce) {
    EXPECT_FALSE(engine.InitReceiver());
    context.InitReceiverPending = true;
    EXPECT_TRUE(engine.InitReceiver());
    EXPECT_FALSE(engine.InitReceiver());
    EXPECT_FALSE(context.InitReceiverPending);
}

TEST_F(Property, InitReceiverReadOnOneObjectConsumesTheLatchOfAll) {
    aceActionsEngine other(context);
    context.InitReceiverPending = true;
    EXPECT_TRUE(other.InitReceiver());
    EXPECT_FALSE(engine.InitReceiver());
}

// ---- Release -----------------------------------------------------------------------------------

TEST_F(Property, ReleaseWithoutAnEditorDoesNothingAndGivesNoError) {
    host->journal.Clear();
    EXPECT_EQ(ErrorOf([&] { engine.Release(); }), 0);
    EXPECT_THAT(host->journal.Lines(), IsEmpty());
}

TEST_F(Property, ReleaseUnloadsTheEditorBeforeItIsGone) {
    const std::weak_ptr<IEditor> editor = OpenEditor();
    bool wasThere = false;
    host->journal.Clear();
    host->journal.Observe([&](const sim::HostCall&) { wasThere = context.Editor != nullptr; });
    engine.Release();
    host->journal.Observe(nullptr);
    EXPECT_THAT(host->journal.Lines(), ElementsAre(L"Editor.Unload()"));
    EXPECT_TRUE(wasThere);
    EXPECT_TRUE(editor.expired());
}

TEST_F(Property, ReleaseOnAnyObjectEndsTheOneEditor) {
    OpenEditor();
    aceActionsEngine other(context);
    other.Release();
    EXPECT_EQ(context.Editor, nullptr);
    EXPECT_EQ(ErrorOf([&] { engine.Release(); }), 0);
}

TEST_F(Property, ReleaseLeavesTheChangeFlagsAlone) {
    OpenEditor();
    engine.Change(true);
    engine.Release();
    EXPECT_TRUE(engine.Change());
}

}  // namespace
}  // namespace ace::test
