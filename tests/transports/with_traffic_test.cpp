#include "workbench/transports/with_traffic.h"

#include <sstream>

#include "sim/sim_host.h"
#include "transports/failure.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;

/// Simulated services behind a log whose time and place are left out.
class WithTrafficTest : public ::testing::Test {
  protected:
    /// Transport, address, bytes and outcome of each line; empty afterwards.
    std::vector<std::string> TakeLines() {
        std::vector<std::string> lines;
        std::istringstream text(out.str());
        for (std::string line; std::getline(text, line);) {
            std::size_t at = 0;
            for (int field = 0; field < 3; ++field) {
                at = line.find('\t', at) + 1;
            }
            lines.push_back(line.substr(at));
        }
        lines.erase(lines.begin());
        return lines;
    }

    sim::SimHost host;
    std::ostringstream out;
    std::shared_ptr<TrafficLog> log = std::make_shared<TrafficLog>(out);
};

TEST_F(WithTrafficTest, AGpibCommandIsALineWithBoardAndAddress) {
    const auto bus = WithTraffic(log, host.MakeGpibDriver());
    const std::int16_t one = bus->OpenDevice(12, 5, 0, 11, 1, 0);
    const std::int16_t two = bus->OpenDevice(0, 21, 0, 11, 1, 0);
    bus->WriteString(two, L"FREQ 1,2\r\n");
    bus->WriteString(one, L"");
    bus->CloseDevice(one, 0);
    EXPECT_THAT(TakeLines(), ElementsAre("GPIB\t0:21\t\"FREQ 1,2\\r\\n\"\tsent 10 bytes",
                                         "GPIB\t12:5\t\"\"\tsent 0 bytes"));
    EXPECT_THAT(host.journal.LinesOf(L"GpibDriver"), testing::SizeIs(5));
}

TEST_F(WithTrafficTest, AGpibDeviceThatDoesNotOpenIsALineWithoutBytes) {
    host.instruments.absentGpib.insert(5);
    const auto bus = WithTraffic(log, host.MakeGpibDriver());
    EXPECT_EQ(bus->OpenDevice(0, 5, 0, 11, 1, 0), -1);
    EXPECT_THAT(TakeLines(), ElementsAre("GPIB\t0:5\t\"\"\tfailed: the device can't be opened"));
}

TEST_F(WithTrafficTest, ATcpCommandIsALineWithHostAndPort) {
    const auto list = WithTraffic(log, host.MakeDeviceList());
    std::int32_t handle = -1;
    list->OpenSocket(L"bench", 5025, 0, L"TCP", handle);
    list->SendSocket(handle, L"\x00B5");
    list->SendSocket(99, L"A");
    EXPECT_THAT(TakeLines(), ElementsAre("TCP/IP\tbench:5025\t\"\\xB5\"\tsent 1 bytes",
                                         "TCP/IP\t\t\"A\"\tsent 1 bytes"));
}

TEST_F(WithTrafficTest, AFailureIsALineWithItsCauseAndPasses) {
    host.faults.FailOperation(L"DeviceList.OpenSocket", 1, 68);
    host.faults.FailOperation(L"DeviceList.SendSocket", 1, 57);
    const auto list = WithTraffic(log, host.MakeDeviceList());
    std::int32_t handle = -1;
    const auto open = [&] { list->OpenSocket(L"bench", 5025, 0, L"TCP", handle); };
    EXPECT_EQ(Failure(68, open), "scripted failure");
    open();
    EXPECT_EQ(Failure(57, [&] { list->SendSocket(handle, L"A\n"); }), "scripted failure");
    EXPECT_THAT(TakeLines(), ElementsAre("TCP/IP\tbench:5025\t\"\"\tfailed: scripted failure",
                                         "TCP/IP\tbench:5025\t\"A\\n\"\tfailed: scripted failure"));
}

TEST_F(WithTrafficTest, AnEndpointThatTakesNoConnectionIsALineWithoutBytes) {
    host.instruments.refusedEndpoints.insert(L"bench:5025");
    const auto list = WithTraffic(log, host.MakeDeviceList());
    std::int32_t handle = -1;
    list->OpenSocket(L"bench", 5025, 0, L"TCP", handle);
    EXPECT_EQ(handle, -1);
    EXPECT_THAT(TakeLines(), ElementsAre("TCP/IP\tbench:5025\t\"\"\tfailed: no connection"));
}

