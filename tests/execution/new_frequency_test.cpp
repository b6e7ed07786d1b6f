#include "support/engine_fixture.h"

namespace ace::test {
namespace {

const String EngineCode = L"aceActionsEngine (Code)";

/// The modules with an every-frequency list.
struct ListRow {
    aceModul moduleKind;
    p_Subrange ModuleLists::*set;
};
const ListRow Lists[] = {
    {aceTemplate, &ModuleLists::MainTest},
    {aceMonitoring, &ModuleLists::MoniEut},
    {aceEMSAutoTemplateGeneral, &ModuleLists::EMSAutoGeneral},
    {aceEMIAutoTemplate, &ModuleLists::EMIAutoTest},
    {aceAziChart, &ModuleLists::AziChart},
};
constexpr std::int32_t WithoutList[] = {
    aceEMSAutoTemplate, aceTSTemplate, aceVKSTemplate, aceVKSDUT, 9, -1};

class NewFrequencyTest : public EngineTest {
  protected:
    void Serve(std::int32_t moduleKind) { State().Modul = static_cast<aceModul>(moduleKind); }
    /// The list of a template.
    void FillFreq(const std::vector<p_Action>& actions) {
        Fill(State().MainTest, FreqList, actions);
    }
    p_Action& Element(const ListRow& row) { return (State().*row.set).Freq[0]; }
};

// ---- which list runs ---------------------------------------------------------------------------

TEST_F(NewFrequencyTest, ModuleRunsItsEveryFrequencyListAndNoOther) {
    std::int32_t milliseconds = 0;
    for (const ListRow& row : Lists) {
        Fill(State().*row.set, FreqList, {WaitFor(++milliseconds)});
        Fill(State().*row.set, EnterList, {Action(atTestStop)});
    }
    milliseconds = 0;
    for (const ListRow& row : Lists) {
        Serve(row.moduleKind);
        State().LastFrequency = -1.0;
        EXPECT_FALSE(engine->NewFrequency(30e6, false)) << row.moduleKind;
        EXPECT_EQ(TakeEffects(),
                  Journal(Compared(L"30000000", L"-1"), Yielded, Waited(++milliseconds)))
            << row.moduleKind;
    }
}

TEST_F(NewFrequencyTest, OtherModulesHaveNoListButKeepTheFrequency) {
    for (const std::int32_t moduleKind : WithoutList) {
        Serve(moduleKind);
        State().LastFrequency = -1.0;
        EXPECT_FALSE(engine->NewFrequency(30e6, true)) << moduleKind;
        EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"-1"))) << moduleKind;
        EXPECT_EQ(State().LastFrequency, 30e6) << moduleKind;
    }
}

TEST_F(NewFrequencyTest, SameFrequencyTwiceRunsNothingTheSecondTimeAndStillForgetsTheRequests) {
    FillFreq({WaitFor(1)});
    engine->NewFrequency(30e6, false);
    TakeEffects();
    context.EutCheckRequest = acEutStopTest;
    context.EutCheckComment = L"no signal";

    EXPECT_FALSE(engine->NewFrequency(30e6, false));

    EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"30000000")));
    EXPECT_EQ(context.EutCheckRequest, 0);
    EXPECT_EQ(context.EutCheckComment, L"");
}

TEST_F(NewFrequencyTest, UnchangedFrequencyRunsTheListWhenItIsForced) {
    FillFreq({WaitFor(1)});
    engine->NewFrequency(30e6, false);
    TakeEffects();

    EXPECT_FALSE(engine->NewFrequency(30e6, true));

    EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"30000000"), Yielded, Waited(1)));
}

TEST_F(NewFrequencyTest, FirstFrequencyAfterTheStartRunsTheListUnlessItIsMinusOne) {
    FillFreq({WaitFor(1)});
    State().LastFrequency = 30e6;
    engine->StartTest();
    TakeEffects();

    engine->NewFrequency(-1.0, false);
    EXPECT_EQ(TakeEffects(), Journal(Compared(L"-1", L"-1")));

    engine->NewFrequency(30e6, false);
    EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"-1"), Yielded, Waited(1)));
}

