#include <ace/execution/signal_path.h>

#include "support/device_fixture.h"

namespace ace::test {
namespace {

using sim::Press;

// ---- receivers ---------------------------------------------------------------------------------

const String ReceiversAsked = L"DeviceList.DevicesOfClass(\"Receivers\")";

class ProtectReceivers : public DeviceTest {
  protected:
    void Protect() { modActions::ProtectReceivers(context); }
    static Lines Asked(const String& name) {
        return {Found(name), Called(L"Receiver.CommonDevice", name), StateOf(name)};
    }
    static Lines Protected(const String& name) {
        return Journal(Asked(name),
                       Called(L"Receiver.SetParameter", name, 18, L"On", true, 0, L""));
    }
};

TEST_F(ProtectReceivers, EveryActiveReceiverIsProtectedFromTheFirstRecordOn) {
    const auto first = Add<sim::SimReceiver>(L"Rx1");
    Add<sim::SimMonitor>(L"EUT");
    const auto second = Add<sim::SimReceiver>(L"Rx2");
    Protect();
    EXPECT_EQ(TakeCalls(), Journal(ReceiversAsked, Protected(L"Rx1"), Protected(L"Rx2")));
    EXPECT_EQ(first->parameters[18], L"On");
    EXPECT_EQ(second->parameters[18], L"On");
}

TEST_F(ProtectReceivers, AReceiverInAnyStateBut1IsLeftAlone) {
    Add<sim::SimReceiver>(L"Off")->state = 0;
    Add<sim::SimReceiver>(L"Busy")->state = 2;
    Add<sim::SimReceiver>(L"Negative")->state = -1;
    Add<sim::SimReceiver>(L"On");
    Protect();
    EXPECT_EQ(TakeCalls(), Journal(ReceiversAsked, Asked(L"Off"), Asked(L"Busy"),
                                   Asked(L"Negative"), Protected(L"On")));
}

/// A device of the class that can't be used as a receiver.
class FalseReceiver : public sim::SimDevice {
  public:
    FalseReceiver(sim::SimHost& owner, String deviceName)
        : SimDevice(owner, std::move(deviceName), sim::SimClass::Receivers) {}
};

TEST_F(ProtectReceivers, EntriesWithoutANameAreNotAskedForAndDevicesThatAreNoReceiversAreSkipped) {
    Add<FalseReceiver>(L"");
    Add<FalseReceiver>(L"Lamp");
    Add<sim::SimReceiver>(L"Rx");
    Protect();
    EXPECT_EQ(TakeCalls(), Journal(ReceiversAsked, Found(L"Lamp"), Protected(L"Rx")));
}

TEST_F(ProtectReceivers, AListThatBeginsWithItsFirstDeviceIsServedAsWell) {
    host->bench.beginsWithDevice = true;
    Add<sim::SimReceiver>(L"Rx1");
    Add<sim::SimReceiver>(L"Rx2");
    Protect();
    EXPECT_EQ(TakeCalls(), Journal(ReceiversAsked, Protected(L"Rx1"), Protected(L"Rx2")));
}

TEST_F(ProtectReceivers, AFailingReceiverEndsTheWalkInSilenceWithTheTraceLine) {
    host->tracing = true;
    Add<sim::SimReceiver>(L"Rx1");
    Add<sim::SimReceiver>(L"Rx2");
    host->faults.FailOperation(L"Device.State", 1, 77);
    Protect();
    EXPECT_EQ(TakeCalls(),
              Journal(Start(L"modActions (Code)", L"ProtectReceivers", L""), ReceiversAsked,
                      Found(L"Rx1"), Called(L"Receiver.CommonDevice", L"Rx1"),
                      Failed(StateOf(L"Rx1"), 77), End(L"ProtectReceivers")));
}

TEST_F(ProtectReceivers, AWalkThatGoesThroughIsTracedAtBothEnds) {
    host->tracing = true;
    Protect();
    EXPECT_EQ(TakeCalls(), Journal(Start(L"modActions (Code)", L"ProtectReceivers", L""),
                                   ReceiversAsked, End(L"ProtectReceivers")));
}

TEST_F(ProtectReceivers, FailuresOfTheListAndOfTheTraceAreSilentToo) {
    Add<sim::SimReceiver>(L"Rx");
    for (const wchar_t* call : {L"DeviceList.DevicesOfClass", L"DeviceList.GetDevice",
                                L"Receiver.CommonDevice", L"Receiver.SetParameter", L"TraceLog"}) {
        host->tracing = true;
        host->faults.FailOperation(call, 1, 8202, sim::FaultScript::Until::ForEver);
        EXPECT_EQ(ErrorOf([&] { Protect(); }), 0) << call;
        host->faults.Clear();
    }
}

// ---- amplifier and switch unit: one shape ------------------------------------------------------

/// One of the two switching actions.
struct SwitchRow {
    const char* name;
    Boolean (*run)(ThreadContext&, aceSetDevice&);
    void (*add)(sim::SimHost&);
    String heading;
    String switched;
};
void PrintTo(const SwitchRow& row, std::ostream* out) {
    *out << row.name;
}
const SwitchRow Switches[] = {
    {"Amplifier", modActions::SwitchAmplifier,
     [](sim::SimHost& host) { host.bench.Add<sim::SimAmplifier>(host, L"Dev"); }, L"T(9331)",
     L"Amplifier.SetState(\"Dev\", 3)"},
    {"SwitchUnit", modActions::SwitchUnitPath,
     [](sim::SimHost& host) { host.bench.Add<sim::SimSwitchUnit>(host, L"Dev"); }, L"T(9332)",
     L"SwitchUnit.SwitchPath(\"Dev\", \"Port 2\")"},
};

class SwitchingTest : public DeviceTest, public ::testing::WithParamInterface<SwitchRow> {
  protected:
    SwitchingTest() {
        record.DevName = L"Dev";
        record.AmpState = 3;
        record.Path = L"Port 2";
    }
    void AddDevice() { GetParam().add(*host); }
    sim::SimDevice& Device() { return *host->bench.Device(L"Dev"); }
    Boolean Switch() { return GetParam().run(context, record); }
    /// The form offers no way to ignore all further failures.
    void ExpectFailure(const String& button, std::int32_t number, const String& text) {
        ExpectError(button, GetParam().heading, L"Dev", number, text);
    }

