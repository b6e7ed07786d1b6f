/// Whole tests whose lists set, check, switch and follow devices.
#include "support/device_moments.h"
#include "support/whole_test.h"

namespace ace::test {
namespace {

class WholeDeviceTests : public WholeTest {
  protected:
    WholeDeviceTests() { host->texts[9420] = L"%1 has failed"; }
    template <class Kind>
    std::shared_ptr<Kind> Add(const String& name) {
        return host->bench.Add<Kind>(*host, name);
    }
    /// The host measures at another frequency and tells the engine.
    Boolean Measure(double hertz, bool isForced = false) {
        host->bench.frequency = hertz;
        return engine->NewFrequency(hertz, isForced);
    }

    std::shared_ptr<sim::SimMonitor> monitor = Add<sim::SimMonitor>(L"EUT");
    std::shared_ptr<sim::SimAmplifier> amplifier = Add<sim::SimAmplifier>(L"Amp");
    std::shared_ptr<sim::SimSwitchUnit> unit = Add<sim::SimSwitchUnit>(L"Unit");
    std::shared_ptr<sim::SimBcGenerator> radio = Add<sim::SimBcGenerator>(L"Radio");
    std::shared_ptr<sim::SimSignalPath> antenna = Add<sim::SimSignalPath>(L"Antenna");
    std::shared_ptr<sim::SimReceiver> receiver = Add<sim::SimReceiver>(L"Rx");
};

String DeviceSection(std::int32_t number) {
    return L"Actions" + std::to_wstring(number) + L"-Device";
}
Lines MaybeFound(const String& name, bool isFirst) {
    return isFirst ? Lines{Found(name)} : Lines{};
}
Lines MonitorSet(std::int32_t fileKind, std::int32_t number) {
    return Journal(Opened(fileKind), Found(L"EUT"), StateOf(L"EUT"), Classed(L"EUT", 1),
                   UsedFor(L"EUT", 2), Loaded(L"EUT", DeviceSection(number)),
                   Called(L"MonitorDevice.SetChannel", L"EUT", number, 1), StateOf(L"EUT"));
}
Lines RadioSet(std::int32_t fileKind, std::int32_t number) {
    return Journal(Opened(fileKind), Found(L"Radio"), StateOf(L"Radio"), Classed(L"Radio", 2),
                   Found(L"Antenna"), Called(L"SignalPath.Prepare", L"Antenna"),
                   Called(L"BcGenerator.SetSignalPath", L"Radio", true),
                   Loaded(L"Radio", DeviceSection(number)), Called(L"BcGenerator.Apply", L"Radio"));
}
/// A check up to the state behind its reading.
Lines Checked(std::int32_t fileKind, std::int32_t number, double reading, bool isFirst = true) {
    return Journal(Opened(fileKind), MaybeFound(L"EUT", isFirst), StateOf(L"EUT"),
                   Classed(L"EUT", 1), UsedFor(L"EUT", 4), Loaded(L"EUT", DeviceSection(number)),
                   ChannelRead(L"EUT", number), MarkCompared(reading), StateOf(L"EUT"));
}
Lines AmplifierSet(std::int32_t state) {
    const String number = std::to_wstring(state);
    return {Found(L"Amp"), StateOf(L"Amp"), L"Amplifier.SetState(\"Amp\", " + number + L")",
            L"DeviceList.PostEvent(\"ActionEngine\", 4, \"" + number + L"\")", Yielded};
}
Lines UnitSwitched(const String& path, bool isFirst = true) {
    return Journal(MaybeFound(L"Unit", isFirst), StateOf(L"Unit"),
                   Called(L"SwitchUnit.SwitchPath", L"Unit", path));
}
Lines ReceiversProtected() {
    return {TestAsked(),    L"DeviceList.DevicesOfClass(\"Receivers\")",
            Found(L"Rx"),   Called(L"Receiver.CommonDevice", L"Rx"),
            StateOf(L"Rx"), Called(L"Receiver.SetParameter", L"Rx", 18, L"On", true, 0, L"")};
}
Lines SecondsLeft(const String& seconds) {
    return {NameOf(L"EUT"), Progress(L"EUT has failed - " + seconds + L"s")};
}

// ---- single test -------------------------------------------------------------------------------

/// The second tracking keeps the monitoring device of the first: both of its names are set.
constexpr StringView TemplateFile =
    LR"([ActionsOnTest]
NumOfEnterActions=1
EnterAction1=SWITCHAMP:Amp,3
NumOfLeaveActions=1
LeaveAction1=SWITCHAMP:Amp,0
NumOfFreqActions=2
FrequAction1=FREQTRACK:EUT,500
FrequAction2=FREQTRACK:Gen,Levels,40,2,1,Antenna
[ActionsOnSR1]
NumOfEnterActions=2
EnterAction1=SETDEV:EUT,101
EnterAction2=SWITCHUNIT:Unit,Port 1
)";

Lines Settled(double hertz) {
    return {StateOf(L"EUT"), UsedFor(L"EUT", 8),
            Called(L"MonitorDevice.SetFrequency", L"EUT", hertz),
            L"SystemServices.ShowTimedMessage(\"Wait for Monitoring ... 500 ms\\r\\nPlease wait\", "
            L"64, \"T(9430): T(9431)\", 500)"};
}
Lines Tracked(double hertz, bool isFirst = false) {
    return Journal(TestAsked(), MaybeFound(L"EUT", isFirst),
                   Called(L"MonitorDevice.CommonDevice", L"EUT"), Settled(hertz));
}
/// Level -15 of the table and a correction of 2.
Lines Followed(double hertz) {
    return {TestAsked(),
            Called(L"Utilities.IsEqual", hertz, 0.0),
            Called(L"RfGenerator.SetFrequency", L"Gen", hertz),
            Called(L"CalTable.GetValue", L"Levels", hertz, 1, 2),
            Called(L"SignalPath.GetCorrection", L"Antenna", hertz, 1),
            Called(L"RfGenerator.SetLevel", L"Gen", -13.0),
            Called(L"RfGenerator.SetRfOn", L"Gen", true),
            Called(L"RfGenerator.Execute", L"Gen")};
}

TEST_F(WholeDeviceTests, Template) {
    const auto generator = Add<sim::SimRfGenerator>(L"Gen");
    Add<sim::SimCalTable>(L"Levels")->levels = {{1e6, -15.0}};
    antenna->correction = {{1e6, 2.0}};
    Load(aceTemplate, 1, TemplateFile);
    host->user.ExpectQuestion(true);

    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, AmplifierSet(3), Yielded, Tracked(0.0, true), Yielded, TestAsked(),
                      L"UserDialogs.ShowMessageBox(\"T(9432)\", 4, \"T(9430): T(9431)\")",
                      Found(L"Antenna"), Called(L"SignalPath.Prepare", L"Antenna"), Found(L"Gen"),
                      Called(L"RfGenerator.CommonDevice", L"Gen"), StateOf(L"Gen"),
                      Called(L"RfGenerator.SetRfOn", L"Gen", false),
                      Called(L"RfGenerator.Execute", L"Gen"),
                      Called(L"SignalPath.CommonDevice", L"Antenna"), StateOf(L"Antenna"),
                      L"SystemServices.GetTable(40, 10, \"Levels\", 2, false)",
                      Compared(L"0", L"0"), Tracked(0.0, true)));
    EXPECT_FALSE(engine->EnterSubrange(1));
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 0), Yielded, MonitorSet(20, 101), Yielded,
                                     UnitSwitched(L"Port 1")));
    EXPECT_FALSE(Measure(80e6));
    EXPECT_FALSE(Measure(80e6));
    EXPECT_EQ(TakeEffects(),
              Journal(Compared(L"80000000", L"-1"), Yielded, Tracked(80e6), Yielded, Followed(80e6),
                      Tracked(80e6), Compared(L"80000000", L"80000000")));
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{80e6, -13.0, true}));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, AmplifierSet(0)));
}

