/// An RF generator that follows the measurement.
#pragma once

#include <ace/host/device.h>

namespace ace {

/// What is set waits until `Execute`. Failures and messages as with `IDevice`.
class IRfGenerator {
  public:
    virtual ~IRfGenerator() = default;
    /// The `IDevice` side of the same object.
    virtual std::shared_ptr<IDevice> CommonDevice() = 0;
    /// Frequency in hertz.
    virtual void SetFrequency(double frequency) = 0;
    /// Output level in the unit of the calibration table that it comes from.
    virtual void SetLevel(double level) = 0;
    /// RF output on or off.
    virtual void SetRfOn(bool on) = 0;
    /// Applies what was set.
    virtual void Execute() = 0;
};

/// Takes everything and does nothing.
class DefaultRfGenerator : public IRfGenerator {
  public:
    std::shared_ptr<IDevice> CommonDevice() override { return std::make_shared<DefaultDevice>(); }
    void SetFrequency(double) override {}
    void SetLevel(double) override {}
    void SetRfOn(bool) override {}
    void Execute() override {}
};

}  // namespace ace
