/// A call that ends with error 10 because a list runs has changed nothing.
#include "support/fake_editor.h"
#include "support/list_agreement.h"
#include "support/lists_of_every_kind.h"
#include "support/store_fixture.h"

namespace ace::test {
namespace {

/// One wait in each list, held as a run of it would.
class RefusedCall : public EngineTest {
  protected:
    static p_Subrange Waits() {
        p_Subrange set;
        for (const ListFields& list : ActionLists) {
            Fill(set, list, {WaitFor(1)});
        }
        return set;
    }
    void FillSets(const NumberedSets& numbered, std::int32_t count) {
        MakeSets(numbered.sets, numbered.count, count);
        for (p_Subrange& set : State().*numbered.sets) {
            set = Waits();
        }
    }
    /// Runs `act` while an action of `set` runs, and answers its error.
    template <class Act>
    std::int32_t WhileRunning(p_Subrange& set, Act&& act) {
        const DynArray<p_Action>::Hold hold(set.Enter);
        return ErrorOf(act);
    }
    template <class Act>
    std::int32_t WhileRunning(DynArray<p_Subrange>& sets, Act&& act) {
        const DynArray<p_Subrange>::Hold outer(sets);
        return WhileRunning(sets[0], act);
    }
    template <class Held, class Act>
    void ExpectRefused(Held& held, Act&& act) {
        const Unchanged before(State());
        EXPECT_EQ(WhileRunning(held, act), 10);
        EXPECT_TRUE(Unchanged(State()) == before);
        EXPECT_THAT(ListAgreement::Breaches(State()), ::testing::IsEmpty());
    }
};

// ---- loading -----------------------------------------------------------------------------------

/// The switch-off list is the one that matters.
TEST_F(RefusedCall, AStartListThatLoadsItsModuleAgainStillSwitchesOffAndIsSavedWhole) {
    State().MainTest = Waits();
    FillSets(MainSubrangeSets, 2);
    engine->SaveActions(L"setup.ini");
    std::int32_t error = 0;
    host->onTimedMessage = [&] {
        error = ErrorOf([&] { engine->LoadActions(L"setup.ini", 0, aceTemplate); });
    };
    engine->StartTest();
    host->onTimedMessage = nullptr;
    EXPECT_EQ(error, 10);
    host->journal.Clear();
    engine->StopTest();
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1)));
    const sim::SimSections whole = host->files[L"setup.ini"];
    engine->SaveActions(L"setup.ini");
    EXPECT_EQ(host->files[L"setup.ini"], whole);
}

TEST_F(RefusedCall, ALoadOfAnyModuleAsksForAllListsThatItReplaces) {
    for (const ModuleRow& module : ModuleTable) {
        const std::int32_t number = module.moduleKind == aceVKSDUT ? 3 : 1;
        const auto load = [&] { engine->LoadActions(L"other.ini", number, module.moduleKind); };
        for (const FixedSet& fixed : module.AllFixed()) {
            State().*fixed.set = Waits();
            ExpectRefused(State().*fixed.set, load);
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            FillSets(numbered, 2);
            ExpectRefused(State().*numbered.sets, load);
        }
    }
    EXPECT_THAT(host->journal.LinesOf(L"SystemServices.OpenSettingsFile"), ::testing::IsEmpty());
}

/// Template 3 alone has global lists: the load of another one leaves them alone.
TEST_F(RefusedCall, TheMatrixOfAnotherTemplateCanBeLoadedWhileTheGlobalListsRun) {
    State().VKSDUTGlob = Waits();
    EXPECT_EQ(
        WhileRunning(State().VKSDUTGlob, [&] { engine->LoadActions(L"other.ini", 2, aceVKSDUT); }),
        0);
    EXPECT_EQ(State().VKSDUTTemplate, 2);
    EXPECT_EQ(State().VKSDUTGlob, Waits());
}

TEST_F(RefusedCall, WhatAnotherObjectRunsStandsInNobodysWay) {
    aceActionsEngine other(context);
    other.State().MainTest = Waits();
    EXPECT_EQ(WhileRunning(other.State().MainTest,
                           [&] { engine->LoadActions(L"other.ini", 1, aceTemplate); }),
              0);
    EXPECT_EQ(State().FileName, L"other.ini");
}

