/// A calibration table: levels over frequency.
#pragma once

#include <ace/host/value.h>

namespace ace {

/// Failures are run-time errors. No operation lets messages run.
class ICalTable {
  public:
    virtual ~ICalTable() = default;
    /// The level at `frequency`, in hertz; between two entries the host interpolates. `first` is
    /// always 1 and `second` the number 2.
    virtual double GetValue(double frequency, std::int32_t first, const Value& second) = 0;
};

/// Level 0 at every frequency.
class DefaultCalTable : public ICalTable {
  public:
    double GetValue(double, std::int32_t, const Value&) override { return 0.0; }
};

}  // namespace ace
