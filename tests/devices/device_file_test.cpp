#include "workbench/devices/device_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fixture.h"
#include "support/refusal.h"

namespace ace::workbench {
namespace {

class DeviceFileTest : public ace::test::HostTest {
  protected:
    void Read(const std::string& text) { ReadDevices(SettingsDocument(text), L"bench.ini", *host); }
    std::string Refusal(const std::string& text) {
        return RefusalOf([&] { Read(text); });
    }
    template <class Device>
    std::shared_ptr<Device> Get(const String& name) {
        return std::dynamic_pointer_cast<Device>(host->bench.Device(name));
    }
};

TEST_F(DeviceFileTest, EachLineOfDevicesIsADeviceOfItsClass) {
    Read(
        "[Devices]\n; the chamber\nEUT=Monitoring\nBC=bcgenerators\nGen=Generators\n\n"
        "Amp=Amplifiers\nMatrix=SwitchUnits\nRX=Receivers\nPath 1=SignalPaths\n");
    EXPECT_TRUE(Get<sim::SimMonitor>(L"EUT"));
    EXPECT_TRUE(Get<sim::SimBcGenerator>(L"BC"));
    EXPECT_TRUE(Get<sim::SimRfGenerator>(L"Gen"));
    EXPECT_TRUE(Get<sim::SimAmplifier>(L"Amp"));
    EXPECT_TRUE(Get<sim::SimSwitchUnit>(L"Matrix"));
    EXPECT_TRUE(Get<sim::SimReceiver>(L"RX"));
    EXPECT_TRUE(Get<sim::SimSignalPath>(L"Path 1"));
    EXPECT_EQ(host->bench.devices.size(), 7U);
}

TEST_F(DeviceFileTest, SectionOfADeviceSaysMoreAboutIt) {
    Read(
        "[Devices]\nEUT=Monitoring\nMatrix=SwitchUnits\nP=SignalPaths\n"
        "[EUT]\nState=off\nFail1=1, 433MHz, 3 s, 1\nFail2=2, 1GHz, 1 s, 2\nUses=set, Track\n"
        "[Matrix]\nPaths=A, B C\nState=dead\n[P]\nCorrection=1GHz:-2\n");
    const auto eut = Get<sim::SimMonitor>(L"EUT");
    EXPECT_EQ(eut->state, 0);
    EXPECT_EQ(eut->stateOnceActivated, 1);
    ASSERT_EQ(eut->failures.size(), 2U);
    EXPECT_EQ(eut->failures[1].channel, 2);
    EXPECT_EQ(eut->capabilities, 2 | 8);
    const auto matrix = Get<sim::SimSwitchUnit>(L"Matrix");
    EXPECT_EQ(matrix->paths, (std::vector<String>{L"A", L"B C"}));
    EXPECT_EQ(matrix->stateOnceActivated, 0);
    EXPECT_EQ(Get<sim::SimSignalPath>(L"P")->correction, (sim::SimCurve{{1e9, -2.0}}));
}

TEST_F(DeviceFileTest, TablesAreCurvesByName) {
    Read("[Devices]\nG=Generators\n[Tables]\nLevel 10 V/m=80MHz:-30, 1GHz:-28\n");
    EXPECT_EQ(host->bench.Table(L"Level 10 V/m")->levels,
              (sim::SimCurve{{80e6, -30.0}, {1e9, -28.0}}));
}

TEST_F(DeviceFileTest, BoundDeviceSpeaksToItsInstrument) {
    Read(
        "[Devices]\nGen=Generators\n"
        "[Gen]\nBind=GPIB 0:28\nTerminator=CRLF\nOnOutputOn=OUTP ON\nState=off\n");
    const auto generator = Get<sim::SimRfGenerator>(L"Gen");
    EXPECT_EQ(generator->state, 0);
    host->journal.Clear();
    generator->SetRfOn(true);
    generator->Execute();
    EXPECT_EQ(TakeEffects().back(), L"GpibDriver.WriteString(0, \"OUTP ON\\r\\n\")");
}

struct BadRow {
    std::string text;
    std::string refusal;
};
const BadRow BadRows[] = {
    {"[Tables]\nA=1:1\n", "there is no device in it: [Devices] needs lines of the form name=class"},
    {"[Devices]\nA\n", "2: [Devices] A: this is no line of the form name=value"},
    {"[Devices]\nA=Amps\n",
     "2: [Devices] A: \"Amps\" is no class: Monitoring, BcGenerators, Generators, Amplifiers, "
     "SwitchUnits, Receivers, SignalPaths"},
    {"[Devices]\nA=Amplifiers\na=Receivers\n", "3: [Devices] a: it stands here twice"},
    {"[Devices]\nA=Amplifiers\n[A]\nState=on\n[a]\nState=off\n", "3: [A] stands in the file twice"},
    {"[Devices]\nA=Amplifiers\n[B]\n", "3: [B]: no line of [Devices] has a device of this name"},
    {"[Devices]\nA=Amplifiers\n[A]\nPaths=X\n",
     "4: [A] Paths: no device of the class Amplifiers has this key"},
    {"[Devices]\nA=Amplifiers\n[A]\nState=on fire\n", "4: [A] State: the state is on, off or dead"},
    {"[Devices]\nM=Monitoring\n[M]\nFail=1, 2, 3, 4\n",
     "4: [M] Fail: no device of the class Monitoring has this key"},
    {"[Devices]\nM=Monitoring\n[M]\nFail1=often\n",
     "4: [M] Fail1: a failure is written like 102, 433MHz..435MHz, 3 s, 1 (channel, frequencies, "
     "how long, reading)"},
    {"[Devices]\nM=Monitoring\n[M]\nUses=set, watch\n",
     "4: [M] Uses: a monitoring device can be used to set, to check and to track"},
    {"[Devices]\nP=SignalPaths\n[P]\nCorrection=3\n",
     "4: [P] Correction: values over frequency are written like 80MHz:-1.5, 1GHz:-2"},
    {"[Devices]\nG=Generators\n[G]\nBind=USB\n",
     "4: [G] Bind: an instrument is written like GPIB 0:13, COM3 or TCP 192.168.17.21:5025"},
    {"[Devices]\nG=Generators\n[G]\nOnLevel=POW %1\n",
     "4: [G] OnLevel: without Bind= there is no instrument to send it to"},
    {"[Devices]\nG=Generators\n[G]\nBind=COM1\nTerminator=;\n",
     "5: [G] Terminator: the terminator is LF, CR, CRLF or none"},
    {"[Devices]\nP=SignalPaths\n[P]\nBind=COM1\n",
     "4: [P] Bind: no device of the class SignalPaths has this key"},
};

TEST_F(DeviceFileTest, WhatMakesNoSenseIsToldWithItsPlace) {
    for (const BadRow& row : BadRows) {
        const bool hasLine = row.refusal.find("there is no device") == std::string::npos;
        EXPECT_EQ(Refusal(row.text), (hasLine ? "4 bench.ini:" : "4 bench.ini: ") + row.refusal);
    }
}

}  // namespace
}  // namespace ace::workbench
