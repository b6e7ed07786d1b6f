#include "workbench/transports/serial_line.h"

#include <sys/ioctl.h>
#include <termios.h>

#include <ace/host/run_time_error.h>

#include "workbench/files/text_encoding.h"
#include "workbench/transports/asio_await.h"
#include "workbench/transports/instrument_bytes.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {

namespace {

using Base = asio::serial_port_base;

constexpr unsigned Baud = 9600;

String CauseOf(const asio::error_code& error) {
    return FromUtf8(error.message());
}

String CauseOf(const Ending& ending, Milliseconds stall) {
    return ending.isTimedOut ? L"the line takes no more data, given up after " +
                                   std::to_wstring(stall.count()) + L" ms"
                             : CauseOf(ending.error);
}

[[noreturn]] void RaiseCannotOpen(const String& name, const String& cause) {
    throw RunTimeError(TransportErrors::CannotOpen, name + L": can't open: " + cause);
}

[[noreturn]] void RaiseCannotSend(const String& name, const String& cause) {
    throw RunTimeError(TransportErrors::CannotSend, name + L": can't send: " + cause);
}

/// Sets each option until one is refused.
asio::error_code SetLine(asio::serial_port& port) {
    asio::error_code error;
    const auto set = [&](const auto& option) {
        if (!error) {
            port.set_option(option, error);
        }
    };
    set(Base::baud_rate(Baud));
    set(Base::character_size(8));
    set(Base::parity(Base::parity::none));
    set(Base::stop_bits(Base::stop_bits::one));
    set(Base::flow_control(Base::flow_control::none));
    return error;
}

}  // namespace

struct SerialLine::Port {
    asio::io_context io;
    asio::serial_port line{io};

    /// Bytes that the machine has not put on the line yet.
    int Waiting() {
        int count = 0;
        return ::ioctl(line.native_handle(), TIOCOUTQ, &count) == 0 ? count : 0;
    }
    void DropWaiting() { ::tcflush(line.native_handle(), TCOFLUSH); }
};

/// Marks the time of a write, whose bytes must not mix with those of another.
class SerialLine::Writing {
  public:
    explicit Writing(SerialLine& line) : x_line(line) { x_line.x_isWriting = true; }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    ~Writing() { x_line.x_isWriting = false; }

  private:
    SerialLine& x_line;
};

SerialLine::SerialLine(SerialDevices devices, Milliseconds stall, RunEvents events)
    : x_devices(std::move(devices)), x_stall(stall), x_events(std::move(events)) {}

SerialLine::~SerialLine() = default;

String SerialLine::Name() const {
    const auto device = x_devices.find(x_number);
    const String path =
        device == x_devices.end() ? String() : L" (" + FromUtf8(device->second) + L")";
    return L"RS232 COM" + std::to_wstring(x_number) + path;
}

void SerialLine::RequireIdle() const {
    if (x_isWriting) {
        throw RunTimeError(TransportErrors::CannotSend,
                           Name() + L": another command is still under way");
    }
}

void SerialLine::CommPort(std::int16_t number) {
    if (x_port && number != x_number) {
        RaiseCannotOpen(Name(), L"another port was asked for while this one is open");
    }
    x_number = number;
}

bool SerialLine::PortOpen() {
    return x_port != nullptr;
}

void SerialLine::PortOpen(bool open) {
    RequireIdle();
    if (!open) {
        x_port.reset();
    } else if (!x_port) {
        Open();
    }
}

void SerialLine::Open() {
    const auto device = x_devices.find(x_number);
    if (device == x_devices.end()) {
        RaiseCannotOpen(Name(),
                        L"the configuration names no device for it, as in [SerialPorts] COM" +
                            std::to_wstring(x_number) + L"=/dev/ttyUSB0");
    }
    auto port = std::make_unique<Port>();
    asio::error_code error;
    port->line.open(device->second, error);
    if (!error) {
        error = SetLine(port->line);
    }
    if (error) {
        RaiseCannotOpen(Name(), CauseOf(error));
    }
    x_port = std::move(port);
}

void SerialLine::Output(const String& text) {
    RequireIdle();
    if (!x_port) {
        RaiseCannotSend(Name(), L"the port is not open");
    }
    const std::string bytes = InstrumentBytes(text);
    const Writing writing(*this);
    try {
        Write(bytes);
        AwaitEmptyBuffer();
    } catch (...) {
        x_port->DropWaiting();
        throw;
    }
}

void SerialLine::Write(const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const Ending ending =
            Await(x_port->io, x_port->line, DeadlineIn(x_stall), x_events, [&](auto handler) {
                x_port->line.async_write_some(asio::buffer(bytes) + sent, handler);
            });
        sent += ending.bytes;
        if (!ending.IsGood()) {
            RaiseCannotSend(Name(), CauseOf(ending, x_stall) + L" (" + std::to_wstring(sent) +
                                        L" of " + std::to_wstring(bytes.size()) + L" bytes sent)");
        }
    }
}

void SerialLine::AwaitEmptyBuffer() {
    int left = x_port->Waiting();
    Deadline deadline = DeadlineIn(x_stall);
    while (left > 0) {
        SleepAndRunEvents(x_events);
        const int now = x_port->Waiting();
        if (now < left) {
            deadline = DeadlineIn(x_stall);
        } else if (HasPassed(deadline)) {
            RaiseCannotSend(Name(), L"the line stands still, given up after " +
                                        std::to_wstring(x_stall.count()) + L" ms (the last " +
                                        std::to_wstring(now) + L" bytes were not sent)");
        }
        left = now;
    }
}

}  // namespace ace::workbench
