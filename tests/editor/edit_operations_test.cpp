#include "editor/editor_fixture.h"
#include "support/every_kind.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const String Form = L"frmEditor (Code)";

class EditOperations : public EditorTest {
  protected:
    /// A template whose start list has waits of 1, 2 and 3 seconds.
    void OpenThreeWaits() {
        Fill(State().MainTest, EnterList, {WaitFor(1000), WaitFor(2000), WaitFor(3000)});
        Open(aceTemplate);
    }
    /// The second of them has no record and no line.
    void OpenWithASkippedEntry() {
        Fill(State().MainTest, EnterList, {WaitFor(1000), Broken(), WaitFor(3000)});
        Open(aceTemplate);
    }
    /// Opens and selects, with the trace on.
    void Trace(const String& key) {
        OpenThreeWaits();
        Select(key);
        host->tracing = true;
    }
    static String Shown(int seconds) { return L"T(9063): " + std::to_wstring(seconds) + L".000 s"; }
    static String Removed(const String& key) { return L"Tree.Remove(\"" + key + L"\")"; }
    static String Added(int index, int seconds) {
        return L"Tree.AddChild(\"ETE\", \"CHI" + std::to_wstring(index) + L"ETE\", \"" +
               Shown(seconds) + L"\", \"WAI\")";
    }
    static Lines Traced(const String& procedure) {
        return {Start(Form, procedure, L""), End(procedure)};
    }
    /// What a display of the start list does between its two lines.
    static Lines Displayed(const Lines& calls) {
        return Journal(Start(Form, L"DisplayTree", L"PerfTime = 0, Subrange = 0"), calls,
                       End(L"DisplayTree"));
    }
    /// All waits of the start list make way for these.
    static Lines Redrawn(const std::vector<int>& seconds, bool expanded = true) {
        Lines calls = {Removed(L"CHI0ETE"), Removed(L"CHI1ETE"), Removed(L"CHI2ETE")};
        for (std::size_t i = 0; i < seconds.size(); ++i) {
            calls.push_back(Added(static_cast<int>(i), seconds[i]));
        }
        calls.push_back(expanded ? L"Tree.SetExpanded(\"ETE\", true)"
                                 : L"Tree.SetExpanded(\"ETE\", false)");
        return Displayed(calls);
    }
    void ExpectStart(const std::vector<p_Action>& actions) {
        p_Subrange set;
        Fill(set, EnterList, actions);
        EXPECT_EQ(Parts().lists.MainTest, set);
        EXPECT_EQ(State().MainTest, set);
    }
    /// The flag when each call of the tree comes.
    std::vector<bool> ChangeAtCallsOf(StringView operation, const std::function<void()>& act) {
        std::vector<bool> flags;
        host->beforeCall = [&](StringView called, sim::CallArguments) {
            if (called == operation) {
                flags.push_back(engine->Change());
            }
        };
        act();
        host->beforeCall = nullptr;
        return flags;
    }
};

// ---- AddAction ---------------------------------------------------------------------------------

TEST_F(EditOperations, AnActionThatIsAddedOnAMomentGoesBehindItsLastLine) {
    OpenThreeWaits();
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(2), Shown(3), Shown(9)));
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(3000), WaitFor(9000)});
    EXPECT_TRUE(engine->Change());
}

TEST_F(EditOperations, AnActionThatIsAddedOnALineGoesDirectlyBehindIt) {
    OpenThreeWaits();
    Select(L"CHI0ETE");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(9), Shown(2), Shown(3)));
    ExpectStart({WaitFor(1000), WaitFor(9000), WaitFor(2000), WaitFor(3000)});
}

TEST_F(EditOperations, AnAddedActionIsShownInItsExpandedMoment) {
    Trace(L"CHI2ETE");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_EQ(TakeEffects(), Journal(Start(Form, L"AddAction", L""), Traced(L"GetPosition"),
                                     Redrawn({1, 2, 3, 9}), End(L"AddAction")));
}

TEST_F(EditOperations, AnAddedActionIsShownBeforeTheStoreHearsOfIt) {
    OpenThreeWaits();
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    EXPECT_THAT(ChangeAtCallsOf(L"Tree.SetExpanded", [&] { AddAction(Parts(), true); }),
                ElementsAre(false));
    EXPECT_TRUE(engine->Change());
}

