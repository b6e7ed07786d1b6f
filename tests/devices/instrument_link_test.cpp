#include "workbench/devices/instrument_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fixture.h"

namespace ace::workbench {
namespace {

using ace::test::ErrorOf;
using ::testing::ElementsAre;

InstrumentAddress Address(StringView text) {
    return ReadAddress(text).value_or(InstrumentAddress{});
}

TEST(InstrumentAddress, EachTransportHasItsForm) {
    const InstrumentAddress gpib = Address(L"GPIB 1:13");
    EXPECT_EQ(gpib.bus, InstrumentAddress::Bus::Gpib);
    EXPECT_EQ(gpib.board, 1);
    EXPECT_EQ(gpib.primary, 13);
    const InstrumentAddress tcp = Address(L" tcp 192.168.17.21:5025 ");
    EXPECT_EQ(tcp.bus, InstrumentAddress::Bus::Tcp);
    EXPECT_EQ(tcp.host, L"192.168.17.21");
    EXPECT_EQ(tcp.port, 5025);
    const InstrumentAddress serial = Address(L"COM3");
    EXPECT_EQ(serial.bus, InstrumentAddress::Bus::Serial);
    EXPECT_EQ(serial.comPort, 3);
}

TEST(InstrumentAddress, TextOfAnAddressReadsBackTheSame) {
    for (const wchar_t* text : {L"GPIB 0:0", L"GPIB 99:30", L"COM256", L"TCP gen.lab:1"}) {
        EXPECT_EQ(AddressText(Address(text)), text);
    }
}

TEST(InstrumentAddress, WhatIsNoneIsRefused) {
    for (const wchar_t* text : {L"", L"GPIB", L"GPIB 13", L"GPIB 0:31", L"GPIB -1:3", L"GPIB 100:3",
                                L"GPIB 0:13.5", L"COM", L"COM0", L"COM257", L"COMx", L"TCP host",
                                L"TCP :80", L"TCP host:0", L"TCP host:65536", L"USB 1"}) {
        EXPECT_FALSE(ReadAddress(text)) << ::testing::PrintToString(String(text));
    }
}

class InstrumentLinkTest : public ace::test::HostTest {};

TEST_F(InstrumentLinkTest, BusDeviceIsOpenedOnceAndStaysOpen) {
    InstrumentLink link(*host, Address(L"GPIB 0:13"), L"\n");
    link.Send(L"FREQ 1");
    link.Send(L"POW 2");
    EXPECT_THAT(TakeEffects(), ElementsAre(L"GpibDriver.OpenDevice(0, 13, 0, 11, 1, 0)",
                                           L"GpibDriver.WriteString(0, \"FREQ 1\\n\")",
                                           L"GpibDriver.WriteString(0, \"POW 2\\n\")"));
}

TEST_F(InstrumentLinkTest, ConnectionIsOpenedForEachCommandAndClosedAgain) {
    InstrumentLink link(*host, Address(L"TCP gen:5025"), L"\r\n");
    link.Send(L"A");
    link.Send(L"B");
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"DeviceList.OpenSocket(\"gen\", 5025, 0, \"TCP\", -1)",
                            L"DeviceList.SocketIsOpen(1)", L"DeviceList.SendSocket(1, \"A\\r\\n\")",
                            L"DeviceList.CloseSocket(1)",
                            L"DeviceList.OpenSocket(\"gen\", 5025, 0, \"TCP\", -1)",
                            L"DeviceList.SocketIsOpen(2)", L"DeviceList.SendSocket(2, \"B\\r\\n\")",
                            L"DeviceList.CloseSocket(2)"));
}

TEST_F(InstrumentLinkTest, ConnectionIsClosedAlsoAfterAFailedWrite) {
    InstrumentLink link(*host, Address(L"TCP gen:5025"), L"");
    host->faults.FailOperation(L"DeviceList.SendSocket", 1, 77);
    EXPECT_EQ(ErrorOf([&] { link.Send(L"A"); }), 77);
    EXPECT_EQ(TakeEffects().back(), L"DeviceList.CloseSocket(1)");
}

TEST_F(InstrumentLinkTest, SerialPortIsOpenedForEachCommandAndClosedAgain) {
    InstrumentLink link(*host, Address(L"COM3"), L"\r");
    link.Send(L"A");
    EXPECT_THAT(TakeEffects(),
                ElementsAre(L"SerialPort.CommPort(3)", L"SerialPort.PortOpen(true)",
                            L"SerialPort.Output(\"A\\r\")", L"SerialPort.PortOpen(false)"));
}

TEST_F(InstrumentLinkTest, SerialPortIsClosedAlsoAfterAFailedWrite) {
    InstrumentLink link(*host, Address(L"COM3"), L"");
    host->faults.FailOperation(L"SerialPort.Output", 1, 77);
    EXPECT_EQ(ErrorOf([&] { link.Send(L"A"); }), 77);
    EXPECT_EQ(TakeEffects().back(), L"SerialPort.PortOpen(false)");
}

TEST_F(InstrumentLinkTest, InstrumentThatDoesNotOpenIsADeviceFailure) {
    host->instruments.absentGpib = {13};
    host->instruments.refusedEndpoints = {L"gen:5025"};
    host->instruments.brokenPorts = {3};
    for (const wchar_t* text : {L"GPIB 0:13", L"TCP gen:5025", L"COM3"}) {
        InstrumentLink link(*host, Address(text), L"");
        EXPECT_EQ(ErrorOf([&] { link.Send(L"A"); }), Errors::DeviceFailed);
    }
}

}  // namespace
}  // namespace ace::workbench
