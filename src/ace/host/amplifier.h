/// A power amplifier.
#pragma once

#include <ace/host/devices.h>

namespace ace {

/// Failures and messages as with `IDevice`.
class IAmplifier {
  public:
    virtual ~IAmplifier() = default;
    /// Sets the amplifier's state; the host may change `state`.
    virtual void SetState(IAmplifierState& state) = 0;
};

/// Takes every state.
class DefaultAmplifier : public IAmplifier {
  public:
    void SetState(IAmplifierState&) override {}
};

}  // namespace ace
