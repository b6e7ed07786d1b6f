#include "workbench/devices/with_faults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sim/sim_services.h"
#include "support/fixture.h"

namespace ace::workbench {
namespace {

using ace::test::ErrorOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::shared_ptr<FaultRules> Rules(StringView script) {
    return std::make_shared<FaultRules>(script, L"f.txt");
}

class WithFaultsTest : public ace::test::HostTest {};

TEST_F(WithFaultsTest, WithoutRulesTheServiceComesBackAsItIs) {
    const std::shared_ptr<IGpibDriver> driver = host->MakeGpibDriver();
    EXPECT_EQ(WithFaults(Rules(L""), driver), driver);
    EXPECT_EQ(WithFaults(nullptr, driver), driver);
}

TEST_F(WithFaultsTest, BusFailsByAddressBeforeAnythingIsWritten) {
    const auto bus = WithFaults(Rules(L"GPIB 1:13 fails at the 2nd write"), host->MakeGpibDriver());
    const std::int16_t other = bus->OpenDevice(0, 13, 0, 11, 1, 0);
    const std::int16_t handle = bus->OpenDevice(1, 13, 0, 11, 1, 0);
    host->journal.Clear();
    bus->WriteString(handle, L"A");
    bus->WriteString(other, L"B");
    EXPECT_EQ(ErrorOf([&] { bus->WriteString(handle, L"C"); }), Errors::DeviceFailed);
    bus->WriteString(handle, L"D");
    EXPECT_THAT(TakeEffects(), ElementsAre(L"GpibDriver.WriteString(1, \"A\")",
                                           L"GpibDriver.WriteString(0, \"B\")",
                                           L"GpibDriver.WriteString(1, \"D\")"));
}

TEST_F(WithFaultsTest, SocketsFailByEndpoint) {
    const auto list = WithFaults(Rules(L"TCP gen:5 fails at the 1st write\n"
                                       L"TCP gen:6 fails at every opening"),
                                 host->MakeDeviceList());
    std::int32_t handle = -1;
    list->OpenSocket(L"gen", 5, 0, L"TCP", handle);
    EXPECT_EQ(ErrorOf([&] { list->SendSocket(handle, L"A"); }), Errors::DeviceFailed);
    EXPECT_EQ(ErrorOf([&] { list->OpenSocket(L"gen", 6, 0, L"TCP", handle); }),
              Errors::DeviceFailed);
}

TEST_F(WithFaultsTest, SerialPortFailsAtItsNumberAndClosingNever) {
    const auto port = WithFaults(Rules(L"COM3 fails at the 1st opening\nCOM3 fails at every write"),
                                 host->MakeSerialPort());
    port->CommPort(2);
    port->PortOpen(true);
    port->Output(L"A");
    port->PortOpen(false);
    port->CommPort(3);
    EXPECT_EQ(ErrorOf([&] { port->PortOpen(true); }), Errors::DeviceFailed);
    port->PortOpen(true);
    EXPECT_EQ(ErrorOf([&] { port->Output(L"B"); }), Errors::DeviceFailed);
    port->PortOpen(false);
}

TEST_F(WithFaultsTest, ProgramDoesNotStart) {
    const auto platform =
        WithFaults(Rules(L"program tool* fails at the 1st start, error 53"), host->MakePlatform());
    EXPECT_EQ(ErrorOf([&] { platform->StartProgram(L"tool.exe"); }), 53);
    EXPECT_EQ(platform->StartProgram(L"tool.exe"), 1000.0);
}

TEST_F(WithFaultsTest, MacroSaysWhyItDoesNotStart) {
    const auto macro =
        WithFaults(Rules(L"macro log.mac fails at the 1st run"), host->MakeApiMacro());
    Value value;
    String text;
    String errorText;
    EXPECT_TRUE(macro->Load(L"log.mac", {}, {}, value));
    EXPECT_FALSE(macro->Execute(text, errorText, value));
    EXPECT_EQ(errorText, L"on purpose: macro log.mac fails at the 1st run");
    EXPECT_TRUE(macro->Execute(text, errorText, value));
}

TEST_F(WithFaultsTest, DevicesFailByNameAndWhatTheyDo) {
    const auto rules = Rules(
        L"device Amp fails at the 2nd switching\ndevice EUT fails at every "
        L"reading, error 8202");
    host->beforeCall = [&](StringView operation, sim::CallArguments arguments) {
        CountDeviceCall(*rules, operation, arguments);
    };
    const auto amplifier = host->bench.Add<sim::SimAmplifier>(*host, L"Amp");
    const auto other = host->bench.Add<sim::SimAmplifier>(*host, L"Amp 2");
    const auto monitor = host->bench.Add<sim::SimMonitor>(*host, L"EUT");
    IAmplifierState state = 1;
    amplifier->SetState(state);
    other->SetState(state);
    EXPECT_EQ(amplifier->State(), 1);
    EXPECT_EQ(ErrorOf([&] { amplifier->SetState(state); }), Errors::DeviceFailed);
    EXPECT_EQ(ErrorOf([&] { monitor->ReadChannel(1); }), 8202);
    EXPECT_EQ(ErrorOf([&] { monitor->State(); }), 0);
    host->bench.Add<sim::SimCalTable>(*host, L"Amp")->GetValue(1.0, 1, Value(2));
    EXPECT_THAT(rules->Unused(), IsEmpty());
}

}  // namespace
}  // namespace ace::workbench
