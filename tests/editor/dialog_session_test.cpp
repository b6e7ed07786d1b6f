/// Sessions with the editor of a template: what the panes, the mouse and the menus leave in the
/// file.
#include "editor/session_fixture.h"

namespace ace::test {
namespace {

using namespace sim;
using ::testing::ElementsAre;

class DialogSession : public EditorSession {
  protected:
    void AddToTheStart() {
        Add(L"ETE", L"ACT:0", {Type(L"txtWait", L"2.5")});
        Add(L"ETE", L"ACT:2",
            {Type(L"txtGpibCommand", L"*RST"), Choose(L"cboIface", 2), Type(L"txtHost", L"gen"),
             Type(L"txtTcpPort", L"5025")});
        Add(L"ETE", L"ACT:12", {Pick(L"imgAmplifier", L"Amp"), Choose(L"cboSwitchAmp", 3)});
        Add(L"ETE", L"ACT:14",
            {ChooseFile(L"filAPIProgram", L"log.mac"), Type(L"txtAPIParameterValue", L"1,5"),
             Choose(L"tabAPIParameter", 1),
             ChooseTable(L"filAPIParameterTable", 40, 0, L"limits.tab")});
    }
    void AddToEachFrequency() {
        Drop(L"EFR", L"ACT:3", {PickDevice(L"Meter", L"Range=3")});
        Add(L"EFR", L"ACT:4",
            {PickDevice(L"Meter", L"Limit=1"), Tick(L"chkStopTest", true), Tick(L"chkWait", true),
             Type(L"txtWaitTime", L"4.5")});
    }
    void AddToTheStop() {
        Drop(L"LTE", L"ACT:2",
             {PickFile(L"cmdSelDll", L"c:\\tools\\run.exe"),
              Tick(L"chkWaitForProgramCompleted", true)});
        Add(L"LTE", L"ACT:13", {Pick(L"imgSwitchUnit", L"Unit"), Choose(L"cboSUPaths", 1)});
    }
    void AddToTheSubranges() {
        Drop(L"ESR0", L"ACT:1",
             {Type(L"txtMessage", L"Close the door,\r\nplease"), Tick(L"chkBeep", true)});
        Drop(L"LSR0", L"ACT:2",
             {Type(L"txtGpibCommand", L"SYST:PRES,1"), Choose(L"cboIface", 1),
              Choose(L"cboComPort", 2), Choose(L"cboTerminator", 2)});
        Add(L"ESR1", L"ACT:3",
            {PickDevice(L"Injector", L"Level=-30"), Pick(L"imgSwitchUnit", L"Coax")});
        Add(L"LSR1", L"ACT:2", {Type(L"txtGpibCommand", L"*IDN?"), Choose(L"cboGpibAddress", 49)});
    }
};

/// What a template holds whose lists were filled as above.
const String FilledTemplate =
    L"[General]\nOwner=lab\n"
    L"[ActionsOnTest]\n"
    L"NumOfEnterActions=5\n"
    L"EnterAction1=WAIT:1500.000\n"
    L"EnterAction2=WAIT:2500.000\n"
    L"EnterAction3=REMOTE:*RST,2,gen,5025:1,,0,\n"
    L"EnterAction4=SWITCHAMP:Amp,3\n"
    L"EnterAction5=API:log.mac||1.5||limits.tab\n"
    L"NumOfLeaveActions=2\n"
    L"LeaveAction1=REMOTE:,,,,c:\\tools\\run.exe,1,\n"
    L"LeaveAction2=SWITCHUNIT:Unit,P2\n"
    L"NumOfFreqActions=2\n"
    L"FrequAction1=SETDEV:Meter,101\n"
    L"FrequAction2=CHECKEUT:Meter,102,1,1,1,0,20.00,1,4.50,0\n"
    L"[ActionsOnSR1]\n"
    L"NumOfEnterActions=1\n"
    L"EnterAction1=NOTIFY:Close the door\x01\x7fplease,,1\n"
    L"NumOfLeaveActions=1\n"
    L"LeaveAction1=REMOTE:SYST:PRES\x01"
    L"1,1,3,2,,0,\n"
    L"[ActionsOnSR2]\n"
    L"NumOfEnterActions=1\n"
    L"EnterAction1=SETDEV:Injector,103,Coax\n"
    L"NumOfLeaveActions=1\n"
    L"LeaveAction1=REMOTE:*IDN?,0,120,0,,0,\n"
    L"[Actions0-Device]\nLevel=-30\n"
    L"[Actions101-Device]\nRange=3\n"
    L"[Actions102-Device]\nLimit=1\n"
    L"[Actions103-Device]\nLevel=-30\n";

TEST_F(DialogSession, EveryKindOfATemplateIsFilledInSavedAndLoadedAgain) {
    Begin(aceTemplate, 2,
          L"[General]\nOwner=lab\n"
          L"[ActionsOnTest]\nNumOfEnterActions=1\nEnterAction1=WAIT:1500.000\n");
    AddToTheStart();
    AddToEachFrequency();
    AddToTheStop();
    AddToTheSubranges();
    EXPECT_TRUE(engine->Change());
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(FilledTemplate));
    EXPECT_THAT(LinesBelow(L"ETE"),
                ElementsAre(L"T(9063): 1.500 s", L"T(9063): 2.500 s", L"T(9062): \\\\gen,*RST",
                            L"T(9073): Amp --> Operate", L"T(9078): log.mac"));
    EXPECT_THAT(LinesBelow(L"ESR0"), ElementsAre(L"T(9064): Close the door, please"));
    EXPECT_THAT(LinesBelow(L"LSR0"), ElementsAre(L"T(9062): COM3,SYST:PRES,1"));
    EXPECT_THAT(LinesBelow(L"LSR1"), ElementsAre(L"T(9062): Gpib1:20,*IDN?"));
}

TEST_F(DialogSession, EachFieldThatIsChangedInAFileStandsInItAndNothingElse) {
    Begin(aceTemplate, 2, FilledTemplate);
    Change(L"CHI1ETE", {Type(L"txtWait", L"3600")});
    Change(L"CHI2ETE", {Type(L"txtTcpPort", L"50000")});
    Change(L"CHI3ETE", {Choose(L"cboSwitchAmp", 0)});
    Change(L"CHI4ETE", {Type(L"txtAPIParameterValue", L"#FREQ#")});
    Change(L"CHI1EFR", {Tick(L"chkNotify", false), Tick(L"chkWait", false)});
    Change(L"CHI0LTE", {Tick(L"chkWaitForProgramCompleted", false)});
    Change(L"CHI1LTE", {Choose(L"cboSUPaths", 0)});
    Change(L"CHI0ESR0", {Type(L"txtMessage", L"Open it")});
    Change(L"CHI0LSR0", {Choose(L"cboComPort", 7)});
    Change(L"CHI0ESR1", {Pick(L"imgSwitchUnit", L"T(9147)")});
    Change(L"CHI0LSR1", {Choose(L"cboTerminator", 3)});
    SaveAndLoadAgain();
    SimSections changed = Sections(FilledTemplate);
    std::vector<String>& test = changed[L"ActionsOnTest"];
    test[2] = L"EnterAction2=WAIT:3600000.000";
    test[3] = L"EnterAction3=REMOTE:*RST,2,gen,50000:1,,0,";
    test[4] = L"EnterAction4=SWITCHAMP:Amp,0";
    test[5] = L"EnterAction5=API:log.mac||#FREQ#||limits.tab";
    test[7] = L"LeaveAction1=REMOTE:,,,,c:\\tools\\run.exe,0,";
    test[8] = L"LeaveAction2=SWITCHUNIT:Unit,P1";
    test[11] = L"FrequAction2=CHECKEUT:Meter,102,1,1,0,0,20.00,0,4.50,0";
    changed[L"ActionsOnSR1"][1] = L"EnterAction1=NOTIFY:Open it,,1";
    changed[L"ActionsOnSR1"][3] =
        L"LeaveAction1=REMOTE:SYST:PRES\x01"
        L"1,1,8,2,,0,";
    changed[L"ActionsOnSR2"][1] = L"EnterAction1=SETDEV:Injector,103";
    changed[L"ActionsOnSR2"][3] = L"LeaveAction1=REMOTE:*IDN?,0,120,3,,0,";
    EXPECT_EQ(File(), changed);
}

TEST_F(DialogSession, WhatIsConfirmedAsItWasIsNoChange) {
    Begin(aceTemplate, 2, FilledTemplate);
    Lines keys;
    for (const TreeNode node : tree.Nodes()) {
        keys.push_back(tree.Key(node));
    }
    for (const String& key : keys) {
        SCOPED_TRACE(testing::PrintToString(key));
        if (key.starts_with(L"CHI")) {
            Change(key, {});
        }
        EXPECT_FALSE(engine->Change());
    }
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(FilledTemplate));
}

