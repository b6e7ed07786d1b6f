/// A serial port of the platform.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// A port addressed by its number; 9600 baud, no parity, 8 data bits, 1 stop bit, no handshake.
/// Destruction closes it. Messages may run while a text is written, in no other operation.
class ISerialPort {
  public:
    virtual ~ISerialPort() = default;
    /// Number of the port, from 1.
    virtual std::int16_t CommPort() = 0;
    virtual void CommPort(std::int16_t number) = 0;
    virtual bool PortOpen() = 0;
    /// Opens or closes the port; a port that can't be opened is a run-time error.
    virtual void PortOpen(bool open) = 0;
    /// Writes the text to the open port; a failure is a run-time error.
    virtual void Output(const String& text) = 0;
};

/// A port that is never open.
class DefaultSerialPort : public ISerialPort {
  public:
    std::int16_t CommPort() override { return x_number; }
    void CommPort(std::int16_t number) override { x_number = number; }
    bool PortOpen() override { return false; }
    void PortOpen(bool) override {}
    void Output(const String&) override {}

  private:
    std::int16_t x_number = 1;
};

}  // namespace ace
