/// Every moment in which the editor has a list, with the list as a place in the records, and an
/// engine whose nine modules all have lists of which no two are alike.
#pragma once

#include "editor/editor_fixture.h"
#include "support/every_kind.h"

namespace ace::test {

/// The template number of a matrix whose rows show as roots, and of one with global lists alone.
inline constexpr std::int32_t RowsAsRoots = 0;
inline constexpr std::int32_t GlobalLists = 3;

/// A set that a module has once, or the second one of its numbered sets, so that the first is seen
/// to stay.
struct EditedSet {
    EditedSet(p_Subrange ModuleLists::*one) : fixed(one) {}
    EditedSet(DynArray<p_Subrange> ModuleLists::*sets) : numbered(sets) {}

    p_Subrange ModuleLists::*fixed = nullptr;
    DynArray<p_Subrange> ModuleLists::*numbered = nullptr;
};

struct EditedMoment {
    const char* name;
    aceModul moduleKind;
    StringView key;  ///< of the node
    p_PerformTimes time;
    EditedSet set;
    const ListFields& list;
    std::int32_t matrix = RowsAsRoots;

    std::int32_t Subrange() const { return set.numbered != nullptr ? 1 : 0; }
    p_Subrange& SetOf(ModuleLists& lists) const {
        return set.fixed != nullptr ? lists.*set.fixed : (lists.*set.numbered)[1];
    }
    std::int32_t& Count(ModuleLists& lists) const { return SetOf(lists).*list.count; }
    DynArray<p_Action>& Actions(ModuleLists& lists) const { return SetOf(lists).*list.actions; }
};
inline void PrintTo(const EditedMoment& moment, std::ostream* out) {
    *out << moment.name;
}

inline const EditedMoment EditedMoments[] = {
    {"TemplateStart", aceTemplate, L"ETE", ptStartTest, &ModuleLists::MainTest, EnterList},
    {"TemplateStop", aceTemplate, L"LTE", ptStopTest, &ModuleLists::MainTest, LeaveList},
    {"TemplateFrequency", aceTemplate, L"EFR", ptEveryFreq, &ModuleLists::MainTest, FreqList},
    {"TemplateEnterSubrange", aceTemplate, L"ESR1", ptEnterSubRange, &ModuleLists::MainSubranges,
     EnterList},
    {"TemplateLeaveSubrange", aceTemplate, L"LSR1", ptLeaveSubrange, &ModuleLists::MainSubranges,
     LeaveList},
    {"MonitoringStart", aceMonitoring, L"ETE", ptStartTest, &ModuleLists::MoniEut, EnterList},
    {"MonitoringStop", aceMonitoring, L"LTE", ptStopTest, &ModuleLists::MoniEut, LeaveList},
    {"MonitoringFrequency", aceMonitoring, L"EFR", ptEveryFreq, &ModuleLists::MoniEut, FreqList},
    {"MonitoringEnd", aceMonitoring, L"MLC", ptAfter, &ModuleLists::MoniEut, MlcList},
    {"MonitoringBeforeLoop", aceMonitoring, L"BFT", ptBeforeTest, &ModuleLists::MoniLoop,
     EnterList},
    {"MonitoringAfterLoop", aceMonitoring, L"ATT", ptAfterTest, &ModuleLists::MoniLoop, LeaveList},
    {"MonitoringTrigger", aceMonitoring, L"TRI1", ptTrigger, &ModuleLists::MoniChannels, FreqList},
    {"MonitoringNoGo", aceMonitoring, L"NGO1", ptNoGo, &ModuleLists::MoniChannels, EnterList},
    {"MonitoringGo", aceMonitoring, L"GOE1", ptGo, &ModuleLists::MoniChannels, LeaveList},
    {"GeneralStart", aceEMSAutoTemplateGeneral, L"ETE", ptStartTest, &ModuleLists::EMSAutoGeneral,
     EnterList},
    {"GeneralStop", aceEMSAutoTemplateGeneral, L"LTE", ptStopTest, &ModuleLists::EMSAutoGeneral,
     LeaveList},
    {"SusceptibilityStep", aceEMSAutoTemplate, L"STE1", ptStep, &ModuleLists::EMSAutoSteps,
     EnterList},
    {"EmissionStart", aceEMIAutoTemplate, L"ETE", ptStartTest, &ModuleLists::EMIAutoTest,
     EnterList},
    {"EmissionStop", aceEMIAutoTemplate, L"LTE", ptStopTest, &ModuleLists::EMIAutoTest, LeaveList},
    {"EmissionFrequency", aceEMIAutoTemplate, L"EFR", ptEveryFreq, &ModuleLists::EMIAutoTest,
     FreqList},
    {"EmissionBefore", aceEMIAutoTemplate, L"BEF1", ptBefore, &ModuleLists::EMIAutoSteps,
     EnterList},
    {"EmissionAfter", aceEMIAutoTemplate, L"AFT1", ptAfter, &ModuleLists::EMIAutoSteps, LeaveList},
    {"SequenceStart", aceTSTemplate, L"ETE", ptStartTest, &ModuleLists::TSTest, EnterList},
    {"SequenceStop", aceTSTemplate, L"LTE", ptStopTest, &ModuleLists::TSTest, LeaveList},
    {"SequenceBefore", aceTSTemplate, L"BFT1", ptBeforeTest, &ModuleLists::TSTests, EnterList},
    {"SequenceAfter", aceTSTemplate, L"ATT1", ptAfterTest, &ModuleLists::TSTests, LeaveList},
    {"AzimuthStart", aceAziChart, L"ETE", ptStartTest, &ModuleLists::AziChart, EnterList},
    {"AzimuthStop", aceAziChart, L"LTE", ptStopTest, &ModuleLists::AziChart, LeaveList},
    {"AzimuthFrequency", aceAziChart, L"EFR", ptEveryFreq, &ModuleLists::AziChart, FreqList},
    {"WirelessStart", aceVKSTemplate, L"ETE", ptStartTest, &ModuleLists::VKSTemplate, EnterList},
    {"WirelessStop", aceVKSTemplate, L"LTE", ptStopTest, &ModuleLists::VKSTemplate, LeaveList},
    {"WirelessBefore", aceVKSTemplate, L"BFT1", ptBeforeTest, &ModuleLists::VKSTests, EnterList},
    {"WirelessAfter", aceVKSTemplate, L"ATT1", ptAfterTest, &ModuleLists::VKSTests, LeaveList},
    {"WirelessStep", aceVKSTemplate, L"STE1", ptStep, &ModuleLists::VKSSteps, EnterList},
    {"MatrixRow", aceVKSDUT, L"STE1", ptStep, &ModuleLists::VKSSteps, EnterList},
    {"MatrixBefore", aceVKSDUT, L"BSA", ptBefore, &ModuleLists::VKSDUTGlob, EnterList, GlobalLists},
    {"MatrixAfter", aceVKSDUT, L"ASA", ptAfter, &ModuleLists::VKSDUTGlob, LeaveList, GlobalLists},
};

/// Every list of every module has waits that no other list has; enter lists one, leave lists two,
/// those of a frequency three and those of a monitoring's end four. Numbered sets are two.
class EveryModule : public EditorTest {
  protected:
    EveryModule() {
        for (const ModuleRow& module : ModuleTable) {
            FillModule(State(), module.moduleKind, {});
            for (const FixedSet& fixed : module.AllFixed()) {
                FillSet(State().*fixed.set);
            }
            for (const NumberedSets& numbered : module.AllNumbered()) {
                FillSet((State().*numbered.sets)[0]);
                FillSet((State().*numbered.sets)[1]);
            }
        }
        FillNames();
        State().Modul = aceTemplate;
    }
    /// A wireless template shows both of its tests, each with a step; the matrix shows its row of
    /// 2.4 GHz, and a leaf for 5 GHz, of which it has no row.
    void OpenModule(aceModul moduleKind, std::int32_t matrix = RowsAsRoots) {
        State().VKSDUTTemplate = matrix;
        Open(moduleKind);
    }
    const ModuleLists& Store() { return State(); }

