/// A signal path of the host's equipment: cables, switches and what they cost.
#pragma once

#include <ace/host/device.h>

namespace ace {

/// A named path. Failures and messages as with `IDevice`.
class ISignalPath {
  public:
    virtual ~ISignalPath() = default;
    /// The `IDevice` side of the same object.
    virtual std::shared_ptr<IDevice> CommonDevice() = 0;
    /// Makes the path ready after it was looked up.
    virtual void Prepare() = 0;
    /// Correction in decibels to add to a level at `frequency`, in hertz; 0 for a path without any.
    /// `kind` is always 1. The host may change both arguments.
    virtual double GetCorrection(double& frequency, std::int32_t& kind) = 0;
};

/// A path that corrects nothing.
class DefaultSignalPath : public ISignalPath {
  public:
    std::shared_ptr<IDevice> CommonDevice() override { return std::make_shared<DefaultDevice>(); }
    void Prepare() override {}
    double GetCorrection(double&, std::int32_t&) override { return 0.0; }
};

}  // namespace ace