TEST_F(WithTrafficTest, ASerialCommandIsALineWithItsPort) {
    const auto port = WithTraffic(log, host.MakeSerialPort());
    port->PortOpen(true);
    port->Output(L"A");
    port->PortOpen(false);
    port->CommPort(3);
    port->Output(L"B");
    EXPECT_THAT(TakeLines(), ElementsAre("RS232\tCOM1\t\"A\"\tsent 1 bytes",
                                         "RS232\tCOM3\t\"B\"\tsent 1 bytes"));
}

TEST_F(WithTrafficTest, ASerialPortThatDoesNotOpenIsALineWithoutBytes) {
    const auto port = WithTraffic(log, host.MakeSerialPort());
    port->CommPort(4);
    host.faults.FailOperation(L"SerialPort.PortOpen", 1, 68);
    EXPECT_EQ(Failure(68, [&] { port->PortOpen(true); }), "scripted failure");
    host.instruments.brokenPorts.insert(4);
    port->PortOpen(true);
    EXPECT_THAT(TakeLines(), ElementsAre("RS232\tCOM4\t\"\"\tfailed: scripted failure",
                                         "RS232\tCOM4\t\"\"\tfailed: the port stays closed"));
}

TEST_F(WithTrafficTest, ATextWithoutBytesIsALineWithoutBytes) {
    host.faults.FailOperation(L"GpibDriver.WriteString", 1, 57);
    const auto bus = WithTraffic(log, host.MakeGpibDriver());
    const std::int16_t handle = bus->OpenDevice(0, 5, 0, 11, 1, 0);
    EXPECT_EQ(Failure(57, [&] { bus->WriteString(handle, L"\x03A9"); }), "scripted failure");
    EXPECT_THAT(TakeLines(), ElementsAre("GPIB\t0:5\t\"\"\tfailed: scripted failure"));
}

TEST_F(WithTrafficTest, TheStartOfAProgramIsALineWithItsCommandLine) {
    host.programs.identifiers[L"run \"a b\""] = 4711.0;
    host.programs.unstartable[L"missing"] = 53;
    const auto platform = WithTraffic(log, host.MakePlatform());
    EXPECT_EQ(platform->StartProgram(L"run \"a b\""), 4711.0);
    EXPECT_EQ(Failure(53, [&] { platform->StartProgram(L"missing"); }),
              "the program can't be started");
    EXPECT_THAT(TakeLines(),
                ElementsAre("program\t\t\"run \\\"a b\\\"\"\tstarted, process 4711",
                            "program\t\t\"missing\"\tfailed: the program can't be started"));
}

TEST_F(WithTrafficTest, TheStartOfAMacroIsALineWithItsParameters) {
    host.macros[L"none"].loads = false;
    host.macros[L"stuck"].starts = false;
    host.macros[L"stuck"].errorText = L"no rights";
    const auto macro = WithTraffic(log, host.MakeApiMacro());
    DynArray<String> parameters;
    parameters.Redim(1, 2);
    parameters[1] = L"1.5";
    String text;
    String error;
    Value unread;
    EXPECT_TRUE(macro->Load(L"good", parameters, {}, unread));
    EXPECT_TRUE(macro->Execute(text, error, unread));
    EXPECT_FALSE(macro->Load(L"none", {}, {}, unread));
    EXPECT_TRUE(macro->Load(L"stuck", {}, {}, unread));
    EXPECT_FALSE(macro->Execute(text, error, unread));
    EXPECT_THAT(TakeLines(), ElementsAre("API macro\tgood\t\"1.5\\n\\n\"\tstarted",
                                         "API macro\tnone\t\"\"\tfailed: not loaded",
                                         "API macro\tstuck\t\"\"\tfailed: no rights"));
}

TEST_F(WithTrafficTest, WithoutALogTheServiceComesBackAsItIs) {
    const std::shared_ptr<IGpibDriver> bus = host.MakeGpibDriver();
    EXPECT_EQ(WithTraffic(nullptr, bus), bus);
    const std::shared_ptr<IPlatform> platform = host.MakePlatform();
    EXPECT_EQ(WithTraffic(nullptr, platform), platform);
}

}  // namespace
}  // namespace ace::workbench
