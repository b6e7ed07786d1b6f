#include "core/opaque_device.h"
#include "editor/editor_fixture.h"

namespace ace::test {
namespace {

/// What a run leaves in an action, and what is left of it in a copy.
class CopiedFields : public EditorTest {
  protected:
    /// Replace variables of a wireless run.
    static aceVKSVar Variables() {
        aceVKSVar variables;
        variables.count = 1;
        variables.strSearch.Redim(0, 0);
        variables.valReplace.Redim(0, 0);
        return variables;
    }
    /// The copy of an action that stands in the start list: pasted with a section of its own where
    /// it has one, or dragged to the end of the list.
    p_Action Copied(const p_Action& source, bool isPasted) {
        Fill(State().MainTest, EnterList, {source});
        State().MainTest.Enter[0].IgnoreErr = true;
        Open(aceTemplate);
        Select(L"CHI0ETE");
        GetAction(Parts());
        AddAction(Parts(), isPasted);
        p_Action kept = source;
        kept.IgnoreErr = true;
        EXPECT_EQ(Parts().lists.MainTest.Enter[0], kept) << "the source keeps all";
        return Parts().lists.MainTest.Enter[1];
    }
    void ExpectCopies(const p_Action& source, const p_Action& pasted, const p_Action& dragged) {
        EXPECT_EQ(Copied(source, true), pasted);
        EXPECT_EQ(Copied(source, false), dragged);
    }

    OpaqueDevice device;
};

TEST_F(CopiedFields, ACommandHasNeitherHandleNorProcessNorVariables) {
    aceRemote pasted;
    pasted.Command = L"*RST";
    pasted.GpibAddress = 120;
    pasted.Program = L"exerciser";
    pasted.WaitPrgSync = true;
    aceRemote dragged = pasted;
    dragged.DrvHdl = 5;
    dragged.ProgID = 4711.0;
    aceRemote source = dragged;
    source.vks = Variables();
    ASSERT_EQ(pasted.DrvHdl, -1);
    ASSERT_EQ(pasted.ProgID, 0.0);
    ExpectCopies(Action(atRemote, source), Action(atRemote, pasted), Action(atRemote, dragged));
}

TEST_F(CopiedFields, AMacroHasNeitherFrequencyNorVariables) {
    aceAPI pasted;
    pasted.Program = L"log.mac";
    pasted.Parameters.Redim(1, 1);
    pasted.Parameters[1] = L"#FREQ#";
    aceAPI dragged = pasted;
    dragged.Freq = 30e6;
    aceAPI source = dragged;
    source.vks = Variables();
    ExpectCopies(Action(atAPI, source), Action(atAPI, pasted), Action(atAPI, dragged));
}

TEST_F(CopiedFields, AMessageHasNoVariables) {
    for (const p_ActionTypes kind : {atNotify, atQuestion, atComment}) {
        aceNotify copy;
        copy.Message = L"Close the door";
        copy.WaveFile = L"gong.wav";
        copy.Beep = copy.GeneratorOff = true;
        aceNotify source = copy;
        source.vks = Variables();
        ExpectCopies(Action(kind, source), Action(kind, copy), Action(kind, copy));
    }
}

TEST_F(CopiedFields, ADeviceHasNoReferencesAndWasNeverChecked) {
    aceSetDevice pasted;
    pasted.DevName = L"EUT";
    pasted.ChanNo = 7;
    pasted.CycleTime = 60.0;
    pasted.LastCheck = -1.0F;
    pasted.WaitTime = 2.5F;
    pasted.AmpState = 2;
    pasted.Path = L"A";
    pasted.SigPathName = L"B";
    pasted.StopTest = pasted.CommToTable = pasted.Notify = pasted.LoadingPos = true;
    pasted.UseTimeCyc = pasted.WaitState = true;
    aceSetDevice source = pasted;
    source.LastCheck = 36000.0F;
    source.Device = device.As<IDevice>();
    source.MoniDev = device.As<IMonitorDevice>();
    source.BcGen = device.As<IBcGenerator>();
    source.AmplDev = device.As<IAmplifier>();
    source.SwitchDev = device.As<ISwitchUnit>();
    source.SigPath = device.As<ISignalPath>();
    for (const p_ActionTypes kind : {atCheckEut, atMonitorEUT, atSwitchAmp, atSwitchUnit}) {
        ExpectCopies(Action(kind, source), Action(kind, pasted), Action(kind, source));
    }
    pasted.ChanNo = 101;
    ExpectCopies(Action(atSetDevice, source), Action(atSetDevice, pasted),
                 Action(atSetDevice, source));
}

TEST_F(CopiedFields, AFollowerHasNeitherReferencesNorAFrequency) {
    aceTrackFreq pasted;
    pasted.MoniName = L"Probe";
    pasted.GenName = L"Generator";
    pasted.SigPathName = L"Path";
    pasted.TableName = L"Levels";
    pasted.DelayTime = 5;
    pasted.TableType = 2;
    pasted.TableMeasClass = 3;
    pasted.AskOnMeasStart = true;
    aceTrackFreq source = pasted;
    source.Freq = 30e6;
    source.MoniDev = device.As<IMonitorDevice>();
    source.GenDev = device.As<IRfGenerator>();
    source.SigPath = device.As<ISignalPath>();
    source.CalTable = device.As<ICalTable>();
    ExpectCopies(Action(atTrackFreq, source), Action(atTrackFreq, pasted),
                 Action(atTrackFreq, source));
}

TEST_F(CopiedFields, AWaitAndAKindWithoutARecordAreCopiedAsTheyAre) {
    ExpectCopies(WaitFor(1500), WaitFor(1500), WaitFor(1500));
    ExpectCopies(Action(atProtRec), Action(atProtRec), Action(atProtRec));
    ExpectCopies(Action(atTestStop, 30), Action(atTestStop, 30), Action(atTestStop, 30));
}

/// A drag takes a line, deletes it, and adds it elsewhere.
TEST_F(CopiedFields, ALineThatIsDraggedToAnotherMomentHasItsHandleThereAndNowhereElse) {
    aceRemote dragged;
    dragged.Command = L"*RST";
    dragged.DrvHdl = 5;
    aceRemote source = dragged;
    source.vks = Variables();
    Fill(State().MainTest, EnterList, {Action(atRemote, source), WaitFor(1000)});
    Open(aceTemplate);
    Select(L"CHI0ETE");
    GetAction(Parts());
    DeleteAction(Parts());
    Select(L"LTE");
    AddAction(Parts(), false);
    EXPECT_EQ(State().MainTest.EnterCount, 1);
    EXPECT_EQ(State().MainTest.Enter[0], WaitFor(1000));
    EXPECT_EQ(State().MainTest.Leave[0], Action(atRemote, dragged));
}

TEST_F(CopiedFields, WhatIsHeldKeepsWhatTheCopyIsWithout) {
    aceRemote source;
    source.Command = L"*RST";
    source.DrvHdl = 5;
    source.vks = Variables();
    Copied(Action(atRemote, source), true);
    EXPECT_EQ(std::get<aceRemote>(Parts().held.Action.Parameter), source);
}

}  // namespace
}  // namespace ace::test
