/// Which lists of a module are printed, in which order and under which titles.
#include <ace/dialogs/settings_print.h>

#include "dialogs/print_fixture.h"
#include "support/golden_file.h"

namespace ace::test {
namespace {

using L = ModuleLists;

// ---- titles
// --------------------------------------------------------------------------------------

/// A list that is the only one with an action, and its moment. Of numbered sets it is that of the
/// third.
struct TitleCase {
    aceModul moduleKind;
    p_PerformTimes time;
    p_Subrange L::*fixed;
    const NumberedSets* numbered;
    ListFields list;
    StringView title;
};

constexpr TitleCase Titles[] = {
    {aceTemplate, ptStartTest, &L::MainTest, nullptr, EnterList, L"T(9051)"},
    {aceTemplate, ptEveryFreq, &L::MainTest, nullptr, FreqList, L"T(9052)"},
    {aceTemplate, ptEnterSubRange, nullptr, &MainSubrangeSets, EnterList, L"T(9053) 3: T(9054)"},
    {aceTemplate, ptLeaveSubrange, nullptr, &MainSubrangeSets, LeaveList, L"T(9053) 3: T(9055)"},
    {aceTemplate, ptStopTest, &L::MainTest, nullptr, LeaveList, L"T(9056)"},

    {aceMonitoring, ptStartTest, &L::MoniEut, nullptr, EnterList, L"T(9051)"},
    {aceMonitoring, ptEveryFreq, &L::MoniEut, nullptr, FreqList, L"T(9052)"},
    {aceMonitoring, ptBeforeTest, &L::MoniLoop, nullptr, EnterList, L"T(9101): T(9094)"},
    {aceMonitoring, ptAfterTest, &L::MoniLoop, nullptr, MlcList, L"T(9101): T(9095)"},
    {aceMonitoring, ptTrigger, nullptr, &MoniChannelSets, FreqList, L"T(21000) 3: T(9075)"},
    {aceMonitoring, ptNoGo, nullptr, &MoniChannelSets, EnterList, L"T(21000) 3: T(9057)"},
    {aceMonitoring, ptGo, nullptr, &MoniChannelSets, LeaveList, L"T(21000) 3: T(9076)"},
    {aceMonitoring, ptAfter, &L::MoniEut, nullptr, MlcList, L"T(9087)"},
    {aceMonitoring, ptStopTest, &L::MoniEut, nullptr, LeaveList, L"T(9056)"},

    {aceEMSAutoTemplateGeneral, ptStartTest, &L::EMSAutoGeneral, nullptr, EnterList, L"T(9051)"},
    {aceEMSAutoTemplateGeneral, ptStopTest, &L::EMSAutoGeneral, nullptr, LeaveList, L"T(9056)"},

    {aceEMSAutoTemplate, ptStep, nullptr, &EMSAutoStepSets, EnterList, L"T(9057) (3)"},

    {aceEMIAutoTemplate, ptStartTest, &L::EMIAutoTest, nullptr, EnterList, L"T(9051)"},
    {aceEMIAutoTemplate, ptEveryFreq, &L::EMIAutoTest, nullptr, FreqList, L"T(9052)"},
    {aceEMIAutoTemplate, ptBefore, nullptr, &EMIAutoStepSets, EnterList, L"T(9082): T(9090)"},
    {aceEMIAutoTemplate, ptAfter, nullptr, &EMIAutoStepSets, LeaveList, L"T(9082): T(9091)"},
    {aceEMIAutoTemplate, ptStopTest, &L::EMIAutoTest, nullptr, LeaveList, L"T(9056)"},

    {aceTSTemplate, ptStartTest, &L::TSTest, nullptr, EnterList, L"T(9092)"},
    {aceTSTemplate, ptBeforeTest, nullptr, &TSTestSets, EnterList, L"T(9101): T(9094)"},
    {aceTSTemplate, ptAfterTest, nullptr, &TSTestSets, LeaveList, L"T(9101): T(9095)"},
    {aceTSTemplate, ptStopTest, &L::TSTest, nullptr, LeaveList, L"T(9093)"},

    {aceAziChart, ptStartTest, &L::AziChart, nullptr, EnterList, L"T(9096)"},
    {aceAziChart, ptEveryFreq, &L::AziChart, nullptr, FreqList, L"T(9052)"},
    {aceAziChart, ptStopTest, &L::AziChart, nullptr, LeaveList, L"T(9097)"},

    {aceVKSTemplate, ptStartTest, &L::VKSTemplate, nullptr, EnterList, L"T(9092)"},
    {aceVKSTemplate, ptBeforeTest, nullptr, &VKSTestSets, EnterList, L"T(9101): T(9094)"},
    {aceVKSTemplate, ptAfterTest, nullptr, &VKSTestSets, LeaveList, L"T(9101): T(9095)"},
    {aceVKSTemplate, ptStopTest, &L::VKSTemplate, nullptr, LeaveList, L"T(9093)"},
};

class PrintedTitles : public PrintTest {
  protected:
    /// The set of a case, in lists that have it anew.
    p_Subrange& SetOf(const TitleCase& row) {
        static_cast<ModuleLists&>(State()) = ModuleLists();
        if (row.fixed != nullptr) {
            return State().*row.fixed;
        }
        MakeSets(row.numbered->sets, row.numbered->count, 3);
        return (State().*row.numbered->sets)[2];
    }
};

TEST_F(PrintedTitles, EachListOfEachModuleHasItsTitle) {
    for (const TitleCase& row : Titles) {
        Fill(SetOf(row), row.list, {Protect});
        EXPECT_EQ(TextOf(row.moduleKind), Heading + String(row.title) + L"\r" + ProtectLine)
            << row.moduleKind;
    }
}

/// "PerfTime = 2, Subrange = 2": what the trace was told of the list whose line asked for a text.
String MomentBeforeTheFirstText(const sim::Journal& journal) {
    String moment;
    for (const sim::JournalEntry& entry : journal.Entries()) {
        if (entry.operation == L"Language.Text") {
            return moment;
        }
        if (entry.operation == L"TraceLog.WriteLine" && entry.values[0] == L"start") {
            moment = entry.values[4];
        }
    }
    return L"no text was asked for";
}

TEST_F(PrintedTitles, EachListOfEachModuleIsTracedWithItsMoment) {
    host->tracing = true;
    for (const TitleCase& row : Titles) {
        Fill(SetOf(row), row.list, {Protect});
        host->journal.Clear();
        Print(row.moduleKind);
        String expected = L"PerfTime = " + std::to_wstring(row.time);
        expected += row.numbered != nullptr ? L", Subrange = 2" : L", Subrange = 0";
        EXPECT_EQ(MomentBeforeTheFirstText(host->journal), expected) << row.moduleKind;
    }
}

// ---- lists that are not printed
// ------------------------------------------------------------------

bool HasTitle(aceModul moduleKind, p_Subrange L::*fixed, const NumberedSets* numbered,
              const ListFields& list) {
    return std::ranges::any_of(Titles, [&](const TitleCase& row) {
        const bool isSet = fixed != nullptr ? row.fixed == fixed
                                            : row.numbered != nullptr && numbered != nullptr &&
                                                  row.numbered->sets == numbered->sets;
        return row.moduleKind == moduleKind && isSet && row.list == list;
    });
}

TEST_F(PrintedTitles, AllOtherListsOfAModulePrintNothing) {
    for (const ModuleRow& module : ModuleTable) {
        for (const ListFields& list : ActionLists) {
            static_cast<ModuleLists&>(State()) = ModuleLists();
            for (const FixedSet& fixed : module.AllFixed()) {
                if (!HasTitle(module.moduleKind, fixed.set, nullptr, list)) {
                    Fill(State().*fixed.set, list, {Protect});
                }
            }
            for (const NumberedSets& numbered : module.AllNumbered()) {
                MakeSets(numbered.sets, numbered.count, 1);
                if (!HasTitle(module.moduleKind, nullptr, &numbered, list)) {
                    Fill((State().*numbered.sets)[0], list, {Protect});
                }
            }
            EXPECT_EQ(Print(module.moduleKind), NothingPrinted) << module.moduleKind;
        }
    }
}

TEST_F(PrintedTitles, TheListThatRunsBehindTheMonitoringLoopIsNotPrinted) {
    Fill(State().MoniLoop, LeaveList, {Protect});
    EXPECT_EQ(Print(aceMonitoring), NothingPrinted);
}

TEST_F(PrintedTitles, StepsOfAWirelessTemplateAreNotPrinted) {
    MakeSets(&L::VKSSteps, &L::VKSStepCount, 1);
    Fill(State().VKSSteps[0], EnterList, {Protect});
    EXPECT_EQ(Print(aceVKSTemplate), NothingPrinted);
}

TEST_F(PrintedTitles, TheEveryFrequencyListOfASusceptibilityTestIsNotPrinted) {
    Fill(State().EMSAutoGeneral, FreqList, {Protect});
    EXPECT_EQ(Print(aceEMSAutoTemplateGeneral), NothingPrinted);
}

// ---- whole printouts
// -----------------------------------------------------------------------------

struct GoldenCase {
    aceModul moduleKind;
    const char* file;
};
constexpr GoldenCase Printouts[] = {
    {aceTemplate, "template.txt"},
    {aceMonitoring, "monitoring.txt"},
    {aceEMSAutoTemplateGeneral, "susceptibility_general.txt"},
    {aceEMSAutoTemplate, "susceptibility_steps.txt"},
    {aceEMIAutoTemplate, "emission.txt"},
    {aceTSTemplate, "sequence.txt"},
    {aceAziChart, "azimuth.txt"},
    {aceVKSTemplate, "wireless_tests.txt"},
};

/// Each of the four lists has a wait that tells the place: `base` milliseconds and 1 to 4 for the
/// list, then a protection.
void FillAll(p_Subrange& set, int base) {
    for (const ListFields& list : ActionLists) {
        Fill(set, list, {WaitFor(++base), Protect});
    }
}

/// The waits of fixed sets begin at 100 and 110 milliseconds, those of the second numbered set of
/// the first kind at 2000, of the second kind at 2500.
void FillModule(EngineState& state, aceModul moduleKind) {
    const ModuleRow& module = *FindModule(moduleKind);
    int base = 100;
    for (const FixedSet& fixed : module.AllFixed()) {
        FillAll(state.*fixed.set, base);
        base += 10;
    }
    base = 0;
    for (const NumberedSets& numbered : module.AllNumbered()) {
        (state.*numbered.sets).Redim(0, 2);
        state.*numbered.count = 3;
        for (std::int32_t i = 0; i < 3; ++i) {
            FillAll((state.*numbered.sets)[i], base + 1000 * (i + 1));
        }
        base += 500;
    }
}

TEST_F(PrintedTitles, EachModuleIsPrintedInItsOrder) {
    for (const GoldenCase& golden : Printouts) {
        SCOPED_TRACE(golden.file);
        FillModule(State(), golden.moduleKind);
        EXPECT_EQ(VisibleLines(TextOf(golden.moduleKind)),
                  GoldenLines(std::string("print/") + golden.file));
    }
}

}  // namespace
}  // namespace ace::test