// ---- monitoring --------------------------------------------------------------------------------

constexpr StringView MonitoringFile =
    LR"([ActionsOnEutMon]
NumOfEnterActions=2
EnterAction1=SETDEV:EUT,101
EnterAction2=PROTREC:
NumOfLeaveActions=1
LeaveAction1=SWITCHAMP:Amp,0
NumOfFreqActions=1
FrequAction1=CHECKEUT:EUT,102,1,1,0,0,10.00,0,5.00,1
NumOfMlcActions=1
MLLeaAction1=SWITCHUNIT:Unit,Port 2
[ActionsOnMonTestLoop]
NumOfEnterActions=1
EnterAction1=SWITCHAMP:Amp,3
[ActionsOnChannel1]
NumOfEnterActions=2
EnterAction1=MONITOREUT:EUT,103,1,0,0,0,0.00,0,0.00,0
EnterAction2=SWITCHUNIT:Unit,Port 1
NumOfLeaveActions=1
LeaveAction1=SETDEV:Radio,104,Antenna
[Actions101-Device]
Gain=3
)";

TEST_F(WholeDeviceTests, Monitoring) {
    monitor->failures = {{.channel = 102, .fromHz = 430e6, .toHz = 435e6, .milliseconds = 1e9},
                         {.channel = 103, .fromHz = 430e6, .toHz = 435e6, .milliseconds = 1e9}};
    Load(aceMonitoring, 1, MonitoringFile);
    Value comment;

    EXPECT_TRUE(engine->EUT_UseSetDevice());
    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, MonitorSet(20, 101), Yielded, ReceiversProtected()));
    EXPECT_EQ(monitor->settings, Lines{L"Gain=3"});
    EXPECT_FALSE(engine->BeforeTestLoop());
    EXPECT_FALSE(Measure(420e6));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 0);
    EXPECT_FALSE(engine->AfterStep(1));
    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, AmplifierSet(3), Compared(L"420000000", L"-1"), Yielded,
                      Checked(20, 102, 0.0), Yielded, UnitSwitched(L"Port 2")));
    EXPECT_TRUE(Measure(433e6));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 1 + 128 + 4);
    EXPECT_EQ(std::get<String>(comment), L"T(9421)");
    EXPECT_EQ(TakeEffects(), Journal(Compared(L"433000000", L"420000000"), Yielded,
                                     Checked(20, 102, 1.0, false), Progress(L"")));
    EXPECT_EQ(engine->EnterNoGo(1, L"Lamp"), 0);  // monitoring signals nothing to the channel
    EXPECT_EQ(engine->Go(1, L"Lamp"), 0);
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Checked(20, 103, 1.0), Progress(L""), Yielded,
                                     UnitSwitched(L"Port 1"), Yielded, RadioSet(20, 104)));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, AmplifierSet(0)));
    EXPECT_TRUE(engine->InitReceiver());
}

