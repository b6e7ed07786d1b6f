/// What the print takes of the working engine, and what it leaves there.
#include <ace/dialogs/settings_print.h>

#include "dialogs/foreign_engine.h"
#include "dialogs/print_fixture.h"
#include "support/store_fixture.h"

namespace ace::test {
namespace {

/// A command whose bus device is open.
p_Action OpenDevice(std::int32_t handle) {
    aceRemote record;
    record.Command = L"*RST";
    record.GpibAddress = 5;
    record.DrvHdl = handle;
    return Action(atRemote, record);
}
p_Action ClosedDevice() {
    return OpenDevice(aceRemote::NoHandle);
}
String Closed(std::int32_t handle) {
    return L"GpibDriver.CloseDevice(" + std::to_wstring(handle) + L", 0)";
}

/// The sets that a module prints: those that it has once, and the numbered ones with their count.
struct PrintedSets {
    aceModul moduleKind;
    std::vector<p_Subrange ModuleLists::*> fixed;
    DynArray<p_Subrange> ModuleLists::*numbered = nullptr;
    std::int32_t ModuleLists::*count = nullptr;
};
const PrintedSets AllPrintedSets[] = {
    {aceTemplate,
     {&ModuleLists::MainTest},
     &ModuleLists::MainSubranges,
     &ModuleLists::MainSubrangeCount},
    {aceMonitoring,
     {&ModuleLists::MoniEut, &ModuleLists::MoniLoop},
     &ModuleLists::MoniChannels,
     &ModuleLists::MoniChannelCount},
    {aceEMSAutoTemplateGeneral, {&ModuleLists::EMSAutoGeneral}},
    {aceEMSAutoTemplate, {}, &ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount},
    {aceEMIAutoTemplate,
     {&ModuleLists::EMIAutoTest},
     &ModuleLists::EMIAutoSteps,
     &ModuleLists::EMIAutoStepCount},
    {aceTSTemplate, {&ModuleLists::TSTest}, &ModuleLists::TSTests, &ModuleLists::TSTestCount},
    {aceAziChart, {&ModuleLists::AziChart}},
    {aceVKSTemplate,
     {&ModuleLists::VKSTemplate},
     &ModuleLists::VKSTests,
     &ModuleLists::VKSTestCount},
    {aceVKSDUT, {}},
};

class PrintCopy : public PrintTest {
  protected:
    /// Fills every list of the store, those of the matrix too.
    void FillStore() {
        for (const ModuleRow& module : ModuleTable) {
            for (const FixedSet& fixed : module.AllFixed()) {
                State().*fixed.set = Letter(L'a');
            }
            for (const NumberedSets& numbered : module.AllNumbered()) {
                State().*numbered.sets = Letters(L"bc");
                State().*numbered.count = 2;
            }
        }
        for (auto* texts : {&State().VKSStepKeys, &State().VKSStepUKeys, &State().VKSStepNames,
                            &State().VKSTestUKeys, &State().VKSHostUKeys, &State().VKSHostNames}) {
            *texts = ArrayOf<String>({L"k", L"l"});
        }
    }
    void PutEverywhere(p_Subrange& set, const p_Action& action) {
        for (const ListFields& list : ActionLists) {
            Fill(set, list, {action});
        }
    }
};

TEST_F(PrintCopy, TheObjectThatPrintsServesTheModuleFromThenOn) {
    Print(aceTSTemplate);
    EXPECT_EQ(Printed().Modul, aceTSTemplate);
    Print(aceVKSDUT);
    EXPECT_EQ(Printed().Modul, aceVKSDUT);
}

TEST_F(PrintCopy, OfEachModuleItsPrintedListsAreTakenWithTheirCountsAndNothingElse) {
    FillStore();
    for (const PrintedSets& sets : AllPrintedSets) {
        static_cast<ModuleLists&>(Printed()) = ModuleLists();
        Print(sets.moduleKind);
        ModuleLists expected;
        for (p_Subrange ModuleLists::*const fixed : sets.fixed) {
            expected.*fixed = Letter(L'a');
        }
        if (sets.numbered != nullptr) {
            expected.*sets.numbered = Letters(L"bc");
            expected.*sets.count = 2;
        }
        if (sets.moduleKind == aceVKSTemplate) {
            expected.VKSStepUKeys = expected.VKSStepNames = expected.VKSStepKeys =
                ArrayOf<String>({L"k", L"l"});
        }
        EXPECT_TRUE(static_cast<const ModuleLists&>(Printed()) == expected) << sets.moduleKind;
    }
}

TEST_F(PrintCopy, TheWorkingEngineIsAsBefore) {
    FillStore();
    Fill(State().MainTest, EnterList, {OpenDevice(3)});
    State().Modul = aceAziChart;
    const ModuleLists before = State();
    for (const ModuleRow& module : ModuleTable) {
        Print(module.moduleKind);
        EXPECT_TRUE(static_cast<const ModuleLists&>(State()) == before) << module.moduleKind;
    }
    EXPECT_EQ(State().Modul, aceAziChart);
    EXPECT_FALSE(engine->Change());
}

TEST_F(PrintCopy, ALaterPrintShowsTheListsAsTheyAreThen) {
    FillStart({WaitFor(1)});
    Print(aceTemplate);
    FillStart({WaitFor(2)});
    EXPECT_EQ(TextOf(aceTemplate), Heading + L"T(9051)\r" + WaitLine(L"0.002"));
}

// ---- bus devices and references
// ------------------------------------------------------------------

TEST_F(PrintCopy, TheEndOfThePrintLeavesTheBusDevicesOfTheWorkingEngineOpen) {
    for (const ModuleRow& module : ModuleTable) {
        for (const FixedSet& fixed : module.AllFixed()) {
            PutEverywhere(State().*fixed.set, OpenDevice(3));
        }
        for (const NumberedSets& numbered : module.AllNumbered()) {
            MakeSets(numbered.sets, numbered.count, 2);
            PutEverywhere((State().*numbered.sets)[1], OpenDevice(4));
        }
        Print(module.moduleKind);
        printer.reset();
        EXPECT_EQ(TakeEffects(), Lines{}) << module.moduleKind;
        printer = std::make_unique<aceActionsEngine>(context);
    }
}

TEST_F(PrintCopy, TheEndOfTheWorkingEngineClosesThemStill) {
    FillStart({OpenDevice(3)});
    Print(aceTemplate);
    engine.reset();
    EXPECT_EQ(TakeEffects(), Lines{Closed(3)});
}

TEST_F(PrintCopy, NoCommandOfTheCopyHasAHandle) {
    PutEverywhere(State().MoniLoop, OpenDevice(3));
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 1);
    PutEverywhere(State().MoniChannels[0], OpenDevice(4));
    Print(aceMonitoring);
    p_Subrange closed;
    PutEverywhere(closed, ClosedDevice());
    EXPECT_EQ(Printed().MoniLoop, closed);
    EXPECT_EQ(Printed().MoniChannels[0], closed);
}

TEST_F(PrintCopy, ReferencesToDevicesAreShared) {
    const auto unit = host->bench.Add<sim::SimSwitchUnit>(*host, L"Unit");
    aceSetDevice record;
    record.SwitchDev = unit;
    FillStart({Action(atSwitchUnit, record)});
    Print(aceTemplate);
    EXPECT_EQ(RecordOf<aceSetDevice>(Printed().MainTest.Enter[0]).SwitchDev, unit);
}

// ---- other objects
// -------------------------------------------------------------------------------

TEST_F(PrintCopy, AnEngineThatPrintsItselfKeepsItsListsAndItsBusDevices) {
    FillStart({OpenDevice(3)});
    engine->PrintStrings(aceTemplate, *engine, rows, 0);
    EXPECT_EQ(Row()[0], Heading + L"T(9051)\r   T(9062): \tGpib0:5, \"*RST\"\r");
    engine.reset();
    EXPECT_EQ(TakeEffects(), Lines{Closed(3)});
}

TEST_F(PrintCopy, AnEngineOfAnotherComponentIsError13BeforeTheRowAndTheListsAreTouched) {
    ForeignEngine foreign;
    FillStart({Protect});
    Print(aceTemplate);
    const ModuleLists before = Printed();
    rows.Redim(0, 0, 0, 1);
    for (const ModuleRow& module : ModuleTable) {
        if (module.moduleKind != aceVKSDUT) {
            const auto print = [&] { printer->PrintStrings(module.moduleKind, foreign, rows, 0); };
            EXPECT_EQ(ErrorOf(print), 13) << module.moduleKind;
            EXPECT_EQ(Row(), PrintedRow{});
            EXPECT_TRUE(static_cast<const ModuleLists&>(Printed()) == before);
            EXPECT_EQ(TakeEffects(), Lines{MismatchReported});
        }
    }
}

/// The module is taken over before the lists are asked for.
TEST_F(PrintCopy, AnEngineOfAnotherComponentLeavesTheModule) {
    ForeignEngine foreign;
    EXPECT_EQ(ErrorOf([&] { printer->PrintStrings(aceTSTemplate, foreign, rows, 0); }), 13);
    EXPECT_EQ(Printed().Modul, aceTSTemplate);
}

/// None of its lists is asked for.
TEST_F(PrintCopy, TheMatrixIsPrintedOfAnyEngineObject) {
    ForeignEngine foreign;
    EXPECT_EQ(ErrorOf([&] { printer->PrintStrings(aceVKSDUT, foreign, rows, 0); }), 0);
    EXPECT_EQ(Row(), NothingPrinted);
}

TEST_F(PrintCopy, TwoPrintsOfOneEngineDoNotMeet) {
    FillStart({OpenDevice(3)});
    aceActionsEngine second(context);
    Array2D<String> others;
    others.Redim(0, 0, 0, 1);
    second.PrintStrings(aceTemplate, *engine, others, 0);
    EXPECT_EQ(TextOf(aceTemplate), others(0, 0));
    printer.reset();
    EXPECT_EQ(TakeEffects(), Lines{});
}

}  // namespace
}  // namespace ace::test
