/// The host's comparisons and ranges.
#pragma once

#include <span>

#include <ace/host/value.h>

namespace ace {

/// Comparing, ranking and ranges as the host does them. Only `Wait` lets messages run.
class IUtilities {
  public:
    virtual ~IUtilities() = default;
    /// The host's comparison of two frequencies in hertz; whether it allows a tolerance is its own.
    virtual bool IsEqual(double a, double b) = 0;
    /// The host's comparison of two readings; whether it allows a tolerance is its own.
    virtual bool IsSameValue(double a, double b) = 0;
    /// The largest of `first` and `further`.
    virtual Value Max(const Value& first, std::span<const Value> further) = 0;
    /// `value` lies between the bounds, both included.
    virtual bool InRange(const Value& lower, const Value& value, const Value& upper) = 0;
    /// Lets the given time pass; messages run meanwhile. The status is not read.
    virtual std::int32_t Wait(float milliseconds) = 0;
};

/// Plain arithmetic: exact equality, ranking by number. A text where a number is needed is
/// error 13.
class DefaultUtilities : public IUtilities {
  public:
    bool IsEqual(double a, double b) override { return a == b; }
    bool IsSameValue(double a, double b) override { return a == b; }
    Value Max(const Value& first, std::span<const Value> further) override;
    bool InRange(const Value& lower, const Value& value, const Value& upper) override;
    std::int32_t Wait(float) override { return 0; }
};

}  // namespace ace