// ---- automatic emission test -------------------------------------------------------------------

constexpr StringView EmissionFile =
    LR"([ActionsOnEMIAutoTest]
NumOfEnterActions=1
EnterAction1=SETDEV:Radio,101,Antenna
NumOfLeaveActions=2
LeaveAction1=SWITCHUNIT:Unit,Off
LeaveAction2=PARKACC:
NumOfFreqActions=1
FrequAction1=CHECKEUT:EUT,102,0,0,1,1,10.00,1,10.00,1
[ActionsOnStep1]
NumOfEnterActions=1
EnterAction1=SWITCHUNIT:Unit,Port 1
NumOfLeaveActions=1
LeaveAction1=PROTREC:
)";

/// One second in the wait of a check.
Lines Second(const String& secondsLeft) {
    return Journal(L"Utilities.Wait(1000)", ChannelRead(L"EUT", 102), SecondsLeft(secondsLeft));
}

TEST_F(WholeDeviceTests, EmissionWithAFailureOfThreeSeconds) {
    monitor->failures = {{.channel = 102, .fromHz = 430e6, .toHz = 435e6, .milliseconds = 3000.0}};
    Load(aceEMIAutoTemplate, 1, EmissionFile);
    Value comment;

    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(engine->BeforeStep(1));
    EXPECT_TRUE(engine->NewFrqCheckForAccLoading());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, RadioSet(24, 101), InRange(0, 0, 0), Yielded,
                                     UnitSwitched(L"Port 1")));
    OperatorGoesOn();
    EXPECT_FALSE(Measure(433e6));
    EXPECT_EQ(TakeEffects(),
              Journal(Compared(L"433000000", L"-1"), Yielded, Checked(24, 102, 1.0),
                      SecondsLeft(L"10"), Second(L"9"), Second(L"8"), Second(L"7"), NameOf(L"EUT"),
                      Form(L"lblComment \"EUT has failed\", imgStop, cmdClose \"&OK\", cmdStopTest "
                           L"\"&Stop test\" tip \"T(9313)\""),
                      Progress(L"")));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
    EXPECT_FALSE(Measure(433e6, true));  // within the cycle
    EXPECT_EQ(TakeEffects(), Journal(Compared(L"433000000", L"433000000"), Yielded, Opened(24),
                                     StateOf(L"EUT"), Classed(L"EUT", 1)));
    EXPECT_FALSE(engine->AfterStep(1));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 0), Yielded, ReceiversProtected(), Yielded,
                                     UnitSwitched(L"Off"), Yielded));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
}

// ---- automatic susceptibility test -------------------------------------------------------------

constexpr StringView GeneralFile =
    LR"([ActionsOnEMSAutoTest]
NumOfEnterActions=2
EnterAction1=SETDEV:Radio,101,Antenna
EnterAction2=SWITCHAMP:Amp,3
NumOfLeaveActions=2
LeaveAction1=PARKACC:
LeaveAction2=SWITCHAMP:Amp,2
NumOfFreqActions=2
FrequAction1=CHECKEUT:EUT,102,1,0,0,0,10.00,0,5.00,0
FrequAction2=WAIT:2.000
)";

