/// An instrument on this machine that records what it is sent.
#pragma once

#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <mutex>
#include <netinet/in.h>
#include <poll.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace ace::workbench {

/// How an instrument treats its connections.
struct InstrumentHabits {
    bool reads = true;
    std::size_t diesAfter = 0;  ///< resets the connection after so many bytes; 0 for never
    std::string greets;         ///< sent at once to who connects
};

/// Listens on a free port of 127.0.0.1. Takes one connection after the other, until it is switched
/// off. Made of plain system calls, so that it shares nothing with what it tests.
class FakeInstrument {
  public:
    explicit FakeInstrument(InstrumentHabits habits = {}) : x_habits(std::move(habits)) {
        x_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const int small = 4096;
        ::setsockopt(x_listener, SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* plain = reinterpret_cast<sockaddr*>(&address);
        if (::bind(x_listener, plain, size) != 0 || ::listen(x_listener, 8) != 0 ||
            ::getsockname(x_listener, plain, &size) != 0) {
            throw std::runtime_error("no port for the instrument");
        }
        x_port = ntohs(address.sin_port);
        x_thread = std::thread([this] { Serve(); });
    }
    FakeInstrument(const FakeInstrument&) = delete;
    FakeInstrument& operator=(const FakeInstrument&) = delete;
    ~FakeInstrument() { SwitchOff(); }

    std::int32_t Port() const { return x_port; }

    /// Closes the connection and the port.
    void SwitchOff() {
        x_isOff = true;
        if (x_thread.joinable()) {
            x_thread.join();
            ::close(x_listener);
        }
    }
    /// Closes the connection that is open; the port goes on taking others.
    void HangUp() {
        x_hangsUp = true;
        while (x_hangsUp && !x_isOff) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    /// What came in each connection so far.
    std::vector<std::string> Received() const {
        const std::lock_guard lock(x_mutex);
        return x_received;
    }
    /// The same, once there were so many connections and the newest one has brought so many bytes;
    /// at the latest after ten seconds.
    std::vector<std::string> ReceivedWhen(std::size_t bytes, std::size_t connections = 1) const {
        for (int tries = 0; tries < 2000; ++tries) {
            const std::vector<std::string> received = Received();
            if (received.size() >= connections && received.back().size() >= bytes) {
                return received;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return Received();
    }

  private:
    static bool IsReadable(int file) {
        pollfd poll{file, POLLIN, 0};
        return ::poll(&poll, 1, 5) > 0;
    }

    void Serve() {
        while (!x_isOff) {
            x_hangsUp = false;
            if (!IsReadable(x_listener)) {
                continue;
            }
            const int peer = ::accept(x_listener, nullptr, nullptr);
            if (peer >= 0) {
                {
                    const std::lock_guard lock(x_mutex);
                    x_received.emplace_back();
                }
                Talk(peer);
                ::close(peer);
            }
        }
    }

    void Talk(int peer) {
        ::send(peer, x_habits.greets.data(), x_habits.greets.size(), MSG_NOSIGNAL);
        while (!x_isOff && !x_hangsUp) {
            if (!x_habits.reads) {
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            } else if (IsReadable(peer) && !Take(peer)) {
                return;
            }
        }
    }

    /// False when the connection is over.
    bool Take(int peer) {
        char bytes[4096];
        const ssize_t count = ::recv(peer, bytes, sizeof bytes, 0);
        if (count <= 0) {
            return false;
        }
        const std::lock_guard lock(x_mutex);
        x_received.back().append(bytes, static_cast<std::size_t>(count));
        if (x_habits.diesAfter == 0 || x_received.back().size() < x_habits.diesAfter) {
            return true;
        }
        const linger atOnce{1, 0};
        ::setsockopt(peer, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        return false;
    }

    InstrumentHabits x_habits;
    int x_listener = -1;
    std::int32_t x_port = 0;
    std::atomic<bool> x_isOff = false;
    std::atomic<bool> x_hangsUp = false;
    mutable std::mutex x_mutex;
    std::vector<std::string> x_received;
    std::thread x_thread;
};

}  // namespace ace::workbench
