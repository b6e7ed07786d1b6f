/// A device that watches the equipment under test.
#pragma once

#include <ace/host/device.h>

namespace ace {

/// Channels to read and a frequency to follow. Failures and messages as with `IDevice`.
class IMonitorDevice {
  public:
    /// What the device is about to be used for, and in `Capabilities` what it can be used for, as
    /// bits: to be set, for a check, to follow a frequency.
    static constexpr std::int32_t UseToSet = 2;
    static constexpr std::int32_t UseToCheck = 4;
    static constexpr std::int32_t UseToTrack = 8;
    /// The reading that marks a failed read of the device.
    static constexpr double FailedRead = 12345.0;

    virtual ~IMonitorDevice() = default;
    /// The `IDevice` side of the same object.
    virtual std::shared_ptr<IDevice> CommonDevice() = 0;
    /// The uses for which the editor offers the device, as bits.
    virtual std::int32_t Capabilities() = 0;
    /// Tells what the device is used for next; the host may change `mode`.
    virtual void SetUseMode(std::int32_t& mode) = 0;
    /// Applies the loaded settings to `channel`; `apply` is always 1.
    virtual void SetChannel(std::int32_t channel, std::int32_t apply) = 0;
    /// Reading of `channel`: 0 while the equipment is well, `FailedRead` when the device could not
    /// be read, anything else is a failure of the equipment.
    virtual double ReadChannel(std::int32_t channel) = 0;
    /// Tunes the device to `frequency`, in hertz; the host may change it.
    virtual void SetFrequency(double& frequency) = 0;
};

/// Can be used for everything and reads 0 on every channel.
class DefaultMonitorDevice : public IMonitorDevice {
  public:
    std::shared_ptr<IDevice> CommonDevice() override { return std::make_shared<DefaultDevice>(); }
    std::int32_t Capabilities() override { return UseToSet | UseToCheck | UseToTrack; }
    void SetUseMode(std::int32_t&) override {}
    void SetChannel(std::int32_t, std::int32_t) override {}
    double ReadChannel(std::int32_t) override { return 0.0; }
    void SetFrequency(double&) override {}
};

}  // namespace ace