TEST_F(RefusedCall, ARefusedLoadIsReportedOnceAndAskedAgainWhenTheAnswerIs5) {
    State().MainTest = Waits();
    host->reportAnswers = {5, 5, 0};
    ExpectRefused(State().MainTest, [&] { engine->LoadActions(L"other.ini", 1, aceTemplate); });
    const String report = Reported(10, L"array is in use");
    EXPECT_THAT(TakeEffects(), ::testing::ElementsAre(report, report, report));
}

TEST_F(RefusedCall, ATestOfAWirelessTemplateKeepsItsPlaceWhileItIsRead) {
    host->files[L"tests.ini"] =
        sim::ParseSections(L"[ActionsOnTest1_VKS]\nVKS_UKey=A\nSUBSTEPS=0\n");
    context.Editor = std::make_shared<FakeEditor>(*host);
    std::vector<std::int32_t> errors;
    host->beforeCall = [&](StringView operation, const auto&) {
        if (operation == L"SettingsFile.GetLong") {
            errors.push_back(ErrorOf([&] { engine->Change(true); }));
            errors.push_back(
                ErrorOf([&] { engine->LoadActions(L"tests.ini", 0, aceVKSTemplate); }));
        }
    };
    engine->LoadActions(L"tests.ini", 1, aceVKSTemplate);
    host->beforeCall = nullptr;
    EXPECT_EQ(errors, (std::vector<std::int32_t>{10, 10}));
    EXPECT_EQ(State().VKSTestCount, 1);
    EXPECT_EQ(TextsOf(State().VKSTestUKeys), (Lines{L"A", L""}));
    EXPECT_THAT(ListAgreement::Breaches(State()), ::testing::IsEmpty());
}

/// A host that calls back while a save asks it for its separator.
TEST_F(RefusedCall, AListKeepsItsPlaceWhileItIsWritten) {
    engine->LoadActions(L"old.ini", 2, aceTemplate);
    State().MainTest = Waits();
    FillSets(ModuleTable[aceTemplate].numbered[0], 2);
    std::vector<std::int32_t> errors;
    host->beforeCall = [&](StringView operation, const auto&) {
        if (operation == L"Platform.DecimalSeparator") {
            errors.push_back(ErrorOf([&] { engine->LoadActions(L"no.ini", 0, aceTemplate); }));
        }
    };
    engine->SaveActions(L"new.ini");
    host->beforeCall = nullptr;
    // Four waits in the fixed set and in each of the two subranges.
    EXPECT_EQ(errors, std::vector<std::int32_t>(12, 10));
    EXPECT_EQ(host->files[L"new.ini"].count(L"ActionsOnSR2"), 1U);
    EXPECT_EQ(State().MainSubrangeCount, 2);
}

// ---- the editor --------------------------------------------------------------------------------

TEST_F(RefusedCall, ChangeSetsTheFlagAndTakesNoList) {
    const auto editor = std::make_shared<FakeEditor>(*host);
    editor->numbered.Redim(0, 2);
    editor->count = 3;
    context.Editor = editor;
    for (const ModuleRow& module : ModuleTable) {
        State().Modul = module.moduleKind;
        for (const FixedSet& fixed : module.AllFixed()) {
            State().*fixed.set = Waits();
            ExpectRefused(State().*fixed.set, [&] { engine->Change(true); });
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            FillSets(numbered, 2);
            ExpectRefused(State().*numbered.sets, [&] { engine->Change(true); });
        }
        EXPECT_TRUE(engine->Change());
    }
    EXPECT_THAT(TakeEffects(), ::testing::IsEmpty()) << "the editor is not asked";
}

// ---- the store ---------------------------------------------------------------------------------

TEST_F(RefusedCall, AMoveAndAnExchangeStillTellTheEditorOfWhatFollows) {
    FillSets(MainSubrangeSets, 3);
    ExpectRefused(State().MainSubranges, [&] { engine->MoveSubrange(2, 3); });
    ExpectRefused(State().MainSubranges, [&] { engine->SwapSubrange(1, 3); });
    EXPECT_FALSE(State().InternalSubrangeOp);
}

TEST_F(RefusedCall, ATestWhoseStepRunsStaysWithItsSteps) {
    State().Modul = aceVKSTemplate;
    FillModule(State(), aceVKSTemplate);
    ExpectRefused(State().VKSSteps, [&] { engine->DeleteSubrange(1, L"T1"); });
    EXPECT_EQ(WhileRunning(State().VKSSteps, [&] { engine->DeleteSubrange(2, L"T2"); }), 0)
        << "it has no steps";
    EXPECT_EQ(State().VKSTestCount, 1);
}