/// Three waits at the start, and a device with its settings where the first subrange begins.
const String WaitsAndADevice =
    L"[ActionsOnTest]\nNumOfEnterActions=3\n"
    L"EnterAction1=WAIT:1000.000\nEnterAction2=WAIT:2000.000\nEnterAction3=WAIT:3000.000\n"
    L"[ActionsOnSR1]\nNumOfEnterActions=1\nEnterAction1=SETDEV:Meter,101\n"
    L"[Actions101-Device]\nRange=3\n";

TEST_F(DialogSession, LinesAreDraggedCopiedPastedMovedAndDeletedInTheFile) {
    Begin(aceTemplate, 2, WaitsAndADevice);
    EXPECT_TRUE(Drag(L"CHI1ETE", L"CHI0ETE"));  // 2 1 3
    Command(L"CHI2ETE", L"T(9014)");            // 2 3 1
    Command(L"CHI0ETE", L"T(9015)");            // 3 2 1
    Command(L"CHI0ESR0", L"T(9016)");
    Command(L"ESR1", L"T(9017)");
    Command(L"CHI0ESR1", L"T(9017)");
    EXPECT_TRUE(Drag(L"CHI0ESR0", L"LSR1", ShiftKeys::Control));
    EXPECT_TRUE(Drag(L"CHI0ESR0", L"LSR0", ShiftKeys::Shift));
    EXPECT_TRUE(Drag(L"CHI2ETE", L"LTE"));
    Command(L"CHI0ETE", L"T(9012)");
    Command(L"ESR0", L"T(9013)");
    SaveAndLoadAgain();
    EXPECT_EQ(File(), Sections(L"[ActionsOnTest]\n"
                               L"NumOfEnterActions=1\nEnterAction1=WAIT:2000.000\n"
                               L"NumOfLeaveActions=1\nLeaveAction1=WAIT:1000.000\n"
                               L"[ActionsOnSR1]\n"
                               L"NumOfLeaveActions=1\nLeaveAction1=SETDEV:Meter,101\n"
                               L"[ActionsOnSR2]\n"
                               L"NumOfEnterActions=2\n"
                               L"EnterAction1=SETDEV:Meter,102\nEnterAction2=SETDEV:Meter,103\n"
                               L"NumOfLeaveActions=1\nLeaveAction1=SETDEV:Meter,104\n"
                               L"[Actions101-Device]\nRange=3\n[Actions102-Device]\nRange=3\n"
                               L"[Actions103-Device]\nRange=3\n[Actions104-Device]\nRange=3\n"));
}

