#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// Rules of the trees of single modules, told with as few nodes as they need.
class ModuleTreeRules : public ShownEditor {
  protected:
    using Sets = DynArray<p_Subrange> ModuleLists::*;

    static void SetTexts(DynArray<String>& array, const Lines& texts) {
        array.Redim(0, static_cast<std::int32_t>(texts.size()) - 1);
        std::ranges::copy(texts, array.begin());
    }
    /// Tests with these keys, of which the host shows some in its own order and under its names.
    void MakeTests(const Lines& stored, const Lines& shown, const Lines& names) {
        MakeSets(&ModuleLists::VKSTests, &ModuleLists::VKSTestCount,
                 static_cast<std::int32_t>(stored.size()));
        SetTexts(State().VKSTestUKeys, stored);
        SetTexts(State().VKSHostUKeys, shown);
        SetTexts(State().VKSHostNames, names);
    }
    void MakeSteps(const Lines& owners, const Lines& names) {
        MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount,
                 static_cast<std::int32_t>(owners.size()));
        SetTexts(State().VKSStepUKeys, owners);
        SetTexts(State().VKSStepNames, names);
    }
    /// Keys and captions of the roots, or of the nodes right below one.
    Lines Roots() { return Row(tree.FirstRoot()); }
    Lines Below(const String& key) { return Row(tree.FirstChild(tree.Find(key))); }

  private:
    Lines Row(TreeNode node) {
        Lines row;
        for (; node; node = tree.NextSibling(node)) {
            row.push_back(tree.Key(node) + L" " + tree.Caption(node));
        }
        return row;
    }
};

// ---- numbers -----------------------------------------------------------------------------------

TEST_F(ModuleTreeRules, TemplateWithoutSubrangesHasThreeMomentsAndTheStopIsTheLast) {
    for (const std::int32_t count : {-1, 0}) {
        State().MainSubrangeCount = count;
        Open(aceTemplate);
        EXPECT_EQ(Tree(),
                  (Lines{L"ETE \"T(9051)\" ACT", L"EFR \"T(9052)\" ACT", L"LTE \"T(9056)\" ACT"}))
            << count;
    }
}

TEST_F(ModuleTreeRules, CountOfZeroOrBelowShowsNoNumberedNodesInAnyModule) {
    Open(aceMonitoring);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9051)", L"EFR T(9052)", L"ATL T(9104)", L"MLC T(9087)",
                              L"LTE T(9056)"}));
    Open(aceEMSAutoTemplate);
    EXPECT_EQ(Roots(), Lines{});
    Open(aceEMIAutoTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9051)", L"EFR T(9052)", L"LTE T(9056)"}));
    Open(aceTSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"LTE T(9093)"}));
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"LTE T(9093)"}));
}

TEST_F(ModuleTreeRules, SpareEntryBehindTheCountDoesNotShow) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 3);
    State().MainSubrangeCount = 2;
    Open(aceTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9051)", L"EFR T(9052)", L"SUR0 T(9053) 1", L"SUR1 T(9053) 2",
                              L"LTE T(9056)"}));
}

TEST_F(ModuleTreeRules, CycleAndStopOfMonitoringStandBehindAllChannelsInThisOrder) {
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 2);
    Open(aceMonitoring);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9051)", L"EFR T(9052)", L"ATL T(9104)", L"CHA0 T(21000) 1",
                              L"CHA1 T(21000) 2", L"MLC T(9087)", L"LTE T(9056)"}));
}

TEST_F(ModuleTreeRules, NumberOfACaptionCountsFromOneBehindABlankButInASequence) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 10);
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 10);
    MakeSets(&ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount, 10);
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 10);
    Open(aceTemplate);
    EXPECT_EQ(CaptionOf(L"SUR9"), L"T(9053) 10");
    Open(aceMonitoring);
    EXPECT_EQ(CaptionOf(L"CHA9"), L"T(21000) 10");
    Open(aceEMSAutoTemplate);
    EXPECT_EQ(CaptionOf(L"STE9"), L"T(9058) 10");
    Open(aceTSTemplate);
    EXPECT_EQ(CaptionOf(L"TST9"), L"T(9101)10");
}

/// Intentional: the eleventh step has the words of the moments below it.
TEST_F(ModuleTreeRules, StepOfAnEmissionTestHasATextOfItsOwnWithoutABound) {
    MakeSets(&ModuleLists::EMIAutoSteps, &ModuleLists::EMIAutoStepCount, 12);
    Open(aceEMIAutoTemplate);
    EXPECT_EQ(CaptionOf(L"EMI0"), L"T(9080)");
    EXPECT_EQ(CaptionOf(L"EMI9"), L"T(9089)");
    EXPECT_EQ(CaptionOf(L"EMI10"), L"T(9090)");
    EXPECT_EQ(CaptionOf(L"EMI11"), L"T(9091)");
    EXPECT_EQ(Below(L"EMI10"), (Lines{L"BEF10 T(9090)", L"AFT10 T(9091)"}));
}

TEST_F(ModuleTreeRules, ModuleOutsideTheMembersHasNoNodesAndTheKindsOfAll) {
    for (const std::int32_t module : {-1, 9}) {
        Open(static_cast<aceModul>(module));
        EXPECT_EQ(Tree(), Lines{}) << module;
        EXPECT_EQ(LinesOf(list.Text()).size(), 5U) << module;
        EXPECT_EQ(ErrorOf([&] { engine->EditorSelectSubrange(1); }), 91) << module;
    }
}

