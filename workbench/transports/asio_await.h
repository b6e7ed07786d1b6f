/// One asynchronous operation, awaited with a time-out while the host's events run. Private to the
/// transports that use asio.
#pragma once

#include <algorithm>
#include <asio.hpp>
#include <string>

#include "workbench/transports/waiting.h"

namespace ace::workbench {

/// How an operation ended.
struct Ending {
    bool isDone = false;
    bool isTimedOut = false;
    asio::error_code error;
    std::size_t bytes = 0;  ///< written so far, also after an error

    bool IsGood() const { return isDone && !isTimedOut && !error; }
};

/// Runs `io` for a slice at a time until `ending` is done or the time is over.
inline void RunUntil(asio::io_context& io, const Ending& ending, Deadline deadline,
                     const RunEvents& events) {
    while (!ending.isDone && !HasPassed(deadline)) {
        io.restart();
        io.run_until(std::min(deadline, DeadlineIn(EventSlice)));
        if (!ending.isDone && events) {
            events();
        }
    }
}

/// Breaks off what is still under way on `stream`, so that the handler has run whatever happens.
template <class Stream>
class CancelAtEnd {
  public:
    CancelAtEnd(asio::io_context& io, Stream& stream, Ending& ending)
        : x_io(io), x_stream(stream), x_ending(ending) {}
    CancelAtEnd(const CancelAtEnd&) = delete;
    CancelAtEnd& operator=(const CancelAtEnd&) = delete;
    // NOLINTNEXTLINE(bugprone-exception-escape): of a handler that throws nothing is left to save.
    ~CancelAtEnd() {
        if (x_ending.isDone) {
            return;
        }
        asio::error_code ignored;
        x_stream.cancel(ignored);
        while (!x_ending.isDone) {
            x_io.restart();
            x_io.run_one();
        }
        // What ended by itself at the last moment did end.
        x_ending.isTimedOut = static_cast<bool>(x_ending.error);
    }

  private:
    asio::io_context& x_io;
    Stream& x_stream;
    Ending& x_ending;
};

/// Starts an operation on `stream` by `start(handler)` and waits until it ends or is broken off.
template <class Stream, class Start>
Ending Await(asio::io_context& io, Stream& stream, Deadline deadline, const RunEvents& events,
             Start&& start) {
    Ending ending;
    {
        const CancelAtEnd<Stream> cancel(io, stream, ending);
        start([&ending](const asio::error_code& error, std::size_t bytes = 0) {
            ending.error = error;
            ending.bytes = bytes;
            ending.isDone = true;
        });
        RunUntil(io, ending, deadline, events);
    }
    return ending;
}

/// Writes all of `bytes`.
template <class Stream>
Ending AwaitWrite(asio::io_context& io, Stream& stream, const std::string& bytes, Deadline deadline,
                  const RunEvents& events) {
    return Await(io, stream, deadline, events,
                 [&](auto handler) { asio::async_write(stream, asio::buffer(bytes), handler); });
}

}  // namespace ace::workbench
