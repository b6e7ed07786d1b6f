#include "workbench/devices/bound_devices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fixture.h"

namespace ace::workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class BoundDevicesTest : public ace::test::HostTest {
  protected:
    template <class Device>
    std::shared_ptr<Device> Bind(sim::SimClass deviceClass, std::map<String, String> commands) {
        InstrumentLink link(*host, *ReadAddress(L"GPIB 0:7"), L"");
        return std::dynamic_pointer_cast<Device>(
            AddBound(*host, deviceClass, L"device", Instrument(link, std::move(commands))));
    }
    /// The texts that reached the bus.
    std::vector<String> Written() {
        std::vector<String> texts;
        for (const sim::JournalEntry& entry : host->journal.Entries()) {
            if (entry.operation == L"GpibDriver.WriteString") {
                texts.push_back(entry.values.at(1));
            }
        }
        host->journal.Clear();
        return texts;
    }
};

TEST_F(BoundDevicesTest, GeneratorSendsWhatWasSetWhenItIsExecuted) {
    const auto generator =
        Bind<BoundRfGenerator>(sim::SimClass::Generators, {{L"OnFrequency", L"FREQ %1 HZ"},
                                                           {L"OnLevel", L"POW %1 DBM"},
                                                           {L"OnOutputOn", L"OUTP ON"},
                                                           {L"OnOutputOff", L"OUTP OFF"}});
    generator->SetRfOn(false);
    EXPECT_THAT(Written(), IsEmpty());
    generator->Execute();
    EXPECT_THAT(Written(), ElementsAre(L"OUTP OFF"));

    generator->SetFrequency(80.8e6);
    generator->SetLevel(-12.5);
    generator->SetRfOn(true);
    generator->Execute();
    EXPECT_THAT(Written(), ElementsAre(L"FREQ 80800000 HZ", L"POW -12.5 DBM", L"OUTP ON"));
    EXPECT_EQ(generator->output, (sim::SimRfGenerator::Output{80.8e6, -12.5, true}));

    generator->Execute();
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(BoundDevicesTest, CommandThatIsNotGivenIsNotSent) {
    const auto generator =
        Bind<BoundRfGenerator>(sim::SimClass::Generators, {{L"OnLevel", L"L%1"}});
    generator->SetFrequency(1.0);
    generator->SetRfOn(true);
    generator->SetLevel(3.0);
    generator->Execute();
    EXPECT_THAT(Written(), ElementsAre(L"L3"));
}

TEST_F(BoundDevicesTest, AmplifierHasACommandForEachState) {
    const auto amplifier = Bind<BoundAmplifier>(sim::SimClass::Amplifiers, {{L"OnPowerOff", L"0"},
                                                                            {L"OnPowerOn", L"1"},
                                                                            {L"OnStandby", L"2"},
                                                                            {L"OnOperate", L"3"},
                                                                            {L"OnReset", L"4"}});
    for (IAmplifierState state : {0, 1, 2, 3, 4, 5, -1}) {
        amplifier->SetState(state);
    }
    EXPECT_THAT(Written(), ElementsAre(L"0", L"1", L"2", L"3", L"4"));
}

TEST_F(BoundDevicesTest, SwitchUnitSendsThePathUnlessItHasNoSuch) {
    const auto unit = Bind<BoundSwitchUnit>(sim::SimClass::SwitchUnits, {{L"OnPath", L"CLOS %1"}});
    unit->paths = {L"A"};
    String path = L"A";
    unit->SwitchPath(path);
    path = L"B";
    EXPECT_EQ(ace::test::ErrorOf([&] { unit->SwitchPath(path); }), Errors::InvalidProcedureCall);
    EXPECT_THAT(Written(), ElementsAre(L"CLOS A"));
}

TEST_F(BoundDevicesTest, MonitorBroadcastGeneratorAndReceiverHaveOneCommandEach) {
    double hertz = 433e6;
    Bind<BoundMonitor>(sim::SimClass::Monitoring, {{L"OnFrequency", L"F %1"}})->SetFrequency(hertz);
    Bind<BoundBcGenerator>(sim::SimClass::BcGenerators, {{L"OnApply", L"GO"}})->Apply();
    const auto receiver =
        Bind<BoundReceiver>(sim::SimClass::Receivers, {{L"OnProtect", L"PROT %1"}});
    receiver->SetParameter(18, L"On", true, 0, L"");
    receiver->SetParameter(17, L"On", true, 0, L"");
    EXPECT_THAT(Written(), ElementsAre(L"F 433000000", L"GO", L"PROT On"));
}

TEST_F(BoundDevicesTest, SignalPathHasNoInstrument) {
    EXPECT_THAT(CommandKeys(sim::SimClass::SignalPaths), IsEmpty());
    EXPECT_EQ(ace::test::ErrorOf([&] { Bind<sim::SimSignalPath>(sim::SimClass::SignalPaths, {}); }),
              Errors::InvalidProcedureCall);
}

}  // namespace
}  // namespace ace::workbench
