/// A measuring receiver.
#pragma once

#include <ace/host/device.h>

namespace ace {

/// Failures and messages as with `IDevice`.
class IReceiver {
  public:
    /// The parameter that switches the protection of the receiver's input.
    static constexpr std::int32_t Protection = 18;

    virtual ~IReceiver() = default;
    /// The `IDevice` side of the same object.
    virtual std::shared_ptr<IDevice> CommonDevice() = 0;
    /// Sets parameter `id` to `value`. The next three arguments are always true, 0 and empty; the
    /// answer is the host's and nothing reads it.
    virtual std::int32_t SetParameter(std::int32_t id, const String& value, bool apply,
                                      std::int32_t index, const String& option) = 0;
};

/// Takes every parameter.
class DefaultReceiver : public IReceiver {
  public:
    std::shared_ptr<IDevice> CommonDevice() override { return std::make_shared<DefaultDevice>(); }
    std::int32_t SetParameter(std::int32_t, const String&, bool, std::int32_t,
                              const String&) override {
        return 0;
    }
};

}  // namespace ace
