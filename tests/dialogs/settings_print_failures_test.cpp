/// What the print traces, what ends it, and what the host may do from inside.
#include <ace/dialogs/settings_print.h>

#include "dialogs/print_fixture.h"

namespace ace::test {
namespace {

const String FormModule = L"frmEditor (Code)";
const String NotSetReported = Reported(91, L"object variable not set");
const String TraceAsked = L"TraceLog.IsEnabled()";
String Asked(std::int32_t text) {
    return L"Language.Text(" + std::to_wstring(text) + L")";
}

class PrintFailures : public PrintTest {
  protected:
    /// An action that tracks with the monitoring device `monitor`, or with one that was never used.
    static p_Action Track(const std::shared_ptr<IMonitorDevice>& device) {
        aceTrackFreq record;
        record.MoniName = L"Probe";
        record.MoniDev = device;
        return Action(atTrackFreq, record);
    }
    p_Action TrackProbe() { return Track(host->bench.Add<sim::SimMonitor>(*host, L"Probe")); }
    /// Does `act` while a device is asked for its name, once.
    void WhileAsked(std::function<void()> act) {
        host->beforeCall = [act, isDone = false](StringView operation, const auto&) mutable {
            if (operation == L"Device.Name" && !isDone) {
                isDone = true;
                act();
            }
        };
    }
    std::vector<String> TakeAll() {
        std::vector<String> lines = host->journal.Lines();
        host->journal.Clear();
        return lines;
    }

    const String probeLine = L"   T(9066): \tProbe\r";
};

// ---- the whole journal
// ---------------------------------------------------------------------------

TEST_F(PrintFailures, TracesInTheNameOfTheFormWithTheModuleAndEachListWithItsMoment) {
    host->tracing = true;
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 2);
    Fill(State().MainSubranges[1], LeaveList, {Protect});
    Print(aceTemplate);
    const auto list = [](StringView message) {
        return Journal(Start(FormModule, L"DisplayLine", String(message)), End(L"DisplayLine"));
    };
    EXPECT_EQ(TakeEffects(),
              Journal(Start(FormModule, L"PrintStrings", L"Modul = 0"),
                      list(L"PerfTime = 0, Subrange = 0"), list(L"PerfTime = 4, Subrange = 0"),
                      list(L"PerfTime = 2, Subrange = 0"), list(L"PerfTime = 3, Subrange = 0"),
                      list(L"PerfTime = 2, Subrange = 1"), list(L"PerfTime = 3, Subrange = 1"),
                      list(L"PerfTime = 1, Subrange = 0"), End(L"PrintStrings")));
}

TEST_F(PrintFailures, AsksForTheTextsOfALineThenForThoseOfItsTitleAndAtLastForTheHeading) {
    MakeSets(&ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount, 2);
    Fill(State().EMSAutoSteps[1], EnterList, {Protect});
    Print(aceEMSAutoTemplate);
    EXPECT_EQ(TakeAll(), (Lines{TraceAsked, TraceAsked, TraceAsked, TraceAsked, Asked(9068),
                                TraceAsked, Asked(9057), Asked(18153), TraceAsked}));
}

TEST_F(PrintFailures, AModuleWithoutLinesAsksForNoText) {
    Print(aceAziChart);
    EXPECT_EQ(TakeAll(), Lines(8, TraceAsked));
}

// ---- errors of a list
// ----------------------------------------------------------------------------

TEST_F(PrintFailures, AMonitoringDeviceThatWasNotUsedYetIsError91AndLeavesTheRowHalfFilled) {
    FillStart({Protect});
    Fill(State().MainTest, FreqList, {Protect, Track(nullptr)});
    Fill(State().MainTest, LeaveList, {Protect});
    EXPECT_EQ(PrintError(aceTemplate), 91);
    EXPECT_EQ(Row(), (PrintedRow{L"T(9051)\r" + ProtectLine, PrintLayout}));
    EXPECT_EQ(TakeEffects(), (Lines{NotSetReported, NotSetReported}));
}

TEST_F(PrintFailures, AMonitoringDeviceThatWasUsedIsAskedForItsName) {
    Fill(State().MainTest, FreqList, {TrackProbe()});
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9052)\r" + probeLine);
    EXPECT_EQ(TakeEffects(),
              (Lines{L"MonitorDevice.CommonDevice(\"Probe\")", L"Device.Name(\"Probe\")"}));
}

TEST_F(PrintFailures, AMonitoringDeviceThatTheFrequencyLookedUpIsPrinted) {
    host->bench.Add<sim::SimMonitor>(*host, L"Probe");
    Fill(State().MainTest, FreqList, {Track(nullptr)});
    engine->NewFrequency(1e6, true);
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9052)\r" + probeLine);
}