  private:
    void FillSet(p_Subrange& set) {
        std::int32_t count = 0;
        for (const ListFields* fields : {&EnterList, &LeaveList, &FreqList, &MlcList}) {
            std::vector<p_Action> waits;
            ++count;
            for (std::int32_t i = 0; i < count; ++i) {
                waits.push_back(WaitFor(++x_last * 1000.0));
            }
            Fill(set, *fields, waits);
        }
    }
    static DynArray<String> Two(const String& first, const String& second) {
        DynArray<String> texts;
        texts.Redim(0, 1);
        texts[0] = first;
        texts[1] = second;
        return texts;
    }
    void FillNames() {
        EngineState& state = State();
        state.VKSHostUKeys = Two(FirstTest, SecondTest);
        state.VKSHostNames = Two(L"Conducted", L"Radiated");
        state.VKSStepNames = Two(L"Low", L"High");
        state.VKSStepUKeys = Two(FirstTest, SecondTest);
        state.VKSDUTFreqCount = 2;
        state.VKSDUTFreqs.Redim(0, 1);
        state.VKSDUTFreqs[0] = 2.4e9;
        state.VKSDUTFreqs[1] = 5e9;
        state.VKSDUTFreqNames = Two(L"2.4 GHz", L"5 GHz");
    }

    double x_last = 0.0;  ///< seconds of the last wait; no two are alike
};

}  // namespace ace::test
