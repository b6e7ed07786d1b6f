/// A session with the editor of each kind of module but the plain template.
#include "editor/session_fixture.h"

namespace ace::test {
namespace {

using namespace sim;
using ::testing::ElementsAre;

using ModuleSession = EditorSession;

TEST_F(ModuleSession, AnEmissionTemplateFollowsFrequenciesAndChecksInCycles) {
    Begin(aceTemplate, 1, L"[General]\nTemplateType=4\n");
    Add(L"EFR", L"ACT:5", {Choose(L"optTrackFrq", 1), Type(L"txtDelayTime", L"250")});
    Add(L"EFR", L"ACT:5",
        {ChooseTable(L"filLimitLine", 40, 2, L"levels"), Choose(L"cboSigPath", 1),
         Tick(L"chkAskGenOutputOn", true)});
    Add(L"ESR0", L"ACT:4",
        {PickDevice(L"Meter", L"Limit=1"), Tick(L"chkNotify", false), Tick(L"chkCycleTime", true),
         Type(L"txtCycleTime", L"0.5"), Tick(L"chkGotoLoadingPosition", true)});
    AddPlain(L"LSR0", L"ACT:7");
    EXPECT_FALSE(DropPlain(L"ESR0", L"ACT:5"));
    SaveAndLoadAgain();
    Change(L"CHI0EFR", {Type(L"txtDelayTime", L"600")});  // a delay alone is no change
    Change(L"CHI1EFR", {Choose(L"cboSigPath", 0), Tick(L"chkAskGenOutputOn", false)});
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[General]\nTemplateType=4\n"
                               L"[ActionsOnTest]\nNumOfFreqActions=2\n"
                               L"FrequAction1=FREQTRACK:Meter,250\n"
                               L"FrequAction2=FREQTRACK:Source,levels,40,2,0\n"
                               L"[ActionsOnSR1]\nNumOfEnterActions=1\n"
                               L"EnterAction1=CHECKEUT:Meter,101,0,1,0,1,0.50,0,10.00,1\n"
                               L"NumOfLeaveActions=1\nLeaveAction1=PROTREC:\n"
                               L"[Actions101-Device]\nLimit=1\n"));
    EXPECT_THAT(LinesBelow(L"EFR"), ElementsAre(L"T(9066): Meter", L"T(9066): Source"));
}

TEST_F(ModuleSession, MonitoringSignalsFromItsChannels) {
    Begin(aceMonitoring, 2, L"");
    ExpectDialog({Tick(L"chkSwitchGenerator", true)});
    EXPECT_TRUE(list.DoubleClick(L"ACT:6")) << "on the first channel, which is the default";
    AddPlain(L"NGO0", L"ACT:8");
    AddPlain(L"NGO0", L"ACT:11");
    EXPECT_TRUE(DropPlain(L"NGO1", L"ACT:10"));
    EXPECT_TRUE(DropPlain(L"NGO1", L"ACT:9"));
    EXPECT_FALSE(DropPlain(L"NGO0", L"ACT:4"));
    EXPECT_FALSE(DropPlain(L"MLC", L"ACT:8"));
    AddPlain(L"ETE", L"ACT:8");
    Add(L"MLC", L"ACT:0", {Type(L"txtWait", L"0.001")});
    Add(L"BFT", L"ACT:1", {PickFile(L"cmdSelSound", L"c:\\snd\\go.wav")});
    Add(L"TRI1", L"ACT:2", {Type(L"txtGpibCommand", L"TRIG")});
    Add(L"GOE1", L"ACT:4", {PickDevice(L"Meter", L"Limit=1")});
    Command(L"CHI2NGO0", L"T(9014)");
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnEutMon]\n"
                               L"NumOfMlcActions=1\nMLLeaAction1=WAIT:1.000\n"
                               L"[ActionsOnMonTestLoop]\nNumOfEnterActions=1\n"
                               L"EnterAction1=NOTIFY:,c:\\snd\\go.wav,0\n"
                               L"[ActionsOnChannel1]\nNumOfEnterActions=3\n"
                               L"EnterAction1=COMMENT:1\nEnterAction2=NBBETSI:\n"
                               L"EnterAction3=STOP:\n"
                               L"[ActionsOnChannel2]\nNumOfEnterActions=2\n"
                               L"EnterAction1=STPLEV:\nEnterAction2=GOTOSGL:\n"
                               L"NumOfLeaveActions=1\n"
                               L"LeaveAction1=CHECKEUT:Meter,101,0,1,1,0,20.00,0,10.00,0\n"
                               L"NumOfFreqActions=1\nFrequAction1=REMOTE:TRIG,0,1,0,,0,\n"
                               L"[Actions101-Device]\nLimit=1\n"));
}