TEST_F(EditOperations, AnActionThatCannotBeShownIsInTheEditorAndNotInTheStore) {
    OpenThreeWaits();
    Select(L"ETE");
    HoldNew(Action(atNotify, aceWait{1.0}));
    EXPECT_EQ(ErrorOf([&] { AddAction(Parts(), true); }), 13);
    EXPECT_EQ(Parts().lists.MainTest.EnterCount, 4);
    EXPECT_EQ(State().MainTest.EnterCount, 3);
    EXPECT_FALSE(engine->Change());
    Select(L"LTE");
    HoldNew(WaitFor(1000));
    AddAction(Parts(), true);
    EXPECT_EQ(State().MainTest, Parts().lists.MainTest) << "the next edit brings it";
    EXPECT_EQ(State().MainTest.EnterCount, 4);
}

TEST_F(EditOperations, BehindAnEntryWithoutALineAnActionLandsTooEarly) {
    OpenWithASkippedEntry();
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    ExpectStart({WaitFor(1000), Broken(), WaitFor(9000), WaitFor(3000)});
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(9), Shown(3)));
}

TEST_F(EditOperations, AKindWithoutARecordIsAddedWithoutOne) {
    Open(aceMonitoring);
    Select(L"ETE");
    HoldNew(Action(atTestStop));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(L"T(9070)"));
    EXPECT_EQ(State().MoniEut.Enter[0], Action(atTestStop));
}

TEST_F(EditOperations, ACommentIsAddedWithNoTextAtAll) {
    Open(aceMonitoring);
    Select(L"ETE");
    HoldNew(Comment(false));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(L"T(9069)"));
    EXPECT_EQ(State().MoniEut.Enter[0], Comment(false));
}

TEST_F(EditOperations, OnASubrangeAnActionGoesBehindTheLastOneOfItsEntry) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
    Fill(State().MainSubranges[1], EnterList, {WaitFor(1000), WaitFor(2000)});
    Open(aceTemplate);
    Select(L"SUR1");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"ESR1"), ElementsAre(Shown(1), Shown(2), Shown(9)));
    EXPECT_EQ(State().MainSubranges[1].EnterCount, 3);
}

TEST_F(EditOperations, OnAChannelAnActionGoesToTheFrontOfTheNoGoList) {
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    Fill(State().MoniChannels[0], EnterList, {WaitFor(1000), WaitFor(2000)});
    Open(aceMonitoring);
    Select(L"CHA0");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"NGO0"), ElementsAre(Shown(9), Shown(1), Shown(2)));
}

TEST_F(EditOperations, OnTheLoopOfAMonitoringAnActionGoesBehindItsFirstList) {
    Fill(State().MoniLoop, EnterList, {WaitFor(1000)});
    Open(aceMonitoring);
    Select(L"ATL");
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    EXPECT_THAT(LinesBelow(L"BFT"), ElementsAre(Shown(1), Shown(9)));
    EXPECT_EQ(State().MoniLoop.EnterCount, 2);
}

// ---- ModifyAction ------------------------------------------------------------------------------

TEST_F(EditOperations, AModifiedLineHasTheHeldAction) {
    OpenThreeWaits();
    Select(L"CHI1ETE");
    HoldNew(WaitFor(9000));
    ModifyAction(Parts());
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(1), Shown(9), Shown(3)));
    ExpectStart({WaitFor(1000), WaitFor(9000), WaitFor(3000)});
    EXPECT_TRUE(engine->Change());
}

TEST_F(EditOperations, AModificationIsComparedThenShown) {
    Trace(L"CHI1ETE");
    HoldNew(WaitFor(9000));
    ModifyAction(Parts());
    EXPECT_EQ(TakeEffects(),
              Journal(Start(Form, L"ModifyAction", L""), Traced(L"GetPosition"),
                      Start(Form, L"ChangeAction", L""), L"Utilities.IsEqual(9000, 2000)",
                      End(L"ChangeAction"), Redrawn({1, 9, 3}), End(L"ModifyAction")));
}