TEST_F(NewFrequencyTest, RequestsAreForgottenBeforeTheFrequenciesAreCompared) {
    context.EutCheckRequest = acEutStopTest;
    context.EutCheckComment = L"no signal";
    host->faults.FailOperation(L"Utilities.IsEqual", 1, 77);

    EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(30e6, false); }), 77);

    EXPECT_EQ(context.EutCheckRequest, 0);
    EXPECT_EQ(context.EutCheckComment, L"");
    EXPECT_EQ(State().LastFrequency, 0.0);
}

TEST_F(NewFrequencyTest, FrequencyIsTheLastOneAlsoWhenItsListFails) {
    FillFreq({Broken()});
    EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(30e6, false); }), 13);
    TakeEffects();

    EXPECT_FALSE(engine->NewFrequency(30e6, false));

    EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"30000000")));
}

// ---- which kinds run ---------------------------------------------------------------------------

/// A kind at the change of the frequency. A kind that runs fails here, because its record is
/// missing: once for the action and once for the moment; where the moment writes the frequency into
/// the record first, only once.
struct KindRow {
    std::int32_t kind;
    std::int32_t reports;
};
constexpr KindRow Kinds[] = {
    {atWait, 2},         {atNotify, 0},   {atRemote, 2},     {atSetDevice, 2},  {atCheckEut, 2},
    {atTrackFreq, 1},    {atComment, 0},  {atProtRec, 0},    {atTestStop, 0},   {atGotoSingle, 0},
    {atStopLevSweep, 0}, {atNbBbEtsi, 0}, {atSwitchAmp, 0},  {atSwitchUnit, 2}, {atAPI, 1},
    {atParkAcc, 0},      {atQuestion, 0}, {atMonitorEUT, 0}, {18, 0},           {-1, 0},
};

TEST_F(NewFrequencyTest, OnlySevenKindsRunAtAFrequencyInEveryModule) {
    for (const ListRow& list : Lists) {
        Serve(list.moduleKind);
        for (const KindRow& row : Kinds) {
            Fill(State().*list.set, FreqList, {Action(static_cast<p_ActionTypes>(row.kind))});
            const auto run = [&] { return engine->NewFrequency(30e6, true); };
            EXPECT_EQ(ErrorOf(run), row.reports > 0 ? 13 : 0) << row.kind;
            EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(),
                      static_cast<std::size_t>(row.reports))
                << row.kind;
            host->journal.Clear();
        }
    }
}

TEST_F(NewFrequencyTest, MessagesRunBeforeEveryElementAlsoBeforeThoseThatAreSkipped) {
    FillFreq({Action(atTestStop), WaitFor(1), Tell(L"unheard"), WaitFor(2)});

    EXPECT_FALSE(engine->NewFrequency(30e6, false));

    EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"0"), Yielded, Yielded, Waited(1),
                                     Yielded, Yielded, Waited(2)));
}

TEST_F(NewFrequencyTest, SkippedActionsAreNotCalled) {
    FillFreq({Action(atTestStop), Action(atParkAcc), Action(atQuestion), Tell(L"unheard")});
    host->tracing = true;

    EXPECT_FALSE(engine->NewFrequency(30e6, false));

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineCode, L"NewFrequency", L"Freq = 30000000"),
                                     Compared(L"30000000", L"0"), Yielded, Yielded, Yielded,
                                     Yielded, End(L"NewFrequency")));
}

// ---- the frequency in the records --------------------------------------------------------------

TEST_F(NewFrequencyTest, TrackingOfATemplateGetsTheFrequencyAndKeepsItsRecord) {
    aceTrackFreq record;
    record.DelayTime = 7;
    FillFreq({Action(atTrackFreq, record)});

    EXPECT_FALSE(engine->NewFrequency(30e6, false));
    EXPECT_FALSE(engine->NewFrequency(31e6, false));

    record.Freq = 31e6;
    EXPECT_EQ(State().MainTest.Freq[0].Parameter, ActionParameter(record));
    EXPECT_EQ(context.DispatcherRecords.TrackFreq, record);
}