TEST_F(ModuleSession, SusceptibilityParksAndSwitches) {
    Begin(aceEMSAutoTemplateGeneral, 0, L"");
    ExpectDialog({Type(L"txtMessage", L"Ready"), Tick(L"chkBeep", true)});
    EXPECT_TRUE(list.DoubleClick(L"ACT:1")) << "at the start, which is the default";
    EXPECT_TRUE(DropPlain(L"LTE", L"ACT:15"));
    Drop(L"LTE", L"ACT:13", {Pick(L"imgSwitchUnit", L"Unit"), Choose(L"cboSUPaths", 0)});
    EXPECT_TRUE(Drag(L"CHI0LTE", L"CHI1LTE"));
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnEMSAutoTest]\n"
                               L"NumOfEnterActions=1\nEnterAction1=NOTIFY:Ready,,1\n"
                               L"NumOfLeaveActions=2\n"
                               L"LeaveAction1=SWITCHUNIT:Unit,P1\nLeaveAction2=PARKACC:\n"));
}

TEST_F(ModuleSession, TheStepsOfSusceptibilityTakeLinesFromEachOther) {
    Begin(aceEMSAutoTemplate, 2, L"");
    ExpectDialog({Type(L"txtWait", L"1")});
    EXPECT_TRUE(list.DoubleClick(L"ACT:0")) << "in the first step, which is the default";
    Add(L"STE1", L"ACT:0", {Type(L"txtWait", L"2")});
    EXPECT_TRUE(Drag(L"CHI0STE0", L"STE1"));
    Command(L"STE0", L"T(9017)");
    Command(L"CHI0STE1", L"T(9012)");
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnStep1]\nNumOfEnterActions=1\n"
                               L"EnterAction1=WAIT:1000.000\n"
                               L"[ActionsOnStep2]\nNumOfEnterActions=1\n"
                               L"EnterAction1=WAIT:1000.000\n"));
}

TEST_F(ModuleSession, EmissionParksBySetsAndClearsASubtest) {
    Begin(aceEMIAutoTemplate, 2, L"");
    EXPECT_FALSE(DropPlain(L"ETE", L"ACT:15"));
    AddPlain(L"ETE", L"ACT:15");
    AddPlain(L"BEF1", L"ACT:7");
    Add(L"EMI1", L"ACT:0", {});
    Add(L"AFT0", L"ACT:0", {});
    Command(L"EMI0", L"T(9013)");
    Command(L"AFT0", L"T(9013)");
    Command(L"EMI1", L"T(9013)");
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnEMIAutoTest]\nNumOfEnterActions=1\n"
                               L"EnterAction1=PARKACC:\n"
                               L"[ActionsOnStep1]\n"
                               L"[ActionsOnStep2]\nNumOfEnterActions=2\n"
                               L"EnterAction1=PROTREC:\nEnterAction2=WAIT:10000.000\n"));
}

TEST_F(ModuleSession, ASequenceSwitchesAroundItsTests) {
    Begin(aceTSTemplate, 1, L"");
    Add(L"TST0", L"ACT:12", {Pick(L"imgAmplifier", L"Amp"), Choose(L"cboSwitchAmp", 1)});
    Drop(L"ATT0", L"ACT:12", {Pick(L"imgAmplifier", L"Amp"), Choose(L"cboSwitchAmp", 4)});
    Drop(L"LTE", L"ACT:2", {Type(L"txtDll", L"report.exe")});
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnTestSequence]\n"
                               L"NumOfLeaveActions=1\nLeaveAction1=REMOTE:,,,,report.exe,0,\n"
                               L"[ActionsOnTest1]\n"
                               L"NumOfEnterActions=1\nEnterAction1=SWITCHAMP:Amp,1\n"
                               L"NumOfLeaveActions=1\nLeaveAction1=SWITCHAMP:Amp,4\n"));
}

TEST_F(ModuleSession, AnAzimuthChartProtectsAndSetsADevice) {
    Begin(aceAziChart, 0, L"");
    AddPlain(L"ETE", L"ACT:7");
    Drop(L"CHI0ETE", L"ACT:0", {Type(L"txtWait", L"0.5")});
    Drop(L"EFR", L"ACT:3", {PickDevice(L"Meter", L"Range=1")});
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnAzimuthChart]\nNumOfEnterActions=2\n"
                               L"EnterAction1=PROTREC:\nEnterAction2=WAIT:500.000\n"
                               L"NumOfFreqActions=1\nFrequAction1=SETDEV:Meter,101\n"
                               L"[Actions0-Device]\nRange=1\n[Actions101-Device]\nRange=1\n"));
}

/// The host announces its one test by this key and name.
void AnnounceTest(aceActionsEngine& engine) {
    DynArray<String> key;
    key.Redim(0, 0);
    key[0] = L"U1";
    engine.SetVKSTests(key, key);
}

