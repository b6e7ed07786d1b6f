#include "editor/shown_actions.h"
#include "editor/shown_editor.h"

namespace ace::test {
namespace {

/// The whole tree of each module but the matrix, with lists that are empty and lists that are not.
class ModuleTrees : public ShownEditor {
  protected:
    p_Subrange& Numbered(DynArray<p_Subrange> ModuleLists::*sets, std::int32_t index) {
        return (State().*sets)[index];
    }
    static void SetTexts(DynArray<String>& array, const Lines& texts) {
        array.Redim(0, static_cast<std::int32_t>(texts.size()) - 1);
        std::ranges::copy(texts, array.begin());
    }
    /// Four tests, of which the host shows two in its own order; "c" is not among its tests, and an
    /// empty key names none.
    void MakeWirelessTests() {
        MakeSets(&ModuleLists::VKSTests, &ModuleLists::VKSTestCount, 4);
        SetTexts(State().VKSTestUKeys, {L"b", L"", L"c", L"a"});
        SetTexts(State().VKSHostUKeys, {L"a", L"", L"x", L"b"});
        SetTexts(State().VKSHostNames, {L"Antenna", L"Nameless", L"Unknown", L"Band edge"});
        MakeSets(&ModuleLists::VKSSteps, &ModuleLists::VKSStepCount, 4);
        SetTexts(State().VKSStepUKeys, {L"a", L"b", L"a", L""});
        SetTexts(State().VKSStepNames, {L"Carrier", L"Mask", L"Spurious", L"Lost"});
    }
};

TEST_F(ModuleTrees, SingleTestWithItsSubranges) {
    p_Subrange& test = State().MainTest;
    Fill(test, EnterList, {WaitFor(1500), Broken(), CloseTheDoor, Gpib(120, L"*RST")});
    Fill(test, FreqList,
         {Synchronised(L"Generator 1"), Tracked(L"Probe 2"), Device(atSetDevice, L"Turntable")});
    Fill(test, LeaveList, {Action(atProtRec), Action(atParkAcc)});
    MakeSets(&ModuleLists::MainSubranges, &ModuleLists::MainSubrangeCount, 3);
    Fill(Numbered(&ModuleLists::MainSubranges, 0), EnterList, {Amplifier(L"Amplifier", 3), PathA});
    Fill(Numbered(&ModuleLists::MainSubranges, 2), LeaveList,
         {Comment(true), Comment(false), Action(atTestStop)});

    Open(aceTemplate);

    EXPECT_EQ(Tree(), GoldenLines("editor/template.txt"));
}

TEST_F(ModuleTrees, MonitoringWithItsLoopAndChannels) {
    Fill(State().MoniEut, EnterList, {Camera});
    Fill(State().MoniEut, FreqList, {Tracked(L"Probe 2")});
    Fill(State().MoniEut, MlcList, {Serial(2, L"OUTP OFF")});
    Fill(State().MoniEut, LeaveList, {Api(L"C:\\macros\\log.mac")});
    Fill(State().MoniLoop, EnterList, {Sound(L"C:\\sounds\\ding.wav")});
    Fill(State().MoniLoop, LeaveList, {Started(L"C:\\tools\\exerciser.exe /q")});
    MakeSets(&ModuleLists::MoniChannels, &ModuleLists::MoniChannelCount, 2);
    p_Subrange& first = Numbered(&ModuleLists::MoniChannels, 0);
    Fill(first, FreqList, {Action(atNbBbEtsi)});
    Fill(first, EnterList, {Action(atStopLevSweep), Action(atGotoSingle)});
    Fill(first, LeaveList, {Tcp(L"gen", 5025, L"OUTP ON")});
    Fill(Numbered(&ModuleLists::MoniChannels, 1), EnterList, {Ask(L"Lamp green?")});

    Open(aceMonitoring);

    EXPECT_EQ(Tree(), GoldenLines("editor/monitoring.txt"));
}

TEST_F(ModuleTrees, GeneralListsOfASusceptibilityTestStandOpen) {
    Fill(State().EMSAutoGeneral, EnterList, {PathA});
    Fill(State().EMSAutoGeneral, FreqList, {Camera});  // runs, but has no moment here

    Open(aceEMSAutoTemplateGeneral);

    EXPECT_EQ(Tree(), GoldenLines("editor/susceptibility_general.txt"));
}

TEST_F(ModuleTrees, StepsOfASusceptibilityTestStandOpen) {
    MakeSets(&ModuleLists::EMSAutoSteps, &ModuleLists::EMSAutoStepCount, 3);
    Fill(Numbered(&ModuleLists::EMSAutoSteps, 0), EnterList, {WaitFor(250)});
    Fill(Numbered(&ModuleLists::EMSAutoSteps, 1), LeaveList, {Camera});  // nothing shows it
    Fill(Numbered(&ModuleLists::EMSAutoSteps, 2), EnterList, {PathA, CloseTheDoor});

    Open(aceEMSAutoTemplate);

    EXPECT_EQ(Tree(), GoldenLines("editor/susceptibility_steps.txt"));
}

TEST_F(ModuleTrees, BothMomentsOfAnEmissionStepStandOpenWithWhatComesBeforeIt) {
    Fill(State().EMIAutoTest, EnterList, {Camera});
    Fill(State().EMIAutoTest, FreqList, {PathA});
    Fill(State().EMIAutoTest, LeaveList, {WaitFor(250)});
    MakeSets(&ModuleLists::EMIAutoSteps, &ModuleLists::EMIAutoStepCount, 3);
    Fill(Numbered(&ModuleLists::EMIAutoSteps, 0), EnterList, {Action(atProtRec)});
    Fill(Numbered(&ModuleLists::EMIAutoSteps, 1), LeaveList, {Action(atParkAcc)});

    Open(aceEMIAutoTemplate);

    EXPECT_EQ(Tree(), GoldenLines("editor/emission.txt"));
}

TEST_F(ModuleTrees, BothMomentsOfATestInASequenceStandOpenWithWhatComesBeforeIt) {
    Fill(State().TSTest, EnterList, {CloseTheDoor});
    Fill(State().TSTest, FreqList, {PathA});  // nothing shows it
    Fill(State().TSTest, LeaveList, {Camera});
    MakeSets(&ModuleLists::TSTests, &ModuleLists::TSTestCount, 2);
    Fill(Numbered(&ModuleLists::TSTests, 0), LeaveList, {Amplifier(L"Amplifier", 2)});
    Fill(Numbered(&ModuleLists::TSTests, 1), EnterList, {WaitFor(250)});

    Open(aceTSTemplate);

    EXPECT_EQ(Tree(), GoldenLines("editor/sequence.txt"));
}

TEST_F(ModuleTrees, AzimuthChart) {
    Fill(State().AziChart, EnterList, {Action(atProtRec)});
    Fill(State().AziChart, FreqList, {Device(atSetDevice, L"Turntable")});
    Fill(State().AziChart, LeaveList, {Action(atParkAcc)});

    Open(aceAziChart);

    EXPECT_EQ(Tree(), GoldenLines("editor/azimuth.txt"));
}

TEST_F(ModuleTrees, WirelessTestsStandInTheHostsOrderWithTheirSteps) {
    Fill(State().VKSTemplate, EnterList, {WaitFor(250)});
    Fill(State().VKSTemplate, LeaveList, {Action(atProtRec)});
    MakeWirelessTests();
    Fill(Numbered(&ModuleLists::VKSTests, 3), EnterList, {PathA});
    Fill(Numbered(&ModuleLists::VKSTests, 0), LeaveList, {Tcp(L"gen", 5025, L"OUTP ON")});
    Fill(Numbered(&ModuleLists::VKSTests, 2), EnterList, {Camera});  // no test of the host's
    Fill(Numbered(&ModuleLists::VKSSteps, 0), EnterList,
         {Device(atMonitorEUT, L"Camera"), Ask(L"Lamp green?")});
    Fill(Numbered(&ModuleLists::VKSSteps, 3), EnterList, {Camera});  // a step of no test

    Open(aceVKSTemplate);

    EXPECT_EQ(Tree(), GoldenLines("editor/wireless_tests.txt"));
}

}  // namespace
}  // namespace ace::test