TEST_F(PrintFailures, InATestOfKind1Or2NoMonitoringDeviceIsLookedUpAndError91Stays) {
    host->bench.Add<sim::SimMonitor>(*host, L"Probe");
    host->testState = 0;
    Fill(State().MainTest, FreqList, {Track(nullptr)});
    for (const std::int32_t kind : {1, 2}) {
        host->testKind = kind;
        engine->NewFrequency(kind * 1e6, true);
        EXPECT_EQ(PrintError(aceTemplate), 91);
    }
}

/// The walk of every frequency has left a number where the record was.
TEST_F(PrintFailures, OutsideATemplateTheFirstFrequencyMakesItError13WithAGeneratorToo) {
    host->bench.Add<sim::SimMonitor>(*host, L"Probe");
    p_Action both = TrackProbe();
    RecordOf<aceTrackFreq>(both).GenName = L"Generator";
    for (const p_Action& action : {Track(nullptr), both}) {
        State().Modul = aceAziChart;
        Fill(State().AziChart, FreqList, {action});
        EXPECT_EQ(ErrorOf([&] { engine->NewFrequency(1e6, true); }), 13);
        EXPECT_EQ(PrintError(aceAziChart), 13);
    }
}

TEST_F(PrintFailures, AParameterOfAnotherKindIsError13AndLeavesTheRowHalfFilled) {
    FillStart({Protect});
    Fill(State().MainTest, LeaveList, {Action(atNotify, aceWait{1})});
    EXPECT_EQ(PrintError(aceTemplate), 13);
    EXPECT_EQ(Row(), (PrintedRow{L"T(9051)\r" + ProtectLine, PrintLayout}));
    EXPECT_EQ(TakeEffects(), (Lines{MismatchReported, MismatchReported}));
}

TEST_F(PrintFailures, AnErrorInTheFirstListLeavesTheLayoutAlone) {
    FillStart({Track(nullptr)});
    EXPECT_EQ(PrintError(aceTemplate), 91);
    EXPECT_EQ(Row(), (PrintedRow{L"", PrintLayout}));
}

TEST_F(PrintFailures, TheEndLineIsMissingBehindAnError) {
    host->tracing = true;
    Fill(State().AziChart, EnterList, {Track(nullptr)});
    EXPECT_EQ(PrintError(aceAziChart), 91);
    EXPECT_EQ(TakeEffects(),
              Journal(Start(FormModule, L"PrintStrings", L"Modul = 6"),
                      Start(FormModule, L"DisplayLine", L"PerfTime = 0, Subrange = 0"),
                      NotSetReported, NotSetReported));
}

TEST_F(PrintFailures, AnErrorThatIsAnsweredWithAgainRunsTheOneStatement) {
    FillStart({Protect});
    Fill(State().MainTest, LeaveList, {Protect});
    host->faults.FailOperation(L"Language.Text", 4, 4242);  // the title of the second list
    host->reportAnswers = {ITraceLog::RetryStatement};
    EXPECT_EQ(TextOf(aceTemplate),
              Heading + L"T(9051)\r" + ProtectLine + L"T(9056)\r" + ProtectLine);
}

TEST_F(PrintFailures, AListIsShownAgainWhereAgainIsTheAnswerOfThePrintAlone) {
    FillStart({Protect, TrackProbe()});
    host->faults.FailOperation(L"Device.Name", 1, 4242);
    host->reportAnswers = {0, ITraceLog::RetryStatement};
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + ProtectLine + probeLine);
    EXPECT_EQ(host->journal.LinesOf(L"TraceLog.ReportError").size(), 2U);
}

TEST_F(PrintFailures, AHeadingThatIsAskedForAgainStandsOnce) {
    FillStart({Protect});
    host->faults.FailOperation(L"Language.Text", 3, 4242);
    host->reportAnswers = {ITraceLog::RetryStatement};
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + ProtectLine);
}

// ---- while one of the lists runs
// -----------------------------------------------------------------

TEST_F(PrintFailures, APrintOfTheListsThatRunIsMadeByAnotherObject) {
    FillStart({WaitFor(1)});
    host->onTimedMessage = [&] {
        EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + WaitLine(L"0.001"));
    };
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(Row()[1], PrintLayout);
}

TEST_F(PrintFailures, OnTheObjectWhoseListRunsItIsError10AndChangesNothing) {
    FillStart({WaitFor(1)});
    const ModuleLists before = State();
    std::int32_t error = 0;
    host->onTimedMessage = [&] {
        error = ErrorOf([&] { engine->PrintStrings(aceTemplate, *printer, rows, 0); });
    };
    engine->StartTest();
    EXPECT_EQ(error, 10);
    EXPECT_EQ(Row(), PrintedRow{});
    EXPECT_TRUE(static_cast<const ModuleLists&>(State()) == before);
}