TEST_F(ModuleSession, AWirelessTestAsksAndMonitorsWithItsVariables) {
    const String keys =
        L"[ActionsOnTest1_VKS]\nVKS_UKey=U1\nSUBSTEPS=1\n"
        L"[ActionsOnStepU1_1_VKS]\nVKS_Name=Idle\nVKS_Key=K1\n";
    afterLoad = [&] { AnnounceTest(*engine); };
    Begin(aceVKSTemplate, 1, keys);
    Add(L"STE0", L"ACT:16",
        {Type(L"txtMessage", L"Is  set?"), SelectText(L"txtMessage", 3),
         Pick(L"cb_show_VKSVars(0)", L"DUT Frequency")});
    Drop(L"STE0", L"ACT:17", {PickDevice(L"Meter", L"Limit=2")});
    EXPECT_FALSE(DropPlain(L"BFT0", L"ACT:16"));
    EXPECT_FALSE(Drag(L"CHI0STE0", L"BFT0"));
    Add(L"BFT0", L"ACT:2",
        {Type(L"txtGpibCommand", L"FREQ "), Pick(L"cb_show_VKSVars(1)", L"DUT Frequency")});
    Drop(L"ATT0", L"ACT:14",
         {ChooseFile(L"filAPIProgram", L"log.mac"), Pick(L"cb_show_VKSVars(2)", L"DUT Power"),
          Choose(L"tabAPIParameter", 1), ChooseTable(L"filAPIParameterTable", 40, 0, L"t.tab")});
    SaveAndLoadAgain();
    EXPECT_EQ(File(),
              Sections(keys + L"[ActionsOnVKSTemplate]\n"
                              L"[ActionsOnTest1]\n"
                              L"NumOfEnterActions=1\nEnterAction1=REMOTE:FREQ #FREQ#,0,1,0,,0,\n"
                              L"NumOfLeaveActions=1\nLeaveAction1=API:log.mac||#POWER#||t.tab\n"
                              L"[ActionsOnStepU1_1]\nNumOfEnterActions=2\n"
                              L"EnterAction1=QUESTION:Is #FREQ# set?,,0\n"
                              L"EnterAction2=MONITOREUT:Meter,101,1,1,0,0,20.00,0,10.00,0\n"
                              L"[Actions101-Device]\nLimit=2\n"));
}

TEST_F(ModuleSession, TheRowsOfAMatrixHaveListsOfTheirOwn) {
    afterLoad = [&] {
        engine->SetVKSDUTInfluence(1, 0, 0);
        engine->AddVKSDUTFreq(L"2.4 GHz", 2.4e9);
    };
    Begin(aceVKSDUT, 0, L"");
    EXPECT_TRUE(list.DoubleClick(L"ACT:0")) << "nothing is selected, and a matrix has no default";
    Add(L"STE0", L"ACT:4", {PickDevice(L"Meter", L"Limit=3"), Tick(L"chkStopTest", true)});
    Drop(L"STE0", L"ACT:1", {Type(L"txtMessage", L"Row 1, first")});
    EXPECT_TRUE(Drag(L"CHI1STE0", L"CHI0STE0"));
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnVKSTemplate_0]\nCount=1\nFreq=1\nBandwidth=0\nPower=0\n"
                               L"[ActionsOnStep_0_1_VKS]\nID0=2400000000\nID1=-1\nID2=-1\n"
                               L"[ActionsOnStep_0_1]\nNumOfEnterActions=2\n"
                               L"EnterAction1=NOTIFY:Row 1\x01 first,,0\n"
                               L"EnterAction2=CHECKEUT:Meter,101,1,1,1,0,20.00,0,10.00,0\n"
                               L"[Actions101-Device]\nLimit=3\n"));
}

TEST_F(ModuleSession, TheGlobalListsOfAMatrixRunBeforeAndAfterItsRows) {
    Begin(aceVKSDUT, 3, L"");
    Add(L"BSA", L"ACT:0", {Type(L"txtWait", L"1")});
    Drop(L"ASA", L"ACT:0", {Type(L"txtWait", L"2")});
    EXPECT_TRUE(Drag(L"CHI0BSA", L"ASA", ShiftKeys::Control));
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnVKSTemplate_3]\nCount=0\nFreq=0\nBandwidth=0\nPower=0\n"
                               L"[ActionsOnVKSDUTGlob]\n"
                               L"NumOfEnterActions=1\nEnterAction1=WAIT:1000.000\n"
                               L"NumOfLeaveActions=2\n"
                               L"LeaveAction1=WAIT:2000.000\nLeaveAction2=WAIT:1000.000\n"));
}

}  // namespace
}  // namespace ace::test
