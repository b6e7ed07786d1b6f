/// The host's driver of the instrument bus.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// The instrument bus, with the arguments of the NI-488 calls. No operation lets messages run.
class IGpibDriver {
  public:
    virtual ~IGpibDriver() = default;
    /// Opens the device at `primary` on `board` (`ibdev`): secondary address 0, time-out code 11,
    /// which is one second, EOI asserted (1), no end-of-string character (0). The answer is the
    /// handle, -1 when the device can't be opened.
    virtual std::int16_t OpenDevice(std::int16_t board, std::int16_t primary,
                                    std::int16_t secondary, std::int16_t timeOut,
                                    std::int16_t sendEoi, std::int16_t endOfString) = 0;
    /// Takes the device of `handle` off line (`ibonl` with 0). The handle is a 16-bit value in 32
    /// bits; `online` is always 0; the answer is not read.
    virtual std::int32_t CloseDevice(std::int32_t handle, std::int32_t online) = 0;
    /// Writes the text to the device (`ibwrt`); a failure is a run-time error.
    virtual void WriteString(std::int16_t handle, const String& text) = 0;
};

/// A bus without devices.
class DefaultGpibDriver : public IGpibDriver {
  public:
    std::int16_t OpenDevice(std::int16_t, std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                            std::int16_t) override {
        return -1;
    }
    std::int32_t CloseDevice(std::int32_t, std::int32_t) override { return 0; }
    void WriteString(std::int16_t, const String&) override {}
};

}  // namespace ace