    aceSetDevice record;
};

INSTANTIATE_TEST_SUITE_P(Switches, SwitchingTest, ::testing::ValuesIn(Switches),
                         [](const auto& row) { return row.param.name; });

TEST_P(SwitchingTest, TheDeviceIsFoundAndSwitchedAndKept) {
    AddDevice();
    EXPECT_FALSE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), StateOf(L"Dev"), GetParam().switched));
    EXPECT_EQ(record.Device, host->bench.Device(L"Dev"));
    record.DevName = L"another name";
    EXPECT_FALSE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(StateOf(L"Dev"), GetParam().switched));
}

TEST_P(SwitchingTest, NothingIsTraced) {
    host->tracing = true;
    AddDevice();
    EXPECT_FALSE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), StateOf(L"Dev"), GetParam().switched));
}

TEST_P(SwitchingTest, AnInactiveDeviceIsActivated) {
    AddDevice();
    Device().state = 0;
    EXPECT_FALSE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), Woken(L"Dev"), GetParam().switched));
}

TEST_P(SwitchingTest, AnActivationThatLeadsToAnythingBut1Fails) {
    AddDevice();
    for (const std::int32_t state : {0, 2, -1}) {
        Device().state = 0;
        Device().stateOnceActivated = state;
        record = {};
        record.DevName = L"Dev";
        ExpectFailure(L"cmdIgnore", 4010, L"T(3350)");
        EXPECT_FALSE(Switch());
        EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), Woken(L"Dev"), ErrorShown()));
    }
}

