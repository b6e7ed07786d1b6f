#include "editor/mouse_acts.h"
#include "editor/shown_actions.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TreeDoubleClick : public MouseTest {
  protected:
    static String Begins(const String& procedure, const String& message = {}) {
        return Start(L"frmEditor (Code)", procedure, message);
    }
    static sim::FormAct Shows(const String& words) {
        return sim::Do(
            [words](Form& form) { EXPECT_EQ(form.Find<TextBox>(L"txtMessage")->text, words); });
    }
};

TEST_F(TreeDoubleClick, OnALineTheDialogOpensWithItsAction) {
    Fill(State().MainTest, LeaveList, {Tell(L"first"), Tell(L"second")});
    OpenWhole(aceTemplate);
    ModuleLists expected = Store();
    Fill(expected.MainTest, LeaveList, {Tell(L"first"), Tell(L"other")});
    ExpectDialog({Shows(L"second"), sim::Type(L"txtMessage", L"other"), sim::Press(L"cmdOK")});
    EXPECT_TRUE(tree.DoubleClick(L"CHI1LTE"));
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden));
    ExpectLists(expected, true);
}

TEST_F(TreeDoubleClick, ACancelledDialogChangesNothing) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    ExpectDialog({sim::Type(L"txtWait", L"9"), sim::Press(L"cmdCancel")});
    EXPECT_TRUE(tree.DoubleClick(L"CHI0ESR1"));
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden));
    ExpectLists(before, false);
}

TEST_F(TreeDoubleClick, AnActionThatIsConfirmedAsItWasIsNoChange) {
    OpenWhole(aceTemplate);
    const ModuleLists before = Store();
    ExpectOk();
    EXPECT_TRUE(tree.DoubleClick(L"CHI0ESR1"));
    ExpectLists(before, false);
}

TEST_F(TreeDoubleClick, OnAMomentOrAGroupNothingHappens) {
    for (std::int32_t kind = aceTemplate; kind <= aceVKSDUT; ++kind) {
        OpenWhole(static_cast<aceModul>(kind), kind == aceVKSDUT ? RowsInGroups : RowsAsRoots);
        const ModuleLists before = Store();
        for (const String& key : AllKeys()) {
            if (!key.starts_with(L"CHI")) {
                EXPECT_TRUE(tree.DoubleClick(key));
                EXPECT_THAT(Happened(), IsEmpty()) << testing::PrintToString(key);
            }
        }
        ExpectLists(before, false);
    }
}

TEST_F(TreeDoubleClick, OnALineOfAKindWithoutFieldsNothingIsToBeSeen) {
    Fill(State().MoniChannels[0], EnterList,
         {Action(atProtRec), Action(atTestStop), Action(atGotoSingle), Action(atStopLevSweep),
          Action(atNbBbEtsi), Action(atParkAcc)});
    OpenWhole(aceMonitoring);
    const ModuleLists before = Store();
    for (int i = 0; i < 6; ++i) {
        EXPECT_TRUE(tree.DoubleClick(L"CHI" + std::to_wstring(i) + L"NGO0"));
        EXPECT_THAT(Happened(), IsEmpty()) << i;
    }
    ExpectLists(before, false);
}

TEST_F(TreeDoubleClick, WithNothingSelectedNothingHappens) {
    OpenWhole(aceTemplate);
    EXPECT_TRUE(tree.DoubleClick(std::nullopt));
    EXPECT_THAT(Happened(), IsEmpty());
    EXPECT_EQ(SelectedKey(), L"");
}

TEST_F(TreeDoubleClick, BesideTheNodesItIsThatOfTheSelectedLine) {
    OpenWhole(aceTemplate);
    Select(L"CHI0ESR1");
    ExpectCancel();
    EXPECT_TRUE(tree.DoubleClick(std::nullopt));
    EXPECT_THAT(Happened(), ElementsAre(DialogShown, DialogHidden));
}

// ---- traces and failures -----------------------------------------------------------------------

TEST_F(TreeDoubleClick, OnAMomentOnlyTheDoubleClickIsTraced) {
    OpenWhole(aceTemplate);
    host->tracing = true;
    EXPECT_TRUE(tree.DoubleClick(L"ETE"));
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.WriteLine"),
              Journal(Begins(L"m_View_DblClick"), End(L"m_View_DblClick")));
}

TEST_F(TreeDoubleClick, AnEditIsTracedInsideTheDoubleClick) {
    Fill(State().MainTest, EnterList, {Action(atProtRec)});
    OpenWhole(aceTemplate);
    host->tracing = true;
    EXPECT_TRUE(tree.DoubleClick(L"CHI0ETE"));
    EXPECT_EQ(
        host->journal.LinesOf(L"TraceLog.WriteLine"),
        Journal(Begins(L"m_View_DblClick"), Begins(L"GetAction"), Begins(L"GetPosition"),
                End(L"GetPosition"), End(L"GetAction"), Begins(L"ShowEditor", L"AddNew = False"),
                Begins(L"ModifyAction"), Begins(L"GetPosition"), End(L"GetPosition"),
                Begins(L"ChangeAction"), End(L"ChangeAction"),
                Begins(L"DisplayTree", L"PerfTime = 0, Subrange = 0"), End(L"DisplayTree"),
                End(L"ModifyAction"), End(L"ShowEditor"), End(L"m_View_DblClick")));
}

TEST_F(TreeDoubleClick, AFailureIsReportedAndComesOutAtTheTree) {
    OpenWhole(aceTemplate);
    host->faults.FailOperation(L"FormHost.ShowModal", 1, 57);
    EXPECT_EQ(ErrorOf([&] { tree.DoubleClick(L"CHI0ETE"); }), 57);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 2U)
        << "of the dialog and of the double click";
}

}  // namespace
}  // namespace ace::test
