/// The form that carries the serial port of the remote commands.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// Never shown. It holds the control `ComPort` with 9600 baud, no parity, 8 data bits, 1 stop bit
/// and no handshaking; its end closes the port.
class frmComPort : public IComPortForm {
  public:
    /// Takes a port of its own from the host; none is error 91.
    explicit frmComPort(ThreadContext& context);
    frmComPort(const frmComPort&) = delete;
    frmComPort& operator=(const frmComPort&) = delete;
    /// Closes the port if it is open; an error of that is ignored.
    ~frmComPort() override;

    ISerialPort& ComPort() override { return *x_comPort; }

  private:
    std::shared_ptr<ISerialPort> x_comPort;
};

}  // namespace ace
