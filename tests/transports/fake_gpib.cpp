/// A library with the names of the NI-488 interface that remembers its calls. With
/// FAKE_GPIB_VARIABLES the status stands in variables alone, with FAKE_GPIB_HALF `ibwrt` is
/// missing.
#include "transports/fake_gpib.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <string>

namespace {

// Bits of the status word: failed, time-out, completed.
constexpr int Err = 0x8000;
constexpr int Timo = 0x4000;
constexpr int Cmpl = 0x0100;

int statusWord = 0;
int errorCode = 0;

}  // namespace

extern "C" {

FakeGpib fakeGpib = {0, -1, false, "", "", 0};

#ifdef FAKE_GPIB_VARIABLES
int ibsta = 0;
int iberr = 0;
#else
// Of another thread: not those to read.
int ibsta = 0;
int iberr = 99;
int ThreadIbsta() {
    return statusWord;
}
int ThreadIberr() {
    return errorCode;
}
#endif

}  // extern "C"

namespace {

int Finish() {
    statusWord = Cmpl;
    if (fakeGpib.nextError >= 0) {
        statusWord |= Err | (fakeGpib.hasTimedOut ? Timo : 0);
        errorCode = fakeGpib.nextError;
    }
    fakeGpib.nextError = -1;
#ifdef FAKE_GPIB_VARIABLES
    ibsta = statusWord;
    iberr = errorCode;
#endif
    return statusWord;
}

void Note(std::string line, std::initializer_list<long> numbers) {
    for (const long number : numbers) {
        line += ' ';
        line += std::to_string(number);
    }
    std::strncat(fakeGpib.calls, (line + "\n").c_str(),
                 sizeof fakeGpib.calls - std::strlen(fakeGpib.calls) - 1);
}

}  // namespace

extern "C" {

int ibdev(int board, int primary, int secondary, int timeOut, int sendEoi, int endOfString) {
    Note("ibdev", {board, primary, secondary, timeOut, sendEoi, endOfString});
    return (Finish() & Err) != 0 ? -1 : fakeGpib.nextDevice++;
}

int ibonl(int device, int online) {
    Note("ibonl", {device, online});
    return Finish();
}

#ifndef FAKE_GPIB_HALF
int ibwrt(int device, const void* bytes, long count) {
    Note("ibwrt", {device, count});
    std::memcpy(fakeGpib.written, bytes,
                std::min(static_cast<std::size_t>(count), sizeof fakeGpib.written));
    fakeGpib.writtenCount = count;
    return Finish();
}
#endif

}  // extern "C"