TEST_F(EditOperations, AModificationThatChangesNothingIsShownAnewAndNoChange) {
    Trace(L"CHI1ETE");
    HoldNew(WaitFor(2000));
    ModifyAction(Parts());
    EXPECT_EQ(TakeEffects(),
              Journal(Start(Form, L"ModifyAction", L""), Traced(L"GetPosition"),
                      Start(Form, L"ChangeAction", L""), L"Utilities.IsEqual(2000, 2000)",
                      End(L"ChangeAction"), Redrawn({1, 2, 3}), End(L"ModifyAction")));
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditOperations, AModifiedActionIsInTheStoreBeforeItIsShown) {
    OpenThreeWaits();
    Select(L"CHI1ETE");
    HoldNew(Tell(L"Close the door"));
    host->faults.FailOperation(L"Tree.AddChild", 1, 57);
    EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), 57);
    ExpectStart({WaitFor(1000), Tell(L"Close the door"), WaitFor(3000)});
    EXPECT_TRUE(engine->Change());
}

TEST_F(EditOperations, OnAMomentItsLastEntryIsModified) {
    OpenThreeWaits();
    Select(L"ETE");
    HoldNew(WaitFor(9000));
    ModifyAction(Parts());
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(9000)});
}

TEST_F(EditOperations, AMomentWithoutLinesHasNoEntryToModify) {
    OpenThreeWaits();
    Select(L"LTE");
    EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), 9);
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditOperations, BehindAnEntryWithoutALineAModificationHitsTheOneBefore) {
    OpenWithASkippedEntry();
    Select(L"CHI2ETE");
    HoldNew(WaitFor(9000));
    EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), 13) << "a wait without a record";
    HoldNew(Tell(L"Close the door"));
    ModifyAction(Parts());
    ExpectStart({WaitFor(1000), Tell(L"Close the door"), WaitFor(3000)});
}

// ---- MoveAction --------------------------------------------------------------------------------

TEST_F(EditOperations, AMoveUpOrDownExchangesNeighbours) {
    OpenThreeWaits();
    MoveAction(Parts(), ptStartTest, 0, 1, 0);
    ExpectStart({WaitFor(2000), WaitFor(1000), WaitFor(3000)});
    MoveAction(Parts(), ptStartTest, 0, 1, 2);
    ExpectStart({WaitFor(2000), WaitFor(3000), WaitFor(1000)});
    EXPECT_THAT(LinesBelow(L"ETE"), ElementsAre(Shown(2), Shown(3), Shown(1)));
    EXPECT_TRUE(engine->Change());
}

TEST_F(EditOperations, AMoveIsShownInItsExpandedMoment) {
    Trace(L"LTE");
    MoveAction(Parts(), ptStartTest, 0, 2, 0);
    EXPECT_EQ(TakeEffects(),
              Journal(Start(Form, L"MoveAction", L""), Redrawn({3, 1, 2}), End(L"MoveAction")));
}

TEST_F(EditOperations, AMoveToWhereTheEntryStandsOrOutsideTheListIsAChangeAllTheSame) {
    for (const auto& [from, to] : {std::pair{1, 1}, {-1, 0}, {0, -1}, {4, 0}, {0, 4}}) {
        OpenThreeWaits();
        engine->Change(false);
        MoveAction(Parts(), ptStartTest, 0, from, to);
        ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(3000)});
        EXPECT_TRUE(engine->Change()) << from << " " << to;
    }
}

TEST_F(EditOperations, AMoveToTheCountEndsAtTheArrayAndIsNoChange) {
    OpenThreeWaits();
    EXPECT_EQ(ErrorOf([&] { MoveAction(Parts(), ptStartTest, 0, 0, 3); }), 9);
    EXPECT_FALSE(engine->Change());
    EXPECT_THAT(host->journal.LinesOf(L"Tree"), IsEmpty());
}

TEST_F(EditOperations, AMovedActionIsShownBeforeTheStoreHearsOfIt) {
    OpenThreeWaits();
    EXPECT_THAT(
        ChangeAtCallsOf(L"Tree.SetExpanded", [&] { MoveAction(Parts(), ptStartTest, 0, 0, 1); }),
        ElementsAre(false));
    EXPECT_TRUE(engine->Change());
}

// ---- GetAction and GetSelectedList -------------------------------------------------------------

