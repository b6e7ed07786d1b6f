#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// Whole loads, call by call, as the host sees and logs them.
class LoadJournal : public ShownEditor {
  protected:
    static constexpr StringView EngineCode = L"aceActionsEngine (Code)";
    static constexpr StringView EditorCode = L"frmEditor (Code)";

    static String Started(StringView module, StringView procedure, StringView message = {}) {
        return Start(String(module), String(procedure), String(message));
    }
    /// A moment: `lines` are its action lines, and then it is told whether it stands open.
    static Lines Displayed(const String& time, const String& number, const Lines& lines,
                           const String& key, bool isExpanded = false) {
        return Journal(
            Started(EditorCode, L"DisplayTree", L"PerfTime = " + time + L", Subrange = " + number),
            lines, L"Tree.SetExpanded(\"" + key + (isExpanded ? L"\", true)" : L"\", false)"),
            End(L"DisplayTree"));
    }
    static String Root(const String& key, const String& caption) {
        return L"Tree.AddRoot(\"" + key + L"\", \"" + caption + L"\", \"ACT\")";
    }
    static String Child(const String& parent, const String& key, const String& caption,
                        const String& icon = L"ACT") {
        return L"Tree.AddChild(\"" + parent + L"\", \"" + key + L"\", \"" + caption + L"\", \"" +
               icon + L"\")";
    }
    static String Last(const String& caption) {
        return L"Tree.AddSibling(\"ETE\", \"LTE\", \"" + caption + L"\", \"ACT\")";
    }
    static String Item(const String& key, const String& caption, const String& icon) {
        return L"List.Add(\"ACT:" + key + L"\", \"" + caption + L"\", \"" + icon + L"\")";
    }
    inline static const Lines TreeLinked{L"Tree.SetEvents(true)",
                                         L"Tree.SetUp(19, 7, 1, 1, 1, 300, false)"};
    inline static const Lines ListLinked{L"List.SetEvents(true)", L"List.SetUp(19, 2, 1, false)",
                                         L"List.Clear()"};
    inline static const Lines Emptied{L"Tree.SetRootsSorted(false)", L"Tree.Clear()"};
    inline static const Lines FirstKinds{
        Item(L"3", L"T(9031)", L"DEV"), Item(L"2", L"T(9032)", L"REM"),
        Item(L"0", L"T(9033)", L"WAI"), Item(L"1", L"T(9034)", L"NOT"),
        Item(L"14", L"T(9078)", L"API")};

    Lines LoadTraced(aceModul moduleKind) {
        State().Modul = moduleKind;
        host->journal.Clear();
        host->tracing = true;
        engine->LoadEditor(&list, &tree);
        return TakeEffects();
    }
};

TEST_F(LoadJournal, SingleTestWithASubrangeAndAnAction) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1);
    Fill(State().MainTest, EnterList, {WaitFor(1500)});

    const Lines start{Child(L"ETE", L"CHI0ETE", L"T(9063): 1.500 s", L"WAI")};
    EXPECT_EQ(
        LoadTraced(aceTemplate),
        Journal(Started(EngineCode, L"LoadEditor"), DevicesAsked, TreeLinked,
                Started(EditorCode, L"LoadEditor", L"Modul = 0"), Emptied, Root(L"ETE", L"T(9051)"),
                Displayed(L"0", L"0", start, L"ETE"), Root(L"EFR", L"T(9052)"),
                Displayed(L"4", L"0", {}, L"EFR"), Root(L"SUR0", L"T(9053) 1"),
                Child(L"SUR0", L"ESR0", L"T(9054)"), Displayed(L"2", L"0", {}, L"ESR0"),
                Child(L"SUR0", L"LSR0", L"T(9055)"), Displayed(L"3", L"0", {}, L"LSR0"),
                Last(L"T(9056)"), Displayed(L"1", L"0", {}, L"LTE"), End(L"LoadEditor"), ListLinked,
                FirstKinds, Item(L"4", L"T(9035)", L"EUT"), Item(L"12", L"T(9073)", L"SWA"),
                Item(L"13", L"T(9074)", L"SWU"), End(L"LoadEditor")));
}

/// The texts of a node are asked for directly before it is added.
TEST_F(LoadJournal, TextsAreAskedForOneByOneInTheOrderOfTheirUse) {
    Fill(State().EMSAutoGeneral, EnterList, {PathA, Comment(true)});
    Open(aceEMSAutoTemplateGeneral);
    host->journal.Clear();
    engine->LoadEditor(&list, &tree);

    const Lines texts = host->journal.LinesOf(L"Language.");
    const Lines expected{L"Language.Text(9051)", L"Language.Text(9074)", L"Language.Text(9069)",
                         L"Language.Text(9080)", L"Language.Text(9056)", L"Language.Text(9031)",
                         L"Language.Text(9032)", L"Language.Text(9033)", L"Language.Text(9034)",
                         L"Language.Text(9078)", L"Language.Text(9074)", L"Language.Text(9077)"};
    EXPECT_EQ(texts, expected);
}

