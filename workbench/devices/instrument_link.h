/// The way from a device of the bench to the instrument that it stands for.
#pragma once

#include <memory>
#include <optional>

#include "sim/sim_host.h"

namespace ace::workbench {

/// Where an instrument is.
struct InstrumentAddress {
    enum class Bus { Gpib, Serial, Tcp };
    Bus bus = Bus::Gpib;
    std::int16_t board = 0;    ///< GPIB
    std::int16_t primary = 0;  ///< GPIB, 0 to 30
    std::int16_t comPort = 0;  ///< serial, from 1
    String host;               ///< TCP/IP
    std::int32_t port = 0;     ///< TCP/IP, 1 to 65535
    bool operator==(const InstrumentAddress&) const = default;
};

/// Reads "GPIB 0:13", "COM3" or "TCP 192.168.17.21:5025", in any case of the letters. Nothing for
/// anything else.
std::optional<InstrumentAddress> ReadAddress(StringView text);
/// The address as it is written above.
String AddressText(const InstrumentAddress& address);

/// Sends commands by the transports of a host, simulated or real. They are made on first use. A bus
/// device stays open; a connection and a serial port are opened for each command and closed again,
/// because many an instrument has one for all who talk to it.
class InstrumentLink {
  public:
    /// `terminator` ends each command. `host` must outlive the object.
    InstrumentLink(sim::SimHost& host, InstrumentAddress address, String terminator)
        : x_host(&host), x_address(std::move(address)), x_terminator(std::move(terminator)) {}

    /// A failure is the run-time error of the transport, or 4010 when the instrument does not open.
    void Send(const String& command);

  private:
    void SendGpib(const String& text);
    void SendSerial(const String& text);
    void SendTcp(const String& text);
    [[noreturn]] void RefuseToOpen() const;

    sim::SimHost* x_host;
    InstrumentAddress x_address;
    String x_terminator;
    std::shared_ptr<IGpibDriver> x_gpib;
    std::shared_ptr<ISerialPort> x_serial;
    std::shared_ptr<IDeviceList> x_sockets;
    std::int16_t x_gpibHandle = -1;
};

}  // namespace ace::workbench
