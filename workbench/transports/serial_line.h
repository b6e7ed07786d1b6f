/// A serial port of this machine.
#pragma once

#include <map>
#include <memory>
#include <string>

#include <ace/host/serial_port.h>

#include "workbench/transports/waiting.h"

namespace ace::workbench {

/// Device path (UTF-8) of each COM number.
using SerialDevices = std::map<std::int16_t, std::string>;

/// Opens the device that stands for the COM number: 9600 baud, 8 data bits, no parity, 1 stop bit,
/// no handshake. Writing lets the host's events run. Every failure is a run-time error of
/// `TransportErrors` with COM number, device and cause. What the instrument sends is dropped.
class SerialLine final : public ISerialPort {
  public:
    /// `stall` is how long a write may go on without a single byte being taken.
    explicit SerialLine(SerialDevices devices, Milliseconds stall = Milliseconds{5000},
                        RunEvents events = {});
    SerialLine(const SerialLine&) = delete;
    SerialLine& operator=(const SerialLine&) = delete;
    ~SerialLine() override;

    std::int16_t CommPort() override { return x_number; }
    /// An open port keeps its number: that is an error.
    void CommPort(std::int16_t number) override;
    bool PortOpen() override;
    /// Opening an open port and closing a closed one does nothing.
    void PortOpen(bool open) override;
    /// Returns when the bytes are out of the machine's buffer, so that closing does not wait for
    /// them. A failure leaves the port open and drops what is still buffered. From inside the
    /// events of a write, writing, opening and closing are refused.
    void Output(const String& text) override;

  private:
    struct Port;
    class Writing;

    String Name() const;
    void RequireIdle() const;
    void Open();
    void Write(const std::string& bytes);
    void AwaitEmptyBuffer();

    SerialDevices x_devices;
    Milliseconds x_stall;
    RunEvents x_events;
    std::unique_ptr<Port> x_port;  ///< none while closed
    std::int16_t x_number = 1;
    bool x_isWriting = false;
};

}  // namespace ace::workbench
