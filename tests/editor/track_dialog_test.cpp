// The dialog of a tracked frequency: a generator that is synchronised, or a monitoring device.
#include "editor/bench_dialog.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

constexpr std::int32_t Generator = 0;  // items of optTrackFrq
constexpr std::int32_t Monitor = 1;

class TrackDialog : public BenchDialog {
  protected:
    TrackDialog() {
        host->texts[9201] = L"Enter yyy to xxx, not above xxx";
        Add<sim::SimRfGenerator>(L"Synth 1");
        Add<sim::SimRfGenerator>(L"Synth 2");
        AddMonitor(L"Camera", 2 + 4);
        AddMonitor(L"Tracker", 8);
        AddMonitor(L"Probe");
        Add<sim::SimSignalPath>(L"Path A");
        Add<sim::SimSignalPath>(L"Path B");
    }
    /// Shows a template that measures emission, with these actions at every frequency.
    void OpenEmission(const std::vector<p_Action>& actions = {}, bool measuresEmission = true) {
        Fill(State().MainTest, FreqList, actions);
        State().EmiTemplate = measuresEmission;
        Open(aceTemplate);
    }
    void AddTrack(Acts acts) { AddKind(atTrackFreq, std::move(acts), L"EFR"); }
    void EditTrack(Acts acts, const String& line = L"CHI0EFR") { EditLine(std::move(acts), line); }
    static p_Action Synchronised(const String& generator, const String& path = {}) {
        aceTrackFreq record;
        record.GenName = generator;
        record.SigPathName = path;
        record.TableType = 40;
        record.TableMeasClass = 2;
        record.TableName = L"Levels";
        return Action(atTrackFreq, record);
    }
    static p_Action Followed(const String& monitor, std::int32_t delay) {
        aceTrackFreq record;
        record.MoniName = monitor;
        record.DelayTime = delay;
        return Action(atTrackFreq, record);
    }
    const aceTrackFreq& StoredTrack(std::int32_t index = 0) {
        return std::get<aceTrackFreq>(State().MainTest.Freq[index].Parameter);
    }
    static FormAct HasOption(std::int32_t index) {
        return Do([index](Form& form) {
            EXPECT_EQ(form.Find<OptionGroup>(L"optTrackFrq")->index, index);
            EXPECT_EQ(form.Find(L"fraEmi")->IsShown(), index == Generator);
            EXPECT_EQ(form.Find(L"fraEmiCAN")->IsShown(), index == Monitor);
        });
    }
    static FormAct HasTable(ITableType type, ITableMeasClass measClass, const String& name) {
        return Do([=](Form& form) {
            const auto& box = *form.Find<FileBox>(L"filLimitLine");
            EXPECT_EQ(box.tableType, type);
            EXPECT_EQ(box.tableMeasClass, measClass);
            EXPECT_EQ(box.fileName, name);
        });
    }
    /// A refused entry, whose dialog is then cancelled.
    void ExpectRefused(Acts acts, const String& text, const String& focus) {
        AnswerBox(text);
        acts.insert(acts.end(), {ForgetCalls(), PressOk, SeeFocus(focus), PressCancel});
        AddTrack(acts);
        EXPECT_THAT(TakeCalls(), ElementsAre(EntryTaken, EntryRefused(text), DialogHidden));
        EXPECT_EQ(State().MainTest.FreqCount, 0);
        EXPECT_FALSE(engine->Change());
    }
};

// ---- opening -----------------------------------------------------------------------------------

TEST_F(TrackDialog, ANewActionBeginsWithTheFirstItemsAndWithoutATable) {
    OpenEmission();
    AddTrack({HasOption(Generator), SeeItems(L"cboGenerator", {L"Synth 1", L"Synth 2"}),
              See(L"cboGenerator", L"Synth 1"),
              SeeItems(L"cboSigPath", {L"T(9113)", L"Path A", L"Path B"}),
              See(L"cboSigPath", L"T(9113)"), See(L"filLimitLine", L""),
              SeeItems(L"cboCANDriver", {L"Tracker", L"Probe"}), See(L"cboCANDriver", L"Tracker"),
              See(L"txtDelayTime", L"100"), Do([](Form& form) {
                  EXPECT_FALSE(form.Find<CheckBox>(L"chkAskGenOutputOn")->ticked);
              }),
              PressCancel});
    EXPECT_THAT(TakeCalls(), ElementsAre(DialogShown, DialogHidden));
}