TEST_P(SwitchingTest, AnyStateBut0PassesWhereNothingWasActivated) {
    AddDevice();
    Device().state = 2;
    EXPECT_FALSE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), StateOf(L"Dev"), GetParam().switched));
}

TEST_P(SwitchingTest, ADeviceOfAnotherKindIsActivatedAndThenLeftAloneWithoutAWord) {
    Add<sim::SimMonitor>(L"Dev")->state = 0;
    EXPECT_FALSE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), Woken(L"Dev")));
    EXPECT_EQ(record.AmplDev, nullptr);
    EXPECT_EQ(record.SwitchDev, nullptr);
}

TEST_P(SwitchingTest, ADeviceOutsideTheListIsShownWithNumber0AndNoText) {
    for (const wchar_t* button : {L"cmdIgnore", L"cmdStopTest"}) {
        ExpectFailure(button, 0, L"");
        EXPECT_EQ(Switch(), button == String(L"cmdStopTest"));
        EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), ErrorShown()));
    }
}

TEST_P(SwitchingTest, OnlyIgnoreAndStopAreOffered) {
    host->user.Expect({L"frmGpibError",
                       {sim::Do([](Form& form) {
                            EXPECT_FALSE(form.Find(L"cmdIgnoreAll")->visible);
                            EXPECT_TRUE(form.Find(L"cmdIgnore")->visible);
                            EXPECT_TRUE(form.Find(L"cmdStopTest")->visible);
                        }),
                        Press(L"cmdIgnore")},
                       {}});
    EXPECT_FALSE(Switch());
}

TEST_P(SwitchingTest, AFailureOfTheDeviceIsShownWithItsNumberAndText) {
    AddDevice();
    host->faults.FailOperation(L"Device.State", 1, 77);
    ExpectFailure(L"cmdStopTest", 77, L"scripted failure");
    EXPECT_TRUE(Switch());
    EXPECT_EQ(TakeCalls(), Journal(Found(L"Dev"), Failed(StateOf(L"Dev"), 77), ErrorShown()));
}

/// Only a check knows these numbers as an abort.
TEST_P(SwitchingTest, AnAbortIsAFailureLikeAnyOther) {
    AddDevice();
    host->faults.FailOperation(L"Device.State", 1, 8202);
    ExpectFailure(L"cmdIgnore", 8202, L"scripted failure");
    EXPECT_FALSE(Switch());
}

class SwitchedKinds : public DeviceTest {};

TEST_F(SwitchedKinds, TheAmplifierStaysInItsOwnFieldOfTheRecord) {
    const auto amplifier = Add<sim::SimAmplifier>(L"Amp");
    aceSetDevice record;
    record.DevName = L"Amp";
    for (std::int32_t state = 0; state <= 4; ++state) {
        record.AmpState = state;
        EXPECT_FALSE(modActions::SwitchAmplifier(context, record));
        EXPECT_EQ(amplifier->power, state);
    }
    EXPECT_EQ(record.AmplDev, amplifier);
    EXPECT_EQ(record.SwitchDev, nullptr);
}

TEST_F(SwitchedKinds, TheSwitchUnitStaysInItsOwnFieldAndRefusesAPathThatItHasNot) {
    const auto unit = Add<sim::SimSwitchUnit>(L"Unit");
    unit->paths = {L"Port 1"};
    aceSetDevice record;
    record.DevName = L"Unit";
    record.Path = L"Port 2";
    ExpectError(L"cmdStopTest", L"T(9332)", L"Unit", 5, L"Unit: has no path Port 2");
    EXPECT_TRUE(modActions::SwitchUnitPath(context, record));
    EXPECT_EQ(record.SwitchDev, unit);
    EXPECT_EQ(record.AmplDev, nullptr);
    record.Path = L"Port 1";
    EXPECT_FALSE(modActions::SwitchUnitPath(context, record));
    EXPECT_EQ(unit->current, L"Port 1");
}

}  // namespace
}  // namespace ace::test