// ---- wireless tests ----------------------------------------------------------------------------

TEST_F(ModuleTreeRules, TestsStandInTheHostsOrderUnderItsNamesWithTheNumberOfTheStore) {
    MakeTests({L"a", L"b"}, {L"b", L"a"}, {L"Name of b", L"Name of a"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(),
              (Lines{L"ETE T(9092)", L"TST1 Name of b", L"TST0 Name of a", L"LTE T(9093)"}));
}

TEST_F(ModuleTreeRules, EmptyKeyIsNeverMatched) {
    MakeTests({L"", L"b"}, {L"", L"b"}, {L"Nameless", L"Name of b"});
    MakeSteps({L""}, {L"Lost"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"TST1 Name of b", L"LTE T(9093)"}));
    EXPECT_FALSE(IsThere(L"STE0"));
}

TEST_F(ModuleTreeRules, TestThatTheStoreDoesNotHaveIsLeftOut) {
    MakeTests({L"a", L"b"}, {L"x", L"b"}, {L"Unknown", L"Name of b"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"TST1 Name of b", L"LTE T(9093)"}));
}

TEST_F(ModuleTreeRules, KeysOfTestsAreComparedExactly) {
    MakeTests({L"a", L"b "}, {L"A", L"b"}, {L"One", L"Two"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"LTE T(9093)"}));
}

TEST_F(ModuleTreeRules, HostsListIsCutAtTheNumberOfTests) {
    MakeTests({L"a", L"b"}, {L"x", L"b", L"a"}, {L"Unknown", L"Name of b", L"Name of a"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"TST1 Name of b", L"LTE T(9093)"}));
}

TEST_F(ModuleTreeRules, FirstOfTwoEqualKeysInTheStoreIsTheTest) {
    MakeTests({L"a", L"a"}, {L"a", L"x"}, {L"Name of a", L"Unknown"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Roots(), (Lines{L"ETE T(9092)", L"TST0 Name of a", L"LTE T(9093)"}));
}

TEST_F(ModuleTreeRules, TestThatTheHostNamesTwiceFailsTheLoad) {
    MakeTests({L"a", L"b"}, {L"a", L"a"}, {L"Name of a", L"The same"});
    EXPECT_EQ(ErrorOf([&] { Open(aceVKSTemplate); }), 457);
    EXPECT_EQ(Tree(), Lines{});
}

TEST_F(ModuleTreeRules, StepsOfATestStandBetweenItsMomentsInTheOrderOfAllSteps) {
    MakeTests({L"a", L"b"}, {L"a", L"b"}, {L"Name of a", L"Name of b"});
    MakeSteps({L"b", L"a", L"b", L"a"}, {L"One", L"Two", L"Three", L"Four"});
    Open(aceVKSTemplate);
    EXPECT_EQ(Below(L"TST0"), (Lines{L"BFT0 T(9094)", L"STE1 Two", L"STE3 Four", L"ATT0 T(9095)"}));
    EXPECT_EQ(Below(L"TST1"),
              (Lines{L"BFT1 T(9094)", L"STE0 One", L"STE2 Three", L"ATT1 T(9095)"}));
}

TEST_F(ModuleTreeRules, StepBehindTheCountDoesNotShow) {
    MakeTests({L"a"}, {L"a"}, {L"Name of a"});
    MakeSteps({L"a", L"a"}, {L"One", L"Two"});
    State().VKSStepCount = 1;
    Open(aceVKSTemplate);
    EXPECT_EQ(Below(L"TST0"), (Lines{L"BFT0 T(9094)", L"STE0 One", L"ATT0 T(9095)"}));
}

/// Each moment goes by its own list here, other than in a sequence.
TEST_F(ModuleTreeRules, MomentOfAWirelessTestStandsOpenWhenItHasActions) {
    MakeTests({L"a", L"b"}, {L"a", L"b"}, {L"Name of a", L"Name of b"});
    Fill(State().VKSTests[0], EnterList, {Camera});
    Fill(State().VKSTests[1], LeaveList, {Camera});
    Open(aceVKSTemplate);
    EXPECT_TRUE(IsExpanded(L"BFT0"));
    EXPECT_FALSE(IsExpanded(L"ATT0"));
    EXPECT_FALSE(IsExpanded(L"BFT1"));
    EXPECT_TRUE(IsExpanded(L"ATT1"));
}

// ---- one editor for all engines ----------------------------------------------------------------

TEST_F(ModuleTreeRules, EngineOfTheLastLoadIsShownWhicheverAsksForASubrange) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
    Open(aceTemplate);
    aceActionsEngine other(context);
    other.State().Modul = aceMonitoring;
    other.State().MoniChannelCount = 2;
    other.State().MoniChannels.Redim(0, 1);
    other.LoadEditor(&list, &tree);

    engine->EditorSelectSubrange(2);

    EXPECT_EQ(tree.Key(tree.Selected()), L"CHA1");
}

TEST_F(ModuleTreeRules, ListsShowAsTheyWereWhenTheyWereLoaded) {
    Fill(State().AziChart, EnterList, {Camera});
    Open(aceAziChart);
    Fill(State().AziChart, EnterList, {Camera, PathA});
    EXPECT_EQ(Below(L"ETE"), Lines{L"CHI0ETE T(9065): Camera"});
    Open(aceAziChart);
    EXPECT_EQ(Below(L"ETE"),
              (Lines{L"CHI0ETE T(9065): Camera", L"CHI1ETE T(9074): Unit --> Path A"}));
}

}  // namespace
}  // namespace ace::test