TEST_F(TrackDialog, ANewActionAfterAnotherOneBeginsAnew) {
    p_Action other = Synchronised(L"Synth 2", L"Path B");
    std::get<aceTrackFreq>(other.Parameter).AskOnMeasStart = true;
    OpenEmission({other, Followed(L"Probe", 250)});
    EditTrack({PressCancel});
    EditTrack({PressCancel}, L"CHI1EFR");
    AddTrack({HasOption(Generator), See(L"cboGenerator", L"Synth 1"),
              See(L"cboSigPath", L"T(9113)"), See(L"filLimitLine", L""),
              See(L"txtDelayTime", L"100"), Choose(L"optTrackFrq", Monitor),
              See(L"cboCANDriver", L"Tracker"), PressOk});
    EXPECT_EQ(StoredTrack(2).GenName, L"");
    EXPECT_EQ(StoredTrack(2).SigPathName, L"");
    EXPECT_EQ(StoredTrack(2).MoniName, L"Tracker");
    EXPECT_EQ(StoredTrack(2).DelayTime, 100);
}

TEST_F(TrackDialog, TheFrameThatDoesNotShowIsThatOfANewActionWhateverStoodThereBefore) {
    OpenEmission({Synchronised(L"Synth 2", L"Path B"), Followed(L"Probe", 250)});
    EditTrack({Choose(L"optTrackFrq", Monitor), See(L"cboCANDriver", L"Tracker"),
               See(L"txtDelayTime", L"100"), PressCancel});
    EditTrack({Choose(L"optTrackFrq", Generator), See(L"cboGenerator", L"Synth 1"),
               See(L"cboSigPath", L"T(9113)"), See(L"filLimitLine", L""), PressCancel},
              L"CHI1EFR");
}

TEST_F(TrackDialog, WhatARunHasHeldForAnotherGeneratorIsHeldNoMore) {
    p_Action run = Synchronised(L"Synth 1", L"Path A");
    auto& record = std::get<aceTrackFreq>(run.Parameter);
    record.GenDev = std::dynamic_pointer_cast<IRfGenerator>(host->bench.Device(L"Synth 1"));
    ASSERT_NE(record.GenDev, nullptr);
    OpenEmission({run});
    EditTrack({Choose(L"cboGenerator", 1), PressOk});
    EXPECT_EQ(StoredTrack().GenName, L"Synth 2");
    EXPECT_EQ(StoredTrack().GenDev, nullptr);
}

