/// A switch unit: relays that make one of its paths.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// Failures and messages as with `IDevice`.
class ISwitchUnit {
  public:
    virtual ~ISwitchUnit() = default;
    /// Switches the path of that name; the host may change `path`.
    virtual void SwitchPath(String& path) = 0;
};

/// Takes every path.
class DefaultSwitchUnit : public ISwitchUnit {
  public:
    void SwitchPath(String&) override {}
};

}  // namespace ace