TEST_F(LoadJournal, WirelessTestIsClosedAndOpenedBehindEachOfItsMoments) {
    MakeSets(&ModuleLists::VKSTests, &ModuleLists::VKSTestCount, 1);
    for (DynArray<String>* texts :
         {&State().VKSTestUKeys, &State().VKSHostUKeys, &State().VKSHostNames}) {
        texts->Redim(0, 0);
        (*texts)[0] = L"A";
    }
    State().Modul = aceVKSTemplate;
    engine->LoadEditor(&list, &tree);

    const Lines redrawn{L"Tree.SetExpanded(\"TST0\", false)", L"Tree.SetExpanded(\"TST0\", true)"};
    EXPECT_EQ(host->journal.LinesOf(L"Tree.SetExpanded"),
              Journal(L"Tree.SetExpanded(\"ETE\", false)", L"Tree.SetExpanded(\"BFT0\", false)",
                      redrawn, L"Tree.SetExpanded(\"ATT0\", false)", redrawn,
                      L"Tree.SetExpanded(\"LTE\", false)"));
}

TEST_F(LoadJournal, MatrixIsBuiltThenSortedThenFilledRowByRowThenOpened) {
    MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 1);
    State().VKSDUTIds.Redim(0, 0, 0, 2);
    State().VKSDUTIds(0, 0) = State().VKSDUTIds(0, 1) = State().VKSDUTIds(0, 2) = -1.0;
    Fill(State().VKSSteps[0], EnterList, {PathA});

    const Lines line{Child(L"STE0", L"CHI0STE0", L"T(9074): Unit --> Path A", L"SWU")};
    EXPECT_EQ(LoadTraced(aceVKSDUT),
              Journal(Started(EngineCode, L"LoadEditor"), DevicesAsked, TreeLinked,
                      Started(EditorCode, L"LoadEditor", L"Modul = 8"), Emptied,
                      Root(L"STE0", L"All Frequencies"), L"Tree.SetRootsSorted(true)",
                      Displayed(L"8", L"0", line, L"STE0", true),
                      L"Tree.SetExpanded(\"STE0\", true)", L"Tree.SetExpanded(\"CHI0STE0\", true)",
                      End(L"LoadEditor"), ListLinked, FirstKinds, Item(L"13", L"T(9074)", L"SWU"),
                      Item(L"4", L"T(9035)", L"EUT"), End(L"LoadEditor")));
}

TEST_F(LoadJournal, ARowWithoutANodeLeavesTwoTraceLinesAndNoCallOfTheTree) {
    MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 1);
    State().VKSDUTIds.Redim(0, 0, 0, 2);
    State().VKSDUTTemplate = 4;
    Fill(State().VKSSteps[0], EnterList, {PathA});

    EXPECT_EQ(LoadTraced(aceVKSDUT),
              Journal(Started(EngineCode, L"LoadEditor"), DevicesAsked, TreeLinked,
                      Started(EditorCode, L"LoadEditor", L"Modul = 8"), Emptied,
                      Started(EditorCode, L"DisplayTree", L"PerfTime = 8, Subrange = 0"),
                      End(L"DisplayTree"), End(L"LoadEditor"), ListLinked, FirstKinds,
                      Item(L"13", L"T(9074)", L"SWU"), Item(L"4", L"T(9035)", L"EUT"),
                      End(L"LoadEditor")));
}

TEST_F(LoadJournal, GroupOfTheMatrixIsSorted) {
    State().VKSInfByPower = true;
    State().VKSDUTPowerCount = 1;
    State().VKSDUTPowerNames.Redim(0, 0);
    State().VKSDUTPowerNames[0] = L"low";
    Open(aceVKSDUT);
    engine->LoadEditor(&list, &tree);

    EXPECT_EQ(host->journal.LinesOf(L"Tree.SetChildrenSorted"),
              Lines{L"Tree.SetChildrenSorted(\"TST-1_-1_-1\", true)"});
}

TEST_F(LoadJournal, SecondLoadOnTheSameTreeEmptiesItAndBuildsItAnew) {
    Fill(State().AziChart, EnterList, {Camera});
    Open(aceAziChart);
    const Lines before = Tree();
    tree.Select(tree.Find(L"LTE"));

    Open(aceAziChart);

    EXPECT_EQ(Tree(), before);
    EXPECT_FALSE(tree.Selected());
}

TEST_F(LoadJournal, SubrangeThatIsAddedShowsAtOnce) {
    State().MainSubrangeCount = 0;
    Open(aceTemplate);
    engine->AddSubrange(1);
    engine->AddSubrange(2);
    EXPECT_TRUE(IsThere(L"SUR0"));
    EXPECT_TRUE(IsThere(L"SUR1"));
    EXPECT_EQ(tree.Key(tree.Selected()), L"SUR0");
}

}  // namespace
}  // namespace ace::test