TEST_F(TrackDialog, AnExistingGeneratorShowsItsTableTypeAndItsSignalPath) {
    OpenEmission({Synchronised(L"Synth 2", L"Path B")});
    EditTrack({HasOption(Generator), See(L"cboGenerator", L"Synth 2"),
               See(L"cboSigPath", L"Path B"), HasTable(40, 2, L"Levels"), PressOk});
    EXPECT_THAT(TakeCalls(), ElementsAre(DialogShown, EntryTaken, DialogHidden));
    EXPECT_EQ(State().MainTest.Freq[0], Synchronised(L"Synth 2", L"Path B"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(TrackDialog, AGeneratorWithoutASignalPathShowsTheFirstItemBehindOneThatHadOne) {
    OpenEmission({Synchronised(L"Synth 2", L"Path B"), Synchronised(L"Synth 1")});
    EditTrack({PressCancel});
    EditTrack({See(L"cboGenerator", L"Synth 1"), See(L"cboSigPath", L"T(9113)"), PressOk},
              L"CHI1EFR");
    EXPECT_EQ(StoredTrack(1).SigPathName, L"");
    EXPECT_FALSE(engine->Change());
}

TEST_F(TrackDialog, AnExistingMonitorShowsItsDelay) {
    OpenEmission({Followed(L"Probe", 250)});
    EditTrack({HasOption(Monitor), See(L"cboCANDriver", L"Probe"), See(L"txtDelayTime", L"250"),
               PressOk});
    EXPECT_EQ(State().MainTest.Freq[0], Followed(L"Probe", 250));
    EXPECT_FALSE(engine->Change());
}

TEST_F(TrackDialog, AnActionWithNeitherNameLeavesTheFieldsOfTheDialogBefore) {
    OpenEmission({Followed(L"Probe", 250), Followed(L"", 0)});
    EditTrack({PressCancel});
    EditTrack({HasOption(Monitor), See(L"cboCANDriver", L"Probe"), See(L"txtDelayTime", L"250"),
               PressCancel},
              L"CHI1EFR");
}

TEST_F(TrackDialog, AnActionWithBothNamesIsAGenerators) {
    p_Action both = Synchronised(L"Synth 2");
    std::get<aceTrackFreq>(both.Parameter).MoniName = L"Probe";
    OpenEmission({both});
    EditTrack({HasOption(Generator), See(L"cboGenerator", L"Synth 2"), PressOk});
    EXPECT_EQ(StoredTrack().MoniName, L"");
    EXPECT_TRUE(engine->Change());
}

TEST_F(TrackDialog, TheOptionsShowOneFrameOrTheOther) {
    OpenEmission();
    AddTrack({Choose(L"optTrackFrq", Monitor), HasOption(Monitor),
              SeeShown({L"txtDelayTime"}, {L"cboGenerator"}), Choose(L"optTrackFrq", Generator),
              HasOption(Generator), SeeShown({L"cboGenerator"}, {L"txtDelayTime"}), PressCancel});
}

// ---- what is taken over ------------------------------------------------------------------------

TEST_F(TrackDialog, ANewGeneratorIsTakenWithAllItsFields) {
    OpenEmission();
    AddTrack({Choose(L"cboGenerator", 1), Choose(L"cboSigPath", 2),
              ChooseTable(L"filLimitLine", 41, 3, L"Field"), Tick(L"chkAskGenOutputOn", true),
              PressOk});
    EXPECT_EQ(StoredTrack().GenName, L"Synth 2");
    EXPECT_EQ(StoredTrack().SigPathName, L"Path B");
    EXPECT_EQ(StoredTrack().TableName, L"Field");
    EXPECT_EQ(StoredTrack().TableType, 41);
    EXPECT_EQ(StoredTrack().TableMeasClass, 3);
    EXPECT_TRUE(StoredTrack().AskOnMeasStart);
    EXPECT_EQ(StoredTrack().MoniName, L"");
    EXPECT_EQ(LinesBelow(L"EFR"), Lines{L"T(9066): Synth 2"});
}

TEST_F(TrackDialog, TheFirstItemOfTheSignalPathsIsNone) {
    OpenEmission({Synchronised(L"Synth 1", L"Path A")});
    EditTrack({Choose(L"cboSigPath", 0), PressOk});
    EXPECT_EQ(StoredTrack().SigPathName, L"");
    EXPECT_TRUE(engine->Change());
}

TEST_F(TrackDialog, ANewMonitorIsTakenWithItsDelayInMilliseconds) {
    OpenEmission();
    AddTrack({Choose(L"optTrackFrq", Monitor), Choose(L"cboCANDriver", 1),
              Type(L"txtDelayTime", L"350"), PressOk});
    EXPECT_EQ(StoredTrack().MoniName, L"Probe");
    EXPECT_EQ(StoredTrack().DelayTime, 350);
    EXPECT_EQ(StoredTrack().GenName, L"");
    EXPECT_EQ(LinesBelow(L"EFR"), Lines{L"T(9066): Probe"});
}

TEST_F(TrackDialog, AGeneratorThatIsMadeAMonitorKeepsItsNameBesideIt) {
    OpenEmission({Synchronised(L"Synth 2", L"Path B")});
    EditTrack({Choose(L"optTrackFrq", Monitor), Choose(L"cboCANDriver", 0), PressOk});
    EXPECT_EQ(StoredTrack().MoniName, L"Tracker");
    EXPECT_EQ(StoredTrack().GenName, L"Synth 2");
    EXPECT_EQ(StoredTrack().TableName, L"Levels");
    EXPECT_TRUE(engine->Change());
}

TEST_F(TrackDialog, AnotherDelayAloneIsNoChange) {
    OpenEmission({Followed(L"Probe", 250)});
    EditTrack({Type(L"txtDelayTime", L"300"), PressOk});
    EXPECT_EQ(StoredTrack().DelayTime, 250);
    EXPECT_FALSE(engine->Change());
}

// ---- what is refused ---------------------------------------------------------------------------

TEST_F(TrackDialog, WithoutAGeneratorNothingIsTaken) {
    host->bench.devices.clear();
    OpenEmission();
    ExpectRefused({See(L"cboGenerator", L""), ChooseTable(L"filLimitLine", 40, 0, L"Levels")},
                  L"T(9206)", L"cmdOK");
}

TEST_F(TrackDialog, AGeneratorWithoutATableIsNotTaken) {
    OpenEmission();
    ExpectRefused({}, L"T(9207)", L"cmdOK");
}

TEST_F(TrackDialog, WithoutAGeneratorAndATableTheGeneratorIsAskedForFirst) {
    host->bench.devices.clear();
    OpenEmission();
    ExpectRefused({}, L"T(9206)", L"cmdOK");
}

TEST_F(TrackDialog, ADelayOfNothingIsRefusedWithTheLimitsOfTheBox) {
    OpenEmission();
    for (const String text : {L"0", L"", L"none"}) {
        ExpectRefused({Choose(L"optTrackFrq", Monitor), Type(L"txtDelayTime", text)},
                      L"Enter 1.000 to 600.000, not above 600.000", L"txtDelayTime");
    }
}

TEST_F(TrackDialog, ADelayBeyondItsLimitsIsTaken) {
    OpenEmission();
    AddTrack({Choose(L"optTrackFrq", Monitor), Type(L"txtDelayTime", L"700"), PressOk});
    EXPECT_EQ(StoredTrack().DelayTime, 700);
}

TEST_F(TrackDialog, WithoutAMonitoringDeviceThatTracksNothingIsTaken) {
    host->bench.devices.clear();
    AddMonitor(L"Camera", 2 + 4);
    OpenEmission();
    ExpectRefused(
        {Choose(L"optTrackFrq", Monitor), SeeItems(L"cboCANDriver", {}), See(L"cboCANDriver", L"")},
        L"T(9205)", L"cmdOK");
}

TEST_F(TrackDialog, WithoutADelayAndADeviceTheDelayIsAskedForFirst) {
    host->bench.devices.clear();
    OpenEmission();
    ExpectRefused({Choose(L"optTrackFrq", Monitor), Type(L"txtDelayTime", L"0")},
                  L"Enter 1.000 to 600.000, not above 600.000", L"txtDelayTime");
}

// ---- values that the lists lack, and lists that were filled once --------------------------------

TEST_F(TrackDialog, NamesThatTheListsLackAreShownAndKept) {
    OpenEmission({Synchronised(L"Gone", L"Lost"), Followed(L"Away", 5)});
    EditTrack({See(L"cboGenerator", L"Gone"), See(L"cboSigPath", L"Lost"),
               Tick(L"chkAskGenOutputOn", true), PressOk});
    EXPECT_EQ(StoredTrack().GenName, L"Gone");
    EXPECT_EQ(StoredTrack().SigPathName, L"Lost");
    EXPECT_TRUE(StoredTrack().AskOnMeasStart);
    EditTrack({See(L"cboCANDriver", L"Away"), PressOk}, L"CHI1EFR");
    EXPECT_EQ(StoredTrack(1).MoniName, L"Away");
}

TEST_F(TrackDialog, TheListsAreAskedForWhenTheEditorIsOpenedFirst) {
    State().Modul = aceTemplate;
    engine->LoadEditor(&list, &tree);
    Lines calls = TakeCalls();
    std::erase_if(calls, [](const String& line) {
        return !line.starts_with(L"DeviceList.") && !line.starts_with(L"MonitorDevice.");
    });
    EXPECT_EQ(calls,
              Journal(ClassAsked(L"Generators"), ClassAsked(L"Monitoring"), UsesAsked(L"Camera"),
                      UsesAsked(L"Tracker"), UsesAsked(L"Probe"), ClassAsked(L"SignalPaths")));
    host->journal.Clear();
    engine->LoadEditor(&list, &tree);
    EXPECT_THAT(host->journal.LinesOf(L"DeviceList"), ElementsAre());
}

TEST_F(TrackDialog, DevicesThatComeAndGoBehindThatAreSeenByTheNextEditorAlone) {
    OpenEmission({Synchronised(L"Synth 2")});
    host->bench.devices.clear();
    Add<sim::SimRfGenerator>(L"Synth 3");
    const Lines before{L"Synth 1", L"Synth 2"};
    EditTrack({SeeItems(L"cboGenerator", before), See(L"cboGenerator", L"Synth 2"), PressCancel});
    Open(aceTemplate);
    AddTrack({SeeItems(L"cboGenerator", before), PressCancel});
    engine->Release();
    Open(aceTemplate);
    AddTrack(
        {SeeItems(L"cboGenerator", {L"Synth 3"}), See(L"cboGenerator", L"Synth 3"), PressCancel});
    EditTrack({See(L"cboGenerator", L"Synth 2"), PressOk});
    EXPECT_EQ(StoredTrack().GenName, L"Synth 2");
}

// ---- templates that measure no emission ---------------------------------------------------------

TEST_F(TrackDialog, WithoutEmissionTheActionIsTakenAsItStands) {
    const p_Action action = Followed(L"", 0);
    OpenEmission({action, Synchronised(L"Gone", L"Lost")}, false);
    EditTrack({Choose(L"optTrackFrq", Monitor), Type(L"txtDelayTime", L"0"), PressOk});
    EditTrack({Choose(L"optTrackFrq", Generator), Tick(L"chkAskGenOutputOn", true), PressOk},
              L"CHI1EFR");
    EXPECT_EQ(State().MainTest.Freq[0], action);
    EXPECT_EQ(State().MainTest.Freq[1], Synchronised(L"Gone", L"Lost"));
    EXPECT_FALSE(engine->Change());
}

TEST_F(TrackDialog, WithoutEmissionTheFieldsAreThoseOfTheDialogBefore) {
    OpenEmission({Followed(L"Probe", 250), Synchronised(L"Synth 2", L"Path B")});
    EditTrack({PressCancel});
    State().EmiTemplate = false;
    Open(aceTemplate);
    EditTrack({HasOption(Monitor), See(L"cboCANDriver", L"Probe"), See(L"txtDelayTime", L"250"),
               PressCancel},
              L"CHI1EFR");
}

}  // namespace
}  // namespace ace::test