TEST_F(DialogSession, WhatIsCancelledOrRefusedLeavesListsAndFileAsTheyWere) {
    Begin(aceTemplate, 2, WaitsAndADevice);
    const Lines shown = LinesOfTree();
    const ModuleLists store = State();
    for (const FormAct& end : {Press(L"cmdCancel"), PressKey(Keys::Escape), CloseFrame()}) {
        Show(L"CHI0ETE");
        ExpectDialog({Type(L"txtWait", L"7")}, end);
        tree.DoubleClick(L"CHI0ETE");
        ExpectDialog({Type(L"txtMessage", L"no"), Tick(L"chkBeep", true)}, end);
        EXPECT_TRUE(DropPlain(L"ESR1", L"ACT:1"));
        ExpectDialog({PressFor(L"cmdOK", [](SimOperator& user) { user.ExpectBox(L"T(9203)"); })},
                     end);
        list.DoubleClick(L"ACT:2");
    }
    Command(L"CHI0ETE", std::nullopt);
    EXPECT_FALSE(Drag(L"CHI0ETE", L"CHI0ESR0"));
    EXPECT_FALSE(Drag(L"CHI0ETE", L"EFR"));
    EXPECT_FALSE(Drag(L"ETE", L"LTE"));
    EXPECT_FALSE(DropPlain(L"EFR", L"ACT:1"));
    AddPlain(L"EFR", L"ACT:0");
    EXPECT_EQ(LinesOfTree(), shown);
    EXPECT_EQ(static_cast<const ModuleLists&>(State()), store);
    EXPECT_FALSE(engine->Change());
    SaveAndLoadAgain();
    SimSections same = Sections(WaitsAndADevice);
    same[L"ActionsOnSR2"];
    EXPECT_EQ(File(), same);
}

}  // namespace
}  // namespace ace::test