TEST_F(NewFrequencyTest, TrackingOutsideATemplateLosesItsRecordAndFailsTwiceReported) {
    for (const ListRow& row : Lists) {
        if (row.moduleKind == aceTemplate) {
            continue;
        }
        Serve(row.moduleKind);
        State().LastFrequency = -1.0;
        Fill(State().*row.set, FreqList, {Action(atTrackFreq, aceTrackFreq{}), WaitFor(1)});

        EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(30e6, false); }), 13) << row.moduleKind;

        EXPECT_EQ(TakeEffects(), Journal(Compared(L"30000000", L"-1"), Yielded, MismatchReported,
                                         MismatchReported))
            << row.moduleKind;
        EXPECT_EQ(Element(row).Parameter, ActionParameter(std::int32_t{5})) << row.moduleKind;
    }
}

TEST_F(NewFrequencyTest, LostRecordFailsAtEveryLaterFrequencyBeforeItsActionRuns) {
    for (const ListRow& row : Lists) {
        Serve(row.moduleKind);
        State().LastFrequency = -1.0;
        Fill(State().*row.set, FreqList, {Action(atTrackFreq, std::int32_t{5})});

        EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(31e6, false); }), 13) << row.moduleKind;

        EXPECT_EQ(TakeEffects(), Journal(Compared(L"31000000", L"-1"), Yielded, MismatchReported))
            << row.moduleKind;
        EXPECT_EQ(Element(row).Parameter, ActionParameter(std::int32_t{5})) << row.moduleKind;
    }
}

TEST_F(NewFrequencyTest, MacroGetsTheFrequencyIntoItsRecordInEveryModule) {
    for (const ListRow& row : Lists) {
        Serve(row.moduleKind);
        State().LastFrequency = -1.0;
        aceAPI record;
        record.Program = L"macro";
        Fill(State().*row.set, FreqList, {Action(atAPI, record)});

        ErrorOf([&] { engine->NewFrequency(30e6, false); });

        record.Freq = 30e6;
        EXPECT_EQ(Element(row).Parameter, ActionParameter(record)) << row.moduleKind;
        EXPECT_EQ(context.DispatcherRecords.Api, record) << row.moduleKind;
    }
}

TEST_F(NewFrequencyTest, RecordsOfOtherMomentsKeepTheirFrequency) {
    aceAPI record;
    Fill(State().MainTest, EnterList, {Action(atAPI, record)});
    FillFreq({WaitFor(1)});

    engine->NewFrequency(30e6, false);

    EXPECT_EQ(State().MainTest.Enter[0].Parameter, ActionParameter(record));
}

// ---- trace lines and errors --------------------------------------------------------------------

TEST_F(NewFrequencyTest, StartLineTellsTheFrequencyInTheGeneralFormatOfTheLocale) {
    host->tracing = true;
    host->decimalSeparator = L',';

    engine->NewFrequency(0.5, false);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineCode, L"NewFrequency", L"Freq = 0,5"),
                                     Compared(L"0.5", L"0"), End(L"NewFrequency")));
}

TEST_F(NewFrequencyTest, EndLineIsMissingAfterAnError) {
    host->tracing = true;
    FillFreq({Action(atTrackFreq)});

    EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(30e6, false); }), 13);

    EXPECT_EQ(TakeEffects(), Journal(Start(EngineCode, L"NewFrequency", L"Freq = 30000000"),
                                     Compared(L"30000000", L"0"), Yielded, MismatchReported));
}

TEST_F(NewFrequencyTest, ListIsHeldWhileItsElementRuns) {
    FillFreq({WaitFor(1)});
    std::int32_t number = 0;
    host->onTimedMessage = [&] { number = ErrorOf([&] { State().MainTest.Freq.Erase(); }); };

    engine->NewFrequency(30e6, false);

    EXPECT_EQ(number, 10);
}

}  // namespace
}  // namespace ace::test