TEST_F(EditOperations, ACopyOfALineIsHeldWithItsRecordAndChangesNothing) {
    OpenThreeWaits();
    Select(L"CHI1ETE");
    HoldNew(Tell(L"before"));
    GetAction(Parts());
    EXPECT_EQ(Parts().held.Action, WaitFor(2000));
    EXPECT_EQ(Parts().held.Records.Wait, aceWait{2000});
    EXPECT_EQ(Parts().held.Records.Notify.Message, L"before") << "the other records stay";
    EXPECT_THAT(TakeEffects(), IsEmpty());
    EXPECT_FALSE(engine->Change());
}

TEST_F(EditOperations, EveryRecordIsHeldInTheWorkingRecordOfItsKind) {
    const std::vector<p_Action> actions = {
        WaitFor(1), Tell(L"a"), Command(0), OnDevice(atCheckEut, L"EUT"), Follow(L"G"), Macro()};
    for (const p_Action& action : actions) {
        Fill(State().MainTest, EnterList, {action});
        Open(aceTemplate);
        Select(L"CHI0ETE");
        Parts().held = {};
        GetAction(Parts());
        EXPECT_EQ(ActionFromRecords(Parts().held), action) << action.ActionType;
    }
}

TEST_F(EditOperations, ALineWithAnEmptyOrABareParameterIsHeldAsItIs) {
    Fill(State().MainTest, EnterList, {Action(atProtRec), Action(atTestStop, 30)});
    Open(aceTemplate);
    Select(L"CHI0ETE");
    GetAction(Parts());
    EXPECT_EQ(Parts().held.Action, Action(atProtRec));
    Select(L"CHI1ETE");
    GetAction(Parts());
    EXPECT_EQ(Parts().held.Action, Action(atTestStop, 30));
    EXPECT_EQ(ActionFromRecords(Parts().held), Action(atTestStop));
}

TEST_F(EditOperations, TheListOfALineHasItsCountAndTheLinesPlaceFrom0) {
    OpenThreeWaits();
    Select(L"CHI2ETE");
    std::int32_t count = 77;
    std::int32_t index = 77;
    GetSelectedList(Parts(), count, index);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(index, 2);
    EXPECT_THAT(TakeEffects(), IsEmpty());
}

TEST_F(EditOperations, TheCountOfTheListIsThatOfItsEntriesAndNotOfItsLines) {
    OpenWithASkippedEntry();
    Select(L"CHI2ETE");
    std::int32_t count = 77;
    std::int32_t index = 77;
    GetSelectedList(Parts(), count, index);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(index, 1);
}

TEST_F(EditOperations, AnEmptyMomentHasNoLineInItsList) {
    OpenThreeWaits();
    Select(L"LTE");
    std::int32_t count = 77;
    std::int32_t index = 77;
    GetSelectedList(Parts(), count, index);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(index, -1);
    HoldNew(Tell(L"before"));
    EXPECT_EQ(ErrorOf([&] { GetAction(Parts()); }), 9);
    EXPECT_EQ(Parts().held.Action, Tell(L"before"));
}

TEST_F(EditOperations, ALineOfTheHostsOwnHasNoEntryInTheList) {
    OpenThreeWaits();
    tree.AddChild(tree.Find(L"ETE"), L"CHI9ETE", L"", L"");
    Select(L"CHI9ETE");
    EXPECT_EQ(ErrorOf([&] { ModifyAction(Parts()); }), 9);
    EXPECT_EQ(ErrorOf([&] { GetAction(Parts()); }), 9);
    EXPECT_FALSE(engine->Change());
    HoldNew(WaitFor(9000));
    AddAction(Parts(), true);
    ExpectStart({WaitFor(1000), WaitFor(2000), WaitFor(3000), WaitFor(9000)});
}

TEST_F(EditOperations, TheTwoThatOnlyLookWriteTraceLinesToo) {
    Trace(L"CHI1ETE");
    GetAction(Parts());
    EXPECT_EQ(TakeEffects(),
              Journal(Start(Form, L"GetAction", L""), Traced(L"GetPosition"), End(L"GetAction")));
    std::int32_t count = 0;
    std::int32_t index = 0;
    GetSelectedList(Parts(), count, index);
    EXPECT_EQ(TakeEffects(), Journal(Start(Form, L"GetSelectedList", L""), Traced(L"GetPosition"),
                                     End(L"GetSelectedList")));
}

}  // namespace
}  // namespace ace::test
