/// What the engine needs of the machine and its toolkit.
#pragma once

#include <ace/host/run_time_error.h>

namespace ace {

/// Message queue, sound, programs, thread, locale and clock. Only `Yield` lets messages run.
class IPlatform {
  public:
    /// `sndPlaySoundA` flags: play on while the caller goes on (SND_ASYNC, 1), no default sound for
    /// a missing file (SND_NODEFAULT, 2), leave a playing sound alone (SND_NOSTOP, 16).
    static constexpr std::int32_t SoundFlags = 1 | 2 | 16;

    virtual ~IPlatform() = default;
    /// Lets the pending messages run once. The host may call any operation of any engine from them.
    virtual void Yield() = 0;
    /// Plays a wave file; the host turns the name into its 8-bit form. 0 means failure.
    virtual std::int32_t sndPlaySoundA(const String& fileName, std::int32_t flags) = 0;
    /// One system beep.
    virtual void Beep() = 0;
    /// Brings the program of a process identifier to the front; error 5 when there is none.
    virtual void ActivateProgram(double processId) = 0;
    /// Starts a command line as a person would type it, with normal focus, and answers its process
    /// identifier. A start that fails is a run-time error. 0 without an error asks the engine to
    /// wait for the program to appear, without end.
    virtual double StartProgram(const String& commandLine) = 0;
    /// Number of the running thread, for trace lines and error reports.
    virtual std::int32_t ThreadId() = 0;
    /// The decimal separator of the user's locale.
    virtual wchar_t DecimalSeparator() = 0;
    /// Seconds since midnight, local time, fractions included; 0 again at midnight.
    virtual float SecondsSinceMidnight() = 0;
};

/// A silent machine with a decimal point, no messages and a clock that stands. Sounds count as
/// played.
class DefaultPlatform : public IPlatform {
  public:
    void Yield() override {}
    std::int32_t sndPlaySoundA(const String&, std::int32_t) override { return 1; }
    void Beep() override {}
    void ActivateProgram(double) override { Raise(Errors::InvalidProcedureCall); }
    double StartProgram(const String&) override { Raise(Errors::NoSuchFile); }
    std::int32_t ThreadId() override { return 0; }
    wchar_t DecimalSeparator() override { return L'.'; }
    float SecondsSinceMidnight() override { return 0.0F; }
};

}  // namespace ace