TEST_F(WholeDeviceTests, SusceptibilityGeneral) {
    monitor->readings[102] = {0.0, 3.0};
    Load(aceEMSAutoTemplateGeneral, 0, GeneralFile);
    Value comment;

    EXPECT_FALSE(engine->StartTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, RadioSet(26, 101), Yielded, AmplifierSet(3)));
    EXPECT_FALSE(Measure(80e6));
    EXPECT_TRUE(Measure(81e6));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 128);
    EXPECT_EQ(TakeEffects(),
              Journal(Compared(L"80000000", L"-1"), Yielded, Checked(26, 102, 0.0), Yielded,
                      Waited(2), Compared(L"81000000", L"80000000"), Yielded,
                      Checked(26, 102, 3.0, false), Progress(L""), Yielded, Waited(2)));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Yielded, AmplifierSet(2)));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
    EXPECT_EQ(amplifier->power, 2);
}

TEST_F(WholeDeviceTests, SusceptibilitySteps) {
    Load(aceEMSAutoTemplate, 1,
         LR"([ActionsOnStep1]
NumOfEnterActions=2
EnterAction1=SETDEV:EUT,101
EnterAction2=SWITCHAMP:Amp,4
)");
    EXPECT_EQ(engine->StepDescription(1), L"1: Set device");
    EXPECT_FALSE(engine->EnterStep(1));
    EXPECT_EQ(TakeEffects(),
              Journal(InRange(0, 0, 0), Yielded, MonitorSet(26, 101), Yielded, AmplifierSet(4)));
}

// ---- sequence and azimuth chart ----------------------------------------------------------------

constexpr StringView SequenceFile =
    LR"([ActionsOnTestSequence]
NumOfEnterActions=1
EnterAction1=PROTREC:
NumOfLeaveActions=1
LeaveAction1=SWITCHAMP:Amp,0
[ActionsOnTest1]
NumOfEnterActions=2
EnterAction1=SWITCHUNIT:Unit,Port 9
EnterAction2=SETDEV:EUT,101
NumOfLeaveActions=1
LeaveAction1=CHECKEUT:EUT,102,1,0,0,1,20.00,0,0.00,0
)";

/// The switch unit has no such path, and the operator goes on.
TEST_F(WholeDeviceTests, Sequence) {
    unit->paths = {L"Port 1"};
    monitor->readings[102] = {3.0};
    Load(aceTSTemplate, 1, SequenceFile);
    host->user.Expect(L"frmGpibError", sim::Press(L"cmdIgnore"));

    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(engine->BeforeTest(1));
    EXPECT_EQ(
        TakeEffects(),
        Journal(Yielded, ReceiversProtected(), InRange(0, 0, 0), Yielded, UnitSwitched(L"Port 9"),
                L"FormHost.ShowModal(\"frmGpibError\", \"T(9062)\", lblMessage \"T(9332)\", "
                L"txtError \"T(9322):\\tUnit\\r\\nT(9320)\\t5\\r\\n\\tUnit: has no path Port 9\", "
                L"imgStop, cmdStopTest \"&Stop test\" tip \"T(9313)\", cmdIgnore \"T(9314)\" tip "
                L"\"T(9315)\")",
                L"FormHost.Hide(\"frmGpibError\")", Yielded, MonitorSet(29, 101)));
    EXPECT_TRUE(engine->AfterTest(1));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(InRange(0, 0, 0), Yielded, Checked(29, 102, 3.0),
                                     Progress(L""), Yielded, AmplifierSet(0)));
}

constexpr StringView AzimuthFile =
    LR"([ActionsOnAzimuthChart]
NumOfEnterActions=1
EnterAction1=SETDEV:EUT,101
NumOfLeaveActions=2
LeaveAction1=PARKACC:
LeaveAction2=PROTREC:
NumOfFreqActions=2
FrequAction1=SWITCHUNIT:Unit,Port 1
FrequAction2=CHECKEUT:EUT,102,1,1,1,0,10.00,1,5.00,0
)";

TEST_F(WholeDeviceTests, AzimuthChart) {
    monitor->readings[102] = {12345.0};
    Load(aceAziChart, 0, AzimuthFile);
    Value comment;

    EXPECT_FALSE(engine->StartTest());
    EXPECT_FALSE(Measure(1e9));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 2);
    EXPECT_EQ(std::get<String>(comment), L"");
    EXPECT_EQ(TakeEffects(),
              Journal(Yielded, MonitorSet(37, 101), Compared(L"1000000000", L"-1"), Yielded,
                      UnitSwitched(L"Port 1"), Yielded, Checked(37, 102, 12345.0)));
    EXPECT_FALSE(engine->StopTest());
    EXPECT_EQ(TakeEffects(), Journal(Yielded, Yielded, ReceiversProtected()));
    EXPECT_EQ(engine->GetCheckEutAction(comment), 4);
}

}  // namespace
}  // namespace ace::test
