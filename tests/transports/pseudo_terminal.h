/// A pair of pseudo terminals: the test holds the instrument's end.
#pragma once

#include <atomic>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace ace::workbench {

/// Records what is written to the device, unless it is told not to read.
class PseudoTerminal {
  public:
    explicit PseudoTerminal(bool reads = true) : x_end(::posix_openpt(O_RDWR | O_NOCTTY)) {
        if (x_end < 0 || ::grantpt(x_end) != 0 || ::unlockpt(x_end) != 0) {
            throw std::runtime_error("no pseudo terminal");
        }
        device = ::ptsname(x_end);
        if (reads) {
            x_thread = std::thread([this] { Read(); });
        }
    }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;
    ~PseudoTerminal() { Close(); }

    /// Pulls the plug.
    void Close() {
        x_isOver = true;
        if (x_thread.joinable()) {
            x_thread.join();
        }
        if (x_end >= 0) {
            ::close(x_end);
            x_end = -1;
        }
    }
    /// What came in, once it is so many bytes; at the latest after ten seconds.
    std::string ReceivedWhen(std::size_t bytes) const {
        for (int tries = 0; tries < 2000 && Received().size() < bytes; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return Received();
    }
    /// Settings of the line.
    termios Line() const {
        termios line{};
        ::tcgetattr(x_end, &line);
        return line;
    }

    std::string device;  ///< path of the end that a program opens

  private:
    std::string Received() const {
        const std::lock_guard lock(x_mutex);
        return x_received;
    }
    void Read() {
        char bytes[4096];
        while (!x_isOver) {
            pollfd poll{x_end, POLLIN, 0};
            const bool isReadable = ::poll(&poll, 1, 5) > 0;
            const ssize_t count = isReadable ? ::read(x_end, bytes, sizeof bytes) : 0;
            if (count > 0) {
                const std::lock_guard lock(x_mutex);
                x_received.append(bytes, static_cast<std::size_t>(count));
            } else if (isReadable) {
                // Nobody has the device open: ask again later.
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            }
        }
    }

    int x_end;
    std::atomic<bool> x_isOver = false;
    mutable std::mutex x_mutex;
    std::string x_received;
    std::thread x_thread;
};

}  // namespace ace::workbench