TEST_F(PrintFailures, BetweenTwoActionsTheWalkGoesOnInTheListsThatWereTakenOver) {
    FillStart({WaitFor(1), WaitFor(2)});
    Fill(printer->State().MainTest, EnterList, {WaitFor(3), WaitFor(4)});
    host->onYield = [&](std::size_t n) {
        if (n == 2) {
            engine->PrintStrings(aceTemplate, *printer, rows, 0);
        }
    };
    engine->StartTest();
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Waited(1), Yielded, Waited(4)));
}

TEST_F(PrintFailures, Error10LeavesTheModuleOfTheObject) {
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 1);
    const DynArray<p_Subrange>::Hold hold(State().TSTests);
    State().Modul = aceAziChart;
    EXPECT_EQ(ErrorOf([&] { engine->PrintStrings(aceTSTemplate, *printer, rows, 0); }), 10);
    EXPECT_EQ(State().Modul, aceAziChart);
}

// ---- from inside
// ---------------------------------------------------------------------------------

/// The matrix and kinds outside the members have no lists that are printed, so none is asked for.
TEST_F(PrintFailures, ListsOfAnotherKindOrOfAKindThatPrintsNothingMayRunOnTheObject) {
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 1);
    MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 1);
    const DynArray<p_Subrange>::Hold test(State().TSTests);
    const DynArray<p_Subrange>::Hold row(State().VKSSteps);
    for (const aceModul kind : {aceTemplate, aceVKSDUT, static_cast<aceModul>(9)}) {
        rows.Redim(0, 0, 0, 1);
        EXPECT_EQ(ErrorOf([&] { engine->PrintStrings(kind, *printer, rows, 0); }), 0) << kind;
        EXPECT_EQ(Row(), NothingPrinted);
        EXPECT_EQ(State().Modul, kind);
    }
}

TEST_F(PrintFailures, TheSameListsFromInsideAreError10AndThePrintGoesOn) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1);
    Fill(State().MainSubranges[0], EnterList, {TrackProbe(), Protect});
    std::int32_t error = 0;
    WhileAsked([&] {
        State().MainSubranges[0] = p_Subrange();
        Array2D<String> others;
        others.Redim(0, 0, 0, 1);
        error = ErrorOf([&] { printer->PrintStrings(aceTemplate, *engine, others, 0); });
        EXPECT_EQ(others(0, 1), L"");
    });
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9053) 1: T(9054)\r" + probeLine + ProtectLine);
    EXPECT_EQ(error, 10);
}

TEST_F(PrintFailures, AListThatIsBeingPrintedCannotBeLoadedAnew) {
    FillStart({TrackProbe(), Protect});
    std::int32_t error = 0;
    WhileAsked([&] { error = ErrorOf([&] { printer->LoadActions(L"a.ini", 0, aceTemplate); }); });
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + probeLine + ProtectLine);
    EXPECT_EQ(error, 10);
}

TEST_F(PrintFailures, TheSetsBesideAListThatIsBeingPrintedStayWhereTheyAre) {
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 1);
    Fill(State().MainSubranges[0], EnterList, {TrackProbe()});
    WhileAsked([&] { EXPECT_EQ(ErrorOf([&] { Printed().MainSubranges.Erase(); }), 10); });
    Print(aceTemplate);
    EXPECT_EQ(ErrorOf([&] { Printed().MainSubranges.Erase(); }), 0);
}

TEST_F(PrintFailures, AnotherModuleFromInsideIsPrintedAndTheOuterPrintGoesOn) {
    FillStart({TrackProbe(), Protect});
    Fill(State().AziChart, LeaveList, {Protect});
    Array2D<String> others;
    others.Redim(0, 0, 0, 1);
    WhileAsked([&] { printer->PrintStrings(aceAziChart, *engine, others, 0); });
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + probeLine + ProtectLine);
    EXPECT_EQ(others(0, 0), Heading + L"T(9097)\r" + ProtectLine);
}

TEST_F(PrintFailures, AWorkingEngineThatIsEmptiedOrGoesMeanwhileIsPrintedAsItWas) {
    FillStart({TrackProbe(), Protect});
    Fill(State().MainTest, LeaveList, {Protect});
    WhileAsked([&] {
        State().MainTest = p_Subrange();
        engine.reset();
    });
    EXPECT_EQ(TextOf(aceTemplate),
              Heading + L"T(9051)\r" + probeLine + ProtectLine + L"T(9056)\r" + ProtectLine);
}

TEST_F(PrintFailures, AnObjectThatGoesWhileItPrintsPrintsToTheEnd) {
    FillStart({TrackProbe(), Protect});
    WhileAsked([&] { printer.reset(); });
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + probeLine + ProtectLine);
}

TEST_F(PrintFailures, ARowThatGoesMeanwhileIsError9) {
    FillStart({TrackProbe()});
    WhileAsked([&] { rows.Redim(1, 1, 0, 1); });
    EXPECT_EQ(PrintError(aceTemplate), 9);
    EXPECT_EQ(Row(1), PrintedRow{});
}

}  // namespace
}  // namespace ace::test