TEST_F(RefusedCall, AStepIsNeitherAddedNorNamed) {
    FillModule(State(), aceVKSTemplate);
    ExpectRefused(State().VKSSteps, [&] { engine->AddVKSStep(L"S9", L"T1", L"new"); });
    ExpectRefused(State().VKSTests, [&] { engine->AddSubrange(3, L"T3"); });
}

// ---- the matrix --------------------------------------------------------------------------------

class RefusedMatrixCall : public RefusedCall {
  protected:
    /// One row for each of two powers.
    RefusedMatrixCall() {
        State().Modul = aceVKSDUT;
        engine->SetVKSDUTInfluence(0, 0, 1);
        engine->AddVKSDUTFreq(L"2.4 GHz", 2.4e9);
        engine->AddVKSDUTBandwidthID(L"20 MHz");
        engine->AddVKSDUTPowerID(L"0 dBm");
        engine->AddVKSDUTPowerID(L"10 dBm");
        State().VKSReplaceVars.count = 1;
        for (p_Subrange& row : State().VKSSteps) {
            row = Waits();
        }
    }
};

TEST_F(RefusedMatrixCall, APowerIsNotAddedAndMadeAgainLaterItStandsOnce) {
    const auto add = [&] { engine->AddVKSDUTPowerID(L"20 dBm"); };
    ExpectRefused(State().VKSSteps, add);
    add();
    EXPECT_EQ(State().VKSDUTPowerCount, 3);
    EXPECT_EQ(State().VKSStepCount, 3);
    EXPECT_EQ(State().VKSDUTPowerNames[2], L"20 dBm");
}

TEST_F(RefusedMatrixCall, InfluenceAndTablesStayAsTheyAre) {
    ExpectRefused(State().VKSSteps, [&] { engine->SetVKSDUTInfluence(1, 1, 1); });
    ExpectRefused(State().VKSSteps, [&] { engine->SetVKSDUTInfluence(0, 0, 0); });
    ExpectRefused(State().VKSSteps, [&] { engine->DeleteVKSDUTPowerID(1); });
}

/// Powers and bandwidths have no rows of their own and could go; the frequency behind them can't.
TEST_F(RefusedMatrixCall, AllIsDeletedOrNothing) {
    engine->SetVKSDUTInfluence(1, 0, 0);
    ExpectRefused(State().VKSSteps, [&] { engine->DeleteVKSDUTAll(); });
    EXPECT_EQ(State().VKSDUTPowerCount, 2);
    EXPECT_EQ(State().VKSDUTBandwidthCount, 1);
}

/// Only error 10 puts back: the flags stand before the rows are made anew.
TEST_F(RefusedMatrixCall, AnotherErrorLeavesWhatItLeavesWhileNothingRuns) {
    host->faults.FailCall(2, 4242);
    EXPECT_EQ(WhileRunning(State().VKSSteps, [&] { engine->SetVKSDUTInfluence(1, 0, 1); }), 4242);
    EXPECT_TRUE(State().VKSInfByFreq);
    host->faults.FailCall(2, 4242);
    EXPECT_EQ(ErrorOf([&] { engine->SetVKSDUTInfluence(0, 0, 1); }), 4242);
    EXPECT_FALSE(State().VKSInfByFreq);
}

TEST_F(RefusedMatrixCall, WhatLeavesTheRowsAloneIsDone) {
    DynArray<p_Subrange>& rows = State().VKSSteps;
    EXPECT_EQ(WhileRunning(rows, [&] { engine->AddVKSDUTPowerID(L"renamed", 1); }), 0);
    EXPECT_EQ(WhileRunning(rows, [&] { engine->AddVKSDUTFreq(L"5 GHz", 5e9); }), 0);
    EXPECT_EQ(WhileRunning(rows, [&] { engine->DeleteVKSDUTBandwidthID(0); }), 0);
    EXPECT_EQ(State().VKSDUTPowerNames[1], L"renamed");
    EXPECT_EQ(State().VKSDUTFreqCount, 2);
    EXPECT_EQ(State().VKSDUTBandwidthCount, 0);
    EXPECT_EQ(State().VKSStepCount, 2);
}

}  // namespace
}  // namespace ace::test
